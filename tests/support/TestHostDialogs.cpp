// The test host's one difference from qen-host: the test dialog answers the setting-block
// entry, so that dialog scripts can drive a real dialog through the whole host.
#include "module/CQenDialogFactory.h"
#include "tests/support/TestDialogs.h"

namespace {
const QenDialogRegistration kTestDialog(QenEntry::Block, [](CWnd* parent) -> std::unique_ptr<CQenEntryDialog> {
  return std::make_unique<CTestMainDlg>(parent);
});
}  // namespace
