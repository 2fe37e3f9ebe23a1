// An image list of the model: the icons (by resource number) that list and tree views show
// by index.
#pragma once

#include "ui/wintypes.h"

#include <vector>

class CImageList {
public:
  BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
  int Add(HICON icon);
  int GetImageCount() const { return static_cast<int>(m_icons.size()); }
  UINT iconAt(int index) const;
  BOOL DeleteImageList();

private:
  std::vector<UINT> m_icons;
  int m_cx = 16;
  int m_cy = 16;
};
