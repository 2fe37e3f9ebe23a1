#include "accessories/CSeal.h"

#include "module/CQenDialogFactory.h"
#include "resources/dialogs/seal_ids.h"

namespace {

// The outline draws no hatch, so the hatch assignment has nothing to set.
constexpr QenReprRadio kRadios[] = {
    {10333, L"N", false, L"QEN_DCL_HLBZ_138", L"Kontur"},
    {IDC_SEAL_HATCHED, L"M", true, L"QEN_DCL_HLBZ_139", L"Schraffiert"},
};

// No second hatch; the edited seal gets empty name, article and label texts where it has none.
const QenAccessoryFrame kFrame{
    L"DICHT", L"*HZ_DICHT*", L"qen_flach", L"QEN_DCL_HLBZ_140", L"Dichtung", IDD_SEAL_TAB, L"HATCH", kRadios, false, true,
};

const QenDialogRegistration kRegistration(QenEntry::Seal, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CSeal(parent));
});

}  // namespace

// The tab is constructed before the frame uses it: the frame keeps only a reference.
CSeal::CSeal(CWnd* parent) : CQenAccessoryDlg(IDD_SEAL, kFrame, m_seal, parent) {}
