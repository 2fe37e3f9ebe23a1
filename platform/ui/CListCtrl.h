// The list view of the model, in report view: columns, rows with sub-item texts, item
// data, images, check marks, selection (full row), in-place editing of the label and the
// mouse messages a derived list needs for dragging rows.
#pragma once

#include "ui/CEdit.h"
#include "ui/CImageList.h"

#include <vector>

struct POSITION_ {};
using POSITION = POSITION_*;

class CListCtrl : public CWnd {
public:
  CListCtrl() = default;

  // Geometry of the rows in client pixels: the header, then one row after the other.
  static constexpr int kHeaderHeight = 20;
  static constexpr int kRowHeight = 16;

  int InsertColumn(int col, const wchar_t* heading, int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
  BOOL DeleteColumn(int col);
  int columnCount() const { return static_cast<int>(m_columns.size()); }
  CZelString columnHeading(int col) const;
  BOOL SetColumnWidth(int col, int width);
  int GetColumnWidth(int col) const;

  int InsertItem(int index, const wchar_t* text, int image = -1);
  int InsertItem(const LVITEM* item);
  BOOL DeleteItem(int index);
  BOOL DeleteAllItems();
  int GetItemCount() const { return static_cast<int>(m_rows.size()); }
  BOOL SetItemText(int index, int subItem, const wchar_t* text);
  CZelString GetItemText(int index, int subItem) const;
  BOOL SetItemData(int index, DWORD_PTR data);
  DWORD_PTR GetItemData(int index) const;
  BOOL SetItem(const LVITEM* item);
  BOOL GetItem(LVITEM* item) const;
  // Selection and focus states; a change sends LVN_ITEMCHANGED, as the framework's list does.
  BOOL SetItemState(int index, UINT state, UINT mask);
  UINT GetItemState(int index, UINT mask) const;
  BOOL SetCheck(int index, BOOL check = TRUE);
  BOOL GetCheck(int index) const;
  int GetNextItem(int start, UINT flags) const;
  UINT GetSelectedCount() const;
  POSITION GetFirstSelectedItemPosition() const;
  int GetNextSelectedItem(POSITION& pos) const;
  int GetSelectionMark() const { return m_selectionMark; }
  int SetSelectionMark(int index);
  BOOL EnsureVisible(int index, BOOL partialOk);
  int GetTopIndex() const { return m_top; }
  int GetCountPerPage() const;
  DWORD SetExtendedStyle(DWORD exStyle);
  DWORD GetExtendedStyle() const { return m_listExStyle; }
  CImageList* SetImageList(CImageList* images, int which);
  CImageList* GetImageList(int which) const;
  int HitTest(CPoint point, UINT* flags = nullptr) const;
  BOOL GetItemRect(int index, CRect* rect, UINT code) const;

  // In-place editing of a row's label: LVN_BEGINLABELEDIT (a handler may refuse), then the
  // edit field; ending it sends LVN_ENDLABELEDIT, and a handler answering TRUE keeps the text.
  CEdit* EditLabel(int index);
  CEdit* GetEditControl() const { return m_editing >= 0 ? m_labelEdit : nullptr; }
  int editingRow() const { return m_editing; }
  void endLabelEdit(const CZelString* text);  // none: cancelled

  // What the user does: click a row (it becomes the only selected one), double-click it,
  // click its check mark.
  void selectByUser(int index);
  void doubleClickByUser(int index);
  void checkByUser(int index, BOOL check);
  void rightClickByUser(int index);

protected:
  UINT setFocusCode() const override { return NM_SETFOCUS; }
  UINT killFocusCode() const override { return NM_KILLFOCUS; }
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnMouseMove(UINT flags, CPoint point) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::ListView; }
  void takeStateFrom(CWnd& other) override;
  void onCreated() override;
  // After the in-place editing of `row` has ended and the parent has answered LVN_ENDLABELEDIT
  // (kept: it took the new text); for lists that tidy up after an edit.
  virtual void onLabelEditEnded(int row, bool kept) {}

private:
  struct Row {
    std::vector<CZelString> texts;
    DWORD_PTR data = 0;
    int image = -1;
    UINT state = 0;  // LVIS_SELECTED, LVIS_FOCUSED and the state image (check mark) in bits 12-15
  };
  struct Column {
    CZelString heading;
    int format = LVCFMT_LEFT;
    int width = 60;
  };
  bool valid(int i) const { return i >= 0 && i < GetItemCount(); }
  void changeState(int index, UINT state, UINT mask);

  std::vector<Column> m_columns;
  std::vector<Row> m_rows;
  DWORD m_listExStyle = 0;
  CImageList* m_smallImages = nullptr;
  CImageList* m_stateImages = nullptr;
  int m_selectionMark = -1;
  int m_top = 0;
  int m_editing = -1;
  CEdit* m_labelEdit = nullptr;
  int m_pressRow = -1;
  bool m_dragging = false;
};
