// The preview's display list: the box around what it draws, arcs and bulged segments by
// their full extent.
#include "ui/CDisplayList.h"

#include <gtest/gtest.h>

namespace {

TEST(CDisplayListExtents, ArcsAndBulgesCountWithTheirFullExtent) {
  CDisplayList list;
  list.addArc(0, 0, 10, 0, 3.14159265358979 / 2, CZelColor::fromIndex(1));
  CDisplayExtents box = list.extents();
  EXPECT_NEAR(box.maxX, 10, 1e-9);
  EXPECT_NEAR(box.maxY, 10, 1e-9);
  EXPECT_NEAR(box.minX, 0, 1e-9);
  CDisplayList half;
  CZelVertexArray v;
  v.add(0, 0, 1.0);  // a half circle from (0,0) to (10,0)
  v.add(10, 0);
  half.addPolyline(v, false, CZelColor::fromIndex(1));
  CDisplayExtents b = half.extents();
  EXPECT_NEAR(b.minY, -5, 1e-9) << "a bulge of 1 turns counter-clockwise: below the chord";
  EXPECT_NEAR(b.maxY, 0, 1e-9);
}

}  // namespace

// What a script reads of a preview: every kind of item is counted under its own name.
#include "ui/CZelDplistImage.h"
#include "ui/CZelGDX.h"

namespace {

TEST(CZelDplistImageDescription, HatchSegmentsAreCountedBesideTheOutline) {
  CZelGDX gdx;
  CZelVertexArray outline;
  outline.add(0, 0);
  outline.add(4, 0);
  outline.add(4, 2);
  gdx.displayList().addPolyline(outline, true, CZelColor::fromIndex(5));
  CZelVertexArray dashes;
  dashes.add(1, 0);
  dashes.add(2, 1);
  gdx.displayList().addSegments(dashes, CZelColor::fromIndex(3));
  gdx.displayList().addSegments(dashes, CZelColor::fromIndex(3));
  CZelDplistImage picture;
  picture.set_dpList(gdx);
  EXPECT_EQ(picture.picture(), CZelString(L"1 polylines, 2 hatches; drawing 0,0 to 4,2; view 0,0 to 4,2"));
}

}  // namespace
