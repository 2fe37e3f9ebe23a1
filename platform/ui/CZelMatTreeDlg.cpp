#include "ui/CZelMatTreeDlg.h"

#include "data/CZelMatMgr.h"
#include "resources/dialogs/platform/mattree_ids.h"
#include "ui/CButton.h"
#include "ui/CStatic.h"
#include "ui/CTreeCtrl.h"

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
  CZelDlg::OnInitDialog();
  fill();
  CTreeCtrl& t = tree(IDC_MATTREE_TREE);
  auto current = m_nodes.find(m_material);
  m_refreshing = true;
  if (current != m_nodes.end()) {
    t.SelectItem(current->second);
    t.EnsureVisible(current->second);
  } else if (HTREEITEM root = t.GetRootItem()) {
    t.Expand(root, TVE_EXPAND);
  }
  m_refreshing = false;
  refresh();
  GotoDlgCtrl(&t);
  return FALSE;
}

void CZelMatTreeDlg::fill() {
  CZelMatMgr mgr;
  CZelArrayTempl<CZelString> all;
  mgr.matAll(all);
  CZelArrayTempl<CZelString> edge, draw;
  mgr.matEdgeAll(edge, false);
  mgr.matDrawAll(draw, false);
  bool onlyEdge = m_env.filter.find(L"EDGE") >= 0;
  bool onlyDraw = m_env.filter.find(L"DRAW") >= 0 || !m_env.all;
  bool withSystem = m_env.filter.find(L"SYSTEM") >= 0;
  for (const CZelString& name : all) {
    if (name == L"SYSTEM" && !withSystem) continue;
    if (onlyEdge && edge.find(name) < 0) continue;
    if (onlyDraw && draw.find(name) < 0) continue;
    m_offered.insert(name);
  }
  // Catalogue order, each material under its parent; a parent that is not offered itself
  // still stands in the tree so that its offered children keep their place.
  for (const CZelString& name : all)
    if (m_offered.count(name)) insertMaterial(name);
}

HTREEITEM CZelMatTreeDlg::insertMaterial(const CZelString& name) {
  auto known = m_nodes.find(name);
  if (known != m_nodes.end()) return known->second;
  CZelArrayTempl<CZelString> chain;
  CZelMatMgr().matPath(chain, name);
  HTREEITEM parent = TVI_ROOT;
  // Guard against a chain that leads back to the material itself.
  if (chain.count() > 1 && chain[1] != name) parent = insertMaterial(chain[1]);
  HTREEITEM node = tree(IDC_MATTREE_TREE).InsertItem(name.c_str(), parent);
  m_nodes[name] = node;
  return node;
}

CZelString CZelMatTreeDlg::selectedMaterial() const {
  CTreeCtrl& t = tree(IDC_MATTREE_TREE);
  HTREEITEM sel = t.GetSelectedItem();
  return sel ? t.GetItemText(sel) : CZelString();
}

void CZelMatTreeDlg::refresh() {
  m_refreshing = true;
  CZelString sel = selectedMaterial();
  bool choosable = m_offered.count(sel) != 0;
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
  if (!m_offered.count(sel)) return;
  m_material = sel;
  CZelDlg::OnOK();
}
