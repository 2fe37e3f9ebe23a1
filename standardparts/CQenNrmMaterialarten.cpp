#include "standardparts/CQenNrmMaterialarten.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataItem.h"
#include "data/CZelMatMgr.h"
#include "data/ZelDataAccess.h"
#include "norm/ZelNorm.h"
#include "norm/ZelNormGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjTxt.h"
#include "resources/dialogs/din_mat_ids.h"
#include "ui/CButton.h"
#include "ui/CStatic.h"
#include "ui/ZelHelp.h"

#include <algorithm>

// clang-format off
const CMessageMapEntry CQenNrmMaterialarten::kEntries[] = {
  msgmap::word(IDC_DIN_MAT_ADD, BN_CLICKED, L"add"),
  msgmap::word(IDC_DIN_MAT_REMOVE, BN_CLICKED, L"rem"),
  msgmap::word(IDC_DIN_MAT_LIST, LBN_SELCHANGE, L"mat_lst"),
  msgmap::wordNotify(IDC_DIN_MAT_TREE, TVN_SELCHANGED, L"mat_tree"),
};
// clang-format on
const CMessageMap CQenNrmMaterialarten::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                    msgmap::wordHandler<&CQenNrmMaterialarten::command>()};

namespace {

const wchar_t* const kMatCur = L"*NM*\\MAT_CUR";
const wchar_t* const kTreeMat = L"*MAT_TREE_PARM*\\MAT";

CZelString storedString(const wchar_t* path) {
  CZelString value;
  CZelDataItem* item = ZEL::cfg_get(path);
  if (item) item->get(value);
  return value;
}

// The only-articles switch: "_QEN_NORM_ORDER" holds a readable integer.
bool onlyArticles() {
  int value = 0;
  CZelDataItem* item = ZEL::cfg_get(L"_QEN_NORM_ORDER");
  return item && item->get(value);
}

// A part's "STACK": a string array, or a single string as a one-element stack.
ZEL::NormStack partStack(const CZelDataItem& part) {
  CZelArrayTempl<CZelString> stack;
  CZelDataKey key(L"STACK");
  if (!part.get(stack, &key)) {
    CZelString single;
    if (part.get(single, &key) && !single.isEmpty()) stack.add(single);
  }
  ZEL::NormStack out;
  for (const CZelString& s : stack) out.push_back(s.toUtf8());
  return out;
}

}  // namespace

CQenNrmMaterialarten::CQenNrmMaterialarten(CWnd* parent) : CZelDlg(IDD_DIN_MAT, parent) {}

CZelDataKey CQenNrmMaterialarten::addedKey(const CZelString& objectKey2) {
  CZelDataKey key;
  key.set(CZelArrayTempl<CZelString>{CZelString(L"*QEN_NM_PROP*"), objectKey2, CZelString(L"MAT")});
  return key;
}

CZelArrayTempl<CZelString> CQenNrmMaterialarten::readAdded(const CZelString& objectKey2) {
  CZelArrayTempl<CZelString> added;
  if (objectKey2.isEmpty()) return added;
  CZelDataItem* item = ZEL::cfg_get(addedKey(objectKey2));
  if (!item) return added;
  if (!item->get(added)) {
    CZelString single;
    if (item->get(single) && !single.isEmpty()) added.add(single);
  }
  return added;
}

void CQenNrmMaterialarten::writeAdded(const CZelArrayTempl<CZelString>& added) const {
  if (m_key.isEmpty()) return;
  // A list even of one material; no list at all once the last one is removed.
  if (added.isEmpty()) ZEL::cfg_remove(addedKey(m_key));
  else ZEL::cfg_set(addedKey(m_key), ZEL::mkDataItem(ZEL::rbToList(ZEL::mkResbuf(added))), true);
  // The catalogue data cached for the standard knows the materials as they were.
  ZEL::norm_gen_init(false);
}

void CQenNrmMaterialarten::addLangRsc() {
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CQenNrmMaterialarten::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_0000_022", L"Materialarten"));
  return CZelDlg::updLang();
}

