#include "tests/support/TestDialogs.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataAccess.h"
#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CLinkCtrl.h"
#include "ui/CListCtrl.h"
#include "ui/CMenu.h"
#include "ui/CStatic.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"

#include <cwchar>

namespace testdlg {

std::string stored(const wchar_t* key) {
  CZelDataItem* item = ZEL::cfg_get((CZelString(L"*TEST*\\") + key).c_str());
  if (!item) return "";
  return item->isDir() ? CStoreFile::toText(*item) : CStoreFile::valueToText(item->value());
}

void storeString(const wchar_t* key, const CZelString& value) {
  ZEL::cfg_set((CZelString(L"*TEST*\\") + key).c_str(), ZEL::mkDataItem(ZEL::mkResbuf(value.c_str())), true);
}

void storeInt(const wchar_t* key, int value) {
  ZEL::cfg_set((CZelString(L"*TEST*\\") + key).c_str(), ZEL::mkDataItem(ZEL::mkRbLong(value)), true);
}

void storeReal(const wchar_t* key, double value) {
  ZEL::cfg_set((CZelString(L"*TEST*\\") + key).c_str(), ZEL::mkDataItem(ZEL::mkRbReal(value)), true);
}

}  // namespace testdlg

using namespace testdlg;

// --- the properties page ---------------------------------------------------------------------

const CMessageMapEntry CTestPage::kEntries[] = {
  msgmap::word(IDC_WIDTH, EN_KILLFOCUS, L"width"),
  msgmap::word(IDC_CHAMFER, BN_CLICKED, L"chamfer"),
  msgmap::word(IDC_SCREEN, BN_CLICKED, L"screen"),
  msgmap::word(IDC_OBJECT, BN_CLICKED, L"object"),
  msgmap::word(IDC_POST, BN_CLICKED, L"post"),
  msgmap::message<&CTestPage::OnPosted>(WM_APP + 1),
  msgmap::message<&CTestPage::OnRefreshPage>(WM_QEN_REFRESH_PAGE),
};
const CMessageMap CTestPage::kMessageMap{&CDialog::kMessageMap, kEntries, msgmap::wordHandler<&CTestPage::command>()};

BOOL CTestPage::OnInitDialog() {
  CDialog::OnInitDialog();
  m_width.SubclassDlgItem(IDC_WIDTH, this);
  edit(IDC_READONLY).SetWindowText(L"fest");
  refresh();
  return FALSE;
}

void CTestPage::refresh() {
  if (m_busy) return;
  m_busy = true;
  ++refreshCount;
  CZelDataItem* b = ZEL::cfg_get(L"*TEST*\\B");
  double width = 0;
  if (b) b->get(width);
  // Setting the text sends EN_CHANGE; the busy flag keeps this refresh from running again.
  m_width.SetWindowText(CZelString().format(L"%g", width));
  CheckDlgButton(IDC_CHAMFER, ZEL::cfg_get(L"*TEST*\\CHAMFER") ? BST_CHECKED : BST_UNCHECKED);
  m_busy = false;
}

void CTestPage::command(const CZelString& word) {
  if (m_busy) return;
  if (word == L"width") {
    if (!m_width.GetModify()) return;
    storeReal(L"B", std::wcstod(m_width.GetWindowText().c_str(), nullptr));
  } else if (word == L"chamfer") {
    if (IsDlgButtonChecked(IDC_CHAMFER)) storeReal(L"CHAMFER", 1.0);
    else ZEL::cfg_remove(L"*TEST*\\CHAMFER");
  } else if (word == L"screen") {
    storeInt(L"SCREEN", static_cast<int>(IsDlgButtonChecked(IDC_SCREEN)));
  } else if (word == L"object") {
    static CZelDataItem object;
    GetParent()->GetParent()->SendMessage(WM_QEN_OBJECT, 0, reinterpret_cast<LPARAM>(&object));
    return;
  } else if (word == L"post") {
    PostMessage(WM_APP + 1);
    storeString(L"ORDER", L"clicked");
    return;
  }
  refresh();
  GetParent()->GetParent()->SendMessage(WM_QEN_REFRESH);
}

