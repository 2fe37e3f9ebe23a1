// Typed access to data items by relative key: set creates the missing levels, get answers
// false when the value is absent or of another type.
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelDataItem.h"
#include "data/CZelDataKey.h"
#include "data/ZelUnits.h"

namespace Zel {
// Where an assignment (layer, hatch) comes from.
enum class PropMode : int { System = 0, Material = 1, Specific = 2 };
}  // namespace Zel

namespace ZEL {

bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, bool value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, int value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, unsigned long value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, double value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, const wchar_t* value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, const CZelString& value);
bool dataItemSet(CZelDataItem* item, const CZelDataKey* key, Zel::PropMode value);

bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, Zel::lUnit& out);
bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, Zel::PropMode& out);
bool dataItemGetEname(const CZelDataItem* item, const CZelDataKey* key, CZelString& handle);
bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, CZelArrayTempl<CZelArrayTempl<double>>& out);
bool dataItemGet(const CZelDataItem* item, const CZelDataKey* key, CZelArrayTempl<CZelVertexArray>& out);

// A new item holding the chain (taken); `type` is kept for the callers' sake.
CZelDataItem* mkDataItem(resbuf* chain, int type = 0);
// A copy of an item's own value.
resbuf* fromRb(const CZelDataItem* item);

}  // namespace ZEL
