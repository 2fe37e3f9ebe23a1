// The labeling dialog: text items, their order and lines, the supplementary texts, the list
// file and the import from the message server.
#include "attributes/CLabelingDlg.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelMatMgr.h"
#include "data/CZelMsgClient.h"
#include "data/ZelCountries.h"
#include "data/ZelDataFileUpdate.h"
#include "data/ZelMessages.h"
#include "module/CQenDialogFactory.h"
#include "obj/QenDataFiles.h"
#include "obj/QenObjTxtGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjTxt.h"
#include "resources/dialogs/labeling_ids.h"
#include "store/QenStoreAccess.h"
#include "ui/CMenu.h"
#include "ui/ZelHelp.h"

#include <filesystem>
#include <memory>

namespace {

// The supplementary lists of all object types, shared by every program of the user.
constexpr const wchar_t* kListFile = L"qen_obj_prop.dex";
constexpr int kListFileWaitMs = 15000;

CZelDataKey path(const wchar_t* text) { return CZelDataKey::fromPath(text); }

const QenDialogRegistration kRegistration(QenEntry::Label, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CLabelingDlg(parent));
});

}  // namespace

const CMessageMapEntry CLabelingDlg::kEntries[] = {
    msgmap::command<&CLabelingDlg::OnAdd>(IDC_LBL_ADD),
    msgmap::command<&CLabelingDlg::OnRemove>(IDC_LBL_REMOVE),
    msgmap::command<&CLabelingDlg::OnSingleLine>(IDC_LBL_SINGLE_LINE),
    msgmap::commandRange<&CLabelingDlg::OnUse>(IDC_LBL_USE_1, IDC_LBL_USE_2),
    msgmap::command<&CLabelingDlg::OnDefault>(IDC_LBL_DEFAULT),
    msgmap::command<&CLabelingDlg::OnCountry>(IDC_LBL_COUNTRY, CBN_SELCHANGE),
    msgmap::command<&CLabelingDlg::OnSaveList>(IDC_LBL_SAVE_LIST),
    msgmap::command<&CLabelingDlg::OnSaveSetting>(IDC_LBL_SAVE),
    msgmap::command<&CLabelingDlg::OnRemovePreset>(IDC_LBL_REMOVE_PRESET),
    msgmap::notify<&CLabelingDlg::OnTabChanged>(IDC_LBL_TABS, TCN_SELCHANGE),
    msgmap::notify<&CLabelingDlg::OnSupplChanged>(IDC_LBL_SUPPL, LVN_ITEMCHANGED),
    msgmap::message<&CLabelingDlg::OnChecked>(WM_LBL_CHECKED),
    msgmap::message<&CLabelingDlg::OnDragged>(WM_LBL_DRAGGED),
    msgmap::message<&CLabelingDlg::OnStandSelect>(WM_LBL_STAND_SELECT),
    msgmap::message<&CLabelingDlg::OnSupplEdited>(WM_LBL_SUPPL_EDITED),
    msgmap::contextMenu<&CLabelingDlg::OnListMenu>(),
};
const CMessageMap CLabelingDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CLabelingDlg::CLabelingDlg(CWnd* parent) : CQenEntryDlg<CZelDlg>(IDD_LABELING, parent) {}

void CLabelingDlg::initLabel(const qenDlgEnv_st& record, CZelDataItem* object, ZEL::CDtaFilePointer* texts,
                             ZEL::CDtaFilePointer* properties) {
  m_env = record;
  m_texts = texts;
  m_props = properties;
  // Without an object of its own the dialog works on the object the texts hold.
  m_object = object ? object : gen();
}

void CLabelingDlg::addLangRsc() {
  langRsc(IDC_LBL_SINGLE_LINE, L"QEN_DCL_MAT_116", L"Einzeilig");
  langRsc(IDC_LBL_STANDARD_GROUP, L"QEN_DCL_MAT_117", L"Standard");
  langRsc(IDC_LBL_ADD, L"QEN_DCL_MAT_100", L"Hinzufügen");
  langRsc(IDC_LBL_REMOVE, L"QEN_DCL_MAT_119", L"Entfernen");
  langRsc(IDC_LBL_DEFAULT, L"QEN_DCL_MAT_120", L"Vorgabe");
  langRsc(IDC_LBL_SUPPL_GROUP, L"QEN_DCL_MAT_122", L"Zusatz");
  langRsc(IDC_LBL_SAVE, L"QEN_DCL_MAT_121", L"Einstellung speichern");
  langRsc(IDC_LBL_REMOVE_PRESET, L"QEN_MFC_MAT_028", L"Voreinstellungen entfernen");
  langRsc(IDC_LBL_SAVE_LIST, L"QEN_DCL_MAT_128", L"Liste speichern");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
  langRsc(IDOK, L"DLG_001", L"OK");
}

