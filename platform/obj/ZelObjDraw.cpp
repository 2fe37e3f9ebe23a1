#include "obj/ZelObjDraw.h"

#include "data/CConfig.h"
#include "data/CZelDrawing.h"
#include "obj/ZelHatchPatterns.h"
#include "obj/ZelObjShape.h"

#include <algorithm>
#include <cmath>

namespace ZEL {

namespace {

CZelString text(const CZelDataItem* item, const wchar_t* key) {
  CZelString value;
  CZelDataKey k(key);
  if (item) item->get(value, &k);
  return value;
}

// A layer name from the layer table, whose entries are name pairs (2 . layer).
CZelString tableLayer(const CZelString& path) {
  CZelString name;
  CZelDataKey pairName;
  pairName.append(short{2});
  if (CZelDataItem* item = cfg_get(CZelDataKey::fromPath(path))) item->get(name, &pairName);
  return name;
}

}  // namespace

CZelString objLayerName(const CZelDataItem* object, const wchar_t* logicalLayer) {
  CZelString name = text(object, logicalLayer);
  if (!name.isEmpty()) return name;
  int mode = 0;
  CZelDataKey isLay(L"IS_LAY");
  if (object) object->get(mode, &isLay);
  const CZelString material = text(object, L"MAT");
  if (mode == 1 && !material.isEmpty()) {
    name = tableLayer(L"*ZEL_LAYER*\\MAT\\" + material + L"\\" + logicalLayer);
    if (!name.isEmpty()) return name;
  }
  name = tableLayer(CZelString(L"*ZEL_LAYER*\\SYSTEM\\") + logicalLayer);
  return name.isEmpty() ? CZelString(L"0") : name;
}

CZelColor objLayerColor(const CZelDataItem* object, geo::Layer layer) {
  CZelString name = objLayerName(object, geo::layerKey(layer));
  // Thread lines and light edges lie on the contour's layer while neither the object nor
  // the system names a layer of their own.
  if ((layer == geo::Layer::Thread || layer == geo::Layer::Light) && name == L"0")
    name = objLayerName(object, geo::layerKey(geo::Layer::Contour));
  const ZelLayerRecord* record = CZelDrawing::current().layer(name);
  return record ? record->color : CZelColor::fromIndex(7);
}

void objDraw(CDisplayList& list, const CZelDataItem* object, const geo::Shape& shape, const CZelDataItem* options) {
  for (const geo::Area& area : shape.areas) {
    const CZelColor color = objLayerColor(object, geo::Layer::Fill);
    if (area.fill == geo::Area::Fill::Solid) {
      list.addFill(area.outline, color);
      continue;
    }
    const CZelString suffix = area.hatch == 2 ? L"2" : L"";
    CZelDataKey name(L"HPNAME" + suffix), scaleKey(L"HPSCALE" + suffix), angleKey(L"HPANG" + suffix);
    CZelString pattern;
    double scale = 1.0, angle = 0.0;
    if (!object || !object->get(pattern, &name) || pattern.isEmpty()) continue;
    object->get(scale, &scaleKey);
    object->get(angle, &angleKey);
    if (!std::isfinite(scale) || scale == 0.0) scale = 1.0;
    if (!std::isfinite(angle)) angle = 0.0;
    addPatternHatch(list, area.outline, pattern, std::fabs(scale), angle, color);
  }
  for (const geo::Path& path : shape.paths) list.addPolyline(path.points, path.closed, objLayerColor(object, path.layer));

  int coord = 0;
  CZelDataKey coordKey(L"COORD");
  if (options && options->get(coord, &coordKey) && coord) {
    // The insertion point, a cross a tenth of the object's size.
    CDisplayExtents box = list.extents();
    double size = box.empty ? 1.0 : std::max(box.maxX - box.minX, box.maxY - box.minY) / 10.0;
    const CZelColor color = objLayerColor(object, geo::Layer::Axis);
    list.addLine(-size, 0, size, 0, color);
    list.addLine(0, -size, 0, size, color);
  }
}

void objDraw(CDisplayList& list, const CZelDataItem* object, const CZelDataItem* options) {
  objDraw(list, object, objShape(object), options);
}

}  // namespace ZEL
