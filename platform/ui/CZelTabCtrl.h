// The tab control of the main dialogs: each tab shows a page dialog created from its own
// template inside the control; switching tabs shows that page and hides the others.
#pragma once

#include "ui/CTabCtrl.h"

class CDialog;

class CZelTabCtrl : public CTabCtrl {
public:
  // Creates the page from its template inside the control and inserts its tab; the page
  // object stays the caller's. -1 when the page cannot be created.
  int InsertItem(int index, const wchar_t* title, CDialog* page, UINT templateId);
  using CTabCtrl::InsertItem;
  // The template of the page at a tab; false when there is no such tab.
  bool GetDlgIDD(int index, UINT& templateId) const;
  // Removes every tab and closes the pages' windows.
  BOOL DeleteAllItems();
  // Selects a tab and shows its page (no notification, as a program's selection).
  int SetCurSel(int index);
  CDialog* page(int index) const;

protected:
  bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
  void showCurrentPage();
  std::vector<UINT> m_templates;
};
