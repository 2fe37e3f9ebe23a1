// Every dialog this build has, driven through its entry function by random user actions on
// whatever control is usable at the moment, with random texts: no run may crash, end with
// a code the entry does not give, or leave a store that does not survive its own file
// format. Seeded: a failure names the seed, and QEN_RANDOM_SEED=N repeats that run
// (QEN_RANDOM_ROUNDS=N runs more rounds than the default; QEN_RANDOM_VERBOSE=1 prints the
// last actions of every run).
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFiles.h"
#include "data/ZelFactorySettings.h"
#include "module/CQenDialogFactory.h"
#include "obj/QenObjHatch.h"
#include "obj/QenObjLayer.h"
#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CDialog.h"
#include "ui/CEdit.h"
#include "ui/CListBox.h"
#include "ui/CListCtrl.h"
#include "ui/CMenu.h"
#include "ui/CMessageBoxDlg.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"
#include "ui/CUserAction.h"
#include "ui/WinConst.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Texts a user might type, or paste by mistake.
const char* const kTexts[] = {
  "", " ", "0", "-1", "1", "2.5", "2,5", "1e308", "-1e-308", "4294967297", "99999999999999999999", "1/2", "abc",
  "Klotz 100 x 5", "Dämmung Ölfarbe ß", "\"quoted\"", "back\\slash", "\\de\\Text\\en\\Text", "line\nbreak", "tab\there",
  "QEN_KONTUR", "0", "*", "?", "%1 %s %n", "ÄÖÜäöü€", "日本語", "🙂", "-", "  padded  ",
};

class RandomBackend : public CDialogBackend {
public:
  explicit RandomBackend(std::seed_seq& seed) : m_rng(seed) {}

  void runModal(CDialog& dialog) override {
    ++m_depth;
    if (auto* box = dynamic_cast<CMessageBoxDlg*>(&dialog)) {
      std::vector<int> answers = box->answers();
      const int answer = answers.empty() ? IDOK : answers[pick(answers.size())];
      note("box \"" + box->text().toUtf8() + "\" -> " + std::to_string(answer));
      if (CWnd* button = box->GetDlgItem(answer)) CUserAction::click(*button);
      if (!box->isEnded()) box->EndDialog(answer);
      --m_depth;
      return;
    }
    // Deeper dialogs get fewer steps, so that a chain of nested dialogs ends.
    int steps = (10 + static_cast<int>(pick(60))) / m_depth;
    while (!dialog.isEnded()) {
      if (steps-- <= 0 || m_budget <= 0) {
        close(dialog);
        break;
      }
      --m_budget;
      act(dialog);
      CWnd::pumpPostedMessages();
    }
    --m_depth;
  }

  UINT trackPopupMenu(const CMenu& menu, CWnd*, CPoint) override {
    std::vector<UINT> ids;
    for (const CMenu::Item& item : menu.items())
      if (item.id != 0 && !(item.flags & (MF_SEPARATOR | MF_GRAYED | MF_DISABLED | MF_POPUP))) ids.push_back(item.id);
    const UINT chosen = ids.empty() || pick(5) == 0 ? 0 : ids[pick(ids.size())];
    note("menu -> " + std::to_string(chosen));
    return chosen;
  }

  void showHelp(const CZelString&, const CZelString&) override { note("help"); }

