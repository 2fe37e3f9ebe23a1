// The material catalogue of the settings store ("*ZEL_MAT*\MAT\<material>"): each
// material has a German label ("LABEL") and may have an English one ("LABEL_EN"), the
// material it inherits from ("PARENT"), its layer mode ("LAY_MODE"), whether it can be
// bent ("BEND") and whether it has a drawing definition ("DRAW", true when absent).
#pragma once

#include "data/CMatProp.h"
#include "data/CZelArrayTempl.h"
#include "data/CZelMapTempl.h"
#include "data/CZelString.h"

class CZelDataItem;

class CZelMatMgr {
public:
  // Every material of the catalogue, in catalogue order.
  bool matAll(CZelArrayTempl<CZelString>& names) const;
  // The materials that have bending tables / a drawing definition.
  bool matEdgeAll(CZelArrayTempl<CZelString>& names, bool sorted) const;
  bool matDrawAll(CZelArrayTempl<CZelString>& names, bool sorted) const;
  // The material chain: the material first, then each one it inherits from.
  bool matPath(CZelArrayTempl<CZelString>& chain, const CZelString& material) const;
  // The display label in a country's language ("-1": the user's country); empty when the
  // catalogue does not know the material.
  CZelString matLabel(const CZelString& material, const CZelString& country) const;
  void matLabel(CZelMapTempl<CZelString, CZelString>& labels, const CZelArrayTempl<CZelString>& names,
                const CZelString& country) const;
  bool propGet(const CZelString& material, ZEL::CMatProp& prop) const;
  bool exists(const CZelString& material) const;

  // The user's country as the store keeps it ("_COUNTRY"), "de" when none is kept.
  static CZelString userCountry();

private:
  CZelDataItem* material(const CZelString& name) const;
};
