// Runs the test dialog under a dialog script, as qen-host does, and keeps what came out.
#pragma once

#include "backend/CScriptBackend.h"
#include "data/CConfig.h"
#include "tests/support/TestDialogs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

struct ScriptRun {
  int status = -1;
  INT_PTR result = -2;
  std::string out;
  std::string err;
};

// With `dialog` the caller's dialog runs (and can be inspected afterwards).
inline ScriptRun runScript(const std::string& text, bool trace = false, CTestMainDlg* dialog = nullptr) {
  ZEL::cfgMgrPtr()->reset();
  CDialogScript script;
  std::string error;
  EXPECT_TRUE(CDialogScript::parse(text, "t.qds", script, error)) << error;
  std::ostringstream out, err;
  ScriptRun run;
  CScriptBackend backend(script, out, err, trace);
  {
    CDialogBackendScope scope(backend);
    CTestMainDlg own;
    run.result = (dialog ? dialog : &own)->DoModal();
  }
  run.status = backend.finish();
  run.out = out.str();
  run.err = err.str();
  return run;
}
