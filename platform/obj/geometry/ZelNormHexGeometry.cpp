// Hexagon head screws and hexagon nuts.
#include "obj/geometry/ZelNormFamilies.h"
#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>

namespace ZEL::geo::norm {

NormModel hexScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f("k"), s = f("s"), len = f.length;
  if (d <= 0.0 || k <= 0.0 || s <= 0.0 || len <= 0.0) return m;
  const double e = f("e", s / 0.8660254037844386);
  const double dw = f("dw", 0.9 * s);
  // Head: hexagon from the top face (x = -k) to the bearing face (x = 0); the chamfer of the
  // top face shows as the circle touching the flats, the bearing face as the circle dw.
  m.add(-k, 0.0, hexagon(s, e));
  m.faceCircles.push_back({-k, s / 2.0});
  m.faceCircles.push_back({0.0, dw / 2.0});
  // Thread length: ISO 4014 by length (b1 up to 125, b2 up to 200, b3 above); thread to the
  // head otherwise.
  double b = 0.0;
  if (f.has("b1")) b = len <= 125.0 ? f("b1") : (len <= 200.0 ? f("b2", f("b1")) : f("b3", f("b1")));
  addShank(m, 0.0, len, d, threadMinorRadius(d, f("P", d / 6.0)), b);
  return m;
}

NormModel hexNutModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d");
  const double s = f.first({"s_nom", "s", "s_max", "s_min"});
  const double height = f.first({"h", "h_max", "h_min"});  // overall height of a locking nut
  double hexHeight = f.first({"m", "m_min"});
  if (d <= 0.0 || s <= 0.0 || (hexHeight <= 0.0 && height <= 0.0)) return m;
  if (hexHeight <= 0.0) hexHeight = height;
  const double e = f.first({"e", "e_min"}, s / 0.8660254037844386);
  const double dw = f.first({"dw", "d_w_min"}, 0.9 * s);
  const double minor = threadMinorRadius(d, f("P", d / 6.0));
  const CZelVertexArray bore = circle({0.0, 0.0}, minor);
  m.add(0.0, hexHeight, hexagon(s, e)).hole = bore;
  m.faceCircles.push_back({0.0, std::min(dw, s) / 2.0});
  double top = hexHeight;
  // The clamping part of a prevailing-torque nut: a collar of the bearing diameter.
  if (height > hexHeight) {
    m.add(hexHeight, height, circle({0.0, 0.0}, 1.0), dw / 2.0, dw / 2.0).hole = bore;
    top = height;
  } else {
    m.faceCircles.push_back({hexHeight, std::min(dw, s) / 2.0});
  }
  Thread t;
  t.x0 = 0.0;
  t.x1 = top;
  t.minor = minor;
  t.major = d / 2.0;
  t.external = false;
  t.openStart = t.openEnd = true;
  m.threads.push_back(t);
  return m;
}

}  // namespace ZEL::geo::norm
