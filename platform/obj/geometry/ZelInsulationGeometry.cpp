#include "obj/geometry/ZelInsulationGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace ZEL::geo {

namespace {

// Curved edges whose thickness changes, and symbols in curved bodies, are drawn as
// polylines: arcs in pieces of at most this angle, straight lines in this many parts.
constexpr double kArcPiece = kPi / 16.0;
constexpr int kLinePieces = 8;
constexpr int kEdgePieces = 32;

// The body as a band: u runs along it (along the middle line of a curved band), w across
// it from the base (0) to the face (1).
struct Band {
  bool curved = false;  // about the origin
  bool closed = false;  // a full ring
  double length = 0.0;
  double t0 = 0.0;  // thickness at u = 0
  double t1 = 0.0;  // thickness at u = length
  double inner = 0.0;      // curved: base radius
  double sweep = 0.0;      // curved: radians
  double midRadius = 0.0;  // curved: radius along which u is measured

  double thickness(double u) const { return t0 + (t1 - t0) * (u / length); }
  Pt at(double u, double w) const {
    const double t = thickness(u);
    if (!curved) return {u, w * t};
    const double phi = u / midRadius;
    const double rho = inner + w * t;
    return {rho * std::cos(phi), rho * std::sin(phi)};
  }
  // A straight band of one thickness takes symbols over unchanged, arcs included.
  bool keepsArcs() const { return !curved && t0 == t1; }
};

// A line of the symbol in the coordinates of one layer: u along, y across (0 to the
// layer's thickness). A stroke round a ring ends where it starts, one length further on.
struct Stroke {
  CZelVertexArray points;
  bool wraps = false;
};

// The points along a stroke, arcs and lines cut into pieces.
std::vector<Pt> sample(const Stroke& s) {
  std::vector<Pt> out;
  const int n = s.points.count();
  for (int i = 0; i + 1 < n; ++i) {
    const ZelVertex& a = s.points[i];
    const ZelVertex& b = s.points[i + 1];
    if (a.bulge == 0.0) {
      for (int k = 0; k < kLinePieces; ++k)
        out.push_back({a.x + (b.x - a.x) * k / kLinePieces, a.y + (b.y - a.y) * k / kLinePieces});
      continue;
    }
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double chord = std::hypot(dx, dy);
    const double sagitta = a.bulge * chord / 2.0;  // to the right of a -> b when positive
    const double radius = (chord * chord / 4.0 + sagitta * sagitta) / (2.0 * sagitta);
    const double cx = (a.x + b.x) / 2.0 + dy / chord * (sagitta - radius);
    const double cy = (a.y + b.y) / 2.0 - dx / chord * (sagitta - radius);
    const double start = std::atan2(a.y - cy, a.x - cx);
    const double sweep = 4.0 * std::atan(a.bulge);
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / kArcPiece)));
    for (int k = 0; k < pieces; ++k) {
      const double t = start + sweep * k / pieces;
      out.push_back({cx + std::fabs(radius) * std::cos(t), cy + std::fabs(radius) * std::sin(t)});
    }
  }
  if (n > 0 && !s.wraps) out.push_back({s.points[n - 1].x, s.points[n - 1].y});
  return out;
}

// Puts a stroke of layer `layer` (of `layers`, each `depth` thick at the reference
// thickness) into the band.
Path place(const Band& band, const Stroke& s, int layer, int layers, double depth) {
  CZelVertexArray v;
  if (band.keepsArcs() && !s.wraps) {
    for (ZelVertex p : s.points) {
      p.y += layer * depth;
      v.add(p);
    }
  } else {
    for (const Pt& p : sample(s)) {
      const Pt q = band.at(p.x, (layer + p.y / depth) / layers);
      v.add(q.x, q.y);
    }
  }
  return path(std::move(v), s.wraps, Layer::Fill);
}

