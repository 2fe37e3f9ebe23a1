// The hatch patterns the add-on knows by their line-family definitions (as the CAD
// program's pattern files give them): the standard set a drawing without patterns of its
// own offers, and the hatching of an outline in a preview with a pattern at a scale and
// an angle.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelString.h"
#include "data/CZelVertexArray.h"
#include "ui/CDisplayList.h"

namespace ZEL {

// Adds the closed outline hatched with the pattern at scale and angle (radians) in the
// colour: SOLID as a fill, any other known pattern by its line families, clipped to the
// outline. False, and nothing added, for a pattern that is not known.
bool addPatternHatch(CDisplayList& list, const CZelVertexArray& outline, const CZelString& pattern, double scale,
                     double angle, CZelColor color);

}  // namespace ZEL
