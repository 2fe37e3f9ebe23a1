// Growable array of the platform: negative indices count from the end, indexing past the
// end grows the array, and an empty array read with a negative index yields a shared
// empty element instead of failing.
#pragma once

#include <initializer_list>
#include <vector>

template <class T>
class CZelArrayTempl {
public:
  CZelArrayTempl() = default;
  CZelArrayTempl(std::initializer_list<T> items) { for (const auto& i : items) add(i); }

  int count() const { return static_cast<int>(m_items.size()); }
  int capacity() const { return static_cast<int>(m_items.capacity()); }
  bool isEmpty() const { return m_items.empty(); }

  void add(const T& item) { grow(count() + 1); m_items.push_back(item); }
  void add(T&& item) { grow(count() + 1); m_items.push_back(std::move(item)); }
  void insertAt(int index, const T& item) {
    if (index < 0) index = 0;
    if (index > count()) index = count();
    grow(count() + 1);
    m_items.insert(m_items.begin() + index, item);
  }
  void removeAt(int index) {
    if (index < 0) index += count();
    if (index >= 0 && index < count()) m_items.erase(m_items.begin() + index);
  }
  void removeAll() { m_items.clear(); }
  void setCount(int n) { grow(n); m_items.resize(static_cast<std::size_t>(n < 0 ? 0 : n)); }

  // -k gives the k-th element from the end; an index at or past the count grows the
  // array to index + 1 with default-constructed elements.
  T& operator[](int index) {
    if (index < 0) {
      if (m_items.empty()) { s_empty = T(); return s_empty; }
      index += count();
      if (index < 0) index = 0;
    }
    if (index >= count()) { grow(index + 1); m_items.resize(static_cast<std::size_t>(index) + 1); }
    return m_items[static_cast<std::size_t>(index)];
  }
  const T& operator[](int index) const { return const_cast<CZelArrayTempl&>(*this)[index]; }

  int find(const T& item) const {
    for (int i = 0; i < count(); ++i) if (m_items[static_cast<std::size_t>(i)] == item) return i;
    return -1;
  }

  auto begin() { return m_items.begin(); }
  auto end() { return m_items.end(); }
  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }
  const std::vector<T>& items() const { return m_items; }

  friend bool operator==(const CZelArrayTempl& a, const CZelArrayTempl& b) { return a.m_items == b.m_items; }

private:
  // Capacity grows by doubling from 8, as the platform's arrays do.
  void grow(int needed) {
    auto cap = static_cast<int>(m_items.capacity());
    if (needed <= cap) return;
    int next = cap < 8 ? 8 : cap;
    while (next < needed) next *= 2;
    m_items.reserve(static_cast<std::size_t>(next));
  }

  std::vector<T> m_items;
  static inline thread_local T s_empty{};
};
