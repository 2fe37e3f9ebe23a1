#include "backend/wx/CWxLinkMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CLinkCtrl.h"
#include "ui/CUserAction.h"

#include <wx/hyperlink.h>

wxWindow* CWxLinkMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* link = new wxHyperlinkCtrl(parent, wxID_ANY, "-", "-", rect.GetPosition(), rect.GetSize(),
                                   wxHL_ALIGN_LEFT | wxBORDER_NONE);
  CWnd* control = m_control;
  // Not skipped: the browser is the dialog's business, not the widget's.
  link->Bind(wxEVT_HYPERLINK, [this, control](wxHyperlinkEvent&) { act([control] { return CUserAction::click(*control); }); });
  return link;
}

void CWxLinkMirror::showText(const wxString&) {
  auto* model = dynamic_cast<CLinkCtrl*>(m_control);
  auto* link = static_cast<wxHyperlinkCtrl*>(m_native);
  if (!model) return;
  wxString label(model->displayText().str()), url(model->linkUrl().str());
  link->SetLabel(label);
  link->SetURL(url.empty() ? label : url);
}
