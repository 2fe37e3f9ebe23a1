// The silicone joint, drawn in its own frame and turned about the origin by its angle.
//
// Variants 1 and 2 close a gap of the joint's width B between two parallel flanks, x = 0
// and x = B; the origin is the outer edge of the left flank, the joint's face runs along
// the x axis and the joint reaches into +y:
// - 1: the tooled, concave face (sagging B/8 into the joint), so that over a sealing cord
//      the section is the usual hour-glass, thick at the flanks and thin in the middle;
// - 2: a flat face, flush with the flank edges.
// Without a cord the silicone is half as deep as the joint is wide (B/2), on a flat joint
// bottom. With a cord, the cord of diameter B fills the gap behind the silicone, touching
// both flanks; its centre lies 5B/6 deep, so that the silicone over it is B/3 thick in the
// middle of a flat face and the flanks are bonded 5B/6 deep.
// - 3: a fillet (triangular) joint in an inside corner at the origin: legs of length B
//      along +x and +y, the straight face from (B, 0) to (0, B). A cord of diameter 2B/5
//      sits in the corner, touching both legs, covered by the silicone.
// Any other variant draws variant 1.
//
// The silicone is a closed contour, hatched with the first hatch when asked; the cord a
// circle, hatched with the second hatch when asked. The outer outline is the silicone and
// the cord together.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

struct SiliconeParams {
  double width = 0.0;  // B
  double angle = 0.0;  // W, radians, counter-clockwise about the origin
  bool cord = false;   // CONS "D"
  int variant = 1;     // VAR
  bool hatchSilicone = false;  // HATCH "K"
  bool hatchCord = false;      // HATCH2 "K"
};

// Empty when the width is not a positive finite size.
Shape siliconeShape(const SiliconeParams& joint);

}  // namespace ZEL::geo
