#include "ui/CWnd.h"

#include "ui/CDialogError.h"

#include <algorithm>
#include <deque>

namespace {

std::deque<MSG>& postedQueue() {
  static std::deque<MSG> queue;
  return queue;
}

std::vector<CWnd*>& modalStack() {
  static std::vector<CWnd*> stack;
  return stack;
}

CWnd::MessageHook& messageHook() {
  static CWnd::MessageHook hook;
  return hook;
}

// Dialog base units of the dialog font (MS Shell Dlg, 8 points, 96 dpi).
constexpr int kBaseUnitX = 6;
constexpr int kBaseUnitY = 13;

}  // namespace

const CMessageMap CWnd::kMessageMap{nullptr};

const char* wndKindName(WndKind kind) {
  switch (kind) {
    case WndKind::Window: return "window";
    case WndKind::Dialog: return "dialog";
    case WndKind::PushButton: return "push button";
    case WndKind::CheckBox: return "check box";
    case WndKind::RadioButton: return "radio button";
    case WndKind::GroupBox: return "group box";
    case WndKind::Text: return "static text";
    case WndKind::Icon: return "icon";
    case WndKind::Frame: return "frame";
    case WndKind::Edit: return "edit";
    case WndKind::ComboBox: return "combo box";
    case WndKind::ListBox: return "list box";
    case WndKind::CheckListBox: return "check list box";
    case WndKind::TreeView: return "tree view";
    case WndKind::TabControl: return "tab control";
    case WndKind::ListView: return "list view";
    case WndKind::SysLink: return "link";
    case WndKind::Custom: return "custom control";
  }
  return "window";
}

CWnd::CWnd() = default;

CWnd::~CWnd() {
  // A window must be gone before its object: a control that outlives the call that
  // destroyed its dialog has already been detached; one that is destroyed first detaches now.
  if (m_hWnd) {
    m_hWnd = nullptr;  // no OnDestroy: the derived part is gone already
    for (CWnd* child : std::vector<CWnd*>(m_children)) child->DestroyWindow();
    m_owned.clear();
    dropFocusReferences();
    purgePosted(this);
    detachFromParent();
  }
  popModal(this);
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add) {
  DWORD old = m_style;
  m_style = (m_style & ~remove) | add;
  return old != m_style;
}

CWnd* CWnd::GetDlgItem(int id) const {
  for (CWnd* child : m_children)
    if (child->m_id == id && !(child->m_kind == WndKind::Dialog && id == 0)) return child;
  return nullptr;
}

CWnd* CWnd::rootWindow() {
  CWnd* w = this;
  while (!w->m_topLevel && w->m_parent) w = w->m_parent;
  return w;
}

bool CWnd::isDescendantOf(const CWnd* ancestor) const {
  for (const CWnd* w = this; w; w = w->m_parent)
    if (w == ancestor) return true;
  return false;
}

void CWnd::SetWindowText(const wchar_t* text) { onSetText(CZelString(text ? text : L"")); }

int CWnd::GetWindowText(CZelString& text) const {
  text = windowText();
  return text.len();
}

BOOL CWnd::EnableWindow(BOOL enable) {
  BOOL wasDisabled = !IsWindowEnabled();
  if (enable) m_style &= ~WS_DISABLED;
  else m_style |= WS_DISABLED;
  return wasDisabled;
}

BOOL CWnd::ShowWindow(int cmdShow) {
  BOOL wasVisible = isShownItself();
  if (cmdShow == SW_HIDE) m_style &= ~WS_VISIBLE;
  else m_style |= WS_VISIBLE;
  return wasVisible;
}

BOOL CWnd::IsWindowVisible() const {
  for (const CWnd* w = this; w; w = w->m_topLevel ? nullptr : w->m_parent)
    if (!w->isShownItself()) return FALSE;
  return TRUE;
}

void CWnd::Invalidate(BOOL) { ++m_paintCount; }

// --- focus ---------------------------------------------------------------------------------

CWnd* CWnd::SetFocus() {
  if (!m_hWnd) return nullptr;
  CWnd* root = rootWindow();
  CWnd* old = root->m_focus;
  if (old == this) return old;
  root->m_focus = this;
  if (old && old->m_hWnd) {
    old->OnKillFocus(this);
    if (UINT code = old->killFocusCode()) {
      if (code >= 0x80000000U) {
        NMHDR hdr;
        old->notifyParent(hdr, code);
      } else {
        old->notifyParent(code);
      }
    }
  }
  // The old window's handler may have moved the focus on; then that move stands.
  if (root->m_focus != this || !m_hWnd) return old;
  OnSetFocus(old);
  if (UINT code = setFocusCode()) {
    if (code >= 0x80000000U) {
      NMHDR hdr;
      notifyParent(hdr, code);
    } else {
      notifyParent(code);
    }
  }
  return old;
}

