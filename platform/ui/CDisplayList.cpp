#include "ui/CDisplayList.h"

#include <algorithm>
#include <cmath>
#include <numbers>

void CDisplayExtents::add(double x, double y) {
  if (empty) {
    minX = maxX = x;
    minY = maxY = y;
    empty = false;
    return;
  }
  minX = std::min(minX, x);
  maxX = std::max(maxX, x);
  minY = std::min(minY, y);
  maxY = std::max(maxY, y);
}

void CDisplayList::addLine(double x1, double y1, double x2, double y2, CZelColor color) {
  Item item;
  item.kind = Kind::Line;
  item.color = color;
  item.points.add(x1, y1);
  item.points.add(x2, y2);
  m_items.push_back(std::move(item));
}

void CDisplayList::addArc(double cx, double cy, double radius, double startAngle, double endAngle, CZelColor color) {
  Item item;
  item.kind = Kind::Arc;
  item.color = color;
  item.cx = cx;
  item.cy = cy;
  item.radius = radius;
  item.startAngle = startAngle;
  item.endAngle = endAngle;
  m_items.push_back(std::move(item));
}

void CDisplayList::addPolyline(const CZelVertexArray& points, bool closed, CZelColor color) {
  Item item;
  item.kind = Kind::Polyline;
  item.color = color;
  item.points = points;
  item.closed = closed;
  m_items.push_back(std::move(item));
}

void CDisplayList::addFill(const CZelVertexArray& outline, CZelColor color) {
  Item item;
  item.kind = Kind::Fill;
  item.color = color;
  item.points = outline;
  item.closed = true;
  m_items.push_back(std::move(item));
}

void CDisplayList::addSegments(CZelVertexArray endpoints, CZelColor color) {
  Item item;
  item.kind = Kind::Segments;
  item.color = color;
  item.points = std::move(endpoints);
  m_items.push_back(std::move(item));
}

namespace {

// An arc's extent: its end points and the quadrant points it passes.
void addArcExtents(CDisplayExtents& box, double cx, double cy, double r, double a0, double a1) {
  constexpr double kTwoPi = 2.0 * std::numbers::pi;
  a0 = std::fmod(a0, kTwoPi);
  if (a0 < 0) a0 += kTwoPi;
  while (a1 < a0) a1 += kTwoPi;
  box.add(cx + r * std::cos(a0), cy + r * std::sin(a0));
  box.add(cx + r * std::cos(a1), cy + r * std::sin(a1));
  for (int q = 0; q < 8; ++q) {
    double a = q * std::numbers::pi / 2.0;
    if (a > a0 && a < a1) box.add(cx + r * std::cos(a), cy + r * std::sin(a));
  }
}

}  // namespace

CDisplayExtents CDisplayList::extents() const {
  CDisplayExtents box;
  for (const Item& item : m_items) {
    if (item.kind == Kind::Arc) {
      addArcExtents(box, item.cx, item.cy, item.radius, item.startAngle, item.endAngle);
      continue;
    }
    int n = item.points.count();
    for (int i = 0; i < n; ++i) {
      const ZelVertex& v = item.points[i];
      box.add(v.x, v.y);
      bool last = i + 1 == n;
      if (v.bulge == 0.0 || (last && !item.closed)) continue;
      // A bulged segment is an arc; its bulge is tan(angle / 4), positive counter-clockwise.
      const ZelVertex& w = item.points[last ? 0 : i + 1];
      double dx = w.x - v.x, dy = w.y - v.y, chord = std::hypot(dx, dy);
      if (chord == 0.0) continue;
      double angle = 4.0 * std::atan(v.bulge);
      double r = chord / (2.0 * std::sin(angle / 2.0));
      double mx = (v.x + w.x) / 2.0, my = (v.y + w.y) / 2.0;
      double h = r * std::cos(angle / 2.0);
      double cx = mx - h * dy / chord, cy = my + h * dx / chord;
      double a0 = std::atan2(v.y - cy, v.x - cx), a1 = std::atan2(w.y - cy, w.x - cx);
      if (v.bulge < 0) std::swap(a0, a1);
      addArcExtents(box, cx, cy, std::fabs(r), a0, a1);
    }
  }
  return box;
}
