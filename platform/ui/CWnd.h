// The window of the control model: a control or a dialog with its ID, kind, text, state,
// rectangle and children, and the message path (SendMessage, PostMessage, message maps,
// notifications to the parent) that dialog code uses as it uses MFC's CWnd.
#pragma once

#include "data/CZelString.h"
#include "ui/CMessageMap.h"
#include "ui/WinConst.h"
#include "ui/WinStructs.h"

#include <functional>
#include <memory>
#include <vector>

class CFont;

enum class WndKind {
  Window, Dialog, PushButton, CheckBox, RadioButton, GroupBox, Text, Icon, Frame,
  Edit, ComboBox, ListBox, CheckListBox, TreeView, TabControl, ListView, SysLink, Custom
};
// "push button", "edit", … for messages and dumps.
const char* wndKindName(WndKind kind);

class CWnd {
public:
  CWnd();
  virtual ~CWnd();
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  // --- identity -----------------------------------------------------------------------------
  HWND m_hWnd = nullptr;  // set while the window exists
  HWND GetSafeHwnd() const { return m_hWnd; }
  static CWnd* FromHandle(HWND hwnd) { return reinterpret_cast<CWnd*>(hwnd); }
  int GetDlgCtrlID() const { return m_id; }
  void SetDlgCtrlID(int id) { m_id = id; }
  WndKind kind() const { return m_kind; }
  const char* kindName() const { return wndKindName(m_kind); }
  DWORD GetStyle() const { return m_style; }
  DWORD GetExStyle() const { return m_exStyle; }
  BOOL ModifyStyle(DWORD remove, DWORD add);
  const CZelString& className() const { return m_className; }

  // --- family -----------------------------------------------------------------------------
  // The parent of a child window, the owner of a modal dialog.
  CWnd* GetParent() const { return m_parent ? m_parent : m_owner; }
  // The direct child with that ID, or none.
  CWnd* GetDlgItem(int id) const;
  const std::vector<CWnd*>& children() const { return m_children; }
  // The window whose focus this window shares: the modal dialog it lives in.
  CWnd* rootWindow();
  bool isDescendantOf(const CWnd* ancestor) const;

  // --- text and state ------------------------------------------------------------------------
  void SetWindowText(const wchar_t* text);
  void SetWindowText(const CZelString& text) { SetWindowText(text.c_str()); }
  int GetWindowText(CZelString& text) const;
  CZelString GetWindowText() const { return windowText(); }
  int GetWindowTextLength() const { return windowText().len(); }
  BOOL EnableWindow(BOOL enable = TRUE);  // whether it was disabled before
  BOOL IsWindowEnabled() const { return (m_style & WS_DISABLED) == 0; }
  BOOL ShowWindow(int cmdShow);           // whether it was visible before
  // The window and all its parents are shown.
  BOOL IsWindowVisible() const;
  bool isShownItself() const { return (m_style & WS_VISIBLE) != 0; }
  void Invalidate(BOOL erase = TRUE);
  void UpdateWindow() {}
  int paintCount() const { return m_paintCount; }
  void SetToolTipText(const CZelString& text) { m_toolTip = text; }
  // The font the window draws its text with (none: the dialog's font); not owned.
  void SetFont(CFont* font, BOOL redraw = TRUE);
  CFont* GetFont() const { return m_font; }
  const CZelString& toolTipText() const { return m_toolTip; }

  // --- focus ---------------------------------------------------------------------------------
  // Gives the focus; the old focus window loses it first. Returns the old one.
  CWnd* SetFocus();
  // The focus of the topmost modal dialog.
  static CWnd* GetFocus();
  bool hasFocus() const;

