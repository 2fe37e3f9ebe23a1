#include "attributes/CHatchReg.h"

#include "attributes/CHatchTools.h"
#include "attributes/QenAttributeHeader.h"
#include "data/CConfig.h"
#include "module/CQenDialogFactory.h"
#include "obj/QenObjHatch.h"
#include "obj/ZelObjKey.h"
#include "resources/dialogs/hatch_ids.h"
#include "ui/ZelHelp.h"

namespace {

const QenDialogRegistration kRegistration(QenEntry::Hatch, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CHatchReg(parent));
});

bool hasHatchPreset(const CZelString& objectKey) {
  if (objectKey.isEmpty()) return false;
  CZelDataKey key;
  key.set(5005, L"*QEN_OBJ_PROP*", 5005, objectKey.c_str(), 5005, L"IS_HATCH", 0);
  return ZEL::cfg_get(key) != nullptr;
}

}  // namespace

const CMessageMapEntry CHatchReg::kEntries[] = {
    msgmap::notify<&CHatchReg::OnTabChanged>(IDC_HATCH_TABS, TCN_SELCHANGE),
    msgmap::command<&CHatchReg::OnSaveSetting>(IDC_HATCH_SAVE),
    msgmap::command<&CHatchReg::OnRemovePreset>(IDC_HATCH_REMOVE),
};
const CMessageMap CHatchReg::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CHatchReg::CHatchReg(CWnd* parent) : CQenEntryDlg<CZelDlg>(IDD_HATCH_REG, parent) {}

void CHatchReg::initHatch(qenDlgEnv_st& record, ZEL::CDtaFilePointer* hatches) {
  m_env = record;
  m_hatches = hatches;
  m_page1.init(record, hatches, 1);
  m_page2.init(record, hatches, 2);
  m_page3.init(record, hatches, 3);
}

void CHatchReg::addLangRsc() {
  langRsc(IDC_HATCH_SAVE, L"QEN_DCL_MAT_107", L"Einstellung speichern");
  langRsc(IDC_HATCH_REMOVE, L"QEN_MFC_MAT_028", L"Voreinstellungen entfernen");
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

void CHatchReg::addToolTipRsc() { toolTipRsc(IDC_HATCH_SAVE, L"QEN_DCL_MAT_107"); }

bool CHatchReg::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_MAT_082", L"<Schraffurzuordnung>"));
  return CZelDlg::updLang();
}

BOOL CHatchReg::OnInitDialog() {
  if (!m_env.country.isEmpty()) SetCountry(m_env.country);
  CZelDlg::OnInitDialog();
  m_tabs.SubclassDlgItem(IDC_HATCH_TABS, this);

  CHatchTools tools;
  const CZelString type = tools.readType(m_hatches);
  int secondMode = 0;
  const bool second = tools.readHatch2Mode(m_hatches, secondMode);
  m_tabs.InsertItem(0, GetMsg(L"QEN_DCL_BLCH_008", L"Kontur").c_str(), &m_page1, IDD_HATCH_PAGE);
  m_page1.shrinkToUpperArea();
  if (type == L"SILIKON" && second) {
    m_tabs.InsertItem(1, GetMsg(L"QEN_MAT049", L"Dichtschnur").c_str(), &m_page3, IDD_HATCH_PAGE);
    m_page3.shrinkToUpperArea();
  } else if (type == L"BLECH" && second) {
    m_tabs.InsertItem(1, GetMsg(L"QEN_MAT050", L"Kernschicht").c_str(), &m_page2, IDD_HATCH_PAGE);
    m_page2.shrinkToUpperArea();
  }

  const CZelString objectType = m_env.objectType.isEmpty() ? type : m_env.objectType;
  SetDlgItemText(IDC_HATCH_HEADER,
                 QEN::attributeHeader(*this, objectType, sectionText(L"LABEL"), m_label, sectionText(L"MAT")).c_str());

  m_tabs.SetCurSel(1);
  m_tabs.SetCurSel(0);
  refreshPage(m_page1);
  enableRemove(ZEL::objKey(m_hatches ? m_hatches->get() : nullptr, 3));

  CZelString helpFile = m_env.helpFile;
  if (helpFile.isEmpty()) ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  SetHelpTopic(m_env.helpTopic.isEmpty() ? CZelString(L"qen_mat_obj_hatch") : m_env.helpTopic);
  return TRUE;
}

CZelString CHatchReg::sectionText(const wchar_t* name) const { return CHatchTools().readText(m_hatches, name); }

CHatchDlg* CHatchReg::pageOfTab(int tab) {
  if (tab == 0) return &m_page1;
  if (tab != 1) return nullptr;
  const CZelString type = CHatchTools().readType(m_hatches);
  if (type == L"SILIKON") return &m_page3;
  if (type == L"BLECH") return &m_page2;
  return nullptr;
}

void CHatchReg::refreshPage(CHatchDlg& page) {
  if (!page.GetSafeHwnd()) return;
  // A source that had to fall back to the system is shown with the system's pattern.
  if (page.refresh()) page.refresh();
}

void CHatchReg::enableRemove(const CZelString& objectKey) {
  GetDlgItem(IDC_HATCH_REMOVE)->EnableWindow(hasHatchPreset(objectKey));
}

void CHatchReg::OnTabChanged(NMHDR*, LRESULT*) {
  if (CHatchDlg* page = pageOfTab(m_tabs.GetCurSel())) refreshPage(*page);
}

void CHatchReg::OnSaveSetting() {
  CZelDataItem* hatches = m_hatches ? m_hatches->get() : nullptr;
  if (!hatches) return;
  if (CHatchTools().readHatchMode(m_hatches) != 2) {
    // A preset of the system's or the material's hatch keeps no own pattern.
    for (const wchar_t* name : {L"HPNAME", L"HPANG", L"HPSCALE"}) {
      CZelDataKey key(name);
      hatches->remove(&key);
    }
  }
  if (QEN::obj_hatch_save(hatches)) {
    CZelString text = sectionText(L"LABEL") + L"\n";
    const CZelString label = m_matMgr.matLabel(sectionText(L"MAT"), L"-1");
    if (!label.isEmpty() && label != L"SYSTEM") text += label + L"\n";
    text += GetMsg(L"QEN_MAT022", L"Einstellungen gespeichert");
    MessageBoxW(text.c_str(), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
  }
  enableRemove(ZEL::objKey(hatches, 3));
}

void CHatchReg::OnRemovePreset() {
  const CZelString key3 = sectionText(L"KEY3");
  if (QEN::obj_hatch_rem(key3) == 1)
    MessageBoxW((sectionText(L"LABEL") + L"\n" + GetMsg(L"QEN_MFC_MAT_029", L"Voreinstellungen entfernt")).c_str(), L"QENORA",
                MB_OK);
  enableRemove(key3);
}
