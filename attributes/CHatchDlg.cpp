#include "attributes/CHatchDlg.h"

#include "attributes/CHatchTools.h"
#include "data/CZelApp.h"
#include "obj/ZelHatchPreview.h"
#include "resources/dialogs/hatch_ids.h"
#include "store/QenStoreAccess.h"
#include "ui/ZelHelp.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr HatchDetailIds kUpperArea{IDC_HATCH_GROUP, IDC_HATCH_PATTERN_LABEL, IDC_HATCH_PATTERN, IDC_HATCH_DESC,
                                    IDC_HATCH_ANGLE_LABEL, IDC_HATCH_ANGLE, IDC_HATCH_SCALE_LABEL, IDC_HATCH_SCALE};

constexpr int kLowerArea[] = {IDC_HATCH_LOWER, IDC_HATCH_LOWER_ASSIGN, IDC_HATCH_LOWER_SYSTEM, IDC_HATCH_LOWER_MATERIAL,
                              IDC_HATCH_LOWER_OWN, IDC_HATCH_LOWER_GROUP, IDC_HATCH_LOWER_PATTERN_LABEL,
                              IDC_HATCH_LOWER_PATTERN, IDC_HATCH_LOWER_DESC, IDC_HATCH_LOWER_ANGLE_LABEL,
                              IDC_HATCH_LOWER_ANGLE, IDC_HATCH_LOWER_SCALE_LABEL, IDC_HATCH_LOWER_SCALE};

// Pattern names are cut to what the section keeps.
constexpr int kPatternLength = 1024;

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

}  // namespace

const CMessageMapEntry CHatchDlg::kEntries[] = {
    msgmap::word(IDC_HATCH_SYSTEM, BN_CLICKED, L"system"),
    msgmap::word(IDC_HATCH_MATERIAL, BN_CLICKED, L"material"),
    msgmap::word(IDC_HATCH_OWN, BN_CLICKED, L"own"),
    msgmap::word(IDC_HATCH_PATTERN, CBN_SELCHANGE, L"pattern"),
    msgmap::word(IDC_HATCH_ANGLE, EN_KILLFOCUS, L"angle"),
    msgmap::word(IDC_HATCH_SCALE, EN_KILLFOCUS, L"scale"),
};
const CMessageMap CHatchDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries, msgmap::wordHandler<&CHatchDlg::command>()};

CHatchDlg::CHatchDlg() : CZelDlg(IDD_HATCH_PAGE) {}

void CHatchDlg::init(const qenDlgEnv_st& record, ZEL::CDtaFilePointer* hatches, int page) {
  m_env = record;
  m_hatches = hatches;
  m_page = page;
}

void CHatchDlg::addLangRsc() {
  langRsc(IDC_HATCH_ASSIGN, L"QEN_DCL_MAT_109", L"Zuordnung");
  langRsc(IDC_HATCH_LOWER_ASSIGN, L"QEN_DCL_MAT_109", L"Zuordnung");
  langRsc(IDC_HATCH_SYSTEM, L"QEN_DCL_MAT_110", L"System");
  langRsc(IDC_HATCH_LOWER_SYSTEM, L"QEN_DCL_MAT_110", L"System");
  langRsc(IDC_HATCH_MATERIAL, L"QEN_DCL_MAT_111", L"Material");
  langRsc(IDC_HATCH_LOWER_MATERIAL, L"QEN_DCL_MAT_111", L"Material");
  langRsc(IDC_HATCH_OWN, L"QEN_DCL_MAT_112", L"Spezifisch");
  langRsc(IDC_HATCH_LOWER_OWN, L"QEN_DCL_MAT_112", L"Spezifisch");
  langRsc(IDC_HATCH_GROUP, L"QEN_DCL_MAT_028", L"Schraffur");
  langRsc(IDC_HATCH_LOWER_GROUP, L"QEN_DCL_MAT_028", L"<Schraffur");
  langRsc(IDC_HATCH_PATTERN_LABEL, L"QEN_DCL_INIT_065", L"Muster");
  langRsc(IDC_HATCH_LOWER_PATTERN_LABEL, L"QEN_DCL_INIT_065", L"Muster");
  langRsc(IDC_HATCH_ANGLE_LABEL, L"QEN_DCL_MAT_022", L"Winkel");
  langRsc(IDC_HATCH_LOWER_ANGLE_LABEL, L"QEN_DCL_MAT_022", L"Winkel");
  langRsc(IDC_HATCH_SCALE_LABEL, L"ZEL_DCL_012", L"Skalierung");
  langRsc(IDC_HATCH_LOWER_SCALE_LABEL, L"ZEL_DCL_012", L"Skalierung");
}

