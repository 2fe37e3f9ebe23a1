// Standard parts drawn from their figures, checked by coordinates: the hexagon of a hex
// screw end-on, the side views' widths, thread and hidden lines by the display flags, the
// cross-sections of rolled and hollow sections, the mirrored views and the hatch.
#include "obj/geometry/ZelNormShape.h"

#include "ShapeTestTools.h"
#include "NormTestParts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

using ZEL::geo::Layer;
using ZEL::geo::normPartShape;
using ZEL::geo::Path;
using ZEL::geo::Shape;

namespace {

std::vector<Path> on(const Shape& s, Layer layer) {
  std::vector<Path> out;
  for (const Path& p : s.paths)
    if (p.layer == layer) out.push_back(p);
  return out;
}

geotest::Box boxOn(const Shape& s, Layer layer) {
  geotest::Box box;
  for (const Path& p : on(s, layer)) geotest::addToBox(box, p.points, p.closed);
  return box;
}

// Closed contour paths of straight edges with n corners.
std::vector<Path> polygons(const Shape& s, int n, Layer layer = Layer::Contour) {
  std::vector<Path> out;
  for (const Path& p : on(s, layer))
    if (p.closed && p.points.count() == n &&
        std::all_of(p.points.begin(), p.points.end(), [](const ZelVertex& v) { return v.bulge == 0.0; }))
      out.push_back(p);
  return out;
}

// Horizontal straight lines (y values) on a layer.
std::vector<double> horizontalLines(const Shape& s, Layer layer) {
  std::vector<double> ys;
  for (const Path& p : on(s, layer))
    if (!p.closed && p.points.count() == 2 && std::fabs(p.points[0].y - p.points[1].y) < 1e-9 &&
        std::fabs(p.points[0].x - p.points[1].x) > 1e-9)
      ys.push_back(p.points[0].y);
  std::sort(ys.begin(), ys.end());
  return ys;
}

bool hasValue(const std::vector<double>& values, double v, double tol = 1e-6) {
  return std::any_of(values.begin(), values.end(), [&](double x) { return std::fabs(x - v) < tol; });
}

Shape drawn(CZelDataItem& part, int view, int flags) {
  normtest::setView(part, view, flags);
  return normPartShape(&part);
}

// Closed circles (two half arcs) on a layer: their radii.
std::vector<double> circleRadii(const Shape& s, Layer layer) {
  std::vector<double> r;
  for (const Path& p : on(s, layer))
    if (p.closed && p.points.count() == 2 && std::fabs(std::fabs(p.points[0].bulge) - 1.0) < 1e-12)
      r.push_back(std::hypot(p.points[1].x - p.points[0].x, p.points[1].y - p.points[0].y) / 2.0);
  std::sort(r.begin(), r.end());
  return r;
}

}  // namespace

TEST(NormShapeHexScrew, LeftViewShowsTheHexagonWithItsFlatsAndCorners) {
  auto screw = normtest::iso4017M12(60.0, 0, 0);
  const Shape s = normPartShape(screw.get());
  const auto hex = polygons(s, 6);
  ASSERT_EQ(hex.size(), 1u);
  const geotest::Box box = geotest::extents(hex[0].points);
  EXPECT_NEAR(box.width(), 18.0, 1e-9);    // across flats
  EXPECT_NEAR(box.height(), 20.03, 1e-9);  // across corners
  // Opposite corners lie symmetric about the centre.
  for (int i = 0; i < 3; ++i) {
    EXPECT_NEAR(hex[0].points[i].x, -hex[0].points[i + 3].x, 1e-9);
    EXPECT_NEAR(hex[0].points[i].y, -hex[0].points[i + 3].y, 1e-9);
  }
  // The chamfer circle on the head touches the flats; the bearing face and the shank lie
  // behind the head.
  EXPECT_TRUE(hasValue(circleRadii(s, Layer::Contour), 9.0));
  const auto hidden = circleRadii(s, Layer::Hidden);
  EXPECT_TRUE(hasValue(hidden, 16.63 / 2.0));
  EXPECT_TRUE(hasValue(hidden, 6.0));
}

