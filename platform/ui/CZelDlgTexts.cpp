#include "ui/CZelDlgTexts.h"

#include "data/ZelMessages.h"

void CZelDlgTexts::addText(int id, const wchar_t* key, const wchar_t* defaultText) {
  m_texts[id] = Text{CZelString(key), CZelString(defaultText)};
}

void CZelDlgTexts::addToolTip(int id, const wchar_t* key) { m_toolTips[id] = CZelString(key); }

void CZelDlgTexts::clear() {
  m_texts.clear();
  m_toolTips.clear();
}

std::vector<std::pair<int, CZelString>> CZelDlgTexts::texts(const CZelString& country) const {
  std::vector<std::pair<int, CZelString>> out;
  out.reserve(m_texts.size());
  for (const auto& [id, t] : m_texts) out.emplace_back(id, ZEL::msgText(t.key.c_str(), t.defaultText.c_str(), country.c_str()));
  return out;
}

std::vector<std::pair<int, CZelString>> CZelDlgTexts::toolTips(const CZelString& country) const {
  std::vector<std::pair<int, CZelString>> out;
  for (const auto& [id, key] : m_toolTips) {
    CZelString text;
    if (zel_msg_get(text, L"ZEL_", key.c_str(), nullptr, country.c_str()) && !text.isEmpty()) out.emplace_back(id, text);
  }
  return out;
}