BOOL CHatchDlg::OnInitDialog() {
  if (!m_env.country.isEmpty()) SetCountry(m_env.country);
  CZelDlg::OnInitDialog();
  m_pattern.SubclassDlgItem(IDC_HATCH_PATTERN, this);
  m_angle.SubclassDlgItem(IDC_HATCH_ANGLE, this);
  m_scale.SubclassDlgItem(IDC_HATCH_SCALE, this);
  m_preview.SubclassDlgItem(IDC_HATCH_PREVIEW, this);
  m_angle.setCountry(country());
  m_scale.setCountry(country());
  // An angle in degrees within one turn, stored in radians; a positive scale factor.
  m_angle.setEditFlags(3, 77, 1, 0.0, 2.0 * std::numbers::pi);
  m_angle.setFormat(2);
  m_scale.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
  m_scale.setFormat(2);
  for (int id : kLowerArea) GetDlgItem(id)->ShowWindow(SW_HIDE);

  const CZelString type = CHatchTools().readType(m_hatches);
  if (type == L"SILIKON") SetDlgItemText(IDC_HATCH_LOWER, GetMsg(L"QEN_MAT049", L"Dichtschnur"));
  else if (type == L"BLECH") SetDlgItemText(IDC_HATCH_LOWER, GetMsg(L"QEN_MAT050", L"Kernschicht"));

  CZelString helpFile = m_env.helpFile;
  if (helpFile.isEmpty()) ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  SetHelpTopic(m_env.helpTopic.isEmpty() ? CZelString(L"qen_mat_obj_hatch") : m_env.helpTopic);

  if (refresh()) refresh();
  if (mode() == 2) {
    // An own hatch is written out in full, so that the object gets all three values.
    commitPattern();
    commitAngle(true);
    commitScale(true);
    refresh();
  }
  return FALSE;
}

void CHatchDlg::shrinkToUpperArea() {
  CRect group;
  GetDlgItem(IDC_HATCH_GROUP)->GetWindowRect(&group);
  ScreenToClient(&group);
  CRect page;
  GetWindowRect(&page);
  GetParent()->ScreenToClient(&page);
  CRect margin(0, 0, 0, 4);
  MapDialogRect(&margin);
  MoveWindow(page.left, page.top, page.Width(), group.bottom + margin.bottom);
}

CZelString CHatchDlg::hatchKey(const wchar_t* name) const { return m_page == 1 ? CZelString(name) : CZelString(name) + L"2"; }

int CHatchDlg::mode() const {
  CHatchTools tools;
  int mode = tools.readHatchMode(m_hatches);
  int second = 0;
  if (m_page != 1 && tools.readHatch2Mode(m_hatches, second)) mode = second;
  return mode;
}

void CHatchDlg::setMode(int mode) {
  CZelDataKey key(hatchKey(L"IS_HATCH"));
  QEN::sectionSet(m_hatches, &key, static_cast<Zel::PropMode>(mode));
}