LRESULT CTestPage::OnPosted(WPARAM, LPARAM) {
  CZelString order;
  if (CZelDataItem* item = ZEL::cfg_get(L"*TEST*\\ORDER")) item->get(order);
  storeString(L"ORDER", order + L", posted");
  return 0;
}

LRESULT CTestPage::OnRefreshPage(WPARAM, LPARAM) {
  refresh();
  return 0;
}

// --- the administration page -----------------------------------------------------------------

const CMessageMapEntry CTestAdminPage::kEntries[] = {
  msgmap::command<&CTestAdminPage::OnRefreshAdmin>(IDC_REFRESH_ADMIN),
};
const CMessageMap CTestAdminPage::kMessageMap{&CDialog::kMessageMap, kEntries};

void CTestAdminPage::OnRefreshAdmin() { GetParent()->GetParent()->SendMessage(WM_QEN_REFRESH_PAGE); }

// --- the sub-dialog ----------------------------------------------------------------------------

void CTestSubDlg::OnOK() {
  text = edit(IDC_SUB_EDIT).GetWindowText();
  CDialog::OnOK();
}

// --- the main dialog ---------------------------------------------------------------------------

const CMessageMapEntry CTestMainDlg::kEntries[] = {
  msgmap::word(IDC_CONTOUR, BN_CLICKED, L"hatch_r"),
  msgmap::word(IDC_STANDARD, BN_CLICKED, L"hatch_n"),
  msgmap::word(IDC_HATCHED, BN_CLICKED, L"hatch_m"),
  msgmap::word(IDC_ASK, BN_CLICKED, L"ask"),
  msgmap::word(IDC_SUB, BN_CLICKED, L"sub"),
  msgmap::word(IDC_HELP, BN_CLICKED, L"help"),
  msgmap::word(IDC_LAYER_NAME, CBN_SELCHANGE, L"layer_select"),
  msgmap::word(IDC_LAYER_NAME, CBN_KILLFOCUS, L"layer_commit"),
  msgmap::word(IDC_LINETYPE, CBN_SELCHANGE, L"linetype"),
  msgmap::word(IDC_AREAS, LBN_SELCHANGE, L"area"),
  msgmap::word(IDC_AREAS, LBN_DBLCLK, L"area_open"),
  msgmap::word(IDC_MATTYPES, CLBN_CHKCHANGE, L"mattype"),
  msgmap::word(IDC_PREVIEW, STN_CLICKED, L"preview"),
  msgmap::notify<&CTestMainDlg::OnTabChange>(IDC_TABS, TCN_SELCHANGE),
  msgmap::notify<&CTestMainDlg::OnTreeSelect>(IDC_NORMS, TVN_SELCHANGED),
  msgmap::notify<&CTestMainDlg::OnEndLabel>(IDC_TEXTS, LVN_ENDLABELEDIT),
  msgmap::notify<&CTestMainDlg::OnBeginDrag>(IDC_TEXTS, LVN_BEGINDRAG),
  msgmap::wordNotify(IDC_TEXTS, LVN_ITEMCHANGED, L"texts"),
  msgmap::wordNotify(IDC_LINK, NM_CLICK, L"link"),
  msgmap::message<&CTestMainDlg::OnRefresh>(WM_QEN_REFRESH),
  msgmap::message<&CTestMainDlg::OnObject>(WM_QEN_OBJECT),
  msgmap::message<&CTestMainDlg::OnRefreshPage>(WM_QEN_REFRESH_PAGE),
};
const CMessageMap CTestMainDlg::kMessageMap{&CDialog::kMessageMap, kEntries, msgmap::wordHandler<&CTestMainDlg::command>()};

