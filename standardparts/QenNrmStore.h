// What the standard-parts dialog and its pages share: the values of "*NM*" and the global
// switches, read and written in the store's form, and the selection as every command
// resolves it first (stack, node type, material, variant, nominal size, per-domain key).
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelDataItem.h"
#include "data/CZelString.h"
#include "norm/ZelNorm.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qen::nrm {

using Stack = ZEL::NormStack;

inline constexpr const wchar_t* kSection = L"*NM*";

// UTF-8 <-> store text.
CZelString wide(const std::string& utf8);
std::string utf8(const CZelString& text);

// A value of "*NM*" (or of any path when `path` contains a backslash).
CZelString nmPath(const wchar_t* name);
std::optional<CZelString> getText(const CZelString& path);
std::optional<int> getInt(const CZelString& path);
std::optional<double> getReal(const CZelString& path);
void setText(const CZelString& path, const CZelString& value);
// Written, or removed when empty.
void setTextOrRemove(const CZelString& path, const CZelString& value);
void setInt(const CZelString& path, int value);
void setReal(const CZelString& path, double value);
// A string array, or a single string taken as a one-element array; none when neither.
std::optional<Stack> getStack(const CZelString& path);
void setStack(const CZelString& path, const Stack& stack);
// A list of stacks (a list whose entries are string lists).
std::vector<Stack> getStackList(const CZelString& path);
void setStackList(const CZelString& path, const std::vector<Stack>& stacks);

// The caller filter "*NORM_PARM*\FILTER" (domains to leave out).
std::vector<std::string> callerFilter();
// "_QEN_NORM_ORDER" holds a readable integer.
bool onlyArticles();
// "_QEN_NM_REL"; with `writeDefault`, "f" is written when absent or unreadable.
std::string releaseMask(bool writeDefault);

// A node property ("TYPE", "LABEL" …); empty when the node has none.
std::string nodeProp(const Stack& stack, const std::string& name);
// A property under the stack directly (a size's "DATA" …).
std::optional<std::string> sizeProp(const Stack& sizeStack, const std::string& name);

// The per-domain settings of a selection: "*NM_SET*\DIN\*BAR*" or "…\*PIECE*".
CZelString domainPath(bool barp, const wchar_t* name);

// The selection as every command resolves it first.
struct Selection {
  Stack stack;
  std::string type;
  bool isNorm = false;
  std::vector<std::string> materials, variants, sizes;
  std::string mat, var, nd;
  bool barp = false;
  bool articles = false;
};
// `treeStacks`: the stacks the tree holds (none or empty: no replacement).
Selection resolve(const std::vector<Stack>* treeStacks);

// The first of `sizes` whose node has no "AVOID"; `stored` when it is in the list or when
// every size is to be avoided; empty for an empty list.
std::string resolveSize(const Stack& stack, const std::vector<std::string>& sizes, const std::string& stored);

// The "*NM*" section as an item (none when absent).
CZelDataItem* section();
// Copies every value of `from` into "*NM*" (overwriting), and, with `alsoTo`, under that path.
void mergeInto(const CZelDataItem& from, const CZelString& alsoTo);

}  // namespace qen::nrm
