#include "backend/wx/CWxLinkMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CLinkCtrl.h"
#include "ui/CUserAction.h"

#include <wx/hyperlink.h>
#include <wx/panel.h>
#include <wx/stattext.h>

wxWindow* CWxLinkMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* panel = new wxPanel(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), wxTAB_TRAVERSAL | wxBORDER_NONE);
  wxSize size = panel->GetClientSize();
  m_link = new wxHyperlinkCtrl(panel, wxID_ANY, "-", "-", wxPoint(0, 0), size, wxHL_ALIGN_LEFT | wxBORDER_NONE);
  m_plain = new wxStaticText(panel, wxID_ANY, wxString(), wxPoint(0, 0), size, wxALIGN_LEFT | wxST_NO_AUTORESIZE);
  m_plain->Hide();
  CWnd* control = m_control;
  // Not skipped: the browser is the dialog's business, not the widget's.
  m_link->Bind(wxEVT_HYPERLINK, [this, control](wxHyperlinkEvent&) { act([control] { return CUserAction::click(*control); }); });
  panel->Bind(wxEVT_SIZE, [this, panel](wxSizeEvent& event) {
    event.Skip();
    wxSize inner = panel->GetClientSize();
    m_link->SetSize(inner);
    m_plain->SetSize(inner);
  });
  return panel;
}

wxWindow* CWxLinkMirror::shownPart() const {
  if (m_plain && m_plain->IsShown()) return m_plain;
  return m_link;
}

void CWxLinkMirror::showText(const wxString&) {
  auto* model = dynamic_cast<CLinkCtrl*>(m_control);
  if (!model || !m_link) return;
  wxString label(model->displayText().str()), url(model->linkUrl().str());
  // A text with no link (or one without a target) is no hyperlink: nothing to click.
  bool linked = !url.empty();
  if (linked) {
    m_link->SetLabel(label);
    m_link->SetURL(url);
  } else {
    m_plain->SetLabelText(label);
  }
  if (m_link->IsShown() != linked) {
    m_link->Show(linked);
    m_plain->Show(!linked);
  }
}
