// Reads a number typed by a user: decimal or fractional, metric or feet and inches, with units.
#include "data/CZelNumberParser.h"

#include <charconv>
#include <cmath>
#include <cwctype>
#include <numbers>
#include <string>

namespace {

using Kind = CZelValueError::Kind;

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == 0xA0; }
bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// What a unit word or mark stands for.
enum class UnitToken { None, Length, Feet, Inches, Degrees, Radians, Unknown };

struct Scanner {
  std::wstring_view s;
  std::size_t i = 0;

  bool atEnd() const { return i >= s.size(); }
  wchar_t peek() const { return atEnd() ? L'\0' : s[i]; }
  void skipBlanks() { while (!atEnd() && isBlank(s[i])) ++i; }
};

// A decimal number at the scanner: digits, an optional point or comma with digits, an optional
// exponent. `whole` tells whether it was a bare integer (which may go on as a fraction).
Kind readDecimal(Scanner& sc, double& value, bool& whole) {
  std::string ascii;
  int intDigits = 0;  // significant digits before the point, to tell overflow from underflow
  bool leadingZero = true;
  bool anyDigit = false;
  while (isDigit(sc.peek())) {
    if (sc.peek() != L'0') leadingZero = false;
    if (!leadingZero) ++intDigits;
    ascii += static_cast<char>(sc.peek());
    ++sc.i;
    anyDigit = true;
  }
  whole = true;
  if (sc.peek() == L'.' || sc.peek() == L',') {
    whole = false;
    ascii += '.';
    ++sc.i;
    while (isDigit(sc.peek())) { ascii += static_cast<char>(sc.peek()); ++sc.i; anyDigit = true; }
  }
  if (!anyDigit) return Kind::NotANumber;
  long exponent = 0;
  if ((sc.peek() == L'e' || sc.peek() == L'E') && sc.i + 1 < sc.s.size()) {
    std::size_t j = sc.i + 1;
    bool negative = false;
    if (sc.s[j] == L'+' || sc.s[j] == L'-') { negative = sc.s[j] == L'-'; ++j; }
    if (j < sc.s.size() && isDigit(sc.s[j])) {
      whole = false;
      ascii += 'e';
      if (negative) ascii += '-';
      while (j < sc.s.size() && isDigit(sc.s[j])) {
        ascii += static_cast<char>(sc.s[j]);
        if (exponent < 100000) exponent = exponent * 10 + (sc.s[j] - L'0');
        ++j;
      }
      if (negative) exponent = -exponent;
      sc.i = j;
    }
  }
  auto [end, ec] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  if (ec == std::errc::result_out_of_range) {
    if (intDigits + exponent > 0) return Kind::Overflow;
    value = 0.0;  // too small to hold: as good as zero
    return Kind::None;
  }
  if (ec != std::errc() || end != ascii.data() + ascii.size()) return Kind::NotANumber;
  return Kind::None;
}

std::size_t digitsAhead(const Scanner& sc, std::size_t from) {
  std::size_t j = from;
  while (j < sc.s.size() && isDigit(sc.s[j])) ++j;
  return j - from;
}

// A whole number, a fraction "n/d" or a mixed number "w n/d" at the scanner.
Kind readMixed(Scanner& sc, double& value) {
  bool whole = false;
  if (Kind k = readDecimal(sc, value, whole); k != Kind::None) return k;
  if (!whole) return Kind::None;
  // "n/d": the integer read is the numerator.
  auto readDenominator = [&](double& d) {
    ++sc.i;  // the slash
    if (digitsAhead(sc, sc.i) == 0) return Kind::NotANumber;
    bool w = false;
    if (Kind k = readDecimal(sc, d, w); k != Kind::None) return k;
    return (w && d != 0.0) ? Kind::None : Kind::NotANumber;
  };
  if (sc.peek() == L'/') {
    double d = 0.0;
    if (Kind k = readDenominator(d); k != Kind::None) return k;
    value /= d;
    return Kind::None;
  }
  // "w n/d": blanks, digits, a slash.
  std::size_t j = sc.i;
  while (j < sc.s.size() && isBlank(sc.s[j])) ++j;
  if (j == sc.i) return Kind::None;
  const std::size_t n = digitsAhead(sc, j);
  if (n == 0 || j + n >= sc.s.size() || sc.s[j + n] != L'/') return Kind::None;
  Scanner frac{sc.s, j};
  double numerator = 0.0;
  bool w = false;
  if (Kind k = readDecimal(frac, numerator, w); k != Kind::None) return k;
  sc.i = frac.i;
  double denominator = 0.0;
  if (Kind k = readDenominator(denominator); k != Kind::None) return k;
  value += numerator / denominator;
  return Kind::None;
}

