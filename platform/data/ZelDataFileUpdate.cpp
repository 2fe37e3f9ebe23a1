// A locked read-modify-write of a store file that several programs share.
#include "data/ZelDataFileUpdate.h"

#include "data/CFileLock.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace ZEL {

namespace {

std::vector<std::string>& failures() {
  static std::vector<std::string> list;
  return list;
}

DataFileUpdateResult failed(DataFileUpdate status, std::string message) {
  failures().push_back(message);
  DataFileUpdateResult r;
  r.status = status;
  r.message = std::move(message);
  return r;
}

// Writes the bytes into a new "<file>.badN" that no earlier damage has taken. The name is
// claimed with O_EXCL, so even a writer that does not hold the lock cannot make two damages
// share one copy.
bool keepDamagedBytes(const std::string& path, const std::string& bytes, std::string& kept) {
  for (int n = 1; n < 100000; ++n) {
    kept = path + ".bad" + std::to_string(n);
    int fd = ::open(kept.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
      if (errno == EEXIST) continue;
      return false;
    }
    std::size_t done = 0;
    bool ok = true;
    while (ok && done < bytes.size()) {
      ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
      if (w < 0 && errno == EINTR) continue;
      ok = w > 0;
      if (ok) done += static_cast<std::size_t>(w);
    }
    ok = ::fsync(fd) == 0 && ok;
    ok = ::close(fd) == 0 && ok;
    if (!ok) ::unlink(kept.c_str());
    return ok;
  }
  return false;
}

}  // namespace

std::string damagedCopyPath(const std::string& path) {
  for (int n = 1;; ++n) {
    std::string candidate = path + ".bad" + std::to_string(n);
    struct stat st {};
    if (::lstat(candidate.c_str(), &st) != 0) return candidate;
  }
}

const std::vector<std::string>& dataFileFailures() { return failures(); }
void clearDataFileFailures() { failures().clear(); }

DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir& dir, bool existed)>& change,
                                     DamagedFile onDamage) {
  CFileLock lock(path, waitMs);
  if (!lock.isLocked()) return failed(DataFileUpdate::Locked, lock.error());

  struct stat st {};
  std::unique_ptr<CZelDataItem> root;
  const bool existed = ::stat(path.c_str(), &st) == 0;
  if (!existed) {
    if (errno != ENOENT) return failed(DataFileUpdate::Unreadable, path + ": " + std::strerror(errno));
    root = std::make_unique<CZelDataItem>();
    root->mkDir();
  } else {
    if (!S_ISREG(st.st_mode)) return failed(DataFileUpdate::Unreadable, path + ": not a regular file");
    std::string bytes;
    if (!CStoreFile::readFile(path, bytes)) return failed(DataFileUpdate::Unreadable, lastFileError());
    root.reset(CStoreFile::parseDirectory(bytes, path));
    if (!root || !root->isDir()) {
      std::string why = root ? path + ": holds no directory" : lastFileError();
      if (onDamage == DamagedFile::Refuse) return failed(DataFileUpdate::Damaged, why + "; it was left as it is");
      std::string keep;
      if (!keepDamagedBytes(path, bytes, keep))
        return failed(DataFileUpdate::WriteFailed, why + "; its content could not be kept in " + keep);
      CZelDataItem empty;
      empty.mkDir();
      if (!CStoreFile::save(path, empty)) return failed(DataFileUpdate::WriteFailed, why + "; " + lastFileError());
      return failed(DataFileUpdate::Reset, why + "; replaced by an empty directory, old content kept in " + keep);
    }
  }

  if (!change(*root->getDir(), existed)) return {};
  if (!CStoreFile::save(path, *root)) return failed(DataFileUpdate::WriteFailed, lastFileError());
  DataFileUpdateResult r;
  r.status = DataFileUpdate::Saved;
  return r;
}

DataFileUpdateResult replaceStoreFile(const std::string& path, int waitMs, const CZelDataItem& item) {
  CFileLock lock(path, waitMs);
  if (!lock.isLocked()) return failed(DataFileUpdate::Locked, lock.error());
  if (!CStoreFile::save(path, item)) return failed(DataFileUpdate::WriteFailed, lastFileError());
  DataFileUpdateResult r;
  r.status = DataFileUpdate::Saved;
  return r;
}

DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir&)>& change) {
  return updateStoreFile(path, waitMs, [&](CZelDataDir& dir, bool) { return change(dir); }, DamagedFile::Reset);
}

}  // namespace ZEL
