// The plane tests behind the standard-part views: arcs flattened onto their circle, points
// located in outlines, rays that pass through an outline or only along its edges, and one
// outline inside another.
#include "obj/geometry/ZelNormOutline.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace ZEL::geo;
using namespace ZEL::geo::norm;

TEST(NormOutline, FlattenedArcsLieOnTheirCircle) {
  for (const CZelVertexArray& v : {circle({1.0, 2.0}, 3.0), mirroredX(circle({1.0, 2.0}, 3.0))}) {
    const auto pts = flatten(v, 16);
    EXPECT_GE(pts.size(), 32u);
    for (const Pt& p : pts) EXPECT_NEAR(std::hypot(p.x - (v[0].x + v[1].x) / 2.0, p.y - 2.0), 3.0, 1e-9);
  }
  // A rounded rectangle: its corners' arcs stay within the box and touch its sides.
  const auto rr = flatten(roundedRectangle(40.0, 20.0, 5.0), 16);
  double lo, hi;
  extent(rr, {1.0, 0.0}, lo, hi);
  EXPECT_NEAR(lo, -20.0, 1e-12);
  EXPECT_NEAR(hi, 20.0, 1e-12);
  extent(rr, {0.0, 1.0}, lo, hi);
  EXPECT_NEAR(hi, 10.0, 1e-12);
  for (const Pt& p : rr) EXPECT_LE(std::hypot(std::max(0.0, std::fabs(p.x) - 15.0), std::max(0.0, std::fabs(p.y) - 5.0)), 5.0 + 1e-9);
}

TEST(NormOutline, HexagonKeepsTheTableFigures) {
  const CZelVertexArray h = hexagon(18.0, 20.03);
  const auto pts = flatten(h);
  double lo, hi;
  extent(pts, {1.0, 0.0}, lo, hi);
  EXPECT_NEAR(hi - lo, 18.0, 1e-12);
  extent(pts, {0.0, 1.0}, lo, hi);
  EXPECT_NEAR(hi - lo, 20.03, 1e-12);
  // An across-corners no hexagon can have gives the regular one.
  extent(flatten(hexagon(18.0, 50.0)), {0.0, 1.0}, lo, hi);
  EXPECT_NEAR(hi - lo, 18.0 / std::cos(kPi / 6.0), 1e-12);
}

TEST(NormOutline, PointsAndRaysInAnIProfile) {
  const auto ipe = flatten(polyline({{-50, -100}, {50, -100}, {50, -91.5}, {2.8, -91.5}, {2.8, 91.5}, {50, 91.5}, {50, 100},
                                     {-50, 100}, {-50, 91.5}, {-2.8, 91.5}, {-2.8, -91.5}, {-50, -91.5}}));
  EXPECT_EQ(locate(ipe, {0.0, 0.0}, 1e-9), Where::Inside);
  EXPECT_EQ(locate(ipe, {20.0, 0.0}, 1e-9), Where::Outside);
  EXPECT_EQ(locate(ipe, {2.8, 0.0}, 1e-9), Where::Boundary);
  // From the flange tip towards +p the ray leaves at once; from the web's edge towards -p
  // it crosses the web; running along the flange's inner face is not passing through.
  EXPECT_FALSE(rayEntersInside(ipe, {50, 91.5}, {1, 0}, 1e-9));
  EXPECT_TRUE(rayEntersInside(ipe, {2.8, 91.5}, {-1, 0}, 1e-9));
  EXPECT_FALSE(rayEntersInside(ipe, {2.8, 91.5}, {1, 0}, 1e-9));
  // Down along the web's face, then into the bottom flange.
  EXPECT_TRUE(rayEntersInside(ipe, {2.8, 91.5}, {0, -1}, 1e-9));
  // Down past the web and along the bottom flange's end face only; up along the top's.
  EXPECT_FALSE(rayEntersInside(ipe, {50, 91.5}, {0, -1}, 1e-9));
  EXPECT_FALSE(rayEntersInside(ipe, {50, 91.5}, {0, 1}, 1e-9));
  EXPECT_TRUE(rayEntersInside(ipe, {20, 91.5}, {0, 1}, 1e-9));  // up through the flange
}

TEST(NormOutline, ContainmentOfOutlines) {
  const auto big = flatten(circle({0, 0}, 10.0));
  const auto small = flatten(circle({0, 0}, 4.0));
  EXPECT_EQ(containment(big, small, 1e-9), Where::Inside);
  EXPECT_EQ(containment(small, big, 1e-9), Where::Outside);
  EXPECT_EQ(containment(big, flatten(circle({0, 0}, 10.0)), 1e-9), Where::Boundary);
  // The hexagon's corners stick out of the circle of its flats.
  EXPECT_EQ(containment(flatten(circle({0, 0}, 9.0)), flatten(hexagon(18.0)), 1e-9), Where::Outside);
  EXPECT_EQ(containment(flatten(hexagon(18.0)), flatten(circle({0, 0}, 9.0), 64), 1e-6), Where::Inside);
}

TEST(NormOutline, ThreadArcIsThreeQuartersOfItsCircle) {
  const CZelVertexArray a = threadArc(5.0);
  ASSERT_EQ(a.count(), 4);
  EXPECT_NEAR(a[0].y, 5.0, 1e-12);
  EXPECT_NEAR(a[3].x, 5.0, 1e-12);
  double sweep = 0.0;
  for (int i = 0; i + 1 < a.count(); ++i) sweep += 4.0 * std::atan(a[i].bulge);
  EXPECT_NEAR(sweep, 1.5 * kPi, 1e-12);
}
