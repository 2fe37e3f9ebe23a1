// Stored properties of objects: the presets kept per object key under "*QEN_OBJ_PROP*".
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// The stored properties of an object key, or none.
CZelDataItem* prop_data(const CZelString& objectKey);

}  // namespace ZEL
