// The material tree as a control: which materials it offers under which parents, the
// material it is opened on, and what counts as a chosen material.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "ui/CZelMatTreeCtrl.h"

#include <gtest/gtest.h>

namespace {

class MatTreeCtrlTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "*ZEL_MAT*": {
        "MAT": {
          "SYSTEM": {"LABEL": "SYSTEM"},
          "ALUMINIUM": {"LABEL": "Aluminium", "DRAW": null},
          "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "PARENT": "ALUMINIUM"},
          "STAHL": {"LABEL": "Stahl"},
          "1.4301": {"LABEL": "Edelstahl 1.4301 (A2)", "PARENT": "STAHL"},
          "HILFSSTOFF": {"LABEL": "Hilfsstoff", "DRAW": null}},
        "EDGE": {"ALMG3_2": {"MAT": "ALMG3"}}}
    })json", "store"));
  }
  CZelMatTreeCtrl tree;
};

TEST_F(MatTreeCtrlTest, AllMaterialsStandUnderTheirParentsWithoutSystem) {
  tree.init(1, CZelString(), {});
  EXPECT_EQ(tree.GetCount(), 5u);
  EXPECT_EQ(tree.pathOf(tree.itemOf(L"1.4301")), CZelString(L"STAHL/1.4301"));
  EXPECT_EQ(tree.itemOf(L"SYSTEM"), nullptr);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_TRUE(tree.getSelMat().isEmpty()) << "nothing chosen";
}

TEST_F(MatTreeCtrlTest, OnlyDrawableMaterialsKeepANonDrawableParentAsAPlaceHolder) {
  tree.init(0, L"ALUMINIUM", {});
  EXPECT_FALSE(tree.offers(L"ALUMINIUM"));
  EXPECT_FALSE(tree.offers(L"HILFSSTOFF"));
  EXPECT_TRUE(tree.offers(L"ALMG3"));
  EXPECT_EQ(tree.GetSelectedItem(), tree.itemOf(L"ALUMINIUM")) << "opened on the place holder";
  EXPECT_TRUE(tree.getSelMat().isEmpty()) << "a place holder is no material to choose";
  tree.SelectItem(tree.itemOf(L"ALMG3"));
  EXPECT_EQ(tree.getSelMat(), CZelString(L"ALMG3"));
}

TEST_F(MatTreeCtrlTest, TheFilterNarrowsAndANewInitStartsAfresh) {
  tree.init(1, L"ALMG3", {L"EDGE"});
  EXPECT_EQ(tree.getSelMat(), CZelString(L"ALMG3"));
  EXPECT_FALSE(tree.offers(L"1.4301"));
  tree.init(1, CZelString(), {L"SYSTEM"});
  EXPECT_TRUE(tree.offers(L"SYSTEM"));
  EXPECT_EQ(tree.GetCount(), 6u);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
}

}  // namespace
