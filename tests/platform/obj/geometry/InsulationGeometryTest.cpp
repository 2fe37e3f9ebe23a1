// Insulation: the bodies of the constructions, the soft and hard symbols, the width
// factor, the separating line and the representations.
#include "obj/geometry/ZelInsulationGeometry.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace ZEL::geo;

namespace {

constexpr double kPi = 3.14159265358979323846;

InsulationParams insulation(InsulationCons cons, bool soft, double factor = 1.0,
                            InsulationDraw draw = InsulationDraw::Filled, bool tr = false) {
  InsulationParams p;
  p.cons = cons;
  p.soft = soft;
  p.thickness = 100.0;
  p.start = 100.0;
  p.end = 100.0;
  p.widthFactor = factor;
  p.draw = draw;
  p.separatingLine = tr;
  return p;
}

std::vector<Path> symbol(const Shape& s) {
  std::vector<Path> out;
  for (const Path& p : s.paths)
    if (p.layer == Layer::Fill) out.push_back(p);
  return out;
}

// The x of the upright legs of a straight loop line.
std::vector<double> legs(const Path& loops) {
  std::vector<double> xs;
  for (int i = 0; i + 1 < loops.points.count(); i += 2) {
    EXPECT_DOUBLE_EQ(loops.points[i].x, loops.points[i + 1].x);
    xs.push_back(loops.points[i].x);
  }
  return xs;
}

void expectVertex(const CZelVertexArray& v, int i, double x, double y) {
  ASSERT_LT(i, v.count());
  EXPECT_NEAR(v[i].x, x, 1e-9) << "vertex " << i;
  EXPECT_NEAR(v[i].y, y, 1e-9) << "vertex " << i;
}

}  // namespace

TEST(InsulationGeometry, StraightBodyIsThreeThicknessesLong) {
  const Shape s = insulationShape(insulation(InsulationCons::Straight, true));
  ASSERT_EQ(s.outline.count(), 4);
  expectVertex(s.outline, 0, 0.0, 0.0);
  expectVertex(s.outline, 1, 300.0, 0.0);
  expectVertex(s.outline, 2, 300.0, 100.0);
  expectVertex(s.outline, 3, 0.0, 100.0);
  EXPECT_EQ(geotest::countPaths(s, Layer::Contour), 1);
  EXPECT_EQ(s.paths[0].points, s.outline);
}

TEST(InsulationGeometry, SoftInsulationIsALoopLineTouchingBothFaces) {
  const Shape s = insulationShape(insulation(InsulationCons::Straight, true));
  const auto sym = symbol(s);
  ASSERT_EQ(sym.size(), 1u);
  const CZelVertexArray& v = sym[0].points;
  EXPECT_FALSE(sym[0].closed);
  EXPECT_EQ(legs(sym[0]), std::vector<double>({0, 50, 100, 150, 200, 250, 300}));
  expectVertex(v, 0, 0.0, 25.0);
  expectVertex(v, 1, 0.0, 75.0);
  EXPECT_DOUBLE_EQ(v[1].bulge, -1.0);  // over the top
  EXPECT_DOUBLE_EQ(v[3].bulge, 1.0);   // under the bottom
  EXPECT_DOUBLE_EQ(v[v.count() - 1].bulge, 0.0);
  const geotest::Box box = geotest::extents(v, false);
  EXPECT_NEAR(box.minY, 0.0, 1e-6);
  EXPECT_NEAR(box.maxY, 100.0, 1e-6);
}

TEST(InsulationGeometry, HardInsulationIsACrissCrossOfTwoZigzags) {
  const Shape s = insulationShape(insulation(InsulationCons::Straight, false));
  const auto sym = symbol(s);
  ASSERT_EQ(sym.size(), 2u);
  const double up[4][2] = {{0, 0}, {100, 100}, {200, 0}, {300, 100}};
  ASSERT_EQ(sym[0].points.count(), 4);
  ASSERT_EQ(sym[1].points.count(), 4);
  for (int i = 0; i < 4; ++i) {
    expectVertex(sym[0].points, i, up[i][0], up[i][1]);
    expectVertex(sym[1].points, i, up[i][0], 100.0 - up[i][1]);
    EXPECT_EQ(sym[0].points[i].bulge, 0.0);
  }
  EXPECT_NE(s, insulationShape(insulation(InsulationCons::Straight, true)));
}

