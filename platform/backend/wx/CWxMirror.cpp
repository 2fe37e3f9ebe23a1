#include "backend/wx/CWxMirror.h"

#include "backend/wx/CWxButtonMirror.h"
#include "backend/wx/CWxComboMirror.h"
#include "backend/wx/CWxDialogWindow.h"
#include "backend/wx/CWxEditMirror.h"
#include "backend/wx/CWxLinkMirror.h"
#include "backend/wx/CWxListBoxMirror.h"
#include "backend/wx/CWxListViewMirror.h"
#include "backend/wx/CWxPageMirror.h"
#include "backend/wx/CWxPreviewMirror.h"
#include "backend/wx/CWxStaticMirror.h"
#include "backend/wx/CWxTabMirror.h"
#include "backend/wx/CWxTreeMirror.h"
#include "ui/CUserAction.h"

#include <wx/window.h>

CWxMirror::CWxMirror(CWnd& control, CWxDialogWindow& window)
    : m_control(&control), m_window(window), m_kind(control.kind()), m_id(control.GetDlgCtrlID()) {}

std::unique_ptr<CWxMirror> CWxMirror::create(CWnd& control, CWxDialogWindow& window, wxWindow* parent) {
  std::unique_ptr<CWxMirror> m;
  switch (control.kind()) {
    case WndKind::PushButton:
    case WndKind::CheckBox:
    case WndKind::RadioButton: m = std::make_unique<CWxButtonMirror>(control, window); break;
    case WndKind::Text:
    case WndKind::GroupBox:
    case WndKind::Icon: m = std::make_unique<CWxStaticMirror>(control, window); break;
    case WndKind::Edit: m = std::make_unique<CWxEditMirror>(control, window); break;
    case WndKind::ComboBox: m = std::make_unique<CWxComboMirror>(control, window); break;
    case WndKind::ListBox:
    case WndKind::CheckListBox: m = std::make_unique<CWxListBoxMirror>(control, window); break;
    case WndKind::TreeView: m = std::make_unique<CWxTreeMirror>(control, window); break;
    case WndKind::TabControl: m = std::make_unique<CWxTabMirror>(control, window); break;
    case WndKind::ListView: m = std::make_unique<CWxListViewMirror>(control, window); break;
    case WndKind::SysLink: m = std::make_unique<CWxLinkMirror>(control, window); break;
    case WndKind::Dialog: m = std::make_unique<CWxPageMirror>(control, window); break;
    // Frames (the preview) and controls of classes we do not know are drawn by us.
    case WndKind::Frame:
    case WndKind::Custom:
    case WndKind::Window: m = std::make_unique<CWxPreviewMirror>(control, window); break;
  }
  m->m_rect = m->placement();
  m->m_native = m->build(parent, m->m_rect);
  m->attach();
  return m;
}

void CWxMirror::attach() {
  if (!m_native) return;
  m_native->Bind(wxEVT_CONTEXT_MENU, &CWxMirror::onContextMenu, this);
  bindFocus(m_native);
}

void CWxMirror::bindFocus(wxWindow* w) {
  // Composite widgets (lists, trees) take the focus in an inner window.
  w->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    if (!ignoringEvents()) m_window.focusFromUser(*m_control);
  });
  w->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    if (!ignoringEvents()) m_window.focusLost(event.GetWindow());
  });
  for (wxWindow* child : w->GetChildren()) bindFocus(child);
}

bool CWxMirror::ignoringEvents() const { return m_detached || !m_window.acceptsInput(); }

void CWxMirror::act(const std::function<std::string()>& action) {
  if (ignoringEvents()) return;
  m_window.userAction(action);
}

wxRect CWxMirror::placement() const { return m_window.placementOf(*m_control); }

CPoint CWxMirror::modelPoint(wxPoint nativeClient) const {
  wxPoint p = m_window.units().toModelPixels(nativeClient);
  return CPoint(p.x, p.y);
}

void CWxMirror::onContextMenu(wxContextMenuEvent& event) {
  if (ignoringEvents()) return;
  wxPoint screen = event.GetPosition();
  // The context-menu key gives no position: the control's middle, as Windows does.
  wxPoint client = screen == wxDefaultPosition ? wxPoint(m_native->GetSize().x / 2, m_native->GetSize().y / 2)
                                               : m_native->ScreenToClient(screen);
  CPoint at = modelPoint(client);
  CWnd* control = m_control;
  act([control, at] { return CUserAction::rightClick(*control, at); });
}

void CWxMirror::showText(const wxString& text) { m_native->SetLabel(text); }

void CWxMirror::sync() {
  if (!m_native) return;
  CWnd& c = *m_control;
  // A new widget stands where it should, enabled, shown and without a tooltip: only what
  // differs from that is changed (each change costs GTK a new layout).
  wxRect rect = placement();
  if (rect != m_rect) {
    m_rect = rect;
    m_native->SetSize(rect);
  }
  std::wstring text = c.GetWindowText().str();
  if (!m_synced || text != m_text) {
    m_text = text;
    showText(wxString(text));
  }
  bool enabled = c.IsWindowEnabled() != 0;
  if (enabled != m_enabled) {
    m_enabled = enabled;
    m_native->Enable(enabled);
  }
  const std::wstring& tip = c.toolTipText().str();
  if (tip != m_toolTip) {
    m_toolTip = tip;
    if (tip.empty()) m_native->UnsetToolTip();
    else m_native->SetToolTip(wxString(tip));
  }
  syncState();
  bool shown = c.isShownItself();
  if (shown != m_shown) {
    m_shown = shown;
    m_native->Show(shown);
  }
  m_synced = true;
}

void CWxMirror::detach() {
  m_detached = true;
  if (m_native) m_native->Hide();
}

void CWxMirror::destroyNative() {
  if (!m_native) return;
  m_native->Destroy();
  m_native = nullptr;
}
