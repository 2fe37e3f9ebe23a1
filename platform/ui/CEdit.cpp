#include "ui/CEdit.h"

#include <algorithm>

void CEdit::onSetText(const CZelString& text) {
  m_text = text;
  m_modified = false;
  m_selStart = m_selEnd = 0;
  if (m_hWnd) notifyParent(EN_CHANGE);
}

void CEdit::typeText(const CZelString& text) {
  std::wstring t = text.str();
  if (m_limit && t.size() > m_limit) t.resize(m_limit);
  m_text = CZelString(std::move(t));
  m_modified = true;
  m_selStart = m_selEnd = m_text.len();
  notifyParent(EN_UPDATE);
  notifyParent(EN_CHANGE);
}

void CEdit::SetSel(int start, int end, BOOL) {
  int n = m_text.len();
  if (start < 0) {
    m_selStart = m_selEnd = n;
    return;
  }
  if (end < 0 || end > n) end = n;
  m_selStart = std::min(start, n);
  m_selEnd = std::max(m_selStart, end);
}

void CEdit::GetSel(int& start, int& end) const {
  start = m_selStart;
  end = m_selEnd;
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL) {
  std::wstring t = m_text.str();
  int n = static_cast<int>(t.size());
  int s = std::clamp(m_selStart, 0, n), e = std::clamp(m_selEnd, s, n);
  std::wstring insert = text ? text : L"";
  t.replace(static_cast<std::size_t>(s), static_cast<std::size_t>(e - s), insert);
  m_text = CZelString(std::move(t));
  m_selStart = m_selEnd = s + static_cast<int>(insert.size());
  m_modified = true;
  if (m_hWnd) notifyParent(EN_CHANGE);
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
  if (readOnly) m_style |= ES_READONLY;
  else m_style &= ~ES_READONLY;
  return TRUE;
}

LRESULT CEdit::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case EM_GETMODIFY: return m_modified;
    case EM_SETMODIFY: m_modified = wParam != 0; return 0;
    default: return CWnd::DefWindowProc(message, wParam, lParam);
  }
}

void CEdit::takeStateFrom(CWnd& other) {
  CWnd::takeStateFrom(other);
  if (auto* e = dynamic_cast<CEdit*>(&other)) {
    m_modified = e->m_modified;
    m_limit = e->m_limit;
    m_selStart = e->m_selStart;
    m_selEnd = e->m_selEnd;
  }
}
