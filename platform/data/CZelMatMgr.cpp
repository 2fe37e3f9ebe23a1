#include "data/CZelMatMgr.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"

#include <algorithm>

namespace {

CZelDataItem* catalogue() { return ZEL::cfg_get(L"*ZEL_MAT*\\MAT"); }

template <class Pred>
void collect(CZelArrayTempl<CZelString>& names, bool sorted, Pred keep) {
  names.removeAll();
  CZelDataItem* cat = catalogue();
  if (!cat || !cat->getDir()) return;
  for (int i = 0; i < cat->getDir()->count(); ++i)
    if (keep(*cat->getDir()->itemAt(i))) names.add(cat->getDir()->nameAt(i));
  if (sorted) {
    std::vector<CZelString> v(names.begin(), names.end());
    std::sort(v.begin(), v.end());
    names.removeAll();
    for (auto& n : v) names.add(n);
  }
}

bool hasEdgeTables(const CZelString& material) {
  CZelDataItem* edges = ZEL::cfg_get(L"*ZEL_MAT*\\EDGE");
  if (!edges || !edges->getDir()) return false;
  CZelDataKey mat(L"MAT");
  for (int i = 0; i < edges->getDir()->count(); ++i) {
    CZelString m;
    if (edges->getDir()->itemAt(i)->get(m, &mat) && m == material) return true;
  }
  return false;
}

}  // namespace

CZelString CZelMatMgr::userCountry() {
  CZelString c;
  CZelDataItem* item = ZEL::cfg_get(L"_COUNTRY");
  if (item && item->get(c) && !c.isEmpty()) return c;
  return L"de";
}

CZelDataItem* CZelMatMgr::material(const CZelString& name) const {
  CZelDataItem* cat = catalogue();
  return cat && cat->getDir() && !name.isEmpty() ? cat->getDir()->item(name) : nullptr;
}

bool CZelMatMgr::exists(const CZelString& name) const { return material(name) != nullptr; }

bool CZelMatMgr::matAll(CZelArrayTempl<CZelString>& names) const {
  collect(names, false, [](const CZelDataItem&) { return true; });
  return !names.isEmpty();
}

bool CZelMatMgr::matEdgeAll(CZelArrayTempl<CZelString>& names, bool sorted) const {
  CZelArrayTempl<CZelString> all;
  matAll(all);
  names.removeAll();
  for (const auto& m : all) {
    // A material bends with its own tables or with those of a material it inherits from.
    CZelArrayTempl<CZelString> chain;
    matPath(chain, m);
    for (const auto& c : chain)
      if (hasEdgeTables(c)) { names.add(m); break; }
  }
  if (sorted) {
    std::vector<CZelString> v(names.begin(), names.end());
    std::sort(v.begin(), v.end());
    names.removeAll();
    for (auto& n : v) names.add(n);
  }
  return !names.isEmpty();
}

bool CZelMatMgr::matDrawAll(CZelArrayTempl<CZelString>& names, bool sorted) const {
  collect(names, sorted, [](const CZelDataItem& m) {
    bool draw = true;
    CZelDataKey k(L"DRAW");
    m.get(draw, &k);
    return draw;
  });
  return !names.isEmpty();
}

bool CZelMatMgr::matPath(CZelArrayTempl<CZelString>& chain, const CZelString& name) const {
  chain.removeAll();
  CZelString current = name;
  CZelDataKey parent(L"PARENT");
  while (CZelDataItem* m = material(current)) {
    if (chain.find(current) >= 0) break;  // a catalogue that loops ends the chain
    chain.add(current);
    if (!m->get(current, &parent)) break;
  }
  return !chain.isEmpty();
}

CZelString CZelMatMgr::matLabel(const CZelString& name, const CZelString& country) const {
  CZelDataItem* m = material(name);
  if (!m) return CZelString();
  CZelString c = country == L"-1" ? userCountry() : country;
  CZelString label;
  CZelDataKey english(L"LABEL_EN"), german(L"LABEL");
  if (!c.match(L"de") && m->get(label, &english) && !label.isEmpty()) return label;
  m->get(label, &german);
  return label;
}

void CZelMatMgr::matLabel(CZelMapTempl<CZelString, CZelString>& labels, const CZelArrayTempl<CZelString>& names,
                          const CZelString& country) const {
  for (const auto& n : names) labels[n] = matLabel(n, country);
}

bool CZelMatMgr::propGet(const CZelString& name, ZEL::CMatProp& prop) const {
  CZelDataItem* m = material(name);
  if (!m) return false;
  prop = ZEL::CMatProp{};
  prop.name = name;
  CZelDataKey lay(L"LAY_MODE"), bend(L"BEND"), draw(L"DRAW");
  m->get(prop.layMode, &lay);
  m->get(prop.bend, &bend);
  m->get(prop.draw, &draw);
  return true;
}
