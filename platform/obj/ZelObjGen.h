// Object generation: completes an object's data from its parameters. The geometry
// ("VL", the outer outline, and for the insulation "VLL", the outline of each of its
// faces) is always made again; further parts on request.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelVertexArray.h"
#include "obj/geometry/ZelShape.h"

namespace ZEL {

// Parts of objGen's `what`: the effective hatch keys an object lacks (HPNAME, HPSCALE,
// HPANG, taken from its type's factory state), and the label texts.
inline constexpr int kObjGenHatch = 1;
inline constexpr int kObjGenTexts = 2;

// False for no object. `generated`, when given, receives the shape the geometry was made
// from, so that a caller drawing the object need not make it again.
bool objGen(CZelDataItem* object, int what, geo::Shape* generated = nullptr);

// The outline of a silicone joint as its shape gives it; false when the joint has none.
bool seal_vl(const CZelDataItem* item, int& count, CZelVertexArray& vertices);

}  // namespace ZEL

// Completes the geometry keys of an object ("VL", "VLL"); false for no object.
bool zel_obj_vl_compl(CZelDataItem* object);
