#include "ui/CDialogTemplate.h"

const CDialogTemplate::Control* CDialogTemplate::control(int controlId) const {
  for (const Control& c : controls)
    if (c.id == controlId) return &c;
  return nullptr;
}
