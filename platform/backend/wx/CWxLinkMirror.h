// SysLink controls: the text without its anchor tags; with a link it is shown as a
// hyperlink, whose click is the model's NM_CLICK with the target (the dialog decides what to
// open); a text without a link is plain text that does nothing when clicked. The widget is a
// panel holding both, one of them shown.
#pragma once

#include "backend/wx/CWxMirror.h"

class wxHyperlinkCtrl;
class wxStaticText;

class CWxLinkMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

  // The widget that shows the text now: the hyperlink or the plain text.
  wxWindow* shownPart() const;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void showText(const wxString& text) override;

private:
  wxHyperlinkCtrl* m_link = nullptr;
  wxStaticText* m_plain = nullptr;
};