bool CLabelingDlg::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_MAT_114", L"Beschriftung"));
  return CZelDlg::updLang();
}

BOOL CLabelingDlg::OnInitDialog() {
  CZelDlg::OnInitDialog();
  m_tabs.SubclassDlgItem(IDC_LBL_TABS, this);
  m_standard.SubclassDlgItem(IDC_LBL_STANDARD, this);
  m_suppl.SubclassDlgItem(IDC_LBL_SUPPL, this);
  m_country.SubclassDlgItem(IDC_LBL_COUNTRY, this);

  m_images.Create(16, 16, 0, 2, 0);
  m_images.Add(iconHandle(IDI_LBL_BREAK));
  m_images.Add(iconHandle(IDI_LBL_NO_BREAK));
  m_standard.SetImageList(&m_images, LVSIL_SMALL);
  m_standard.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  m_standard.InsertColumn(0, L"", LVCFMT_LEFT, 200);
  m_suppl.SetExtendedStyle(LVS_EX_FULLROWSELECT);
  m_suppl.InsertColumn(0, L"", LVCFMT_LEFT, 200);

  m_sortLanguage = language();
  m_refSequence = sequence();
  m_refLines = lineBreaks();
  buildHeader();
  insertTabs();
  refresh();
  m_suppl.setBaseline({savedList(), m_list});

  CZelString helpFile = m_env.helpFile;
  if (helpFile.isEmpty()) ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  SetHelpTopic(m_env.helpTopic.isEmpty() ? CZelString(L"qen_obj_txt") : m_env.helpTopic);
  return TRUE;
}

// --- store access -------------------------------------------------------------------------

CZelDataItem* CLabelingDlg::texts() const { return m_texts ? m_texts->get(nullptr, true) : nullptr; }

CZelDataItem* CLabelingDlg::gen() const {
  CZelDataKey k(L"GEN");
  CZelDataItem* root = texts();
  return root ? root->find(&k) : nullptr;
}

int CLabelingDlg::genInt(const wchar_t* key, int fallback) const {
  int value = fallback;
  CZelDataKey k(key);
  if (CZelDataItem* g = gen()) g->get(value, &k);
  return value;
}

CZelArrayTempl<int> CLabelingDlg::genList(const wchar_t* key) const {
  CZelArrayTempl<int> values;
  CZelDataKey k(key);
  if (CZelDataItem* g = gen()) g->get(values, &k);
  return values;
}

void CLabelingDlg::setObject(const wchar_t* key, int value) {
  CZelDataKey k(key);
  if (m_object) ZEL::dataItemSet(m_object, &k, value);
  CZelDataKey inTexts = path((CZelString(L"GEN\\") + key).c_str());
  QEN::sectionSet(m_texts, &inTexts, value);
}

void CLabelingDlg::setObject(const wchar_t* key, const CZelArrayTempl<int>& values) {
  CZelDataKey k(key);
  if (m_object) QEN::itemSet(m_object, &k, values);
  CZelDataKey inTexts = path((CZelString(L"GEN\\") + key).c_str());
  if (CZelDataItem* root = texts()) QEN::itemSet(root, &inTexts, values);
}

void CLabelingDlg::setObject(const wchar_t* key, const CZelString& value) {
  CZelDataKey k(key);
  if (m_object) ZEL::dataItemSet(m_object, &k, value);
  CZelDataKey inTexts = path((CZelString(L"GEN\\") + key).c_str());
  QEN::sectionSet(m_texts, &inTexts, value);
}

CZelString CLabelingDlg::objectText(const wchar_t* key) const {
  CZelString text;
  CZelDataKey k(key);
  if (m_object) m_object->get(text, &k);
  return text;
}

CZelString CLabelingDlg::textsString(const wchar_t* key) const {
  CZelString text;
  CZelDataKey k(key);
  if (CZelDataItem* root = texts()) root->get(text, &k);
  return text;
}

void CLabelingDlg::setTexts(const wchar_t* key, const CZelString& value) {
  CZelDataKey k(key);
  QEN::sectionSet(m_texts, &k, value);
}

void CLabelingDlg::setTexts(const wchar_t* key, int value) {
  CZelDataKey k(key);
  QEN::sectionSet(m_texts, &k, value);
}

