#include "obj/ZelHatchPatterns.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace {

constexpr int kArcSegmentsPerTurn = 72;
// Lines cut with the outline (those that may carry a dash inside it), and lines looked at
// at all: they bound the work as the segment cap bounds what is painted.
constexpr double kMaxCutLines = 20000;
constexpr double kMaxRows = 50000;
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

// What a family puts across the outline: its lines, those of them that carry a dash within
// the outline's reach along them (all, for lines drawn through), and its segments. An
// estimate that assumes one stretch inside the outline per line: a window of length R on a
// line meets a dash of length l in (R + l) / period of the lines, on average, and an area A
// holds A / (line distance × period) of each dash's starts.
struct Load {
  double rows = 0.0, cutLines = 0.0, segments = 0.0;
};

void estimate(const PlacedFamily& f, const std::vector<Point>& poly, double area, Load& load) {
  const Span across = project(poly, f.nx, f.ny), along = project(poly, f.ux, f.uy);
  const double rows = std::fabs(f.step) > 1e-12 ? (across.hi - across.lo) / std::fabs(f.step) + 1.0 : 1.0;
  load.rows += rows;
  if (f.period <= 1e-12) {
    load.cutLines += rows;
    load.segments += rows;
    return;
  }
  double drawnLength = 0.0;
  for (double d : f.dashes) drawnLength += std::max(d, 0.0);
  const double reach = along.hi - along.lo;
  load.cutLines += rows * std::min(1.0, (reach + drawnLength) / f.period);
  const double width = across.hi - across.lo;
  load.segments += std::fabs(f.step) > 1e-12 ? (f.drawn * area + drawnLength * width) / (std::fabs(f.step) * f.period)
                                             : (f.drawn * reach + drawnLength) / f.period;
}

class Hatcher {
public:
  Hatcher(const std::vector<Point>& poly, CZelVertexArray& out) : m_poly(poly), m_out(out) {}

  void hatch(const PlacedFamily& f) {
    const std::size_t n = m_poly.size();
    m_across.resize(n);
    m_along.resize(n);
    for (std::size_t i = 0; i < n; ++i) {
      m_across[i] = m_poly[i].x * f.nx + m_poly[i].y * f.ny;
      m_along[i] = m_poly[i].x * f.ux + m_poly[i].y * f.uy;
    }
    const double lo = *std::min_element(m_across.begin(), m_across.end());
    const double hi = *std::max_element(m_across.begin(), m_across.end());
    m_alongLo = *std::min_element(m_along.begin(), m_along.end());
    m_alongHi = *std::max_element(m_along.begin(), m_along.end());
    long first = 0, last = 0;
    if (std::fabs(f.step) > 1e-12) {
      const double a = (lo - f.d0) / f.step, b = (hi - f.d0) / f.step;
      // So far from the pattern's origin that line numbers lose their precision: not drawn.
      if (!(std::fabs(a) < 1e15 && std::fabs(b) < 1e15)) return;
      first = static_cast<long>(std::ceil(std::min(a, b)));
      last = static_cast<long>(std::floor(std::max(a, b)));
    }
    // The lines are visited across the outline in rising distance, with the edges that span
    // the current distance kept active (a scan line), so a line looks at the few edges it
    // may cross rather than all of them.
    m_order.resize(n);
    for (std::size_t i = 0; i < n; ++i) m_order[i] = i;
    std::sort(m_order.begin(), m_order.end(), [this](std::size_t a, std::size_t b) { return low(a) < low(b); });
    m_active.clear();
    std::size_t next = 0;

    // A line whose dashes all fall outside the outline's reach along the lines is not cut at
    // all: patterns like GRAVEL have many lines with a dash only now and then. Where the
    // outline lies in a line's dash sequence (its phase) moves by the same step from line to
    // line; a small margin keeps rounding from dropping a dash that only just reaches in.
    const long dir = f.step >= 0 ? 1 : -1;
    const double reach = m_alongHi - m_alongLo, margin = 1e-6 * f.period;
    const bool filter = f.period > 1e-12 && reach + 2 * margin < f.period;
    if (filter) drawnIntervals(f);
    const double phaseStep = filter ? wrap(dir * f.shift, f.period) : 0.0;
    const long k0 = dir > 0 ? first : last;
    double phase = filter ? wrap(m_alongLo - f.along0 - k0 * f.shift, f.period) : 0.0;
    for (long i = 0, k = k0; i <= last - first && !full(); ++i, k += dir) {
      const double d = f.d0 + k * f.step;
      // Active: the edges with low < d <= high, as the crossing test below counts them.
      while (next < n && low(m_order[next]) < d) m_active.push_back(m_order[next++]);
      std::erase_if(m_active, [&](std::size_t e) { return high(e) < d; });
      if (filter) {
        const bool skip = !dashWithin(phase - margin, phase + reach + margin, f.period);
        phase -= phaseStep;
        if (phase < 0) phase += f.period;
        if (skip) continue;
      }
      line(f, d, f.along0 + k * f.shift);
    }
  }

