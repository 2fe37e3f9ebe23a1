#include "ui/CImageList.h"

BOOL CImageList::Create(int cx, int cy, UINT, int initial, int) {
  m_cx = cx;
  m_cy = cy;
  m_icons.clear();
  if (initial > 0) m_icons.reserve(static_cast<std::size_t>(initial));
  return TRUE;
}

int CImageList::Add(HICON icon) {
  m_icons.push_back(iconResourceId(icon));
  return GetImageCount() - 1;
}

UINT CImageList::iconAt(int index) const {
  return index >= 0 && index < GetImageCount() ? m_icons[static_cast<std::size_t>(index)] : 0;
}

BOOL CImageList::DeleteImageList() {
  m_icons.clear();
  return TRUE;
}
