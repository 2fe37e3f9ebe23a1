// Reading dialog templates: the resource-script subset, its defaults and its errors.
#include "ui/CDialogError.h"
#include "ui/CDialogTemplates.h"
#include "ui/CRcParser.h"

#include <gtest/gtest.h>

namespace {

const char* kScript = R"rc(
// two dialogs and the defines they use
#define IDD_ONE 12001
#define IDC_NAME 100
#define IDC_OPT (IDC_NAME + 1)
LANGUAGE LANG_GERMAN, SUBLANG_GERMAN

IDD_ONE DIALOGEX 0, 0, 200, 100
STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION
CAPTION "Höhe ""eins"""
FONT 8, "MS Shell Dlg", 400, 0, 0x1
BEGIN
    DEFPUSHBUTTON   "OK", IDOK, 7, 79, 50, 14
    EDITTEXT        IDC_NAME, 7, 7, 80, 12, ES_AUTOHSCROLL | NOT WS_TABSTOP
    COMBOBOX        102, 7, 22, 80, 60, CBS_DROPDOWN | WS_VSCROLL
    AUTORADIOBUTTON " A", IDC_OPT, 7, 40, 40, 10, WS_GROUP
    LTEXT           "Text", IDC_STATIC, 7, 55, 40, 8, NOT WS_VISIBLE
    ICON            10112, 103, 100, 7, 20, 20
    CONTROL         "", 104, "SysListView32", LVS_REPORT | WS_BORDER, 100, 30, 90, 40, WS_EX_CLIENTEDGE
    CONTROL         "", 105, "Static", SS_BLACKFRAME, 100, 75, 20, 20
    LISTBOX         106, 130, 75, 20, 20, LBS_OWNERDRAWFIXED | LBS_HASSTRINGS
END

12002 DIALOG 0, 0, 50, 50
BEGIN
    PUSHBUTTON "x", 1, 1, 1, 10, 10
END
)rc";

}  // namespace

TEST(CRcParserTest, ReadsDialogsWithTheirControlsStylesAndDefaults) {
  CRcParser parser;
  std::vector<CDialogTemplate> out;
  std::string error;
  ASSERT_TRUE(parser.parse(kScript, "one.rc", out, error)) << error;
  ASSERT_EQ(out.size(), 2u);
  const CDialogTemplate& d = out[0];
  EXPECT_EQ(d.id, 12001u);
  EXPECT_EQ(d.caption, CZelString(L"Höhe \"eins\""));
  EXPECT_EQ(d.fontFace, CZelString(L"MS Shell Dlg"));
  EXPECT_EQ(d.rect, CRect(0, 0, 200, 100));
  ASSERT_EQ(d.controls.size(), 9u);

  const auto& ok = d.controls[0];
  EXPECT_EQ(ok.id, 1);
  EXPECT_EQ(ok.kind, WndKind::PushButton);
  EXPECT_EQ(ok.style & BS_TYPEMASK, BS_DEFPUSHBUTTON);
  EXPECT_TRUE(ok.style & WS_VISIBLE);

  const auto& edit = *d.control(100);
  EXPECT_EQ(edit.kind, WndKind::Edit);
  EXPECT_TRUE(edit.style & ES_AUTOHSCROLL);
  EXPECT_TRUE(edit.style & WS_BORDER);
  EXPECT_FALSE(edit.style & WS_TABSTOP) << "NOT clears a default style";

  // An explicit combo style replaces the CBS_SIMPLE default instead of adding to it.
  EXPECT_EQ(d.control(102)->style & 0x3, CBS_DROPDOWN);
  EXPECT_EQ(d.control(101)->kind, WndKind::RadioButton);
  EXPECT_TRUE(d.control(101)->style & WS_GROUP);
  EXPECT_FALSE(d.control(-1)->style & WS_VISIBLE);
  EXPECT_EQ(d.control(103)->kind, WndKind::Icon);
  EXPECT_EQ(d.control(103)->text, CZelString(L"10112"));
  EXPECT_EQ(d.control(104)->kind, WndKind::ListView);
  EXPECT_EQ(d.control(104)->exStyle, 0x200u);
  EXPECT_EQ(d.control(104)->rect, CRect(100, 30, 90, 40));
  EXPECT_EQ(d.control(105)->kind, WndKind::Frame);
  EXPECT_EQ(d.control(106)->kind, WndKind::CheckListBox);
  EXPECT_EQ(out[1].id, 12002u);

  long v = 0;
  EXPECT_TRUE(parser.symbol("IDC_OPT", v));
  EXPECT_EQ(v, 101);
}

TEST(CRcParserTest, NamesScriptLineAndColumnOfAnError) {
  struct Case {
    const char* text;
    const char* message;
  };
  const Case cases[] = {
    {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  PUSHBUTTON \"a\", IDC_NOPE, 1, 1, 1, 1\nEND\n", "bad.rc:3:19: unknown symbol IDC_NOPE"},
    {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  SPINNER 3, 1, 1, 1, 1\nEND\n", "bad.rc:3:3: unknown control statement SPINNER"},
    {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  EDITTEXT 3, 1, 1, 1\nEND\n", "bad.rc:4:1: ',' expected, found 'END'"},
    {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  EDITTEXT 3, 1, 1, 1, 1\n", "bad.rc:4:1: END expected before the end of the script"},
    {"1 DIALOGEX 0, 0, 10, 10\nCAPTION \"open\nBEGIN\nEND\n", "bad.rc:2:9: CAPTION needs a string"},
  };
  for (const Case& c : cases) {
    CRcParser parser;
    std::vector<CDialogTemplate> out;
    std::string error;
    EXPECT_FALSE(parser.parse(c.text, "bad.rc", out, error)) << c.text;
    EXPECT_EQ(error.substr(0, std::string(c.message).size()), c.message) << error;
    EXPECT_TRUE(out.empty());
  }
}

TEST(CDialogTemplatesTest, EveryCompiledTemplateReadsAndAMissingOneIsNamed) {
  EXPECT_TRUE(CDialogTemplates::errors().empty()) << CDialogTemplates::errors().front();
  // The platform's message box and the test dialogs are compiled in.
  ASSERT_NE(CDialogTemplates::find(32001), nullptr);
  const CDialogTemplate* bench = CDialogTemplates::find(30200);
  ASSERT_NE(bench, nullptr);
  EXPECT_EQ(bench->controls.size(), 150u);
  EXPECT_EQ(CDialogTemplates::find(4711), nullptr);
  try {
    CDialogTemplates::get(4711);
    FAIL() << "a missing template must be refused";
  } catch (const CDialogError& e) {
    EXPECT_NE(std::string(e.what()).find("dialog template 4711 does not exist"), std::string::npos) << e.what();
  }
}
