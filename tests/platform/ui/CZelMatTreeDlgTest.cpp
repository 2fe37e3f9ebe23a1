// The material tree: the catalogue under the materials each inherits from, labels in the
// caller's language, the offer narrowed by the caller, a double click and OK.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "tests/support/DialogRun.h"
#include "ui/ZelMatTree.h"

#include <gtest/gtest.h>

namespace {

class MatTreeTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {
        "MAT": {
          "SYSTEM": {"LABEL": "SYSTEM"},
          "ALUMINIUM": {"LABEL": "Aluminium", "LABEL_EN": "Aluminium"},
          "ALMGSI0.5": {"LABEL": "EN AW-6060 (AlMgSi0,5)", "PARENT": "ALUMINIUM"},
          "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "LABEL_EN": "EN AW-5754 (AlMg3) alloy", "PARENT": "ALUMINIUM"},
          "STAHL": {"LABEL": "Stahl", "LABEL_EN": "Steel"},
          "1.4301": {"LABEL": "Edelstahl 1.4301 (A2)", "LABEL_EN": "Stainless steel 1.4301 (A2)", "PARENT": "STAHL"},
          "EPDM": {"LABEL": "EPDM"},
          "HILFSSTOFF": {"LABEL": "Hilfsstoff", "DRAW": null}},
        "EDGE": {"ALMG3_2": {"MAT": "ALMG3"}}}
    })json", "store"));
    env.all = true;
    env.filter = {L"SYSTEM"};
  }

  DialogRun choose(const std::string& script) {
    return runUnderScript(script, [&] { return ZEL::dlgMatTree(env, material); });
  }
  ZEL::DlgEnvMatTree_st env;
  CZelString material = L"ALMG3";
};

}  // namespace

TEST_F(MatTreeTest, OpensOnTheCurrentMaterialUnderItsParent) {
  DialogRun r = choose(
      "expect dialog text \"Material wählen\"\n"
      "expect 32030 selected 3\n"
      "expect 32030 selected \"ALMG3\"\n"
      "expect 32031 text \"EN AW-5754 (AlMg3)\"\n"
      "expect 32030 items 8\n"
      "expect 1 enabled\n"
      "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

// OK with a chosen material and Cancel are klotz_material's (through the setting block).
TEST_F(MatTreeTest, ADoubleClickChoosesAMaterial) {
  DialogRun r = choose("dblclick 32030 6\n");
  EXPECT_EQ(r.result, 1) << r.err;
  EXPECT_EQ(material, CZelString(L"EPDM"));
}

TEST_F(MatTreeTest, LabelsInTheCallersLanguage) {
  env.country = L"en";
  DialogRun r = choose(
      "expect dialog text \"Choose material\"\n"
      "expect 32031 text \"EN AW-5754 (AlMg3) alloy\"\n"
      "select 32030 \"EPDM\"\nexpect 32031 text \"EPDM\"\nexpect 2 text \"Cancel\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(MatTreeTest, SystemOnlyWhenTheCallerAsksForIt) {
  DialogRun with = choose("select 32030 \"SYSTEM\"\nok\n");
  EXPECT_EQ(with.status, 0) << with.err;
  EXPECT_EQ(material, CZelString(L"SYSTEM"));
  env.filter.removeAll();
  DialogRun without = choose("expect 32030 items 7\nselect 32030 \"SYSTEM\"\n");
  EXPECT_EQ(without.status, 1);
}

TEST_F(MatTreeTest, MaterialsWithoutADrawingOnlyWhenAllAreAsked) {
  DialogRun all = choose("expect 32030 items 8\nselect 32030 \"HILFSSTOFF\"\ncancel\n");
  EXPECT_EQ(all.status, 0) << all.err;
  env.all = false;
  DialogRun drawn = choose("expect 32030 items 7\ncancel\n");
  EXPECT_EQ(drawn.status, 0) << drawn.err;
}

TEST_F(MatTreeTest, TheEdgeFilterOffersMaterialsThatBendAndKeepsTheirParentsAsGroups) {
  env.filter = {L"EDGE"};
  material = L"EPDM";
  DialogRun r = choose(
      "expect 32030 items 2\n"
      "expect 1 disabled\n"
      "select 32030 \"ALUMINIUM\"\n"
      "expect 1 disabled\n"
      "select 32030 \"ALUMINIUM/ALMG3\"\n"
      "expect 1 enabled\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(material, CZelString(L"ALMG3"));
}
