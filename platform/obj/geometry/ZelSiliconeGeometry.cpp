#include "obj/geometry/ZelSiliconeGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <cmath>
#include <utility>

namespace ZEL::geo {

namespace {

struct Joint {
  CZelVertexArray silicone;
  CZelVertexArray outline;
  Pt cordCentre;
  double cordRadius = 0.0;
};

// Variants 1 and 2: the joint between the flanks.
Joint gapJoint(double b, bool concave, bool cord) {
  Joint j;
  // A concave face from (0, 0) to (B, 0) sags into +y, to the left of its direction: a
  // clockwise arc.
  const double face = concave ? -2.0 * (b / 8.0) / b : 0.0;
  if (!cord) {
    j.silicone.add(0.0, 0.0, face);
    j.silicone.add(b, 0.0);
    j.silicone.add(b, b / 2.0);
    j.silicone.add(0.0, b / 2.0);
    j.outline = j.silicone;
    return j;
  }
  j.cordRadius = b / 2.0;
  j.cordCentre = {b / 2.0, 5.0 * b / 6.0};
  const double depth = j.cordCentre.y;
  // The silicone's back follows the near half of the cord (clockwise from the right flank
  // to the left one); the outline goes round the far half instead.
  j.silicone.add(0.0, 0.0, face);
  j.silicone.add(b, 0.0);
  j.silicone.add(b, depth, -1.0);
  j.silicone.add(0.0, depth);
  j.outline.add(0.0, 0.0, face);
  j.outline.add(b, 0.0);
  j.outline.add(b, depth, 1.0);
  j.outline.add(0.0, depth);
  return j;
}

// Variant 3: the fillet in the corner at the origin.
Joint filletJoint(double b, bool cord) {
  Joint j;
  j.outline.add(0.0, 0.0);
  j.outline.add(b, 0.0);
  j.outline.add(0.0, b);
  if (!cord) {
    j.silicone = j.outline;
    return j;
  }
  const double r = b / 5.0;
  j.cordRadius = r;
  j.cordCentre = {r, r};
  // Round the three quarters of the cord that face away from the corner, clockwise from
  // where it touches the vertical leg to where it touches the horizontal one.
  j.silicone.add(r, 0.0);
  j.silicone.add(b, 0.0);
  j.silicone.add(0.0, b);
  j.silicone.add(0.0, r, bulgeOfSweep(-1.5 * kPi));
  return j;
}

}  // namespace

Shape siliconeShape(const SiliconeParams& params) {
  Shape shape;
  const double b = usableSize(params.width);
  if (b == 0.0) return shape;
  const int variant = params.variant >= 1 && params.variant <= 3 ? params.variant : 1;
  const Joint j = variant == 3 ? filletJoint(b, params.cord) : gapJoint(b, variant == 1, params.cord);
  shape.paths.push_back(path(j.silicone, true));
  if (params.hatchSilicone) shape.areas.push_back(area(j.silicone, Area::Fill::Hatch, 1));
  if (params.cord) {
    const CZelVertexArray cord = circle(j.cordCentre, j.cordRadius);
    shape.paths.push_back(path(cord, true));
    if (params.hatchCord) shape.areas.push_back(area(cord, Area::Fill::Hatch, 2));
  }
  shape.outline = j.outline;
  rotate(shape, params.angle);
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
