// What a person does to a dialog, with the mouse or the keyboard: each action reaches the
// control as a user's input would (focus first, then the control's own reaction, then its
// notifications) and returns an empty text, or why a person could not have done it.
#pragma once

#include "data/CZelString.h"
#include "ui/WinStructs.h"

#include <string>

class CWnd;
class CTabCtrl;

class CUserAction {
public:
  // Disabled or hidden (the control or a window around it): why it cannot be used, or "".
  static std::string unreachable(const CWnd& control);

  static std::string click(CWnd& control);
  static std::string type(CWnd& control, const CZelString& text);
  static std::string leave(CWnd& control);
  static std::string select(CWnd& control, int line);
  static std::string select(CWnd& control, const CZelString& lineText);
  static std::string doubleClick(CWnd& control, int line);
  static std::string setCheck(CWnd& control, int line, bool check);
  static std::string selectTab(CTabCtrl& tab, int index);
  // A right click at a point of the control (client pixels): NM_RCLICK for lists, then
  // WM_CONTEXTMENU with the screen point.
  static std::string rightClick(CWnd& control, CPoint point);
  static std::string pressKey(CWnd& control, UINT virtualKey);
  // Drags a list view's row onto another: button down, move, button up.
  static std::string dragRow(CWnd& control, int from, int to);
  // Ends the in-place editing of a list view's row with a text, starting it when needed.
  static std::string editLabel(CWnd& control, int line, const CZelString& text);
};
