#include "ui/CZelColorDlg.h"

#include "data/CZelApp.h"
#include "data/CZelMatMgr.h"
#include "data/ZelNames.h"
#include "resources/dialogs/platform/color_ids.h"
#include "ui/CButton.h"
#include "ui/CEdit.h"
#include "ui/CListBox.h"
#include "ui/CStatic.h"

#include <cwchar>
#include <cwctype>

namespace {

constexpr int kByBlock = 0;
constexpr int kByLayer = 256;
const int kRgbEdits[3] = {IDC_COLOR_RED, IDC_COLOR_GREEN, IDC_COLOR_BLUE};

// The screen colours of the first nine index colours, so that switching from a standard
// colour to a true colour starts from the same colour; other indexes keep the last RGB.
bool standardRgb(int index, int rgb[3]) {
  static const int kTable[10][3] = {{0, 0, 0},       {255, 0, 0},   {255, 255, 0},   {0, 255, 0},
                                    {0, 255, 255},   {0, 0, 255},   {255, 0, 255},   {255, 255, 255},
                                    {128, 128, 128}, {192, 192, 192}};
  if (index < 1 || index > 9) return false;
  for (int i = 0; i < 3; ++i) rgb[i] = kTable[index][i];
  return true;
}

// A whole number from typed text, blanks around it allowed; false for anything else.
bool parseNumber(const CZelString& text, int& value) {
  CZelString t = text;
  t.trim();
  if (t.isEmpty() || t.len() > 6) return false;
  for (wchar_t c : t.str())
    if (!std::iswdigit(c)) return false;
  value = static_cast<int>(std::wcstol(t.c_str(), nullptr, 10));
  return true;
}

CZelString number(int v) { return CZelString(std::to_wstring(v)); }

}  // namespace

// clang-format off
const CMessageMapEntry CZelColorDlg::kEntries[] = {
  msgmap::word(IDC_COLOR_BY_INDEX, BN_CLICKED, L"by_index"),
  msgmap::word(IDC_COLOR_BY_RGB, BN_CLICKED, L"by_rgb"),
  msgmap::word(IDC_COLOR_INDEX, EN_KILLFOCUS, L"index"),
  msgmap::word(IDC_COLOR_STANDARD, LBN_SELCHANGE, L"standard"),
  msgmap::word(IDC_COLOR_STANDARD, LBN_DBLCLK, L"standard_ok"),
  msgmap::word(IDC_COLOR_RED, EN_KILLFOCUS, L"rgb"),
  msgmap::word(IDC_COLOR_GREEN, EN_KILLFOCUS, L"rgb"),
  msgmap::word(IDC_COLOR_BLUE, EN_KILLFOCUS, L"rgb"),
};
// clang-format on
const CMessageMap CZelColorDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries, msgmap::wordHandler<&CZelColorDlg::command>()};

CZelColorDlg::CZelColorDlg(const CZelColor& color, CWnd* parent, ZelColorChoice choice)
    : CZelDlg(IDD_ZEL_COLOR, parent), m_color(color), m_choice(choice) {
  m_trueColor = color.isTrueColor();
  if (m_trueColor) {
    m_rgb[0] = color.red();
    m_rgb[1] = color.green();
    m_rgb[2] = color.blue();
  } else {
    m_index = color.index();
    bool logical = m_index == kByBlock || m_index == kByLayer;
    if (m_index < 0 || m_index > kByLayer || (logical && choice == ZelColorChoice::Plain)) m_index = 7;
    standardRgb(m_index, m_rgb);
  }
}

