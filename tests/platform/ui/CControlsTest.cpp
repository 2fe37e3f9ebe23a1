// The controls of the model on their own: what programs and users do to them and which
// notifications they send.
#include "tests/support/TestDialogs.h"
#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CControlState.h"
#include "ui/CListCtrl.h"
#include "ui/CMenu.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"
#include "ui/CUserAction.h"

#include <gtest/gtest.h>

namespace {

// A dialog that records every notification it gets, as "ID:code".
class CRecordingDlg : public CDialog {
public:
  CRecordingDlg() : CDialog(IDD_TEST_MAIN) {}
  std::vector<std::string> seen;

protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    seen.push_back(std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)));
    return CDialog::OnCommand(wParam, lParam);
  }
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
    auto* hdr = reinterpret_cast<NMHDR*>(lParam);
    seen.push_back(std::to_string(hdr->idFrom) + ":" + std::to_string(static_cast<int>(hdr->code)));
    return CDialog::OnNotify(wParam, lParam, result);
  }
};

std::string code(int id, UINT c) { return std::to_string(id) + ":" + std::to_string(static_cast<int>(c)); }

}  // namespace

TEST(CControlsTest, EditsTellTheUsersChangesFromTheProgramsAndNotifyBoth) {
  CRecordingDlg dlg;
  ASSERT_TRUE(dlg.Create(IDD_TEST_SUB));
  CEdit& e = dlg.edit(IDC_SUB_EDIT);
  dlg.seen.clear();
  e.SetWindowText(L"12");
  EXPECT_FALSE(e.GetModify());
  EXPECT_EQ(dlg.seen, std::vector<std::string>{code(IDC_SUB_EDIT, EN_CHANGE)});
  dlg.seen.clear();
  e.SetLimitText(3);
  EXPECT_EQ(CUserAction::type(e, L"12345"), "");
  EXPECT_EQ(e.GetWindowText(), CZelString(L"123"));
  EXPECT_TRUE(e.GetModify());
  EXPECT_TRUE(e.hasFocus());
  // The edit had the focus already: the sub-dialog gives it to its first control.
  EXPECT_EQ(dlg.seen, (std::vector<std::string>{code(IDC_SUB_EDIT, EN_UPDATE), code(IDC_SUB_EDIT, EN_CHANGE)}));
  dlg.seen.clear();
  EXPECT_EQ(CUserAction::leave(e), "");
  EXPECT_FALSE(e.hasFocus());
  EXPECT_EQ(dlg.seen, std::vector<std::string>{code(IDC_SUB_EDIT, EN_KILLFOCUS)});
  e.EnableWindow(FALSE);
  EXPECT_EQ(CUserAction::type(e, L"1"), "edit 10800 is disabled");
}

TEST(CControlsTest, ButtonsToggleAndRadiosClearTheirGroup) {
  CRecordingDlg dlg;
  ASSERT_TRUE(dlg.Create(IDD_TEST_MAIN));
  CButton& contour = dlg.button(IDC_CONTOUR);
  CButton& standard = dlg.button(IDC_STANDARD);
  dlg.CheckRadioButton(IDC_HATCHED, IDC_STANDARD, IDC_STANDARD);
  EXPECT_EQ(dlg.GetCheckedRadioButton(IDC_HATCHED, IDC_STANDARD), IDC_STANDARD);
  EXPECT_EQ(contour.groupRadios().size(), 3u);
  dlg.seen.clear();
  EXPECT_EQ(CUserAction::click(contour), "");
  EXPECT_EQ(contour.GetCheck(), BST_CHECKED);
  EXPECT_EQ(standard.GetCheck(), BST_UNCHECKED);
  EXPECT_EQ(dlg.seen, std::vector<std::string>{code(IDC_CONTOUR, BN_CLICKED)});
  EXPECT_EQ(dlg.IsDlgButtonChecked(IDC_CONTOUR), 1u);

  CTestPage page;
  ASSERT_TRUE(page.Create(IDD_TEST_PAGE));
  CButton& box = page.button(IDC_CHAMFER);
  EXPECT_EQ(box.kind(), WndKind::CheckBox);
  box.applyClick();
  EXPECT_EQ(box.GetCheck(), BST_CHECKED);
  box.applyClick();
  EXPECT_EQ(box.GetCheck(), BST_UNCHECKED);
  box.SetState(TRUE);
  EXPECT_EQ(box.GetState(), static_cast<UINT>(BST_PUSHED));
}