TEST(NormShapeHexScrew, RightViewSeesShankBearingFaceAndThreadFromTheTip) {
  auto screw = normtest::iso4017M12(60.0, 32, 0);
  const Shape s = normPartShape(screw.get());
  const auto contour = circleRadii(s, Layer::Contour);
  EXPECT_TRUE(hasValue(contour, 6.0));
  EXPECT_TRUE(hasValue(contour, 16.63 / 2.0));
  EXPECT_EQ(polygons(s, 6).size(), 1u);
  EXPECT_TRUE(on(s, Layer::Hidden).empty());
  // The thread root as three quarters of a circle, open at the upper right.
  const auto thread = on(s, Layer::Thread);
  ASSERT_EQ(thread.size(), 1u);
  const geotest::Box b = geotest::extents(thread[0].points, false);
  const double root = (12.0 - 1.2268 * 1.75) / 2.0;
  EXPECT_NEAR(b.height(), 2.0 * root, 1e-6);
  EXPECT_NEAR(b.width(), 2.0 * root, 1e-6);
}

TEST(NormShapeHexScrew, SideViewsSpanHeadAndLength) {
  auto screw = normtest::iso4017M12();
  const Shape front = drawn(*screw, 2, 0);
  const geotest::Box f = boxOn(front, Layer::Contour);
  EXPECT_NEAR(f.width(), 7.5 + 60.0, 1e-9);
  EXPECT_NEAR(f.minX, -7.5, 1e-9);
  EXPECT_NEAR(f.height(), 20.03, 1e-9);  // across corners in front
  // The faces of the head seen across the corners: edges at ±e/4.
  const auto frontLines = horizontalLines(front, Layer::Contour);
  EXPECT_TRUE(hasValue(frontLines, 20.03 / 4.0));
  EXPECT_TRUE(hasValue(frontLines, -20.03 / 4.0));
  EXPECT_TRUE(hasValue(frontLines, 6.0));  // the shank
  const Shape top = drawn(*screw, 1, 0);
  EXPECT_NEAR(boxOn(top, Layer::Contour).height(), 18.0, 1e-9);  // across flats from above
  EXPECT_TRUE(hasValue(horizontalLines(top, Layer::Contour), 0.0));
  // Back: the front seen from behind, the head on the right.
  const geotest::Box back = boxOn(drawn(*screw, 34, 0), Layer::Contour);
  EXPECT_NEAR(back.maxX, 7.5, 1e-9);
  EXPECT_NEAR(back.minX, -60.0, 1e-9);
  const geotest::Box bottom = boxOn(drawn(*screw, 33, 0), Layer::Contour);
  EXPECT_NEAR(bottom.width(), 67.5, 1e-9);
  EXPECT_NEAR(bottom.height(), 18.0, 1e-9);
}

TEST(NormShapeHexScrew, ThreadAndHiddenLinesFollowTheirFlags) {
  auto screw = normtest::iso4017M12();
  const double root = (12.0 - 1.2268 * 1.75) / 2.0;
  const Shape with = drawn(*screw, 2, 0);
  const auto lines = horizontalLines(with, Layer::Thread);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NEAR(lines[0], -root, 1e-9);
  EXPECT_NEAR(lines[1], root, 1e-9);
  // Thread to the head: the lines run from the bearing face to the tip.
  for (const Path& p : on(with, Layer::Thread)) {
    if (p.points.count() != 2 || std::fabs(p.points[0].y - p.points[1].y) > 1e-9) continue;
    EXPECT_NEAR(std::min(p.points[0].x, p.points[1].x), 0.0, 1e-9);
    EXPECT_NEAR(std::max(p.points[0].x, p.points[1].x), 60.0, 1e-9);
  }
  EXPECT_TRUE(on(drawn(*screw, 2, 0x08), Layer::Thread).empty());
  EXPECT_TRUE(on(drawn(*screw, 32, 0x08), Layer::Thread).empty());
  // With thread lines suppressed, nothing else changes.
  EXPECT_EQ(on(drawn(*screw, 2, 0x08), Layer::Contour).size(), on(with, Layer::Contour).size());
  // Hidden lines likewise.
  EXPECT_FALSE(on(drawn(*screw, 0, 0), Layer::Hidden).empty());
  EXPECT_TRUE(on(drawn(*screw, 0, 0x04), Layer::Hidden).empty());
  // The thread seen from the head is hidden: it goes with either flag.
  EXPECT_EQ(on(drawn(*screw, 0, 0x08), Layer::Hidden).size() + 1, on(drawn(*screw, 0, 0), Layer::Hidden).size());
}

