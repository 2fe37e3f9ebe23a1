// Plane-geometry helpers shared by the accessory shapes: points, arcs as bulges, closed
// outlines, and the guard that keeps non-finite or negative sizes out of the vertices.
#pragma once

#include "obj/geometry/ZelShape.h"

#include <vector>

namespace ZEL::geo {

inline constexpr double kPi = 3.14159265358979323846;

struct Pt {
  double x = 0.0;
  double y = 0.0;
};

// A size as a shape uses it: a finite value not below zero, anything else 0.
double usableSize(double value);

// The bulge of an arc that turns through `sweep` radians, counter-clockwise when positive.
double bulgeOfSweep(double sweep);

// The rectangle between two corners, counter-clockwise from (x0, y0).
CZelVertexArray rectangle(double x0, double y0, double x1, double y1);
// A full circle as two half circles, counter-clockwise, starting at its leftmost point.
CZelVertexArray circle(Pt centre, double radius);
CZelVertexArray polyline(const std::vector<Pt>& points);

Path path(CZelVertexArray points, bool closed, Layer layer = Layer::Contour);
Path line(Pt from, Pt to, Layer layer = Layer::Contour);
Area area(CZelVertexArray outline, Area::Fill fill, int hatch = 1);

// The shape itself when every number in it is finite, otherwise the empty shape (sizes
// near the largest real overflow once multiplied).
Shape finiteOrEmpty(Shape shape);

// Turns every vertex of the shape about the origin; bulges keep their meaning.
void rotate(Shape& shape, double angle);

}  // namespace ZEL::geo
