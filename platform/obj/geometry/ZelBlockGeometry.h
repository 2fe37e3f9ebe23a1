// The setting block: a B x H rectangle with its lower left corner at the origin, width
// along x and height along y, with optional chamfers on chosen corners.
//
// Corner bits (as stored in CHF_FLAG): 1 lower left (0, 0), 2 lower right (B, 0),
// 4 upper right (B, H), 8 upper left (0, H); 15 chamfers all four. The chamfer is cut off
// at 45 degrees with both legs of its size, never more than a third of the smaller side.
//
// The outline runs counter-clockwise from the lower left corner; a chamfered lower left
// corner makes it start at (chamfer, 0) and end at (0, chamfer).
//
// Representations: outline only; standard, the outline with the diagonal cross by which
// a draughtsman tells a setting block from the glass and the profile around it (each
// diagonal joins two opposite corners, or the middle of a chamfer where the corner is cut);
// hatched, the outline and the block's face hatched with the first hatch.
#pragma once

#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

enum BlockCorner : int { kLowerLeft = 1, kLowerRight = 2, kUpperRight = 4, kUpperLeft = 8, kAllCorners = 15 };

enum class BlockDraw { Outline, Standard, Hatched };

struct BlockParams {
  double width = 0.0;    // B
  double height = 0.0;   // H
  double chamfer = 0.0;  // CHAMFER; 0 for none
  int corners = 0;       // CHF_FLAG, BlockCorner bits
  BlockDraw draw = BlockDraw::Standard;
};

// The chamfer as drawn: the stored size limited to a third of the smaller side; 0 when no
// corner is chosen or a size is unusable.
double blockChamfer(const BlockParams& block);
// The closed outline; empty when width or height is not a positive finite size.
CZelVertexArray blockOutline(const BlockParams& block);
Shape blockShape(const BlockParams& block);

}  // namespace ZEL::geo
