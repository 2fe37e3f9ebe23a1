// The article table: the article number recorded for an object key (level 4), kept in
// the add-on's data file "qen_obj_order.dex" as a directory of key -> article.
#pragma once

#include "data/CZelString.h"

namespace ZEL {
// False when no article is recorded for the key (or the table cannot be read).
bool obj_order_get(const CZelString& key, CZelString& article);
}  // namespace ZEL

namespace QEN {
// Records the article for the key; an empty article removes the record. A table that
// cannot be read is left as it is and the save fails.
bool obj_order_save(const CZelString& key, const CZelString& article);
}  // namespace QEN
