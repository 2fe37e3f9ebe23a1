// The labeling dialog through its entry function, on the factory settings and a drawing of
// labelled objects: text bits, order and line breaks, tabs of a drilling, the supplementary
// list with its sorting, editing, list file and import from the message server.
#include "qen_mfc.h"

#include "attributes/CLabelingDlg.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDispatch.h"
#include "data/CZelDrawing.h"
#include "data/ZelAutomation.h"
#include "data/ZelAutomationProtocol.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFileUpdate.h"
#include "data/ZelDataFiles.h"
#include "data/ZelFactorySettings.h"
#include "resources/dialogs/labeling_ids.h"
#include "tests/support/DialogRun.h"

#include "attributes/CLabelingSupplLst.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>
#include <vector>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Ints = CZelArrayTempl<int>;
using Texts = CZelArrayTempl<CZelString>;

// Sets an environment variable for one test and puts the old value back afterwards.
class EnvVar {
public:
  explicit EnvVar(const char* name) : m_name(name) {
    if (const char* v = std::getenv(name)) m_old = v;
  }
  ~EnvVar() {
    if (m_old) ::setenv(m_name, m_old->c_str(), 1);
    else ::unsetenv(m_name);
  }
  void set(const std::string& value) { ::setenv(m_name, value.c_str(), 1); }

private:
  const char* m_name;
  std::optional<std::string> m_old;
};

// The texts the preview showed at each "dump 10005" of a run, unescaped: the preview's lines
// end in "\r\n", which a script cannot write.
std::vector<std::string> previews(const std::string& out) {
  std::vector<std::string> texts;
  const std::string mark = "dump: 10005 edit \"";
  for (std::size_t at = out.find(mark); at != std::string::npos; at = out.find(mark, at + 1)) {
    std::string text;
    for (std::size_t i = at + mark.size(); i < out.size() && out[i] != '"'; ++i) {
      if (out[i] == '\\' && i + 1 < out.size()) {
        ++i;
        text += out[i] == 'n' ? '\n' : out[i];
      } else {
        text += out[i];
      }
    }
    texts.push_back(text);
  }
  return texts;
}

// Pixel rows of the list views: a 20-pixel header, then 16 pixels a row.
std::string rowPoint(int row) { return "10 " + std::to_string(20 + 16 * row + 8); }

class LabelingDlgTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/labels.json")) << ZEL::lastFileError();
    m_root = std::filesystem::temp_directory_path() / ("qen-label-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_root / "run");
    std::filesystem::create_directories(m_root / "data");
    std::filesystem::permissions(m_root / "run", std::filesystem::perms::owner_all);
    m_runtime.set((m_root / "run").string());
    m_config.set((m_root / "config").string());
    m_server.set("");  // no server unless a test starts one
    ZEL::setDataFolder((m_root / "data").string());
  }
  void TearDown() override {
    if (auto d = ZEL::CZelDispatch::connect(ZEL::automation::socketPath("Zel_Msg.App"))) {
      d->invoke(ZEL::automation::kCallQuit, {});
      const auto start = Clock::now();
      while (std::filesystem::exists(ZEL::automation::socketPath("Zel_Msg.App")) && Clock::now() - start < std::chrono::seconds(3))
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    CZelDrawing::current().reset();
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_root);
  }

  static CZelDataItem* object(const wchar_t* handle) { return CZelDrawing::current().objectData(handle); }
  DialogRun run(const wchar_t* handle, const std::string& script, const wchar_t* country = L"de") {
    qenDlgEnv_st env;
    env.country = country;
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgObjTxt(env, object(handle))); });
  }
  static int intAt(const CZelDataItem* item, const wchar_t* key) {
    int v = -1;
    CZelDataKey k(key);
    if (item) item->get(v, &k);
    return v;
  }
  static Ints intsAt(const CZelDataItem* item, const wchar_t* key) {
    Ints v;
    CZelDataKey k(key);
    if (item) item->get(v, &k);
    return v;
  }
  static Texts storedList(const wchar_t* path) {
    Texts list;
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(list);
    return list;
  }
  void startServerWith(const char* key) {
    m_server.set(QEN_MSGSERVER_EXE);
    ASSERT_TRUE(ZEL::execute(CZelString::fromUtf8(QEN_MSGSERVER_EXE), 2000, true));
    auto admin = ZEL::CZelDispatch::connect(ZEL::automation::socketPath("Zel_Msg.App"));
    ASSERT_TRUE(admin);
    admin->invoke(ZEL::automation::kCallSelectKey, {key});
  }

  std::filesystem::path m_root;
  EnvVar m_runtime{"XDG_RUNTIME_DIR"};
  EnvVar m_config{"XDG_CONFIG_HOME"};
  EnvVar m_server{"QEN_MSGSERVER"};
};

}  // namespace

