// The standard-parts dialog frame through qenNormMenu on the real catalogue: how it opens,
// the caller's filter, views and which of them may replace an edited part, the display
// flags and hatching with their per-domain copies, the family shown, the texts, the
// preview, and the end codes.
#include "tests/standardparts/NrmDialogSupport.h"

#include "backend/CDialogBackend.h"
#include "qen_entries.h"
#include "standardparts/CSharpDialogInterface.h"

#include <algorithm>

namespace {

const char* const kIpe = R"(["BAR", "SECTION", "I-BEAM", "IPE"])";
const std::vector<std::string> kIpeStack = {"BAR", "SECTION", "I-BEAM", "IPE"};
const std::vector<std::string> kIso4017Stack = {"PIECE", "SCREW", "HEX", "ISO4017"};

// A picture dialog that answers with a fixed stack and keeps the leaves it was shown.
class FixedPicker : public CSharpDialogInterface {
public:
  explicit FixedPicker(std::vector<std::string> answer) : m_answer(std::move(answer)) {}
  CZelArrayTempl<CZelString> CallNrmDiaDlg(CZelDataItem* leaves) override {
    ++calls;
    if (leaves) shown.reset(leaves->clone());
    CZelArrayTempl<CZelString> out;
    for (const std::string& s : m_answer) out.add(CZelString::fromUtf8(s));
    return out;
  }
  int calls = 0;
  std::unique_ptr<CZelDataItem> shown;

private:
  std::vector<std::string> m_answer;
};

std::vector<std::string> leavesAt(const CZelDataItem& picker, const std::wstring& path) {
  CZelArrayTempl<CZelString> leaves;
  const CZelDataKey key = CZelDataKey::fromPath(path.c_str());
  picker.get(leaves, &key);
  std::vector<std::string> out;
  for (int i = 0; i < leaves.count(); ++i) out.push_back(leaves[i].toUtf8());
  return out;
}

}  // namespace

TEST_F(NrmDialogTest, WithoutSettingsItOpensOnTheBarDomainOnThePropertiesTab) {
  DialogRun r = run("expect 15007 selected 0\nexpect 1 disabled\nexpect 10295 disabled\nexpect 0/10804 selected \"Stabteile\"\n"
                    "cancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDCANCEL);
  EXPECT_EQ(stack(), std::vector<std::string>{"BAR"});
  EXPECT_EQ(text(L"_QEN_NM_REL"), "f");  // written by the tree builder when absent
  EXPECT_EQ(text(L"*NM*\\DSP"), "DIN");
  EXPECT_EQ(integer(L"*NM*\\VIEW"), 0);
  EXPECT_TRUE(qenEntryAvailable("qenNormMenu"));
}

TEST_F(NrmDialogTest, TheCallersFilterDecidesTheDomainAndHoldsForOneRunOnly) {
  store(R"({"*NORM_PARM*": {"FILTER": ["BAR"]}})");
  DialogRun r = run("expect 0/10804 selected \"Stückteile\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), std::vector<std::string>{"PIECE"});
  EXPECT_EQ(ZEL::cfg_get(L"*NORM_PARM*\\FILTER"), nullptr);

  // Two domains left out: nothing to show, the part controls are disabled.
  ZEL::cfg_remove(L"*NM*");
  store(R"({"*NORM_PARM*": {"FILTER": ["BAR", "PIECE"]}})");
  r = run("expect 0/10804 items 0\nexpect 10519 hidden\nexpect 10775 disabled\nexpect 1 disabled\n"
          "expect 0/10045 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"*NM*\\STACK"), nullptr);
}

TEST_F(NrmDialogTest, AnInvalidViewBecomesLeftAndEachViewButtonWritesItsCode) {
  select(kIso4017, R"("VIEW": 5)");
  DialogRun r = run("expect 10220 checked\nexpect 1 enabled\nclick 10216\nexpect 10216 checked\nexpect 10220 unchecked\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(integer(L"*NM*\\VIEW"), 1);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN\\*PIECE*\\VIEW"), 1);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN\\*BAR*\\VIEW"), std::nullopt);

  // 3D (its disabled display options are checked by din_dialog_display).
  r = run("click 10222\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\VIEW"), 3);
}

TEST_F(NrmDialogTest, AnEditedBarPartKeepsItsViewGroup) {
  select(kIpe, R"("VIEW": 1)");
  const std::string notInsertable = "expect 1 disabled\nexpect 10320 text \"nicht einfügbare Ansicht\"\nexpect 10414 shown\n";
  const std::string insertable = "expect 1 enabled\nexpect 10320 hidden\n";
  DialogRun r = run("expect 10216 checked\n" + insertable +
                        "click 10923\n" + insertable + "click 10223\n" + insertable + "click 10217\n" + insertable +
                        "click 10220\n" + notInsertable + "click 10218\n" + notInsertable + "click 10222\n" + notInsertable +
                        "click 10216\n" + insertable + "ok\n",
                    0, true, false);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\VIEW"), 1);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN\\*BAR*\\VIEW"), 1);
}

