// The preview of a hatch pattern: what the preview frame draws for a pattern at a scale and
// an angle, as a description of its line families (the window backend paints from it).
#pragma once

#include "data/CZelString.h"
#include "ui/CDisplayList.h"

namespace ZEL {

// "ANSI37 scale 2 angle 15°: lines 60° every 6.35, lines 150° every 6.35". SOLID (any case)
// is a solid fill; a pattern whose line families the preview does not know is drawn as its
// name in an empty frame, and no pattern at all as an empty frame.
CZelString hatchPreview(const CZelString& pattern, double scale, double angle);
// The same as a picture: a 40 × 40 mm square, filled, hatched with the pattern's line
// families (dashed ones drawn through), or only outlined for an unknown pattern.
CDisplayList hatchPreviewList(const CZelString& pattern, double scale, double angle);

}  // namespace ZEL
