#include "framework/tools/CQenAccessoryPage.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "qen_mfc.h"
#include "ui/DlgEnvMatTree_st.h"
#include "ui/ZelHelp.h"
#include "ui/ZelMatTree.h"

#include <cfloat>

const CMessageMapEntry CQenAccessoryPage::kEntries[] = {
    msgmap::message<&CQenAccessoryPage::OnRefreshPage>(qen::WM_QEN_REFRESH_PAGE),
};
const CMessageMap CQenAccessoryPage::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CWnd* CQenAccessoryPage::mainDialog() const {
  CWnd* tabs = GetParent();
  return tabs ? tabs->GetParent() : nullptr;
}

void CQenAccessoryPage::notifyMain() {
  if (CWnd* main = mainDialog()) main->SendMessage(qen::WM_QEN_REFRESH);
}

LRESULT CQenAccessoryPage::OnRefreshPage(WPARAM, LPARAM) {
  refresh();
  return 0;
}

bool CQenAccessoryPage::chooseMaterial() {
  CZelDataItem* item = sectionItem();
  CZelString current;
  CZelDataKey matKey(L"MAT");
  if (item) item->get(current, &matKey);
  ZEL::DlgEnvMatTree_st request;
  request.filter.add(L"SYSTEM");
  request.all = true;
  request.country = m_env.country;
  ZEL::help_find(L"QEN", request.helpFile);
  request.helpTopic = L"qen_mat_select";
  request.m_parent = this;
  request.hwndParent = GetSafeHwnd();
  CZelString chosen = current;
  if (ZEL::dlgMatTree(request, chosen) != 1 || chosen == current || !item) return false;
  const CZelString before = ZEL::objKey(item, 3);
  ZEL::dataItemSet(item, &matKey, chosen);
  ZEL::objGen(item, ZEL::kObjGenTexts);
  const CZelString after = ZEL::objKey(item, 3);
  if (!before.isEmpty() && !after.isEmpty() && before != after) objGen_objProp_Sync(m_env.objectType);
  return true;
}

bool CQenAccessoryPage::chooseArticle(CZelString& article) {
  ZEL::DlgEnv_st env;
  env.m_parent = this;
  env.hwndParent = GetSafeHwnd();
  env.country = m_env.country;
  env.format = m_env.format;
  CZelDataItem* item = sectionItem();
  if (qenItemDlgMenu(env, item) != 1) return false;
  article = CZelString();
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  return true;
}

void CQenAccessoryPage::storeArticle(const CZelString& article, ArticleTo to) {
  CZelDataKey order(L"ORDER");
  if (article.isEmpty()) {
    ZEL::cfg_remove(sectionKey(L"ORDER"));
  } else {
    ZEL::dataItemSet(sectionItem(), &order, article);
  }
  if (to == ArticleTo::SectionAndPageItem && m_pageItem) ZEL::dataItemSet(m_pageItem, &order, article);
}


void CQenAccessoryPage::setHelp(const wchar_t* topic) {
  SetHelpTopic(topic);
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
}

Zel::lUnit CQenAccessoryPage::lengthUnit() const {
  int stored = 0;
  CZelDataItem* unit = ZEL::cfg_get(sectionKey(L"INSUNIT"));
  return unit && unit->get(stored) ? static_cast<Zel::lUnit>(stored) : m_env.unit;
}

void CQenAccessoryPage::setUpField(CZelEdit& edit, int id, int type, int flags, Zel::lUnit unit, CZelEdit::Check check) {
  edit.SubclassDlgItem(id, this);
  edit.setCountry(country());
  // Angles are always shown in decimal degrees; lengths in the record's format and the unit.
  if (type == 3) {
    edit.setFormat(2);
  } else {
    edit.setFormat(m_env.format);
    edit.setLUnits(unit, -1);
  }
  edit.setEditFlags(type, flags, 2, -DBL_MAX, DBL_MAX);
  edit.setCheck(check);
}

double CQenAccessoryPage::sectionReal(const wchar_t* key, double fallback) const {
  double value = fallback;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return value;
}

CZelString CQenAccessoryPage::sectionText(const wchar_t* key) const {
  CZelString value;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return value;
}

void CQenAccessoryPage::showMaterial(int textId, const CZelString& material) {
  const CZelString label = CZelMatMgr().matLabel(material, country());
  SetDlgItemText(textId, (label.isEmpty() ? material : label).c_str());
  ZEL::cfg_set(CZelDataKey::twoPart(L"*MAT_TREE_PARM*", L"MAT"), ZEL::mkDataItem(ZEL::mkResbuf(material.c_str())), true);
}
