// Labels of objects: what the dialogs show as the name of the object being set.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// "<type label> <dimensions> - <material label>", for example "Klotz 30 x 5 - PP":
// the dimensions B, H, L, T and D that the object has, joined by " x ". Without the
// material for the header lines that add the material's label themselves.
enum class ObjLabelMaterial { With, Without };
CZelString obj_label(const CZelDataItem* item, const wchar_t* country, ObjLabelMaterial material = ObjLabelMaterial::With);
// The first line of a dialog: the type label and the material label, "Klotz - PP".
CZelString obj_label_header(const CZelDataItem* item, const wchar_t* country);

}  // namespace ZEL
