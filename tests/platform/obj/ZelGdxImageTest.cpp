// Drawing a standard part into a preview drawing by kind.
#include "obj/ZelGdxImage.h"

#include "obj/ZelObjDraw.h"
#include "platform/obj/geometry/NormTestParts.h"
#include "obj/geometry/ZelNormShape.h"

#include <gtest/gtest.h>

TEST(ZelGdxImage, NormDrawsThePartInItsLayerColours) {
  auto screw = normtest::iso4017M12(60.0, 2, 0x01);
  CZelGDX gdx;
  ASSERT_TRUE(zel_gdx_image(L"NORM", gdx, screw.get()));
  const ZEL::geo::Shape shape = ZEL::geo::normPartShape(screw.get());
  const auto& items = gdx.displayList().items();
  ASSERT_EQ(items.size(), shape.paths.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].points, shape.paths[i].points);
    EXPECT_EQ(items[i].color, ZEL::objLayerColor(screw.get(), shape.paths[i].layer));
  }
  // Thread lines lie on the contour's layer while no layer of their own is set.
  EXPECT_EQ(ZEL::objLayerColor(screw.get(), ZEL::geo::Layer::Thread), ZEL::objLayerColor(screw.get(), ZEL::geo::Layer::Contour));
  EXPECT_TRUE(zel_gdx_image(L"norm", gdx, screw.get()));  // the kind in any case
}

TEST(ZelGdxImage, HatchedCutFaceOfASection) {
  auto ipe = normtest::ipe200(0, 0);
  normtest::put(*ipe, L"DRAW", ZEL::mkResbuf(L"SMDB"));
  normtest::put(*ipe, L"HPNAME", ZEL::mkResbuf(L"ANSI31"));
  CZelGDX gdx;
  ASSERT_TRUE(zel_gdx_image(L"NORM", gdx, ipe.get()));
  bool segments = false;
  for (const auto& item : gdx.displayList().items()) segments = segments || item.kind == CDisplayList::Kind::Segments;
  EXPECT_TRUE(segments);
}

TEST(ZelGdxImage, UnknownKindsAndUnusablePartsDrawNothing) {
  auto screw = normtest::iso4017M12();
  CZelGDX gdx;
  EXPECT_FALSE(zel_gdx_image(L"PROFILE", gdx, screw.get()));
  EXPECT_FALSE(zel_gdx_image(nullptr, gdx, screw.get()));
  EXPECT_FALSE(zel_gdx_image(L"NORM", gdx, nullptr));
  auto noLength = normtest::iso4017M12(0.0);
  EXPECT_FALSE(zel_gdx_image(L"NORM", gdx, noLength.get()));
  EXPECT_TRUE(gdx.displayList().isEmpty());
}
