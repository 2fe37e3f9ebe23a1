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
      std::vector<std::string> all = {m_host, "run"};
      all.insert(all.end(), args.begin(), args.end());
      for (const char* a : {"--gui", "--trace", "--store"}) all.emplace_back(a);
      all.push_back(store);
      all.emplace_back("--out");
      all.push_back(out);
      std::vector<char*> argv;
      for (auto& a : all) argv.push_back(a.data());
      argv.push_back(nullptr);
      execv(m_host.c_str(), argv.data());
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
  // The program started: the test host (its test dialog answers KLOTZ) or qen-host itself.
  std::string m_host = QEN_HOST_TEST_EXE;
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

// The standard-parts dialog in a window: a click on its preview opens qen-host's picture
// choice in a window of its own; a click on the first picture and OK there make that
// standard the selection, which the store keeps after Cancel in the main dialog.
TEST_F(WxHostTest, ThePreviewOpensThePictureChoiceAndAPictureChoosesTheStandard) {
  m_host = QEN_HOST_EXE;
  startWith({"DIN", "--drawing", QEN_SOURCE_DIR "/tests/scripts/drawings/norm_parts.json", "--record", "object=D1"});
  std::string main = window("Normteile");
  ASSERT_FALSE(main.empty()) << slurp(m_dir / "log.txt");
  int bx = 0, by = 0;
  ASSERT_TRUE(baseUnits(10265, bx, by)) << slurp(m_dir / "log.txt");
  settle();
  click(main, bx, by, 334 + 105, 7 + 75);  // the preview
  std::string picker = window("Normteil wählen");
  ASSERT_FALSE(picker.empty()) << slurp(m_dir / "log.txt");
  int px = 0, py = 0;
  ASSERT_TRUE(baseUnits(10271, px, py)) << slurp(m_dir / "log.txt");
  settle();
  screenshot(picker, "din_picture_choice");
  click(picker, px, py, 7 + 30, 22 + 24);   // the first picture: ISO 4014
  click(picker, px, py, 318 + 25, 239 + 7);  // OK
  settle();
  keys(main, "Escape");
  ASSERT_EQ(finish(), 0) << slurp(m_dir / "log.txt");
  const std::string log = slurp(m_dir / "log.txt");
  EXPECT_NE(log.find("end code: 2"), std::string::npos) << log;
  std::string stack = sh(std::string(QEN_HOST_EXE) + " store " + (m_dir / "out.json").string() + " get '*NM*\\STACK'");
  EXPECT_NE(stack.find("\"ISO4014\""), std::string::npos) << stack << log;
}

// Every dialog of the module opens in a window of the real qen-host, paints, and leaves a
// screenshot in the build folder (wx-work/screenshots/entry_NAME.png). The cases name every
// entry the host knows; one whose dialog this build does not have yet is skipped with the
// host's own words, and the host's list of entries may hold none that the cases lack.
struct DialogCase {
  const char* name;  // the test's and the screenshot's name
  std::vector<std::string> args;
  const char* title;  // the window's title; empty: whatever the dialog calls itself
};

std::ostream& operator<<(std::ostream& out, const DialogCase& c) { return out << c.name; }

const std::string kDrawings = QEN_SOURCE_DIR "/tests/scripts/drawings/";

const std::vector<DialogCase>& dialogCases() {
  static const std::vector<DialogCase> cases = {
      {"KLOTZ", {"KLOTZ", "--drawing", kDrawings + "blocks.json"}, "Klotz"},
      {"DICHT", {"DICHT"}, ""},
      {"SILIKON", {"SILIKON"}, ""},
      {"FOLIE", {"FOLIE"}, ""},
      {"DM", {"DM"}, ""},
      {"AXIS", {"AXIS", "--drawing", kDrawings + "axes.json", "--record", "object=A1"}, "Achssymbol"},
      {"BLECH", {"BLECH"}, ""},
      {"HLBZ", {"HLBZ"}, ""},
      {"DIN", {"DIN", "--drawing", kDrawings + "norm_parts.json", "--record", "object=D1"}, "Normteile"},
      {"NORM_MAT", {"NORM_MAT", "--drawing", kDrawings + "norm_parts.json", "--record", "object=D1"}, "Materialarten"},
      {"ITEM", {"ITEM", "--drawing", kDrawings + "item.json", "--record", "object=2F"}, "Artikel"},
      {"LAYER_object", {"LAYER", "--drawing", kDrawings + "facade.json", "--record", "object=2F"}, "<Layerzuordnung>"},
      {"LAYER_material", {"LAYER", "--record", "material-mode=1"}, "<Layerzuordnung>"},
      {"HATCH", {"HATCH", "--drawing", kDrawings + "facade_hatch.json"}, ""},
      {"LABEL", {"LABEL", "--drawing", kDrawings + "labels.json", "--record", "object=4A"}, ""},
  };
  return cases;
}

