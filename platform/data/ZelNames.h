// Texts of drawing things: valid layer names from typed text, and colour names.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelString.h"

namespace ZEL {

// Typed text made a valid layer name: blanks at both ends dropped, each character a layer
// name may not hold (< > / \ " : ; ? * | = ` and control characters) replaced by `replace`
// (dropped when `replace` is 0), at most 255 characters. Empty when nothing is left.
CZelString str_name(const CZelString& text, wchar_t replace);

// The text of a colour: the name of the seven standard colours in the country's language,
// "VonBlock"/"VonLayer" for 0 and 256, the index of the others, "r,g,b" for true colours.
CZelString color_txt(const CZelColor& color, const CZelString& country = L"de");

}  // namespace ZEL
