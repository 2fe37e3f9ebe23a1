// The hatch patterns the add-on knows by their line-family definitions (as the CAD
// program's pattern files give them): the standard set a drawing without patterns of its
// own offers, and the hatching of an outline in a preview with a pattern at a scale and
// an angle. The table itself (names, descriptions, line families in millimetres) is
// data/ZelHatchPatternTable.h, where the drawing reaches it too.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelString.h"
#include "data/CZelVertexArray.h"
#include "data/ZelHatchPatternTable.h"
#include "ui/CDisplayList.h"

namespace ZEL {

// Adds the closed outline hatched with the pattern at scale and angle (radians) in the
// colour: SOLID as a fill, any other known pattern by its line families, clipped to the
// outline (even-odd, arcs of bulged segments as chords), all dashes as one segments item.
// The scale is taken by its size, 0 or not a number as 1; an angle that is not a number as
// 0. False, and nothing added, for a pattern that is not known; true and nothing added for
// an outline that encloses nothing.
bool addPatternHatch(CDisplayList& list, const CZelVertexArray& outline, const CZelString& pattern, double scale,
                     double angle, CZelColor color);

// The most segments one hatch adds: a pattern whose dashes would exceed it is drawn at the
// next coarser scale (twice, four times ... the scale) that stays within it.
inline constexpr int kMaxHatchSegments = 5000;

}  // namespace ZEL
