#include "accessories/CInsulation.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "qen_mfc.h"
#include "resources/dialogs/insulation_ids.h"
#include "ui/ZelHelp.h"
#include "ui/ZelMatTree.h"

#include <cfloat>
#include <cmath>
#include <memory>

namespace {

const wchar_t* const kSection = L"*HZ_DM*";


}  // namespace

const CMessageMapEntry CInsulation::kEntries[] = {
    msgmap::word(IDC_INSUL_THICKNESS, EN_KILLFOCUS, L"thickness"),
    msgmap::word(IDC_INSUL_START, EN_KILLFOCUS, L"start"),
    msgmap::word(IDC_INSUL_END, EN_KILLFOCUS, L"end"),
    msgmap::word(IDC_INSUL_SOFT, BN_CLICKED, L"soft"),
    msgmap::word(IDC_INSUL_HARD, BN_CLICKED, L"hard"),
    msgmap::word(IDC_INSUL_PICK_THICKNESS, BN_CLICKED, L"pick_thickness"),
    msgmap::word(IDC_INSUL_PICK_START, BN_CLICKED, L"pick_start"),
    msgmap::word(IDC_INSUL_PICK_END, BN_CLICKED, L"pick_end"),
    msgmap::word(IDC_INSUL_PICK_BASELINE, BN_CLICKED, L"pick_baseline"),
    msgmap::word(IDC_INSUL_MATERIAL, BN_CLICKED, L"mat_tree"),
    msgmap::word(IDC_INSUL_ARTICLE, BN_CLICKED, L"order"),
};
const CMessageMap CInsulation::kMessageMap{&CQenAccessoryPage::kMessageMap, kEntries,
                                           msgmap::wordHandler<&CInsulation::command>()};

CInsulation::CInsulation() : CQenAccessoryPage(IDD_INSULATION_TAB) { m_busy = true; }

void CInsulation::addLangRsc() {
  langRsc(IDC_INSUL_SOFT, L"QEN_DCL_DAEM_014", L"Weich");
  langRsc(IDC_INSUL_HARD, L"QEN_DCL_DAEM_015", L"Hart");
  langRsc(IDC_INSUL_PICK_THICKNESS, L"QEN_DCL_DAEM_003", L"Dicke <");
  langRsc(IDC_INSUL_PICK_START, L"QEN_DCL_DAEM_004", L"Startdicke <");
  langRsc(IDC_INSUL_PICK_END, L"QEN_DCL_DAEM_005", L"Enddicke <");
  langRsc(IDC_INSUL_MATERIAL, L"QEN_DCL_DAEM_006", L"Material...");
  langRsc(IDC_INSUL_ARTICLE, L"QEN_DCL_DAEM_019", L"Artikel...");
  langRsc(IDC_INSUL_PICK_BASELINE, L"QEN_DCL_DAEM_007", L"Basislinie <");
}

BOOL CInsulation::OnInitDialog() {
  m_busy = true;
  CQenAccessoryPage::OnInitDialog();
  setHelp(L"qen_dmto");
  const std::pair<CZelEdit*, int> fields[] = {
      {&m_thickness, IDC_INSUL_THICKNESS}, {&m_start, IDC_INSUL_START}, {&m_end, IDC_INSUL_END}};
  // An empty field and a zero are the dialog's to report, with its own messages.
  for (const auto& [edit, id] : fields) setUpField(*edit, id, 2, 71, lengthUnit(), CZelEdit::Check::ByDialog);
  if (insideAnotherDialog(*this, m_env))
    for (int id : {IDC_INSUL_PICK_THICKNESS, IDC_INSUL_PICK_START, IDC_INSUL_PICK_END}) GetDlgItem(id)->EnableWindow(FALSE);
  m_busy = false;
  refresh();
  GotoDlgCtrl(GetDlgItem(IDC_INSUL_PICK_THICKNESS));
  return FALSE;
}

