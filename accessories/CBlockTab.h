// The properties tab of the setting-block dialog: the size tab of the accessories (material,
// article, width and height or determined on screen) with the chamfer and its corners.
#pragma once

#include "accessories/CAccessorySizeTab.h"

class CBlockTab : public CAccessorySizeTab {
public:
  CBlockTab();

  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

protected:
  void setUpFields(Zel::lUnit unit) override;
  void refreshShape(double b, double h) override;
  bool shapeCommand(const CZelString& word) override;

private:
  static const CMessageMapEntry kEntries[];

  void onChamferCheck();
  void onChamferValue();
  void onCorner(int bit);

  CZelEdit m_chamfer;
};