BOOL CTestMainDlg::OnInitDialog() {
  CDialog::OnInitDialog();
  // A page may report before the pages exist; the dialog must take it without them.
  SendMessage(WM_QEN_REFRESH);
  refreshesBeforePages = refreshCount;

  button(IDC_LAYER_BTN).SetIcon(iconHandle(10308));
  CTabCtrl& tab = tabCtrl(IDC_TABS);
  tab.InsertItem(0, L"Eigenschaften");
  tab.InsertItem(1, L"Verwaltung");
  page.Create(IDD_TEST_PAGE, &tab);
  admin.Create(IDD_TEST_ADMIN, &tab);
  tab.setItemPage(0, &page);
  tab.setItemPage(1, &admin);
  CZelString mode;
  if (CZelDataItem* m = ZEL::cfg_get(L"*TEST*\\MODE")) m->get(mode);
  int current = mode == L"ADMIN" ? 1 : 0;
  tab.SetCurSel(current);
  showPage(current);

  CZelString hatch;
  if (CZelDataItem* h = ZEL::cfg_get(L"*TEST*\\HATCH")) h->get(hatch);
  CheckRadioButton(IDC_HATCHED, IDC_STANDARD, hatch == L"R" ? IDC_CONTOUR : hatch == L"M" ? IDC_HATCHED : IDC_STANDARD);

  CComboBox& layers = combo(IDC_LAYER_NAME);
  for (const wchar_t* name : {L"Konstruktion", L"0", L"Achsen"}) layers.AddString(name);
  CComboBox& linetypes = combo(IDC_LINETYPE);
  for (const wchar_t* name : {L"CONTINUOUS", L"HIDDEN", L"CENTER"}) linetypes.AddString(name);
  linetypes.SetCurSel(0);
  CListBox& areas = listBox(IDC_AREAS);
  for (const wchar_t* name : {L"Stahl", L"Aluminium", L"Holz"}) areas.AddString(name);
  CCheckListBox& types = checkList(IDC_MATTYPES);
  for (const wchar_t* name : {L"Blech", L"Profil"}) types.AddString(name);
  types.SetCheck(1, BST_CHECKED);
  CTreeCtrl& norms = tree(IDC_NORMS);
  HTREEITEM root = norms.InsertItem(L"Normen");
  HTREEITEM din = norms.InsertItem(L"DIN", root);
  norms.InsertItem(L"DIN 933", din);
  norms.InsertItem(L"ISO 4017", root);
  CListCtrl& texts = listCtrl(IDC_TEXTS);
  texts.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
  texts.InsertColumn(0, L"Text");
  texts.InsertColumn(1, L"Wert");
  for (const wchar_t* name : {L"Name", L"Material", L"Artikel"}) texts.InsertItem(texts.GetItemCount(), name);
  texts.SetItemText(1, 1, L"ALU");
  texts.SetCheck(0, TRUE);
  GetDlgItem(IDC_LABEL)->SetWindowText(L"Klotz 30 x 6");
  return TRUE;
}

void CTestMainDlg::showPage(int index) {
  page.ShowWindow(index == 0 ? SW_SHOW : SW_HIDE);
  admin.ShowWindow(index == 1 ? SW_SHOW : SW_HIDE);
}

BOOL CTestMainDlg::PreTranslateMessage(MSG* msg) {
  // Enter in the layer combo's edit field commits the name and never presses OK.
  if (msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN && msg->hwnd->GetDlgCtrlID() == kComboEditId) {
    button(IDC_CONTOUR).SetFocus();
    return TRUE;
  }
  return CDialog::PreTranslateMessage(msg);
}

void CTestMainDlg::OnOK() {
  storeInt(L"DONE", 1);
  CDialog::OnOK();
}

