// The platform list box: a list box with lines on the alternate background.
#include "tests/platform/ui/ZelCtlTestDlg.h"

namespace {

TEST(CZelListBoxTest, SetAltBackgrMarksLinesAndTheListWorksAsAListBox) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_edges.SendMessage(LB_RESETCONTENT);
    d.m_edges.InsertString(0, L"Abwicklung neutrale Faser");
    d.m_edges.InsertString(1, L"r = 2");
    EXPECT_EQ(d.m_edges.GetCount(), 2);
    d.m_edges.setAltBackgr(std::vector<int>{0});
    EXPECT_TRUE(d.m_edges.isAltBackgr(0));
    EXPECT_FALSE(d.m_edges.isAltBackgr(1));
  });
}

}  // namespace
