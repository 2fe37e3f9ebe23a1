// The drawing of a standard part (screws, nuts, washers, rolled and hollow sections) to
// scale in mm, in one of its seven views, from the part item the catalogue generates:
// "CATEGORY", "GROUP", "NORM", the figures "DIM" (named as the catalogue's columns), "LEN",
// the view "VIEW" (0 left, 1 top, 2 front, 3 3D, 32 right, 33 bottom, 34 back), the
// display flags "AXIS" (0x01 centre axes, 0x02 drill axes; set 0x04 hides hidden lines,
// 0x08 thread lines, 0x10 light edges) and "DRAW" ("SMDB": the cut face of a bar's end
// view hatched). View conventions: obj/geometry/NormModel.h.
#pragma once

#include "data/CZelDataItem.h"
#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

// The part's drawing in its view; the empty shape for a part whose family is unknown or
// whose figures cannot make a part (a missing or non-positive size), or an unknown view.
Shape normPartShape(const CZelDataItem* part);

// The view codes in the order the dialog offers them.
inline constexpr int kNormViews[] = {0, 1, 2, 3, 32, 33, 34};

}  // namespace ZEL::geo
