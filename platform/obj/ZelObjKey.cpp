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

// A standard part: "DIN:<standard>", ":<material>", ":<size>", ":LEN=<length>". The standard
// is the last element of the part's stack (that of "*NM*" follows the selection), else its
// "NORM".
CZelString dinKey(const CZelDataItem* item, int level) {
  CZelString norm;
  CZelArrayTempl<CZelString> stack;
  CZelDataKey stackKey(L"STACK");
  CZelDataKey normKey(L"NORM");
  if (item->get(stack, &stackKey) && stack.count() > 0) norm = stack[stack.count() - 1];
  else if (!item->get(norm, &stackKey)) item->get(norm, &normKey);
  CZelString key = L"DIN";
  if (!norm.isEmpty()) key += L":" + clean(norm);
  if (level <= 2) return key;
  CZelString mat;
  CZelDataKey matKey(L"MAT");
  if (item->get(mat, &matKey) && !mat.isEmpty()) key += L":" + clean(mat);
  if (level == 3) return key;
  CZelString size;
  CZelDataKey sizeKey(L"ND");
  if (item->get(size, &sizeKey) && !size.isEmpty()) key += L":" + clean(size);
  double length = 0.0;
  CZelDataKey lenKey(L"LEN");
  if (item->get(length, &lenKey)) key += L":LEN=" + number(length);
  return key;
}

}  // namespace

CZelString objKey(const CZelDataItem* item, int level) {
  if (!item) return CZelString();
  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  if (!item->get(type, &typeKey)) return CZelString();
  if (type.match(L"DIN")) return dinKey(item, level);
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
