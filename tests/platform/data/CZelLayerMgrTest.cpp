// The drawing's layers through the layer manager, layer names from typed text, colour texts.
#include "data/CZelDrawing.h"
#include "data/CZelLayerMgr.h"
#include "data/ZelNames.h"

#include <gtest/gtest.h>

TEST(CZelLayerMgr, ReadsWritesAndCreatesLayers) {
  CZelDrawing::current().reset();
  CZelLayerMgr mgr;
  ZEL::CLayerProp zero;
  ASSERT_TRUE(mgr.physLayerPropGet(L"0", zero));
  EXPECT_EQ(zero.lineWeight, -3);

  ZEL::CLayerProp layer = zero;
  layer.name = L"QEN_Dichtung";
  layer.color = CZelColor::fromIndex(3);
  layer.lineWeight = 211;
  layer.frozen = true;
  ASSERT_TRUE(mgr.physLayerPropSet(layer));
  CZelArrayTempl<CZelString> names;
  mgr.physLayerGet(names);
  ASSERT_EQ(names.count(), 2);
  EXPECT_EQ(names[1], CZelString(L"QEN_Dichtung"));

  ZEL::CLayerProp back;
  ASSERT_TRUE(mgr.physLayerPropGet(L"qen_dichtung", back));  // names compare without case
  EXPECT_EQ(back.lineWeight, 211);
  EXPECT_TRUE(back.frozen);
  EXPECT_EQ(back.color, CZelColor::fromIndex(3));

  back.locked = true;
  ASSERT_TRUE(mgr.physLayerPropSet(back));
  mgr.physLayerGet(names);
  EXPECT_EQ(names.count(), 2);  // the same layer, changed
  ZEL::CLayerProp bad = back;
  bad.name = L"a<b";
  EXPECT_FALSE(mgr.physLayerPropSet(bad));
  bad.name = L"";
  EXPECT_FALSE(mgr.physLayerPropSet(bad));
  EXPECT_FALSE(mgr.physLayerPropGet(L"missing", back));
}

TEST(ZelNames, LayerNamesFromTypedText) {
  EXPECT_EQ(ZEL::str_name(L"  Glas außen ", L' '), CZelString(L"Glas außen"));
  EXPECT_EQ(ZEL::str_name(L"A/B:C", L'_'), CZelString(L"A_B_C"));
  EXPECT_EQ(ZEL::str_name(L"A/B", 0), CZelString(L"AB"));
  EXPECT_TRUE(ZEL::str_name(L"  ", L' ').isEmpty());
  EXPECT_TRUE(ZEL::str_name(L"*?", L' ').isEmpty());
  EXPECT_EQ(ZEL::str_name(CZelString(std::wstring(300, L'x')), L' ').len(), 255);
}

TEST(ZelNames, ColourTexts) {
  EXPECT_EQ(ZEL::color_txt(CZelColor::fromIndex(1)), CZelString(L"rot"));
  EXPECT_EQ(ZEL::color_txt(CZelColor::fromIndex(1), L"en"), CZelString(L"red"));
  EXPECT_EQ(ZEL::color_txt(CZelColor::fromIndex(256)), CZelString(L"VonLayer"));
  EXPECT_EQ(ZEL::color_txt(CZelColor::fromIndex(42)), CZelString(L"42"));
  EXPECT_EQ(ZEL::color_txt(CZelColor::fromRgb(255, 128, 0)), CZelString(L"255,128,0"));
}