CZelDataKey CLabelingDlg::listKey() const {
  CZelDataKey k;
  k.set(5005, ZEL::objKey(m_object, 3).c_str(), 5005, L"TXTLST", 0);
  return k;
}

CZelArrayTempl<CZelString> CLabelingDlg::savedList() const {
  // Saves rename a finished file into place: read without a lock. Only a regular file.
  CZelArrayTempl<CZelString> list;
  const CZelString key3 = ZEL::objKey(m_object, 3);
  const std::string file = QEN::dataFileName(kListFile, QEN::kDataFileRead).toUtf8();
  std::error_code ec;
  if (key3.isEmpty() || !std::filesystem::is_regular_file(file, ec)) return list;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file));
  CZelDataKey k;
  k.set(5005, key3.c_str(), 5005, L"TXTLST", 0);
  if (saved) saved->get(list, &k);
  return list;
}

CZelArrayTempl<CZelString> CLabelingDlg::storedList() const {
  CZelArrayTempl<CZelString> list;
  CZelDataKey k = listKey();
  CZelDataItem* root = m_props ? m_props->get() : nullptr;
  if (root && !ZEL::objKey(m_object, 3).isEmpty()) root->get(list, &k);
  return list;
}

void CLabelingDlg::storeList(const CZelArrayTempl<CZelString>& list) {
  if (ZEL::objKey(m_object, 3).isEmpty()) return;
  CZelDataKey k = listKey();
  QEN::sectionSet(m_props, &k, list);
}

// --- what the dialog shows ----------------------------------------------------------------

CZelString CLabelingDlg::language() const {
  CZelString country = textsString(L"COUNTRY");
  if (country.isEmpty())
    if (CZelDataItem* stored = ZEL::cfg_get(L"_COUNTRY1")) stored->get(country);
  return country.isEmpty() ? m_env.country : country;
}

bool CLabelingDlg::isDrilling() const { return objectText(L"TYPE") == L"DRILL"; }

bool CLabelingDlg::onTab(int bit) const { return !isDrilling() || (m_tab == 1) == ZEL::isCountersinkItem(bit); }

CZelArrayTempl<int> CLabelingDlg::sequence() const {
  CZelArrayTempl<int> whole = genList(L"TXTSEQU");
  if (whole.isEmpty()) ZEL::objTxtSequ(whole, objectText(L"TYPE"), m_object);
  // Items the stored order does not know yet come last, so that every item has its row.
  CZelMapTempl<int, CZelString> names;
  ZEL::objTxtBitLst(names, m_object, country().c_str());
  for (const auto& [bit, name] : names)
    if (whole.find(bit) < 0) whole.add(bit);
  return whole;
}

CZelArrayTempl<int> CLabelingDlg::lineBreaks() const {
  CZelArrayTempl<int> breaks = genList(L"TXTLINE");
  return breaks.isEmpty() ? ZEL::objTxtLine(objectText(L"TYPE")) : breaks;
}

CZelArrayTempl<int> CLabelingDlg::tabSequence(const CZelArrayTempl<int>& whole) const {
  CZelMapTempl<int, CZelString> names;
  ZEL::objTxtBitLst(names, m_object, country().c_str());
  CZelArrayTempl<int> onThisTab;
  for (int bit : whole)
    if (names.contains(bit) && onTab(bit)) onThisTab.add(bit);
  return onThisTab;
}

// A composite panel's material is that of its build-up in the panel catalogue; other sheets
// than composite panels and plain sheets have none.
CZelString CLabelingDlg::material() const {
  const CZelString material = objectText(L"MAT");
  if (objectText(L"TYPE") != L"BLECH") return material;
  const CZelString cons = objectText(L"SCONS");
  if (cons == L"SHEET" || cons.isEmpty()) return material;
  if (cons != L"BOND") return CZelString();
  CZelDataKey k;
  k.set(5005, L"*QEN_ALUCOBOND*", 5005, objectText(L"PROD").c_str(), 5005, objectText(L"SYS").c_str(), 5005, L"BOND",
        5005, objectText(L"NAM").c_str(), 5005, L"MAT", 0);
  CZelString bond;
  if (CZelDataItem* item = ZEL::cfg_get(k)) item->get(bond);
  return bond;
}

CZelString CLabelingDlg::materialLabel() const {
  const CZelString m = material();
  if (m.isEmpty()) return m;
  const CZelString label = CZelMatMgr().matLabel(m, L"-1");
  return label.isEmpty() ? m : label;
}

