// The numeric field: values shown in its unit, bad input refused with the field's own message
// and the last good value restored, the modified flag, Enter, and the plain text field. How
// text in each unit and format is read is CZelUnitValue's (CZelUnitValueTest).
#include "tests/platform/ui/ZelCtlTestDlg.h"

#include "data/ZelMessages.h"
#include "ui/CButton.h"
#include "ui/CUserAction.h"

#include <numbers>

namespace {

constexpr UINT kExclamationOk = MB_OK | MB_ICONEXCLAMATION;

class CZelEditTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_country = ZEL::msgCountry();
    ZEL::msgCountrySet(L"de");
  }
  void TearDown() override { ZEL::msgCountrySet(m_country); }

  // Types into a field and leaves it, as a person does.
  static void enter(CWnd& field, const wchar_t* text) {
    ASSERT_EQ(CUserAction::type(field, text), "");
    ASSERT_EQ(CUserAction::leave(field), "");
  }
  static std::string text(const CWnd& field) { return field.GetWindowText().toUtf8(); }

  CZelCtlTestDlg dlg;

private:
  CZelString m_country;
};

// --- stored value to text ------------------------------------------------------------------------

TEST_F(CZelEditTest, SetValShowsTheValueInTheFieldsFormatAndUnitAndClearsTheModifiedFlag) {
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"7"), "");
    EXPECT_TRUE(d.m_length.GetModify());
    d.m_length.setVal(12.5);
    EXPECT_EQ(text(d.m_length), "12.5 mm");
    EXPECT_FALSE(d.m_length.GetModify());

    d.m_inch.setVal(457.2);  // mm shown in feet and inches
    EXPECT_EQ(text(d.m_inch), "1'-6\"");
    d.m_angle.setVal(std::numbers::pi / 4.0);
    EXPECT_EQ(text(d.m_angle), "45\u00B0");
    d.m_length.setVal(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(text(d.m_length), "") << "a value that is not finite shows nothing";
  });
}

// --- text to stored value --------------------------------------------------------------------------

TEST_F(CZelEditTest, GetValRefusesBadTextWithoutAMessageAndLeavesTheValueAlone) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    for (const wchar_t* bad : {L"", L"   ", L"abc", L"12x", L"1e400", L"-3", L"0"}) {
      EXPECT_EQ(CUserAction::type(d.m_length, bad), "");
      double v = 42.0;
      EXPECT_FALSE(d.m_length.getVal(v)) << CZelString(bad).toUtf8();
      EXPECT_EQ(v, 42.0);
    }
  });
  EXPECT_TRUE(boxes.boxes.empty()) << "getVal never talks to the user";
}

// --- the check on leaving ----------------------------------------------------------------------------

TEST_F(CZelEditTest, LeavingWithLettersShowsTheMessageAndRestoresTheLastGoodValue) {
  dlg.length = 12.5;
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    enter(d.m_length, L"abc");
    EXPECT_EQ(text(d.m_length), "12.5 mm");
    EXPECT_FALSE(d.m_length.GetModify());
  });
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].text, "Keine Zahl: 'abc'");
  EXPECT_EQ(boxes.boxes[0].caption, "QENORA");
  EXPECT_EQ(boxes.boxes[0].type, kExclamationOk);
  // The dialog still learns that the focus left, finds the field unmodified and writes nothing.
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len unmodified"});
  EXPECT_EQ(dlg.length, 12.5);
}

