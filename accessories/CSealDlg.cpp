#include "accessories/CSealDlg.h"

#include "resources/dialogs/seal_ids.h"

static_assert(IDC_SEAL_SCREEN == qen::sizetab::IDC_SCREEN && IDC_SEAL_WIDTH == qen::sizetab::IDC_WIDTH &&
                  IDC_SEAL_HEIGHT == qen::sizetab::IDC_HEIGHT && IDC_SEAL_WIDTH_LABEL == qen::sizetab::IDC_WIDTH_LABEL &&
                  IDC_SEAL_MATERIAL == qen::sizetab::IDC_MATERIAL && IDC_SEAL_ARTICLE == qen::sizetab::IDC_ARTICLE &&
                  IDC_SEAL_MATERIAL_TEXT == qen::sizetab::IDC_MATERIAL_TEXT &&
                  IDC_SEAL_ARTICLE_TEXT == qen::sizetab::IDC_ARTICLE_TEXT,
              "the seal's template numbers the size tab's controls as every size tab does");

namespace {

// A seal being edited keeps what "QEN_MENU" says about it, only the box cannot be changed.
const QenSizeTabFrame kFrame{L"DICHT", L"*HZ_DICHT*", L"qen_flach", IDC_SEAL_HEIGHT_LABEL, QenScreenWhileEditing::KeepCheck};

}  // namespace

CSealDlg::CSealDlg() : CAccessorySizeTab(IDD_SEAL_TAB, kFrame) {}
