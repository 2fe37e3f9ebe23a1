#include "obj/geometry/ZelNormFamilies.h"
#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>
#include <cmath>

namespace ZEL::geo::norm {

double threadMinorRadius(double d, double pitch) {
  const double r = (d - 1.2268 * pitch) / 2.0;
  return r > 0.0 ? r : d * 0.4;
}

void addShank(NormModel& model, double x0, double length, double d, double minorRadius, double threadLength) {
  const double r = d / 2.0;
  const CZelVertexArray unit = circle({0.0, 0.0}, 1.0);
  // A 45° chamfer from the major to the root diameter, never more than half the shank.
  const double chamfer = std::min(std::max(r - minorRadius, 0.0), (length - x0) / 2.0);
  const double bodyEnd = length - chamfer;
  const double threadStart = (threadLength <= 0.0 || threadLength >= length - x0) ? x0 : length - threadLength;
  model.add(x0, bodyEnd, unit, r, r);
  if (chamfer > 0.0) model.add(bodyEnd, length, unit, r, r - chamfer);
  Thread t;
  t.x0 = threadStart;
  t.x1 = length;
  t.minor = minorRadius;
  t.major = r;
  t.external = true;
  t.openStart = false;
  t.openEnd = true;
  model.threads.push_back(t);
}

void addDomeHead(NormModel& model, double bearing, double height, double r0, double rTop, double flat) {
  const CZelVertexArray unit = circle({0.0, 0.0}, 1.0);
  double x = bearing;
  const double top = bearing - height;
  const double straight = std::clamp(flat, 0.0, height);
  if (straight > 0.0) {
    model.add(x - straight, x, unit, r0, r0).smoothStart = straight < height;
    x -= straight;
  }
  // The rest as a quarter ellipse from r0 down to rTop, in four pieces.
  const int pieces = 4;
  const double rise = x - top;
  if (rise <= 0.0) return;
  double prevR = r0;
  double prevX = x;
  for (int i = 1; i <= pieces; ++i) {
    const double u = static_cast<double>(i) / pieces;
    const double xi = x - rise * u;
    const double ri = rTop + (r0 - rTop) * std::sqrt(std::max(0.0, 1.0 - u * u));
    Segment& s = model.add(xi, prevX, unit, ri, prevR);
    // The pieces join without an edge; the dome meets the cylinder in a tangent edge.
    s.seamEnd = i > 1;
    s.smoothEnd = i == 1 && straight > 0.0;
    s.seamStart = i < pieces;
    prevR = ri;
    prevX = xi;
  }
}

void addCrossRecess(NormModel& model, double top, double size, double depth) {
  const double a = size / 2.0, w = size / 10.0;
  Recess r;
  r.x0 = top;
  r.x1 = top + depth;
  r.outline = polyline({{-a, -w}, {-w, -w}, {-w, -a}, {w, -a}, {w, -w}, {a, -w}, {a, w}, {w, w}, {w, a}, {-w, a}, {-w, w}, {-a, w}});
  r.openAtStart = true;
  model.recesses.push_back(r);
}

void addHexSocket(NormModel& model, double top, double s, double depth, bool openAtStart) {
  Recess r;
  r.x0 = openAtStart ? top : top - depth;
  r.x1 = openAtStart ? top + depth : top;
  r.outline = hexagon(s);
  r.openAtStart = openAtStart;
  model.recesses.push_back(r);
}

}  // namespace ZEL::geo::norm
