#include "data/CJsonText.h"

#include <nlohmann/json.hpp>

namespace {

using json = nlohmann::ordered_json;

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool isStructural(char c) { return c == '{' || c == '}' || c == '[' || c == ']' || c == ',' || c == ':'; }

// Builds the value as nlohmann's own DOM builder does, and refuses what the readers
// never take: deep nesting and numbers that would change value.
class LimitedDom {
public:
  LimitedDom(json& root, const char** pos, int maxDepth) : m_dom(root, false), m_pos(pos), m_maxDepth(maxDepth) {}

  std::string error;
  const char* errorAt = nullptr;
  bool lookahead = false;
  bool syntaxError = false;
  std::size_t syntaxOffset = 0;

  bool null() { return m_dom.null(); }
  bool boolean(bool v) { return m_dom.boolean(v); }
  bool number_integer(json::number_integer_t v) { return m_dom.number_integer(v); }
  bool number_unsigned(json::number_unsigned_t v) { return m_dom.number_unsigned(v); }
  bool number_float(json::number_float_t v, const json::string_t& raw) {
    if (CJsonText::isOverlongInteger(raw)) return fail("integer " + raw + " does not fit 64 bits", true);
    if (CJsonText::underflows(v, raw)) return fail("real " + raw + " is too small to be kept: it would read as 0.0", true);
    return m_dom.number_float(v, raw);
  }
  bool string(json::string_t& v) { return m_dom.string(v); }
  bool binary(json::binary_t& v) { return m_dom.binary(v); }
  bool start_object(std::size_t n) { return enter() && m_dom.start_object(n); }
  bool key(json::string_t& v) { return m_dom.key(v); }
  bool end_object() { --m_depth; return m_dom.end_object(); }
  bool start_array(std::size_t n) { return enter() && m_dom.start_array(n); }
  bool end_array() { --m_depth; return m_dom.end_array(); }
  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& ex) {
    syntaxError = true;
    error = CJsonText::cleanMessage(ex.what());
    syntaxOffset = position;
    return false;
  }

private:
  bool enter() {
    if (++m_depth <= m_maxDepth) return true;
    return fail("nested more than " + std::to_string(m_maxDepth) + " levels deep (objects and arrays within each other)", false);
  }
  bool fail(std::string message, bool readAhead) {
    error = std::move(message);
    errorAt = *m_pos;
    lookahead = readAhead;
    return false;
  }

  nlohmann::detail::json_sax_dom_parser<json> m_dom;
  const char** m_pos;
  int m_maxDepth;
  int m_depth = 0;
};

}  // namespace

std::string CJsonText::place(std::string_view text, std::size_t offset) {
  if (offset > text.size()) offset = text.size();
  std::size_t line = 1;
  std::size_t col = 1;
  for (std::size_t i = 0; i < offset; ++i) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c == '\n') { ++line; col = 1; }
    else if ((c & 0xC0) != 0x80) ++col;
  }
  return std::to_string(line) + ":" + std::to_string(col);
}

std::size_t CJsonText::tokenStart(std::string_view text, std::size_t end, bool lookahead) {
  if (end > text.size()) end = text.size();
  std::size_t i = end;
  if (lookahead && i >= 2 && isStructural(text[i - 1]) && !isStructural(text[i - 2]) && !isSpace(text[i - 2]) &&
      text[i - 2] != '"')
    --i;
  while (i > 0 && isSpace(text[i - 1])) --i;
  if (i > 0 && isStructural(text[i - 1])) return i - 1;
  if (i > 0 && text[i - 1] == '"') {
    // A string: its opening quote is the first quote before it that no backslash escapes.
    for (std::size_t k = i - 1; k > 0; --k) {
      if (text[k - 1] != '"') continue;
      std::size_t slashes = 0;
      while (k - 1 > slashes && text[k - 2 - slashes] == '\\') ++slashes;
      if (slashes % 2 == 0) return k - 1;
    }
    return 0;
  }
  while (i > 0 && !isSpace(text[i - 1]) && !isStructural(text[i - 1])) --i;
  return i;
}

std::string CJsonText::cleanMessage(const std::string& what) {
  std::size_t at = what.find("column ");
  if (at != std::string::npos) {
    std::size_t colon = what.find(": ", at);
    if (colon != std::string::npos) return what.substr(colon + 2);
  }
  std::size_t bracket = what.find("] ");
  return bracket == std::string::npos ? what : what.substr(bracket + 2);
}

bool CJsonText::isOverlongInteger(const std::string& raw) { return raw.find_first_of(".eE") == std::string::npos; }

bool CJsonText::underflows(double value, const std::string& raw) {
  if (value != 0.0) return false;
  for (char c : raw) {
    if (c == 'e' || c == 'E') break;
    if (c >= '1' && c <= '9') return true;
  }
  return false;
}

bool CJsonText::parse(std::string_view text, const std::string& source, json& out, std::string& error, int maxDepth) {
  const char* pos = text.data();
  TrackedIter first{text.data(), &pos};
  TrackedIter last{text.data() + text.size(), nullptr};
  json value;
  LimitedDom dom(value, &pos, maxDepth);
  if (json::sax_parse(first, last, &dom, json::input_format_t::json, true, false)) {
    out = std::move(value);
    return true;
  }
  std::size_t offset = dom.syntaxError ? tokenStart(text, dom.syntaxOffset)
                       : dom.errorAt   ? tokenStart(text, static_cast<std::size_t>(dom.errorAt - text.data()), dom.lookahead)
                                       : text.size();
  error = source + ":" + place(text, offset) + ": " + (dom.error.empty() ? "the file holds no value" : dom.error);
  return false;
}