CZelString CLabelingDlg::groupLabel() const { return ZEL::grpLabel(m_object, country().c_str(), true); }

CZelString CLabelingDlg::previewText() const {
  if (!m_object) return CZelString();
  std::unique_ptr<CZelDataItem> copy(m_object->clone());
  if (objectText(L"TYPE") == L"BLECH" && objectText(L"SCONS") == L"BOND") {
    CZelDataKey mat(L"MAT");
    const CZelString bond = material();
    if (bond.isEmpty()) copy->remove(&mat);
    else ZEL::dataItemSet(copy.get(), &mat, bond);
  }
  CZelArrayTempl<CZelString> lines;
  ZEL::objTxtGen(lines, copy.get(), m_env.format, true, language().c_str());
  return ZEL::txtToRTF(ZEL::implode(ZEL::ldrTxtNrm(lines), L"\r\n"));
}

void CLabelingDlg::buildHeader() {
  CZelString text = groupLabel();
  const CZelString m = material();
  if (!m.isEmpty()) {
    const CZelString label = materialLabel();
    if (label != L"SYSTEM") text += L" - " + label;
    else if (objectText(L"TYPE") != L"BUILD") text += L" {SYSTEM}";
  }
  SetDlgItemText(IDC_LBL_HEADER, text);
}

void CLabelingDlg::insertTabs() {
  m_tabs.DeleteAllItems();
  if (isDrilling()) {
    m_tabs.InsertItem(0, GetMsg(L"QEN_DCL_HLBZ_100", L"Bohrung").c_str());
    m_tabs.InsertItem(1, GetMsg(L"QEN_0074_002", L"Senkung").c_str());
  } else {
    m_tabs.InsertItem(0, GetMsg(L"QEN_OBJ033", L"Objekt").c_str());
  }
  m_tabs.SetCurSel(m_tab);
}

// --- refresh ------------------------------------------------------------------------------

void CLabelingDlg::refresh() {
  if (m_busy) return;
  m_busy = true;
  m_bits = genInt(L"TXTGEN", ZEL::objTxtBit(m_object, true));
  if (m_reload) {
    m_refBits = ZEL::objTxtBit(m_object, false);
    m_reload = false;
  }

  CZelMapTempl<int, CZelString> names;
  ZEL::objTxtBitLst(names, m_object, country().c_str());
  const CZelString extra = GetMsg(L"QEN_DCL_MAT_122", L"Zusatz");
  if (names.contains(ZEL::kTxtPrefix)) names[ZEL::kTxtPrefix] = extra + L" 1";
  if (names.contains(ZEL::kTxtSuffix)) names[ZEL::kTxtSuffix] = extra + L" 2";

  int item = 0;
  CZelDataKey itemKey(L"ITEM");
  if (CZelDataItem* root = texts()) root->get(item, &itemKey);
  if (!names.contains(item)) item = 0;

  CZelArrayTempl<CZelString> stored = storedList();
  if (m_importPending) {
    stored.add(m_importText);
    m_importPending = false;
  }
  CZelArrayTempl<CZelString> list;
  for (const CZelString& e : stored)
    if (!e.isEmpty() && list.find(e) < 0) list.add(e);
  for (const wchar_t* key : {L"PREFIX", L"SUFFIX"}) {
    const CZelString e = objectText(key);
    if (!e.isEmpty() && list.find(e) < 0) list.add(e);
  }
  CZelString selected = textsString(L"LST_ITEM");
  if (list.find(selected) < 0) selected = list.isEmpty() ? CZelString() : list[0];
  setTexts(L"ITEM", item);
  setTexts(L"LST_ITEM", selected);
  storeList(list);
  setTexts(L"COUNTRY", language());
  m_list = list;

  fillStandard(names);
  CheckDlgButton(IDC_LBL_SINGLE_LINE, (m_bits & ZEL::kTxtSingleLine) ? BST_CHECKED : BST_UNCHECKED);
  updateItemButtons();

  CZelArrayTempl<CZelString> shown = list;
  CLabelingSupplLst::sortEntries(shown, m_sortLanguage, (m_sortDirection & 1) != 0);
  m_suppl.setEntries(shown, language(), selected);
  m_suppl.ShowWindow(m_tab == 0 ? SW_SHOW : SW_HIDE);
  for (int id : {IDC_LBL_USE_1, IDC_LBL_USE_2}) {
    GetDlgItem(id)->ShowWindow(m_tab == 0 ? SW_SHOW : SW_HIDE);
    GetDlgItem(id)->EnableWindow(m_tab == 0 && !shown.isEmpty() && !shown[0].isEmpty());
  }
  m_country.setCountry(language());

  CZelDataKey preset;
  preset.set(5005, L"*QEN_OBJ_PROP*", 5005, ZEL::objKey(m_object, 3).c_str(), 5005, L"TXTGEN", 0);
  GetDlgItem(IDC_LBL_REMOVE_PRESET)->EnableWindow(ZEL::cfg_get(preset) != nullptr);

  refreshPreview();
  m_offerImport = true;
  m_offerDelete = !selected.isEmpty();
  m_busy = false;
}

