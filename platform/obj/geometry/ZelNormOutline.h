// Plane helpers of the standard-part drawings: cross-sections as closed outlines (straight
// edges and arcs as bulges) in the section plane, and the tests the views need on them —
// flattening arcs, point in outline, whether a ray leaves an outline without passing
// through it, whether one outline lies inside another.
#pragma once

#include "obj/geometry/ZelGeometryTools.h"

#include <vector>

namespace ZEL::geo::norm {

// The outline with every arc replaced by chords (`perArc` chords a half circle), closed
// implicitly: the last point is not repeated.
std::vector<Pt> flatten(const CZelVertexArray& outline, int perArc = 16);

// The outline scaled about the origin (bulges keep their meaning).
CZelVertexArray scaled(const CZelVertexArray& outline, double factor);
// Mirrors the points (x -> -x) and reverses nothing: bulges change sign.
CZelVertexArray mirroredX(const CZelVertexArray& outline);

// Regular hexagon about the origin with across-flats `s`, two corners on the vertical axis.
CZelVertexArray hexagon(double s);
// Hexagon with the table's across-flats `s` and across-corners `e`: corners on the
// vertical axis at ±e/2, flats at x = ±s/2 (an `e` that no hexagon can have is replaced by
// the regular one's).
CZelVertexArray hexagon(double s, double e);

// A corner-rounded rectangle centred on the origin; radius 0: sharp corners.
CZelVertexArray roundedRectangle(double width, double height, double radius);

enum class Where { Inside, Boundary, Outside };
Where locate(const std::vector<Pt>& polygon, Pt point, double tolerance);

// True when the ray from `from` in direction `dir` passes through the inside of the
// polygon (running along its edges does not count).
bool rayEntersInside(const std::vector<Pt>& polygon, Pt from, Pt dir, double tolerance);

// How `inner` lies in `outer`: Inside when no point of it is outside and not all are on
// the boundary, Boundary when all are on it (the same outline), Outside otherwise.
Where containment(const std::vector<Pt>& outer, const std::vector<Pt>& inner, double tolerance);

// The extremes of the outline (arcs by their points) along a unit direction.
void extent(const std::vector<Pt>& polygon, Pt dir, double& lo, double& hi);

// The 3/4 circle that draws a thread's root (or an internal thread's major diameter) end-on,
// open in the upper right quarter.
CZelVertexArray threadArc(double radius);

}  // namespace ZEL::geo::norm
