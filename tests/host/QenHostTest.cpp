// qen-host as a user meets it: store commands, refused files left untouched, bad
// arguments, entries whose dialog does not exist yet, and the factory settings.
#include "tests/support/HostProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

namespace {

using Result = HostResult;

Result run(const std::string& args, const std::string& environment = "") { return runHost(args, environment); }

class QenHostTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-host-" + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }
  std::string path(const char* name) const { return (m_dir / name).string(); }
  std::filesystem::path m_dir;
};

const char* const kAllTypes = R"({
  "*HZ_KLOTZ*": {
    "B": 30.0,
    "N": 3,
    "SH": {"$short": 62},
    "MAT": "ALMG3",
    "E": {"$ename": "2F"},
    "T": true,
    "NIL": null,
    "L": ["a", 1, [2.5]],
    "P": {"$pair": [62, 7]},
    "VL": {"$points": [[0.0, 0.0, 0.0], [10.0, 0.0, 1.0]]}
  }
}
)";

}  // namespace

TEST_F(QenHostTest, StoreCommandsReadSetAndRemoveValues) {
  write(path("s.json"), kAllTypes);
  Result check = run("store " + path("s.json") + " check");
  EXPECT_EQ(check.status, 0) << check.out;
  EXPECT_NE(check.out.find("sound, 10 values"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find("unchanged"), std::string::npos) << check.out;

  EXPECT_EQ(run("store " + path("s.json") + " get '*HZ_KLOTZ*\\B'").out, "30.0\n");
  EXPECT_EQ(run("store " + path("s.json") + " get '*HZ_KLOTZ*\\P\\#62'").out, "7\n");
  EXPECT_EQ(run("store " + path("s.json") + " get '*HZ_KLOTZ*\\SH'").out, "{\"$short\": 62}\n");
  Result absent = run("store " + path("s.json") + " get '*HZ_KLOTZ*\\X'");
  EXPECT_EQ(absent.status, 1);
  EXPECT_NE(absent.out.find("nothing stored"), std::string::npos);

  EXPECT_EQ(run("store " + path("s.json") + " set '*HZ_KLOTZ*\\B' 40.5").status, 0);
  EXPECT_EQ(run("store " + path("s.json") + " set '*NEW*\\SUB\\X' '{\"A\": [1, 2]}'").status, 0);
  EXPECT_EQ(run("store " + path("s.json") + " get '*HZ_KLOTZ*\\B'").out, "40.5\n");
  EXPECT_EQ(run("store " + path("s.json") + " get '*NEW*\\SUB\\X\\A'").out, "[1, 2]\n");
  EXPECT_EQ(run("store " + path("s.json") + " set '*HZ_KLOTZ*\\P\\#62' 3").status, 0);
  EXPECT_EQ(run("store " + path("s.json") + " get '*HZ_KLOTZ*\\P\\#62'").out, "3\n");

  EXPECT_EQ(run("store " + path("s.json") + " remove '*NEW*'").status, 0);
  EXPECT_EQ(run("store " + path("s.json") + " remove '*NEW*'").status, 1);
  Result bad = run("store " + path("s.json") + " set '*HZ_KLOTZ*\\B' '{oops'");
  EXPECT_EQ(bad.status, 2);
  EXPECT_NE(bad.out.find("the value:1:"), std::string::npos) << bad.out;
}

TEST_F(QenHostTest, AFileThatDoesNotParseIsReportedAndLeftByteIdentical) {
  const std::string broken = "{\n  \"*HZ_KLOTZ*\": {\n    \"B\": 30.0,,\n  }\n}\n";
  write(path("broken.json"), broken);
  for (const std::string& args : {std::string("store ") + path("broken.json") + " check",
                                  std::string("store ") + path("broken.json") + " set '*HZ_KLOTZ*\\B' 1.0",
                                  std::string("store ") + path("broken.json") + " remove '*HZ_KLOTZ*'",
                                  std::string("run LAYER --store ") + path("broken.json")}) {
    Result r = run(args);
    EXPECT_NE(r.status, 0) << args;
    EXPECT_NE(r.out.find(path("broken.json") + ":3:15"), std::string::npos) << args << "\n" << r.out;
    EXPECT_EQ(slurp(path("broken.json")), broken) << args;
  }
  Result missing = run("store " + path("nope.json") + " get X");
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.out.find("nope.json"), std::string::npos);
}

