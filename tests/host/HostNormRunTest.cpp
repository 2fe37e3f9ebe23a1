// qen-host run DIN and NORM_MAT from the command line: the arguments only the standard parts
// take, the help that describes them, picks answered one after the other, and which further
// dimension a picked distance becomes.
#include "HostNormHooks.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "norm/ZelNormGen.h"
#include "tests/support/HostProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class HostNormRunTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-norm-run-" + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(m_dir);
    std::filesystem::create_directories(m_dir);
    ASSERT_EQ(runHost("init --store " + store()).status, 0);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }

  std::string path(const std::string& name) const { return (m_dir / name).string(); }
  std::string store() const { return path("s.json"); }
  std::string script(const std::string& text) const {
    write(m_dir / "t.qds", text);
    return path("t.qds");
  }
  std::string stored(const std::string& key) const {
    HostResult r = runHost("store " + store() + " get '" + key + "'");
    return r.status == 0 ? r.out.substr(0, r.out.find('\n')) : "<absent>";
  }
  static std::string drawing() { return std::string(QEN_SOURCE_DIR) + "/tests/scripts/drawings/norm_parts.json"; }

  std::filesystem::path m_dir;
};

TEST_F(HostNormRunTest, ThePartArgumentsAreRefusedForEveryOtherEntry) {
  const std::string before = slurp(store());
  for (const std::string& args : {std::string("KLOTZ --projections 2"), std::string("NORM_MAT --editing"),
                                  std::string("LAYER --sheared"), std::string("qenItemDlgMenu --projections 0")}) {
    HostResult r = runHost("run " + args + " --store " + store() + " --script " + script("cancel\n"));
    EXPECT_EQ(r.status, 2) << args << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, "is an argument of the standard-parts dialog (run DIN) only")) << args << "\n" << r.out;
    EXPECT_FALSE(contains(r.out, "end code")) << args << ": nothing may run";
  }
  HostResult named = runHost("run KLOTZ --sheared --store " + store());
  EXPECT_TRUE(contains(named.out, "--sheared is an argument of the standard-parts dialog (run DIN) only, not of qenDlgHzKl (KLOTZ)"))
      << named.out;
  EXPECT_EQ(slurp(store()), before);
}

TEST_F(HostNormRunTest, AProjectionCountMustBeAWholeNumberFromZeroToAThousand) {
  for (const char* bad : {"-1", "x", "1001", "2.5", "3x"}) {
    HostResult r = runHost("run DIN --store " + store() + " --projections " + bad + " --script " + script("cancel\n"));
    EXPECT_EQ(r.status, 2) << bad << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, "--projections takes a whole number from 0 to 1000, not \"" + std::string(bad) + "\""))
        << r.out;
  }
  HostResult missing = runHost("run DIN --store " + store() + " --projections");
  EXPECT_EQ(missing.status, 2);
  EXPECT_TRUE(contains(missing.out, "--projections needs a value")) << missing.out;
  HostResult fine = runHost("run DIN --store " + store() + " --projections 1000 --editing --sheared --script " + script("cancel\n"));
  EXPECT_EQ(fine.status, 0) << fine.out;
  EXPECT_TRUE(contains(fine.out, "end code: 2")) << fine.out;
}

TEST_F(HostNormRunTest, HelpDescribesTheStandardPartsArgumentsAndPicks) {
  HostResult r = runHost("--help");
  EXPECT_EQ(r.status, 0) << r.out;
  for (const char* part : {"--projections N", "--editing", "--sheared", "for run DIN (the standard parts) only", "--pick VALUE",
                           "end code 3 the further dimension, 4 the length"})
    EXPECT_TRUE(contains(r.out, part)) << part << "\n" << r.out;
  const std::string readme = slurp(std::string(QEN_SOURCE_DIR) + "/README.md");
  EXPECT_TRUE(contains(readme, "`--projections N`")) << "the README's qen-host section describes them too";
}

// Picks answered one after the other, each reopening the dialog: din_host_pick_clamping.
TEST_F(HostNormRunTest, APickWithoutAnAnswerEndsTheRunWithItsCode) {
  HostResult r = runHost("run DIN --store " + store() + " --drawing " + drawing() + " --record object=D1 --script " +
                         script("click 0/10780\n"));
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_TRUE(contains(r.out, "end code: 3")) << r.out;
  EXPECT_EQ(stored("*NM*\\ORIG"), "{\"$ename\": \"D1\"}") << "the edit goes on in the next call";
}

// A catalogue that is missing or is no database is named with its path; the dialog still
// opens, on an empty tree with nothing to take.
TEST_F(HostNormRunTest, AMissingOrDamagedCatalogueIsReportedAndTheTreeIsEmpty) {
  write(m_dir / "bad.db", "not a database");
  const std::string check = script("expect 0/10804 items 0\nexpect 1 disabled\nexpect 0/10778 disabled\n");
  for (const auto& [db, reason] : {std::pair{path("bad.db"), std::string("damaged")}, {path("none.db"), std::string("not found")}}) {
    HostResult r = runHost("run DIN --headless --store " + store() + " --script " + check, "QEN_NORM_DB=" + db + " ");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_TRUE(contains(r.out, "standard-parts database " + reason + ": " + db)) << r.out;
    EXPECT_TRUE(contains(r.out, "end code: 2")) << r.out;
  }
  EXPECT_EQ(stored("*NM*\\STACK"), "<absent>") << "an empty tree leaves no selection";
}

TEST_F(HostNormRunTest, AnObjectThatIsNoStandardPartCannotBeEdited) {
  HostResult r = runHost("run DIN --store " + store() + " --drawing " + drawing() + " --record object=K1 --script " +
                         script("expect 10410 hidden\ncancel\n"));
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_TRUE(contains(r.out, "pick: the drawing has no DIN object K1")) << r.out;
  EXPECT_EQ(stored("*NM*\\ORIG"), "<absent>");
}

// In process: the key a picked further dimension is stored under follows the standard.
class FurtherDimensionKeyTest : public ::testing::Test {
protected:
  static CZelString keyFor(const std::string& nm) {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse("{\"*NM*\": " + nm + "}", "store"));
    ZEL::norm_gen_init(false);
    return normFurtherDimensionKey();
  }
};

TEST_F(FurtherDimensionKeyTest, EachStandardNamesItsOwnFurtherDimension) {
  // KLM, SENK and RAD as the picks store them: din_host_pick_clamping, _depth and _radius.
  EXPECT_EQ(keyFor(R"({"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12"})"), CZelString(L"KLM"));
  EXPECT_EQ(keyFor(R"({"STACK": ["PIECE", "SCREW", "SOCKET", "ISO4762"], "ND": "M8"})"), CZelString());
  EXPECT_EQ(keyFor(R"({"STACK": ["BAR"]})"), CZelString()) << "no standard, no dimension";
}

}  // namespace
