// Angles as the object data keeps them: radians within one turn.
#pragma once

namespace ZEL {

// The angle brought into [0, 2π) by whole turns (-90° is 270°, 370° is 10°); an angle
// that is not finite gives 0, so that no such value is ever stored.
double g_ang(double radians);

}  // namespace ZEL
