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

TEST(ZelHatchPatternTable, EveryFamilyLineOfThePatternTextIsRead) {
  // 65 patterns written out with 179 family lines between them, and GRAVEL built from stones.
  std::size_t patterns = 0, families = 0;
  for (const ZelHatchPattern& p : ZEL::hatchPatternTable()) {
    if (p.name == L"GRAVEL") continue;
    ++patterns;
    families += p.lines.size();
  }
  EXPECT_EQ(patterns, 65u);
  EXPECT_EQ(families, 179u);
  const std::pair<const wchar_t*, std::size_t> counts[] = {{L"AR-CONC", 13}, {L"AR-PARQ1", 14}, {L"AR-BRELM", 8}, {L"EARTH", 6},
                                                           {L"HEX", 5}, {L"ACAD_ISO15W100", 2}, {L"MUDST", 1}};
  for (const auto& [name, count] : counts) EXPECT_EQ(ZEL::findHatchPattern(name)->lines.size(), count) << CZelString(name).toUtf8();
  // Dots and negative numbers read as written: MUDST is a dash, a gap, a dot, a gap, a dot and a gap.
  EXPECT_EQ(ZEL::findHatchPattern(L"MUDST")->lines[0].dashes,
            (std::vector<double>{6.35, -6.35, 0.0, -6.35, 0.0, -6.35}));
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

TEST(ZelHatchPatternTable, GravelEdgesRepeatOnTheirCell) {
  // Each gravel edge is a family whose lines and dashes repeat on a 25.4 mm cell: the dash
  // sequence is as long as the edge's whole-cell direction vector.
  const ZelHatchPattern* gravel = ZEL::findHatchPattern(L"GRAVEL");
  ASSERT_NE(gravel, nullptr);
  ASSERT_GT(gravel->lines.size(), 20u);
  for (const ZelPatternLine& f : gravel->lines) {
    // Area of one repeat of the family: its line distance × its period = one cell.
    EXPECT_NEAR(std::fabs(f.dy) * f.period(), 25.4 * 25.4, 1e-6);
    ASSERT_EQ(f.dashes.size(), 2u);
    EXPECT_GT(f.dashes[0], 0.0);
    EXPECT_LT(f.dashes[0], 25.4 * 0.3);
  }
}

TEST(ZelHatchPatternTable, StandardListHasNamesAndDescriptions) {
  const auto list = ZEL::standardHatchPatterns();
  ASSERT_EQ(list.size(), ZEL::hatchPatternTable().size());
  EXPECT_EQ(list.front(), (std::pair<CZelString, CZelString>(L"SOLID", L"Solid fill")));
}