CWnd* CWnd::GetFocus() {
  if (modalStack().empty()) return nullptr;
  return modalStack().back()->m_focus;
}

bool CWnd::hasFocus() const {
  CWnd* root = const_cast<CWnd*>(this)->rootWindow();
  return root->m_focus == this;
}

void CWnd::pushModal(CWnd* wnd) { modalStack().push_back(wnd); }

void CWnd::popModal(CWnd* wnd) {
  auto& stack = modalStack();
  stack.erase(std::remove(stack.begin(), stack.end(), wnd), stack.end());
}

// --- geometry ---------------------------------------------------------------------------------

void CWnd::MapDialogRect(CRect* rect) {
  rect->left = rect->left * kBaseUnitX / 4;
  rect->right = rect->right * kBaseUnitX / 4;
  rect->top = rect->top * kBaseUnitY / 8;
  rect->bottom = rect->bottom * kBaseUnitY / 8;
}

void CWnd::GetClientRect(CRect* rect) const { *rect = CRect(0, 0, m_rect.Width(), m_rect.Height()); }

void CWnd::GetWindowRect(CRect* rect) const {
  *rect = CRect(0, 0, m_rect.Width(), m_rect.Height());
  ClientToScreen(rect);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL) { m_rect = CRect(x, y, x + width, y + height); }

void CWnd::ClientToScreen(CPoint* point) const {
  for (const CWnd* w = this; w; w = w->m_topLevel ? nullptr : w->m_parent) {
    point->x += w->m_rect.left;
    point->y += w->m_rect.top;
  }
}

void CWnd::ClientToScreen(CRect* rect) const {
  CPoint origin;
  ClientToScreen(&origin);
  rect->OffsetRect(origin.x, origin.y);
}

void CWnd::ScreenToClient(CPoint* point) const {
  CPoint origin;
  ClientToScreen(&origin);
  point->x -= origin.x;
  point->y -= origin.y;
}

void CWnd::ScreenToClient(CRect* rect) const {
  CPoint origin;
  ClientToScreen(&origin);
  rect->OffsetRect(-origin.x, -origin.y);
}

// --- dialog items -------------------------------------------------------------------------------

void CWnd::CheckDlgButton(int id, UINT check) {
  if (CWnd* w = GetDlgItem(id)) w->SendMessage(BM_SETCHECK, check);
}

UINT CWnd::IsDlgButtonChecked(int id) const {
  CWnd* w = GetDlgItem(id);
  return w ? static_cast<UINT>(w->SendMessage(BM_GETCHECK)) : 0;
}

void CWnd::CheckRadioButton(int firstId, int lastId, int checkId) {
  for (CWnd* child : m_children) {
    int id = child->m_id;
    if (id < firstId || id > lastId) continue;
    child->SendMessage(BM_SETCHECK, id == checkId ? BST_CHECKED : BST_UNCHECKED);
  }
}

int CWnd::GetCheckedRadioButton(int firstId, int lastId) const {
  for (CWnd* child : m_children)
    if (child->m_id >= firstId && child->m_id <= lastId && child->SendMessage(BM_GETCHECK) == BST_CHECKED)
      return child->m_id;
  return 0;
}

void CWnd::SetDlgItemText(int id, const wchar_t* text) {
  if (CWnd* w = GetDlgItem(id)) w->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CZelString& text) const {
  CWnd* w = GetDlgItem(id);
  if (!w) {
    text = CZelString();
    return 0;
  }
  return w->GetWindowText(text);
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* w = GetDlgItem(id);
  return w ? w->SendMessage(message, wParam, lParam) : 0;
}

// --- messages -----------------------------------------------------------------------------------

void CWnd::setMessageHook(MessageHook hook) { messageHook() = std::move(hook); }

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!m_hWnd) return 0;
  if (messageHook()) messageHook()(*this, message, wParam, lParam, false);
  return WindowProc(message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!m_hWnd) return FALSE;
  postedQueue().push_back(MSG{this, message, wParam, lParam});
  return TRUE;
}

void CWnd::pumpPostedMessages() {
  auto& queue = postedQueue();
  while (!queue.empty()) {
    MSG msg = queue.front();
    queue.pop_front();
    if (!msg.hwnd || !msg.hwnd->m_hWnd) continue;
    if (messageHook()) messageHook()(*msg.hwnd, msg.message, msg.wParam, msg.lParam, true);
    msg.hwnd->WindowProc(msg.message, msg.wParam, msg.lParam);
  }
}

