#include "standardparts/CQenItemDlg.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataItem.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjOrder.h"
#include "resources/dialogs/obj_order_ids.h"
#include "ui/CStatic.h"
#include "ui/ZelHelp.h"

CQenItemDlg::CQenItemDlg(CWnd* parent, CZelDataItem* item) : CZelDlg(IDD_OBJ_ORDER, parent), m_item(item) {}

void CQenItemDlg::addLangRsc() {
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CQenItemDlg::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_BLCH_088", L"Artikel"));
  return CZelDlg::updLang();
}

BOOL CQenItemDlg::OnInitDialog() {
  // The user's language as the store keeps it; the host's record does not reach this dialog.
  useStoredCountry();
  m_article.SubclassDlgItem(IDC_OBJ_ORDER_ARTICLE, this);
  CZelDlg::OnInitDialog();
  SetHelpTopic(L"qen_obj_order");
  CZelString helpFile;
  if (ZEL::help_find(L"QEN", helpFile)) SetHelpFile(helpFile);

  m_labelFont.CreateFont(15, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                         DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Arial");
  staticCtrl(IDC_OBJ_ORDER_LABEL).SetFont(&m_labelFont);

  fill();
  GotoDlgCtrl(&m_article);
  return FALSE;
}

void CQenItemDlg::fill() {
  // A copy of the object as the store holds it, so that reading its key changes nothing.
  // Its label-text bits ("TXTGEN") are not added: the article key does not depend on them.
  CZelDataItem* gen = ZEL::cfg_get(L"*QEN_OBJ_GEN*");
  ZEL::CUniqPointer<CZelDataItem> copy(gen ? gen->clone() : nullptr);
  m_key = ZEL::objKey(copy.get(), 4);
  CZelString article;
  ZEL::obj_order_get(m_key, article);
  m_article.SetWindowText(article);
  const CZelDataItem* object = m_item ? m_item : copy.get();
  staticCtrl(IDC_OBJ_ORDER_LABEL).SetWindowText(ZEL::obj_label(object, nullptr));
}

void CQenItemDlg::OnOK() {
  CZelString recorded;
  ZEL::obj_order_get(m_key, recorded);
  CZelString typed = m_article.GetWindowText();
  typed.trim();
  if (typed != recorded && !m_key.isEmpty()) {
    bool save = true;
    if (typed.isEmpty()) {
      int answer = MessageBoxW(GetMsg(L"QEN_MAT001", L"Artikelnummer für Objekt löschen?").c_str(), L"QENORA",
                               MB_YESNO | MB_ICONQUESTION | MB_TASKMODAL);
      save = answer == IDYES;
    }
    std::string why;
    if (save && !QEN::obj_order_save(m_key, typed, &why)) {
      // The dialog stays open with what the user typed: the table can be repaired or the
      // dialog cancelled, and nothing is taken as recorded that is not.
      const CZelString text = GetMsg(L"QEN_MFC_ORDER_001", L"Die Artikelnummer wurde nicht gespeichert.") + L"\n" +
                              CZelString::fromUtf8(why.empty() ? ZEL::obj_order_file() : why);
      MessageBoxW(text.c_str(), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
      return;
    }
  }
  // Confirmed, whether anything was recorded or not: the host only learns that the user
  // did not cancel.
  EndDialog(IDOK);
}
