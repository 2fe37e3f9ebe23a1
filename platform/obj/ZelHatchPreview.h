// The preview of a hatch pattern: what the preview frame draws for a pattern at a scale and
// an angle, as a description of its line families and as a picture (the window backend
// paints the picture). Both come from the one pattern table.
#pragma once

#include "data/CZelString.h"
#include "ui/CDisplayList.h"

namespace ZEL {

// "ANSI37 scale 2 angle 15°: lines 60° every 6.35, lines 150° every 6.35". SOLID (any case)
// is a solid fill; a family with dashes is "dashed lines", one of dots only "dots"; families
// that read the same are named once, and past six the rest are counted. A pattern not in
// the table is named with "line families not known"; no pattern at all is "empty". The
// spacings are those drawn: a negative scale as its size, 0 or not a number as 1.
CZelString hatchPreview(const CZelString& pattern, double scale, double angle);
// The same as a picture: a square outlined, filled for SOLID, or hatched with the pattern's
// dashes; only outlined for an unknown pattern. The square is 40 mm, or four of the
// pattern's repeats at scale 1 where they are larger (bricks and blocks), so that the
// pattern can be recognised and a change of scale shows.
CDisplayList hatchPreviewList(const CZelString& pattern, double scale, double angle);
// The side of that square for a pattern.
double hatchPreviewSide(const CZelString& pattern);

}  // namespace ZEL
