// The lines of a combo box or list box: text, item data, check mark and enabled flag, with
// the framework's sorted insertion and its case-blind searches.
#pragma once

#include "data/CZelString.h"
#include "ui/wintypes.h"

#include <vector>

class CListItems {
public:
  struct Item {
    CZelString text;
    DWORD_PTR data = 0;
    int check = 0;
    bool enabled = true;
    bool selected = false;  // multiple-selection list boxes
  };

  int count() const { return static_cast<int>(m_items.size()); }
  bool valid(int i) const { return i >= 0 && i < count(); }
  const Item& at(int i) const { return m_items[static_cast<std::size_t>(i)]; }
  Item& at(int i) { return m_items[static_cast<std::size_t>(i)]; }

  // Appends, or inserts at the sorted place; the new line's index.
  int add(const CZelString& text, bool sorted);
  // Inserts before `index` (-1: at the end); the new line's index or -1.
  int insert(int index, const CZelString& text);
  bool remove(int index);
  void clear() { m_items.clear(); }

  // The first line after `start` (-1: from the top) that begins with / equals the text,
  // letter case ignored, searching round to the start; -1 when none.
  int findPrefix(int start, const CZelString& text) const;
  int findExact(int start, const CZelString& text) const;

private:
  std::vector<Item> m_items;
};