TEST_F(CZelEditTest, EachKindOfBadInputNamesWhatIsWrong) {
  struct Case {
    const wchar_t* typed;
    const char* message;
  };
  const Case open[] = {
      {L"", "Kein Wert eingegeben"},
      {L"12x", "Keine Zahl: '12x'"},
      {L"1e400", "Zahl zu gro\u00DF: '1e400'"},
      {L"-3", "Au\u00DFerhalb des Bereichs: mindestens 0 mm"},
      {L"0", "Au\u00DFerhalb des Bereichs: darf nicht 0 sein"},
  };
  const Case limited[] = {  // 10 to 2000 mm
      {L"5", "Au\u00DFerhalb des Bereichs: mindestens 10 mm"},
      {L"2,5 m", "Au\u00DFerhalb des Bereichs: h\u00F6chstens 2000 mm"},
  };
  dlg.length = 100.0;
  CBoxRecorder boxes = runZelCtl(dlg, [&](CZelCtlTestDlg& d) {
    for (const Case& c : open) {
      enter(d.m_length, c.typed);
      EXPECT_EQ(text(d.m_length), "100 mm") << CZelString(c.typed).toUtf8();
    }
    d.m_length.setEditFlags(2, 71, 2, 10.0, 2000.0);
    for (const Case& c : limited) {
      enter(d.m_length, c.typed);
      EXPECT_EQ(text(d.m_length), "100 mm") << CZelString(c.typed).toUtf8();
    }
    enter(d.m_length, L"2 m");
  });
  ASSERT_EQ(boxes.boxes.size(), std::size(open) + std::size(limited));
  for (std::size_t i = 0; i < std::size(open); ++i) EXPECT_EQ(boxes.boxes[i].text, open[i].message);
  for (std::size_t i = 0; i < std::size(limited); ++i) EXPECT_EQ(boxes.boxes[std::size(open) + i].text, limited[i].message);
  EXPECT_EQ(dlg.length, 2000.0) << "only the last value, at the upper limit, reached the dialog";
}

TEST_F(CZelEditTest, MessagesComeInTheFieldsCountry) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_length.setCountry(L"en");
    enter(d.m_length, L"abc");
    enter(d.m_length, L"-1");
    d.m_length.setCountry(L"");
    ZEL::msgCountrySet(L"us");  // without a country of its own, the current one
    enter(d.m_length, L"0");
  });
  ASSERT_EQ(boxes.boxes.size(), 3u);
  EXPECT_EQ(boxes.boxes[0].text, "Not a number: 'abc'");
  EXPECT_EQ(boxes.boxes[1].text, "Out of range: must be at least 0 mm");
  EXPECT_EQ(boxes.boxes[2].text, "Out of range: must not be 0");
}

TEST_F(CZelEditTest, AGoodValueReachesTheDialogModifiedAndBecomesTheOneToGoBackTo) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    enter(d.m_length, L"12,5");
    EXPECT_EQ(text(d.m_length), "12,5") << "the field keeps what was typed until the dialog shows its value";
    enter(d.m_length, L"x");
    EXPECT_EQ(text(d.m_length), "12,5");
  });
  EXPECT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(dlg.log, (std::vector<std::string>{"len=12.5", "len unmodified"}));
  EXPECT_EQ(dlg.length, 12.5);
}

TEST_F(CZelEditTest, AnImperialFieldRefusesInItsOwnUnits) {
  dlg.radius = 25.4;
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    EXPECT_EQ(text(d.m_inch), "1\"");
    enter(d.m_inch, L"-1\"");  // flags 5: no negatives, no zero
    EXPECT_EQ(text(d.m_inch), "1\"");
    enter(d.m_inch, L"2'");
  });
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].text, "Au\u00DFerhalb des Bereichs: mindestens 0\"");
  EXPECT_EQ(dlg.log, (std::vector<std::string>{"rad unmodified", "rad=609.6"}));
}

TEST_F(CZelEditTest, ATextTheProgramPutThereIsNeverRefused) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_length.SetWindowText(L"");  // a field emptied by the dialog's refresh
    ASSERT_EQ(CUserAction::type(d.m_length, L"3"), "");
    enter(d.m_length, L"");  // typed back to what the program showed
  });
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len -"}) << "modified, but no value in it";
}

TEST_F(CZelEditTest, LeavingForTheCancelButtonChecksNothing) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"abc"), "");
    ASSERT_EQ(CUserAction::click(d.button(IDCANCEL)), "");
  });
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len -"});
  EXPECT_EQ(dlg.result(), IDCANCEL);
}

TEST_F(CZelEditTest, LeavingForAnotherButtonChecksFirst) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"abc"), "");
    ASSERT_EQ(CUserAction::click(d.button(IDC_ZT_BUTTON)), "");
    EXPECT_EQ(text(d.m_length), "0 mm");
  });
  EXPECT_EQ(boxes.boxes.size(), 1u);
}

