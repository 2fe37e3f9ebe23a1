// The module's typed access to the settings store, on top of the platform's items:
// store setters by full key (missing sections and directories come into being), item
// and section setters by relative key, and item getters. Setting an empty list removes
// the entry instead of leaving an empty one behind.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CZelArrayTempl.h"
#include "data/CZelDataItem.h"
#include "data/CZelDataKey.h"
#include "data/ZelDataAccess.h"
#include "data/resbuf.h"

namespace QEN {

using StringList = CZelArrayTempl<CZelString>;
using StringLists = CZelArrayTempl<StringList>;

// Store setters: the key's first part is the section and must be a string part.
bool storeSet(const CZelDataKey* key, const int* value);
bool storeSet(const CZelDataKey* key, const double* value);
bool storeSet(const CZelDataKey* key, const bool* value);
bool storeSet(const CZelDataKey* key, const wchar_t* value);
bool storeSet(const CZelDataKey* key, const CZelString& value);
bool storeSet(const CZelDataKey* key, const StringList& value);
bool storeSet(const CZelDataKey* key, const StringLists& value);

// Item setters by relative key object (none or empty: the item's own value).
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const StringList& value);
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const StringLists& value);
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const CZelVertexArray& value);
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const CZelArrayTempl<int>& value);

// Section setters: below the opened section's root item, created when the section is empty.
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, const StringList& value);
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, const CZelString& value);
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, int value);
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, double value);
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, Zel::PropMode value);

// Item getters and setters by relative key text (none: the item's own value).
bool itemGet(const CZelDataItem* item, const wchar_t* key, int& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, double& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelString& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, bool& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, StringList& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelVertexArray& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, Zel::PropMode& out);
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelArrayTempl<CZelVertexArray>& out);

bool itemSet(CZelDataItem* item, const wchar_t* key, int value);
bool itemSet(CZelDataItem* item, const wchar_t* key, const CZelString& value);
bool itemSet(CZelDataItem* item, const wchar_t* key, double value);
bool itemSet(CZelDataItem* item, const wchar_t* key, const wchar_t* value);
bool itemSet(CZelDataItem* item, const wchar_t* key, const CZelVertexArray& value);

// Frees a held result buffer and clears the holder; always the normal result.
int relRb(ZEL::CSmartResbuf& holder);

}  // namespace QEN
