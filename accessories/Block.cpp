#include "accessories/Block.h"

#include "module/CQenDialogFactory.h"
#include "resources/dialogs/block_ids.h"

namespace {

// "Standard" and "Kontur" draw no hatch, so the hatch assignment has nothing to set.
constexpr QenReprRadio kRadios[] = {
    {10333, L"R", false, L"QEN_DCL_HLBZ_138", L"Kontur"},
    {IDC_BLOCK_STANDARD, L"N", false, L"QEN_DCL_HLBZ_004", L"Standard"},
    {IDC_BLOCK_HATCHED, L"M", true, L"QEN_DCL_HLBZ_139", L"Schraffiert"},
};

const QenAccessoryFrame kFrame{
    L"KLOTZ", L"*HZ_KLOTZ*", L"qen_klotz", L"QEN_DCL_HLBZ_133", L"Klotz", IDD_BLOCK_TAB, L"HATCH", kRadios,
};

const QenDialogRegistration kRegistration(QenEntry::Block, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new Block(parent));
});

}  // namespace

// The tab is constructed before the frame uses it: the frame keeps only a reference.
Block::Block(CWnd* parent) : CQenAccessoryDlg(IDD_BLOCK, kFrame, m_block, parent) {}