// Soft insulation: legs `half` apart, starting at u = a, joined by half circles of
// diameter `half` alternately at the face and at the base. Round a ring (an even number
// of halves) the last half circle leads back to the first leg.
Stroke loops(double a, int halves, double half, double depth, bool wraps) {
  Stroke s;
  s.wraps = wraps;
  const double r = half / 2.0;
  const int legs = wraps ? halves : halves + 1;
  for (int j = 0; j < legs; ++j) {
    const double u = a + j * half;
    const bool up = j % 2 == 0;
    const bool joined = wraps || j < halves;
    // Over the top the half circle turns clockwise, under the bottom counter-clockwise.
    s.points.add(u, up ? r : depth - r);
    s.points.add(u, up ? depth - r : r, joined ? (up ? -1.0 : 1.0) : 0.0);
  }
  if (wraps) s.points.add(a + halves * half, r);
  return s;
}

enum class ZigzagStart { Base, Face };

// Hard insulation: a zigzag between base and face with its corners `pitch` apart.
Stroke zigzag(double a, int pieces, double pitch, double depth, ZigzagStart start, bool wraps) {
  Stroke s;
  s.wraps = wraps;
  const bool fromFace = start == ZigzagStart::Face;
  for (int i = 0; i <= pieces; ++i) s.points.add(a + i * pitch, (i % 2 == 0) != fromFace ? 0.0 : depth);
  return s;
}

void addSymbol(Shape& shape, const Band& band, bool soft, double factor, int layers) {
  const double depth = std::max(band.t0, band.t1) / layers;
  const double pitch = factor * depth;
  const double length = band.length;
  std::vector<Stroke> strokes;
  if (soft) {
    double half = pitch / 2.0;
    int halves = 0;
    if (band.closed) {
      halves = std::max(2, 2 * static_cast<int>(std::lround(length / pitch)));
      half = length / halves;
    } else {
      halves = static_cast<int>(std::floor(length / half + 1e-9));
    }
    if (halves < 1) return;
    const double a = band.closed ? 0.0 : (length - halves * half) / 2.0;
    strokes.push_back(loops(a, halves, half, depth, band.closed));
  } else {
    double step = pitch;
    int pieces = 0;
    if (band.closed) {
      pieces = std::max(2, 2 * static_cast<int>(std::lround(length / (2.0 * pitch))));
      step = length / pieces;
    } else {
      pieces = static_cast<int>(std::floor(length / step + 1e-9));
    }
    if (pieces < 1) return;
    const double a = band.closed ? 0.0 : (length - pieces * step) / 2.0;
    strokes.push_back(zigzag(a, pieces, step, depth, ZigzagStart::Base, band.closed));
    strokes.push_back(zigzag(a, pieces, step, depth, ZigzagStart::Face, band.closed));
  }
  for (int layer = 0; layer < layers; ++layer)
    for (const Stroke& s : strokes) shape.paths.push_back(place(band, s, layer, layers, depth));
}

// The line across the band at w, from its start to its end.
Path lineAlong(const Band& band, double w) {
  if (!band.curved) return line(band.at(0.0, w), band.at(band.length, w));
  if (band.closed) return path(circle({0.0, 0.0}, band.inner + w * band.t0), true);
  CZelVertexArray v;
  if (band.t0 == band.t1) {
    const Pt a = band.at(0.0, w);
    const Pt b = band.at(band.length, w);
    v.add(a.x, a.y, bulgeOfSweep(band.sweep));
    v.add(b.x, b.y);
  } else {
    for (int i = 0; i <= kEdgePieces; ++i) {
      const Pt p = band.at(band.length * i / kEdgePieces, w);
      v.add(p.x, p.y);
    }
  }
  return path(std::move(v), false);
}

