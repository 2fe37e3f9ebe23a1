// The article table: the article number recorded for an object key (level 4), kept in
// the add-on's data file "qen_obj_order.dex" as a directory of key -> article.
#pragma once

#include "data/CZelString.h"

#include <string>

namespace ZEL {
// The table's full path in the data folder.
std::string obj_order_file();
// False when no article is recorded for the key (or the table cannot be read).
bool obj_order_get(const CZelString& key, CZelString& article);
}  // namespace ZEL

namespace QEN {
// Records the article for the key; an empty article removes the record. The table is
// changed under its lock, as it is at that moment. A table that cannot be read, locked or
// written is left as it is and the save fails; `why` then names the file and the reason.
bool obj_order_save(const CZelString& key, const CZelString& article, std::string* why = nullptr);
}  // namespace QEN
