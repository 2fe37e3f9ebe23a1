// An exclusive lock on one of the add-on's data files, shared by every process of the user.
#include "data/CFileLock.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace ZEL {

CFileLock::CFileLock(const std::string& file, int waitMs) {
  const std::string path = lockPath(file);
  int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  if (fd < 0) {
    m_error = path + ": cannot open the lock file (" + std::strerror(errno) + ")";
    return;
  }
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(waitMs < 0 ? 0 : waitMs);
  // Poll rather than block: a blocking flock() cannot be bounded in time. The pause grows
  // so that a short wait reacts fast and a long one does not spin.
  auto pause = std::chrono::milliseconds(1);
  for (;;) {
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
      m_fd = fd;
      return;
    }
    if (errno != EWOULDBLOCK && errno != EINTR) {
      m_error = path + ": cannot be locked (" + std::strerror(errno) + ")";
      break;
    }
    const auto now = Clock::now();
    if (now >= deadline) {
      m_error = path + ": still locked by another program after " + std::to_string(waitMs) + " ms";
      break;
    }
    std::this_thread::sleep_for(std::min<Clock::duration>(pause, deadline - now));
    pause = std::min(pause * 2, std::chrono::milliseconds(20));
  }
  ::close(fd);
}

CFileLock::~CFileLock() { unlock(); }

void CFileLock::unlock() {
  if (m_fd < 0) return;
  ::flock(m_fd, LOCK_UN);
  ::close(m_fd);
  m_fd = -1;
}

}  // namespace ZEL
