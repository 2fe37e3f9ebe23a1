#include "obj/ZelHatchPreview.h"

#include <cmath>
#include <cwchar>
#include <numbers>

namespace {

// One family of parallel lines of a pattern at scale 1 and angle 0: direction in degrees,
// distance between the lines in millimetres, dashed or drawn through.
struct LineFamily {
  double angle;
  double spacing;
  bool dashed;
};

struct PatternLines {
  const wchar_t* name;
  LineFamily families[4];
  int count;
};

// The ANSI families in their metric form (the inch patterns' distances in millimetres).
constexpr PatternLines kPatterns[] = {
    {L"ANSI31", {{45, 3.175, false}}, 1},
    {L"ANSI32", {{45, 9.525, false}, {45, 9.525, false}}, 2},
    {L"ANSI33", {{45, 6.35, false}, {45, 6.35, true}}, 2},
    {L"ANSI34", {{45, 19.05, false}, {45, 19.05, false}, {45, 19.05, false}, {45, 19.05, false}}, 4},
    {L"ANSI35", {{45, 6.35, false}, {45, 6.35, true}}, 2},
    {L"ANSI36", {{45, 3.175, true}}, 1},
    {L"ANSI37", {{45, 3.175, false}, {135, 3.175, false}}, 2},
    {L"ANSI38", {{45, 3.175, false}, {135, 6.35, true}}, 2},
};

CZelString number(double v) {
  wchar_t buf[64];
  std::swprintf(buf, 64, L"%.6g", std::abs(v) < 1e-9 ? 0.0 : v);
  return buf;
}

}  // namespace

namespace ZEL {

CZelString hatchPreview(const CZelString& pattern, double scale, double angle) {
  if (pattern.isEmpty()) return L"empty";
  if (pattern.match(L"SOLID")) return L"solid fill";
  const double degrees = angle * 180.0 / std::numbers::pi;
  CZelString text = pattern + L" scale " + number(scale) + L" angle " + number(degrees) + L"°";
  for (const PatternLines& p : kPatterns) {
    if (!pattern.match(p.name)) continue;
    for (int i = 0; i < p.count; ++i) {
      const LineFamily& f = p.families[i];
      // Lines have no orientation: a direction is kept within [0°, 180°).
      const double direction = std::fmod(std::fmod(f.angle + degrees, 180.0) + 180.0, 180.0);
      text += CZelString(i ? L", " : L": ") + (f.dashed ? L"dashed lines " : L"lines ") + number(direction) + L"° every " +
              number(f.spacing * std::abs(scale));
    }
    return text;
  }
  return text + L": line families not known";
}

}  // namespace ZEL

namespace ZEL {

CDisplayList hatchPreviewList(const CZelString& pattern, double scale, double angle) {
  CDisplayList list;
  CZelVertexArray square;
  square.add(0, 0);
  square.add(40, 0);
  square.add(40, 40);
  square.add(0, 40);
  const CZelColor ink = CZelColor::fromIndex(7);
  list.addPolyline(square, true, ink);
  if (pattern.isEmpty()) return list;
  if (pattern.match(L"SOLID")) {
    list.addFill(square, ink);
    return list;
  }
  for (const PatternLines& p : kPatterns) {
    if (!pattern.match(p.name)) continue;
    for (int i = 0; i < p.count; ++i)
      list.addHatch(square, p.families[i].angle * std::numbers::pi / 180.0 + angle,
                    p.families[i].spacing * (std::abs(scale) > 0 ? std::abs(scale) : 1.0), ink);
  }
  return list;
}

}  // namespace ZEL