TEST(CControlsTest, CombosAndListsKeepSortedLinesSelectionAndItemData) {
  CRecordingDlg dlg;
  ASSERT_TRUE(dlg.Create(IDD_TEST_MAIN));
  CComboBox& c = dlg.combo(IDC_LAYER_NAME);  // sorted drop-down
  EXPECT_EQ(c.AddString(L"b"), 0);
  EXPECT_EQ(c.AddString(L"A"), 0);
  EXPECT_EQ(c.AddString(L"c"), 2);
  c.SetItemData(1, 42);
  EXPECT_EQ(c.FindStringExact(-1, L"B"), 1);
  EXPECT_EQ(c.FindString(-1, L"c"), 2);
  EXPECT_EQ(c.SelectString(-1, L"b"), 1);
  EXPECT_EQ(c.GetItemData(c.GetCurSel()), 42u);
  EXPECT_EQ(c.GetWindowText(), CZelString(L"b"));
  EXPECT_EQ(c.DeleteString(0), 2);
  EXPECT_EQ(c.GetCurSel(), 0) << "the selection moves with its line";
  ASSERT_NE(c.editField(), nullptr);
  EXPECT_EQ(c.editField()->GetDlgCtrlID(), kComboEditId);

  CComboBox& list = dlg.combo(IDC_LINETYPE);  // drop-down list: its text is its selected line
  list.AddString(L"HIDDEN");
  list.SetWindowText(L"hidden");
  EXPECT_EQ(list.GetCurSel(), 0);
  EXPECT_EQ(list.GetWindowText(), CZelString(L"HIDDEN"));
  EXPECT_EQ(list.editField(), nullptr);

  CCheckListBox& checks = dlg.checkList(IDC_MATTYPES);
  checks.AddString(L"x");
  checks.AddString(L"y");
  checks.Enable(1, FALSE);
  EXPECT_EQ(CUserAction::setCheck(checks, 1, true), "check list box 10041: line 1 is disabled");
  dlg.seen.clear();
  EXPECT_EQ(CUserAction::setCheck(checks, 0, true), "");
  EXPECT_EQ(checks.GetCheck(0), BST_CHECKED);
  EXPECT_EQ(dlg.seen, (std::vector<std::string>{code(IDC_MATTYPES, LBN_SELCHANGE), code(IDC_MATTYPES, CLBN_CHKCHANGE)}));
}

TEST(CControlsTest, TreesTabsAndListViewsNotifyTheirChanges) {
  CRecordingDlg dlg;
  ASSERT_TRUE(dlg.Create(IDD_TEST_MAIN));
  CTreeCtrl& tree = dlg.tree(IDC_NORMS);
  HTREEITEM a = tree.InsertItem(L"a");
  HTREEITEM b = tree.InsertItem(L"b", a);
  HTREEITEM c = tree.InsertItem(L"c", a, TVI_FIRST);
  EXPECT_EQ(tree.GetChildItem(a), c);
  EXPECT_EQ(tree.GetNextSiblingItem(c), b);
  EXPECT_EQ(tree.findPath(L"a/b"), b);
  EXPECT_EQ(tree.pathOf(b), CZelString(L"a/b"));
  dlg.seen.clear();
  tree.SelectItem(b);
  EXPECT_EQ(dlg.seen, (std::vector<std::string>{code(IDC_NORMS, TVN_SELCHANGING), code(IDC_NORMS, TVN_SELCHANGED)}));
  EXPECT_TRUE(tree.isExpanded(a)) << "a selected node is made visible";
  tree.DeleteItem(a);
  EXPECT_EQ(tree.GetSelectedItem(), nullptr);
  EXPECT_EQ(tree.GetCount(), 0u);

  CTabCtrl& tab = dlg.tabCtrl(IDC_TABS);
  tab.InsertItem(0, L"Eins");
  tab.InsertItem(1, L"Zwei");
  EXPECT_EQ(tab.GetCurSel(), 0);
  EXPECT_EQ(tab.SendMessage(TCM_GETCURSEL), 0);
  dlg.seen.clear();
  EXPECT_EQ(tab.SetCurSel(1), 0);
  EXPECT_TRUE(dlg.seen.empty()) << "a selection by the program does not notify";
  EXPECT_EQ(CUserAction::selectTab(tab, 0), "");
  EXPECT_EQ(dlg.seen, (std::vector<std::string>{code(IDC_TABS, TCN_SELCHANGING), code(IDC_TABS, TCN_SELCHANGE)}));

  CListCtrl& view = dlg.listCtrl(IDC_TEXTS);
  view.SetExtendedStyle(LVS_EX_CHECKBOXES);
  view.InsertColumn(0, L"A");
  view.InsertColumn(1, L"B");
  view.InsertItem(0, L"r0");
  view.InsertItem(1, L"r1", 3);
  view.SetItemText(1, 1, L"x");
  EXPECT_EQ(CControlState::itemText(view, 1).value(), CZelString(L"r1 | x"));
  dlg.seen.clear();
  view.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
  view.SetCheck(0);
  EXPECT_EQ(dlg.seen, (std::vector<std::string>{code(IDC_TEXTS, LVN_ITEMCHANGED), code(IDC_TEXTS, LVN_ITEMCHANGED)}));
  POSITION pos = view.GetFirstSelectedItemPosition();
  EXPECT_EQ(view.GetNextSelectedItem(pos), 1);
  EXPECT_EQ(pos, nullptr);
  EXPECT_TRUE(view.GetCheck(0));
  EXPECT_EQ(view.HitTest(CPoint(5, CListCtrl::kHeaderHeight + CListCtrl::kRowHeight + 2)), 1);
  EXPECT_EQ(CUserAction::editLabel(view, 0, L"neu"), "");
  EXPECT_EQ(view.GetItemText(0, 0), CZelString(L"r0")) << "nobody accepted the edit";
}

TEST(CControlsTest, MenusFindCommandsInSubmenusAndKnowDisabledOnes) {
  CMenu sub;
  sub.CreatePopupMenu();
  sub.AppendMenu(MF_STRING, 7, L"&Sieben");
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, 1, L"Eins");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_POPUP, &sub, L"Mehr");
  menu.EnableMenuItem(1, MF_GRAYED);
  EXPECT_EQ(menu.GetMenuItemCount(), 3);
  EXPECT_EQ(menu.GetSubMenu(2), &sub);
  EXPECT_EQ(menu.findCommand(7)->text, CZelString(L"&Sieben"));
  EXPECT_EQ(menu.findText(L"Sieben")->id, 7u);
  EXPECT_TRUE(menu.GetMenuState(1, MF_BYCOMMAND) & MF_GRAYED);
  EXPECT_EQ(menu.findCommand(99), nullptr);
}
