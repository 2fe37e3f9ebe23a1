#include "obj/geometry/NormModel.h"

#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZEL::geo::norm {

namespace {

constexpr double kTol = 1e-6;

// A path with the weight that decides which of two equal paths stays (the visible one).
struct Candidate {
  Path path;
  int weight = 0;
};

int weightOf(Layer layer) {
  switch (layer) {
    case Layer::Contour: return 5;
    case Layer::Thread: return 4;
    case Layer::Light: return 3;
    case Layer::Axis: return 2;
    case Layer::Hidden: return 1;
    case Layer::Fill: return 0;
  }
  return 0;
}

bool samePoints(const CZelVertexArray& a, const CZelVertexArray& b) {
  if (a.count() != b.count()) return false;
  for (int i = 0; i < a.count(); ++i)
    if (std::fabs(a[i].x - b[i].x) > kTol || std::fabs(a[i].y - b[i].y) > kTol || std::fabs(a[i].bulge - b[i].bulge) > 1e-9)
      return false;
  return true;
}

// A straight segment is the same whichever way it runs.
bool sameLine(const CZelVertexArray& a, const CZelVertexArray& b) {
  if (a.count() != 2 || b.count() != 2 || a[0].bulge != 0.0 || b[0].bulge != 0.0) return false;
  CZelVertexArray r;
  r.add(b[1].x, b[1].y);
  r.add(b[0].x, b[0].y);
  return samePoints(a, r);
}

class Collector {
public:
  void add(Path path) {
    const int w = weightOf(path.layer);
    for (Candidate& c : m_items) {
      if (c.path.closed == path.closed && (samePoints(c.path.points, path.points) || sameLine(c.path.points, path.points))) {
        if (w > c.weight) c = {std::move(path), w};
        return;
      }
    }
    m_items.push_back({std::move(path), w});
  }
  void line(Pt a, Pt b, Layer layer) {
    if (std::fabs(a.x - b.x) <= kTol && std::fabs(a.y - b.y) <= kTol) return;
    add(geo::line(a, b, layer));
  }
  void moveTo(Shape& shape) {
    for (Candidate& c : m_items) shape.paths.push_back(std::move(c.path));
    m_items.clear();
  }

private:
  std::vector<Candidate> m_items;
};

double scaleAt(const Segment& s, double x) {
  if (s.x1 - s.x0 <= 0.0) return s.s0;
  const double t = std::clamp((x - s.x0) / (s.x1 - s.x0), 0.0, 1.0);
  return s.s0 + (s.s1 - s.s0) * t;
}

// The joint at vertex i: 0 none (collinear or between two arcs), 1 sharp, 2 tangent.
int jointKind(const CZelVertexArray& v, int i) {
  const int n = v.count();
  const ZelVertex& prev = v[(i + n - 1) % n];
  const ZelVertex& cur = v[i];
  const ZelVertex& next = v[(i + 1) % n];
  const bool arcIn = prev.bulge != 0.0, arcOut = cur.bulge != 0.0;
  if (arcIn && arcOut) return 0;
  // Directions of the two edges at the vertex (an arc's tangent from its chord and bulge).
  auto dirOf = [](const ZelVertex& a, const ZelVertex& b, bool atEnd) {
    double dx = b.x - a.x, dy = b.y - a.y;
    const double len = std::hypot(dx, dy);
    if (len == 0.0) return Pt{0.0, 0.0};
    dx /= len;
    dy /= len;
    const double half = 2.0 * std::atan(a.bulge);  // the tangent turns by half the sweep
    const double ang = atEnd ? half : -half;
    return Pt{dx * std::cos(ang) - dy * std::sin(ang), dx * std::sin(ang) + dy * std::cos(ang)};
  };
  const Pt in = dirOf(prev, cur, true);
  const Pt out = dirOf(cur, next, false);
  const double cr = in.x * out.y - in.y * out.x;
  const double dot = in.x * out.x + in.y * out.y;
  if (std::fabs(cr) < 1e-9 && dot > 0.0) return (arcIn || arcOut) ? 2 : 0;
  return 1;
}

CZelVertexArray keyhole(const CZelVertexArray& outer, const CZelVertexArray& hole) {
  // The outer outline, a bridge to the hole, the hole the other way round and the bridge
  // back: filled even-odd, the bridge's two edges cancel.
  CZelVertexArray out = outer;
  const int n = hole.count();
  if (n == 0 || outer.isEmpty()) return out;
  out.add(outer[0].x, outer[0].y, 0.0);
  out.add(hole[0].x, hole[0].y, -hole[n - 1].bulge);
  for (int k = n - 1; k >= 1; --k) out.add(hole[k].x, hole[k].y, -hole[k - 1].bulge);
  out.add(hole[0].x, hole[0].y, 0.0);
  return out;
}

}  // namespace

