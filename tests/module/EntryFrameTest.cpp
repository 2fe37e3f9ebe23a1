// The entry functions' frame, driven with test dialogs that end with chosen codes and
// write into their sections: write-back, "MODE" removal, end codes and the deviations
// of the insulation, sheet-metal, axis, hatch, layer and labeling entries.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelCommandLine.h"
#include "module/CQenDialApp.h"
#include "module/CQenDialogFactory.h"
#include "module/CQenEntryDialog.h"
#include "obj/ZelObjKey.h"
#include "store/QenStoreAccess.h"
#include "ui/CWinApp.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

// What a test dialog saw; it outlives the dialog, which the entry function destroys.
struct Seen {
  std::vector<std::string> calls;
  const qenDlgEnv_st* initRecord = nullptr;
  qenDlgEnv_st record;
  CZelString country, helpFile, helpTopic, moduleDuringRun;
  CZelDataItem* object = nullptr;
  bool hadParent = false;
};

using Behaviour = std::function<INT_PTR(QenSectionSet&, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*)>;

class TestDialog : public CQenEntryDialog {
public:
  TestDialog(Seen& seen, Behaviour behaviour) : m_seen(seen), m_behaviour(std::move(behaviour)) {}
  void SetCountry(const CZelString& c) override { m_seen.calls.push_back("country"); m_seen.country = c; }
  void SetHelpFile(const CZelString& f) override { m_seen.calls.push_back("helpfile"); m_seen.helpFile = f; }
  void SetHelpTopic(const CZelString& t) override { m_seen.calls.push_back("helptopic"); m_seen.helpTopic = t; }
  void init(qenDlgEnv_st& r, QenSectionSet& s) override { seeInit("init", r); m_sections = s; }
  void initLayer(QenSectionSet& s, qenDlgEnv_st& r) override { seeInit("initLayer", r); m_sections = s; }
  void initHatch(qenDlgEnv_st& r, ZEL::CDtaFilePointer* h) override { seeInit("initHatch", r); m_first = h; }
  void initLabel(const qenDlgEnv_st& r, CZelDataItem* obj, ZEL::CDtaFilePointer* t, ZEL::CDtaFilePointer* p) override {
    seeInit("initLabel", r);
    m_seen.object = obj;
    m_first = t;
    m_second = p;
  }
  void setSections(const QenSectionSet& s) override { m_seen.calls.push_back("setSections"); m_sections = s; }
  void setRecord(const qenDlgEnv_st& r) override { seeInit("setRecord", r); }
  void deleteAllTabs() override { m_seen.calls.push_back("deleteAllTabs"); }
  INT_PTR DoModal() override {
    m_seen.calls.push_back("DoModal");
    m_seen.moduleDuringRun = AfxGetModuleState()->moduleName;
    return m_behaviour(m_sections, m_first, m_second);
  }

private:
  void seeInit(const char* what, const qenDlgEnv_st& r) {
    m_seen.calls.push_back(what);
    m_seen.initRecord = &r;
    m_seen.record = r;
  }
  Seen& m_seen;
  Behaviour m_behaviour;
  QenSectionSet m_sections;
  ZEL::CDtaFilePointer* m_first = nullptr;
  ZEL::CDtaFilePointer* m_second = nullptr;
};

const char* const kStore = R"({
  "*QEN_ALUCOBOND*": {"D": 4.0},
  "*QEN_OBJ_ORDER*": {},
  "*QEN_OBJ_PROP*": {"KEEP": 1},
  "_COUNTRY": {"C": "de"},
  "_COUNTRY1": {},
  "*ZEL_DL_LAYDET*": {"L": 1},
  "*ZEL_LAYER*": {"L": 1},
  "*ZEL_MAT*": {"M": 1},
  "*QEN_OBJ_LAY*": {"L": 1},
  "*HZ_KLOTZ*": {"B": 30.0, "MODE": "ADMIN"},
  "*HZ_DICHT*": {"MODE": "ADMIN"},
  "*HZ_SILIKON*": {"MODE": "ADMIN"},
  "*HZ_FOLIE*": {"MODE": "ADMIN"},
  "*HZ_DM*": {"MODE": "ADMIN"},
  "*HZ_BLECH*": {"MODE": "ADMIN"},
  "*AXIS*": {"A": 1.0},
  "QEN_MENU": {}
})";

class EntryFrameTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(kStore, "store"));
    ASSERT_NE(ZEL::cfgMgrPtr()->root(), nullptr);
    m_before = CStoreFile::toText(*ZEL::cfgMgrPtr()->root());
  }
  void TearDown() override {
    for (auto& [entry, maker] : m_saved) CQenDialogFactory::install(entry, maker);
  }

  void use(QenEntry entry, Behaviour behaviour) {
    m_saved.emplace_back(entry, CQenDialogFactory::install(entry, [this, behaviour](CWnd* parent) {
      m_seen = Seen{};
      m_seen.hadParent = parent != nullptr;
      return std::make_unique<TestDialog>(m_seen, behaviour);
    }));
  }

  static Behaviour endWith(INT_PTR code) {
    return [code](QenSectionSet&, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*) { return code; };
  }
  // Writes a marker into every section of the set, then ends.
  static Behaviour touchAllAndEndWith(INT_PTR code) {
    return [code](QenSectionSet& sections, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*) {
      for (auto& [name, pointer] : sections) {
        CZelDataKey touched(L"TOUCHED");
        if (pointer) QEN::sectionSet(pointer.get(), &touched, 1);
      }
      return code;
    };
  }
  static bool touched(const wchar_t* section) {
    return ZEL::cfg_get(CZelString(section) + L"\\TOUCHED") != nullptr;
  }
  static bool hasMode(const wchar_t* section) { return ZEL::cfg_get(CZelString(section) + L"\\MODE") != nullptr; }
  std::string storeText() const { return CStoreFile::toText(*ZEL::cfgMgrPtr()->root()); }

  Seen m_seen;
  std::string m_before;
  std::vector<std::pair<QenEntry, CQenDialogFactory::Maker>> m_saved;
};

}  // namespace

TEST_F(EntryFrameTest, SettingBlockWritesNoSectionBackAndRemovesModeOnOkAndCancel) {
  use(QenEntry::Block, touchAllAndEndWith(IDOK));
  qenDlgEnv_st env;
  env.country = L"en";
  EXPECT_EQ(qenDlgHzKl(env), 1);
  // Stored sections carry the dialog's own writes; working copies are dropped.
  for (const wchar_t* s : {L"*QEN_OBJ_ORDER*", L"*QEN_OBJ_PROP*", L"*ZEL_DL_LAYDET*", L"*ZEL_LAYER*", L"*HZ_KLOTZ*", L"QEN_MENU"})
    EXPECT_TRUE(touched(s)) << CZelString(s).toUtf8();
  for (const wchar_t* s : {L"_COUNTRY", L"_COUNTRY1", L"*ZEL_MAT*", L"*QEN_ALUCOBOND*", L"*HZ_DICHT*"})
    EXPECT_FALSE(touched(s)) << CZelString(s).toUtf8();
  EXPECT_FALSE(hasMode(L"*HZ_KLOTZ*"));
  EXPECT_TRUE(hasMode(L"*HZ_DICHT*"));
  // The host's record carries the type and section; the dialog got a copy.
  EXPECT_EQ(env.objectType, CZelString(L"KLOTZ"));
  EXPECT_EQ(env.sectionName, CZelString(L"*HZ_KLOTZ*"));
  EXPECT_NE(m_seen.initRecord, &env);
  EXPECT_EQ(m_seen.record.objectType, CZelString(L"KLOTZ"));
  EXPECT_EQ(m_seen.country, CZelString(L"en"));
  EXPECT_EQ(m_seen.moduleDuringRun, CZelString(L"Qen_Mfc"));
  EXPECT_NE(AfxGetModuleState()->moduleName, CZelString(L"Qen_Mfc"));

  ZEL::cfg_set(L"*HZ_KLOTZ*\\MODE", ZEL::mkDataItem(ZEL::mkResbuf(L"ADMIN")), true);
  use(QenEntry::Block, endWith(IDCANCEL));
  EXPECT_EQ(qenDlgHzKl(env), 0);
  EXPECT_FALSE(hasMode(L"*HZ_KLOTZ*"));
}

TEST_F(EntryFrameTest, OtherEndCodesAreReturnedUnchangedAndKeepMode) {
  for (INT_PTR code : {5, 103, -1}) {
    use(QenEntry::Block, touchAllAndEndWith(code));
    qenDlgEnv_st env;
    EXPECT_EQ(qenDlgHzKl(env), code);
    EXPECT_TRUE(hasMode(L"*HZ_KLOTZ*"));
    EXPECT_FALSE(touched(L"*ZEL_MAT*"));
  }
}

