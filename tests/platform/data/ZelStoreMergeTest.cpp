// Saving what a program changed in a shared store file: its own changes land on what the
// file holds now, and what others saved meanwhile stays.
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelStoreMerge.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <unistd.h>

namespace {

std::unique_ptr<CZelDataItem> parse(const char* json) {
  std::unique_ptr<CZelDataItem> item(CStoreFile::parse(json, "test"));
  EXPECT_TRUE(item) << ZEL::lastFileError();
  return item;
}

std::string text(const CZelDataItem& item) { return CStoreFile::toText(item); }

// Merges the change from `before` to `after` into `now` and returns the result as text.
std::string merged(const char* before, const char* after, const char* now) {
  auto b = parse(before), a = parse(after), n = parse(now);
  ZEL::applyStoreChanges(b->getDir(), *a->getDir(), *n->getDir());
  return text(*n);
}

}  // namespace

TEST(StoreMerge, ChangesOfDifferentKeysBothStay) {
  EXPECT_EQ(merged(R"({"S": {"A": 1, "B": 2}})", R"({"S": {"A": 10, "B": 2}})", R"({"S": {"A": 1, "B": 20}})"),
            text(*parse(R"({"S": {"A": 10, "B": 20}})")));
}

TEST(StoreMerge, TheSameKeyTakesTheLaterSave) {
  EXPECT_EQ(merged(R"({"A": 1})", R"({"A": 3})", R"({"A": 2})"), text(*parse(R"({"A": 3})")));
}

TEST(StoreMerge, KeysTheProgramDidNotTouchKeepWhatTheFileHoldsNow) {
  // Another program changed A, added N and removed R: this program changed nothing of them.
  EXPECT_EQ(merged(R"({"A": 1, "R": 5, "M": 0})", R"({"A": 1, "R": 5, "M": 1})", R"({"A": 2, "M": 0, "N": 7})"),
            text(*parse(R"({"A": 2, "M": 1, "N": 7})")));
}

TEST(StoreMerge, AddedAndRemovedKeysAndDirectoriesAreApplied) {
  EXPECT_EQ(merged(R"({"D": {"X": 1}, "K": "k"})", R"({"E": {"Y": [1, 2]}, "K": "k"})", R"({"D": {"X": 1, "Z": 2}, "K": "k", "O": 1})"),
            text(*parse(R"({"K": "k", "O": 1, "E": {"Y": [1, 2]}})")));
}

TEST(StoreMerge, ATypeChangeReplacesTheEntry) {
  EXPECT_EQ(merged(R"({"A": {"X": 1}})", R"({"A": "now a value"})", R"({"A": {"X": 1, "Y": 2}})"),
            text(*parse(R"({"A": "now a value"})")));
  EXPECT_EQ(merged(R"({"A": 1})", R"({"A": {"X": {"$short": 62}}})", R"({"A": 2})"),
            text(*parse(R"({"A": {"X": {"$short": 62}}})")));
}

TEST(StoreMerge, ADirectoryChangedHereButGoneThereIsSetAsThisProgramHasIt) {
  EXPECT_EQ(merged(R"({"D": {"X": 1, "Y": 2}})", R"({"D": {"X": 5, "Y": 2}})", R"({})"),
            text(*parse(R"({"D": {"X": 5, "Y": 2}})")));
}

TEST(StoreMerge, NoChangeLeavesTheTargetAlone) {
  auto b = parse(R"({"A": {"B": 1}})"), n = parse(R"({"Z": 1})");
  EXPECT_FALSE(ZEL::applyStoreChanges(b->getDir(), *b->getDir(), *n->getDir()));
  EXPECT_EQ(text(*n), text(*parse(R"({"Z": 1})")));
}

class StoreMergeFile : public ::testing::Test {
protected:
  void SetUp() override {
    dir = std::filesystem::temp_directory_path() / ("qen-merge-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    file = (dir / "settings.json").string();
  }
  void TearDown() override { std::filesystem::remove_all(dir); }
  std::filesystem::path dir;
  std::string file;
};

TEST_F(StoreMergeFile, SavesOnlyTheChangesOnTheFileAsItIsNow) {
  ASSERT_TRUE(CStoreFile::writeAtomic(file, R"({"A": 1, "B": 1})"));
  auto loaded = parse(R"({"A": 1, "B": 1})"), mine = parse(R"({"A": 2, "B": 1})");
  ASSERT_TRUE(CStoreFile::writeAtomic(file, R"({"A": 1, "B": 3})"));  // another program saved meanwhile
  auto r = ZEL::saveStoreChanges(file, *loaded, *mine);
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Saved) << r.message;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file));
  ASSERT_TRUE(saved);
  EXPECT_EQ(text(*saved), text(*parse(R"({"A": 2, "B": 3})")));
}

TEST_F(StoreMergeFile, AFileThatIsGoneIsWrittenWhole) {
  auto loaded = parse(R"({"A": 1, "B": 1})"), mine = parse(R"({"A": 2, "B": 1})");
  EXPECT_EQ(ZEL::saveStoreChanges(file, *loaded, *mine).status, ZEL::DataFileUpdate::Saved);
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file));
  ASSERT_TRUE(saved);
  EXPECT_EQ(text(*saved), text(*mine));
}

TEST_F(StoreMergeFile, AFileDamagedMeanwhileIsLeftAsItIsAndTheSaveFails) {
  const std::string damaged = "{\"A\": ";
  ASSERT_TRUE(CStoreFile::writeAtomic(file, damaged));
  auto loaded = parse(R"({"A": 1})"), mine = parse(R"({"A": 2})");
  auto r = ZEL::saveStoreChanges(file, *loaded, *mine);
  EXPECT_EQ(r.status, ZEL::DataFileUpdate::Damaged);
  EXPECT_NE(r.message.find(file), std::string::npos) << r.message;
  std::string bytes;
  ASSERT_TRUE(CStoreFile::readFile(file, bytes));
  EXPECT_EQ(bytes, damaged);
  ZEL::clearDataFileFailures();
}
