// The platform's wide string: the text type of every key, value and control text.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

class CZelString {
public:
  CZelString() = default;
  CZelString(const wchar_t* text) : m_text(text ? text : L"") {}
  CZelString(std::wstring text) : m_text(std::move(text)) {}
  CZelString(std::wstring_view text) : m_text(text) {}

  // UTF-8 at the boundary: files, command line, windows. Decoding turns each ill-formed
  // sequence (overlong forms, a lone surrogate, past U+10FFFF, a cut sequence) into U+FFFD
  // and joins a surrogate pair written as CESU-8; encoding writes a lone surrogate or a
  // code point past U+10FFFF as U+FFFD, so no writer ever produces ill-formed UTF-8.
  static CZelString fromUtf8(std::string_view utf8);
  std::string toUtf8() const;

  operator const wchar_t*() const { return m_text.c_str(); }
  const wchar_t* c_str() const { return m_text.c_str(); }
  const std::wstring& str() const { return m_text; }
  std::wstring_view view() const { return m_text; }

  int len() const { return static_cast<int>(m_text.size()); }
  bool isNull() const { return m_text.empty(); }
  bool isEmpty() const { return m_text.empty(); }

  // Case-insensitive comparison, as the CAD program compares names.
  bool match(const CZelString& other) const;

  CZelString& trim();
  CZelString& makeUpper();
  CZelString& makeLower();
  CZelString upper() const { CZelString s(*this); return s.makeUpper(); }

  // printf-style formatting with wide format strings (%d, %s for wide strings, %g …).
  CZelString& format(const wchar_t* fmt, ...);

  CZelString& operator+=(const CZelString& other) { m_text += other.m_text; return *this; }
  CZelString& operator+=(const wchar_t* other) { m_text += other ? other : L""; return *this; }
  CZelString& operator+=(wchar_t c) { m_text += c; return *this; }
  friend CZelString operator+(CZelString a, const CZelString& b) { a += b; return a; }
  friend CZelString operator+(CZelString a, const wchar_t* b) { a += b; return a; }
  friend CZelString operator+(const wchar_t* a, const CZelString& b) { return CZelString(a) += b; }

  friend bool operator==(const CZelString& a, const CZelString& b) { return a.m_text == b.m_text; }
  friend bool operator==(const CZelString& a, const wchar_t* b) { return a.m_text == (b ? b : L""); }
  friend std::strong_ordering operator<=>(const CZelString& a, const CZelString& b) {
    return a.m_text.compare(b.m_text) <=> 0;
  }

  wchar_t operator[](int i) const { return m_text[static_cast<std::size_t>(i)]; }

private:
  std::wstring m_text;
};

// Written as UTF-8, for logs and test messages.
inline std::ostream& operator<<(std::ostream& os, const CZelString& s) { return os << s.toUtf8(); }

template <>
struct std::hash<CZelString> {
  std::size_t operator()(const CZelString& s) const noexcept { return std::hash<std::wstring>()(s.str()); }
};
