#include "obj/ZelObjKey.h"

#include "obj/ZelObjTypes.h"

#include <cwchar>

namespace ZEL {

namespace {

CZelString clean(CZelString s) {
  std::wstring t = s.str();
  for (auto& c : t)
    if (c == L'\\' || c == L':') c = L'_';
  return CZelString(t).makeUpper();
}

CZelString number(double v) {
  wchar_t buf[64];
  std::swprintf(buf, 64, L"%.10g", v);
  return buf;
}

}  // namespace

CZelString objKey(const CZelDataItem* item, int level) {
  if (!item) return CZelString();
  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  if (!item->get(type, &typeKey)) return CZelString();
  CZelString key = clean(type);
  if (level <= 2) return key;
  CZelString mat;
  CZelDataKey matKey(L"MAT");
  if (item->get(mat, &matKey) && !mat.isEmpty()) key += L":" + clean(mat);
  if (level == 3) return key;
  // The dimensions that make a different article of the same material.
  for (const wchar_t* dim : objDimKeys(type)) {
    double v = 0.0;
    CZelDataKey k(dim);
    if (item->get(v, &k)) key += CZelString(L":") + dim + L"=" + number(v);
  }
  return key;
}

}  // namespace ZEL
