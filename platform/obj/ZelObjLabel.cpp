#include "obj/ZelObjLabel.h"

#include "data/CZelMatMgr.h"
#include "data/ZelCountries.h"
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

bool isDin(const CZelDataItem* item) {
  CZelString type;
  CZelDataKey k(L"TYPE");
  return item->get(type, &k) && type.match(L"DIN");
}

CZelString text(const CZelDataItem* item, const wchar_t* name) {
  CZelString value;
  CZelDataKey k(name);
  item->get(value, &k);
  return value;
}

bool englishFor(const wchar_t* country) {
  const CZelString c = (!country || !*country || CZelString(country) == L"-1") ? CZelMatMgr::userCountry() : CZelString(country);
  return ZEL::countryLanguage(c.view()) != L"de";
}

}  // namespace

CZelString dinLabel(const CZelDataItem* item, const wchar_t* country, bool dims, bool title, bool material) {
  if (!item) return CZelString();
  int bits = 0;
  CZelDataKey bitsKey(L"TXTGEN");
  item->get(bits, &bitsKey);
  CZelString label = text(item, (bits & 0x20) ? L"DES_ISO" : (bits & 0x40) ? L"DES_EN" : L"DES_DIN");
  if (label.isEmpty()) label = text(item, L"NORM");
  const bool english = englishFor(country);
  if (dims) {
    const CZelString size = text(item, L"ND");
    if (!size.isEmpty()) label += L" " + size;
    double length = 0;
    CZelDataKey lenKey(L"LEN");
    if (item->get(length, &lenKey)) {
      wchar_t buf[48];
      std::swprintf(buf, 48, L"%g", length);
      label += CZelString(L" x ") + buf;
    }
  }
  if (title) {
    CZelString t = text(item, english ? L"TITLE_EN" : L"TITLE");
    if (t.isEmpty()) t = text(item, L"TITLE");
    if (!t.isEmpty()) label += L" " + t;
  }
  if (material) {
    const CZelString mat = text(item, L"MAT");
    if (!mat.isEmpty()) {
      CZelString matLabel = text(item, english ? L"MAT_LABEL_EN" : L"MAT_LABEL");
      if (matLabel.isEmpty()) matLabel = CZelMatMgr().matLabel(mat, country ? country : L"-1");
      label += L" - " + (matLabel.isEmpty() ? mat : matLabel);
    }
  }
  return label;
}

CZelString obj_label(const CZelDataItem* item, const wchar_t* country, ObjLabelMaterial material) {
  if (!item) return CZelString();
  if (isDin(item)) return dinLabel(item, country, true, false, material == ObjLabelMaterial::With);
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
  if (isDin(item)) return dinLabel(item, country, false, false, true);
  return typePart(item, country) + materialPart(item, country);
}

}  // namespace ZEL
