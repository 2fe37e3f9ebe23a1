#include "obj/geometry/ZelGeometryTools.h"

#include <cmath>
#include <utility>

namespace ZEL::geo {

double usableSize(double value) { return std::isfinite(value) && value > 0.0 ? value : 0.0; }

double bulgeOfSweep(double sweep) { return std::tan(sweep / 4.0); }

CZelVertexArray rectangle(double x0, double y0, double x1, double y1) {
  CZelVertexArray v;
  v.add(x0, y0);
  v.add(x1, y0);
  v.add(x1, y1);
  v.add(x0, y1);
  return v;
}

CZelVertexArray circle(Pt centre, double radius) {
  CZelVertexArray v;
  v.add(centre.x - radius, centre.y, 1.0);
  v.add(centre.x + radius, centre.y, 1.0);
  return v;
}

CZelVertexArray polyline(const std::vector<Pt>& points) {
  CZelVertexArray v;
  for (const Pt& p : points) v.add(p.x, p.y);
  return v;
}

Path path(CZelVertexArray points, bool closed, Layer layer) {
  Path p;
  p.points = std::move(points);
  p.closed = closed;
  p.layer = layer;
  return p;
}

Path line(Pt from, Pt to, Layer layer) { return path(polyline({from, to}), false, layer); }

Area area(CZelVertexArray outline, Area::Fill fill, int hatch) {
  Area a;
  a.outline = std::move(outline);
  a.fill = fill;
  a.hatch = hatch;
  return a;
}

namespace {

bool finite(const CZelVertexArray& vertices) {
  for (const ZelVertex& v : vertices)
    if (!std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.bulge)) return false;
  return true;
}

void rotate(CZelVertexArray& vertices, double c, double s) {
  for (int i = 0; i < vertices.count(); ++i) {
    ZelVertex& v = vertices[i];
    const double x = v.x * c - v.y * s;
    const double y = v.x * s + v.y * c;
    v.x = x;
    v.y = y;
  }
}

}  // namespace

Shape finiteOrEmpty(Shape shape) {
  bool ok = finite(shape.outline);
  for (const Path& p : shape.paths) ok = ok && finite(p.points);
  for (const Area& a : shape.areas) ok = ok && finite(a.outline);
  return ok ? shape : Shape{};
}

void rotate(Shape& shape, double angle) {
  if (!std::isfinite(angle) || angle == 0.0) return;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (Path& p : shape.paths) rotate(p.points, c, s);
  for (Area& a : shape.areas) rotate(a.outline, c, s);
  rotate(shape.outline, c, s);
}

}  // namespace ZEL::geo