TEST_F(CZelEditTest, CheckValReportsAndRestoresWhenTheDialogAsks) {
  dlg.length = 8.0;
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"abc"), "");
    double v = -1;
    EXPECT_FALSE(d.m_length.checkVal(v));
    EXPECT_EQ(v, 8.0) << "the last good value";
    EXPECT_EQ(text(d.m_length), "8 mm");
    ASSERT_EQ(CUserAction::type(d.m_length, L"9"), "");
    EXPECT_TRUE(d.m_length.checkVal(v));
    EXPECT_EQ(v, 9.0);
    d.m_length.setVal(1.0 / 3.0);
    EXPECT_TRUE(d.m_length.checkVal(v));
    EXPECT_EQ(v, 1.0 / 3.0) << "an untouched field gives the exact value it was set to, not the rounded text";
  });
  EXPECT_EQ(boxes.boxes.size(), 1u);
}

TEST_F(CZelEditTest, ChangingTheSetUpReadsTheShownTextAnew) {
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_length.SetWindowText(L"2 cm");
    EXPECT_EQ(d.m_length.goodValue(), 20.0);
    d.m_length.setLUnits(5, -1);  // now stored in centimetres
    EXPECT_EQ(d.m_length.goodValue(), 2.0);
    ASSERT_EQ(CUserAction::type(d.m_length, L"abc"), "");
    double v = 0;
    EXPECT_FALSE(d.m_length.checkVal(v));
    EXPECT_EQ(v, 2.0);
  });
}

// --- the modified flag ----------------------------------------------------------------------------

TEST_F(CZelEditTest, TypingSetsTheModifiedFlagAndTheProgramClearsIt) {
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    EXPECT_FALSE(d.m_length.GetModify()) << "after the dialog set it up";
    ASSERT_EQ(CUserAction::type(d.m_length, L"4"), "");
    EXPECT_TRUE(d.m_length.GetModify());
    ASSERT_EQ(CUserAction::leave(d.m_length), "");
    EXPECT_TRUE(d.m_length.GetModify()) << "leaving with a good value keeps it for the dialog";
    d.m_length.SetWindowText(L"5");
    EXPECT_FALSE(d.m_length.GetModify());
  });
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len=4"});
}

TEST_F(CZelEditTest, LeavingAnUnmodifiedFieldChecksNothing) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    d.m_length.SetWindowText(L"not a number");  // the program may show what it likes
    d.m_length.SetFocus();
    ASSERT_EQ(CUserAction::leave(d.m_length), "");
    EXPECT_EQ(text(d.m_length), "not a number");
  });
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len unmodified"});
}

// --- Enter ----------------------------------------------------------------------------------------

TEST_F(CZelEditTest, EnterInAModifiedFieldHandsTheValueOverAndASecondEnterPressesOk) {
  runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"20"), "");
    ASSERT_EQ(CUserAction::pressKey(d.m_length, VK_RETURN), "");
    EXPECT_FALSE(d.isEnded()) << "the first Enter does not press OK";
    EXPECT_TRUE(d.m_length.hasFocus());
    EXPECT_FALSE(d.m_length.GetModify());
    ASSERT_EQ(CUserAction::pressKey(d.m_length, VK_RETURN), "");
    EXPECT_TRUE(d.isEnded());
  });
  EXPECT_EQ(dlg.log, std::vector<std::string>{"len=20"});
  EXPECT_EQ(dlg.length, 20.0);
  EXPECT_EQ(dlg.result(), IDOK);
}

TEST_F(CZelEditTest, EnterWithBadTextReportsRestoresAndKeepsTheDialogOpen) {
  dlg.length = 3.0;
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    ASSERT_EQ(CUserAction::type(d.m_length, L"abc"), "");
    ASSERT_EQ(CUserAction::pressKey(d.m_length, VK_RETURN), "");
    EXPECT_FALSE(d.isEnded());
    EXPECT_EQ(text(d.m_length), "3 mm");
  });
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].text, "Keine Zahl: 'abc'");
  EXPECT_TRUE(dlg.log.empty()) << "nothing was handed over";
}

