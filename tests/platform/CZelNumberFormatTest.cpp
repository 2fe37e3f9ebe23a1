// Number text: decimal, scientific, fractional, architectural and engineering output with precision.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "data/CZelNumberFormat.h"
#include "data/ZelUnits.h"

namespace {

using F = Zel::lFormat;
using M = CZelNumberFormat::Measure;

CZelString fmt(double v, F f, int p, M m = M::Plain, const wchar_t* suffix = L"") {
  return CZelNumberFormat(f, p, m, suffix).text(v);
}

TEST(NumberFormatDecimal, RoundsToPrecisionAndDropsTrailingZeros) {
  EXPECT_EQ(fmt(12.5, F::Decimal, 2), L"12.5");
  EXPECT_EQ(fmt(12.345, F::Decimal, 1), L"12.3");
  EXPECT_EQ(fmt(2.0, F::Decimal, 3), L"2");
  EXPECT_EQ(fmt(0.126, F::Decimal, 2), L"0.13");
  EXPECT_EQ(fmt(-7.25, F::Decimal, 2), L"-7.25");
  EXPECT_EQ(fmt(1234567.0, F::Decimal, 0), L"1234567");
}

TEST(NumberFormatDecimal, TinyNegativeShowsAsZero) {
  EXPECT_EQ(fmt(-0.0001, F::Decimal, 2), L"0");
  EXPECT_EQ(fmt(-0.0, F::Decimal, 2), L"0");
}

TEST(NumberFormatDecimal, HugeValuesAreWrittenScientific) {
  EXPECT_EQ(fmt(1e20, F::Decimal, 2), L"1E+20");
  EXPECT_EQ(fmt(std::numeric_limits<double>::max(), F::Decimal, 2), L"1.8E+308");
}

TEST(NumberFormatDecimal, NotFiniteGivesEmptyText) {
  EXPECT_EQ(fmt(std::nan(""), F::Decimal, 2), L"");
  EXPECT_EQ(fmt(std::numeric_limits<double>::infinity(), F::Architectural, 4, M::Inches), L"");
}

TEST(NumberFormatDecimal, SuffixFollowsTheNumber) {
  EXPECT_EQ(fmt(12.5, F::Decimal, 2, M::Plain, L" mm"), L"12.5 mm");
}

TEST(NumberFormatScientific, MantissaAndExponent) {
  EXPECT_EQ(fmt(12.5, F::Scientific, 2), L"1.25E+01");
  EXPECT_EQ(fmt(0.00042, F::Scientific, 1), L"4.2E-04");
  EXPECT_EQ(fmt(-3000.0, F::Scientific, 3), L"-3E+03");
}

TEST(NumberFormatFractional, WholeAndReducedFraction) {
  EXPECT_EQ(fmt(3.25, F::Fractional, 4), L"3 1/4");
  EXPECT_EQ(fmt(0.5, F::Fractional, 8), L"1/2");
  EXPECT_EQ(fmt(18.0, F::Fractional, 4), L"18");
  EXPECT_EQ(fmt(-2.75, F::Fractional, 2), L"-2 3/4");
}

TEST(NumberFormatFractional, RoundsToTheFinestFraction) {
  EXPECT_EQ(fmt(0.1, F::Fractional, 4), L"1/8");    // 1.6/16 → 2/16
  EXPECT_EQ(fmt(0.1, F::Fractional, 8), L"13/128");  // 25.6/256 → 26/256
  EXPECT_EQ(fmt(2.99, F::Fractional, 2), L"3");
  EXPECT_EQ(fmt(0.01, F::Fractional, 2), L"0");
}

TEST(NumberFormatArchitectural, FeetAndFractionalInches) {
  EXPECT_EQ(fmt(18.5, F::Architectural, 4, M::Inches), L"1'-6 1/2\"");
  EXPECT_EQ(fmt(12.0, F::Architectural, 4, M::Inches), L"1'-0\"");
  EXPECT_EQ(fmt(12.5, F::Architectural, 4, M::Inches), L"1'-0 1/2\"");
  EXPECT_EQ(fmt(6.0, F::Architectural, 4, M::Inches), L"6\"");
  EXPECT_EQ(fmt(0.25, F::Architectural, 4, M::Inches), L"1/4\"");
  EXPECT_EQ(fmt(-18.0, F::Architectural, 4, M::Inches), L"-1'-6\"");
  EXPECT_EQ(fmt(0.0, F::Architectural, 4, M::Inches), L"0\"");
}

TEST(NumberFormatArchitectural, RoundingCarriesIntoTheNextFoot) {
  EXPECT_EQ(fmt(11.99, F::Architectural, 4, M::Inches), L"1'-0\"");
}

TEST(NumberFormatArchitectural, WithoutInchesItIsFractional) {
  EXPECT_EQ(fmt(18.5, F::Architectural, 4), L"18 1/2");
}

TEST(NumberFormatEngineering, FeetAndDecimalInches) {
  EXPECT_EQ(fmt(18.5, F::Engineering, 2, M::Inches), L"1'-6.5\"");
  EXPECT_EQ(fmt(5.125, F::Engineering, 3, M::Inches), L"5.125\"");
  EXPECT_EQ(fmt(23.999, F::Engineering, 2, M::Inches), L"2'-0\"");
  EXPECT_EQ(fmt(18.5, F::Engineering, 2), L"18.5");
}

TEST(ZelRtoS, ImperialFlagSelectsFeetAndInches) {
  EXPECT_EQ(zelRtoS(18.5, F::Architectural, 4, true), L"1'-6 1/2\"");
  EXPECT_EQ(zelRtoS(18.5, F::Architectural, 4, false), L"18 1/2");
  EXPECT_EQ(zelRtoS(0.1, F::Decimal, 8, true), L"0.1");
  EXPECT_EQ(zelRtoS(2.54, F::Decimal, 2), L"2.54");
}

TEST(AutoPrec, DecimalFormatsKeepTheDecimals) {
  EXPECT_EQ(ZEL::autoPrec(2, Zel::lUnit::Millimeters, F::Decimal), 2);
  EXPECT_EQ(ZEL::autoPrec(3, Zel::lUnit::Inches, F::Engineering), 3);
}

TEST(AutoPrec, FractionFormatsGetTheFractionForTheResolution) {
  EXPECT_EQ(ZEL::autoPrec(2, Zel::lUnit::Inches, F::Architectural), 7);     // 0.01" → 1/128
  EXPECT_EQ(ZEL::autoPrec(0, Zel::lUnit::Inches, F::Fractional), 0);
  EXPECT_EQ(ZEL::autoPrec(2, Zel::lUnit::Millimeters, F::Architectural), 12);  // finer than 1/256: callers cap
  EXPECT_EQ(ZEL::autoPrec(0, Zel::lUnit::Feet, F::Fractional), 0);
}

TEST(UnitNames, ShortNames) {
  EXPECT_STREQ(ZEL::acad_unit_sh(Zel::lUnit::Millimeters), L"mm");
  EXPECT_STREQ(ZEL::acad_unit_sh(Zel::lUnit::Inches), L"in");
  EXPECT_STREQ(ZEL::acad_unit_sh(Zel::lUnit::Unitless), L"");
  Zel::lUnit u{};
  EXPECT_TRUE(Zel::unitFromCode(6, u));
  EXPECT_EQ(u, Zel::lUnit::Meters);
  EXPECT_FALSE(Zel::unitFromCode(-1, u));
  EXPECT_FALSE(Zel::unitFromCode(0xFFFFFFFFLL, u));
}

}  // namespace
