// Length units (numbered as the CAD program's insertion units) and number formats.
#pragma once

namespace Zel {

enum class lUnit : int {
  Unitless = 0, Inches = 1, Feet = 2, Miles = 3, Millimeters = 4, Centimeters = 5, Meters = 6,
  Kilometers = 7, Microinches = 8, Mils = 9, Yards = 10, Angstroms = 11, Nanometers = 12,
  Microns = 13, Decimeters = 14,
};

// Display formats of lengths, numbered as the CAD program's unit modes (LUNITS).
enum class lFormat : int { Scientific = 1, Decimal = 2, Engineering = 3, Architectural = 4, Fractional = 5 };

// Millimetres per unit; 0 for unitless.
double unitToMm(lUnit unit);
bool isImperial(lUnit unit);
// A unit from its stored integer code; none for a code outside 0 to 14.
bool unitFromCode(long long code, lUnit& unit);

}  // namespace Zel

namespace ZEL {
// Converts a length from one unit to another; unitless on either side converts nothing.
double acadUnitCv(double value, Zel::lUnit from, Zel::lUnit to);

// Short name of a unit for a label beside a field ("mm", "in", "ft" …; "" for unitless).
const wchar_t* acad_unit_sh(Zel::lUnit unit);

// The precision that shows a resolution of `decimals` decimal places of `unit` in `format`:
// the decimals themselves for decimal, engineering and scientific formats; for architectural and
// fractional formats the exponent n of the finest fraction 1/2^n inch needed for that resolution
// (unitless counts as inches). Callers that show fractions cap it at 8 (1/256).
int autoPrec(int decimals, Zel::lUnit unit, Zel::lFormat format);
}  // namespace ZEL
