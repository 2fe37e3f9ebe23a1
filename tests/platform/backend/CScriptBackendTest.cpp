// The dialog script language on the test dialog: every command, failures with their line,
// what was expected and what was found, refused actions, the end of a script and traces.
#include "tests/platform/backend/ScriptRun.h"

using testdlg::stored;

TEST(CScriptBackendTest, AScriptUsingEveryCommandDrivesTheDialogAndItsPagesSubDialogsAndBoxes) {
  const std::string script = R"(# every command of the language, on the test dialog
expect dialog text "Testdialog"
expect 10401 checked          # nothing stored: the standard representation
click 10333
expect 10333 checked
expect 10401 unchecked
click 10318
expect 10294 disabled
click 10401
expect 10294 enabled
type 0/10389 "30"
expect 0/10389 text "30"
leave 0/10389
expect-store *TEST*\B 30.0
enter 10389 "12.5"            # a page's control named without its page
expect-store *TEST*\B 12.5
click 30101/10434             # the page named by its template
expect 0/10434 checked
expect-store *TEST*\CHAMFER 1.0
click 0/10412
expect-store *TEST*\ORDER "clicked, posted"
select 10030 "Achsen"
expect 10030 text "Achsen"
expect 10030 selected 1
expect 10030 items 3
select 10039 2
expect-store *TEST*\LINETYPE "CENTER"
select 10040 "Holz"
expect-store *TEST*\AREA "Holz"
dblclick 10040 1
expect-store *TEST*\OPENED "Aluminium"
check 10041 0
expect 10041 checked 0
expect-store *TEST*\MATTYPE 1
uncheck 10041 1
expect 10041 unchecked 1
expect-store *TEST*\MATTYPE 10
select 10042 "Normen/DIN/DIN 933"
expect-store *TEST*\NODE "Normen/DIN/DIN 933"
expect 10042 selected 2
expect 10042 items 4
check 2000 2
expect-store *TEST*\TEXTBITS 5
uncheck 2000 0
expect-store *TEST*\TEXTBITS 4
select 2000 "Material"
expect 2000 selected 1
label 2000 1 "Werkstoff"
expect 2000 text "Werkstoff"
expect-store *TEST*\EDITED "Werkstoff"
drag 2000 0 2
expect-store *TEST*\DRAGGED 0
dblclick 2000 2
click 11005
expect-store *TEST*\LINK "https://example.org/din933"
menu 10379 10 10
choose 1
expect-store *TEST*\MENU 1
menu 10379 5 5
choose none
expect-store *TEST*\MENU 0
tab 1
expect 1/10700 shown
expect 0/10389 hidden
expect-store *TEST*\MODE "ADMIN"
click 1/10700
tab 0
answer 7
click 10602
expect-box "Einstellungen speichern?\nJa oder Nein"
expect-store *TEST*\ANSWER 7
click 10602
expect-store *TEST*\ANSWER 6
click 10603
cancel
expect-store *TEST*\SUB absent
click 10603
type 10800 "unten \"x\" \\ y"
key 10800 ENTER               # Enter presses the sub-dialog's default button
expect-store *TEST*\SUB "unten \"x\" \\ y"
type 10030 "Neu"
key 10030 ENTER               # the dialog keeps Enter in the combo's edit field
expect 10333 focused
expect-store *TEST*\LAYER "Neu"
dump 10030
dump dialog
ok
expect-store *TEST*\DONE 1
expect-box "Einstellungen speichern?\nJa oder Nein"
)";
  CTestMainDlg dlg;
  ScriptRun run = runScript(script, false, &dlg);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.result, IDOK);
  EXPECT_NE(run.out.find("dump: 10030 combo box \"Neu\" enabled shown"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("dump: dialog 30100 \"Testdialog\""), std::string::npos);
  EXPECT_NE(run.out.find("  page 30102 hidden"), std::string::npos);
  EXPECT_NE(run.out.find("2000 list view \"Artikel\" enabled shown"), std::string::npos);
  EXPECT_NE(run.out.find("\"Werkstoff | ALU\""), std::string::npos);
  // The administration page's 10112 reached the main dialog and refreshed the first page.
  EXPECT_GE(dlg.page.refreshCount, 4);
}

TEST(CScriptBackendTest, AFailingExpectNamesLineExpectedAndFoundAndCancelsTheDialog) {
  ScriptRun run = runScript("click 10333\n\n# the radio is checked now\nexpect 10333 unchecked\nclick 1\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.result, IDCANCEL);
  EXPECT_EQ(run.err, "t.qds:4: expect 10333 unchecked\n  expected: unchecked\n  found:    checked\n");
  EXPECT_EQ(stored(L"DONE"), "") << "the commands after the failure do not run";

  run = runScript("type 0/10389 \"25\"\nexpect 0/10389 text \"30\"\n");
  EXPECT_EQ(run.err, "t.qds:2: expect 0/10389 text \"30\"\n  expected: text \"30\"\n  found:    text \"25\"\n");

  run = runScript("enter 10389 \"4\"\nok\nexpect-store *TEST*\\B 5.0\n");
  EXPECT_EQ(run.result, IDOK);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "t.qds:3: expect-store *TEST*\\B 5.0\n  expected: *TEST*\\B = 5.0\n  found:    *TEST*\\B = 4.0\n");
}

