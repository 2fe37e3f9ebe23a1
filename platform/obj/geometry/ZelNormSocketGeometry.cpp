// Screws with a hexagon socket: cap, countersunk, button head screws and set screws.
#include "obj/geometry/ZelNormFamilies.h"
#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>
#include <cmath>

namespace ZEL::geo::norm {

NormModel socketScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f("k"), dk = f.first({"dk_max", "dk"}), len = f.length;
  if (d <= 0.0 || k <= 0.0 || dk <= 0.0 || len <= 0.0) return m;
  m.add(-k, 0.0, circle({0.0, 0.0}, 1.0), dk / 2.0, dk / 2.0);
  addHexSocket(m, -k, f.first({"s_mean", "s"}, 0.5 * d), std::min(f("t", 0.5 * k), k * 0.9));
  addShank(m, 0.0, len, d, threadMinorRadius(d, f("P", d / 6.0)), f("b"));
  return m;
}

NormModel countersunkScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), dk = f.first({"dk_theo", "dk"}), len = f.length;
  double k = f.first({"csh_height", "k"});
  if (d <= 0.0 || dk <= d || len <= 0.0) return m;
  // The head is sunk: its top face lies at x = 0, the nominal length includes it. The 90°
  // cone takes (dk - d) / 2; what the head height has beyond it is the cylindrical rim.
  const double cone = (dk - d) / 2.0;
  if (k < cone) k = cone;
  if (k > len) return m;
  const CZelVertexArray unit = circle({0.0, 0.0}, 1.0);
  if (k > cone) m.add(0.0, k - cone, unit, dk / 2.0, dk / 2.0);
  m.add(k - cone, k, unit, dk / 2.0, d / 2.0);
  addHexSocket(m, 0.0, f.first({"s_mean", "s"}, 0.5 * d), std::min(f("t", 0.5 * k), k * 0.9));
  if (len > k) addShank(m, k, len, d, threadMinorRadius(d, f("P", d / 6.0)), f("b"));
  return m;
}

NormModel buttonScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f("k"), dk = f.first({"dk", "dk_mean"}), len = f.length;
  if (d <= 0.0 || k <= 0.0 || dk <= 0.0 || len <= 0.0) return m;
  double bearing = 0.0, height = k;
  // ISO 7380-2: a collar dk_c high c under the dome.
  const double collar = f("dk_c"), c = f("c");
  if (collar > 0.0 && c > 0.0 && c < k) {
    m.add(-c, 0.0, circle({0.0, 0.0}, 1.0), collar / 2.0, collar / 2.0);
    bearing = -c;
    height = k - c;
  }
  addDomeHead(m, bearing, height, dk / 2.0, 0.4 * dk / 2.0, 0.0);
  addHexSocket(m, -k, f.first({"s_mean", "s"}, 0.5 * d), std::min(f.first({"t_min", "t"}, 0.5 * k), k * 0.9));
  addShank(m, 0.0, len, d, threadMinorRadius(d, f("P", d / 6.0)), f("b"));
  return m;
}

NormModel setScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), len = f.length;
  if (d <= 0.0 || len <= 0.0) return m;
  const double minor = threadMinorRadius(d, f("P", d / 6.0));
  const CZelVertexArray unit = circle({0.0, 0.0}, 1.0);
  const double r = d / 2.0;
  // The top end chamfered to the root diameter, the socket in it.
  const double top = std::min(r - minor, len / 4.0);
  m.add(0.0, top, unit, minor, r);
  // The point: flat (ISO 4026, dp), cone (ISO 4027, dt), dog (ISO 4028, d_p and z), cup
  // (ISO 4029, dp with the cup's rim).
  double pointStart = len;
  if (f.norm == "ISO4028") {
    const double dp = f.first({"d_p_max", "d_p_min"}, 0.6 * d);
    const double z = std::min(f.first({"z_long_max", "z_short_max"}, 0.25 * d), len / 2.0);
    pointStart = len - z;
    m.add(pointStart, len, unit, dp / 2.0, dp / 2.0);
  } else {
    const double tip = f.norm == "ISO4027" ? f("dt", 0.0) / 2.0 : f("dp", 0.6 * d) / 2.0;
    const double depth = std::min(r - tip, len / 2.0);
    pointStart = len - depth;
    m.add(pointStart, len, unit, r, std::max(tip, 0.0));
    if (f.norm == "ISO4029") {
      Recess cup;
      cup.x0 = len - std::min(depth, 0.1 * d + 0.2);
      cup.x1 = len;
      cup.outline = circle({0.0, 0.0}, 0.7 * std::max(tip, 0.0));
      cup.openAtStart = false;
      if (tip > 0.0) m.recesses.push_back(cup);
    }
  }
  if (pointStart > top) m.add(top, pointStart, unit, r, r);
  addHexSocket(m, 0.0, f.first({"s", "s_nom", "s_mean"}, 0.5 * d), std::min(f.first({"t", "te_min", "td_min"}, d), len * 0.8));
  Thread t;
  t.x0 = 0.0;
  t.x1 = pointStart;  // the thread runs out into the point
  t.minor = minor;
  t.major = r;
  t.openStart = t.openEnd = true;
  m.threads.push_back(t);
  return m;
}

}  // namespace ZEL::geo::norm
