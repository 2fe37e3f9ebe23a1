#include "ui/CDialog.h"

#include "backend/CDialogBackend.h"
#include "data/ZelCommandLine.h"
#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CDialogError.h"
#include "ui/CDialogTemplates.h"
#include "ui/CEdit.h"
#include "ui/CLinkCtrl.h"
#include "ui/CListCtrl.h"
#include "ui/CMessageBoxDlg.h"
#include "ui/CStatic.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"

#include <cwchar>

namespace {

const CMessageMapEntry kDialogEntries[] = {
  msgmap::command<&CDialog::OnOK>(static_cast<UINT>(IDOK)),
  msgmap::command<&CDialog::OnCancel>(static_cast<UINT>(IDCANCEL)),
};

std::unique_ptr<CWnd> makeControl(WndKind kind) {
  switch (kind) {
    case WndKind::PushButton:
    case WndKind::CheckBox:
    case WndKind::RadioButton: return std::make_unique<CButton>();
    case WndKind::GroupBox:
    case WndKind::Text:
    case WndKind::Icon:
    case WndKind::Frame: return std::make_unique<CStatic>();
    case WndKind::Edit: return std::make_unique<CEdit>();
    case WndKind::ComboBox: return std::make_unique<CComboBox>();
    case WndKind::ListBox: return std::make_unique<CListBox>();
    case WndKind::CheckListBox: return std::make_unique<CCheckListBox>();
    case WndKind::TreeView: return std::make_unique<CTreeCtrl>();
    case WndKind::TabControl: return std::make_unique<CTabCtrl>();
    case WndKind::ListView: return std::make_unique<CListCtrl>();
    case WndKind::SysLink: return std::make_unique<CLinkCtrl>();
    default: return std::make_unique<CWnd>();
  }
}

bool canTakeFocus(const CWnd* w) { return w->IsWindowVisible() && w->IsWindowEnabled() && w->kind() != WndKind::Dialog; }

}  // namespace

const CMessageMap CDialog::kMessageMap{&CWnd::kMessageMap, kDialogEntries};

void DDX_Control(CDataExchange* dx, int id, CWnd& control) {
  if (!control.GetSafeHwnd()) control.SubclassDlgItem(static_cast<UINT>(id), dx->m_pDlgWnd);
}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_pParentWnd(parent), m_templateId(templateId) {}

CDialog::~CDialog() { DestroyWindow(); }

std::string CDialog::describe() const { return "dialog " + std::to_string(m_templateId); }

void CDialog::createFromTemplate(const CDialogTemplate& tpl, CWnd* parent) {
  m_template = &tpl;
  DWORD style = tpl.style;
  if (!parent) style |= WS_VISIBLE;
  createWindow(parent, 0, WndKind::Dialog, style, tpl.exStyle, tpl.caption, tpl.rect);
  m_className = L"#32770";
  m_defId = IDOK;
  for (const CDialogTemplate::Control& c : tpl.controls) {
    CWnd* w = adoptChild(makeControl(c.kind));
    CZelString text = c.text;
    if (c.kind == WndKind::Icon) {
      w->m_image = static_cast<UINT>(std::wcstoul(c.text.c_str(), nullptr, 10));
      text = CZelString();
    }
    w->m_className = c.className;
    w->createWindow(this, c.id, c.kind, c.style, c.exStyle, text, c.rect);
    if (c.kind == WndKind::PushButton && (c.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) m_defId = static_cast<UINT>(c.id);
  }
}

INT_PTR CDialog::DoModal() {
  CDialogBackend& backend = CDialogBackend::current();
  m_ended = false;
  m_result = -1;
  m_modal = true;
  bool pushed = false;
  try {
    const CDialogTemplate& tpl = CDialogTemplates::get(m_templateId);
    m_topLevel = true;
    m_owner = m_pParentWnd;
    createFromTemplate(tpl, nullptr);
    pushModal(this);
    pushed = true;
    backend.dialogOpening(*this);
    OnControlsCreated();
    if (OnInitDialog()) focusFirstControl();
    pumpPostedMessages();
    if (!m_ended) backend.runModal(*this);
  } catch (const CDialogError& e) {
    ZEL::cmdPrint(CZelString::fromUtf8(e.what()));
    backend.dialogFailed(*this, e.what());
    m_result = -1;
    m_ended = true;
  }
  if (pushed) popModal(this);
  DestroyWindow();
  m_topLevel = false;
  m_owner = nullptr;
  backend.dialogClosed(*this);
  m_modal = false;
  return m_result;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
  if (templateId) m_templateId = templateId;
  if (m_hWnd) return FALSE;
  const CDialogTemplate& tpl = CDialogTemplates::get(m_templateId);
  m_modal = false;
  m_topLevel = false;
  createFromTemplate(tpl, parent ? parent : m_pParentWnd);
  OnControlsCreated();
  if (OnInitDialog()) focusFirstControl();
  return TRUE;
}

void CDialog::EndDialog(int result) {
  // A child dialog has no loop to end; the framework only hides such a window.
  if (!m_modal) return;
  m_result = result;
  m_ended = true;
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (!UpdateData(TRUE)) return;
  EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
  CDataExchange dx(this, saveAndValidate);
  DoDataExchange(&dx);
  return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* msg) { return IsDialogMessage(msg); }

BOOL CDialog::IsDialogMessage(MSG* msg) {
  if (!msg || msg->message != WM_KEYDOWN || !msg->hwnd || !msg->hwnd->isDescendantOf(this)) return FALSE;
  switch (msg->wParam) {
    case VK_RETURN: {
      CWnd* target = msg->hwnd;
      if (target->kind() == WndKind::Edit && (target->GetStyle() & ES_MULTILINE) && (target->GetStyle() & ES_WANTRETURN))
        return FALSE;
      UINT id = m_defId;
      CWnd* focus = rootWindow()->m_focus;
      if (focus && focus->GetParent() == this && focus->kind() == WndKind::PushButton) id = static_cast<UINT>(focus->GetDlgCtrlID());
      CWnd* button = GetDlgItem(static_cast<int>(id));
      // A disabled default button swallows the key, as the dialog manager does (it beeps).
      if (button && (!button->IsWindowEnabled() || !button->IsWindowVisible())) return TRUE;
      SendMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
      return TRUE;
    }
    case VK_ESCAPE: {
      // A page has no Cancel of its own: Escape goes on to the dialog that holds it.
      if (GetStyle() & WS_CHILD) return FALSE;
      CWnd* button = GetDlgItem(static_cast<int>(IDCANCEL));
      if (button && !button->IsWindowEnabled()) return TRUE;
      SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED), reinterpret_cast<LPARAM>(button));
      return TRUE;
    }
    case VK_TAB: NextDlgCtrl(); return TRUE;
    default: return FALSE;
  }
}

