// A static that shows a colour (the layer dialog's colour swatch); a click on it notifies
// the dialog when the template gives it SS_NOTIFY.
#pragma once

#include "data/CZelColor.h"
#include "ui/CStatic.h"

class CZelPicture : public CStatic {
public:
  void setColor(const CZelColor& color) {
    m_color = color;
    Invalidate();
  }
  const CZelColor& color() const { return m_color; }

private:
  CZelColor m_color;
};
