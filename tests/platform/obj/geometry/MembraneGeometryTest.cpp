// The membrane: its strip round the throat, the divisions and the representations.
#include "obj/geometry/ZelMembraneGeometry.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ZEL::geo;

namespace {

constexpr double kPi = 3.14159265358979323846;

MembraneParams foil(double d, double r, double t, MembraneDraw draw) {
  MembraneParams p;
  p.thickness = d;
  p.radius = r;
  p.division = t;
  p.draw = draw;
  return p;
}

int divisions(const Shape& s) { return static_cast<int>(s.paths.size()) - 1; }

double length(const Path& p) { return std::hypot(p.points[1].x - p.points[0].x, p.points[1].y - p.points[0].y); }

}  // namespace

TEST(MembraneGeometry, StripTurnsRoundTheThroat) {
  const Shape s = membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Contour));
  const CZelVertexArray& v = s.outline;
  ASSERT_EQ(v.count(), 8);
  const double q = std::tan(kPi / 8.0);
  const double expected[8][3] = {{23, 0, 0}, {23, 1, 0}, {3, 1, -q}, {1, 3, 0},
                                 {1, 23, 0}, {0, 23, 0}, {0, 3, q},  {3, 0, 0}};
  for (int i = 0; i < 8; ++i) {
    EXPECT_NEAR(v[i].x, expected[i][0], 1e-12) << i;
    EXPECT_NEAR(v[i].y, expected[i][1], 1e-12) << i;
    EXPECT_NEAR(v[i].bulge, expected[i][2], 1e-12) << i;
  }
  // The visible face has the throat radius, the back one thickness more, about (3, 3).
  const geotest::P face = geotest::segmentMiddle(v, 2);
  EXPECT_NEAR(std::hypot(face.x - 3.0, face.y - 3.0), 2.0, 1e-9);
  EXPECT_LT(face.x, 3.0);
  const geotest::P back = geotest::segmentMiddle(v, 6);
  EXPECT_NEAR(std::hypot(back.x - 3.0, back.y - 3.0), 3.0, 1e-9);
  EXPECT_LT(back.x, 3.0);
  // Two legs of 20 x 1 and a quarter ring between the radii 2 and 3.
  EXPECT_NEAR(geotest::signedArea(v), 40.0 + kPi / 4.0 * (9.0 - 4.0), 1e-3);
  ASSERT_EQ(s.paths.size(), 1u);
  EXPECT_TRUE(s.paths[0].closed);
  EXPECT_TRUE(s.areas.empty());
}

TEST(MembraneGeometry, ThicknessSetsTheStripAndTheLegs) {
  const Shape s = membraneShape(foil(2.0, 0.0, 0.0, MembraneDraw::Contour));
  const CZelVertexArray& v = s.outline;
  ASSERT_EQ(v.count(), 7);  // no throat radius: a sharp inner corner
  EXPECT_DOUBLE_EQ(v[2].x, 2.0);
  EXPECT_DOUBLE_EQ(v[2].y, 2.0);
  const geotest::Box box = geotest::extents(v);
  EXPECT_NEAR(box.width(), 42.0, 1e-9);
  EXPECT_NEAR(box.height(), 42.0, 1e-9);
  EXPECT_NEAR(geotest::signedArea(v), 2 * 40.0 * 2.0 + kPi / 4.0 * 4.0, 1e-3);
}

TEST(MembraneGeometry, LinedStripIsMarkedAtEveryDivision) {
  // Along the middle: 20 + a quarter circle of radius 2.5 + 20.
  const Shape s = membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Lined));
  ASSERT_EQ(divisions(s), 4);
  EXPECT_TRUE(s.areas.empty());
  const Path& first = s.paths[1];
  EXPECT_FALSE(first.closed);
  EXPECT_DOUBLE_EQ(first.points[0].x, 0.0);
  EXPECT_DOUBLE_EQ(first.points[0].y, 13.0);
  EXPECT_DOUBLE_EQ(first.points[1].x, 1.0);
  EXPECT_DOUBLE_EQ(first.points[1].y, 13.0);
  const double bend = kPi / 2.0 * 2.5;
  const Path& third = s.paths[3];  // 30 along: on the lower leg
  EXPECT_NEAR(third.points[0].x, 3.0 + 30.0 - 20.0 - bend, 1e-12);
  EXPECT_DOUBLE_EQ(third.points[0].y, 0.0);
  EXPECT_DOUBLE_EQ(third.points[1].y, 1.0);
  for (std::size_t i = 1; i < s.paths.size(); ++i) EXPECT_NEAR(length(s.paths[i]), 1.0, 1e-12);

  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, 5.0, MembraneDraw::Lined))), 8);
  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, 50.0, MembraneDraw::Lined))), 0);
}

