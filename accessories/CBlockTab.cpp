#include "accessories/CBlockTab.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "qen_mfc.h"
#include "resources/dialogs/block_ids.h"
#include "ui/DlgEnvMatTree_st.h"
#include "ui/ZelHelp.h"
#include "ui/ZelMatTree.h"

#include <algorithm>
#include <cfloat>
#include <memory>

namespace {

const wchar_t* const kSection = L"*HZ_KLOTZ*";

CZelDataKey key2(const wchar_t* section, const wchar_t* name) {
  CZelDataKey k;
  k.set(5005, section, 5005, name, 0);
  return k;
}

// The corner boxes and the bit of "CHF_FLAG" each stands for.
struct Corner {
  int id;
  int bit;
};
constexpr Corner kCorners[] = {
    {IDC_BLOCK_CORNER1, 1}, {IDC_BLOCK_CORNER2, 2}, {IDC_BLOCK_CORNER4, 4}, {IDC_BLOCK_CORNER8, 8}};

// A chamfer never takes more than a third of the smaller side.
double chamferLimit(double b, double h) { return std::min(b, h) / 3.0; }

}  // namespace

const CMessageMapEntry CBlockTab::kEntries[] = {
    msgmap::word(IDC_BLOCK_SCREEN, BN_CLICKED, L"screen"),
    msgmap::word(IDC_BLOCK_WIDTH, EN_KILLFOCUS, L"width"),
    msgmap::word(IDC_BLOCK_HEIGHT, EN_KILLFOCUS, L"height"),
    msgmap::word(IDC_BLOCK_CHAMFER_CHECK, BN_CLICKED, L"chamfer"),
    msgmap::word(IDC_BLOCK_CHAMFER, EN_KILLFOCUS, L"chamfer_value"),
    msgmap::word(IDC_BLOCK_CORNER1, BN_CLICKED, L"corner1"),
    msgmap::word(IDC_BLOCK_CORNER2, BN_CLICKED, L"corner2"),
    msgmap::word(IDC_BLOCK_CORNER4, BN_CLICKED, L"corner4"),
    msgmap::word(IDC_BLOCK_CORNER8, BN_CLICKED, L"corner8"),
    msgmap::word(IDC_BLOCK_MATERIAL, BN_CLICKED, L"mat_tree"),
    msgmap::word(IDC_BLOCK_ARTICLE, BN_CLICKED, L"order"),
};
const CMessageMap CBlockTab::kMessageMap{&CQenAccessoryPage::kMessageMap, kEntries, msgmap::wordHandler<&CBlockTab::command>()};

CBlockTab::CBlockTab() : CQenAccessoryPage(IDD_BLOCK_TAB) {}

void CBlockTab::addLangRsc() {
  langRsc(IDC_BLOCK_SCREEN, L"QEN_DCL_HLBZ_135", L"Am Bildschirm bestimmen");
  langRsc(IDC_BLOCK_WIDTH_LABEL, L"QEN_DCL_HLBZ_136", L"Breite");
  langRsc(IDC_BLOCK_HEIGHT_LABEL, L"QEN_DCL_HLBZ_137", L"Höhe");
  langRsc(IDC_BLOCK_CHAMFER_CHECK, L"QEN_DCL_DRAW_059", L"Fase");
  langRsc(IDC_BLOCK_MATERIAL, L"QEN_DCL_HLBZ_002", L"Material");
  langRsc(IDC_BLOCK_ARTICLE, L"QEN_DCL_HLBZ_010", L"Artikel...");
}

BOOL CBlockTab::OnInitDialog() {
  CQenAccessoryPage::OnInitDialog();
  SetHelpTopic(L"qen_klotz");
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);

  int stored = 0;
  CZelDataItem* unitItem = ZEL::cfg_get(key2(kSection, L"INSUNIT"));
  const bool hasUnit = unitItem && unitItem->get(stored);
  const Zel::lUnit unit = hasUnit ? static_cast<Zel::lUnit>(stored) : m_env.unit;
  for (CZelEdit* edit : {&m_width, &m_height, &m_chamfer}) {
    const int id = edit == &m_width ? IDC_BLOCK_WIDTH : edit == &m_height ? IDC_BLOCK_HEIGHT : IDC_BLOCK_CHAMFER;
    edit->SubclassDlgItem(id, this);
    edit->setCountry(country());
    edit->setFormat(m_env.format);
    edit->setLUnits(unit, -1);
  }
  // Widths and heights are lengths above zero; a chamfer may be zero.
  m_width.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
  m_height.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
  m_chamfer.setEditFlags(2, 69, 2, -DBL_MAX, DBL_MAX);
  m_busy = false;
  refresh();
  return TRUE;
}

