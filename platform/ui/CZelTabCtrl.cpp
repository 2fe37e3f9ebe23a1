#include "ui/CZelTabCtrl.h"

#include "ui/CZelDlg.h"

int CZelTabCtrl::InsertItem(int index, const wchar_t* title, CDialog* page, UINT templateId) {
  if (!page || !m_hWnd) return -1;
  // A page speaks the language of the dialog it sits in.
  auto* zelPage = dynamic_cast<CZelDlg*>(page);
  for (CWnd* w = GetParent(); zelPage && w; w = w->GetParent())
    if (auto* owner = dynamic_cast<CZelDlg*>(w)) {
      zelPage->SetCountry(owner->country());
      break;
    }
  if (!page->GetSafeHwnd() && !page->Create(templateId, this)) return -1;
  if (index < 0 || index > GetItemCount()) index = GetItemCount();
  LONG at = CTabCtrl::InsertItem(index, title);
  if (at < 0) return -1;
  setItemPage(at, page);
  m_templates.insert(m_templates.begin() + at, templateId);
  // The page fills the page area of the control.
  CRect area;
  GetClientRect(&area);
  AdjustRect(FALSE, &area);
  page->MoveWindow(area);
  if (GetCurSel() < 0) CTabCtrl::SetCurSel(at);
  showCurrentPage();
  return at;
}

bool CZelTabCtrl::GetDlgIDD(int index, UINT& templateId) const {
  if (index < 0 || index >= static_cast<int>(m_templates.size())) return false;
  templateId = m_templates[static_cast<std::size_t>(index)];
  return true;
}

BOOL CZelTabCtrl::DeleteAllItems() {
  for (int i = 0; i < GetItemCount(); ++i)
    if (CWnd* p = itemPage(i); p && p->GetSafeHwnd()) p->DestroyWindow();
  m_templates.clear();
  return CTabCtrl::DeleteAllItems();
}

int CZelTabCtrl::SetCurSel(int index) {
  int previous = CTabCtrl::SetCurSel(index);
  showCurrentPage();
  return previous;
}

CDialog* CZelTabCtrl::page(int index) const { return dynamic_cast<CDialog*>(itemPage(index)); }

bool CZelTabCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  // The user's tab change shows the new page before the dialog hears of it.
  if (message == WM_NOTIFY && lParam) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->code == TCN_SELCHANGE) showCurrentPage();
  }
  return CTabCtrl::OnChildNotify(message, wParam, lParam, result);
}

void CZelTabCtrl::showCurrentPage() {
  for (int i = 0; i < GetItemCount(); ++i)
    if (CWnd* p = itemPage(i); p && p->GetSafeHwnd()) p->ShowWindow(i == GetCurSel() ? SW_SHOW : SW_HIDE);
}