  bool full() const { return m_out.count() >= 4 * ZEL::kMaxHatchSegments; }  // two points a segment

private:
  double low(std::size_t e) const { return std::min(m_across[e], m_across[e + 1 == m_poly.size() ? 0 : e + 1]); }
  double high(std::size_t e) const { return std::max(m_across[e], m_across[e + 1 == m_poly.size() ? 0 : e + 1]); }

  void line(const PlacedFamily& f, double d, double start) {
    m_cuts.clear();
    const std::size_t n = m_poly.size();
    for (std::size_t i : m_active) {
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

  static double wrap(double v, double period) {
    v -= std::floor(v / period) * period;
    return v < 0 || v >= period ? 0.0 : v;
  }

  // The drawn dashes and dots of one period as [from, to] from the sequence's start.
  void drawnIntervals(const PlacedFamily& f) {
    m_drawn.clear();
    double pos = 0.0;
    for (double dash : f.dashes) {
      if (dash >= 0) m_drawn.push_back({pos, pos + dash});
      pos += std::fabs(dash);
    }
  }

  // Whether a drawn dash of the sequence meets [from, to] (in sequence positions, from within
  // one period and the window shorter than one).
  bool dashWithin(double from, double to, double period) const {
    for (const auto& [a, b] : m_drawn)
      if ((a <= to && b >= from) || a + period <= to || b - period >= from) return true;
    return false;
  }

  // The part [s0, s1] of the line inside the outline, dashed from `start` on.
  void stretch(const PlacedFamily& f, double d, double start, double s0, double s1) {
    // A line that only touches a corner has nothing inside.
    if (s1 - s0 <= 1e-9 * std::max({1.0, std::fabs(s0), std::fabs(s1)})) return;
    if (f.period <= 1e-12) {
      emit(f, d, s0, s1);
      return;
    }
    // Periods are counted rather than added up, so that far from the origin, where a
    // period may be below the coordinates' precision, the walk still ends.
    for (double j = std::floor((s0 - start) / f.period); !full(); j += 1.0) {
      const double base = start + j * f.period;
      if (base >= s1) break;
      double offset = 0.0;
      for (double dash : f.dashes) {
        const double pos = base + offset, len = std::fabs(dash);
        if (dash > 0) {
          const double a = std::max(pos, s0), b = std::min(pos + len, s1);
          if (a < b) emit(f, d, a, b);
        } else if (dash == 0 && pos >= s0 && pos <= s1) {
          emit(f, d, pos, pos);
        }
        offset += len;
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
  std::vector<std::size_t> m_order, m_active;
  double m_alongLo = 0.0, m_alongHi = 0.0;
  std::vector<std::pair<double, double>> m_drawn;
};

}  // namespace

namespace ZEL {

bool addPatternHatch(CDisplayList& list, const CZelVertexArray& outline, const CZelString& pattern, double scale,
                     double angle, CZelColor color) {
  const ZelHatchPattern* p = findHatchPattern(pattern);
  if (!p) return false;
  // Fewer than three corners (after the arcs' chords) enclose nothing; an outline with a
  // coordinate that is not a number has no inside either.
  const std::vector<Point> poly = flatten(outline);
  if (poly.size() < 3) return true;
  for (const Point& q : poly)
    if (!std::isfinite(q.x) || !std::isfinite(q.y)) return true;
  if (p->solid) {
    list.addFill(outline, color);
    return true;
  }
  if (!std::isfinite(angle)) angle = 0.0;
  scale = std::isfinite(scale) && scale != 0.0 ? std::fabs(scale) : 1.0;

  // A tiny scale on a large outline would put millions of dashes into the preview: the
  // pattern is then drawn at the next coarser scale (doubled until the estimate fits) with at
  // most kMaxHatchSegments segments, kMaxCutLines lines cut with the outline and kMaxRows
  // lines looked at; a hard stop at twice the segment cap catches outlines so ragged that
  // the estimate misses.
  double area = 0.0;  // shoelace; what an outline that crosses itself encloses at most
  for (std::size_t i = 0; i < poly.size(); ++i) {
    const Point& a = poly[i];
    const Point& b = poly[i + 1 == poly.size() ? 0 : i + 1];
    area += a.x * b.y - b.x * a.y;
  }
  area = std::fabs(area) / 2.0;

  std::vector<PlacedFamily> families;
  bool fits = false;
  for (int round = 0; round < 64 && !fits; ++round) {
    families.clear();
    Load load;
    for (const ZelPatternLine& f : p->lines) {
      families.push_back(place(f, scale, angle));
      estimate(families.back(), poly, area, load);
    }
    fits = load.rows <= kMaxRows && load.cutLines <= kMaxCutLines && load.segments <= kMaxHatchSegments;
    if (!fits) scale *= 2.0;
  }
  if (!fits) return true;  // only an outline of astronomic size gets here

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
