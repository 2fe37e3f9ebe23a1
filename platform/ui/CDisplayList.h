// What a preview shows: a display list in drawing units (lines, arcs, polylines with bulges,
// filled and hatched areas, sets of line segments, each in its colour) and the zoom the
// picture asks for. The preview frame keeps it; a window backend paints it, a script reads
// its description.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelVertexArray.h"

#include <vector>

struct CDisplayExtents {
  double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
  bool empty = true;
  void add(double x, double y);
  friend bool operator==(const CDisplayExtents&, const CDisplayExtents&) = default;
};

class CDisplayList {
public:
  enum class Kind { Line, Arc, Polyline, Fill, Segments };
  struct Item {
    Kind kind = Kind::Line;
    CZelColor color;
    CZelVertexArray points;  // line: two points; polyline, fill, hatch: the outline; segments: pairs of end points
    bool closed = false;     // polylines
    double cx = 0.0, cy = 0.0, radius = 0.0;       // arcs
    double startAngle = 0.0, endAngle = 0.0;      // arcs, radians, counter-clockwise
    friend bool operator==(const Item&, const Item&) = default;
  };

  void clear() { m_items.clear(); }
  void addLine(double x1, double y1, double x2, double y2, CZelColor color);
  void addArc(double cx, double cy, double radius, double startAngle, double endAngle, CZelColor color);
  void addPolyline(const CZelVertexArray& points, bool closed, CZelColor color);
  void addFill(const CZelVertexArray& outline, CZelColor color);
  // Separate straight segments, the end points in pairs (a dot is a pair of equal points); one
  // item however many, so that a hatch of thousands of dashes stays one item to paint.
  void addSegments(CZelVertexArray endpoints, CZelColor color);

  const std::vector<Item>& items() const { return m_items; }
  bool isEmpty() const { return m_items.empty(); }
  // The box around everything drawn (arcs and bulged segments by their full extent).
  CDisplayExtents extents() const;

  CZelColor background = CZelColor::fromRgb(255, 255, 255);
  // The part of the drawing the picture shows; empty: everything drawn (zoomed to extents).
  CDisplayExtents view;
  friend bool operator==(const CDisplayList&, const CDisplayList&) = default;

private:
  std::vector<Item> m_items;
};
