#include "ui/CListItems.h"

#include <algorithm>
#include <cwctype>

namespace {

std::wstring folded(const std::wstring& s) {
  std::wstring out(s);
  for (wchar_t& c : out) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  return out;
}

}  // namespace

int CListItems::add(const CZelString& text, bool sorted) {
  if (!sorted) {
    m_items.push_back(Item{text});
    return count() - 1;
  }
  std::wstring key = folded(text.str());
  auto it = std::find_if(m_items.begin(), m_items.end(), [&](const Item& i) { return folded(i.text.str()) > key; });
  it = m_items.insert(it, Item{text});
  return static_cast<int>(it - m_items.begin());
}

int CListItems::insert(int index, const CZelString& text) {
  if (index < 0 || index >= count()) {
    if (index > count()) return -1;
    m_items.push_back(Item{text});
    return count() - 1;
  }
  m_items.insert(m_items.begin() + index, Item{text});
  return index;
}

bool CListItems::remove(int index) {
  if (!valid(index)) return false;
  m_items.erase(m_items.begin() + index);
  return true;
}

int CListItems::findPrefix(int start, const CZelString& text) const {
  std::wstring key = folded(text.str());
  int n = count();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k) % n;
    if (i < 0) i += n;
    if (folded(at(i).text.str()).compare(0, key.size(), key) == 0) return i;
  }
  return -1;
}

int CListItems::findExact(int start, const CZelString& text) const {
  std::wstring key = folded(text.str());
  int n = count();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k) % n;
    if (i < 0) i += n;
    if (folded(at(i).text.str()) == key) return i;
  }
  return -1;
}
