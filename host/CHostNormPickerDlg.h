// qen-host's picture choice of a standard part: the standards of the current group side by
// side with their prototype pictures, sixteen to a page ("&Vorher" / "&Nächster"), and the
// list of their designations. A click on a picture or a line chooses that standard; OK takes
// it, a double click too. Cancel chooses nothing.
#pragma once

#include "data/CZelArrayTempl.h"
#include "norm/ZelNorm.h"
#include "ui/CZelDlg.h"
#include "ui/CZelDplistImage.h"
#include "ui/CZelListBox.h"

#include <array>
#include <vector>

class CZelDataItem;

class CHostNormPickerDlg : public CZelDlg {
public:
  static constexpr int kCells = 16;

  // `leaves`: per group path the keys of the standards shown there ("LEAFS"); `current`: the
  // selection stack the choice starts from (its group is shown, its standard chosen).
  CHostNormPickerDlg(const CZelDataItem* leaves, const ZEL::NormStack& current, CWnd* parent = nullptr);

  // The standards on offer, in the order of the leaves item; and the one chosen with OK
  // (empty after Cancel).
  const std::vector<ZEL::NormStack>& standards() const { return m_standards; }
  const ZEL::NormStack& chosen() const { return m_chosen; }

  // The standards of the group that `current` names (a standard: its group), found in
  // `leaves`; where that group has none, the nearest enclosing one that has.
  static std::vector<ZEL::NormStack> standardsFor(const CZelDataItem* leaves, const ZEL::NormStack& current);

  BOOL OnInitDialog() override;
  void OnOK() override;
  bool updLang() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  void cellClicked(UINT id);
  void cellDoubleClicked(UINT id);
  void choose(int index);
  void showPage();
  void refresh();
  int pageCount() const;

  ZEL::NormStack m_current;
  std::vector<ZEL::NormStack> m_standards;
  ZEL::NormStack m_group;
  std::array<CZelDplistImage, kCells> m_cells;
  CZelListBox m_list;
  int m_page = 0;
  int m_selected = -1;
  int m_shownPage = -1;
  bool m_refreshing = false;
  ZEL::NormStack m_chosen;
};
