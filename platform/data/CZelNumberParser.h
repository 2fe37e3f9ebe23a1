// Reads a number typed by a user: decimal or fractional, metric or feet and inches, with units.
#pragma once

#include "data/CZelString.h"
#include "data/CZelValueError.h"
#include "data/ZelUnits.h"

// Accepted text, blanks around it ignored:
//   12.5   12,5   -3   +4   1.5e3                 a decimal point or a decimal comma
//   3 1/4   1/2                                    whole and fraction
//   12.5 mm   4 cm   1.2 m   18.5"   18.5 in       a number with a unit (converted)
//   1'   1'6"   1'-6"   1' 6 1/2"   1 ft 6 in      feet and inches
//   45°   45 deg   0.5 rad                         angles (Quantity::Angle only)
// A number without unit is in the parser's unit. A minus sign applies to the whole text, so
// -1'-6" is minus eighteen inches. Thousands separators are not accepted ("1.234,5" is refused).
class CZelNumberParser {
public:
  enum class Quantity {
    Number,  // a plain number: no unit may follow
    Length,  // result in `unit`; length units convert (nothing converts into or out of unitless)
    Angle,   // result in degrees
  };

  CZelNumberParser(Quantity quantity, Zel::lUnit unit = Zel::lUnit::Unitless) : m_quantity(quantity), m_unit(unit) {}

  ZelValueResult parse(const CZelString& text) const;

private:
  Quantity m_quantity;
  Zel::lUnit m_unit;
};

// The library's text-to-number function for a plain number.
ZelValueResult zelStoR(const CZelString& text);
