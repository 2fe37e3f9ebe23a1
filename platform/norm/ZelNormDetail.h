// Helpers the catalogue queries and the part generation share; not part of the interface
// the dialogs call.
#pragma once

#include "CNormDatabase.h"
#include "ZelNorm.h"

#include <optional>
#include <string>
#include <vector>

namespace ZEL::normdetail {
// The node path of a stack: its elements joined with "\".
std::string pathOf(const NormStack& stack);
NormStack stackOf(const std::string& path);
// Splits at a separator; an empty text gives no parts.
std::vector<std::string> split(const std::string& text, char separator);
// The whole text as a number; none when it is not one.
std::optional<double> toNumber(const std::string& text);
// Formats a figure as the catalogue writes it ("%.10g").
std::string figure(double value);
// The designation in the family, with the fall-back that always gives a standard a name.
std::string designation(const CNormDatabase::Standard& s, const std::string& family);
// The object key of level 2 of a standard's parts: "DIN:" and the standard key upper-cased
// (as ZEL::objKey writes it).
std::string objectKey2(const std::string& standardKey);
// Upper-cased with "\" and ":" made "_", as object keys hold values.
std::string keyPart(const std::string& value);
// The keys of the article table that belong to parts of the standard (those starting with
// its object key of level 2 and ":"), read from the table once per call.
std::vector<std::string> articleKeys(const std::string& standardKey);
// Materials the user added to a standard ("*QEN_NM_PROP*\<object key of level 2>\MAT", a
// string array or a single string), in their stored order.
std::vector<std::string> addedMaterials(const std::string& standardKey);
}  // namespace ZEL::normdetail
