#include "backend/wx/CWxDialogWindow.h"

#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxListViewMirror.h"
#include "backend/wx/CWxMirror.h"
#include "ui/CDialog.h"
#include "ui/CListCtrl.h"
#include "ui/CUserAction.h"

#include <wx/dcclient.h>

#include <unordered_set>

namespace {

UINT virtualKey(int wxKey) {
  switch (wxKey) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: return VK_RETURN;
    case WXK_ESCAPE: return VK_ESCAPE;
    case WXK_UP: return VK_UP;
    case WXK_DOWN: return VK_DOWN;
    case WXK_HOME: return VK_HOME;
    case WXK_END: return VK_END;
    case WXK_DELETE: return VK_DELETE;
    default: return 0;
  }
}

}  // namespace

CWxDialogWindow::CWxDialogWindow(CWxBackend& backend, CDialog& dialog, wxWindow* owner)
    : wxDialog(owner, wxID_ANY, wxString(dialog.GetWindowText().str()), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX),
      m_backend(backend), m_dialog(&dialog) {
  m_font = CWxDialogUnits::templateFont(dialog.dialogTemplate());
  // Widgets with a font of their own each cost GTK a style sheet; the standard font is the
  // toolkit's default already.
  if (m_font != CWxDialogUnits::standardFont()) SetFont(m_font);
  m_units = CWxDialogUnits::measure(m_font, *this);
  const CRect& dlu = dialog.dialogUnitRect();
  SetClientSize(m_units.x(dlu.right), m_units.y(dlu.bottom));
  // Enter, Escape and the close box are the model's: its dialog manager decides.
  SetEscapeId(wxID_NONE);
  SetAffirmativeId(wxID_NONE);
  Bind(wxEVT_CHAR_HOOK, &CWxDialogWindow::onCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, &CWxDialogWindow::onClose, this);
  Bind(wxEVT_SHOW, &CWxDialogWindow::onShow, this);
  Bind(wxEVT_PAINT, &CWxDialogWindow::onPaint, this);
  bindBackground(*this, dialog);
}

CWxDialogWindow::~CWxDialogWindow() {
  // The widgets go first, while the mirrors their handlers name still exist.
  m_closed = true;
  DestroyChildren();
  m_mirrors.clear();
  m_detached.clear();
}

void CWxDialogWindow::close() {
  m_closed = true;
  m_index.clear();
}

CWxMirror* CWxDialogWindow::mirrorOf(const CWnd* control) const {
  auto it = m_index.find(control);
  return it == m_index.end() ? nullptr : it->second;
}

void CWxDialogWindow::userAction(const std::function<std::string()>& action) {
  if (!acceptsInput()) return;
  m_backend.userAction(action);
}

// --- following the model ----------------------------------------------------------------

void CWxDialogWindow::sync() {
  if (m_closed || m_syncing) return;
  m_syncing = true;
  reconcile();
  for (auto& m : m_mirrors) m->sync();
  wxString title(m_dialog->GetWindowText().str());
  if (GetTitle() != title) SetTitle(title);
  bool enabled = m_dialog->IsWindowEnabled() != 0;
  if (IsEnabled() != enabled) Enable(enabled);
  syncFocus();
  m_syncing = false;
}

void CWxDialogWindow::reconcile() {
  std::unordered_map<const CWnd*, std::unique_ptr<CWxMirror>> old;
  for (auto& m : m_mirrors) {
    const CWnd* key = &m->control();
    old.emplace(key, std::move(m));
  }
  m_mirrors.clear();
  m_index.clear();
  std::vector<std::unique_ptr<CWxMirror>> next;
  walk(*m_dialog, nullptr, this, old, next);
  m_mirrors = std::move(next);
  // Controls that left the model: their widgets are hidden now and go when no event of
  // theirs can be running any more.
  for (auto& [key, m] : old) {
    m->detach();
    m_detached.push_back(std::move(m));
  }
}