TEST(NormShapeHexScrew, PartialThreadOfIso4014EndsWithAThreadLine) {
  auto bolt = normtest::part("SCREW", "HEX", "ISO4014",
                             {{"d", 12}, {"P", 1.75}, {"b1", 30}, {"b2", 36}, {"b3", 49}, {"dw", 16.63}, {"e", 20.03}, {"k", 7.5}, {"s", 18}},
                             80.0, 2, 0);
  const Shape s = normPartShape(bolt.get());
  bool end = false;
  for (const Path& p : on(s, Layer::Thread))
    if (std::fabs(p.points[0].x - 50.0) < 1e-9 && std::fabs(p.points[1].x - 50.0) < 1e-9) end = true;
  EXPECT_TRUE(end);  // 80 - b1
}

TEST(NormShapeHexScrew, CentreAxesOnlyWithTheirFlag) {
  auto screw = normtest::iso4017M12();
  for (int view : {0, 1, 2, 32, 33, 34}) {
    EXPECT_TRUE(on(drawn(*screw, view, 0), Layer::Axis).empty()) << view;
    EXPECT_FALSE(on(drawn(*screw, view, 0x01), Layer::Axis).empty()) << view;
  }
  // The axis of the side view runs beyond both ends.
  const geotest::Box axis = boxOn(drawn(*screw, 2, 0x01), Layer::Axis);
  EXPECT_LT(axis.minX, -7.5);
  EXPECT_GT(axis.maxX, 60.0);
  EXPECT_NEAR(axis.minY, 0.0, 1e-12);
}

TEST(NormShapeSections, Ipe200EndViewHasItsFigures) {
  auto ipe = normtest::ipe200(0, 0);
  const Shape s = normPartShape(ipe.get());
  const auto profile = polygons(s, 12);
  ASSERT_EQ(profile.size(), 1u);
  const geotest::Box box = geotest::extents(profile[0].points);
  EXPECT_NEAR(box.height(), 200.0, 1e-9);
  EXPECT_NEAR(box.width(), 100.0, 1e-9);
  std::vector<double> xs, ys;
  for (const ZelVertex& v : profile[0].points) {
    xs.push_back(v.x);
    ys.push_back(v.y);
  }
  EXPECT_TRUE(hasValue(xs, 2.8));   // web 5.6
  EXPECT_TRUE(hasValue(xs, -2.8));
  EXPECT_TRUE(hasValue(ys, 91.5));  // flange 8.5
  EXPECT_TRUE(hasValue(ys, -91.5));
  EXPECT_TRUE(s.areas.empty());
}

TEST(NormShapeSections, InpFlangesSlopeAtFourteenPercent) {
  auto inp = normtest::part("SECTION", "I-BEAM", "INP", {{"h", 200}, {"b", 90}, {"tw", 7.5}, {"tf", 11.3}}, 1000.0);
  const auto profile = polygons(drawn(*inp, 0, 0), 12);
  ASSERT_EQ(profile.size(), 1u);
  const double half = (90 - 7.5) / 2.0;
  std::vector<double> tips, roots;
  for (const ZelVertex& v : profile[0].points) {
    if (std::fabs(std::fabs(v.x) - 45.0) < 1e-9 && std::fabs(std::fabs(v.y) - 100.0) > 1e-9) tips.push_back(100.0 - std::fabs(v.y));
    if (std::fabs(std::fabs(v.x) - 3.75) < 1e-9) roots.push_back(100.0 - std::fabs(v.y));
  }
  ASSERT_EQ(tips.size(), 4u);
  ASSERT_EQ(roots.size(), 4u);
  for (double t : tips) EXPECT_NEAR(t, 11.3 - 0.07 * half, 1e-9);
  for (double t : roots) EXPECT_NEAR(t, 11.3 + 0.07 * half, 1e-9);
  // The mean of the two is the table's thickness, as for a parallel flange.
  EXPECT_NEAR((tips[0] + roots[0]) / 2.0, 11.3, 1e-9);
}

TEST(NormShapeSections, Ipe200SideViewsShowFlangesAndHiddenWeb) {
  auto ipe = normtest::ipe200();
  const Shape front = drawn(*ipe, 2, 0);
  const auto visible = horizontalLines(front, Layer::Contour);
  for (double y : {-100.0, -91.5, 91.5, 100.0}) EXPECT_TRUE(hasValue(visible, y)) << y;
  EXPECT_NEAR(boxOn(front, Layer::Contour).width(), 1000.0, 1e-9);
  const Shape top = drawn(*ipe, 1, 0);
  const auto hidden = horizontalLines(top, Layer::Hidden);
  ASSERT_EQ(hidden.size(), 2u);
  EXPECT_NEAR(hidden[0], -2.8, 1e-9);
  EXPECT_NEAR(hidden[1], 2.8, 1e-9);
  EXPECT_NEAR(boxOn(top, Layer::Contour).height(), 100.0, 1e-9);
  EXPECT_TRUE(on(drawn(*ipe, 1, 0x04), Layer::Hidden).empty());
}

