// SysLink controls: the text without its anchor tags as a hyperlink; a click is the model's
// NM_CLICK with the target, and the dialog decides what to open.
#pragma once

#include "backend/wx/CWxMirror.h"

class CWxLinkMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void showText(const wxString& text) override;
};
