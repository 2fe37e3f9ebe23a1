// Report list views: columns, rows with their sub-item texts, check marks, selection and
// in-place editing of a row's label. A click on a row is the model's selection (NM_CLICK,
// LVN_ITEMCHANGED), a click on a mark its check, editing a label the model's
// LVN_BEGINLABELEDIT and LVN_ENDLABELEDIT; keys go to the model (LVN_KEYDOWN, arrows);
// dragging a row onto another is the model's drag.
#pragma once

#include "backend/wx/CWxMirror.h"

#include <string>
#include <vector>

class CListCtrl;
class wxListCtrl;
class wxListEvent;
class wxMouseEvent;

class CWxListViewMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

  // A point of the list's rows as the model counts them: the middle of the model's row.
  CPoint modelPoint(wxPoint nativeClient) const override;
  // Keys the model's list handles itself (arrows, Home, End, Delete …).
  static bool takesKey(int wxKey);

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}

private:
  CListCtrl& view() const;
  wxListCtrl* list() const;
  void syncColumns();
  void syncRows();
  void onBeginEdit(wxListEvent& event);
  void onEndEdit(wxListEvent& event);
  void onDrop(wxMouseEvent& event);

  struct Column {
    std::wstring heading;
    int width;
    int format;
    friend bool operator==(const Column&, const Column&) = default;
  };
  std::vector<Column> m_columns;
  std::vector<std::vector<std::wstring>> m_rows;
  bool m_checks = false;
  bool m_built = false;
  int m_dragFrom = -1;
};
