// The window backend in the test program itself: every control of the test dialog gets a
// widget where its template puts it, a change in the model shows at once, the widgets' own
// events reach the model as the notifications a script sends, the help button starts the
// help viewer, and nested dialogs and message boxes are windows of their own.
#include "CVirtualDisplay.h"

#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxDialogWindow.h"
#include "backend/wx/CWxLinkMirror.h"
#include "backend/wx/CWxMirror.h"
#include "data/CConfig.h"
#include "tests/support/TestDialogs.h"
#include "ui/CComboBox.h"
#include "ui/CMessageBoxDlg.h"

#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/listctrl.h>
#include <wx/treectrl.h>
#include <wx/combobox.h>
#include <wx/hyperlink.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;

namespace {

class CWxBackendTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (std::string why = CVirtualDisplay::ensure(); !why.empty()) GTEST_SKIP() << why;
    if (!CWxBackend::start()) GTEST_SKIP() << "the toolkit cannot open the display";
    ZEL::cfgMgrPtr()->reset();
  }

  // Runs the test dialog in a window; `body` runs once it has painted, then it is cancelled
  // (unless the body ended it).
  INT_PTR run(const std::function<void(CWxDialogWindow&)>& body) {
    CWxBackend backend(m_out, m_err, true);
    m_backend = &backend;
    CDialogBackendScope scope(backend);
    bool ran = false;
    CWxBackend* b = &backend;
    const auto* test = &body;
    backend.onShown = [b, test, &ran, this](CWxDialogWindow& window, double) {
      if (ran) return;
      ran = true;
      CWxDialogWindow* w = &window;
      window.CallAfter([b, test, w, this] {
        (*test)(*w);
        if (!m_dialog.isEnded())
          b->userAction([this] {
            m_dialog.EndDialog(IDCANCEL);
            return std::string();
          });
      });
    };
    INT_PTR result = m_dialog.DoModal();
    m_backend = nullptr;
    EXPECT_TRUE(ran) << "the window never painted";
    return result;
  }

  wxWindow* widget(CWxDialogWindow& window, int id) {
    CWnd* c = m_dialog.GetDlgItem(id);
    for (CDialog* page : m_dialog.childDialogs())
      if (!c) c = page->GetDlgItem(id);
    CWxMirror* m = c ? window.mirrorOf(c) : nullptr;
    return m ? m->native() : nullptr;
  }

  // Sends a widget the event its own click would send.
  static void press(wxWindow* w, wxEventType type) {
    wxCommandEvent event(type, w->GetId());
    event.SetEventObject(w);
    if (type == wxEVT_RADIOBUTTON) static_cast<wxRadioButton*>(w)->SetValue(true), event.SetInt(1);
    w->ProcessWindowEvent(event);
  }

  CTestMainDlg m_dialog;
  CWxBackend* m_backend = nullptr;
  std::ostringstream m_out, m_err;
};

TEST_F(CWxBackendTest, EveryControlHasAWidgetWhereItsTemplatePutsIt) {
  run([this](CWxDialogWindow& window) {
    for (int id : {IDC_CONTOUR, IDC_STANDARD, IDC_HATCHED, IDC_REPR_GROUP, IDC_PREVIEW, IDC_LABEL, IDC_LAYER_NAME, IDC_LINETYPE,
                   IDC_AREAS, IDC_MATTYPES, IDC_NORMS, IDC_TEXTS, IDC_LINK, IDC_TABS, IDC_WIDTH, IDC_SCREEN})
      EXPECT_NE(widget(window, id), nullptr) << "control " << id;
    const CWxDialogUnits& u = window.units();
    EXPECT_EQ(widget(window, IDC_CONTOUR)->GetRect(), u.fromDialogUnits(CRect(220, 17, 70, 10)));
    EXPECT_EQ(window.GetClientSize(), wxSize(u.x(400), u.y(260)));
    EXPECT_FALSE(widget(window, IDC_HIDDEN_BTN)->IsShown());
    EXPECT_FALSE(widget(window, IDC_DISABLED_BTN)->IsEnabled());
    // The properties page sits in the notebook's first page, the admin page is hidden.
    EXPECT_TRUE(widget(window, IDC_WIDTH)->IsShownOnScreen());
    EXPECT_FALSE(widget(window, IDC_REFRESH_ADMIN)->IsShownOnScreen());
  });
}

