// The silicone joint: its variants, the sealing cord and the angle, by coordinates.
#include "obj/geometry/ZelSiliconeGeometry.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ZEL::geo;

namespace {

constexpr double kPi = 3.14159265358979323846;

SiliconeParams joint(int variant, bool cord, bool hatch = true, bool hatchCord = true) {
  SiliconeParams p;
  p.width = 12.0;
  p.variant = variant;
  p.cord = cord;
  p.hatchSilicone = hatch;
  p.hatchCord = hatchCord;
  return p;
}

void expectVertex(const CZelVertexArray& v, int i, double x, double y, double bulge = 0.0) {
  ASSERT_LT(i, v.count());
  EXPECT_NEAR(v[i].x, x, 1e-9) << "vertex " << i;
  EXPECT_NEAR(v[i].y, y, 1e-9) << "vertex " << i;
  EXPECT_NEAR(v[i].bulge, bulge, 1e-9) << "vertex " << i;
}

}  // namespace

TEST(SiliconeGeometry, FlatJointOverACordFillsTheGapAndFollowsTheCord) {
  const Shape s = siliconeShape(joint(2, true));
  ASSERT_EQ(s.paths.size(), 2u);
  const CZelVertexArray& silicone = s.paths[0].points;
  ASSERT_EQ(silicone.count(), 4);
  expectVertex(silicone, 0, 0.0, 0.0);
  expectVertex(silicone, 1, 12.0, 0.0);
  expectVertex(silicone, 2, 12.0, 10.0, -1.0);  // round the near half of the cord
  expectVertex(silicone, 3, 0.0, 10.0);
  const geotest::P back = geotest::segmentMiddle(silicone, 2);
  EXPECT_NEAR(back.x, 6.0, 1e-9);
  EXPECT_NEAR(back.y, 4.0, 1e-9);  // a third of the width of silicone over the cord

  const CZelVertexArray& cord = s.paths[1].points;
  EXPECT_TRUE(s.paths[1].closed);
  const geotest::Box box = geotest::extents(cord);
  EXPECT_NEAR(box.minX, 0.0, 1e-6);
  EXPECT_NEAR(box.maxX, 12.0, 1e-6);  // touches both flanks
  EXPECT_NEAR(box.minY, 4.0, 1e-6);
  EXPECT_NEAR(box.maxY, 16.0, 1e-6);

  const geotest::Box all = geotest::extents(s.outline);
  EXPECT_NEAR(all.width(), 12.0, 1e-6);
  EXPECT_NEAR(all.maxY, 16.0, 1e-6);
  EXPECT_NEAR(geotest::signedArea(s.outline), 120.0 + kPi * 36.0 / 2.0, 1e-3);
}

TEST(SiliconeGeometry, SiliconeIsFirstHatchAndCordSecondHatch) {
  const Shape both = siliconeShape(joint(1, true));
  ASSERT_EQ(both.areas.size(), 2u);
  EXPECT_EQ(both.areas[0].hatch, 1);
  EXPECT_EQ(both.areas[0].outline, both.paths[0].points);
  EXPECT_EQ(both.areas[1].hatch, 2);
  EXPECT_EQ(both.areas[1].outline, both.paths[1].points);

  EXPECT_EQ(geotest::countAreas(siliconeShape(joint(1, true, false, true)), Area::Fill::Hatch, 1), 0);
  EXPECT_EQ(geotest::countAreas(siliconeShape(joint(1, true, false, true)), Area::Fill::Hatch, 2), 1);
  EXPECT_TRUE(siliconeShape(joint(1, true, false, false)).areas.empty());
}

TEST(SiliconeGeometry, WithoutCordThereIsNoCordNorItsHatch) {
  const Shape s = siliconeShape(joint(2, false));
  ASSERT_EQ(s.paths.size(), 1u);
  ASSERT_EQ(s.areas.size(), 1u);
  EXPECT_EQ(s.areas[0].hatch, 1);
  const CZelVertexArray& v = s.paths[0].points;
  ASSERT_EQ(v.count(), 4);
  expectVertex(v, 2, 12.0, 6.0);  // half as deep as wide
  expectVertex(v, 3, 0.0, 6.0);
  EXPECT_EQ(s.outline, v);
}

