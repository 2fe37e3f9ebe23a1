// The search tab on the real catalogue: the caller's filter, the list's designations
// (withdrawn ones in brackets, padded before the title), the tab entered again after "Gehe
// zu". The trimmed mask and "Gehe zu" itself: the script din_dialog_search_goto.
#include "tests/standardparts/NrmDialogSupport.h"

namespace {
using NrmSearchTest = NrmDialogTest;
const std::vector<std::string> kIsoStack = {"PIECE", "SCREW", "HEX", "ISO4017"};
}  // namespace

TEST_F(NrmSearchTest, WithdrawnStandardsAreListedInBracketsAndEveryDesignationIsPadded) {
  DialogRun r = run("tab 1\nenter 1/10785 \"*933*\"\nclick 1/10786\nexpect 1/10788 text \"2 gefunden\"\n"
                    "expect 1/10787 items 2\n"
                    "expect 1/10787 selected \"DIN 933         \tSechskantschraube mit Gewinde bis Kopf\"\n"
                    "select 1/10787 \"[din 933]       \tSechskantschraube mit Gewinde bis Kopf\"\n"
                    "expect 1/10789 enabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(L"*NM*\\SEARCH\\OBJ"), (std::vector<std::string>{"PIECE", "SCREW", "HEX", "DIN933"}));
  EXPECT_EQ(qen::nrm::getStackList(L"*NM*\\SEARCH\\RESULT").size(), 2u);

  // Family ISO: the designations of that family.
  store(R"({"*NM*": {"DSP": "ISO"}})");
  r = run("tab 1\nenter 1/10785 \"*4017*\"\nclick 1/10786\n"
          "expect 1/10787 selected \"ISO 4017        \tSechskantschraube mit Gewinde bis Kopf\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmSearchTest, TheCallersFilterLeavesOutItsDomain) {
  store(R"({"*NORM_PARM*": {"FILTER": ["BAR"]}})");
  DialogRun r = run("tab 1\nenter 1/10785 \"*\"\nclick 1/10786\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<qen::nrm::Stack> results = qen::nrm::getStackList(L"*NM*\\SEARCH\\RESULT");
  ASSERT_FALSE(results.empty());
  for (const auto& s : results) EXPECT_EQ(s.front(), "PIECE");

  // Filtering the piece domain out leaves nothing for a piece-part mask.
  store(R"({"*NORM_PARM*": {"FILTER": ["PIECE"]}})");
  r = run("tab 1\nenter 1/10785 \"*4017*\"\nclick 1/10786\nexpect 1/10788 text \"Keine Norm gefunden\"\n"
          "expect 1/10789 disabled\nexpect 1/10787 items 0\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  store(R"({"*NORM_PARM*": {"FILTER": ["PIECE", "BAR"]}})");
  r = run("tab 1\nenter 1/10785 \"*\"\nclick 1/10786\nexpect 1/10788 text \"Keine Norm gefunden\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmSearchTest, AfterGeheZuTheMaskStaysAndTheListIsEmpty) {
  select(R"(["BAR", "SECTION", "I-BEAM", "IPE"])");
  DialogRun r = run("tab 1\nenter 1/10785 \"*4017*\"\nclick 1/10786\nclick 1/10789\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), kIsoStack);
  EXPECT_EQ(text(L"*NM*\\ND"), "M1.6");  // the part's values were written where absent

  // Entering the tab again: the mask stays, the list is empty.
  r = run("tab 1\nexpect 1/10785 text \"*4017*\"\nexpect 1/10787 items 0\nexpect 1/10787 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"*NM*\\SEARCH\\RESULT"), nullptr);
}