TEST_F(EntryFrameTest, SiliconeInsulationAndSheetMetalWriteBackOnlyTheCompositeSectionAndOnlyOnOk) {
  struct Case {
    QenEntry entry;
    std::function<int(qenDlgEnv_st&)> call;
    const wchar_t* main;
  };
  std::vector<Case> cases = {
      {QenEntry::Silicone, [](qenDlgEnv_st& e) { return qenDlgHzSi(e); }, L"*HZ_SILIKON*"},
      {QenEntry::Insulation, [](qenDlgEnv_st& e) { return qenDlgDm(e); }, L"*HZ_DM*"},
      {QenEntry::Sheet, [](qenDlgEnv_st& e) { return qenDlgHzBl(e); }, L"*HZ_BLECH*"},
  };
  for (const auto& c : cases) {
    SetUp();
    use(c.entry, touchAllAndEndWith(IDOK));
    qenDlgEnv_st env;
    EXPECT_EQ(c.call(env), 1);
    EXPECT_TRUE(touched(L"*QEN_ALUCOBOND*")) << CZelString(c.main).toUtf8();
    EXPECT_FALSE(touched(L"_COUNTRY"));
    EXPECT_FALSE(touched(L"*ZEL_MAT*"));
    EXPECT_FALSE(hasMode(c.main));
    SetUp();
    use(c.entry, touchAllAndEndWith(IDCANCEL));
    EXPECT_EQ(c.call(env), 0);
    EXPECT_FALSE(touched(L"*QEN_ALUCOBOND*")) << CZelString(c.main).toUtf8();
    EXPECT_FALSE(hasMode(c.main));
  }
}

TEST_F(EntryFrameTest, SealAndSiliconeInitialiseWithTheRecordWithoutAParent) {
  use(QenEntry::Seal, endWith(IDOK));
  qenDlgEnv_st env;
  EXPECT_EQ(qenDlgHzDi(env), 1);
  EXPECT_EQ(m_seen.initRecord, &env);
  EXPECT_EQ(env.objectType, CZelString(L"DICHT"));
  EXPECT_FALSE(m_seen.hadParent);
  // The silicone entry takes the record by value: the caller's stays as it was.
  use(QenEntry::Silicone, endWith(IDOK));
  qenDlgEnv_st mine;
  EXPECT_EQ(qenDlgHzSi(mine), 1);
  EXPECT_TRUE(mine.objectType.isEmpty());
  EXPECT_EQ(m_seen.record.objectType, CZelString(L"SILIKON"));
  EXPECT_EQ(m_seen.record.sectionName, CZelString(L"*HZ_SILIKON*"));
}

TEST_F(EntryFrameTest, InsulationMapsItsPickCodesAndKeepsModeForThem) {
  for (auto [code, expected] : std::vector<std::pair<INT_PTR, int>>{{1002, 2}, {1003, 3}, {1004, 4}, {1005, 5}, {1006, 1006}, {7, 7}}) {
    SetUp();
    use(QenEntry::Insulation, touchAllAndEndWith(code));
    qenDlgEnv_st env;
    EXPECT_EQ(qenDlgDm(env), expected);
    EXPECT_TRUE(hasMode(L"*HZ_DM*"));
    EXPECT_FALSE(touched(L"*QEN_ALUCOBOND*"));
  }
  use(QenEntry::Insulation, endWith(IDCANCEL));
  qenDlgEnv_st env;
  EXPECT_EQ(qenDlgDm(env), 0);
  EXPECT_FALSE(hasMode(L"*HZ_DM*"));
}

TEST_F(EntryFrameTest, SheetMetalCreatesMissingSectionsAndEmptiesItsTabsWhateverTheEnd) {
  ZEL::cfg_remove(L"*QEN_ALUCOBOND*");
  ZEL::cfg_remove(L"_COUNTRY1");
  use(QenEntry::Sheet, endWith(103));
  qenDlgEnv_st env;
  env.helpFile = L"qen.chm";
  env.helpTopic = L"qen_blech";
  env.country = L"en";
  EXPECT_EQ(qenDlgHzBl(env), 103);
  ASSERT_NE(ZEL::cfg_get(L"*QEN_ALUCOBOND*"), nullptr);
  EXPECT_TRUE(ZEL::cfg_get(L"*QEN_ALUCOBOND*")->isDir());
  EXPECT_NE(ZEL::cfg_get(L"_COUNTRY1"), nullptr);
  EXPECT_TRUE(hasMode(L"*HZ_BLECH*"));
  EXPECT_EQ(m_seen.calls, (std::vector<std::string>{"setSections", "helpfile", "helptopic", "country", "DoModal", "deleteAllTabs"}));
  EXPECT_TRUE(env.objectType.isEmpty());
}

