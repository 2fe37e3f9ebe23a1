// Reading shapes in the geometry tests: points on arcs, extents, and the finiteness of
// every vertex, computed independently of the geometry helpers under test.
#pragma once

#include "obj/geometry/ZelShape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace geotest {

struct P {
  double x = 0.0;
  double y = 0.0;
};

struct Box {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();
  double width() const { return maxX - minX; }
  double height() const { return maxY - minY; }
  void add(P p) {
    minX = std::min(minX, p.x);
    minY = std::min(minY, p.y);
    maxX = std::max(maxX, p.x);
    maxY = std::max(maxY, p.y);
  }
};

// Points along the segment from a to b with the bulge of a (positive: counter-clockwise),
// `steps` pieces; a straight segment gives its two ends.
inline std::vector<P> segmentPoints(const ZelVertex& a, const ZelVertex& b, int steps = 720) {
  if (a.bulge == 0.0) return {{a.x, a.y}, {b.x, b.y}};
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double c = std::hypot(dx, dy);
  const double h = a.bulge * c / 2.0;  // sagitta, to the right of the chord when positive
  const double nx = dy / c, ny = -dx / c;
  const double r = (c * c / 4.0 + h * h) / (2.0 * h);
  const double cx = (a.x + b.x) / 2.0 + nx * (h - r), cy = (a.y + b.y) / 2.0 + ny * (h - r);
  const double start = std::atan2(a.y - cy, a.x - cx);
  const double sweep = 4.0 * std::atan(a.bulge);
  std::vector<P> out;
  for (int i = 0; i <= steps; ++i) {
    const double t = start + sweep * i / steps;
    out.push_back({cx + std::fabs(r) * std::cos(t), cy + std::fabs(r) * std::sin(t)});
  }
  return out;
}

// The middle of the arc (or straight segment) that leaves vertex i.
inline P segmentMiddle(const CZelVertexArray& v, int i) {
  const int j = (i + 1) % v.count();
  const auto pts = segmentPoints(v[i], v[j], 2);
  if (pts.size() == 2) return {(pts[0].x + pts[1].x) / 2.0, (pts[0].y + pts[1].y) / 2.0};
  return pts[1];
}

inline void addToBox(Box& box, const CZelVertexArray& v, bool closed) {
  const int n = v.count();
  for (int i = 0; i < n; ++i) {
    box.add({v[i].x, v[i].y});
    if (i + 1 < n || closed)
      for (const P& p : segmentPoints(v[i], v[(i + 1) % n])) box.add(p);
  }
}

inline Box extents(const CZelVertexArray& v, bool closed = true) {
  Box box;
  addToBox(box, v, closed);
  return box;
}

inline Box extents(const ZEL::geo::Shape& s) {
  Box box;
  for (const auto& p : s.paths) addToBox(box, p.points, p.closed);
  for (const auto& a : s.areas) addToBox(box, a.outline, true);
  return box;
}

inline bool allFinite(const CZelVertexArray& v) {
  return std::all_of(v.begin(), v.end(), [](const ZelVertex& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.bulge);
  });
}

inline bool allFinite(const ZEL::geo::Shape& s) {
  for (const auto& p : s.paths)
    if (!allFinite(p.points)) return false;
  for (const auto& a : s.areas)
    if (!allFinite(a.outline)) return false;
  return allFinite(s.outline);
}

// The signed area enclosed by a closed outline, arcs included (positive: counter-clockwise).
inline double signedArea(const CZelVertexArray& v) {
  std::vector<P> pts;
  for (int i = 0; i < v.count(); ++i) {
    auto seg = segmentPoints(v[i], v[(i + 1) % v.count()]);
    pts.insert(pts.end(), seg.begin(), seg.end() - 1);
  }
  double a = 0.0;
  for (std::size_t i = 0; i < pts.size(); ++i) {
    const P& p = pts[i];
    const P& q = pts[(i + 1) % pts.size()];
    a += p.x * q.y - q.x * p.y;
  }
  return a / 2.0;
}

inline int countAreas(const ZEL::geo::Shape& s, ZEL::geo::Area::Fill fill, int hatch) {
  return static_cast<int>(std::count_if(s.areas.begin(), s.areas.end(), [&](const ZEL::geo::Area& a) {
    return a.fill == fill && (fill == ZEL::geo::Area::Fill::Solid || a.hatch == hatch);
  }));
}

inline int countPaths(const ZEL::geo::Shape& s, ZEL::geo::Layer layer) {
  return static_cast<int>(
      std::count_if(s.paths.begin(), s.paths.end(), [&](const ZEL::geo::Path& p) { return p.layer == layer; }));
}

}  // namespace geotest
