// The material catalogue: chains, labels in the user's language, properties, and the
// materials that bend or draw.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelMatMgr.h"

#include <gtest/gtest.h>

namespace {

class CZelMatMgrTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "en",
      "*ZEL_MAT*": {
        "MAT": {
          "ALUMINIUM": {"LABEL": "Aluminium", "LABEL_EN": "Aluminium", "LAY_MODE": 2, "BEND": 1},
          "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "PARENT": "ALUMINIUM", "LAY_MODE": 1},
          "EPDM": {"LABEL": "EPDM-Dichtung", "LABEL_EN": "EPDM seal", "DRAW": false},
          "LOOP_A": {"LABEL": "A", "PARENT": "LOOP_B"},
          "LOOP_B": {"LABEL": "B", "PARENT": "LOOP_A"}
        },
        "EDGE": {"ALU_R2": {"MAT": "ALUMINIUM", "RADIUS": 2.0}}
      }
    })json", "store"));
  }
  CZelMatMgr m_mgr;
};

}  // namespace

TEST_F(CZelMatMgrTest, ChainsFollowTheParentsAndStopAtALoop) {
  CZelArrayTempl<CZelString> chain;
  ASSERT_TRUE(m_mgr.matPath(chain, L"ALMG3"));
  ASSERT_EQ(chain.count(), 2);
  EXPECT_EQ(chain[1], CZelString(L"ALUMINIUM"));
  ASSERT_TRUE(m_mgr.matPath(chain, L"LOOP_A"));
  EXPECT_EQ(chain.count(), 2);
  EXPECT_FALSE(m_mgr.matPath(chain, L"UNOBTAINIUM"));
}

TEST_F(CZelMatMgrTest, LabelsInTheAskedOrTheUsersLanguage) {
  EXPECT_EQ(m_mgr.matLabel(L"EPDM", L"de"), CZelString(L"EPDM-Dichtung"));
  EXPECT_EQ(m_mgr.matLabel(L"EPDM", L"en"), CZelString(L"EPDM seal"));
  EXPECT_EQ(m_mgr.matLabel(L"EPDM", L"-1"), CZelString(L"EPDM seal"));  // the store says "en"
  EXPECT_EQ(m_mgr.matLabel(L"ALMG3", L"en"), CZelString(L"EN AW-5754 (AlMg3)"));  // no English label: the German one
  EXPECT_TRUE(m_mgr.matLabel(L"UNOBTAINIUM", L"de").isEmpty());
}

TEST_F(CZelMatMgrTest, PropertiesAndTheMaterialsThatBendOrDraw) {
  ZEL::CMatProp prop;
  ASSERT_TRUE(m_mgr.propGet(L"ALUMINIUM", prop));
  EXPECT_EQ(prop.layMode, 2);
  EXPECT_EQ(prop.bend, 1);
  ASSERT_TRUE(m_mgr.propGet(L"EPDM", prop));
  EXPECT_EQ(prop.layMode, 1);
  EXPECT_FALSE(prop.draw);
  EXPECT_FALSE(m_mgr.propGet(L"UNOBTAINIUM", prop));
  CZelArrayTempl<CZelString> edge;
  m_mgr.matEdgeAll(edge, true);
  EXPECT_EQ(edge.count(), 2);  // aluminium and the alloy that inherits its tables
  CZelArrayTempl<CZelString> draw;
  m_mgr.matDrawAll(draw, false);
  EXPECT_EQ(draw.find(L"EPDM"), -1);
  EXPECT_GE(draw.find(L"ALMG3"), 0);
}
