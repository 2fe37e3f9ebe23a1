// An exclusive lock on one of the add-on's data files, shared by every process of the user.
#pragma once

#include "data/CZelString.h"

#include <string>

namespace ZEL {

// The lock is held on a companion file "<file>.lock", not on the data file itself: data
// files are saved by writing a temporary file and renaming it over the old one, which
// would leave a lock on the old inode behind. The companion file is never removed, since
// removing it would let a waiting process lock a file that nobody else sees any more.
//
// flock() locks belong to an open file description, so two locks on the same file exclude
// each other within one process too, and a lock dies with its process.
class CFileLock {
public:
  // Tries to lock `file` for at most `waitMs` milliseconds (0: one try); see isLocked().
  CFileLock(const std::string& file, int waitMs);
  CFileLock(const CZelString& file, int waitMs) : CFileLock(file.toUtf8(), waitMs) {}
  ~CFileLock();
  CFileLock(const CFileLock&) = delete;
  CFileLock& operator=(const CFileLock&) = delete;

  bool isLocked() const { return m_fd >= 0; }
  // Why the lock was not taken (path and reason); empty when it was.
  const std::string& error() const { return m_error; }
  // Releases the lock before the end of the scope.
  void unlock();

  static std::string lockPath(const std::string& file) { return file + ".lock"; }

private:
  int m_fd = -1;
  std::string m_error;
};

}  // namespace ZEL
