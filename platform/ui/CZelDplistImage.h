// The picture control of a preview: shows the display list of a CZelGDX in the part of
// the drawing it was last zoomed to. A new drawing keeps that part, so that the user's
// view stays put while values change; zoomExtents fits the picture to the drawing.
#pragma once

#include "ui/CStatic.h"
#include "ui/CZelGDX.h"

class CZelDplistImage : public CStatic {
public:
  // Shows the preview's drawing. The very first drawing is shown whole.
  void set_dpList(const CZelGDX& gdx);
  // Fits the view to what is drawn now.
  void zoomExtents();
  // Forgets the drawing and the view.
  void reset();
  const CDisplayExtents& view() const { return m_view; }

private:
  CDisplayExtents m_view;
};
