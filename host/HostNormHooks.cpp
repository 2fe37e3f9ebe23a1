#include "HostNormHooks.h"

#include "CHostNormPicker.h"
#include "HostEntryHooks.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataItem.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "norm/ZelNormGen.h"
#include "obj/ZelObjTypes.h"

namespace {

bool onlyArticles() {
  int value = 0;
  CZelDataItem* item = ZEL::cfg_get(L"_QEN_NORM_ORDER");
  return item && item->get(value);
}

// A picked length is a free length: the standard lengths are no longer in force.
void freeLength() { ZEL::cfg_set(L"*NM*\\NODIN", ZEL::mkDataItem(ZEL::mkRbLong(1)), true); }

}  // namespace

CZelString normFurtherDimensionKey() {
  ZEL::CUniqPointer<CZelDataItem> part(ZEL::norm_gen(onlyArticles()));
  if (!part) return {};
  for (const wchar_t* key : {L"KLM", L"RAD", L"SENK"}) {
    CZelDataKey k(key);
    double value = 0.0;
    if (part->get(value, &k)) return key;
  }
  return {};
}

void prepareNorm(HostCall& c) {
  if (c.record.object.isNull()) return;
  const CZelString handle = c.record.object.handle();
  CZelDataItem* object = drawingObjectOfType(L"DIN", handle);
  if (!object) return;
  prepareAccessory(c, L"DIN");
  c.editing = true;
  if (!c.projectionsGiven) {
    int projections = 0;
    CZelDataKey key(L"PROJECTIONS");
    if (object->get(projections, &key) && projections > 0) c.projections = projections;
  }
  c.sheared = c.sheared || ZEL::isSheared(L"DIN");
  // The part of the object replaces whatever the generation cached for the last one.
  ZEL::norm_gen_init(false);
}

int callNorm(HostCall& c) {
  static constexpr HostValuePick kPicks[] = {{3, nullptr, &normFurtherDimensionKey}, {4, L"LEN", nullptr, &freeLength}};
  CHostNormPicker picker;
  return callAccessory(
      c, L"DIN",
      [&](qenDlgEnv_st& record) {
        ZEL::norm_gen_init(false);
        return qenNormMenu(record, c.projections, c.editing, c.sheared, &picker);
      },
      kPicks, HostObjectPick::TakeValues);
}

void finishNorm(HostCall& c, int code) {
  CZelDataItem* settings = ZEL::cfg_get(L"*NM*");
  CZelDataKey orig(L"ORIG");
  CZelString handle;
  if (!settings || !settings->getEname(handle, &orig)) return;
  if (code == 1) {
    ZEL::CUniqPointer<CZelDataItem> part(ZEL::norm_gen(onlyArticles()));
    if (part) takeSettings(CZelDrawing::current().objectData(handle), *part);
  }
  if (code == 1 || code == 2) settings->remove(&orig);
}

void prepareNormMat(HostCall& c) {
  if (c.record.object.isNull()) return;
  if (editObject(c, L"DIN", c.record.object.handle(), false)) ZEL::norm_gen_init(false);
}
