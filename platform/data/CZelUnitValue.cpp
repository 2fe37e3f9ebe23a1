// The value of a numeric field: converts between the stored real and the text the user sees and types.
#include "data/CZelUnitValue.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "data/CZelNumberFormat.h"
#include "data/CZelNumberParser.h"

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr int kMaxFractionBits = 8;

bool isFractionFormat(Zel::lFormat f) { return f == Zel::lFormat::Architectural || f == Zel::lFormat::Fractional; }

}  // namespace

void CZelUnitValue::setFormat(int format) {
  m_format = (format >= 1 && format <= 5) ? static_cast<Zel::lFormat>(format) : Zel::lFormat::Decimal;
}

void CZelUnitValue::setLUnits(Zel::lUnit objectUnit, long long displayUnit) {
  m_objectUnit = objectUnit;
  if (!Zel::unitFromCode(displayUnit, m_displayUnit)) m_displayUnit = objectUnit;
}

void CZelUnitValue::setEditFlags(int type, int flags, int precision, double min, double max) {
  m_type = (type == 1 || type == 3) ? static_cast<Type>(type) : Type::Length;
  m_flags = flags;
  m_precision = std::clamp(precision, 0, 15);
  m_min = min;
  m_max = max;
}

bool CZelUnitValue::feetAndInches() const {
  const bool format = m_format == Zel::lFormat::Architectural || m_format == Zel::lFormat::Engineering;
  return m_type == Type::Length && format &&
         (Zel::isImperial(m_displayUnit) || m_displayUnit == Zel::lUnit::Unitless);
}

Zel::lUnit CZelUnitValue::numberUnit() const { return feetAndInches() ? Zel::lUnit::Inches : m_displayUnit; }

double CZelUnitValue::toDisplay(double stored) const {
  switch (m_type) {
    case Type::Angle: return stored * 180.0 / std::numbers::pi;
    case Type::Length: return ZEL::acadUnitCv(stored, m_objectUnit, m_displayUnit);
    case Type::Number:
    default: return stored;
  }
}

double CZelUnitValue::toStored(double shown) const {
  switch (m_type) {
    case Type::Angle: return shown * std::numbers::pi / 180.0;
    case Type::Length: return ZEL::acadUnitCv(shown, m_displayUnit, m_objectUnit);
    case Type::Number:
    default: return shown;
  }
}

CZelString CZelUnitValue::suffix(bool always) const {
  if (!always) return {};
  if (m_type == Type::Angle) return L"\u00B0";
  if (m_type == Type::Number) return {};
  switch (m_displayUnit) {
    case Zel::lUnit::Unitless: return {};
    case Zel::lUnit::Inches: return L"\"";
    case Zel::lUnit::Feet: return L"'";
    default: return CZelString(L" ") + ZEL::acad_unit_sh(m_displayUnit);
  }
}

CZelString CZelUnitValue::format(double stored, bool withUnit) const {
  const int decimals = has(Decimals) ? m_precision : 0;
  if (m_type == Type::Angle) {
    const auto f = m_format == Zel::lFormat::Scientific ? Zel::lFormat::Scientific : Zel::lFormat::Decimal;
    return CZelNumberFormat(f, decimals, CZelNumberFormat::Measure::Plain, suffix(withUnit)).text(toDisplay(stored));
  }
  const int precision =
      isFractionFormat(m_format) ? std::min(kMaxFractionBits, ZEL::autoPrec(decimals, Zel::lUnit::Inches, m_format))
                                 : decimals;
  const double shown = m_type == Type::Length ? ZEL::acadUnitCv(stored, m_objectUnit, numberUnit()) : stored;
  const auto measure = feetAndInches() ? CZelNumberFormat::Measure::Inches : CZelNumberFormat::Measure::Plain;
  return CZelNumberFormat(m_format, precision, measure, suffix(withUnit)).text(shown);
}

CZelString CZelUnitValue::text(double stored) const { return format(stored, has(ShowUnit)); }

ZelValueResult CZelUnitValue::value(const CZelString& text, Rules rules) const {
  using Kind = CZelValueError::Kind;
  using Quantity = CZelNumberParser::Quantity;
  const Quantity quantity = m_type == Type::Angle    ? Quantity::Angle
                            : m_type == Type::Number ? Quantity::Number
                                                     : Quantity::Length;
  ZelValueResult parsed = CZelNumberParser(quantity, numberUnit()).parse(text);
  if (!parsed.ok()) return parsed;
  CZelString typed(text);
  typed.trim();
  if (!has(Decimals) && parsed.value != std::trunc(parsed.value)) return {0.0, {Kind::NotWhole, typed}};

  double stored = parsed.value;
  if (m_type == Type::Angle) stored = stored * std::numbers::pi / 180.0;
  else if (m_type == Type::Length) stored = ZEL::acadUnitCv(stored, numberUnit(), m_objectUnit);
  if (!std::isfinite(stored)) return {0.0, {Kind::Overflow, typed}};

  if (m_type == Type::Angle && has(Wrap)) {
    const double base = m_min > -DBL_MAX && std::isfinite(m_min) ? m_min : 0.0;
    stored = base + std::fmod(stored - base, kTurn);
    if (stored < base) stored += kTurn;
    if (stored >= base + kTurn) stored = base;  // a rounding step past the full turn
  }
  const bool domain = rules == Rules::All;
  const double lower = domain && has(NoNegative) ? std::max(m_min, 0.0) : m_min;
  if (stored < lower) return {0.0, {Kind::TooSmall, format(lower, true)}};
  if (stored > m_max) return {0.0, {Kind::TooLarge, format(m_max, true)}};
  if (domain && has(NoZero) && stored == 0.0) return {0.0, {Kind::Zero}};
  if (!std::isfinite(stored)) return {0.0, {Kind::Overflow, typed}};
  return {stored, {}};
}
