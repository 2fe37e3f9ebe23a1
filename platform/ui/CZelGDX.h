// The preview drawing of the platform: the display list an object is drawn into, with
// the background the host draws on. A picture control shows it; `refresh` renders it
// elsewhere (without a file name: to the clipboard).
#pragma once

#include "ui/CDisplayList.h"

class CZelGDX {
public:
  void clear() { m_list.clear(); }
  CDisplayList& displayList() { return m_list; }
  const CDisplayList& displayList() const { return m_list; }
  void setBackground(CZelColor color) { m_list.background = color; }

  // Renders the drawing as a picture of width x height pixels: into the file, or with no
  // file name onto the clipboard. False when nothing could be rendered.
  bool refresh(const wchar_t* file, int width, int height, const CDisplayExtents& view = {});

private:
  CDisplayList m_list;
};
