// Buttons of the model: push buttons (with an icon), check boxes with two or three states,
// radio buttons in groups, push-like radios and check boxes.
#pragma once

#include "ui/CWnd.h"

class CButton : public CWnd {
public:
  CButton() = default;

  int GetCheck() const { return m_check; }
  void SetCheck(int check) { m_check = check; }
  UINT GetState() const;
  void SetState(BOOL pressed) { m_pressed = pressed != 0; }
  HICON SetIcon(HICON icon);
  HICON GetIcon() const { return iconHandle(m_image); }
  UINT GetButtonStyle() const { return m_style & 0xFFFF; }
  void SetButtonStyle(UINT style, BOOL redraw = TRUE);

  DWORD buttonType() const { return m_style & BS_TYPEMASK; }
  bool isPushLike() const { return (m_style & BS_PUSHLIKE) != 0; }
  bool isAuto() const;
  // The radio buttons of this button's group: from the last WS_GROUP control at or before it
  // to the next one, in template order.
  std::vector<CButton*> groupRadios() const;
  // What a click does to the button's state before BN_CLICKED: a check box toggles (manual
  // ones are left to their dialog), a radio is checked and its group mates cleared.
  void applyClick();

protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  UINT setFocusCode() const override { return (m_style & BS_NOTIFY) ? BN_SETFOCUS : 0; }
  UINT killFocusCode() const override { return (m_style & BS_NOTIFY) ? BN_KILLFOCUS : 0; }
  bool acceptsKind(WndKind kind) const override;
  void takeStateFrom(CWnd& other) override;

private:
  int m_check = BST_UNCHECKED;
  bool m_pressed = false;
};

inline bool isRadio(const CWnd* w) { return w && w->kind() == WndKind::RadioButton; }