TEST(CScriptBackendTest, ActingOnADisabledHiddenOrUnknownControlIsRefused) {
  struct Case {
    const char* script;
    const char* found;
  };
  const Case cases[] = {
    {"click 10601\n", "found:    push button 10601 is disabled"},
    {"click 10600\n", "found:    push button 10600 is hidden"},
    {"click 4711\n", "found:    dialog 30100 has no control 4711"},
    {"tab 1\nclick 0/10434\n", "found:    check box 10434 is on a hidden page"},
    {"type 0/10413 \"x\"\n", "found:    edit 10413 is read-only"},
    {"type 10039 \"x\"\n", "found:    combo box 10039 is a drop-down list: its text cannot be typed"},
    {"select 10040 7\n", "found:    list box 10040 has no line 7 (it has 3)"},
    {"select 10042 \"Normen/EN\"\n", "found:    tree view 10042 has no line \"Normen/EN\""},
    {"click 7/10434\n", "found:    dialog 30100 has 2 pages and no page 7"},
    {"menu 10379 10 10\nchoose 2\n", "found:    \"Zwischenablage\" is disabled"},
    {"menu 10379 10 10\nclick 1\n", "expected: choose, to pick from the open context menu (1 \"Zoom alles\", 2 \"Zwischenablage\" (disabled))"},
    {"choose 1\n", "found:    no context menu is open"},
    {"answer 2\nclick 10602\n", "found:    a box with the answers 6, 7: \"Einstellungen speichern?\\nJa oder Nein\""},
    {"key 10389 PAGEUP\n", "found:    PAGEUP"},
    {"check 10040 0\n", "found:    list box 10040 has no check marks"},
  };
  for (const Case& c : cases) {
    ScriptRun run = runScript(c.script);
    EXPECT_EQ(run.status, 1) << c.script;
    EXPECT_EQ(run.result, IDCANCEL) << c.script;
    EXPECT_NE(run.err.find(c.found), std::string::npos) << c.script << "\n" << run.err;
  }
}

TEST(CScriptBackendTest, AFailureInASubDialogCancelsEveryOpenDialog) {
  ScriptRun run = runScript("click 10603\ntype 10800 \"a\"\nexpect 10800 text \"b\"\nok\nok\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.result, IDCANCEL);
  EXPECT_EQ(stored(L"SUB"), "") << "the sub-dialog was cancelled, not confirmed";
  EXPECT_NE(run.err.find("t.qds:3: expect 10800 text \"b\""), std::string::npos);
}

TEST(CScriptBackendTest, TheEndOfTheScriptCancelsOpenDialogsAndOnlyChecksMayFollowTheLastOne) {
  ScriptRun run = runScript("click 10333\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.result, IDCANCEL);
  EXPECT_EQ(stored(L"HATCH"), "\"R\"") << "what the script did stays in the store";

  run = runScript("ok\nexpect-store *TEST*\\DONE 1\nexpect-store *TEST*\\NOTHING absent\nclick 1\n");
  EXPECT_EQ(run.result, IDOK);
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("t.qds:4: click 1\n  expected: an open dialog"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("found:    no dialog is open"), std::string::npos);

  run = runScript("answer 6\nok\n");
  EXPECT_EQ(run.status, 1) << "an answer no message box took";
  EXPECT_NE(run.err.find("t.qds:1: answer 6"), std::string::npos) << run.err;
}

TEST(CScriptBackendTest, TraceShowsNotificationsMessagesAndStoreWritesAsTheyHappen) {
  ScriptRun run = runScript("enter 0/10389 \"7\"\ntab 1\nok\n", true);
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string& t = run.out;
  auto at = [&](const char* s) { return t.find(s); };
  ASSERT_NE(at("trace: open dialog 30100 \"Testdialog\""), std::string::npos) << t;
  ASSERT_NE(at("trace: t.qds:1: enter 0/10389 \"7\""), std::string::npos) << t;
  ASSERT_NE(at("trace: WM_COMMAND 10389 EN_KILLFOCUS -> dialog 30101"), std::string::npos) << t;
  ASSERT_NE(at("trace: store *TEST*\\B = 7.0"), std::string::npos) << t;
  ASSERT_NE(at("trace: message 32786 (0, 0) -> dialog 30100"), std::string::npos) << t;
  ASSERT_NE(at("trace: WM_NOTIFY 15007 TCN_SELCHANGE -> dialog 30100"), std::string::npos) << t;
  ASSERT_NE(at("trace: store *TEST*\\MODE = \"ADMIN\""), std::string::npos) << t;
  ASSERT_NE(at("trace: closed dialog 30100, end code 1"), std::string::npos) << t;
  // In the order they happened: the write comes after the kill-focus notification and
  // before the refresh message that the page sends after writing.
  EXPECT_LT(at("EN_KILLFOCUS -> dialog 30101"), at("store *TEST*\\B = 7.0"));
  EXPECT_LT(at("store *TEST*\\B = 7.0"), at("message 32786 (0, 0) -> dialog 30100\ntrace: WM_COMMAND 10389 EN_CHANGE"));
}
