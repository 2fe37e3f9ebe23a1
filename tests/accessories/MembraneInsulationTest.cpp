// The membrane and insulation dialogs through their entry functions: the preview read back
// from the clipboard copy of the preview's context menu follows every option that changes
// the object, to scale and in the layer colours; the insulation's base-line pick ends the
// dialog with the host's code and keeps "MODE"; the layer variant of the membrane.
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "tests/support/DialogRun.h"
#include "ui/CDialog.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Kind = CDisplayList::Kind;

class MembraneInsulationTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/blocks.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun runMembrane(const std::string& script) {
    return runUnderScript(script, [] {
      qenDlgEnv_st env;
      return static_cast<INT_PTR>(qenDlgHzFo(env));
    });
  }
  static DialogRun runInsulation(const std::string& script) {
    return runUnderScript(script, [] {
      qenDlgEnv_st env;
      return static_cast<INT_PTR>(qenDlgDm(env));
    });
  }
  // The preview as the clipboard got it, after the script's steps.
  static CDisplayList membranePreview(const std::string& steps) {
    DialogRun r = runMembrane(steps + "menu 10379 5 5\nchoose 10114\nok\n");
    EXPECT_EQ(r.status, 0) << r.err;
    return CDialogBackend::lastClipboardCopy().picture;
  }
  static CDisplayList insulationPreview(const std::string& steps) {
    DialogRun r = runInsulation(steps + "menu 10379 5 5\nchoose 10114\nok\n");
    EXPECT_EQ(r.status, 0) << r.err;
    return CDialogBackend::lastClipboardCopy().picture;
  }
};

int count(const CDisplayList& list, Kind kind) {
  int n = 0;
  for (const auto& item : list.items()) n += item.kind == kind;
  return n;
}

const CDisplayList::Item* first(const CDisplayList& list, Kind kind) {
  for (const auto& item : list.items())
    if (item.kind == kind) return &item;
  return nullptr;
}

// The closed outline: the first polyline drawn.
const CDisplayList::Item& outline(const CDisplayList& list) {
  static const CDisplayList::Item none{};
  const CDisplayList::Item* item = first(list, Kind::Polyline);
  EXPECT_NE(item, nullptr);
  return item ? *item : none;
}

// --- membrane -------------------------------------------------------------------------------------

TEST_F(MembraneInsulationTest, TheFactoryMembraneIsDrawnFilledAndDividedToScale) {
  // 1 mm thick, throat radius 2, legs of twenty thicknesses past the bend.
  const CDisplayList list = membranePreview("");
  const auto& o = outline(list);
  ASSERT_EQ(o.points.count(), 8);
  EXPECT_DOUBLE_EQ(o.points[0].x, 23.0);
  EXPECT_DOUBLE_EQ(o.points[0].y, 0.0);
  EXPECT_DOUBLE_EQ(o.points[1].y, 1.0);
  EXPECT_DOUBLE_EQ(o.points[2].x, 3.0);  // the visible face turns round the throat
  EXPECT_DOUBLE_EQ(o.points[3].x, 1.0);
  EXPECT_DOUBLE_EQ(o.points[3].y, 3.0);
  EXPECT_DOUBLE_EQ(o.points[5].y, 23.0);
  EXPECT_EQ(o.color.index(), 5);  // the contour layer QEN_KONTUR
  const CDisplayList::Item* fill = first(list, Kind::Fill);
  ASSERT_NE(fill, nullptr);
  EXPECT_EQ(fill->color.index(), 3);  // the fill layer QEN_SCHRAFFUR
  // Divisions every 10 along the middle of a foil 2 x 20 + π/2 · 2.5 long: four marks.
  EXPECT_EQ(count(list, Kind::Polyline), 1 + 4);
  EXPECT_DOUBLE_EQ(list.extents().maxX, 23.0);
  EXPECT_DOUBLE_EQ(list.extents().maxY, 23.0);
}

TEST_F(MembraneInsulationTest, ALayerOfABuildUpIsTitledSchichtHasNoRadiusAndLosesItsMarkerOnOk) {
  ZEL::cfg_set(L"*HZ_FOLIE*\\SN", ZEL::mkDataItem(ZEL::mkResbuf(L"1")), true);
  DialogRun r = runMembrane(
      "expect dialog text \"Schicht\"\nexpect 0/10383 disabled\nexpect 0/10383 text \"\"\n"
      "expect 0/10382 text \"1 mm\"\nexpect 0/10384 enabled\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_FOLIE*\\SN"), nullptr);
  // Cancel removes it as well; the next opening is a membrane.
  ZEL::cfg_set(L"*HZ_FOLIE*\\SN", ZEL::mkDataItem(ZEL::mkResbuf(L"1")), true);
  r = runMembrane("cancel\n");
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_FOLIE*\\SN"), nullptr);
  r = runMembrane("expect dialog text \"Folie\"\nexpect 0/10383 enabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

// --- insulation -----------------------------------------------------------------------------------

TEST_F(MembraneInsulationTest, TheFactoryInsulationIsAStraightSoftBodyWithItsLoopLine) {
  // 100 thick, three thicknesses long, the loop line of soft insulation on the fill layer.
  const CDisplayList list = insulationPreview("");
  const auto& o = outline(list);
  ASSERT_EQ(o.points.count(), 4);
  EXPECT_DOUBLE_EQ(o.points[0].x, 0.0);
  EXPECT_DOUBLE_EQ(o.points[1].x, 300.0);
  EXPECT_DOUBLE_EQ(o.points[2].y, 100.0);
  EXPECT_DOUBLE_EQ(o.points[3].x, 0.0);
  EXPECT_EQ(o.color.index(), 5);
  ASSERT_GE(count(list, Kind::Polyline), 2);
  const CDisplayList::Item& symbol = list.items()[1].kind == Kind::Polyline ? list.items()[1] : o;
  EXPECT_EQ(symbol.color.index(), 3);
  EXPECT_DOUBLE_EQ(list.extents().maxX, 300.0);
}

TEST_F(MembraneInsulationTest, OpenedFromAnotherDialogTheInsulationNeitherPicksNorCutsIslands) {
  CDialog owner;
  DialogRun r = runUnderScript(
      "expect 10443 disabled\nexpect 0/10444 disabled\nexpect 0/10445 disabled\nexpect 0/10446 disabled\n"
      "expect 10442 enabled\ncancel\n",
      [&] {
        qenDlgEnv_st env;
        env.m_parent = &owner;
        return static_cast<INT_PTR>(qenDlgDm(env));
      });
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
}

// The thickness picks end with 2, 3 and 4 (see the dm_pick_* scripts); "Basislinie <" is
// for an existing insulation only and ends with 5.
TEST_F(MembraneInsulationTest, TheBaseLinePickOfAnExistingInsulationEndsWithFiveAndKeepsMode) {
  ZEL::cfg_set(L"*HZ_DM*\\ORIG", ZEL::mkDataItem(ZEL::mkResbuf(L"5A", RTENAME)), true);
  DialogRun r = runInsulation("click 0/10450\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 5);
  EXPECT_NE(ZEL::cfg_get(L"*HZ_DM*\\MODE"), nullptr);
}

}  // namespace