TEST_F(QenHostTest, BadArgumentsAndUnknownEntriesEndWithStatusTwo) {
  for (const char* args : {"", "frobnicate", "run", "run NOPE", "run LAYER --record unit", "run LAYER --record speed=3",
                           "run LAYER --record unit=99", "run LAYER --projections x", "init", "run LAYER --bogus"}) {
    Result r = run(args);
    EXPECT_EQ(r.status, 2) << args << "\n" << r.out;
    EXPECT_NE(r.out.find("qen-host: "), std::string::npos) << args;
  }
  Result unbuilt = run("run HLBZ --store " + path("x.json"));
  EXPECT_EQ(unbuilt.status, 2);
  EXPECT_NE(unbuilt.out.find("does not exist yet"), std::string::npos) << unbuilt.out;
}

TEST_F(QenHostTest, FactorySettingsHoldEverySectionTheEntriesOpen) {
  ASSERT_EQ(run("init --store " + path("f.json")).status, 0);
  Result check = run("store " + path("f.json") + " check");
  EXPECT_EQ(check.status, 0) << check.out;
  EXPECT_NE(check.out.find("unchanged"), std::string::npos) << check.out;
  for (const char* section : {"*QEN_ALUCOBOND*", "*QEN_OBJ_ORDER*", "*QEN_OBJ_PROP*", "_COUNTRY", "_COUNTRY1",
                              "*ZEL_DL_LAYDET*", "*ZEL_LAYER*", "*ZEL_MAT*", "*HZ_KLOTZ*", "*HZ_DICHT*", "*HZ_FOLIE*",
                              "*HZ_SILIKON*", "*HZ_DM*", "*HZ_BLECH*", "QEN_MENU", "*AXIS*", "*QEN_OBJ_LAY*",
                              "*QEN_OBJ_HATCH*", "*QEN_OBJ_TXT*"}) {
    Result r = run("store " + path("f.json") + " get '" + section + "'");
    EXPECT_EQ(r.status, 0) << section;
    EXPECT_EQ(r.out.find("\"MODE\""), std::string::npos) << section << ": transient keys do not belong in the factory settings";
  }
}

TEST_F(QenHostTest, TheUserStoreIsMadeFromTheFactorySettingsOnFirstUse) {
  Result r = run("run LAYER", "XDG_CONFIG_HOME=" + m_dir.string() + " ");
  EXPECT_TRUE(std::filesystem::exists(m_dir / "qen" / "settings.json")) << r.out;
}

TEST_F(QenHostTest, AStoreWhoseTopIsNotADirectoryIsRefusedByEveryCommandAndLeftAlone) {
  for (const std::string& text : {std::string("[1, 2]\n"), std::string("5\n"), std::string("\"x\"\n")}) {
    write(path("top.json"), text);
    Result check = run("store " + path("top.json") + " check");
    EXPECT_EQ(check.status, 1) << check.out;
    EXPECT_NE(check.out.find(path("top.json") + ":1:1: a store file holds a directory"), std::string::npos) << check.out;
    for (const std::string& args : {std::string("store ") + path("top.json") + " set A 1",
                                    std::string("store ") + path("top.json") + " remove A",
                                    std::string("store ") + path("top.json") + " get A",
                                    std::string("run KLOTZ --store ") + path("top.json")}) {
      Result r = run(args);
      EXPECT_EQ(r.status, 2) << args << "\n" << r.out;
      EXPECT_NE(r.out.find(path("top.json") + ":1:1:"), std::string::npos) << args << "\n" << r.out;
      EXPECT_EQ(slurp(path("top.json")), text) << args;
    }
  }
}