// --- opening, bits, preview ---------------------------------------------------------------

TEST_F(LabelingDlgTest, AnObjectWithoutTextBitsOpensWithItsTypesItemsOrderAndPreview) {
  DialogRun r = run(L"4A",
                    "expect dialog text \"Beschriftung\"\n"
                    "expect 10304 text \"Klotz 100 x 5 - Polypropylen (PP)\"\n"
                    "expect 15007 items 1\nexpect 15007 text \"Objekt\"\n"
                    "expect 2000 items 7\nexpect 2000 selected -1\n"
                    "expect 2000 unchecked 0\nexpect 2000 checked 1\nexpect 2000 unchecked 2\nexpect 2000 checked 3\n"
                    "expect 2000 checked 4\nexpect 2000 unchecked 5\n"
                    "dump 10005\nexpect 10010 disabled\nexpect 10367 disabled\nexpect 10006 unchecked\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Klotz\r\nPolypropylen (PP) 100 x 5"});
}

TEST_F(LabelingDlgTest, SingleLineTogglesOnlyItsOwnBit) {
  DialogRun r = run(L"4D", "click 10006\nexpect 10005 text \"Dichtung EPDM 10 x 3\"\nexpect 10010 enabled\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intAt(object(L"4D"), L"TXTGEN"), 13 | 0x1000);
  EXPECT_EQ(intAt(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\GEN"), L"TXTGEN"), 13 | 0x1000);
  r = run(L"4D", "expect 10006 checked\nclick 10006\nok\n");
  EXPECT_EQ(intAt(object(L"4D"), L"TXTGEN"), 13) << "the other bits stay as they were";
}

TEST_F(LabelingDlgTest, ACheckMarkChangesItsBitAndThePreview) {
  DialogRun r = run(L"4A", "uncheck 2000 3\ndump 10005\nexpect 10010 enabled\ncheck 2000 2\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Klotz\r\n100 x 5"});
  EXPECT_EQ(intAt(object(L"4A"), L"TXTGEN"), 0x1 | 0x2 | 0x8);
}

TEST_F(LabelingDlgTest, DefaultPutsTheTypesBitsOrderAndBreaksBack) {
  DialogRun r = run(L"4D", "expect 10010 disabled\nuncheck 2000 0\nexpect 10010 enabled\nclick 10010\nexpect 10010 disabled\n"
                           "expect 2000 selected -1\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intAt(object(L"4D"), L"TXTGEN"), 0x1 | 0x4 | 0x8);
  EXPECT_EQ(intsAt(object(L"4D"), L"TXTSEQU"), (Ints{0x400, 0x1, 0x2, 0x4, 0x8, 0x800}));
  EXPECT_EQ(intsAt(object(L"4D"), L"TXTLINE"), Ints{0x1});
}

TEST_F(LabelingDlgTest, ACompositePanelTakesItsMaterialFromThePanelCatalogue) {
  DialogRun r = run(L"4C", "expect 10304 text \"Blech 4 - Verbundplatte, mineralisch gefüllter Kern (B-s1,d0)\"\n"
                           "dump 10005\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Blech\r\nVerbundplatte, mineralisch gefüllter Kern (B-s1,d0) 4"});
}

// --- order and line breaks ----------------------------------------------------------------

TEST_F(LabelingDlgTest, TheLastRowOffersNoBreakAndNoMoveDownTheFirstNoMoveUp) {
  DialogRun r = run(L"4A", "menu 2000 " + rowPoint(6) + "\nchoose 10122\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("An den Anfang setzen"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("Zeilenwechsel"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("Ans Ende setzen"), std::string::npos) << r.err;
  r = run(L"4A", "menu 2000 " + rowPoint(0) + "\nchoose 10123\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("Zeilenwechsel einschalten"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("Nach oben verschieben"), std::string::npos) << r.err;
}

TEST_F(LabelingDlgTest, SwitchingOffTheOnlyBreakLeavesZeroInTheBreakList) {
  DialogRun r = run(L"4A", "menu 2000 " + rowPoint(1) + "\nchoose 10120\n"
                           "expect 10005 text \"Klotz Polypropylen (PP) 100 x 5\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intsAt(object(L"4A"), L"TXTLINE"), Ints{0});
  EXPECT_EQ(intsAt(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\GEN"), L"TXTLINE"), Ints{0});
}

TEST_F(LabelingDlgTest, MenuCommandsMoveTheItemAndTheSelectionFollows) {
  DialogRun r = run(L"4A", "menu 2000 " + rowPoint(3) + "\nchoose 10125\nexpect 2000 selected 0\n"
                           "dump 10005\n"
                           "menu 2000 " + rowPoint(0) + "\nchoose 10122\nexpect 2000 selected 1\n"
                           "menu 2000 " + rowPoint(1) + "\nchoose 10124\nexpect 2000 selected 6\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Polypropylen (PP) Klotz\r\n100 x 5"});
  EXPECT_EQ(intsAt(object(L"4A"), L"TXTSEQU"), (Ints{0x400, 0x1, 0x2, 0x8, 0x10, 0x800, 0x4}));
}

TEST_F(LabelingDlgTest, ADraggedItemTakesTheTargetsPlace) {
  DialogRun r = run(L"4A", "drag 2000 1 4\nexpect 2000 selected 4\nexpect 2000 text \"Bezeichnung\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intsAt(object(L"4A"), L"TXTSEQU"), (Ints{0x400, 0x2, 0x4, 0x8, 0x1, 0x10, 0x800}));
  r = run(L"4A", "drag 2000 2 2\nok\n");
  EXPECT_EQ(intsAt(object(L"4A"), L"TXTSEQU"), (Ints{0x400, 0x2, 0x4, 0x8, 0x1, 0x10, 0x800})) << "the same row";
}

// A press and a release closer than ten pixels are a click, even over another row.
TEST_F(LabelingDlgTest, AReleaseWithinTenPixelsIsNoDrag) {
  struct Probe : CLabelingDlg {
    BOOL OnInitDialog() override {
      CLabelingDlg::OnInitDialog();
      CWnd* list = GetDlgItem(IDC_LBL_STANDARD);
      const int press = 20 + 16 + 12;  // row 1, near its bottom
      list->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, press));
      list->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(10, press + 8));  // row 2
      list->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, press));
      list->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(10, press + 11));  // row 2, a drag
      return TRUE;
    }
  };
  CZelDataKey texts(L"*QEN_OBJ_TXT*"), props(L"*QEN_OBJ_PROP*");
  std::unique_ptr<ZEL::CDtaFilePointer> textCopy(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &texts, nullptr));
  std::unique_ptr<ZEL::CDtaFilePointer> propCopy(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &props, nullptr));
  Probe dlg;
  dlg.initLabel(qenDlgEnv_st{}, object(L"4A"), textCopy.get(), propCopy.get());
  DialogRun r = runDialog(dlg, "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intsAt(object(L"4A"), L"TXTSEQU"), (Ints{0x400, 0x2, 0x1, 0x4, 0x8, 0x10, 0x800})) << "one move, not two";
}

