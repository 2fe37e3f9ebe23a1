// The check list box of the model: a list box whose lines carry a check mark (0, 1, 2) and
// an enabled flag; a user's change of a mark sends CLBN_CHKCHANGE.
#pragma once

#include "ui/CListBox.h"

class CCheckListBox : public CListBox {
public:
  CCheckListBox() = default;

  void SetCheckStyle(UINT style) { m_checkStyle = style; }
  UINT GetCheckStyle() const { return m_checkStyle; }
  void SetCheck(int index, int check);
  int GetCheck(int index) const;
  void Enable(int index, BOOL enabled = TRUE);
  BOOL IsEnabled(int index) const;

  // What a click on the mark of a line does: the mark changes, then CLBN_CHKCHANGE.
  void checkByUser(int index, int check);

protected:
  void onCreated() override { setKind(WndKind::CheckListBox); }

private:
  UINT m_checkStyle = BS_AUTOCHECKBOX;
};