void CTestMainDlg::command(const CZelString& word) {
  if (word == L"hatch_r" || word == L"hatch_n" || word == L"hatch_m") {
    storeString(L"HATCH", word == L"hatch_r" ? L"R" : word == L"hatch_n" ? L"N" : L"M");
    GetDlgItem(IDC_LAYER_BTN)->EnableWindow(word == L"hatch_m" ? FALSE : TRUE);
  } else if (word == L"ask") {
    int answer = MessageBox(L"Einstellungen speichern?\nJa oder Nein", L"QENORA", MB_YESNO | MB_ICONQUESTION);
    storeInt(L"ANSWER", answer);
  } else if (word == L"help") {
    CDialogBackend::current().showHelp(helpFile, helpTopic);
  } else if (word == L"sub") {
    CTestSubDlg sub(this);
    if (sub.DoModal() == IDOK) storeString(L"SUB", sub.text);
  } else if (word == L"layer_select") {
    CComboBox& c = combo(IDC_LAYER_NAME);
    storeString(L"LAYER", c.GetLBText(c.GetCurSel()));
  } else if (word == L"layer_commit") {
    CZelString name = combo(IDC_LAYER_NAME).GetWindowText();
    if (name.isEmpty()) MessageBox(L"Eintragung notwendig", L"QENORA", MB_OK | MB_ICONEXCLAMATION);
    else storeString(L"LAYER", name);
  } else if (word == L"linetype") {
    storeString(L"LINETYPE", combo(IDC_LINETYPE).GetWindowText());
  } else if (word == L"area") {
    storeString(L"AREA", listBox(IDC_AREAS).GetText(listBox(IDC_AREAS).GetCurSel()));
  } else if (word == L"area_open") {
    storeString(L"OPENED", listBox(IDC_AREAS).GetText(listBox(IDC_AREAS).GetCurSel()));
  } else if (word == L"mattype") {
    CCheckListBox& types = checkList(IDC_MATTYPES);
    storeInt(L"MATTYPE", types.GetCurSel() * 10 + types.GetCheck(types.GetCurSel()));
  } else if (word == L"texts") {
    CListCtrl& texts = listCtrl(IDC_TEXTS);
    int bits = 0;
    for (int i = 0; i < texts.GetItemCount(); ++i) bits |= texts.GetCheck(i) ? 1 << i : 0;
    storeInt(L"TEXTBITS", bits);
  } else if (word == L"link") {
    storeString(L"LINK", link(IDC_LINK).linkUrl());
  } else if (word == L"preview") {
    staticCtrl(IDC_PREVIEW).setPicture(L"zoomed");
  }
}

void CTestMainDlg::OnTabChange(NMHDR*, LRESULT*) {
  int current = tabCtrl(IDC_TABS).GetCurSel();
  storeString(L"MODE", current == 1 ? L"ADMIN" : L"MAIN");
  showPage(current);
}

void CTestMainDlg::OnTreeSelect(NMHDR* hdr, LRESULT*) {
  auto* nm = reinterpret_cast<NMTREEVIEW*>(hdr);
  storeString(L"NODE", tree(IDC_NORMS).pathOf(nm->itemNew.hItem));
}

void CTestMainDlg::OnEndLabel(NMHDR* hdr, LRESULT* result) {
  auto* info = reinterpret_cast<NMLVDISPINFO*>(hdr);
  if (!info->item.pszText) return;
  CZelString text(info->item.pszText);
  text.trim();
  *result = text.isEmpty() ? FALSE : TRUE;
  if (!text.isEmpty()) storeString(L"EDITED", text);
}

void CTestMainDlg::OnBeginDrag(NMHDR* hdr, LRESULT*) {
  storeInt(L"DRAGGED", reinterpret_cast<NMLISTVIEW*>(hdr)->iItem);
}

void CTestMainDlg::OnContextMenu(CWnd*, CPoint point) {
  CRect preview;
  GetDlgItem(IDC_PREVIEW)->GetWindowRect(&preview);
  if (!preview.PtInRect(point)) return;
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, 1, L"Zoom alles");
  menu.AppendMenu(MF_STRING | MF_GRAYED, 2, L"Zwischenablage");
  int chosen = menu.TrackPopupMenu(TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, this);
  storeInt(L"MENU", chosen);
}

LRESULT CTestMainDlg::OnRefresh(WPARAM, LPARAM) {
  ++refreshCount;
  GetDlgItem(IDC_NOTE)->SetWindowText(CZelString().format(L"%d", refreshCount));
  if (page.GetSafeHwnd()) page.refresh();
  return 0;
}

LRESULT CTestMainDlg::OnObject(WPARAM, LPARAM lParam) {
  objectItem = reinterpret_cast<CZelDataItem*>(lParam);
  page.pageItem = objectItem;
  admin.pageItem = objectItem;
  storeInt(L"OBJECT", 1);
  return 0;
}

LRESULT CTestMainDlg::OnRefreshPage(WPARAM, LPARAM) {
  if (page.GetSafeHwnd()) page.refresh();
  return 0;
}
