// Plain washers.
#include "obj/geometry/ZelNormFamilies.h"

namespace ZEL::geo::norm {

NormModel washerModel(const NormPartFigures& f) {
  NormModel m;
  const double inner = f.first({"d1_min", "d1"}), outer = f.first({"d2_max", "d2"}), h = f.first({"h", "h_max"});
  if (inner <= 0.0 || outer <= inner || h <= 0.0) return m;
  m.add(0.0, h, circle({0.0, 0.0}, 1.0), outer / 2.0, outer / 2.0).hole = circle({0.0, 0.0}, inner / 2.0);
  return m;
}

}  // namespace ZEL::geo::norm
