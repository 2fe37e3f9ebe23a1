// The properties tab of the seal dialog: the size tab of the accessories (material,
// article, width and height or determined on screen) and nothing more.
#pragma once

#include "accessories/CAccessorySizeTab.h"

class CSealDlg : public CAccessorySizeTab {
public:
  CSealDlg();
};
