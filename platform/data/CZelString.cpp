#include "data/CZelString.h"

#include <cstdarg>
#include <cwchar>
#include <cwctype>
#include <vector>

namespace {

// Case mapping that does not depend on the process locale: ASCII and Latin-1 (the umlauts
// of German names) directly, the rest through the C library.
wchar_t toUpper(wchar_t c) {
  if (c < 0x80) return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 32) : c;
  if ((c >= 0xE0 && c <= 0xFE && c != 0xF7)) return static_cast<wchar_t>(c - 0x20);
  return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
}

wchar_t toLower(wchar_t c) {
  if (c < 0x80) return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c + 32) : c;
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7)) return static_cast<wchar_t>(c + 0x20);
  return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
}

}  // namespace

CZelString CZelString::fromUtf8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  std::size_t i = 0;
  while (i < utf8.size()) {
    auto c = static_cast<unsigned char>(utf8[i]);
    char32_t cp = 0xFFFD;
    std::size_t extra = 0;
    if (c < 0x80) { cp = c; }
    else if ((c & 0xE0) == 0xC0) { cp = c & 0x1F; extra = 1; }
    else if ((c & 0xF0) == 0xE0) { cp = c & 0x0F; extra = 2; }
    else if ((c & 0xF8) == 0xF0) { cp = c & 0x07; extra = 3; }
    ++i;
    bool ok = (c < 0x80) || extra > 0;
    for (std::size_t k = 0; ok && k < extra; ++k, ++i) {
      if (i >= utf8.size() || (static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80) { ok = false; break; }
      cp = (cp << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    }
    out += static_cast<wchar_t>(ok ? cp : 0xFFFD);
  }
  return CZelString(std::move(out));
}

std::string CZelString::toUtf8() const {
  std::string out;
  out.reserve(m_text.size());
  for (wchar_t wc : m_text) {
    auto cp = static_cast<char32_t>(wc);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | (cp >> 18));
      out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return out;
}

bool CZelString::match(const CZelString& other) const {
  if (m_text.size() != other.m_text.size()) return false;
  for (std::size_t i = 0; i < m_text.size(); ++i)
    if (toUpper(m_text[i]) != toUpper(other.m_text[i]))
      return false;
  return true;
}

CZelString& CZelString::trim() {
  auto notSpace = [](wchar_t c) { return !std::iswspace(static_cast<wint_t>(c)); };
  std::size_t b = 0;
  while (b < m_text.size() && !notSpace(m_text[b])) ++b;
  std::size_t e = m_text.size();
  while (e > b && !notSpace(m_text[e - 1])) --e;
  m_text = m_text.substr(b, e - b);
  return *this;
}

CZelString& CZelString::makeUpper() {
  for (auto& c : m_text) c = toUpper(c);
  return *this;
}

CZelString& CZelString::makeLower() {
  for (auto& c : m_text) c = toLower(c);
  return *this;
}

CZelString& CZelString::format(const wchar_t* fmt, ...) {
  std::vector<wchar_t> buf(256);
  for (;;) {
    va_list args;
    va_start(args, fmt);
    int n = std::vswprintf(buf.data(), buf.size(), fmt, args);
    va_end(args);
    if (n >= 0 && static_cast<std::size_t>(n) < buf.size()) {
      m_text.assign(buf.data(), static_cast<std::size_t>(n));
      return *this;
    }
    if (buf.size() > (1u << 20)) { m_text.clear(); return *this; }
    buf.resize(buf.size() * 2);
  }
}
