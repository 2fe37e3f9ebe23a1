// Dialog units in pixels for a dialog's font, as Windows computes them: a horizontal unit is
// a quarter of the font's average letter width, a vertical unit an eighth of its height.
// The control model maps dialog units with fixed base units (6 x 13); positions the model
// computed in its own pixels are scaled from those.
#pragma once

#include "ui/WinStructs.h"

#include <wx/font.h>
#include <wx/gdicmn.h>

class CDialogTemplate;
class wxWindow;

class CWxDialogUnits {
public:
  // The model's base units, which its pixels are counted in.
  static constexpr int kModelBaseX = 6;
  static constexpr int kModelBaseY = 13;

  CWxDialogUnits() = default;
  CWxDialogUnits(int baseX, int baseY) : m_baseX(baseX), m_baseY(baseY) {}
  // Measures the font on a window (any window of the screen the dialog goes to).
  static CWxDialogUnits measure(const wxFont& font, wxWindow& window);
  // The template's font: its size, and the desktop's user-interface face for the Windows
  // dialog faces, which Linux does not have.
  static wxFont templateFont(const CDialogTemplate* tpl);
  // The font of nearly every template (the Windows dialog face at 8 points), which the
  // backend makes the toolkit's default, so that widgets need no font of their own.
  static wxFont standardFont();

  int baseX() const { return m_baseX; }
  int baseY() const { return m_baseY; }
  int x(int dlu) const { return muldiv(dlu, m_baseX, 4); }
  int y(int dlu) const { return muldiv(dlu, m_baseY, 8); }
  // A template rectangle in dialog units (left, top, width in right, height in bottom).
  wxRect fromDialogUnits(const CRect& dlu) const;
  // A rectangle in the model's pixels, in ours.
  wxRect fromModelPixels(const CRect& px) const;
  wxPoint toModelPixels(wxPoint ours) const;
  wxPoint fromModelPixels(CPoint model) const;

private:
  // Rounded a * b / c, as Windows' MulDiv.
  static int muldiv(int a, int b, int c);

  int m_baseX = kModelBaseX;
  int m_baseY = kModelBaseY;
};
