#include "ui/CListCtrl.h"

#include <algorithm>

namespace {
constexpr UINT stateImage(int i) { return static_cast<UINT>(i) << 12; }
}  // namespace

void CListCtrl::onCreated() {
  auto edit = std::make_unique<CEdit>();
  m_labelEdit = edit.get();
  adoptChild(std::move(edit));
  m_labelEdit->createWindow(this, 0, WndKind::Edit, WS_CHILD | ES_AUTOHSCROLL, 0, CZelString(), CRect(0, 0, 60, 10));
  m_editing = -1;
}

int CListCtrl::InsertColumn(int col, const wchar_t* heading, int format, int width, int) {
  if (col < 0) return -1;
  if (col > columnCount()) col = columnCount();
  m_columns.insert(m_columns.begin() + col, Column{CZelString(heading ? heading : L""), format, width < 0 ? 60 : width});
  for (Row& r : m_rows)
    if (col > 0 && static_cast<int>(r.texts.size()) >= col) r.texts.insert(r.texts.begin() + col, CZelString());
  return col;
}

BOOL CListCtrl::DeleteColumn(int col) {
  if (col < 0 || col >= columnCount()) return FALSE;
  m_columns.erase(m_columns.begin() + col);
  for (Row& r : m_rows)
    if (col < static_cast<int>(r.texts.size()) && r.texts.size() > 1) r.texts.erase(r.texts.begin() + col);
  return TRUE;
}

CZelString CListCtrl::columnHeading(int col) const {
  return col >= 0 && col < columnCount() ? m_columns[static_cast<std::size_t>(col)].heading : CZelString();
}

BOOL CListCtrl::SetColumnWidth(int col, int width) {
  if (col < 0 || col >= columnCount()) return FALSE;
  m_columns[static_cast<std::size_t>(col)].width = width;
  return TRUE;
}

int CListCtrl::GetColumnWidth(int col) const {
  return col >= 0 && col < columnCount() ? m_columns[static_cast<std::size_t>(col)].width : 0;
}

int CListCtrl::InsertItem(int index, const wchar_t* text, int image) {
  LVITEM item;
  item.mask = LVIF_TEXT | LVIF_IMAGE;
  item.iItem = index;
  item.pszText = text;
  item.iImage = image;
  return InsertItem(&item);
}

int CListCtrl::InsertItem(const LVITEM* item) {
  if (!item || item->iItem < 0) return -1;
  int index = std::min(item->iItem, GetItemCount());
  Row row;
  row.texts.push_back((item->mask & LVIF_TEXT) && item->pszText ? CZelString(item->pszText) : CZelString());
  if (item->mask & LVIF_IMAGE) row.image = item->iImage;
  if (item->mask & LVIF_PARAM) row.data = static_cast<DWORD_PTR>(item->lParam);
  if (item->mask & LVIF_STATE) row.state = item->state & item->stateMask;
  if ((m_listExStyle & LVS_EX_CHECKBOXES) && !(row.state & LVIS_STATEIMAGEMASK)) row.state |= stateImage(1);
  m_rows.insert(m_rows.begin() + index, row);
  if (m_selectionMark >= index) ++m_selectionMark;
  if (m_editing >= index) ++m_editing;
  return index;
}

BOOL CListCtrl::DeleteItem(int index) {
  if (!valid(index)) return FALSE;
  m_rows.erase(m_rows.begin() + index);
  if (m_selectionMark == index) m_selectionMark = -1;
  else if (m_selectionMark > index) --m_selectionMark;
  if (m_editing == index) endLabelEdit(nullptr);
  else if (m_editing > index) --m_editing;
  return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
  if (m_editing >= 0) endLabelEdit(nullptr);
  m_rows.clear();
  m_selectionMark = -1;
  m_top = 0;
  return TRUE;
}

BOOL CListCtrl::SetItemText(int index, int subItem, const wchar_t* text) {
  if (!valid(index) || subItem < 0) return FALSE;
  auto& texts = m_rows[static_cast<std::size_t>(index)].texts;
  if (static_cast<int>(texts.size()) <= subItem) texts.resize(static_cast<std::size_t>(subItem) + 1);
  texts[static_cast<std::size_t>(subItem)] = CZelString(text ? text : L"");
  return TRUE;
}

CZelString CListCtrl::GetItemText(int index, int subItem) const {
  if (!valid(index) || subItem < 0) return CZelString();
  const auto& texts = m_rows[static_cast<std::size_t>(index)].texts;
  return subItem < static_cast<int>(texts.size()) ? texts[static_cast<std::size_t>(subItem)] : CZelString();
}

BOOL CListCtrl::SetItemData(int index, DWORD_PTR data) {
  if (!valid(index)) return FALSE;
  m_rows[static_cast<std::size_t>(index)].data = data;
  return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int index) const { return valid(index) ? m_rows[static_cast<std::size_t>(index)].data : 0; }

