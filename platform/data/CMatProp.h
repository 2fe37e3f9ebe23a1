// The properties of a material that dialogs decide on.
#pragma once

#include "data/CZelString.h"

namespace ZEL {

struct CMatProp {
  CZelString name;
  int layMode = 1;   // 1: layers inherited along the material chain, 2: the material's own
  int bend = 0;      // at least 1: the material can be bent (has bending tables)
  bool draw = true;  // the material has a drawing definition
};

}  // namespace ZEL
