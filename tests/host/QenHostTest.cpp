// qen-host as a user meets it: store commands, refused files left untouched, bad
// arguments, entries whose dialog does not exist yet, and the factory settings.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

namespace {

struct Result {
  int status = -1;
  std::string out;  // stdout and stderr together
};

Result run(const std::string& args, const std::string& environment = "") {
  std::string cmd = environment + std::string(QEN_HOST_EXE) + " " + args + " 2>&1";
  Result r;
  FILE* p = popen(cmd.c_str(), "r");
  if (!p) return r;
  std::array<char, 4096> buf{};
  std::size_t n;
  while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
  int st = pclose(p);
  r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
  return r;
}

std::string slurp(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void write(const std::filesystem::path& p, const std::string& text) {
  std::ofstream out(p, std::ios::binary);
  out << text;
}

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
  Result unbuilt = run("run NORM_MAT --store " + path("x.json"));
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
