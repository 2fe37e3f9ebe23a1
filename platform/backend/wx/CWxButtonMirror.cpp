#include "backend/wx/CWxButtonMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "backend/wx/CWxGtk.h"
#include "backend/wx/CWxIcons.h"
#include "ui/CButton.h"
#include "ui/CDialog.h"
#include "ui/CUserAction.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/tglbtn.h>

CButton& CWxButtonMirror::button() const { return static_cast<CButton&>(*m_control); }

wxWindow* CWxButtonMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* b = dynamic_cast<CButton*>(m_control);
  bool pushLike = b && b->isPushLike();
  wxWindow* w = nullptr;
  CWnd* control = m_control;
  auto click = [this, control](wxCommandEvent&) { act([control] { return CUserAction::click(*control); }); };
  switch (m_control->kind()) {
    case WndKind::CheckBox:
    case WndKind::RadioButton:
      if (pushLike) {
        m_shape = Shape::Toggle;
        // An icon button shows only its icon, as the push buttons below.
        long style = (m_control->GetStyle() & BS_ICON) ? wxBU_NOTEXT : 0;
        auto* t = new wxToggleButton(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), style);
        t->Bind(wxEVT_TOGGLEBUTTON, click);
        w = t;
      } else if (m_control->kind() == WndKind::CheckBox) {
        m_shape = Shape::Check;
        DWORD type = b ? b->buttonType() : BS_AUTOCHECKBOX;
        long style = (type == BS_3STATE || type == BS_AUTO3STATE) ? wxCHK_3STATE | wxCHK_ALLOW_3RD_STATE_FOR_USER : 0;
        auto* c = new wxCheckBox(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), style);
        c->Bind(wxEVT_CHECKBOX, click);
        w = c;
      } else {
        m_shape = Shape::Radio;
        std::vector<CButton*> group = b ? b->groupRadios() : std::vector<CButton*>{};
        m_leadsGroup = group.empty() || group.front() == b;
        auto* r = new wxRadioButton(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(),
                                    m_leadsGroup ? wxRB_GROUP : 0);
        r->Bind(wxEVT_RADIOBUTTON, click);
        if (m_leadsGroup) {
          m_noneOfGroup = new wxRadioButton(parent, wxID_ANY, wxString(), wxPoint(-100, -100), wxSize(1, 1));
          m_noneOfGroup->Hide();
        }
        w = r;
      }
      break;
    default: {
      m_shape = Shape::Push;
      // An icon button never shows its text; GTK must know that before it gets an image.
      long style = wxBU_EXACTFIT | ((m_control->GetStyle() & BS_ICON) ? wxBU_NOTEXT : 0);
      auto* p = new wxButton(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), style);
      p->Bind(wxEVT_BUTTON, click);
      auto* dialog = dynamic_cast<CDialog*>(m_control->GetParent());
      if ((b && b->buttonType() == BS_DEFPUSHBUTTON) ||
          (dialog && dialog->GetDefID() == static_cast<DWORD>(m_control->GetDlgCtrlID())))
        p->SetDefault();
      w = p;
      break;
    }
  }
  if (m_shape == Shape::Check || m_shape == Shape::Radio) CWxGtk::ellipsizeLabel(*w);
  return w;
}

void CWxButtonMirror::showText(const wxString& text) { m_native->SetLabel(text); }

void CWxButtonMirror::showImage() {
  UINT image = m_control->imageId();
  if (image == m_image) return;
  m_image = image;
  auto* any = dynamic_cast<wxAnyButton*>(m_native);
  if (!any) return;
  any->SetBitmap(image ? CWxIcons::bitmap(image, 16) : wxBitmap());
}

void CWxButtonMirror::syncState() {
  showImage();
  auto* b = dynamic_cast<CButton*>(m_control);
  if (!b) return;
  int check = b->GetCheck();
  switch (m_shape) {
    case Shape::Push: break;
    case Shape::Toggle: static_cast<wxToggleButton*>(m_native)->SetValue(check == BST_CHECKED); break;
    case Shape::Check: {
      auto* c = static_cast<wxCheckBox*>(m_native);
      wxCheckBoxState state = check == BST_CHECKED ? wxCHK_CHECKED : check == 2 && c->Is3State() ? wxCHK_UNDETERMINED : wxCHK_UNCHECKED;
      if (c->Get3StateValue() != state) c->Set3StateValue(state);
      break;
    }
    case Shape::Radio: {
      auto* r = static_cast<wxRadioButton*>(m_native);
      if (check == BST_CHECKED && !r->GetValue()) r->SetValue(true);
      if (!m_leadsGroup || !m_noneOfGroup) break;
      bool any = false;
      for (CButton* mate : b->groupRadios()) any = any || mate->GetCheck() == BST_CHECKED;
      if (!any) m_noneOfGroup->SetValue(true);
      break;
    }
  }
}
