#include "ui/CCheckListBox.h"

void CCheckListBox::SetCheck(int index, int check) {
  if (m_items.valid(index)) m_items.at(index).check = check;
}

int CCheckListBox::GetCheck(int index) const { return m_items.valid(index) ? m_items.at(index).check : LB_ERR; }

void CCheckListBox::Enable(int index, BOOL enabled) {
  if (m_items.valid(index)) m_items.at(index).enabled = enabled != 0;
}

BOOL CCheckListBox::IsEnabled(int index) const { return m_items.valid(index) && m_items.at(index).enabled; }

void CCheckListBox::checkByUser(int index, int check) {
  // A click on the mark also makes its line the current one, as the framework's list does.
  if (GetCurSel() != index) selectByUser(index);
  SetCheck(index, check);
  notifyParent(CLBN_CHKCHANGE);
}
