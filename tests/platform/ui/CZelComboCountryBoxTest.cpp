// The country combo: every country of the table, chosen and given by code.
#include "tests/platform/ui/ZelCtlTestDlg.h"

#include "data/ZelCountries.h"

namespace {

int countryRows() {
  int n = 0;
  for (const zelDlCountry_st* row = zelDlCountrys(); row->code; ++row) ++n;
  return n;
}

TEST(CZelComboCountryBoxTest, HoldsEveryCountryOfTheTableAndSelectsByCode) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(d.m_country.GetCount(), countryRows());
    EXPECT_EQ(d.m_country.country(), L"de") << "the dialog chose Germany";
    EXPECT_EQ(d.m_country.GetLBText(d.m_country.GetCurSel()), L"Deutschland");

    EXPECT_TRUE(d.m_country.setCountry(L"AT")) << "codes are matched without case";
    EXPECT_EQ(d.m_country.GetLBText(d.m_country.GetCurSel()), L"\u00D6sterreich");
    EXPECT_EQ(d.m_country.country(), L"at");
    EXPECT_TRUE(d.m_country.setCountry(L"us"));
    EXPECT_EQ(d.m_country.GetLBText(d.m_country.GetCurSel()), L"USA");
  });
}

TEST(CZelComboCountryBoxTest, AnUnknownCodeSelectsNothingAndGivesNoCode) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    EXPECT_FALSE(d.m_country.setCountry(L"xx"));
    EXPECT_EQ(d.m_country.GetCurSel(), -1);
    EXPECT_EQ(d.m_country.country(), L"");
    EXPECT_FALSE(d.m_country.setCountry(L""));
  });
}

TEST(CZelComboCountryBoxTest, TheCodeFollowsTheLineEvenInASortedCombo) {
  // The template's combo sorts its lines, so line positions are not table positions.
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    for (int line = 0; line < d.m_country.GetCount(); ++line) {
      d.m_country.SetCurSel(line);
      const zelDlCountry_st* row = ZEL::countryFind(d.m_country.country().str());
      ASSERT_NE(row, nullptr) << line;
      EXPECT_EQ(d.m_country.GetLBText(line), CZelString(row->label));
    }
  });
}

TEST(CZelComboCountryBoxTest, RefillingKeepsTheChosenCountry) {
  CZelCtlTestDlg dlg;
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_country.setCountry(L"nl");
    d.m_country.fillCountries();
    EXPECT_EQ(d.m_country.GetCount(), countryRows());
    EXPECT_EQ(d.m_country.country(), L"nl");
  });
}

TEST(CZelComboCountryBoxTest, AUserChoosingAnEntryGivesItsCodeToTheDialog) {
  CZelCtlTestDlg dlg;
  ZelCtlRun run = runZelCtlScript(dlg, "select 110 \"Frankreich\"\nexpect 110 text \"Frankreich\"\nok\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(dlg.log, std::vector<std::string>{"country=fr"});
}

}  // namespace
