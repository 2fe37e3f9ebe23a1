// Number text: decimal, scientific, fractional, architectural and engineering output with precision.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "data/CZelNumberFormat.h"
#include "data/ZelUnits.h"

namespace {

using F = Zel::lFormat;
using M = CZelNumberFormat::Measure;

// One row a number text: the value, the format, its precision, whether the value is inches
// (feet and inches are written), and the text.
struct Row {
  double value;
  F format;
  int precision;
  M measure;
  const wchar_t* text;
};

const Row kRows[] = {
    // Decimal: rounded to the precision, trailing zeros dropped, a tiny negative is 0, huge
    // values are written scientific, what is not finite is no text.
    {12.5, F::Decimal, 2, M::Plain, L"12.5"},
    {12.345, F::Decimal, 1, M::Plain, L"12.3"},
    {2.0, F::Decimal, 3, M::Plain, L"2"},
    {0.126, F::Decimal, 2, M::Plain, L"0.13"},
    {-7.25, F::Decimal, 2, M::Plain, L"-7.25"},
    {1234567.0, F::Decimal, 0, M::Plain, L"1234567"},
    {-0.0001, F::Decimal, 2, M::Plain, L"0"},
    {-0.0, F::Decimal, 2, M::Plain, L"0"},
    {1e20, F::Decimal, 2, M::Plain, L"1E+20"},
    {std::numeric_limits<double>::max(), F::Decimal, 2, M::Plain, L"1.8E+308"},
    {std::nan(""), F::Decimal, 2, M::Plain, L""},
    {std::numeric_limits<double>::infinity(), F::Architectural, 4, M::Inches, L""},
    // Scientific: mantissa and exponent.
    {12.5, F::Scientific, 2, M::Plain, L"1.25E+01"},
    {0.00042, F::Scientific, 1, M::Plain, L"4.2E-04"},
    {-3000.0, F::Scientific, 3, M::Plain, L"-3E+03"},
    // Fractional: whole and reduced fraction, rounded to the finest fraction.
    {3.25, F::Fractional, 4, M::Plain, L"3 1/4"},
    {0.5, F::Fractional, 8, M::Plain, L"1/2"},
    {18.0, F::Fractional, 4, M::Plain, L"18"},
    {-2.75, F::Fractional, 2, M::Plain, L"-2 3/4"},
    {0.1, F::Fractional, 4, M::Plain, L"1/8"},     // 1.6/16 → 2/16
    {0.1, F::Fractional, 8, M::Plain, L"13/128"},  // 25.6/256 → 26/256
    {2.99, F::Fractional, 2, M::Plain, L"3"},
    {0.01, F::Fractional, 2, M::Plain, L"0"},
    // Architectural: feet and fractional inches; rounding carries into the next foot; without
    // inches it is fractional.
    {18.5, F::Architectural, 4, M::Inches, L"1'-6 1/2\""},
    {12.0, F::Architectural, 4, M::Inches, L"1'-0\""},
    {12.5, F::Architectural, 4, M::Inches, L"1'-0 1/2\""},
    {6.0, F::Architectural, 4, M::Inches, L"6\""},
    {0.25, F::Architectural, 4, M::Inches, L"1/4\""},
    {-18.0, F::Architectural, 4, M::Inches, L"-1'-6\""},
    {0.0, F::Architectural, 4, M::Inches, L"0\""},
    {11.99, F::Architectural, 4, M::Inches, L"1'-0\""},
    {18.5, F::Architectural, 4, M::Plain, L"18 1/2"},
    // Engineering: feet and decimal inches.
    {18.5, F::Engineering, 2, M::Inches, L"1'-6.5\""},
    {5.125, F::Engineering, 3, M::Inches, L"5.125\""},
    {23.999, F::Engineering, 2, M::Inches, L"2'-0\""},
    {18.5, F::Engineering, 2, M::Plain, L"18.5"},
};

TEST(NumberFormat, EachFormatWritesItsText) {
  for (const Row& row : kRows) {
    EXPECT_EQ(CZelNumberFormat(row.format, row.precision, row.measure, L"").text(row.value), CZelString(row.text))
        << row.value << " format " << static_cast<int>(row.format) << " precision " << row.precision;
  }
  EXPECT_EQ(CZelNumberFormat(F::Decimal, 2, M::Plain, L" mm").text(12.5), L"12.5 mm") << "the suffix follows the number";
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