TEST_F(NrmDialogTest, OnlyTheStoredViewGetsTheAlternateIconAndAPiecePartMayNotBecome3D) {
  select(kIso4017, R"("VIEW": 0)");
  DialogRun r = run("dump 10220\ndump 10216\nclick 10216\nexpect 1 enabled\nclick 10218\nexpect 1 enabled\nclick 10222\n"
                    "expect 1 disabled\nclick 10223\nexpect 1 enabled\nok\n",
                    0, true, false);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("\"left\" enabled shown checked icon=10164"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"top\" enabled shown unchecked icon=10116"), std::string::npos) << r.out;
}

TEST_F(NrmDialogTest, ProjectionsAndShearAreReportedAndPinTheView) {
  select(kIso4017, R"("VIEW": 2)");
  DialogRun r = run("expect 10319 text \"2 Projektionen\"\nexpect 10410 shown\nexpect 1 enabled\nclick 10216\n"
                    "expect 1 disabled\nclick 10923\nexpect 1 enabled\nok\n",
                    2, true, false);
  ASSERT_EQ(r.status, 0) << r.err;
  // The sheared texts are checked by the host scripts din_host_projections_option and
  // din_host_editing_option.
  // A new part shows no status lines.
  r = run("expect 10319 hidden\nexpect 10410 hidden\nexpect 10320 hidden\ncancel\n", 2, false, true);
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmDialogTest, EachDisplayBoxChangesOnlyItsOwnBit) {
  select(kIso4017, R"("AXIS": 13)");  // axes shown, hidden lines and thread lines suppressed
  DialogRun r = run("expect 10692 checked\nexpect 10439 unchecked\nexpect 10389 unchecked\n"
                    "expect 10801 disabled\nexpect 10927 disabled\nclick 10439\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\AXIS"), 9);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN\\*PIECE*\\AXIS"), 9);

  r = run("click 10692\nclick 10389\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\AXIS"), 0);

  // The bar domain: drill axes and light edges, no thread lines.
  ZEL::cfg_remove(L"*NM*");
  select(kIpe, R"("AXIS": 1)");
  r = run("expect 10801 enabled\nexpect 10927 checked\nexpect 10389 disabled\nexpect 10389 unchecked\n"
          "click 10801\nclick 10927\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\AXIS"), 1 | 2 | 0x10);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN\\*BAR*\\AXIS"), 1 | 2 | 0x10);
}

TEST_F(NrmDialogTest, HatchingIsOfferedForTheSectionViewsOfBarParts) {
  // Turning it on in an end view and off in a side view: din_dialog_display.
  select(kIpe, R"("VIEW": 0)");
  DialogRun r = run("click 10774\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  r = run("click 10218\nexpect 10774 checked\nclick 10774\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\DRAW"), std::nullopt);
  EXPECT_EQ(text(L"*NM_SET*\\DIN\\*BAR*\\DRAW"), std::nullopt);

  ZEL::cfg_remove(L"*NM*");
  select(kIso4017, R"("VIEW": 0)");
  r = run("expect 10774 disabled\nexpect 10334 disabled\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmDialogTest, TheFamilySetsTheLabelingFlagsAndTheTreeTexts) {
  select(kIso4017, R"("TXTGEN": 32)");
  DialogRun r = run(
      "expect 0/10804 selected \"DIN 933 Sechskantschraube mit Gewinde bis Kopf\"\n"
      "select 10775 \"EN\"\n"
      "expect 0/10804 selected \"EN ISO 4017 Sechskantschraube mit Gewinde bis Kopf\"\n"
      "expect 11008 text \"EN ISO 4017 - Stahl 4.6 feuerverzinkt\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\DSP"), "EN");
  EXPECT_EQ(integer(L"*NM*\\TXTGEN"), 0x40);
  r = run("select 10775 \"DIN\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\TXTGEN"), 0);

  // An unknown family is replaced by the first.
  store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "DSP": "JIS"}})");
  r = run("expect 10775 selected \"DIN\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\DSP"), "DIN");
}

