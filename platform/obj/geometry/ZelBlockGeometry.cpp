#include "obj/geometry/ZelBlockGeometry.h"

#include "obj/geometry/ZelGeometryTools.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ZEL::geo {

namespace {

struct Corner {
  int bit;
  Pt at;
  Pt in;   // unit direction along the edge arriving at the corner
  Pt out;  // unit direction along the edge leaving it
};

// The corners in the order the outline visits them.
std::array<Corner, 4> corners(double b, double h) {
  return {{{kLowerLeft, {0.0, 0.0}, {0.0, -1.0}, {1.0, 0.0}},
           {kLowerRight, {b, 0.0}, {1.0, 0.0}, {0.0, 1.0}},
           {kUpperRight, {b, h}, {0.0, 1.0}, {-1.0, 0.0}},
           {kUpperLeft, {0.0, h}, {-1.0, 0.0}, {0.0, -1.0}}}};
}

Pt before(const Corner& c, double size) { return {c.at.x - c.in.x * size, c.at.y - c.in.y * size}; }
Pt after(const Corner& c, double size) { return {c.at.x + c.out.x * size, c.at.y + c.out.y * size}; }

bool cut(const BlockParams& block, const Corner& c, double chamfer) { return chamfer > 0.0 && (block.corners & c.bit); }

// Where a diagonal of the standard representation meets the corner: the corner itself,
// or the middle of its chamfer.
Pt diagonalEnd(const BlockParams& block, const Corner& c, double chamfer) {
  if (!cut(block, c, chamfer)) return c.at;
  const Pt a = before(c, chamfer);
  const Pt b = after(c, chamfer);
  return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
}

}  // namespace

double blockChamfer(const BlockParams& block) {
  const double b = usableSize(block.width);
  const double h = usableSize(block.height);
  if (b == 0.0 || h == 0.0 || (block.corners & kAllCorners) == 0) return 0.0;
  return std::min(usableSize(block.chamfer), std::min(b, h) / 3.0);
}

CZelVertexArray blockOutline(const BlockParams& block) {
  const double b = usableSize(block.width);
  const double h = usableSize(block.height);
  CZelVertexArray outline;
  if (b == 0.0 || h == 0.0) return outline;
  const double chamfer = blockChamfer(block);
  const auto all = corners(b, h);
  // The lower left corner's chamfer is split: its far end opens the outline, its near end
  // closes it.
  for (const Corner& c : all) {
    if (!cut(block, c, chamfer)) {
      outline.add(c.at.x, c.at.y);
      continue;
    }
    const Pt in = before(c, chamfer);
    const Pt out = after(c, chamfer);
    if (c.bit != kLowerLeft) outline.add(in.x, in.y);
    outline.add(out.x, out.y);
  }
  if (cut(block, all[0], chamfer)) {
    const Pt in = before(all[0], chamfer);
    outline.add(in.x, in.y);
  }
  return outline;
}

Shape blockShape(const BlockParams& block) {
  Shape shape;
  shape.outline = blockOutline(block);
  if (shape.outline.isEmpty()) return shape;
  shape.paths.push_back(path(shape.outline, true));
  switch (block.draw) {
    case BlockDraw::Outline: break;
    case BlockDraw::Standard: {
      const double chamfer = blockChamfer(block);
      const auto all = corners(usableSize(block.width), usableSize(block.height));
      shape.paths.push_back(line(diagonalEnd(block, all[0], chamfer), diagonalEnd(block, all[2], chamfer)));
      shape.paths.push_back(line(diagonalEnd(block, all[1], chamfer), diagonalEnd(block, all[3], chamfer)));
      break;
    }
    case BlockDraw::Hatched: shape.areas.push_back(area(shape.outline, Area::Fill::Hatch, 1)); break;
  }
  return finiteOrEmpty(std::move(shape));
}

}  // namespace ZEL::geo
