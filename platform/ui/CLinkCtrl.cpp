#include "ui/CLinkCtrl.h"

#include <cwchar>
#include <iterator>

CZelString CLinkCtrl::linkUrl() const {
  const std::wstring& t = m_text.str();
  std::size_t a = t.find(L"<a");
  if (a == std::wstring::npos) return CZelString();
  std::size_t close = t.find(L'>', a);
  if (close == std::wstring::npos) return CZelString();
  std::size_t href = t.find(L"href=", a);
  if (href != std::wstring::npos && href < close) {
    std::size_t q1 = t.find(L'"', href);
    std::size_t q2 = q1 == std::wstring::npos ? q1 : t.find(L'"', q1 + 1);
    if (q2 != std::wstring::npos && q2 < close) return CZelString(t.substr(q1 + 1, q2 - q1 - 1));
  }
  std::size_t end = t.find(L"</a>", close);
  return CZelString(t.substr(close + 1, end == std::wstring::npos ? std::wstring::npos : end - close - 1));
}

CZelString CLinkCtrl::displayText() const {
  std::wstring out;
  const std::wstring& t = m_text.str();
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] == L'<' && (t.compare(i, 2, L"<a") == 0 || t.compare(i, 3, L"</a") == 0)) {
      std::size_t close = t.find(L'>', i);
      if (close == std::wstring::npos) break;
      i = close;
      continue;
    }
    out += t[i];
  }
  return CZelString(std::move(out));
}

void CLinkCtrl::click() {
  NMLINK link;
  CZelString url = linkUrl();
  std::wcsncpy(link.item.szUrl, url.c_str(), std::size(link.item.szUrl) - 1);
  notifyParent(link.hdr, NM_CLICK);
}
