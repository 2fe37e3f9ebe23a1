#include "HostNormHooks.h"

#include "CHostNormPicker.h"
#include "HostEntryHooks.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataItem.h"
#include "data/CZelDrawing.h"
#include "data/ZelCommandLine.h"
#include "data/ZelDataAccess.h"
#include "norm/ZelNormGen.h"
#include "obj/ZelObjTypes.h"

#include <cmath>
#include <cwchar>

namespace {

bool onlyArticles() {
  int value = 0;
  CZelDataItem* item = ZEL::cfg_get(L"_QEN_NORM_ORDER");
  return item && item->get(value);
}

ZEL::CUniqPointer<CZelDataItem> currentPart() { return ZEL::CUniqPointer<CZelDataItem>(ZEL::norm_gen(onlyArticles())); }

double partReal(const CZelDataItem& part, const wchar_t* name, double otherwise) {
  double value = otherwise;
  CZelDataKey key(name);
  part.get(value, &key);
  return value;
}

CZelString partText(const CZelDataItem& part, const wchar_t* name) {
  CZelString value;
  CZelDataKey key(name);
  part.get(value, &key);
  return value;
}

// The part's size: its stack extended by its nominal size.
ZEL::NormStack sizeStack(const CZelDataItem& part) {
  ZEL::NormStack stack;
  CZelArrayTempl<CZelString> parts;
  CZelDataKey key(L"STACK");
  if (part.get(parts, &key))
    for (const CZelString& p : parts) stack.push_back(p.toUtf8());
  stack.push_back(partText(part, L"ND").toUtf8());
  return stack;
}

CZelString number(double value) {
  wchar_t text[32];
  std::swprintf(text, 32, L"%.1f", value);
  return text;
}

// A dimension of "*NM*", and the same under the per-domain settings the dialog keeps for
// parts of the kind ("*NM_SET*\DIN\*BAR*" or "…\*PIECE*").
void storeDimension(const CZelDataItem& part, const wchar_t* name, double value) {
  int barp = 0;
  CZelDataKey barpKey(L"BARP");
  part.get(barp, &barpKey);
  for (const wchar_t* section : {L"*NM*", barp ? L"*NM_SET*\\DIN\\*BAR*" : L"*NM_SET*\\DIN\\*PIECE*"})
    ZEL::cfg_set((CZelString(section) + L"\\" + name).c_str(), ZEL::mkDataItem(ZEL::mkRbReal(value)), true);
}

// A picked clamping length sets the length as typing it would: the length that gives it,
// which must exist; a radius must lie within the size's range; a depth is taken as it is.
CZelString takeFurtherDimension(double value) {
  ZEL::CUniqPointer<CZelDataItem> part = currentPart();
  const CZelString key = normFurtherDimensionKey();
  if (!part || key.isEmpty()) {
    ZEL::cmdPrint(L"pick: the standard part has no clamping length, radius or depth to pick");
    return {};
  }
  const ZEL::NormStack size = sizeStack(*part);
  if (key == L"KLM") {
    ZEL::NormTable table;
    for (const std::vector<double>& row : ZEL::norm_klm_lst(size))
      if (!row.empty()) table.push_back(row);
    int nodinValue = 0;
    CZelDataItem* nodin = ZEL::cfg_get(L"*NM*\\NODIN");
    const bool freeLength = !onlyArticles() && nodin && nodin->get(nodinValue) && nodinValue == 1;
    const double length = QEN::norm_klm_len(value, partReal(*part, L"LEN", 0.0), table, freeLength);
    if (!std::isfinite(length)) {
      const double low = !table.empty() && table.front().size() > 1 ? table.front()[1] : NAN;
      const double high = !table.empty() ? table.back().back() : NAN;
      ZEL::cmdPrint(L"pick: no length of the size " + partText(*part, L"ND") + L" has a clamping length of " + number(value) +
                    L" (Klemmlänge " + number(low) + L" ... " + number(high) + L")");
      return {};
    }
    storeDimension(*part, L"LEN", length);
    storeDimension(*part, L"KLM", value);
    return key;
  }
  if (key == L"RAD") {
    const std::vector<double> range = ZEL::norm_rad_lst(size);
    if (range.size() < 2 || value < range[0] || value > range[1]) {
      ZEL::cmdPrint(L"pick: the radius " + number(value) + L" lies outside the size's range (Radius " +
                    (range.size() < 2 ? CZelString(L"-") : number(range[0]) + L" ... " + number(range[1])) + L")");
      return {};
    }
  }
  storeDimension(*part, key.c_str(), value);
  return key;
}

// A picked length is a free length: the standard lengths are no longer in force.
CZelString takeFreeLength(double value) {
  ZEL::CUniqPointer<CZelDataItem> part = currentPart();
  if (part) storeDimension(*part, L"LEN", value);
  else ZEL::cfg_set(L"*NM*\\LEN", ZEL::mkDataItem(ZEL::mkRbReal(value)), true);
  ZEL::cfg_set(L"*NM*\\NODIN", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
  return L"LEN";
}

}  // namespace

CZelString normFurtherDimensionKey() {
  ZEL::CUniqPointer<CZelDataItem> part = currentPart();
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
  static constexpr HostValuePick kPicks[] = {{3, nullptr, &takeFurtherDimension}, {4, L"LEN", &takeFreeLength}};
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
    ZEL::CUniqPointer<CZelDataItem> part = currentPart();
    if (part) takeSettings(CZelDrawing::current().objectData(handle), *part);
  }
  if (code == 1 || code == 2) settings->remove(&orig);
}

void prepareNormMat(HostCall& c) {
  if (c.record.object.isNull()) return;
  if (editObject(c, L"DIN", c.record.object.handle(), false)) ZEL::norm_gen_init(false);
}