TEST_F(CWxBackendTest, AChangeInTheModelShowsAtOnce) {
  run([this](CWxDialogWindow& window) {
    m_backend->userAction([this] {
      m_dialog.CheckRadioButton(IDC_HATCHED, IDC_STANDARD, IDC_CONTOUR);
      m_dialog.GetDlgItem(IDC_LAYER_BTN)->EnableWindow(FALSE);
      m_dialog.GetDlgItem(IDC_LABEL)->SetWindowText(L"Klotz 40 x 8");
      m_dialog.combo(IDC_LAYER_NAME).AddString(L"Neu");
      m_dialog.GetDlgItem(IDC_ASK)->SetToolTipText(L"Fragt nach");
      return std::string();
    });
    EXPECT_TRUE(static_cast<wxRadioButton*>(widget(window, IDC_CONTOUR))->GetValue());
    EXPECT_FALSE(static_cast<wxRadioButton*>(widget(window, IDC_STANDARD))->GetValue());
    EXPECT_FALSE(widget(window, IDC_LAYER_BTN)->IsEnabled());
    EXPECT_EQ(static_cast<wxStaticText*>(widget(window, IDC_LABEL))->GetLabel(), "Klotz 40 x 8");
    EXPECT_EQ(static_cast<wxComboBox*>(widget(window, IDC_LAYER_NAME))->GetCount(), 4u);
    ASSERT_NE(widget(window, IDC_ASK)->GetToolTip(), nullptr);
    EXPECT_EQ(widget(window, IDC_ASK)->GetToolTipText(), "Fragt nach");
    // A group with no radio checked shows none checked.
    m_backend->userAction([this] {
      m_dialog.CheckRadioButton(IDC_HATCHED, IDC_STANDARD, 0);
      return std::string();
    });
    for (int id : {IDC_CONTOUR, IDC_STANDARD, IDC_HATCHED})
      EXPECT_FALSE(static_cast<wxRadioButton*>(widget(window, id))->GetValue()) << id;
  });
}

TEST_F(CWxBackendTest, AWidgetsClickIsTheNotificationAScriptSends) {
  run([this](CWxDialogWindow& window) {
    press(widget(window, IDC_HATCHED), wxEVT_RADIOBUTTON);
    EXPECT_EQ(testdlg::stored(L"HATCH"), "\"M\"");
    // The dialog's handler disabled the layer button; the window shows it.
    EXPECT_FALSE(widget(window, IDC_LAYER_BTN)->IsEnabled());
    press(widget(window, static_cast<int>(IDOK)), wxEVT_BUTTON);
  });
  EXPECT_EQ(m_dialog.result(), IDOK);
  EXPECT_EQ(testdlg::stored(L"DONE"), "1");
}

TEST_F(CWxBackendTest, ListsTreesAndChoicesTellTheModelWhatWasPicked) {
  run([this](CWxDialogWindow& window) {
    auto* linetype = static_cast<wxChoice*>(widget(window, IDC_LINETYPE));
    ASSERT_EQ(linetype->GetCount(), 3u);
    wxCommandEvent pick(wxEVT_CHOICE, linetype->GetId());
    pick.SetEventObject(linetype);
    pick.SetInt(2);
    linetype->ProcessWindowEvent(pick);
    EXPECT_EQ(testdlg::stored(L"LINETYPE"), "\"CENTER\"");

    // The tree and the list send their events for a selection made through them.
    auto* tree = static_cast<wxTreeCtrl*>(widget(window, IDC_NORMS));
    wxTreeItemIdValue cookie;
    wxTreeItemId normen = tree->GetFirstChild(tree->GetRootItem(), cookie);
    wxTreeItemId din = tree->GetFirstChild(normen, cookie);
    ASSERT_TRUE(din.IsOk());
    tree->SelectItem(din);
    EXPECT_EQ(testdlg::stored(L"NODE"), "\"Normen/DIN\"");

    auto* texts = static_cast<wxListCtrl*>(widget(window, IDC_TEXTS));
    ASSERT_EQ(texts->GetItemCount(), 3);
    EXPECT_EQ(texts->GetItemText(1, 1), "ALU");
    EXPECT_TRUE(texts->IsItemChecked(0));
    texts->CheckItem(2, true);
    EXPECT_EQ(testdlg::stored(L"TEXTBITS"), "5");
  });
}

TEST_F(CWxBackendTest, ALinkTextIsAHyperlinkAndATextWithoutAnchorIsPlainText) {
  run([this](CWxDialogWindow& window) {
    auto* mirror = dynamic_cast<CWxLinkMirror*>(window.mirrorOf(m_dialog.GetDlgItem(IDC_LINK)));
    ASSERT_NE(mirror, nullptr);
    auto* link = dynamic_cast<wxHyperlinkCtrl*>(mirror->shownPart());
    ASSERT_NE(link, nullptr) << "the template's text has a link";
    EXPECT_EQ(link->GetURL(), "https://example.org/din933");
    EXPECT_EQ(link->GetLabel(), "DIN 933");
    m_backend->userAction([this] {
      m_dialog.GetDlgItem(IDC_LINK)->SetWindowText(L"Sechskantschraube & Mutter");
      return std::string();
    });
    auto* plain = dynamic_cast<wxStaticText*>(mirror->shownPart());
    ASSERT_NE(plain, nullptr) << "a text without anchor is no hyperlink";
    EXPECT_EQ(plain->GetLabelText(), "Sechskantschraube & Mutter");
    EXPECT_FALSE(link->IsShown());
    m_backend->userAction([this] {
      m_dialog.GetDlgItem(IDC_LINK)->SetWindowText(L"<a href=\"https://example.org/iso4017\">ISO 4017</a>");
      return std::string();
    });
    EXPECT_EQ(mirror->shownPart(), link);
    EXPECT_FALSE(plain->IsShown());
    EXPECT_EQ(link->GetURL(), "https://example.org/iso4017");
  });
}

