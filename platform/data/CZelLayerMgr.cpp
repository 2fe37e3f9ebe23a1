#include "data/CZelLayerMgr.h"

#include "data/CZelDrawing.h"
#include "data/ZelNames.h"

namespace {

ZEL::CLayerProp toProp(const ZelLayerRecord& r) {
  ZEL::CLayerProp p;
  p.name = r.name;
  p.lineType = r.linetype;
  p.description = r.description;
  p.color = r.color;
  p.lineWeight = r.lineweight;
  p.plotStyle = r.plotstyle;
  p.off = r.off;
  p.frozen = r.frozen;
  p.locked = r.locked;
  return p;
}

}  // namespace

bool CZelLayerMgr::physLayerGet(CZelArrayTempl<CZelString>& names) const {
  names.removeAll();
  for (const auto& l : CZelDrawing::current().layers) names.add(l.name);
  return true;
}

bool CZelLayerMgr::physLayerPropGet(const CZelString& name, ZEL::CLayerProp& prop) const {
  const ZelLayerRecord* r = CZelDrawing::current().layer(name);
  if (!r) return false;
  prop = toProp(*r);
  return true;
}

bool CZelLayerMgr::physLayerPropSet(const ZEL::CLayerProp& prop) {
  if (prop.name.isEmpty() || ZEL::str_name(prop.name, L'_') != prop.name) return false;
  CZelDrawing& d = CZelDrawing::current();
  ZelLayerRecord* r = d.layer(prop.name);
  if (!r) {
    d.layers.emplace_back();
    r = &d.layers.back();
    r->name = prop.name;
  }
  r->linetype = prop.lineType;
  r->description = prop.description;
  r->color = prop.color;
  r->lineweight = prop.lineWeight;
  r->plotstyle = prop.plotStyle;
  r->off = prop.off;
  r->frozen = prop.frozen;
  r->locked = prop.locked;
  return true;
}

bool CZelLayerMgr::lineTypesGet(CZelArrayTempl<CZelString>& names) const {
  names.removeAll();
  for (const auto& l : CZelDrawing::current().linetypes) names.add(l);
  return true;
}
