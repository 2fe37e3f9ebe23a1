#include "backend/wx/CWxEditMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CEdit.h"
#include "ui/CUserAction.h"

#include <wx/textctrl.h>

namespace {
constexpr DWORD kCenter = 0x1, kRight = 0x2;  // ES_CENTER, ES_RIGHT
}  // namespace

bool CWxEditMirror::multiLine() const { return (m_control->GetStyle() & ES_MULTILINE) != 0; }

wxWindow* CWxEditMirror::build(wxWindow* parent, const wxRect& rect) {
  DWORD style = m_control->GetStyle();
  long wxStyle = 0;
  if (style & ES_MULTILINE) wxStyle |= wxTE_MULTILINE;
  if (style & ES_PASSWORD) wxStyle |= wxTE_PASSWORD;
  if ((style & 0x3) == kCenter) wxStyle |= wxTE_CENTRE;
  else if ((style & 0x3) == kRight) wxStyle |= wxTE_RIGHT;
  if ((style & ES_MULTILINE) && (style & ES_WANTRETURN)) wxStyle |= wxTE_PROCESS_ENTER;
  auto* text = new wxTextCtrl(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), wxStyle);
  CWnd* control = m_control;
  text->Bind(wxEVT_TEXT, [this, control, text](wxCommandEvent&) {
    wxString typed = text->GetValue();
    // Multi-line edits keep Windows line ends.
    if (multiLine()) typed.Replace("\n", "\r\n");
    std::wstring value = typed.ToStdWstring();
    if (value == control->GetWindowText().str()) return;
    act([control, value] { return CUserAction::type(*control, CZelString(value)); });
  });
  return text;
}

void CWxEditMirror::showText(const wxString& text) {
  auto* t = static_cast<wxTextCtrl*>(m_native);
  wxString shown = text;
  if (multiLine()) shown.Replace("\r\n", "\n");
  // The text the user just typed is the model's text: leave the caret where it is.
  if (t->GetValue() != shown) t->ChangeValue(shown);
}

void CWxEditMirror::syncState() {
  // Compared with the widget every time: a typed text the model refused must go again.
  showText(wxString(m_control->GetWindowText().str()));
  auto* e = dynamic_cast<CEdit*>(m_control);
  bool readOnly = e && e->isReadOnly();
  if (m_stateShown && readOnly == m_readOnly) return;
  m_stateShown = true;
  m_readOnly = readOnly;
  static_cast<wxTextCtrl*>(m_native)->SetEditable(!readOnly);
}
