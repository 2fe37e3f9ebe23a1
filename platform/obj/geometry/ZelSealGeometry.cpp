#include "obj/geometry/ZelSealGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <utility>

namespace ZEL::geo {

Shape sealShape(const SealParams& seal) {
  Shape shape;
  const double b = usableSize(seal.width);
  const double h = usableSize(seal.height);
  if (b == 0.0 || h == 0.0) return shape;
  shape.outline = rectangle(0.0, 0.0, b, h);
  shape.paths.push_back(path(shape.outline, true));
  if (seal.draw == SealDraw::Hatched) shape.areas.push_back(area(shape.outline, Area::Fill::Hatch, 1));
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
