// The combo box of the model: simple, drop-down (with its edit field, control 1001, as
// in the framework) and drop-down list, sorted or not, with item data.
#pragma once

#include "ui/CEdit.h"
#include "ui/CListItems.h"

constexpr int kComboEditId = 1001;

class CComboBox : public CWnd {
public:
  CComboBox() = default;

  int GetCount() const { return m_items.count(); }
  int GetCurSel() const { return m_cursel; }
  int SetCurSel(int index);
  int AddString(const wchar_t* text);
  int InsertString(int index, const wchar_t* text);
  int DeleteString(UINT index);
  void ResetContent();
  int GetLBText(int index, CZelString& text) const;
  CZelString GetLBText(int index) const;
  int GetLBTextLen(int index) const;
  int FindString(int start, const wchar_t* text) const { return m_items.findPrefix(start, text); }
  int FindStringExact(int start, const wchar_t* text) const { return m_items.findExact(start, text); }
  int SelectString(int start, const wchar_t* text);
  int SetItemData(int index, DWORD_PTR data);
  DWORD_PTR GetItemData(int index) const;
  BOOL LimitText(int max) { m_limit = max; return TRUE; }
  BOOL SetEditSel(int, int) { return hasEdit(); }

  bool hasEdit() const { return (m_style & 0x3) != CBS_DROPDOWNLIST; }
  // The combo's edit field (drop-down and simple combos), where typed keys go.
  CEdit* editField() const { return m_edit; }

  // What the user does: pick a line from the list, or type into the edit field.
  void selectByUser(int index);
  void typeByUser(const CZelString& text);

protected:
  CZelString windowText() const override;
  void onSetText(const CZelString& text) override;
  UINT setFocusCode() const override { return CBN_SETFOCUS; }
  UINT killFocusCode() const override { return CBN_KILLFOCUS; }
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::ComboBox; }
  void takeStateFrom(CWnd& other) override;
  void onCreated() override;

private:
  CListItems m_items;
  int m_cursel = -1;
  int m_limit = 0;
  CZelString m_editText;
  CEdit* m_edit = nullptr;
};
