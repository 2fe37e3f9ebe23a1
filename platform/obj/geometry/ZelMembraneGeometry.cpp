#include "obj/geometry/ZelMembraneGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ZEL::geo {

namespace {

constexpr double kQuarterBulge = 0.41421356237309503;  // tan(pi / 8)

CZelVertexArray outline(double d, double r, double leg) {
  const double c = r + d;  // centre of the bend, on both axes
  CZelVertexArray v;
  v.add(c + leg, 0.0);
  v.add(c + leg, d);
  if (r > 0.0) {
    v.add(c, d, -kQuarterBulge);  // the visible face, clockwise round the throat
    v.add(d, c);
  } else {
    v.add(d, d);
  }
  v.add(d, c + leg);
  v.add(0.0, c + leg);
  v.add(0.0, c, kQuarterBulge);  // the back, counter-clockwise
  v.add(c, 0.0);
  return v;
}

// A line across the foil at the distance s along its middle from the top of the
// vertical leg.
Path division(double d, double r, double leg, double s) {
  const double c = r + d;
  const double bend = kPi / 2.0 * (r + d / 2.0);
  if (s <= leg) return line({0.0, c + leg - s}, {d, c + leg - s});
  if (s < leg + bend) {
    const double phi = kPi + (s - leg) / (r + d / 2.0);
    const double cx = std::cos(phi), sy = std::sin(phi);
    return line({c + (r + d) * cx, c + (r + d) * sy}, {c + r * cx, c + r * sy});
  }
  const double x = c + (s - leg - bend);
  return line({x, 0.0}, {x, d});
}

}  // namespace

Shape membraneShape(const MembraneParams& params) {
  Shape shape;
  const double d = usableSize(params.thickness);
  if (d == 0.0) return shape;
  const double r = usableSize(params.radius);
  const double leg = kMembraneLegThicknesses * d;
  shape.outline = outline(d, r, leg);
  shape.paths.push_back(path(shape.outline, true));
  if (params.draw == MembraneDraw::Filled) shape.areas.push_back(area(shape.outline, Area::Fill::Solid));
  if (params.draw == MembraneDraw::Hatched) shape.areas.push_back(area(shape.outline, Area::Fill::Hatch, 1));
  const double t = usableSize(params.division);
  if ((params.draw == MembraneDraw::Lined || params.draw == MembraneDraw::Filled) && t > 0.0) {
    const double total = 2.0 * leg + kPi / 2.0 * (r + d / 2.0);
    const double pitch = std::max(t, total / kMembraneMaxDivisions);
    // A mark that would fall on the far end (within rounding) is left out.
    for (int k = 1; k * pitch < total - 1e-9 * total; ++k) shape.paths.push_back(division(d, r, leg, k * pitch));
  }
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
