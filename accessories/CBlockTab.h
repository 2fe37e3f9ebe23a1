// The properties tab of the setting-block dialog: material, article, width and height (or
// determined on screen), the chamfer and its corners.
#pragma once

#include "data/CZelMatMgr.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "ui/CZelEdit.h"

class CBlockTab : public CQenAccessoryPage {
public:
  CBlockTab();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onScreen();
  void onSize(CZelEdit& edit, const wchar_t* key);
  void onChamferCheck();
  void onChamferValue();
  void onCorner(int bit);
  void onMaterial();
  void onArticle();
  // Stores the article of the object key, or removes it when there is none.
  void storeArticle(const CZelString& article);
  double real(const wchar_t* key, double fallback) const;

  CZelMatMgr m_matMgr;
  CSheetTabTools m_tools;
  CZelEdit m_width;
  CZelEdit m_height;
  CZelEdit m_chamfer;
};
