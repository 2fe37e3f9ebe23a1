// Reads a control's state as a user sees it, the same way for every kind: its text, its
// lines, the selected line and check marks; and writes it all on one line for dumps.
#pragma once

#include "data/CZelString.h"

#include <optional>
#include <string>

class CWnd;

class CControlState {
public:
  // The text a user reads: an edit's or button's text, a drop-down list's or list's
  // selected line, a link's text without its tags.
  static CZelString text(const CWnd& control);
  // Lines of combos, lists, trees (all nodes), list views (rows) and tab controls (tabs).
  static std::optional<int> itemCount(const CWnd& control);
  static std::optional<CZelString> itemText(const CWnd& control, int line);
  // The selected line (-1: none).
  static std::optional<int> selected(const CWnd& control);
  // A button's check state (line -1), or the mark of a line of a check list, list view or tree.
  static std::optional<int> check(const CWnd& control, int line);
  static std::string dump(const CWnd& control);
};
