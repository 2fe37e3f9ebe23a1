// Hatch assignments of objects: preparing "*QEN_OBJ_HATCH*" for the object being set, and
// the hatch presets kept per object key (level 3) under "*QEN_OBJ_PROP*".
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// Fills "*QEN_OBJ_HATCH*" for an object: its label, type, material and preset key, and per
// hatch the system, material and own pattern (name, scale, angle as pairs 2, 40, 50), the
// effective own pattern (HPNAME, HPSCALE, HPANG) and the source (IS_HATCH). The system
// pattern is the one the object or else its type's section ("*HZ_<TYPE>*") is drawn with
// when its source is the system, else ANSI31; the material's is the first of the material
// chain with a hatch; the source and the own pattern come from the object, else from its
// preset. An object has a second hatch (the "…2" keys, IS_HATCH2 among them) when it
// carries IS_HATCH2 or HPNAME2; its material is the object's MAT2.
bool obj_hatch_init(const CZelDataItem* object);

}  // namespace ZEL

namespace QEN {

// Stores the sources, the own patterns and the effective own patterns of "*QEN_OBJ_HATCH*"
// (given as its item) as the preset of its KEY3; false without KEY3.
bool obj_hatch_save(const CZelDataItem* hatches);
// Removes the hatch preset of a key: 1 when there was one, 0 otherwise.
int obj_hatch_rem(const CZelString& key3);

}  // namespace QEN
