// What a caller tells the material tree: the dialog environment (parent, country, help
// file and topic) and which materials it offers.
#pragma once

#include "data/CZelArrayTempl.h"
#include "ui/DlgEnv_st.h"

namespace ZEL {

struct DlgEnvMatTree_st : public DlgEnv_st {
  // Words that narrow the offer: "EDGE" only materials that can be bent (bending tables of
  // their own or inherited), "DRAW" only materials with a drawing definition, "SYSTEM" also
  // the material "SYSTEM" (no particular material), which is left out otherwise.
  CZelArrayTempl<CZelString> filter;
  // Every material of the catalogue; without it only those with a drawing definition.
  bool all = false;
};

}  // namespace ZEL
