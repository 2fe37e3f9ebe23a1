// What drives a modal dialog: DoModal creates the dialog and runs OnInitDialog, then hands
// the dialog to the current backend, which feeds it events until it ends. The scripted
// backend reads them from a dialog script; a window backend will take them from a screen.
#pragma once

#include "data/CZelString.h"
#include "ui/CDisplayList.h"
#include "ui/WinStructs.h"

#include <string>

class CDialog;
class CMenu;
class CWnd;

class CDialogBackend {
public:
  virtual ~CDialogBackend() = default;

  // Runs the loop of a dialog whose controls exist and whose OnInitDialog has run; returns
  // when the dialog has ended (EndDialog). Nested modal dialogs call it again from inside.
  virtual void runModal(CDialog& dialog) = 0;
  // Shows a popup menu and returns the command the user chose (0: none).
  virtual UINT trackPopupMenu(const CMenu& menu, CWnd* owner, CPoint screenPoint) = 0;
  // Around a dialog's life: before its OnInitDialog runs, and after it has closed.
  virtual void dialogOpening(CDialog& dialog) {}
  virtual void dialogClosed(CDialog& dialog) {}
  // A dialog could not be run (a missing template or control); DoModal returns -1.
  virtual void dialogFailed(CDialog& dialog, const std::string& message) {}
  // The help button: opens the help file at a topic. Without a window nobody could read it,
  // so the default only reports the request on the command line.
  virtual void showHelp(const CZelString& file, const CZelString& topic);
  // A preview copied to the clipboard as a picture of the given size in pixels. Without a
  // screen there is no clipboard: the copy is only recorded (see lastClipboardCopy).
  virtual bool copyToClipboard(const CDisplayList& picture, int width, int height);

  struct ClipboardCopy {
    CDisplayList picture;
    int width = 0;
    int height = 0;
    int count = 0;  // copies made so far in this process
  };
  static const ClipboardCopy& lastClipboardCopy();

  // The backend in charge; without one installed, dialogs are cancelled as soon as they
  // open and message boxes take their first button.
  static CDialogBackend& current();
  // Puts a backend in charge (none: the default again); returns the one before.
  static CDialogBackend* install(CDialogBackend* backend);

protected:
  static void recordClipboardCopy(const CDisplayList& picture, int width, int height);
};

// Puts a backend in charge for a scope.
class CDialogBackendScope {
public:
  explicit CDialogBackendScope(CDialogBackend& backend) : m_previous(CDialogBackend::install(&backend)) {}
  ~CDialogBackendScope() { CDialogBackend::install(m_previous); }
  CDialogBackendScope(const CDialogBackendScope&) = delete;
  CDialogBackendScope& operator=(const CDialogBackendScope&) = delete;

private:
  CDialogBackend* m_previous;
};
