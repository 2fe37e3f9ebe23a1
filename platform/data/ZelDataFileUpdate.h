// A locked read-modify-write of a store file that several programs share: the settings
// store, the supplementary label lists in "qen_obj_prop.dex", the article table.
#pragma once

#include <functional>
#include <string>
#include <vector>

class CZelDataDir;
class CZelDataItem;

namespace ZEL {

enum class DataFileUpdate {
  Saved,        // the change was made and the file written
  Unchanged,    // the change declined (returned false); the file was left as it was
  Reset,        // the file held no directory: an empty one was written, the change not made
  Damaged,      // the file held no directory and was left as it was (DamagedFile::Refuse)
  Locked,       // the lock was not had within the wait; nothing was read or written
  Unreadable,   // the file exists but cannot be read (permissions …); left as it was
  WriteFailed,  // the new content could not be written; the old file stays
};

// What to do with a file that exists but holds no store-file directory.
enum class DamagedFile {
  Reset,   // keep its bytes in a numbered "<file>.badN" and start it anew, empty
  Refuse,  // leave it as it is and fail: its content is worth more than the change
};

struct DataFileUpdateResult {
  DataFileUpdate status = DataFileUpdate::Unchanged;
  // For every status but Saved and Unchanged: what happened, naming the file (and for a
  // file that does not parse, its line and column).
  std::string message;
  bool ok() const { return status == DataFileUpdate::Saved || status == DataFileUpdate::Unchanged; }
};

// How long a save waits for another program's save of the same file. Holders keep the lock
// only for one read and one write, so this is reached only when something hangs.
constexpr int kDataFileWaitMs = 15000;

// Locks `path` (CFileLock, waiting at most `waitMs`), loads it, lets `change` edit its
// directory and saves it atomically before unlocking, so that changes of several programs
// to different entries all land. A missing file reads as an empty directory; `existed`
// tells the change which it was. A file whose content is not a store-file directory is
// handled as `onDamage` says; with Reset its old bytes are kept beside it (every damaged
// version in a file of its own) so that nothing is lost unseen.
//
// Every failure is also noted in dataFileFailures(), so that a host can report the data
// files a dialog could not write even when the dialog only showed a message box.
DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir& dir, bool existed)>& change,
                                     DamagedFile onDamage);
DataFileUpdateResult updateStoreFile(const std::string& path, int waitMs,
                                     const std::function<bool(CZelDataDir&)>& change);

// Replaces the whole file with `item` under the file's lock (a favourite, a library object):
// a save that does not depend on the old content, but still waits for other programs'
// saves and is noted in dataFileFailures() when it fails.
DataFileUpdateResult replaceStoreFile(const std::string& path, int waitMs, const CZelDataItem& item);

// The first free "<file>.badN" (N = 1, 2, …) for the damaged bytes of a data file.
std::string damagedCopyPath(const std::string& path);

// The messages of the failed updates since the last clearDataFileFailures() (or the start).
const std::vector<std::string>& dataFileFailures();
void clearDataFileFailures();

}  // namespace ZEL
