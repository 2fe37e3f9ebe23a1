// Slotted cheese head, cross-recessed pan head and tapping screws.
#include "obj/geometry/ZelNormFamilies.h"
#include "obj/geometry/ZelNormOutline.h"

#include <algorithm>
#include <cmath>

namespace ZEL::geo::norm {

namespace {

// Thread of tapping screws (pitch and root diameter by the nominal diameter).
struct TappingThread {
  double d, pitch, root;
};
constexpr TappingThread kTapping[] = {{2.2, 0.8, 1.63},  {2.9, 1.1, 2.18},  {3.5, 1.3, 2.64},
                                      {4.2, 1.4, 3.10},  {4.8, 1.6, 3.58},  {5.5, 1.8, 4.17},
                                      {6.3, 1.8, 4.88},  {8.0, 2.1, 6.20},  {9.5, 2.1, 7.85}};

}  // namespace

NormModel cheeseScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f("k"), dk = f.first({"dk", "dk_mean"}), len = f.length;
  if (d <= 0.0 || k <= 0.0 || dk <= 0.0 || len <= 0.0) return m;
  m.add(-k, 0.0, circle({0.0, 0.0}, 1.0), dk / 2.0, dk / 2.0);
  // The slot across the head, along p: seen end-on in the front view.
  const double n = f("n_min", 0.2 * d), t = std::min(f("t_min", 0.4 * k), 0.9 * k);
  Recess slot;
  slot.x0 = -k;
  slot.x1 = -k + t;
  slot.outline = rectangle(-dk / 2.0, -n / 2.0, dk / 2.0, n / 2.0);
  m.recesses.push_back(slot);
  addShank(m, 0.0, len, d, threadMinorRadius(d, f("P", d / 6.0)), f("b"));
  return m;
}

NormModel panScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f("k"), dk = f.first({"dk_max", "dk"}), len = f.length;
  if (d <= 0.0 || k <= 0.0 || dk <= 0.0 || len <= 0.0) return m;
  addDomeHead(m, 0.0, k, dk / 2.0, 0.8 * dk / 2.0, 0.5 * k);
  addCrossRecess(m, -k, f.first({"mH", "mZ"}, 0.5 * dk), 0.6 * k);
  addShank(m, 0.0, len, d, threadMinorRadius(d, f("P", d / 6.0)), f("b"));
  return m;
}

NormModel tappingScrewModel(const NormPartFigures& f) {
  NormModel m;
  const double d = f("d"), k = f.first({"k_max", "k_min", "k"}), dk = f.first({"dk_max", "dk_min", "dk"}), len = f.length;
  if (d <= 0.0 || k <= 0.0 || dk <= 0.0 || len <= 0.0) return m;
  double root = 0.78 * d;
  for (const TappingThread& t : kTapping)
    if (std::fabs(t.d - d) < 1e-6) root = t.root;
  addDomeHead(m, 0.0, k, dk / 2.0, 0.75 * dk / 2.0, 0.4 * k);
  addCrossRecess(m, -k, f.first({"m_ref"}, 0.5 * dk), 0.6 * k);
  // The pointed end (form C): a cone from the full diameter to a fifth of it over about d.
  const CZelVertexArray unit = circle({0.0, 0.0}, 1.0);
  const double point = std::min(d, len / 2.0);
  m.add(0.0, len - point, unit, d / 2.0, d / 2.0);
  const double tip = d / 10.0;
  m.add(len - point, len, unit, d / 2.0, tip);
  Thread t;
  t.x0 = 0.0;
  // The thread runs out where the cone reaches the root diameter.
  t.x1 = len - point + point * std::clamp((d / 2.0 - root / 2.0) / (d / 2.0 - tip), 0.0, 1.0);
  t.minor = root / 2.0;
  t.major = d / 2.0;
  t.openStart = false;
  t.openEnd = true;
  m.threads.push_back(t);
  return m;
}

}  // namespace ZEL::geo::norm
