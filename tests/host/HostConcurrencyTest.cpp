// Several qen-host processes on one store and one data file at the same moment: every
// change one of them saves is still there when all have ended.
#include "data/CStoreFile.h"
#include "data/CZelDataItem.h"

#include "tests/support/HostProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Result = HostResult;

Result shell(const std::string& line) { return runShell(line); }

std::string quote(const std::string& s) {
  std::string q = "'";
  for (char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

class HostConcurrency : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-conc-" + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(m_dir);
    std::filesystem::create_directories(m_dir);
    m_store = (m_dir / "settings.json").string();
    ASSERT_EQ(shell(host() + " init --store " + quote(m_store)).status, 0);
    m_started = std::chrono::steady_clock::now();
  }
  void TearDown() override {
    std::filesystem::remove_all(m_dir);
    // Each of these tests is bounded: a hang of the lock would show here, not as a timeout.
    EXPECT_LT(std::chrono::steady_clock::now() - m_started, std::chrono::seconds(20));
  }

  static std::string host() { return quote(QEN_HOST_EXE); }
  static std::string scripts() { return std::string(QEN_SOURCE_DIR) + "/tests/scripts"; }

  std::string writeScript(const std::string& name, const std::string& text) const {
    const std::string path = (m_dir / name).string();
    std::ofstream(path) << text;
    return path;
  }

  std::unique_ptr<CZelDataItem> load(const std::string& path) const {
    std::unique_ptr<CZelDataItem> item(CStoreFile::load(path));
    EXPECT_TRUE(item) << ZEL::lastFileError();
    return item;
  }

  static std::string text(const CZelDataItem& root, const wchar_t* path) {
    CZelDataKey key = CZelDataKey::fromPath(path);
    CZelString value;
    return root.get(value, &key) ? value.toUtf8() : std::string("<absent>");
  }

  std::filesystem::path m_dir;
  std::string m_store;
  std::chrono::steady_clock::time_point m_started;
};

}  // namespace

TEST_F(HostConcurrency, StoreSetsOfDifferentKeysAtTheSameMomentAllLand) {
  constexpr int kWriters = 4, kEach = 12;
  std::string line;
  for (int w = 0; w < kWriters; ++w) {
    line += "( for i in $(seq 1 " + std::to_string(kEach) + "); do " + host() + " store " + quote(m_store) +
            " set \"CONC\\\\W" + std::to_string(w) + "_$i\" \"\\\"v$i\\\"\" || echo FAILED; done ) & ";
  }
  Result r = shell(line + "wait");
  EXPECT_EQ(r.out.find("FAILED"), std::string::npos) << r.out;
  auto saved = load(m_store);
  ASSERT_TRUE(saved);
  int lost = 0;
  for (int w = 0; w < kWriters; ++w)
    for (int i = 1; i <= kEach; ++i) {
      const std::string key = "CONC\\W" + std::to_string(w) + "_" + std::to_string(i);
      if (text(*saved, CZelString::fromUtf8(key).c_str()) != "v" + std::to_string(i)) ++lost;
    }
  EXPECT_EQ(lost, 0) << "of " << kWriters * kEach << " sets";
}

TEST_F(HostConcurrency, SetsAndRemovesOfTheSameKeyEndWithTheLastOne) {
  Result r = shell(host() + " store " + quote(m_store) + " set 'SAME\\K' '\"first\"' && " + host() + " store " +
                   quote(m_store) + " set 'SAME\\K' '\"second\"'");
  ASSERT_EQ(r.status, 0) << r.out;
  auto saved = load(m_store);
  ASSERT_TRUE(saved);
  EXPECT_EQ(text(*saved, L"SAME\\K"), "second");
  EXPECT_EQ(shell(host() + " store " + quote(m_store) + " remove 'SAME\\K'").status, 0);
  EXPECT_EQ(shell(host() + " store " + quote(m_store) + " remove 'SAME\\K'").status, 1);
}

