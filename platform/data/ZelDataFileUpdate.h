// A locked read-modify-write of a store file that several programs share, such as the
// supplementary label lists in "qen_obj_prop.dex".
#pragma once

#include <functional>
#include <string>

class CZelDataDir;

namespace ZEL {

enum class DataFileUpdate {
  Saved,        // the change was made and the file written
  Unchanged,    // the change declined (returned false); the file was left as it was
  Reset,        // the file held no directory: an empty one was written, the change not made
  Locked,       // the lock was not had within the wait; nothing was read or written
  Unreadable,   // the file exists but cannot be read (permissions …); left as it was
  WriteFailed,  // the new content could not be written; the old file stays
};

struct DataFileUpdateResult {
  DataFileUpdate status = DataFileUpdate::Unchanged;
  // For every status but Saved and Unchanged: what happened, naming the file (and for a
  // file that does not parse, its line and column).
  std::string message;
  bool ok() const { return status == DataFileUpdate::Saved || status == DataFileUpdate::Unchanged; }
};

// Locks `path` (CFileLock, waiting at most `waitMs`), loads it, lets `change` edit its
// directory and saves it atomically before unlocking. A missing file reads as an empty
// directory. A file whose content is not a store-file directory is replaced by an empty
// directory without the change, as "Liste speichern" does with a damaged list file; its
// old bytes are kept beside it as "<file>.bad" so that nothing is lost unseen.
DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir&)>& change);

// Where updateStoreFile keeps the bytes of a file it had to reset.
inline std::string damagedCopyPath(const std::string& path) { return path + ".bad"; }

}  // namespace ZEL
