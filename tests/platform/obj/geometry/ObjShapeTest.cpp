// Shapes read from object sections: the factory sections, the dialogs' defaults for
// missing values, and representations chosen by each type's own letters.
#include "obj/ZelObjShape.h"

#include "data/CStoreFile.h"
#include "data/ZelFactorySettings.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <memory>

using namespace ZEL::geo;

namespace {

class ObjShapeTest : public ::testing::Test {
protected:
  void SetUp() override { m_factory.reset(ZEL::factorySettings()); }
  const CZelDataItem* factorySection(const wchar_t* name) const {
    CZelDataKey key(name);
    return m_factory->find(&key);
  }
  static std::unique_ptr<CZelDataItem> section(const char* json) {
    return std::unique_ptr<CZelDataItem>(CStoreFile::parse(json, "section"));
  }
  std::unique_ptr<CZelDataItem> m_factory;
};

}  // namespace

TEST_F(ObjShapeTest, FactoryBlockSpansThirtyByFive) {
  const CZelDataItem* s = factorySection(L"*HZ_KLOTZ*");
  ASSERT_NE(s, nullptr);
  const Shape shape = ZEL::objShape(s);
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape.outline);
  EXPECT_DOUBLE_EQ(box.minX, 0.0);
  EXPECT_DOUBLE_EQ(box.minY, 0.0);
  EXPECT_DOUBLE_EQ(box.maxX, 30.0);
  EXPECT_DOUBLE_EQ(box.maxY, 5.0);
  // Standard representation: outline and cross, nothing filled.
  EXPECT_EQ(shape.paths.size(), 3u);
  EXPECT_TRUE(shape.areas.empty());
}

TEST_F(ObjShapeTest, FactorySealSpansTenByThreeHatched) {
  const Shape shape = ZEL::objShape(factorySection(L"*HZ_DICHT*"));
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape);
  EXPECT_DOUBLE_EQ(box.width(), 10.0);
  EXPECT_DOUBLE_EQ(box.height(), 3.0);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 1), 1);
}

TEST_F(ObjShapeTest, BlockReadsChamferCornersAndRepresentation) {
  auto s = section(R"({"TYPE": "KLOTZ", "B": 30.0, "H": 6.0, "CHAMFER": 1.0, "CHF_FLAG": 1, "HATCH": "M"})");
  const Shape shape = ZEL::objShape(s.get());
  ASSERT_EQ(shape.outline.count(), 5);
  EXPECT_DOUBLE_EQ(shape.outline[0].x, 1.0);
  EXPECT_DOUBLE_EQ(shape.outline[0].y, 0.0);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 1), 1);

  auto outline = section(R"({"TYPE": "KLOTZ", "B": 30, "H": 6, "HATCH": "R"})");  // integers read as reals
  const Shape o = ZEL::objShape(outline.get());
  EXPECT_EQ(o.paths.size(), 1u);
  EXPECT_TRUE(o.areas.empty());
  EXPECT_DOUBLE_EQ(geotest::extents(o).width(), 30.0);
}

TEST_F(ObjShapeTest, RepresentationLettersAreReadPerType) {
  // "N" is the standard block but the seal's outline.
  auto blockN = section(R"({"TYPE": "KLOTZ", "B": 30.0, "H": 5.0, "HATCH": "N"})");
  auto sealN = section(R"({"TYPE": "DICHT", "B": 30.0, "H": 5.0, "HATCH": "N"})");
  EXPECT_EQ(ZEL::objShape(blockN.get()).paths.size(), 3u);
  const Shape seal = ZEL::objShape(sealN.get());
  EXPECT_EQ(seal.paths.size(), 1u);
  EXPECT_TRUE(seal.areas.empty());
}

TEST_F(ObjShapeTest, MissingSizesReadAsZeroAndGiveNoShape) {
  auto block = section(R"({"TYPE": "KLOTZ", "HATCH": "M"})");
  EXPECT_TRUE(ZEL::objShape(block.get()).isEmpty());
  auto seal = section(R"({"TYPE": "DICHT", "B": 10.0})");
  EXPECT_TRUE(ZEL::objShape(seal.get()).isEmpty());
  auto wrongType = section(R"({"TYPE": "DICHT", "B": "10", "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(wrongType.get()).isEmpty());
}

TEST_F(ObjShapeTest, NoSectionOrUnknownTypeGivesNoShape) {
  EXPECT_TRUE(ZEL::objShape(nullptr).isEmpty());
  auto unknown = section(R"({"TYPE": "HLBZ", "B": 10.0, "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(unknown.get()).isEmpty());
  auto untyped = section(R"({"B": 10.0, "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(untyped.get()).isEmpty());
}

