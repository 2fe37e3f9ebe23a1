// The language texts of one dialog: per control a language key with its German default,
// per control a tooltip key (tooltips have no default), looked up in the dialog's country.
#pragma once

#include "data/CZelString.h"

#include <map>
#include <utility>
#include <vector>

class CZelDlgTexts {
public:
  // A later registration for the same control replaces the earlier one.
  void addText(int id, const wchar_t* key, const wchar_t* defaultText);
  void addToolTip(int id, const wchar_t* key);
  void clear();
  bool hasText(int id) const { return m_texts.count(id) != 0; }

  // The text of each registered control in the country's language (the German default
  // when the key is unknown), by control ID.
  std::vector<std::pair<int, CZelString>> texts(const CZelString& country) const;
  // The tooltips whose key is known; an unknown tooltip key gives no tooltip.
  std::vector<std::pair<int, CZelString>> toolTips(const CZelString& country) const;

private:
  struct Text {
    CZelString key;
    CZelString defaultText;
  };
  std::map<int, Text> m_texts;
  std::map<int, CZelString> m_toolTips;
};
