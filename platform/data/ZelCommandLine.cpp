#include "data/ZelCommandLine.h"

namespace ZEL {

namespace {
CZelString& printed() {
  static CZelString text;
  return text;
}
std::function<void(const CZelString&)>& sink() {
  static std::function<void(const CZelString&)> s;
  return s;
}
}  // namespace

void cmdPrint(const CZelString& line) {
  printed() += line;
  printed() += L"\n";
  if (sink()) sink()(line);
}

CZelString cmdTakePrinted() {
  CZelString out = printed();
  printed() = CZelString();
  return out;
}

void cmdSetSink(std::function<void(const CZelString&)> s) { sink() = std::move(s); }

}  // namespace ZEL
