// The hatch preview as a picture: a solid fill, the pattern's dashes turned by the angle and
// spread by the scale, or only the frame for a pattern the table does not know.
#include "obj/ZelHatchPreview.h"

#include "data/ZelHatchPatternTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

// The direction of a segment in degrees within [0, 180).
double direction(const ZelVertex& a, const ZelVertex& b) {
  double d = std::atan2(b.y - a.y, b.x - a.x) * 180.0 / std::numbers::pi;
  d = std::fmod(d + 360.0, 180.0);
  return d > 179.999 ? 0.0 : d;
}

}  // namespace

TEST(ZelHatchPreview, PicturesFollowPatternScaleAndAngle) {
  CDisplayList solid = ZEL::hatchPreviewList(L"solid", 1.0, 0.0);
  ASSERT_EQ(solid.items().size(), 2u);
  EXPECT_EQ(solid.items()[1].kind, CDisplayList::Kind::Fill);

  const double turn = std::numbers::pi / 12;  // 15°
  CDisplayList cross = ZEL::hatchPreviewList(L"ANSI37", 2.0, turn);
  ASSERT_EQ(cross.items().size(), 2u);
  const CDisplayList::Item& dashes = cross.items()[1];
  EXPECT_EQ(dashes.kind, CDisplayList::Kind::Segments);
  int at60 = 0, at150 = 0;
  for (int i = 0; i + 1 < dashes.points.count(); i += 2) {
    const double d = direction(dashes.points[i], dashes.points[i + 1]);
    if (std::fabs(d - 60.0) < 1e-9) ++at60;
    else if (std::fabs(d - 150.0) < 1e-9) ++at150;
    else ADD_FAILURE() << "a line at " << d << "°";
  }
  // Lines 6.35 apart across a 40 mm square turned 15° off its diagonals: 9 or 10 of each.
  EXPECT_GE(at60, 8);
  EXPECT_LE(at60, 11);
  EXPECT_GE(at150, 8);
  EXPECT_LE(at150, 11);

  EXPECT_EQ(ZEL::hatchPreviewList(L"ANSI99", 1.0, 0.0).items().size(), 1u);  // the frame only
  EXPECT_EQ(ZEL::hatchPreviewList(L"", 1.0, 0.0).items().size(), 1u);
  EXPECT_FALSE(ZEL::hatchPreviewList(L"ANSI31", 1.0, 0.0).extents().empty);
}

TEST(ZelHatchPreview, EveryStandardPatternHasAPictureInItsSquare) {
  for (const ZelHatchPattern& p : ZEL::hatchPatternTable()) {
    CDisplayList list = ZEL::hatchPreviewList(p.name, 1.0, 0.0);
    ASSERT_EQ(list.items().size(), 2u) << p.name.toUtf8();
    const double side = ZEL::hatchPreviewSide(p.name);
    const CDisplayExtents box = list.extents();
    EXPECT_GE(box.minX, -1e-9);
    EXPECT_GE(box.minY, -1e-9);
    EXPECT_LE(box.maxX, side + 1e-9);
    EXPECT_LE(box.maxY, side + 1e-9);
    if (!p.solid) {
      EXPECT_GE(list.items()[1].points.count(), 2 * 4) << p.name.toUtf8() << ": a few dashes at least";
    }
  }
  // Bricks are shown four blocks wide, fine patterns in 40 mm.
  EXPECT_EQ(ZEL::hatchPreviewSide(L"ANSI31"), 40.0);
  EXPECT_GT(ZEL::hatchPreviewSide(L"AR-B816"), 4 * 203.2);
  EXPECT_EQ(ZEL::hatchPreviewSide(L"ANSI99"), 40.0);
}
