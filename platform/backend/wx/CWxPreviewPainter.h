// Paints a preview's display list into a rectangle, zoomed to its extents with a small
// margin, y upwards as in the drawing: lines, arcs, polylines with bulges, filled areas,
// hatches (parallel lines clipped to their outline) and sets of segments (a pattern's
// dashes), in the drawing's index or true colours.
#pragma once

#include "ui/CDisplayList.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <vector>

class wxDC;

class CWxPreviewPainter {
public:
  CWxPreviewPainter(const CDisplayList& list, const wxRect& area);

  void paint(wxDC& dc) const;
  // The colour of a drawing colour on this list's background (index 7 is black on a light
  // background and white on a dark one, as in the CAD program).
  wxColour colour(const CZelColor& color) const;
  static wxColour indexColour(int index);
  // A drawing point in pixels.
  wxPoint toPixels(double x, double y) const;
  double scale() const { return m_scale; }

private:
  // The outline as pixel points, bulged segments as short chords.
  std::vector<wxPoint> outline(const CZelVertexArray& points, bool closed) const;
  void paintSegments(wxDC& dc, const CDisplayList::Item& item) const;

  const CDisplayList& m_list;
  wxRect m_area;
  double m_scale = 1.0;
  double m_originX = 0.0, m_originY = 0.0;  // the drawing point at the area's centre
};
