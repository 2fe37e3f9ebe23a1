// The country table: the countries a user can choose, each with the language of its texts.
#pragma once

#include <string_view>

#include "data/CZelString.h"

// One row of the table; the table ends with a row whose code is null.
struct zelDlCountry_st {
  const wchar_t* code;      // country code as kept in the store and the record ("de", "at", "us" …)
  const wchar_t* label;     // name shown in country lists
  const wchar_t* language;  // code of the message file its texts come from
};

// The table in display order, German-speaking countries first.
const zelDlCountry_st* zelDlCountrys();

namespace ZEL {
// The row of a country code (case ignored), or none.
const zelDlCountry_st* countryFind(std::wstring_view code);
// The language of a country: its row's language, else the code itself (a code may name a language).
CZelString countryLanguage(std::wstring_view code);
}  // namespace ZEL
