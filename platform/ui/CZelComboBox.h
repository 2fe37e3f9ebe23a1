// The platform's combo box: the model's combo box with lines on an alternate background.
#pragma once

#include "ui/CComboBox.h"
#include "ui/CZelAltBackgr.h"

class CZelComboBox : public CComboBox {
public:
  CZelComboBox() = default;

  // The lines at these positions are drawn on the alternate background until the next call
  // (emptying the combo does not change it; a dialog that refills the combo sets the bands again).
  void setAltBackgr(const CZelArrayTempl<int>& indices) { m_alt.set(indices); }
  void setAltBackgr(const std::vector<int>& indices) { m_alt.set(indices); }
  bool isAltBackgr(int index) const { return m_alt.has(index); }
  const std::vector<int>& altBackgr() const { return m_alt.indices(); }

private:
  CZelAltBackgr m_alt;
};
