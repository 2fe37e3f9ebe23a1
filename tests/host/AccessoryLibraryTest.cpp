// The object library as the setting-block dialog's administration tab uses it across runs
// of qen-host: "Speichern..." files the block in the drawing's library and names it; a later
// run fetches it again with "Holen..." into fresh settings.
#include "tests/support/HostProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Result = HostResult;

Result host(const std::string& args) { return runHost(args); }

class AccessoryLibraryTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = fs::temp_directory_path() / ("qen-lib-" + std::to_string(::getpid()));
    fs::create_directories(m_dir);
    write(m_dir / "drawing.json", R"({"INSUNITS": 4})");
  }
  void TearDown() override { fs::remove_all(m_dir); }
  std::string at(const char* name) const { return (m_dir / name).string(); }
  fs::path m_dir;
};

}  // namespace

TEST_F(AccessoryLibraryTest, ASavedBlockIsFetchedAgainInALaterRun) {
  ASSERT_EQ(host("init --store " + at("first.json")).status, 0);
  write(m_dir / "save.qds",
        "enter 0/10389 \"44\"\ntab 1\nexpect 1/10062 text \"\"\nclick 1/10425\n"
        "expect 1/10062 text \"KLOTZ_PP_B=44_H=5\"\nexpect 1/10454 text \"KLOTZ\"\n"
        "expect 1/10433 text \"Klotz 44 x 5 - Polypropylen (PP)\"\nok\n");
  Result saved = host("run KLOTZ --store " + at("first.json") + " --drawing " + at("drawing.json") + " --script " +
                      at("save.qds") + " --drawing-out " + at("drawing.json"));
  ASSERT_EQ(saved.status, 0) << saved.out;
  EXPECT_TRUE(fs::exists(m_dir / "library" / "KLOTZ" / "KLOTZ_PP_B=44_H=5.json"));

  // Fresh settings: the factory block, 30 mm wide, until the saved one is fetched.
  ASSERT_EQ(host("init --store " + at("second.json")).status, 0);
  write(m_dir / "fetch.qds",
        "expect 0/10389 text \"30 mm\"\ntab 1\nclick 1/10424\nexpect 1/10062 text \"KLOTZ_PP_B=44_H=5\"\n"
        "tab 0\nexpect 0/10389 text \"44 mm\"\nok\nexpect-store *HZ_KLOTZ*\\B 44.0\n");
  Result fetched = host("run KLOTZ --store " + at("second.json") + " --drawing " + at("drawing.json") + " --script " +
                        at("fetch.qds"));
  EXPECT_EQ(fetched.status, 0) << fetched.out;
}
