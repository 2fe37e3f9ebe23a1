#include "data/ZelNames.h"

#include <cwchar>

namespace ZEL {

CZelString str_name(const CZelString& text, wchar_t replace) {
  static const std::wstring kInvalid = L"<>/\\\":;?*|=`";
  CZelString trimmed = text;
  trimmed.trim();
  std::wstring out;
  for (wchar_t c : trimmed.str()) {
    if (c < 0x20 || kInvalid.find(c) != std::wstring::npos) {
      if (replace) out += replace;
    } else {
      out += c;
    }
  }
  if (out.size() > 255) out.resize(255);
  CZelString name(out);
  name.trim();
  return name;
}

CZelString color_txt(const CZelColor& color, const CZelString& country) {
  if (color.isTrueColor()) {
    wchar_t buf[32];
    std::swprintf(buf, 32, L"%d,%d,%d", color.red(), color.green(), color.blue());
    return buf;
  }
  static const wchar_t* const kGerman[] = {L"VonBlock", L"rot", L"gelb", L"grün", L"cyan", L"blau", L"magenta", L"weiß"};
  static const wchar_t* const kEnglish[] = {L"ByBlock", L"red", L"yellow", L"green", L"cyan", L"blue", L"magenta", L"white"};
  bool german = !country.match(L"en") && !country.match(L"us") && !country.match(L"gb");
  int i = color.index();
  if (i >= 0 && i <= 7) return german ? kGerman[i] : kEnglish[i];
  if (i == 256) return german ? L"VonLayer" : L"ByLayer";
  return CZelString(std::to_wstring(i));
}

}  // namespace ZEL
