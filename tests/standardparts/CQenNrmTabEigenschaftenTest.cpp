// The properties tab on the real catalogue: the tree under the caller's filter, the areas
// and the only-articles switch, the leaves handed to the picture dialog, choosing a
// standard, a variant and a material, and the article.
#include "tests/standardparts/NrmDialogSupport.h"

#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "standardparts/CSharpDialogInterface.h"

#include <memory>

namespace {

using NrmPropsTest = NrmDialogTest;

const std::vector<std::string> kIsoStack = {"PIECE", "SCREW", "HEX", "ISO4017"};
const char* const kIsoPath = "Stückteile/Schrauben/Sechskantschrauben/DIN 933 Sechskantschraube mit Gewinde bis Kopf";

// Keeps the leaves item the dialog hands to the picture dialog; picks nothing.
class LeavesPicker : public CSharpDialogInterface {
public:
  CZelArrayTempl<CZelString> CallNrmDiaDlg(CZelDataItem* leaves) override {
    shown.reset(leaves ? leaves->clone() : nullptr);
    return {};
  }
  std::vector<std::string> at(const wchar_t* path) const {
    std::vector<std::string> out;
    CZelArrayTempl<CZelString> leaves;
    const CZelDataKey key = CZelDataKey::fromPath(path);
    if (shown && shown->get(leaves, &key))
      for (int i = 0; i < leaves.count(); ++i) out.push_back(leaves[i].toUtf8());
    return out;
  }
  std::unique_ptr<CZelDataItem> shown;
};

}  // namespace

TEST_F(NrmPropsTest, TheCallersFilterLeavesOutAWholeDomain) {
  store(R"({"*NORM_PARM*": {"FILTER": ["PIECE"]}})");
  LeavesPicker picker;
  DialogRun r = run("click 10519\nexpect 0/10804 selected \"Stabteile\"\ncancel\n", 0, false, false, &picker);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(picker.at(L"PIECE\\SCREW\\HEX\\LEAFS").empty());
  EXPECT_EQ(picker.at(L"BAR\\SECTION\\I-BEAM\\LEAFS").front(), "IPE");
}

TEST_F(NrmPropsTest, HiddenAreasTakeTheirStandardsAndEmptiedGroupsOutOfTheTree) {
  // ISO standards hidden (area "01" is bit 0x10): the hexagon screws are all ISO or
  // withdrawn, so their group disappears; the DIN sections stay.
  store(R"({"_QEN_NM_REL": "f1"})");
  LeavesPicker picker;
  DialogRun r = run("click 10519\ncancel\n", 0, false, false, &picker);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(picker.at(L"PIECE\\SCREW\\HEX\\LEAFS").empty());
  EXPECT_FALSE(picker.at(L"BAR\\SECTION\\I-BEAM\\LEAFS").empty());
  r = run("select 0/10804 \"Stückteile/Schrauben/Sechskantschrauben\"\ncancel\n");
  EXPECT_EQ(r.status, 1);
  // Withdrawn standards shown once their area is checked: din_dialog_withdrawn.
}

