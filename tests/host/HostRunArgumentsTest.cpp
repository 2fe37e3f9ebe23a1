// qen-host run with arguments a user gets wrong, files that cannot be written, and the list
// of entries: each is a clear message and a failure status, never a quiet fallback.
#include "tests/support/HostProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Result = HostResult;

Result run(const std::string& args, const std::string& environment = "") { return runHost(args, environment); }

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class HostRunArguments : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-args-" + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(m_dir);
    std::filesystem::create_directories(m_dir);
    ASSERT_EQ(run("init --store " + store()).status, 0);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }

  std::string path(const std::string& name) const { return (m_dir / name).string(); }
  std::string store() const { return path("s.json"); }
  std::string script(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  static std::string drawing(const char* name) { return std::string(QEN_SOURCE_DIR) + "/tests/scripts/drawings/" + name; }
  // A run of the layer dialog on a seal of the facade drawing, which creates a layer of its own.
  std::string layerRun() const {
    return "run LAYER --store " + store() + " --drawing " + drawing("facade.json") + " --record object=30 --script " +
           std::string(QEN_SOURCE_DIR) + "/tests/scripts/layer_colour.qds";
  }

  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(HostRunArguments, NumbersBeyondTheRangeOfAnIntAreRefusedNotWrapped) {
  const std::string before = slurp(store());
  for (const char* record : {"unit=4294967300", "unit=-4294967292", "format=4294967297", "unit=99999999999999999999"}) {
    Result r = run(layerRun() + " --record " + record);
    EXPECT_EQ(r.status, 2) << record << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, "qen-host: --record ")) << record << "\n" << r.out;
  }
  Result clicked = run("run LAYER --store " + store() + " --script " + script("big.qds", "click 4294967297\n"));
  EXPECT_EQ(clicked.status, 2) << clicked.out;
  EXPECT_TRUE(contains(clicked.out, "big.qds:1: 4294967297: number out of range")) << clicked.out;
  EXPECT_FALSE(contains(clicked.out, "end code")) << "a malformed script runs nothing";
  Result paged = run("run LAYER --store " + store() + " --script " + script("page.qds", "click 0/4294967297\n"));
  EXPECT_EQ(paged.status, 2) << paged.out;
  EXPECT_TRUE(contains(paged.out, "out of range")) << paged.out;
  Result projections = run(layerRun() + " --projections 4294967297");
  EXPECT_EQ(projections.status, 2) << projections.out;
  EXPECT_EQ(slurp(store()), before);
}

TEST_F(HostRunArguments, AFolderOrAFifoAsScriptIsRefused) {
  Result folder = run("run LAYER --store " + store() + " --script " + m_dir.string());
  EXPECT_EQ(folder.status, 2) << folder.out;
  EXPECT_TRUE(contains(folder.out, m_dir.string() + ": is a folder, not a script")) << folder.out;
  ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0600), 0);
  Result fifo = run("run LAYER --store " + store() + " --script " + path("fifo"));
  EXPECT_EQ(fifo.status, 2) << fifo.out;
  EXPECT_TRUE(contains(fifo.out, "not a regular file")) << fifo.out;
}

TEST_F(HostRunArguments, AnEmptyFileNameIsRefusedAndTheUsersOwnStoreStaysUntouched) {
  const std::string env = "XDG_CONFIG_HOME=" + path("home") + " ";
  for (const char* option : {"--store", "--out", "--drawing", "--drawing-out", "--script", "--country"}) {
    Result r = run("run LAYER " + std::string(option) + " ''", env);
    EXPECT_EQ(r.status, 2) << option << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, std::string(option) + " needs a value, not an empty one")) << option << "\n" << r.out;
  }
  // Refused records are refused before the user's own store is made or read.
  for (const std::string& args : {std::string("--record unit=4294967300"), "--drawing " + drawing("facade.json") + " --record object2=ZZ"}) {
    Result r = run("run LAYER " + args, env);
    EXPECT_EQ(r.status, 2) << args << "\n" << r.out;
  }
  EXPECT_FALSE(std::filesystem::exists(path("home"))) << "no run fell back to the user's own store";
}

TEST_F(HostRunArguments, ObjectHandlesAreCheckedAgainstTheDrawing) {
  const std::string before = slurp(store());
  for (const char* record : {"object=", "object2=", "object2=ZZ", "object=ZZ"}) {
    Result r = run(layerRun() + " --record " + record);
    EXPECT_EQ(r.status, 2) << record << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, "--record " + std::string(record).substr(0, std::string(record).find('=')))) << r.out;
  }
  EXPECT_TRUE(contains(run(layerRun() + " --record object2=ZZ").out, "object2=ZZ: the drawing has no such object"));
  EXPECT_EQ(slurp(store()), before);
  Result good = run(layerRun() + " --record object2=2F");
  EXPECT_EQ(good.status, 0) << good.out;
}

