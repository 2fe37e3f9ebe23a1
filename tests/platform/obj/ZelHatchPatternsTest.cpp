// Hatching an outline with a pattern: the pattern's line families scaled, turned, dashed and
// cut at the outline, checked by the coordinates of the segments.
#include "obj/ZelHatchPatterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr double kEps = 1e-9;
constexpr double kDeg = std::numbers::pi / 180.0;

CZelVertexArray rectangle(double x0, double y0, double w, double h) {
  CZelVertexArray r;
  r.add(x0, y0);
  r.add(x0 + w, y0);
  r.add(x0 + w, y0 + h);
  r.add(x0, y0 + h);
  return r;
}

struct Segment {
  ZelVertex a, b;
  double length() const { return std::hypot(b.x - a.x, b.y - a.y); }
  // Direction in degrees within [0, 180).
  double direction() const {
    double d = std::fmod(std::atan2(b.y - a.y, b.x - a.x) / kDeg + 360.0, 180.0);
    return d > 180.0 - 1e-7 ? 0.0 : d;
  }
  // Distance of the segment's line from the origin, measured along the normal of `degrees`.
  double across(double degrees) const { return -a.x * std::sin(degrees * kDeg) + a.y * std::cos(degrees * kDeg); }
  double along(double degrees) const { return a.x * std::cos(degrees * kDeg) + a.y * std::sin(degrees * kDeg); }
};

std::vector<Segment> segments(const CDisplayList& list) {
  std::vector<Segment> out;
  for (const CDisplayList::Item& item : list.items()) {
    if (item.kind != CDisplayList::Kind::Segments) continue;
    for (int i = 0; i + 1 < item.points.count(); i += 2) out.push_back({item.points[i], item.points[i + 1]});
  }
  return out;
}

std::vector<Segment> hatch(const CZelVertexArray& outline, const wchar_t* pattern, double scale, double angle) {
  CDisplayList list;
  EXPECT_TRUE(ZEL::addPatternHatch(list, outline, pattern, scale, angle, CZelColor::fromIndex(1)));
  return segments(list);
}

// The distinct distances of a family's lines from the origin, sorted.
std::vector<double> lineDistances(const std::vector<Segment>& s, double degrees) {
  std::vector<double> d;
  for (const Segment& seg : s)
    if (std::fabs(seg.direction() - degrees) < 1e-7) d.push_back(seg.across(degrees));
  std::sort(d.begin(), d.end());
  d.erase(std::unique(d.begin(), d.end(), [](double x, double y) { return std::fabs(x - y) < 1e-7; }), d.end());
  return d;
}

bool onBoundary(const ZelVertex& p, double x0, double y0, double x1, double y1) {
  const bool insideX = p.x > x0 - kEps && p.x < x1 + kEps, insideY = p.y > y0 - kEps && p.y < y1 + kEps;
  return insideX && insideY &&
         (std::fabs(p.x - x0) < kEps || std::fabs(p.x - x1) < kEps || std::fabs(p.y - y0) < kEps || std::fabs(p.y - y1) < kEps);
}

}  // namespace

TEST(ZelHatchPatterns, Ansi31CutsFortyFiveDegreeLinesAtTheOutline) {
  const std::vector<Segment> s = hatch(rectangle(0, 0, 10, 10), L"ANSI31", 1.0, 0.0);
  ASSERT_FALSE(s.empty());
  for (const Segment& seg : s) {
    EXPECT_NEAR(seg.direction(), 45.0, 1e-9);
    EXPECT_TRUE(onBoundary(seg.a, 0, 0, 10, 10)) << seg.a.x << "," << seg.a.y;
    EXPECT_TRUE(onBoundary(seg.b, 0, 0, 10, 10)) << seg.b.x << "," << seg.b.y;
  }
  // Lines through the origin every 3.175 mm across: the square's diagonal band from -7.07 to
  // 7.07 holds the lines -2 … 2 (with ±2 × 3.175 = ±6.35), one segment each.
  const std::vector<double> d = lineDistances(s, 45.0);
  ASSERT_EQ(d.size(), 5u);
  ASSERT_EQ(s.size(), 5u);
  for (std::size_t i = 0; i < d.size(); ++i) EXPECT_NEAR(d[i], (static_cast<double>(i) - 2.0) * 3.175, 1e-9);
  // The line through the origin is the diagonal.
  for (const Segment& seg : s)
    if (std::fabs(seg.across(45.0)) < 1e-9) {
      EXPECT_NEAR(seg.length(), 10.0 * std::sqrt(2.0), 1e-9);
    }
}

