// What an object looks like in a section: the lines to draw, each on its logical layer,
// and the faces that its representation fills or hatches, in the object's own unit.
// Shapes are plain values made by pure functions of the section's values; drawing them
// into a preview (colours of the layers, the effective hatch) is a separate step.
#pragma once

#include "data/CZelVertexArray.h"

#include <vector>

namespace ZEL::geo {

// The logical layers of an object's parts ("PART_CON", "PART_HID", "PART_CEN", "PART_FILL",
// and for standard parts the thread lines "PART_THR" and the light (tangent) edges "PART_LGT").
enum class Layer { Contour, Hidden, Axis, Fill, Thread, Light };

const wchar_t* layerKey(Layer layer);

struct Path {
  CZelVertexArray points;  // vertices with the bulge of the segment after each
  bool closed = false;
  Layer layer = Layer::Contour;
  friend bool operator==(const Path&, const Path&) = default;
};

// A face of the object that the representation asks to be filled: solid in the layer
// colour, or hatched with the object's first (HPNAME, HPSCALE, HPANG) or second hatch
// (HPNAME2, HPSCALE2, HPANG2).
struct Area {
  enum class Fill { Solid, Hatch };
  CZelVertexArray outline;  // closed
  Fill fill = Fill::Hatch;
  int hatch = 1;
  friend bool operator==(const Area&, const Area&) = default;
};

struct Shape {
  std::vector<Path> paths;
  std::vector<Area> areas;
  // The object's outer outline, closed (what is stored as "VL"); empty for objects that
  // are only lines (the axis symbol is its outline's bounding lines).
  CZelVertexArray outline;
  bool isEmpty() const { return paths.empty() && areas.empty(); }
  friend bool operator==(const Shape&, const Shape&) = default;
};

}  // namespace ZEL::geo
