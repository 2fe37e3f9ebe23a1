// The setting block and the flat seal, by the coordinates of their outlines.
#include "obj/geometry/ZelBlockGeometry.h"
#include "obj/geometry/ZelSealGeometry.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace ZEL::geo;

namespace {

BlockParams block(double b, double h, double chamfer = 0.0, int corners = 0, BlockDraw draw = BlockDraw::Outline) {
  BlockParams p;
  p.width = b;
  p.height = h;
  p.chamfer = chamfer;
  p.corners = corners;
  p.draw = draw;
  return p;
}

void expectVertex(const CZelVertexArray& v, int i, double x, double y) {
  ASSERT_LT(i, v.count());
  EXPECT_NEAR(v[i].x, x, 1e-12) << "vertex " << i;
  EXPECT_NEAR(v[i].y, y, 1e-12) << "vertex " << i;
  EXPECT_EQ(v[i].bulge, 0.0) << "vertex " << i;
}

}  // namespace

// Each corner bit cuts its own corner; the outline runs counter-clockwise from the lower left
// corner, or from the end of its cut.
TEST(BlockGeometry, EachCornerBitCutsItsOwnCornerAndTheOutlineStartsAfterTheLowerLeftCut) {
  struct Row {
    int corners;
    std::vector<std::pair<double, double>> outline;
  };
  const Row rows[] = {
      {0, {{0, 0}, {30, 0}, {30, 6}, {0, 6}}},
      {kLowerLeft, {{1, 0}, {30, 0}, {30, 6}, {0, 6}, {0, 1}}},
      {kLowerRight, {{0, 0}, {29, 0}, {30, 1}, {30, 6}, {0, 6}}},
      {kUpperRight, {{0, 0}, {30, 0}, {30, 5}, {29, 6}, {0, 6}}},
      {kUpperLeft, {{0, 0}, {30, 0}, {30, 6}, {1, 6}, {0, 5}}},
      {kAllCorners, {{1, 0}, {29, 0}, {30, 1}, {30, 5}, {29, 6}, {1, 6}, {0, 5}, {0, 1}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE("corners " + std::to_string(row.corners));
    const CZelVertexArray v = blockOutline(block(30.0, 6.0, 1.0, row.corners));
    ASSERT_EQ(v.count(), static_cast<int>(row.outline.size()));
    for (int i = 0; i < v.count(); ++i) expectVertex(v, i, row.outline[i].first, row.outline[i].second);
    const int cuts = std::popcount(static_cast<unsigned>(row.corners));
    EXPECT_NEAR(geotest::signedArea(v), 180.0 - cuts * 0.5, 1e-9);  // counter-clockwise
  }
}

TEST(BlockGeometry, ChamferIsLimitedToAThirdOfTheSmallerSide) {
  EXPECT_DOUBLE_EQ(blockChamfer(block(30.0, 6.0, 5.0, kLowerLeft)), 2.0);
  EXPECT_DOUBLE_EQ(blockChamfer(block(2.0, 6.0, 1.0, kLowerLeft)), 2.0 / 3.0);
  EXPECT_DOUBLE_EQ(blockChamfer(block(30.0, 6.0, 1.5, kLowerLeft)), 1.5);
  const CZelVertexArray v = blockOutline(block(30.0, 6.0, 5.0, kLowerLeft));
  expectVertex(v, 0, 2.0, 0.0);
  expectVertex(v, 4, 0.0, 2.0);
}

TEST(BlockGeometry, NoCornerOrNoSizeMeansNoChamfer) {
  EXPECT_EQ(blockChamfer(block(30.0, 6.0, 1.0, 0)), 0.0);
  EXPECT_EQ(blockChamfer(block(30.0, 6.0, 1.0, 16)), 0.0);  // no known corner bit
  EXPECT_EQ(blockChamfer(block(30.0, 6.0, -1.0, kAllCorners)), 0.0);
  EXPECT_EQ(blockOutline(block(30.0, 6.0, 0.0, kAllCorners)).count(), 4);
}

TEST(BlockGeometry, RepresentationDecidesCrossAndHatch) {
  const Shape outline = blockShape(block(30.0, 6.0, 0.0, 0, BlockDraw::Outline));
  ASSERT_EQ(outline.paths.size(), 1u);
  EXPECT_TRUE(outline.paths[0].closed);
  EXPECT_EQ(outline.paths[0].layer, Layer::Contour);
  EXPECT_EQ(outline.paths[0].points, outline.outline);
  EXPECT_TRUE(outline.areas.empty());

  const Shape standard = blockShape(block(30.0, 6.0, 0.0, 0, BlockDraw::Standard));
  ASSERT_EQ(standard.paths.size(), 3u);
  EXPECT_TRUE(standard.areas.empty());
  const CZelVertexArray& d1 = standard.paths[1].points;
  const CZelVertexArray& d2 = standard.paths[2].points;
  ASSERT_EQ(d1.count(), 2);
  ASSERT_EQ(d2.count(), 2);
  EXPECT_FALSE(standard.paths[1].closed);
  expectVertex(d1, 0, 0.0, 0.0);
  expectVertex(d1, 1, 30.0, 6.0);
  expectVertex(d2, 0, 30.0, 0.0);
  expectVertex(d2, 1, 0.0, 6.0);

  const Shape hatched = blockShape(block(30.0, 6.0, 1.0, kAllCorners, BlockDraw::Hatched));
  ASSERT_EQ(hatched.paths.size(), 1u);
  ASSERT_EQ(hatched.areas.size(), 1u);
  EXPECT_EQ(hatched.areas[0].fill, Area::Fill::Hatch);
  EXPECT_EQ(hatched.areas[0].hatch, 1);
  EXPECT_EQ(hatched.areas[0].outline, hatched.outline);
}

TEST(BlockGeometry, CrossOfAChamferedBlockEndsInTheMiddleOfTheCut) {
  const Shape s = blockShape(block(30.0, 6.0, 1.0, kLowerLeft | kUpperLeft, BlockDraw::Standard));
  ASSERT_EQ(s.paths.size(), 3u);
  expectVertex(s.paths[1].points, 0, 0.5, 0.5);
  expectVertex(s.paths[1].points, 1, 30.0, 6.0);
  expectVertex(s.paths[2].points, 0, 30.0, 0.0);
  expectVertex(s.paths[2].points, 1, 0.5, 5.5);
}

TEST(BlockGeometry, UnusableSizesGiveAnEmptyShape) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (const BlockParams& p : {block(0.0, 5.0), block(30.0, 0.0), block(-30.0, 5.0), block(nan, 5.0),
                               block(30.0, inf), block(30.0, 5.0, nan, kAllCorners, BlockDraw::Standard)}) {
    const Shape s = blockShape(p);
    EXPECT_TRUE(geotest::allFinite(s));
    if (std::isfinite(p.width) && std::isfinite(p.height) && p.width > 0 && p.height > 0) {
      EXPECT_EQ(s.outline.count(), 4);  // an unusable chamfer is no chamfer
    } else {
      EXPECT_TRUE(s.isEmpty());
      EXPECT_TRUE(s.outline.isEmpty());
    }
  }
}

TEST(SealGeometry, FlatSealIsItsRectangle) {
  SealParams p;
  p.width = 10.0;
  p.height = 3.0;
  const Shape s = sealShape(p);
  ASSERT_EQ(s.outline.count(), 4);
  expectVertex(s.outline, 0, 0.0, 0.0);
  expectVertex(s.outline, 1, 10.0, 0.0);
  expectVertex(s.outline, 2, 10.0, 3.0);
  expectVertex(s.outline, 3, 0.0, 3.0);
  ASSERT_EQ(s.paths.size(), 1u);
  EXPECT_TRUE(s.paths[0].closed);
  EXPECT_TRUE(s.areas.empty());

  p.draw = SealDraw::Hatched;
  const Shape h = sealShape(p);
  ASSERT_EQ(h.areas.size(), 1u);
  EXPECT_EQ(h.areas[0].hatch, 1);
  EXPECT_EQ(h.areas[0].fill, Area::Fill::Hatch);
  EXPECT_EQ(h.areas[0].outline, h.outline);
}

TEST(SealGeometry, UnusableSizesGiveAnEmptyShape) {
  SealParams p;
  p.width = std::numeric_limits<double>::quiet_NaN();
  p.height = 3.0;
  EXPECT_TRUE(sealShape(p).isEmpty());
  p.width = 10.0;
  p.height = -3.0;
  EXPECT_TRUE(sealShape(p).isEmpty());
}
