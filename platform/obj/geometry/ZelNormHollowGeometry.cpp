// Hollow sections. Rectangular ones have the corner radii of hot-finished sections,
// outside 1.5 t and inside 1.0 t: their tangent lines are the light edges of the side views.
#include "obj/geometry/ZelNormFamilies.h"
#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>

namespace ZEL::geo::norm {

NormModel rectHollowModel(const NormPartFigures& f) {
  NormModel m;
  const double h = f("h"), b = f("b", h), t = f("t");
  if (h <= 0.0 || b <= 0.0 || t <= 0.0 || 2.0 * t >= std::min(h, b)) return m;
  m.bar = true;
  const double outer = std::min(1.5 * t, std::min(h, b) / 2.0);
  const double inner = std::max(0.0, std::min(t, std::min(h, b) / 2.0 - t));
  m.add(0.0, barLength(f), roundedRectangle(b, h, outer)).hole = roundedRectangle(b - 2.0 * t, h - 2.0 * t, inner);
  m.drillPoints.push_back({0.0, h / 2.0 - t / 2.0});
  m.drillDirs.push_back({0.0, 1.0});
  m.drillPoints.push_back({b / 2.0 - t / 2.0, 0.0});
  m.drillDirs.push_back({1.0, 0.0});
  return m;
}

NormModel roundHollowModel(const NormPartFigures& f) {
  NormModel m;
  const double D = f("D"), t = f("t");
  if (D <= 0.0 || t <= 0.0 || 2.0 * t >= D) return m;
  m.bar = true;
  m.add(0.0, barLength(f), circle({0.0, 0.0}, D / 2.0)).hole = circle({0.0, 0.0}, D / 2.0 - t);
  m.drillPoints.push_back({0.0, D / 2.0 - t / 2.0});
  m.drillDirs.push_back({0.0, 1.0});
  return m;
}

}  // namespace ZEL::geo::norm
