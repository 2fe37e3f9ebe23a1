#include "ui/ZelHelp.h"

#include "backend/CDialogBackend.h"
#include "data/ZelDataFiles.h"

namespace ZEL {

namespace {
std::function<void(const CZelString&, const CZelString&)>& viewer() {
  static std::function<void(const CZelString&, const CZelString&)> v;
  return v;
}
CZelString& lastShown() {
  static CZelString s;
  return s;
}
}  // namespace

bool help_find(const wchar_t* addOn, CZelString& file) {
  if (!addOn || !*addOn) return false;
  CZelString name(addOn);
  name.makeLower();
  file = CZelString::fromUtf8(dataFilePath((name.toUtf8() + ".html").c_str()));
  return true;
}

bool help_show(const CZelString& file, const CZelString& topic) {
  if (file.isEmpty()) return false;
  lastShown() = file + L"#" + topic;
  // The backend in charge shows it: a window backend opens the viewer, a script notes it.
  if (viewer()) viewer()(file, topic);
  else CDialogBackend::current().showHelp(file, topic);
  return true;
}

void helpSetViewer(std::function<void(const CZelString&, const CZelString&)> v) { viewer() = std::move(v); }

const CZelString& helpLastShown() { return lastShown(); }

}  // namespace ZEL
