// The numeric field's value: edit types and flags as the dialogs set them, both directions, messages.
#include <gtest/gtest.h>

#include <cfloat>
#include <numbers>

#include "data/CZelUnitValue.h"
#include "data/ZelMessages.h"

namespace {

using K = CZelValueError::Kind;
using U = Zel::lUnit;
using F = Zel::lFormat;
constexpr double kPi = std::numbers::pi;

// A width field of an accessory dialog: (2, 71, 2), unlimited.
CZelUnitValue widthField(U unit, F format = F::Decimal, long long display = -1) {
  CZelUnitValue v;
  v.setLUnits(unit, display);
  v.setFormat(format);
  v.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
  return v;
}

double accepted(const CZelUnitValue& v, const wchar_t* text) {
  ZelValueResult r = v.value(text);
  EXPECT_TRUE(r.ok()) << CZelString(text).toUtf8() << ": " << r.error.message(L"en").toUtf8();
  return r.value;
}

K refused(const CZelUnitValue& v, const wchar_t* text) {
  ZelValueResult r = v.value(text);
  EXPECT_FALSE(r.ok()) << CZelString(text).toUtf8() << " was accepted as " << r.value;
  return r.error.kind();
}

TEST(UnitValueSetup, DisplayUnitMinusOneShowsTheStoredUnit) {
  CZelUnitValue v;
  v.setLUnits(U::Inches, -1);
  EXPECT_EQ(v.displayUnit(), U::Inches);
  v.setLUnits(U::Millimeters, 0xFFFFFFFF);
  EXPECT_EQ(v.displayUnit(), U::Millimeters);
  v.setLUnits(U::Millimeters, 1);
  EXPECT_EQ(v.displayUnit(), U::Inches);
  v.setFormat(9);
  EXPECT_EQ(v.format(), F::Decimal);
  v.setFormat(4);
  EXPECT_EQ(v.format(), F::Architectural);
}

TEST(UnitValueMetric, ShowsAndReadsMillimetres) {
  CZelUnitValue v = widthField(U::Millimeters);
  EXPECT_EQ(v.text(12.5), L"12.5 mm");
  EXPECT_EQ(v.text(100.0), L"100 mm");
  EXPECT_DOUBLE_EQ(accepted(v, L"12,5"), 12.5);
  EXPECT_DOUBLE_EQ(accepted(v, L" 12.5 mm "), 12.5);
  EXPECT_DOUBLE_EQ(accepted(v, L"2 cm"), 20.0);
}

TEST(UnitValueMetric, StoredUnitDiffersFromDisplayUnit) {
  CZelUnitValue v = widthField(U::Meters, F::Decimal, 4);  // stored in metres, shown in millimetres
  EXPECT_EQ(v.text(0.25), L"250 mm");
  EXPECT_DOUBLE_EQ(accepted(v, L"250"), 0.25);
}

TEST(UnitValueMetric, WithoutShowUnitTheTextIsTheNumber) {
  CZelUnitValue v;  // the sheet thickness: (2, 7, 2), its label shows the unit
  v.setLUnits(U::Millimeters, 4);
  v.setFormat(2);
  v.setEditFlags(2, 7, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(1.5), L"1.5");
  EXPECT_EQ(v.text(1.234), L"1.23");
}

TEST(UnitValueImperial, InchObjectShownArchitectural) {
  CZelUnitValue v;
  v.setLUnits(U::Inches, 1);
  v.setFormat(4);
  v.setEditFlags(2, 7, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(18.5), L"1'-6 1/2\"");
  EXPECT_EQ(v.text(0.0625), L"1/16\"");
  EXPECT_DOUBLE_EQ(accepted(v, L"1'-6 1/2\""), 18.5);
  EXPECT_DOUBLE_EQ(accepted(v, L"18.5"), 18.5);
  EXPECT_DOUBLE_EQ(accepted(v, L"3 1/4"), 3.25);
}

TEST(UnitValueImperial, MillimetreObjectShownInInches) {
  CZelUnitValue v;  // a metric-stored coating distance in an imperial drawing: setLUnits(4, 1), format 4
  v.setLUnits(U::Millimeters, 1);
  v.setFormat(4);
  v.setEditFlags(2, 7, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(25.4), L"1\"");
  EXPECT_EQ(v.text(457.2), L"1'-6\"");
  EXPECT_DOUBLE_EQ(accepted(v, L"1'6\""), 457.2);
  EXPECT_DOUBLE_EQ(accepted(v, L"1/2"), 12.7);
}

TEST(UnitValueImperial, DecimalInchesWithInchMark) {
  CZelUnitValue v = widthField(U::Inches, F::Decimal);
  EXPECT_EQ(v.text(18.5), L"18.5\"");
  EXPECT_DOUBLE_EQ(accepted(v, L"18.5\""), 18.5);
  EXPECT_DOUBLE_EQ(accepted(v, L"1'"), 12.0);
}

TEST(UnitValueImperial, FeetDisplayWithArchitecturalFormatWorksInInches) {
  CZelUnitValue v = widthField(U::Feet, F::Architectural);
  EXPECT_EQ(v.text(1.5), L"1'-6\"");
  EXPECT_DOUBLE_EQ(accepted(v, L"18"), 1.5);  // a plain number in a feet-and-inch field is inches
}

TEST(UnitValueImperial, EngineeringFormat) {
  CZelUnitValue v = widthField(U::Inches, F::Engineering);
  EXPECT_EQ(v.text(18.5), L"1'-6.5\"");
  EXPECT_DOUBLE_EQ(accepted(v, L"1'-6.5\""), 18.5);
}

TEST(UnitValueImperial, ArchitecturalWithMetricDisplayFallsBackToFractions) {
  CZelUnitValue v = widthField(U::Millimeters, F::Architectural);
  EXPECT_EQ(v.text(12.5), L"12 1/2 mm");
}

TEST(UnitValueRoundTrip, FormatThenParseGivesTheValueBack) {
  struct Case { U unit; F format; long long display; double stored; };
  const Case cases[] = {
      {U::Millimeters, F::Decimal, -1, 12.5},        {U::Millimeters, F::Decimal, -1, 0.01},
      {U::Meters, F::Decimal, 4, 1.234},             {U::Inches, F::Architectural, 1, 18.5},
      {U::Inches, F::Architectural, 1, 1.0 / 128.0}, {U::Inches, F::Fractional, 1, 3.25},
      {U::Inches, F::Engineering, 1, 27.75},         {U::Millimeters, F::Scientific, -1, 1250.0},
      {U::Millimeters, F::Architectural, 1, 12.7},   {U::Feet, F::Decimal, -1, 2.5},
  };
  for (const Case& c : cases) {
    CZelUnitValue v = widthField(c.unit, c.format, c.display);
    const CZelString shown = v.text(c.stored);
    ZelValueResult back = v.value(shown);
    ASSERT_TRUE(back.ok()) << shown.toUtf8() << ": " << back.error.message(L"en").toUtf8();
    EXPECT_NEAR(back.value, c.stored, 1e-9 * (1.0 + c.stored)) << shown.toUtf8();
    EXPECT_TRUE(v.sameText(back.value, c.stored)) << shown.toUtf8();
  }
}

TEST(UnitValueRoundTrip, SameTextWithinDisplayPrecision) {
  CZelUnitValue v = widthField(U::Millimeters);
  EXPECT_TRUE(v.sameText(12.3449, 12.34));
  EXPECT_FALSE(v.sameText(12.35, 12.34));
}

TEST(UnitValueFlags, PositiveLengthRefusesZeroAndNegative) {
  CZelUnitValue v = widthField(U::Millimeters);  // 71
  EXPECT_EQ(refused(v, L"0"), K::Zero);
  EXPECT_EQ(refused(v, L"-5"), K::TooSmall);
  EXPECT_EQ(v.value(L"-5").error.detail(), L"0 mm");
  EXPECT_DOUBLE_EQ(accepted(v, L"0.01"), 0.01);
}

TEST(UnitValueFlags, RadiusAllowsZeroButNotNegative) {
  CZelUnitValue v;
  v.setLUnits(U::Millimeters);
  v.setEditFlags(2, 69, 2, -DBL_MAX, DBL_MAX);
  EXPECT_DOUBLE_EQ(accepted(v, L"0"), 0.0);
  EXPECT_EQ(refused(v, L"-0.5"), K::TooSmall);
  v.setEditFlags(2, 5, 2, -DBL_MAX, DBL_MAX);
  EXPECT_DOUBLE_EQ(accepted(v, L"0"), 0.0);
  EXPECT_EQ(refused(v, L"-1"), K::TooSmall);
}

TEST(UnitValueFlags, ADialogThatChecksItselfGetsZeroAndNegativeValues) {
  // The domain rules of bits 1 and 2 are the field's only where the dialog leaves the check to
  // it; with Rules::Input the thickness field of the insulation or membrane hands 0 and -5 over.
  CZelUnitValue v = widthField(U::Millimeters);  // 71
  using R = CZelUnitValue::Rules;
  EXPECT_DOUBLE_EQ(v.value(L"0", R::Input).value, 0.0);
  EXPECT_TRUE(v.value(L"0", R::Input).ok());
  EXPECT_TRUE(v.value(L"-5", R::Input).ok());
  EXPECT_DOUBLE_EQ(v.value(L"-5", R::Input).value, -5.0);
  // What no dialog could take as a value is refused all the same.
  EXPECT_EQ(v.value(L"", R::Input).error.kind(), K::Empty);
  EXPECT_EQ(v.value(L"abc", R::Input).error.kind(), K::NotANumber);
  EXPECT_EQ(v.value(L"1e999", R::Input).error.kind(), K::Overflow);
  v.setEditFlags(2, 71, 2, -10.0, 10.0);
  EXPECT_EQ(v.value(L"-11", R::Input).error.kind(), K::TooSmall);
  EXPECT_EQ(v.value(L"11", R::Input).error.kind(), K::TooLarge);
}

TEST(UnitValueFlags, NothingThatIsNotFiniteIsEverAValue) {
  CZelUnitValue v;
  v.setLUnits(U::Millimeters);
  v.setEditFlags(2, 68, 2, -DBL_MAX, DBL_MAX);
  for (const wchar_t* text : {L"nan", L"inf", L"-inf", L"1e999", L"-1e999", L"1e308e2"}) {
    for (CZelUnitValue::Rules rules : {CZelUnitValue::Rules::All, CZelUnitValue::Rules::Input}) {
      ZelValueResult r = v.value(text, rules);
      EXPECT_FALSE(r.ok()) << CZelString(text).toUtf8();
    }
  }
  v.setLUnits(U::Nanometers, 7);  // typed in kilometres: 1e300 of them overflow nanometres
  EXPECT_EQ(v.value(L"1e300").error.kind(), K::Overflow);
  EXPECT_EQ(v.value(L"1e300", CZelUnitValue::Rules::Input).error.kind(), K::Overflow);
}

TEST(UnitValueFlags, AxisLengthsMayBeNegativeOrZero) {
  CZelUnitValue v;
  v.setLUnits(U::Millimeters);
  v.setEditFlags(2, 68, 2, -DBL_MAX, DBL_MAX);
  EXPECT_DOUBLE_EQ(accepted(v, L"-120"), -120.0);
  EXPECT_DOUBLE_EQ(accepted(v, L"0"), 0.0);
}

TEST(UnitValueFlags, WithoutDecimalsOnlyWholeNumbers) {
  CZelUnitValue v;
  v.setLUnits(U::Millimeters);
  v.setEditFlags(2, 64 + 1, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(12.6), L"13 mm");
  EXPECT_DOUBLE_EQ(accepted(v, L"12"), 12.0);
  EXPECT_EQ(refused(v, L"12.5"), K::NotWhole);
  EXPECT_EQ(v.value(L" 12.5 ").error.detail(), L"12.5");
}

TEST(UnitValueLimits, LimitsAreCheckedInStoredUnits) {
  CZelUnitValue v;
  v.setLUnits(U::Meters, 4);  // stored in metres, shown in millimetres
  v.setEditFlags(2, 64 + 4, 1, 0.01, 2.0);
  EXPECT_DOUBLE_EQ(accepted(v, L"10"), 0.01);
  EXPECT_DOUBLE_EQ(accepted(v, L"2000"), 2.0);
  EXPECT_EQ(refused(v, L"9"), K::TooSmall);
  EXPECT_EQ(v.value(L"9").error.detail(), L"10 mm");
  EXPECT_EQ(refused(v, L"2000.1"), K::TooLarge);
  EXPECT_EQ(v.value(L"2000.1").error.detail(), L"2000 mm");
}

TEST(UnitValueAngle, HatchAngleShowsDegreesAndStoresRadians) {
  CZelUnitValue v;  // (3, 77, 1) with 0 to 2π, format 2
  v.setFormat(2);
  v.setEditFlags(3, 77, 1, 0.0, 2.0 * kPi);
  EXPECT_EQ(v.text(kPi / 4.0), L"45\u00B0");
  EXPECT_EQ(v.text(0.5), L"28.6\u00B0");
  EXPECT_NEAR(accepted(v, L"45"), kPi / 4.0, 1e-12);
  EXPECT_NEAR(accepted(v, L"22,5\u00B0"), kPi / 8.0, 1e-12);
  EXPECT_DOUBLE_EQ(accepted(v, L"0"), 0.0);
}

TEST(UnitValueAngle, WrapBringsAnglesIntoOneTurn) {
  CZelUnitValue v;
  v.setEditFlags(3, 77, 1, 0.0, 2.0 * kPi);
  EXPECT_NEAR(accepted(v, L"370"), 10.0 * kPi / 180.0, 1e-12);
  EXPECT_NEAR(accepted(v, L"-90"), 1.5 * kPi, 1e-12);
  EXPECT_DOUBLE_EQ(accepted(v, L"360"), 0.0);
}

TEST(UnitValueAngle, WithoutWrapTheLimitsRefuse) {
  CZelUnitValue v;  // the silicone angle: (3, 69, 2), here with limits to see them act
  v.setEditFlags(3, 69, 2, 0.0, kPi / 2.0);
  EXPECT_EQ(refused(v, L"100"), K::TooLarge);
  EXPECT_EQ(v.value(L"100").error.detail(), L"90\u00B0");
  EXPECT_EQ(refused(v, L"-1"), K::TooSmall);
  EXPECT_EQ(refused(v, L"5 mm"), K::NotANumber);
}

TEST(UnitValueAngle, LengthUnitsDoNotApply) {
  CZelUnitValue v;
  v.setLUnits(U::Inches);
  v.setFormat(4);
  v.setEditFlags(3, 69, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(kPi), L"180\u00B0");
}

TEST(UnitValueNumber, PlainNumberHasNoUnit) {
  CZelUnitValue v;
  v.setLUnits(U::Millimeters);
  v.setEditFlags(1, 71, 2, -DBL_MAX, DBL_MAX);
  EXPECT_EQ(v.text(1.5), L"1.5");
  EXPECT_DOUBLE_EQ(accepted(v, L"1,5"), 1.5);
  EXPECT_EQ(refused(v, L"1.5 mm"), K::NotANumber);
}

TEST(UnitValueErrors, BadInputBothWays) {
  CZelUnitValue v = widthField(U::Millimeters);
  EXPECT_EQ(refused(v, L""), K::Empty);
  EXPECT_EQ(refused(v, L"abc"), K::NotANumber);
  EXPECT_EQ(refused(v, L"1e400"), K::Overflow);
  EXPECT_EQ(v.text(std::numeric_limits<double>::quiet_NaN()), L"");
  CZelUnitValue km = widthField(U::Millimeters, F::Decimal, 7);  // shown in km, stored in mm
  EXPECT_EQ(refused(km, L"1e306"), K::Overflow);
}

TEST(UnitValueMessages, GermanAndEnglish) {
  CZelUnitValue v = widthField(U::Millimeters);
  EXPECT_EQ(v.value(L"abc").error.message(L"de"), L"Keine Zahl: 'abc'");
  EXPECT_EQ(v.value(L"abc").error.message(L"en"), L"Not a number: 'abc'");
  EXPECT_EQ(v.value(L"").error.message(L"en"), L"No value entered");
  EXPECT_EQ(v.value(L"-1").error.message(L"en"), L"Out of range: must be at least 0 mm");
  EXPECT_EQ(v.value(L"-1").error.message(L"de"), L"Au\u00DFerhalb des Bereichs: mindestens 0 mm");
  EXPECT_EQ(v.value(L"0").error.message(L"en"), L"Out of range: must not be 0");
  EXPECT_EQ(v.value(L"1e999").error.message(L"en"), L"Number too large: '1e999'");
  EXPECT_EQ(v.value(L"12").error.message(L"en"), L"");
}

TEST(UnitValueMessages, TypedPercentSignsStayText) {
  CZelUnitValue v = widthField(U::Millimeters);
  EXPECT_EQ(v.value(L"%s%1").error.message(L"en"), L"Not a number: '%s%1'");
}

}  // namespace