TEST_F(HostConcurrency, ARunOverlappingAStoreSetKeepsBothChanges) {
  // The layer dialog's run saves the user's own layer; the set at the same moment a key of
  // its own. Each round starts both together.
  constexpr int kRounds = 10;
  const std::string run = host() + " run LAYER --store " + quote(m_store) + " --drawing " +
                          quote(scripts() + "/drawings/facade.json") + " --record object=30 --script " +
                          quote(scripts() + "/layer_colour.qds") + " >/dev/null";
  int lostSets = 0;
  for (int i = 0; i < kRounds; ++i) {
    ASSERT_EQ(shell(host() + " store " + quote(m_store) + " set '*QEN_OBJ_LAY*\\LAY_OWN\\PART_CON' '\"QEN_KONTUR\"'").status, 0);
    Result r = shell(run + " & " + host() + " store " + quote(m_store) + " set 'OVERLAP\\K" + std::to_string(i) +
                     "' " + std::to_string(i) + " & wait");
    auto saved = load(m_store);
    ASSERT_TRUE(saved);
    CZelDataKey key = CZelDataKey::fromPath(CZelString::fromUtf8("OVERLAP\\K" + std::to_string(i)));
    int value = -1;
    if (!saved->get(value, &key) || value != i) ++lostSets;
    EXPECT_EQ(text(*saved, L"*QEN_OBJ_LAY*\\LAY_OWN\\PART_CON"), "Dichtungen rot") << "round " << i << "\n" << r.out;
  }
  EXPECT_EQ(lostSets, 0) << "of " << kRounds << " sets made while a run was on";
}

TEST_F(HostConcurrency, TwoItemDialogsRecordingArticlesAtOnceKeepBoth) {
  constexpr int kRounds = 10;
  const std::string table = (m_dir / "qen_obj_order.dex").string();
  int lost = 0;
  for (int i = 0; i < kRounds; ++i) {
    std::string line;
    for (const char* object : {"2F", "30"}) {
      const std::string article = std::string("A-") + object + "-" + std::to_string(i);
      const std::string script = writeScript(std::string("item_") + object + ".qds", "type 10773 \"" + article + "\"\nok\n");
      line += host() + " run ITEM --store " + quote(m_store) + " --drawing " + quote(scripts() + "/drawings/item.json") +
              " --record object=" + object + " --script " + quote(script) + " >/dev/null || echo FAILED & ";
    }
    Result r = shell(line + "wait");
    EXPECT_EQ(r.out.find("FAILED"), std::string::npos) << r.out;
    auto saved = load(table);
    ASSERT_TRUE(saved);
    if (text(*saved, L"KLOTZ:ALMG3:B=80:H=5") != "A-2F-" + std::to_string(i)) ++lost;
    if (text(*saved, L"KLOTZ:PP:B=100:H=6") != "A-30-" + std::to_string(i)) ++lost;
  }
  EXPECT_EQ(lost, 0) << "of " << 2 * kRounds << " articles";
}

TEST_F(HostConcurrency, ReadingLeavesNoLockFileBehind) {
  std::filesystem::remove(m_store + ".lock");  // from the init, which wrote the store
  ASSERT_EQ(shell(host() + " store " + quote(m_store) + " get _COUNTRY").status, 0);
  ASSERT_EQ(shell(host() + " store " + quote(m_store) + " check").status, 0);
  EXPECT_FALSE(std::filesystem::exists(m_store + ".lock"));
  // A run that changes nothing neither locks nor rewrites the store.
  std::string before;
  ASSERT_TRUE(CStoreFile::readFile(m_store, before));
  Result cancelled = shell(host() + " run LAYER --store " + quote(m_store) + " --script " + quote(writeScript("c.qds", "cancel\n")));
  EXPECT_EQ(cancelled.status, 0) << cancelled.out;
  std::string after;
  ASSERT_TRUE(CStoreFile::readFile(m_store, after));
  EXPECT_EQ(after, before);
  EXPECT_FALSE(std::filesystem::exists(m_store + ".lock"));
  // The labeling dialog reads the saved supplementary lists when it opens.
  std::ofstream(m_dir / "qen_obj_prop.dex") << "{\"KLOTZ:PP\": {\"TXTLST\": [\"\\\\de\\\\Alt\"]}}\n";
  Result r = shell(host() + " run LABEL --store " + quote(m_store) + " --drawing " +
                   quote(scripts() + "/drawings/labels.json") + " --record object=4A --script " +
                   quote(writeScript("cancel.qds", "cancel\n")));
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_FALSE(std::filesystem::exists(m_dir / "qen_obj_prop.dex.lock"));
}
