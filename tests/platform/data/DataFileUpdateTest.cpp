// Locked read-modify-write of a shared store file: changes land, a damaged file is reset
// without losing its bytes, a locked file is not touched, and two programs saving at the
// same time lose nothing.
#include "data/CFileLock.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataFileUpdate.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class DataFileUpdate : public ::testing::Test {
protected:
  void SetUp() override {
    dir = std::filesystem::temp_directory_path() / ("qen-update-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    file = (dir / "qen_obj_prop.dex").string();
  }
  void TearDown() override { std::filesystem::remove_all(dir); }

  std::string bytes(const std::string& path) const {
    std::string b;
    EXPECT_TRUE(CStoreFile::readFile(path, b)) << ZEL::lastFileError();
    return b;
  }

  // Puts `value` under `name` in the directory.
  static bool put(CZelDataDir& d, const wchar_t* name, const wchar_t* value) {
    return d.insert(name, new CZelDataItem(ZEL::mkResbuf(value)), false);
  }

  std::filesystem::path dir;
  std::string file;
};

}  // namespace

TEST_F(DataFileUpdate, AMissingFileStartsEmptyAndIsWritten) {
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir& d) {
    EXPECT_TRUE(d.isEmpty());
    return put(d, L"KLOTZ", L"\\de\\Klotz");
  });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Saved) << r.message;
  EXPECT_TRUE(r.ok());
  EXPECT_EQ(bytes(file), "{\n  \"KLOTZ\": \"\\\\de\\\\Klotz\"\n}\n");
}

TEST_F(DataFileUpdate, KeepsWhatTheChangeDoesNotTouch) {
  ASSERT_TRUE(CStoreFile::writeAtomic(file, "{\"A\": {\"TXTLST\": [\"x\"]}, \"B\": 2}\n"));
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir& d) {
    d.remove(CZelString(L"B"));
    return put(d, L"C", L"neu");
  });
  ASSERT_EQ(r.status, ZEL::DataFileUpdate::Saved) << r.message;
  EXPECT_EQ(bytes(file), "{\n  \"A\": {\n    \"TXTLST\": [\"x\"]\n  },\n  \"C\": \"neu\"\n}\n");
}

TEST_F(DataFileUpdate, ADeclinedChangeLeavesTheFileAsItWas) {
  const std::string before = "{\"A\":1}";  // not in the form a save would write
  ASSERT_TRUE(CStoreFile::writeAtomic(file, before));
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir& d) {
    put(d, L"X", L"y");
    return false;
  });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Unchanged);
  EXPECT_EQ(bytes(file), before);
}

TEST_F(DataFileUpdate, AFileThatDoesNotParseIsResetAndItsBytesKept) {
  const std::string damaged = "{\n  \"A\": [1, 2,\n}\n";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, damaged));
  bool called = false;
  auto r = ZEL::updateStoreFile(file, 15000, [&](CZelDataDir& d) {
    called = true;
    return put(d, L"X", L"y");
  });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Reset);
  EXPECT_FALSE(r.ok());
  EXPECT_FALSE(called) << "the list is not stored in a file that was damaged";
  EXPECT_NE(r.message.find(file + ":3:1"), std::string::npos) << r.message;
  EXPECT_NE(r.message.find(file + ".bad1"), std::string::npos) << r.message;
  EXPECT_EQ(bytes(file), "{}\n");
  EXPECT_EQ(bytes(file + ".bad1"), damaged);
  EXPECT_EQ(ZEL::damagedCopyPath(file), file + ".bad2");

  // The next save works on the fresh directory.
  r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir& d) { return put(d, L"X", L"y"); });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Saved) << r.message;
}

TEST_F(DataFileUpdate, AFileHoldingNoDirectoryIsResetToo) {
  ASSERT_TRUE(CStoreFile::writeAtomic(file, "[\"a\", \"b\"]\n"));
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir&) { return true; });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Reset);
  EXPECT_NE(r.message.find(file + ":1:1: a store file holds a directory (a JSON object) at its top"), std::string::npos) << r.message;
  EXPECT_EQ(bytes(file), "{}\n");
}

TEST_F(DataFileUpdate, ALockedFileIsNeitherReadNorWritten) {
  const std::string before = "{\"A\":1}";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, before));
  ZEL::CFileLock other(file, 0);
  ASSERT_TRUE(other.isLocked());
  bool called = false;
  auto r = ZEL::updateStoreFile(file, 50, [&](CZelDataDir&) { return called = true; });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Locked);
  EXPECT_FALSE(called);
  EXPECT_NE(r.message.find(file), std::string::npos) << r.message;
  EXPECT_EQ(bytes(file), before);
}

TEST_F(DataFileUpdate, AFileThatCannotBeReadIsLeftAlone) {
  if (::geteuid() == 0) GTEST_SKIP() << "root reads every file";
  const std::string before = "{\"A\":1}";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, before));
  std::filesystem::permissions(file, std::filesystem::perms::none);
  auto r = ZEL::updateStoreFile(file, 50, [](CZelDataDir&) { return true; });
  std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Unreadable);
  EXPECT_EQ(bytes(file), before);
}