double CBlockTab::real(const wchar_t* key, double fallback) const {
  double value = fallback;
  CZelDataItem* item = ZEL::cfg_get(key2(kSection, key));
  if (item) item->get(value);
  return value;
}

void CBlockTab::storeArticle(const CZelString& article) {
  CZelDataKey order(L"ORDER");
  if (article.isEmpty()) {
    ZEL::cfg_remove(key2(kSection, L"ORDER"));
    if (m_pageItem) ZEL::dataItemSet(m_pageItem, &order, CZelString());
  } else {
    ZEL::dataItemSet(sectionItem(), &order, article);
    if (m_pageItem) ZEL::dataItemSet(m_pageItem, &order, article);
  }
}

void CBlockTab::refresh() {
  if (m_busy || !GetSafeHwnd()) return;
  m_busy = true;
  CZelDataItem* item = sectionItem();
  CZelString material;
  CZelDataKey matKey(L"MAT");
  if (item) item->get(material, &matKey);
  const double b = real(L"B", 0.0), h = real(L"H", 0.0);
  CZelDataItem* chamferItem = ZEL::cfg_get(key2(kSection, L"CHAMFER"));
  double chamfer = 0.0;
  const bool hasChamfer = chamferItem && chamferItem->get(chamfer);
  int corners = 0;
  if (CZelDataItem* flag = ZEL::cfg_get(key2(kSection, L"CHF_FLAG"))) flag->get(corners);
  int given = 0;
  if (CZelDataItem* menu = ZEL::cfg_get(key2(L"QEN_MENU", L"KLOTZ"))) menu->get(given);
  if (hasChamfer) chamfer = std::min(chamfer, chamferLimit(b, h));

  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  storeArticle(article);
  SetDlgItemText(IDC_BLOCK_ARTICLE_TEXT, article.c_str());

  // A material the catalogue does not know is shown by its name.
  const CZelString label = m_matMgr.matLabel(material, L"-1");
  SetDlgItemText(IDC_BLOCK_MATERIAL_TEXT, (label.isEmpty() ? material : label).c_str());
  ZEL::cfg_set(key2(L"*MAT_TREE_PARM*", L"MAT"), ZEL::mkDataItem(ZEL::mkResbuf(material.c_str())), true);

  CheckDlgButton(IDC_BLOCK_CHAMFER_CHECK, hasChamfer ? BST_CHECKED : BST_UNCHECKED);
  for (const Corner& c : kCorners) {
    CheckDlgButton(c.id, hasChamfer && (corners & c.bit) ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(c.id)->EnableWindow(hasChamfer);
  }
  m_chamfer.EnableWindow(hasChamfer);
  if (hasChamfer) m_chamfer.setVal(chamfer);
  else m_chamfer.SetWindowText(L"");

  CheckDlgButton(IDC_BLOCK_SCREEN, given ? BST_UNCHECKED : BST_CHECKED);
  m_width.EnableWindow(given != 0);
  m_height.EnableWindow(given != 0);
  if (given) {
    m_width.setVal(b);
    m_height.setVal(h);
  } else {
    m_width.SetWindowText(L"");
    m_height.SetWindowText(L"");
  }

  m_tools.disableWhenEditing(kSection, this, IDC_BLOCK_SCREEN);
  m_tools.setCoordFlag(kSection, this, IDC_BLOCK_SCREEN);

  if (!m_env.object.isNull()) {
    CZelDataKey objectKey(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &objectKey, nullptr));
    CZelDataKey order(L"ORDER");
    if (CZelDataItem* root = data ? data->get() : nullptr) ZEL::dataItemSet(root, &order, article);
  }
  if (isSubDlg()) GetDlgItem(IDC_BLOCK_SCREEN)->EnableWindow(FALSE);
  m_busy = false;
}

