#include "data/ZelUnits.h"

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

}  // namespace Zel

namespace ZEL {

double acadUnitCv(double value, Zel::lUnit from, Zel::lUnit to) {
  double f = Zel::unitToMm(from);
  double t = Zel::unitToMm(to);
  if (f == 0.0 || t == 0.0 || from == to) return value;
  return value * f / t;
}

}  // namespace ZEL
