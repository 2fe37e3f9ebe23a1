// The flat glazing seal: a B x H rectangle with its lower left corner at the origin, width
// along x, height along y; drawn as its outline, or hatched with the first hatch.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

enum class SealDraw { Outline, Hatched };

struct SealParams {
  double width = 0.0;   // B
  double height = 0.0;  // H
  SealDraw draw = SealDraw::Outline;
};

// Empty when width or height is not a positive finite size.
Shape sealShape(const SealParams& seal);

}  // namespace ZEL::geo
