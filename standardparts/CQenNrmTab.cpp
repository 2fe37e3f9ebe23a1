#include "standardparts/CQenNrmTab.h"

#include "standardparts/QenNrmStore.h"
#include "ui/ZelHelp.h"

BOOL CQenNrmTab::OnInitDialog() {
  useStoredCountry();
  CZelDlg::OnInitDialog();
  SetHelpTopic(L"qen_din");
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  return TRUE;
}

CWnd* CQenNrmTab::frame() const {
  CWnd* tabs = GetParent();
  return tabs ? tabs->GetParent() : nullptr;
}

void CQenNrmTab::toFrame(UINT message, LPARAM lParam) const {
  if (CWnd* f = frame()) f->SendMessage(message, 0, lParam);
}
