// A page of a tab control: a child dialog with the texts of a dialog.
#pragma once

#include "ui/CZelDlg.h"

class CZelTabPage : public CZelDlg {
public:
  CZelTabPage(UINT templateId, CWnd* parent = nullptr) : CZelDlg(templateId, parent) {}
};