TEST_F(DataFileUpdate, TwoProcessesSavingAtOnceLoseNoEntry) {
  constexpr int kEntries = 200;
  int start[2];
  ASSERT_EQ(::pipe(start), 0);
  pid_t children[2];
  for (int p = 0; p < 2; ++p) {
    children[p] = ::fork();
    ASSERT_GE(children[p], 0);
    if (children[p] == 0) {
      ::close(start[1]);
      char go;
      if (::read(start[0], &go, 1) != 0) ::_exit(3);  // both start when the pipe closes
      for (int i = 0; i < kEntries; ++i) {
        const CZelString name = CZelString::fromUtf8("P" + std::to_string(p) + "_" + std::to_string(i));
        auto r = ZEL::updateStoreFile(file, 15000, [&](CZelDataDir& d) { return put(d, name.c_str(), L"x"); });
        if (r.status != ZEL::DataFileUpdate::Saved) ::_exit(1);
      }
      ::_exit(0);
    }
  }
  ::close(start[0]);
  ::close(start[1]);
  for (pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
  }
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file));
  ASSERT_TRUE(saved && saved->isDir()) << ZEL::lastFileError();
  EXPECT_EQ(saved->getDir()->count(), 2 * kEntries);
  for (int p = 0; p < 2; ++p)
    for (int i = 0; i < kEntries; ++i)
      EXPECT_NE(saved->getDir()->item(CZelString::fromUtf8("P" + std::to_string(p) + "_" + std::to_string(i))), nullptr)
          << "lost P" << p << "_" << i;
}

TEST_F(DataFileUpdate, EveryDamagedVersionIsKeptInACopyOfItsOwn) {
  const std::string first = "{\"A\": [1,\n", second = "[\"no directory\"]\n";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, first));
  EXPECT_EQ(ZEL::updateStoreFile(file, 15000, [](CZelDataDir&) { return true; }).status, ZEL::DataFileUpdate::Reset);
  ASSERT_TRUE(CStoreFile::writeAtomic(file, second));
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir&) { return true; });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Reset);
  EXPECT_NE(r.message.find(file + ".bad2"), std::string::npos) << r.message;
  EXPECT_EQ(bytes(file + ".bad1"), first) << "the first damaged copy is not overwritten";
  EXPECT_EQ(bytes(file + ".bad2"), second);
}

TEST_F(DataFileUpdate, ARefusedDamagedFileStaysByteIdenticalAndTheFailureIsNoted) {
  const std::string damaged = "{\"A\": [1,\n";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, damaged));
  ZEL::clearDataFileFailures();
  bool called = false;
  auto r = ZEL::updateStoreFile(
      file, 15000, [&](CZelDataDir&, bool) { return called = true; }, ZEL::DamagedFile::Refuse);
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Damaged);
  EXPECT_FALSE(called);
  EXPECT_EQ(r.message.rfind(file + ":", 0), 0u) << r.message;
  EXPECT_NE(r.message.find("left as it is"), std::string::npos) << r.message;
  EXPECT_EQ(bytes(file), damaged);
  EXPECT_FALSE(std::filesystem::exists(file + ".bad1"));
  ASSERT_EQ(ZEL::dataFileFailures().size(), 1u);
  EXPECT_EQ(ZEL::dataFileFailures()[0], r.message);
  ZEL::clearDataFileFailures();
}

TEST_F(DataFileUpdate, TheChangeLearnsWhetherTheFileExisted) {
  bool seen = true;
  ZEL::updateStoreFile(file, 15000, [&](CZelDataDir&, bool existed) { seen = existed; return true; },
                       ZEL::DamagedFile::Refuse);
  EXPECT_FALSE(seen);
  ZEL::updateStoreFile(file, 15000, [&](CZelDataDir&, bool existed) { seen = existed; return false; },
                       ZEL::DamagedFile::Refuse);
  EXPECT_TRUE(seen);
}

TEST_F(DataFileUpdate, SomethingThatIsNoRegularFileIsNotRead) {
  ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
  auto r = ZEL::updateStoreFile(file, 15000, [](CZelDataDir&) { return true; });
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Unreadable);
  EXPECT_NE(r.message.find("not a regular file"), std::string::npos) << r.message;
  ZEL::clearDataFileFailures();
}

TEST_F(DataFileUpdate, AWholeFileIsReplacedOnlyUnderItsLock) {
  std::unique_ptr<CZelDataItem> item(CStoreFile::parse("{\"B\": 30.0}", "item"));
  ASSERT_TRUE(item);
  ASSERT_TRUE(CStoreFile::writeAtomic(file, "{\"A\":1}"));
  {
    ZEL::CFileLock other(file, 0);
    ASSERT_TRUE(other.isLocked());
    auto r = ZEL::replaceStoreFile(file, 50, *item);
    EXPECT_EQ(r.status, ZEL::DataFileUpdate::Locked);
    EXPECT_EQ(bytes(file), "{\"A\":1}");
  }
  auto r = ZEL::replaceStoreFile(file, 15000, *item);
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Saved) << r.message;
  EXPECT_EQ(bytes(file), "{\n  \"B\": 30.0\n}\n");
  ZEL::clearDataFileFailures();
}
