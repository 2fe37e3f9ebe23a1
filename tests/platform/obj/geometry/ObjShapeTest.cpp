// Shapes read from object sections: the factory sections, the dialogs' defaults for
// missing values, and representations chosen by each type's own letters.
#include "obj/ZelObjShape.h"

#include "data/CStoreFile.h"
#include "data/ZelFactorySettings.h"

#include "platform/obj/geometry/ShapeTestTools.h"

#include <gtest/gtest.h>

#include <memory>

using namespace ZEL::geo;

namespace {

class ObjShapeTest : public ::testing::Test {
protected:
  void SetUp() override { m_factory.reset(ZEL::factorySettings()); }
  const CZelDataItem* factorySection(const wchar_t* name) const {
    CZelDataKey key(name);
    return m_factory->find(&key);
  }
  static std::unique_ptr<CZelDataItem> section(const char* json) {
    return std::unique_ptr<CZelDataItem>(CStoreFile::parse(json, "section"));
  }
  std::unique_ptr<CZelDataItem> m_factory;
};

}  // namespace

TEST_F(ObjShapeTest, FactoryBlockSpansThirtyByFive) {
  const CZelDataItem* s = factorySection(L"*HZ_KLOTZ*");
  ASSERT_NE(s, nullptr);
  const Shape shape = ZEL::objShape(s);
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape.outline);
  EXPECT_DOUBLE_EQ(box.minX, 0.0);
  EXPECT_DOUBLE_EQ(box.minY, 0.0);
  EXPECT_DOUBLE_EQ(box.maxX, 30.0);
  EXPECT_DOUBLE_EQ(box.maxY, 5.0);
  // Standard representation: outline and cross, nothing filled.
  EXPECT_EQ(shape.paths.size(), 3u);
  EXPECT_TRUE(shape.areas.empty());
}

TEST_F(ObjShapeTest, FactorySealSpansTenByThreeHatched) {
  const Shape shape = ZEL::objShape(factorySection(L"*HZ_DICHT*"));
  ASSERT_FALSE(shape.isEmpty());
  const geotest::Box box = geotest::extents(shape);
  EXPECT_DOUBLE_EQ(box.width(), 10.0);
  EXPECT_DOUBLE_EQ(box.height(), 3.0);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 1), 1);
}

TEST_F(ObjShapeTest, BlockReadsChamferCornersAndRepresentation) {
  auto s = section(R"({"TYPE": "KLOTZ", "B": 30.0, "H": 6.0, "CHAMFER": 1.0, "CHF_FLAG": 1, "HATCH": "M"})");
  const Shape shape = ZEL::objShape(s.get());
  ASSERT_EQ(shape.outline.count(), 5);
  EXPECT_DOUBLE_EQ(shape.outline[0].x, 1.0);
  EXPECT_DOUBLE_EQ(shape.outline[0].y, 0.0);
  EXPECT_EQ(geotest::countAreas(shape, Area::Fill::Hatch, 1), 1);

  auto outline = section(R"({"TYPE": "KLOTZ", "B": 30, "H": 6, "HATCH": "R"})");  // integers read as reals
  const Shape o = ZEL::objShape(outline.get());
  EXPECT_EQ(o.paths.size(), 1u);
  EXPECT_TRUE(o.areas.empty());
  EXPECT_DOUBLE_EQ(geotest::extents(o).width(), 30.0);
}

TEST_F(ObjShapeTest, RepresentationLettersAreReadPerType) {
  // "N" is the standard block but the seal's outline.
  auto blockN = section(R"({"TYPE": "KLOTZ", "B": 30.0, "H": 5.0, "HATCH": "N"})");
  auto sealN = section(R"({"TYPE": "DICHT", "B": 30.0, "H": 5.0, "HATCH": "N"})");
  EXPECT_EQ(ZEL::objShape(blockN.get()).paths.size(), 3u);
  const Shape seal = ZEL::objShape(sealN.get());
  EXPECT_EQ(seal.paths.size(), 1u);
  EXPECT_TRUE(seal.areas.empty());
}

TEST_F(ObjShapeTest, MissingSizesReadAsZeroAndGiveNoShape) {
  auto block = section(R"({"TYPE": "KLOTZ", "HATCH": "M"})");
  EXPECT_TRUE(ZEL::objShape(block.get()).isEmpty());
  auto seal = section(R"({"TYPE": "DICHT", "B": 10.0})");
  EXPECT_TRUE(ZEL::objShape(seal.get()).isEmpty());
  auto wrongType = section(R"({"TYPE": "DICHT", "B": "10", "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(wrongType.get()).isEmpty());
}

TEST_F(ObjShapeTest, NoSectionOrUnknownTypeGivesNoShape) {
  EXPECT_TRUE(ZEL::objShape(nullptr).isEmpty());
  auto unknown = section(R"({"TYPE": "HLBZ", "B": 10.0, "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(unknown.get()).isEmpty());
  auto untyped = section(R"({"B": 10.0, "H": 3.0})");
  EXPECT_TRUE(ZEL::objShape(untyped.get()).isEmpty());
}
