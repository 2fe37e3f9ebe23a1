#include "accessories/CMembraneTab.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "qen_mfc.h"
#include "resources/dialogs/membrane_ids.h"
#include "ui/ZelHelp.h"
#include "ui/ZelMatTree.h"

#include <cfloat>
#include <cmath>
#include <memory>

namespace {

const wchar_t* const kSection = L"*HZ_FOLIE*";


}  // namespace

const CMessageMapEntry CMembraneTab::kEntries[] = {
    msgmap::word(IDC_MEMBRANE_THICKNESS, EN_KILLFOCUS, L"thickness"),
    msgmap::word(IDC_MEMBRANE_RADIUS, EN_KILLFOCUS, L"radius"),
    msgmap::word(IDC_MEMBRANE_DIVISION, EN_KILLFOCUS, L"division"),
    msgmap::word(IDC_MEMBRANE_MATERIAL, BN_CLICKED, L"mat_tree"),
    msgmap::word(IDC_MEMBRANE_ARTICLE, BN_CLICKED, L"order"),
};
const CMessageMap CMembraneTab::kMessageMap{&CQenAccessoryPage::kMessageMap, kEntries,
                                            msgmap::wordHandler<&CMembraneTab::command>()};

// The tab does not refresh itself until its initialisation is over.
CMembraneTab::CMembraneTab() : CQenAccessoryPage(IDD_MEMBRANE_TAB) { m_busy = true; }

void CMembraneTab::addLangRsc() {
  langRsc(IDC_MEMBRANE_THICKNESS_LABEL, L"QEN_DCL_HLBZ_037", L"Foliendicke");
  langRsc(IDC_MEMBRANE_RADIUS_LABEL, L"QEN_DCL_HLBZ_038", L"Kehlradius");
  langRsc(IDC_MEMBRANE_DIVISION_LABEL, L"QEN_DCL_HLBZ_039", L"Teilung");
  langRsc(IDC_MEMBRANE_MATERIAL, L"QEN_DCL_HLBZ_040", L"Material");
  langRsc(IDC_MEMBRANE_ARTICLE, L"QEN_DCL_HLBZ_048", L"Artikel...");
}

BOOL CMembraneTab::OnInitDialog() {
  m_busy = true;
  CQenAccessoryPage::OnInitDialog();
  setHelp(L"qen_foli");
  // The dialog takes every number it is given, zero and negative ones too: it checks the
  // values itself, and its rule is to reject none. The field still refuses what is no number.
  const Zel::lUnit unit = lengthUnit();
  setUpField(m_thickness, IDC_MEMBRANE_THICKNESS, 2, 71, unit, CZelEdit::Check::ByDialog);
  setUpField(m_division, IDC_MEMBRANE_DIVISION, 2, 71, unit, CZelEdit::Check::ByDialog);
  setUpField(m_radius, IDC_MEMBRANE_RADIUS, 2, 69, unit, CZelEdit::Check::ByDialog);
  m_tools.completeObjectTexts(L"FOLIE", m_env);
  m_busy = false;
  refresh();
  return TRUE;
}

double CMembraneTab::real(const wchar_t* key) const {
  double value = 0.0;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return value;
}

void CMembraneTab::refresh() {
  if (m_busy || !GetSafeHwnd()) return;
  m_busy = true;
  CZelDataItem* item = sectionItem();
  CZelString material, draw;
  CZelDataKey matKey(L"MAT"), drawKey(L"DRAW");
  if (item) {
    item->get(material, &matKey);
    item->get(draw, &drawKey);
  }
  m_thickness.setVal(real(L"D"));
  m_radius.setVal(real(L"R"));
  m_division.setVal(real(L"T"));
  for (CZelEdit* edit : {&m_thickness, &m_radius, &m_division}) edit->EnableWindow(TRUE);

  showMaterial(IDC_MEMBRANE_MATERIAL_TEXT, material);

  // A layer of a build-up lies flat on its neighbours: it has no throat.
  if (ZEL::cfg_get(sectionKey(L"SN"))) {
    SetWindowText(GetMsg(L"HZ169", L"Schicht"));
    m_radius.EnableWindow(FALSE);
    m_radius.SetWindowText(L"");
  } else {
    m_radius.EnableWindow(TRUE);
    m_division.EnableWindow(TRUE);
  }
  // Only a filled membrane is divided.
  if (draw == L"F") {
    m_division.EnableWindow(TRUE);
  } else {
    m_division.EnableWindow(FALSE);
    m_division.SetWindowText(L"");
  }

  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  storeArticle(article);
  SetDlgItemText(IDC_MEMBRANE_ARTICLE_TEXT, article.c_str());

  m_tools.setCoordFlag(kSection, this, 0);
  if (!m_env.object.isNull()) {
    CZelDataKey objectKey(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &objectKey, nullptr));
    CZelDataKey order(L"ORDER");
    if (CZelDataItem* root = data ? data->get() : nullptr) ZEL::dataItemSet(root, &order, article);
  }
  m_busy = false;
}

void CMembraneTab::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"thickness") onLength(m_thickness, L"D");
  else if (word == L"radius") onLength(m_radius, L"R");
  else if (word == L"division") onLength(m_division, L"T");
  else if (word == L"mat_tree") onMaterial();
  else if (word == L"order") onArticle();
}

void CMembraneTab::onLength(CZelEdit& edit, const wchar_t* key) {
  if (!edit.GetModify()) return;
  double value = 0.0;
  if (edit.getVal(value) && std::isfinite(value)) {
    CZelDataKey k(key);
    ZEL::dataItemSet(sectionItem(), &k, value);
  }
  // A field left empty writes nothing and shows the stored value again.
  refresh();
  // The thickness reaches the main dialog once the focus has settled (posted), the others at once.
  CWnd* main = mainDialog();
  if (&edit == &m_thickness && main) main->PostMessage(qen::WM_QEN_REFRESH);
  else notifyMain();
}

void CMembraneTab::onMaterial() {
  chooseMaterial();
  refresh();
  notifyMain();
}

void CMembraneTab::onArticle() {
  CZelString article;
  if (!chooseArticle(article)) return;
  SetDlgItemText(IDC_MEMBRANE_ARTICLE_TEXT, article.c_str());
  storeArticle(article);
  refresh();
  notifyMain();
}
