#include "obj/geometry/NormPartFigures.h"

#include <cmath>

namespace ZEL::geo::norm {

namespace {

std::string text(const CZelDataItem* part, const wchar_t* key) {
  CZelString value;
  CZelDataKey k(key);
  if (part) part->get(value, &k);
  return value.toUtf8();
}

}  // namespace

NormPartFigures::NormPartFigures(const CZelDataItem* part) {
  norm = text(part, L"NORM");
  category = text(part, L"CATEGORY");
  group = text(part, L"GROUP");
  if (!part) return;
  CZelDataKey lenKey(L"LEN");
  double len = 0.0;
  if (part->get(len, &lenKey) && std::isfinite(len) && len > 0.0) length = len;
  CZelDataKey dimKey(L"DIM");
  const CZelDataItem* dim = part->find(&dimKey);
  if (!dim || !dim->isDir()) return;
  for (ZEL::CDataIterator it(dim); !it.done(); it.next()) {
    double value = 0.0;
    if (it.item() && it.item()->get(value)) {
      dims[it.name().toUtf8()] = value;
      continue;
    }
    // A figure stored as text ("12.5") counts as its number.
    CZelString s;
    if (it.item() && it.item()->get(s)) {
      try {
        std::size_t used = 0;
        const double v = std::stod(s.toUtf8(), &used);
        if (used == s.toUtf8().size()) dims[it.name().toUtf8()] = v;
      } catch (...) {
      }
    }
  }
}

bool NormPartFigures::has(const std::string& name) const {
  const auto it = dims.find(name);
  return it != dims.end() && std::isfinite(it->second) && it->second > 0.0;
}

double NormPartFigures::first(std::initializer_list<const char*> names, double fallback) const {
  for (const char* n : names)
    if (has(n)) return dims.at(n);
  return fallback;
}

}  // namespace ZEL::geo::norm
