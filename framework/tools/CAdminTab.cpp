#include "framework/tools/CAdminTab.h"

#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "framework/QenDialogIds.h"
#include "obj/QenObjPreset.h"
#include "obj/ZelObjDict.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjTypes.h"
#include "qen_mfc.h"
#include "resources/dialogs/admin_tab_ids.h"
#include "ui/ZelHelp.h"

#include <memory>

const CMessageMapEntry CAdminTab::kEntries[] = {
    msgmap::command<&CAdminTab::OnFetch>(IDC_ADMIN_FETCH),
    msgmap::command<&CAdminTab::OnSave>(IDC_ADMIN_SAVE),
    msgmap::command<&CAdminTab::OnPick>(IDC_ADMIN_PICK),
    msgmap::command<&CAdminTab::OnAsPreset>(IDC_ADMIN_AS_PRESET),
    msgmap::command<&CAdminTab::OnRemovePreset>(IDC_ADMIN_REMOVE_PRESET),
    msgmap::command<&CAdminTab::OnReset>(IDC_ADMIN_RESET),
};
const CMessageMap CAdminTab::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CAdminTab::CAdminTab(CWnd* parent) : CZelDlg(IDD_ADMIN_TAB, parent) {}

void CAdminTab::addLangRsc() {
  langRsc(IDC_ADMIN_GROUP, L"QEN_DCL_BGR_300", L"Eigenschaften");
  langRsc(IDC_ADMIN_NAME_LABEL, L"QEN_DCL_BLCH_158", L"Name");
  langRsc(IDC_ADMIN_FOLDER_LABEL, L"QEN_DCL_BGR_301", L"Ordner");
  langRsc(IDC_ADMIN_DESIGNATION_LABEL, L"QEN_DCL_BGR_007", L"Bezeichnung");
  langRsc(IDC_ADMIN_ARTICLE_LABEL, L"QEN_DCL_BLCH_088", L"Artikel");
  langRsc(IDC_ADMIN_FETCH, L"\\QEN_DCL_BGR_003\\...", L"Holen...");
  langRsc(IDC_ADMIN_SAVE, L"\\QEN_DCL_BGR_004\\...", L"Speichern...");
  langRsc(IDC_ADMIN_PICK, L"\\QEN_DCL_BGR_297\\<", L"Objekt");
  langRsc(IDC_ADMIN_AS_PRESET, L"QEN_MFC_MAT_019", L"Als Vorgabe");
  langRsc(IDC_ADMIN_REMOVE_PRESET, L"QEN_MFC_MAT_027", L"Vorgabe entfernen");
  langRsc(IDC_ADMIN_RESET, L"QEN_DCL_BLCH_156", L"Reset");
}

BOOL CAdminTab::OnInitDialog() {
  CZelDlg::OnInitDialog();
  SetHelpTopic(m_helpTopic);
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  refresh();
  return TRUE;
}

CZelDataItem* CAdminTab::sectionItem() const {
  const CZelString name = section();
  return name.isEmpty() ? nullptr : ZEL::cfg_get(CZelDataKey(name));
}

CWnd* CAdminTab::owner() const {
  CWnd* tabs = GetParent();
  return tabs ? tabs->GetParent() : nullptr;
}

CZelDataItem* CAdminTab::currentObjectData() const {
  ZEL::CAdsName current;
  if (!ZEL::zelAppPtr()->editedObject(m_env.objectType, current, true)) return nullptr;
  CZelDataKey key(current.handle());
  std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr));
  return data ? data->get() : nullptr;
}