Segment& NormModel::add(double x0, double x1, CZelVertexArray outline, double s0, double s1) {
  Segment s;
  s.x0 = x0;
  s.x1 = x1;
  s.outline = std::move(outline);
  s.s0 = s0;
  s.s1 = s1;
  segments.push_back(std::move(s));
  return segments.back();
}

double NormModel::start() const {
  double v = segments.empty() ? 0.0 : segments.front().x0;
  for (const Segment& s : segments) v = std::min(v, s.x0);
  return v;
}

double NormModel::end() const {
  double v = segments.empty() ? 0.0 : segments.front().x1;
  for (const Segment& s : segments) v = std::max(v, s.x1);
  return v;
}

void applyFlags(Shape& shape, int flags) {
  std::erase_if(shape.paths, [flags](const Path& p) {
    return (p.layer == Layer::Hidden && (flags & 0x04)) || (p.layer == Layer::Thread && (flags & 0x08)) ||
           (p.layer == Layer::Light && (flags & 0x10));
  });
}

Shape NormModel::view(const ViewOptions& options) const {
  Shape shape;
  if (segments.empty()) return shape;
  switch (options.view) {
    case 0: endView(shape, true, options); break;
    case 32: endView(shape, false, options); break;
    case 1:
    case 2:
    case 33:
    case 34: sideView(shape, options.view, options); break;
    case 3: isoView(shape); break;
    default: return shape;
  }
  applyFlags(shape, options.flags);
  // The outline: the box around everything drawn.
  double minX = std::numeric_limits<double>::infinity(), minY = minX, maxX = -minX, maxY = -minX;
  for (const Path& p : shape.paths)
    for (const Pt& q : flatten(p.points, 8)) {
      minX = std::min(minX, q.x);
      maxX = std::max(maxX, q.x);
      minY = std::min(minY, q.y);
      maxY = std::max(maxY, q.y);
    }
  if (minX <= maxX) shape.outline = rectangle(minX, minY, maxX, maxY);
  return finiteOrEmpty(std::move(shape));
}

