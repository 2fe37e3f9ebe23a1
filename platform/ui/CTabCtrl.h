// The tab control of the model: tabs with text, image and item data. Each tab may name
// the page (a child dialog) it shows, so that scripts can address a page by its tab; which
// page is shown is the business of the dialog or of the tab control class built on this.
#pragma once

#include "ui/CWnd.h"

#include <vector>

class CTabCtrl : public CWnd {
public:
  CTabCtrl() = default;

  LONG InsertItem(int index, const wchar_t* text);
  LONG InsertItem(int index, const TCITEM* item);
  BOOL DeleteItem(int index);
  BOOL DeleteAllItems();
  int GetItemCount() const { return static_cast<int>(m_tabs.size()); }
  int GetCurSel() const { return m_cursel; }
  int SetCurSel(int index);  // no notification, as in the framework; the previous tab
  BOOL GetItem(int index, TCITEM* item) const;
  BOOL SetItem(int index, const TCITEM* item);
  CZelString GetItemText(int index) const;
  BOOL GetItemRect(int index, CRect* rect) const;
  // The page area inside the control (larger = FALSE), or the control around a page area.
  void AdjustRect(BOOL larger, CRect* rect) const;

  void setItemPage(int index, CWnd* page);
  CWnd* itemPage(int index) const;

  // What a click on a tab does: TCN_SELCHANGING (a handler may refuse), then the change
  // and TCN_SELCHANGE. False when refused.
  bool selectByUser(int index);

protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::TabControl; }
  void takeStateFrom(CWnd& other) override;

private:
  struct Tab {
    CZelString text;
    int image = -1;
    LPARAM data = 0;
    CWnd* page = nullptr;
  };
  bool valid(int i) const { return i >= 0 && i < GetItemCount(); }
  std::vector<Tab> m_tabs;
  int m_cursel = -1;
};