void CWxDialogWindow::walk(CWnd& parent, CWxMirror* parentMirror, wxWindow* container,
                           std::unordered_map<const CWnd*, std::unique_ptr<CWxMirror>>& old,
                           std::vector<std::unique_ptr<CWxMirror>>& next) {
  bool parentIsDialog = parent.kind() == WndKind::Dialog;
  for (CWnd* child : parent.children()) {
    if (!child->GetSafeHwnd()) continue;
    bool isDialog = child->kind() == WndKind::Dialog;
    // The parts of a control (a combo's edit field, a list's label editor) are its widget's.
    if (!parentIsDialog && !isDialog) continue;
    std::unique_ptr<CWxMirror> m;
    auto it = old.find(child);
    if (it != old.end() && it->second->shows(child)) {
      m = std::move(it->second);
      old.erase(it);
    } else {
      wxWindow* where = container;
      if (isDialog && parentMirror)
        if (wxWindow* page = parentMirror->containerFor(*child)) where = page;
      m = CWxMirror::create(*child, *this, where);
    }
    CWxMirror* raw = m.get();
    m_index[child] = raw;
    next.push_back(std::move(m));
    walk(*child, raw, isDialog ? raw->native() : container, old, next);
  }
}

void CWxDialogWindow::buryDetached() {
  // A page that went took its controls' widgets with it: those are destroyed with the page's.
  std::unordered_set<wxWindow*> going;
  for (auto& m : m_detached)
    if (m->native()) going.insert(m->native());
  for (auto& m : m_detached) {
    bool withParent = false;
    for (wxWindow* p = m->native() ? m->native()->GetParent() : nullptr; p && !withParent; p = p->GetParent())
      withParent = going.count(p) > 0;
    if (withParent) m->forgetNative();
  }
  for (auto& m : m_detached) m->destroyNative();
  m_detached.clear();
}

void CWxDialogWindow::syncFocus() {
  if (!m_live || m_backend.topWindow() != this) return;
  CWnd* focus = CWnd::GetFocus();
  if (focus == m_modelFocus) return;
  m_modelFocus = focus;
  CWxMirror* m = mirrorOf(focus);
  if (m && m->native() && m->native()->IsShownOnScreen() && m->native()->IsEnabled()) m->native()->SetFocus();
}

wxRect CWxDialogWindow::placementOf(const CWnd& control) const {
  const CWnd* parent = control.GetParent();
  const CWnd* around = parent;
  while (around && around->kind() != WndKind::Dialog) around = around->GetParent();
  if (!around) return wxRect();
  CRect c, a;
  control.GetWindowRect(&c);
  around->GetWindowRect(&a);
  CRect rel(c.left - a.left, c.top - a.top, c.right - a.left, c.bottom - a.top);
  if (parent == around) {
    // Where the template put it, the template's dialog units in our font's pixels.
    const CRect& dlu = control.dialogUnitRect();
    CRect mapped(dlu.left, dlu.top, dlu.left + dlu.right, dlu.top + dlu.bottom);
    CWnd::MapDialogRect(&mapped);
    if (rel == mapped) return m_units.fromDialogUnits(dlu);
  }
  // Moved by the dialog: its pixels, counted in the model's base units, in ours.
  return m_units.fromModelPixels(rel);
}

// --- input -------------------------------------------------------------------------------

void CWxDialogWindow::focusFromUser(CWnd& control) {
  if (control.hasFocus()) {
    m_modelFocus = &control;
    return;
  }
  m_modelFocus = &control;
  CWnd* c = &control;
  userAction([c] {
    c->SetFocus();
    return std::string();
  });
}

void CWxDialogWindow::focusLost(wxWindow* newFocus) {
  // Only a move to the dialog itself matters here: a move to a control brings that
  // control's own focus event, and a move to another window (a message box opening, another
  // application) leaves the dialog's focus where it was, as the model keeps it.
  if (newFocus != this) return;
  CDialog* d = m_dialog;
  m_modelFocus = d;
  userAction([d] {
    d->SetFocus();
    return std::string();
  });
}

