#include "ui/CButton.h"

UINT CButton::GetState() const { return static_cast<UINT>(m_check) | (m_pressed ? BST_PUSHED : 0); }

HICON CButton::SetIcon(HICON icon) {
  HICON old = iconHandle(m_image);
  m_image = iconResourceId(icon);
  return old;
}

void CButton::SetButtonStyle(UINT style, BOOL) { m_style = (m_style & 0xFFFF0000) | (style & 0xFFFF); }

bool CButton::isAuto() const {
  DWORD t = buttonType();
  return t == BS_AUTOCHECKBOX || t == BS_AUTO3STATE || t == BS_AUTORADIOBUTTON;
}

std::vector<CButton*> CButton::groupRadios() const {
  std::vector<CButton*> group;
  if (!m_parent) return group;
  const auto& siblings = m_parent->children();
  auto self = std::find(siblings.begin(), siblings.end(), this);
  if (self == siblings.end()) return group;
  auto first = self;
  while (first != siblings.begin() && !((*first)->GetStyle() & WS_GROUP)) --first;
  for (auto it = first; it != siblings.end(); ++it) {
    if (it != first && ((*it)->GetStyle() & WS_GROUP)) break;
    if (isRadio(*it))
      if (auto* b = dynamic_cast<CButton*>(*it)) group.push_back(b);
  }
  return group;
}

void CButton::applyClick() {
  switch (m_kind) {
    case WndKind::CheckBox:
      if (buttonType() == BS_AUTOCHECKBOX) m_check = m_check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED;
      else if (buttonType() == BS_AUTO3STATE) m_check = (m_check + 1) % 3;
      break;
    case WndKind::RadioButton:
      for (CButton* mate : groupRadios()) mate->m_check = BST_UNCHECKED;
      m_check = BST_CHECKED;
      break;
    default: break;
  }
}

LRESULT CButton::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case BM_GETCHECK: return m_check;
    case BM_SETCHECK: m_check = static_cast<int>(wParam); return 0;
    case BM_GETSTATE: return GetState();
    case BM_SETSTATE: m_pressed = wParam != 0; return 0;
    case BM_CLICK:
      applyClick();
      notifyParent(BN_CLICKED);
      return 0;
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

bool CButton::acceptsKind(WndKind kind) const {
  return kind == WndKind::PushButton || kind == WndKind::CheckBox || kind == WndKind::RadioButton ||
         kind == WndKind::GroupBox;
}

void CButton::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* b = dynamic_cast<CButton*>(&other)) {
    m_check = b->m_check;
    m_pressed = b->m_pressed;
  }
}