bool CInsulation::insideAnotherDialog(const CZelDlg& dialog, const qenDlgEnv_st& record) {
  return dialog.isSubDlg() || dynamic_cast<const CDialog*>(record.parentWnd()) != nullptr;
}

double CInsulation::real(const wchar_t* key) const {
  double value = 0.0;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return std::isfinite(value) ? value : 0.0;
}

CZelString CInsulation::text(const wchar_t* key) const {
  CZelString value;
  if (CZelDataItem* item = ZEL::cfg_get(sectionKey(key))) item->get(value);
  return value;
}

void CInsulation::setReal(const wchar_t* key, double value) {
  if (!std::isfinite(value)) return;
  CZelDataKey k(key);
  ZEL::dataItemSet(sectionItem(), &k, value);
}

bool CInsulation::isEdit() const { return ZEL::cfg_get(sectionKey(L"ORIG")) != nullptr; }

bool CInsulation::hasOrigValue() const {
  CZelDataItem* item = ZEL::cfg_get(sectionKey(L"ORIG"));
  if (!item) return false;
  // The host marks an edit with the object's name; a real, an integer or a text count as well.
  double real = 0.0;
  int integer = 0;
  CZelString text;
  return item->get(real) || item->get(integer) || item->get(text) || item->getEname(text);
}

void CInsulation::refresh() {
  if (m_busy || !GetSafeHwnd()) return;
  m_busy = true;
  CZelDataItem* item = sectionItem();
  const bool soft = text(L"DRAW") == L"W";
  CheckDlgButton(IDC_INSUL_SOFT, soft ? BST_CHECKED : BST_UNCHECKED);
  CheckDlgButton(IDC_INSUL_HARD, soft ? BST_UNCHECKED : BST_CHECKED);

  m_thickness.setVal(real(L"D"));
  const double start = real(L"S"), end = real(L"E");
  const CZelString cons = text(L"CONS");
  const bool edit = isEdit();
  auto show = [this](CZelEdit& field, int button, bool on, double value) {
    field.EnableWindow(on);
    GetDlgItem(button)->EnableWindow(on);
    if (on) field.setVal(value);
    else field.SetWindowText(L"");
  };
  if (edit) {
    show(m_start, IDC_INSUL_PICK_START, false, 0.0);
    show(m_end, IDC_INSUL_PICK_END, false, 0.0);
  } else if (cons == L"G" || cons == L"B") {
    show(m_start, IDC_INSUL_PICK_START, true, start);
    show(m_end, IDC_INSUL_PICK_END, true, end);
  } else if (cons == L"K") {
    // A wedge starts from nothing.
    show(m_start, IDC_INSUL_PICK_START, false, 0.0);
    m_start.setVal(0.0);
    show(m_end, IDC_INSUL_PICK_END, true, end);
  } else if (cons == L"R" || cons == L"F") {
    show(m_start, IDC_INSUL_PICK_START, false, 0.0);
    show(m_end, IDC_INSUL_PICK_END, false, 0.0);
  }
  if (insideAnotherDialog(*this, m_env))
    for (int id : {IDC_INSUL_PICK_THICKNESS, IDC_INSUL_PICK_START, IDC_INSUL_PICK_END}) GetDlgItem(id)->EnableWindow(FALSE);

  CZelString material;
  CZelDataKey matKey(L"MAT");
  if (item) item->get(material, &matKey);
  showMaterial(IDC_INSUL_MATERIAL_TEXT, material);

  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(item, 4), article);
  storeArticle(article);
  SetDlgItemText(IDC_INSUL_ARTICLE_TEXT, article.c_str());

  m_tools.setCoordFlag(kSection, this, 0);
  // The base line of an existing insulation can be picked again, except round a ring.
  GetDlgItem(IDC_INSUL_PICK_BASELINE)->EnableWindow(edit && cons != L"R");

  CZelDataKey startKey(L"S"), endKey(L"E");
  if (item) {
    ZEL::dataItemSet(item, &matKey, material);
    ZEL::dataItemSet(item, &startKey, start);
    ZEL::dataItemSet(item, &endKey, end);
  }
  if (!m_env.object.isNull()) {
    CZelDataKey objectKey(m_env.object.handle());
    std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &objectKey, nullptr));
    CZelDataKey order(L"ORDER");
    if (CZelDataItem* root = data ? data->get() : nullptr) ZEL::dataItemSet(root, &order, article);
  }
  m_busy = false;
}

