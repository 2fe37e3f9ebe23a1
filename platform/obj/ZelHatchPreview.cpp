#include "obj/ZelHatchPreview.h"

#include "obj/ZelHatchPatterns.h"

#include <cmath>
#include <cwchar>
#include <numbers>
#include <vector>

namespace {

constexpr double kSide = 40.0;    // millimetres
constexpr std::size_t kNamedFamilies = 6;  // in the description

CZelString number(double v) {
  wchar_t buf[64];
  std::swprintf(buf, 64, L"%.6g", std::abs(v) < 1e-9 ? 0.0 : v);
  return buf;
}

// "lines 45° every 3.175", "dashed lines …", "dots …" for one family turned and scaled.
CZelString family(const ZelPatternLine& f, double scale, double degrees) {
  bool dashed = false, dotsOnly = !f.dashes.empty();
  for (double d : f.dashes) {
    dashed = dashed || d < 0;
    dotsOnly = dotsOnly && d <= 0;
  }
  // Lines have no orientation: a direction is kept within [0°, 180°).
  const double direction = std::fmod(std::fmod(f.angle + degrees, 180.0) + 180.0, 180.0);
  return CZelString(dotsOnly ? L"dots " : dashed ? L"dashed lines " : L"lines ") + number(direction) + L"° every " +
         number(std::fabs(f.dy * scale));
}

}  // namespace

namespace ZEL {

CZelString hatchPreview(const CZelString& pattern, double scale, double angle) {
  if (pattern.isEmpty()) return L"empty";
  if (pattern.match(L"SOLID")) return L"solid fill";
  const double degrees = angle * 180.0 / std::numbers::pi;
  CZelString text = pattern + L" scale " + number(scale) + L" angle " + number(degrees) + L"°";
  const ZelHatchPattern* p = findHatchPattern(pattern);
  if (!p) return text + L": line families not known";
  // The spacings drawn: a scale of 0 or one that is not a number draws at 1.
  const double drawn = std::isfinite(scale) && scale != 0.0 ? std::abs(scale) : 1.0;
  std::vector<CZelString> named;
  for (const ZelPatternLine& f : p->lines) {
    CZelString one = family(f, drawn, degrees);
    bool seen = false;
    for (const CZelString& n : named) seen = seen || n == one;
    if (!seen) named.push_back(one);
  }
  for (std::size_t i = 0; i < named.size() && i < kNamedFamilies; ++i) text += CZelString(i ? L", " : L": ") + named[i];
  if (named.size() > kNamedFamilies)
    text += L" and " + number(static_cast<double>(named.size() - kNamedFamilies)) + L" more line families";
  return text;
}

double hatchPreviewSide(const CZelString& pattern) {
  const ZelHatchPattern* p = findHatchPattern(pattern);
  double repeat = 0.0;
  // A family repeats over a cell of its line distance by its dash sequence's length.
  if (p)
    for (const ZelPatternLine& f : p->lines)
      repeat = std::max(repeat, f.period() > 0 ? std::sqrt(std::fabs(f.dy) * f.period()) : std::fabs(f.dy));
  return std::max(kSide, 4.0 * repeat);
}

CDisplayList hatchPreviewList(const CZelString& pattern, double scale, double angle) {
  CDisplayList list;
  const double side = hatchPreviewSide(pattern);
  CZelVertexArray square;
  square.add(0, 0);
  square.add(side, 0);
  square.add(side, side);
  square.add(0, side);
  const CZelColor ink = CZelColor::fromIndex(7);
  list.addPolyline(square, true, ink);
  if (!pattern.isEmpty()) addPatternHatch(list, square, pattern, scale, angle, ink);
  return list;
}

}  // namespace ZEL
