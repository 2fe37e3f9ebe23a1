// File locks: exclusive between lock objects and between processes, bounded in waiting,
// released with their scope, and not broken by the atomic save of the data file.
#include "data/CFileLock.h"
#include "data/CStoreFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

long msSince(Clock::time_point t) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - t).count());
}

class FileLock : public ::testing::Test {
protected:
  void SetUp() override {
    dir = std::filesystem::temp_directory_path() / ("qen-lock-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    file = (dir / "qen_obj_prop.dex").string();
  }
  void TearDown() override { std::filesystem::remove_all(dir); }

  // A child process that takes the lock, tells us so through a pipe, holds it for
  // `holdMs` and ends.
  pid_t holdInChild(int holdMs) {
    int p[2];
    EXPECT_EQ(::pipe(p), 0);
    pid_t pid = ::fork();
    if (pid == 0) {
      ::close(p[0]);
      ZEL::CFileLock lock(file, 0);
      char c = lock.isLocked() ? '1' : '0';
      [[maybe_unused]] ssize_t n = ::write(p[1], &c, 1);
      ::usleep(static_cast<useconds_t>(holdMs) * 1000);
      ::_exit(lock.isLocked() ? 0 : 1);
    }
    ::close(p[1]);
    char c = 0;
    EXPECT_EQ(::read(p[0], &c, 1), 1);
    EXPECT_EQ(c, '1');
    ::close(p[0]);
    return pid;
  }

  std::filesystem::path dir;
  std::string file;
};

}  // namespace

TEST_F(FileLock, IsTakenOnAFreeFileAndMakesItsCompanionFile) {
  ZEL::CFileLock lock(file, 15000);
  EXPECT_TRUE(lock.isLocked());
  EXPECT_TRUE(lock.error().empty());
  EXPECT_TRUE(std::filesystem::exists(ZEL::CFileLock::lockPath(file)));
  EXPECT_FALSE(std::filesystem::exists(file)) << "the data file itself is not created";
}

TEST_F(FileLock, SecondLockInTheSameProgramGivesUpAfterItsWait) {
  ZEL::CFileLock first(file, 0);
  ASSERT_TRUE(first.isLocked());
  auto start = Clock::now();
  ZEL::CFileLock second(file, 150);
  long waited = msSince(start);
  EXPECT_FALSE(second.isLocked());
  EXPECT_GE(waited, 150);
  EXPECT_LT(waited, 1000);
  EXPECT_NE(second.error().find(ZEL::CFileLock::lockPath(file)), std::string::npos) << second.error();
}

TEST_F(FileLock, IsFreeAgainAfterItsScopeOrUnlock) {
  {
    ZEL::CFileLock lock(file, 0);
    ASSERT_TRUE(lock.isLocked());
  }
  ZEL::CFileLock again(file, 0);
  EXPECT_TRUE(again.isLocked());
  again.unlock();
  EXPECT_FALSE(again.isLocked());
  ZEL::CFileLock third(file, 0);
  EXPECT_TRUE(third.isLocked());
}

TEST_F(FileLock, WaitsForAnotherProcessToLetGo) {
  pid_t child = holdInChild(300);
  {
    ZEL::CFileLock busy(file, 0);
    EXPECT_FALSE(busy.isLocked());
  }
  auto start = Clock::now();
  ZEL::CFileLock lock(file, 15000);
  EXPECT_TRUE(lock.isLocked());
  EXPECT_LT(msSince(start), 5000);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(FileLock, DiesWithItsProcess) {
  pid_t child = holdInChild(0);
  ::waitpid(child, nullptr, 0);
  ZEL::CFileLock lock(file, 0);
  EXPECT_TRUE(lock.isLocked());
}

TEST_F(FileLock, HoldsWhileTheDataFileIsSavedOverByRename) {
  ZEL::CFileLock lock(file, 0);
  ASSERT_TRUE(lock.isLocked());
  ASSERT_TRUE(CStoreFile::writeAtomic(file, "{}\n"));
  ASSERT_TRUE(CStoreFile::writeAtomic(file, "{\"A\": 1}\n"));
  ZEL::CFileLock other(file, 0);
  EXPECT_FALSE(other.isLocked());
}

TEST_F(FileLock, InAFolderThatDoesNotExistReportsThePath) {
  const std::string missing = (dir / "no" / "such" / "file.dex").string();
  auto start = Clock::now();
  ZEL::CFileLock lock(missing, 15000);
  EXPECT_FALSE(lock.isLocked());
  EXPECT_LT(msSince(start), 1000) << "no waiting for a file that cannot be locked at all";
  EXPECT_NE(lock.error().find(missing + ".lock"), std::string::npos) << lock.error();
}