TEST_F(EntryFrameTest, AxisCancelRestoresEverythingAndOkRemovesOrig) {
  auto changeAxis = [](INT_PTR code) {
    return [code](QenSectionSet&, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*) -> INT_PTR {
      ZEL::cfg_set(L"*AXIS*\\A", ZEL::mkDataItem(ZEL::mkRbReal(2.0)), true);
      ZEL::cfg_set(L"*AXIS*\\ORIG", ZEL::mkDataItem(ZEL::mkRbBool(true)), true);
      return code;
    };
  };
  const qenDlgEnv_st env;
  use(QenEntry::Axis, changeAxis(IDCANCEL));
  std::string before = storeText();
  EXPECT_EQ(qenDlgAxis(env), 0);
  EXPECT_EQ(storeText(), before);
  EXPECT_EQ(m_seen.calls, (std::vector<std::string>{"setRecord", "DoModal"}));

  use(QenEntry::Axis, changeAxis(IDOK));
  EXPECT_EQ(qenDlgAxis(env), 1);
  double a = 0;
  EXPECT_TRUE(ZEL::cfg_get(L"*AXIS*\\A")->get(a));
  EXPECT_EQ(a, 2.0);
  EXPECT_EQ(ZEL::cfg_get(L"*AXIS*\\ORIG"), nullptr);

  use(QenEntry::Axis, changeAxis(3));
  EXPECT_EQ(qenDlgAxis(env), 3);
  EXPECT_NE(ZEL::cfg_get(L"*AXIS*\\ORIG"), nullptr);
}