TEST_F(LabelingDlgTest, HomeEndUpAndDownMoveTheSelectionWithoutWrapping) {
  DialogRun r = run(L"4A", "key 2000 END\nexpect 2000 selected 6\nkey 2000 DOWN\nexpect 2000 selected 6\n"
                           "key 2000 HOME\nexpect 2000 selected 0\nkey 2000 UP\nexpect 2000 selected 0\n"
                           "key 2000 DOWN\nexpect 2000 selected 1\nexpect 1042 enabled\nexpect 10008 disabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

// --- a drilling ---------------------------------------------------------------------------

TEST_F(LabelingDlgTest, ADrillingListsItsCountersinkOnATabWithoutTheSupplementaryList) {
  DialogRun r = run(L"4B", "expect 15007 items 2\nexpect 15007 text \"Bohrung\"\nexpect 2000 items 8\n"
                           "dump 10005\n"
                           "tab 1\nexpect 2000 items 6\nexpect 2001 hidden\n"
                           "expect 10016 hidden\nexpect 10017 hidden\n"
                           "menu 2000 " + rowPoint(1) + "\nchoose 10125\nexpect 2000 selected 0\n"
                           "menu 2001 10 30\n");
  EXPECT_EQ(r.status, 1) << "the supplementary list cannot be reached on the countersink tab";
  EXPECT_NE(r.err.find("hidden"), std::string::npos) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Bohrung Ø6.6 T=12\r\nSenkung Ø12.4 90°"});
}

TEST_F(LabelingDlgTest, OnTheCountersinkTabTheMenuOffersNoBreaksAndMovesStayBehindTheDrilling) {
  DialogRun r = run(L"4B", "tab 1\nmenu 2000 " + rowPoint(2) + "\nchoose 10121\n");
  EXPECT_EQ(r.status, 1);
  r = run(L"4B", "tab 1\nmenu 2000 " + rowPoint(2) + "\nchoose 10125\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(intsAt(object(L"4B"), L"TXTSEQU"),
            (Ints{0x400, 0x8, 0x1, 0x2, 0x10, 0x4, 0x200, 0x800, 0x40, 0x8000, 0x20, 0x80, 0x100, 0x4000}));
}

// --- the supplementary list ---------------------------------------------------------------

TEST_F(LabelingDlgTest, SortingPutsEntriesWithoutTextInTheLanguageFirstAscendingAndLastDescending) {
  ZEL::cfg_set(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST",
               ZEL::mkDataItem(ZEL::mkResbuf(Texts{L"\\de\\Tragklotz\\en\\Load-bearing setting block", L"\\en\\Spacer only", L"\\nl\\", L"\\de\\Distanzklotz",
                                                   L"\\fr\\Cale"})),
               true);
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32772\n"
                           "expect 2001 items 5\nexpect 2001 text \"{?}\"\n"
                           "dump 2001\nmenu 2001 10 30\nchoose 32773\ndump 2001\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find(R"(items=["{?}", "{England: Spacer only}", "{Frankreich: Cale}", "Distanzklotz", "Tragklotz"])"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find(R"(items=["Tragklotz", "Distanzklotz", "{Frankreich: Cale}", "{England: Spacer only}", "{?}"])"), std::string::npos) << r.out;
}

TEST_F(LabelingDlgTest, TheLanguageOfTheTextsShowsTheEntriesInItAndIsKept) {
  DialogRun r = run(L"4A", "select 10301 \"England\"\nexpect 2001 text \"Load-bearing setting block\"\n"
                           "dump 10005\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Setting block\r\nPolypropylene (PP) 100 x 5"});
  r = run(L"4A", "expect 10301 text \"England\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(LabelingDlgTest, NewEntriesAreTypedInPlaceAndDuplicatesRefused) {
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32769\nlabel 2001 2 \"Distanzklotz\"\nexpect 2001 items 2\n"
                           "expect 2001 text \"Distanzklotz\"\n"
                           "menu 2001 10 30\nchoose 32769\nlabel 2001 2 \"  Randklotz \"\nexpect 2001 items 3\n"
                           "expect 2001 text \"Randklotz\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST").count(), 3);
  EXPECT_GE(storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST").find(L"\\de\\Randklotz"), 0);
}

TEST_F(LabelingDlgTest, EditingTheEntryOfThePrefixCarriesThePrefixAlong) {
  DialogRun r = run(L"4A", "label 2001 1 \"Hauptklotz\"\nexpect 2001 text \"Hauptklotz\"\n"
                           "label 2001 1 \"Distanzklotz\"\nexpect 2001 selected 0\nexpect 2001 items 2\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  CZelString prefix;
  CZelDataKey k(L"PREFIX");
  object(L"4A")->get(prefix, &k);
  EXPECT_EQ(prefix, L"\\de\\Hauptklotz\\en\\Load-bearing setting block");
}

TEST_F(LabelingDlgTest, AnEntryBecomesTheSecondSupplementaryText) {
  DialogRun r = run(L"4A", "select 2001 0\nclick 10017\ndump 10005\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(previews(r.out), std::vector<std::string>{"Klotz\r\nPolypropylen (PP) 100 x 5 Distanzklotz"});
  EXPECT_EQ(intAt(object(L"4A"), L"TXTGEN"), 0x1 | 0x4 | 0x8 | 0x800);
}

TEST_F(LabelingDlgTest, OkWithAnEmptyListRemovesTheListKeyFromTheWorkingCopy) {
  CZelDataKey texts(L"*QEN_OBJ_TXT*"), props(L"*QEN_OBJ_PROP*");
  std::unique_ptr<ZEL::CDtaFilePointer> textCopy(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &texts, nullptr));
  std::unique_ptr<ZEL::CDtaFilePointer> propCopy(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &props, nullptr));
  CLabelingDlg dlg;
  dlg.initLabel(qenDlgEnv_st{}, object(L"4D"), textCopy.get(), propCopy.get());
  DialogRun r = runDialog(dlg, "menu 2001 10 30\nchoose 32770\nmenu 2001 10 30\nchoose 32770\nexpect 2001 items 0\n"
                               "expect 10016 disabled\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  CZelDataKey list = CZelDataKey::fromPath(L"DICHT:EPDM\\TXTLST");
  EXPECT_EQ(propCopy->get()->find(&list), nullptr);

  // Through the entry the stored list is then left as it was.
  r = run(L"4D", "menu 2001 10 30\nchoose 32770\nmenu 2001 10 30\nchoose 32770\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedList(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\TXTLST").count(), 2);
}

TEST_F(LabelingDlgTest, CancelPutsTheStoredTextsAndPropertiesBack) {
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32769\nlabel 2001 2 \"Randklotz\"\nclick 10006\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST").count(), 2);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\GEN\\TXTGEN"), nullptr);
}

