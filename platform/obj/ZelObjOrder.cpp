#include "obj/ZelObjOrder.h"

#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataFiles.h"

#include <filesystem>
#include <memory>

namespace {

const char* const kOrderFile = "qen_obj_order.dex";

// The table, an empty one when the file does not exist yet, none when it cannot be read.
std::unique_ptr<CZelDataItem> loadTable() {
  std::string path = ZEL::dataFilePath(kOrderFile);
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) {
    auto empty = std::make_unique<CZelDataItem>();
    empty->mkDir();
    return empty;
  }
  std::unique_ptr<CZelDataItem> table(CStoreFile::load(path));
  if (table && !table->isDir()) return nullptr;
  return table;
}

}  // namespace

namespace ZEL {

bool obj_order_get(const CZelString& key, CZelString& article) {
  if (key.isEmpty()) return false;
  std::unique_ptr<CZelDataItem> table = loadTable();
  CZelDataItem* entry = table ? table->getDir()->item(key) : nullptr;
  return entry && entry->get(article);
}

}  // namespace ZEL

namespace QEN {

bool obj_order_save(const CZelString& key, const CZelString& article) {
  if (key.isEmpty()) return false;
  std::unique_ptr<CZelDataItem> table = loadTable();
  if (!table) return false;
  CZelString trimmed = article;
  trimmed.trim();
  if (trimmed.isEmpty()) table->getDir()->remove(key);
  else table->getDir()->insert(key, new CZelDataItem(ZEL::mkResbuf(trimmed.c_str())), false);
  return CStoreFile::save(ZEL::dataFilePath(kOrderFile), *table);
}

}  // namespace QEN