TEST_F(ObjShapeTest, FactorySiliconeIsATwelveMillimetreJointOverItsCord) {
  const Shape shape = ZEL::objShape(factorySection(L"*HZ_SILIKON*"));
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape.outline);
  EXPECT_NEAR(box.minX, 0.0, 1e-6);
  EXPECT_NEAR(box.maxX, 12.0, 1e-6);
  EXPECT_NEAR(box.minY, 0.0, 1e-6);
  EXPECT_NEAR(box.maxY, 16.0, 1e-6);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 1), 1);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 2), 1);
  EXPECT_LT(shape.paths[0].points[0].bulge, 0.0);  // variant 1: the concave face
}

TEST_F(ObjShapeTest, SiliconeAngleTurnsOnlyAJointWithoutCord) {
  auto withCord = section(R"({"TYPE": "SILIKON", "CONS": "D", "VAR": 2, "B": 12.0, "W": 1.5707963267948966})");
  EXPECT_DOUBLE_EQ(ZEL::objShape(withCord.get()).paths[0].points[1].x, 12.0);
  auto without = section(R"({"TYPE": "SILIKON", "CONS": "V", "VAR": 2, "B": 12.0, "W": 1.5707963267948966,
                             "HATCH": "N", "HATCH2": "K"})");
  const Shape turned = ZEL::objShape(without.get());
  EXPECT_NEAR(turned.paths[0].points[1].x, 0.0, 1e-12);
  EXPECT_NEAR(turned.paths[0].points[1].y, 12.0, 1e-12);
  EXPECT_EQ(turned.paths.size(), 1u);  // no cord
  EXPECT_TRUE(turned.areas.empty());   // "N": silicone not hatched; no cord to hatch
}

TEST_F(ObjShapeTest, SiliconeWithoutVariantDrawsTheFirst) {
  auto missing = section(R"({"TYPE": "SILIKON", "CONS": "D", "B": 12.0})");
  auto first = section(R"({"TYPE": "SILIKON", "CONS": "D", "VAR": 1, "B": 12.0})");
  EXPECT_FALSE(ZEL::objShape(missing.get()).isEmpty());
  EXPECT_EQ(ZEL::objShape(missing.get()), ZEL::objShape(first.get()));
}

TEST_F(ObjShapeTest, FactoryMembraneIsAFilledMillimetreFoil) {
  const Shape shape = ZEL::objShape(factorySection(L"*HZ_FOLIE*"));
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape.outline);
  EXPECT_NEAR(box.width(), 23.0, 1e-6);  // radius 2 + thickness 1 + twenty thicknesses
  EXPECT_NEAR(box.height(), 23.0, 1e-6);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Solid, 0), 1);
  EXPECT_EQ(shape.paths.size(), 5u);  // the contour and a division every 10 mm
}

TEST_F(ObjShapeTest, MembraneReadsItsRepresentation) {
  auto lined = section(R"({"TYPE": "FOLIE", "DRAW": "L", "D": 1.0, "R": 2.0, "T": 10.0})");
  const Shape l = ZEL::objShape(lined.get());
  EXPECT_EQ(l.paths.size(), 5u);
  EXPECT_TRUE(l.areas.empty());
  auto hatched = section(R"({"TYPE": "FOLIE", "DRAW": "S", "D": 1.0})");
  EXPECT_EQ(geotest::countAreas(ZEL::objShape(hatched.get()), Area::Fill::Hatch, 1), 1);
  auto contour = section(R"({"TYPE": "FOLIE", "DRAW": "K", "D": 1.0})");
  EXPECT_TRUE(ZEL::objShape(contour.get()).areas.empty());
  auto layer = section(R"({"TYPE": "FOLIE", "SN": 1, "DRAW": "F", "D": 1.0})");  // no radius: a sharp corner
  EXPECT_EQ(ZEL::objShape(layer.get()).outline.count(), 7);
}

TEST_F(ObjShapeTest, FactoryInsulationIsSoftStraightAndFilledWithLoops) {
  const Shape shape = ZEL::objShape(factorySection(L"*HZ_DM*"));
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape.outline);
  EXPECT_DOUBLE_EQ(box.width(), 300.0);
  EXPECT_DOUBLE_EQ(box.height(), 100.0);
  ASSERT_EQ(geotest::countPaths(shape, Layer::Fill), 1);
  EXPECT_EQ(shape.paths[1].points.count(), 14);  // seven legs 50 apart: width factor 1.0
  EXPECT_TRUE(shape.areas.empty());
}