  // The last actions, for the failure message.
  std::string history() const {
    std::string h;
    for (const std::string& line : m_log) h += "  " + line + "\n";
    return h;
  }
  int depth() const { return m_depth; }

private:
  std::size_t pick(std::size_t n) { return n == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, n - 1)(m_rng); }
  int line() { return static_cast<int>(pick(12)) - 1; }

  CZelString text() {
    if (pick(4) == 0) {
      // Random characters, now and then very many.
      std::wstring s;
      const std::size_t n = pick(3) == 0 ? pick(400) : pick(12);
      for (std::size_t i = 0; i < n; ++i) s += static_cast<wchar_t>(pick(10) == 0 ? 0xC0 + pick(0x100) : 0x20 + pick(0x5F));
      return CZelString(s.c_str());
    }
    return CZelString::fromUtf8(kTexts[pick(std::size(kTexts))]);
  }

  void note(const std::string& line) {
    m_log.push_back(std::string(static_cast<std::size_t>(m_depth) * 2, ' ') + line);
    if (m_log.size() > 40) m_log.pop_front();
  }

  static void controlsOf(CWnd& window, std::vector<CWnd*>& out) {
    for (CWnd* child : window.children()) {
      if (!child) continue;
      if (child->GetDlgCtrlID() != 0) out.push_back(child);
      controlsOf(*child, out);
    }
  }

  void close(CDialog& dialog) {
    note("close " + std::to_string(dialog.templateId()));
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED),
                       reinterpret_cast<LPARAM>(dialog.GetDlgItem(static_cast<int>(IDCANCEL))));
    CWnd::pumpPostedMessages();
    if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
  }

  // A line of a control with `count` lines: mostly a real one, now and then one beyond.
  int lineOf(int count) { return pick(8) == 0 ? static_cast<int>(pick(static_cast<std::size_t>(count) + 3)) - 1 : static_cast<int>(pick(static_cast<std::size_t>(count > 0 ? count : 1))); }

  // The controls a person can act on: buttons, edits, lists, trees and tabs.
  static bool interactive(CWnd& c) {
    return dynamic_cast<CButton*>(&c) || dynamic_cast<CEdit*>(&c) || dynamic_cast<CComboBox*>(&c) ||
           dynamic_cast<CListBox*>(&c) || dynamic_cast<CListCtrl*>(&c) || dynamic_cast<CTreeCtrl*>(&c) ||
           dynamic_cast<CTabCtrl*>(&c);
  }

  void act(CDialog& dialog) {
    std::vector<CWnd*> controls;
    controlsOf(dialog, controls);
    std::vector<CWnd*> usable;
    for (CWnd* c : controls)
      if (interactive(*c) && CUserAction::unreachable(*c).empty()) usable.push_back(c);
    if (usable.empty()) {
      close(dialog);
      return;
    }
    CWnd& c = *usable[pick(usable.size())];
    const int id = c.GetDlgCtrlID();
    // OK and Cancel end the dialog: pressed now and then, not at every other step.
    if ((id == IDOK || id == IDCANCEL) && pick(8) != 0) return;
    std::string what, problem;
    const std::string name = std::to_string(id);
    auto say = [&](const std::string& w, const std::string& p) {
      what = w;
      problem = p;
    };
    auto typeText = [&] {
      const CZelString t = text();
      say("type " + name + " \"" + t.toUtf8() + "\"", CUserAction::type(c, t));
      if (problem.empty() && pick(3) != 0) problem = CUserAction::leave(c);
    };
    auto key = [&] {
      static const UINT keys[] = {VK_RETURN, VK_ESCAPE, VK_TAB, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT,
                                  VK_HOME, VK_END, VK_DELETE, VK_SPACE, VK_F1, VK_F2};
      const UINT k = keys[pick(std::size(keys))];
      say("key " + name + " " + std::to_string(k), CUserAction::pressKey(c, k));
    };
    auto menu = [&] {
      const CPoint at(static_cast<int>(pick(60)), static_cast<int>(pick(60)));
      say("menu " + name + " " + std::to_string(at.x) + " " + std::to_string(at.y), CUserAction::rightClick(c, at));
    };
    auto selectLine = [&](int count) {
      const int n = lineOf(count);
      if (pick(4) == 0) say("dblclick " + name + " " + std::to_string(n), CUserAction::doubleClick(c, n));
      else say("select " + name + " " + std::to_string(n), CUserAction::select(c, n));
    };
    if (auto* tab = dynamic_cast<CTabCtrl*>(&c)) {
      const int n = lineOf(tab->GetItemCount());
      say("tab " + std::to_string(n), CUserAction::selectTab(*tab, n));
    } else if (dynamic_cast<CButton*>(&c)) {
      if (pick(10) == 0) menu();
      else say("click " + name, CUserAction::click(c));
    } else if (dynamic_cast<CEdit*>(&c)) {
      if (pick(5) == 0) key();
      else typeText();
    } else if (auto* combo = dynamic_cast<CComboBox*>(&c)) {
      if (pick(3) == 0) typeText();
      else selectLine(combo->GetCount());
    } else if (auto* list = dynamic_cast<CListBox*>(&c)) {
      const int count = list->GetCount();
      if (dynamic_cast<CCheckListBox*>(&c) && pick(2) == 0) {
        const int n = lineOf(count);
        const bool on = pick(2) == 0;
        say((on ? "check " : "uncheck ") + name + " " + std::to_string(n), CUserAction::setCheck(c, n, on));
      } else {
        selectLine(count);
      }
    } else if (auto* view = dynamic_cast<CListCtrl*>(&c)) {
      const int count = view->GetItemCount();
      switch (pick(7)) {
        case 0: menu(); break;
        case 1: {
          const int from = lineOf(count), to = lineOf(count);
          say("drag " + name + " " + std::to_string(from) + " " + std::to_string(to), CUserAction::dragRow(c, from, to));
          break;
        }
        case 2: {
          const int n = view->editingRow() >= 0 ? view->editingRow() : lineOf(count);
          const CZelString t = text();
          say("label " + name + " " + std::to_string(n) + " \"" + t.toUtf8() + "\"", CUserAction::editLabel(c, n, t));
          break;
        }
        case 3: {
          const int n = lineOf(count);
          const bool on = pick(2) == 0;
          say((on ? "check " : "uncheck ") + name + " " + std::to_string(n), CUserAction::setCheck(c, n, on));
          break;
        }
        case 4: key(); break;
        default: selectLine(count); break;
      }
    } else if (auto* tree = dynamic_cast<CTreeCtrl*>(&c)) {
      if (pick(5) == 0) key();
      else selectLine(static_cast<int>(tree->GetCount()));
    }
    if (!what.empty()) note(what + (problem.empty() ? "" : "   (" + problem + ")"));
  }

  std::mt19937 m_rng;
  int m_depth = 0;
  int m_budget = 400;  // actions of one entry call, nested dialogs included
  std::deque<std::string> m_log;
};

