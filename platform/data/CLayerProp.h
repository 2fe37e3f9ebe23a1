// The properties of one drawing layer, as the layer manager and the host hand them out.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelString.h"

namespace ZEL {

struct CLayerProp {
  CZelString name;
  CZelString lineType = L"CONTINUOUS";
  CZelString description;
  CZelColor color;
  int lineWeight = -3;  // hundredths of a millimetre; -3 default, -2 by block, -1 by layer
  CZelString plotStyle;
  bool off = false;
  bool frozen = false;
  bool locked = false;
};

}  // namespace ZEL
