#include "accessories/Insul.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "module/CQenDialogFactory.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjTxt.h"
#include "resources/dialogs/insulation_ids.h"

using namespace qen;

namespace {

const wchar_t* const kSection = L"*HZ_DM*";

// The representation radios write HATCH; only "Schraffiert" draws the hatch that "S" sets.
constexpr QenReprRadio kRadios[] = {
    {IDC_INSUL_CONTOUR, L"K", false, L"QEN_DCL_HLBZ_042", L"Kontur"},
    {IDC_INSUL_FILLED, L"F", false, L"QEN_DCL_HLBZ_043", L"Gefüllt"},
    {IDC_INSUL_HATCHED, L"S", true, L"QEN_DCL_HLBZ_201", L"Schraffiert"},
};

struct Choice {
  int id;
  const wchar_t* value;
};
constexpr Choice kConstructions[] = {{IDC_INSUL_STRAIGHT, L"G"},
                                     {IDC_INSUL_ARC, L"B"},
                                     {IDC_INSUL_WEDGE, L"K"},
                                     {IDC_INSUL_RING, L"R"},
                                     {IDC_INSUL_AREA, L"F"}};
// WIDTH 1 to 4: the width factors 0.5, 0.6, 0.8 and 1.0.
constexpr int kWidths[] = {IDC_INSUL_WIDTH1, IDC_INSUL_WIDTH2, IDC_INSUL_WIDTH3, IDC_INSUL_WIDTH4};
constexpr const wchar_t* kWidthTexts[] = {L"0.5", L"0.6", L"0.8", L"1.0"};

const QenAccessoryFrame kFrame{
    L"DM", kSection, L"qen_dmto", L"QEN_DCL_DAEM_001", L"Dämmung", IDD_INSULATION_TAB, L"HATCH", kRadios,
};

const QenDialogRegistration kRegistration(QenEntry::Insulation, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new Insul(parent));
});

}  // namespace

// The tab is constructed before the frame uses it: the frame keeps only a reference.
Insul::Insul(CWnd* parent) : CQenAccessoryDlg(IDD_INSULATION, kFrame, m_insulation, parent) {}

CZelString Insul::text(const wchar_t* key) {
  CZelString value;
  CZelDataKey k(key);
  if (CZelDataItem* root = section() ? section()->get() : nullptr) root->get(value, &k);
  return value;
}

int Insul::integer(const wchar_t* key, int fallback) {
  int value = fallback;
  CZelDataKey k(key);
  if (CZelDataItem* root = section() ? section()->get() : nullptr) root->get(value, &k);
  return value;
}

void Insul::setText(const wchar_t* key, const wchar_t* value) {
  CZelDataKey k(key);
  ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &k, CZelString(value));
}

void Insul::setInteger(const wchar_t* key, int value) {
  CZelDataKey k(key);
  ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &k, value);
}

bool Insul::isEdit() {
  CZelDataKey orig;
  orig.set(5005, kSection, 5005, L"ORIG", 0);
  return ZEL::cfg_get(orig) != nullptr;
}

void Insul::addLangRsc() {
  CQenAccessoryDlg::addLangRsc();
  langRsc(IDC_INSUL_REPR_GROUP, L"QEN_DCL_DAEM_013", L"Darstellung");
  langRsc(IDC_INSUL_SEPARATOR, L"QEN_DCL_DAEM_016", L"Trennlinie");
  langRsc(IDC_INSUL_CONS_GROUP, L"QEN_DCL_DAEM_020", L"Konstruktion");
  langRsc(IDC_INSUL_STRAIGHT, L"QEN_DCL_DAEM_021", L"Gerade");
  langRsc(IDC_INSUL_ARC, L"QEN_DCL_DAEM_022", L"Bogen");
  langRsc(IDC_INSUL_WEDGE, L"QEN_DCL_DAEM_023", L"Keil");
  langRsc(IDC_INSUL_RING, L"QEN_DCL_DAEM_024", L"Ring");
  langRsc(IDC_INSUL_AREA, L"QEN_DCL_DAEM_025", L"Fläche");
  langRsc(IDC_INSUL_ISLE_GROUP, L"QEN_DCL_DAEM_026", L"Inseln");
  langRsc(IDC_INSUL_WIDTH_GROUP, L"QEN_DCL_DAEM_028", L"Breitenfaktor");
}