TEST(NormShapeSections, CutFaceHatchedOnlyEndOnAndOnRequest) {
  auto ipe = normtest::ipe200();
  normtest::put(*ipe, L"DRAW", ZEL::mkResbuf(L"SMDB"));
  for (int view : {0, 32}) {
    const Shape s = drawn(*ipe, view, 0);
    ASSERT_EQ(s.areas.size(), 1u) << view;
    EXPECT_NEAR(std::fabs(geotest::signedArea(s.areas[0].outline)), 2 * 100 * 8.5 + (200 - 17) * 5.6, 1e-6);
  }
  for (int view : {1, 2, 3, 33, 34}) EXPECT_TRUE(drawn(*ipe, view, 0).areas.empty()) << view;
  auto screw = normtest::iso4017M12();
  normtest::put(*screw, L"DRAW", ZEL::mkResbuf(L"SMDB"));
  EXPECT_TRUE(drawn(*screw, 0, 0).areas.empty());
}

TEST(NormShapeSections, RectangularHollowSectionHasItsWall) {
  auto rhs = normtest::part("SECTION", "HOLLOW-RECT", "RHS", {{"h", 100}, {"b", 50}, {"t", 5}}, 1000.0, 0, 0);
  const Shape s = normPartShape(rhs.get());
  const auto contour = on(s, Layer::Contour);
  ASSERT_EQ(contour.size(), 2u);
  std::vector<geotest::Box> boxes{geotest::extents(contour[0].points), geotest::extents(contour[1].points)};
  std::sort(boxes.begin(), boxes.end(), [](const auto& a, const auto& b) { return a.width() < b.width(); });
  EXPECT_NEAR(boxes[1].width(), 50.0, 1e-6);
  EXPECT_NEAR(boxes[1].height(), 100.0, 1e-6);
  EXPECT_NEAR(boxes[0].width(), 40.0, 1e-6);  // wall 5 on each side
  EXPECT_NEAR(boxes[0].height(), 90.0, 1e-6);
  // The hatched wall: outer minus inner area.
  normtest::put(*rhs, L"DRAW", ZEL::mkResbuf(L"SMDB"));
  const Shape hatched = normPartShape(rhs.get());
  ASSERT_EQ(hatched.areas.size(), 1u);
  const double outer = 50 * 100 - (4 - 3.14159265358979) * 7.5 * 7.5;
  const double inner = 40 * 90 - (4 - 3.14159265358979) * 5 * 5;
  EXPECT_NEAR(std::fabs(geotest::signedArea(hatched.areas[0].outline)), outer - inner, 1e-3);
  // Side views: the inner faces hidden, the tangent lines of the corners as light edges.
  const Shape front = drawn(*rhs, 2, 0);
  const auto hidden = horizontalLines(front, Layer::Hidden);
  EXPECT_TRUE(hasValue(hidden, 45.0));
  EXPECT_TRUE(hasValue(hidden, -45.0));
  const auto light = horizontalLines(front, Layer::Light);
  EXPECT_TRUE(hasValue(light, 50.0 - 7.5));
  EXPECT_TRUE(hasValue(light, -50.0 + 7.5));
  EXPECT_TRUE(on(drawn(*rhs, 2, 0x10), Layer::Light).empty());
}

TEST(NormShapeSections, CircularHollowSectionIsTwoCircles) {
  auto chs = normtest::part("SECTION", "HOLLOW-ROUND", "CHS", {{"D", 48.3}, {"t", 3.2}}, 500.0, 32, 0);
  const Shape s = normPartShape(chs.get());
  const auto radii = circleRadii(s, Layer::Contour);
  ASSERT_EQ(radii.size(), 2u);
  EXPECT_NEAR(radii[0], 48.3 / 2.0 - 3.2, 1e-9);
  EXPECT_NEAR(radii[1], 48.3 / 2.0, 1e-9);
  const Shape front = drawn(*chs, 2, 0);
  const auto visible = horizontalLines(front, Layer::Contour);
  const auto hidden = horizontalLines(front, Layer::Hidden);
  EXPECT_TRUE(hasValue(visible, 24.15));
  EXPECT_TRUE(hasValue(visible, -24.15));
  EXPECT_TRUE(hasValue(hidden, 24.15 - 3.2));
  EXPECT_TRUE(hasValue(hidden, -24.15 + 3.2));
}

