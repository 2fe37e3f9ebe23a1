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

namespace {
CDialogBackend::ClipboardCopy& clipboardRecord() {
  static CDialogBackend::ClipboardCopy copy;
  return copy;
}
}  // namespace

bool CDialogBackend::copyToClipboard(const CDisplayList& picture, int width, int height) {
  recordClipboardCopy(picture, width, height);
  ZEL::cmdPrint(L"clipboard: preview copied (" + CZelString(std::to_wstring(width)) + L" x " +
                CZelString(std::to_wstring(height)) + L" pixels, " + CZelString(std::to_wstring(picture.items().size())) +
                L" elements)");
  return true;
}

void CDialogBackend::recordClipboardCopy(const CDisplayList& picture, int width, int height) {
  ClipboardCopy& copy = clipboardRecord();
  copy.picture = picture;
  copy.width = width;
  copy.height = height;
  ++copy.count;
}

const CDialogBackend::ClipboardCopy& CDialogBackend::lastClipboardCopy() { return clipboardRecord(); }
