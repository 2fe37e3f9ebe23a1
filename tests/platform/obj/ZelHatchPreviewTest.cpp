// The hatch preview as a picture: a solid fill, the line families of a pattern turned by the
// angle and spread by the scale, or only the frame for a pattern the preview does not know.
#include "obj/ZelHatchPreview.h"

#include <gtest/gtest.h>

#include <numbers>

TEST(ZelHatchPreview, PicturesFollowPatternScaleAndAngle) {
  CDisplayList solid = ZEL::hatchPreviewList(L"solid", 1.0, 0.0);
  ASSERT_EQ(solid.items().size(), 2u);
  EXPECT_EQ(solid.items()[1].kind, CDisplayList::Kind::Fill);

  const double turn = std::numbers::pi / 12;  // 15°
  CDisplayList cross = ZEL::hatchPreviewList(L"ANSI37", 2.0, turn);
  ASSERT_EQ(cross.items().size(), 3u);
  EXPECT_EQ(cross.items()[1].kind, CDisplayList::Kind::Hatch);
  EXPECT_NEAR(cross.items()[1].hatchAngle, std::numbers::pi / 4 + turn, 1e-12);
  EXPECT_NEAR(cross.items()[2].hatchAngle, 3 * std::numbers::pi / 4 + turn, 1e-12);
  EXPECT_NEAR(cross.items()[1].hatchSpacing, 6.35, 1e-12);

  EXPECT_EQ(ZEL::hatchPreviewList(L"AR-CONC", 1.0, 0.0).items().size(), 1u);  // the frame only
  EXPECT_EQ(ZEL::hatchPreviewList(L"", 1.0, 0.0).items().size(), 1u);
  EXPECT_FALSE(ZEL::hatchPreviewList(L"ANSI31", 1.0, 0.0).extents().empty);
}
