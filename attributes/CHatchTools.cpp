#include "attributes/CHatchTools.h"

#include "ui/CComboBox.h"
#include "ui/CZelEdit.h"

namespace {

const CZelDataItem* root(ZEL::CDtaFilePointer* hatches) { return hatches ? hatches->get() : nullptr; }

}  // namespace

bool CHatchTools::readHatch2Mode(ZEL::CDtaFilePointer* hatches, int& mode) const {
  const CZelDataItem* item = root(hatches);
  CZelDataKey key(L"IS_HATCH2");
  return item && item->get(mode, &key);
}

int CHatchTools::readHatchMode(ZEL::CDtaFilePointer* hatches) const {
  int mode = -1;
  CZelDataKey key(L"IS_HATCH");
  if (const CZelDataItem* item = root(hatches)) item->get(mode, &key);
  return mode;
}

CZelString CHatchTools::readText(ZEL::CDtaFilePointer* hatches, const wchar_t* path) const {
  CZelString text;
  CZelDataKey key = CZelDataKey::fromPath(path);
  if (const CZelDataItem* item = root(hatches)) item->get(text, &key);
  return text;
}

bool CHatchTools::readReal(ZEL::CDtaFilePointer* hatches, const wchar_t* path, double& value) const {
  CZelDataKey key = CZelDataKey::fromPath(path);
  const CZelDataItem* item = root(hatches);
  return item && item->get(value, &key);
}

void CHatchTools::showRadios(CWnd& page, int systemId, int materialId, int ownId, int mode, int groupId, bool show) const {
  for (int id : {groupId, systemId, materialId, ownId}) {
    CWnd* w = page.GetDlgItem(id);
    w->ShowWindow(show ? SW_SHOW : SW_HIDE);
    w->EnableWindow(show);
  }
  for (int id : {systemId, materialId, ownId}) page.CheckDlgButton(id, BST_UNCHECKED);
  if (!show) return;
  if (mode == 0) page.CheckDlgButton(systemId, BST_CHECKED);
  else if (mode == 1) page.CheckDlgButton(materialId, BST_CHECKED);
  else if (mode == 2) page.CheckDlgButton(ownId, BST_CHECKED);
}

CZelString CHatchTools::description(const HatchPatterns& patterns, const CZelString& pattern, const CZelString& notFound) {
  for (const auto& [name, text] : patterns)
    if (name == pattern) return text;
  return pattern + L" - " + notFound;
}

void CHatchTools::showDetails(CWnd& page, const HatchDetailIds& ids, CComboBox& combo, const HatchPatterns& patterns,
                              CZelEdit& angleField, double angle, CZelEdit& scaleField, double scale, int mode,
                              const CZelString& pattern, bool comboEnabled, const CZelString& notFound) const {
  for (int id : {ids.group, ids.patternLabel, ids.pattern, ids.description, ids.angleLabel, ids.angle, ids.scaleLabel, ids.scale})
    page.GetDlgItem(id)->ShowWindow(SW_SHOW);

  // A solid fill has neither direction nor spacing.
  const bool editable = mode == 2 && pattern.upper() != L"SOLID";
  angleField.EnableWindow(editable);
  scaleField.EnableWindow(editable);
  angleField.setVal(angle);
  scaleField.setVal(scale);

  combo.ResetContent();
  combo.AddString(L"SOLID");
  for (const auto& [name, text] : patterns)
    if (!name.isEmpty() && name != L"SOLID") combo.AddString(name.c_str());
  int selected = 0;
  for (int i = 0; i < combo.GetCount(); ++i)
    if (combo.GetLBText(i).match(pattern)) {
      selected = i;
      break;
    }
  combo.SetCurSel(selected);
  combo.EnableWindow(comboEnabled);

  page.SetDlgItemText(ids.description, description(patterns, pattern, notFound).c_str());
}
