// The presets of an object type: the settings a user made the type's default ("Als
// Vorgabe"), kept in the store under ("*QEN_OBJ_PROP*", "*" + type + "*").
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace QEN {

// The key text of a type's presets: "*KLOTZ*".
CZelString presetKey(const CZelString& type);
// Stores a copy of the settings as the type's preset; false for an empty type or no item.
bool obj_preset_save(const CZelString& type, const CZelDataItem* settings);
// Removes the type's presets: 1 when there were any, 0 otherwise.
int obj_preset_rem(const CZelString& type);
// Whether the type has a preset with at least one key.
bool obj_preset_exists(const CZelString& type);

}  // namespace QEN
