// The headless backend: it runs every modal dialog from a dialog script. Commands act on the
// topmost dialog as a person would; message boxes take the answer the script gave (OK or
// Yes without one); a popup menu takes the script's next `choose`. A failing command prints
// its line, what was expected and what was found, and every open dialog is cancelled.
#pragma once

#include "backend/CDialogBackend.h"
#include "backend/CDialogScript.h"
#include "backend/CStoreWatch.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

class CMessageBoxDlg;

class CScriptBackend : public CDialogBackend {
public:
  // Trace lines and dumps go to `out`, failures to `err`.
  CScriptBackend(CDialogScript script, std::ostream& out, std::ostream& err, bool trace = false);
  ~CScriptBackend() override;
  CScriptBackend(const CScriptBackend&) = delete;
  CScriptBackend& operator=(const CScriptBackend&) = delete;

  void runModal(CDialog& dialog) override;
  UINT trackPopupMenu(const CMenu& menu, CWnd* owner, CPoint screenPoint) override;
  void dialogOpening(CDialog& dialog) override;
  void dialogClosed(CDialog& dialog) override;
  void dialogFailed(CDialog& dialog, const std::string& message) override;

  // After the entry function has returned: runs what is left of the script against the
  // final state (only expect-store and expect-box may be left) and gives the exit status:
  // 0 when the script held, 1 when it failed.
  int finish();

  bool failed() const { return m_failed; }
  // The failure as printed: "script:12: …\n  expected: …\n  found:    …".
  const std::string& failure() const { return m_failure; }
  // The text of the last message box, if one was shown.
  const std::optional<CZelString>& lastBox() const { return m_lastBox; }
  std::size_t commandsRun() const { return m_next; }

private:
  using Command = CDialogScript::Command;

  void execute(const Command& command, CDialog& top);
  void expect(const Command& command, CDialog& top);
  void expectStore(const Command& command);
  void expectBox(const Command& command);
  void dump(const Command& command, CDialog& top);
  void answerBox(CMessageBoxDlg& box);
  void closeAtEnd(CDialog& dialog);
  // The control a command names in the topmost dialog, or none after failing the script.
  CWnd* resolve(const Command& command, CDialog& top);
  CDialog* page(const Command& command, CDialog& top);
  void act(const Command& command, const std::string& problem);
  void fail(const Command* command, const std::string& expected, const std::string& found);
  void trace(const std::string& line);
  void traceStore();
  void onMessage(const CWnd& target, UINT message, WPARAM wParam, LPARAM lParam, bool posted);

  CDialogScript m_script;
  std::ostream& m_out;
  std::ostream& m_err;
  bool m_trace;
  std::size_t m_next = 0;
  bool m_failed = false;
  std::string m_failure;
  std::optional<int> m_answer;
  int m_answerLine = 0;
  std::optional<CZelString> m_lastBox;
  const Command* m_current = nullptr;
  std::vector<CDialog*> m_stack;
  CStoreWatch m_storeWatch;
};
