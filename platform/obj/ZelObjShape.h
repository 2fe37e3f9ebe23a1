// The shape of an accessory object from its section: reads the type ("TYPE") and the
// values that decide the geometry and the representation, and builds the shape with the
// geometry functions. Types without geometry give an empty shape.
#pragma once

#include "data/CZelDataItem.h"
#include "obj/geometry/ZelShape.h"

namespace ZEL {

geo::Shape objShape(const CZelDataItem* section);

}  // namespace ZEL
