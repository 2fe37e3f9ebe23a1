// The host command functions against host functions registered by the test: every
// result type is interpreted as the bridges promise, and failures give "nothing".
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelApp.h"
#include "obj/ZelObjKey.h"
#include "ui/ZelWindowEnable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class HostCommandsTest : public ::testing::Test {
protected:
  void SetUp() override { ZEL::cfgMgrPtr()->reset(); }
  void TearDown() override {
    for (const auto& name : m_registered) ZEL::zelAppPtr()->registerFunction(name, nullptr);
    ZEL::setWindowEnabler(nullptr);
  }
  // The host function answers with a copy of `answer` (none: the call fails).
  void answer(const wchar_t* name, resbuf* answerChain, int code = RTNORM) {
    auto shared = std::make_shared<ZEL::CSmartResbuf>(answerChain);
    m_registered.emplace_back(name);
    ZEL::zelAppPtr()->registerFunction(name, [this, shared, code, n = std::wstring(name)](const resbuf* args, resbuf** result) {
      m_lastArg = args && args->restype == RTSTR ? CZelString(args->resval.rstring) : CZelString(L"<none>");
      m_calls.push_back(n);
      *result = ZEL::rbCopyAll(shared->get());
      return code;
    });
  }
  std::vector<CZelString> m_registered;
  std::vector<std::wstring> m_calls;
  CZelString m_lastArg;
};

}  // namespace

TEST_F(HostCommandsTest, BooleanResultsAreTrueOnlyForT) {
  answer(L"qen_obj_lib1", ZEL::newRb(RTT));
  answer(L"zel_ate_select", ZEL::newRb(RTNIL));
  answer(L"qen_mat_edge", ZEL::mkRbLong(1));
  EXPECT_TRUE(obj_lib1(nullptr));
  EXPECT_FALSE(ate_select(nullptr));
  EXPECT_FALSE(mat_edge());
  EXPECT_EQ(m_lastArg, CZelString(L"<none>"));
  answer(L"qen_obj_lib1", ZEL::newRb(RTT), RTERROR);
  EXPECT_FALSE(obj_lib1(nullptr));
}

TEST_F(HostCommandsTest, SaveRestoreAndLibraryResults) {
  answer(L"qen_obj_save", ZEL::mkResbuf(L"2F", RTENAME));
  EXPECT_TRUE(obj_save(L"KLOTZ"));
  EXPECT_EQ(m_lastArg, CZelString(L"KLOTZ"));
  answer(L"qen_obj_save", ZEL::mkResbuf(L"2F"));
  EXPECT_FALSE(obj_save(L"KLOTZ"));

  answer(L"qen_obj_restore", ZEL::mkRbShort(3));
  EXPECT_EQ(obj_restore(L"DICHT", 0, nullptr), 3);
  answer(L"qen_obj_restore", ZEL::mkRbLong(70000));
  EXPECT_EQ(obj_restore(L"DICHT", 0, nullptr), 70000);
  answer(L"qen_obj_restore", ZEL::mkRbReal(3.0));
  EXPECT_EQ(obj_restore(L"DICHT", 0, nullptr), 0);

  answer(L"qen_obj_lib1_init", ZEL::mkResbuf(L"Klotz 30x5"));
  EXPECT_EQ(obj_lib1_init(L"KLOTZ"), CZelString(L"Klotz 30x5"));
  answer(L"qen_obj_lib1_init", ZEL::newRb(RTT));
  EXPECT_TRUE(obj_lib1_init(L"KLOTZ").isEmpty());

  answer(L"qen_fav_save", nullptr, RTERROR);
  answer(L"qen_fav_restore", ZEL::newRb(RTT));
  fav_save(L"FOLIE");
  fav_restore(L"FOLIE");
  EXPECT_EQ(m_calls.back(), L"qen_fav_restore");
  EXPECT_EQ(m_lastArg, CZelString(L"FOLIE"));
}

