// The window backend: every modal dialog of the model, message boxes and nested dialogs
// included, runs as a native modal window (wxWidgets on GTK), and popup menus are native
// menus. After each event the model's posted messages are delivered, every open window is
// brought in line with its dialog, and the windows of ended dialogs close.
#pragma once

#include "backend/CDialogBackend.h"

#include <chrono>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

class CWxDialogWindow;

class CWxBackend : public CDialogBackend {
public:
  // Trace lines go to `out` (with `trace`), problems to `err`.
  CWxBackend(std::ostream& out, std::ostream& err, bool trace = false);
  ~CWxBackend() override;
  CWxBackend(const CWxBackend&) = delete;
  CWxBackend& operator=(const CWxBackend&) = delete;

  // Whether windows can be shown here: a display that the toolkit opens. The toolkit is
  // started once, on the first call, and stays for the life of the process.
  static bool start();

  void runModal(CDialog& dialog) override;
  UINT trackPopupMenu(const CMenu& menu, CWnd* owner, CPoint screenPoint) override;
  void dialogOpening(CDialog& dialog) override;
  void dialogClosed(CDialog& dialog) override;
  void dialogFailed(CDialog& dialog, const std::string& message) override;
  // Opens the help page with the help viewer (xdg-open unless set otherwise): a folder of
  // help pages gives TOPIC.html in it, a file gives FILE#TOPIC.
  void showHelp(const CZelString& file, const CZelString& topic) override;
  // Paints the preview into a bitmap of that size and puts it on the clipboard.
  bool copyToClipboard(const CDisplayList& picture, int width, int height) override;
  void setHelpViewer(std::string program) { m_helpViewer = std::move(program); }
  static std::string helpUrl(const CZelString& file, const CZelString& topic);

  // A person's action on the model, and what follows every event.
  void userAction(const std::function<std::string()>& action);
  CWxDialogWindow* topWindow() const { return m_stack.empty() ? nullptr : m_stack.back(); }

  // Called when a dialog's window has painted for the first time, with the time since its
  // DoModal began (benchmarks and tests drive the window from here).
  std::function<void(CWxDialogWindow&, double milliseconds)> onShown;

private:
  void afterEvent();

  std::ostream& m_out;
  std::ostream& m_err;
  bool m_trace;
  std::string m_helpViewer = "xdg-open";
  std::vector<CWxDialogWindow*> m_stack;
  std::map<const CDialog*, std::chrono::steady_clock::time_point> m_openings;
  int m_depth = 0;
};