TEST_F(HostRunArguments, AByteOrderMarkBeforeTheFirstCommandIsSkipped) {
  Result r = run("run LAYER --store " + store() + " --script " + script("bom.qds", "\xEF\xBB\xBF" "cancel\n"));
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_TRUE(contains(r.out, "end code: 0")) << r.out;
}

TEST_F(HostRunArguments, EntryNamesAndObjectTypesAlikeMatchWithoutRegardToCase) {
  for (const char* name : {"LAYER", "layer", "qenDlgMatObjLayer", "QENDLGMATOBJLAYER", "qendlgmatobjlayer"}) {
    Result r = run("run " + std::string(name) + " --store " + store() + " --script " + script("c.qds", "cancel\n"));
    EXPECT_EQ(r.status, 0) << name << "\n" << r.out;
    EXPECT_TRUE(contains(r.out, "end code: 0")) << name << "\n" << r.out;
  }
}

TEST_F(HostRunArguments, TheListSaysExactlyWhichEntriesARunWillOpen) {
  Result list = run("list");
  ASSERT_EQ(list.status, 0);
  std::istringstream lines(list.out);
  std::string line;
  int entries = 0, unbuilt = 0;
  while (std::getline(lines, line)) {
    ++entries;
    const std::string function = line.substr(0, line.find('\t'));
    const bool marked = contains(line, "(not built yet)");
    unbuilt += marked;
    Result r = run("run " + function + " --store " + store() + " --headless");
    if (marked) {
      EXPECT_EQ(r.status, 2) << line << "\n" << r.out;
      EXPECT_TRUE(contains(r.out, "this dialog does not exist yet")) << line << "\n" << r.out;
    } else {
      EXPECT_FALSE(contains(r.out, "does not exist yet") || contains(r.out, "not available in this build")) << line << "\n" << r.out;
      EXPECT_TRUE(contains(r.out, "end code: ")) << line << "\n" << r.out;
    }
  }
  EXPECT_EQ(entries, 14);
  EXPECT_GT(unbuilt, 0);
}

TEST_F(HostRunArguments, AStoreAndADrawingAreWrittenBothOrNeither) {
  std::ofstream(path("plain")) << "x";
  const std::string before = slurp(store());
  // The drawing cannot be written: the store keeps what it had.
  Result noDrawing = run(layerRun() + " --drawing-out " + path("plain/d.json"));
  EXPECT_EQ(noDrawing.status, 2) << noDrawing.out;
  EXPECT_TRUE(contains(noDrawing.out, "neither the store nor the drawing was written")) << noDrawing.out;
  EXPECT_EQ(slurp(store()), before);
  // The store cannot be written: no drawing appears.
  Result noStore = run(layerRun() + " --out " + path("plain/s.json") + " --drawing-out " + path("d.json"));
  EXPECT_EQ(noStore.status, 2) << noStore.out;
  EXPECT_TRUE(contains(noStore.out, "neither the store nor the drawing was written")) << noStore.out;
  EXPECT_FALSE(std::filesystem::exists(path("d.json")));
  for (const auto& e : std::filesystem::directory_iterator(m_dir))
    EXPECT_FALSE(contains(e.path().filename().string(), "d.json")) << "a staged drawing left behind: " << e.path();
  // Both can: both are written.
  Result both = run(layerRun() + " --drawing-out " + path("d.json"));
  EXPECT_EQ(both.status, 0) << both.out;
  EXPECT_TRUE(contains(slurp(path("d.json")), "Dichtungen rot"));
  EXPECT_NE(slurp(store()), before);
}

TEST_F(HostRunArguments, AnArticleThatCannotBeRecordedIsAFailureExitNamingTheTable) {
  const std::string damaged = "{\"KLOTZ:PP:B=1:H=1\": \"X\",\n";
  std::ofstream(path("qen_obj_order.dex")) << damaged;
  Result r = run("run ITEM --store " + store() + " --drawing " + drawing("item.json") + " --record object=2F --script " +
                 script("item.qds", "type 10773 \"KL-80\"\nok\ncancel\n"));
  EXPECT_EQ(r.status, 2) << r.out;
  EXPECT_TRUE(contains(r.out, "qen-host: " + path("qen_obj_order.dex") + ":")) << r.out;
  EXPECT_EQ(slurp(path("qen_obj_order.dex")), damaged);
}