TEST_F(ObjShapeTest, InsulationReadsDrawWidthAndHatchWithTheirDefaults) {
  auto hard = section(R"({"TYPE": "DM", "CONS": "G", "DRAW": "X", "WIDTH": 1, "D": 100.0, "HATCH": "F"})");
  const Shape h = ZEL::objShape(hard.get());
  ASSERT_EQ(geotest::countPaths(h, Layer::Fill), 2);  // anything but "W" is hard
  EXPECT_DOUBLE_EQ(h.paths[1].points[1].x - h.paths[1].points[0].x, 50.0);  // factor 0.5

  auto noWidth = section(R"({"TYPE": "DM", "DRAW": "W", "D": 100.0, "HATCH": "F"})");
  EXPECT_EQ(ZEL::objShape(noWidth.get()).paths[1].points.count(), 14);

  // An empty representation is hatched when DRAW is "S", else filled.
  auto hatchedByDraw = section(R"({"TYPE": "DM", "DRAW": "S", "D": 100.0, "HATCH": ""})");
  EXPECT_EQ(geotest::countAreas(ZEL::objShape(hatchedByDraw.get()), Area::Fill::Hatch, 1), 1);
  auto filledByDefault = section(R"({"TYPE": "DM", "DRAW": "W", "D": 100.0})");
  EXPECT_EQ(geotest::countPaths(ZEL::objShape(filledByDefault.get()), Layer::Fill), 1);
  auto contour = section(R"({"TYPE": "DM", "DRAW": "W", "D": 100.0, "HATCH": "K", "TR": 1})");
  const Shape c = ZEL::objShape(contour.get());
  EXPECT_EQ(geotest::countPaths(c, Layer::Fill), 0);
  EXPECT_EQ(geotest::countPaths(c, Layer::Contour), 2);  // with the separating line

  auto ring = section(R"({"TYPE": "DM", "CONS": "R", "DRAW": "W", "D": 50.0})");
  EXPECT_NEAR(geotest::extents(ZEL::objShape(ring.get())).width(), 200.0, 1e-6);
  auto wedge = section(R"({"TYPE": "DM", "CONS": "K", "DRAW": "W", "D": 50.0, "S": 50.0, "E": 80.0})");
  EXPECT_EQ(ZEL::objShape(wedge.get()).outline.count(), 3);
}

TEST_F(ObjShapeTest, FactoryAxisIsAFiftyMillimetreGlazingAxis) {
  const Shape shape = ZEL::objShape(factorySection(L"*AXIS*"));
  ASSERT_FALSE(shape.isEmpty());
  ASSERT_EQ(geotest::countPaths(shape, Layer::Axis), 1);
  EXPECT_DOUBLE_EQ(geotest::extents(shape).width(), 50.0);
  EXPECT_TRUE(shape.areas.empty());  // outline representation
  EXPECT_EQ(shape.paths.size(), 3u);  // the line and two arrow heads: no clamping for glazing
}

TEST_F(ObjShapeTest, AxisClampingNeedsAnInfillAndTheFlag) {
  auto panel = section(R"({"TYPE": "AXIS", "CONS": "PANEL", "LEN": 50.0, "GD": 15.0, "IS_GD": 1, "HATCH": "S"})");
  const Shape p = ZEL::objShape(panel.get());
  EXPECT_EQ(p.paths.size(), 4u);  // line, bar at the start, clamping mark, arrow head
  EXPECT_EQ(geotest::countAreas(p, Area::Fill::Hatch, 1), 1);
  auto unflagged = section(R"({"TYPE": "AXIS", "CONS": "PANEL", "LEN": 50.0, "GD": 15.0})");
  EXPECT_EQ(ZEL::objShape(unflagged.get()).paths.size(), 3u);
  auto glazing = section(R"({"TYPE": "AXIS", "CONS": "GLAZING", "LEN": 50.0, "GD": 15.0, "IS_GD": 1})");
  EXPECT_EQ(ZEL::objShape(glazing.get()).paths.size(), 3u);
  auto noLength = section(R"({"TYPE": "AXIS", "CONS": "PLAN"})");
  EXPECT_TRUE(ZEL::objShape(noLength.get()).isEmpty());
}

TEST_F(ObjShapeTest, EveryFactoryAccessoryHasAFiniteShape) {
  for (const wchar_t* name : {L"*HZ_KLOTZ*", L"*HZ_DICHT*", L"*HZ_SILIKON*", L"*HZ_FOLIE*", L"*HZ_DM*", L"*AXIS*"}) {
    const Shape shape = ZEL::objShape(factorySection(name));
    EXPECT_FALSE(shape.isEmpty()) << name;
    EXPECT_FALSE(shape.outline.isEmpty()) << name;
    EXPECT_TRUE(geotest::allFinite(shape)) << name;
  }
}
