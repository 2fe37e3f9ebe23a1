// The country table: the countries a user can choose, each with the language of its texts.
#include "data/ZelCountries.h"

#include "data/CZelMsgTable.h"

namespace {

// Labels are in German, the language of the module's own texts.
const zelDlCountry_st kCountries[] = {
    {L"de", L"Deutschland", L"de"},
    {L"at", L"Österreich", L"de"},
    {L"ch", L"Schweiz", L"de"},
    {L"en", L"England", L"en"},
    {L"us", L"USA", L"en"},
    {L"fr", L"Frankreich", L"fr"},
    {L"it", L"Italien", L"it"},
    {L"nl", L"Niederlande", L"nl"},
    {L"pl", L"Polen", L"pl"},
    {L"cz", L"Tschechien", L"cs"},
    {L"es", L"Spanien", L"es"},
    {nullptr, nullptr, nullptr},
};

}  // namespace

const zelDlCountry_st* zelDlCountrys() { return kCountries; }

namespace ZEL {

const zelDlCountry_st* countryFind(std::wstring_view code) {
  const std::wstring wanted = CZelMsgTable::normCode(code);
  for (const zelDlCountry_st* row = kCountries; row->code; ++row)
    if (wanted == row->code) return row;
  return nullptr;
}

CZelString countryLanguage(std::wstring_view code) {
  const zelDlCountry_st* row = countryFind(code);
  return row ? CZelString(row->language) : CZelString(CZelMsgTable::normCode(code));
}

}  // namespace ZEL
