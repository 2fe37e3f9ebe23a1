// Frames and controls of classes we do not know, drawn by us: a frame shows its preview's
// display list zoomed to its extents (or only its border while it has none), a control of
// an unknown class a labelled box. A click reaches a notifying frame (STN_CLICKED), a right
// click the context menu of the dialog, as on Windows, where a frame lets the mouse through.
#pragma once

#include "backend/wx/CWxMirror.h"

#include "ui/CDisplayList.h"

class wxDC;

class CWxPreviewMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override;

private:
  void paint(wxDC& dc);
  // What painting needs is kept here: the control may be gone before its widget.
  CDisplayList m_shown;
  int m_paintCount = -1;
  DWORD m_style = 0;
  bool m_frame = true;
  wxString m_label;
};