TEST_F(CWxBackendTest, APageThatLeavesTheModelLeavesTheWindowWithItsControls) {
  run([this](CWxDialogWindow& window) {
    CWxMirror* admin = window.mirrorOf(&m_dialog.admin);
    ASSERT_NE(admin, nullptr);
    wxWindow* holder = admin->native()->GetParent();
    ASSERT_EQ(holder->GetChildren().size(), 1u);
    m_backend->userAction([this] {
      m_dialog.admin.DestroyWindow();
      return std::string();
    });
    EXPECT_EQ(window.mirrorOf(&m_dialog.admin), nullptr);
    EXPECT_TRUE(holder->GetChildren().empty()) << "the page's panel and its widgets are gone";
    EXPECT_NE(widget(window, IDC_WIDTH), nullptr) << "the other page stays";
  });
}

TEST_F(CWxBackendTest, AMessageBoxIsAWindowOfItsOwnOverTheDialog) {
  bool boxShown = false;
  run([&, this](CWxDialogWindow& window) {
    auto shownBefore = m_backend->onShown;
    m_backend->onShown = [&boxShown, &window, this](CWxDialogWindow& box, double) {
      boxShown = dynamic_cast<CMessageBoxDlg*>(&box.dialog()) != nullptr && box.GetParent() == &window;
      EXPECT_EQ(m_backend->topWindow(), &box);
      // "Nein" in the box's window.
      box.CallAfter([&box, this] {
        CWxMirror* no = box.mirrorOf(box.dialog().GetDlgItem(IDNO));
        ASSERT_NE(no, nullptr);
        press(no->native(), wxEVT_BUTTON);
      });
    };
    press(widget(window, IDC_ASK), wxEVT_BUTTON);
    m_backend->onShown = shownBefore;
  });
  EXPECT_TRUE(boxShown);
  EXPECT_EQ(testdlg::stored(L"ANSWER"), "7");
}

TEST_F(CWxBackendTest, TheHelpButtonStartsTheHelpViewerWithTheTopic) {
  fs::path dir = fs::path(QEN_TEST_WORK_DIR) / "help";
  fs::create_directories(dir);
  fs::path viewer = dir / "viewer.sh", seen = dir / "seen.txt";
  fs::remove(seen);
  {
    std::ofstream v(viewer);
    v << "#!/bin/sh\necho \"$1\" > '" << seen.string() << "'\n";
  }
  fs::permissions(viewer, fs::perms::owner_all);
  m_dialog.helpFile = CZelString::fromUtf8(dir.string());
  run([&, this](CWxDialogWindow& window) {
    m_backend->setHelpViewer(viewer.string());
    press(widget(window, IDC_HELP), wxEVT_BUTTON);
  });
  for (int i = 0; i < 50 && !fs::exists(seen); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(100));
  std::ifstream in(seen);
  std::string url;
  std::getline(in, url);
  EXPECT_EQ(url, (dir / "qen_test.html").string());
}

TEST(CWxBackendHelpUrl, AFolderGivesTheTopicsPageAFileTheTopicAsAnchor) {
  EXPECT_EQ(CWxBackend::helpUrl(L"/usr/share/doc", L"qen_klotz"), "/usr/share/doc/qen_klotz.html");
  EXPECT_EQ(CWxBackend::helpUrl(L"/no/such/qen.html", L"qen_klotz"), "/no/such/qen.html#qen_klotz");
  EXPECT_EQ(CWxBackend::helpUrl(L"/no/such/qen.html", L""), "/no/such/qen.html");
}

}  // namespace

TEST(CWxDialogUnits, DialogUnitsArePixelsOfTheFontsAverageLetter) {
  CWxDialogUnits units(7, 13);
  EXPECT_EQ(units.fromDialogUnits(CRect(220, 17, 70, 10)), wxRect(385, 28, 123, 16));
  // The model counts its pixels in base units of 6 x 13.
  EXPECT_EQ(units.fromModelPixels(CRect(60, 13, 120, 26)), wxRect(70, 13, 70, 13));
  EXPECT_EQ(units.toModelPixels(wxPoint(70, 13)), wxPoint(60, 13));
}
