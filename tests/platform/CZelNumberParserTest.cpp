// Typed numbers: metric and imperial forms, units, and the errors for bad text.
#include <gtest/gtest.h>

#include <numbers>

#include "data/CZelNumberParser.h"

namespace {

using Q = CZelNumberParser::Quantity;
using K = CZelValueError::Kind;
using U = Zel::lUnit;

ZelValueResult parse(const wchar_t* text, Q q = Q::Length, U unit = U::Millimeters) {
  return CZelNumberParser(q, unit).parse(text);
}

double ok(const wchar_t* text, Q q = Q::Length, U unit = U::Millimeters) {
  ZelValueResult r = parse(text, q, unit);
  EXPECT_TRUE(r.ok()) << CZelString(text).toUtf8() << ": " << r.error.message(L"en").toUtf8();
  return r.value;
}

TEST(ParseMetric, DecimalPointOrComma) {
  EXPECT_DOUBLE_EQ(ok(L"12.5"), 12.5);
  EXPECT_DOUBLE_EQ(ok(L"12,5"), 12.5);
  EXPECT_DOUBLE_EQ(ok(L"  12,5 \t"), 12.5);
  EXPECT_DOUBLE_EQ(ok(L".5"), 0.5);
  EXPECT_DOUBLE_EQ(ok(L"-3"), -3.0);
  EXPECT_DOUBLE_EQ(ok(L"+4"), 4.0);
  EXPECT_DOUBLE_EQ(ok(L"- 4"), -4.0);
  EXPECT_DOUBLE_EQ(ok(L"1.5e3"), 1500.0);
  EXPECT_DOUBLE_EQ(ok(L"2,5E-1"), 0.25);
}

TEST(ParseMetric, UnitsConvertIntoTheFieldsUnit) {
  EXPECT_DOUBLE_EQ(ok(L"12.5 mm"), 12.5);
  EXPECT_DOUBLE_EQ(ok(L"4cm"), 40.0);
  EXPECT_DOUBLE_EQ(ok(L"1,2 m"), 1200.0);
  EXPECT_DOUBLE_EQ(ok(L"1 in"), 25.4);
  EXPECT_DOUBLE_EQ(ok(L"250 mm", Q::Length, U::Meters), 0.25);
}

TEST(ParseMetric, UnitlessFieldTakesNumbersAsTheyStand) {
  EXPECT_DOUBLE_EQ(ok(L"5 cm", Q::Length, U::Unitless), 5.0);
}

TEST(ParseImperial, FeetAndInches) {
  EXPECT_DOUBLE_EQ(ok(L"1'-6 1/2\"", Q::Length, U::Inches), 18.5);
  EXPECT_DOUBLE_EQ(ok(L"1'6\"", Q::Length, U::Inches), 18.0);
  EXPECT_DOUBLE_EQ(ok(L"1' 6", Q::Length, U::Inches), 18.0);
  EXPECT_DOUBLE_EQ(ok(L"2'", Q::Length, U::Inches), 24.0);
  EXPECT_DOUBLE_EQ(ok(L"1 ft 6 in", Q::Length, U::Inches), 18.0);
  EXPECT_DOUBLE_EQ(ok(L"1'-6.5\"", Q::Length, U::Inches), 18.5);
  EXPECT_DOUBLE_EQ(ok(L"-1'-6\"", Q::Length, U::Inches), -18.0);
  EXPECT_DOUBLE_EQ(ok(L"1'-0 1/2\"", Q::Length, U::Inches), 12.5);
}

TEST(ParseImperial, InchesAndFractions) {
  EXPECT_DOUBLE_EQ(ok(L"18.5\"", Q::Length, U::Inches), 18.5);
  EXPECT_DOUBLE_EQ(ok(L"18.5''", Q::Length, U::Inches), 18.5);
  EXPECT_DOUBLE_EQ(ok(L"3 1/4", Q::Length, U::Inches), 3.25);
  EXPECT_DOUBLE_EQ(ok(L"1/2\"", Q::Length, U::Inches), 0.5);
  EXPECT_DOUBLE_EQ(ok(L"-3 1/4", Q::Length, U::Inches), -3.25);
}

TEST(ParseImperial, ImperialTextInAMetricField) {
  EXPECT_DOUBLE_EQ(ok(L"1'6\""), 457.2);
  EXPECT_DOUBLE_EQ(ok(L"1/2\""), 12.7);
  EXPECT_DOUBLE_EQ(ok(L"1'", Q::Length, U::Feet), 1.0);
}

TEST(ParseAngle, DegreesAndRadians) {
  EXPECT_DOUBLE_EQ(ok(L"45", Q::Angle), 45.0);
  EXPECT_DOUBLE_EQ(ok(L"45\u00B0", Q::Angle), 45.0);
  EXPECT_DOUBLE_EQ(ok(L"22,5 deg", Q::Angle), 22.5);
  EXPECT_NEAR(ok(L"3.14159265358979 rad", Q::Angle), 180.0, 1e-9);
}

TEST(ParseErrors, EmptyText) {
  EXPECT_EQ(parse(L"").error.kind(), K::Empty);
  EXPECT_EQ(parse(L"   ").error.kind(), K::Empty);
}

TEST(ParseErrors, LettersAreNotANumberAndNameTheText) {
  ZelValueResult r = parse(L" abc ");
  EXPECT_EQ(r.error.kind(), K::NotANumber);
  EXPECT_EQ(r.error.detail(), L"abc");
  for (const wchar_t* bad : {L"12a", L"1.2.3", L"1.234,5", L"12 13", L"--1", L"1/0", L"1/", L"/2", L".", L"e5", L"5 parsecs",
                             L"1'-x", L"1'6 mm", L"12,,", L"3 1/2/4"}) {
    EXPECT_EQ(parse(bad).error.kind(), K::NotANumber) << CZelString(bad).toUtf8();
  }
}

TEST(ParseErrors, UnitsOfTheWrongKind) {
  EXPECT_EQ(parse(L"45\u00B0").error.kind(), K::NotANumber);
  EXPECT_EQ(parse(L"4 mm", Q::Angle).error.kind(), K::NotANumber);
  EXPECT_EQ(parse(L"4 mm", Q::Number).error.kind(), K::NotANumber);
  EXPECT_EQ(parse(L"1'", Q::Angle).error.kind(), K::NotANumber);
}

TEST(ParseErrors, Overflow) {
  EXPECT_EQ(parse(L"1e400").error.kind(), K::Overflow);
  std::wstring many(400, L'9');
  EXPECT_EQ(parse(many.c_str()).error.kind(), K::Overflow);
  EXPECT_EQ(parse(L"1e308 km").error.kind(), K::Overflow);
}

TEST(ParseErrors, TooSmallToHoldReadsAsZero) {
  EXPECT_DOUBLE_EQ(ok(L"1e-400"), 0.0);
}

TEST(ZelStoR, PlainNumbers) {
  EXPECT_DOUBLE_EQ(zelStoR(L"2,5").value, 2.5);
  EXPECT_EQ(zelStoR(L"x").error.kind(), K::NotANumber);
}

}  // namespace
