// Geometry and message records of the control model: points and rectangles (pixels unless
// said otherwise), the queued-message record and the notification headers of the controls.
#pragma once

#include "ui/wintypes.h"

#include <algorithm>

class CWnd;

struct CPoint {
  int x = 0;
  int y = 0;
  CPoint() = default;
  CPoint(int px, int py) : x(px), y(py) {}
  friend bool operator==(const CPoint&, const CPoint&) = default;
};

struct CSize {
  int cx = 0;
  int cy = 0;
  CSize() = default;
  CSize(int w, int h) : cx(w), cy(h) {}
};

struct CRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  CRect() = default;
  CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
  bool PtInRect(CPoint p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  bool IsRectEmpty() const { return right <= left || bottom <= top; }
  void OffsetRect(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
  void DeflateRect(int l, int t, int r, int b) { left += l; top += t; right -= r; bottom -= b; }
  friend bool operator==(const CRect&, const CRect&) = default;
};

// A message as it waits in the queue or passes PreTranslateMessage.
struct MSG {
  CWnd* hwnd = nullptr;  // the window the message is for (the model's window is its object)
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
};

struct NMHDR {
  CWnd* hwndFrom = nullptr;
  UINT_PTR idFrom = 0;
  UINT code = 0;
};

struct NMLISTVIEW {
  NMHDR hdr;
  int iItem = -1;
  int iSubItem = 0;
  UINT uNewState = 0;
  UINT uOldState = 0;
  UINT uChanged = 0;
  CPoint ptAction;
  LPARAM lParam = 0;
};

struct LVITEM {
  UINT mask = 0;
  int iItem = -1;
  int iSubItem = 0;
  UINT state = 0;
  UINT stateMask = 0;
  const wchar_t* pszText = nullptr;  // the edited label on LVN_ENDLABELEDIT; none: cancelled
  int iImage = -1;
  LPARAM lParam = 0;
};

struct NMLVDISPINFO {
  NMHDR hdr;
  LVITEM item;
};

struct NMLVKEYDOWN {
  NMHDR hdr;
  UINT wVKey = 0;
};

// A tree node's handle; TVI_ROOT and friends are the framework's special values.
struct TreeNode_;
using HTREEITEM = TreeNode_*;
inline HTREEITEM const TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x10000));
inline HTREEITEM const TVI_FIRST = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x0FFFF));
inline HTREEITEM const TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x0FFFE));
inline HTREEITEM const TVI_SORT = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x0FFFD));

struct TVITEM {
  UINT mask = 0;
  HTREEITEM hItem = nullptr;
  UINT state = 0;
  LPARAM lParam = 0;
};

struct NMTREEVIEW {
  NMHDR hdr;
  UINT action = 0;
  TVITEM itemOld;
  TVITEM itemNew;
  CPoint ptDrag;
};

struct TCITEM {
  UINT mask = 0;
  const wchar_t* pszText = nullptr;
  int iImage = -1;
  LPARAM lParam = 0;
};

struct LITEM {
  int iLink = 0;
  wchar_t szUrl[2084] = {};
};

struct NMLINK {
  NMHDR hdr;
  LITEM item;
};
