// The images of icon resources: the module's own small icons (resources/icons), the
// system icons of message boxes from the desktop theme, and a plain mark for an icon number
// that has no image of ours.
#pragma once

#include "ui/wintypes.h"

#include <wx/bitmap.h>

class CWxIcons {
public:
  // The image of icon `id` (0: none, an invalid bitmap), about `size` pixels square.
  static wxBitmap bitmap(UINT id, int size);
  // Whether the module has an image of its own for the icon.
  static bool isOwn(UINT id);
};
