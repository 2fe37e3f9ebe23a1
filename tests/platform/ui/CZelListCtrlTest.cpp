// The platform list view: one selected row by index, and new entries typed in place.
#include "tests/platform/ui/ZelCtlTestDlg.h"

#include "ui/CUserAction.h"

namespace {

TEST(CZelListCtrlTest, SetCurSelSelectsOneRowAndGetCurSelGivesIt) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    EXPECT_EQ(d.m_entries.getCurSel(), -1);
    for (const wchar_t* t : {L"a", L"b", L"c"}) d.m_entries.InsertItem(d.m_entries.GetItemCount(), t);
    EXPECT_TRUE(d.m_entries.setCurSel(1));
    EXPECT_EQ(d.m_entries.getCurSel(), 1);
    EXPECT_TRUE(d.m_entries.setCurSel(2));
    EXPECT_EQ(d.m_entries.getCurSel(), 2);
    EXPECT_EQ(d.m_entries.GetSelectedCount(), 1u);
    EXPECT_FALSE(d.m_entries.setCurSel(3));
    EXPECT_EQ(d.m_entries.getCurSel(), 2) << "a row that does not exist changes nothing";
    EXPECT_TRUE(d.m_entries.setCurSel(-1));
    EXPECT_EQ(d.m_entries.getCurSel(), -1);
  });
}

TEST(CZelListCtrlTest, ANewEntryTypedInPlaceStaysWhenTheDialogTakesIt) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_entries.InsertItem(0, L"Alu");
    const int row = d.m_entries.editNewRow();
    ASSERT_EQ(row, 1);
    EXPECT_EQ(d.m_entries.getCurSel(), 1);
    EXPECT_EQ(d.m_entries.editingRow(), 1);
    ASSERT_EQ(CUserAction::editLabel(d.m_entries, row, L"Stahl"), "");
    EXPECT_EQ(d.m_entries.GetItemCount(), 2);
    EXPECT_EQ(d.m_entries.GetItemText(1, 0), L"Stahl");
    EXPECT_FALSE(d.m_entries.isNewRowEdit());
  });
  EXPECT_EQ(dlg.log, std::vector<std::string>{"new took Stahl"});
}

TEST(CZelListCtrlTest, ANewEntryLeftEmptyOrRefusedIsTakenAwayAgain) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_entries.InsertItem(0, L"Alu");
    ASSERT_EQ(CUserAction::editLabel(d.m_entries, d.m_entries.editNewRow(), L""), "");
    EXPECT_EQ(d.m_entries.GetItemCount(), 1) << "nothing typed";
    ASSERT_EQ(CUserAction::editLabel(d.m_entries, d.m_entries.editNewRow(), L"Alu"), "");
    EXPECT_EQ(d.m_entries.GetItemCount(), 1) << "refused by the dialog (the same text again)";
    d.m_entries.editNewRow();
    d.m_entries.endLabelEdit(nullptr);
    EXPECT_EQ(d.m_entries.GetItemCount(), 1) << "cancelled";
  });
  EXPECT_EQ(dlg.log, (std::vector<std::string>{"new refused ", "new refused Alu", "new refused "}));
}

TEST(CZelListCtrlTest, EditingAnExistingRowIsNoNewEntryAndKeepsTheRowWhateverTheAnswer) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_entries.InsertItem(0, L"Alu");
    d.m_entries.InsertItem(1, L"Stahl");
    ASSERT_EQ(CUserAction::editLabel(d.m_entries, 1, L"Alu"), "");
    EXPECT_EQ(d.m_entries.GetItemCount(), 2);
    EXPECT_EQ(d.m_entries.GetItemText(1, 0), L"Stahl");
  });
  EXPECT_EQ(dlg.log, std::vector<std::string>{"edit refused Alu"});
}

}  // namespace
