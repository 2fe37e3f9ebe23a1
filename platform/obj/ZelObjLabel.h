// Labels of objects: what the dialogs show as the name of the object being set.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// "<type label> <dimensions> - <material label>", for example "Klotz 30 x 5 - PP"; a standard
// part (type "DIN") "<designation> <size> x <length> - <material label>" (dinLabel):
// the dimensions B, H, L, T and D that the object has, joined by " x ". Without the
// material for the header lines that add the material's label themselves.
enum class ObjLabelMaterial { With, Without };
CZelString obj_label(const CZelDataItem* item, const wchar_t* country, ObjLabelMaterial material = ObjLabelMaterial::With);
// The first line of a dialog: the type label and the material label, "Klotz - PP".
// A standard part (type "DIN"): its designation and the material label, "ISO 4017 - Stahl 8.8 blank".
CZelString obj_label_header(const CZelDataItem* item, const wchar_t* country);

// The name of a standard part (type "DIN") as its generated item describes it: the designation
// in the family its TXTGEN selects (0x20 "DES_ISO", 0x40 "DES_EN", else "DES_DIN"; "NORM" when
// the item has none), with `dims` the size and length ("ISO 4017 M12 x 60"), with `title` its
// title in the country's language, with `material` " - " and the material label ("MAT_LABEL" /
// "MAT_LABEL_EN", else the material catalogue's label, else the key).
CZelString dinLabel(const CZelDataItem* item, const wchar_t* country, bool dims, bool title, bool material);

}  // namespace ZEL
