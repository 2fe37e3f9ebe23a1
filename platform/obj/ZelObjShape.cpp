#include "obj/ZelObjShape.h"

#include "obj/geometry/ZelAxisGeometry.h"
#include "obj/geometry/ZelBlockGeometry.h"
#include "obj/geometry/ZelInsulationGeometry.h"
#include "obj/geometry/ZelMembraneGeometry.h"
#include "obj/geometry/ZelSealGeometry.h"
#include "obj/geometry/ZelSiliconeGeometry.h"

namespace ZEL {

namespace {

// Typed reads with the dialogs' defaults: a value that is missing or of another type
// leaves the default.
double real(const CZelDataItem* section, const wchar_t* key, double fallback = 0.0) {
  CZelDataKey k(key);
  double v = fallback;
  section->get(v, &k);
  return v;
}

int integer(const CZelDataItem* section, const wchar_t* key, int fallback = 0) {
  CZelDataKey k(key);
  int v = fallback;
  section->get(v, &k);
  return v;
}

CZelString text(const CZelDataItem* section, const wchar_t* key) {
  CZelDataKey k(key);
  CZelString v;
  section->get(v, &k);
  return v;
}

geo::Shape block(const CZelDataItem* section) {
  geo::BlockParams p;
  p.width = real(section, L"B");
  p.height = real(section, L"H");
  p.chamfer = real(section, L"CHAMFER");
  p.corners = integer(section, L"CHF_FLAG");
  const CZelString draw = text(section, L"HATCH");
  // "N" and any value the dialog does not know draw the standard block; "R" the outline.
  p.draw = draw == L"R" ? geo::BlockDraw::Outline : draw == L"M" ? geo::BlockDraw::Hatched : geo::BlockDraw::Standard;
  return geo::blockShape(p);
}

geo::Shape seal(const CZelDataItem* section) {
  geo::SealParams p;
  p.width = real(section, L"B");
  p.height = real(section, L"H");
  p.draw = text(section, L"HATCH") == L"M" ? geo::SealDraw::Hatched : geo::SealDraw::Outline;
  return geo::sealShape(p);
}

geo::Shape silicone(const CZelDataItem* section) {
  geo::SiliconeParams p;
  p.width = real(section, L"B");
  p.cord = text(section, L"CONS") == L"D";
  // The angle is the one of a joint without cord; a joint with cord lies as its gap does,
  // whatever angle is left over from before.
  if (!p.cord) p.angle = real(section, L"W");
  p.variant = integer(section, L"VAR", -1);
  p.hatchSilicone = text(section, L"HATCH") == L"K";
  p.hatchCord = text(section, L"HATCH2") == L"K";
  return geo::siliconeShape(p);
}

geo::Shape membrane(const CZelDataItem* section) {
  geo::MembraneParams p;
  p.thickness = real(section, L"D");
  p.radius = real(section, L"R");
  p.division = real(section, L"T");
  const CZelString draw = text(section, L"DRAW");
  p.draw = draw == L"K"   ? geo::MembraneDraw::Contour
           : draw == L"L" ? geo::MembraneDraw::Lined
           : draw == L"S" ? geo::MembraneDraw::Hatched
                          : geo::MembraneDraw::Filled;
  return geo::membraneShape(p);
}

geo::Shape insulation(const CZelDataItem* section) {
  geo::InsulationParams p;
  const CZelString cons = text(section, L"CONS");
  p.cons = cons == L"B"   ? geo::InsulationCons::Arc
           : cons == L"K" ? geo::InsulationCons::Wedge
           : cons == L"R" ? geo::InsulationCons::Ring
           : cons == L"F" ? geo::InsulationCons::Area
                          : geo::InsulationCons::Straight;
  const CZelString draw = text(section, L"DRAW");
  p.soft = draw == L"W";  // anything else is hard, as the dialog shows it
  p.thickness = real(section, L"D");
  p.start = real(section, L"S");
  p.end = real(section, L"E");
  static constexpr double kFactors[] = {0.5, 0.6, 0.8, 1.0};
  const int width = integer(section, L"WIDTH", 4);
  p.widthFactor = width >= 1 && width <= 4 ? kFactors[width - 1] : 1.0;
  CZelString hatch = text(section, L"HATCH");
  if (hatch.isEmpty()) hatch = draw == L"S" ? L"S" : L"F";
  p.draw = hatch == L"K"   ? geo::InsulationDraw::Contour
           : hatch == L"S" ? geo::InsulationDraw::Hatched
                           : geo::InsulationDraw::Filled;
  p.separatingLine = integer(section, L"TR") == 1;
  return geo::insulationShape(p);
}

geo::Shape axis(const CZelDataItem* section) {
  geo::AxisParams p;
  p.length = real(section, L"LEN");
  const CZelString cons = text(section, L"CONS");
  p.cons = cons == L"PANEL" ? geo::AxisCons::Panel : cons == L"PLAN" ? geo::AxisCons::Plan : geo::AxisCons::Glazing;
  p.clamped = integer(section, L"IS_GD") == 1;
  p.clamp = real(section, L"GD");
  p.draw = text(section, L"HATCH") == L"S" ? geo::AxisDraw::Hatched : geo::AxisDraw::Outline;
  return geo::axisShape(p);
}

}  // namespace

geo::Shape objShape(const CZelDataItem* section) {
  if (!section) return {};
  const CZelString type = text(section, L"TYPE");
  if (type == L"KLOTZ") return block(section);
  if (type == L"DICHT") return seal(section);
  if (type == L"SILIKON") return silicone(section);
  if (type == L"FOLIE") return membrane(section);
  if (type == L"DM") return insulation(section);
  if (type == L"AXIS") return axis(section);
  return {};
}

}  // namespace ZEL
