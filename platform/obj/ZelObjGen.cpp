#include "obj/ZelObjGen.h"

#include "data/ZelDataAccess.h"
#include "data/resbuf.h"
#include "obj/ZelObjInit.h"
#include "obj/ZelObjShape.h"
#include "obj/ZelObjTxt.h"
#include "obj/ZelObjTypes.h"

#include <utility>

namespace ZEL {

namespace {

void writeGeometry(CZelDataItem* object, const geo::Shape& shape) {
  CZelDataKey vl(L"VL");
  if (shape.outline.isEmpty()) object->remove(&vl);
  else object->put(&vl, mkResbuf(shape.outline));
  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  object->get(type, &typeKey);
  if (!type.match(L"DM")) return;
  // The insulation keeps the outline of each face it fills.
  resbuf* chain = nullptr;
  for (const geo::Area& area : shape.areas) chain = rbAppend(chain, mkResbuf(area.outline));
  CZelDataKey vll(L"VLL");
  if (!chain) object->remove(&vll);
  else object->put(&vll, rbToList(chain));
}

void completeHatch(CZelDataItem* object) {
  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  object->get(type, &typeKey);
  const ObjTypeInfo* info = objTypeInfo(type);
  std::unique_ptr<CZelDataItem> factory(info ? factorySection(info->section) : nullptr);
  for (const wchar_t* suffix : {L"", L"2"}) {
    const CZelString s(suffix);
    CZelDataKey name(L"HPNAME" + s), scale(L"HPSCALE" + s), angle(L"HPANG" + s);
    CZelString pattern;
    if (object->get(pattern, &name) && !pattern.isEmpty()) continue;
    CZelString fromFactory;
    if (!factory || !factory->get(fromFactory, &name)) {
      if (!s.isEmpty()) continue;  // a second hatch only where the type has one
      fromFactory = L"ANSI31";
    }
    double value = 1.0;
    dataItemSet(object, &name, fromFactory);
    if (!factory || !factory->get(value, &scale)) value = 1.0;
    dataItemSet(object, &scale, value);
    if (!factory || !factory->get(value, &angle)) value = 0.0;
    dataItemSet(object, &angle, value);
  }
}

}  // namespace

bool objGen(CZelDataItem* object, int what, geo::Shape* generated) {
  if (!object) return false;
  object->mkDir();
  if (what & kObjGenHatch) completeHatch(object);
  geo::Shape shape = objShape(object);
  writeGeometry(object, shape);
  if (generated) *generated = std::move(shape);
  if (what & kObjGenTexts) objGenTexts(object);
  return true;
}

bool seal_vl(const CZelDataItem* item, int& count, CZelVertexArray& vertices) {
  count = 0;
  if (!item) return false;
  geo::Shape shape = objShape(item);
  if (shape.outline.isEmpty()) return false;
  vertices = shape.outline;
  count = vertices.count();
  return true;
}

}  // namespace ZEL

bool zel_obj_vl_compl(CZelDataItem* object) {
  if (!object) return false;
  object->mkDir();
  ZEL::writeGeometry(object, ZEL::objShape(object));
  return true;
}
