#include "backend/wx/CWxStaticMirror.h"

#include "backend/wx/CWxIcons.h"

#include <wx/statbmp.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

namespace {
// Static styles the control model keeps but does not name.
constexpr DWORD kNoPrefix = 0x80;
}  // namespace

wxWindow* CWxStaticMirror::build(wxWindow* parent, const wxRect& rect) {
  DWORD style = m_control->GetStyle();
  switch (m_control->kind()) {
    case WndKind::GroupBox: return new wxStaticBox(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize());
    case WndKind::Icon: return new wxStaticBitmap(parent, wxID_ANY, wxBitmap(), rect.GetPosition(), rect.GetSize());
    default: {
      long align = wxALIGN_LEFT;
      if ((style & SS_TYPEMASK) == SS_CENTER) align = wxALIGN_CENTRE_HORIZONTAL;
      else if ((style & SS_TYPEMASK) == SS_RIGHT) align = wxALIGN_RIGHT;
      return new wxStaticText(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), align | wxST_NO_AUTORESIZE);
    }
  }
}

void CWxStaticMirror::showText(const wxString& text) {
  if (m_control->kind() == WndKind::Icon) return;
  if (m_control->kind() == WndKind::GroupBox) {
    m_native->SetLabel(text);
    return;
  }
  auto* label = static_cast<wxStaticText*>(m_native);
  DWORD style = m_control->GetStyle();
  // SS_NOPREFIX: an ampersand is shown, not taken as the mnemonic mark.
  if (style & kNoPrefix) label->SetLabelText(text);
  else label->SetLabel(text);
  // Windows breaks the lines of left, centred and right texts at the control's width.
  DWORD type = style & SS_TYPEMASK;
  if (type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT) label->Wrap(m_native->GetSize().x);
}

void CWxStaticMirror::syncState() {
  if (m_control->kind() != WndKind::Icon) return;
  UINT image = m_control->imageId();
  if (m_imageShown && image == m_image) return;
  m_image = image;
  m_imageShown = true;
  int size = m_native->GetSize().y >= 28 ? 32 : 16;
  static_cast<wxStaticBitmap*>(m_native)->SetBitmap(CWxIcons::bitmap(image, size));
}