// --- plain text and dialogs with their own messages ------------------------------------------------

TEST_F(CZelEditTest, APlainTextFieldTakesAnyTextAndLeavesEnterToTheDialog) {
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    EXPECT_FALSE(d.m_text.isNumeric());
    EXPECT_EQ(text(d.m_text), "A-100");
    enter(d.m_text, L"B-200 / x");
    EXPECT_EQ(text(d.m_text), "B-200 / x");
    ASSERT_EQ(CUserAction::type(d.m_text, L"C"), "");
    ASSERT_EQ(CUserAction::pressKey(d.m_text, VK_RETURN), "");
    EXPECT_TRUE(d.isEnded());
  });
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(dlg.log, std::vector<std::string>{"text=B-200 / x"});
  EXPECT_EQ(dlg.result(), IDOK);
}

TEST_F(CZelEditTest, AFieldCheckedByItsDialogHandsOverEmptyZeroAndNegativeButRefusesWhatIsNoNumber) {
  // Flags 71 say "above 0", but the dialog checks the value itself: the empty field and the
  // zero reach it and it words its own messages; a negative value reaches it too. Text that no
  // dialog could take as a value is still refused by the field, with the field's message.
  CBoxRecorder boxes = runZelCtl(dlg, [](CZelCtlTestDlg& d) {
    enter(d.m_own, L"");
    enter(d.m_own, L"0");
    enter(d.m_own, L"abc");
    EXPECT_EQ(text(d.m_own), "5 mm") << "back at the last good text";
    enter(d.m_own, L"1e999");
    enter(d.m_own, L"-3");
    EXPECT_EQ(text(d.m_own), "-3 mm");
    enter(d.m_own, L"7");
    EXPECT_EQ(text(d.m_own), "7 mm");
    double v = 0.0;
    ASSERT_EQ(CUserAction::type(d.m_own, L"0"), "");
    EXPECT_TRUE(d.m_own.getVal(v)) << "a zero is the dialog's to judge";
    EXPECT_EQ(v, 0.0);
    ASSERT_EQ(CUserAction::type(d.m_own, L""), "");
    EXPECT_EQ(d.m_own.readVal().error.kind(), CZelValueError::Kind::Empty);
    d.m_own.setVal(7.0);
  });
  ASSERT_EQ(boxes.boxes.size(), 4u);
  EXPECT_EQ(boxes.boxes[0].text, "Eintragung notwendig");
  EXPECT_EQ(boxes.boxes[1].text, "Wert darf nicht Null sein");
  EXPECT_EQ(boxes.boxes[2].text, "Keine Zahl: 'abc'");
  EXPECT_EQ(boxes.boxes[3].text.rfind("Zahl zu gro", 0), 0u) << boxes.boxes[3].text;
  EXPECT_EQ(dlg.log, (std::vector<std::string>{"own refused", "own refused", "own=-3", "own=7"}));
}

// --- through a dialog script ------------------------------------------------------------------------

TEST_F(CZelEditTest, AScriptSeesTheMessageAndTheRestoredText) {
  dlg.length = 12.5;
  ZelCtlRun run = runZelCtlScript(dlg,
                                  "enter 100 \"abc\"\n"
                                  "expect-box \"Keine Zahl: 'abc'\"\n"
                                  "expect 100 text \"12.5 mm\"\n"
                                  "enter 100 \"-4\"\n"
                                  "expect-box \"Au\u00DFerhalb des Bereichs: mindestens 0 mm\"\n"
                                  "enter 101 \"1'6\\\"\"\n"
                                  "type 100 \"30\"\n"
                                  "key 100 ENTER\n"
                                  "expect 100 text \"30\"\n"
                                  "ok\n");
  EXPECT_EQ(run.status, 0) << run.err;
  // "ok" takes the focus from the field Enter left it in: handed over already, it writes nothing twice.
  EXPECT_EQ(dlg.log,
            (std::vector<std::string>{"len unmodified", "len unmodified", "rad=457.2", "len=30", "len unmodified"}));
  EXPECT_EQ(dlg.result(), IDOK);
}

}  // namespace
