#include "ui/CMessageBoxDlg.h"

#include "resources/dialogs/platform/platform_ids.h"
#include "ui/CStatic.h"

const CMessageMapEntry CMessageBoxDlg::kEntries[] = {
  // Cancel goes to OnCancel, which knows what Escape means for each kind of box.
  msgmap::commandRange<&CMessageBoxDlg::OnAnswer>(static_cast<UINT>(IDOK), static_cast<UINT>(IDOK)),
  msgmap::commandRange<&CMessageBoxDlg::OnAnswer>(static_cast<UINT>(IDABORT), static_cast<UINT>(IDNO)),
};

namespace {

// The system icons of the four message-box icon kinds.
UINT iconFor(UINT type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONERROR: return 32513;
    case MB_ICONQUESTION: return 32514;
    case MB_ICONEXCLAMATION: return 32515;
    case MB_ICONINFORMATION: return 32516;
    default: return 0;
  }
}

}  // namespace

const CMessageMap CMessageBoxDlg::kMessageMap{&CDialog::kMessageMap, kEntries};

CMessageBoxDlg::CMessageBoxDlg(CZelString text, CZelString caption, UINT type, CWnd* owner)
    : CDialog(IDD_MESSAGEBOX, owner), m_text(std::move(text)), m_caption(std::move(caption)), m_type(type) {}

std::vector<int> CMessageBoxDlg::answers() const {
  switch (m_type & MB_TYPEMASK) {
    case MB_OKCANCEL: return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL: return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO: return {IDYES, IDNO};
    case MB_RETRYCANCEL: return {IDRETRY, IDCANCEL};
    default: return {IDOK};
  }
}

int CMessageBoxDlg::defaultAnswer() const {
  std::vector<int> a = answers();
  std::size_t i = (m_type & MB_DEFBUTTON3) ? 2 : (m_type & MB_DEFBUTTON2) ? 1 : 0;
  return a[i < a.size() ? i : 0];
}

BOOL CMessageBoxDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  SetWindowText(m_caption);
  staticCtrl(IDC_MSGBOX_TEXT).SetWindowText(m_text);
  CStatic& icon = staticCtrl(IDC_MSGBOX_ICON);
  UINT iconId = iconFor(m_type);
  icon.SetIcon(iconHandle(iconId));
  icon.ShowWindow(iconId ? SW_SHOW : SW_HIDE);
  std::vector<int> offered = answers();
  for (int id = static_cast<int>(IDOK); id <= static_cast<int>(IDNO); ++id) {
    bool shown = std::find(offered.begin(), offered.end(), id) != offered.end();
    GetDlgItem(id)->ShowWindow(shown ? SW_SHOW : SW_HIDE);
  }
  SetDefID(static_cast<UINT>(defaultAnswer()));
  GetDlgItem(defaultAnswer())->SetFocus();
  return FALSE;
}

void CMessageBoxDlg::OnAnswer(UINT id) {
  std::vector<int> offered = answers();
  if (std::find(offered.begin(), offered.end(), static_cast<int>(id)) != offered.end()) EndDialog(static_cast<int>(id));
}

void CMessageBoxDlg::OnCancel() {
  // Escape answers Cancel where the box has it, and OK on a box with OK alone.
  std::vector<int> offered = answers();
  if (std::find(offered.begin(), offered.end(), static_cast<int>(IDCANCEL)) != offered.end()) EndDialog(IDCANCEL);
  else if (offered.size() == 1) EndDialog(IDOK);
}
