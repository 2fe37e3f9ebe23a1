// A standard part as the views draw it: prisms and frustums stacked along the part's axis.
//
// Coordinates: the axis is X (a screw's head lies at X < 0, its bearing face at X = 0, its
// tip at X = length; a bar runs from 0 to its length). The cross-section plane has the
// coordinates (p, q): p to the right and q upwards as the part is seen end-on from the
// start (the "left" view). Every segment has a cross-section outline in (p, q), scaled by
// s0 at its start and by s1 at its end (a frustum, a chamfer, a cone point), and may have a
// through hole. Recesses (a socket, a slot) are blind holes open at one end; threads carry
// the thread lines; face circles are circles drawn on a face (a bearing face, a chamfer).
//
// Views (what the screen's x and y are, and where the viewer stands):
//   0 left:   x = p,  y = q, looking along +X (from the start / the head)
//   32 right: x = -p, y = q, looking along -X (from the end / the tip)
//   2 front:  x = X,  y = q, viewer on the +p side
//   34 back:  x = -X, y = q, viewer on the -p side
//   1 top:    x = X,  y = -p, viewer on the +q side
//   33 bottom: x = X, y = p, viewer on the -q side
//   3 3D:     isometric, the part's X, p and q on the usual 30° axes, seen from the end
//             side above.
// A hexagon is built with two corners on the q axis: the front view sees it across the
// corners (width e, edges at ±e/4), the top view across the flats (width s, edge on the
// axis).
#pragma once

#include "obj/geometry/ZelGeometryTools.h"

#include <vector>

namespace ZEL::geo::norm {

struct Segment {
  double x0 = 0.0, x1 = 0.0;
  CZelVertexArray outline;   // closed, in (p, q)
  double s0 = 1.0, s1 = 1.0; // scale of the outline at x0 and at x1
  CZelVertexArray hole;      // a through hole, unscaled; empty: none
  bool smoothStart = false;  // the edge at x0 is a tangent (light) edge
  bool smoothEnd = false;
  bool seamStart = false;    // no edge at x0 at all: one curved surface goes on (pieces of a dome)
  bool seamEnd = false;
};

struct Recess {
  double x0 = 0.0, x1 = 0.0;
  CZelVertexArray outline;
  bool openAtStart = true;  // open at x0 (seen from the left), else at x1
};

struct Thread {
  double x0 = 0.0, x1 = 0.0;
  double minor = 0.0, major = 0.0;  // radii
  bool external = true;
  bool openStart = false, openEnd = true;  // the thread runs out of the part there
};

struct FaceCircle {
  double x = 0.0;
  double radius = 0.0;
};

// Which display options apply: bits of "AXIS".
struct ViewOptions {
  int view = 0;
  int flags = 0;
  bool hatch = false;
};

class NormModel {
public:
  std::vector<Segment> segments;
  std::vector<Recess> recesses;
  std::vector<Thread> threads;
  std::vector<FaceCircle> faceCircles;
  bool bar = false;             // a section: a bar of constant cross-section
  bool symmetricP = true;       // mirror-symmetric about the q axis (centre line in views)
  bool symmetricQ = true;       // about the p axis
  std::vector<Pt> drillPoints;  // points of the cross-section where drill axes cross it
  std::vector<Pt> drillDirs;    // the direction of each drill axis in (p, q)

  Segment& add(double x0, double x1, CZelVertexArray outline, double s0 = 1.0, double s1 = 1.0);

  // The drawing of the view, flags applied; empty for an unknown view code.
  Shape view(const ViewOptions& options) const;

  double start() const;
  double end() const;

private:
  void endView(Shape& shape, bool fromStart, const ViewOptions& options) const;
  void sideView(Shape& shape, int view, const ViewOptions& options) const;
  void isoView(Shape& shape) const;
};

// Keeps the paths the flags allow: hidden lines (0x04), thread lines (0x08) and light
// edges (0x10) go when their bit is set; axes stay only with 0x01 (centre) or 0x02 (drill),
// which the caller decides by what it adds.
void applyFlags(Shape& shape, int flags);

}  // namespace ZEL::geo::norm
