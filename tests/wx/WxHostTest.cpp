// qen-host in a window, driven as a person drives it: under a virtual display, synthetic
// mouse clicks and key strokes (xdotool) choose a radio, type a layer name, answer a message
// box, fill a sub-dialog, change the tab and pick from the preview's context menu; the
// choices are found in the store qen-host saves, and a screenshot of every dialog on the way
// is written.
#include "CVirtualDisplay.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string sh(const std::string& cmd) {
  std::string out;
  FILE* p = popen(cmd.c_str(), "r");
  if (!p) return out;
  std::array<char, 4096> buf{};
  std::size_t n;
  while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) out.append(buf.data(), n);
  pclose(p);
  return out;
}

std::string slurp(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

class WxHostTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (std::string why = CVirtualDisplay::ensure(); !why.empty()) GTEST_SKIP() << why;
    for (const char* tool : {"xdotool", "import"})
      if (!CVirtualDisplay::hasProgram(tool)) GTEST_SKIP() << tool << " is not installed";
    m_dir = fs::path(QEN_TEST_WORK_DIR) / ::testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(m_dir);
    fs::create_directories(m_dir);
    ASSERT_EQ(std::system((std::string(QEN_HOST_TEST_EXE) + " init --store " + (m_dir / "store.json").string() + " > /dev/null").c_str()), 0);
  }

  void TearDown() override {
    if (m_pid > 0) {
      kill(m_pid, SIGKILL);
      waitpid(m_pid, nullptr, 0);
    }
  }

  // qen-host-test run KLOTZ in a window, its output in log.txt.
  void start() { startWith({"KLOTZ"}); }

  // qen-host-test run ARGS… in a window, with the store of the test.
  void startWith(const std::vector<std::string>& args) {
    m_pid = fork();
    ASSERT_GE(m_pid, 0);
    if (m_pid == 0) {
      std::string log = (m_dir / "log.txt").string();
      std::freopen(log.c_str(), "w", stdout);
      std::freopen(log.c_str(), "a", stderr);
      std::string store = (m_dir / "store.json").string(), out = (m_dir / "out.json").string();
      std::vector<std::string> all = {QEN_HOST_TEST_EXE, "run"};
      all.insert(all.end(), args.begin(), args.end());
      for (const char* a : {"--gui", "--trace", "--store"}) all.emplace_back(a);
      all.push_back(store);
      all.emplace_back("--out");
      all.push_back(out);
      std::vector<char*> argv;
      for (auto& a : all) argv.push_back(a.data());
      argv.push_back(nullptr);
      execv(QEN_HOST_TEST_EXE, argv.data());
      _exit(127);
    }
  }

  // The visible window with that title, waited for; "" when it does not come.
  std::string window(const std::string& title) {
    std::string id = sh("timeout 15 xdotool search --sync --onlyvisible --name '^" + title + "$' 2>/dev/null | head -1");
    while (!id.empty() && (id.back() == '\n' || id.back() == '\r')) id.pop_back();
    return id;
  }

  // The base units of the window of a dialog, as qen-host's trace reports them.
  bool baseUnits(int templateId, int& bx, int& by) {
    std::regex line("window " + std::to_string(templateId) + " shown: \\d+x\\d+ pixels, dialog base units (\\d+)x(\\d+)");
    for (int i = 0; i < 100; ++i) {
      std::smatch m;
      std::string log = slurp(m_dir / "log.txt");
      if (std::regex_search(log, m, line)) {
        bx = std::stoi(m[1]);
        by = std::stoi(m[2]);
        return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return false;
  }

  // A click at a point of a template, in dialog units, of a window.
  void click(const std::string& win, int bx, int by, double xDlu, double yDlu) {
    int x = static_cast<int>(std::lround(xDlu * bx / 4.0)), y = static_cast<int>(std::lround(yDlu * by / 8.0));
    sh("xdotool mousemove --sync --window " + win + " " + std::to_string(x) + " " + std::to_string(y) + " click 1");
    settle();
  }

  void keys(const std::string& win, const std::string& what, bool typing = false) {
    sh("xdotool windowfocus --sync " + win + " 2>/dev/null");
    sh(std::string("xdotool ") + (typing ? "type --delay 20 '" : "key '") + what + "'");
    settle();
  }

  static void settle() { std::this_thread::sleep_for(std::chrono::milliseconds(300)); }

  // Writes a screenshot of a window and checks that it is an image.
  void screenshot(const std::string& win, const std::string& name) {
    fs::path shot = fs::path(QEN_TEST_WORK_DIR) / "screenshots" / (name + ".png");
    fs::create_directories(shot.parent_path());
    sh("import -window " + win + " " + shot.string());
    ASSERT_TRUE(fs::exists(shot)) << shot;
    EXPECT_EQ(slurp(shot).substr(1, 3), "PNG") << shot;
  }

  // The exit status once the run has ended (-1: still running after the time).
  int finish(int seconds = 20) {
    for (int i = 0; i < seconds * 10; ++i) {
      int st = 0;
      if (waitpid(m_pid, &st, WNOHANG) == m_pid) {
        m_pid = 0;
        return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return -1;
  }

  std::string stored(const std::string& key) {
    std::string v = sh(std::string(QEN_HOST_TEST_EXE) + " store " + (m_dir / "out.json").string() + " get '*TEST*\\" + key + "'");
    while (!v.empty() && v.back() == '\n') v.pop_back();
    return v;
  }

  fs::path m_dir;
  pid_t m_pid = 0;
};

TEST_F(WxHostTest, ClicksAndTypingInTheWindowReachTheStoreThroughTheDialog) {
  start();
  std::string main = window("Testdialog");
  ASSERT_FALSE(main.empty()) << slurp(m_dir / "log.txt");
  int bx = 0, by = 0;
  ASSERT_TRUE(baseUnits(30100, bx, by)) << slurp(m_dir / "log.txt");
  settle();
  screenshot(main, "test_main");

  click(main, bx, by, 220 + 5, 17 + 5);  // the radio " Kontur"
  click(main, bx, by, 215 + 20, 62 + 6);  // the layer combo's field
  keys(main, "Achsen2", true);

  click(main, bx, by, 300 + 25, 172 + 7);  // "Fragen": a message box
  std::string box = window("QENORA");
  ASSERT_FALSE(box.empty()) << slurp(m_dir / "log.txt");
  screenshot(box, "message_box");
  keys(box, "Return");  // the default answer, Yes

  click(main, bx, by, 300 + 25, 188 + 7);  // "Unterdialog...": a nested dialog
  std::string sub = window("Unterdialog");
  ASSERT_FALSE(sub.empty()) << slurp(m_dir / "log.txt");
  screenshot(sub, "test_sub");
  click(sub, bx, by, 7 + 30, 7 + 6);
  keys(sub, "Hallo", true);
  keys(sub, "Return");

  click(main, bx, by, 86, 13);  // the second tab, "Verwaltung"
  sh("xdotool mousemove --sync --window " + main + " " + std::to_string((300 + 46) * bx / 4) + " " +
     std::to_string((7 + 45) * by / 8) + " click 3");  // a right click on the preview: its menu
  settle();
  sh("xdotool key Down Return");  // its first command, "Zoom alles"
  settle();

  click(main, bx, by, 230 + 25, 239 + 7);  // OK
  ASSERT_EQ(finish(), 0) << slurp(m_dir / "log.txt");
  std::string log = slurp(m_dir / "log.txt");
  EXPECT_NE(log.find("end code: 1"), std::string::npos) << log;
  EXPECT_EQ(stored("HATCH"), "\"R\"") << log;
  EXPECT_EQ(stored("LAYER"), "\"Achsen2\"") << log;
  EXPECT_EQ(stored("ANSWER"), "6") << log;
  EXPECT_EQ(stored("SUB"), "\"Hallo\"") << log;
  EXPECT_EQ(stored("MODE"), "\"ADMIN\"") << log;
  EXPECT_EQ(stored("MENU"), "1") << log;
  EXPECT_EQ(stored("DONE"), "1") << log;
}

// The layer dialog in a window: "Spezifisch" clicked, a new layer name typed; the store and
// the drawing that qen-host saves hold the choice and the new layer.
TEST_F(WxHostTest, TheLayerDialogTakesAClickAndATypedLayerName) {
  const std::string drawingOut = (m_dir / "drawing.json").string();
  startWith({"LAYER", "--drawing", QEN_SOURCE_DIR "/tests/scripts/drawings/facade.json", "--record", "object=30",
             "--drawing-out", drawingOut});
  std::string main = window("<Layerzuordnung>");
  ASSERT_FALSE(main.empty()) << slurp(m_dir / "log.txt");
  int bx = 0, by = 0;
  ASSERT_TRUE(baseUnits(10108, bx, by));
  settle();
  screenshot(main, "layer");
  click(main, bx, by, 200, 57);   // radio "Spezifisch"
  click(main, bx, by, 150, 89);   // into the name field
  keys(main, "ctrl+a");
  keys(main, "Fenster innen", true);
  keys(main, "Tab");              // leaving the field commits the name
  click(main, bx, by, 204, 231);  // OK
  ASSERT_EQ(finish(), 0) << slurp(m_dir / "log.txt");
  EXPECT_NE(slurp(m_dir / "log.txt").find("end code: 1"), std::string::npos) << slurp(m_dir / "log.txt");
  std::string own = sh(std::string(QEN_HOST_TEST_EXE) + " store " + (m_dir / "out.json").string() +
                       " get '*QEN_OBJ_LAY*\\LAY_OWN\\PART_CON'");
  EXPECT_EQ(own, "\"Fenster innen\"\n");
  std::string mode = sh(std::string(QEN_HOST_TEST_EXE) + " store " + (m_dir / "out.json").string() + " get '*QEN_OBJ_LAY*\\IS_LAY'");
  EXPECT_EQ(mode, "2\n");
  EXPECT_NE(slurp(drawingOut).find("\"Fenster innen\""), std::string::npos);
}

// Every dialog of the module that exists opens in a window, and a screenshot is written.
TEST_F(WxHostTest, EveryDialogOpensInAWindow) {
  struct Case {
    std::vector<std::string> args;
    const char* title;
  };
  const std::string drawings = QEN_SOURCE_DIR "/tests/scripts/drawings/";
  const Case cases[] = {
      {{"LAYER", "--drawing", drawings + "facade.json", "--record", "object=2F"}, "<Layerzuordnung>"},
      {{"LAYER", "--record", "material-mode=1"}, "<Layerzuordnung>"},
      {{"ITEM", "--drawing", drawings + "item.json", "--record", "object=2F"}, "Artikel"},
      {{"HATCH", "--drawing", drawings + "facade_hatch.json"}, ""},
      {{"LABEL", "--drawing", drawings + "labels.json", "--record", "object=4A"}, ""},
  };
  int n = 0;
  for (const Case& c : cases) {
    startWith(c.args);
    std::string id;
    for (int i = 0; i < 100 && id.empty(); ++i) {
      id = sh("xdotool search --onlyvisible --pid " + std::to_string(m_pid) + " 2>/dev/null | head -1");
      while (!id.empty() && (id.back() == '\n' || id.back() == '\r')) id.pop_back();
      if (id.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    ASSERT_FALSE(id.empty()) << c.args[0] << ": no window\n" << slurp(m_dir / "log.txt");
    settle();
    if (*c.title) {
      EXPECT_EQ(id, window(c.title)) << c.args[0];
    }
    screenshot(id, "entry_" + std::to_string(n++) + "_" + c.args[0]);
    keys(id, "Escape");
    EXPECT_EQ(finish(), 0) << c.args[0] << "\n" << slurp(m_dir / "log.txt");
  }
}

TEST_F(WxHostTest, TheCloseBoxAndEscapeCancelAsTheDialogsCancelButton) {
  start();
  std::string main = window("Testdialog");
  ASSERT_FALSE(main.empty());
  settle();
  keys(main, "Escape");
  ASSERT_EQ(finish(), 0) << slurp(m_dir / "log.txt");
  std::string log = slurp(m_dir / "log.txt");
  EXPECT_NE(log.find("WM_COMMAND 2 BN_CLICKED"), std::string::npos) << log;
  EXPECT_EQ(stored("DONE"), "") << "OK was never pressed";
}

}  // namespace
