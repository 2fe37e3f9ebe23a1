// Whether an entry function has its dialog in this build: asked of the dialog factory, so
// that a dialog is available exactly when it has registered its maker.
#include "qen_entries.h"

#include "module/CQenDialogFactory.h"

#include <cstring>

QEN_API bool qenEntryAvailable(const char* entryFunction) {
  if (!entryFunction) return false;
  static const struct {
    const char* function;
    QenEntry entry;
  } kDialogs[] = {
    {"qenDlgHzKl", QenEntry::Block},     {"qenDlgHzDi", QenEntry::Seal},      {"qenDlgHzSi", QenEntry::Silicone},
    {"qenDlgHzFo", QenEntry::Membrane},  {"qenDlgDm", QenEntry::Insulation},  {"qenDlgAxis", QenEntry::Axis},
    {"qenDlgHzBl", QenEntry::Sheet},     {"qenDlgMatObjLayer", QenEntry::Layer}, {"qenDlgMatObjHatch", QenEntry::Hatch},
    {"qenDlgObjTxt", QenEntry::Label},
  };
  for (const auto& d : kDialogs)
    if (std::strcmp(d.function, entryFunction) == 0) return CQenDialogFactory::has(d.entry);
  // The item dialog, the standard-parts dialog and its material types are not factory
  // dialogs: they are always part of the module.
  return std::strcmp(entryFunction, "qenItemDlgMenu") == 0 || std::strcmp(entryFunction, "qenNormMenu") == 0 ||
         std::strcmp(entryFunction, "qenNormMatMenu") == 0;
}
