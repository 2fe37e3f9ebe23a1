// Small dialogs that exercise the framework as the module's dialogs will: a main dialog with
// a tab control and two pages that talk to it by private messages (32786 refresh, 32793 new
// object data, 10112 refresh page), radios, lists, a tree, a list view, a context menu, a
// message box and a sub-dialog. They keep their values in the store section "*TEST*".
#pragma once

#include "module/CQenEntryDialog.h"
#include "tests/dialogs/test_ids.h"
#include "ui/CDialog.h"
#include "ui/CEdit.h"

class CZelDataItem;

// Private messages of the accessory dialogs.
constexpr UINT WM_QEN_REFRESH = 32786;
constexpr UINT WM_QEN_OBJECT = 32793;
constexpr UINT WM_QEN_REFRESH_PAGE = 10112;

namespace testdlg {
// The store value at "*TEST*\KEY" as store-file JSON ("" when absent).
std::string stored(const wchar_t* key);
void storeString(const wchar_t* key, const CZelString& value);
void storeInt(const wchar_t* key, int value);
void storeReal(const wchar_t* key, double value);
}  // namespace testdlg

class CTestPage : public CDialog {
public:
  CTestPage() : CDialog(IDD_TEST_PAGE) {}
  BOOL OnInitDialog() override;
  void refresh();
  int refreshCount = 0;
  CZelDataItem* pageItem = nullptr;
  CEdit m_width;  // a member control put in place of the template's edit

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  LRESULT OnPosted(WPARAM, LPARAM);
  LRESULT OnRefreshPage(WPARAM, LPARAM);
  bool m_busy = false;
};

class CTestAdminPage : public CDialog {
public:
  CTestAdminPage() : CDialog(IDD_TEST_ADMIN) {}
  BOOL OnInitDialog() override { CDialog::OnInitDialog(); return FALSE; }
  CZelDataItem* pageItem = nullptr;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void OnRefreshAdmin();
};

class CTestSubDlg : public CDialog {
public:
  explicit CTestSubDlg(CWnd* parent) : CDialog(IDD_TEST_SUB, parent) {}
  void OnOK() override;
  CZelString text;
};

class CTestMainDlg : public CDialog, public CQenEntryDialog {
public:
  explicit CTestMainDlg(CWnd* parent = nullptr) : CDialog(IDD_TEST_MAIN, parent) {}

  void SetCountry(const CZelString&) override {}
  void SetHelpFile(const CZelString& file) override { helpFile = file; }
  void SetHelpTopic(const CZelString& topic) override { helpTopic = topic; }
  INT_PTR DoModal() override { return CDialog::DoModal(); }

  BOOL OnInitDialog() override;
  BOOL PreTranslateMessage(MSG* msg) override;
  void OnOK() override;

  CTestPage page;
  CTestAdminPage admin;
  int refreshCount = 0;
  int refreshesBeforePages = 0;
  CZelDataItem* objectItem = nullptr;
  CZelString helpFile;
  CZelString helpTopic = L"qen_test";

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  void showPage(int index);
  void OnTabChange(NMHDR*, LRESULT*);
  void OnTreeSelect(NMHDR*, LRESULT*);
  void OnEndLabel(NMHDR* hdr, LRESULT* result);
  void OnBeginDrag(NMHDR* hdr, LRESULT*);
  void OnContextMenu(CWnd* wnd, CPoint point) override;
  LRESULT OnRefresh(WPARAM, LPARAM);
  LRESULT OnObject(WPARAM, LPARAM lParam);
  LRESULT OnRefreshPage(WPARAM, LPARAM);
};
