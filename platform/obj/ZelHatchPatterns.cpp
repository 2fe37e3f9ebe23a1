#include "obj/ZelHatchPatterns.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr int kArcSegmentsPerTurn = 72;
// Lines walked across the outline, drawn or not: bounds the work as the segment cap bounds
// what is painted.
constexpr double kMaxHatchLines = 4000;
constexpr double kDegree = std::numbers::pi / 180.0;

struct Point {
  double x, y;
};

// The closed outline as straight edges: a bulged segment becomes chords, as many as a
// 72-sided circle would have on that arc.
std::vector<Point> flatten(const CZelVertexArray& outline) {
  std::vector<Point> out;
  const int n = outline.count();
  out.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    const ZelVertex& v = outline[i];
    const ZelVertex& w = outline[i + 1 == n ? 0 : i + 1];
    out.push_back({v.x, v.y});
    const double dx = w.x - v.x, dy = w.y - v.y, chord = std::hypot(dx, dy);
    if (v.bulge == 0.0 || chord == 0.0) continue;
    // The bulge is tan(angle / 4) of the arc from this vertex to the next.
    const double angle = 4.0 * std::atan(v.bulge);
    const double r = chord / (2.0 * std::sin(angle / 2.0));
    const double h = r * std::cos(angle / 2.0);
    const double cx = (v.x + w.x) / 2.0 - h * dy / chord, cy = (v.y + w.y) / 2.0 + h * dx / chord;
    const double a0 = std::atan2(v.y - cy, v.x - cx);
    const int steps = std::max(2, static_cast<int>(std::ceil(std::fabs(angle) / (2.0 * std::numbers::pi) * kArcSegmentsPerTurn)));
    for (int k = 1; k < steps; ++k) {
      const double a = a0 + angle * k / steps;
      out.push_back({cx + std::fabs(r) * std::cos(a), cy + std::fabs(r) * std::sin(a)});
    }
  }
  // A closing vertex that repeats the first adds nothing.
  if (out.size() > 1 && out.front().x == out.back().x && out.front().y == out.back().y) out.pop_back();
  return out;
}

// One family placed in the drawing: the lines {p : p.n = d0 + k * step}, each with its dash
// sequence starting at along0 + k * shift (positions measured along u).
struct PlacedFamily {
  double ux, uy, nx, ny;
  double d0, step;
  double along0, shift;
  std::vector<double> dashes;  // scaled
  double period = 0.0;         // scaled
  int drawn = 0;               // dashes and dots that draw
};

PlacedFamily place(const ZelPatternLine& f, double scale, double angle) {
  PlacedFamily p;
  const double theta = f.angle * kDegree + angle;
  p.ux = std::cos(theta);
  p.uy = std::sin(theta);
  p.nx = -p.uy;
  p.ny = p.ux;
  // The origin turns with the whole pattern about the drawing's origin.
  const double ox = (f.x * std::cos(angle) - f.y * std::sin(angle)) * scale;
  const double oy = (f.x * std::sin(angle) + f.y * std::cos(angle)) * scale;
  p.d0 = ox * p.nx + oy * p.ny;
  p.along0 = ox * p.ux + oy * p.uy;
  p.step = f.dy * scale;
  p.shift = f.dx * scale;
  for (double d : f.dashes) {
    p.dashes.push_back(d * scale);
    p.period += std::fabs(d * scale);
    if (d >= 0) ++p.drawn;
  }
  return p;
}

struct Span {
  double lo = 1e300, hi = -1e300;
};

Span project(const std::vector<Point>& poly, double ax, double ay) {
  Span s;
  for (const Point& p : poly) {
    const double v = p.x * ax + p.y * ay;
    s.lo = std::min(s.lo, v);
    s.hi = std::max(s.hi, v);
  }
  return s;
}

// Lines a family puts across the outline, and the segments it draws (an estimate that
// assumes one stretch inside the outline per line).
void estimate(const PlacedFamily& f, const std::vector<Point>& poly, double& lines, double& segments) {
  const Span across = project(poly, f.nx, f.ny), along = project(poly, f.ux, f.uy);
  const double rows = std::fabs(f.step) > 1e-12 ? (across.hi - across.lo) / std::fabs(f.step) + 1.0 : 1.0;
  const double pieces = f.period > 1e-12 ? ((along.hi - along.lo) / f.period + 1.0) * f.drawn : 1.0;
  lines += rows;
  segments += rows * pieces;
}

class Hatcher {
public:
  Hatcher(const std::vector<Point>& poly, CZelVertexArray& out) : m_poly(poly), m_out(out) {}

