// A dialog with the platform's special controls, set up as the module's dialogs set them up, that
// logs what its handlers read; and the ways the tests run it (script, or a recording backend).
#pragma once

#include "backend/CDialogBackend.h"
#include "backend/CScriptBackend.h"
#include "tests/dialogs/zelctl_ids.h"
#include "ui/CDialog.h"
#include "ui/CMessageBoxDlg.h"
#include "ui/CZelComboBox.h"
#include "ui/CZelComboCountryBox.h"
#include "ui/CZelEdit.h"
#include "ui/CZelListBox.h"
#include "ui/CZelListCtrl.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

class CZelCtlTestDlg : public CDialog {
public:
  CZelCtlTestDlg() : CDialog(IDD_ZELCTL_TEST) {}

  CZelEdit m_length;   // mm, shown in mm with its unit: a positive width (2, 71, 2)
  CZelEdit m_inch;     // mm, shown in feet and inches (architectural): a radius (2, 5, 2)
  CZelEdit m_angle;    // radians, shown in degrees (3, 69, 2)
  CZelEdit m_text;     // plain text (an article number)
  CZelEdit m_own;      // a length whose dialog words its own messages
  CZelComboCountryBox m_country;
  CZelComboBox m_sizes;
  CZelListBox m_edges;
  CZelListCtrl m_entries;

  // What the handlers saw, one line per notification: "len=12.5", "len unmodified", "len -".
  std::vector<std::string> log;
  double length = 0.0;  // the value the length handler last wrote
  double radius = 0.0;

  void DoDataExchange(CDataExchange* dx) override {
    DDX_Control(dx, IDC_ZT_LENGTH, m_length);
    DDX_Control(dx, IDC_ZT_INCH, m_inch);
    DDX_Control(dx, IDC_ZT_ANGLE, m_angle);
    DDX_Control(dx, IDC_ZT_TEXT, m_text);
    DDX_Control(dx, IDC_ZT_OWN, m_own);
    DDX_Control(dx, IDC_ZT_COUNTRY, m_country);
    DDX_Control(dx, IDC_ZT_SIZES, m_sizes);
    DDX_Control(dx, IDC_ZT_EDGES, m_edges);
    DDX_Control(dx, IDC_ZT_ENTRIES, m_entries);
  }

  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    UpdateData(FALSE);
    m_length.setLUnits(4, -1);
    m_length.setFormat(2);
    m_length.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
    m_inch.setLUnits(4, 1);
    m_inch.setFormat(4);
    m_inch.setEditFlags(2, 5, 2, -DBL_MAX, DBL_MAX);
    m_angle.setFormat(2);
    m_angle.setEditFlags(3, 69, 2, -DBL_MAX, DBL_MAX);
    m_own.setLUnits(4, -1);
    m_own.setFormat(2);
    m_own.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
    m_own.setCheck(CZelEdit::Check::ByDialog);
    m_length.setVal(length);
    m_inch.setVal(radius);
    m_angle.setVal(0.0);
    m_text.SetWindowText(L"A-100");
    m_own.setVal(5.0);
    m_country.setCountry(L"de");
    m_entries.InsertColumn(0, L"Text");
    return FALSE;  // no field has the focus at first, so the logs hold only what the tests did
  }

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word) {
    if (word == L"len") read("len", m_length, length);
    else if (word == L"rad") read("rad", m_inch, radius);
    else if (word == L"text") log.push_back("text=" + m_text.GetWindowText().toUtf8());
    else if (word == L"own") ownCheck();
    else if (word == L"country") log.push_back("country=" + m_country.country().toUtf8());
  }

  // The common handler: only a modified field is read, and only a value is written.
  void read(const std::string& name, CZelEdit& field, double& target) {
    if (!field.GetModify()) {
      log.push_back(name + " unmodified");
      return;
    }
    double v = 0.0;
    if (!field.getVal(v)) {
      log.push_back(name + " -");
      return;
    }
    target = v;
    log.push_back(name + "=" + CZelString().format(L"%g", v).toUtf8());
  }

  // Entries typed in place: a text is taken when it is not empty and no other row has it.
  void OnEndEdit(NMHDR* hdr, LRESULT* result) {
    auto* info = reinterpret_cast<NMLVDISPINFO*>(hdr);
    const CZelString text(info->item.pszText ? info->item.pszText : L"");
    bool take = info->item.pszText && !text.isEmpty();
    for (int i = 0; take && i < m_entries.GetItemCount(); ++i)
      if (i != info->item.iItem && m_entries.GetItemText(i, 0) == text) take = false;
    log.push_back(std::string(m_entries.isNewRowEdit() ? "new " : "edit ") + (take ? "took " : "refused ") + text.toUtf8());
    *result = take ? TRUE : FALSE;
  }

  // A dialog with messages of its own: an empty field and a zero are its to refuse (the field
  // hands both over); it takes negative values.
  void ownCheck() {
    if (!m_own.GetModify()) return;
    ZelValueResult r = m_own.readVal();
    const bool zero = r.ok() && r.value == 0.0;
    if (r.error.kind() == CZelValueError::Kind::Empty) MessageBox(L"Eintragung notwendig", L"QENORA", MB_OK);
    else if (zero) MessageBox(L"Wert darf nicht Null sein", L"QENORA", MB_OK);
    const bool took = r.ok() && !zero;
    log.push_back(took ? "own=" + CZelString().format(L"%g", r.value).toUtf8() : "own refused");
    m_own.setVal(took ? r.value : 5.0);
  }
};

