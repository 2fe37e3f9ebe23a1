#include "ui/CZelMatTreeDlg.h"

#include "data/CZelMatMgr.h"
#include "resources/dialogs/platform/mattree_ids.h"
#include "ui/CButton.h"
#include "ui/CStatic.h"

// clang-format off
const CMessageMapEntry CZelMatTreeDlg::kEntries[] = {
  msgmap::wordNotify(IDC_MATTREE_TREE, TVN_SELCHANGED, L"select"),
  msgmap::wordNotify(IDC_MATTREE_TREE, NM_DBLCLK, L"choose"),
};
// clang-format on
const CMessageMap CZelMatTreeDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                              msgmap::wordHandler<&CZelMatTreeDlg::command>()};

CZelMatTreeDlg::CZelMatTreeDlg(const ZEL::DlgEnvMatTree_st& env, const CZelString& material)
    : CZelDlg(IDD_ZEL_MATTREE, env.parentWnd()), m_env(env), m_material(material) {
  SetCountry(env.country);
  SetHelpFile(env.helpFile);
  SetHelpTopic(env.helpTopic);
}

void CZelMatTreeDlg::addLangRsc() {
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CZelMatTreeDlg::updLang() {
  SetWindowText(GetMsg(L"ZEL_MAT_TREE_001", L"Material wählen"));
  return CZelDlg::updLang();
}

BOOL CZelMatTreeDlg::OnInitDialog() {
  m_tree.SubclassDlgItem(IDC_MATTREE_TREE, this);
  CZelDlg::OnInitDialog();
  m_refreshing = true;
  m_tree.init(m_env.all ? 1 : 0, m_material, m_env.filter);
  if (!m_tree.GetSelectedItem())
    if (HTREEITEM root = m_tree.GetRootItem()) m_tree.Expand(root, TVE_EXPAND);
  m_refreshing = false;
  refresh();
  GotoDlgCtrl(&m_tree);
  return FALSE;
}

CZelString CZelMatTreeDlg::selectedMaterial() const {
  HTREEITEM sel = m_tree.GetSelectedItem();
  return sel ? m_tree.GetItemText(sel) : CZelString();
}

void CZelMatTreeDlg::refresh() {
  m_refreshing = true;
  CZelString sel = selectedMaterial();
  bool choosable = m_tree.offers(sel);
  CZelString label = sel.isEmpty() ? CZelString() : CZelMatMgr().matLabel(sel, country());
  staticCtrl(IDC_MATTREE_LABEL).SetWindowText(label);
  button(IDOK).EnableWindow(choosable);
  m_refreshing = false;
}

void CZelMatTreeDlg::command(const CZelString& word) {
  if (m_refreshing) return;
  refresh();
  if (word == L"choose" && button(IDOK).IsWindowEnabled()) OnOK();
}

void CZelMatTreeDlg::OnOK() {
  CZelString sel = selectedMaterial();
  if (!m_tree.offers(sel)) return;
  m_material = sel;
  CZelDlg::OnOK();
}
