// The dialog of the model: created from its template, run modally through the backend
// (DoModal, EndDialog, OnInitDialog, OnOK, OnCancel) or created as a child dialog inside
// another window (tab pages), with the dialog keys (Enter, Escape, Tab) and typed lookup of
// its controls that fails loudly on a missing ID or a control of another kind.
#pragma once

#include "ui/CWnd.h"

class CButton;
class CCheckListBox;
class CComboBox;
class CDialogTemplate;
class CEdit;
class CLinkCtrl;
class CListBox;
class CListCtrl;
class CStatic;
class CTabCtrl;
class CTreeCtrl;

// Dialog data exchange: whether UpdateData reads the controls (save) or fills them.
class CDataExchange {
public:
  CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_pDlgWnd(dialog), m_bSaveAndValidate(saveAndValidate) {}
  CWnd* m_pDlgWnd;
  BOOL m_bSaveAndValidate;
};

// Puts a member control in place of the template's control with that ID.
void DDX_Control(CDataExchange* dx, int id, CWnd& control);

class CDialog : public CWnd {
public:
  explicit CDialog(UINT templateId = 0, CWnd* parent = nullptr);
  ~CDialog() override;

  virtual INT_PTR DoModal();
  // A child dialog inside `parent` (a tab page in its tab control); throws CDialogError
  // when the template is missing, like the typed lookups.
  virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
  void EndDialog(int result);
  virtual BOOL OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();
  virtual void DoDataExchange(CDataExchange* dx) {}
  BOOL UpdateData(BOOL saveAndValidate = TRUE);
  BOOL PreTranslateMessage(MSG* msg) override;
  // Enter, Escape and Tab, as the framework's dialog manager handles them.
  BOOL IsDialogMessage(MSG* msg);
  void SetDefID(UINT id) { m_defId = id; }
  DWORD GetDefID() const { return m_defId; }
  void GotoDlgCtrl(CWnd* control);
  void NextDlgCtrl();
  int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT type = MB_OK);

  UINT templateId() const { return m_templateId; }
  const CDialogTemplate* dialogTemplate() const { return m_template; }
  bool isModal() const { return m_modal; }
  bool isEnded() const { return m_ended; }
  INT_PTR result() const { return m_result; }
  virtual bool isMessageBox() const { return false; }
  // The child dialogs inside this dialog, at any depth (tab pages), in creation order.
  std::vector<CDialog*> childDialogs() const;

  // Typed lookup of this dialog's controls.
  CButton& button(int id) const;
  CEdit& edit(int id) const;
  CStatic& staticCtrl(int id) const;
  CComboBox& combo(int id) const;
  CListBox& listBox(int id) const;
  CCheckListBox& checkList(int id) const;
  CTreeCtrl& tree(int id) const;
  CTabCtrl& tabCtrl(int id) const;
  CListCtrl& listCtrl(int id) const;
  CLinkCtrl& link(int id) const;
  CWnd& control(int id) const;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

protected:
  // After the template's controls exist and before OnInitDialog: where a dialog base
  // puts its texts, tooltips and member controls on the controls.
  virtual void OnControlsCreated() {}
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  CWnd* m_pParentWnd = nullptr;

private:
  template <class T>
  T& typed(int id, const char* wanted) const;
  void createFromTemplate(const CDialogTemplate& tpl, CWnd* parent);
  void focusFirstControl();
  std::string describe() const;

  UINT m_templateId = 0;
  const CDialogTemplate* m_template = nullptr;
  UINT m_defId = IDOK;
  bool m_modal = false;
  bool m_ended = false;
  INT_PTR m_result = -1;
};

// A message box owned by the current dialog (the framework's AfxMessageBox).
int AfxMessageBox(const wchar_t* text, UINT type = MB_OK, UINT helpId = 0);
