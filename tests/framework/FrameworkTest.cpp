// The dialog base, the tab controls and pages of the module's dialogs, driven by scripts:
// texts in the dialog's language, tooltips, help, pages shown by their tabs, the page area
// painted in the dialog colour, and sub-dialogs.
#include "framework/CQenTabCtrl.h"
#include "framework/CQenTabPage.h"
#include "framework/QenDialogIds.h"
#include "tests/dialogs/framework_ids.h"
#include "tests/support/DialogRun.h"
#include "ui/CButton.h"
#include "ui/CDialogTemplates.h"
#include "ui/CZelTabCtrl.h"
#include "ui/ZelHelp.h"

#include <gtest/gtest.h>

namespace {

class PageA : public CQenTabPage {
public:
  PageA() : CQenTabPage(IDD_FW_PAGE_A) {}
  void addLangRsc() override { langRsc(IDC_FW_PAGE_A_BTN, L"DLG_002", L"Abbrechen"); }
};

class PageB : public CQenTabPage {
public:
  PageB() : CQenTabPage(IDD_FW_PAGE_B) {}
};

class FrameDlg : public CZelDlg {
public:
  explicit FrameDlg(CWnd* parent = nullptr) : CZelDlg(IDD_FW_MAIN, parent) {}

  BOOL OnInitDialog() override {
    CZelDlg::OnInitDialog();
    DDX();
    m_tabs.InsertItem(0, GetMsg(L"QEN_DCL_BGR_001", L"Eigenschaften"), &m_pageA, IDD_FW_PAGE_A);
    m_tabs.InsertItem(1, L"Verwaltung", &m_pageB, IDD_FW_PAGE_B);
    return TRUE;
  }
  bool updLang() override {
    SetWindowText(GetMsg(L"QEN_DCL_HLBZ_133", L"Klotz"));
    return CZelDlg::updLang();
  }
  void addLangRsc() override {
    langRsc(IDOK, L"DLG_001", L"OK");
    langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
    langRsc(IDC_FW_GROUP, L"QEN_DCL_HLBZ_003", L"Darstellung");
    langRsc(IDC_FW_CONTOUR, L"QEN_DCL_KEY_THAT_NOBODY_TRANSLATES", L"Kontur");
  }
  void addToolTipRsc() override {
    toolTipRsc(IDC_FW_FAV, L"DLG_007");
    toolTipRsc(IDC_FW_SUBDLG, L"TOOLTIP_NOBODY_KNOWS");
  }

  void OnOK() override {
    // What the tab control says of itself while the dialog is still open.
    for (int i = 0; i < m_tabs.GetItemCount(); ++i) {
      UINT id = 0;
      if (m_tabs.GetDlgIDD(i, id)) templatesAtOk.push_back(id);
    }
    favTip = GetDlgItem(IDC_FW_FAV)->toolTipText();
    subTip = GetDlgItem(IDC_FW_SUBDLG)->toolTipText();
    favToolTip = ToolTip(IDC_FW_FAV, nullptr, nullptr);
    UINT none = 0;
    unknownTabKnown = m_tabs.GetDlgIDD(5, none);
    m_tabs.SetCurSel(0);
    pageAShownAfterSetCurSel = m_pageA.IsWindowVisible() && !m_pageB.IsWindowVisible();
    CZelDlg::OnOK();
  }

  CZelTabCtrl m_tabs;
  PageA m_pageA;
  PageB m_pageB;
  bool subWasSub = false;
  bool selfWasSub = true;
  std::vector<UINT> templatesAtOk;
  CZelString favTip = L"<unset>";
  CZelString subTip = L"<unset>";
  int favToolTip = 0;
  bool unknownTabKnown = true;
  bool pageAShownAfterSetCurSel = false;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  void DDX() { m_tabs.SubclassDlgItem(IDC_FW_TABS, this); }
  void OnSub() {
    selfWasSub = isSubDlg();
    FrameDlg sub(this);
    sub.DoModal();
    subWasSub = sub.selfWasSub;
  }
  static const CMessageMapEntry kEntries[];
};

const CMessageMapEntry FrameDlg::kEntries[] = {
    msgmap::command<&FrameDlg::OnSub>(IDC_FW_SUBDLG),
};
const CMessageMap FrameDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries};

}  // namespace

