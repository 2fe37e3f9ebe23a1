#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>
#include <cmath>

namespace ZEL::geo::norm {

namespace {

// Centre, radius, start angle and sweep of the arc from a to b with a's bulge.
void arcOf(const ZelVertex& a, const ZelVertex& b, double& cx, double& cy, double& r, double& start, double& sweep) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double chord = std::hypot(dx, dy);
  const double bulge = a.bulge;
  sweep = 4.0 * std::atan(bulge);
  r = chord * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
  const double d = chord * (1.0 - bulge * bulge) / (4.0 * bulge);  // signed, to the chord's left
  cx = (a.x + b.x) / 2.0 - dy / chord * d;
  cy = (a.y + b.y) / 2.0 + dx / chord * d;
  start = std::atan2(a.y - cy, a.x - cx);
}

double cross(Pt a, Pt b) { return a.x * b.y - a.y * b.x; }

double distanceToSegment(Pt p, Pt a, Pt b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double len2 = dx * dx + dy * dy;
  double t = len2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len2 : 0.0;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

}  // namespace

std::vector<Pt> flatten(const CZelVertexArray& outline, int perArc) {
  std::vector<Pt> out;
  const int n = outline.count();
  for (int i = 0; i < n; ++i) {
    const ZelVertex& a = outline[i];
    const ZelVertex& b = outline[(i + 1) % n];
    out.push_back({a.x, a.y});
    if (a.bulge == 0.0 || (a.x == b.x && a.y == b.y)) continue;
    double cx, cy, r, start, sweep;
    arcOf(a, b, cx, cy, r, start, sweep);
    const int steps = std::max(2, static_cast<int>(std::ceil(std::fabs(sweep) / kPi * perArc)));
    for (int k = 1; k < steps; ++k) {
      const double t = start + sweep * k / steps;
      out.push_back({cx + r * std::cos(t), cy + r * std::sin(t)});
    }
  }
  return out;
}

CZelVertexArray scaled(const CZelVertexArray& outline, double factor) {
  CZelVertexArray out;
  for (const ZelVertex& v : outline) out.add(v.x * factor, v.y * factor, v.bulge);
  return out;
}

CZelVertexArray mirroredX(const CZelVertexArray& outline) {
  CZelVertexArray out;
  for (const ZelVertex& v : outline) out.add(-v.x, v.y, -v.bulge);
  return out;
}

CZelVertexArray hexagon(double s) { return hexagon(s, s / std::cos(kPi / 6.0)); }

CZelVertexArray hexagon(double s, double e) {
  // Corners at ±e/2 on the vertical axis, flats at ±s/2; the side corners sit at a quarter
  // of e, so that a table's across-corners (a minimum, a little under the regular one's) is
  // kept exactly. An e that no such hexagon can have gives the regular hexagon.
  if (!(e > s && e < 2.0 * s)) e = s / std::cos(kPi / 6.0);
  CZelVertexArray v;
  v.add(0.0, e / 2.0);
  v.add(-s / 2.0, e / 4.0);
  v.add(-s / 2.0, -e / 4.0);
  v.add(0.0, -e / 2.0);
  v.add(s / 2.0, -e / 4.0);
  v.add(s / 2.0, e / 4.0);
  return v;
}

CZelVertexArray roundedRectangle(double width, double height, double radius) {
  const double w = width / 2.0, h = height / 2.0;
  const double r = std::clamp(radius, 0.0, std::min(w, h));
  CZelVertexArray v;
  if (r <= 0.0) return rectangle(-w, -h, w, h);
  const double b = bulgeOfSweep(kPi / 2.0);
  v.add(-w + r, -h);
  v.add(w - r, -h, b);
  v.add(w, -h + r);
  v.add(w, h - r, b);
  v.add(w - r, h);
  v.add(-w + r, h, b);
  v.add(-w, h - r);
  v.add(-w, -h + r, b);
  return v;
}

Where locate(const std::vector<Pt>& polygon, Pt point, double tolerance) {
  const std::size_t n = polygon.size();
  bool inside = false;
  for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
    const Pt& a = polygon[i];
    const Pt& b = polygon[j];
    if (distanceToSegment(point, a, b) <= tolerance) return Where::Boundary;
    if ((a.y > point.y) != (b.y > point.y)) {
      const double x = a.x + (point.y - a.y) * (b.x - a.x) / (b.y - a.y);
      if (point.x < x) inside = !inside;
    }
  }
  return inside ? Where::Inside : Where::Outside;
}

bool rayEntersInside(const std::vector<Pt>& polygon, Pt from, Pt dir, double tolerance) {
  std::vector<double> ts{0.0};
  const std::size_t n = polygon.size();
  double far = 0.0;
  for (std::size_t i = 0; i < n; ++i) {
    const Pt a = polygon[i];
    const Pt b = polygon[(i + 1) % n];
    far = std::max(far, std::hypot(a.x - from.x, a.y - from.y));
    const Pt e{b.x - a.x, b.y - a.y};
    const double den = cross(dir, e);
    if (std::fabs(den) < 1e-15) continue;
    const Pt w{a.x - from.x, a.y - from.y};
    const double t = cross(w, e) / den;
    const double s = cross(w, dir) / den;
    if (t > tolerance && s >= -1e-12 && s <= 1.0 + 1e-12) ts.push_back(t);
  }
  ts.push_back(2.0 * far + 1.0);
  std::sort(ts.begin(), ts.end());
  for (std::size_t i = 0; i + 1 < ts.size(); ++i) {
    if (ts[i + 1] - ts[i] <= tolerance) continue;
    const double t = (ts[i] + ts[i + 1]) / 2.0;
    if (locate(polygon, {from.x + dir.x * t, from.y + dir.y * t}, tolerance) == Where::Inside) return true;
  }
  return false;
}

Where containment(const std::vector<Pt>& outer, const std::vector<Pt>& inner, double tolerance) {
  bool allBoundary = true;
  for (const Pt& p : inner) {
    const Where w = locate(outer, p, tolerance);
    if (w == Where::Outside) return Where::Outside;
    if (w == Where::Inside) allBoundary = false;
  }
  return allBoundary ? Where::Boundary : Where::Inside;
}

void extent(const std::vector<Pt>& polygon, Pt dir, double& lo, double& hi) {
  lo = hi = 0.0;
  bool first = true;
  for (const Pt& p : polygon) {
    const double d = p.x * dir.x + p.y * dir.y;
    if (first || d < lo) lo = d;
    if (first || d > hi) hi = d;
    first = false;
  }
}

CZelVertexArray threadArc(double radius) {
  // From the top, counter-clockwise through left and bottom to the right: three quarters.
  CZelVertexArray v;
  const double b = bulgeOfSweep(kPi / 2.0);
  v.add(0.0, radius, b);
  v.add(-radius, 0.0, b);
  v.add(0.0, -radius, b);
  v.add(radius, 0.0);
  return v;
}

}  // namespace ZEL::geo::norm