void CLabelingDlg::refreshPreview() {
  const CZelString text = previewText();
  SetDlgItemText(IDC_LBL_PREVIEW, text);
  bool listed = false;
  for (const CZelString& e : m_list) listed = listed || ZEL::label_get(e, language().c_str()) == text;
  m_offerNew = !text.isEmpty() && !listed;
}

void CLabelingDlg::fillStandard(const CZelMapTempl<int, CZelString>& names) {
  const CZelArrayTempl<int> breaks = lineBreaks();
  std::vector<CLabelingStandLst::Row> rows;
  for (int bit : tabSequence(sequence())) {
    CZelString name;
    for (const auto& [b, n] : names)
      if (b == bit) name = n;
    CZelString trimmed = name;
    if (trimmed.trim().isEmpty()) continue;
    rows.push_back({bit, name, (m_bits & bit) != 0, breaks.find(bit) >= 0});
  }
  int item = 0;
  CZelDataKey itemKey(L"ITEM");
  if (CZelDataItem* root = texts()) root->get(item, &itemKey);
  m_standard.setRows(rows, item);
}

void CLabelingDlg::updateItemButtons() {
  int item = 0;
  CZelDataKey itemKey(L"ITEM");
  if (CZelDataItem* root = texts()) root->get(item, &itemKey);
  const bool set = item != 0 && (m_bits & item) == item;
  GetDlgItem(IDC_LBL_ADD)->EnableWindow(!set);
  GetDlgItem(IDC_LBL_REMOVE)->EnableWindow(set);
  const bool asDefault = m_bits == m_refBits && sequence() == m_refSequence && lineBreaks() == m_refLines;
  GetDlgItem(IDC_LBL_DEFAULT)->EnableWindow(!asDefault);
}

// --- commands -----------------------------------------------------------------------------

void CLabelingDlg::setBits(int bits) {
  m_bits = bits;
  setObject(L"TXTGEN", bits);
  refresh();
}

void CLabelingDlg::writeOrder(const CZelArrayTempl<int>& whole, const CZelArrayTempl<int>& breaks) {
  setObject(L"TXTLINE", breaks);
  setObject(L"TXTSEQU", whole);
}

void CLabelingDlg::OnAdd() {
  if (m_busy) return;
  int item = 0;
  CZelDataKey itemKey(L"ITEM");
  if (CZelDataItem* root = texts()) root->get(item, &itemKey);
  setBits(m_bits | item);
}

void CLabelingDlg::OnRemove() {
  if (m_busy) return;
  int selected = 0;
  for (int row = m_standard.GetNextItem(-1, LVNI_SELECTED); row >= 0; row = m_standard.GetNextItem(row, LVNI_SELECTED))
    selected |= m_standard.bitAt(row);
  setBits(m_bits & ~selected);
}

void CLabelingDlg::OnSingleLine() {
  if (m_busy) return;
  const bool single = IsDlgButtonChecked(IDC_LBL_SINGLE_LINE) == BST_CHECKED;
  setBits(single ? m_bits | ZEL::kTxtSingleLine : m_bits & ~ZEL::kTxtSingleLine);
}

void CLabelingDlg::OnUse(UINT id) {
  if (m_busy) return;
  const CZelString entry = textsString(L"LST_ITEM");
  if (entry.isEmpty()) return;
  const bool first = id == static_cast<UINT>(IDC_LBL_USE_1);
  setObject(first ? L"PREFIX" : L"SUFFIX", entry);
  setBits(m_bits | (first ? ZEL::kTxtPrefix : ZEL::kTxtSuffix));
}