void CBlockTab::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"screen") onScreen();
  else if (word == L"width") onSize(m_width, L"B");
  else if (word == L"height") onSize(m_height, L"H");
  else if (word == L"chamfer") onChamferCheck();
  else if (word == L"chamfer_value") onChamferValue();
  else if (word == L"corner1") onCorner(1);
  else if (word == L"corner2") onCorner(2);
  else if (word == L"corner4") onCorner(4);
  else if (word == L"corner8") onCorner(8);
  else if (word == L"mat_tree") onMaterial();
  else if (word == L"order") onArticle();
}

void CBlockTab::onScreen() {
  if (IsDlgButtonChecked(IDC_BLOCK_SCREEN) == BST_UNCHECKED) {
    CZelDataKey menuKey(L"QEN_MENU");
    std::unique_ptr<ZEL::CDtaFilePointer> menu(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &menuKey, nullptr));
    CZelDataKey klotz(L"KLOTZ");
    if (menu) ZEL::dataItemSet(menu->get(nullptr, true), &klotz, 1);
  } else {
    ZEL::cfg_remove(key2(L"QEN_MENU", L"KLOTZ"));
  }
  refresh();
  notifyMain();
}

void CBlockTab::onSize(CZelEdit& edit, const wchar_t* key) {
  double value = 0.0;
  if (!edit.GetModify() || !edit.getVal(value)) return;
  CZelDataKey k(key);
  ZEL::dataItemSet(sectionItem(), &k, value);
  refresh();
  notifyMain();
}

void CBlockTab::onChamferCheck() {
  if (IsDlgButtonChecked(IDC_BLOCK_CHAMFER_CHECK) == BST_CHECKED) {
    const double chamfer = std::min(chamferLimit(real(L"B", 0.0), real(L"H", 0.0)), 1.0);
    CZelDataKey k(L"CHAMFER"), flag(L"CHF_FLAG");
    ZEL::dataItemSet(sectionItem(), &k, chamfer);
    int corners = 0;
    CZelDataItem* stored = ZEL::cfg_get(key2(kSection, L"CHF_FLAG"));
    if (!stored || !stored->get(corners) || corners == 0) ZEL::dataItemSet(sectionItem(), &flag, 15);
  } else {
    ZEL::cfg_remove(key2(kSection, L"CHAMFER"));
  }
  refresh();
  notifyMain();
}

void CBlockTab::onChamferValue() {
  double value = 0.0;
  if (!m_chamfer.getVal(value)) return;
  value = std::min(value, chamferLimit(real(L"B", 0.0), real(L"H", 0.0)));
  CZelDataKey k(L"CHAMFER");
  ZEL::dataItemSet(sectionItem(), &k, value);
  refresh();
  notifyMain();
}

void CBlockTab::onCorner(int bit) {
  int corners = 0;
  if (CZelDataItem* flag = ZEL::cfg_get(key2(kSection, L"CHF_FLAG"))) flag->get(corners);
  corners ^= bit;
  if (corners != 0) {
    CZelDataKey flag(L"CHF_FLAG");
    ZEL::dataItemSet(sectionItem(), &flag, corners);
  } else {
    // No corner left means no chamfer.
    ZEL::cfg_remove(key2(kSection, L"CHAMFER"));
    ZEL::cfg_remove(key2(kSection, L"CHF_FLAG"));
  }
  refresh();
  notifyMain();
}

void CBlockTab::onMaterial() {
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
  if (ZEL::dlgMatTree(request, chosen) == 1 && chosen != current && item) {
    const CZelString before = ZEL::objKey(item, 3);
    ZEL::dataItemSet(item, &matKey, chosen);
    ZEL::objGen(item, ZEL::kObjGenTexts);
    const CZelString after = ZEL::objKey(item, 3);
    if (!before.isEmpty() && !after.isEmpty() && before != after) objGen_objProp_Sync(L"KLOTZ");
  }
  refresh();
  notifyMain();
}

void CBlockTab::onArticle() {
  ZEL::DlgEnv_st env;
  env.m_parent = this;
  env.hwndParent = GetSafeHwnd();
  env.country = m_env.country;
  env.format = m_env.format;
  CZelDataItem* item = sectionItem();
  if (qenItemDlgMenu(env, item) != 1) return;
  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  SetDlgItemText(IDC_BLOCK_ARTICLE_TEXT, article.c_str());
  storeArticle(article);
  refresh();
  notifyMain();
}
