// The loud failure of dialog code: a template or control that does not exist, a control of
// another kind than the code expects. DoModal catches it, reports it and returns -1, so it
// never leaves a dialog run.
#pragma once

#include <stdexcept>
#include <string>

class CDialogError : public std::runtime_error {
public:
  explicit CDialogError(const std::string& message) : std::runtime_error(message) {}
};
