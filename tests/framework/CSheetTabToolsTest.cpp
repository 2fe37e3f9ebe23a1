// The sheet tools on the store: the preview's zoom rule, the coordinate flag, the reset of
// a type (the membrane keeps its layer variant), presets, completing an object's texts,
// and the hatch assignment taking the material's hatch.
#include "framework/tools/CSheetTabTools.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "obj/QenObjPreset.h"
#include "tests/support/DialogRun.h"
#include "ui/CDialog.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class SheetTabToolsTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    CZelDrawing::current().reset();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static std::unique_ptr<ZEL::CDtaFilePointer> stored(const wchar_t* section) {
    CZelDataKey key(section);
    return std::unique_ptr<ZEL::CDtaFilePointer>(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &key, nullptr));
  }
  static void setReal(const wchar_t* path, double v) { ZEL::cfg_set(path, ZEL::mkDataItem(ZEL::mkRbReal(v)), true); }
  static void setText(const wchar_t* path, const wchar_t* v) { ZEL::cfg_set(path, ZEL::mkDataItem(ZEL::mkResbuf(v)), true); }

  CSheetTabTools tools;
  CZelGDX gdx;
  CZelDplistImage picture;
};

}  // namespace

TEST_F(SheetTabToolsTest, APreviewZoomsToAChangedOutlineUnlessAnObjectIsEdited) {
  auto block = stored(L"*HZ_KLOTZ*");
  tools.refreshPreview(block.get(), &gdx, &picture, true);
  EXPECT_DOUBLE_EQ(picture.view().maxX, 30.0);
  EXPECT_DOUBLE_EQ(picture.view().maxY, 5.0);
  ASSERT_FALSE(gdx.displayList().isEmpty());

  setReal(L"*HZ_KLOTZ*\\B", 90.0);
  tools.refreshPreview(block.get(), &gdx, &picture, false);
  EXPECT_DOUBLE_EQ(picture.view().maxX, 30.0) << "without the zoom flag the view stays";
  setReal(L"*HZ_KLOTZ*\\B", 60.0);
  tools.refreshPreview(block.get(), &gdx, &picture, true);
  EXPECT_DOUBLE_EQ(picture.view().maxX, 60.0);

  setText(L"*HZ_KLOTZ*\\ORIG", L"2F");
  setReal(L"*HZ_KLOTZ*\\B", 120.0);
  tools.refreshPreview(block.get(), &gdx, &picture, true);
  EXPECT_DOUBLE_EQ(picture.view().maxX, 60.0);
  EXPECT_DOUBLE_EQ(picture.displayList().extents().maxX, 120.0);
  EXPECT_EQ(picture.displayList().view, picture.view());
}

TEST_F(SheetTabToolsTest, EditingAlwaysSetsTheCoordinateFlag) {
  CZelDataKey coord(L"COORD");
  tools.setCoordFlag(L"*HZ_KLOTZ*", nullptr, 10388);
  EXPECT_EQ(tools.options()->find(&coord), nullptr);
  setText(L"*HZ_KLOTZ*\\ORIG", L"2F");
  tools.setCoordFlag(L"*HZ_KLOTZ*", nullptr, 10388);
  int flag = 0;
  EXPECT_TRUE(tools.options()->get(flag, &coord));
  EXPECT_EQ(flag, 1);
}

