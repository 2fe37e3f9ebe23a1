#include "standardparts/CQenNrmTabBereiche.h"

#include "data/CConfig.h"
#include "resources/dialogs/nrm_areas_ids.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmStore.h"
#include "ui/ZelHelp.h"

#include <map>

using namespace qen::nrm;

const CMessageMapEntry CQenNrmTabBereiche::kEntries[] = {
    msgmap::word(IDC_NRMA_ONLY_ARTICLES, BN_CLICKED, L"is_order"),
    msgmap::word(IDC_NRMA_LIST, CLBN_CHKCHANGE, L"on_off"),
};
const CMessageMap CQenNrmTabBereiche::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                  msgmap::wordHandler<&CQenNrmTabBereiche::command>()};

CQenNrmTabBereiche::CQenNrmTabBereiche() : CQenNrmTab(IDD_NRM_AREAS) {
  m_mask = releaseMask(false);
  m_articles = onlyArticles();
}

void CQenNrmTabBereiche::addLangRsc() {
  langRsc(IDC_NRMA_ONLY_ARTICLES, L"QEN_DCL_0000_155", L"Nur Artikel");
  langRsc(IDC_NRMA_LABEL, L"QEN_DCL_0000_029", L"Bereich");
}

void CQenNrmTabBereiche::DoDataExchange(CDataExchange* dx) { DDX_Control(dx, IDC_NRMA_LIST, m_list); }

BOOL CQenNrmTabBereiche::OnInitDialog() {
  CQenNrmTab::OnInitDialog();
  return TRUE;
}

void CQenNrmTabBereiche::refresh() {
  if (!GetSafeHwnd()) return;
  const std::string mask = releaseMask(true);
  const bool articles = onlyArticles();
  std::map<std::string, std::string> names;
  m_codes.clear();
  spheres(names, m_codes);
  m_list.ResetContent();
  for (std::size_t i = 0; i < m_codes.size(); ++i) {
    const int line = m_list.AddString(wide(names[m_codes[i]]).c_str());
    m_list.SetCheck(line, relAnd(m_codes[i], mask).empty() ? 1 : 0);
  }
  CheckDlgButton(IDC_NRMA_ONLY_ARTICLES, articles ? BST_CHECKED : BST_UNCHECKED);
  m_list.EnableWindow(!articles);
}

void CQenNrmTabBereiche::command(const CZelString& word) {
  if (word == L"is_order") onOrder();
  else if (word == L"on_off") onOnOff();
}

void CQenNrmTabBereiche::onOrder() {
  if (IsDlgButtonChecked(IDC_NRMA_ONLY_ARTICLES) == BST_CHECKED) setInt(L"_QEN_NORM_ORDER", 1);
  else ZEL::cfg_remove(L"_QEN_NORM_ORDER");
  refresh();
}

void CQenNrmTabBereiche::onOnOff() {
  const int line = m_list.GetCurSel();
  if (line < 0 || line >= static_cast<int>(m_codes.size())) return;
  const std::string& code = m_codes[static_cast<std::size_t>(line)];
  const std::optional<CZelString> stored = getText(L"_QEN_NM_REL");
  if (!stored || code.empty()) return;
  const std::string mask = utf8(*stored);
  const std::string next = m_list.GetCheck(line) ? relAndNot(mask, code) : relOr(mask, code);
  setText(L"_QEN_NM_REL", wide(next));
  refresh();
}
