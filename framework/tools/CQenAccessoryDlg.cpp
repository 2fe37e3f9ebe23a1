#include "framework/tools/CQenAccessoryDlg.h"

#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "obj/ZelObjInit.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjTypes.h"
#include "qen_mfc.h"
#include "resources/dialogs/admin_tab_ids.h"
#include "ui/CButton.h"
#include "ui/ZelHelp.h"

#include <memory>

using namespace qen;

namespace {
constexpr int kTabMain = 0;
constexpr int kTabAdmin = 1;
}  // namespace

const CMessageMapEntry CQenAccessoryDlg::kEntries[] = {
    msgmap::notify<&CQenAccessoryDlg::OnTabChanged>(IDC_TABS, TCN_SELCHANGE),
    msgmap::command<&CQenAccessoryDlg::OnFavSave>(IDC_FAV_SAVE),
    msgmap::command<&CQenAccessoryDlg::OnFavRestore>(IDC_FAV_RESTORE),
    msgmap::command<&CQenAccessoryDlg::OnLayer>(IDC_ASSIGN_LAYER),
    msgmap::command<&CQenAccessoryDlg::OnHatch>(IDC_ASSIGN_HATCH),
    msgmap::command<&CQenAccessoryDlg::OnLabel>(IDC_ASSIGN_LABEL),
    // The representation radios are the dialog's own (its frame description lists them).
    msgmap::commandRange<&CQenAccessoryDlg::OnButton>(10000, 11999),
    msgmap::contextMenu<&CQenAccessoryDlg::OnPreviewMenu>(),
    msgmap::message<&CQenAccessoryDlg::OnRefresh>(WM_QEN_REFRESH),
    msgmap::message<&CQenAccessoryDlg::OnObject>(WM_QEN_OBJECT),
    msgmap::message<&CQenAccessoryDlg::OnRefreshPage>(WM_QEN_REFRESH_PAGE),
};
const CMessageMap CQenAccessoryDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CQenAccessoryDlg::CQenAccessoryDlg(UINT templateId, const QenAccessoryFrame& frame, CQenAccessoryPage& page, CWnd* parent)
    : CQenEntryDlg<CZelDlg>(templateId, parent), m_frame(frame), m_page(page) {}

void CQenAccessoryDlg::init(qenDlgEnv_st& record, QenSectionSet& sections) {
  m_env = record;
  m_sections = sections;
}

void CQenAccessoryDlg::addLangRsc() {
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
  langRsc(IDC_REPR_GROUP, L"QEN_DCL_HLBZ_003", L"Darstellung");
  for (const QenReprRadio& radio : m_frame.radios) langRsc(radio.id, radio.textKey, radio.text);
}

void CQenAccessoryDlg::addToolTipRsc() {
  toolTipRsc(IDC_ASSIGN_LAYER, L"QEN_MFC_MAT_009");
  toolTipRsc(IDC_ASSIGN_HATCH, L"QEN_MFC_MAT_010");
  toolTipRsc(IDC_ASSIGN_LABEL, L"QEN_MFC_MAT_011");
  toolTipRsc(IDC_FAV_SAVE, L"DLG_007");
  toolTipRsc(IDC_FAV_RESTORE, L"DLG_008");
}

bool CQenAccessoryDlg::updLang() {
  SetWindowText(GetMsg(m_frame.titleKey, m_frame.title));
  return CZelDlg::updLang();
}

BOOL CQenAccessoryDlg::OnInitDialog() {
  if (!m_env.country.isEmpty()) SetCountry(m_env.country);
  // A store without the type's settings starts from the factory state.
  if (!ZEL::cfg_get(CZelDataKey(m_frame.section))) ZEL::objTypeInit(m_frame.type);
  CZelDlg::OnInitDialog();
  SetHelpTopic(m_frame.helpTopic);
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  m_picture.SubclassDlgItem(IDC_PREVIEW, this);
  m_picture.reset();

  ZEL::CAdsName current;
  if (ZEL::zelAppPtr()->editedObject(m_frame.type, current, true)) {
    CZelDataKey key(current.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr));
    m_object = data ? data->get() : nullptr;
  }

  CSheetTabTools::setButtonIcons(*this);

  m_tabs.SubclassDlgItem(IDC_TABS, this);
  m_page.init(m_env, m_sections);
  m_page.setPageItem(m_object);
  m_tabs.InsertItem(kTabMain, GetMsg(L"QEN_DCL_HLBZ_134", L"Eigenschaften", m_env.country.c_str()).c_str(), &m_page,
                    m_frame.pageTemplate);
  m_admin.setPageItem(m_object);
  m_admin.setHelpTopicName(m_frame.helpTopic);
  m_admin.init(m_env);
  m_tabs.InsertItem(kTabAdmin, GetMsg(L"QEN_DCL_BGR_073", L"Verwaltung", m_env.country.c_str()).c_str(), &m_admin,
                    IDD_ADMIN_TAB);

  const CZelDataKey modeKey = CZelDataKey::twoPart(m_frame.section, L"MODE");
  CZelString mode;
  CZelDataItem* stored = ZEL::cfg_get(modeKey);
  if (!stored || !stored->get(mode)) {
    ZEL::cfg_set(modeKey, ZEL::mkDataItem(ZEL::mkResbuf(L"MAIN")), true);
  } else if (mode == L"ADMIN") {
    m_tabs.SetCurSel(kTabAdmin);
    m_admin.refresh();
  } else if (mode == L"MAIN") {
    m_tabs.SetCurSel(kTabMain);
    m_page.refresh();
  }

  refreshMain();
  if (m_frame.completeTexts) m_tools.completeObjectTexts(m_frame.type, m_env);

  const bool sheared = ZEL::cfg_get(CZelDataKey::twoPart(m_frame.section, L"ORIG")) && ZEL::isSheared(m_frame.type);
  GetDlgItem(IDC_SHEARED_ICON)->ShowWindow(sheared ? SW_SHOW : SW_HIDE);
  SetDlgItemText(IDC_SHEARED_TEXT, sheared ? GetMsg(L"QEN_MFC_OBJ_001", L"Objekt geschert").c_str() : L"");
  GetDlgItem(IDC_SHEARED_TEXT)->ShowWindow(sheared ? SW_SHOW : SW_HIDE);
  return TRUE;
}

