// What was wrong with a number typed into a field, as a value the field turns into its message.
#include "data/CZelValueError.h"

#include <string>

#include "data/ZelMessages.h"

CZelString CZelValueError::message(const wchar_t* country) const {
  const wchar_t* key = nullptr;
  const wchar_t* german = nullptr;
  switch (m_kind) {
    case Kind::None: return {};
    case Kind::Empty: key = L"ZEL_EDIT_001"; german = L"Kein Wert eingegeben"; break;
    case Kind::NotANumber: key = L"ZEL_EDIT_002"; german = L"Keine Zahl: '%1'"; break;
    case Kind::NotWhole: key = L"ZEL_EDIT_003"; german = L"Keine ganze Zahl: '%1'"; break;
    case Kind::Overflow: key = L"ZEL_EDIT_004"; german = L"Zahl zu gro\u00DF: '%1'"; break;
    case Kind::TooSmall: key = L"ZEL_EDIT_005"; german = L"Au\u00DFerhalb des Bereichs: mindestens %1"; break;
    case Kind::TooLarge: key = L"ZEL_EDIT_006"; german = L"Au\u00DFerhalb des Bereichs: h\u00F6chstens %1"; break;
    case Kind::Zero: key = L"ZEL_EDIT_007"; german = L"Au\u00DFerhalb des Bereichs: darf nicht 0 sein"; break;
  }
  // The detail goes in by plain replacement: typed text may hold '%' and must not act as a format.
  std::wstring text = ZEL::msgText(key, german, country).str();
  if (auto at = text.find(L"%1"); at != std::wstring::npos) text.replace(at, 2, m_detail.str());
  return CZelString(std::move(text));
}
