// The value of a numeric field: converts between the stored real and the text the user sees and types.
#pragma once

#include <cfloat>

#include "data/CZelString.h"
#include "data/CZelValueError.h"
#include "data/ZelUnits.h"

// What the field is set up with, as dialogs call it:
//   setFormat(format)                            number format of lengths (the record's)
//   setLUnits(objectUnit, displayUnit)           stored unit and shown unit; a display unit of -1
//                                                (0xFFFFFFFF) or any invalid code shows the stored unit
//   setEditFlags(type, flags, precision, min, max)
//
// Types: 1 a plain number (no unit), 2 a length (stored in the object's unit, shown in the
// display unit), 3 an angle (stored in radians, shown and typed in degrees, always decimal).
//
// Flags (bits):
//   1  NoNegative  the value is not below 0 (a domain rule, see below)
//   2  NoZero      the value is not 0; with 1 only values above 0 (a domain rule, see below)
//   4  Decimals    fractions of a unit are allowed; without it only whole numbers, shown without decimals
//   8  Wrap        an angle is brought into [min, min + 360°) by whole turns (0° to 360° when min is open),
//                  so 370° is 10° and -90° is 270°; no effect on other types
//   64 ShowUnit    the text carries its unit: "12.5 mm", "18.5\"", "45°"; feet-and-inch formats
//                  always carry their marks, and a unitless field has nothing to show
//   The dialogs pass 71 (widths and thicknesses: above 0), 69 (chamfers, radii and angles: 0 or
//   more), 68 (lengths of either sign, the axis lengths), 7 and 5 (the same without the unit,
//   where a label beside the field shows it) and 77 (a hatch angle kept within 0 to 360°).
//
// Who refuses what (one meaning for every dialog):
//   - A text that no dialog could take as a value is always refused: no number, a fraction where
//     only whole numbers are allowed, beyond the range of a real (nothing that is not finite is
//     ever a value), outside the explicit limits min and max.
//   - The empty text is no value either; whether that is an error, and which, is the dialog's
//     when it checks the value itself.
//   - The domain rules of bits 1 and 2 (zero, negative) are applied only where the dialog leaves
//     the check to the field (Rules::All, the numeric field's default). A dialog that checks the
//     value itself (Rules::Input; the field's Check::ByDialog) gets zero and negative values
//     as values and applies its own rules: one dialog words its own messages for an empty
//     field and for zero (and may still store the zero), another takes every number.
//
// Precision: decimal places of the shown value (angles in degrees). Architectural and fractional
// text uses the finest fraction 1/2^n with 2^n >= 10^precision, at most 1/256 (precision 2: 1/128).
// Limits: min and max in stored units (radians for angles), inclusive, always checked; ±DBL_MAX
// is no limit.
//
// Architectural and engineering formats show feet and inches; they apply to imperial and
// unitless display units (a plain number typed there is inches). With a metric display unit
// they fall back to fractional and decimal.
class CZelUnitValue {
public:
  enum class Type : int { Number = 1, Length = 2, Angle = 3 };
  enum Flag : int { NoNegative = 1, NoZero = 2, Decimals = 4, Wrap = 8, ShowUnit = 64 };
  // All: the field checks the value's domain (bits 1 and 2) too. Input: the dialog checks the
  // domain itself; only what is no value at all (see above) is refused.
  enum class Rules { All, Input };

  void setFormat(Zel::lFormat format) { m_format = format; }
  void setFormat(int format);
  void setLUnits(Zel::lUnit objectUnit, long long displayUnit = -1);
  void setEditFlags(int type, int flags, int precision, double min = -DBL_MAX, double max = DBL_MAX);

  Zel::lFormat format() const { return m_format; }
  Zel::lUnit objectUnit() const { return m_objectUnit; }
  Zel::lUnit displayUnit() const { return m_displayUnit; }
  Type type() const { return m_type; }
  int flags() const { return m_flags; }
  int precision() const { return m_precision; }
  double minimum() const { return m_min; }
  double maximum() const { return m_max; }

  // The text for a stored value; empty for a value that is not finite.
  CZelString text(double stored) const;

  // The stored value for a typed text, or what is wrong with it. The value is checked against
  // the limits (and, with Rules::All, the flags 1 and 2) after conversion; out-of-range messages
  // name the limit as the field shows it. A value given is always finite.
  ZelValueResult value(const CZelString& text, Rules rules = Rules::All) const;

  // Whether two stored values look the same in the field, so that a field whose text was not
  // really changed need not write its value back.
  bool sameText(double a, double b) const { return text(a) == text(b); }

  // Conversions between stored and shown numbers (degrees for angles).
  double toDisplay(double stored) const;
  double toStored(double shown) const;

private:
  bool feetAndInches() const;
  // The unit a plain typed or shown number is in: inches for feet-and-inch text, else the display unit.
  Zel::lUnit numberUnit() const;
  CZelString suffix(bool always) const;
  CZelString format(double stored, bool withUnit) const;
  bool has(Flag f) const { return (m_flags & f) != 0; }

  Zel::lFormat m_format = Zel::lFormat::Decimal;
  Zel::lUnit m_objectUnit = Zel::lUnit::Unitless;
  Zel::lUnit m_displayUnit = Zel::lUnit::Unitless;
  Type m_type = Type::Length;
  int m_flags = Decimals;
  int m_precision = 2;
  double m_min = -DBL_MAX;
  double m_max = DBL_MAX;
};
