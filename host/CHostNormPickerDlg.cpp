#include "CHostNormPickerDlg.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataAccess.h"
#include "norm/ZelNormPrototype.h"
#include "resources/dialogs/din_dia_ids.h"
#include "ui/CButton.h"
#include "ui/CStatic.h"
#include "ui/CZelGDX.h"

#include <algorithm>
#include <optional>
#include <string>

// clang-format off
const CMessageMapEntry CHostNormPickerDlg::kEntries[] = {
  msgmap::commandRange<&CHostNormPickerDlg::cellClicked>(IDC_DIN_DIA_CELL0, IDC_DIN_DIA_CELL15, STN_CLICKED),
  msgmap::commandRange<&CHostNormPickerDlg::cellDoubleClicked>(IDC_DIN_DIA_CELL0, IDC_DIN_DIA_CELL15, STN_DBLCLK),
  msgmap::word(IDC_DIN_DIA_LIST, LBN_SELCHANGE, L"list"),
  msgmap::word(IDC_DIN_DIA_LIST, LBN_DBLCLK, L"list_ok"),
  msgmap::word(IDC_DIN_DIA_PREV, BN_CLICKED, L"prev"),
  msgmap::word(IDC_DIN_DIA_NEXT, BN_CLICKED, L"next"),
};
// clang-format on
const CMessageMap CHostNormPickerDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                  msgmap::wordHandler<&CHostNormPickerDlg::command>()};

namespace {

CZelString wide(const std::string& s) { return CZelString::fromUtf8(s); }

// The family the standard-parts dialog shows designations in ("*NM*\DSP"), DIN by default.
std::string family() {
  CZelString dsp;
  CZelDataItem* item = ZEL::cfg_get(L"*NM*\\DSP");
  if (item && item->get(dsp) && !dsp.isEmpty()) return dsp.toUtf8();
  return "DIN";
}

const CZelDataItem* groupItem(const CZelDataItem* leaves, const ZEL::NormStack& group) {
  if (!leaves) return nullptr;
  if (group.empty()) return leaves;
  CZelArrayTempl<CZelString> parts;
  for (const std::string& p : group) parts.add(wide(p));
  CZelDataKey key;
  key.set(parts);
  return leaves->find(&key);
}

// Every standard under a group item, its own "LEAFS" first, then those of its sub-groups
// in their order.
void collect(const CZelDataItem* item, const ZEL::NormStack& path, std::vector<ZEL::NormStack>& out) {
  if (!item || !item->isDir()) return;
  CZelArrayTempl<CZelString> keys;
  CZelDataKey leafs(L"LEAFS");
  if (item->get(keys, &leafs))
    for (const CZelString& k : keys) {
      ZEL::NormStack s = path;
      s.push_back(k.toUtf8());
      if (std::find(out.begin(), out.end(), s) == out.end()) out.push_back(s);
    }
  for (ZEL::CDataIterator it(item); !it.done(); it.next()) {
    if (it.name() == L"LEAFS") continue;
    ZEL::NormStack sub = path;
    sub.push_back(it.name().toUtf8());
    collect(it.item(), sub, out);
  }
}

// The group a stack stands for: a standard's group, any other node itself.
ZEL::NormStack groupOf(const ZEL::NormStack& stack) {
  ZEL::NormStack group = stack;
  if (!group.empty()) {
    const std::optional<std::string> type = ZEL::norm_get(stack, "TYPE");
    if (type && *type == "NORM") group.pop_back();
  }
  return group;
}

}  // namespace

CHostNormPickerDlg::CHostNormPickerDlg(const CZelDataItem* leaves, const ZEL::NormStack& current, CWnd* parent)
    : CZelDlg(IDD_DIN_DIA, parent), m_current(current) {
  m_standards = standardsFor(leaves, current);
  m_group = groupOf(current);
  // The group shown is the one the standards were found in.
  while (!m_group.empty() && m_standards.size() && groupItem(leaves, m_group) == nullptr) m_group.pop_back();
  const auto at = std::find(m_standards.begin(), m_standards.end(), current);
  if (at != m_standards.end()) {
    m_selected = static_cast<int>(at - m_standards.begin());
    m_page = m_selected / kCells;
  }
}

std::vector<ZEL::NormStack> CHostNormPickerDlg::standardsFor(const CZelDataItem* leaves, const ZEL::NormStack& current) {
  std::vector<ZEL::NormStack> out;
  ZEL::NormStack group = groupOf(current);
  for (;;) {
    collect(groupItem(leaves, group), group, out);
    if (!out.empty() || group.empty()) break;
    group.pop_back();
  }
  return out;
}

void CHostNormPickerDlg::addLangRsc() {
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
  langRsc(IDC_DIN_DIA_PREV, L"QEN_HOST_DIN_DIA_002", L"&Vorher");
  langRsc(IDC_DIN_DIA_NEXT, L"QEN_HOST_DIN_DIA_003", L"&Nächster");
}

bool CHostNormPickerDlg::updLang() {
  SetWindowText(GetMsg(L"QEN_HOST_DIN_DIA_001", L"Normteil wählen"));
  return CZelDlg::updLang();
}

