#include "obj/ZelGdxImage.h"

#include "obj/ZelObjDraw.h"
#include "obj/geometry/ZelNormShape.h"

#include <cwctype>
#include <string>

bool zel_gdx_image(const wchar_t* kind, CZelGDX& gdx, const CZelDataItem* part) {
  if (!kind || !part) return false;
  std::wstring k(kind);
  for (wchar_t& c : k) c = static_cast<wchar_t>(std::towupper(c));
  if (k != L"NORM") return false;
  const ZEL::geo::Shape shape = ZEL::geo::normPartShape(part);
  if (shape.isEmpty()) return false;
  ZEL::objDraw(gdx.displayList(), part, shape, nullptr);
  return true;
}