// --- the list file, presets ---------------------------------------------------------------

TEST_F(LabelingDlgTest, SaveListWritesTheFileAndSaysSo) {
  const std::filesystem::path file = m_root / "data" / "qen_obj_prop.dex";
  std::ofstream(file) << R"({"KLOTZ:PP": {"ORIG": "x", "TXTLST": ["\\de\\Alt"]}, "DICHT:EPDM": {"TXTLST": ["\\de\\Band"]}})";
  DialogRun r = run(L"4A", "click 10022\nexpect-box \"Klotz 100 x 5\\nPolypropylen (PP)\\nTexte gespeichert\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file.string()));
  ASSERT_TRUE(saved);
  Texts list;
  CZelDataKey k = CZelDataKey::fromPath(L"KLOTZ:PP\\TXTLST"), orig = CZelDataKey::fromPath(L"KLOTZ:PP\\ORIG");
  ASSERT_TRUE(saved->get(list, &k));
  // "Alt" was saved by someone else after this dialog had opened: the save keeps it.
  EXPECT_EQ(list, (Texts{L"\\de\\Alt", L"\\de\\Distanzklotz\\en\\Spacer block",
                         L"\\de\\Tragklotz\\en\\Load-bearing setting block"}));
  EXPECT_EQ(saved->find(&orig), nullptr);
  CZelDataKey other = CZelDataKey::fromPath(L"DICHT:EPDM\\TXTLST");
  EXPECT_NE(saved->find(&other), nullptr) << "the other types' lists stay";
}

TEST_F(LabelingDlgTest, SaveListPutsTheUsersRemovalsAndAdditionsIntoTheListAsTheFileHoldsItNow) {
  // Distanzklotz and Tragklotz were there when the dialog opened; "Fremd" was saved by
  // another user afterwards. This user deletes Distanzklotz and adds Randklotz.
  const std::filesystem::path file = m_root / "data" / "qen_obj_prop.dex";
  std::ofstream(file) << R"({"KLOTZ:PP": {"TXTLST": ["\\de\\Distanzklotz\\en\\Spacer block", "\\de\\Fremd",
                                                   "\\de\\Tragklotz\\en\\Load-bearing setting block"]}})";
  DialogRun r = run(L"4A", "select 2001 \"Distanzklotz\"\nmenu 2001 10 10\nchoose 32770\nexpect 2001 items 1\n"
                           "menu 2001 10 30\nchoose 32769\nlabel 2001 1 \"Randklotz\"\nclick 10022\n"
                           "expect 2001 items 3\nok\n");
  EXPECT_EQ(r.status, 0) << r.err << r.out;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file.string()));
  ASSERT_TRUE(saved);
  Texts list;
  CZelDataKey k = CZelDataKey::fromPath(L"KLOTZ:PP\\TXTLST");
  ASSERT_TRUE(saved->get(list, &k));
  EXPECT_EQ(list, (Texts{L"\\de\\Fremd", L"\\de\\Tragklotz\\en\\Load-bearing setting block", L"\\de\\Randklotz"}));
  // The dialog shows the list as saved, the other user's text included, and keeps it.
  EXPECT_EQ(storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST").find(L"\\de\\Fremd") >= 0, true);
}

