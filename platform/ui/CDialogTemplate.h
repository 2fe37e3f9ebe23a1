// A dialog template as the resource script states it: caption, font, styles, rectangle in
// dialog units and the controls in their order, each with its kind, class, text and styles.
#pragma once

#include "data/CZelString.h"
#include "ui/CWnd.h"

#include <string>
#include <vector>

struct CDialogTemplate {
  struct Control {
    int id = 0;
    WndKind kind = WndKind::Custom;
    CZelString className;  // "Button", "SysTabControl32", …
    CZelString text;       // for icons: the icon's resource number as text
    DWORD style = 0;
    DWORD exStyle = 0;
    CRect rect;  // x, y, width, height in dialog units (left, top, right = width, bottom = height)
    int line = 0;
  };

  UINT id = 0;
  CZelString caption;
  DWORD style = 0;
  DWORD exStyle = 0;
  CRect rect;  // as for controls
  CZelString fontFace;
  int fontSize = 8;
  std::string source;  // the resource script it came from
  int line = 0;
  std::vector<Control> controls;

  const Control* control(int controlId) const;
};
