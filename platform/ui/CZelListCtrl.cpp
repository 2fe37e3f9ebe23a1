// The platform's list view: one selected row by index, and new entries typed in place, as the
// lists of the labeling dialog use them.
#include "ui/CZelListCtrl.h"

bool CZelListCtrl::setCurSel(int index) {
  if (index < -1 || index >= GetItemCount()) return false;
  for (int i = 0; i < GetItemCount(); ++i)
    if (i != index && GetItemState(i, LVIS_SELECTED | LVIS_FOCUSED)) SetItemState(i, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (index < 0) return true;
  SetItemState(index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  EnsureVisible(index, FALSE);
  return true;
}

int CZelListCtrl::editNewRow() {
  // A running edit ends first, so that its own row is settled before the new one exists.
  if (editingRow() >= 0) endLabelEdit(nullptr);
  const int row = InsertItem(GetItemCount(), L"");
  if (row < 0) return -1;
  setCurSel(row);
  m_newRow = row;
  m_newCount = GetItemCount();
  if (EditLabel(row)) return row;
  // Refused by the parent: no editing ended, so the row goes here.
  m_newRow = -1;
  if (GetItemCount() == m_newCount && GetItemText(row, 0).isEmpty()) DeleteItem(row);
  return -1;
}

void CZelListCtrl::onLabelEditEnded(int row, bool kept) {
  if (m_newRow < 0 || row != m_newRow) return;
  m_newRow = -1;
  // The parent may have rebuilt the list while handling the end of the edit; only the very row
  // that was appended, still last and still empty, is taken away.
  if (GetItemCount() == m_newCount && row == GetItemCount() - 1 && GetItemText(row, 0).isEmpty()) DeleteItem(row);
}