bool CHatchDlg::refresh() {
  if (!m_hatches || !m_hatches->get() || m_busy) return false;
  m_busy = true;
  CHatchTools tools;
  const CZelString material = tools.readMaterial(m_hatches);
  const int current = mode();
  const HatchPatterns patterns = ZEL::zelAppPtr()->hatchPatterns();

  CZelString pattern;
  double scale = kNoValue, angle = kNoValue;
  if (current == 0 || current == 1) {
    const CZelString source = hatchKey(current == 0 ? L"HATCH_SYS" : L"HATCH_MAT");
    pattern = tools.readText(m_hatches, (source + L"\\#2").c_str());
    tools.readReal(m_hatches, (source + L"\\#40").c_str(), scale);
    tools.readReal(m_hatches, (source + L"\\#50").c_str(), angle);
  } else if (current == 2) {
    pattern = tools.readText(m_hatches, hatchKey(L"HPNAME").c_str());
    tools.readReal(m_hatches, hatchKey(L"HPSCALE").c_str(), scale);
    tools.readReal(m_hatches, hatchKey(L"HPANG").c_str(), angle);
  }

  tools.showRadios(*this, IDC_HATCH_SYSTEM, IDC_HATCH_MATERIAL, IDC_HATCH_OWN, current, IDC_HATCH_ASSIGN, true);
  tools.showDetails(*this, kUpperArea, m_pattern, patterns, m_angle, angle, m_scale, scale, current, pattern, current == 2,
                    GetMsg(L"QEN_MFC_HATCH_001", L"nicht gefunden"));
  const double shownScale = std::isfinite(scale) ? scale : 1.0, shownAngle = std::isfinite(angle) ? angle : 0.0;
  m_preview.setPicture(ZEL::hatchPreview(pattern, shownScale, shownAngle));
  m_preview.setDisplayList(ZEL::hatchPreviewList(pattern, shownScale, shownAngle));

  if (material.isEmpty() || material.match(L"SYSTEM")) GetDlgItem(IDC_HATCH_MATERIAL)->EnableWindow(FALSE);
  bool fellBack = false;
  if (tools.readText(m_hatches, (hatchKey(L"HATCH_MAT") + L"\\#2").c_str()).isEmpty()) {
    GetDlgItem(IDC_HATCH_MATERIAL)->EnableWindow(FALSE);
    if (IsDlgButtonChecked(IDC_HATCH_MATERIAL) == BST_CHECKED) {
      CheckRadioButton(IDC_HATCH_SYSTEM, IDC_HATCH_OWN, IDC_HATCH_SYSTEM);
      setMode(0);
      fellBack = true;
    }
  }
  m_busy = false;
  return fellBack;
}

void CHatchDlg::setOwn(short groupCode, const wchar_t* effective, double value) {
  CZelDataKey own(hatchKey(L"HATCH_OWN"));
  own.append(groupCode);
  QEN::sectionSet(m_hatches, &own, value);
  CZelDataKey key(hatchKey(effective));
  QEN::sectionSet(m_hatches, &key, value);
}

void CHatchDlg::commitPattern() {
  const int at = m_pattern.GetCurSel();
  if (at < 0) return;
  CZelString name = m_pattern.GetLBText(at);
  if (name.len() > kPatternLength) name = CZelString(name.str().substr(0, kPatternLength));
  CZelDataKey own(hatchKey(L"HATCH_OWN"));
  own.append(static_cast<short>(2));
  QEN::sectionSet(m_hatches, &own, name);
  CZelDataKey key(hatchKey(L"HPNAME"));
  QEN::sectionSet(m_hatches, &key, name);
}

void CHatchDlg::commitAngle(bool always) {
  double angle = 0.0;
  if ((always || m_angle.GetModify()) && m_angle.getVal(angle)) setOwn(50, L"HPANG", angle);
}

void CHatchDlg::commitScale(bool always) {
  double scale = 0.0;
  if ((always || m_scale.GetModify()) && m_scale.getVal(scale)) setOwn(40, L"HPSCALE", scale);
}

void CHatchDlg::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"system") setMode(0);
  else if (word == L"material") setMode(1);
  else if (word == L"own") setMode(2);
  else if (word == L"pattern") commitPattern();
  else if (word == L"angle") commitAngle(false);
  else if (word == L"scale") commitScale(false);
  refresh();
}