void NormModel::endView(Shape& shape, bool fromStart, const ViewOptions& options) const {
  Collector out;
  const auto toScreen = [fromStart](const CZelVertexArray& v) { return fromStart ? v : mirroredX(v); };
  // Material nearer to the viewer than the position x, as outlines.
  const auto covers = [&](double x) {
    std::vector<std::vector<Pt>> list;
    for (const Segment& s : segments) {
      const bool nearer = fromStart ? s.x0 < x - kTol : s.x1 > x + kTol;
      if (!nearer) continue;
      const double scale = std::max(fromStart ? s.s0 : s.s1, scaleAt(s, x));
      list.push_back(flatten(scaled(s.outline, scale)));
    }
    return list;
  };
  const auto visibleAt = [&](const CZelVertexArray& outline, double x) {
    const std::vector<Pt> pts = flatten(outline);
    bool hidden = false;
    for (const std::vector<Pt>& c : covers(x)) {
      const Where w = containment(c, pts, kTol);
      if (w == Where::Inside) hidden = true;
    }
    return !hidden;
  };
  const auto put = [&](const CZelVertexArray& outline, double x, bool closed, Layer visibleLayer) {
    out.add(path(toScreen(outline), closed, visibleAt(outline, x) ? visibleLayer : Layer::Hidden));
  };

  for (const Segment& s : segments) {
    const double nearX = fromStart ? s.x0 : s.x1, farX = fromStart ? s.x1 : s.x0;
    const double nearS = fromStart ? s.s0 : s.s1, farS = fromStart ? s.s1 : s.s0;
    const bool nearSeam = fromStart ? s.seamStart : s.seamEnd, farSeam = fromStart ? s.seamEnd : s.seamStart;
    if (!nearSeam) put(scaled(s.outline, nearS), nearX, true, Layer::Contour);
    if (!farSeam && std::fabs(farS - nearS) > 1e-12) put(scaled(s.outline, farS), farX, true, Layer::Contour);
    if (!s.hole.isEmpty()) put(s.hole, nearX, true, Layer::Contour);
  }
  for (const Recess& r : recesses) {
    const double x = r.openAtStart ? r.x0 : r.x1;
    const bool facing = r.openAtStart == fromStart;
    if (facing)
      put(r.outline, x, true, Layer::Contour);
    else
      out.add(path(toScreen(r.outline), true, Layer::Hidden));
  }
  for (const FaceCircle& c : faceCircles) put(circle({0.0, 0.0}, c.radius), c.x, true, Layer::Contour);
  if (!(options.flags & 0x08)) {
    for (const Thread& t : threads) {
      if (t.external) {
        const bool open = fromStart ? t.openStart : t.openEnd;
        out.add(path(toScreen(threadArc(t.minor)), false, open ? Layer::Thread : Layer::Hidden));
      } else {
        out.add(path(toScreen(threadArc(t.major)), false, Layer::Thread));
      }
    }
  }

  // Extents of the section for the axes.
  double lo = 0.0, hi = 0.0, loQ = 0.0, hiQ = 0.0;
  for (const Segment& s : segments) {
    const std::vector<Pt> pts = flatten(scaled(s.outline, std::max(s.s0, s.s1)));
    double a, b;
    extent(pts, {1.0, 0.0}, a, b);
    lo = std::min(lo, a);
    hi = std::max(hi, b);
    extent(pts, {0.0, 1.0}, a, b);
    loQ = std::min(loQ, a);
    hiQ = std::max(hiQ, b);
  }
  const double ext = std::max(1.0, 0.1 * std::max(hi - lo, hiQ - loQ));
  if (options.flags & 0x01) {
    if (symmetricQ) out.line({lo - ext, 0.0}, {hi + ext, 0.0}, Layer::Axis);
    if (symmetricP) out.line({0.0, loQ - ext}, {0.0, hiQ + ext}, Layer::Axis);
  }
  if (options.flags & 0x02) {
    for (std::size_t i = 0; i < drillPoints.size() && i < drillDirs.size(); ++i) {
      const Pt a = drillPoints[i], d = drillDirs[i];
      // Through the drilled plate and a little beyond it on both sides.
      const double half = std::max(ext, 0.05 * (hiQ - loQ + hi - lo));
      const double sx = fromStart ? 1.0 : -1.0;
      out.line({sx * (a.x - d.x * half), a.y - d.y * half}, {sx * (a.x + d.x * half), a.y + d.y * half}, Layer::Axis);
    }
  }

  if (options.hatch && bar) {
    for (const Segment& s : segments) {
      const CZelVertexArray face = toScreen(scaled(s.outline, fromStart ? s.s0 : s.s1));
      shape.areas.push_back(area(keyhole(face, s.hole.isEmpty() ? CZelVertexArray{} : toScreen(s.hole)), Area::Fill::Hatch, 1));
    }
  }
  out.moveTo(shape);
}

