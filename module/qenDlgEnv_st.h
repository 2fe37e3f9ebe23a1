// The dialog environment record the host passes to every entry function.
#pragma once

#include "data/CAdsName.h"
#include "data/CZelString.h"
#include "data/ZelUnits.h"
#include "ui/DlgEnv_st.h"

struct qenDlgEnv_st : public ZEL::DlgEnv_st {
  qenDlgEnv_st() = default;
  // Base first, then each own member in declaration order.
  qenDlgEnv_st(const qenDlgEnv_st&) = default;
  qenDlgEnv_st& operator=(const qenDlgEnv_st&) = default;
  ~qenDlgEnv_st() override = default;

  Zel::lUnit unit = Zel::lUnit::Millimeters;  // the drawing's length unit
  ZEL::CAdsName object;                       // the drawing object the dialog works on
  ZEL::CAdsName object2;                      // a second object (standard parts "PIECE")
  bool materialMode = false;                  // layer assignment for a material, not an object
  CZelString sectionName;                     // the dialog's main section, set by the entry function
  CZelString objectType;                      // the dialog's object type, set by the entry function
};
