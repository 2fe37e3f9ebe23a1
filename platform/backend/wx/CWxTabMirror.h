// The tab control: a notebook whose tabs are the model's tabs. Each tab holds an empty page
// in which the tab's page dialog (the model's, named by the tab) is shown; which tab is
// current is the model's: a click on a tab is refused natively and handed to the model
// (TCN_SELCHANGING, TCN_SELCHANGE), whose handler shows its page.
#pragma once

#include "backend/wx/CWxMirror.h"

#include <string>
#include <vector>

class CTabCtrl;
class wxNotebook;
class wxPanel;

class CWxTabMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

  wxWindow* containerFor(const CWnd& child) override;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}

private:
  CTabCtrl& tab() const;
  wxNotebook* notebook() const;

  // Pages of the notebook are never destroyed while the window lives: page dialogs' widgets
  // may sit in them.
  std::vector<wxPanel*> m_pages;
  std::vector<std::wstring> m_titles;
  int m_shownTabs = 0;
};
