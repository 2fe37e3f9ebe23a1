// The edit control of the model: its text, the "modified" flag that tells a user's change
// from the program's, the selection, the text limit and the read-only state.
#pragma once

#include "ui/CWnd.h"

class CEdit : public CWnd {
public:
  CEdit() = default;

  BOOL GetModify() const { return m_modified; }
  void SetModify(BOOL modified = TRUE) { m_modified = modified != 0; }
  void SetSel(int start, int end, BOOL noScroll = FALSE);
  void GetSel(int& start, int& end) const;
  void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);
  void SetLimitText(UINT max) { m_limit = max; }
  void LimitText(int max = 0) { m_limit = static_cast<UINT>(max); }
  UINT GetLimitText() const { return m_limit; }
  BOOL SetReadOnly(BOOL readOnly = TRUE);
  bool isReadOnly() const { return (m_style & ES_READONLY) != 0; }

  // What typing does: the whole text replaced by the user, cut at the limit, marked as
  // modified, then EN_CHANGE.
  void typeText(const CZelString& text);

protected:
  // Setting the text from the program clears "modified" and still sends EN_CHANGE, as the
  // framework's edit does; dialogs guard their refreshes against it.
  void onSetText(const CZelString& text) override;
  UINT setFocusCode() const override { return EN_SETFOCUS; }
  UINT killFocusCode() const override { return EN_KILLFOCUS; }
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::Edit; }
  void takeStateFrom(CWnd& other) override;

private:
  bool m_modified = false;
  UINT m_limit = 0;  // 0: no limit
  int m_selStart = 0;
  int m_selEnd = 0;
};