void CWxDialogWindow::onCharHook(wxKeyEvent& event) {
  if (!acceptsInput() || event.HasAnyModifiers()) {
    event.Skip();
    return;
  }
  CWnd* target = CWnd::GetFocus();
  if (!target) target = m_dialog;
  auto* view = dynamic_cast<CListCtrl*>(target);
  // The label editor of a list view takes its own keys.
  if (view && view->editingRow() >= 0) {
    event.Skip();
    return;
  }
  int key = event.GetKeyCode();
  bool dialogKey = key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_ESCAPE;
  if (!dialogKey && !(view && CWxListViewMirror::takesKey(key))) {
    event.Skip();
    return;
  }
  DWORD style = target->GetStyle();
  if (key != WXK_ESCAPE && target->kind() == WndKind::Edit && (style & ES_MULTILINE) && (style & ES_WANTRETURN)) {
    event.Skip();
    return;
  }
  UINT vk = virtualKey(key);
  userAction([target, vk] { return CUserAction::pressKey(*target, vk); });
}

void CWxDialogWindow::onClose(wxCloseEvent& event) {
  if (event.CanVeto()) event.Veto();
  if (!acceptsInput()) return;
  CDialog* d = m_dialog;
  userAction([d] {
    d->SendMessage(WM_CLOSE);
    return std::string();
  });
}

void CWxDialogWindow::onShow(wxShowEvent& event) {
  event.Skip();
  if (!event.IsShown()) return;
  // Input is taken once the window is up: the focus events of showing it are GTK's, not
  // the user's, and the model's focus is given to the window instead.
  CallAfter([this] {
    if (m_closed) return;
    m_live = true;
    m_modelFocus = nullptr;
    sync();
  });
}

void CWxDialogWindow::onPaint(wxPaintEvent&) {
  wxPaintDC dc(this);
  if (m_painted) return;
  m_painted = true;
  double ms = std::chrono::duration<double, std::milli>(Clock::now() - m_openingStart).count();
  if (onFirstPaint) onFirstPaint(*this, ms);
}

void CWxDialogWindow::bindBackground(wxWindow& surface, CDialog& dialog, const CWxMirror* owner) {
  wxWindow* s = &surface;
  CDialog* d = &dialog;
  auto gone = [this, owner] { return !acceptsInput() || (owner && owner->isDetached()); };
  surface.Bind(wxEVT_LEFT_DOWN, [this, s, d, gone](wxMouseEvent& event) {
    event.Skip();
    if (gone()) return;
    if (CWnd* hit = staticAt(*d, *s, event.GetPosition())) userAction([hit] { return CUserAction::click(*hit); });
  });
  surface.Bind(wxEVT_CONTEXT_MENU, [this, s, d, gone](wxContextMenuEvent& event) {
    if (gone()) return;
    wxPoint client = event.GetPosition() == wxDefaultPosition ? wxPoint(0, 0) : s->ScreenToClient(event.GetPosition());
    wxPoint model = m_units.toModelPixels(client);
    CWnd* target = staticAt(*d, *s, client);
    CPoint at(model.x, model.y);
    if (target) {
      // A notifying static takes the click itself, at its own point.
      wxPoint origin = mirrorOf(target)->native()->GetPosition();
      wxPoint inside = m_units.toModelPixels(client - origin);
      at = CPoint(inside.x, inside.y);
    } else {
      target = d;
    }
    userAction([target, at] { return CUserAction::rightClick(*target, at); });
  });
}

CWnd* CWxDialogWindow::staticAt(CDialog& dialog, wxWindow& surface, wxPoint client) const {
  for (CWnd* child : dialog.children()) {
    WndKind k = child->kind();
    if ((k != WndKind::Text && k != WndKind::Icon) || !(child->GetStyle() & SS_NOTIFY)) continue;
    if (!child->IsWindowVisible() || !child->IsWindowEnabled()) continue;
    CWxMirror* m = mirrorOf(child);
    if (m && m->native() && m->native()->GetParent() == &surface && m->native()->GetRect().Contains(client)) return child;
  }
  return nullptr;
}
