// Runs any dialog of the model under a dialog script, as qen-host does, and keeps what came out.
#pragma once

#include "backend/CScriptBackend.h"
#include "ui/CDialog.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

struct DialogRun {
  int status = -1;       // what the script says: 0 it held, 1 it failed
  INT_PTR result = -2;   // the dialog's end code
  std::string out;
  std::string err;
};

// `run` opens the dialog (DoModal of a dialog, or an entry function) and gives its end code.
template <class Run>
DialogRun runUnderScript(const std::string& text, Run run) {
  CDialogScript script;
  std::string error;
  EXPECT_TRUE(CDialogScript::parse(text, "t.qds", script, error)) << error;
  std::ostringstream out, err;
  DialogRun r;
  CScriptBackend backend(script, out, err, false);
  {
    CDialogBackendScope scope(backend);
    r.result = run();
  }
  r.status = backend.finish();
  r.out = out.str();
  r.err = err.str();
  return r;
}

inline DialogRun runDialog(CDialog& dialog, const std::string& text) {
  return runUnderScript(text, [&] { return dialog.DoModal(); });
}
