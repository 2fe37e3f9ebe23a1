#include "framework/CQenTabCtrl.h"

const CMessageMapEntry CQenTabCtrl::kEntries[] = {
    msgmap::message<&CQenTabCtrl::OnPaint>(WM_PAINT),
};
const CMessageMap CQenTabCtrl::kMessageMap{&CTabCtrl::kMessageMap, kEntries};

CRect CQenTabCtrl::pageArea(const CRect& client) {
  CRect r = client;
  r.top += 22;
  r.left += 1;
  r.right -= 3;
  r.bottom -= 3;
  return r;
}

LRESULT CQenTabCtrl::OnPaint(WPARAM wParam, LPARAM lParam) {
  DefWindowProc(WM_PAINT, wParam, lParam);  // the tabs and the frame
  CRect client;
  GetClientRect(&client);
  m_fill = Fill{pageArea(client), kPageColour};
  return 0;
}