TEST(InsulationGeometry, WidthFactorSetsThePitch) {
  const auto at = [](double factor) {
    return legs(symbol(insulationShape(insulation(InsulationCons::Straight, true, factor)))[0]);
  };
  const auto half = at(0.5);
  ASSERT_EQ(half.size(), 13u);
  EXPECT_DOUBLE_EQ(half[1] - half[0], 25.0);
  // 0.8: legs 40 apart, the seven halves that fit centred in the 300.
  const auto eight = at(0.8);
  ASSERT_EQ(eight.size(), 8u);
  EXPECT_DOUBLE_EQ(eight[0], 10.0);
  EXPECT_DOUBLE_EQ(eight[1] - eight[0], 40.0);
  EXPECT_DOUBLE_EQ(eight.back(), 290.0);

  const auto hard = symbol(insulationShape(insulation(InsulationCons::Straight, false, 0.6)));
  ASSERT_EQ(hard[0].points.count(), 6);
  EXPECT_DOUBLE_EQ(hard[0].points[1].x - hard[0].points[0].x, 60.0);
}

TEST(InsulationGeometry, SeparatingLineMakesTwoLayersWithTheirOwnSymbol) {
  const Shape s = insulationShape(insulation(InsulationCons::Straight, true, 1.0, InsulationDraw::Filled, true));
  ASSERT_EQ(geotest::countPaths(s, Layer::Contour), 2);
  const CZelVertexArray& line = s.paths[1].points;
  expectVertex(line, 0, 0.0, 50.0);
  expectVertex(line, 1, 300.0, 50.0);
  const auto sym = symbol(s);
  ASSERT_EQ(sym.size(), 2u);
  const geotest::Box lower = geotest::extents(sym[0].points, false);
  const geotest::Box upper = geotest::extents(sym[1].points, false);
  EXPECT_NEAR(lower.minY, 0.0, 1e-6);
  EXPECT_NEAR(lower.maxY, 50.0, 1e-6);
  EXPECT_NEAR(upper.minY, 50.0, 1e-6);
  EXPECT_NEAR(upper.maxY, 100.0, 1e-6);
  EXPECT_EQ(legs(sym[0]).size(), 13u);  // the pitch follows the layer's thickness
}

TEST(InsulationGeometry, RepresentationDecidesSymbolAndHatch) {
  const Shape contour = insulationShape(insulation(InsulationCons::Straight, true, 1.0, InsulationDraw::Contour));
  EXPECT_TRUE(symbol(contour).empty());
  EXPECT_TRUE(contour.areas.empty());
  const Shape filled = insulationShape(insulation(InsulationCons::Straight, true, 1.0, InsulationDraw::Filled));
  EXPECT_FALSE(symbol(filled).empty());
  EXPECT_TRUE(filled.areas.empty());
  const Shape hatched = insulationShape(insulation(InsulationCons::Straight, true, 1.0, InsulationDraw::Hatched));
  EXPECT_TRUE(symbol(hatched).empty());
  ASSERT_EQ(hatched.areas.size(), 1u);
  EXPECT_EQ(hatched.areas[0].fill, Area::Fill::Hatch);
  EXPECT_EQ(hatched.areas[0].hatch, 1);
  EXPECT_EQ(hatched.areas[0].outline, hatched.outline);
}

TEST(InsulationGeometry, StartAndEndThicknessShapeTheStraightBody) {
  InsulationParams p = insulation(InsulationCons::Straight, false);
  p.start = 50.0;
  p.end = 120.0;
  const Shape s = insulationShape(p);
  ASSERT_EQ(s.outline.count(), 4);
  expectVertex(s.outline, 1, 360.0, 0.0);
  expectVertex(s.outline, 2, 360.0, 120.0);
  expectVertex(s.outline, 3, 0.0, 50.0);
  // The zigzags stay between base and face.
  for (const Path& z : symbol(s))
    for (const ZelVertex& v : z.points) {
      EXPECT_GE(v.y, -1e-9);
      EXPECT_LE(v.y, 50.0 + 70.0 * v.x / 360.0 + 1e-9);
    }
  p.start = 0.0;  // not a usable size: the thickness
  expectVertex(insulationShape(p).outline, 3, 0.0, 100.0);
}

TEST(InsulationGeometry, WedgeGrowsFromNothingToTheEndThickness) {
  InsulationParams p = insulation(InsulationCons::Wedge, true);
  p.end = 60.0;
  const Shape s = insulationShape(p);
  ASSERT_EQ(s.outline.count(), 3);
  expectVertex(s.outline, 0, 0.0, 0.0);
  expectVertex(s.outline, 1, 180.0, 0.0);
  expectVertex(s.outline, 2, 180.0, 60.0);
  for (const Path& l : symbol(s))
    for (const ZelVertex& v : l.points) {
      EXPECT_GE(v.y, -1e-9);
      EXPECT_LE(v.y, v.x / 3.0 + 1e-9);
    }
}