void CDialog::GotoDlgCtrl(CWnd* control) {
  if (control) control->SetFocus();
}

void CDialog::NextDlgCtrl() {
  std::vector<CWnd*> stops;
  for (CWnd* c : m_children)
    if ((c->GetStyle() & WS_TABSTOP) && canTakeFocus(c)) stops.push_back(c);
  if (stops.empty()) return;
  CWnd* focus = rootWindow()->m_focus;
  auto it = std::find(stops.begin(), stops.end(), focus);
  CWnd* next = (it == stops.end() || it + 1 == stops.end()) ? stops.front() : *(it + 1);
  next->SetFocus();
}

void CDialog::focusFirstControl() {
  for (CWnd* c : m_children)
    if ((c->GetStyle() & WS_TABSTOP) && canTakeFocus(c)) {
      c->SetFocus();
      return;
    }
}

int CDialog::MessageBox(const wchar_t* text, const wchar_t* caption, UINT type) {
  CMessageBoxDlg box(text ? text : L"", caption ? caption : L"", type, this);
  return static_cast<int>(box.DoModal());
}

int AfxMessageBox(const wchar_t* text, UINT type, UINT) {
  CMessageBoxDlg box(text ? text : L"", L"", type, CWnd::GetFocus() ? CWnd::GetFocus()->rootWindow() : nullptr);
  return static_cast<int>(box.DoModal());
}

std::vector<CDialog*> CDialog::childDialogs() const {
  std::vector<CDialog*> out;
  std::vector<const CWnd*> todo{this};
  while (!todo.empty()) {
    const CWnd* w = todo.front();
    todo.erase(todo.begin());
    for (CWnd* c : w->children()) {
      if (auto* d = dynamic_cast<CDialog*>(c)) out.push_back(d);
      todo.push_back(c);
    }
  }
  return out;
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED), 0);
      return 0;
    case DM_GETDEFID: return static_cast<LRESULT>(MAKEWPARAM(m_defId, 0x534B));
    case DM_SETDEFID: m_defId = static_cast<UINT>(wParam); return TRUE;
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

template <class T>
T& CDialog::typed(int id, const char* wanted) const {
  CWnd* w = GetDlgItem(id);
  if (!w) throw CDialogError(describe() + " has no control " + std::to_string(id) + " (" + wanted + " wanted)");
  T* t = dynamic_cast<T*>(w);
  if (!t)
    throw CDialogError(describe() + ": control " + std::to_string(id) + " is a " + w->kindName() + ", not " + wanted);
  return *t;
}

CButton& CDialog::button(int id) const { return typed<CButton>(id, "a button"); }
CEdit& CDialog::edit(int id) const { return typed<CEdit>(id, "an edit"); }
CStatic& CDialog::staticCtrl(int id) const { return typed<CStatic>(id, "a static"); }
CComboBox& CDialog::combo(int id) const { return typed<CComboBox>(id, "a combo box"); }
CListBox& CDialog::listBox(int id) const { return typed<CListBox>(id, "a list box"); }
CCheckListBox& CDialog::checkList(int id) const { return typed<CCheckListBox>(id, "a check list box"); }
CTreeCtrl& CDialog::tree(int id) const { return typed<CTreeCtrl>(id, "a tree view"); }
CTabCtrl& CDialog::tabCtrl(int id) const { return typed<CTabCtrl>(id, "a tab control"); }
CListCtrl& CDialog::listCtrl(int id) const { return typed<CListCtrl>(id, "a list view"); }
CLinkCtrl& CDialog::link(int id) const { return typed<CLinkCtrl>(id, "a link"); }
CWnd& CDialog::control(int id) const { return typed<CWnd>(id, "a control"); }
