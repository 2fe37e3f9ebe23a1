// The axis symbol: the axis line, the arrow heads, bars and clamping marks.
#include "obj/geometry/ZelAxisGeometry.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

using namespace ZEL::geo;

namespace {

AxisParams axis(AxisCons cons, bool clamped = false, double gd = 15.0, AxisDraw draw = AxisDraw::Outline) {
  AxisParams p;
  p.length = 50.0;
  p.cons = cons;
  p.clamped = clamped;
  p.clamp = gd;
  p.draw = draw;
  return p;
}

// The x of every open line across the axis (bars and clamping marks), sorted.
std::vector<double> crossings(const Shape& s) {
  std::vector<double> xs;
  for (const Path& p : s.paths)
    if (p.layer == Layer::Contour && !p.closed) {
      EXPECT_EQ(p.points.count(), 2);
      EXPECT_DOUBLE_EQ(p.points[0].x, p.points[1].x);
      EXPECT_DOUBLE_EQ(p.points[0].y, -2.5);
      EXPECT_DOUBLE_EQ(p.points[1].y, 2.5);
      xs.push_back(p.points[0].x);
    }
  std::sort(xs.begin(), xs.end());
  return xs;
}

std::vector<CZelVertexArray> heads(const Shape& s) {
  std::vector<CZelVertexArray> out;
  for (const Path& p : s.paths)
    if (p.closed) out.push_back(p.points);
  return out;
}

}  // namespace

TEST(AxisGeometry, GlazingAxisIsTheLineWithAnArrowHeadAtEachEnd) {
  const Shape s = axisShape(axis(AxisCons::Glazing));
  ASSERT_EQ(geotest::countPaths(s, Layer::Axis), 1);
  const Path& line = s.paths[0];
  EXPECT_EQ(line.layer, Layer::Axis);
  ASSERT_EQ(line.points.count(), 2);
  EXPECT_DOUBLE_EQ(line.points[0].x, 0.0);
  EXPECT_DOUBLE_EQ(line.points[1].x, 50.0);
  EXPECT_DOUBLE_EQ(line.points[1].y, 0.0);

  const auto h = heads(s);
  ASSERT_EQ(h.size(), 2u);
  const CZelVertexArray& end = h[0];
  ASSERT_EQ(end.count(), 3);
  EXPECT_DOUBLE_EQ(end[0].x, 50.0);  // the tip on the end of the line
  EXPECT_DOUBLE_EQ(end[1].x, 45.0);
  EXPECT_DOUBLE_EQ(end[1].y, 5.0 / 3.0);
  EXPECT_DOUBLE_EQ(end[2].y, -5.0 / 3.0);
  EXPECT_DOUBLE_EQ(h[1][0].x, 0.0);
  EXPECT_DOUBLE_EQ(h[1][1].x, 5.0);
  EXPECT_GT(geotest::signedArea(h[0]), 0.0);
  EXPECT_GT(geotest::signedArea(h[1]), 0.0);
  EXPECT_TRUE(crossings(s).empty());
  EXPECT_TRUE(s.areas.empty());

  const geotest::Box box = geotest::extents(s.outline);
  EXPECT_DOUBLE_EQ(box.minX, 0.0);
  EXPECT_DOUBLE_EQ(box.maxX, 50.0);
  EXPECT_DOUBLE_EQ(box.maxY, 5.0 / 3.0);
}

TEST(AxisGeometry, LengthScalesTheSymbol) {
  AxisParams p = axis(AxisCons::Glazing);
  p.length = 120.0;
  const Shape s = axisShape(p);
  EXPECT_DOUBLE_EQ(s.paths[0].points[1].x, 120.0);
  EXPECT_DOUBLE_EQ(heads(s)[0][1].x, 108.0);
  EXPECT_DOUBLE_EQ(geotest::extents(s).width(), 120.0);
}

TEST(AxisGeometry, InfillPositionHasABarAtTheStartAndOneArrowHead) {
  const Shape s = axisShape(axis(AxisCons::Panel));
  EXPECT_EQ(heads(s).size(), 1u);
  EXPECT_EQ(crossings(s), std::vector<double>({0.0}));
}

TEST(AxisGeometry, ClampingDepthIsMarkedOnlyForInfills) {
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Panel, true))), std::vector<double>({0.0, 15.0}));
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Plan, false))), std::vector<double>({0.0, 50.0}));
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Plan, true))), std::vector<double>({0.0, 15.0, 35.0, 50.0}));
  EXPECT_TRUE(crossings(axisShape(axis(AxisCons::Glazing, true))).empty());
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Panel, true, 0.0))), std::vector<double>({0.0}));
}

TEST(AxisGeometry, ClampingDepthIsLimitedToTheSymbol) {
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Panel, true, 80.0))), std::vector<double>({0.0, 50.0}));
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Plan, true, 40.0))), std::vector<double>({0.0, 25.0, 25.0, 50.0}));
  EXPECT_EQ(crossings(axisShape(axis(AxisCons::Panel, true, std::numeric_limits<double>::quiet_NaN()))),
            std::vector<double>({0.0}));
}

TEST(AxisGeometry, HatchedSymbolFillsItsArrowHeads) {
  const Shape glazing = axisShape(axis(AxisCons::Glazing, false, 15.0, AxisDraw::Hatched));
  ASSERT_EQ(geotest::countAreas(glazing, Area::Fill::Hatch, 1), 2);
  const auto h = heads(glazing);
  EXPECT_EQ(glazing.areas[0].outline, h[0]);
  EXPECT_EQ(glazing.areas[1].outline, h[1]);
  EXPECT_EQ(geotest::countAreas(axisShape(axis(AxisCons::Panel, true, 15.0, AxisDraw::Hatched)), Area::Fill::Hatch, 1),
            1);
}

TEST(AxisGeometry, UnusableLengthGivesNoSymbol) {
  AxisParams p = axis(AxisCons::Plan, true);
  for (double len : {0.0, -50.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    p.length = len;
    EXPECT_TRUE(axisShape(p).isEmpty());
    EXPECT_TRUE(axisShape(p).outline.isEmpty());
  }
}
