// The few GTK calls wx does not offer, looked up at run time so that building needs no GTK
// headers: a style sheet for every widget of the screen, and ellipsized button labels.
#pragma once

#include <string>

class wxWindow;

class CWxGtk {
public:
  // Adds a style sheet with the priority of an application's own styles.
  static void addStyleSheet(const std::string& css);
  // The label of a check box or radio ends in "…" where it is wider than the control, as
  // Windows clips it, instead of pushing the widget beyond its size.
  static void ellipsizeLabel(wxWindow& button);
};