TEST(LabelingSupplLstMerge, KeepsOthersChangesAndAppliesOnlyTheUsersOwn) {
  using Baseline = CLabelingSupplLst::Baseline;
  // The user deleted "b" and added "d"; another user added "x" meanwhile.
  EXPECT_EQ(CLabelingSupplLst::mergeChanges(Baseline{{L"a", L"b", L"c"}, {L"a", L"b", L"c"}}, Texts{L"a", L"c", L"d"},
                                            Texts{L"a", L"b", L"x", L"c"}),
            (Texts{L"a", L"x", L"c", L"d"}));
  // Another user deleted "a", which this user left alone: it stays deleted.
  EXPECT_EQ(CLabelingSupplLst::mergeChanges(Baseline{{L"a", L"b"}, {L"a", L"b"}}, Texts{L"a", L"b"}, Texts{L"b"}),
            (Texts{L"b"}));
  // Entries only the settings had are the user's to save; a file entry the dialog never
  // showed is not taken as deleted.
  EXPECT_EQ(CLabelingSupplLst::mergeChanges(Baseline{{L"f"}, {L"s"}}, Texts{L"s"}, Texts{L"f"}), (Texts{L"f", L"s"}));
  // Empty entries and repeats are not saved.
  EXPECT_EQ(CLabelingSupplLst::mergeChanges(Baseline{}, Texts{L"a", L""}, Texts{L"a", L"a"}), (Texts{L"a"}));
}