TEST(SiliconeGeometry, ConcaveFaceSagsAnEighthOfTheWidth) {
  for (bool cord : {true, false}) {
    const Shape s = siliconeShape(joint(1, cord));
    const CZelVertexArray& v = s.paths[0].points;
    EXPECT_LT(v[0].bulge, 0.0);
    const geotest::P face = geotest::segmentMiddle(v, 0);
    EXPECT_NEAR(face.x, 6.0, 1e-9);
    EXPECT_NEAR(face.y, 1.5, 1e-9);
  }
}

TEST(SiliconeGeometry, FilletCoversACordInTheCorner) {
  const Shape s = siliconeShape(joint(3, true));
  const CZelVertexArray& silicone = s.paths[0].points;
  ASSERT_EQ(silicone.count(), 4);
  expectVertex(silicone, 0, 2.4, 0.0);
  expectVertex(silicone, 1, 12.0, 0.0);
  expectVertex(silicone, 2, 0.0, 12.0);
  EXPECT_NEAR(silicone[3].x, 0.0, 1e-12);
  EXPECT_NEAR(silicone[3].y, 2.4, 1e-12);
  // Three quarters round the cord, clockwise, on the side away from the corner.
  EXPECT_NEAR(silicone[3].bulge, std::tan(-1.5 * kPi / 4.0), 1e-12);
  const geotest::P far = geotest::segmentMiddle(silicone, 3);
  EXPECT_NEAR(far.x, 2.4 + 2.4 / std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(far.y, 2.4 + 2.4 / std::sqrt(2.0), 1e-9);
  const geotest::Box cord = geotest::extents(s.paths[1].points);
  EXPECT_NEAR(cord.minX, 0.0, 1e-6);
  EXPECT_NEAR(cord.minY, 0.0, 1e-6);
  EXPECT_NEAR(cord.maxX, 4.8, 1e-6);
  ASSERT_EQ(s.outline.count(), 3);  // the whole triangle
  EXPECT_NEAR(geotest::signedArea(s.outline), 72.0, 1e-9);

  const Shape plain = siliconeShape(joint(3, false));
  ASSERT_EQ(plain.paths.size(), 1u);
  EXPECT_EQ(plain.paths[0].points, plain.outline);
}

TEST(SiliconeGeometry, EachVariantHasItsOwnFormAndUnknownOnesDrawTheFirst) {
  for (bool cord : {true, false}) {
    const Shape v1 = siliconeShape(joint(1, cord));
    const Shape v2 = siliconeShape(joint(2, cord));
    const Shape v3 = siliconeShape(joint(3, cord));
    EXPECT_NE(v1, v2);
    EXPECT_NE(v2, v3);
    EXPECT_NE(v1, v3);
    EXPECT_EQ(siliconeShape(joint(-1, cord)), v1);
    EXPECT_EQ(siliconeShape(joint(4, cord)), v1);
  }
}

TEST(SiliconeGeometry, AngleTurnsTheJointAboutTheOrigin) {
  SiliconeParams p = joint(2, false);
  p.angle = kPi / 2.0;
  const Shape s = siliconeShape(p);
  const CZelVertexArray& v = s.paths[0].points;
  expectVertex(v, 1, 0.0, 12.0);
  expectVertex(v, 2, -6.0, 12.0);
  EXPECT_EQ(s.areas[0].outline, v);
  EXPECT_EQ(s.outline, v);
}

TEST(SiliconeGeometry, UnusableInputStaysFinite) {
  SiliconeParams p = joint(1, true);
  p.width = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(siliconeShape(p).isEmpty());
  p.width = -12.0;
  EXPECT_TRUE(siliconeShape(p).isEmpty());
  p.width = std::numeric_limits<double>::max();
  EXPECT_TRUE(geotest::allFinite(siliconeShape(p)));
  p.width = 12.0;
  p.angle = std::numeric_limits<double>::infinity();
  const Shape s = siliconeShape(p);
  EXPECT_TRUE(geotest::allFinite(s));
  EXPECT_EQ(s, siliconeShape(joint(1, true)));  // an angle that is no number turns nothing
}
