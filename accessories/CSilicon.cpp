#include "accessories/CSilicon.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "module/CQenDialogFactory.h"
#include "obj/ZelObjKey.h"
#include "qen_mfc.h"
#include "resources/dialogs/silicone_ids.h"

namespace {

const QenAccessoryFrame kFrame{
    L"SILIKON", L"*HZ_SILIKON*", L"qen_silikon", L"HZ011", L"Versiegelung", IDD_SILICONE_TAB, L"HATCH", {}, true, false,
};

constexpr int kVariants[] = {IDC_SILICONE_VARIANT1, IDC_SILICONE_VARIANT2, IDC_SILICONE_VARIANT3};

const QenDialogRegistration kRegistration(QenEntry::Silicone, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CSilicon(parent));
});

}  // namespace

// The tab is constructed before the frame uses it: the frame keeps only a reference.
CSilicon::CSilicon(CWnd* parent) : CQenAccessoryDlg(IDD_SILICONE, kFrame, m_silicone, parent) {}

void CSilicon::init(qenDlgEnv_st& record, QenSectionSet& sections) {
  CQenAccessoryDlg::init(record, sections);
  // The material tree offers every material of the system.
  CZelDataKey treeKey(L"*MAT_TREE_PARM*");
  if (!ZEL::cfg_get(treeKey)) ZEL::cfg_dir_make(treeKey);
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> tree(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &treeKey, nullptr));
  CZelDataItem* root = tree ? tree->get(nullptr, true) : nullptr;
  if (!root) return;
  CZelArrayTempl<CZelString> filter;
  filter.add(L"SYSTEM");
  CZelDataKey filterKey(L"FILTER"), fullKey(L"FULL"), allKey(L"ALL");
  root->put(&filterKey, ZEL::mkResbuf(filter));
  root->remove(&fullKey);
  ZEL::dataItemSet(root, &allKey, 1);
}

void CSilicon::addLangRsc() {
  CQenAccessoryDlg::addLangRsc();
  langRsc(qen::IDC_REPR_GROUP, L"QEN_DCL_HLBZ_027", L"Darstellung");
  langRsc(IDC_SILICONE_VARIANT_GROUP, L"QEN_DCL_HLBZ_023", L"Variante");
  langRsc(IDC_SILICONE_CORD, L"QEN_DCL_HLBZ_154", L"Dichtschnur");
}

bool CSilicon::updLang() {
  const bool done = CQenAccessoryDlg::updLang();
  const CZelString hatch = GetMsg(L"QEN_DCL_HLBZ_152", L"Schraffur");
  SetDlgItemText(IDC_SILICONE_HATCH, (hatch + L" " + GetMsg(L"QEN_DCL_HLBZ_153", L"Silikon")).c_str());
  SetDlgItemText(IDC_SILICONE_HATCH2, (hatch + L" " + GetMsg(L"QEN_DCL_HLBZ_154", L"Dichtschnur")).c_str());
  return done;
}

CZelString CSilicon::text(const wchar_t* key) {
  CZelString value;
  CZelDataKey k(key);
  if (CZelDataItem* root = section() ? section()->get() : nullptr) root->get(value, &k);
  return value;
}

void CSilicon::write(const wchar_t* key, const wchar_t* value) {
  CZelDataKey k(key);
  ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &k, value);
}

void CSilicon::write(const wchar_t* key, int value) {
  CZelDataKey k(key);
  ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &k, value);
}

void CSilicon::refreshRepresentation() {
  const CZelString hatch = text(L"HATCH"), hatch2 = text(L"HATCH2"), cons = text(L"CONS");
  CheckDlgButton(IDC_SILICONE_HATCH, BST_UNCHECKED);
  CheckDlgButton(IDC_SILICONE_HATCH2, BST_UNCHECKED);
  CheckDlgButton(IDC_SILICONE_CORD, BST_UNCHECKED);
  // S assigns the hatch of the silicone and the one of the cord: it is of use when either is hatched.
  GetDlgItem(qen::IDC_ASSIGN_HATCH)->EnableWindow(hatch == L"K" || hatch2 == L"K");
  if (hatch == L"K") CheckDlgButton(IDC_SILICONE_HATCH, BST_CHECKED);
  if (hatch2 == L"K") CheckDlgButton(IDC_SILICONE_HATCH2, BST_CHECKED);

  // A joint in the drawing keeps its construction.
  CZelDataKey origKey;
  origKey.set(5005, m_frame.section, 5005, L"ORIG", 0);
  GetDlgItem(IDC_SILICONE_CORD)->EnableWindow(ZEL::cfg_get(origKey) == nullptr);
  if (cons == L"D") {
    CheckDlgButton(IDC_SILICONE_CORD, BST_CHECKED);
    GetDlgItem(IDC_SILICONE_HATCH2)->EnableWindow(TRUE);
    CheckDlgButton(IDC_SILICONE_HATCH2, hatch2 == L"K" ? BST_CHECKED : BST_UNCHECKED);
  } else if (cons == L"V") {
    GetDlgItem(IDC_SILICONE_HATCH2)->EnableWindow(FALSE);
  }

  int variant = -1;
  CZelDataKey varKey(L"VAR");
  if (CZelDataItem* root = section() ? section()->get() : nullptr) root->get(variant, &varKey);
  for (int i = 0; i < 3; ++i) {
    CheckDlgButton(kVariants[i], variant == i + 1 ? BST_CHECKED : BST_UNCHECKED);
    // Without a cord there is one joint only.
    GetDlgItem(kVariants[i])->EnableWindow(cons != L"V");
  }
}

bool CSilicon::representationClicked(UINT id) {
  const int control = static_cast<int>(id);
  if (control == IDC_SILICONE_HATCH || control == IDC_SILICONE_HATCH2) {
    const bool checked = IsDlgButtonChecked(control) == BST_CHECKED;
    write(control == IDC_SILICONE_HATCH ? L"HATCH" : L"HATCH2", checked ? L"K" : L"N");
    refreshMain();
    if (pageExists(m_page)) m_page.refresh();
    return true;
  }
  if (control == IDC_SILICONE_CORD) {
    CZelDataItem* root = section() ? section()->get(nullptr, true) : nullptr;
    const CZelString before = ZEL::objKey(root, 3);
    write(L"CONS", IsDlgButtonChecked(IDC_SILICONE_CORD) == BST_CHECKED ? L"D" : L"V");
    const CZelString after = ZEL::objKey(root, 3);
    if (!before.isEmpty() && !after.isEmpty() && before != after) objGen_objProp_Sync(m_frame.type);
    refreshMain();
    if (pageExists(m_page)) m_page.refresh();
    return true;
  }
  for (int i = 0; i < 3; ++i) {
    if (control != kVariants[i]) continue;
    write(L"VAR", i + 1);
    if (pageExists(m_page)) m_page.refresh();
    refreshMain();
    return true;
  }
  return false;
}
