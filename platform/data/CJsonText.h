// JSON text as the store-file and drawing readers take it: places as line:column, the
// nesting limit, and the numbers that a file may not hold because they would change value.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

class CJsonText {
public:
  // Objects and arrays within each other: deeper files are refused, deeper trees are
  // never written, so every walk over what was read stays far from the stack's end.
  static constexpr int kMaxDepth = 128;

  // An input iterator over a text's bytes that keeps the parser's reading position, so
  // that errors found while building values can name the line and column too.
  struct TrackedIter {
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;
    const char* p = nullptr;
    const char** pos = nullptr;
    const char& operator*() const { return *p; }
    TrackedIter& operator++() { ++p; if (pos) *pos = p; return *this; }
    TrackedIter operator++(int) { TrackedIter t = *this; ++*this; return t; }
    friend bool operator==(const TrackedIter& a, const TrackedIter& b) { return a.p == b.p; }
    friend bool operator!=(const TrackedIter& a, const TrackedIter& b) { return a.p != b.p; }
  };

  // "line:column" of a byte offset; columns count characters, not UTF-8 bytes.
  static std::string place(std::string_view text, std::size_t offset);
  // The start of the token that the parser stopped just past. A value reported while it
  // is built was read with one character of lookahead past it.
  static std::size_t tokenStart(std::string_view text, std::size_t end, bool lookahead = false);
  // nlohmann's message without its own "[json.exception…] parse error at …:" prefix.
  static std::string cleanMessage(const std::string& what);

  // A number written without '.', 'e' or 'E' that the parser could only read as a real:
  // an integer beyond 64 bits.
  static bool isOverlongInteger(const std::string& raw);
  // A real that is not zero as written but reads as 0.0.
  static bool underflows(double value, const std::string& raw);

  // A whole JSON text as a value, nested at most `maxDepth` deep, without integers beyond
  // 64 bits or reals that underflow. On failure `error` is "source:line:column: why".
  static bool parse(std::string_view text, const std::string& source, nlohmann::ordered_json& out, std::string& error,
                    int maxDepth = kMaxDepth);
};