BOOL CQenNrmMaterialarten::OnInitDialog() {
  m_initialising = true;
  if (!useStoredCountry() && !m_env.country.isEmpty()) SetCountry(m_env.country);
  m_list.SubclassDlgItem(IDC_DIN_MAT_LIST, this);
  m_tree.SubclassDlgItem(IDC_DIN_MAT_TREE, this);
  CZelDlg::OnInitDialog();
  SetHelpTopic(L"QEN_NM_MAT");
  CZelString helpFile;
  if (ZEL::help_find(L"QEN", helpFile)) SetHelpFile(helpFile);
  m_titleFont.CreateFont(15, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                         DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Arial");
  staticCtrl(IDC_DIN_MAT_TITLE).SetFont(&m_titleFont);
  refresh();
  m_initialising = false;
  return FALSE;
}

CZelString CQenNrmMaterialarten::current() const {
  CZelString cur = storedString(kMatCur);
  if (cur.isEmpty()) cur = storedString(L"*NM*\\MAT");
  return cur;
}

void CQenNrmMaterialarten::refresh() {
  m_refreshing = true;
  const bool articles = onlyArticles();
  ZEL::CUniqPointer<CZelDataItem> part(ZEL::norm_gen(articles));
  m_key = part ? ZEL::objKey(part.get(), 2) : CZelString();
  m_added = readAdded(m_key);
  // The standard's own materials in the catalogue's order, then the added ones, newest first.
  m_offered.clear();
  m_materials.clear();
  if (part)
    for (const std::string& m : ZEL::norm_mat_lst(partStack(*part), articles)) m_offered.push_back(CZelString::fromUtf8(m));
  m_materials = m_offered;
  for (const CZelString& m : m_added)
    if (!m.isEmpty() && std::find(m_materials.begin(), m_materials.end(), m) == m_materials.end()) m_materials.push_back(m);

  CZelString cur = current();
  if (std::find(m_materials.begin(), m_materials.end(), cur) == m_materials.end() && !m_materials.empty())
    cur = m_materials.front();

  staticCtrl(IDC_DIN_MAT_TITLE).SetWindowText(part ? ZEL::grpLabel(part.get(), country().c_str(), true) : CZelString());
  if (m_initialising) {
    m_tree.init(1, CZelString(), CZelArrayTempl<CZelString>());
    if (!m_tree.GetSelectedItem())
      if (HTREEITEM root = m_tree.GetRootItem()) m_tree.Expand(root, TVE_EXPAND);
  }
  GotoDlgCtrl(&m_tree);
  ZEL::cfg_set(kMatCur, ZEL::mkDataItem(ZEL::mkResbuf(cur.c_str())), true);

  CZelMatMgr mgr;
  m_list.ResetContent();
  int selected = -1;
  for (const CZelString& m : m_materials) {
    // The material catalogue's label; for a material only the standards' catalogue knows,
    // that catalogue's label; the key as the last resort.
    CZelString label = mgr.matLabel(m, L"-1");
    if (label.isEmpty()) label = CZelString::fromUtf8(QEN::norm_mat_label(m.toUtf8(), country().toUtf8()));
    const int line = m_list.AddString((label.isEmpty() ? m : label).c_str());
    if (m == cur) selected = line;
  }
  m_list.SetCurSel(selected);
  button(IDC_DIN_MAT_REMOVE).EnableWindow(m_added.find(cur) >= 0);
  button(IDC_DIN_MAT_ADD).EnableWindow(!m_key.isEmpty() && !m_tree.getSelMat().isEmpty());
  m_refreshing = false;
}

void CQenNrmMaterialarten::command(const CZelString& word) {
  if (word == L"add") add();
  else if (word == L"rem") remove();
  else if (word == L"mat_lst") listSelected();
  else if (word == L"mat_tree" && !m_refreshing && !m_initialising) treeSelected();
}

void CQenNrmMaterialarten::treeSelected() {
  const CZelString mat = m_tree.getSelMat();
  if (!mat.isEmpty()) {
    ZEL::cfg_set(kTreeMat, ZEL::mkDataItem(ZEL::mkResbuf(mat.c_str())), true);
    ZEL::cfg_set(kMatCur, ZEL::mkDataItem(ZEL::mkResbuf(mat.c_str())), true);
  }
  refresh();
}

void CQenNrmMaterialarten::listSelected() {
  const int line = m_list.GetCurSel();
  if (line < 0 || line >= static_cast<int>(m_materials.size())) return;
  const CZelString& mat = m_materials[static_cast<std::size_t>(line)];
  ZEL::cfg_set(kMatCur, ZEL::mkDataItem(ZEL::mkResbuf(mat.c_str())), true);
  button(IDC_DIN_MAT_REMOVE).EnableWindow(m_added.find(mat) >= 0);
}

void CQenNrmMaterialarten::add() {
  const CZelString mat = storedString(kTreeMat);
  // A material the standard offers itself needs no adding.
  if (mat.isEmpty() || m_key.isEmpty() || std::find(m_offered.begin(), m_offered.end(), mat) != m_offered.end()) return;
  ZEL::cfg_set(kMatCur, ZEL::mkDataItem(ZEL::mkResbuf(mat.c_str())), true);
  CZelArrayTempl<CZelString> added = m_added;
  if (added.find(mat) < 0) added.insertAt(0, mat);
  writeAdded(added);
  refresh();
}

void CQenNrmMaterialarten::remove() {
  const CZelString cur = current();
  CZelArrayTempl<CZelString> added = m_added;
  const int at = added.find(cur);
  if (cur.isEmpty() || at < 0) {
    MessageBoxW(GetMsg(L"NRM1024", L"Materialart kann nicht entfernt werden!").c_str(), L"QENORA",
                MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  ZEL::cfg_remove(kMatCur);
  added.removeAt(at);
  writeAdded(added);
  refresh();
}
