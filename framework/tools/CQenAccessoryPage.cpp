#include "framework/tools/CQenAccessoryPage.h"

#include "framework/QenDialogIds.h"

const CMessageMapEntry CQenAccessoryPage::kEntries[] = {
    msgmap::message<&CQenAccessoryPage::OnRefreshPage>(qen::WM_QEN_REFRESH_PAGE),
};
const CMessageMap CQenAccessoryPage::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CWnd* CQenAccessoryPage::mainDialog() const {
  CWnd* tabs = GetParent();
  return tabs ? tabs->GetParent() : nullptr;
}

void CQenAccessoryPage::notifyMain() {
  if (CWnd* main = mainDialog()) main->SendMessage(qen::WM_QEN_REFRESH);
}

LRESULT CQenAccessoryPage::OnRefreshPage(WPARAM, LPARAM) {
  refresh();
  return 0;
}