void NormModel::sideView(Shape& shape, int view, const ViewOptions& options) const {
  Collector out;
  Pt toViewer{1.0, 0.0}, vdir{0.0, 1.0};
  double xs = 1.0;
  switch (view) {
    case 2: break;
    case 34: toViewer = {-1.0, 0.0}; xs = -1.0; break;
    case 1: toViewer = {0.0, 1.0}; vdir = {-1.0, 0.0}; break;
    case 33: toViewer = {0.0, -1.0}; vdir = {1.0, 0.0}; break;
    default: return;
  }
  const auto at = [&](double x, double v) { return Pt{xs * x, v}; };
  const auto along = [&](double x0, double x1, double v0, double v1, Layer layer) { out.line(at(x0, v0), at(x1, v1), layer); };

  for (const Segment& s : segments) {
    const std::vector<Pt> flat = flatten(s.outline);
    double lo, hi;
    extent(flat, vdir, lo, hi);
    along(s.x0, s.x1, lo * s.s0, lo * s.s1, Layer::Contour);
    along(s.x0, s.x1, hi * s.s0, hi * s.s1, Layer::Contour);
    if (!s.seamStart) along(s.x0, s.x0, lo * s.s0, hi * s.s0, s.smoothStart ? Layer::Light : Layer::Contour);
    if (!s.seamEnd) along(s.x1, s.x1, lo * s.s1, hi * s.s1, s.smoothEnd ? Layer::Light : Layer::Contour);
    for (int i = 0; i < s.outline.count(); ++i) {
      const int kind = jointKind(s.outline, i);
      if (kind == 0) continue;
      const Pt p{s.outline[i].x, s.outline[i].y};
      const double v = p.x * vdir.x + p.y * vdir.y;
      if (std::fabs(v - lo) <= kTol || std::fabs(v - hi) <= kTol) continue;
      const bool visible = !rayEntersInside(flat, p, toViewer, kTol);
      if (kind == 2 && !visible) continue;
      along(s.x0, s.x1, v * s.s0, v * s.s1, kind == 2 ? Layer::Light : (visible ? Layer::Contour : Layer::Hidden));
    }
    if (!s.hole.isEmpty()) {
      const std::vector<Pt> hole = flatten(s.hole);
      double a, b;
      extent(hole, vdir, a, b);
      along(s.x0, s.x1, a, a, Layer::Hidden);
      along(s.x0, s.x1, b, b, Layer::Hidden);
      for (int i = 0; i < s.hole.count(); ++i) {
        if (jointKind(s.hole, i) != 1) continue;
        const double v = s.hole[i].x * vdir.x + s.hole[i].y * vdir.y;
        along(s.x0, s.x1, v, v, Layer::Hidden);
      }
    }
  }
  for (const Recess& r : recesses) {
    // Open towards the viewer (a slot running out of the head's side): seen as a notch.
    const std::vector<Pt> flat = flatten(r.outline);
    double lo, hi, vlo, vhi;
    extent(flat, toViewer, lo, hi);
    double reach = -std::numeric_limits<double>::infinity();
    for (const Segment& s : segments) {
      if (s.x1 <= r.x0 + kTol || s.x0 >= r.x1 - kTol) continue;
      double a, b;
      extent(flatten(scaled(s.outline, std::min(s.s0, s.s1))), toViewer, a, b);
      reach = std::max(reach, b);
    }
    const Layer layer = hi >= reach - kTol ? Layer::Contour : Layer::Hidden;
    extent(flat, vdir, vlo, vhi);
    along(r.x0, r.x1, vlo, vlo, layer);
    along(r.x0, r.x1, vhi, vhi, layer);
    const double closedX = r.openAtStart ? r.x1 : r.x0;
    along(closedX, closedX, vlo, vhi, layer);
    for (int i = 0; i < r.outline.count(); ++i) {
      if (jointKind(r.outline, i) != 1) continue;
      const double v = r.outline[i].x * vdir.x + r.outline[i].y * vdir.y;
      if (std::fabs(v - vlo) <= kTol || std::fabs(v - vhi) <= kTol) continue;
      along(r.x0, closedX, v, v, Layer::Hidden);
    }
  }
  if (!(options.flags & 0x08)) {
    for (const Thread& t : threads) {
      if (t.external) {
        along(t.x0, t.x1, -t.minor, -t.minor, Layer::Thread);
        along(t.x0, t.x1, t.minor, t.minor, Layer::Thread);
        if (!t.openStart) along(t.x0, t.x0, -t.major, t.major, Layer::Thread);
        if (!t.openEnd) along(t.x1, t.x1, -t.major, t.major, Layer::Thread);
      } else {
        along(t.x0, t.x1, -t.major, -t.major, Layer::Hidden);
        along(t.x0, t.x1, t.major, t.major, Layer::Hidden);
      }
    }
  }
  const double len = end() - start();
  const double ext = std::max(1.0, 0.05 * len);
  const bool axisHere = (view == 1 || view == 33) ? symmetricP : symmetricQ;
  if ((options.flags & 0x01) && axisHere) along(start() - ext, end() + ext, 0.0, 0.0, Layer::Axis);
  if (options.flags & 0x02) {
    for (std::size_t i = 0; i < drillPoints.size() && i < drillDirs.size(); ++i) {
      const Pt d = drillDirs[i];
      if (std::fabs(d.x * toViewer.y - d.y * toViewer.x) > 1e-9) continue;  // not seen end-on
      const double v = drillPoints[i].x * vdir.x + drillPoints[i].y * vdir.y;
      along(start() - ext, end() + ext, v, v, Layer::Axis);
    }
  }
  out.moveTo(shape);
}

