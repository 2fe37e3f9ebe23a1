// The administration tab: what it shows and enables, the preset of the standard-parts
// type (save, remove, reset to it) and the pick of a drawing object.
#include "tests/standardparts/NrmDialogSupport.h"

namespace {
using NrmAdminTest = NrmDialogTest;
}  // namespace

TEST_F(NrmAdminTest, WithoutANominalSizeNothingCanBeSaved) {
  DialogRun r = run("tab 3\nexpect 3/2004 disabled\nexpect 3/10621 disabled\nexpect 3/10256 text \"\"\n"
                    "expect 3/10454 text \"\"\nexpect 3/10062 text \"\"\nexpect 3/10623 text \"\"\n"
                    "expect 3/10625 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmAdminTest, ThePresetIsSavedRemovedAndResetTo) {
  select(kIso4017, R"("ND": "M12", "MAT": "8.8", "LEN": 60.0)");
  DialogRun r = run("tab 3\nexpect 3/2004 enabled\nexpect 3/10256 text \"DIN 933 M12 x 60 - Stahl 8.8 blank\"\n"
                    "click 3/10621\nexpect 3/10625 enabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(L"*QEN_OBJ_PROP*\\*DIN*\\STACK"), (std::vector<std::string>{"PIECE", "SCREW", "HEX", "ISO4017"}));
  EXPECT_EQ(text(L"*QEN_OBJ_PROP*\\*DIN*\\ND"), "M12");

  // Reset: the part starts again from the preset.
  select(R"(["BAR", "SECTION", "I-BEAM", "IPE"])");
  r = run("tab 3\nclick 3/10622\nexpect 11005 text \"Sechskantschraube mit Gewinde bis Kopf\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), (std::vector<std::string>{"PIECE", "SCREW", "HEX", "ISO4017"}));
  EXPECT_EQ(text(L"*NM*\\ND"), "M12");

  // Removing the preset says so.
  r = run("tab 3\nclick 3/10625\nexpect-box \"Normteil\\nVoreinstellungen entfernt\"\nexpect 3/10625 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\*DIN*"), nullptr);
}

TEST_F(NrmAdminTest, ResetIsDisabledWhenTheFilterExcludesThePresetsDomain) {
  store(R"({"*QEN_OBJ_PROP*": {"*DIN*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"]}},
            "*NORM_PARM*": {"FILTER": ["PIECE"]}})");
  DialogRun r = run("tab 3\nexpect 3/10622 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  store(R"({"*NORM_PARM*": {"FILTER": ["BAR"]}})");
  r = run("tab 3\nexpect 3/10622 enabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  store(R"({"*NORM_PARM*": {"FILTER": ["BAR", "PIECE"]}})");
  r = run("tab 3\nexpect 3/10622 disabled\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
}

TEST_F(NrmAdminTest, ObjektEndsTheDialogToPickAnObject) {
  select(kIso4017);
  DialogRun r = run("tab 3\nclick 3/10379\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 103);
  EXPECT_EQ(text(L"*NM*\\MODE"), "ADMIN");
}
