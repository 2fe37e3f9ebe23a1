#include "obj/ZelObjOrder.h"

#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataFileUpdate.h"
#include "data/ZelDataFiles.h"

#include <memory>
#include <sys/stat.h>

namespace {

const char* const kOrderFile = "qen_obj_order.dex";

}  // namespace

namespace ZEL {

std::string obj_order_file() { return dataFilePath(kOrderFile); }

bool obj_order_get(const CZelString& key, CZelString& article) {
  if (key.isEmpty()) return false;
  // Saves rename a finished file into place: reading needs no lock. Only a regular file is
  // read, so that a table that is a FIFO or a device cannot hang or flood the dialog.
  const std::string path = obj_order_file();
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
  std::unique_ptr<CZelDataItem> table(CStoreFile::load(path));
  CZelDataItem* entry = table && table->isDir() ? table->getDir()->item(key) : nullptr;
  return entry && entry->get(article);
}

}  // namespace ZEL

namespace QEN {

bool obj_order_save(const CZelString& key, const CZelString& article, std::string* why) {
  if (key.isEmpty()) return false;
  CZelString trimmed = article;
  trimmed.trim();
  // Under the table's lock, on the table as it is now: two dialogs recording the articles of
  // two objects at once both keep theirs. A damaged table is left as it is: it holds the
  // articles of every other object.
  const ZEL::DataFileUpdateResult r = ZEL::updateStoreFile(
      ZEL::obj_order_file(), ZEL::kDataFileWaitMs,
      [&](CZelDataDir& table, bool) {
        if (trimmed.isEmpty()) return table.remove(key);
        table.insert(key, new CZelDataItem(ZEL::mkResbuf(trimmed.c_str())), false);
        return true;
      },
      ZEL::DamagedFile::Refuse);
  if (why) *why = r.message;
  return r.ok();
}

}  // namespace QEN