inline const CMessageMapEntry CZelCtlTestDlg::kEntries[] = {
  msgmap::word(IDC_ZT_LENGTH, EN_KILLFOCUS, L"len"),
  msgmap::word(IDC_ZT_INCH, EN_KILLFOCUS, L"rad"),
  msgmap::word(IDC_ZT_TEXT, EN_KILLFOCUS, L"text"),
  msgmap::word(IDC_ZT_OWN, EN_KILLFOCUS, L"own"),
  msgmap::word(IDC_ZT_COUNTRY, CBN_SELCHANGE, L"country"),
  msgmap::notify<&CZelCtlTestDlg::OnEndEdit>(IDC_ZT_ENTRIES, LVN_ENDLABELEDIT),
};
inline const CMessageMap CZelCtlTestDlg::kMessageMap{&CDialog::kMessageMap, kEntries,
                                                     msgmap::wordHandler<&CZelCtlTestDlg::command>()};

// The result of running the dialog under a script.
struct ZelCtlRun {
  int status = -1;
  std::string err;
};

inline ZelCtlRun runZelCtlScript(CZelCtlTestDlg& dlg, const std::string& text) {
  CDialogScript script;
  std::string error;
  EXPECT_TRUE(CDialogScript::parse(text, "zelctl.qds", script, error)) << error;
  std::ostringstream out, err;
  CScriptBackend backend(script, out, err);
  {
    CDialogBackendScope scope(backend);
    dlg.DoModal();
  }
  ZelCtlRun run;
  run.status = backend.finish();
  run.err = err.str() + out.str();
  return run;
}

// A backend that runs a dialog by code: the test's actions act on it as a person would, then it
// is cancelled; every message box on the way is kept (text, caption, type) and answered with its
// first button.
class CBoxRecorder : public CDialogBackend {
public:
  struct Box {
    std::string text;
    std::string caption;
    UINT type = 0;
  };
  std::vector<Box> boxes;
  std::function<void(CDialog&)> actions;

  void runModal(CDialog& dialog) override {
    if (auto* box = dynamic_cast<CMessageBoxDlg*>(&dialog)) {
      boxes.push_back({box->text().toUtf8(), box->caption().toUtf8(), box->type()});
      box->EndDialog(box->answers().empty() ? IDOK : box->answers().front());
      return;
    }
    if (actions) actions(dialog);
    if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
  }
  UINT trackPopupMenu(const CMenu&, CWnd*, CPoint) override { return 0; }
};

// Runs the dialog with `actions` under a recorder and gives what it recorded.
inline CBoxRecorder runZelCtl(CZelCtlTestDlg& dlg, std::function<void(CZelCtlTestDlg&)> actions) {
  CBoxRecorder recorder;
  recorder.actions = [&](CDialog&) { actions(dlg); };
  {
    CDialogBackendScope scope(recorder);
    dlg.DoModal();
  }
  recorder.actions = nullptr;
  return recorder;
}
