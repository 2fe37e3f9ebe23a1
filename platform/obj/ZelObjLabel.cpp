#include "obj/ZelObjLabel.h"

#include "data/CZelMatMgr.h"
#include "obj/ZelObjTypes.h"

#include <cwchar>

namespace ZEL {

namespace {

CZelString materialPart(const CZelDataItem* item, const wchar_t* country) {
  CZelString mat;
  CZelDataKey k(L"MAT");
  if (!item->get(mat, &k) || mat.isEmpty()) return CZelString();
  CZelString label = CZelMatMgr().matLabel(mat, country ? country : L"-1");
  return L" - " + (label.isEmpty() ? mat : label);
}

CZelString typePart(const CZelDataItem* item, const wchar_t* country) {
  CZelString type;
  CZelDataKey k(L"TYPE");
  item->get(type, &k);
  return objTypeLabel(type, country);
}

}  // namespace

CZelString obj_label(const CZelDataItem* item, const wchar_t* country, ObjLabelMaterial material) {
  if (!item) return CZelString();
  CZelString label = typePart(item, country);
  CZelString dims;
  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  item->get(type, &typeKey);
  for (const wchar_t* dim : objDimKeys(type)) {
    double v = 0;
    CZelDataKey k(dim);
    if (!item->get(v, &k)) continue;
    wchar_t buf[48];
    std::swprintf(buf, 48, L"%g", v);
    dims += dims.isEmpty() ? L"" : L" x ";
    dims += buf;
  }
  if (!dims.isEmpty()) label += L" " + dims;
  return material == ObjLabelMaterial::With ? label + materialPart(item, country) : label;
}

CZelString obj_label_header(const CZelDataItem* item, const wchar_t* country) {
  if (!item) return CZelString();
  return typePart(item, country) + materialPart(item, country);
}

}  // namespace ZEL
