// The membrane and insulation dialogs through their entry functions: the preview read back
// from the clipboard copy of the preview's context menu follows every option that changes
// the object, to scale and in the layer colours; the insulation's pick buttons end the
// dialog with the host's codes and keep "MODE"; the layer variant of the membrane.
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
  static std::string text(const wchar_t* path) {
    CZelString v;
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(v);
    return v.toUtf8();
  }
  static int integer(const wchar_t* path) {
    int v = -1;
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(v);
    return v;
  }
  static double real(const wchar_t* path) {
    double v = -1;
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(v);
    return v;
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

TEST_F(MembraneInsulationTest, ThicknessRadiusAndDivisionChangeTheMembrane) {
  // Thicker: the legs grow with the thickness (2 + 2 + 40 = 44).
  CDisplayList list = membranePreview("enter 0/10382 \"2\"\n");
  EXPECT_DOUBLE_EQ(real(L"*HZ_FOLIE*\\D"), 2.0);
  EXPECT_DOUBLE_EQ(outline(list).points[0].x, 44.0);
  EXPECT_DOUBLE_EQ(outline(list).points[1].y, 2.0);

  // No throat radius: a sharp inner corner at (D, D).
  list = membranePreview("enter 0/10383 \"0\"\n");
  EXPECT_DOUBLE_EQ(real(L"*HZ_FOLIE*\\R"), 0.0);
  const auto& sharp = outline(list);
  ASSERT_EQ(sharp.points.count(), 7);
  EXPECT_DOUBLE_EQ(sharp.points[2].x, 2.0);
  EXPECT_DOUBLE_EQ(sharp.points[2].y, 2.0);

  // A division of 5 gives twice the marks (the foil is now 2 x 40 + π/2 · 3 long: 17).
  list = membranePreview("enter 0/10384 \"5\"\n");
  EXPECT_EQ(count(list, Kind::Polyline), 1 + 16);
}

TEST_F(MembraneInsulationTest, TheRepresentationDecidesFillLinesAndHatch) {
  CDisplayList contour = membranePreview("click 10333\n");
  EXPECT_EQ(count(contour, Kind::Polyline), 1);
  EXPECT_EQ(count(contour, Kind::Fill), 0);

  CDisplayList lined = membranePreview("click 10318\n");
  EXPECT_EQ(count(lined, Kind::Fill), 0);
  // Lined keeps its division even though the field shows none for it.
  EXPECT_EQ(count(lined, Kind::Polyline), 1 + 4);

  CDisplayList hatched = membranePreview("click 10317\n");
  EXPECT_EQ(count(hatched, Kind::Fill), 0);
  bool hatchLines = false;
  for (const auto& item : hatched.items())
    if (item.kind != Kind::Polyline) {
      hatchLines = true;
      EXPECT_EQ(item.color.index(), 3);
    }
  EXPECT_TRUE(hatchLines);
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

TEST_F(MembraneInsulationTest, AThicknessChangesTheBodyAndItsStartAndEnd) {
  CDisplayList list = insulationPreview("enter 0/10382 \"80\"\n");
  EXPECT_DOUBLE_EQ(real(L"*HZ_DM*\\S"), 80.0);
  EXPECT_DOUBLE_EQ(real(L"*HZ_DM*\\E"), 80.0);
  EXPECT_DOUBLE_EQ(outline(list).points[1].x, 240.0);
  EXPECT_DOUBLE_EQ(outline(list).points[2].y, 80.0);
  // A different end thickness slopes the face.
  list = insulationPreview("enter 0/10449 \"50\"\n");
  EXPECT_DOUBLE_EQ(outline(list).points[2].y, 50.0);
  EXPECT_DOUBLE_EQ(outline(list).points[3].y, 80.0);
}

TEST_F(MembraneInsulationTest, TheConstructionShapesTheBody) {
  // A ring: the circles of the pipe and of the insulation round it.
  CDisplayList ring = insulationPreview("click 10035\n");
  EXPECT_DOUBLE_EQ(ring.extents().maxX, 200.0);
  EXPECT_DOUBLE_EQ(ring.extents().minX, -200.0);
  // A wedge starts from nothing: three vertices.
  CDisplayList wedge = insulationPreview("click 10034\n");
  ASSERT_EQ(outline(wedge).points.count(), 3);
  EXPECT_DOUBLE_EQ(outline(wedge).points[2].y, 100.0);
  // An arc is a quarter circle about the origin, inner radius two thicknesses.
  CDisplayList arc = insulationPreview("click 10033\n");
  EXPECT_NEAR(arc.extents().maxY, 300.0, 1e-9);
  // An area: 1.5 x 2 thicknesses... of a reference of 2 D.
  CDisplayList area = insulationPreview("click 10036\n");
  EXPECT_DOUBLE_EQ(area.extents().maxY, 200.0);
}

TEST_F(MembraneInsulationTest, HardnessWidthFactorHatchingAndSeparatingLineChangeTheDrawing) {
  // Soft, width factor 1.0: loops 50 wide over the 300 of the body, seven legs.
  const CDisplayList soft = insulationPreview("");
  ASSERT_EQ(count(soft, Kind::Polyline), 2);
  EXPECT_EQ(soft.items()[1].points.count(), 14);
  EXPECT_DOUBLE_EQ(soft.items()[1].points[0].x, 0.0);
  EXPECT_DOUBLE_EQ(soft.items()[1].points[1].y, 75.0);  // a leg up to the half circle of radius 25

  // Hard: two zigzags corner to corner, 100 apart, one from the base and one from the face.
  const CDisplayList hard = insulationPreview("click 0/10440\n");
  EXPECT_EQ(text(L"*HZ_DM*\\DRAW"), "H");
  ASSERT_EQ(count(hard, Kind::Polyline), 3);
  const auto& zig = hard.items()[1];
  ASSERT_EQ(zig.points.count(), 4);
  EXPECT_DOUBLE_EQ(zig.points[0].y, 0.0);
  EXPECT_DOUBLE_EQ(zig.points[1].x, 100.0);
  EXPECT_DOUBLE_EQ(zig.points[1].y, 100.0);
  EXPECT_DOUBLE_EQ(hard.items()[2].points[0].y, 100.0);
  EXPECT_EQ(zig.color.index(), 3);

  // Width factor 0.5: the soft loops are half as wide, twice as many.
  SetUp();
  const CDisplayList narrow = insulationPreview("click 10027\n");
  EXPECT_EQ(integer(L"*HZ_DM*\\WIDTH"), 1);
  ASSERT_EQ(count(narrow, Kind::Polyline), 2);
  EXPECT_EQ(narrow.items()[1].points.count(), 26);

  // Contour: the outline alone; hatched: the outline and the first hatch on the fill layer.
  const CDisplayList contour = insulationPreview("click 10453\n");
  EXPECT_EQ(count(contour, Kind::Polyline), 1);
  EXPECT_EQ(contour.items().size(), 1u);
  const CDisplayList hatched = insulationPreview("click 10441\n");
  EXPECT_EQ(count(hatched, Kind::Polyline), 1);
  bool hatchLines = false;
  for (const auto& item : hatched.items())
    if (item.kind != Kind::Polyline) {
      hatchLines = true;
      EXPECT_EQ(item.color.index(), 3);
    }
  EXPECT_TRUE(hatchLines);

  // The separating line at half the thickness, and a symbol in each half.
  SetUp();
  const CDisplayList separated = insulationPreview("click 10442\n");
  bool middle = false;
  for (const auto& item : separated.items())
    if (item.kind == Kind::Polyline && item.points.count() == 2 && item.points[0].y == 50.0 && item.points[1].y == 50.0)
      middle = true;
  EXPECT_TRUE(middle);
  EXPECT_EQ(count(separated, Kind::Polyline), 1 + 1 + 2);
}

TEST_F(MembraneInsulationTest, AMissingHardnessReadsAsHardAndAMissingHatchingFollowsIt) {
  ZEL::cfg_remove(L"*HZ_DM*\\DRAW");
  ZEL::cfg_remove(L"*HZ_DM*\\HATCH");
  DialogRun r = runInsulation(
      "expect 0/10440 checked\nexpect 0/10439 unchecked\nexpect 10447 checked\nexpect 10334 disabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  // DRAW "S" (shown as hard) with no hatching reads as hatched, and "S" can be used.
  ZEL::cfg_set(L"*HZ_DM*\\DRAW", ZEL::mkDataItem(ZEL::mkResbuf(L"S")), true);
  r = runInsulation("expect 0/10440 checked\nexpect 10441 checked\nexpect 10334 enabled\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  // The preview follows the same reading: the hatch instead of the symbol.
  const CDisplayList list = insulationPreview("");
  EXPECT_EQ(count(list, Kind::Polyline), 1);
  EXPECT_GT(list.items().size(), 1u);
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

TEST_F(MembraneInsulationTest, ThePickButtonsEndWithTheHostsCodesAndKeepMode) {
  const struct {
    const char* button;
    int code;
  } picks[] = {{"0/10444", 2}, {"0/10445", 3}, {"0/10446", 4}};
  for (const auto& p : picks) {
    SetUp();
    DialogRun r = runInsulation(std::string("click ") + p.button + "\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.result, p.code);
    ASSERT_NE(ZEL::cfg_get(L"*HZ_DM*\\MODE"), nullptr);
  }
  // "Basislinie <" is for an existing insulation only.
  SetUp();
  ZEL::cfg_set(L"*HZ_DM*\\ORIG", ZEL::mkDataItem(ZEL::mkResbuf(L"5A", RTENAME)), true);
  DialogRun r = runInsulation("click 0/10450\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 5);
}

}  // namespace