TEST_F(LabelingDlgTest, ADamagedListFileIsResetAndTheUserToldWhy) {
  const std::filesystem::path file = m_root / "data" / "qen_obj_prop.dex";
  std::ofstream(file) << "[1, 2";
  DialogRun r = run(L"4A", "click 10022\ndump dialog\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file.string()));
  ASSERT_TRUE(saved);
  EXPECT_TRUE(saved->isDir());
  EXPECT_TRUE(std::filesystem::exists(file.string() + ".bad1"));
}

TEST_F(LabelingDlgTest, PresetsAreSavedAndRemovedWithTheirMessages) {
  DialogRun r = run(L"4A", "expect 10367 disabled\nuncheck 2000 4\nclick 10012\n"
                           "expect-box \"Klotz 100 x 5\\nPolypropylen (PP)\\nEinstellungen gespeichert\"\n"
                           "expect 10367 enabled\nclick 10367\n"
                           "expect-box \"Klotz 100 x 5\\nVoreinstellungen entfernt\"\nexpect 10367 disabled\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

// --- import from the message server ---------------------------------------------------------

TEST_F(LabelingDlgTest, ImportingTheSameTextTwiceAddsItOnce) {
  startServerWith("QEN_TXT_002");
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32771\nexpect 2001 items 3\n"
                           "menu 2001 10 30\nchoose 32771\nexpect 2001 items 3\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  const Texts list = storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST");
  EXPECT_GE(list.find(L"\\de\\Verklotzung\\at\\Verklotzung\\ch\\Verklotzung\\en\\Setting block\\us\\Setting block"
                      L"\\fr\\Cale d'assise"),
            0);
}

TEST_F(LabelingDlgTest, AKeyWithoutTextsOrNoKeyIsReported) {
  startServerWith("QEN_UNKNOWN");
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32771\nexpect-box \"Kein Text zugeordnet\"\nexpect 2001 items 2\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  auto admin = ZEL::CZelDispatch::connect(ZEL::automation::socketPath("Zel_Msg.App"));
  ASSERT_TRUE(admin);
  admin->invoke(ZEL::automation::kCallSelectKey, {""});
  r = run(L"4A", "menu 2001 10 30\nchoose 32771\nexpect-box \"Kein Text ausgewählt\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(LabelingDlgTest, WithoutAServerTheImportDoesNothingAtOnce) {
  const auto start = Clock::now();
  DialogRun r = run(L"4A", "menu 2001 10 30\nchoose 32771\nexpect 2001 items 2\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(1000));
  EXPECT_EQ(storedList(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTLST").count(), 2);
}
