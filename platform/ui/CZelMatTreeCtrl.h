// The material tree as a control: the offered materials of the catalogue under the
// materials they inherit from. The material tree dialog shows it on its own; other dialogs
// (the material types of a standard part) put it beside their own controls.
#pragma once

#include "data/CZelArrayTempl.h"
#include "ui/CTreeCtrl.h"

#include <map>
#include <set>

class CZelMatTreeCtrl : public CTreeCtrl {
public:
  // Fills the tree. `all` 1: every material of the catalogue, 0: only those with a drawing
  // definition. `filter` narrows the offer as DlgEnvMatTree_st::filter says ("EDGE", "DRAW",
  // "SYSTEM"). `material`, when it stands in the tree, is selected and made visible.
  void init(int all, const CZelString& material, const CZelArrayTempl<CZelString>& filter);
  // The selected material when the tree offers it, else empty (nothing selected, or a
  // parent that only stands in the tree for its children).
  CZelString getSelMat() const;
  bool offers(const CZelString& material) const { return m_offered.count(material) != 0; }
  // The node of a material, or none.
  HTREEITEM itemOf(const CZelString& material) const;

private:
  HTREEITEM insertMaterial(const CZelString& name);

  std::set<CZelString> m_offered;
  std::map<CZelString, HTREEITEM> m_nodes;
};
