#include "data/ZelAngle.h"

#include <cmath>

namespace ZEL {

double g_ang(double radians) {
  if (!std::isfinite(radians)) return 0.0;
  constexpr double kTurn = 2.0 * 3.14159265358979323846;
  double a = std::fmod(radians, kTurn);
  if (a < 0.0) a += kTurn;
  // fmod of a value just below a whole negative turn can round up to the turn itself.
  return a >= kTurn ? 0.0 : a;
}

}  // namespace ZEL
