// A static that shows a colour (the layer dialog's colour swatch); a click on it notifies
// the dialog when the template gives it SS_NOTIFY.
#pragma once

#include "data/CZelColor.h"
#include "ui/CDisplayList.h"
#include "ui/CStatic.h"

class CZelPicture : public CStatic {
public:
  // The swatch is painted as one filled area in the colour.
  void setColor(const CZelColor& color) {
    m_color = color;
    CDisplayList swatch;
    // Twice as wide as high, as the swatches of the templates are.
    CZelVertexArray area;
    area.add(0, 0);
    area.add(2, 0);
    area.add(2, 1);
    area.add(0, 1);
    swatch.addFill(area, color);
    setDisplayList(swatch);
  }
  const CZelColor& color() const { return m_color; }

private:
  CZelColor m_color;
};