void CLabelingDlg::OnDefault() {
  if (m_busy || !m_object) return;
  std::unique_ptr<CZelDataItem> copy(m_object->clone());
  ZEL::objGen(copy.get(), ZEL::kObjGenTexts);
  CZelArrayTempl<int> whole, breaks;
  int bits = 0;
  CZelDataKey seq(L"TXTSEQU"), line(L"TXTLINE"), gen(L"TXTGEN");
  copy->get(whole, &seq);
  copy->get(breaks, &line);
  copy->get(bits, &gen);
  writeOrder(whole, breaks);
  m_refSequence = sequence();
  m_refLines = lineBreaks();
  m_reload = true;
  setBits(bits);
}

void CLabelingDlg::OnCountry() {
  if (m_busy) return;
  const CZelString code = m_country.country();
  if (code.isEmpty()) return;
  setTexts(L"COUNTRY", code);
  refresh();
}

void CLabelingDlg::OnTabChanged(NMHDR*, LRESULT*) {
  if (m_busy) return;
  m_tab = m_tabs.GetCurSel() < 0 ? 0 : m_tabs.GetCurSel();
  refresh();
}

void CLabelingDlg::OnSupplChanged(NMHDR*, LRESULT*) {
  if (m_busy) return;
  const int row = m_suppl.getCurSel();
  if (row >= 0 && row < m_suppl.entries().count()) setTexts(L"LST_ITEM", m_suppl.entryAt(row));
}

LRESULT CLabelingDlg::OnChecked(WPARAM row, LPARAM checked) {
  if (m_busy) return 0;
  const int bit = m_standard.bitAt(static_cast<int>(row));
  if (!bit) return 0;
  m_bits = checked ? m_bits | bit : m_bits & ~bit;
  setObject(L"TXTGEN", m_bits);
  refreshPreview();
  updateItemButtons();
  return 0;
}

LRESULT CLabelingDlg::OnStandSelect(WPARAM row, LPARAM) {
  if (m_busy) return 0;
  setTexts(L"ITEM", m_standard.bitAt(static_cast<int>(row)));
  updateItemButtons();
  return 0;
}

LRESULT CLabelingDlg::OnDragged(WPARAM from, LPARAM to) {
  if (m_busy || from == static_cast<WPARAM>(to)) return 0;
  const int dragged = m_standard.bitAt(static_cast<int>(from));
  const int target = m_standard.bitAt(static_cast<int>(to));
  if (!dragged || !target) return 0;
  CZelArrayTempl<int> whole = sequence();
  const int at = whole.find(target);
  whole.removeAt(whole.find(dragged));
  // The dragged item takes the target's place; the items between close up behind it.
  whole.insertAt(at, dragged);
  setObject(L"TXTSEQU", whole);
  setTexts(L"ITEM", dragged);
  refresh();
  return 0;
}

LRESULT CLabelingDlg::OnSupplEdited(WPARAM row, LPARAM) {
  const CLabelingSupplLst::Edit& edit = m_suppl.lastEdit();
  if (!edit.before.isEmpty() && edit.before != edit.after) {
    // The supplementary text that used the entry follows its edit.
    if (objectText(L"PREFIX") == edit.before) setObject(L"PREFIX", edit.after);
    else if (objectText(L"SUFFIX") == edit.before) setObject(L"SUFFIX", edit.after);
  }
  storeList(m_suppl.entries());
  const int at = static_cast<int>(row);
  setTexts(L"LST_ITEM", at >= 0 ? m_suppl.entryAt(at) : CZelString());
  refresh();
  return 0;
}

void CLabelingDlg::OnListMenu(CWnd* clicked, CPoint point) {
  if (m_busy) return;
  if (clicked == &m_standard) standardMenu(point);
  else if (clicked == &m_suppl) supplMenu(point);
}

void CLabelingDlg::standardMenu(CPoint point) {
  const int row = m_standard.getCurSel();
  if (row < 0) return;
  const int bit = m_standard.bitAt(row);
  const bool first = row == 0;
  const bool last = row == m_standard.GetItemCount() - 1;
  CMenu menu;
  menu.CreatePopupMenu();
  // A drilling's countersink lines follow its drilling lines: their breaks are set there.
  if (!last && (!isDrilling() || m_tab == 0)) {
    if (lineBreaks().find(bit) >= 0)
      menu.AppendMenu(MF_STRING, ID_LBL_BREAK_OFF, GetMsg(L"QEN_MFC_MAT_014", L"Zeilenwechsel ausschalten").c_str());
    else
      menu.AppendMenu(MF_STRING, ID_LBL_BREAK_ON, GetMsg(L"QEN_MFC_MAT_013", L"Zeilenwechsel einschalten").c_str());
  }
  if (!first) {
    if (menu.GetMenuItemCount() > 0) menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, ID_LBL_MOVE_FIRST, GetMsg(L"QEN_MFC_MAT_023", L"An den Anfang setzen").c_str());
    menu.AppendMenu(MF_STRING, ID_LBL_MOVE_UP, GetMsg(L"QEN_MFC_MAT_024", L"Nach oben verschieben").c_str());
  }
  if (!last) {
    if (menu.GetMenuItemCount() > 0) menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, ID_LBL_MOVE_DOWN, GetMsg(L"QEN_MFC_MAT_025", L"Nach unten verschieben").c_str());
    menu.AppendMenu(MF_STRING, ID_LBL_MOVE_LAST, GetMsg(L"QEN_MFC_MAT_026", L"Ans Ende setzen").c_str());
  }
  if (menu.GetMenuItemCount() == 0) return;
  const UINT command = static_cast<UINT>(menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, this));
  if (command) standardCommand(command, bit);
}

