// The message texts of every country and language: the embedded message files plus those loaded at run time.
#include "data/CZelMsgTable.h"

#include <cstddef>
#include <cwctype>
#include <utility>

#include "data/CStoreFile.h"

namespace qen_res {
extern const std::pair<std::string_view, const std::string_view*> qen_lang_files[];
extern const std::size_t qen_lang_file_count;
}  // namespace qen_res

namespace {

const std::wstring kDefaultFamily = L"ZEL_";

std::string_view trimBlanks(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

bool isKeyChar(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
         c == '.';
}

bool validName(std::string_view name) {
  if (name.empty()) return false;
  for (char c : name)
    if (!isKeyChar(c)) return false;
  return true;
}

// Resolves the escapes of a text; false on an unknown escape or a lone backslash at the end.
bool unescape(std::string_view raw, std::string& out, std::string& why) {
  out.clear();
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '\\') { out += raw[i]; continue; }
    if (i + 1 == raw.size()) { why = "backslash at the end of the text"; return false; }
    switch (raw[++i]) {
      case 'n': out += '\n'; break;
      case 't': out += '\t'; break;
      case 's': out += ' '; break;
      case '\\': out += '\\'; break;
      default: why = std::string("unknown escape \\") + raw[i]; return false;
    }
  }
  return true;
}

}  // namespace

CZelMsgTable& CZelMsgTable::instance() {
  static CZelMsgTable table;
  return table;
}

std::wstring CZelMsgTable::normCode(std::wstring_view code) {
  std::wstring out(code);
  for (auto& c : out) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  return out;
}

std::wstring CZelMsgTable::normKey(std::wstring_view key) {
  std::wstring out(key);
  for (auto& c : out) c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
  return out;
}

bool CZelMsgTable::parse(std::string_view utf8, const std::string& source, Entries& out) {
  Entries entries;
  std::wstring family = kDefaultFamily;
  if (utf8.substr(0, 3) == "\xEF\xBB\xBF") utf8.remove_prefix(3);  // a byte-order mark some editors write
  int lineNo = 0;
  std::size_t pos = 0;
  while (pos <= utf8.size()) {
    std::size_t end = utf8.find('\n', pos);
    if (end == std::string_view::npos) end = utf8.size();
    std::string_view line = utf8.substr(pos, end - pos);
    pos = end + 1;
    ++lineNo;
    auto fail = [&](const std::string& why) {
      ZEL::setLastFileError(source + ":" + std::to_string(lineNo) + ": " + why);
      return false;
    };
    std::string_view trimmed = trimBlanks(line);
    if (trimmed.empty() || trimmed.front() == '#' || trimmed.front() == ';') continue;
    if (trimmed.front() == '[') {
      if (trimmed.back() != ']') return fail("a family line must end with ']'");
      std::string_view name = trimBlanks(trimmed.substr(1, trimmed.size() - 2));
      if (!validName(name)) return fail("bad family name '" + std::string(name) + "'");
      family = normKey(CZelString::fromUtf8(name).str());
      continue;
    }
    std::size_t eq = line.find('=');
    if (eq == std::string_view::npos) return fail("expected KEY=text");
    std::string_view key = trimBlanks(line.substr(0, eq));
    if (!validName(key)) return fail("bad key '" + std::string(key) + "'");
    std::string_view raw = trimBlanks(line.substr(eq + 1));
    std::string text;
    std::string why;
    if (!unescape(raw, text, why)) return fail(why);
    entries[{family, normKey(CZelString::fromUtf8(key).str())}] = CZelString::fromUtf8(text);
  }
  out = std::move(entries);
  return true;
}

void CZelMsgTable::loadEmbedded() {
  m_embeddedLoaded = true;
  for (std::size_t i = 0; i < qen_res::qen_lang_file_count; ++i) {
    const auto& [code, text] = qen_res::qen_lang_files[i];
    Entries entries;
    // The embedded files are checked by the tests; a broken one leaves its language on the defaults.
    if (parse(*text, "resources/lang/" + std::string(code) + ".txt", entries))
      m_embedded[normCode(CZelString::fromUtf8(code).str())] = std::move(entries);
  }
}

const CZelString* CZelMsgTable::find(std::wstring_view family, std::wstring_view key, std::wstring_view code) {
  if (!m_embeddedLoaded) loadEmbedded();
  const std::pair<std::wstring, std::wstring> k{family.empty() ? kDefaultFamily : normKey(family), normKey(key)};
  const std::wstring c = normCode(code);
  for (auto* layer : {&m_loaded, &m_embedded}) {
    auto table = layer->find(c);
    if (table == layer->end()) continue;
    auto hit = table->second.find(k);
    if (hit != table->second.end()) return &hit->second;
  }
  return nullptr;
}

bool CZelMsgTable::loadText(std::string_view utf8, std::wstring_view code, const std::string& source) {
  Entries entries;
  if (!parse(utf8, source, entries)) return false;
  auto& table = m_loaded[normCode(code)];
  for (auto& [k, v] : entries) table[k] = std::move(v);
  return true;
}

bool CZelMsgTable::loadFile(const std::string& path, std::wstring_view code) {
  std::string bytes;
  if (!CStoreFile::readFile(path, bytes)) return false;  // the error names the path
  return loadText(bytes, code, path);
}

void CZelMsgTable::unloadAll() { m_loaded.clear(); }
