// The areas tab of the standard-parts dialog ("Normbereiche", template 10268): the areas of
// standards with a check each (an unchecked area hides its standards in the tree) and the
// switch " Nur Artikel" that restricts the tree to parts with an article number.
#pragma once

#include "ui/CCheckListBox.h"
#include "standardparts/CQenNrmTab.h"

#include <string>
#include <vector>

class CQenNrmTabBereiche : public CQenNrmTab {
public:
  CQenNrmTabBereiche();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void DoDataExchange(CDataExchange* dx) override;
  void refresh();

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onOrder();
  void onOnOff();

  std::string m_mask;          // as read at construction
  bool m_articles = false;     // as read at construction
  CCheckListBox m_list;
  std::vector<std::string> m_codes;  // the code of each line
};
