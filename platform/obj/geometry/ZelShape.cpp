#include "obj/geometry/ZelShape.h"

namespace ZEL::geo {

const wchar_t* layerKey(Layer layer) {
  switch (layer) {
    case Layer::Contour: return L"PART_CON";
    case Layer::Hidden: return L"PART_HID";
    case Layer::Axis: return L"PART_CEN";
    case Layer::Fill: return L"PART_FILL";
    case Layer::Thread: return L"PART_THR";
    case Layer::Light: return L"PART_LGT";
  }
  return L"PART_CON";
}

}  // namespace ZEL::geo