void CLabelingDlg::standardCommand(UINT command, int bit) {
  CZelArrayTempl<int> whole = sequence();
  CZelArrayTempl<int> breaks = lineBreaks();
  CZelArrayTempl<int> onTab = tabSequence(whole);
  const int at = onTab.find(bit);
  if (at < 0) return;
  switch (command) {
    case ID_LBL_BREAK_OFF:
      while (breaks.find(bit) >= 0) breaks.removeAt(breaks.find(bit));
      // An empty list would mean "the type's breaks"; 0 stands for "none".
      if (breaks.isEmpty()) breaks.add(0);
      break;
    case ID_LBL_BREAK_ON:
      while (breaks.find(0) >= 0) breaks.removeAt(breaks.find(0));
      breaks.add(bit);
      break;
    case ID_LBL_MOVE_UP:
      if (at > 0) std::swap(onTab[at], onTab[at - 1]);
      break;
    case ID_LBL_MOVE_DOWN:
      if (at + 1 < onTab.count()) std::swap(onTab[at], onTab[at + 1]);
      break;
    case ID_LBL_MOVE_FIRST:
      onTab.removeAt(at);
      onTab.insertAt(0, bit);
      break;
    case ID_LBL_MOVE_LAST:
      onTab.removeAt(at);
      onTab.add(bit);
      break;
    default: return;
  }
  // The items of the other tab keep their order: after the first tab's, before the second's.
  CZelArrayTempl<int> others;
  for (int b : whole)
    if (onTab.find(b) < 0) others.add(b);
  CZelArrayTempl<int> rebuilt = m_tab == 0 ? onTab : others;
  for (int b : (m_tab == 0 ? others : onTab)) rebuilt.add(b);
  writeOrder(rebuilt, breaks);
  setTexts(L"ITEM", bit);
  refresh();
}

void CLabelingDlg::supplMenu(CPoint point) {
  if (isDrilling() && m_tab == 1) return;
  CMenu menu;
  menu.CreatePopupMenu();
  if (m_offerNew) menu.AppendMenu(MF_STRING, ID_LBL_NEW, GetMsg(L"QEN_DCL_MAT_125", L"Neu").c_str());
  if (m_offerDelete && m_suppl.getCurSel() >= 0)
    menu.AppendMenu(MF_STRING, ID_LBL_DELETE, GetMsg(L"QEN_DCL_MAT_127", L"Löschen").c_str());
  if (m_offerImport) menu.AppendMenu(MF_STRING, ID_LBL_IMPORT, GetMsg(L"QEN_DCL_MAT_136", L"Importieren").c_str());
  if (m_offerSort) {
    menu.AppendMenu(MF_STRING, ID_LBL_SORT_UP, GetMsg(L"QEN_MFC_MAT_018", L"Aufsteigend sortieren").c_str());
    menu.AppendMenu(MF_STRING, ID_LBL_SORT_DOWN, GetMsg(L"QEN_MFC_MAT_017", L"Absteigend sortieren").c_str());
  }
  if (menu.GetMenuItemCount() == 0) return;
  const UINT command = static_cast<UINT>(menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, this));
  if (command) supplCommand(command);
}

void CLabelingDlg::supplCommand(UINT command) {
  switch (command) {
    case ID_LBL_NEW: m_suppl.editNewRow(); return;
    case ID_LBL_DELETE: {
      const int row = m_suppl.getCurSel();
      if (row < 0 || row >= m_suppl.entries().count()) return;
      CZelArrayTempl<CZelString> list = m_suppl.entries();
      list.removeAt(row);
      storeList(list);
      break;
    }
    case ID_LBL_IMPORT: import(); break;
    case ID_LBL_SORT_UP:
    case ID_LBL_SORT_DOWN:
      m_sortLanguage = language();
      m_sortDirection = command == ID_LBL_SORT_DOWN ? 1 : 0;
      break;
    default: return;
  }
  refresh();
}