void CAdminTab::refresh() {
  if (!GetSafeHwnd()) return;
  CZelDataItem* stored = sectionItem();

  // The library name of the object the page shows, when it has one.
  CZelString object;
  // The object's own entry (the key's empty first part is the object's data itself).
  CZelDataKey objKey(L"OBJ");
  const bool hasObject = m_pageItem && m_pageItem->getEname(object, &objKey);
  CZelString name;
  if (hasObject && ZEL::obj_dict_name(object, name, false)) SetDlgItemText(IDC_ADMIN_NAME, ZEL::str_lib_name(name).c_str());
  else SetDlgItemText(IDC_ADMIN_NAME, L"");

  if (m_pageItem) {
    CZelDataKey none;
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_MEMORY, ZEL::DTA_COPY, &none, m_pageItem));
    CZelArrayTempl<CZelString> path;
    if (hasObject) zel_obj_dict_path(object, path);
    if (path.count() > 2) {
      path.removeAt(0);
      path.removeAt(0);
    }
    const CZelString folder = !path.isEmpty() ? ZEL::lib_folder_path(path) : ZEL::lobj_prodsys(data.get());
    SetDlgItemText(IDC_ADMIN_FOLDER, folder.c_str());
    SetDlgItemText(IDC_ADMIN_DESIGNATION, ZEL::obj_label(stored, country().c_str()).c_str());
    CZelString article;
    if (CZelDataItem* item = section().isEmpty() ? nullptr : ZEL::cfg_get(CZelDataKey::twoPart(section(), L"ORDER")))
      item->get(article);
    SetDlgItemText(IDC_ADMIN_ARTICLE, article.c_str());
  }

  if (isSubDlg()) GetDlgItem(IDC_ADMIN_PICK)->EnableWindow(FALSE);
  GetDlgItem(IDC_ADMIN_REMOVE_PRESET)->EnableWindow(QEN::obj_preset_exists(m_env.objectType));
}

void CAdminTab::OnFetch() {
  obj_restore(m_env.objectType, 1, GetSafeHwnd());
  CZelDataItem* item = currentObjectData();
  if (CWnd* dlg = owner()) {
    dlg->SendMessage(qen::WM_QEN_OBJECT, 0, reinterpret_cast<LPARAM>(item));
    dlg->SendMessage(qen::WM_QEN_REFRESH);
  }
}

void CAdminTab::OnSave() {
  CZelDataItem* stored = sectionItem();
  if (stored) {
    std::unique_ptr<CZelDataItem> copy(stored->clone());
    CZelDataKey orig(L"ORIG"), active(L"CMDACTIVE");
    copy->remove(&orig);
    copy->remove(&active);
    if (m_pageItem) m_pageItem->mkDir()->insert(L"GEN", copy.get(), true);
  }
  const bool saved = obj_save(m_env.objectType);
  if (CZelDataItem* item = currentObjectData()) {
    m_pageItem = item;
    if (CWnd* dlg = owner()) dlg->SendMessage(qen::WM_QEN_OBJECT, 0, reinterpret_cast<LPARAM>(item));
  }
  // One refresh shows both the saved object's name and the object now current.
  if (saved || m_pageItem) refresh();
}

void CAdminTab::OnPick() {
  CWnd* dlg = owner();
  m_buttonTools.pickObject(dynamic_cast<CDialog*>(dlg), m_env.objectType);
  if (dlg) dlg->SendMessage(qen::WM_QEN_REFRESH_PAGE);
}

void CAdminTab::OnAsPreset() {
  m_buttonTools.saveTypeAsPreset(m_env.objectType);
  if (CWnd* dlg = owner()) {
    dlg->SendMessage(qen::WM_QEN_REFRESH_PAGE);
    // The owner refreshes this tab too: it is the current one.
    dlg->SendMessage(qen::WM_QEN_REFRESH);
  }
}

void CAdminTab::OnRemovePreset() {
  if (QEN::obj_preset_rem(m_env.objectType) == 1) {
    const CZelString text = ZEL::objTypeLabel(m_env.objectType, country().c_str()) + L"\n" +
                            GetMsg(L"QEN_ELEM_049", L"Voreinstellungen entfernt");
    MessageBoxW(text.c_str(), L"QENORA", 0);
  }
  // The owner refreshes this tab too: it is the current one.
  if (CWnd* dlg = owner()) dlg->SendMessage(qen::WM_QEN_REFRESH);
}

void CAdminTab::OnReset() {
  m_buttonTools.resetType(m_env.objectType);
  CWnd* dlg = owner();
  if (dlg) dlg->SendMessage(qen::WM_QEN_REFRESH_PAGE);
  if (!m_env.object.isNull()) {
    CZelDataKey key(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr));
    if (CZelDataItem* root = data ? data->get() : nullptr) {
      CZelDataKey name(L"NAME");
      root->remove(&name);
    }
  }
  SetDlgItemText(IDC_ADMIN_NAME, L"");
  SetDlgItemText(IDC_ADMIN_FOLDER, L"");
  if (dlg) dlg->SendMessage(qen::WM_QEN_REFRESH);
}