class WxEveryDialogTest : public WxHostTest, public ::testing::WithParamInterface<DialogCase> {
protected:
  void SetUp() override {
    WxHostTest::SetUp();
    m_host = QEN_HOST_EXE;
  }

  // The visible window of the run, waited for; "" when none comes before the run ends.
  std::string runWindow() {
    for (int i = 0; i < 150; ++i) {
      std::string id = sh("xdotool search --onlyvisible --pid " + std::to_string(m_pid) + " 2>/dev/null | head -1");
      while (!id.empty() && (id.back() == '\n' || id.back() == '\r')) id.pop_back();
      if (!id.empty()) return id;
      int st = 0;
      if (waitpid(m_pid, &st, WNOHANG) == m_pid) {
        m_pid = 0;
        m_exit = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
        return "";
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return "";
  }

  int m_exit = -1;  // how a run that showed no window ended
};

TEST_F(WxHostTest, TheWindowCasesCoverEveryEntryTheHostLists) {
  std::istringstream list(sh(std::string(QEN_HOST_EXE) + " list"));
  std::string line;
  int entries = 0;
  while (std::getline(list, line)) {
    std::istringstream fields(line);
    std::string function, type;
    std::getline(fields, function, '\t');
    std::getline(fields, type, '\t');
    ++entries;
    bool covered = false;
    for (const DialogCase& c : dialogCases()) covered = covered || c.args[0] == type;
    EXPECT_TRUE(covered) << type << " (" << function << ") has no window case";
  }
  EXPECT_GE(entries, 14);
}

TEST_P(WxEveryDialogTest, OpensPaintsAndLeavesAScreenshot) {
  const DialogCase& c = GetParam();
  startWith(c.args);
  const std::string id = runWindow();
  if (id.empty()) {
    ASSERT_EQ(m_exit, 2) << c.name << ": no window\n" << slurp(m_dir / "log.txt");
    const std::string log = slurp(m_dir / "log.txt");
    // Only a dialog the build lacks may end without a window, and the host says so.
    const bool missing = log.find("is not available in this build") != std::string::npos ||
                         log.find("does not exist yet") != std::string::npos;
    ASSERT_TRUE(missing) << c.name << ": no window\n" << log;
    GTEST_SKIP() << c.name << ": " << log.substr(0, log.find('\n'));
  }
  // The first paint is reported once the window has painted.
  std::regex painted("window (\\d+) shown: (\\d+)x(\\d+) pixels, .*first paint after ([0-9.]+) ms");
  std::smatch m;
  std::string log;
  for (int i = 0; i < 100; ++i) {
    log = slurp(m_dir / "log.txt");
    if (std::regex_search(log, m, painted)) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  ASSERT_FALSE(m.empty()) << c.name << ": no first paint\n" << log;
  EXPECT_GT(std::stoi(m[2]), 100) << c.name;
  EXPECT_GT(std::stoi(m[3]), 100) << c.name;
  if (*c.title) {
    EXPECT_EQ(sh("xdotool getwindowname " + id), std::string(c.title) + "\n") << c.name;
  }
  settle();
  screenshot(id, std::string("entry_") + c.name);
  // A painted dialog has its controls, texts and frames in it, not one flat colour.
  const fs::path shot = fs::path(QEN_TEST_WORK_DIR) / "screenshots" / (std::string("entry_") + c.name + ".png");
  const int colours = std::atoi(sh("identify -format %k " + shot.string() + " 2>/dev/null").c_str());
  EXPECT_GT(colours, 8) << c.name << ": " << shot;
  keys(id, "Escape");
  EXPECT_EQ(finish(), 0) << c.name << "\n" << slurp(m_dir / "log.txt");
  // Escape cancels: the entry's code for Cancel (the item dialog's own 2, 0 for the others).
  EXPECT_TRUE(std::regex_search(slurp(m_dir / "log.txt"), std::regex("end code: [02]\n"))) << c.name;
}

INSTANTIATE_TEST_SUITE_P(Entries, WxEveryDialogTest, ::testing::ValuesIn(dialogCases()),
                         [](const ::testing::TestParamInfo<DialogCase>& info) { return std::string(info.param.name); });

}  // namespace
