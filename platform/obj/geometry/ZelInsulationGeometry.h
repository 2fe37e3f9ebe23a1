// Insulation: its body in the preview's proportions and the symbol that tells soft from
// hard insulation.
//
// Bodies (the base line on the x axis, the thickness growing into +y or outwards):
// - straight: 3 thicknesses long, start thickness S at x = 0 and end thickness E at the far
//   end (either taken as D when it is not a usable size);
// - arc: a quarter circle about the origin, the base (inner) radius 2 thicknesses, S at
//   the x axis and E at the y axis;
// - wedge: 3 end thicknesses long, from nothing at the origin to E;
// - ring: pipe insulation about the origin, inner radius D and thickness D;
// - area: a rectangle of 3 x 2 thicknesses D, laid in two rows of D.
//
// Symbols, drawn on the fill layer and bent with the body: soft insulation is the loop
// line, upright legs joined by half circles that touch the faces alternately; hard
// insulation is the criss-cross of two zigzag lines between the faces. The pitch (loops
// along one face, or corners of one zigzag along a face) is the width factor times the
// thickness of the layer; a straight or curved body shows the whole loops that fit,
// centred, a ring a whole number of them round the circle.
//
// The separating line divides a body into two layers of half its thickness, each with its
// own symbol; in an area it is drawn between the rows.
//
// Representations: contour only; filled, the contour filled with the symbol (a solid fill
// would hide it); hatched, the contour with its face hatched with the first hatch instead
// of the symbol.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

enum class InsulationCons { Straight, Arc, Wedge, Ring, Area };
enum class InsulationDraw { Contour, Filled, Hatched };

struct InsulationParams {
  InsulationCons cons = InsulationCons::Straight;  // CONS G, B, K, R, F
  bool soft = true;                                // DRAW "W"; hard otherwise
  double thickness = 0.0;                          // D
  double start = 0.0;                              // S
  double end = 0.0;                                // E
  double widthFactor = 1.0;                        // WIDTH 1..4: 0.5, 0.6, 0.8, 1.0
  InsulationDraw draw = InsulationDraw::Filled;    // HATCH
  bool separatingLine = false;                     // TR 1
};

// Width factors outside this range are brought into it, so that a symbol has a bounded
// number of loops.
inline constexpr double kInsulationMinFactor = 0.1;
inline constexpr double kInsulationMaxFactor = 4.0;

// Empty when the thicknesses the body needs are not positive finite sizes.
Shape insulationShape(const InsulationParams& insulation);

}  // namespace ZEL::geo
