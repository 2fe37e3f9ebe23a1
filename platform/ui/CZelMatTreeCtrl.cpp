#include "ui/CZelMatTreeCtrl.h"

#include "data/CZelMatMgr.h"

void CZelMatTreeCtrl::init(int all, const CZelString& material, const CZelArrayTempl<CZelString>& filter) {
  DeleteAllItems();
  m_offered.clear();
  m_nodes.clear();
  CZelMatMgr mgr;
  CZelArrayTempl<CZelString> names;
  mgr.matAll(names);
  CZelArrayTempl<CZelString> edge, draw;
  mgr.matEdgeAll(edge, false);
  mgr.matDrawAll(draw, false);
  const bool onlyEdge = filter.find(L"EDGE") >= 0;
  const bool onlyDraw = filter.find(L"DRAW") >= 0 || all == 0;
  const bool withSystem = filter.find(L"SYSTEM") >= 0;
  for (const CZelString& name : names) {
    if (name == L"SYSTEM" && !withSystem) continue;
    if (onlyEdge && edge.find(name) < 0) continue;
    if (onlyDraw && draw.find(name) < 0) continue;
    m_offered.insert(name);
  }
  // Catalogue order, each material under its parent; a parent that is not offered itself
  // still stands in the tree so that its offered children keep their place.
  for (const CZelString& name : names)
    if (m_offered.count(name)) insertMaterial(name);
  if (HTREEITEM node = itemOf(material)) {
    SelectItem(node);
    EnsureVisible(node);
  }
}

HTREEITEM CZelMatTreeCtrl::insertMaterial(const CZelString& name) {
  auto known = m_nodes.find(name);
  if (known != m_nodes.end()) return known->second;
  CZelArrayTempl<CZelString> chain;
  CZelMatMgr().matPath(chain, name);
  HTREEITEM parent = TVI_ROOT;
  // Guard against a chain that leads back to the material itself.
  if (chain.count() > 1 && chain[1] != name) parent = insertMaterial(chain[1]);
  HTREEITEM node = InsertItem(name.c_str(), parent);
  m_nodes[name] = node;
  return node;
}

HTREEITEM CZelMatTreeCtrl::itemOf(const CZelString& material) const {
  auto it = m_nodes.find(material);
  return it == m_nodes.end() ? nullptr : it->second;
}

CZelString CZelMatTreeCtrl::getSelMat() const {
  HTREEITEM sel = GetSelectedItem();
  if (!sel) return {};
  CZelString name = GetItemText(sel);
  return offers(name) ? name : CZelString();
}