void NormModel::isoView(Shape& shape) const {
  Collector out;
  const double c = std::cos(kPi / 6.0), sn = std::sin(kPi / 6.0);
  // The part's X to the lower right, p to the lower left, q up.
  const auto iso = [&](double x, Pt pq) { return Pt{(x - pq.x) * c, pq.y - (x + pq.x) * sn}; };
  const auto ring = [&](const CZelVertexArray& outline, double x) {
    const std::vector<Pt> pts = flatten(outline, 24);
    CZelVertexArray v;
    for (const Pt& p : pts) {
      const Pt s = iso(x, p);
      v.add(s.x, s.y);
    }
    out.add(path(std::move(v), true, Layer::Contour));
  };
  // Generators: at sharp corners, and where the projected surface turns away (silhouette).
  const auto generators = [&](const CZelVertexArray& outline, double x0, double x1, double s0, double s1) {
    for (int i = 0; i < outline.count(); ++i)
      if (jointKind(outline, i) == 1) {
        const Pt p{outline[i].x, outline[i].y};
        out.line(iso(x0, {p.x * s0, p.y * s0}), iso(x1, {p.x * s1, p.y * s1}), Layer::Contour);
      }
    const std::vector<Pt> pts = flatten(outline, 48);
    const std::size_t n = pts.size();
    if (n < 3) return;
    std::vector<double> f(n);
    for (std::size_t i = 0; i < n; ++i) {
      const Pt a = pts[(i + n - 1) % n], b = pts[(i + 1) % n];
      const Pt t0 = iso(x0, {a.x * s0, a.y * s0}), t1 = iso(x0, {b.x * s0, b.y * s0});
      const Pt g0 = iso(x0, {pts[i].x * s0, pts[i].y * s0}), g1 = iso(x1, {pts[i].x * s1, pts[i].y * s1});
      const Pt tan{t1.x - t0.x, t1.y - t0.y}, gen{g1.x - g0.x, g1.y - g0.y};
      f[i] = tan.x * gen.y - tan.y * gen.x;
    }
    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t j = (i + 1) % n;
      if ((f[i] < 0.0) != (f[j] < 0.0)) {
        const Pt p = pts[std::fabs(f[i]) < std::fabs(f[j]) ? i : j];
        out.line(iso(x0, {p.x * s0, p.y * s0}), iso(x1, {p.x * s1, p.y * s1}), Layer::Contour);
      }
    }
  };
  for (const Segment& s : segments) {
    if (!s.seamStart) ring(scaled(s.outline, s.s0), s.x0);
    if (!s.seamEnd) ring(scaled(s.outline, s.s1), s.x1);
    generators(s.outline, s.x0, s.x1, s.s0, s.s1);
    if (!s.hole.isEmpty()) {
      ring(s.hole, s.x0);
      ring(s.hole, s.x1);
    }
  }
  for (const Recess& r : recesses) ring(r.outline, r.openAtStart ? r.x0 : r.x1);
  out.moveTo(shape);
}

}  // namespace ZEL::geo::norm
