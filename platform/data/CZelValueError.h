// What was wrong with a number typed into a field, as a value the field turns into its message.
#pragma once

#include "data/CZelString.h"

class CZelValueError {
public:
  enum class Kind {
    None,        // no error
    Empty,       // nothing but blanks
    NotANumber,  // detail: the text as typed
    NotWhole,    // a fraction where only whole numbers are allowed; detail: the text
    Overflow,    // beyond the range of a real, or of a real once converted; detail: the text
    TooSmall,    // detail: the lower limit as shown in the field
    TooLarge,    // detail: the upper limit as shown in the field
    Zero,        // zero where it is not allowed
  };

  CZelValueError() = default;
  CZelValueError(Kind kind, CZelString detail = {}) : m_kind(kind), m_detail(std::move(detail)) {}

  Kind kind() const { return m_kind; }
  const CZelString& detail() const { return m_detail; }
  bool isError() const { return m_kind != Kind::None; }

  // The user's message in the country's language ("Keine Zahl: 'abc'", "Out of range: must be at
  // least 0"); the German texts are the defaults.
  CZelString message(const wchar_t* country = nullptr) const;

  friend bool operator==(const CZelValueError&, const CZelValueError&) = default;

private:
  Kind m_kind = Kind::None;
  CZelString m_detail;
};

// A parsed value or the reason there is none.
struct ZelValueResult {
  double value = 0.0;
  CZelValueError error;
  bool ok() const { return !error.isError(); }
};