bool CWnd::hasPostedMessages() { return !postedQueue().empty(); }

void CWnd::purgePosted(const CWnd* wnd) {
  auto& queue = postedQueue();
  queue.erase(std::remove_if(queue.begin(), queue.end(), [wnd](const MSG& m) { return m.hwnd == wnd; }), queue.end());
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (!OnWndMsg(message, wParam, lParam, &result)) result = DefWindowProc(message, wParam, lParam);
  return result;
}

namespace {

// The row of a map chain for a command or notification, and the class handler to call.
bool dispatchMap(CWnd* self, const CMessageMap* first, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  for (const CMessageMap* map = first; map; map = map->base()) {
    const CMessageMapEntry* entry = map->find(message, wParam, lParam);
    if (!entry) continue;
    if (entry->thunk) {
      LRESULT r = entry->thunk(self, *entry, message, wParam, lParam);
      if (result) *result = r;
      return true;
    }
    for (const CMessageMap* m = map; m; m = m->base())
      if (m->wordHandler()) {
        m->wordHandler()(self, entry->word);
        return true;
      }
    return true;
  }
  return false;
}

}  // namespace

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_COMMAND) return OnCommand(wParam, lParam);
  if (message == WM_NOTIFY) return OnNotify(wParam, lParam, result);
  if (dispatchMap(this, GetMessageMap(), message, wParam, lParam, result)) return TRUE;
  CPoint point(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
  switch (message) {
    case WM_LBUTTONDOWN: OnLButtonDown(static_cast<UINT>(wParam), point); return TRUE;
    case WM_LBUTTONUP: OnLButtonUp(static_cast<UINT>(wParam), point); return TRUE;
    case WM_LBUTTONDBLCLK: OnLButtonDblClk(static_cast<UINT>(wParam), point); return TRUE;
    case WM_MOUSEMOVE: OnMouseMove(static_cast<UINT>(wParam), point); return TRUE;
    case WM_KEYDOWN: OnKeyDown(static_cast<UINT>(wParam), 1, 0); return TRUE;
    case WM_CONTEXTMENU: OnContextMenu(reinterpret_cast<CWnd*>(wParam), point); return TRUE;
    default: return FALSE;
  }
}


BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  auto* child = reinterpret_cast<CWnd*>(lParam);
  LRESULT ignored = 0;
  if (child && child->m_hWnd && child->OnChildNotify(WM_COMMAND, wParam, lParam, &ignored)) return TRUE;
  return dispatchMap(this, GetMessageMap(), WM_COMMAND, wParam, lParam, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  auto* hdr = reinterpret_cast<NMHDR*>(lParam);
  if (!hdr) return FALSE;
  if (hdr->hwndFrom && hdr->hwndFrom->m_hWnd && hdr->hwndFrom->OnChildNotify(WM_NOTIFY, wParam, lParam, result))
    return TRUE;
  return dispatchMap(this, GetMessageMap(), WM_NOTIFY, wParam, lParam, result);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT:
      SetWindowText(reinterpret_cast<const wchar_t*>(lParam));
      return TRUE;
    case WM_GETTEXTLENGTH: return GetWindowTextLength();
    case BM_SETIMAGE:
    case STM_SETICON: {
      UINT old = m_image;
      m_image = iconResourceId(reinterpret_cast<HICON>(message == BM_SETIMAGE ? lParam : static_cast<LPARAM>(wParam)));
      return static_cast<LRESULT>(reinterpret_cast<std::intptr_t>(iconHandle(old)));
    }
    case BM_GETIMAGE:
    case STM_GETICON: return static_cast<LRESULT>(reinterpret_cast<std::intptr_t>(iconHandle(m_image)));
    default: return 0;
  }
}

void CWnd::OnContextMenu(CWnd* wnd, CPoint point) {
  if (!m_topLevel && m_parent) m_parent->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(wnd), MAKELPARAM(point.x, point.y));
}

LRESULT CWnd::notifyParent(UINT code) {
  if (!m_parent || m_topLevel) return 0;
  return m_parent->SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(m_id), code), reinterpret_cast<LPARAM>(this));
}

LRESULT CWnd::notifyParent(NMHDR& header, UINT code) {
  if (!m_parent || m_topLevel) return 0;
  header.hwndFrom = this;
  header.idFrom = static_cast<UINT_PTR>(m_id);
  header.code = code;
  return m_parent->SendMessage(WM_NOTIFY, static_cast<WPARAM>(m_id), reinterpret_cast<LPARAM>(&header));
}

