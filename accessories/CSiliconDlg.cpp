#include "accessories/CSiliconDlg.h"

#include "data/CConfig.h"
#include "data/ZelAngle.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "resources/dialogs/silicone_ids.h"
#include "ui/ZelHelp.h"

#include <cfloat>
#include <memory>

namespace {

const wchar_t* const kSection = L"*HZ_SILIKON*";


// "ORIG" names the joint being edited: true, or the drawing object itself. A "nil" (or
// anything else) is an edit that has no joint to show.
bool origTrue(const CZelDataItem* orig) {
  if (!orig) return false;
  bool flag = false;
  CZelString handle;
  return (orig->get(flag) && flag) || orig->getEname(handle);
}

}  // namespace

const CMessageMapEntry CSiliconDlg::kEntries[] = {
    msgmap::word(IDC_SILICONE_SCREEN, BN_CLICKED, L"screen"),
    msgmap::word(IDC_SILICONE_WIDTH, EN_KILLFOCUS, L"width"),
    msgmap::word(IDC_SILICONE_ANGLE, EN_KILLFOCUS, L"angle"),
    msgmap::word(IDC_SILICONE_MATERIAL, BN_CLICKED, L"mat_tree"),
    msgmap::word(IDC_SILICONE_ARTICLE, BN_CLICKED, L"order"),
};
const CMessageMap CSiliconDlg::kMessageMap{&CQenAccessoryPage::kMessageMap, kEntries,
                                           msgmap::wordHandler<&CSiliconDlg::command>()};

CSiliconDlg::CSiliconDlg() : CQenAccessoryPage(IDD_SILICONE_TAB) {}

void CSiliconDlg::addLangRsc() {
  langRsc(IDC_SILICONE_ARTICLE, L"QEN_DCL_HLBZ_034", L"Artikel...");
  langRsc(IDC_SILICONE_SCREEN, L"QEN_DCL_HLBZ_148", L"Am Bildschirm bestimmen");
  langRsc(IDC_SILICONE_MATERIAL, L"QEN_DCL_HLBZ_002", L"Material");
  langRsc(IDC_SILICONE_WIDTH_LABEL, L"QEN_DCL_MAT_087", L"Breite");
  langRsc(IDC_SILICONE_ANGLE_LABEL, L"QEN_DCL_MAT_022", L"Winkel");
}

BOOL CSiliconDlg::OnInitDialog() {
  CQenAccessoryPage::OnInitDialog();
  setHelp(L"qen_silikon");
  // A joint is wider than nothing.
  setUpField(m_width, IDC_SILICONE_WIDTH, 2, 71, lengthUnit());
  // Degrees from 0 up; a turn and more is brought back into one turn when stored.
  setUpField(m_angle, IDC_SILICONE_ANGLE, 3, 69, lengthUnit());
  m_busy = false;
  refresh();
  return TRUE;
}

