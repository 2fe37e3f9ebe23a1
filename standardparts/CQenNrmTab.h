// What the four pages of the standard-parts dialog share: each opens in the user's language
// ("_COUNTRY") with the dialog's help topic, and reports to the frame, the parent of its tab
// control, by the dialog's private messages.
#pragma once

#include "ui/CZelDlg.h"

class CQenNrmTab : public CZelDlg {
public:
  explicit CQenNrmTab(UINT templateId) : CZelDlg(templateId) {}

  // Language, the base opening, help topic "qen_din" in the add-on's help file.
  BOOL OnInitDialog() override;

protected:
  CWnd* frame() const;
  void toFrame(UINT message, LPARAM lParam = 0) const;
};