void CInsulation::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"thickness") onLength(m_thickness, L"D");
  else if (word == L"start") onLength(m_start, L"S");
  else if (word == L"end") onLength(m_end, L"E");
  else if (word == L"soft") onHardness(IDC_INSUL_SOFT, L"W");
  else if (word == L"hard") onHardness(IDC_INSUL_HARD, L"H");
  else if (word == L"pick_thickness") pick(kPickThickness);
  else if (word == L"pick_start") pick(kPickStart);
  else if (word == L"pick_end") pick(kPickEnd);
  else if (word == L"pick_baseline") pick(kPickBaseline);
  else if (word == L"mat_tree") onMaterial();
  else if (word == L"order") onArticle();
}

void CInsulation::onLength(CZelEdit& edit, const wchar_t* key) {
  if (!edit.GetModify()) return;
  // The field hands over an empty field, zero and negative values; the messages are ours.
  ZelValueResult r = edit.readVal();
  double value = real(key);
  bool failed = false;
  if (r.ok()) {
    value = r.value;
    if (value == 0.0) {
      MessageBoxW(GetMsg(L"DL025", L"Wert darf nicht Null sein").c_str(), L"QENORA", MB_OK);
      failed = true;
    }
  } else if (r.error.kind() == CZelValueError::Kind::Empty) {
    MessageBoxW(GetMsg(L"ZEL022", L"Eintragung notwendig").c_str(), L"QENORA", MB_OK);
    failed = true;
  }
  if (!GetSafeHwnd()) return;  // the message box ended the dialog
  edit.setVal(value);
  setReal(key, value);

  const CZelString cons = text(L"CONS");
  const bool orig = hasOrigValue();
  if (CZelString(key) == L"D" && (cons == L"K" || ((cons == L"G" || cons == L"B") && !orig))) {
    setReal(L"S", value);
    setReal(L"E", value);
    m_start.setVal(value);
    m_end.setVal(value);
  } else if (CZelString(key) == L"S" && !orig) {
    setReal(L"E", value);
    m_end.setVal(value);
  }
  refresh();
  if (failed) GotoDlgCtrl(&edit);
  notifyMain();
}

void CInsulation::onHardness(int id, const wchar_t* value) {
  CZelDataItem* item = sectionItem();
  const CZelString before = ZEL::objKey(ZEL::cfg_get(CZelDataKey(kSection)), 3);
  if (IsDlgButtonChecked(id) == BST_CHECKED && text(L"DRAW") != value && item) {
    CZelDataKey draw(L"DRAW");
    ZEL::dataItemSet(item, &draw, CZelString(value));
    ZEL::objGen(item, ZEL::kObjGenHatch);
  }
  const CZelString after = ZEL::objKey(ZEL::cfg_get(CZelDataKey(kSection)), 3);
  if (!before.isEmpty() && !after.isEmpty() && before != after) objGen_objProp_Sync(L"DM");
  refresh();
  notifyMain();
}

void CInsulation::pick(int code) {
  if (CWnd* main = mainDialog()) static_cast<CDialog*>(main)->EndDialog(code);
}

void CInsulation::onMaterial() {
  chooseMaterial();
  refresh();
  notifyMain();
}

void CInsulation::onArticle() {
  CZelString article;
  if (!chooseArticle(article)) return;
  SetDlgItemText(IDC_INSUL_ARTICLE_TEXT, article.c_str());
  storeArticle(article);
  refresh();
  notifyMain();
}
