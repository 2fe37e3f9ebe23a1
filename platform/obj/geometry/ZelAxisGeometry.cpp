#include "obj/geometry/ZelAxisGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <algorithm>
#include <utility>

namespace ZEL::geo {

namespace {

// The arrow head with its tip at x, pointing in the direction (+1 or -1).
CZelVertexArray arrowHead(double x, int direction, double size) {
  const double half = size / 3.0;
  const double base = x - direction * size;
  CZelVertexArray v;
  v.add(x, 0.0);
  v.add(base, direction * half);
  v.add(base, -direction * half);
  return v;
}

Path bar(double x, double size) { return line({x, -size / 2.0}, {x, size / 2.0}); }

}  // namespace

Shape axisShape(const AxisParams& params) {
  Shape shape;
  const double len = usableSize(params.length);
  if (len == 0.0) return shape;
  const double size = len / 10.0;
  shape.paths.push_back(line({0.0, 0.0}, {len, 0.0}, Layer::Axis));

  std::vector<CZelVertexArray> heads;
  heads.push_back(arrowHead(len, 1, size));
  if (params.cons != AxisCons::Panel) heads.push_back(arrowHead(0.0, -1, size));
  if (params.cons != AxisCons::Glazing) shape.paths.push_back(bar(0.0, size));
  if (params.cons == AxisCons::Plan) shape.paths.push_back(bar(len, size));

  const double clamp = usableSize(params.clamp);
  if (params.clamped && params.cons != AxisCons::Glazing && clamp > 0.0) {
    if (params.cons == AxisCons::Panel) {
      shape.paths.push_back(bar(std::min(clamp, len), size));
    } else {
      const double depth = std::min(clamp, len / 2.0);
      shape.paths.push_back(bar(depth, size));
      shape.paths.push_back(bar(len - depth, size));
    }
  }
  for (CZelVertexArray& head : heads) {
    shape.paths.push_back(path(head, true));
    if (params.draw == AxisDraw::Hatched) shape.areas.push_back(area(std::move(head), Area::Fill::Hatch, 1));
  }
  // The bars reach further out than the arrow heads.
  const double half = params.cons == AxisCons::Glazing ? size / 3.0 : size / 2.0;
  shape.outline = rectangle(0.0, -half, len, half);
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