std::uint32_t envNumber(const char* name, std::uint32_t fallback) {
  const char* v = std::getenv(name);
  return v && *v ? static_cast<std::uint32_t>(std::strtoul(v, nullptr, 10)) : fallback;
}

// An entry call as the host makes it: the object of a drawing, the sections prepared.
struct EntryCase {
  std::string name;
  const char* drawing;  // under tests/scripts/drawings
  std::vector<const char*> objects;
  std::function<int(qenDlgEnv_st&, CZelDataItem*, std::mt19937&)> call;
};

const char* const kMaterials[] = {"ALMG1", "ALMG3", "ALUMINIUM", "HOLZ", "EPDM", "PP", "NOPE"};

std::vector<EntryCase> entryCases() {
  std::vector<EntryCase> cases;
  // Entries the factory has a dialog for; an entry without one is left out until it has.
  auto add = [&](QenEntry entry, EntryCase c) {
    if (CQenDialogFactory::has(entry)) cases.push_back(std::move(c));
  };
  add(QenEntry::Layer, {"LAYER object", "facade.json", {"2F", "30"}, [](qenDlgEnv_st& env, CZelDataItem* object, std::mt19937&) {
        ZEL::obj_layer_init(object);
        return qenDlgMatObjLayer(env);
      }});
  add(QenEntry::Layer, {"LAYER material", "facade.json", {"2F"}, [](qenDlgEnv_st& env, CZelDataItem*, std::mt19937& rng) {
        env.materialMode = true;
        const char* material = kMaterials[rng() % std::size(kMaterials)];
        ZEL::cfg_set(L"*QEN_MAT*\\STACK", ZEL::mkDataItem(ZEL::mkResbuf(CZelString::fromUtf8(material).c_str())), true);
        return qenDlgMatObjLayer(env);
      }});
  add(QenEntry::Hatch, {"HATCH", "facade_hatch.json", {"2F", "30", "41", "50", "61"},
                        [](qenDlgEnv_st& env, CZelDataItem* object, std::mt19937&) {
                          ZEL::obj_hatch_init(object);
                          return qenDlgMatObjHatch(env);
                        }});
  add(QenEntry::Label, {"LABEL", "labels.json", {"4A", "4B", "4C", "4D"},
                        [](qenDlgEnv_st& env, CZelDataItem* object, std::mt19937&) { return qenDlgObjTxt(env, object); }});
  // The item dialog is part of every build.
  cases.push_back({"ITEM", "item.json", {"2F", "30"}, [](qenDlgEnv_st& env, CZelDataItem* object, std::mt19937&) {
                     return qenItemDlgMenu(env, object);
                   }});
  // The object dialogs run on the settings of their type, on the facade drawing.
  const struct {
    QenEntry entry;
    const char* name;
    int (*call)(qenDlgEnv_st&);
  } kObjectDialogs[] = {
    {QenEntry::Block, "KLOTZ", [](qenDlgEnv_st& e) { return qenDlgHzKl(e); }},
    {QenEntry::Seal, "DICHT", [](qenDlgEnv_st& e) { return qenDlgHzDi(e); }},
    {QenEntry::Silicone, "SILIKON", [](qenDlgEnv_st& e) { return qenDlgHzSi(e); }},
    {QenEntry::Membrane, "FOLIE", [](qenDlgEnv_st& e) { return qenDlgHzFo(e); }},
    {QenEntry::Insulation, "DM", [](qenDlgEnv_st& e) { return qenDlgDm(e); }},
    {QenEntry::Axis, "AXIS", [](qenDlgEnv_st& e) { return qenDlgAxis(e); }},
    {QenEntry::Sheet, "BLECH", [](qenDlgEnv_st& e) { return qenDlgHzBl(e); }},
  };
  for (const auto& d : kObjectDialogs) {
    auto call = d.call;
    add(d.entry, {d.name, "facade.json", {nullptr}, [call](qenDlgEnv_st& env, CZelDataItem*, std::mt19937&) { return call(env); }});
  }
  return cases;
}

