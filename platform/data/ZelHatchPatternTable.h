// The standard hatch patterns of the CAD program by their line families, in millimetres: the
// set a drawing without patterns of its own offers, and the geometry the previews hatch with.
// Kept here, below the drawing, so that the drawing can offer the names and descriptions;
// the hatching itself is in obj/ZelHatchPatterns.
#pragma once

#include "data/CZelString.h"

#include <utility>
#include <vector>

// One family of parallel lines of a pattern at scale 1 and angle 0, as the pattern files give it.
struct ZelPatternLine {
  double angle = 0.0;           // direction of the lines, degrees counter-clockwise
  double x = 0.0, y = 0.0;      // a point of the first line, where its dash sequence starts
  double dx = 0.0, dy = 0.0;    // from one line to the next: along the lines, and across them
  std::vector<double> dashes;   // > 0 drawn, < 0 gap, 0 a dot; empty: drawn through
  // The length after which the dash sequence repeats (0 when drawn through).
  double period() const;
  friend bool operator==(const ZelPatternLine&, const ZelPatternLine&) = default;
};

struct ZelHatchPattern {
  CZelString name;
  CZelString description;
  bool solid = false;                // a fill, no lines
  std::vector<ZelPatternLine> lines;
};

namespace ZEL {

// Every standard pattern, SOLID first, then by name as the pattern file lists them.
const std::vector<ZelHatchPattern>& hatchPatternTable();
// The pattern of that name, letter case ignored; none when there is no such pattern.
const ZelHatchPattern* findHatchPattern(const CZelString& name);
// Name and description of every standard pattern, in the table's order.
std::vector<std::pair<CZelString, CZelString>> standardHatchPatterns();

}  // namespace ZEL