TEST(NormShapeSections, RightEndViewMirrorsTheLeftOneAndChannelFacesHide) {
  auto channel = normtest::part("SECTION", "CHANNEL", "UPE", {{"h", 200}, {"b", 80}, {"tw", 6}, {"tf", 11}}, 1000.0);
  auto screw = normtest::iso4017M12();
  for (const auto& [part, corners] : {std::pair{channel.get(), 8}, std::pair{screw.get(), 6}}) {
    const auto left = polygons(drawn(*part, 0, 0), corners);
    const auto right = polygons(drawn(*part, 32, 0), corners);
    ASSERT_EQ(left.size(), 1u) << corners;
    ASSERT_EQ(right.size(), 1u) << corners;
    for (int i = 0; i < corners; ++i) {
      EXPECT_NEAR(right[0].points[i].x, -left[0].points[i].x, 1e-12);
      EXPECT_NEAR(right[0].points[i].y, left[0].points[i].y, 1e-12);
    }
  }
  // From the front (flanges toward the viewer) their inner faces are visible; from the back
  // (the web's side) they are hidden.
  EXPECT_TRUE(hasValue(horizontalLines(drawn(*channel, 2, 0), Layer::Contour), 89.0));
  EXPECT_TRUE(hasValue(horizontalLines(drawn(*channel, 34, 0), Layer::Hidden), 89.0));
  const geotest::Box back = boxOn(drawn(*channel, 34, 0), Layer::Contour);
  EXPECT_NEAR(back.minX, -1000.0, 1e-9);
  // The channel has a centre line only across its height.
  const auto axes = on(drawn(*channel, 0, 0x01), Layer::Axis);
  ASSERT_EQ(axes.size(), 1u);
  EXPECT_NEAR(axes[0].points[0].y, 0.0, 1e-12);
  EXPECT_NEAR(axes[0].points[1].y, 0.0, 1e-12);
}

TEST(NormShapeSections, DrillAxesMarkTheFlangeGaugeLines) {
  auto ipe = normtest::ipe200();
  EXPECT_TRUE(on(drawn(*ipe, 1, 0), Layer::Axis).empty());
  const auto gauges = horizontalLines(drawn(*ipe, 1, 0x02), Layer::Axis);
  ASSERT_EQ(gauges.size(), 2u);
  EXPECT_NEAR(gauges[1], (2.8 + 50.0) / 2.0, 1e-9);
  EXPECT_NEAR(gauges[0], -(2.8 + 50.0) / 2.0, 1e-9);
  EXPECT_EQ(on(drawn(*ipe, 0, 0x02), Layer::Axis).size(), 4u);  // through each flange half
}

TEST(NormShapeNuts, HexNutEndOnShowsBoreAndInternalThread) {
  auto nut = normtest::part("NUT", "HEX", "ISO4032",
                            {{"d", 12}, {"P", 1.75}, {"dw", 16.6}, {"e", 20.03}, {"m", 10.8}, {"s_nom", 18}}, 0.0, 0, 0);
  const Shape s = normPartShape(nut.get());
  ASSERT_EQ(polygons(s, 6).size(), 1u);
  const double root = (12.0 - 1.2268 * 1.75) / 2.0;
  EXPECT_TRUE(hasValue(circleRadii(s, Layer::Contour), root));
  const auto thread = on(s, Layer::Thread);
  ASSERT_EQ(thread.size(), 1u);
  EXPECT_NEAR(geotest::extents(thread[0].points, false).height(), 12.0, 1e-6);
  const Shape front = drawn(*nut, 2, 0);
  EXPECT_NEAR(boxOn(front, Layer::Contour).width(), 10.8, 1e-9);
  EXPECT_TRUE(hasValue(horizontalLines(front, Layer::Hidden), 6.0));   // thread, internal
  EXPECT_TRUE(hasValue(horizontalLines(front, Layer::Hidden), root));  // bore
}

