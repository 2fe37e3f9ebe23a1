// The silicone dialog through its entry function: the preview of the factory joint, read
// back by coordinates and colours from the clipboard copy of the preview's context menu;
// and an edited joint.
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using Kind = CDisplayList::Kind;

class SiliconeTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/seals.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun runSilicone(const std::string& script) {
    qenDlgEnv_st env;
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgHzSi(env)); });
  }
  static const CDisplayList& copyPreview(const std::string& before) {
    const int copies = CDialogBackend::lastClipboardCopy().count;
    DialogRun r = runSilicone(before + "menu 10379 5 5\nchoose 10114\nok\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(CDialogBackend::lastClipboardCopy().count, copies + 1);
    return CDialogBackend::lastClipboardCopy().picture;
  }
  static std::vector<const CDisplayList::Item*> itemsOf(const CDisplayList& list, Kind kind) {
    std::vector<const CDisplayList::Item*> found;
    for (const auto& item : list.items())
      if (item.kind == kind) found.push_back(&item);
    return found;
  }
  static void expectPoint(const ZelVertex& v, double x, double y, const char* what) {
    EXPECT_NEAR(v.x, x, 1e-9) << what;
    EXPECT_NEAR(v.y, y, 1e-9) << what;
  }
};

}  // namespace

TEST_F(SiliconeTest, TheFactoryJointIsSiliconeOverACordBothHatchedInTheLayerColours) {
  const CDisplayList& picture = copyPreview("");
  const auto paths = itemsOf(picture, Kind::Polyline);
  ASSERT_EQ(paths.size(), 2u);
  // The silicone between the flanks of the 12 mm gap: the concave face, down the right
  // flank to the cord's centre depth 10, round the cord, up the left flank.
  const CZelVertexArray& silicone = paths[0]->points;
  ASSERT_EQ(silicone.count(), 4);
  expectPoint(silicone[0], 0, 0, "face start");
  EXPECT_NEAR(silicone[0].bulge, -0.25, 1e-12);  // sagging 1.5 into the joint
  expectPoint(silicone[1], 12, 0, "face end");
  expectPoint(silicone[2], 12, 10, "right flank");
  EXPECT_DOUBLE_EQ(silicone[2].bulge, -1.0);
  expectPoint(silicone[3], 0, 10, "left flank");
  // The cord: a circle of 12 mm round (6, 10).
  const CZelVertexArray& cord = paths[1]->points;
  ASSERT_EQ(cord.count(), 2);
  expectPoint(cord[0], 0, 10, "cord left");
  expectPoint(cord[1], 12, 10, "cord right");
  for (const auto* path : paths) EXPECT_EQ(path->color.index(), 5);
  const auto hatches = itemsOf(picture, Kind::Segments);
  ASSERT_EQ(hatches.size(), 2u);
  for (const auto* hatch : hatches) EXPECT_EQ(hatch->color.index(), 3);
  EXPECT_NEAR(picture.view.maxY, 16.0, 1e-9);
}

TEST_F(SiliconeTest, AnEditedJointKeepsItsOutlineAndAnEditWithoutAJointLocksTheSizes) {
  ZEL::cfg_set(L"QEN_MENU\\SILIKON", ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
  ZEL::cfg_set(L"*HZ_SILIKON*\\ORIG", ZEL::mkDataItem(ZEL::mkRbBool(true)), true);
  DialogRun r = runSilicone("expect 0/10400 disabled\nexpect 0/10389 enabled\nexpect 10395 disabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  CZelVertexArray vl;
  ASSERT_NE(ZEL::cfg_get(L"*HZ_SILIKON*\\VL"), nullptr);
  ASSERT_TRUE(ZEL::cfg_get(L"*HZ_SILIKON*\\VL")->get(vl));
  ASSERT_EQ(vl.count(), 4);
  expectPoint(vl[2], 12, 10, "far half of the cord");

  ZEL::cfg_set(L"*HZ_SILIKON*\\ORIG", ZEL::mkDataItem(ZEL::mkRbBool(false)), true);
  r = runSilicone("expect 0/10400 disabled\nexpect 0/10389 disabled\nexpect 0/10130 disabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}
