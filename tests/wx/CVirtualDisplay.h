// A display for the window tests: an Xvfb of their own when Xvfb is installed (so that no
// window ever opens on a developer's desktop), else the display in DISPLAY. Started once per
// test program and stopped at its end.
#pragma once

#include <string>

class CVirtualDisplay {
public:
  // Puts a display in DISPLAY; empty when there is one, otherwise why there is none.
  static std::string ensure();
  // Whether a program is on the PATH.
  static bool hasProgram(const std::string& name);
};