TEST_F(QenHostTest, DeepNestingIsRefusedWithItsPlaceAndTheFileLeftAlone) {
  std::string deep;
  for (int i = 0; i < 16000; ++i) deep += "{\"a\":";
  deep += "1" + std::string(16000, '}');
  write(path("deep.json"), deep);
  for (const std::string& args : {std::string("store ") + path("deep.json") + " check",
                                  std::string("store ") + path("deep.json") + " set A 1",
                                  std::string("run KLOTZ --store ") + path("deep.json")}) {
    Result r = run(args);
    EXPECT_GE(r.status, 1) << args << "\n" << r.out;
    EXPECT_NE(r.out.find(path("deep.json") + ":1:641: nested more than 128 levels"), std::string::npos) << args << "\n" << r.out;
    EXPECT_EQ(slurp(path("deep.json")), deep) << args;
  }
  // Nor does a key make a store deeper than a file may be.
  write(path("s.json"), kAllTypes);
  std::string key;
  for (int i = 0; i < 200; ++i) key += "D\\";
  Result r = run("store " + path("s.json") + " set '" + key + "X' 1");
  EXPECT_EQ(r.status, 2) << r.out;
  EXPECT_NE(r.out.find("at most 128"), std::string::npos) << r.out;
  EXPECT_EQ(slurp(path("s.json")), kAllTypes);
}

TEST_F(QenHostTest, ACheckOfAFileThatCannotBeReadEndsWithStatusTwoAndTheReason) {
  std::filesystem::create_directories(m_dir / "folder");
  Result r = run("store " + path("folder") + " check");
  EXPECT_EQ(r.status, 2) << r.out;
  EXPECT_NE(r.out.find(path("folder") + ": cannot be read: Is a directory"), std::string::npos) << r.out;
  Result missing = run("store " + path("none.json") + " check");
  EXPECT_EQ(missing.status, 2) << missing.out;
  EXPECT_NE(missing.out.find("No such file or directory"), std::string::npos) << missing.out;
}

TEST_F(QenHostTest, ABadDrawingEndsWithStatusTwoNamingTheFileAndTheKey) {
  write(path("s.json"), kAllTypes);
  write(path("off.json"), R"({"layers": [{"name": "0", "off": 1}]})");
  Result off = run("run KLOTZ --headless --store " + path("s.json") + " --drawing " + path("off.json"));
  EXPECT_EQ(off.status, 2) << off.out;
  EXPECT_NE(off.out.find(path("off.json") + ": layer \"0\": \"off\" must be true or false"), std::string::npos) << off.out;
  std::string deep = "{\"plotter\": " + std::string(30000, '[') + std::string(30000, ']') + "}";
  write(path("deep.json"), deep);
  Result nested = run("run KLOTZ --headless --store " + path("s.json") + " --drawing " + path("deep.json"));
  EXPECT_EQ(nested.status, 2) << nested.out.substr(0, 400);
  EXPECT_NE(nested.out.find(path("deep.json") + ":1:142: nested more than"), std::string::npos) << nested.out.substr(0, 400);
}

TEST_F(QenHostTest, TextThatIsNotValidUnicodeTypedIntoADialogLeavesEveryFileLoadable) {
  ASSERT_EQ(run("init --store " + path("s.json")).status, 0);
  // A label typed with a lone surrogate as CESU-8 writes it (U+D800 = ED A0 80), saved to the
  // shared list file, the store and the drawing.
  write(path("cesu.qds"),
        "menu 2001 10 30\n"
        "choose 32769\n"
        "label 2001 2 \"Band \xED\xA0\x80 X\"\n"
        "click 10022\n"
        "expect-box \"Dichtung 10 x 3\\nEPDM\\nTexte gespeichert\"\n"
        "ok\n");
  Result r = run("run LABEL --headless --store " + path("s.json") + " --drawing " + QEN_SOURCE_DIR +
                 "/tests/scripts/drawings/labels.json --record object=4D --drawing-out " + path("d.json") + " --script " +
                 path("cesu.qds"));
  EXPECT_EQ(r.status, 0) << r.out;
  for (const char* file : {"s.json", "qen_obj_prop.dex"}) {
    Result check = run("store " + path(file) + " check");
    EXPECT_EQ(check.status, 0) << file << "\n" << check.out;
    EXPECT_NE(slurp(path(file)).find("Band \xEF\xBF\xBD X"), std::string::npos) << file;
  }
  Result again = run("run LABEL --headless --store " + path("s.json") + " --drawing " + path("d.json") + " --record object=4D");
  EXPECT_EQ(again.out.find(path("d.json")), std::string::npos) << again.out;  // the drawing loads again
}