TEST(CZelDlg, TextsComeInTheDialogsLanguageAndFallBackToGerman) {
  for (const auto& [country, cancel, title, contour] :
       std::vector<std::tuple<const wchar_t*, const char*, const char*, const char*>>{
           {L"de", "Abbrechen", "Klotz", "Kontur"}, {L"en", "Cancel", "Setting block", "Kontur"},
           {L"xx", "Abbrechen", "Klotz", "Kontur"}}) {
    FrameDlg dlg;
    dlg.SetCountry(country);
    DialogRun r = runDialog(dlg, std::string("expect 2 text \"") + cancel + "\"\n" +
                                     "expect dialog text \"" + title + "\"\n" +
                                     "expect 10333 text \"" + contour + "\"\n" +
                                     "expect 0/30311 text \"" + cancel + "\"\n");
    EXPECT_EQ(r.status, 0) << CZelString(country) << "\n" << r.err;
  }
}

TEST(CDialogTemplates, EveryTemplateOfTheBuildReadsWithoutError) {
  ASSERT_NE(CDialogTemplates::find(IDD_FW_MAIN), nullptr);
  EXPECT_TRUE(CDialogTemplates::errors().empty()) << CDialogTemplates::errors().front();
}

TEST(CZelDlg, TooltipsOnlyForKnownKeysAndHelpOpensTheDialogsTopic) {
  FrameDlg dlg;
  dlg.SetCountry(L"en");
  dlg.SetHelpFile(L"qen.html");
  dlg.SetHelpTopic(L"qen_klotz");
  DialogRun r = runDialog(dlg, "click 9\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(ZEL::helpLastShown(), CZelString(L"qen.html#qen_klotz"));
  EXPECT_FALSE(dlg.favTip.isEmpty());
  EXPECT_EQ(dlg.favToolTip, 1);
  EXPECT_TRUE(dlg.subTip.isEmpty());  // an unknown tooltip key gives no tooltip
}

TEST(CZelTabCtrl, TabsShowTheirPagesAndKnowTheirTemplates) {
  FrameDlg dlg;
  DialogRun r = runDialog(dlg,
                          "expect 0/30311 shown\nexpect 1/30312 hidden\n"
                          "tab 1\nexpect 1/30312 shown\nexpect 0/30311 hidden\n"
                          "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(dlg.templatesAtOk, (std::vector<UINT>{IDD_FW_PAGE_A, IDD_FW_PAGE_B}));
  EXPECT_FALSE(dlg.unknownTabKnown);
  EXPECT_TRUE(dlg.pageAShownAfterSetCurSel);
}

TEST(CZelDlg, ADialogOpenedFromAnotherIsASubDialog) {
  FrameDlg dlg;
  DialogRun r = runDialog(dlg, "click 30310\nok\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_FALSE(dlg.selfWasSub);
  EXPECT_TRUE(dlg.subWasSub);
}

namespace {

// A dialog whose tab control is the module's own, which paints the page area.
class PaintDlg : public CZelDlg {
public:
  PaintDlg() : CZelDlg(IDD_FW_MAIN) {}
  BOOL OnInitDialog() override {
    CZelDlg::OnInitDialog();
    m_tabs.SubclassDlgItem(IDC_FW_TABS, this);
    m_tabs.InsertItem(0, L"Objekt");
    return TRUE;
  }
  void OnOK() override {
    m_tabs.SendMessage(WM_PAINT);
    first = m_tabs.lastFill();
    m_tabs.MoveWindow(0, 0, 300, 200);
    m_tabs.InsertItem(1, L"Zweite");
    m_tabs.selectByUser(1);
    m_tabs.SendMessage(WM_PAINT);
    afterResize = m_tabs.lastFill();
    CZelDlg::OnOK();
  }
  CQenTabCtrl m_tabs;
  CQenTabCtrl::Fill first;
  CQenTabCtrl::Fill afterResize;
};

}  // namespace

TEST(CQenTabCtrl, ThePageAreaIsPaintedInTheDialogColourAfterResizeAndTabSwitch) {
  PaintDlg dlg;
  DialogRun r = runDialog(dlg, "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(dlg.first.sysColour, CQenTabCtrl::kPageColour);
  EXPECT_GT(dlg.first.rect.Width(), 0);
  EXPECT_EQ(dlg.afterResize.sysColour, 15);
  EXPECT_EQ(dlg.afterResize.rect.top, 22);
  EXPECT_EQ(dlg.afterResize.rect.left, 1);
  EXPECT_EQ(dlg.afterResize.rect.right, 297);
  EXPECT_EQ(dlg.afterResize.rect.bottom, 197);
}