TEST_F(NrmDialogTest, TheTitleOfTheStandardIsShownWithoutLinkWhenItHasNone) {
  select(kIso4017);
  DialogRun r = run("expect 11005 text \"Sechskantschraube mit Gewinde bis Kopf\"\nexpect 10411 hidden\n"
                    "select 0/10804 \"Stückteile/Schrauben\"\nexpect 11005 text \"Schrauben\"\nexpect 1 disabled\n"
                    "expect 10216 disabled\nexpect 10692 unchecked\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), (std::vector<std::string>{"PIECE", "SCREW"}));
}

TEST_F(NrmDialogTest, ThePreviewShowsTheHeadOfTheScrewToScale) {
  // No centre axes: only the head's outline is drawn.
  select(kIso4017, R"("ND": "M12", "MAT": "8.8", "VIEW": 32, "AXIS": 28)");
  const int copies = CDialogBackend::lastClipboardCopy().count;
  DialogRun r = run("menu 10519 5 5\nchoose 10114\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  const CDialogBackend::ClipboardCopy& copy = CDialogBackend::lastClipboardCopy();
  ASSERT_EQ(copy.count, copies + 1);
  // The head seen end-on: a hexagon 18 across the flats, about 20 across the corners.
  double maxX = 0, maxY = 0;
  int polylines = 0;
  for (const auto& item : copy.picture.items()) {
    if (item.kind != CDisplayList::Kind::Polyline) continue;
    ++polylines;
    for (int i = 0; i < item.points.count(); ++i) {
      maxX = std::max(maxX, std::abs(item.points[i].x));
      maxY = std::max(maxY, std::abs(item.points[i].y));
    }
  }
  EXPECT_GT(polylines, 0);
  EXPECT_NEAR(std::min(maxX, maxY), 9.0, 0.05);
  EXPECT_NEAR(std::max(maxX, maxY), 10.0, 0.2);
}

TEST_F(NrmDialogTest, ThePictureDialogReplacesTheSelectionWithItsAnswer) {
  select(kIso4017);
  FixedPicker picker(kIpeStack);
  DialogRun r = run("click 10519\nexpect 11005 text \"Mittelbreiter I-Träger IPE\"\nok\n", 0, false, false, &picker);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(picker.calls, 1);
  EXPECT_EQ(stack(), kIpeStack);
  ASSERT_TRUE(picker.shown);
  const std::vector<std::string> hex = leavesAt(*picker.shown, L"PIECE\\SCREW\\HEX\\LEAFS");
  EXPECT_NE(std::find(hex.begin(), hex.end(), "ISO4017"), hex.end());
  EXPECT_EQ(std::find(hex.begin(), hex.end(), "DIN933"), hex.end());  // withdrawn: hidden by the default areas

  // An empty answer changes nothing.
  FixedPicker none({});
  r = run("click 10519\nok\n", 0, false, false, &none);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), kIpeStack);
}

TEST_F(NrmDialogTest, TheStoredModeOpensItsTab) {
  select(kIso4017, R"("MODE": "SEARCH")");
  DialogRun r = run("expect 15007 selected 1\nexpect 1 enabled\ntab 0\n"
                    "expect 0/10804 selected \"DIN 933 Sechskantschraube mit Gewinde bis Kopf\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\MODE"), "MAIN");
  EXPECT_EQ(stack(), kIso4017Stack);
  r = run("tab 3\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  r = run("expect 15007 selected 3\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\MODE"), "ADMIN");
}

// The pick buttons' end codes (3, 4, 103) are checked by the din_host_pick_* scripts.
TEST_F(NrmDialogTest, TheAssignmentsWorkOnTheGeneratedPartAndKeepItsSettingsPerStandard) {
  select(kIso4017, R"("ND": "M12", "MAT": "8.8", "LEN": 60.0)");
  // The layer dialog opens on the part; whatever it answers, the part's settings are kept
  // for the standard.
  DialogRun r = run("click 10294\ncancel\nexpect 15007 selected 0\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM_SET*\\DIN:ISO4017\\TYPE"), "DIN");
  EXPECT_EQ(text(L"*NM_SET*\\DIN:ISO4017\\NORM"), "ISO4017");
  EXPECT_EQ(text(L"*NM*\\ND"), "M12");
  // The labeling dialog likewise, then the label line is shown again.
  r = run("click 10335\ncancel\nexpect 11008 text \"DIN 933 - Stahl 8.8 blank\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
}