void CSiliconDlg::refresh() {
  if (m_busy || !GetSafeHwnd()) return;
  m_busy = true;
  CZelDataItem* item = sectionItem();
  CZelString material, cons;
  double b = 0.0, w = 0.0;
  CZelDataKey matKey(L"MAT"), bKey(L"B"), wKey(L"W"), consKey(L"CONS");
  if (item) {
    item->get(material, &matKey);
    item->get(b, &bKey);
    item->get(w, &wKey);
    item->get(cons, &consKey);
  }

  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  storeArticle(article, ArticleTo::SectionOnly);

  const bool given = ZEL::cfg_get(CZelDataKey::twoPart(L"QEN_MENU", L"SILIKON")) != nullptr;
  CheckDlgButton(IDC_SILICONE_SCREEN, given ? BST_UNCHECKED : BST_CHECKED);
  m_width.EnableWindow(given);
  if (given) m_width.setVal(b);
  else m_width.SetWindowText(L"");
  // Only a joint without cord has an angle of its own.
  const bool angle = given && cons == L"V";
  m_angle.EnableWindow(angle);
  if (angle) m_angle.setVal(ZEL::g_ang(w));
  else m_angle.SetWindowText(L"");

  m_tools.disableWhenEditing(kSection, this, IDC_SILICONE_SCREEN);
  m_tools.setCoordFlag(kSection, this, IDC_SILICONE_SCREEN);

  CZelDataItem* orig = ZEL::cfg_get(sectionKey(L"ORIG"));
  if (origTrue(orig)) {
    GetDlgItem(IDC_SILICONE_SCREEN)->EnableWindow(FALSE);
    // The joint being edited keeps its outline with it.
    int count = 0;
    CZelVertexArray vertices;
    CZelDataKey vl(L"VL");
    if (ZEL::seal_vl(item, count, vertices) && count > 0) item->put(&vl, ZEL::mkResbuf(vertices));
  } else if (orig) {
    GetDlgItem(IDC_SILICONE_SCREEN)->EnableWindow(FALSE);
    m_width.EnableWindow(FALSE);
    m_angle.EnableWindow(FALSE);
  }

  showMaterial(IDC_SILICONE_MATERIAL_TEXT, material);
  SetDlgItemText(IDC_SILICONE_ARTICLE_TEXT, article.c_str());

  if (!m_env.object.isNull()) {
    CZelDataKey objectKey(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &objectKey, nullptr));
    CZelDataKey order(L"ORDER");
    if (CZelDataItem* root = data ? data->get() : nullptr) ZEL::dataItemSet(root, &order, article);
  }
  m_busy = false;
}

void CSiliconDlg::changed() {
  refresh();
  notifyMain();
}

void CSiliconDlg::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"screen") onScreen();
  else if (word == L"width") onWidth();
  else if (word == L"angle") onAngle();
  else if (word == L"mat_tree") onMaterial();
  else if (word == L"order") onArticle();
}

void CSiliconDlg::onScreen() {
  if (IsDlgButtonChecked(IDC_SILICONE_SCREEN) == BST_UNCHECKED) {
    CZelDataKey menuKey(L"QEN_MENU");
    std::unique_ptr<ZEL::CDtaFilePointer> menu(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &menuKey, nullptr));
    CZelDataKey silikon(L"SILIKON");
    if (menu) ZEL::dataItemSet(menu->get(nullptr, true), &silikon, 1);
  } else {
    ZEL::cfg_remove(CZelDataKey::twoPart(L"QEN_MENU", L"SILIKON"));
  }
  refresh();
}

void CSiliconDlg::onWidth() {
  double value = 0.0;
  // A refused text is back at its last good one, unmodified: nothing is written.
  if (!m_width.GetModify() || !m_width.getVal(value)) return;
  CZelDataKey b(L"B");
  ZEL::dataItemSet(sectionItem(), &b, value);
  changed();
}

void CSiliconDlg::onAngle() {
  double value = 0.0;
  if (m_angle.GetModify()) {
    if (!m_angle.getVal(value)) return;
  } else {
    // Untouched, the field still holds the stored angle exactly, not as rounded for showing.
    if (!m_angle.hasGoodValue()) return;
    value = m_angle.goodValue();
  }
  CZelDataKey w(L"W");
  ZEL::dataItemSet(sectionItem(), &w, ZEL::g_ang(value));
  changed();
}

void CSiliconDlg::onMaterial() {
  chooseMaterial();
  changed();
}

void CSiliconDlg::onArticle() {
  CZelString article;
  if (!chooseArticle(article)) return;
  SetDlgItemText(IDC_SILICONE_ARTICLE_TEXT, article.c_str());
  CZelDataKey order(L"ORDER");
  if (m_pageItem) ZEL::dataItemSet(m_pageItem, &order, article);
  storeArticle(article, ArticleTo::SectionOnly);
  changed();
}
