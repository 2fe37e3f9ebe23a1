// Dialogs of the model: pages that talk to their main dialog by private messages, typed
// lookup, member controls, focus, the Enter key, posted messages and failures to run.
#include "tests/platform/backend/ScriptRun.h"
#include "ui/CButton.h"
#include "ui/CComboBox.h"
#include "ui/CDialogError.h"
#include "ui/CStatic.h"
#include "ui/CTabCtrl.h"

using testdlg::stored;

TEST(CDialogTest, PagesReachTheirMainDialogWithPrivateMessagesAndEarlyOnesAreIgnored) {
  CTestMainDlg dlg;
  // 32786 from the width edit, 32793 from "Objekt", 10112 from the administration page.
  ScriptRun run = runScript("enter 0/10389 \"20\"\nclick 0/10411\ntab 1\nclick 1/10700\nok\n", false, &dlg);
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(dlg.refreshesBeforePages, 1) << "the refresh sent before the pages existed was taken without them";
  EXPECT_EQ(dlg.refreshCount, 2) << "the initial one and the one after the width changed";
  EXPECT_EQ(stored(L"B"), "20.0");
  ASSERT_NE(dlg.objectItem, nullptr);
  EXPECT_EQ(dlg.page.pageItem, dlg.objectItem);
  EXPECT_EQ(dlg.admin.pageItem, dlg.objectItem);
  // Initial refresh, refresh after the width, refresh from 32786, refresh from 10112.
  EXPECT_EQ(dlg.page.refreshCount, 4);
  EXPECT_EQ(dlg.GetSafeHwnd(), nullptr) << "the windows are gone after DoModal";
  EXPECT_EQ(dlg.page.GetSafeHwnd(), nullptr);
}

TEST(CDialogTest, TypedLookupAndMemberControlsFailLoudlyOnAMissingOrWrongControl) {
  ZEL::cfgMgrPtr()->reset();
  CTestMainDlg dlg;
  ASSERT_TRUE(dlg.Create(IDD_TEST_MAIN));
  EXPECT_EQ(dlg.page.GetDlgItem(IDC_WIDTH), &dlg.page.m_width) << "the member edit took the template's place";
  EXPECT_EQ(dlg.page.m_width.GetWindowText(), CZelString(L"0"));
  EXPECT_EQ(&dlg.button(IDC_ASK), dlg.GetDlgItem(IDC_ASK));
  EXPECT_EQ(dlg.button(IDC_LAYER_BTN).imageId(), 10308u);
  EXPECT_EQ(dlg.staticCtrl(IDC_SHEARED_ICON).imageId(), 10112u);
  try {
    dlg.edit(IDC_ASK);
    FAIL() << "a button is no edit";
  } catch (const CDialogError& e) {
    EXPECT_STREQ(e.what(), "dialog 30100: control 10602 is a push button, not an edit");
  }
  try {
    dlg.combo(4711);
    FAIL() << "there is no control 4711";
  } catch (const CDialogError& e) {
    EXPECT_STREQ(e.what(), "dialog 30100 has no control 4711 (a combo box wanted)");
  }
  CEdit stray;
  EXPECT_THROW(stray.SubclassDlgItem(IDC_ASK, &dlg), CDialogError);

  // Pages are children of the tab control, so the main dialog is the parent of their parent.
  EXPECT_EQ(dlg.page.GetParent(), &dlg.tabCtrl(IDC_TABS));
  EXPECT_EQ(dlg.page.GetParent()->GetParent(), &dlg);
  EXPECT_EQ(dlg.childDialogs().size(), 2u);
}

TEST(CDialogTest, ADialogWithoutTemplateEndsWithMinusOneAndFailsTheScript) {
  ZEL::cfgMgrPtr()->reset();
  CDialogScript script;
  std::string error;
  ASSERT_TRUE(CDialogScript::parse("ok\n", "t.qds", script, error));
  std::ostringstream out, err;
  CScriptBackend backend(script, out, err);
  CDialogBackendScope scope(backend);
  CDialog missing(4711);
  EXPECT_EQ(missing.DoModal(), -1);
  EXPECT_TRUE(backend.failed());
  EXPECT_NE(err.str().find("dialog template 4711 does not exist"), std::string::npos) << err.str();
}

TEST(CDialogTest, FocusEnterAndPostedMessagesBehaveAsInTheFramework) {
  // Clicking a button moves the focus there: the typed edit loses it and commits first.
  ScriptRun run = runScript("type 0/10389 \"9\"\nexpect 0/10389 focused\nclick 0/10434\nexpect-store *TEST*\\B 9.0\nok\n");
  EXPECT_EQ(run.status, 0) << run.err;

  // A posted message runs after the handler that posted it.
  run = runScript("click 0/10412\nexpect-store *TEST*\\ORDER \"clicked, posted\"\ncancel\n");
  EXPECT_EQ(run.status, 0) << run.err;

  // Enter on a control of the main dialog presses its default button, OK.
  run = runScript("key 10040 ENTER\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.result, IDOK);
  // Escape is Cancel.
  run = runScript("key 10040 ESCAPE\n");
  EXPECT_EQ(run.result, IDCANCEL);
  // Tab moves to the next control that takes the focus.
  run = runScript("select 10039 0\nkey 10039 TAB\nexpect 10040 focused\nok\n");
  EXPECT_EQ(run.status, 0) << run.err;
  // An empty layer name is refused with a message box, which the script can check.
  run = runScript("type 10030 \"\"\nleave 10030\nexpect-box \"Eintragung notwendig\"\nok\n");
  EXPECT_EQ(run.status, 0) << run.err;
}
