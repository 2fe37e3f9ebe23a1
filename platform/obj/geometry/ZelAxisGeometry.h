// The axis symbol of a glazing or an infill: the axis line of length LEN on the axis
// layer, from the origin along +x, with small closed arrow heads (triangles a tenth of
// the length long and two thirds of that wide in all) on the contour layer:
// - glazing axis: an arrow head at each end, pointing outwards;
// - infill position: a bar across the start (the infill's edge, as long as an arrow head)
//   and an arrow head at the far end;
// - infill plane: bars across both ends and an arrow head at each end.
// With the clamping depth (infill constructions only), a tick across the axis marks how
// far the infill reaches into its frame: at GD from the start for the infill position,
// at GD from each end for the infill plane. GD is limited to the length, or to half of it
// for the plane.
//
// Hatched, the arrow heads are areas of the first hatch. The outline is the rectangle
// round the whole symbol.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

enum class AxisCons { Glazing, Panel, Plan };
enum class AxisDraw { Outline, Hatched };

struct AxisParams {
  double length = 0.0;  // LEN
  AxisCons cons = AxisCons::Glazing;
  bool clamped = false;  // IS_GD 1
  double clamp = 0.0;    // GD
  AxisDraw draw = AxisDraw::Outline;
};

// Empty when the length is not a positive finite size.
Shape axisShape(const AxisParams& axis);

}  // namespace ZEL::geo
