// The standard list of the labeling dialog: rows, check marks, keys and dragging.
#include "attributes/CLabelingStandLst.h"

#include "resources/dialogs/labeling_ids.h"

#include <algorithm>
#include <cstdlib>

void CLabelingStandLst::setRows(const std::vector<Row>& rows, int selectBit) {
  m_filling = true;
  DeleteAllItems();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& r = rows[i];
    // The last row never shows a break: nothing follows it on the tab.
    const bool last = i + 1 == rows.size();
    const int row = InsertItem(GetItemCount(), r.name.c_str(), r.breakAfter && !last ? kImageBreak : kImageNoBreak);
    SetItemData(row, static_cast<DWORD_PTR>(r.bit));
    SetCheck(row, r.checked);
  }
  int selected = -1;
  for (int i = 0; i < GetItemCount() && selected < 0; ++i)
    if (bitAt(i) == selectBit) selected = i;
  setCurSel(selected);
  m_filling = false;
}

void CLabelingStandLst::tellParent(UINT message, WPARAM wParam, LPARAM lParam) {
  if (CWnd* parent = GetParent()) parent->SendMessage(message, wParam, lParam);
}

bool CLabelingStandLst::OnChildNotify(UINT message, WPARAM, LPARAM lParam, LRESULT*) {
  if (message != WM_NOTIFY || m_filling) return false;
  const auto* nm = reinterpret_cast<const NMLISTVIEW*>(lParam);
  if (nm->hdr.code != LVN_ITEMCHANGED) return false;
  const UINT oldCheck = nm->uOldState & LVIS_STATEIMAGEMASK;
  const UINT newCheck = nm->uNewState & LVIS_STATEIMAGEMASK;
  if (oldCheck != newCheck && oldCheck != 0)
    tellParent(WM_LBL_CHECKED, static_cast<WPARAM>(nm->iItem), GetCheck(nm->iItem) ? 1 : 0);
  if ((nm->uNewState & LVIS_SELECTED) && !(nm->uOldState & LVIS_SELECTED))
    tellParent(WM_LBL_STAND_SELECT, static_cast<WPARAM>(nm->iItem), 0);
  return false;
}

void CLabelingStandLst::OnLButtonDown(UINT flags, CPoint point) {
  CZelListCtrl::OnLButtonDown(flags, point);
  m_pressRow = HitTest(point);
  m_pressPoint = point;
}

void CLabelingStandLst::OnLButtonUp(UINT flags, CPoint point) {
  CZelListCtrl::OnLButtonUp(flags, point);
  const int from = m_pressRow;
  m_pressRow = -1;
  const int to = HitTest(point);
  if (from < 0 || to < 0 || to == from) return;
  if (std::abs(point.y - m_pressPoint.y) <= kDragThreshold) return;
  tellParent(WM_LBL_DRAGGED, static_cast<WPARAM>(from), static_cast<LPARAM>(to));
}

void CLabelingStandLst::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  if (key != VK_HOME && key != VK_END && key != VK_UP && key != VK_DOWN) {
    CZelListCtrl::OnKeyDown(key, repeat, flags);
    return;
  }
  // The list keeps these keys to itself and never wraps around.
  const int n = GetItemCount();
  if (n == 0) return;
  const int cur = getCurSel();
  int next = cur;
  if (key == VK_HOME) next = 0;
  else if (key == VK_END) next = n - 1;
  else if (key == VK_UP) next = cur < 0 ? 0 : std::max(0, cur - 1);
  else next = cur < 0 ? 0 : std::min(n - 1, cur + 1);
  if (next != cur) setCurSel(next);
}
