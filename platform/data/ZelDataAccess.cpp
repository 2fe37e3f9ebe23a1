#include "data/ZelDataAccess.h"

#include <limits>

namespace ZEL {

namespace {
bool put(CZelDataItem* item, const CZelDataKey* key, resbuf* rb) {
  if (!item) { zelRelRb(rb); return false; }
  return item->put(key, rb);
}
}  // namespace

bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, bool value) { return put(item, key, mkRbBool(value)); }
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, int value) { return put(item, key, mkRbLong(value)); }
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, unsigned long value) {
  if (value > static_cast<unsigned long>(std::numeric_limits<std::int32_t>::max())) return false;
  return put(item, key, mkRbLong(static_cast<std::int32_t>(value)));
}
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, double value) { return put(item, key, mkRbReal(value)); }
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, const wchar_t* value) {
  return put(item, key, mkResbuf(value ? value : L""));
}
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, const CZelString& value) {
  return put(item, key, mkResbuf(value.c_str()));
}
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, Zel::PropMode value) {
  return put(item, key, mkRbLong(static_cast<int>(value)));
}

bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, Zel::lUnit& out) {
  int v = 0;
  if (!item || !item->get(v, key) || v < 0 || v > 20) return false;
  out = static_cast<Zel::lUnit>(v);
  return true;
}

bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, Zel::PropMode& out) {
  int v = 0;
  if (!item || !item->get(v, key) || v < 0 || v > 2) return false;
  out = static_cast<Zel::PropMode>(v);
  return true;
}

bool dataItemGetEname(const CZelDataItem* item, const CZelDataKey* key, CZelString& handle) {
  return item && item->getEname(handle, key);
}

bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, CZelArrayTempl<CZelArrayTempl<double>>& out) {
  if (!item) return false;
  const resbuf* v = item->valueAt(key);
  if (rbIsNil(v)) return false;
  CZelArrayTempl<CZelArrayTempl<double>> result;
  for (const resbuf* e = rbElements(v); e && e->restype != RTLE; e = rbSkipElement(e)) {
    if (e->restype != RTLB) return false;
    CZelArrayTempl<double> reals;
    for (const resbuf* m = e->rbnext; m && m->restype != RTLE; m = m->rbnext) {
      if (m->restype == RTREAL) reals.add(m->resval.rreal);
      else if (m->restype == RTLONG) reals.add(m->resval.rlong);
      else if (m->restype == RTSHORT) reals.add(m->resval.rint);
      else return false;
    }
    result.add(reals);
  }
  out = std::move(result);
  return true;
}

bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, CZelArrayTempl<CZelVertexArray>& out) {
  if (!item) return false;
  const resbuf* v = item->valueAt(key);
  if (rbIsNil(v)) return false;
  CZelArrayTempl<CZelVertexArray> result;
  for (const resbuf* e = rbElements(v); e && e->restype != RTLE; e = rbSkipElement(e)) {
    if (e->restype != RTVERTS) return false;
    result.add(*e->resval.rverts);
  }
  out = std::move(result);
  return true;
}

CZelDataItem* mkDataItem(resbuf* chain, int) { return new CZelDataItem(chain); }

resbuf* fromRb(const CZelDataItem* item) { return item ? rbCopyAll(item->value()) : nullptr; }

}  // namespace ZEL
