// The message box as a modal dialog of the model (template 32001): text, caption, icon and
// the buttons of its type, so that the backend and scripts answer it like any dialog.
#pragma once

#include "ui/CDialog.h"

#include <vector>

class CMessageBoxDlg : public CDialog {
public:
  CMessageBoxDlg(CZelString text, CZelString caption, UINT type, CWnd* owner);

  const CZelString& text() const { return m_text; }
  const CZelString& caption() const { return m_caption; }
  UINT type() const { return m_type; }
  // The answers the box offers (IDOK, IDCANCEL, IDYES …) in their order, and the default.
  std::vector<int> answers() const;
  int defaultAnswer() const;
  bool isMessageBox() const override { return true; }

  BOOL OnInitDialog() override;
  void OnCancel() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void OnAnswer(UINT id);

  CZelString m_text;
  CZelString m_caption;
  UINT m_type;
};
