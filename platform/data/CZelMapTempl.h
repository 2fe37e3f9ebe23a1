// Map of the platform keyed by text: looking a key up inserts an empty value.
#pragma once

#include <map>

template <class K, class V>
class CZelMapTempl {
public:
  V& operator[](const K& key) { return m_map[key]; }
  V* lookup(const K& key) {
    auto it = m_map.find(key);
    return it == m_map.end() ? nullptr : &it->second;
  }
  bool contains(const K& key) const { return m_map.count(key) != 0; }
  bool remove(const K& key) { return m_map.erase(key) != 0; }
  void clear() { m_map.clear(); }
  int count() const { return static_cast<int>(m_map.size()); }
  auto begin() { return m_map.begin(); }
  auto end() { return m_map.end(); }
  auto begin() const { return m_map.begin(); }
  auto end() const { return m_map.end(); }

private:
  std::map<K, V> m_map;
};
