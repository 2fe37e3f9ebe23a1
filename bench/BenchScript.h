// What the dialog benchmarks share: a dialog script from its text, and one timed run of an
// entry function under a script.
#pragma once

#include "backend/CScriptBackend.h"

#include <chrono>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

// The script the text describes; a text that does not parse stops the benchmark.
inline CDialogScript benchScript(const std::string& text) {
  CDialogScript script;
  std::string error;
  if (!CDialogScript::parse(text, "bench.qds", script, error)) throw std::runtime_error(error);
  return script;
}

// Runs the entry under the script and returns the wall time it took, in seconds. With a
// wanted end code, another code or a script that did not hold stops the benchmark.
template <typename Entry>
double timedRun(const CDialogScript& script, Entry entry, std::optional<int> wanted = std::nullopt) {
  std::ostringstream out, err;
  CScriptBackend backend(script, out, err);
  int code = 0;
  std::chrono::steady_clock::time_point start, end;
  {
    CDialogBackendScope scope(backend);
    start = std::chrono::steady_clock::now();
    code = entry();
    end = std::chrono::steady_clock::now();
  }
  if (wanted && (code != *wanted || backend.finish() != 0))
    throw std::runtime_error("the benchmark's script did not hold: " + err.str());
  return std::chrono::duration<double>(end - start).count();
}
