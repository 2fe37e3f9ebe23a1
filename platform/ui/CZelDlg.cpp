#include "ui/CZelDlg.h"

#include "data/CConfig.h"
#include "data/ZelMessages.h"
#include "ui/ZelHelp.h"

const CMessageMapEntry CZelDlg::kEntries[] = {
    msgmap::command<&CZelDlg::OnHelpButton>(IDHELP),
};
const CMessageMap CZelDlg::kMessageMap{&CDialog::kMessageMap, kEntries};

CZelDlg::CZelDlg(UINT templateId, CWnd* parent) : CDialog(templateId, parent) {}

BOOL CZelDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  addLangRsc();
  addHlpRsc();
  addToolTipRsc();
  updLang();
  return TRUE;
}

bool CZelDlg::updLang() {
  for (const auto& [id, text] : m_texts.texts(m_country))
    if (CWnd* w = GetDlgItem(id)) w->SetWindowText(text);
  for (const auto& [id, tip] : m_texts.toolTips(m_country))
    if (CWnd* w = GetDlgItem(id)) w->SetToolTipText(tip);
  if (!m_caption.isEmpty()) SetWindowText(m_caption);
  return true;
}

CZelString CZelDlg::GetMsg(const wchar_t* key, const wchar_t* defaultText, const wchar_t* country) const {
  return ZEL::msgText(key, defaultText, country ? country : m_country.c_str());
}

int CZelDlg::MessageBoxW(const wchar_t* text, const wchar_t* caption, UINT flags) {
  return MessageBox(text, caption ? caption : L"QENORA", flags);
}

int CZelDlg::ToolTip(UINT id, NMHDR*, LRESULT* result) {
  CWnd* w = GetDlgItem(static_cast<int>(id));
  bool has = w && !w->toolTipText().isEmpty();
  if (result) *result = has ? 1 : 0;
  return has ? 1 : 0;
}

void CZelDlg::Help(const wchar_t* topic) {
  ZEL::help_show(m_helpFile, topic ? CZelString(topic) : m_helpTopic);
}

void CZelDlg::OnHelpButton() { Help(nullptr); }

bool CZelDlg::isSubDlg() const {
  // Up to the dialog that runs modally, then: was it opened from another dialog?
  const CWnd* w = this;
  while (w && !(dynamic_cast<const CDialog*>(w) && static_cast<const CDialog*>(w)->isModal())) w = w->GetParent();
  if (!w) return false;
  const CWnd* owner = w->GetParent();
  return owner && dynamic_cast<const CDialog*>(owner) != nullptr;
}

bool CZelDlg::useStoredCountry() {
  CZelString country;
  CZelDataItem* stored = ZEL::cfg_get(L"_COUNTRY");
  if (!stored || !stored->get(country) || country.isEmpty()) return false;
  SetCountry(country);
  return true;
}
