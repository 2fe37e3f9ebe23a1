#include "backend/CDialogBackend.h"

#include "backend/CScriptBackend.h"
#include "data/ZelCommandLine.h"

#include <iostream>

namespace {
CDialogBackend*& installed() {
  static CDialogBackend* backend = nullptr;
  return backend;
}
}  // namespace

CDialogBackend& CDialogBackend::current() {
  if (CDialogBackend* b = installed()) return *b;
  // Without a backend nobody can answer a dialog: it is cancelled as soon as it opens.
  static CScriptBackend fallback(CDialogScript{}, std::cout, std::cerr, false);
  return fallback;
}

CDialogBackend* CDialogBackend::install(CDialogBackend* backend) {
  CDialogBackend* previous = installed();
  installed() = backend;
  return previous;
}

void CDialogBackend::showHelp(const CZelString& file, const CZelString& topic) {
  ZEL::cmdPrint(CZelString(L"help: ") + file + L" (" + topic + L")");
}
