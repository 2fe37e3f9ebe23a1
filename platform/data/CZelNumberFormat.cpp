// Writes a real as text in one of the CAD program's number formats, with a precision.
#include "data/CZelNumberFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <string>

namespace {

constexpr int kMaxDecimals = 15;      // beyond, a double has no more digits to show
constexpr int kMaxFractionBits = 8;   // 1/256, the finest fraction the CAD program writes
constexpr double kLargest = 1e15;     // from here on decimals are written scientific

int clampDecimals(int p) { return std::clamp(p, 0, kMaxDecimals); }

// Drops trailing zeros of the fraction part, and the point when nothing is left of it.
std::string stripZeros(std::string s) {
  if (s.find('.') == std::string::npos) return s;
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
  return s;
}

// "-0" is what printf makes of a small negative value rounded away; it reads as 0.
std::string dropNegativeZero(std::string s) {
  if (!s.empty() && s.front() == '-' && s.find_first_of("123456789") == std::string::npos) s.erase(0, 1);
  return s;
}

std::string fixed(double v, int decimals) {
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.*f", clampDecimals(decimals), v);
  return dropNegativeZero(stripZeros(buf));
}

CZelString ascii(const std::string& s) { return CZelString::fromUtf8(s); }

// Splits |value| into a whole count of 1/denominator; false when that count no longer fits exactly.
bool toUnits(double value, long long denominator, long long& units) {
  const double scaled = std::round(std::fabs(value) * static_cast<double>(denominator));
  if (!(scaled < 9.0e15)) return false;
  units = static_cast<long long>(scaled);
  return true;
}

// "N/D" reduced, for 0 < numerator < denominator.
std::string fraction(long long numerator, long long denominator) {
  const long long g = std::gcd(numerator, denominator);
  return std::to_string(numerator / g) + "/" + std::to_string(denominator / g);
}

}  // namespace

CZelString CZelNumberFormat::text(double value) const {
  if (!std::isfinite(value)) return {};
  const bool inches = m_measure == Measure::Inches;
  switch (m_format) {
    case Zel::lFormat::Scientific: return scientific(value) + m_suffix;
    case Zel::lFormat::Fractional: return fractional(value) + m_suffix;
    case Zel::lFormat::Architectural: return inches ? architectural(value) : fractional(value) + m_suffix;
    case Zel::lFormat::Engineering: return inches ? engineering(value) : decimal(value) + m_suffix;
    case Zel::lFormat::Decimal:
    default: return decimal(value) + m_suffix;
  }
}

CZelString CZelNumberFormat::decimal(double value) const {
  if (std::fabs(value) >= kLargest) return scientific(value);
  return ascii(fixed(value, m_precision));
}

CZelString CZelNumberFormat::scientific(double value) const {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*E", clampDecimals(m_precision), value);
  std::string s = buf;
  const auto e = s.find('E');
  return ascii(dropNegativeZero(stripZeros(s.substr(0, e))) + s.substr(e));
}

CZelString CZelNumberFormat::fractional(double value) const {
  const long long denominator = 1LL << std::clamp(m_precision, 0, kMaxFractionBits);
  long long units = 0;
  if (!toUnits(value, denominator, units)) return decimal(value);
  const long long whole = units / denominator;
  const long long rest = units % denominator;
  std::string s = (value < 0 && units != 0) ? "-" : "";
  if (rest == 0) s += std::to_string(whole);
  else if (whole == 0) s += fraction(rest, denominator);
  else s += std::to_string(whole) + " " + fraction(rest, denominator);
  return ascii(s);
}

CZelString CZelNumberFormat::architectural(double value) const {
  const long long denominator = 1LL << std::clamp(m_precision, 0, kMaxFractionBits);
  long long units = 0;
  if (!toUnits(value, denominator, units)) return decimal(value) + L"\"";
  // Rounding is done on the whole count first, so that 11 63/64" rounds up to 1'-0" rather than 0'-12".
  const long long perFoot = 12 * denominator;
  const long long feet = units / perFoot;
  const long long inchUnits = units % perFoot;
  const long long wholeInches = inchUnits / denominator;
  const long long rest = inchUnits % denominator;
  std::string inchText = std::to_string(wholeInches);
  if (rest != 0) inchText = (wholeInches == 0 && feet == 0 ? "" : inchText + " ") + fraction(rest, denominator);
  std::string s = (value < 0 && units != 0) ? "-" : "";
  if (feet != 0) s += std::to_string(feet) + "'-";
  return ascii(s + inchText + "\"");
}

CZelString CZelNumberFormat::engineering(double value) const {
  const double step = std::pow(10.0, clampDecimals(m_precision));
  const double rounded = std::round(std::fabs(value) * step) / step;
  if (!(rounded < kLargest)) return decimal(value) + L"\"";
  const double feet = std::floor(rounded / 12.0);
  // The inches are rounded again, so that a value just under a foot does not show as 12".
  std::string inches = fixed(rounded - feet * 12.0, m_precision);
  std::string s = (value < 0 && rounded != 0.0) ? "-" : "";
  if (feet != 0.0) s += fixed(feet, 0) + "'-";
  return ascii(s + inches + "\"");
}

CZelString zelRtoS(double value, Zel::lFormat format, int precision, bool imperial) {
  using Measure = CZelNumberFormat::Measure;
  return CZelNumberFormat(format, precision, imperial ? Measure::Inches : Measure::Plain).text(value);
}
