// The search tab of the standard-parts dialog ("Norm suchen", template 10267): a mask, the
// standards that match it (designation and title), the prototype picture of the highlighted
// one, and "Gehe zu", which makes it the selection and shows the properties tab.
#pragma once

#include "data/CZelColor.h"
#include "standardparts/QenNrmStore.h"
#include "ui/CListBox.h"
#include "standardparts/CQenNrmTab.h"
#include "ui/CZelDplistImage.h"
#include "ui/CZelEdit.h"
#include "ui/CZelGDX.h"

class CQenNrmTabNormSuchen : public CQenNrmTab {
public:
  CQenNrmTabNormSuchen();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void DoDataExchange(CDataExchange* dx) override;
  // The list from the stored mask, results and highlighted result.
  void refresh();

  const CZelGDX& preview() const { return m_gdx; }

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onMask();
  void onStart();
  void onObj();
  void onGoto();
  void showPicture(const qen::nrm::Stack& stack);

  CZelEdit m_mask;
  CListBox m_list;
  CZelDplistImage m_picture;
  CZelGDX m_gdx;
  CZelColor m_background;
};
