#include "data/ZelUnits.h"

#include <cmath>

namespace Zel {

double unitToMm(lUnit unit) {
  switch (unit) {
    case lUnit::Inches: return 25.4;
    case lUnit::Feet: return 304.8;
    case lUnit::Miles: return 1609344.0;
    case lUnit::Millimeters: return 1.0;
    case lUnit::Centimeters: return 10.0;
    case lUnit::Meters: return 1000.0;
    case lUnit::Kilometers: return 1000000.0;
    case lUnit::Microinches: return 25.4e-6;
    case lUnit::Mils: return 25.4e-3;
    case lUnit::Yards: return 914.4;
    case lUnit::Angstroms: return 1e-7;
    case lUnit::Nanometers: return 1e-6;
    case lUnit::Microns: return 1e-3;
    case lUnit::Decimeters: return 100.0;
    default: return 0.0;
  }
}

bool isImperial(lUnit unit) {
  return unit == lUnit::Inches || unit == lUnit::Feet || unit == lUnit::Miles || unit == lUnit::Microinches ||
         unit == lUnit::Mils || unit == lUnit::Yards;
}

bool unitFromCode(long long code, lUnit& unit) {
  if (code < 0 || code > static_cast<long long>(lUnit::Decimeters)) return false;
  unit = static_cast<lUnit>(code);
  return true;
}

}  // namespace Zel

namespace ZEL {

double acadUnitCv(double value, Zel::lUnit from, Zel::lUnit to) {
  double f = Zel::unitToMm(from);
  double t = Zel::unitToMm(to);
  if (f == 0.0 || t == 0.0 || from == to) return value;
  return value * f / t;
}

}  // namespace ZEL

namespace ZEL {

const wchar_t* acad_unit_sh(Zel::lUnit unit) {
  switch (unit) {
    case Zel::lUnit::Inches: return L"in";
    case Zel::lUnit::Feet: return L"ft";
    case Zel::lUnit::Miles: return L"mi";
    case Zel::lUnit::Millimeters: return L"mm";
    case Zel::lUnit::Centimeters: return L"cm";
    case Zel::lUnit::Meters: return L"m";
    case Zel::lUnit::Kilometers: return L"km";
    case Zel::lUnit::Microinches: return L"\u00B5in";
    case Zel::lUnit::Mils: return L"mil";
    case Zel::lUnit::Yards: return L"yd";
    case Zel::lUnit::Angstroms: return L"\u00C5";
    case Zel::lUnit::Nanometers: return L"nm";
    case Zel::lUnit::Microns: return L"\u00B5m";
    case Zel::lUnit::Decimeters: return L"dm";
    default: return L"";
  }
}

int autoPrec(int decimals, Zel::lUnit unit, Zel::lFormat format) {
  if (format != Zel::lFormat::Architectural && format != Zel::lFormat::Fractional) return decimals;
  const double perUnit = Zel::unitToMm(unit);
  const double unitInInches = perUnit > 0.0 ? perUnit / 25.4 : 1.0;
  const double resolution = std::pow(10.0, -decimals) * unitInInches;  // in inches
  // A hair of tolerance, so that an exact power of two (1/8 inch) does not ask for one more bit.
  const double bits = std::ceil(std::log2(1.0 / resolution) - 1e-9);
  return bits < 0.0 ? 0 : static_cast<int>(bits);
}

}  // namespace ZEL
