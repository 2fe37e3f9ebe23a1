#include "accessories/CAccessorySizeTab.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "ui/ZelHelp.h"

#include <cfloat>
#include <memory>

using namespace qen::sizetab;

const CMessageMapEntry CAccessorySizeTab::kEntries[] = {
    msgmap::word(IDC_SCREEN, BN_CLICKED, L"screen"),
    msgmap::word(IDC_WIDTH, EN_KILLFOCUS, L"width"),
    msgmap::word(IDC_HEIGHT, EN_KILLFOCUS, L"height"),
    msgmap::word(IDC_MATERIAL, BN_CLICKED, L"mat_tree"),
    msgmap::word(IDC_ARTICLE, BN_CLICKED, L"order"),
};
const CMessageMap CAccessorySizeTab::kMessageMap{&CQenAccessoryPage::kMessageMap, kEntries,
                                                 msgmap::wordHandler<&CAccessorySizeTab::command>()};

CAccessorySizeTab::CAccessorySizeTab(UINT templateId, const QenSizeTabFrame& frame)
    : CQenAccessoryPage(templateId), m_frame(frame) {}

void CAccessorySizeTab::addLangRsc() {
  langRsc(IDC_SCREEN, L"QEN_DCL_HLBZ_135", L"Am Bildschirm bestimmen");
  langRsc(IDC_WIDTH_LABEL, L"QEN_DCL_HLBZ_136", L"Breite");
  langRsc(m_frame.heightLabel, L"QEN_DCL_HLBZ_137", L"Höhe");
  langRsc(IDC_MATERIAL, L"QEN_DCL_HLBZ_002", L"Material");
  langRsc(IDC_ARTICLE, L"QEN_DCL_HLBZ_010", L"Artikel...");
}

BOOL CAccessorySizeTab::OnInitDialog() {
  CQenAccessoryPage::OnInitDialog();
  setHelp(m_frame.helpTopic);
  const Zel::lUnit unit = lengthUnit();
  // Widths and heights are lengths above zero.
  setUpField(m_width, IDC_WIDTH, 2, 71, unit);
  setUpField(m_height, IDC_HEIGHT, 2, 71, unit);
  setUpFields(unit);
  m_busy = false;
  refresh();
  return TRUE;
}

double CAccessorySizeTab::real(const wchar_t* key, double fallback) const {
  double value = fallback;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return value;
}

void CAccessorySizeTab::refresh() {
  if (m_busy || !GetSafeHwnd()) return;
  m_busy = true;
  CZelDataItem* item = sectionItem();
  CZelString material;
  CZelDataKey matKey(L"MAT");
  if (item) item->get(material, &matKey);
  const double b = real(L"B", 0.0), h = real(L"H", 0.0);
  CZelDataKey menuKey;
  menuKey.set(5005, L"QEN_MENU", 5005, m_frame.type, 0);
  int given = 0;
  if (CZelDataItem* menu = ZEL::cfg_get(menuKey)) menu->get(given);

  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  storeArticle(article);
  SetDlgItemText(IDC_ARTICLE_TEXT, article.c_str());

  showMaterial(IDC_MATERIAL_TEXT, material);

  refreshShape(b, h);

  CheckDlgButton(IDC_SCREEN, given ? BST_UNCHECKED : BST_CHECKED);
  m_width.EnableWindow(given != 0);
  m_height.EnableWindow(given != 0);
  if (given) {
    m_width.setVal(b);
    m_height.setVal(h);
  } else {
    m_width.SetWindowText(L"");
    m_height.SetWindowText(L"");
  }

  // An object already in the drawing has its place: it is not determined on screen again.
  if (m_frame.editing == QenScreenWhileEditing::Unchecked) m_tools.disableWhenEditing(m_frame.section, this, IDC_SCREEN);
  else GetDlgItem(IDC_SCREEN)->EnableWindow(ZEL::cfg_get(sectionKey(L"ORIG")) == nullptr);
  m_tools.setCoordFlag(m_frame.section, this, IDC_SCREEN);

  if (!m_env.object.isNull()) {
    CZelDataKey objectKey(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &objectKey, nullptr));
    CZelDataKey order(L"ORDER");
    if (CZelDataItem* root = data ? data->get() : nullptr) ZEL::dataItemSet(root, &order, article);
  }
  // A dialog opened from another one cannot give the drawing to the user.
  if (isSubDlg()) GetDlgItem(IDC_SCREEN)->EnableWindow(FALSE);
  m_busy = false;
}

void CAccessorySizeTab::changed() {
  refresh();
  notifyMain();
}

void CAccessorySizeTab::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"screen") onScreen();
  else if (word == L"width") onSize(m_width, L"B");
  else if (word == L"height") onSize(m_height, L"H");
  else if (word == L"mat_tree") onMaterial();
  else if (word == L"order") onArticle();
  else shapeCommand(word);
}

void CAccessorySizeTab::onScreen() {
  if (IsDlgButtonChecked(IDC_SCREEN) == BST_UNCHECKED) {
    CZelDataKey menuKey(L"QEN_MENU");
    std::unique_ptr<ZEL::CDtaFilePointer> menu(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &menuKey, nullptr));
    CZelDataKey typeKey(m_frame.type);
    if (menu) ZEL::dataItemSet(menu->get(nullptr, true), &typeKey, 1);
  } else {
    CZelDataKey menuKey;
    menuKey.set(5005, L"QEN_MENU", 5005, m_frame.type, 0);
    ZEL::cfg_remove(menuKey);
  }
  changed();
}

void CAccessorySizeTab::onSize(CZelEdit& edit, const wchar_t* key) {
  double value = 0.0;
  // A refused text is back at its last good one, unmodified: nothing is written.
  if (!edit.GetModify() || !edit.getVal(value)) return;
  CZelDataKey k(key);
  ZEL::dataItemSet(sectionItem(), &k, value);
  changed();
}

void CAccessorySizeTab::onMaterial() {
  chooseMaterial();
  changed();
}

void CAccessorySizeTab::onArticle() {
  CZelString article;
  if (!chooseArticle(article)) return;
  SetDlgItemText(IDC_ARTICLE_TEXT, article.c_str());
  storeArticle(article);
  changed();
}
