// Label-text presets of objects: the text bits, item order and line breaks kept per object
// key (level 3) under "*QEN_OBJ_PROP*", which new objects of that key start with.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace QEN {

// Stores the object's TXTGEN, TXTSEQU and TXTLINE as the preset of its object key; the
// values it lacks are its defaults. False for no object or an object without a type.
bool obj_txtgen_save(const CZelDataItem* object);
// Removes the label-text preset of a key; false when there was none. Other presets of the
// key (layers, hatches, supplementary lists) stay.
bool obj_txtgen_rem(const CZelString& key3);

}  // namespace QEN