BOOL Insul::OnInitDialog() {
  CQenAccessoryDlg::OnInitDialog();
  for (std::size_t i = 0; i < std::size(kWidths); ++i) SetDlgItemText(kWidths[i], kWidthTexts[i]);
  m_page.refresh();
  // Islands are cut out of the drawing around the insulation: not from inside another dialog.
  if (CInsulation::insideAnotherDialog(*this, m_env)) GetDlgItem(IDC_INSUL_ISLE)->EnableWindow(FALSE);
  // An existing insulation keeps the construction it was drawn with.
  const int show = isEdit() ? SW_HIDE : SW_SHOW;
  GetDlgItem(IDC_INSUL_CONS_GROUP)->ShowWindow(show);
  for (const Choice& c : kConstructions) GetDlgItem(c.id)->ShowWindow(show);
  // The properties tab starts on "Dicke <".
  if (m_tabs.GetCurSel() == 0 && pageExists(m_page)) {
    GotoDlgCtrl(m_page.GetDlgItem(IDC_INSUL_PICK_THICKNESS));
    return FALSE;
  }
  return TRUE;
}

void Insul::refreshRepresentation() {
  CZelString hatch = text(L"HATCH");
  if (hatch.isEmpty()) hatch = text(L"DRAW") == L"S" ? L"S" : L"F";
  for (const QenReprRadio& radio : m_frame.radios) CheckDlgButton(radio.id, BST_UNCHECKED);
  for (const QenReprRadio& radio : m_frame.radios) {
    if (hatch != radio.value) continue;
    CheckDlgButton(radio.id, BST_CHECKED);
    GetDlgItem(IDC_ASSIGN_HATCH)->EnableWindow(radio.hatchButton);
  }
}

void Insul::refreshMain() {
  CQenAccessoryDlg::refreshMain();
  const int separator = integer(L"TR", -1);
  if (separator == 0 || separator == 1) CheckDlgButton(IDC_INSUL_SEPARATOR, separator ? BST_CHECKED : BST_UNCHECKED);

  if (integer(L"TXTGEN", -1) == 0) {
    CZelDataItem* root = section() ? section()->get(nullptr, true) : nullptr;
    if (root) setInteger(L"TXTGEN", ZEL::objTxtBit(root, 0));
  }

  const int width = integer(L"WIDTH", 0);
  for (std::size_t i = 0; i < std::size(kWidths); ++i)
    CheckDlgButton(kWidths[i], width == static_cast<int>(i) + 1 ? BST_CHECKED : BST_UNCHECKED);

  const CZelString cons = text(L"CONS");
  const bool edit = isEdit();
  for (const Choice& c : kConstructions) {
    CheckDlgButton(c.id, cons == c.value ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(c.id)->EnableWindow(!edit);
  }
  CheckDlgButton(IDC_INSUL_ISLE, integer(L"ISLE", 0) == 1 ? BST_CHECKED : BST_UNCHECKED);
}

void Insul::changed() {
  if (pageExists(m_page)) m_page.refresh();
  m_tools.refreshPreview(section(), &m_gdx, &m_picture, true);
}

bool Insul::representationClicked(UINT id) {
  const bool checked = IsDlgButtonChecked(static_cast<int>(id)) == BST_CHECKED;
  for (std::size_t i = 0; i < std::size(kWidths); ++i) {
    if (static_cast<UINT>(kWidths[i]) != id) continue;
    if (checked) setInteger(L"WIDTH", static_cast<int>(i) + 1);
    changed();
    return true;
  }
  for (const Choice& c : kConstructions) {
    if (static_cast<UINT>(c.id) != id) continue;
    if (checked) setText(L"CONS", c.value);
    changed();
    return true;
  }
  for (const QenReprRadio& radio : m_frame.radios) {
    if (static_cast<UINT>(radio.id) != id) continue;
    if (checked && text(L"HATCH") != radio.value) {
      setText(L"HATCH", radio.value);
      // A hatched insulation needs its hatch pattern.
      if (CZelString(radio.value) == L"S") ZEL::objGen(section() ? section()->get(nullptr, true) : nullptr, ZEL::kObjGenHatch);
    }
    refreshMain();
    if (pageExists(m_page)) m_page.refresh();
    return true;
  }
  if (id == IDC_INSUL_SEPARATOR || id == IDC_INSUL_ISLE) {
    setInteger(id == IDC_INSUL_SEPARATOR ? L"TR" : L"ISLE", checked ? 1 : 0);
    changed();
    return true;
  }
  return false;
}
