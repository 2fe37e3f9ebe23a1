// The standard list of the labeling dialog: the text items of an object in their order, each
// with its check mark and an icon that tells whether a line break follows it. It tells the
// dialog of check marks (10107), of the row the user selects (2000) and of rows dragged to
// another place (10149), and moves its selection with Home, End, Up and Down.
#pragma once

#include "ui/CZelListCtrl.h"

#include <vector>

class CLabelingStandLst : public CZelListCtrl {
public:
  struct Row {
    int bit = 0;  // the item's bit value, kept as the row's item data
    CZelString name;
    bool checked = false;
    bool breakAfter = false;  // a line break follows the item
  };

  // Image indices of the image list the dialog gives the list (icons 10288 and 10289).
  static constexpr int kImageBreak = 0;
  static constexpr int kImageNoBreak = 1;
  // A release closer than this to the press point is a click, not a drag.
  static constexpr int kDragThreshold = 10;

  // Replaces the rows and selects the row of `selectBit` (none when no row has it). Filling
  // sends the dialog nothing.
  void setRows(const std::vector<Row>& rows, int selectBit);
  // The bit value of a row; 0 for no row.
  int bitAt(int row) const { return row >= 0 && row < GetItemCount() ? static_cast<int>(GetItemData(row)) : 0; }

protected:
  bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;

private:
  void tellParent(UINT message, WPARAM wParam, LPARAM lParam);

  bool m_filling = false;
  int m_pressRow = -1;
  CPoint m_pressPoint;
};