BOOL CListCtrl::SetItem(const LVITEM* item) {
  if (!item || !valid(item->iItem)) return FALSE;
  Row& row = m_rows[static_cast<std::size_t>(item->iItem)];
  if (item->mask & LVIF_TEXT) SetItemText(item->iItem, item->iSubItem, item->pszText);
  if (item->mask & LVIF_IMAGE) row.image = item->iImage;
  if (item->mask & LVIF_PARAM) row.data = static_cast<DWORD_PTR>(item->lParam);
  if (item->mask & LVIF_STATE) changeState(item->iItem, item->state, item->stateMask);
  return TRUE;
}

BOOL CListCtrl::GetItem(LVITEM* item) const {
  if (!item || !valid(item->iItem)) return FALSE;
  const Row& row = m_rows[static_cast<std::size_t>(item->iItem)];
  if (item->mask & LVIF_IMAGE) item->iImage = row.image;
  if (item->mask & LVIF_PARAM) item->lParam = static_cast<LPARAM>(row.data);
  if (item->mask & LVIF_STATE) item->state = row.state & item->stateMask;
  return TRUE;
}

void CListCtrl::changeState(int index, UINT state, UINT mask) {
  Row& row = m_rows[static_cast<std::size_t>(index)];
  UINT old = row.state;
  row.state = (row.state & ~mask) | (state & mask);
  if (row.state == old || !m_hWnd) return;
  if ((row.state & LVIS_SELECTED) && !(old & LVIS_SELECTED)) m_selectionMark = index;
  NMLISTVIEW nm;
  nm.iItem = index;
  nm.uNewState = row.state;
  nm.uOldState = old;
  nm.uChanged = LVIF_STATE;
  nm.lParam = static_cast<LPARAM>(row.data);
  notifyParent(nm.hdr, LVN_ITEMCHANGED);
}

BOOL CListCtrl::SetItemState(int index, UINT state, UINT mask) {
  if (index == -1) {
    for (int i = 0; i < GetItemCount(); ++i) changeState(i, state, mask);
    return TRUE;
  }
  if (!valid(index)) return FALSE;
  changeState(index, state, mask);
  return TRUE;
}

UINT CListCtrl::GetItemState(int index, UINT mask) const {
  return valid(index) ? m_rows[static_cast<std::size_t>(index)].state & mask : 0;
}

BOOL CListCtrl::SetCheck(int index, BOOL check) {
  if (!valid(index)) return FALSE;
  changeState(index, stateImage(check ? 2 : 1), LVIS_STATEIMAGEMASK);
  return TRUE;
}

BOOL CListCtrl::GetCheck(int index) const {
  return valid(index) && ((m_rows[static_cast<std::size_t>(index)].state & LVIS_STATEIMAGEMASK) >> 12) == 2;
}

int CListCtrl::GetNextItem(int start, UINT flags) const {
  for (int i = start + 1; i < GetItemCount(); ++i) {
    UINT s = m_rows[static_cast<std::size_t>(i)].state;
    if ((flags & LVNI_SELECTED) && !(s & LVIS_SELECTED)) continue;
    if ((flags & LVNI_FOCUSED) && !(s & LVIS_FOCUSED)) continue;
    return i;
  }
  return -1;
}

