#include "ui/CTabCtrl.h"

LONG CTabCtrl::InsertItem(int index, const wchar_t* text) {
  TCITEM item;
  item.mask = TCIF_TEXT;
  item.pszText = text;
  return InsertItem(index, &item);
}

LONG CTabCtrl::InsertItem(int index, const TCITEM* item) {
  if (!item || index < 0) return -1;
  Tab tab;
  if (item->mask & TCIF_TEXT) tab.text = CZelString(item->pszText ? item->pszText : L"");
  if (item->mask & TCIF_IMAGE) tab.image = item->iImage;
  if (item->mask & TCIF_PARAM) tab.data = item->lParam;
  if (index > GetItemCount()) index = GetItemCount();
  m_tabs.insert(m_tabs.begin() + index, tab);
  // The first tab becomes the current one; later ones move the current index along.
  if (m_cursel < 0) m_cursel = 0;
  else if (index <= m_cursel && GetItemCount() > 1) ++m_cursel;
  return index;
}

BOOL CTabCtrl::DeleteItem(int index) {
  if (!valid(index)) return FALSE;
  m_tabs.erase(m_tabs.begin() + index);
  if (m_cursel == index) m_cursel = -1;
  else if (m_cursel > index) --m_cursel;
  return TRUE;
}

BOOL CTabCtrl::DeleteAllItems() {
  m_tabs.clear();
  m_cursel = -1;
  return TRUE;
}

int CTabCtrl::SetCurSel(int index) {
  if (!valid(index)) return -1;
  int old = m_cursel;
  m_cursel = index;
  return old;
}

BOOL CTabCtrl::GetItem(int index, TCITEM* item) const {
  if (!valid(index) || !item) return FALSE;
  const Tab& t = m_tabs[static_cast<std::size_t>(index)];
  if (item->mask & TCIF_TEXT) item->pszText = t.text.c_str();
  if (item->mask & TCIF_IMAGE) item->iImage = t.image;
  if (item->mask & TCIF_PARAM) item->lParam = t.data;
  return TRUE;
}

BOOL CTabCtrl::SetItem(int index, const TCITEM* item) {
  if (!valid(index) || !item) return FALSE;
  Tab& t = m_tabs[static_cast<std::size_t>(index)];
  if (item->mask & TCIF_TEXT) t.text = CZelString(item->pszText ? item->pszText : L"");
  if (item->mask & TCIF_IMAGE) t.image = item->iImage;
  if (item->mask & TCIF_PARAM) t.data = item->lParam;
  return TRUE;
}

CZelString CTabCtrl::GetItemText(int index) const { return valid(index) ? m_tabs[static_cast<std::size_t>(index)].text : CZelString(); }

BOOL CTabCtrl::GetItemRect(int index, CRect* rect) const {
  if (!valid(index) || !rect) return FALSE;
  constexpr int kTabWidth = 80, kTabHeight = 20;
  *rect = CRect(index * kTabWidth, 0, (index + 1) * kTabWidth, kTabHeight);
  return TRUE;
}

void CTabCtrl::AdjustRect(BOOL larger, CRect* rect) const {
  // The tabs take the top 22 pixels; the frame takes 2 pixels on the other sides.
  if (larger) rect->DeflateRect(-2, -22, -2, -2);
  else rect->DeflateRect(2, 22, 2, 2);
}

void CTabCtrl::setItemPage(int index, CWnd* page) {
  if (valid(index)) m_tabs[static_cast<std::size_t>(index)].page = page;
}

CWnd* CTabCtrl::itemPage(int index) const { return valid(index) ? m_tabs[static_cast<std::size_t>(index)].page : nullptr; }

bool CTabCtrl::selectByUser(int index) {
  if (!valid(index)) return false;
  NMHDR hdr;
  if (notifyParent(hdr, TCN_SELCHANGING)) return false;
  m_cursel = index;
  NMHDR changed;
  notifyParent(changed, TCN_SELCHANGE);
  return true;
}

LRESULT CTabCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case TCM_GETCURSEL: return GetCurSel();
    case TCM_SETCURSEL: return SetCurSel(static_cast<int>(wParam));
    case TCM_GETITEMCOUNT: return GetItemCount();
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

void CTabCtrl::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* t = dynamic_cast<CTabCtrl*>(&other)) {
    m_tabs = t->m_tabs;
    m_cursel = t->m_cursel;
  }
}
