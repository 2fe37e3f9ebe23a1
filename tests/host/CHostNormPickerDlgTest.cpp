// qen-host's picture choice of a standard: which standards it offers for a selection, its
// pages of sixteen pictures, choosing by picture or by designation, OK and Cancel.
#include "CHostNormPicker.h"
#include "CHostNormPickerDlg.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataItem.h"
#include "resources/dialogs/din_dia_ids.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Stack = ZEL::NormStack;

// The leaves as the properties tab collects them: per group path, the standards' keys.
CZelDataItem* leaves(const std::string& json) { return CStoreFile::parse(json, "leaves"); }

const char* const kCatalogueLeaves = R"({
  "PIECE": {
    "SCREW": {"HEX": {"LEAFS": ["ISO4014", "ISO4017", "DIN933"]},
              "SOCKET": {"LEAFS": ["ISO4762"]},
              "COUNTERSUNK": {"LEAFS": ["ISO10642"]}},
    "NUT": {"HEX": {"LEAFS": ["ISO4032", "DIN934"]}}},
  "BAR": {"SECTION": {"I-BEAM": {"LEAFS": ["IPE", "INP"]}}}
})";

// Twenty standards in one group: two pages.
std::string twentyLeaves() {
  std::string keys;
  for (int i = 1; i <= 20; ++i) keys += std::string(i > 1 ? ", " : "") + "\"S" + (i < 10 ? "0" : "") + std::to_string(i) + "\"";
  return R"({"PIECE": {"X": {"G": {"LEAFS": [)" + keys + "]}}}}";
}

class HostNormPickerTest : public ::testing::Test {
protected:
  void SetUp() override { ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({"_COUNTRY": "de"})", "store")); }
};

TEST_F(HostNormPickerTest, AStandardOffersItsGroupACategoryAllItsGroupsInOrder) {
  ZEL::CUniqPointer<CZelDataItem> item(leaves(kCatalogueLeaves));
  const std::vector<Stack> hex = CHostNormPickerDlg::standardsFor(item.get(), {"PIECE", "SCREW", "HEX", "ISO4017"});
  ASSERT_EQ(hex.size(), 3u);
  EXPECT_EQ(hex[0], (Stack{"PIECE", "SCREW", "HEX", "ISO4014"}));
  EXPECT_EQ(hex[2], (Stack{"PIECE", "SCREW", "HEX", "DIN933"}));
  const std::vector<Stack> s = CHostNormPickerDlg::standardsFor(item.get(), {"PIECE", "SCREW"});
  ASSERT_EQ(s.size(), 5u);
  EXPECT_EQ(s[3], (Stack{"PIECE", "SCREW", "SOCKET", "ISO4762"}));
  EXPECT_EQ(s[4], (Stack{"PIECE", "SCREW", "COUNTERSUNK", "ISO10642"}));
  EXPECT_EQ(CHostNormPickerDlg::standardsFor(item.get(), {"BAR"}).size(), 2u);
  // Washers are not in the tree (filtered out): the domain's standards are offered.
  EXPECT_EQ(CHostNormPickerDlg::standardsFor(item.get(), {"PIECE", "WASHER", "PLAIN", "ISO7089"}).size(), 7u);
  EXPECT_TRUE(CHostNormPickerDlg::standardsFor(nullptr, {"PIECE"}).empty());
}

TEST_F(HostNormPickerTest, OpensOnThePageOfTheCurrentStandardAndPages) {
  ZEL::CUniqPointer<CZelDataItem> item(leaves(twentyLeaves()));
  CHostNormPickerDlg dlg(item.get(), {"PIECE", "X", "G", "S18"});
  DialogRun r = runDialog(dlg,
                          "expect 11040 items 20\n"
                          "expect 11040 selected 17\n"
                          "expect 11043 text \"Seite 2 / 2\"\n"
                          "expect 11042 disabled\n"
                          "expect 11041 enabled\n"
                          "click 11041\n"
                          "expect 11043 text \"Seite 1 / 2\"\n"
                          "expect 11041 disabled\n"
                          "expect 11042 enabled\n"
                          "expect 11040 selected 17\n"  // paging does not choose
                          "click 11022\n"               // the third picture: S03
                          "expect 11040 selected 2\n"
                          "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(dlg.chosen(), (Stack{"PIECE", "X", "G", "S03"}));
}

TEST_F(HostNormPickerTest, ChoosingALineTurnsToItsPage) {
  ZEL::CUniqPointer<CZelDataItem> item(leaves(twentyLeaves()));
  CHostNormPickerDlg dlg(item.get(), {"PIECE", "X", "G"});
  DialogRun r = runDialog(dlg,
                          "expect 11040 selected -1\n"
                          "expect 1 disabled\n"  // nothing chosen yet
                          "expect 11043 text \"Seite 1 / 2\"\n"
                          "select 11040 \"S19\"\n"
                          "expect 11043 text \"Seite 2 / 2\"\n"
                          "expect 1 enabled\n"
                          "dblclick 11040 16\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(dlg.chosen(), (Stack{"PIECE", "X", "G", "S17"}));
}

TEST_F(HostNormPickerTest, TheCallInterfaceStartsFromTheStoredStackAndAnswersTheChoice) {
  ZEL::cfgMgrPtr()->reset(CStoreFile::parse(
      R"({"_COUNTRY": "de", "*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "DSP": "ISO"}})", "store"));
  ZEL::CUniqPointer<CZelDataItem> item(leaves(kCatalogueLeaves));
  CHostNormPicker picker;
  CSharpDialogInterface& asModule = picker;  // the dialog calls it through the module's class
  CZelArrayTempl<CZelString> chosen;
  DialogRun r = runUnderScript(
      "expect 11040 items 3\n"
      "expect 11040 selected 1\n"
      "expect 11040 selected \"ISO 4017 Sechskantschraube mit Gewinde bis Kopf\"\n"
      "click 11022\n"
      "ok\n",
      [&] {
        chosen = asModule.CallNrmDiaDlg(item.get());
        return 0;
      });
  EXPECT_EQ(r.status, 0) << r.err;
  ASSERT_EQ(chosen.count(), 4);
  EXPECT_EQ(chosen[3], CZelString(L"DIN933"));
  DialogRun cancelled = runUnderScript("cancel\n", [&] {
    chosen = asModule.CallNrmDiaDlg(item.get());
    return 0;
  });
  EXPECT_EQ(cancelled.status, 0) << cancelled.err;
  EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(HostNormPickerTest, SpeaksTheUsersLanguage) {
  ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({"_COUNTRY": "en"})", "store"));
  ZEL::CUniqPointer<CZelDataItem> item(leaves(kCatalogueLeaves));
  CHostNormPickerDlg dlg(item.get(), {"PIECE", "NUT", "HEX", "ISO4032"});
  DialogRun r = runDialog(dlg,
                          "expect dialog text \"Choose a standard part\"\n"
                          "expect 11041 text \"&Previous\"\n"
                          "expect 11042 text \"&Next\"\n"
                          "expect 11043 text \"Page 1 / 1\"\n"
                          "expect 2 text \"Cancel\"\n"
                          "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

}  // namespace