UINT CListCtrl::GetSelectedCount() const {
  return static_cast<UINT>(std::count_if(m_rows.begin(), m_rows.end(), [](const Row& r) { return (r.state & LVIS_SELECTED) != 0; }));
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const {
  int i = GetNextItem(-1, LVNI_SELECTED);
  return i < 0 ? nullptr : reinterpret_cast<POSITION>(static_cast<std::intptr_t>(i + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const {
  int index = static_cast<int>(reinterpret_cast<std::intptr_t>(pos)) - 1;
  int next = GetNextItem(index, LVNI_SELECTED);
  pos = next < 0 ? nullptr : reinterpret_cast<POSITION>(static_cast<std::intptr_t>(next + 1));
  return index;
}

int CListCtrl::SetSelectionMark(int index) {
  int old = m_selectionMark;
  m_selectionMark = index;
  return old;
}

int CListCtrl::GetCountPerPage() const { return std::max(1, (m_rect.Height() - kHeaderHeight) / kRowHeight); }

BOOL CListCtrl::EnsureVisible(int index, BOOL) {
  if (!valid(index)) return FALSE;
  if (index < m_top) m_top = index;
  else if (index >= m_top + GetCountPerPage()) m_top = index - GetCountPerPage() + 1;
  return TRUE;
}

DWORD CListCtrl::SetExtendedStyle(DWORD exStyle) {
  DWORD old = m_listExStyle;
  m_listExStyle = exStyle;
  if ((exStyle & LVS_EX_CHECKBOXES) && !(old & LVS_EX_CHECKBOXES))
    for (Row& r : m_rows)
      if (!(r.state & LVIS_STATEIMAGEMASK)) r.state |= stateImage(1);
  return old;
}

CImageList* CListCtrl::SetImageList(CImageList* images, int which) {
  CImageList*& slot = which == LVSIL_STATE ? m_stateImages : m_smallImages;
  CImageList* old = slot;
  slot = images;
  return old;
}

CImageList* CListCtrl::GetImageList(int which) const { return which == LVSIL_STATE ? m_stateImages : m_smallImages; }

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
  if (flags) *flags = 0;
  if (point.y < kHeaderHeight || point.x < 0 || point.x >= m_rect.Width()) return -1;
  int row = (point.y - kHeaderHeight) / kRowHeight + m_top;
  return valid(row) ? row : -1;
}

BOOL CListCtrl::GetItemRect(int index, CRect* rect, UINT) const {
  if (!valid(index) || !rect) return FALSE;
  int top = kHeaderHeight + (index - m_top) * kRowHeight;
  *rect = CRect(0, top, m_rect.Width(), top + kRowHeight);
  return TRUE;
}

CEdit* CListCtrl::EditLabel(int index) {
  if (!valid(index)) return nullptr;
  if (m_editing >= 0) endLabelEdit(nullptr);
  NMLVDISPINFO info;
  info.item.iItem = index;
  CZelString current = GetItemText(index, 0);
  info.item.pszText = current.c_str();
  info.item.lParam = static_cast<LPARAM>(GetItemData(index));
  if (notifyParent(info.hdr, LVN_BEGINLABELEDIT)) return nullptr;
  m_editing = index;
  m_labelEdit->SetWindowText(current);
  m_labelEdit->ShowWindow(SW_SHOW);
  return m_labelEdit;
}

void CListCtrl::endLabelEdit(const CZelString* text) {
  if (m_editing < 0) return;
  int row = m_editing;
  m_editing = -1;
  m_labelEdit->ShowWindow(SW_HIDE);
  NMLVDISPINFO info;
  info.item.iItem = row;
  info.item.mask = LVIF_TEXT;
  info.item.pszText = text ? text->c_str() : nullptr;
  info.item.lParam = static_cast<LPARAM>(GetItemData(row));
  LRESULT keep = notifyParent(info.hdr, LVN_ENDLABELEDIT);
  const bool kept = text && keep;
  if (kept && valid(row)) SetItemText(row, 0, text->c_str());
  if (m_hWnd) onLabelEditEnded(row, kept);
}

void CListCtrl::selectByUser(int index) {
  for (int i = 0; i < GetItemCount(); ++i)
    if (i != index) changeState(i, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (valid(index)) changeState(index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  NMLISTVIEW nm;
  nm.iItem = index;
  notifyParent(nm.hdr, NM_CLICK);
}

void CListCtrl::doubleClickByUser(int index) {
  selectByUser(index);
  NMLISTVIEW nm;
  nm.iItem = index;
  notifyParent(nm.hdr, NM_DBLCLK);
}

void CListCtrl::checkByUser(int index, BOOL check) { SetCheck(index, check); }

void CListCtrl::rightClickByUser(int index) {
  if (valid(index) && !GetItemState(index, LVIS_SELECTED)) {
    for (int i = 0; i < GetItemCount(); ++i)
      if (i != index) changeState(i, 0, LVIS_SELECTED | LVIS_FOCUSED);
    changeState(index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  }
  NMLISTVIEW nm;
  nm.iItem = index;
  notifyParent(nm.hdr, NM_RCLICK);
}

void CListCtrl::OnLButtonDown(UINT, CPoint point) {
  SetFocus();
  int row = HitTest(point);
  selectByUser(row);
  m_pressRow = row;
  m_dragging = false;
}

void CListCtrl::OnMouseMove(UINT flags, CPoint point) {
  if (!(flags & MK_LBUTTON) || m_pressRow < 0 || m_dragging) return;
  m_dragging = true;
  NMLISTVIEW nm;
  nm.iItem = m_pressRow;
  nm.ptAction = point;
  notifyParent(nm.hdr, LVN_BEGINDRAG);
}

void CListCtrl::OnLButtonUp(UINT, CPoint) {
  m_pressRow = -1;
  m_dragging = false;
}

void CListCtrl::OnKeyDown(UINT key, UINT, UINT) {
  NMLVKEYDOWN kd;
  kd.wVKey = key;
  notifyParent(kd.hdr, LVN_KEYDOWN);
  int n = GetItemCount();
  if (n == 0) return;
  int cur = GetNextItem(-1, LVNI_SELECTED);
  int next = cur;
  if (key == VK_UP) next = std::max(0, cur - 1);
  else if (key == VK_DOWN) next = std::min(n - 1, cur + 1);
  else if (key == VK_HOME) next = 0;
  else if (key == VK_END) next = n - 1;
  else return;
  if (next == cur) return;
  for (int i = 0; i < n; ++i)
    if (i != next) changeState(i, 0, LVIS_SELECTED | LVIS_FOCUSED);
  changeState(next, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  EnsureVisible(next, FALSE);
}

void CListCtrl::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* l = dynamic_cast<CListCtrl*>(&other)) {
    m_columns = l->m_columns;
    m_rows = l->m_rows;
    m_listExStyle = l->m_listExStyle;
    m_smallImages = l->m_smallImages;
    m_stateImages = l->m_stateImages;
    m_selectionMark = l->m_selectionMark;
    m_top = l->m_top;
  }
}
