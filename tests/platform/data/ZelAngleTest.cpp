// Angles as object data keeps them: within one turn, never anything but a number.
#include "data/ZelAngle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double kPi = std::acos(-1.0);

TEST(ZelAngle, AnglesAreBroughtIntoOneTurnByWholeTurns) {
  EXPECT_DOUBLE_EQ(ZEL::g_ang(0.0), 0.0);
  EXPECT_DOUBLE_EQ(ZEL::g_ang(kPi / 2), kPi / 2);
  EXPECT_NEAR(ZEL::g_ang(370.0 * kPi / 180.0), 10.0 * kPi / 180.0, 1e-12);
  EXPECT_NEAR(ZEL::g_ang(-kPi / 2), 3 * kPi / 2, 1e-12);
  EXPECT_NEAR(ZEL::g_ang(-5 * 2 * kPi - 0.25), 2 * kPi - 0.25, 1e-9);
  EXPECT_DOUBLE_EQ(ZEL::g_ang(2 * kPi), 0.0);
  // Just below a whole negative turn the result must still be below one turn.
  const double a = ZEL::g_ang(-1e-18);
  EXPECT_GE(a, 0.0);
  EXPECT_LT(a, 2 * kPi);
}

TEST(ZelAngle, WhatIsNotANumberIsNoAngle) {
  EXPECT_EQ(ZEL::g_ang(std::numeric_limits<double>::quiet_NaN()), 0.0);
  EXPECT_EQ(ZEL::g_ang(std::numeric_limits<double>::infinity()), 0.0);
  EXPECT_EQ(ZEL::g_ang(-std::numeric_limits<double>::infinity()), 0.0);
}

}  // namespace