void CLabelingDlg::import() {
  ZEL::CZelMsgClient client;
  const ZEL::CZelMsgClient::Connection how = client.connect();
  if (!client.isAttached()) return;
  const CZelString key = client.selectedKey();
  if (key.isEmpty()) {
    // A server the user had open could have had a text selected; one started just now cannot.
    if (how == ZEL::CZelMsgClient::Connection::Running && client.isAttached())
      MessageBoxW(GetMsg(L"QEN_DIM220", L"Kein Text ausgewählt"), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  CZelString entry;
  for (const zelDlCountry_st* c = zelDlCountrys(); c->code; ++c) {
    const CZelString text = client.text(key, c->code);
    if (!text.isEmpty()) entry = ZEL::label_set(entry, c->code, text);
  }
  if (entry.isEmpty()) {
    MessageBoxW(GetMsg(L"QEN_DIM221", L"Kein Text zugeordnet"), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  m_importPending = true;
  m_importText = entry;
}

void CLabelingDlg::OnSaveList() {
  if (m_busy) return;
  const CZelString key3 = ZEL::objKey(m_object, 3);
  if (key3.isEmpty()) return;
  CZelArrayTempl<CZelString> mine;
  for (const CZelString& e : m_suppl.entries())
    if (!e.isEmpty()) mine.add(e);
  // Under the file's lock, the user's additions and removals go into the list as the file
  // holds it now: another user who saved meanwhile keeps the texts they added.
  CZelArrayTempl<CZelString> list = mine;
  const std::string file = QEN::dataFileName(kListFile, QEN::kDataFileWrite).toUtf8();
  const ZEL::DataFileUpdateResult result = ZEL::updateStoreFile(file, kListFileWaitMs, [&](CZelDataDir& dir) {
    CZelDataItem* entry = dir.makeDir(CZelDataKey(key3));
    if (!entry) return false;
    CZelDataKey txtLst(L"TXTLST"), orig(L"ORIG");
    CZelArrayTempl<CZelString> now;
    entry->get(now, &txtLst);
    list = CLabelingSupplLst::mergeChanges(m_suppl.baseline(), mine, now);
    QEN::itemSet(entry, &txtLst, list);
    entry->remove(&orig);
    return true;
  });
  if (result.status == ZEL::DataFileUpdate::Saved) m_suppl.setBaseline({list, list});
  storeList(list);
  if (result.status == ZEL::DataFileUpdate::Saved) {
    CZelString text = groupLabel() + L"\n";
    const CZelString label = materialLabel();
    if (!label.isEmpty() && !label.match(L"SYSTEM")) text += label + L"\n";
    MessageBoxW(text + GetMsg(L"QEN_MAT043", L"Texte gespeichert"), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
  } else if (!result.ok()) {
    MessageBoxW(CZelString::fromUtf8(result.message), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
  }
  refresh();
}

void CLabelingDlg::OnSaveSetting() {
  if (m_busy) return;
  if (QEN::obj_txtgen_save(m_object)) {
    CZelString text = groupLabel() + L"\n";
    const CZelString label = materialLabel();
    if (!label.isEmpty() && !label.match(L"SYSTEM")) text += label + L"\n";
    MessageBoxW(text + GetMsg(L"QEN_MAT022", L"Einstellungen gespeichert"), L"Qenora", MB_OK | MB_ICONEXCLAMATION);
  }
  refresh();
}

void CLabelingDlg::OnRemovePreset() {
  if (m_busy) return;
  if (QEN::obj_txtgen_rem(ZEL::objKey(m_object, 3)))
    MessageBoxW(groupLabel() + L"\n" + GetMsg(L"QEN_MFC_MAT_029", L"Voreinstellungen entfernt"), L"QENORA", MB_OK);
  refresh();
}

void CLabelingDlg::OnOK() {
  const CZelArrayTempl<CZelString>& list = m_suppl.entries();
  if (list.count() > 1 || (list.count() == 1 && !list[0].isEmpty())) {
    storeList(list);
  } else if (CZelDataItem* root = m_props ? m_props->get() : nullptr; root && !ZEL::objKey(m_object, 3).isEmpty()) {
    CZelDataKey k = listKey();
    root->remove(&k);
  }
  CZelDlg::OnOK();
}
