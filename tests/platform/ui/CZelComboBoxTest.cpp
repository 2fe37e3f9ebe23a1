// The platform combo box: lines on the alternate background, as bands of nominal sizes.
#include "tests/platform/ui/ZelCtlTestDlg.h"

namespace {

TEST(CZelComboBoxTest, SetAltBackgrMarksExactlyTheGivenLines) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    for (const wchar_t* size : {L"M4", L"M5", L"M6", L"M8"}) d.m_sizes.AddString(size);
    d.m_sizes.setAltBackgr(CZelArrayTempl<int>{3, 1, 3, -1});
    EXPECT_EQ(d.m_sizes.altBackgr(), (std::vector<int>{1, 3})) << "sorted, once each, no negative lines";
    EXPECT_FALSE(d.m_sizes.isAltBackgr(0));
    EXPECT_TRUE(d.m_sizes.isAltBackgr(1));
    EXPECT_FALSE(d.m_sizes.isAltBackgr(2));
    EXPECT_TRUE(d.m_sizes.isAltBackgr(3));
    d.m_sizes.setAltBackgr(CZelArrayTempl<int>{});
    EXPECT_TRUE(d.m_sizes.altBackgr().empty()) << "each call replaces the bands";
  });
}

}  // namespace
