#include "ui/CListBox.h"

#include <algorithm>

int CListBox::GetCurSel() const {
  if (!isMultiSelect()) return m_cursel;
  return m_items.valid(m_caret) ? m_caret : LB_ERR;
}

int CListBox::SetCurSel(int index) {
  if (isMultiSelect()) return LB_ERR;
  m_cursel = m_items.valid(index) ? index : -1;
  if (m_cursel >= 0) m_caret = m_cursel;
  return index < 0 ? LB_ERR : m_cursel;
}

int CListBox::GetSel(int index) const {
  if (!m_items.valid(index)) return LB_ERR;
  return isMultiSelect() ? m_items.at(index).selected : index == m_cursel;
}

int CListBox::SetSel(int index, BOOL select) {
  if (!isMultiSelect()) {
    if (select) return SetCurSel(index) == LB_ERR ? LB_ERR : 0;
    if (index == m_cursel || index < 0) m_cursel = -1;
    return 0;
  }
  if (index == -1) {
    for (int i = 0; i < m_items.count(); ++i) m_items.at(i).selected = select != 0;
    return 0;
  }
  if (!m_items.valid(index)) return LB_ERR;
  m_items.at(index).selected = select != 0;
  m_caret = index;
  return 0;
}

int CListBox::GetSelCount() const {
  if (!isMultiSelect()) return LB_ERR;
  int n = 0;
  for (int i = 0; i < m_items.count(); ++i) n += m_items.at(i).selected;
  return n;
}

int CListBox::GetSelItems(int max, int* indexes) const {
  if (!isMultiSelect()) return LB_ERR;
  int n = 0;
  for (int i = 0; i < m_items.count() && n < max; ++i)
    if (m_items.at(i).selected) indexes[n++] = i;
  return n;
}

int CListBox::SetCaretIndex(int index, BOOL) {
  if (!m_items.valid(index)) return LB_ERR;
  m_caret = index;
  return 0;
}

int CListBox::SetTopIndex(int index) {
  if (!m_items.valid(index)) return LB_ERR;
  m_top = index;
  return 0;
}

int CListBox::AddString(const wchar_t* text) {
  int i = m_items.add(CZelString(text), (m_style & LBS_SORT) != 0);
  if (m_cursel >= i) ++m_cursel;
  return i;
}

int CListBox::InsertString(int index, const wchar_t* text) {
  int i = m_items.insert(index, CZelString(text));
  if (i >= 0 && m_cursel >= i) ++m_cursel;
  return i < 0 ? LB_ERR : i;
}

int CListBox::DeleteString(UINT index) {
  int i = static_cast<int>(index);
  if (!m_items.remove(i)) return LB_ERR;
  if (m_cursel == i) m_cursel = -1;
  else if (m_cursel > i) --m_cursel;
  if (m_caret >= m_items.count()) m_caret = m_items.count() - 1;
  return m_items.count();
}

void CListBox::ResetContent() {
  m_items.clear();
  m_cursel = m_caret = -1;
  m_top = 0;
}

int CListBox::GetText(int index, CZelString& text) const {
  if (!m_items.valid(index)) return LB_ERR;
  text = m_items.at(index).text;
  return text.len();
}

int CListBox::SelectString(int start, const wchar_t* text) {
  int i = m_items.findPrefix(start, CZelString(text));
  if (i < 0) return LB_ERR;
  if (isMultiSelect()) return LB_ERR;
  return SetCurSel(i);
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
  if (!m_items.valid(index)) return LB_ERR;
  m_items.at(index).data = data;
  return 0;
}

DWORD_PTR CListBox::GetItemData(int index) const {
  return m_items.valid(index) ? m_items.at(index).data : static_cast<DWORD_PTR>(LB_ERR);
}

void CListBox::selectByUser(int index) {
  if (isMultiSelect()) {
    SetSel(-1, FALSE);
    SetSel(index, TRUE);
  } else {
    SetCurSel(index);
  }
  if (m_style & LBS_NOTIFY) notifyParent(LBN_SELCHANGE);
}

void CListBox::doubleClickByUser(int index) {
  selectByUser(index);
  if (m_style & LBS_NOTIFY) notifyParent(LBN_DBLCLK);
}

void CListBox::OnKeyDown(UINT key, UINT, UINT) {
  int n = GetCount();
  if (n == 0) return;
  int cur = GetCurSel();
  int next = cur;
  if (key == VK_UP) next = std::max(0, cur - 1);
  else if (key == VK_DOWN) next = std::min(n - 1, cur + 1);
  else if (key == VK_HOME) next = 0;
  else if (key == VK_END) next = n - 1;
  else return;
  if (next != cur) selectByUser(next);
}

LRESULT CListBox::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case LB_GETCOUNT: return GetCount();
    case LB_GETCURSEL: return GetCurSel();
    case LB_SETCURSEL: return SetCurSel(static_cast<int>(wParam));
    case LB_RESETCONTENT: ResetContent(); return 0;
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

void CListBox::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* l = dynamic_cast<CListBox*>(&other)) {
    m_items = l->m_items;
    m_cursel = l->m_cursel;
    m_caret = l->m_caret;
    m_top = l->m_top;
  }
}
