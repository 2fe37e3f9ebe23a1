// The native window of one modal dialog of the model: a wxDialog of the template's size in
// the template's font, with a mirror for every control and every child dialog (tab pages).
// After each event it follows the model: controls that came are created, controls that left
// are removed, and every mirror shows what its control holds now.
#pragma once

#include "backend/wx/CWxDialogUnits.h"

#include <wx/dialog.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class CDialog;
class CWnd;
class CWxBackend;
class CWxMirror;
class wxContextMenuEvent;

class CWxDialogWindow : public wxDialog {
public:
  CWxDialogWindow(CWxBackend& backend, CDialog& dialog, wxWindow* owner);
  ~CWxDialogWindow() override;

  CDialog& dialog() const { return *m_dialog; }
  const CWxDialogUnits& units() const { return m_units; }
  // The template's font, for the widgets that draw their text themselves (trees, lists).
  const wxFont& dialogFont() const { return m_font; }
  // The model dialog has closed: from now on nothing of it may be touched.
  void close();
  bool isClosed() const { return m_closed; }
  // Whether user input is taken: the window is up, not closed and not being brought in line.
  bool acceptsInput() const { return m_live && !m_closed && !m_syncing; }

  // Creates and removes mirrors as the model's controls came and went, and brings every
  // mirror in line with its control; the focus follows the model's when it moved.
  void sync();
  // Mirrors of controls that left the model, freed when no event of theirs is running.
  void buryDetached();
  // A person's action, and what follows every event (through the backend).
  void userAction(const std::function<std::string()>& action);
  CWxMirror* mirrorOf(const CWnd* control) const;
  // Where a control's widget goes in its native parent, in pixels.
  wxRect placementOf(const CWnd& control) const;

  // Native focus moved to a control, or away from the mirrored ones.
  void focusFromUser(CWnd& control);
  void focusLost(wxWindow* newFocus);
  // Clicks on the background of a dialog or page: notifying statics under the mouse get
  // them, a right click is the context menu of the dialog.
  // `owner` is the page's mirror (none for the window's own dialog).
  void bindBackground(wxWindow& surface, CDialog& dialog, const CWxMirror* owner = nullptr);

  // Time from the dialog's DoModal to the window's first paint.
  using Clock = std::chrono::steady_clock;
  void setOpeningStart(Clock::time_point start) { m_openingStart = start; }
  std::function<void(CWxDialogWindow&, double milliseconds)> onFirstPaint;

private:
  void reconcile();
  void walk(CWnd& parent, CWxMirror* parentMirror, wxWindow* container,
            std::unordered_map<const CWnd*, std::unique_ptr<CWxMirror>>& old,
            std::vector<std::unique_ptr<CWxMirror>>& next);
  void syncFocus();
  void onCharHook(wxKeyEvent& event);
  void onClose(wxCloseEvent& event);
  void onShow(wxShowEvent& event);
  void onPaint(wxPaintEvent& event);
  CWnd* staticAt(CDialog& dialog, wxWindow& surface, wxPoint client) const;

  CWxBackend& m_backend;
  CDialog* m_dialog;
  CWxDialogUnits m_units;
  wxFont m_font;
  std::vector<std::unique_ptr<CWxMirror>> m_mirrors;
  std::vector<std::unique_ptr<CWxMirror>> m_detached;
  std::unordered_map<const CWnd*, CWxMirror*> m_index;
  bool m_closed = false;
  bool m_live = false;
  bool m_syncing = false;
  bool m_painted = false;
  const CWnd* m_modelFocus = nullptr;
  Clock::time_point m_openingStart = Clock::now();
};
