// Message texts by language resource key: the lookup every dialog text and message goes through.
#pragma once

#include <string>
#include <string_view>

#include "data/CZelString.h"

// The text of KEY in the message family (null or "ZEL_": the library's own) for the country.
// Lookup order: the country's own message file, then that of its language (ZEL::countryLanguage);
// run-time loaded files before embedded ones. A null, empty or "-1" country means ZEL::msgCountry().
//
// A key of the form "\KEY\suffix" is the text of KEY followed by the suffix: "\QEN_DCL_BGR_003\..."
// gives "Holen..." and "\QEN_DCL_BGR_297\<" gives "Objekt <". A suffix that starts with a letter,
// digit or '<'/'>' is set off by a blank, punctuation (".", ":" …) follows directly, and a text
// that already ends with the suffix keeps it once.
//
// Found: true and `out` the text. Unknown: false and `out` the default text (with the suffix),
// or empty when there is no default (tooltip keys), so that no tooltip is shown.
bool zel_msg_get(CZelString& out, const wchar_t* family, const wchar_t* key, const wchar_t* defaultText,
                 const wchar_t* country);

namespace ZEL {

// zel_msg_get in the "ZEL_" family, returning the text.
CZelString msgText(const wchar_t* key, const wchar_t* defaultText, const wchar_t* country);

// The country used when a lookup names none ("de" until the host sets one).
const CZelString& msgCountry();
void msgCountrySet(const CZelString& country);

// Adds a message file (format: CZelMsgTable.h) for a country or language code at run time, over
// the embedded texts. False on an unreadable or malformed file, with ZEL::lastFileError() naming it.
bool msgLoadFile(const std::string& path, const CZelString& code);
bool msgLoadText(std::string_view utf8, const CZelString& code, const std::string& source);
// Forgets all files added at run time.
void msgUnloadAll();

// The text of a multilingual entry "\de\Text\en\Text" in the country's language: the part of the
// country's code, else that of its language; empty when neither is there. An entry that does not
// start with a backslash is one text for every language.
CZelString label_get(const CZelString& entry, const wchar_t* country);
// The entry with the country's own part set to `text` (added at the end when the entry has none;
// removed when `text` is empty); the other parts stay in their order. A plain entry (no leading
// backslash) counts as the text of that country alone. A backslash cannot stand in a text and
// becomes "/". An entry whose last part is removed becomes empty.
CZelString label_set(const CZelString& entry, const wchar_t* country, const CZelString& text);

}  // namespace ZEL