TEST(InsulationGeometry, ArcIsAQuarterRingWithTheSymbolInside) {
  const Shape s = insulationShape(insulation(InsulationCons::Arc, true));
  const geotest::Box box = geotest::extents(s.outline);
  EXPECT_NEAR(box.minX, 0.0, 1e-6);
  EXPECT_NEAR(box.minY, 0.0, 1e-6);
  EXPECT_NEAR(box.maxX, 300.0, 1e-6);
  EXPECT_NEAR(box.maxY, 300.0, 1e-6);
  EXPECT_NEAR(std::fabs(geotest::signedArea(s.outline)), kPi / 4.0 * (300.0 * 300.0 - 200.0 * 200.0), 1.0);
  const auto sym = symbol(s);
  ASSERT_EQ(sym.size(), 1u);
  double nearest = 1e300, farthest = 0.0;
  for (const ZelVertex& v : sym[0].points) {
    nearest = std::min(nearest, std::hypot(v.x, v.y));
    farthest = std::max(farthest, std::hypot(v.x, v.y));
  }
  EXPECT_NEAR(nearest, 200.0, 1e-6);
  EXPECT_NEAR(farthest, 300.0, 1e-6);
}

TEST(InsulationGeometry, RingIsPipeInsulationWithAClosedSymbol) {
  for (bool soft : {true, false}) {
    const Shape s = insulationShape(insulation(InsulationCons::Ring, soft, 1.0, InsulationDraw::Filled, true));
    ASSERT_GE(s.paths.size(), 3u);
    EXPECT_EQ(geotest::extents(s.paths[0].points).width(), 400.0);
    EXPECT_NEAR(geotest::extents(s.paths[1].points).width(), 200.0, 1e-6);
    EXPECT_NEAR(geotest::extents(s.paths[2].points).width(), 300.0, 1e-6);  // the separating line
    EXPECT_NEAR(geotest::signedArea(s.outline), kPi * (200.0 * 200.0 - 100.0 * 100.0), 1.0);
    const auto sym = symbol(s);
    ASSERT_EQ(sym.size(), soft ? 2u : 4u);
    for (const Path& l : sym) {
      EXPECT_TRUE(l.closed);
      for (const ZelVertex& v : l.points) {
        EXPECT_GE(std::hypot(v.x, v.y), 100.0 - 1e-6);
        EXPECT_LE(std::hypot(v.x, v.y), 200.0 + 1e-6);
      }
    }
  }
}

TEST(InsulationGeometry, AreaIsLaidInRowsSeparatedOnRequest) {
  const Shape plain = insulationShape(insulation(InsulationCons::Area, true));
  const geotest::Box box = geotest::extents(plain.outline);
  EXPECT_DOUBLE_EQ(box.width(), 300.0);
  EXPECT_DOUBLE_EQ(box.height(), 200.0);
  EXPECT_EQ(symbol(plain).size(), 2u);
  EXPECT_EQ(geotest::countPaths(plain, Layer::Contour), 1);
  const Shape separated = insulationShape(insulation(InsulationCons::Area, true, 1.0, InsulationDraw::Filled, true));
  ASSERT_EQ(geotest::countPaths(separated, Layer::Contour), 2);
  expectVertex(separated.paths[1].points, 0, 0.0, 100.0);
  expectVertex(separated.paths[1].points, 1, 300.0, 100.0);
}

TEST(InsulationGeometry, UnusableInputStaysFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (InsulationCons cons : {InsulationCons::Straight, InsulationCons::Arc, InsulationCons::Wedge,
                              InsulationCons::Ring, InsulationCons::Area}) {
    InsulationParams p = insulation(cons, true);
    p.thickness = p.start = p.end = nan;
    EXPECT_TRUE(insulationShape(p).isEmpty());
    p.thickness = p.start = p.end = -100.0;
    EXPECT_TRUE(insulationShape(p).isEmpty());
    p.thickness = p.start = p.end = std::numeric_limits<double>::max();
    EXPECT_TRUE(geotest::allFinite(insulationShape(p)));
    p = insulation(cons, false);
    p.widthFactor = nan;
    const Shape s = insulationShape(p);
    EXPECT_TRUE(geotest::allFinite(s));
    EXPECT_EQ(s, insulationShape(insulation(cons, false)));
    p.widthFactor = 1e-12;  // brought to the smallest factor: a bounded number of loops
    EXPECT_EQ(insulationShape(p), insulationShape(insulation(cons, false, kInsulationMinFactor)));
  }
}
