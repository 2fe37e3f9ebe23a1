// The platform's list view: one selected row by index, and new entries typed in place, as the
// lists of the labeling dialog use them.
#pragma once

#include "ui/CListCtrl.h"

class CZelListCtrl : public CListCtrl {
public:
  CZelListCtrl() = default;

  // The first selected row, or -1.
  int getCurSel() const { return GetNextItem(-1, LVNI_SELECTED); }
  // Makes `index` the only selected (and focused) row and scrolls it into view; -1 clears the
  // selection. False for a row that does not exist (the selection is then unchanged).
  bool setCurSel(int index);

  // A new entry: appends an empty row, selects it, makes it visible and starts its in-place
  // editing. Returns the row, or -1 when the parent refused to let it be edited (the row is then
  // gone again). When the editing ends with the row still empty (cancelled, nothing typed, or the
  // parent refused the text), the row is removed, so a list never keeps an entry nobody wrote.
  int editNewRow();
  // True while the editing of a row started by editNewRow is running or ending (the parent's
  // LVN_ENDLABELEDIT handler can ask it to tell a new entry from an edited one).
  bool isNewRowEdit() const { return m_newRow >= 0; }

protected:
  void onLabelEditEnded(int row, bool kept) override;

private:
  int m_newRow = -1;    // the row editNewRow appended, while it is being edited
  int m_newCount = 0;   // the row count just after it was appended, to know the row again
};
