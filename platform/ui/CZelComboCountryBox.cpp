// The country combo: the countries of the platform's country table, chosen and given by code.
#include "ui/CZelComboCountryBox.h"

#include "data/ZelCountries.h"

namespace {

int rowCount() {
  int n = 0;
  for (const zelDlCountry_st* row = zelDlCountrys(); row->code; ++row) ++n;
  return n;
}

}  // namespace

void CZelComboCountryBox::onCreated() {
  CZelComboBox::onCreated();
  fillCountries();
}

void CZelComboCountryBox::fillCountries() {
  const CZelString selected = country();
  ResetContent();
  const zelDlCountry_st* table = zelDlCountrys();
  for (const zelDlCountry_st* row = table; row->code; ++row) {
    int line = AddString(row->label);
    if (line >= 0) SetItemData(line, static_cast<DWORD_PTR>(row - table));
  }
  if (!selected.isEmpty()) setCountry(selected);
}

bool CZelComboCountryBox::setCountry(const CZelString& code) {
  const zelDlCountry_st* row = ZEL::countryFind(code.str());
  if (row) {
    const auto wanted = static_cast<DWORD_PTR>(row - zelDlCountrys());
    for (int line = 0; line < GetCount(); ++line)
      if (GetItemData(line) == wanted) {
        SetCurSel(line);
        return true;
      }
  }
  SetCurSel(-1);
  return false;
}

CZelString CZelComboCountryBox::country() const {
  const int line = GetCurSel();
  if (line < 0) return {};
  const DWORD_PTR index = GetItemData(line);
  if (index >= static_cast<DWORD_PTR>(rowCount())) return {};
  return CZelString(zelDlCountrys()[index].code);
}
