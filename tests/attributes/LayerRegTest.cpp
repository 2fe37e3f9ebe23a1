// The layer dialog through its entry function, on the factory settings and a facade
// drawing: material mode, the colour swatch, names typed by the user, presets.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelApp.h"
#include "data/CZelDrawing.h"
#include "data/CZelLayerMgr.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "obj/QenObjLayer.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

namespace {

class LayerRegTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/facade.json")) << ZEL::lastFileError();
    ZEL::zelAppPtr()->setColorChooser([this](CZelColor& color, CWnd*) {
      ++m_colourDialogs;
      color = CZelColor::fromIndex(3);
      return 1;
    });
  }
  void TearDown() override {
    ZEL::zelAppPtr()->setColorChooser(nullptr);
    CZelDrawing::current().reset();
  }
  static void setStack(const wchar_t* material) {
    ZEL::cfg_set(L"*QEN_MAT*\\STACK", ZEL::mkDataItem(ZEL::mkResbuf(material)), true);
  }
  static CZelString assignment(const wchar_t* path) {
    CZelString name;
    CZelDataKey two;
    two.append(static_cast<short>(2));
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(name, &two);
    return name;
  }
  DialogRun runLayer(const std::string& script, bool materialMode, const wchar_t* objectHandle = nullptr) {
    qenDlgEnv_st env;
    env.materialMode = materialMode;
    if (objectHandle) ZEL::obj_layer_init(CZelDrawing::current().objectData(objectHandle));
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgMatObjLayer(env)); });
  }
  int m_colourDialogs = 0;
};

}  // namespace

TEST_F(LayerRegTest, AMaterialThatInheritsItsLayersLocksTheAssignmentAndTheSwatch) {
  setStack(L"ALMG1");
  DialogRun r = runLayer(
      "expect 10337 disabled\nexpect 10338 disabled\nexpect 10339 disabled\n"
      "expect 10338 checked\nexpect 10030 disabled\nexpect 10038 disabled\nexpect 10039 disabled\n"
      "expect 10040 disabled\nexpect 10057 disabled\nexpect 10046 disabled\n"
      "expect 10030 text \"QEN_ALU\"\nclick 10109\nok\n",
      true);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(m_colourDialogs, 0);
}

TEST_F(LayerRegTest, AMaterialWithItsOwnLayersCanChooseAndCancelPutsTheLayerTableBack) {
  setStack(L"ALUMINIUM");
  DialogRun r = runLayer(
      "expect 10338 checked\nexpect 10337 enabled\nexpect 10339 disabled\nexpect 10040 disabled\n"
      "click 10337\nexpect 10337 checked\nexpect 10030 text \"QEN_KONTUR\"\n"
      "expect-store *ZEL_LAYER*\\MAT\\ALUMINIUM\\PART_CON absent\ncancel\n",
      true);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(assignment(L"*ZEL_LAYER*\\MAT\\ALUMINIUM\\PART_CON"), CZelString(L"QEN_ALU"));

  r = runLayer("click 10337\nok\n", true);
  EXPECT_EQ(r.result, 1);
  EXPECT_TRUE(assignment(L"*ZEL_LAYER*\\MAT\\ALUMINIUM\\PART_CON").isEmpty());
  // Choosing the material again takes the system's layer as its own.
  r = runLayer("click 10338\nok\n", true);
  EXPECT_EQ(assignment(L"*ZEL_LAYER*\\MAT\\ALUMINIUM\\PART_CON"), CZelString(L"QEN_KONTUR"));
}

