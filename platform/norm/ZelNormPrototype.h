// Prototype pictures of the standard-parts tree: a node is shown by a representative part
// of a standard below it (a middle preferred size, a middle standard length; a section cut
// to four times its largest figure), drawn from the front with its end view beside it.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"
#include "norm/ZelNorm.h"
#include "ui/CZelGDX.h"

#include <string>
#include <vector>

namespace ZEL {
// The stack of the node whose key is `key` (a standard's or an inner node's), the first in
// tree order; empty when no node has that key.
NormStack norm_node_stack(const std::string& key);
// The first standard at or below the node, in tree order; empty when none.
NormStack norm_first_standard(const NormStack& stack);
// The part item of a size of a standard ("TYPE" "DIN", "STACK", "NORM", "CATEGORY",
// "GROUP", "BARP", "ND", "LEN" when `length` > 0, "DIM" the size's figures (norm_size_dims), "VIEW" and
// "AXIS"); a new item the caller deletes, nullptr when the size has no figures.
CZelDataItem* norm_part_item(const NormStack& standardStack, const std::string& size, double length, int view, int flags);
// The representative part of a node (see above); nullptr when the node has no standard
// with sizes.
CZelDataItem* norm_representative_part(const NormStack& stack);
}  // namespace ZEL

namespace QEN {
// Draws the prototype picture of the node named by `prototype` (a standard key, or an inner
// node key such as "HEX", "SCREW", "I-BEAM") into the drawing. Parameters (all optional):
// "BACK_CLR" the background (a colour reference 0x00BBGGRR), "X", "Y" where the picture's
// front view starts, "MAIN" and "FOLDER" (kept for the callers, no effect on the drawing).
// False, with nothing drawn, when no part can be found for the name.
bool gdx_image_norm_prototype(CZelGDX& gdx, const CZelString& prototype, const CZelDataItem* params);
}  // namespace QEN
