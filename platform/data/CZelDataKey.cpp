#include "data/CZelDataKey.h"

#include <cstdarg>
#include <cwchar>

CZelDataKey& CZelDataKey::operator=(const CZelDataKey& other) {
  if (this == &other) return *this;
  m_type = other.m_type;
  m_text = other.m_text;
  m_short = other.m_short;
  m_next.reset(other.m_next ? new CZelDataKey(*other.m_next) : nullptr);
  return *this;
}

void CZelDataKey::clear() {
  m_type = 0;
  m_text = CZelString();
  m_short = 0;
  m_next.reset();
}

CZelDataKey* CZelDataKey::last() {
  CZelDataKey* k = this;
  while (k->m_next) k = k->m_next.get();
  return k;
}

void CZelDataKey::append(int type, const wchar_t* text) {
  if (isEmpty()) {
    m_type = type;
    m_text = CZelString(text);
    return;
  }
  auto part = std::make_unique<CZelDataKey>();
  part->m_type = type;
  part->m_text = CZelString(text);
  last()->m_next = std::move(part);
}

void CZelDataKey::append(short groupCode) {
  if (isEmpty()) {
    m_type = 5003;
    m_short = groupCode;
    return;
  }
  auto part = std::make_unique<CZelDataKey>();
  part->m_type = 5003;
  part->m_short = groupCode;
  last()->m_next = std::move(part);
}

void CZelDataKey::set(int type, ...) {
  clear();
  va_list args;
  va_start(args, type);
  while (type != 0) {
    if (type == 5003) {
      append(static_cast<short>(va_arg(args, int)));
    } else {
      const wchar_t* text = va_arg(args, const wchar_t*);
      append(type, text);
    }
    type = va_arg(args, int);
  }
  va_end(args);
}

void CZelDataKey::set(const wchar_t* text) {
  clear();
  append(5005, text);
}

void CZelDataKey::set(const CZelArrayTempl<CZelString>& parts) {
  clear();
  for (const auto& p : parts) append(5005, p.c_str());
}

CZelDataKey CZelDataKey::fromPath(const CZelString& path) {
  CZelDataKey key;
  const std::wstring& s = path.str();
  std::size_t start = 0;
  while (start <= s.size()) {
    std::size_t end = s.find(L'\\', start);
    if (end == std::wstring::npos) end = s.size();
    std::wstring part = s.substr(start, end - start);
    if (!part.empty()) {
      if (part.size() > 1 && part[0] == L'#' && part.find_first_not_of(L"0123456789", 1) == std::wstring::npos)
        key.append(static_cast<short>(std::wcstol(part.c_str() + 1, nullptr, 10)));
      else
        key.append(5005, part.c_str());
    }
    start = end + 1;
  }
  return key;
}

CZelString CZelDataKey::toPath() const {
  std::wstring out;
  for (const CZelDataKey* k = this; k && !k->isEmpty(); k = k->next()) {
    if (!out.empty()) out += L'\\';
    out += k->toString().str();
  }
  return CZelString(std::move(out));
}

void CZelDataKey::setNext(const CZelDataKey* rest) {
  m_next.reset(rest && !rest->isEmpty() ? new CZelDataKey(*rest) : nullptr);
}

int CZelDataKey::count() const {
  int n = 0;
  for (const CZelDataKey* k = this; k && !k->isEmpty(); k = k->next()) ++n;
  return n;
}

CZelString CZelDataKey::toString() const {
  if (m_type == 5003) return CZelString(L"#" + std::to_wstring(m_short));
  return m_text;
}

bool operator==(const CZelDataKey& a, const CZelDataKey& b) {
  const CZelDataKey* x = &a;
  const CZelDataKey* y = &b;
  for (; x && y; x = x->next(), y = y->next()) {
    if (x->m_type != y->m_type) return false;
    if (x->m_type == 5003 ? x->m_short != y->m_short : !(x->m_text == y->m_text)) return false;
  }
  return x == nullptr && y == nullptr;
}

CZelDataKey CZelDataKey::twoPart(const CZelString& first, const CZelString& second) {
  CZelDataKey k;
  k.set(5005, first.c_str(), 5005, second.c_str(), 0);
  return k;
}
