// The standard-parts catalogue queries as the dialogs call them. A node is named by its
// selection stack: the domain ("BAR" or "PIECE"), then the node keys down to it, e.g.
// {"PIECE", "SCREW", "HEX", "ISO4017"}; a nominal size extends a standard's stack by the size
// ({"PIECE", "SCREW", "HEX", "ISO4017", "M8"}). Texts are UTF-8. Every query answers empty
// (or false, or none) when the database is missing or damaged; ZEL::norm_db_error() says why.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ZEL {
using NormStack = std::vector<std::string>;

// The families in which standards are designated: "DIN", "ISO", "EN".
std::vector<std::string> norm_types();
// Keys of the children of the node in tree order; the domains for an empty stack. A
// standard has no tree children.
std::vector<std::string> norm_dir(const NormStack& stack);
// Text of a node in the tree: a standard's designation in `family` (see QEN::norm_diniso1)
// followed by a blank and its German title; an inner node's German title. Empty for an
// unknown node.
std::string norm_tree_txt(const NormStack& stack, const std::string& family = "DIN");
// A property of the node (for a size: of the size), e.g. "TYPE", "LABEL", "BARP", "AVOID";
// none when the node or the property does not exist.
std::optional<std::string> norm_get(const NormStack& stack, const std::string& name);
// Nominal sizes of a standard in the order of its table. A material not offered for the
// standard gives none. The catalogue has no variants and no article numbers, so `variant`
// and `onlyArticles` do not narrow the list.
std::vector<std::string> norm_nd_lst(const NormStack& stack, const std::string& material, const std::string& variant,
                                     bool onlyArticles);
// Standard lengths (mm) of a nominal size: the standard's length series cut to the size's
// range, increasing. Empty for parts without a length series (nuts, washers, sections) and
// for a material not offered for the standard.
std::vector<double> norm_len_lst(const NormStack& sizeStack, const std::string& material, const std::string& variant);
// Material keys offered for a standard, in the catalogue's order.
std::vector<std::string> norm_mat_lst(const NormStack& stack, bool onlyArticles);
// Fills `results` with the stacks of the standards at or below the node (the whole tree for
// an empty stack) whose designation in any family, key, or title in either language matches
// the mask ("*" any run, "?" one character, case ignored), in tree order. False when the
// database cannot be read or the stack names no node.
bool norm_tree_leaves(const NormStack& stack, const std::string& mask, std::vector<NormStack>& results);
// Why the database could not be opened (naming its path); empty while it is usable.
std::string norm_db_error();
}  // namespace ZEL

namespace QEN {
// Designation of a standard in the family that the labeling flags select: 0x20 "ISO",
// 0x40 "EN", otherwise "DIN". Where that family has none, the first of DIN, ISO, EN ISO,
// the European and the national designation that exists, finally the key. Empty when the
// stack names no standard.
std::string norm_diniso1(const ZEL::NormStack& stack, int familyFlags);
}  // namespace QEN