// A unit word or mark at the scanner; `unit` receives a length unit for UnitToken::Length.
UnitToken readUnit(Scanner& sc, Zel::lUnit& unit) {
  const wchar_t c = sc.peek();
  if (c == L'"') { ++sc.i; return UnitToken::Inches; }
  if (c == L'\'') {
    ++sc.i;
    if (sc.peek() == L'\'') { ++sc.i; return UnitToken::Inches; }  // two apostrophes for an inch mark
    return UnitToken::Feet;
  }
  if (c == 0xB0) { ++sc.i; return UnitToken::Degrees; }
  std::wstring word;
  while (!sc.atEnd() && (std::iswalpha(static_cast<wint_t>(sc.peek())) || sc.peek() == 0xB5)) {
    word += static_cast<wchar_t>(std::towlower(static_cast<wint_t>(sc.peek())));
    ++sc.i;
  }
  if (word.empty()) return UnitToken::None;
  struct Named { const wchar_t* name; Zel::lUnit unit; };
  static const Named kLengths[] = {
      {L"mm", Zel::lUnit::Millimeters}, {L"cm", Zel::lUnit::Centimeters}, {L"dm", Zel::lUnit::Decimeters},
      {L"m", Zel::lUnit::Meters},       {L"km", Zel::lUnit::Kilometers},  {L"\u00B5m", Zel::lUnit::Microns},
      {L"yd", Zel::lUnit::Yards},       {L"mi", Zel::lUnit::Miles},       {L"mil", Zel::lUnit::Mils},
  };
  if (word == L"in") return UnitToken::Inches;
  if (word == L"ft") return UnitToken::Feet;
  if (word == L"deg" || word == L"grad") return UnitToken::Degrees;
  if (word == L"rad") return UnitToken::Radians;
  for (const auto& n : kLengths)
    if (word == n.name) { unit = n.unit; return UnitToken::Length; }
  return UnitToken::Unknown;
}

}  // namespace

ZelValueResult CZelNumberParser::parse(const CZelString& text) const {
  std::wstring_view s = text.view();
  while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  if (s.empty()) return {0.0, {Kind::Empty}};
  const CZelString shown(s);
  auto fail = [&](Kind k) { return ZelValueResult{0.0, {k, shown}}; };

  Scanner sc{s};
  bool negative = false;
  if (sc.peek() == L'-' || sc.peek() == L'+') {
    negative = sc.peek() == L'-';
    ++sc.i;
    sc.skipBlanks();
  }
  double value = 0.0;
  if (Kind k = readMixed(sc, value); k != Kind::None) return fail(k);
  sc.skipBlanks();
  Zel::lUnit unit = m_unit;
  const UnitToken token = readUnit(sc, unit);
  if (token == UnitToken::Unknown) return fail(Kind::NotANumber);

  const bool length = m_quantity == Quantity::Length;
  const bool angle = m_quantity == Quantity::Angle;
  switch (token) {
    case UnitToken::None: break;
    case UnitToken::Length:
      if (!length) return fail(Kind::NotANumber);
      value = ZEL::acadUnitCv(value, unit, m_unit);
      break;
    case UnitToken::Inches:
      if (!length) return fail(Kind::NotANumber);
      value = ZEL::acadUnitCv(value, Zel::lUnit::Inches, m_unit);
      break;
    case UnitToken::Feet: {
      if (!length) return fail(Kind::NotANumber);
      // Feet may go on with inches: 1'6", 1'-6 1/2", 1 ft 6 in; the inch mark may be left out.
      double inches = value * 12.0;
      sc.skipBlanks();
      if (sc.peek() == L'-' && sc.i + 1 < s.size()) { ++sc.i; sc.skipBlanks(); }
      if (!sc.atEnd()) {
        double more = 0.0;
        if (Kind k = readMixed(sc, more); k != Kind::None) return fail(k);
        sc.skipBlanks();
        Zel::lUnit ignored = m_unit;
        const UnitToken second = readUnit(sc, ignored);
        if (second != UnitToken::None && second != UnitToken::Inches) return fail(Kind::NotANumber);
        inches += more;
      }
      value = ZEL::acadUnitCv(inches, Zel::lUnit::Inches, m_unit);
      break;
    }
    case UnitToken::Degrees:
      if (!angle) return fail(Kind::NotANumber);
      break;
    case UnitToken::Radians:
      if (!angle) return fail(Kind::NotANumber);
      value = value * 180.0 / std::numbers::pi;
      break;
    case UnitToken::Unknown: return fail(Kind::NotANumber);
  }
  sc.skipBlanks();
  if (!sc.atEnd()) return fail(Kind::NotANumber);
  if (!std::isfinite(value)) return fail(Kind::Overflow);
  return {negative ? -value : value, {}};
}

ZelValueResult zelStoR(const CZelString& text) { return CZelNumberParser(CZelNumberParser::Quantity::Number).parse(text); }
