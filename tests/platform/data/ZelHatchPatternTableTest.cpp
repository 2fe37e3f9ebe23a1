// The standard hatch patterns: names, descriptions and line families in millimetres.
#include "data/ZelHatchPatternTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

TEST(ZelHatchPatternTable, HoldsTheStandardSetInMillimetres) {
  const auto& table = ZEL::hatchPatternTable();
  ASSERT_FALSE(table.empty());
  EXPECT_EQ(table.front().name, CZelString(L"SOLID"));
  EXPECT_TRUE(table.front().solid);
  EXPECT_TRUE(table.front().lines.empty());

  std::set<std::wstring> names;
  for (const ZelHatchPattern& p : table) {
    EXPECT_TRUE(names.insert(p.name.str()).second) << p.name.toUtf8() << " twice";
    EXPECT_FALSE(p.description.isEmpty()) << p.name.toUtf8();
    if (p.solid) continue;
    EXPECT_FALSE(p.lines.empty()) << p.name.toUtf8() << " lost its families";
    for (const ZelPatternLine& f : p.lines) {
      EXPECT_GT(std::fabs(f.dy), 0.0) << p.name.toUtf8();
      EXPECT_TRUE(f.dashes.empty() || f.period() > 0.0) << p.name.toUtf8();
    }
  }
  for (const wchar_t* name : {L"ANSI31", L"ANSI32", L"ANSI33", L"ANSI34", L"ANSI35", L"ANSI36", L"ANSI37", L"ANSI38",
                              L"AR-B816", L"AR-B88", L"AR-BRELM", L"AR-CONC", L"AR-HBONE", L"AR-SAND", L"BRICK", L"CROSS",
                              L"DASH", L"DOTS", L"EARTH", L"GRAVEL", L"GRASS", L"HEX", L"HONEY", L"INSUL", L"LINE", L"NET",
                              L"NET3", L"SQUARE", L"STARS", L"STEEL", L"TRIANG", L"ZIGZAG", L"ACAD_ISO02W100"})
    EXPECT_EQ(names.count(name), 1u) << CZelString(name).toUtf8();
}

TEST(ZelHatchPatternTable, InchPatternsAreTurnedIntoMillimetres) {
  const ZelHatchPattern* ansi31 = ZEL::findHatchPattern(L"ansi31");
  ASSERT_NE(ansi31, nullptr);
  EXPECT_EQ(ansi31->name, CZelString(L"ANSI31"));
  EXPECT_EQ(ansi31->description, CZelString(L"ANSI Iron, Brick, Stone masonry"));
  ASSERT_EQ(ansi31->lines.size(), 1u);
  EXPECT_EQ(ansi31->lines[0].angle, 45.0);
  EXPECT_NEAR(ansi31->lines[0].dy, 3.175, 1e-12);

  const ZelHatchPattern* ansi33 = ZEL::findHatchPattern(L"ANSI33");
  ASSERT_NE(ansi33, nullptr);
  ASSERT_EQ(ansi33->lines.size(), 2u);
  EXPECT_NEAR(ansi33->lines[1].x, 4.490128053, 1e-6);  // .176776695 in
  ASSERT_EQ(ansi33->lines[1].dashes.size(), 2u);
  EXPECT_NEAR(ansi33->lines[1].dashes[0], 3.175, 1e-12);
  EXPECT_NEAR(ansi33->lines[1].dashes[1], -1.5875, 1e-12);

  const ZelHatchPattern* brick = ZEL::findHatchPattern(L"AR-B816");
  ASSERT_NE(brick, nullptr);
  EXPECT_NEAR(brick->lines[0].dy, 203.2, 1e-9);

  // The ISO line patterns are millimetres already.
  const ZelHatchPattern* iso = ZEL::findHatchPattern(L"ACAD_ISO02W100");
  ASSERT_NE(iso, nullptr);
  EXPECT_EQ(iso->lines[0].dy, 5.0);
  EXPECT_EQ(iso->lines[0].dashes, (std::vector<double>{12.0, -3.0}));

  EXPECT_EQ(ZEL::findHatchPattern(L"ANSI99"), nullptr);
  EXPECT_EQ(ZEL::findHatchPattern(L""), nullptr);
}
