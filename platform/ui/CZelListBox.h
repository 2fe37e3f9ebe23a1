// The platform's list box: the model's list box with lines on an alternate background.
#pragma once

#include "ui/CListBox.h"
#include "ui/CZelAltBackgr.h"

class CZelListBox : public CListBox {
public:
  CZelListBox() = default;

  // As CZelComboBox::setAltBackgr.
  void setAltBackgr(const CZelArrayTempl<int>& indices) { m_alt.set(indices); }
  void setAltBackgr(const std::vector<int>& indices) { m_alt.set(indices); }
  bool isAltBackgr(int index) const { return m_alt.has(index); }
  const std::vector<int>& altBackgr() const { return m_alt.indices(); }

private:
  CZelAltBackgr m_alt;
};
