// A locked read-modify-write of a store file that several programs share.
#include "data/ZelDataFileUpdate.h"

#include "data/CFileLock.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <sys/stat.h>

namespace ZEL {

namespace {

DataFileUpdateResult failed(DataFileUpdate status, std::string message) {
  DataFileUpdateResult r;
  r.status = status;
  r.message = std::move(message);
  return r;
}

}  // namespace

DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir&)>& change) {
  CFileLock lock(path, waitMs);
  if (!lock.isLocked()) return failed(DataFileUpdate::Locked, lock.error());

  struct stat st {};
  std::unique_ptr<CZelDataItem> root;
  if (::stat(path.c_str(), &st) != 0) {
    if (errno != ENOENT) return failed(DataFileUpdate::Unreadable, path + ": " + std::strerror(errno));
    root = std::make_unique<CZelDataItem>();
    root->mkDir();
  } else {
    std::string bytes;
    if (!CStoreFile::readFile(path, bytes)) return failed(DataFileUpdate::Unreadable, lastFileError());
    root.reset(CStoreFile::parse(bytes, path));
    if (!root || !root->isDir()) {
      std::string why = root ? path + ": holds no directory" : lastFileError();
      const std::string keep = damagedCopyPath(path);
      if (!CStoreFile::writeAtomic(keep, bytes))
        return failed(DataFileUpdate::WriteFailed, why + "; its content could not be kept in " + keep);
      CZelDataItem empty;
      empty.mkDir();
      if (!CStoreFile::save(path, empty)) return failed(DataFileUpdate::WriteFailed, why + "; " + lastFileError());
      return failed(DataFileUpdate::Reset, why + "; replaced by an empty directory, old content kept in " + keep);
    }
  }

  if (!change(*root->getDir())) return {};
  if (!CStoreFile::save(path, *root)) return failed(DataFileUpdate::WriteFailed, lastFileError());
  DataFileUpdateResult r;
  r.status = DataFileUpdate::Saved;
  return r;
}

}  // namespace ZEL