TEST(NormShapeFamilies, SocketAndSlotAreSeenWhereTheyOpen) {
  auto cap = normtest::part("SCREW", "SOCKET", "ISO4762", {{"d", 8}, {"P", 1.25}, {"b", 28}, {"dk_max", 13}, {"k", 8}, {"s_mean", 6.02}, {"t", 4}}, 40);
  EXPECT_EQ(polygons(drawn(*cap, 0, 0), 6).size(), 1u);            // the socket from the head
  EXPECT_EQ(polygons(drawn(*cap, 32, 0), 6, Layer::Hidden).size(), 1u);  // behind the head from the tip
  EXPECT_TRUE(hasValue(horizontalLines(drawn(*cap, 2, 0), Layer::Hidden), 6.02 / 2.0 / std::cos(3.14159265358979 / 6.0), 1e-6));
  auto cheese = normtest::part("SCREW", "CHEESE", "ISO1207", {{"d", 5}, {"P", 0.8}, {"b", 38}, {"dk", 8.5}, {"k", 3.3}, {"n_min", 0.8}, {"t_min", 1.3}}, 20);
  // The slot runs out at the sides: a notch in front, hidden from above.
  EXPECT_TRUE(hasValue(horizontalLines(drawn(*cheese, 2, 0), Layer::Contour), 0.4));
  EXPECT_FALSE(hasValue(horizontalLines(drawn(*cheese, 1, 0), Layer::Contour), 0.4));
}

TEST(NormShapeFamilies, UnusablePartsGiveNothing) {
  EXPECT_TRUE(normPartShape(nullptr).isEmpty());
  auto unknown = normtest::part("SCREW", "RIVET", "X", {{"d", 5}}, 10);
  EXPECT_TRUE(normPartShape(unknown.get()).isEmpty());
  auto noLength = normtest::iso4017M12(0.0);
  EXPECT_TRUE(normPartShape(noLength.get()).isEmpty());
  auto badView = normtest::iso4017M12(60.0, 5, 0);
  EXPECT_TRUE(normPartShape(badView.get()).isEmpty());
  auto thick = normtest::part("SECTION", "HOLLOW-ROUND", "CHS", {{"D", 10}, {"t", 6}}, 100);
  EXPECT_TRUE(normPartShape(thick.get()).isEmpty());
  auto huge = normtest::part("WASHER", "PLAIN", "ISO7089", {{"d1_min", 1e308}, {"d2_max", 1.7e308}, {"h", 1e308}}, 0);
  const Shape s = normPartShape(huge.get());
  EXPECT_TRUE(geotest::allFinite(s));
}

TEST(NormShapeFamilies, OddFiguresNeverGiveNonFiniteDrawings) {
  const double odd[] = {0.0, -3.0, 1e-300, 1e300, std::nan(""), std::numeric_limits<double>::infinity()};
  const std::vector<std::pair<const char*, const char*>> families = {
      {"SCREW", "HEX"}, {"SCREW", "SOCKET"}, {"SCREW", "COUNTERSUNK"}, {"SCREW", "BUTTON"}, {"SCREW", "PAN"},
      {"SCREW", "CHEESE"}, {"SCREW", "SET"}, {"SCREW", "TAPPING"}, {"NUT", "HEX"}, {"WASHER", "PLAIN"},
      {"SECTION", "I-BEAM"}, {"SECTION", "CHANNEL"}, {"SECTION", "ANGLE"}, {"SECTION", "TEE"},
      {"SECTION", "HOLLOW-RECT"}, {"SECTION", "HOLLOW-ROUND"}};
  const char* names[] = {"d", "P", "k", "s", "e", "dk", "dk_max", "h", "b", "tw", "tf", "t", "D", "a", "m", "d1_min", "d2_max"};
  for (const auto& [category, group] : families)
    for (const char* name : names)
      for (double value : odd) {
        // A sound part of the family with one figure made odd.
        std::vector<std::pair<const char*, double>> dims = {
            {"d", 8}, {"P", 1.25}, {"k", 5}, {"s", 13}, {"e", 14.4}, {"dk", 13}, {"dk_max", 13}, {"h", 100}, {"b", 50},
            {"tw", 5}, {"tf", 8}, {"t", 4}, {"D", 60}, {"a", 50}, {"m", 6.8}, {"d1_min", 8.4}, {"d2_max", 16}};
        for (auto& dim : dims)
          if (std::string(dim.first) == name) dim.second = value;
        auto part = normtest::part(category, group, "X", dims, 40.0);
        for (int view : {0, 2, 3}) {  // an end view, a side view, the isometric one
          const Shape s = drawn(*part, view, 0x03);
          EXPECT_TRUE(geotest::allFinite(s)) << category << "/" << group << " " << name << "=" << value << " view " << view;
        }
      }
}
