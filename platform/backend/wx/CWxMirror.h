// One control of the model shown as a native widget. The model is the truth: after every
// event the mirror compares what the control holds (text, state, items, place) with what it
// showed last and changes only what differs; what a person does to the widget reaches the
// control as the user action a script would take (CUserAction), so that a click in a window
// and a click in a script are the same notification.
#pragma once

#include "ui/CWnd.h"

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <functional>
#include <memory>
#include <string>

class CWxDialogWindow;
class wxContextMenuEvent;
class wxWindow;

class CWxMirror {
public:
  CWxMirror(CWnd& control, CWxDialogWindow& window);
  virtual ~CWxMirror() = default;
  CWxMirror(const CWxMirror&) = delete;
  CWxMirror& operator=(const CWxMirror&) = delete;

  // The mirror that fits the control's kind, its widget created in `parent`.
  static std::unique_ptr<CWxMirror> create(CWnd& control, CWxDialogWindow& window, wxWindow* parent);

  // Whether this mirror shows that window object; compared by address, kind and ID only,
  // since the object may be gone already.
  bool shows(const CWnd* w) const { return w == m_control && w->kind() == m_kind && w->GetDlgCtrlID() == m_id; }
  CWnd& control() const { return *m_control; }
  wxWindow* native() const { return m_native; }
  // Brings the widget in line with the control.
  void sync();
  // Where the widgets of a child dialog of this control go (a tab's page); none: beside it.
  virtual wxWindow* containerFor(const CWnd& child) { return nullptr; }
  // The control is gone: the widget goes too (not in the destructor, which also runs when
  // the whole window is being destroyed with its widgets).
  void destroyNative();
  // The widget is destroyed with a parent widget: only the pointer goes.
  void forgetNative() { m_native = nullptr; }
  // The control has left the model: the widget is hidden and ignores the user until it goes.
  void detach();
  bool isDetached() const { return m_detached; }
  // The control's point (client pixels of the model) for a point of the widget.
  virtual CPoint modelPoint(wxPoint nativeClient) const;

protected:
  virtual wxWindow* build(wxWindow* parent, const wxRect& rect) = 0;
  // The control's own state (check marks, items, selection); text and common state are
  // the base's.
  virtual void syncState() {}
  virtual void showText(const wxString& text);
  virtual wxRect placement() const;
  // A person's action on the control, and what follows every event.
  void act(const std::function<std::string()>& action);
  bool ignoringEvents() const;
  void onContextMenu(wxContextMenuEvent& event);
  void bindFocus(wxWindow* w);

  CWnd* m_control;
  CWxDialogWindow& m_window;
  wxWindow* m_native = nullptr;

private:
  void attach();

  WndKind m_kind;
  int m_id;
  bool m_detached = false;
  bool m_synced = false;
  bool m_enabled = true;
  bool m_shown = true;
  wxRect m_rect;
  std::wstring m_text;
  std::wstring m_toolTip;
};
