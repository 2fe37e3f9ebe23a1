// Vertex array of the platform: polyline vertices with the bulge of the segment after each.
#pragma once

#include <vector>

struct ZelVertex {
  double x = 0.0;
  double y = 0.0;
  double bulge = 0.0;
  friend bool operator==(const ZelVertex&, const ZelVertex&) = default;
};

class CZelVertexArray {
public:
  int count() const { return static_cast<int>(m_vertices.size()); }
  bool isEmpty() const { return m_vertices.empty(); }
  void add(double x, double y, double bulge = 0.0) { m_vertices.push_back({x, y, bulge}); }
  void add(const ZelVertex& v) { m_vertices.push_back(v); }
  void removeAll() { m_vertices.clear(); }
  ZelVertex& operator[](int i) { return m_vertices[static_cast<std::size_t>(i)]; }
  const ZelVertex& operator[](int i) const { return m_vertices[static_cast<std::size_t>(i)]; }
  auto begin() const { return m_vertices.begin(); }
  auto end() const { return m_vertices.end(); }
  friend bool operator==(const CZelVertexArray&, const CZelVertexArray&) = default;

private:
  std::vector<ZelVertex> m_vertices;
};
