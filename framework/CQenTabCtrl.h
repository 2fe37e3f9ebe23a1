// The tab control of the layer and labeling dialogs: after the control has painted its
// tabs, the page area is filled in the dialog colour, so that no white shows behind pages
// that do not cover it.
#pragma once

#include "ui/CTabCtrl.h"

class CQenTabCtrl : public CTabCtrl {
public:
  // The system colour of 3D faces, which dialogs are painted in.
  static constexpr int kPageColour = 15;

  struct Fill {
    CRect rect;
    int sysColour = 0;
  };
  // What the last paint filled; a window backend paints it, tests read it.
  const Fill& lastFill() const { return m_fill; }
  // The page area of a client rectangle: 22 pixels below the top for the tabs, 1 in from
  // the left, 3 in from the right and the bottom for the frame.
  static CRect pageArea(const CRect& client);

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  LRESULT OnPaint(WPARAM, LPARAM);
  Fill m_fill;
};