void CQenAccessoryDlg::refreshMain() {
  SetDlgItemText(IDC_OBJ_LABEL,
                 ZEL::obj_label_header(ZEL::cfg_get(CZelDataKey(m_frame.section)), country().c_str()).c_str());
  m_tools.refreshPreview(section(), &m_gdx, &m_picture, true);
  refreshRepresentation();
}

void CQenAccessoryDlg::refreshRepresentation() {
  CZelString value;
  CZelDataKey key(m_frame.reprKey);
  if (CZelDataItem* root = section() ? section()->get() : nullptr) root->get(value, &key);
  for (const QenReprRadio& radio : m_frame.radios) CheckDlgButton(radio.id, BST_UNCHECKED);
  for (const QenReprRadio& radio : m_frame.radios) {
    if (value != radio.value) continue;
    CheckDlgButton(radio.id, BST_CHECKED);
    GetDlgItem(IDC_ASSIGN_HATCH)->EnableWindow(radio.hatchButton);
  }
}

bool CQenAccessoryDlg::representationClicked(UINT id) {
  for (const QenReprRadio& radio : m_frame.radios) {
    if (static_cast<UINT>(radio.id) != id) continue;
    CZelDataKey key(m_frame.reprKey);
    ZEL::dataItemSet(section() ? section()->get(nullptr, true) : nullptr, &key, CZelString(radio.value));
    if (pageExists(m_page)) m_page.refresh();
    refreshMain();
    return true;
  }
  return false;
}

void CQenAccessoryDlg::OnButton(UINT id) { representationClicked(id); }

void CQenAccessoryDlg::refreshPages(bool adminOnlyWhenCurrent) {
  if (pageExists(m_page)) m_page.refresh();
  if (pageExists(m_admin) && (!adminOnlyWhenCurrent || m_tabs.GetCurSel() == kTabAdmin)) m_admin.refresh();
}

void CQenAccessoryDlg::OnTabChanged(NMHDR*, LRESULT*) {
  const int tab = m_tabs.GetCurSel();
  ZEL::cfg_set(CZelDataKey::twoPart(m_frame.section, L"MODE"), ZEL::mkDataItem(ZEL::mkResbuf(tab == kTabAdmin ? L"ADMIN" : L"MAIN")), true);
  if (tab == kTabAdmin) m_admin.refresh();
  else m_page.refresh();
}

void CQenAccessoryDlg::OnFavSave() { fav_save(m_frame.type); }

void CQenAccessoryDlg::OnFavRestore() {
  fav_restore(m_frame.type);
  refreshMain();
  refreshPages(false);
}

void CQenAccessoryDlg::OnLayer() {
  m_tools.layerAssignment(section(), m_env);
  if (pageExists(m_page)) m_page.refresh();
  m_tools.refreshPreview(section(), &m_gdx, &m_picture, true);
}

void CQenAccessoryDlg::OnHatch() {
  m_tools.hatchAssignment(section(), m_sections, m_env, m_frame.secondHatch);
  if (pageExists(m_page)) m_page.refresh();
  m_tools.refreshPreview(section(), &m_gdx, &m_picture, true);
}

void CQenAccessoryDlg::OnLabel() {
  m_tools.labeling(section(), m_sections, m_env);
  refreshMain();
  if (pageExists(m_page)) m_page.refresh();
  m_tools.refreshPreview(section(), &m_gdx, &m_picture, true);
  if (pageExists(m_admin) && m_admin.GetDlgItem(IDC_ADMIN_DESIGNATION)) {
    CZelDataItem* root = section() ? section()->get() : nullptr;
    m_admin.SetDlgItemText(IDC_ADMIN_DESIGNATION, ZEL::obj_label(root, m_env.country.c_str()).c_str());
  }
}

void CQenAccessoryDlg::OnPreviewMenu(CWnd*, CPoint point) { m_tools.previewContextMenu(point, this, &m_picture, &m_gdx); }

LRESULT CQenAccessoryDlg::OnRefresh(WPARAM, LPARAM) {
  // A page may report before the pages exist; then there is nothing to refresh yet.
  if (!GetSafeHwnd()) return 0;
  refreshMain();
  refreshPages(true);
  return 0;
}

LRESULT CQenAccessoryDlg::OnObject(WPARAM, LPARAM lParam) {
  m_object = reinterpret_cast<CZelDataItem*>(lParam);
  m_page.setPageItem(m_object);
  m_admin.setPageItem(m_object);
  return 0;
}

LRESULT CQenAccessoryDlg::OnRefreshPage(WPARAM, LPARAM) {
  if (pageExists(m_page)) m_page.refresh();
  return 0;
}
