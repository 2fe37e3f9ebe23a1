#include "accessories/CBlockTab.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "resources/dialogs/block_ids.h"

#include <algorithm>
#include <cfloat>

static_assert(IDC_BLOCK_SCREEN == qen::sizetab::IDC_SCREEN && IDC_BLOCK_WIDTH == qen::sizetab::IDC_WIDTH &&
                  IDC_BLOCK_HEIGHT == qen::sizetab::IDC_HEIGHT && IDC_BLOCK_WIDTH_LABEL == qen::sizetab::IDC_WIDTH_LABEL &&
                  IDC_BLOCK_MATERIAL == qen::sizetab::IDC_MATERIAL && IDC_BLOCK_ARTICLE == qen::sizetab::IDC_ARTICLE &&
                  IDC_BLOCK_MATERIAL_TEXT == qen::sizetab::IDC_MATERIAL_TEXT &&
                  IDC_BLOCK_ARTICLE_TEXT == qen::sizetab::IDC_ARTICLE_TEXT,
              "the block's template numbers the size tab's controls as every size tab does");

namespace {

const QenSizeTabFrame kFrame{L"KLOTZ", L"*HZ_KLOTZ*", L"qen_klotz", IDC_BLOCK_HEIGHT_LABEL, QenScreenWhileEditing::Unchecked};

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
    msgmap::word(IDC_BLOCK_CHAMFER_CHECK, BN_CLICKED, L"chamfer"),
    msgmap::word(IDC_BLOCK_CHAMFER, EN_KILLFOCUS, L"chamfer_value"),
    msgmap::word(IDC_BLOCK_CORNER1, BN_CLICKED, L"corner1"),
    msgmap::word(IDC_BLOCK_CORNER2, BN_CLICKED, L"corner2"),
    msgmap::word(IDC_BLOCK_CORNER4, BN_CLICKED, L"corner4"),
    msgmap::word(IDC_BLOCK_CORNER8, BN_CLICKED, L"corner8"),
};
// The words go to the size tab's command handler, which hands these to shapeCommand.
const CMessageMap CBlockTab::kMessageMap{&CAccessorySizeTab::kMessageMap, kEntries};

CBlockTab::CBlockTab() : CAccessorySizeTab(IDD_BLOCK_TAB, kFrame) {}

void CBlockTab::addLangRsc() {
  CAccessorySizeTab::addLangRsc();
  langRsc(IDC_BLOCK_CHAMFER_CHECK, L"QEN_DCL_DRAW_059", L"Fase");
}

void CBlockTab::setUpFields(Zel::lUnit unit) {
  m_chamfer.SubclassDlgItem(IDC_BLOCK_CHAMFER, this);
  m_chamfer.setCountry(country());
  m_chamfer.setFormat(m_env.format);
  m_chamfer.setLUnits(unit, -1);
  // A chamfer may be zero.
  m_chamfer.setEditFlags(2, 69, 2, -DBL_MAX, DBL_MAX);
}

void CBlockTab::refreshShape(double b, double h) {
  CZelDataItem* chamferItem = ZEL::cfg_get(sectionKey(L"CHAMFER"));
  double chamfer = 0.0;
  const bool hasChamfer = chamferItem && chamferItem->get(chamfer);
  int corners = 0;
  if (CZelDataItem* flag = ZEL::cfg_get(sectionKey(L"CHF_FLAG"))) flag->get(corners);
  if (hasChamfer) chamfer = std::min(chamfer, chamferLimit(b, h));

  CheckDlgButton(IDC_BLOCK_CHAMFER_CHECK, hasChamfer ? BST_CHECKED : BST_UNCHECKED);
  for (const Corner& c : kCorners) {
    CheckDlgButton(c.id, hasChamfer && (corners & c.bit) ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(c.id)->EnableWindow(hasChamfer);
  }
  m_chamfer.EnableWindow(hasChamfer);
  if (hasChamfer) m_chamfer.setVal(chamfer);
  else m_chamfer.SetWindowText(L"");
}

bool CBlockTab::shapeCommand(const CZelString& word) {
  if (word == L"chamfer") onChamferCheck();
  else if (word == L"chamfer_value") onChamferValue();
  else if (word == L"corner1") onCorner(1);
  else if (word == L"corner2") onCorner(2);
  else if (word == L"corner4") onCorner(4);
  else if (word == L"corner8") onCorner(8);
  else return false;
  return true;
}

void CBlockTab::onChamferCheck() {
  if (IsDlgButtonChecked(IDC_BLOCK_CHAMFER_CHECK) == BST_CHECKED) {
    const double chamfer = std::min(chamferLimit(real(L"B", 0.0), real(L"H", 0.0)), 1.0);
    CZelDataKey k(L"CHAMFER"), flag(L"CHF_FLAG");
    ZEL::dataItemSet(sectionItem(), &k, chamfer);
    int corners = 0;
    CZelDataItem* stored = ZEL::cfg_get(sectionKey(L"CHF_FLAG"));
    if (!stored || !stored->get(corners) || corners == 0) ZEL::dataItemSet(sectionItem(), &flag, 15);
  } else {
    ZEL::cfg_remove(sectionKey(L"CHAMFER"));
  }
  changed();
}

void CBlockTab::onChamferValue() {
  double value = 0.0;
  if (!m_chamfer.getVal(value)) return;
  value = std::min(value, chamferLimit(real(L"B", 0.0), real(L"H", 0.0)));
  CZelDataKey k(L"CHAMFER");
  ZEL::dataItemSet(sectionItem(), &k, value);
  changed();
}

void CBlockTab::onCorner(int bit) {
  int corners = 0;
  if (CZelDataItem* flag = ZEL::cfg_get(sectionKey(L"CHF_FLAG"))) flag->get(corners);
  corners ^= bit;
  if (corners != 0) {
    CZelDataKey flag(L"CHF_FLAG");
    ZEL::dataItemSet(sectionItem(), &flag, corners);
  } else {
    // No corner left means no chamfer.
    ZEL::cfg_remove(sectionKey(L"CHAMFER"));
    ZEL::cfg_remove(sectionKey(L"CHF_FLAG"));
  }
  changed();
}