TEST_F(LayerRegTest, InMaterialModeOkLeavesTheShownLayerAsTheDetailLayer) {
  auto detName = [] {
    CZelString name;
    if (CZelDataItem* item = ZEL::cfg_get(L"*ZEL_DL_LAYDET*\\NAME")) item->get(name);
    return name;
  };
  setStack(L"ALMG1");
  ASSERT_NE(detName(), CZelString(L"QEN_ALU"));
  DialogRun r = runLayer("expect 10030 text \"QEN_ALU\"\nok\n", true);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(detName(), CZelString(L"QEN_ALU")) << "the write-back of OK does not put the old name back";
  // Cancel leaves what the store had.
  ZEL::cfg_set(L"*ZEL_DL_LAYDET*\\NAME", ZEL::mkDataItem(ZEL::mkResbuf(L"0")), true);
  r = runLayer("expect 10030 text \"QEN_ALU\"\ncancel\n", true);
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(detName(), CZelString(L"0"));
  // A name chosen by the user is the detail layer at once, and after OK.
  setStack(L"ALUMINIUM");
  r = runLayer("click 10337\nselect 10030 \"QEN_ALU\"\nexpect-store *ZEL_DL_LAYDET*\\NAME \"QEN_ALU\"\nok\n", true);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(detName(), CZelString(L"QEN_ALU"));
}

TEST_F(LayerRegTest, TheInteriorViewIsOfferedOnlyWhenWoodHasAnInteriorLayer) {
  setStack(L"ALUMINIUM");
  DialogRun r = runLayer("expect 15007 items 6\ntab 5\nexpect-store *QEN_MAT*\\CUR_LAY \"PART_INT\"\nok\n", true);
  EXPECT_EQ(r.status, 0) << r.err;
  ZEL::cfg_remove(L"*ZEL_LAYER*\\MAT\\HOLZ\\PART_INT");
  ZEL::cfg_set(L"*QEN_MAT*\\CUR_LAY", ZEL::mkDataItem(ZEL::mkResbuf(L"PART_INT")), true);
  r = runLayer("expect 15007 items 5\nexpect 15007 selected 0\nok\n", true);
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(LayerRegTest, TheSwatchChangesTheColourOnlyOfTheUsersOwnLayer) {
  DialogRun r = runLayer("click 10109\nok\n", false, L"2F");  // the material's layer: no
  EXPECT_EQ(m_colourDialogs, 0);
  r = runLayer("click 10339\nenter 10030 \"QEN_ALU_NEU\"\nclick 10109\nexpect 10041 text \"grün\"\nok\n", false, L"2F");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(m_colourDialogs, 1);
  ZEL::CLayerProp layer;
  ASSERT_TRUE(CZelLayerMgr().physLayerPropGet(L"QEN_ALU_NEU", layer));
  EXPECT_EQ(layer.color, CZelColor::fromIndex(3));
  EXPECT_EQ(layer.lineWeight, 35);  // the rest is the layer it was made from, the system's contour layer
}

TEST_F(LayerRegTest, EnterCommitsATypedNameWithoutClosingAndAnEmptyNameIsRefused) {
  DialogRun r = runLayer(
      "click 10339\ntype 10030 \"Neue Schicht\"\nkey 10030 ENTER\nexpect dialog shown\n"
      "expect 10339 focused\nexpect 10030 text \"Neue Schicht\"\n"
      "enter 10030 \"  \"\nexpect-box \"Eintragung notwendig\"\nok\n",
      false, L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  ZEL::CLayerProp layer;
  EXPECT_TRUE(CZelLayerMgr().physLayerPropGet(L"Neue Schicht", layer));
}

TEST_F(LayerRegTest, PresetsAreSavedAndRemovedWithTheirMessages) {
  DialogRun r = runLayer(
      "expect 10367 disabled\nclick 10339\nclick 10366\n"
      "expect-box \"Dichtung 10 x 3\\nEPDM\\nEinstellungen gespeichert\"\n"
      "expect 10367 enabled\nclick 10367\nexpect-box \"Dichtung 10 x 3\\nVoreinstellungen entfernt\"\n"
      "expect 10367 disabled\nok\n",
      false, L"30");
  EXPECT_EQ(r.status, 0) << r.err;
}