  void hatch(const PlacedFamily& f) {
    const std::size_t n = m_poly.size();
    m_across.resize(n);
    m_along.resize(n);
    double lo = 1e300, hi = -1e300;
    for (std::size_t i = 0; i < n; ++i) {
      m_across[i] = m_poly[i].x * f.nx + m_poly[i].y * f.ny;
      m_along[i] = m_poly[i].x * f.ux + m_poly[i].y * f.uy;
      lo = std::min(lo, m_across[i]);
      hi = std::max(hi, m_across[i]);
    }
    long first = 0, last = 0;
    if (std::fabs(f.step) > 1e-12) {
      const double a = (lo - f.d0) / f.step, b = (hi - f.d0) / f.step;
      first = static_cast<long>(std::ceil(std::min(a, b)));
      last = static_cast<long>(std::floor(std::max(a, b)));
    }
    for (long k = first; k <= last && !full(); ++k) line(f, f.d0 + k * f.step, f.along0 + k * f.shift);
  }

  bool full() const { return m_out.count() >= 4 * ZEL::kMaxHatchSegments; }  // two points a segment

private:
  void line(const PlacedFamily& f, double d, double start) {
    m_cuts.clear();
    const std::size_t n = m_poly.size();
    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t j = i + 1 == n ? 0 : i + 1;
      const double da = m_across[i] - d, db = m_across[j] - d;
      // Half-open crossing test: a line through a vertex counts it once (even-odd).
      if ((da < 0) == (db < 0)) continue;
      const double t = da / (da - db);
      m_cuts.push_back(m_along[i] + t * (m_along[j] - m_along[i]));
    }
    std::sort(m_cuts.begin(), m_cuts.end());
    for (std::size_t i = 0; i + 1 < m_cuts.size() && !full(); i += 2) stretch(f, d, start, m_cuts[i], m_cuts[i + 1]);
  }

  // The part [s0, s1] of the line inside the outline, dashed from `start` on.
  void stretch(const PlacedFamily& f, double d, double start, double s0, double s1) {
    // A line that only touches a corner has nothing inside.
    if (s1 - s0 <= 1e-9 * std::max({1.0, std::fabs(s0), std::fabs(s1)})) return;
    if (f.period <= 1e-12) {
      emit(f, d, s0, s1);
      return;
    }
    double pos = start + std::floor((s0 - start) / f.period) * f.period;
    while (pos < s1 && !full()) {
      for (double dash : f.dashes) {
        const double len = std::fabs(dash);
        if (dash > 0) {
          const double a = std::max(pos, s0), b = std::min(pos + len, s1);
          if (a < b) emit(f, d, a, b);
        } else if (dash == 0 && pos >= s0 && pos <= s1) {
          emit(f, d, pos, pos);
        }
        pos += len;
      }
    }
  }

  void emit(const PlacedFamily& f, double d, double a, double b) {
    m_out.add(d * f.nx + a * f.ux, d * f.ny + a * f.uy);
    m_out.add(d * f.nx + b * f.ux, d * f.ny + b * f.uy);
  }

  const std::vector<Point>& m_poly;
  CZelVertexArray& m_out;
  std::vector<double> m_across, m_along, m_cuts;
};

}  // namespace

namespace ZEL {

bool addPatternHatch(CDisplayList& list, const CZelVertexArray& outline, const CZelString& pattern, double scale,
                     double angle, CZelColor color) {
  const ZelHatchPattern* p = findHatchPattern(pattern);
  if (!p) return false;
  // Fewer than three corners (after the arcs' chords) enclose nothing.
  const std::vector<Point> poly = flatten(outline);
  if (poly.size() < 3) return true;
  if (p->solid) {
    list.addFill(outline, color);
    return true;
  }
  if (!std::isfinite(angle)) angle = 0.0;
  scale = std::isfinite(scale) && scale != 0.0 ? std::fabs(scale) : 1.0;

  // A tiny scale on a large outline would put millions of dashes into the preview: the
  // pattern is then drawn at the next coarser scale (doubled until the estimate fits) with at
  // most kMaxHatchSegments segments and kMaxHatchLines lines; a hard stop at twice the
  // segment cap catches outlines so ragged that the estimate misses.
  std::vector<PlacedFamily> families;
  for (int round = 0; round < 64; ++round) {
    families.clear();
    double lines = 0.0, segments = 0.0;
    for (const ZelPatternLine& f : p->lines) {
      families.push_back(place(f, scale, angle));
      estimate(families.back(), poly, lines, segments);
    }
    if (lines <= kMaxHatchLines && segments <= kMaxHatchSegments) break;
    scale *= 2.0;
  }

  CZelVertexArray segments;
  Hatcher hatcher(poly, segments);
  for (const PlacedFamily& f : families) {
    if (hatcher.full()) break;
    hatcher.hatch(f);
  }
  if (!segments.isEmpty()) list.addSegments(std::move(segments), color);
  return true;
}

}  // namespace ZEL
