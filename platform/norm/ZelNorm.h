// The standard-parts catalogue queries as the dialogs call them. A node is named by its
// selection stack: the domain ("BAR" or "PIECE"), then the node keys down to it, e.g.
// {"PIECE", "SCREW", "HEX", "ISO4017"}; a nominal size extends a standard's stack by the size
// ({"PIECE", "SCREW", "HEX", "ISO4017", "M8"}). Texts are UTF-8. Every query answers empty
// (or false, or none) when the database is missing or damaged; ZEL::norm_db_error() says why.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
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
// none when the node or the property does not exist. Nested properties are named by the
// elements after the node: an empty element ends the node's stack and the elements after it
// lead to the property (norm_get(stack + {"", "VAR", "FINE"}, "LABEL")); without an empty
// element the longest stack prefix that names a node is the node
// (norm_get(sizeStack + {"KLM"}, "LST")).
std::optional<std::string> norm_get(const NormStack& stack, const std::string& name);
// Nominal sizes of a standard in the order of its table. A material not offered for the
// standard gives none; a variant narrows the sizes to it ("COARSE" / "FINE"; the empty
// variant and a variant the standard does not offer give every size). The catalogue holds
// no article numbers; with `onlyArticles` only sizes that have an article for some length
// (or, without lengths, for the size) in the article table are kept.
std::vector<std::string> norm_nd_lst(const NormStack& stack, const std::string& material, const std::string& variant,
                                     bool onlyArticles);
// Standard lengths (mm) of a nominal size: the standard's length series cut to the size's
// range, increasing; for a section the stock lengths. Empty for parts without a length
// (nuts, washers) and for a material not offered for the standard.
std::vector<double> norm_len_lst(const NormStack& sizeStack, const std::string& material, const std::string& variant);
// Material keys offered for a standard: the catalogue's in its order, then those the user added
// in the material-types dialog ("*QEN_NM_PROP*\DIN:<standard>\MAT", a string array or a
// single string) that the catalogue does not offer. With `onlyArticles` only materials with an
// article in the article table.
std::vector<std::string> norm_mat_lst(const NormStack& stack, bool onlyArticles);
// Variants offered for a standard: {"COARSE", "FINE"} for a standard with fine-thread sizes,
// else the single empty variant {""}. None for a node that is no standard or a material the
// standard does not offer. The label of a variant is norm_get(stack + {"", "VAR", v}, "LABEL")
// (a language key whose German text is the label; "LABEL_EN" the English text).
std::vector<std::string> norm_var_lst(const NormStack& stack, const std::string& material, bool onlyArticles);

// Index of the length whose absolute value is nearest to |value| (the first of equally near
// ones); -1 for an empty list or a value that is not a number.
int norm_len_near(double value, const std::vector<double>& lengths);

// A clamping-length table: rows {length, clamping minimum, clamping maximum} (mm), in
// increasing length.
using NormTable = std::vector<std::vector<double>>;
// The clamping-length table ("KLM" "LST") of a size; empty when the standard has none.
NormTable norm_klm_lst(const NormStack& sizeStack);
// The clamping rows for a length: row 0 = {clamping to use}, row 1 = {minimum, maximum}.
// The range is that of the table row of the length (|length|); a length between two table
// lengths takes the row of the next shorter one (the first row below the first length),
// shifted by the difference, as the clamping range moves with the length. The clamping
// length to use is `clamping` held within the range; one that is not a number or not above
// 0 gives the maximum. Empty for an empty table or a length that is not finite.
NormTable norm_klm(double length, double clamping, const NormTable& table);
// The radius range ("RAD") of a size: {minimum, maximum}; empty when the standard has none.
std::vector<double> norm_rad_lst(const NormStack& sizeStack);
// The radius to use: `radius` held within the range {minimum, maximum}; a radius that is not
// a number or not above 0 gives the minimum. With a range of fewer than two values the radius
// stays as given (NaN stays NaN). `stack` names the standard (unused by the rule, kept for
// the callers' form).
double norm_radius(const NormStack& stack, double radius, const std::vector<double>& range);
// The default countersink depth ("SENK") of a size; none when the standard has none.
std::optional<double> norm_senk(const NormStack& sizeStack);
// The numeric figures of a size's data row, named as the columns of the catalogue table
// ("d", "P", "k", "s", "e" … ; sections "h", "b", "tw", "tf" …), in the table's order;
// text cells (a section's "series") are left out. Empty for an unknown size.
std::vector<std::pair<std::string, double>> norm_size_dims(const NormStack& sizeStack);
// Fills `results` with the stacks of the standards at or below the node (the whole tree for
// an empty stack) whose designation in any family, key, or title in either language matches
// the mask ("*" any run, "?" one character, case ignored), in tree order. False when the
// database cannot be read or the stack names no node.
bool norm_tree_leaves(const NormStack& stack, const std::string& mask, std::vector<NormStack>& results);
// Why the database could not be opened (naming its path); empty while it is usable.
std::string norm_db_error();
}  // namespace ZEL

namespace QEN {
// The length the clamping length needs: a length whose clamping range (norm_klm) holds
// `clamping`. The given length is kept when it does; otherwise with standard lengths the
// shortest table length that does, with a free length (`freeLength`) the shortest length
// from the first to the last table length. Not a number when no length does, when the table
// is empty or when `clamping` is not finite.
double norm_klm_len(double clamping, double length, const ZEL::NormTable& table, bool freeLength);
// Display texts of the sizes: the size itself, in parentheses for a size the standard marks
// "AVOID" ("(M14)").
std::vector<std::string> norm_nd_txt(const ZEL::NormStack& stack, const std::vector<std::string>& sizes);
// Display text of a standard length (mm): unit 1 (inches) in inches with up to three
// decimals and the inch sign (25.4 gives "1\""), any other unit in millimetres as "%g"
// ("60", "12.5"). The absolute value is shown; a negative entry stands in parentheses.
std::string norm_len_str(double length, int unit);
// The areas of the standards: `names` maps each area code (a release mask) to its German
// name, `codes` lists the codes in display order. Both are emptied first.
void norm_spheres(std::map<std::string, std::string>& names, std::vector<std::string>& codes);
// The label of a catalogue material in the country's language ("en…": English, else
// German); empty for a key the catalogue does not know.
std::string norm_mat_label(const std::string& material, const std::string& country);

// Release masks: hexadecimal digits in reverse order ("124" is 0x421); a text starting with
// "0x" or "0X" is ordinary hexadecimal. Parsing stops at the first character that is no
// hexadecimal digit; an empty text, a null pointer or no digits give 0. Formatting writes
// lower-case digits without leading zeros, reversed; 0 gives "". The operations parse both
// operands and format the result.
unsigned long rel_parse(const char* mask);
unsigned long rel_parse(const std::string& mask);
std::string rel_format(unsigned long value);
std::string rel_and(const std::string& a, const std::string& b);
std::string rel_or(const std::string& a, const std::string& b);
std::string rel_andnot(const std::string& a, const std::string& b);

// Designation of a standard in the family that the labeling flags select: 0x20 "ISO",
// 0x40 "EN", otherwise "DIN". Where that family has none, the first of DIN, ISO, EN ISO,
// the European and the national designation that exists, finally the key. Empty when the
// stack names no standard.
std::string norm_diniso1(const ZEL::NormStack& stack, int familyFlags);
}  // namespace QEN
