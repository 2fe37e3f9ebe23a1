// The membrane: a foil strip of thickness D laid into an inside corner, as it lines the
// throat between a frame and a wall. The corner's faces are the x and y axes (the
// construction lies at x < 0 and y < 0); the foil's visible face turns round the throat
// with the throat radius R, its back with R + D, both about (R + D, R + D). Each leg runs
// on straight for twenty thicknesses past the bend, which shows the foil at any thickness
// in the proportions it has in a detail.
//
// Representations: contour only; lined, the contour with a short line across the foil at
// every division T; filled, a solid area divided the same way (the lines lie on the
// contour layer, so they show on the fill); hatched, a first-hatch area. Divisions are
// measured along the foil's middle from the free end of the vertical leg, the ends
// themselves not marked; at most 1000 lines, closer divisions are spread to that count.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

enum class MembraneDraw { Contour, Filled, Lined, Hatched };

struct MembraneParams {
  double thickness = 0.0;  // D
  double radius = 0.0;     // R, throat radius; 0 for a sharp inner corner
  double division = 0.0;   // T; 0 for none
  MembraneDraw draw = MembraneDraw::Filled;
};

// The straight length of each leg past the bend, in thicknesses.
inline constexpr double kMembraneLegThicknesses = 20.0;
inline constexpr int kMembraneMaxDivisions = 1000;

// Empty when the thickness is not a positive finite size.
Shape membraneShape(const MembraneParams& membrane);

}  // namespace ZEL::geo
