// Layer assignments of objects: preparing "*QEN_OBJ_LAY*" for the object being set, and
// the layer presets kept per object key (level 3) under "*QEN_OBJ_PROP*".
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// Fills "*QEN_OBJ_LAY*" for an object: its label, material and preset key, its logical
// layers, and per logical layer the system, material and own physical layer. The
// assignment source comes from the object, else from its preset, else is the system.
bool obj_layer_init(const CZelDataItem* object);

}  // namespace ZEL

namespace QEN {

// Stores the assignment source and the own layers of "*QEN_OBJ_LAY*" (given as its item)
// as the preset of its KEY3.
bool obj_layer_save(const CZelDataItem* objLay);
// Removes the layer preset of a key; false when there was none.
bool obj_layer_rem(const CZelString& key3);

}  // namespace QEN