TEST(MembraneGeometry, DivisionInTheBendIsRadial) {
  const Shape s = membraneShape(foil(1.0, 2.0, 21.0, MembraneDraw::Lined));
  ASSERT_EQ(divisions(s), 2);
  const Path& mark = s.paths[1];
  const double phi = kPi + 1.0 / 2.5;
  EXPECT_NEAR(mark.points[0].x, 3.0 + 3.0 * std::cos(phi), 1e-12);
  EXPECT_NEAR(mark.points[0].y, 3.0 + 3.0 * std::sin(phi), 1e-12);
  EXPECT_NEAR(mark.points[1].x, 3.0 + 2.0 * std::cos(phi), 1e-12);
  EXPECT_NEAR(mark.points[1].y, 3.0 + 2.0 * std::sin(phi), 1e-12);
}

TEST(MembraneGeometry, DivisionsAreBounded) {
  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, 0.0, MembraneDraw::Lined))), 0);
  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, -3.0, MembraneDraw::Lined))), 0);
  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, std::numeric_limits<double>::quiet_NaN(), MembraneDraw::Lined))), 0);
  const int many = divisions(membraneShape(foil(1.0, 2.0, 1e-9, MembraneDraw::Lined)));
  EXPECT_GT(many, 900);
  EXPECT_LT(many, kMembraneMaxDivisions);
}

TEST(MembraneGeometry, RepresentationDecidesTheArea) {
  EXPECT_TRUE(membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Contour)).areas.empty());
  const Shape filled = membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Filled));
  ASSERT_EQ(filled.areas.size(), 1u);
  EXPECT_EQ(filled.areas[0].fill, Area::Fill::Solid);
  EXPECT_EQ(filled.areas[0].outline, filled.outline);
  EXPECT_EQ(divisions(filled), 4);  // the fill is divided like the lined strip
  const Shape hatched = membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Hatched));
  EXPECT_EQ(divisions(hatched), 0);
  EXPECT_EQ(divisions(membraneShape(foil(1.0, 2.0, 10.0, MembraneDraw::Contour))), 0);
  ASSERT_EQ(hatched.areas.size(), 1u);
  EXPECT_EQ(hatched.areas[0].fill, Area::Fill::Hatch);
  EXPECT_EQ(hatched.areas[0].hatch, 1);
}

TEST(MembraneGeometry, UnusableInputStaysFinite) {
  EXPECT_TRUE(membraneShape(foil(0.0, 2.0, 10.0, MembraneDraw::Filled)).isEmpty());
  EXPECT_TRUE(membraneShape(foil(-1.0, 2.0, 10.0, MembraneDraw::Filled)).isEmpty());
  EXPECT_TRUE(membraneShape(foil(std::numeric_limits<double>::quiet_NaN(), 2.0, 10.0, MembraneDraw::Filled)).isEmpty());
  const Shape huge = membraneShape(foil(std::numeric_limits<double>::max(), 2.0, 10.0, MembraneDraw::Lined));
  EXPECT_TRUE(geotest::allFinite(huge));
  const Shape badRadius =
      membraneShape(foil(1.0, std::numeric_limits<double>::infinity(), 10.0, MembraneDraw::Lined));
  EXPECT_TRUE(geotest::allFinite(badRadius));
  EXPECT_EQ(badRadius, membraneShape(foil(1.0, 0.0, 10.0, MembraneDraw::Lined)));
}
