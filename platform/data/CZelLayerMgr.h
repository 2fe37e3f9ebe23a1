// The drawing's physical layers and line types.
#pragma once

#include "data/CLayerProp.h"
#include "data/CZelArrayTempl.h"

class CZelLayerMgr {
public:
  // Names of all layers of the drawing, in the drawing's order.
  bool physLayerGet(CZelArrayTempl<CZelString>& names) const;
  // One layer's properties; false when the drawing has no layer of that name (any case).
  bool physLayerPropGet(const CZelString& name, ZEL::CLayerProp& prop) const;
  // Writes a layer's properties, creating the layer when the name is new. A name the
  // drawing cannot hold (empty, or with characters a layer name may not have) is refused.
  bool physLayerPropSet(const ZEL::CLayerProp& prop);
  bool lineTypesGet(CZelArrayTempl<CZelString>& names) const;
};