TEST(ZelHatchPatterns, ScaleSpreadsAndAngleTurnsTheLines) {
  const std::vector<Segment> twice = hatch(rectangle(0, 0, 10, 10), L"ANSI31", 2.0, 0.0);
  const std::vector<double> d2 = lineDistances(twice, 45.0);
  ASSERT_GE(d2.size(), 2u);
  for (std::size_t i = 1; i < d2.size(); ++i) EXPECT_NEAR(d2[i] - d2[i - 1], 6.35, 1e-9);

  // Turned by 45°: the lines are vertical, 3.175 apart, at x = -k × 3.175 (turned about the origin).
  const std::vector<Segment> upright = hatch(rectangle(0, 0, 10, 10), L"ANSI31", 1.0, 45 * kDeg);
  ASSERT_EQ(upright.size(), 4u);  // x = 0, 3.175, 6.35, 9.525
  for (const Segment& seg : upright) {
    EXPECT_NEAR(seg.direction(), 90.0, 1e-9);
    EXPECT_NEAR(seg.a.x, seg.b.x, 1e-9);
    EXPECT_NEAR(std::fmod(seg.a.x + 1e-6, 3.175), 0.0, 1e-5);
    EXPECT_NEAR(seg.length(), 10.0, 1e-9);
  }

  // A half scale halves the spacing of ANSI37's cross hatch; turned by 15° its families lie at 60° and 150°.
  const std::vector<Segment> cross = hatch(rectangle(0, 0, 10, 10), L"ansi37", 0.5, 15 * kDeg);
  const std::vector<double> at60 = lineDistances(cross, 60.0), at150 = lineDistances(cross, 150.0);
  ASSERT_GE(at60.size(), 2u);
  ASSERT_GE(at150.size(), 2u);
  EXPECT_NEAR(at60[1] - at60[0], 1.5875, 1e-9);
  EXPECT_NEAR(at150[1] - at150[0], 1.5875, 1e-9);
  for (const Segment& seg : cross) EXPECT_TRUE(std::fabs(seg.direction() - 60) < 1e-7 || std::fabs(seg.direction() - 150) < 1e-7);
}

TEST(ZelHatchPatterns, DashedFamiliesHaveTheirDashLengths) {
  // ANSI33: solid lines every 6.35 at 45°, and between them lines of 3.175 dashes and 1.5875 gaps.
  const std::vector<Segment> s = hatch(rectangle(-50, -50, 100, 100), L"ANSI33", 1.0, 0.0);
  int dashes = 0;
  for (const Segment& seg : s) {
    const double d = seg.across(45.0);
    const double k = d / 3.175;
    ASSERT_NEAR(k, std::round(k), 1e-7) << "every line is on the 3.175 grid";
    const bool solidLine = std::lround(k) % 2 == 0;
    if (solidLine) continue;
    const bool touchesEdge = onBoundary(seg.a, -50, -50, 50, 50) || onBoundary(seg.b, -50, -50, 50, 50);
    if (touchesEdge) continue;
    EXPECT_NEAR(seg.length(), 3.175, 1e-9);
    ++dashes;
  }
  EXPECT_GT(dashes, 100);

  // ACAD_ISO10W100 at scale 2: dashes of 24 mm and 1 mm with gaps of 6 mm, repeating every
  // 37 mm from x = 0, on lines every 10 mm.
  const std::vector<Segment> iso = hatch(rectangle(-100, -100, 200, 200), L"ACAD_ISO10W100", 2.0, 0.0);
  int longDashes = 0, shortDashes = 0;
  for (const Segment& seg : iso) {
    EXPECT_NEAR(seg.direction(), 0.0, 1e-9);
    EXPECT_NEAR(std::fmod(seg.a.y + 1000.0, 10.0), 0.0, 1e-9);
    if (std::fabs(seg.a.x + 100) < kEps || std::fabs(seg.b.x - 100) < kEps) continue;
    const double phase = std::fmod(std::min(seg.a.x, seg.b.x) + 37.0 * 100, 37.0);
    if (seg.length() > 12) {
      EXPECT_NEAR(seg.length(), 24.0, 1e-9);
      EXPECT_TRUE(phase < 1e-7 || phase > 37 - 1e-7) << phase;
      ++longDashes;
    } else {
      EXPECT_NEAR(seg.length(), 1.0, 1e-9);
      EXPECT_NEAR(phase, 30.0, 1e-7);
      ++shortDashes;
    }
  }
  EXPECT_GT(longDashes, 80);
  EXPECT_GT(shortDashes, 80);

  // DOTS: points (zero-length segments) every 1.5875 along lines 1.5875 apart, each row
  // shifted by 0.79375.
  const std::vector<Segment> dots = hatch(rectangle(0.1, 0.1, 10, 10), L"DOTS", 1.0, 0.0);
  ASSERT_FALSE(dots.empty());
  for (const Segment& seg : dots) {
    EXPECT_EQ(seg.length(), 0.0);
    const double row = seg.a.y / 1.5875;
    ASSERT_NEAR(row, std::round(row), 1e-7);
    const double phase = std::fmod(seg.a.x - std::round(row) * 0.79375 + 1.5875 * 100, 1.5875);
    EXPECT_TRUE(phase < 1e-7 || phase > 1.5875 - 1e-7) << phase;
  }
  EXPECT_EQ(dots.size(), 36u);  // 6 rows of 6 dots in a 10 mm square
}

