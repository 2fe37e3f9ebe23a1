// Which lines of a list or combo box are drawn on the alternate background, so that lines that
// belong together (nominal sizes of one group) stand out as bands.
#pragma once

#include <algorithm>
#include <vector>

#include "data/CZelArrayTempl.h"

class CZelAltBackgr {
public:
  // The lines at these positions get the alternate background; every other line the normal one.
  // Each call replaces the previous set; negative positions are ignored.
  void set(const CZelArrayTempl<int>& indices) { set(indices.items()); }
  void set(const std::vector<int>& indices) {
    m_indices.clear();
    for (int i : indices)
      if (i >= 0) m_indices.push_back(i);
    std::sort(m_indices.begin(), m_indices.end());
    m_indices.erase(std::unique(m_indices.begin(), m_indices.end()), m_indices.end());
  }
  void clear() { m_indices.clear(); }
  bool has(int index) const { return std::binary_search(m_indices.begin(), m_indices.end(), index); }
  // In ascending order, each once.
  const std::vector<int>& indices() const { return m_indices; }

private:
  std::vector<int> m_indices;
};