  // --- geometry: the template's dialog units and pixels relative to the parent --------------
  const CRect& dialogUnitRect() const { return m_dluRect; }
  void GetWindowRect(CRect* rect) const;  // screen pixels
  void GetClientRect(CRect* rect) const;
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void MoveWindow(const CRect& rect, BOOL repaint = TRUE) { MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), repaint); }
  void ClientToScreen(CPoint* point) const;
  void ClientToScreen(CRect* rect) const;
  void ScreenToClient(CPoint* point) const;
  void ScreenToClient(CRect* rect) const;
  static void MapDialogRect(CRect* rect);

  // --- dialog items ----------------------------------------------------------------------------
  void CheckDlgButton(int id, UINT check);
  UINT IsDlgButtonChecked(int id) const;
  // Checks `checkId` and clears the other buttons whose IDs lie in first..last.
  void CheckRadioButton(int firstId, int lastId, int checkId);
  int GetCheckedRadioButton(int firstId, int lastId) const;
  void SetDlgItemText(int id, const wchar_t* text);
  int GetDlgItemText(int id, CZelString& text) const;
  LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

  // --- messages ---------------------------------------------------------------------------------
  // Synchronous; a window that does not exist (yet or any more) answers 0.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  // Queued until the running handler has returned and the modal loop takes the next event.
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  static void pumpPostedMessages();
  static bool hasPostedMessages();
  virtual BOOL PreTranslateMessage(MSG* msg);
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual const CMessageMap* GetMessageMap() const { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // Every message that passes SendMessage or leaves the queue (posted = true); for traces.
  using MessageHook = std::function<void(const CWnd& target, UINT message, WPARAM wParam, LPARAM lParam, bool posted)>;
  static void setMessageHook(MessageHook hook);

  // --- notifications to the parent ----------------------------------------------------------------
  LRESULT notifyParent(UINT code);  // WM_COMMAND (ID, code)
  LRESULT notifyParent(NMHDR& header, UINT code);  // WM_NOTIFY; fills the header's source

  // --- life ---------------------------------------------------------------------------------------
  // Makes the window exist as a child of `parent` (none: a top-level window).
  void createWindow(CWnd* parent, int id, WndKind kind, DWORD style, DWORD exStyle, const CZelString& text,
                    const CRect& dialogUnits);
  virtual BOOL DestroyWindow();
  // Puts this object in place of the control `id` of `parent`, taking over its state, as
  // MFC's SubclassDlgItem does for a member control of a derived class.
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  // Adopts a child window object created by the parent (template controls).
  CWnd* adoptChild(std::unique_ptr<CWnd> child);

  UINT imageId() const { return m_image; }  // the icon shown on the control (0: none)

protected:
  friend class CDialog;
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
  // A control's own share of its notifications, before the parent sees them (reflection):
  // true stops them.
  virtual bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) { return false; }
  virtual void OnSetFocus(CWnd* oldWnd) {}
  virtual void OnKillFocus(CWnd* newWnd) {}
  virtual void OnLButtonDown(UINT flags, CPoint point) {}
  virtual void OnLButtonUp(UINT flags, CPoint point) {}
  virtual void OnLButtonDblClk(UINT flags, CPoint point) {}
  virtual void OnMouseMove(UINT flags, CPoint point) {}
  virtual void OnKeyDown(UINT key, UINT repeat, UINT flags) {}
  // Unhandled context menus go to the parent, as the default window procedure does.
  virtual void OnContextMenu(CWnd* wnd, CPoint point);
  virtual void OnDestroy() {}
  // The window exists now (after creation and after taking a template control's place).
  virtual void onCreated() {}

  // The text as the control keeps it, and the control's reaction to a new text.
  virtual CZelString windowText() const { return m_text; }
  virtual void onSetText(const CZelString& text) { m_text = text; }
  // The focus notifications a control sends its parent (EN_SETFOCUS …); 0: none.
  virtual UINT setFocusCode() const { return 0; }
  virtual UINT killFocusCode() const { return 0; }
  // Which kinds of template control a class can take the place of.
  virtual bool acceptsKind(WndKind kind) const { return true; }
  virtual void takeStateFrom(CWnd& other);
  void setKind(WndKind kind) { m_kind = kind; }

  int m_id = 0;
  WndKind m_kind = WndKind::Window;
  CZelString m_className;
  CZelString m_text;
  DWORD m_style = 0;
  DWORD m_exStyle = 0;
  CRect m_dluRect;
  CRect m_rect;  // pixels, relative to the parent's client area
  CZelString m_toolTip;
  UINT m_image = 0;
  CFont* m_font = nullptr;
  int m_paintCount = 0;
  bool m_topLevel = false;  // a modal dialog: its own focus, no parent for visibility
  CWnd* m_parent = nullptr;
  CWnd* m_owner = nullptr;
  CWnd* m_focus = nullptr;  // top-level windows: the child that has the focus
  std::vector<CWnd*> m_children;
  std::vector<std::unique_ptr<CWnd>> m_owned;

  static void pushModal(CWnd* wnd);
  static void popModal(CWnd* wnd);

private:
  void detachFromParent();
  void dropFocusReferences();
  static void purgePosted(const CWnd* wnd);
};
