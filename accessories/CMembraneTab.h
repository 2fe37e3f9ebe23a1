// The properties tab of the membrane dialog: foil thickness, throat radius and division,
// material and article. For a layer of a build-up there is no throat radius; only a filled
// membrane is divided.
#pragma once

#include "data/CZelMatMgr.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "ui/CZelEdit.h"

class CMembraneTab : public CQenAccessoryPage {
public:
  CMembraneTab();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onLength(CZelEdit& edit, const wchar_t* key);
  void onMaterial();
  void onArticle();
  double real(const wchar_t* key) const;

  CSheetTabTools m_tools;
  CZelEdit m_thickness;
  CZelEdit m_radius;
  CZelEdit m_division;
};