TEST_F(SheetTabToolsTest, ResetBringsBackTheFactoryStateAndAMembraneLayerStaysALayer) {
  setReal(L"*HZ_KLOTZ*\\B", 77.0);
  setText(L"*HZ_KLOTZ*\\MODE", L"ADMIN");
  tools.resetType(L"KLOTZ");
  std::unique_ptr<CZelDataItem> factory(ZEL::factorySettings());
  EXPECT_TRUE(*ZEL::cfg_get(L"*HZ_KLOTZ*") == *factory->getDir()->item(L"*HZ_KLOTZ*"));

  tools.resetType(L"FOLIE");
  EXPECT_NE(ZEL::cfg_get(L"*HZ_FOLIE*\\R"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_FOLIE*\\SN"), nullptr);
  ZEL::cfg_set(L"*HZ_FOLIE*\\SN", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
  setReal(L"*HZ_FOLIE*\\D", 3.0);
  tools.resetType(L"FOLIE");
  int sn = 0;
  ASSERT_NE(ZEL::cfg_get(L"*HZ_FOLIE*\\SN"), nullptr);
  ZEL::cfg_get(L"*HZ_FOLIE*\\SN")->get(sn);
  EXPECT_EQ(sn, 1);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_FOLIE*\\R"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_FOLIE*\\T"), nullptr);
  double d = 0;
  ZEL::cfg_get(L"*HZ_FOLIE*\\D")->get(d);
  EXPECT_DOUBLE_EQ(d, 1.0);

  // A type the tools do not know is left alone.
  tools.resetType(L"NOPE");
  tools.resetType(L"NM");
}

TEST_F(SheetTabToolsTest, APresetIsTheSectionWithoutOrigAndMode) {
  setText(L"*HZ_KLOTZ*\\MODE", L"ADMIN");
  setText(L"*HZ_KLOTZ*\\ORIG", L"2F");
  EXPECT_FALSE(QEN::obj_preset_exists(L"KLOTZ"));
  tools.saveTypeAsPreset(L"KLOTZ");
  EXPECT_TRUE(QEN::obj_preset_exists(L"KLOTZ"));
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\ORIG"), nullptr) << "the stored section loses ORIG";
  EXPECT_NE(ZEL::cfg_get(L"*HZ_KLOTZ*\\MODE"), nullptr) << "but keeps MODE";
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\*KLOTZ*\\MODE"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\*KLOTZ*\\ORIG"), nullptr);
  EXPECT_NE(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\*KLOTZ*\\B"), nullptr);
  EXPECT_EQ(QEN::obj_preset_rem(L"KLOTZ"), 1);
  EXPECT_EQ(QEN::obj_preset_rem(L"KLOTZ"), 0);
  // An empty preset directory is no preset.
  ZEL::cfg_dir_make(CZelDataKey::fromPath(L"*QEN_OBJ_PROP*\\*KLOTZ*"));
  EXPECT_FALSE(QEN::obj_preset_exists(L"KLOTZ"));
}

TEST_F(SheetTabToolsTest, CompletingTextsAddsOnlyWhatIsMissing) {
  CZelDrawing& drawing = CZelDrawing::current();
  std::unique_ptr<CZelDataItem> seal(CStoreFile::parse(R"({"TYPE": "DICHT", "NAME": "Keep"})", "t"));
  const CZelString handle = drawing.addObject(*seal);
  qenDlgEnv_st env;
  env.object = ZEL::CAdsName(handle);
  tools.completeObjectTexts(L"DICHT", env);
  CZelString name, order;
  CZelDataKey nameKey(L"NAME"), orderKey(L"ORDER"), unitKey(L"INSUNIT");
  ASSERT_TRUE(drawing.objectData(handle)->get(name, &nameKey));
  EXPECT_EQ(name, CZelString(L"Keep"));
  ASSERT_TRUE(drawing.objectData(handle)->get(order, &orderKey));
  EXPECT_TRUE(order.isEmpty());
  EXPECT_EQ(drawing.objectData(handle)->find(&unitKey), nullptr);
  tools.completeObjectTexts(L"HLBZ", env);
  EXPECT_NE(drawing.objectData(handle)->find(&unitKey), nullptr);
}

TEST_F(SheetTabToolsTest, TheHatchAssignmentFromTheMaterialWritesItsPatternScaleAndAngle) {
  auto block = stored(L"*HZ_KLOTZ*");
  QenSectionSet sections;
  bool ok = false;
  DialogRun r = runUnderScript("click 0/10354\nok\n", [&] {
    ok = tools.hatchAssignment(block.get(), sections, qenDlgEnv_st{}, false);
    return static_cast<INT_PTR>(ok);
  });
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(ok);
  int mode = -1;
  CZelString pattern;
  double scale = 0;
  ZEL::cfg_get(L"*HZ_KLOTZ*\\IS_HATCH")->get(mode);
  ZEL::cfg_get(L"*HZ_KLOTZ*\\HPNAME")->get(pattern);
  ZEL::cfg_get(L"*HZ_KLOTZ*\\HPSCALE")->get(scale);
  EXPECT_EQ(mode, 1);
  EXPECT_EQ(pattern, CZelString(L"ANSI34"));  // polypropylene's hatch
  EXPECT_DOUBLE_EQ(scale, 0.5);
  // That Cancel writes nothing is klotz_assignments'.
}

TEST_F(SheetTabToolsTest, CancellingTheLayerDialogPutsTheLayerTableBack) {
  auto block = stored(L"*HZ_KLOTZ*");
  std::unique_ptr<CZelDataItem> before(ZEL::cfg_get(L"*ZEL_LAYER*")->clone());
  bool ok = true;
  DialogRun r = runUnderScript("cancel\n", [&] {
    ok = tools.layerAssignment(block.get(), qenDlgEnv_st{});
    return static_cast<INT_PTR>(ok);
  });
  EXPECT_FALSE(ok);
  EXPECT_TRUE(*ZEL::cfg_get(L"*ZEL_LAYER*") == *before);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\PART_CON"), nullptr);
}
