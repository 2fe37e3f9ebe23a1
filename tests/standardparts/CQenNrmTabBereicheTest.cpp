// The areas tab on the real catalogue: the check of each area from the release mask, hiding
// and showing an area, the only-articles switch, and the tree rebuilt on return.
#include "tests/standardparts/NrmDialogSupport.h"

namespace {
using NrmAreasTest = NrmDialogTest;
}  // namespace

TEST_F(NrmAreasTest, TheDefaultMaskHidesTheWithdrawnStandardsOnly) {
  DialogRun r = run("tab 2\nexpect 2/10458 items 6\nexpect 2/10458 enabled\nexpect 2/10710 unchecked\n"
                    "expect 2/10458 checked 0\nexpect 2/10458 checked 4\nexpect 2/10458 unchecked 5\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"_QEN_NM_REL"), "f");
  EXPECT_EQ(text(L"*NM*\\MODE"), "RELEASE");
}

TEST_F(NrmAreasTest, HidingAndShowingAnAreaChangesOnlyItsBits) {
  // "ISO-Normen" (code "01") off, "Zurückgezogene Normen" (code "8") on.
  DialogRun r = run("tab 2\nuncheck 2/10458 0\nexpect 2/10458 unchecked 0\ncheck 2/10458 5\nexpect 2/10458 checked 5\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"_QEN_NM_REL"), "71");
  // Hiding an area whose bit the mask already holds leaves the mask as it is.
  store(R"({"_QEN_NM_REL": "f"})");
  r = run("tab 2\ncheck 2/10458 5\nuncheck 2/10458 5\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"_QEN_NM_REL"), "f");
  // A mask written in ordinary hexadecimal is read as such: 0x18 hides ISO and withdrawn.
  store(R"({"_QEN_NM_REL": "0x18"})");
  r = run("tab 2\nexpect 2/10458 unchecked 0\nexpect 2/10458 checked 1\nexpect 2/10458 unchecked 5\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmAreasTest, OnlyArticlesDisablesTheAreas) {
  DialogRun r = run("tab 2\nclick 2/10710\nexpect 2/10458 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"_QEN_NORM_ORDER"), 1);
  r = run("tab 2\nexpect 2/10710 checked\nclick 2/10710\nexpect 2/10458 enabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"_QEN_NORM_ORDER"), nullptr);
}

TEST_F(NrmAreasTest, ReturningToThePropertiesRebuildsTheTreeFromTheAreas) {
  select(kIso4017);
  // Hiding the ISO standards takes ISO 4017 out of the tree: the selection falls back to
  // the first node.
  DialogRun r = run("tab 2\nuncheck 2/10458 0\ntab 0\nexpect 0/10804 selected \"Stabteile\"\nexpect 1 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), std::vector<std::string>{"BAR"});
}
