#include "obj/ZelObjShape.h"

#include "obj/geometry/ZelBlockGeometry.h"
#include "obj/geometry/ZelSealGeometry.h"

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

}  // namespace

geo::Shape objShape(const CZelDataItem* section) {
  if (!section) return {};
  const CZelString type = text(section, L"TYPE");
  if (type == L"KLOTZ") return block(section);
  if (type == L"DICHT") return seal(section);
  return {};
}

}  // namespace ZEL
