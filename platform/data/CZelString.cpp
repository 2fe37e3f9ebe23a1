#include "data/CZelString.h"

#include <cstdarg>
#include <cstdint>
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

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

// One well-formed UTF-8 sequence at `i` (surrogates allowed, to recognise CESU-8), or 0
// bytes used. The continuation byte ranges exclude overlong forms and code points past
// U+10FFFF; an ill-formed sequence consumes its lead byte and the continuation bytes that
// fitted, as one U+FFFD.
std::size_t decodeOne(std::string_view s, std::size_t i, char32_t& cp, std::size_t& used) {
  auto byte = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  unsigned char c = byte(i);
  if (c < 0x80) { cp = c; used = 1; return 1; }
  std::size_t extra = 0;
  unsigned char lo = 0x80, hi = 0xBF;
  if (c >= 0xC2 && c <= 0xDF) { extra = 1; cp = c & 0x1F; }
  else if (c >= 0xE0 && c <= 0xEF) { extra = 2; cp = c & 0x0F; if (c == 0xE0) lo = 0xA0; }
  else if (c >= 0xF0 && c <= 0xF4) { extra = 3; cp = c & 0x07; if (c == 0xF0) lo = 0x90; if (c == 0xF4) hi = 0x8F; }
  else { used = 1; return 0; }
  used = 1;
  for (std::size_t k = 0; k < extra; ++k) {
    if (i + used >= s.size()) return 0;
    unsigned char b = byte(i + used);
    if (b < (k == 0 ? lo : 0x80) || b > (k == 0 ? hi : 0xBF)) return 0;
    cp = (cp << 6) | (b & 0x3F);
    ++used;
  }
  return used;
}

}  // namespace

CZelString CZelString::fromUtf8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  std::size_t i = 0;
  while (i < utf8.size()) {
    char32_t cp = 0;
    std::size_t used = 0;
    if (!decodeOne(utf8, i, cp, used)) {
      out += kReplacement;
      i += used;
      continue;
    }
    i += used;
    if (cp >= 0xD800 && cp <= 0xDBFF && i < utf8.size()) {
      // CESU-8: a supplementary character written as its two surrogates.
      char32_t low = 0;
      std::size_t lowUsed = 0;
      if (decodeOne(utf8, i, low, lowUsed) && low >= 0xDC00 && low <= 0xDFFF) {
        out += static_cast<wchar_t>(0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00));
        i += lowUsed;
        continue;
      }
    }
    out += (cp >= 0xD800 && cp <= 0xDFFF) ? kReplacement : static_cast<wchar_t>(cp);
  }
  return CZelString(std::move(out));
}

std::string CZelString::toUtf8() const {
  std::string out;
  out.reserve(m_text.size());
  for (std::size_t i = 0; i < m_text.size(); ++i) {
    auto cp = static_cast<std::uint32_t>(m_text[i]);
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < m_text.size()) {
      auto low = static_cast<std::uint32_t>(m_text[i + 1]);
      if (low >= 0xDC00 && low <= 0xDFFF) {  // a surrogate pair, as UTF-16 text holds it
        cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
        ++i;
      }
    }
    if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) cp = 0xFFFD;  // never ill-formed UTF-8
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
