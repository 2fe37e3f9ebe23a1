// Generating standard parts: the part that the settings section "*NM*" describes, as a data
// item that the drawing, the labels and the dialogs read. The part never holds a value the
// catalogue does not offer.
//
// The generated part is a directory item: every value of "*NM*" copied, then overwritten by
// the resolved catalogue values:
//   "TYPE" "DIN"; "STACK" (string array); "NORM" (standard key, "ISO4017"); "CATEGORY",
//   "GROUP" (the stack's category and group); "BARP" (int 0/1);
//   "ND", "MAT", "VAR" (strings the catalogue offers); "LEN" (real mm, absent for parts
//   without length: nuts, washers); "KLM" / "RAD" / "SENK" (real) where the standard has a
//   clamping table / radius range / countersink depth; "ORDER" (article number, only when the
//   article table holds one for the object key of level 4);
//   "DIM": directory of the size's numeric figures named as the catalogue's columns (real mm);
//   "DES_DIN", "DES_ISO", "DES_EN" (designations in the three families, the fall-back of
//   QEN::norm_diniso1 where a family has none), "TITLE", "TITLE_EN" (the standard's titles),
//   "MAT_LABEL", "MAT_LABEL_EN" (the material's catalogue labels);
//   "VIEW" (int view code 0,1,2,3,32,33,34; 0 when absent or invalid), "AXIS" (int, "*NM*"'s,
//   else the standard's when not -1, else 1), "DRAW" ("SMDB" when "*NM*" holds it).
// Resolution: an unknown size takes the first size without "AVOID" (the first size when all
// are marked); an unknown material or variant the first one offered; a length that is absent,
// not finite or negative counts as 0 and is raised to the first positive standard length
// counted from the smallest one (the dimension refresh's rule); a length at or above it stays,
// and with standard lengths in force ("*NM*\NODIN" not 1, or only articles) snaps to the
// nearest standard length. A section's length (stock lengths) follows the same rule.
#pragma once

#include "ZelNorm.h"

#include "data/CZelDataItem.h"

namespace ZEL {
// The part "*NM*" describes (a new item, the caller deletes it); none when "*NM*\STACK" names
// no standard of the catalogue.
CZelDataItem* norm_gen(bool onlyArticles);
// The default part of a node: the standard's first preferred size, first material, first
// variant and first positive standard length, with "ORDER" when the article table has one.
// Settings values of "*NM*" are not copied. None when the stack names no standard.
CZelDataItem* norm_gen_from_stack(const NormStack& stack, bool onlyArticles);
// Forgets the catalogue data cached for the last generated standard (sizes, materials,
// designations). With `keep` true the cache stays (nothing happens).
void norm_gen_init(bool keep);
// Writes the part's resolved values ("TYPE", "STACK", "ND", "MAT", "VAR", "LEN", "KLM",
// "RAD", "SENK", "VIEW", "AXIS") into "*NM*" where "*NM*" has no value of that name, and its
// derived texts ("NORM", "DES_DIN", "DES_ISO", "DES_EN", "TITLE", "TITLE_EN", "MAT_LABEL",
// "MAT_LABEL_EN") always, so that object keys and labels of "*NM*" itself work. A null part
// does nothing.
void norm_obj_release(CZelDataItem* part);
}  // namespace ZEL

namespace QEN {
// Stores the current settings of "*NM*" as the properties of the standard and material that
// it describes: under "*QEN_OBJ_PROP*\<object key of level 3 of the generated part>"
// ("DIN:ISO4017:8.8"), which ZEL::prop_data(objKey(part, 3)) reads back. Stored are every value
// of "*NM*" except those that choose the part rather than set it up: "STACK", "ND", "LEN",
// "KLM", "RAD", "SENK", "VAR", "MAT", "MAT_CUR", "NODIN", "ORDER", "MODE", "DSP", "SEARCH",
// "OBJ". The stored properties replace earlier ones of that key. Nothing is stored when
// "*NM*" names no standard.
void norm_prop_save();
// After the material types of a standard changed: forgets the cached catalogue data
// (ZEL::norm_gen_init(false)) and, when "*NM*\MAT" is no longer offered for the standard
// (catalogue materials and those the user added under "*QEN_NM_PROP*\<object key of
// level 2>\MAT"), writes the first offered material to "*NM*\MAT".
void norm_grp_reset();
}  // namespace QEN
