// UTF-8 at the boundary: ill-formed input decodes to U+FFFD, and no wide text, whatever it
// holds, encodes to UTF-8 that a strict reader refuses.
#include "data/CZelString.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace {

const std::string kFffd = "\xEF\xBF\xBD";

// Well-formed UTF-8 as a strict reader takes it: nlohmann's parser checks every byte of a
// string (ASCII that a JSON string cannot hold as it is is masked first).
bool wellFormed(std::string utf8) {
  for (char& c : utf8)
    if (static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\') c = 'x';
  return nlohmann::json::accept("\"" + utf8 + "\"");
}

std::string encode(std::initializer_list<std::uint32_t> codePoints) {
  std::wstring w;
  for (auto cp : codePoints) w += static_cast<wchar_t>(cp);
  return CZelString(w).toUtf8();
}

}  // namespace

TEST(CZelString, LoneSurrogatesAndCodePointsPastTheLastAreWrittenAsReplacementCharacters) {
  EXPECT_EQ(encode({0xD800}), kFffd);
  EXPECT_EQ(encode({'a', 0xDFFF, 'b'}), "a" + kFffd + "b");
  EXPECT_EQ(encode({0xDBFF, 'x'}), kFffd + "x");  // a high surrogate without its low one
  EXPECT_EQ(encode({0xDC00, 0xD800}), kFffd + kFffd);  // in the wrong order: no pair
  EXPECT_EQ(encode({0x110000}), kFffd);
  EXPECT_EQ(encode({0x7FFFFFFF}), kFffd);
  EXPECT_EQ(encode({0x10FFFF}), "\xF4\x8F\xBF\xBF");  // the last code point is kept
  EXPECT_EQ(encode({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");  // a surrogate pair is one character
  EXPECT_EQ(encode({0xE4, 0x20AC}), "\xC3\xA4\xE2\x82\xAC");
}

TEST(CZelString, NoWideCharacterEncodesToIllFormedUtf8) {
  for (std::uint32_t cp = 1; cp < 0x110100; cp += (cp < 0x10000 ? 1 : 61)) {
    std::string utf8 = encode({'<', cp, '>'});
    ASSERT_TRUE(wellFormed(utf8)) << std::hex << cp;
  }
  for (std::uint32_t cp : {0x110000u, 0x200000u, 0xFFFFFFFFu}) EXPECT_TRUE(wellFormed(encode({cp}))) << std::hex << cp;
}

TEST(CZelString, IllFormedUtf8DecodesToReplacementCharacters) {
  EXPECT_EQ(CZelString::fromUtf8("\xED\xA0\x80"), CZelString(L"\xFFFD"));           // a lone surrogate, CESU-8 style
  EXPECT_EQ(CZelString::fromUtf8("a\xED\xBF\xBF" "b"), CZelString(L"a\xFFFD" L"b"));
  EXPECT_EQ(CZelString::fromUtf8("\xED\xA0\xBD\xED\xB8\x80"), CZelString(std::wstring(1, wchar_t(0x1F600))));  // a CESU-8 pair
  EXPECT_EQ(CZelString::fromUtf8("\xC0\xAF"), CZelString(L"\xFFFD\xFFFD"));          // overlong '/'
  EXPECT_EQ(CZelString::fromUtf8("\xE0\x80\xAF"), CZelString(L"\xFFFD\xFFFD\xFFFD"));
  EXPECT_EQ(CZelString::fromUtf8("\xF4\x90\x80\x80").str().find_first_not_of(L'\xFFFD'), std::wstring::npos);  // past U+10FFFF
  EXPECT_EQ(CZelString::fromUtf8("\xF8\x88\x80\x80\x80").str().find_first_not_of(L'\xFFFD'), std::wstring::npos);
  EXPECT_EQ(CZelString::fromUtf8("x\xE2\x82"), CZelString(L"x\xFFFD"));              // cut short
  EXPECT_EQ(CZelString::fromUtf8("\xE2\x82" "x"), CZelString(L"\xFFFDx"));            // the next character survives
  EXPECT_EQ(CZelString::fromUtf8("D\xC3\xA4mmung \xE2\x82\xAC \xF0\x9F\x98\x80"),
            CZelString(std::wstring(L"D\xE4mmung \x20AC ") + wchar_t(0x1F600)));
}

TEST(CZelString, EveryShortByteSequenceReadsAndWritesBackWellFormed) {
  for (unsigned a = 0; a < 256; ++a) {
    for (unsigned b = 0; b < 256; ++b) {
      std::string bytes{static_cast<char>(a), static_cast<char>(b), '\xBF'};
      CZelString text = CZelString::fromUtf8(bytes);
      for (wchar_t wc : text.str()) {
        ASSERT_FALSE(wc >= 0xD800 && wc <= 0xDFFF) << a << " " << b;
        ASSERT_LE(static_cast<std::uint32_t>(wc), 0x10FFFFu) << a << " " << b;
      }
      ASSERT_TRUE(wellFormed(text.toUtf8())) << a << " " << b;
      if (wellFormed(bytes)) {
        ASSERT_EQ(text.toUtf8(), bytes) << a << " " << b;  // well-formed text is kept as it is
      }
    }
  }
}