void CZelColorDlg::addLangRsc() {
  langRsc(IDC_COLOR_BY_INDEX, L"ZEL_COLOR_002", L" Indexfarbe");
  langRsc(IDC_COLOR_INDEX_LABEL, L"ZEL_COLOR_003", L"Farbnummer:");
  langRsc(IDC_COLOR_STANDARD_LABEL, L"ZEL_COLOR_004", L"Standardfarben:");
  langRsc(IDC_COLOR_BY_RGB, L"ZEL_COLOR_005", L" True Color");
  langRsc(IDC_COLOR_RED_LABEL, L"ZEL_COLOR_006", L"Rot:");
  langRsc(IDC_COLOR_GREEN_LABEL, L"ZEL_COLOR_007", L"Grün:");
  langRsc(IDC_COLOR_BLUE_LABEL, L"ZEL_COLOR_008", L"Blau:");
  langRsc(IDC_COLOR_PREVIEW_LABEL, L"ZEL_COLOR_009", L"Farbe:");
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CZelColorDlg::updLang() {
  SetWindowText(GetMsg(L"ZEL_COLOR_001", L"Farbe wählen"));
  return CZelDlg::updLang();
}

BOOL CZelColorDlg::OnInitDialog() {
  CZelDlg::OnInitDialog();
  CListBox& list = listBox(IDC_COLOR_STANDARD);
  if (m_choice == ZelColorChoice::ByLayerBlock) {
    for (int logical : {kByLayer, kByBlock})
      list.SetItemData(list.AddString(ZEL::color_txt(CZelColor::fromIndex(logical), country()).c_str()), logical);
  }
  for (int i = 1; i <= 7; ++i)
    list.SetItemData(list.AddString(ZEL::color_txt(CZelColor::fromIndex(i), country()).c_str()), i);
  edit(IDC_COLOR_INDEX).SetLimitText(3);
  for (int id : kRgbEdits) edit(id).SetLimitText(3);
  refresh();
  GotoDlgCtrl(m_trueColor ? &control(IDC_COLOR_RED) : &control(IDC_COLOR_INDEX));
  return FALSE;
}

void CZelColorDlg::refresh() {
  m_refreshing = true;
  m_color = m_trueColor ? CZelColor::fromRgb(static_cast<std::uint8_t>(m_rgb[0]), static_cast<std::uint8_t>(m_rgb[1]),
                                             static_cast<std::uint8_t>(m_rgb[2]))
                        : CZelColor::fromIndex(m_index);
  CheckRadioButton(IDC_COLOR_BY_INDEX, IDC_COLOR_BY_RGB, m_trueColor ? IDC_COLOR_BY_RGB : IDC_COLOR_BY_INDEX);
  bool logical = m_index == kByBlock || m_index == kByLayer;
  edit(IDC_COLOR_INDEX).SetWindowText(logical ? CZelString() : number(m_index));
  CListBox& list = listBox(IDC_COLOR_STANDARD);
  int line = -1;
  for (int i = 0; i < list.GetCount() && !m_trueColor; ++i)
    if (static_cast<int>(list.GetItemData(i)) == m_index) line = i;
  list.SetCurSel(line);
  for (int i = 0; i < 3; ++i) edit(kRgbEdits[i]).SetWindowText(number(m_rgb[i]));
  for (int id : {IDC_COLOR_INDEX, IDC_COLOR_INDEX_LABEL, IDC_COLOR_STANDARD, IDC_COLOR_STANDARD_LABEL})
    GetDlgItem(id)->EnableWindow(!m_trueColor);
  for (int id : {IDC_COLOR_RED, IDC_COLOR_GREEN, IDC_COLOR_BLUE, IDC_COLOR_RED_LABEL, IDC_COLOR_GREEN_LABEL,
                 IDC_COLOR_BLUE_LABEL})
    GetDlgItem(id)->EnableWindow(m_trueColor);
  staticCtrl(IDC_COLOR_PREVIEW).SetWindowText(ZEL::color_txt(m_color, country()));
  m_refreshing = false;
}

bool CZelColorDlg::readIndex(Complaint complaint) {
  int v = 0;
  CZelString text = edit(IDC_COLOR_INDEX).GetWindowText();
  bool logical = m_index == kByBlock || m_index == kByLayer;
  // An empty edit while "VonLayer" or "VonBlock" is chosen keeps that choice.
  if (logical && CZelString(text).trim().isEmpty()) return true;
  if (!parseNumber(text, v) || v < 1 || v > 255) {
    if (complaint == Complaint::Tell)
      MessageBoxW(GetMsg(L"ZEL_COLOR_010", L"Bitte eine Farbnummer von 1 bis 255 eingeben.").c_str());
    return false;
  }
  m_index = v;
  return true;
}

bool CZelColorDlg::readRgb(Complaint complaint) {
  int values[3] = {0, 0, 0};
  for (int i = 0; i < 3; ++i) {
    if (!parseNumber(edit(kRgbEdits[i]).GetWindowText(), values[i]) || values[i] > 255) {
      if (complaint == Complaint::Tell)
        MessageBoxW(GetMsg(L"ZEL_COLOR_011", L"Rot, Grün und Blau sind Werte von 0 bis 255.").c_str());
      return false;
    }
  }
  for (int i = 0; i < 3; ++i) m_rgb[i] = values[i];
  return true;
}

void CZelColorDlg::command(const CZelString& word) {
  if (m_refreshing) return;
  if (word == L"by_index") {
    m_trueColor = false;
  } else if (word == L"by_rgb") {
    if (!m_trueColor) standardRgb(m_index, m_rgb);
    m_trueColor = true;
  } else if (word == L"index" || word == L"rgb") {
    // Leaving a field takes a good value at once; a bad one stays for the user to correct
    // and is refused when OK is pressed (a box on leaving would interrupt the OK click).
    bool valid = word == L"index" ? readIndex(Complaint::Silent) : readRgb(Complaint::Silent);
    if (!valid) return;
  } else if (word == L"standard" || word == L"standard_ok") {
    CListBox& list = listBox(IDC_COLOR_STANDARD);
    int line = list.GetCurSel();
    if (line >= 0) m_index = static_cast<int>(list.GetItemData(line));
  }
  refresh();
  if (word == L"standard_ok") OnOK();
}

void CZelColorDlg::OnOK() {
  // What was typed without leaving the edit counts too; a bad value keeps the dialog open.
  bool valid = m_trueColor ? readRgb(Complaint::Tell) : readIndex(Complaint::Tell);
  if (!valid) {
    GotoDlgCtrl(m_trueColor ? &control(IDC_COLOR_RED) : &control(IDC_COLOR_INDEX));
    return;
  }
  refresh();
  CZelDlg::OnOK();
}

namespace {

// The application object shows this dialog when a colour is to be chosen; it is installed
// here, where the dialog lives, when the library is loaded.
int showColorDialog(CZelColor& color, CWnd* parent, ZelColorChoice choice) {
  CZelColorDlg dlg(color, parent, choice);
  const auto* owner = dynamic_cast<const CZelDlg*>(parent);
  dlg.SetCountry(owner ? owner->country() : CZelMatMgr::userCountry());
  if (dlg.DoModal() != IDOK) return 0;
  color = dlg.color();
  return 1;
}

const bool kColorDialogInstalled = (ZEL::zelAppPtr()->setColorDialog(&showColorDialog), true);

}  // namespace
