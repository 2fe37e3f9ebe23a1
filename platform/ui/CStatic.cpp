#include "ui/CStatic.h"

HICON CStatic::SetIcon(HICON icon) {
  HICON old = iconHandle(m_image);
  m_image = iconResourceId(icon);
  Invalidate();
  return old;
}

void CStatic::setPicture(const CZelString& description) {
  m_picture = description;
  Invalidate();
}

void CStatic::setDisplayList(CDisplayList list) {
  m_displayList = std::move(list);
  Invalidate();
}

bool CStatic::acceptsKind(WndKind kind) const {
  return kind == WndKind::Text || kind == WndKind::Icon || kind == WndKind::Frame || kind == WndKind::GroupBox;
}

void CStatic::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* s = dynamic_cast<CStatic*>(&other)) {
    m_picture = s->m_picture;
    m_displayList = s->m_displayList;
  }
}
