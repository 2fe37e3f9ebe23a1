// The country combo: the countries of the platform's country table, chosen and given by code.
#pragma once

#include "ui/CZelComboBox.h"

// Filled as soon as it exists (created or put in place of a template combo), one line per row of
// zelDlCountrys() with the row's label, in the table's order; each line's item data is its row
// index, so a sorted template combo still gives the right codes.
class CZelComboCountryBox : public CZelComboBox {
public:
  CZelComboCountryBox() = default;

  // Refills the lines from the table, keeping the selected country when it is still there.
  void fillCountries();
  // Selects the line of a country code (case ignored). False, and no line selected, for a code
  // the table does not have.
  bool setCountry(const CZelString& code);
  // The code of the selected line; empty when none is selected.
  CZelString country() const;

protected:
  void onCreated() override;
};
