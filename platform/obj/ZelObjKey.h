// Object keys: the text under which an object's presets (level 3) and article numbers
// (level 4) are kept. Level 2 is the object type alone ("KLOTZ"); level 3 adds the
// material ("KLOTZ:ALMG3"); level 4 adds the dimensions that tell articles apart, in a
// fixed order per type ("KLOTZ:ALMG3:B=30:H=5", see objDimKeys). Keys are single store-key
// parts: no backslash.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

CZelString objKey(const CZelDataItem* item, int level);

}  // namespace ZEL
