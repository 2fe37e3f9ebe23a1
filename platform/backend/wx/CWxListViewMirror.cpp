#include "backend/wx/CWxListViewMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CListCtrl.h"
#include "ui/CUserAction.h"

#include <wx/listctrl.h>

CListCtrl& CWxListViewMirror::view() const { return static_cast<CListCtrl&>(*m_control); }

wxListCtrl* CWxListViewMirror::list() const { return static_cast<wxListCtrl*>(m_native); }

bool CWxListViewMirror::takesKey(int key) {
  switch (key) {
    case WXK_UP:
    case WXK_DOWN:
    case WXK_HOME:
    case WXK_END:
    case WXK_DELETE: return true;
    default: return false;
  }
}

wxWindow* CWxListViewMirror::build(wxWindow* parent, const wxRect& rect) {
  DWORD style = m_control->GetStyle();
  long wxStyle = wxLC_REPORT | wxBORDER_THEME;
  if (style & LVS_SINGLESEL) wxStyle |= wxLC_SINGLE_SEL;
  if (style & LVS_EDITLABELS) wxStyle |= wxLC_EDIT_LABELS;
  if (view().GetExtendedStyle() & LVS_EX_GRIDLINES) wxStyle |= wxLC_HRULES | wxLC_VRULES;
  auto* l = new wxListCtrl(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), wxStyle);
  // The generic tree and list keep a font of their own unless given the dialog's.
  l->SetFont(m_window.dialogFont());
  CWnd* control = m_control;
  l->Bind(wxEVT_LIST_ITEM_SELECTED, [this, control](wxListEvent& event) {
    int row = static_cast<int>(event.GetIndex());
    act([control, row] { return CUserAction::select(*control, row); });
  });
  l->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this, control](wxListEvent& event) {
    int row = static_cast<int>(event.GetIndex());
    act([control, row] { return CUserAction::doubleClick(*control, row); });
  });
  auto check = [this, control](wxListEvent& event) {
    int row = static_cast<int>(event.GetIndex());
    bool on = event.GetEventType() == wxEVT_LIST_ITEM_CHECKED;
    act([control, row, on] { return CUserAction::setCheck(*control, row, on); });
  };
  l->Bind(wxEVT_LIST_ITEM_CHECKED, check);
  l->Bind(wxEVT_LIST_ITEM_UNCHECKED, check);
  l->Bind(wxEVT_LIST_BEGIN_LABEL_EDIT, &CWxListViewMirror::onBeginEdit, this);
  l->Bind(wxEVT_LIST_END_LABEL_EDIT, &CWxListViewMirror::onEndEdit, this);
  l->Bind(wxEVT_LIST_BEGIN_DRAG, [this](wxListEvent& event) {
    if (ignoringEvents()) return;
    m_dragFrom = static_cast<int>(event.GetIndex());
  });
  // The rows live in an inner window of the generic list: the drop is seen there.
  for (wxWindow* inner : l->GetChildren()) inner->Bind(wxEVT_LEFT_UP, &CWxListViewMirror::onDrop, this);
  return l;
}

void CWxListViewMirror::onDrop(wxMouseEvent& event) {
  event.Skip();
  int from = m_dragFrom;
  m_dragFrom = -1;
  if (from < 0 || ignoringEvents()) return;
  int flags = 0;
  wxPoint inList = list()->ScreenToClient(static_cast<wxWindow*>(event.GetEventObject())->ClientToScreen(event.GetPosition()));
  long to = list()->HitTest(inList, flags);
  if (to < 0 || to == from) return;
  CWnd* control = m_control;
  int target = static_cast<int>(to);
  act([control, from, target] { return CUserAction::dragRow(*control, from, target); });
}

void CWxListViewMirror::onBeginEdit(wxListEvent& event) {
  if (ignoringEvents()) {
    event.Veto();
    return;
  }
  int row = static_cast<int>(event.GetIndex());
  CListCtrl* v = &view();
  bool refused = false;
  // The model asks its dialog (LVN_BEGINLABELEDIT), which may refuse.
  act([v, row, &refused] {
    refused = v->EditLabel(row) == nullptr;
    return std::string();
  });
  if (refused) event.Veto();
}

void CWxListViewMirror::onEndEdit(wxListEvent& event) {
  // The row shows what the model keeps: the dialog's answer to LVN_ENDLABELEDIT decides.
  event.Veto();
  if (ignoringEvents()) return;
  CListCtrl* v = &view();
  int row = static_cast<int>(event.GetIndex());
  if (event.IsEditCancelled()) {
    act([v] {
      v->endLabelEdit(nullptr);
      return std::string();
    });
    return;
  }
  CZelString text(event.GetLabel().ToStdWstring());
  // The list is still in its editing state: the model's answer is shown after it has left.
  m_window.CallAfter([this, v, row, text] { act([v, row, text] { return CUserAction::editLabel(*v, row, text); }); });
}

CPoint CWxListViewMirror::modelPoint(wxPoint nativeClient) const {
  int flags = 0;
  long row = list()->HitTest(nativeClient, flags);
  CRect r;
  if (row < 0 || !view().GetItemRect(static_cast<int>(row), &r, 0)) return CPoint(nativeClient.x, -1);
  return r.CenterPoint();
}

void CWxListViewMirror::syncColumns() {
  CListCtrl& v = view();
  std::vector<Column> columns;
  for (int c = 0; c < v.columnCount(); ++c)
    columns.push_back(Column{v.columnHeading(c).str(), v.GetColumnWidth(c), 0});
  if (m_built && columns == m_columns) return;
  wxListCtrl* l = list();
  l->ClearAll();
  m_rows.clear();
  for (std::size_t c = 0; c < columns.size(); ++c) {
    // Column widths are the model's pixels.
    int width = m_window.units().fromModelPixels(CPoint(columns[c].width, 0)).x;
    l->InsertColumn(static_cast<long>(c), wxString(columns[c].heading), wxLIST_FORMAT_LEFT, width);
  }
  m_columns = std::move(columns);
  m_built = true;
}

void CWxListViewMirror::syncRows() {
  CListCtrl& v = view();
  wxListCtrl* l = list();
  int columns = std::max(1, v.columnCount());
  int n = v.GetItemCount();
  if (static_cast<int>(m_rows.size()) != n) {
    l->DeleteAllItems();
    m_rows.assign(static_cast<std::size_t>(n), {});
    for (int i = 0; i < n; ++i) l->InsertItem(i, wxString());
  }
  for (int i = 0; i < n; ++i) {
    auto& shown = m_rows[static_cast<std::size_t>(i)];
    shown.resize(static_cast<std::size_t>(columns), std::wstring(1, L'\x1'));
    for (int c = 0; c < columns; ++c) {
      std::wstring text = v.GetItemText(i, c).str();
      if (shown[static_cast<std::size_t>(c)] == text) continue;
      shown[static_cast<std::size_t>(c)] = text;
      l->SetItem(i, c, wxString(text));
    }
    bool selected = v.GetItemState(i, LVIS_SELECTED) != 0;
    if ((l->GetItemState(i, wxLIST_STATE_SELECTED) != 0) != selected)
      l->SetItemState(i, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
    if (m_checks && l->IsItemChecked(i) != (v.GetCheck(i) != 0)) l->CheckItem(i, v.GetCheck(i) != 0);
  }
}

void CWxListViewMirror::syncState() {
  syncColumns();
  bool checks = (view().GetExtendedStyle() & LVS_EX_CHECKBOXES) != 0;
  if (checks != m_checks) {
    m_checks = checks;
    list()->EnableCheckBoxes(checks);
  }
  syncRows();
}