TEST(ZelHatchPatterns, TheOutlineIsCutEvenOdd) {
  // A frame: outer 20 × 20, inner 10 × 10 hole, as one outline that goes round both.
  CZelVertexArray frame;
  for (auto [x, y] : {std::pair{0.0, 0.0}, {20.0, 0.0}, {20.0, 20.0}, {0.0, 20.0}, {0.0, 5.0}, {5.0, 5.0}, {5.0, 15.0},
                      {15.0, 15.0}, {15.0, 5.0}, {0.0, 5.0}})
    frame.add(x, y);
  const std::vector<Segment> s = hatch(frame, L"LINE", 1.0, 90 * kDeg);  // vertical lines
  ASSERT_FALSE(s.empty());
  for (const Segment& seg : s) {
    const double midY = (seg.a.y + seg.b.y) / 2, x = seg.a.x;
    if (x > 5 + kEps && x < 15 - kEps) {
      EXPECT_TRUE(midY < 5 || midY > 15) << "no line in the hole at x " << x;
    }
    EXPECT_GE(std::min(seg.a.y, seg.b.y), -kEps);
    EXPECT_LE(std::max(seg.a.y, seg.b.y), 20 + kEps);
  }
}

TEST(ZelHatchPatterns, BulgesAreFollowed) {
  // A circle of radius 10 as two half-circle bulges: every line ends on the circle (within the chords' sagitta).
  CZelVertexArray circle;
  circle.add(-10, 0, 1.0);
  circle.add(10, 0, 1.0);
  const std::vector<Segment> s = hatch(circle, L"ANSI31", 1.0, 0.0);
  ASSERT_EQ(s.size(), 7u);  // lines -3 … 3 at 3.175 within the radius 10
  for (const Segment& seg : s) {
    EXPECT_NEAR(std::hypot(seg.a.x, seg.a.y), 10.0, 0.01);
    EXPECT_NEAR(std::hypot(seg.b.x, seg.b.y), 10.0, 0.01);
  }
}

TEST(ZelHatchPatterns, SolidUnknownAndEmpty) {
  CDisplayList list;
  const CZelVertexArray square = rectangle(0, 0, 10, 10);
  ASSERT_TRUE(ZEL::addPatternHatch(list, square, L"solid", 3.0, 1.0, CZelColor::fromIndex(3)));
  ASSERT_EQ(list.items().size(), 1u);
  EXPECT_EQ(list.items()[0].kind, CDisplayList::Kind::Fill);
  EXPECT_EQ(list.items()[0].points, square);
  EXPECT_EQ(list.items()[0].color, CZelColor::fromIndex(3));

  EXPECT_FALSE(ZEL::addPatternHatch(list, square, L"ANSI99", 1.0, 0.0, CZelColor::fromIndex(3)));
  EXPECT_FALSE(ZEL::addPatternHatch(list, square, L"", 1.0, 0.0, CZelColor::fromIndex(3)));
  EXPECT_EQ(list.items().size(), 1u);

  // Known pattern, nothing to hatch: true, and nothing added.
  CZelVertexArray line;
  line.add(0, 0);
  line.add(10, 0);
  EXPECT_TRUE(ZEL::addPatternHatch(list, line, L"ANSI31", 1.0, 0.0, CZelColor::fromIndex(3)));
  EXPECT_EQ(list.items().size(), 1u);
  // A scale of 0 or a negative one draws as its size (0 as 1).
  EXPECT_EQ(hatch(square, L"ANSI31", 0.0, 0.0).size(), hatch(square, L"ANSI31", 1.0, 0.0).size());
  EXPECT_EQ(hatch(square, L"ANSI31", -2.0, 0.0).size(), hatch(square, L"ANSI31", 2.0, 0.0).size());
}

TEST(ZelHatchPatterns, ATinyScaleOnABigOutlineIsCapped) {
  CDisplayList list;
  ASSERT_TRUE(ZEL::addPatternHatch(list, rectangle(0, 0, 10000, 10000), L"ANSI31", 0.001, 0.0, CZelColor()));
  const std::vector<Segment> s = segments(list);
  EXPECT_LE(static_cast<int>(s.size()), ZEL::kMaxHatchSegments);
  EXPECT_GT(s.size(), 100u) << "a coarser hatch, not none";
  // Still ANSI31's direction, at a spacing of 3.175 × 0.001 × 2^k.
  const std::vector<double> d = lineDistances(s, 45.0);
  ASSERT_GE(d.size(), 2u);
  const double ratio = (d[1] - d[0]) / (3.175 * 0.001);
  EXPECT_NEAR(std::log2(ratio), std::round(std::log2(ratio)), 1e-6);

  CDisplayList sand;
  ASSERT_TRUE(ZEL::addPatternHatch(sand, rectangle(0, 0, 5000, 5000), L"AR-SAND", 0.01, 0.3, CZelColor()));
  EXPECT_LE(static_cast<int>(segments(sand).size()), ZEL::kMaxHatchSegments);
}
