#include "backend/wx/CWxPageMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CDialog.h"

#include <wx/panel.h>

wxWindow* CWxPageMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* panel = new wxPanel(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), wxTAB_TRAVERSAL | wxBORDER_NONE);
  m_window.bindBackground(*panel, static_cast<CDialog&>(*m_control), this);
  return panel;
}

wxWindow* CWxPageMirror::wantedParent() const {
  CWnd* parent = m_control->GetParent();
  if (CWxMirror* holder = m_window.mirrorOf(parent))
    if (wxWindow* page = holder->containerFor(*m_control)) return page;
  return nullptr;
}

wxRect CWxPageMirror::placement() const {
  // In a notebook page the page dialog fills it; elsewhere it stands where the model has it.
  if (m_native && m_native->GetParent() == wantedParent() && wantedParent())
    return wxRect(wxPoint(0, 0), m_native->GetParent()->GetClientSize());
  return CWxMirror::placement();
}

void CWxPageMirror::syncState() {
  wxWindow* wanted = wantedParent();
  if (wanted && m_native->GetParent() != wanted) {
    m_native->Reparent(wanted);
    m_native->SetSize(wxRect(wxPoint(0, 0), wanted->GetClientSize()));
  }
}