TEST_F(EntryFrameTest, HatchWritesItsWorkingCopyOnlyOnOk) {
  auto writeHatch = [](INT_PTR code) {
    return [code](QenSectionSet&, ZEL::CDtaFilePointer* hatches, ZEL::CDtaFilePointer*) -> INT_PTR {
      CZelDataKey k(L"PAT");
      QEN::sectionSet(hatches, &k, CZelString(L"ANSI31"));
      return code;
    };
  };
  use(QenEntry::Hatch, writeHatch(IDCANCEL));
  qenDlgEnv_st env;
  EXPECT_EQ(qenDlgMatObjHatch(env), 0);
  ASSERT_NE(ZEL::cfg_get(L"*QEN_OBJ_HATCH*"), nullptr);  // created as a directory on entry
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\PAT"), nullptr);
  use(QenEntry::Hatch, writeHatch(7));
  EXPECT_EQ(qenDlgMatObjHatch(env), 0);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\PAT"), nullptr);
  use(QenEntry::Hatch, writeHatch(IDOK));
  EXPECT_EQ(qenDlgMatObjHatch(env), 1);
  EXPECT_NE(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\PAT"), nullptr);
  EXPECT_TRUE(hasMode(L"*HZ_KLOTZ*"));
}

TEST_F(EntryFrameTest, LayerOkWritesTheCopiesButNotTheLayersAndCancelRestoresTheLayers) {
  // The dialog edits its working copies and, like the layer dialog does, the stored layers.
  auto edit = [](INT_PTR code) {
    return [code](QenSectionSet& sections, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*) -> INT_PTR {
      for (auto& [name, pointer] : sections) {
        CZelDataKey touched(L"TOUCHED");
        QEN::sectionSet(pointer.get(), &touched, 1);
      }
      ZEL::cfg_set(L"*ZEL_LAYER*\\DIRECT", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
      ZEL::cfg_set(L"*ZEL_MAT*\\DIRECT", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
      return code;
    };
  };
  use(QenEntry::Layer, edit(IDOK));
  qenDlgEnv_st env;
  EXPECT_EQ(qenDlgMatObjLayer(env), 1);
  EXPECT_TRUE(touched(L"*QEN_OBJ_LAY*"));
  EXPECT_TRUE(touched(L"*ZEL_DL_LAYDET*"));
  EXPECT_TRUE(touched(L"*ZEL_MAT*"));
  EXPECT_FALSE(touched(L"*ZEL_LAYER*"));
  EXPECT_NE(ZEL::cfg_get(L"*ZEL_LAYER*\\DIRECT"), nullptr);
  EXPECT_EQ(m_seen.initRecord, &env);

  SetUp();
  env.materialMode = true;
  EXPECT_EQ(qenDlgMatObjLayer(env), 1);
  EXPECT_FALSE(touched(L"*ZEL_MAT*"));  // material mode: the materials are not written back
  EXPECT_NE(ZEL::cfg_get(L"*ZEL_MAT*\\DIRECT"), nullptr);

  SetUp();
  use(QenEntry::Layer, edit(IDCANCEL));
  EXPECT_EQ(qenDlgMatObjLayer(env), 0);
  EXPECT_EQ(ZEL::cfg_get(L"*ZEL_LAYER*\\DIRECT"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*ZEL_MAT*\\DIRECT"), nullptr);
  EXPECT_FALSE(touched(L"*QEN_OBJ_LAY*"));

  SetUp();
  env.materialMode = false;
  EXPECT_EQ(qenDlgMatObjLayer(env), 0);
  EXPECT_NE(ZEL::cfg_get(L"*ZEL_MAT*\\DIRECT"), nullptr);  // outside material mode the materials stay
  // A layer-detail section the store lacked comes into being on entry.
  SetUp();
  ZEL::cfg_remove(L"*ZEL_DL_LAYDET*");
  use(QenEntry::Layer, endWith(IDCANCEL));
  qenDlgMatObjLayer(env);
  EXPECT_NE(ZEL::cfg_get(L"*ZEL_DL_LAYDET*"), nullptr);
}

TEST_F(EntryFrameTest, LabelingStoresOnlyTheObjectsTextListInTheProperties) {
  CZelDataItem* object = CStoreFile::parse(R"({"TYPE": "KLOTZ", "MAT": "EPDM", "B": 30.0})", "object");
  ASSERT_NE(object, nullptr);
  const CZelString listKey = ZEL::objKey(object, 3);
  auto label = [listKey](INT_PTR code, bool withList) {
    return [=](QenSectionSet&, ZEL::CDtaFilePointer* texts, ZEL::CDtaFilePointer* props) -> INT_PTR {
      CZelDataKey gen;
      gen.set(5005, L"GEN", 5005, L"TYPE", 0);
      CZelString type;
      EXPECT_TRUE(texts->get()->get(type, &gen));  // the object came in under "GEN"
      EXPECT_EQ(type, CZelString(L"KLOTZ"));
      CZelDataKey line(L"LINE");
      QEN::sectionSet(texts, &line, CZelString(L"Klotz 30"));
      CZelDataKey other(L"OTHER");
      QEN::sectionSet(props, &other, 1);
      if (withList) {
        CZelDataKey k;
        k.set(5005, listKey.c_str(), 5005, L"TXTLST", 0);
        QEN::sectionSet(props, &k, QEN::StringList{L"EPDM 30", L"Klotz"});
      }
      return code;
    };
  };
  const qenDlgEnv_st env;
  use(QenEntry::Label, label(IDOK, true));
  EXPECT_EQ(qenDlgObjTxt(env, object), 1);
  EXPECT_NE(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\LINE"), nullptr);
  EXPECT_NE(ZEL::cfg_get(CZelString(L"*QEN_OBJ_PROP*\\") + listKey + L"\\TXTLST"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\OTHER"), nullptr);
  EXPECT_EQ(m_seen.object, object);

  SetUp();
  use(QenEntry::Label, label(IDOK, false));
  std::string propsBefore = CStoreFile::toText(*ZEL::cfg_get(L"*QEN_OBJ_PROP*"));
  EXPECT_EQ(qenDlgObjTxt(env, object), 1);
  EXPECT_EQ(CStoreFile::toText(*ZEL::cfg_get(L"*QEN_OBJ_PROP*")), propsBefore);

  SetUp();
  use(QenEntry::Label, [](QenSectionSet&, ZEL::CDtaFilePointer*, ZEL::CDtaFilePointer*) -> INT_PTR {
    ZEL::cfg_set(L"*QEN_OBJ_TXT*\\DIRECT", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
    ZEL::cfg_set(L"*QEN_OBJ_PROP*\\DIRECT", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
    return IDCANCEL;
  });
  EXPECT_EQ(qenDlgObjTxt(env, object), 0);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\DIRECT"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\DIRECT"), nullptr);
  EXPECT_NE(ZEL::cfg_get(L"*QEN_OBJ_TXT*\\GEN"), nullptr);
  delete object;
}

TEST(CQenDialApp, TheModuleObjectIsInitialisedWhenTheLibraryLoads) {
  EXPECT_TRUE(qenTheApp().isInitialised());
  EXPECT_TRUE(AfxOleIsInitialized());
  EXPECT_EQ(AfxGetStaticModuleState()->moduleName, CZelString(L"Qen_Mfc"));
}

TEST_F(EntryFrameTest, AnEntryWithoutItsDialogSaysSoAndChangesNothing) {
  use(QenEntry::Block, nullptr);
  CQenDialogFactory::install(QenEntry::Block, nullptr);
  ZEL::cmdTakePrinted();
  qenDlgEnv_st env;
  EXPECT_EQ(qenDlgHzKl(env), -1);
  EXPECT_NE(ZEL::cmdTakePrinted().toUtf8().find("setting-block dialog"), std::string::npos);
  EXPECT_EQ(storeText(), m_before);
}
