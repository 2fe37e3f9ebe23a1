// The object types of the add-on: their settings section and their labels.
#pragma once

#include "data/CZelString.h"

#include <initializer_list>

namespace ZEL {

struct ObjTypeInfo {
  const wchar_t* type;
  const wchar_t* section;
  const wchar_t* labelDe;
  const wchar_t* labelEn;
};

// None for a type the add-on does not know.
const ObjTypeInfo* objTypeInfo(const CZelString& type);
// The display label of a type in a country's language (none or "-1": the user's country);
// the type itself when it is unknown.
CZelString objTypeLabel(const CZelString& type, const wchar_t* country);

}  // namespace ZEL

namespace ZEL {

// The dimensions that tell two objects of a type and material apart, in the order labels
// and article keys name them: the setting block's and seal's width and height, the
// silicone joint's width, the membrane's and insulation's thickness, the axis symbol's
// length; other types their widths, heights, lengths and thicknesses.
std::initializer_list<const wchar_t*> objDimKeys(const CZelString& type);

// Whether the drawing shows objects of the type sheared (the edited object is then drawn
// distorted, and the dialogs say so).
bool isSheared(const CZelString& type);

}  // namespace ZEL