// --- life -----------------------------------------------------------------------------------------

void CWnd::createWindow(CWnd* parent, int id, WndKind kind, DWORD style, DWORD exStyle, const CZelString& text,
                        const CRect& dialogUnits) {
  m_id = id;
  m_kind = kind;
  m_style = style;
  m_exStyle = exStyle;
  m_dluRect = dialogUnits;
  CRect px(dialogUnits.left, dialogUnits.top, dialogUnits.left + dialogUnits.right, dialogUnits.top + dialogUnits.bottom);
  MapDialogRect(&px);
  m_rect = px;
  if (parent) {
    m_parent = parent;
    parent->m_children.push_back(this);
  }
  // The template's text is no change: it is in place before the window exists and notifies.
  onSetText(text);
  m_hWnd = reinterpret_cast<HWND>(this);
  onCreated();
}

CWnd* CWnd::adoptChild(std::unique_ptr<CWnd> child) {
  m_owned.push_back(std::move(child));
  return m_owned.back().get();
}

BOOL CWnd::DestroyWindow() {
  if (!m_hWnd) return FALSE;
  OnDestroy();
  for (CWnd* child : std::vector<CWnd*>(m_children)) child->DestroyWindow();
  m_owned.clear();
  dropFocusReferences();
  purgePosted(this);
  detachFromParent();
  m_focus = nullptr;
  m_hWnd = nullptr;
  return TRUE;
}

void CWnd::detachFromParent() {
  if (!m_parent) return;
  auto& siblings = m_parent->m_children;
  siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
  m_parent = nullptr;
}

void CWnd::dropFocusReferences() {
  for (CWnd* w = m_parent; w; w = w->m_parent) {
    if (w->m_focus == this) w->m_focus = nullptr;
    if (w->m_topLevel) break;
  }
}

void CWnd::takeStateFrom(CWnd& other) {
  m_id = other.m_id;
  m_kind = other.m_kind;
  m_className = other.m_className;
  m_text = other.m_text;
  m_style = other.m_style;
  m_exStyle = other.m_exStyle;
  m_dluRect = other.m_dluRect;
  m_rect = other.m_rect;
  m_toolTip = other.m_toolTip;
  m_image = other.m_image;
  m_font = other.m_font;
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
  m_font = font;
  if (redraw) Invalidate();
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  if (!parent) throw CDialogError("SubclassDlgItem: no parent for control " + std::to_string(id));
  CWnd* old = parent->GetDlgItem(static_cast<int>(id));
  if (!old) throw CDialogError("dialog: no control " + std::to_string(id) + " to attach a member control to");
  if (old == this) return TRUE;
  if (m_hWnd) throw CDialogError("control " + std::to_string(id) + ": the member control is attached already");
  if (!acceptsKind(old->m_kind))
    throw CDialogError("control " + std::to_string(id) + " is a " + old->kindName() + ", which this member control cannot be");
  takeStateFrom(*old);
  m_parent = parent;
  m_hWnd = reinterpret_cast<HWND>(this);
  auto& siblings = parent->m_children;
  std::replace(siblings.begin(), siblings.end(), old, this);
  CWnd* root = parent->rootWindow();
  if (root->m_focus == old) root->m_focus = this;
  old->m_parent = nullptr;
  old->m_hWnd = nullptr;
  purgePosted(old);
  auto& owned = parent->m_owned;
  owned.erase(std::remove_if(owned.begin(), owned.end(), [old](const std::unique_ptr<CWnd>& p) { return p.get() == old; }),
              owned.end());
  onCreated();
  return TRUE;
}

// --- message map rows ------------------------------------------------------------------------------

bool CMessageMapEntry::matches(UINT msg, WPARAM wParam, LPARAM lParam) const {
  if (msg != message) return false;
  if (msg == WM_COMMAND) {
    UINT ctl = LOWORD(wParam);
    return HIWORD(wParam) == (code & 0xFFFF) && ctl >= id && ctl <= lastId;
  }
  if (msg == WM_NOTIFY) {
    const auto* hdr = reinterpret_cast<const NMHDR*>(lParam);
    return hdr && hdr->code == code && hdr->idFrom >= id && hdr->idFrom <= lastId;
  }
  return true;
}

const CMessageMapEntry* CMessageMap::find(UINT message, WPARAM wParam, LPARAM lParam) const {
  for (std::size_t i = 0; i < m_count; ++i)
    if (m_entries[i].matches(message, wParam, lParam)) return &m_entries[i];
  return nullptr;
}
