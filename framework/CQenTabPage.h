// A page of the module's own dialogs: it knows the data item it edits, and leaves the
// focus where the framework puts it.
#pragma once

#include "ui/CZelTabPage.h"

class CZelDataItem;

class CQenTabPage : public CZelTabPage {
public:
  CQenTabPage(UINT templateId, CWnd* parent = nullptr) : CZelTabPage(templateId, parent) {}

  BOOL OnInitDialog() override {
    CZelTabPage::OnInitDialog();
    return FALSE;
  }

  CZelDataItem* m_pageItem = nullptr;  // set by the owning dialog before the page is shown
  void* m_second = nullptr;            // for the deriving pages' own use
};
