// Which main dialog each entry function runs. Each dialog registers its maker where it is
// defined; tests put their own dialogs in place for the time of a test.
#pragma once

#include "module/CQenEntryDialog.h"

#include <functional>
#include <memory>

class CWnd;

enum class QenEntry { Block, Seal, Silicone, Membrane, Insulation, Axis, Sheet, Layer, Hatch, Label, Count };

class CQenDialogFactory {
public:
  using Maker = std::function<std::unique_ptr<CQenEntryDialog>(CWnd* parent)>;

  // The dialog for an entry, or none when this build has no dialog for it.
  static std::unique_ptr<CQenEntryDialog> make(QenEntry entry, CWnd* parent);
  static bool has(QenEntry entry);
  // Puts a maker in place and returns the one it replaces.
  static Maker install(QenEntry entry, Maker maker);
  // What the user reads when an entry has no dialog: "the setting-block dialog".
  static const wchar_t* dialogName(QenEntry entry);
};

// Registers a dialog's maker at load time: `static QenDialogRegistration r(QenEntry::Block, …);`
struct QenDialogRegistration {
  QenDialogRegistration(QenEntry entry, CQenDialogFactory::Maker maker) { CQenDialogFactory::install(entry, std::move(maker)); }
};