// The outline of an open band: along the base, up the end, back along the face, down
// the start (left out where the band starts with no thickness).
CZelVertexArray openOutline(const Band& band) {
  CZelVertexArray v;
  const Pt b0 = band.at(0.0, 0.0);
  const Pt b1 = band.at(band.length, 0.0);
  v.add(b0.x, b0.y, band.curved ? bulgeOfSweep(band.sweep) : 0.0);
  v.add(b1.x, b1.y);
  if (band.curved && band.t0 == band.t1) {
    const Pt f1 = band.at(band.length, 1.0);
    const Pt f0 = band.at(0.0, 1.0);
    v.add(f1.x, f1.y, -bulgeOfSweep(band.sweep));
    v.add(f0.x, f0.y);
  } else {
    const int pieces = band.curved ? kEdgePieces : 1;
    for (int i = pieces; i >= 0; --i) {
      const Pt f = band.at(band.length * i / pieces, 1.0);
      if (i == 0 && band.t0 == 0.0) break;  // the wedge's tip is the first vertex
      v.add(f.x, f.y);
    }
  }
  return v;
}

// A ring's face as one outline: round the outside, in along a cut, round the inside the
// other way, and out along the cut again.
CZelVertexArray ringOutline(double inner, double outer) {
  CZelVertexArray v;
  v.add(outer, 0.0, 1.0);
  v.add(-outer, 0.0, 1.0);
  v.add(outer, 0.0);
  v.add(inner, 0.0, -1.0);
  v.add(-inner, 0.0, -1.0);
  v.add(inner, 0.0);
  return v;
}

double orThickness(double value, double thickness) {
  const double v = usableSize(value);
  return v > 0.0 ? v : thickness;
}

}  // namespace

Shape insulationShape(const InsulationParams& params) {
  Shape shape;
  const double d = usableSize(params.thickness);
  Band band;
  int layers = params.separatingLine ? 2 : 1;
  const bool separate = params.separatingLine;
  switch (params.cons) {
    case InsulationCons::Straight:
    case InsulationCons::Arc:
      band.t0 = orThickness(params.start, d);
      band.t1 = orThickness(params.end, d);
      break;
    case InsulationCons::Wedge: band.t1 = orThickness(params.end, d); break;
    case InsulationCons::Ring: band.t0 = band.t1 = d; break;
    case InsulationCons::Area:
      band.t0 = band.t1 = 2.0 * d;
      layers = 2;  // the rows
      break;
  }
  const double reference = std::max(band.t0, band.t1);
  if (reference == 0.0 || (params.cons != InsulationCons::Wedge && std::min(band.t0, band.t1) == 0.0)) return shape;

  if (params.cons == InsulationCons::Arc || params.cons == InsulationCons::Ring) {
    band.curved = true;
    band.closed = params.cons == InsulationCons::Ring;
    band.inner = band.closed ? d : 2.0 * reference;
    band.sweep = band.closed ? 2.0 * kPi : kPi / 2.0;
    band.midRadius = band.inner + (band.t0 + band.t1) / 4.0;
    band.length = band.midRadius * band.sweep;
  } else {
    band.length = params.cons == InsulationCons::Area ? 1.5 * reference : 3.0 * reference;
  }

  if (band.closed) {
    shape.outline = ringOutline(band.inner, band.inner + d);
    shape.paths.push_back(path(circle({0.0, 0.0}, band.inner + d), true));
    shape.paths.push_back(path(circle({0.0, 0.0}, band.inner), true));
  } else {
    shape.outline = openOutline(band);
    shape.paths.push_back(path(shape.outline, true));
  }
  if (separate)
    for (int k = 1; k < layers; ++k) shape.paths.push_back(lineAlong(band, static_cast<double>(k) / layers));

  double factor = std::isfinite(params.widthFactor) ? params.widthFactor : 1.0;
  factor = std::clamp(factor, kInsulationMinFactor, kInsulationMaxFactor);
  switch (params.draw) {
    case InsulationDraw::Contour: break;
    case InsulationDraw::Filled: addSymbol(shape, band, params.soft, factor, layers); break;
    case InsulationDraw::Hatched: shape.areas.push_back(area(shape.outline, Area::Fill::Hatch, 1)); break;
  }
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
