#include "accessories/CMembraneDlg.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "module/CQenDialogFactory.h"
#include "obj/ZelObjTypes.h"
#include "resources/dialogs/membrane_ids.h"

namespace {

const wchar_t* const kSection = L"*HZ_FOLIE*";


// Only "Schraffur" draws a hatch, so only then has the hatch assignment something to set.
constexpr QenReprRadio kRadios[] = {
    {10333, L"K", false, L"QEN_DCL_HLBZ_042", L"Kontur"},
    {IDC_MEMBRANE_FILLED, L"F", false, L"QEN_DCL_HLBZ_043", L"Gefüllt"},
    {IDC_MEMBRANE_LINED, L"L", false, L"QEN_DCL_BLCH_010", L"Liniert"},
    {IDC_MEMBRANE_HATCHED, L"S", true, L"QEN_DCL_HLBZ_044", L"Schraffiert"},
};

struct Construction {
  int id;
  const wchar_t* value;
};
constexpr Construction kConstructions[] = {
    {IDC_MEMBRANE_CONS_NORMAL, L"N"}, {IDC_MEMBRANE_CONS_FIT, L"E"}, {IDC_MEMBRANE_CONS_PICK, L"P"}};

const QenAccessoryFrame kFrame{
    L"FOLIE", kSection, L"qen_foli", L"QEN_DCL_HLBZ_035", L"Folie", IDD_MEMBRANE_TAB, L"DRAW", kRadios,
};

const QenDialogRegistration kRegistration(QenEntry::Membrane, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CMembraneDlg(parent));
});

}  // namespace

// The tab is constructed before the frame uses it: the frame keeps only a reference.
CMembraneDlg::CMembraneDlg(CWnd* parent) : CQenAccessoryDlg(IDD_MEMBRANE, kFrame, m_membrane, parent) {}

bool CMembraneDlg::isLayer() { return ZEL::cfg_get(CZelDataKey::twoPart(kSection, L"SN")) != nullptr; }
bool CMembraneDlg::isEdit() { return ZEL::cfg_get(CZelDataKey::twoPart(kSection, L"ORIG")) != nullptr; }

void CMembraneDlg::addLangRsc() {
  CQenAccessoryDlg::addLangRsc();
  langRsc(qen::IDC_REPR_GROUP, L"QEN_DCL_HLBZ_041", L"Darstellung");
  langRsc(IDC_MEMBRANE_CONS_GROUP, L"QEN_DCL_HLBZ_049", L"Konstruktion");
  langRsc(IDC_MEMBRANE_CONS_NORMAL, L"QEN_DCL_HLBZ_050", L"Normal");
  langRsc(IDC_MEMBRANE_CONS_FIT, L"QEN_DCL_HLBZ_051", L"Einpassen");
  langRsc(IDC_MEMBRANE_CONS_PICK, L"QEN_DCL_HLBZ_082", L"Objektwahl");
}

bool CMembraneDlg::updLang() {
  const bool done = CQenAccessoryDlg::updLang();
  if (isLayer()) SetWindowText(GetMsg(L"HZ169", L"Schicht"));
  return done;
}

BOOL CMembraneDlg::OnInitDialog() {
  CQenAccessoryDlg::OnInitDialog();
  if (isLayer()) SetWindowText(GetMsg(L"HZ169", L"Schicht"));
  // An existing membrane keeps the construction it was drawn with.
  const int show = isEdit() ? SW_HIDE : SW_SHOW;
  GetDlgItem(IDC_MEMBRANE_CONS_GROUP)->ShowWindow(show);
  for (const Construction& c : kConstructions) GetDlgItem(c.id)->ShowWindow(show);
  return TRUE;
}

void CMembraneDlg::refreshMain() {
  CQenAccessoryDlg::refreshMain();
  CZelString cons;
  if (CZelDataItem* item = ZEL::cfg_get(CZelDataKey::twoPart(kSection, L"CONS"))) item->get(cons);
  const bool edit = isEdit();
  for (const Construction& c : kConstructions) {
    CheckDlgButton(c.id, cons == c.value ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(c.id)->EnableWindow(!edit);
  }
}

bool CMembraneDlg::representationClicked(UINT id) {
  if (CQenAccessoryDlg::representationClicked(id)) return true;
  for (const Construction& c : kConstructions) {
    if (static_cast<UINT>(c.id) != id) continue;
    CZelDataKey cons(L"CONS");
    ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &cons, CZelString(c.value));
    if (pageExists(m_page)) m_page.refresh();
    refreshMain();
    return true;
  }
  return false;
}

void CMembraneDlg::removeLayerMarker() { ZEL::cfg_remove(CZelDataKey::twoPart(kSection, L"SN")); }

void CMembraneDlg::OnOK() {
  removeLayerMarker();
  CQenAccessoryDlg::OnOK();
}

void CMembraneDlg::OnCancel() {
  removeLayerMarker();
  CQenAccessoryDlg::OnCancel();
}