class RandomDialogs : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() / ("qen-random-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
    ZEL::setDataFolder(m_dir.string());
    // The labeling dialog's import must not start a message server of its own here.
    ::setenv("QEN_MSGSERVER", (m_dir / "no-server").c_str(), 1);
  }
  void TearDown() override {
    CZelDrawing::current().reset();
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_dir);
  }
  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(RandomDialogs, EveryDialogSurvivesRandomUseThroughItsEntry) {
  const std::vector<EntryCase> cases = entryCases();
  ASSERT_FALSE(cases.empty());
  const std::uint32_t firstSeed = envNumber("QEN_RANDOM_SEED", 20261123u);
  const std::uint32_t rounds = envNumber("QEN_RANDOM_ROUNDS", std::getenv("QEN_RANDOM_SEED") ? 1u : 15u);
  const auto started = std::chrono::steady_clock::now();
  for (std::size_t entry = 0; entry < cases.size(); ++entry) {
    const EntryCase& c = cases[entry];
    for (std::uint32_t round = 0; round < rounds; ++round) {
      const std::uint32_t seed = firstSeed + round;
      // Each entry has its own sequence of the seed, so that the seeds of two entries do not
      // repeat each other's moves.
      std::seed_seq sequence{seed, static_cast<std::uint32_t>(std::hash<std::string>{}(c.name))};
      std::mt19937 rng(sequence);
      ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
      CZelDrawing& drawing = CZelDrawing::current();
      drawing.reset();
      ASSERT_TRUE(drawing.load(std::string(QEN_SOURCE_DIR) + "/tests/scripts/drawings/" + c.drawing)) << ZEL::lastFileError();
      const char* handle = c.objects[rng() % c.objects.size()];
      CZelDataItem* object = handle ? drawing.objectData(CZelString::fromUtf8(handle)) : nullptr;
      ASSERT_TRUE(!handle || object) << handle;

      qenDlgEnv_st env;
      env.unit = static_cast<Zel::lUnit>(drawing.insUnits);
      if (rng() % 3 == 0) env.country = L"en";
      RandomBackend backend(sequence);
      int code = 0;
      {
        CDialogBackendScope scope(backend);
        code = c.call(env, object, rng);
      }
      const std::string where = c.name + ", seed " + std::to_string(seed) + " (QEN_RANDOM_SEED=" + std::to_string(seed) +
                                "), object " + (handle ? handle : "-") + "\nlast actions:\n" + backend.history();
      if (std::getenv("QEN_RANDOM_VERBOSE")) std::cout << where << "end code " << code << "\n";
      EXPECT_NE(code, -1) << where;
      EXPECT_EQ(backend.depth(), 0) << where;
      // What the dialogs left in the store can be saved, read back, and saved again unchanged.
      const std::string saved = CStoreFile::toText(*ZEL::cfgMgrPtr()->root());
      std::unique_ptr<CZelDataItem> reread(CStoreFile::parse(saved, "store"));
      ASSERT_TRUE(reread) << ZEL::lastFileError() << "\n" << where;
      EXPECT_EQ(CStoreFile::toText(*reread), saved) << where;
      if (object) {
        EXPECT_NE(CStoreFile::toText(*object), "") << where;
      }
      if (HasFailure()) return;
    }
  }
  std::cout << cases.size() << " entries x " << rounds << " rounds from seed " << firstSeed << " in "
            << std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started).count()
            << " ms\n";
}
