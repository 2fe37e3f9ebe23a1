// Writes a real as text in one of the CAD program's number formats, with a precision.
#pragma once

#include "data/CZelString.h"
#include "data/ZelUnits.h"

// The value is taken as it stands (no unit conversion). Formats:
//   Decimal        "12.5"           precision = decimal places; trailing zeros are dropped
//   Scientific     "1.25E+01"       precision = decimal places of the mantissa
//   Fractional     "18 1/2"         precision = n of the finest fraction 1/2^n (0 to 8), reduced
//   Architectural  "1'-6 1/2""      feet and fractional inches, for a value in inches
//   Engineering    "1'-6.5""        feet and decimal inches, for a value in inches
// Without `Inches`, architectural is written as fractional and engineering as decimal: feet
// only exist for a value in inches. Decimal values of 1e15 and more are written scientific.
// A suffix (a unit: " mm", "\"", "°") follows decimal, fractional and scientific text; the
// feet-and-inch formats carry their own marks. A value that is not finite gives empty text.
class CZelNumberFormat {
public:
  enum class Measure { Plain, Inches };

  CZelNumberFormat(Zel::lFormat format, int precision, Measure measure = Measure::Plain, CZelString suffix = {})
      : m_format(format), m_precision(precision), m_measure(measure), m_suffix(std::move(suffix)) {}

  CZelString text(double value) const;

private:
  CZelString decimal(double value) const;
  CZelString scientific(double value) const;
  CZelString fractional(double value) const;
  CZelString architectural(double value) const;
  CZelString engineering(double value) const;

  Zel::lFormat m_format;
  int m_precision;
  Measure m_measure;
  CZelString m_suffix;
};

// The library's number-to-text function: `imperial` says the value is in inches, so that the
// architectural and engineering formats write feet and inches.
CZelString zelRtoS(double value, Zel::lFormat format, int precision, bool imperial = false);
