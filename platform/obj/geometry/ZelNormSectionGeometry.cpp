// Open rolled sections: I- and H-beams, channels, angles and tees. The radii of the
// rolling are not in the tables: corners are drawn sharp. The flanges of INP beams slope
// at 14 % on their inner faces, with the table's thickness at the middle of each flange
// half; all other flanges are drawn parallel. Drill axes are the gauge lines of the flanges and legs,
// drawn at the middle of each flange half (legs: their middle).
#include "obj/geometry/ZelNormFamilies.h"

#include <algorithm>

namespace ZEL::geo::norm {

double barLength(const NormPartFigures& f) { return f.length > 0.0 ? f.length : 1000.0; }

NormModel beamModel(const NormPartFigures& f) {
  NormModel m;
  const double h = f("h"), b = f("b"), tw = f("tw"), tf = f("tf");
  if (h <= 0.0 || b <= 0.0 || tw <= 0.0 || tf <= 0.0 || tw >= b || 2.0 * tf >= h) return m;
  const double x = b / 2.0, y = h / 2.0, w = tw / 2.0, i = h / 2.0 - tf;
  // The inner faces: at the flange tip `it`, at the web `iw` (equal for parallel flanges).
  const double slope = f.norm == "INP" ? 0.14 : 0.0;
  const double half = (b - tw) / 2.0;
  const double it = std::min(i + slope * half / 2.0, y - 1e-3 * tf), iw = std::max(i - slope * half / 2.0, 0.0);
  m.bar = true;
  m.add(0.0, barLength(f), polyline({{-x, -y}, {x, -y}, {x, -it}, {w, -iw}, {w, iw}, {x, it}, {x, y}, {-x, y}, {-x, it}, {-w, iw},
                                     {-w, -iw}, {-x, -it}}));
  const double gauge = (w + x) / 2.0, mid = (y + i) / 2.0;
  for (const Pt p : {Pt{gauge, mid}, Pt{-gauge, mid}, Pt{gauge, -mid}, Pt{-gauge, -mid}}) {
    m.drillPoints.push_back(p);
    m.drillDirs.push_back({0.0, 1.0});
  }
  return m;
}

NormModel channelModel(const NormPartFigures& f) {
  NormModel m;
  const double h = f("h"), b = f("b"), tw = f("tw"), tf = f("tf");
  if (h <= 0.0 || b <= 0.0 || tw <= 0.0 || tf <= 0.0 || tw >= b || 2.0 * tf >= h) return m;
  // The web on the left, the flanges open to the right; the box centred on the axis.
  const double x = b / 2.0, y = h / 2.0, wx = -x + tw, i = y - tf;
  m.bar = true;
  m.symmetricP = false;
  m.add(0.0, barLength(f), polyline({{-x, -y}, {x, -y}, {x, -i}, {wx, -i}, {wx, i}, {x, i}, {x, y}, {-x, y}}));
  const double gauge = (wx + x) / 2.0, mid = (y + i) / 2.0;
  for (const Pt p : {Pt{gauge, mid}, Pt{gauge, -mid}}) {
    m.drillPoints.push_back(p);
    m.drillDirs.push_back({0.0, 1.0});
  }
  m.drillPoints.push_back({-x + tw / 2.0, 0.0});
  m.drillDirs.push_back({1.0, 0.0});
  return m;
}

NormModel angleModel(const NormPartFigures& f) {
  NormModel m;
  const double a = f("a"), b = f("b", a), t = f("t");
  if (a <= 0.0 || b <= 0.0 || t <= 0.0 || t >= std::min(a, b)) return m;
  // The upright leg a on the left, the leg b at the bottom; the box centred on the axis.
  const double x = b / 2.0, y = a / 2.0;
  m.bar = true;
  m.symmetricP = m.symmetricQ = false;
  m.add(0.0, barLength(f), polyline({{-x, -y}, {x, -y}, {x, -y + t}, {-x + t, -y + t}, {-x + t, y}, {-x, y}}));
  m.drillPoints.push_back({(-x + t + x) / 2.0, -y + t / 2.0});
  m.drillDirs.push_back({0.0, 1.0});
  m.drillPoints.push_back({-x + t / 2.0, (-y + t + y) / 2.0});
  m.drillDirs.push_back({1.0, 0.0});
  return m;
}

NormModel teeModel(const NormPartFigures& f) {
  NormModel m;
  const double h = f("h"), b = f("b"), tw = f("tw"), tf = f("tf");
  if (h <= 0.0 || b <= 0.0 || tw <= 0.0 || tf <= 0.0 || tw >= b || tf >= h) return m;
  // The flange at the top, the stem down; the box centred on the axis.
  const double x = b / 2.0, y = h / 2.0, w = tw / 2.0, i = y - tf;
  m.bar = true;
  m.symmetricQ = false;
  m.add(0.0, barLength(f), polyline({{-w, -y}, {w, -y}, {w, i}, {x, i}, {x, y}, {-x, y}, {-x, i}, {-w, i}}));
  const double gauge = (w + x) / 2.0, mid = (y + i) / 2.0;
  for (const Pt p : {Pt{gauge, mid}, Pt{-gauge, mid}}) {
    m.drillPoints.push_back(p);
    m.drillDirs.push_back({0.0, 1.0});
  }
  m.drillPoints.push_back({0.0, (-y + i) / 2.0});
  m.drillDirs.push_back({1.0, 0.0});
  return m;
}

}  // namespace ZEL::geo::norm
