// The properties tab of the silicone dialog: material, article, and the joint's width and
// angle typed in the dialog or determined on screen. The angle is the one of a joint
// without sealing cord; a joint with cord lies as its gap does.
#pragma once

#include "data/CZelMatMgr.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "ui/CZelEdit.h"

class CSiliconDlg : public CQenAccessoryPage {
public:
  CSiliconDlg();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onScreen();
  void onWidth();
  void onAngle();
  void onMaterial();
  void onArticle();
  void changed();

  CSheetTabTools m_tools;
  CZelEdit m_width;
  CZelEdit m_angle;
};