TEST_F(HostCommandsTest, RestoreWithFlagOneMarksTheCommandWhateverTheOutcome) {
  EXPECT_EQ(obj_restore(L"KLOTZ", 0, nullptr), 0);  // no such host function
  EXPECT_EQ(ZEL::cfg_get(L"*RESTORE*\\CMDACTIV"), nullptr);
  EXPECT_EQ(obj_restore(L"KLOTZ", 1, nullptr), 0);
  int v = 0;
  ASSERT_NE(ZEL::cfg_get(L"*RESTORE*\\CMDACTIV"), nullptr);
  EXPECT_TRUE(ZEL::cfg_get(L"*RESTORE*\\CMDACTIV")->get(v));
  EXPECT_EQ(v, 1);
}

TEST_F(HostCommandsTest, TheWaitingWindowIsDisabledDuringTheCall) {
  std::vector<std::pair<HWND, bool>> changes;
  ZEL::setWindowEnabler([&](HWND w, bool e) { changes.emplace_back(w, e); });
  bool enabledDuringCall = true;
  m_registered.emplace_back(L"zel_ate_select");
  ZEL::zelAppPtr()->registerFunction(L"zel_ate_select", [&](const resbuf*, resbuf** r) {
    enabledDuringCall = changes.empty() || changes.back().second;
    *r = ZEL::newRb(RTT);
    return RTNORM;
  });
  auto window = reinterpret_cast<HWND>(0x10);
  EXPECT_TRUE(ate_select(window));
  EXPECT_FALSE(enabledDuringCall);
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_TRUE(changes.back().second);
}

TEST_F(HostCommandsTest, SelectionsGiveANewItemOnlyForAListOrNil) {
  answer(L"zel_ate_select_init", ZEL::rbToList(ZEL::rbAppend(ZEL::mkResbuf(L"A"), ZEL::mkResbuf(L"B"))));
  std::unique_ptr<CZelDataItem> item(ate_select_init(L"x"));
  ASSERT_TRUE(item);
  CZelArrayTempl<CZelString> list;
  EXPECT_TRUE(item->get(list));
  EXPECT_EQ(list.count(), 2);
  answer(L"zel_ate_select_init", ZEL::mkResbuf(L"A"));
  EXPECT_EQ(ate_select_init(L"x"), nullptr);
  answer(L"qen_dwg_dict_import", ZEL::newRb(RTNIL));
  item.reset(dwg_dict_import(L"y"));
  ASSERT_TRUE(item);
  EXPECT_TRUE(ZEL::rbIsNil(item->value()));
}

TEST_F(HostCommandsTest, SyncMergesTheStoredPropertiesOfTheSettingsObjectKey) {
  ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({
    "*HZ_KLOTZ*": {"MAT": "EPDM", "B": 30.0, "H": 5.0},
    "*HZ_BLECH*": {"MAT": "ALMG3", "T": 2.0},
    "*QEN_OBJ_PROP*": {"KLOTZ:EPDM": {"H": 6.0, "LAY": {"IS_LAY": 2}}, "BLECH:ALMG3": {"T": 3.0}}
  })", "store"));
  objGen_objProp_Sync(L"PIECE");
  objGen_objProp_Sync(L"KLOTZ");
  double h = 0, b = 0, t = 0;
  EXPECT_TRUE(ZEL::cfg_get(L"*HZ_KLOTZ*\\H")->get(h));
  EXPECT_TRUE(ZEL::cfg_get(L"*HZ_KLOTZ*\\B")->get(b));
  EXPECT_EQ(h, 6.0);
  EXPECT_EQ(b, 30.0);
  EXPECT_NE(ZEL::cfg_get(L"*HZ_KLOTZ*\\LAY\\IS_LAY"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\TYPE"), nullptr);
  objGen_objProp_Sync(L"BLECH");
  EXPECT_TRUE(ZEL::cfg_get(L"*HZ_BLECH*\\T")->get(t));
  EXPECT_EQ(t, 3.0);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_BLECH*\\TYPE"), nullptr);
}

TEST_F(HostCommandsTest, TheFunctionListIsKeptAsGiven) {
  func_lst none = getDllFcnLst();
  for (void* m : none.member) EXPECT_EQ(m, nullptr);
  func_lst list{};
  list.member[0] = &list;
  list.member[5] = reinterpret_cast<void*>(0x5);
  EXPECT_TRUE(setDllFcnLst(list));
  EXPECT_EQ(getDllFcnLst().member[0], &list);
  EXPECT_EQ(getDllFcnLst().member[5], reinterpret_cast<void*>(0x5));
  setDllFcnLst(func_lst{});
}
