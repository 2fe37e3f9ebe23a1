#include "ui/CComboBox.h"

void CComboBox::onCreated() {
  m_edit = nullptr;
  if (!hasEdit()) return;
  auto edit = std::make_unique<CEdit>();
  CEdit* e = edit.get();
  adoptChild(std::move(edit));
  CRect area(0, 0, m_dluRect.Width(), 12);
  e->createWindow(this, kComboEditId, WndKind::Edit, WS_CHILD | WS_VISIBLE, 0, CZelString(), area);
  m_edit = e;
}

int CComboBox::SetCurSel(int index) {
  if (!m_items.valid(index)) {
    m_cursel = -1;
    if (hasEdit()) m_editText = CZelString();
    return CB_ERR;
  }
  m_cursel = index;
  m_editText = m_items.at(index).text;
  return index;
}

int CComboBox::AddString(const wchar_t* text) {
  int i = m_items.add(CZelString(text), (m_style & CBS_SORT) != 0);
  if (m_cursel >= i) ++m_cursel;
  return i;
}

int CComboBox::InsertString(int index, const wchar_t* text) {
  int i = m_items.insert(index, CZelString(text));
  if (i >= 0 && m_cursel >= i) ++m_cursel;
  return i < 0 ? CB_ERR : i;
}

int CComboBox::DeleteString(UINT index) {
  int i = static_cast<int>(index);
  if (!m_items.remove(i)) return CB_ERR;
  if (m_cursel == i) m_cursel = -1;
  else if (m_cursel > i) --m_cursel;
  return m_items.count();
}

void CComboBox::ResetContent() {
  m_items.clear();
  m_cursel = -1;
  m_editText = CZelString();
}

int CComboBox::GetLBText(int index, CZelString& text) const {
  if (!m_items.valid(index)) return CB_ERR;
  text = m_items.at(index).text;
  return text.len();
}

CZelString CComboBox::GetLBText(int index) const { return m_items.valid(index) ? m_items.at(index).text : CZelString(); }

int CComboBox::GetLBTextLen(int index) const { return m_items.valid(index) ? m_items.at(index).text.len() : CB_ERR; }

int CComboBox::SelectString(int start, const wchar_t* text) {
  int i = m_items.findPrefix(start, CZelString(text));
  if (i < 0) return CB_ERR;
  return SetCurSel(i);
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
  if (!m_items.valid(index)) return CB_ERR;
  m_items.at(index).data = data;
  return 0;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  return m_items.valid(index) ? m_items.at(index).data : static_cast<DWORD_PTR>(CB_ERR);
}

void CComboBox::selectByUser(int index) {
  SetCurSel(index);
  notifyParent(CBN_SELCHANGE);
}

void CComboBox::typeByUser(const CZelString& text) {
  std::wstring t = text.str();
  if (m_limit > 0 && static_cast<int>(t.size()) > m_limit) t.resize(static_cast<std::size_t>(m_limit));
  m_editText = CZelString(std::move(t));
  m_cursel = -1;
  notifyParent(CBN_EDITUPDATE);
  notifyParent(CBN_EDITCHANGE);
}

CZelString CComboBox::windowText() const {
  if (hasEdit()) return m_editText;
  return m_items.valid(m_cursel) ? m_items.at(m_cursel).text : CZelString();
}

void CComboBox::onSetText(const CZelString& text) {
  if (hasEdit()) {
    m_editText = text;
    return;
  }
  // A drop-down list shows only its lines: the text selects the line that bears it.
  int i = m_items.findExact(-1, text);
  if (i >= 0) m_cursel = i;
}

LRESULT CComboBox::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CB_GETCOUNT: return GetCount();
    case CB_GETCURSEL: return GetCurSel();
    case CB_SETCURSEL: return SetCurSel(static_cast<int>(wParam));
    case CB_RESETCONTENT: ResetContent(); return 0;
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

void CComboBox::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* c = dynamic_cast<CComboBox*>(&other)) {
    m_items = c->m_items;
    m_cursel = c->m_cursel;
    m_limit = c->m_limit;
    m_editText = c->m_editText;
  }
}
