#include "backend/wx/CWxPreviewMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "backend/wx/CWxPreviewPainter.h"
#include "ui/CStatic.h"
#include "ui/CUserAction.h"

#include <wx/dcbuffer.h>
#include <wx/window.h>

wxWindow* CWxPreviewMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* canvas = new wxWindow(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE);
  canvas->SetBackgroundStyle(wxBG_STYLE_PAINT);
  canvas->Bind(wxEVT_PAINT, [this, canvas](wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(canvas);
    paint(dc);
  });
  m_style = m_control->GetStyle();
  m_frame = m_control->kind() == WndKind::Frame;
  m_label = wxString(m_control->className().str());
  CWnd* control = m_control;
  canvas->Bind(wxEVT_LEFT_DOWN, [this, control](wxMouseEvent& event) {
    event.Skip();
    if (!ignoringEvents() && (control->GetStyle() & SS_NOTIFY)) act([control] { return CUserAction::click(*control); });
  });
  return canvas;
}

void CWxPreviewMirror::showText(const wxString&) { m_native->Refresh(); }

void CWxPreviewMirror::syncState() {
  // The model counts its repaints (Invalidate); a new one, or a new list, is drawn again.
  m_style = m_control->GetStyle();
  auto* s = dynamic_cast<CStatic*>(m_control);
  if (!s) return;
  if (m_control->paintCount() == m_paintCount && s->displayList() == m_shown) return;
  m_paintCount = m_control->paintCount();
  m_shown = s->displayList();
  m_native->Refresh();
}

void CWxPreviewMirror::paint(wxDC& dc) {
  wxRect all(wxPoint(0, 0), m_native->GetClientSize());
  dc.SetBackground(wxBrush(m_native->GetParent()->GetBackgroundColour()));
  dc.Clear();
  if (!m_shown.isEmpty()) CWxPreviewPainter(m_shown, all.Deflate(1)).paint(dc);
  if (!m_frame) {
    // A control of a class we do not know: a box with its class name.
    dc.SetPen(wxPen(wxColour(128, 128, 128)));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(all);
    dc.DrawLabel(m_label, all, wxALIGN_CENTRE);
    return;
  }
  // The frame's border: black, grey, white or etched, as its style says.
  DWORD type = m_style & SS_TYPEMASK;
  wxColour border(0, 0, 0);
  if (type == SS_GRAYFRAME) border = wxColour(128, 128, 128);
  else if (type == SS_WHITEFRAME) border = *wxWHITE;
  dc.SetPen(wxPen(border));
  dc.SetBrush(type == SS_BLACKRECT ? *wxBLACK_BRUSH : *wxTRANSPARENT_BRUSH);
  if (type == SS_ETCHEDFRAME) {
    dc.SetPen(wxPen(wxColour(160, 160, 160)));
    dc.DrawRectangle(all);
    dc.SetPen(*wxWHITE_PEN);
    dc.DrawRectangle(all.Deflate(1));
  } else {
    dc.DrawRectangle(all);
  }
}