TEST_F(NrmPropsTest, WithEveryAreaHiddenTheTreeIsEmptyAndThePageDisabled) {
  store(R"({"_QEN_NM_REL": "ff7"})");
  select(kIso4017, R"("ND": "M12")");
  DialogRun r = run("expect 0/10804 items 0\nexpect 0/10778 disabled\nexpect 0/10045 disabled\nexpect 0/10465 disabled\n"
                    "expect 0/10777 disabled\nexpect 0/1007 disabled\nexpect 0/10794 disabled\nexpect 0/10699 disabled\n"
                    "expect 0/10798 disabled\nexpect 0/10577 disabled\nexpect 0/10780 disabled\nexpect 1 disabled\n"
                    "expect 10519 hidden\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"*NM*\\STACK"), nullptr);
}

TEST_F(NrmPropsTest, ChoosingAStandardLoadsThePropertiesStoredForIt) {
  store(R"({"*QEN_OBJ_PROP*": {"DIN:ISO4017:4.6-FV": {"AXIS": 3, "IS_LAY": 2}}})");
  select(R"(["BAR", "SECTION", "I-BEAM", "IPE"])", R"("AXIS": 1)");
  DialogRun r = run(std::string("select 0/10804 \"") + kIsoPath + "\"\nexpect 1 enabled\nexpect 0/10778 selected \"M1.6\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), kIsoStack);
  EXPECT_EQ(integer(L"*NM*\\AXIS"), 3);
  EXPECT_EQ(integer(L"*NM*\\IS_LAY"), 2);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN:ISO4017\\AXIS"), 3);
  EXPECT_EQ(text(L"*NM*\\MAT"), "4.6-FV");
  EXPECT_EQ(text(L"*NM*\\ND"), "M1.6");
}

TEST_F(NrmPropsTest, ASingleVariantIsDisabled) {
  // Choosing the fine thread of DIN 934 narrows its sizes: din_dialog_withdrawn. A section
  // has the single empty variant; its materials are three.
  select(R"(["BAR", "SECTION", "I-BEAM", "IPE"])");
  DialogRun r = run("expect 0/10465 disabled\nexpect 0/10045 enabled\nexpect 0/10045 items 3\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\VAR"), std::nullopt);
}

TEST_F(NrmPropsTest, ANewMaterialTakesItsLayersUnlessItsPresetSaysOtherwise) {
  store(R"({"NORM_MAT_LAYER": 1})");
  select(kIso4017, R"("MAT": "4.6-FV", "IS_LAY": 0)");
  DialogRun r = run("select 0/10045 \"Stahl 8.8 blank\"\nexpect 11008 text \"DIN 933 - Stahl 8.8 blank\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\MAT"), "8.8");
  EXPECT_EQ(integer(L"*NM*\\IS_LAY"), 1);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN:ISO4017\\IS_LAY"), 1);

  // The preset of the new object key holds the layer source: it is taken as it is.
  store(R"({"*QEN_OBJ_PROP*": {"DIN:ISO4017:10.9": {"IS_LAY": 0, "AXIS": 5}}})");
  qen::nrm::setInt(L"*NM*\\IS_LAY", 0);
  r = run("select 0/10045 \"Stahl 10.9 blank\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\MAT"), "10.9");
  EXPECT_EQ(integer(L"*NM*\\IS_LAY"), 0);
  EXPECT_EQ(integer(L"*NM*\\AXIS"), 5);
  EXPECT_EQ(integer(L"*NM_SET*\\DIN:ISO4017\\AXIS"), 5);
}

TEST_F(NrmPropsTest, OnlyArticlesShowsTheStandardsWithAnArticleAndNoFreeLength) {
  std::unique_ptr<CZelDataItem> part(ZEL::norm_gen_from_stack(kIsoStack, false));
  ASSERT_TRUE(part);
  ASSERT_TRUE(QEN::obj_order_save(ZEL::objKey(part.get(), 4), L"A-4017"));
  ZEL::norm_gen_init(false);
  store(R"({"_QEN_NORM_ORDER": 1})");
  select(kIso4017, R"("NODIN": 1)");
  LeavesPicker picker;
  DialogRun r = run("click 10519\nexpect 0/10794 checked\nexpect 0/10699 disabled\nexpect 0/10257 text \"A-4017\"\nok\n", 0,
                    false, false, &picker);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(picker.at(L"PIECE\\SCREW\\HEX\\LEAFS"), std::vector<std::string>{"ISO4017"});
  EXPECT_TRUE(picker.at(L"PIECE\\SCREW\\SOCKET\\LEAFS").empty());
  EXPECT_TRUE(picker.at(L"BAR\\SECTION\\I-BEAM\\LEAFS").empty());
  EXPECT_EQ(text(L"*NM*\\ORDER"), "A-4017");
}

TEST_F(NrmPropsTest, TheArticleDialogRecordsTheArticleOfThePart) {
  select(kIso4017, R"("ND": "M12", "MAT": "8.8", "LEN": 60.0)");
  DialogRun r = run("expect 0/10257 text \"\"\nclick 0/1007\nenter 10773 \"SR-12-60\"\nok\nexpect 0/10257 text \"SR-12-60\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\ORDER"), "SR-12-60");
  CZelString article;
  EXPECT_TRUE(ZEL::obj_order_get(L"DIN:ISO4017:8.8:M12:LEN=60", article));
  EXPECT_EQ(article.toUtf8(), "SR-12-60");
}