BOOL CHostNormPickerDlg::OnInitDialog() {
  useStoredCountry();
  for (int i = 0; i < kCells; ++i) m_cells[static_cast<std::size_t>(i)].SubclassDlgItem(IDC_DIN_DIA_CELL0 + i, this);
  m_list.SubclassDlgItem(IDC_DIN_DIA_LIST, this);
  CZelDlg::OnInitDialog();

  staticCtrl(IDC_DIN_DIA_GROUP).SetWindowText(m_group.empty() ? CZelString() : wide(ZEL::norm_tree_txt(m_group, family())));
  m_refreshing = true;
  const std::string fam = family();
  for (const ZEL::NormStack& s : m_standards) {
    std::string text = ZEL::norm_tree_txt(s, fam);
    m_list.AddString(wide(text.empty() ? s.back() : text).c_str());
  }
  m_refreshing = false;
  refresh();
  // A list without a chosen line keeps the focus off it, so that no line looks chosen.
  if (m_selected >= 0) GotoDlgCtrl(&m_list);
  else GotoDlgCtrl(GetDlgItem(IDCANCEL));
  return FALSE;
}

int CHostNormPickerDlg::pageCount() const {
  return std::max(1, static_cast<int>((m_standards.size() + kCells - 1) / kCells));
}

// The pictures of the page: each cell the prototype picture of its standard, the chosen one
// on a lighter background; cells past the last standard are empty and hidden.
void CHostNormPickerDlg::showPage() {
  for (int i = 0; i < kCells; ++i) {
    CZelDplistImage& cell = m_cells[static_cast<std::size_t>(i)];
    const int index = m_page * kCells + i;
    const bool used = index < static_cast<int>(m_standards.size());
    cell.ShowWindow(used ? SW_SHOW : SW_HIDE);
    cell.EnableWindow(used);
    CZelGDX gdx;
    if (used) {
      const ZEL::NormStack& s = m_standards[static_cast<std::size_t>(index)];
      const std::optional<std::string> prototype = ZEL::norm_get(s, "PROTOTYPE");
      const bool chosen = index == m_selected;
      const CZelColor back = chosen ? CZelColor::fromRgb(255, 255, 255) : CZelColor::fromRgb(212, 208, 200);
      ZEL::CUniqPointer<CZelDataItem> params(new CZelDataItem());
      CZelDataKey main(L"MAIN");
      params->put(&main, ZEL::mkRbLong(1));
      CZelDataKey backKey(L"BACK_CLR");
      params->put(&backKey, ZEL::mkRbLong(chosen ? 0x00FFFFFF : 0x00C8D0D4));
      gdx.setBackground(back);
      QEN::gdx_image_norm_prototype(gdx, wide(prototype && !prototype->empty() ? *prototype : s.back()), params.get());
    }
    cell.reset();
    cell.set_dpList(gdx);
    cell.zoomExtents();
  }
  m_shownPage = m_page;
}

void CHostNormPickerDlg::refresh() {
  m_refreshing = true;
  showPage();
  m_list.SetCurSel(m_selected);
  button(IDC_DIN_DIA_PREV).EnableWindow(m_page > 0);
  button(IDC_DIN_DIA_NEXT).EnableWindow(m_page + 1 < pageCount());
  button(IDOK).EnableWindow(m_selected >= 0);
  CZelString page = GetMsg(L"QEN_HOST_DIN_DIA_004", L"Seite") + L" " + CZelString(std::to_wstring(m_page + 1)) + L" / " +
                    CZelString(std::to_wstring(pageCount()));
  staticCtrl(IDC_DIN_DIA_PAGE).SetWindowText(page);
  m_refreshing = false;
}

void CHostNormPickerDlg::choose(int index) {
  if (index < 0 || index >= static_cast<int>(m_standards.size())) return;
  m_selected = index;
  m_page = index / kCells;
  refresh();
}

void CHostNormPickerDlg::cellClicked(UINT id) {
  if (m_refreshing) return;
  choose(m_page * kCells + static_cast<int>(id - IDC_DIN_DIA_CELL0));
}

void CHostNormPickerDlg::cellDoubleClicked(UINT id) {
  if (m_refreshing) return;
  choose(m_page * kCells + static_cast<int>(id - IDC_DIN_DIA_CELL0));
  if (m_selected >= 0) OnOK();
}

void CHostNormPickerDlg::command(const CZelString& word) {
  if (m_refreshing) return;
  if (word == L"list" || word == L"list_ok") {
    choose(m_list.GetCurSel());
    if (word == L"list_ok" && m_selected >= 0) OnOK();
  } else if (word == L"prev" && m_page > 0) {
    --m_page;
    refresh();
  } else if (word == L"next" && m_page + 1 < pageCount()) {
    ++m_page;
    refresh();
  }
}

void CHostNormPickerDlg::OnOK() {
  if (m_selected < 0) return;
  m_chosen = m_standards[static_cast<std::size_t>(m_selected)];
  CZelDlg::OnOK();
}
