// A child dialog (a tab page): a panel that holds the widgets of its controls, in its tab's
// notebook page when the tab control names it, else where the model places it. A click on
// the panel's background reaches the notifying static under it, a right click the context
// menu of the page (as Windows sends WM_CONTEXTMENU through transparent statics).
#pragma once

#include "backend/wx/CWxMirror.h"

class CWxPageMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}
  wxRect placement() const override;

private:
  // The widget the page goes into now: its tab's notebook page, or the dialog around it.
  wxWindow* wantedParent() const;
};
