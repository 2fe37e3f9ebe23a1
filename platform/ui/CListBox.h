// The list box of the model: lines with item data, single or multiple selection, sorted or
// not. Selection notifications need LBS_NOTIFY, as in the framework.
#pragma once

#include "ui/CListItems.h"
#include "ui/CWnd.h"

class CListBox : public CWnd {
public:
  CListBox() = default;

  int GetCount() const { return m_items.count(); }
  int GetCurSel() const;
  int SetCurSel(int index);
  int GetSel(int index) const;
  int SetSel(int index, BOOL select = TRUE);
  int GetSelCount() const;
  int GetSelItems(int max, int* indexes) const;
  int GetCaretIndex() const { return m_caret; }
  int SetCaretIndex(int index, BOOL = TRUE);
  int GetTopIndex() const { return m_top; }
  int SetTopIndex(int index);
  int AddString(const wchar_t* text);
  int InsertString(int index, const wchar_t* text);
  int DeleteString(UINT index);
  void ResetContent();
  int GetText(int index, CZelString& text) const;
  CZelString GetText(int index) const { return m_items.valid(index) ? m_items.at(index).text : CZelString(); }
  int GetTextLen(int index) const { return m_items.valid(index) ? m_items.at(index).text.len() : LB_ERR; }
  int FindString(int start, const wchar_t* text) const { return m_items.findPrefix(start, text); }
  int FindStringExact(int start, const wchar_t* text) const { return m_items.findExact(start, text); }
  int SelectString(int start, const wchar_t* text);
  int SetItemData(int index, DWORD_PTR data);
  DWORD_PTR GetItemData(int index) const;

  bool isMultiSelect() const { return (m_style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }
  // What a click on a line does: it becomes the (only) selected line, then LBN_SELCHANGE.
  void selectByUser(int index);
  void doubleClickByUser(int index);

protected:
  UINT setFocusCode() const override { return (m_style & LBS_NOTIFY) ? LBN_SETFOCUS : 0; }
  UINT killFocusCode() const override { return (m_style & LBS_NOTIFY) ? LBN_KILLFOCUS : 0; }
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::ListBox || kind == WndKind::CheckListBox; }
  void takeStateFrom(CWnd& other) override;

  CListItems m_items;

private:
  int m_cursel = -1;
  int m_caret = -1;
  int m_top = 0;
};
