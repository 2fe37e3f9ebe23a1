// Message texts by language resource key: the lookup every dialog text and message goes through.
#include "data/ZelMessages.h"

#include "data/CZelMsgTable.h"
#include "data/ZelCountries.h"

#include <utility>
#include <vector>

namespace {

CZelString& currentCountry() {
  static CZelString country = L"de";
  return country;
}

std::wstring_view resolveCountry(const wchar_t* country) {
  if (!country || !*country || std::wstring_view(country) == L"-1") return currentCountry().view();
  return country;
}

bool attachesDirectly(wchar_t c) {
  return c == L'.' || c == L':' || c == L',' || c == L';' || c == L'!' || c == L'?' || c == L')' || c == L' ';
}

CZelString withSuffix(std::wstring_view text, std::wstring_view suffix) {
  std::wstring out(text);
  if (suffix.empty() || text.ends_with(suffix)) return CZelString(std::move(out));
  if (!out.empty() && !attachesDirectly(suffix.front())) out += L' ';
  out += suffix;
  return CZelString(std::move(out));
}

}  // namespace

bool zel_msg_get(CZelString& out, const wchar_t* family, const wchar_t* key, const wchar_t* defaultText,
                 const wchar_t* country) {
  std::wstring_view name = key ? key : L"";
  std::wstring_view suffix;
  if (name.starts_with(L'\\')) {
    name.remove_prefix(1);
    if (auto sep = name.find(L'\\'); sep != std::wstring_view::npos) {
      suffix = name.substr(sep + 1);
      name = name.substr(0, sep);
    }
  }
  const std::wstring_view fam = family && *family ? family : L"ZEL_";
  const std::wstring_view code = resolveCountry(country);
  const CZelString language = ZEL::countryLanguage(code);
  auto& table = CZelMsgTable::instance();
  const CZelString* hit = name.empty() ? nullptr : table.find(fam, name, code);
  if (!hit && !name.empty() && language.view() != CZelMsgTable::normCode(code)) hit = table.find(fam, name, language.view());
  if (hit) {
    out = withSuffix(hit->view(), suffix);
    return true;
  }
  out = defaultText ? withSuffix(defaultText, suffix) : CZelString();
  return false;
}

namespace ZEL {

CZelString msgText(const wchar_t* key, const wchar_t* defaultText, const wchar_t* country) {
  CZelString out;
  zel_msg_get(out, L"ZEL_", key, defaultText, country);
  return out;
}

const CZelString& msgCountry() { return currentCountry(); }

void msgCountrySet(const CZelString& country) {
  currentCountry() = country.isEmpty() ? CZelString(L"de") : country;
}

bool msgLoadFile(const std::string& path, const CZelString& code) {
  return CZelMsgTable::instance().loadFile(path, code.view());
}

bool msgLoadText(std::string_view utf8, const CZelString& code, const std::string& source) {
  return CZelMsgTable::instance().loadText(utf8, code.view(), source);
}

void msgUnloadAll() { CZelMsgTable::instance().unloadAll(); }

CZelString label_get(const CZelString& entry, const wchar_t* country) {
  const std::wstring_view text = entry.view();
  if (!text.starts_with(L'\\')) return entry;
  const std::wstring code = CZelMsgTable::normCode(resolveCountry(country));
  const std::wstring language = ZEL::countryLanguage(code).str();
  std::wstring_view byLanguage;
  bool languageSeen = false;
  // Parts alternate: "\" code "\" text, repeated.
  std::size_t pos = 1;
  while (pos <= text.size()) {
    std::size_t codeEnd = text.find(L'\\', pos);
    if (codeEnd == std::wstring_view::npos) break;
    std::size_t textEnd = text.find(L'\\', codeEnd + 1);
    if (textEnd == std::wstring_view::npos) textEnd = text.size();
    const std::wstring partCode = CZelMsgTable::normCode(text.substr(pos, codeEnd - pos));
    const std::wstring_view partText = text.substr(codeEnd + 1, textEnd - codeEnd - 1);
    if (partCode == code) return CZelString(partText);
    if (!languageSeen && partCode == language) { byLanguage = partText; languageSeen = true; }
    pos = textEnd + 1;
  }
  return CZelString(byLanguage);
}

CZelString label_set(const CZelString& entry, const wchar_t* country, const CZelString& text) {
  const std::wstring code = CZelMsgTable::normCode(resolveCountry(country));
  std::wstring value = text.str();
  for (wchar_t& c : value)
    if (c == L'\\') c = L'/';
  const std::wstring_view in = entry.view();
  std::vector<std::pair<std::wstring, std::wstring>> parts;
  if (in.starts_with(L'\\')) {
    std::size_t pos = 1;
    while (pos <= in.size()) {
      std::size_t codeEnd = in.find(L'\\', pos);
      if (codeEnd == std::wstring_view::npos) break;
      std::size_t textEnd = in.find(L'\\', codeEnd + 1);
      if (textEnd == std::wstring_view::npos) textEnd = in.size();
      parts.emplace_back(in.substr(pos, codeEnd - pos), in.substr(codeEnd + 1, textEnd - codeEnd - 1));
      pos = textEnd + 1;
    }
  }
  bool placed = false;
  for (auto& [partCode, partText] : parts)
    if (!placed && CZelMsgTable::normCode(partCode) == code) {
      partText = value;
      placed = true;
    }
  if (!placed) parts.emplace_back(code, value);
  std::wstring out;
  for (const auto& [partCode, partText] : parts)
    if (!partText.empty()) out += L"\\" + partCode + L"\\" + partText;
  return CZelString(out);
}

}  // namespace ZEL
