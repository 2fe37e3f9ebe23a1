#include "obj/ZelObjTypes.h"

#include "data/CZelMatMgr.h"

namespace ZEL {

namespace {
// clang-format off
const ObjTypeInfo kTypes[] = {
  {L"KLOTZ",   L"*HZ_KLOTZ*",   L"Klotz",       L"Setting block"},
  {L"DICHT",   L"*HZ_DICHT*",   L"Dichtung",    L"Seal"},
  {L"SILIKON", L"*HZ_SILIKON*", L"Silikonfuge", L"Silicone joint"},
  {L"FOLIE",   L"*HZ_FOLIE*",   L"Folie",       L"Membrane"},
  {L"DM",      L"*HZ_DM*",      L"Dämmung",     L"Insulation"},
  {L"AXIS",    L"*AXIS*",       L"Achse",       L"Axis"},
  {L"BLECH",   L"*HZ_BLECH*",   L"Blech",       L"Sheet metal"},
  {L"HLBZ",    L"*HZ_PROFIL*",  L"Halbzeug",    L"Semi-finished profile"},
  {L"DIN",     L"*NM*",         L"Normteil",    L"Standard part"},
  {L"PIECE",   L"*NM*",         L"Teil",        L"Part"},
};
// clang-format on
}  // namespace

const ObjTypeInfo* objTypeInfo(const CZelString& type) {
  for (const auto& t : kTypes)
    if (type.match(t.type)) return &t;
  return nullptr;
}

CZelString objTypeLabel(const CZelString& type, const wchar_t* country) {
  const ObjTypeInfo* info = objTypeInfo(type);
  if (!info) return type;
  CZelString c = (!country || CZelString(country) == L"-1") ? CZelMatMgr::userCountry() : CZelString(country);
  return c.match(L"de") ? info->labelDe : info->labelEn;
}

}  // namespace ZEL

#include "data/CZelDrawing.h"

namespace ZEL {

bool isSheared(const CZelString& type) {
  for (const CZelString& t : CZelDrawing::current().sheared)
    if (t.match(type)) return true;
  return false;
}

}  // namespace ZEL

namespace ZEL {

std::initializer_list<const wchar_t*> objDimKeys(const CZelString& type) {
  static constexpr std::initializer_list<const wchar_t*> kWidthHeight = {L"B", L"H"};
  static constexpr std::initializer_list<const wchar_t*> kWidth = {L"B"};
  static constexpr std::initializer_list<const wchar_t*> kThickness = {L"D"};
  static constexpr std::initializer_list<const wchar_t*> kLength = {L"LEN"};
  static constexpr std::initializer_list<const wchar_t*> kAny = {L"B", L"H", L"L", L"T", L"D"};
  if (type.match(L"KLOTZ") || type.match(L"DICHT")) return kWidthHeight;
  if (type.match(L"SILIKON")) return kWidth;
  if (type.match(L"FOLIE") || type.match(L"DM")) return kThickness;
  if (type.match(L"AXIS")) return kLength;
  return kAny;
}

}  // namespace ZEL
