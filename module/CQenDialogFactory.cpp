#include "module/CQenDialogFactory.h"

#include <array>

namespace {
std::array<CQenDialogFactory::Maker, static_cast<std::size_t>(QenEntry::Count)>& makers() {
  static std::array<CQenDialogFactory::Maker, static_cast<std::size_t>(QenEntry::Count)> table;
  return table;
}
}  // namespace

std::unique_ptr<CQenEntryDialog> CQenDialogFactory::make(QenEntry entry, CWnd* parent) {
  const Maker& maker = makers()[static_cast<std::size_t>(entry)];
  return maker ? maker(parent) : nullptr;
}

bool CQenDialogFactory::has(QenEntry entry) { return static_cast<bool>(makers()[static_cast<std::size_t>(entry)]); }

CQenDialogFactory::Maker CQenDialogFactory::install(QenEntry entry, Maker maker) {
  Maker previous = std::move(makers()[static_cast<std::size_t>(entry)]);
  makers()[static_cast<std::size_t>(entry)] = std::move(maker);
  return previous;
}

const wchar_t* CQenDialogFactory::dialogName(QenEntry entry) {
  switch (entry) {
    case QenEntry::Block: return L"setting-block dialog (KLOTZ)";
    case QenEntry::Seal: return L"seal dialog (DICHT)";
    case QenEntry::Silicone: return L"silicone dialog (SILIKON)";
    case QenEntry::Membrane: return L"membrane dialog (FOLIE)";
    case QenEntry::Insulation: return L"insulation dialog (DM)";
    case QenEntry::Axis: return L"axis dialog (AXIS)";
    case QenEntry::Sheet: return L"sheet-metal dialog (BLECH)";
    case QenEntry::Layer: return L"layer dialog (LAYER)";
    case QenEntry::Hatch: return L"hatch dialog (HATCH)";
    case QenEntry::Label: return L"labeling dialog (LABEL)";
    default: return L"dialog";
  }
}
