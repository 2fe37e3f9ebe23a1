// Label texts of objects: the item table per object type and the label lines it gives.
#include "obj/ZelObjTxt.h"

#include "obj/ZelObjLabel.h"

#include "data/CZelMatMgr.h"
#include "data/CZelNumberFormat.h"
#include "data/ZelCountries.h"
#include "data/ZelDataAccess.h"
#include "data/ZelMessages.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "obj/ZelObjProps.h"
#include "obj/ZelObjTypes.h"

#include <algorithm>
#include <cwctype>
#include <numbers>
#include <vector>

namespace {

// What an item writes into the label.
enum class Kind {
  TypeName,     // the type's label ("Klotz"; a drilling: "Bohrung")
  Article,      // the article recorded for the object key of level 4
  Material,     // the material's label
  Dims,         // the type's dimensions joined by " x "
  Length,       // one length, after its lead ("T=12")
  Diameter,     // one length as a diameter ("%%c8")
  Angle,        // an angle kept in radians, written in degrees ("90%%d")
  Count,        // a number of pieces ("4x")
  Text,         // a string of the object as it stands
  Countersink,  // the word "Senkung" when the drilling has a countersink
  Prefix,       // PREFIX, multilingual
  Suffix,       // SUFFIX, multilingual
};

struct Item {
  int position;  // bit value 1 << position
  const wchar_t* nameDe;
  const wchar_t* nameEn;
  Kind kind;
  const wchar_t* key = nullptr;   // the object's key (Length, Diameter, Angle, Count, Text)
  const wchar_t* lead = L"";      // written before the value
};

struct TypeTable {
  const wchar_t* type;                   // none: every type not listed
  std::vector<Item> items;
  std::vector<const wchar_t*> dims;  // for Kind::Dims
  int bits;                          // default TXTGEN
  std::vector<int> sequence;         // default TXTSEQU (bit values)
  std::vector<int> lines;            // default TXTLINE (bit values)
};

// The items every type shares: name, article, material, dimensions, prefix and suffix.
#define QEN_COMMON_ITEMS                                                                            \
  Item{0, L"Bezeichnung", L"Name", Kind::TypeName}, Item{1, L"Artikel", L"Article", Kind::Article}, \
      Item{2, L"Material", L"Material", Kind::Material}, Item{3, L"Abmessungen", L"Dimensions", Kind::Dims}, \
      Item{10, L"Präfix", L"Prefix", Kind::Prefix}, Item{11, L"Suffix", L"Suffix", Kind::Suffix}

// Position → bit: 0 → 0x1 name, 1 → 0x2 article, 2 → 0x4 material, 3 → 0x8 dimensions,
// 4 and 5 → 0x10 and 0x20 what the type has besides, 10 → 0x400 prefix, 11 → 0x800 suffix;
// 12 (0x1000) is the single-line flag and never an item. A drilling numbers its own items,
// the countersink ones being 0x20, 0x40, 0x80, 0x100, 0x4000 and 0x8000.
// clang-format off
const TypeTable kTables[] = {
  {L"KLOTZ", {QEN_COMMON_ITEMS, Item{4, L"Länge", L"Length", Kind::Length, L"L", L"L="}},
   {L"B", L"H"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x2, 0x4, 0x8, 0x10, 0x800}, {0x1}},
  {L"DICHT", {QEN_COMMON_ITEMS},
   {L"B", L"H"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x2, 0x4, 0x8, 0x800}, {0x1}},
  {L"SILIKON", {QEN_COMMON_ITEMS, Item{4, L"Konstruktion", L"Construction", Kind::Text, L"CONS"}},
   {L"B", L"W"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x10, 0x2, 0x4, 0x8, 0x800}, {0x1}},
  {L"FOLIE", {QEN_COMMON_ITEMS, Item{4, L"Konstruktion", L"Construction", Kind::Text, L"CONS"}},
   {L"D"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x10, 0x2, 0x4, 0x8, 0x800}, {0x1}},
  {L"DM", {QEN_COMMON_ITEMS, Item{4, L"Konstruktion", L"Construction", Kind::Text, L"CONS"}},
   {L"D"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x10, 0x2, 0x4, 0x8, 0x800}, {0x1}},
  {L"BLECH", {QEN_COMMON_ITEMS, Item{4, L"Biegeradius", L"Bending radius", Kind::Length, L"R", L"R="},
              Item{5, L"Beschichtung", L"Coating", Kind::Text, L"COAT"}},
   {L"D"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x2, 0x4, 0x8, 0x10, 0x20, 0x800}, {0x1}},
  {L"HLBZ", {QEN_COMMON_ITEMS, Item{4, L"Länge", L"Length", Kind::Length, L"L", L"L="}},
   {L"B", L"H", L"T"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x8, 0x10, 0x2, 0x4, 0x800}, {0x1}},
  {L"DRILL", {Item{0, L"Bezeichnung", L"Name", Kind::TypeName}, Item{1, L"Durchmesser", L"Diameter", Kind::Diameter, L"D"},
              Item{2, L"Tiefe", L"Depth", Kind::Length, L"T", L"T="}, Item{3, L"Anzahl", L"Count", Kind::Count, L"N"},
              Item{4, L"Gewinde", L"Thread", Kind::Text, L"THREAD"}, Item{9, L"Artikel", L"Article", Kind::Article},
              Item{10, L"Präfix", L"Prefix", Kind::Prefix}, Item{11, L"Suffix", L"Suffix", Kind::Suffix},
              Item{15, L"Senkung", L"Countersink", Kind::Countersink},
              Item{5, L"Senkungsart", L"Countersink type", Kind::Text, L"SINK"},
              Item{6, L"Senkdurchmesser", L"Countersink diameter", Kind::Diameter, L"SD"},
              Item{7, L"Senkwinkel", L"Countersink angle", Kind::Angle, L"SA"},
              Item{8, L"Senktiefe", L"Countersink depth", Kind::Length, L"ST", L"t="},
              Item{14, L"Seite", L"Side", Kind::Text, L"SIDE"}},
   {L"D"}, 0x1 | 0x2 | 0x4 | 0x8000 | 0x40 | 0x80,
   {0x400, 0x8, 0x1, 0x2, 0x10, 0x4, 0x200, 0x8000, 0x20, 0x40, 0x80, 0x100, 0x4000, 0x800}, {0x200}},
  {nullptr, {QEN_COMMON_ITEMS},
   {L"B", L"H", L"L", L"T", L"D"}, 0x1 | 0x4 | 0x8, {0x400, 0x1, 0x2, 0x4, 0x8, 0x800}, {0x1}},
};
// clang-format on
#undef QEN_COMMON_ITEMS

template <class T>
bool valueOf(const CZelDataItem* object, const wchar_t* key, T& out) {
  CZelDataKey k(key);
  return object && object->get(out, &k);
}

CZelString typeOf(const CZelDataItem* object) {
  CZelString type;
  valueOf(object, L"TYPE", type);
  return type;
}

const TypeTable& table(const CZelString& type) {
  for (const TypeTable& t : kTables)
    if (t.type && type.match(t.type)) return t;
  return kTables[std::size(kTables) - 1];
}

bool knownType(const CZelString& type) {
  for (const TypeTable& t : kTables)
    if (t.type && type.match(t.type)) return true;
  return false;
}

CZelString countryOr(const wchar_t* country) {
  if (!country || !*country || CZelString(country) == L"-1") return CZelMatMgr::userCountry();
  return country;
}

bool german(const wchar_t* country) { return ZEL::countryLanguage(countryOr(country).view()) == L"de"; }

CZelDataItem* presetOf(const CZelDataItem* object) { return object ? ZEL::prop_data(ZEL::objKey(object, 3)) : nullptr; }

CZelArrayTempl<int> toArray(const std::vector<int>& values) {
  CZelArrayTempl<int> a;
  for (int v : values) a.add(v);
  return a;
}

bool intList(const CZelDataItem* item, const wchar_t* key, CZelArrayTempl<int>& out) {
  if (!item) return false;
  CZelDataKey k(key);
  CZelArrayTempl<int> values;
  if (!item->get(values, &k) || values.isEmpty()) return false;
  out = values;
  return true;
}

CZelString length(const CZelDataItem* object, const wchar_t* key, Zel::lFormat format) {
  double v = 0.0;
  if (!valueOf(object, key, v)) {
    int i = 0;
    if (!valueOf(object, key, i)) return CZelString();
    v = i;
  }
  return zelRtoS(v, format, 2);
}

CZelString itemText(const Item& item, const TypeTable& t, const CZelDataItem* object, Zel::lFormat format, bool resolve,
                    const wchar_t* country) {
  const bool de = german(country);
  switch (item.kind) {
    case Kind::TypeName: {
      const CZelString type = typeOf(object);
      if (type.match(L"DRILL")) return de ? L"Bohrung" : L"Drilling";
      return ZEL::objTypeLabel(type, countryOr(country).c_str());
    }
    case Kind::Article: {
      CZelString article;
      ZEL::obj_order_get(ZEL::objKey(object, 4), article);
      return article;
    }
    case Kind::Material: {
      CZelString mat;
      if (!valueOf(object, L"MAT", mat) || mat.isEmpty()) return CZelString();
      CZelString label = CZelMatMgr().matLabel(mat, countryOr(country));
      return label.isEmpty() ? mat : label;
    }
    case Kind::Dims: {
      CZelString dims;
      for (const wchar_t* key : t.dims) {
        CZelString v = length(object, key, format);
        if (v.isEmpty()) continue;
        if (!dims.isEmpty()) dims += L" x ";
        dims += v;
      }
      return dims;
    }
    case Kind::Length: {
      CZelString v = length(object, item.key, format);
      return v.isEmpty() ? v : item.lead + v;
    }
    case Kind::Diameter: {
      CZelString v = length(object, item.key, format);
      return v.isEmpty() ? v : L"%%c" + v;
    }
    case Kind::Angle: {
      double radians = 0.0;
      if (!valueOf(object, item.key, radians)) return CZelString();
      return zelRtoS(radians * 180.0 / std::numbers::pi, Zel::lFormat::Decimal, 1) + L"%%d";
    }
    case Kind::Count: {
      int n = 0;
      if (!valueOf(object, item.key, n) || n <= 0) return CZelString();
      return CZelString().format(L"%dx", n);
    }
    case Kind::Text: {
      CZelString s;
      valueOf(object, item.key, s);
      return s;
    }
    case Kind::Countersink: {
      CZelString sink;
      double diameter = 0.0;
      valueOf(object, L"SINK", sink);
      valueOf(object, L"SD", diameter);
      if (sink.isEmpty() && diameter <= 0.0) return CZelString();
      return de ? L"Senkung" : L"Countersink";
    }
    case Kind::Prefix:
    case Kind::Suffix: {
      CZelString entry;
      valueOf(object, item.kind == Kind::Prefix ? L"PREFIX" : L"SUFFIX", entry);
      return resolve ? ZEL::label_get(entry, countryOr(country).c_str()) : entry;
    }
  }
  return CZelString();
}

}  // namespace

namespace ZEL {

bool isCountersinkItem(int bit) { return std::ranges::find(kTxtCountersink, bit) != std::end(kTxtCountersink); }

int objTxtBit(const CZelDataItem* object, bool own) {
  if (!object) return 0;
  int bits = 0;
  if (own && valueOf(object, L"TXTGEN", bits)) return bits;
  if (valueOf(presetOf(object), L"TXTGEN", bits)) return bits;
  return table(typeOf(object)).bits;
}

bool objTxtBitLst(CZelArrayTempl<CZelString>& names, const CZelDataItem* object, const wchar_t* country) {
  names.removeAll();
  if (!object) return false;
  const bool de = german(country);
  for (const Item& item : table(typeOf(object)).items) names[item.position] = de ? item.nameDe : item.nameEn;
  return true;
}

bool objTxtBitLst(CZelMapTempl<int, CZelString>& names, const CZelDataItem* object, const wchar_t* country) {
  names.clear();
  if (!object) return false;
  const bool de = german(country);
  for (const Item& item : table(typeOf(object)).items) names[1 << item.position] = de ? item.nameDe : item.nameEn;
  return true;
}

bool objTxtSequ(CZelArrayTempl<int>& sequence, const CZelString& type, const CZelDataItem* object) {
  if (intList(presetOf(object), L"TXTSEQU", sequence)) return true;
  sequence = toArray(table(type).sequence);
  return knownType(type);
}

CZelArrayTempl<int> objTxtLine(const CZelString& type) { return toArray(table(type).lines); }

bool objTxtGen(CZelArrayTempl<CZelString>& lines, const CZelDataItem* object, Zel::lFormat format, bool resolve,
               const wchar_t* country) {
  lines.removeAll();
  if (!object) return false;
  const CZelString type = typeOf(object);
  const TypeTable& t = table(type);
  const int bits = objTxtBit(object, true);
  CZelArrayTempl<int> sequence;
  if (!intList(object, L"TXTSEQU", sequence)) objTxtSequ(sequence, type, object);
  // Items the stored order does not know yet follow in the table's order.
  for (const Item& item : t.items)
    if (sequence.find(1 << item.position) < 0) sequence.add(1 << item.position);
  CZelArrayTempl<int> breaks;
  if (!intList(object, L"TXTLINE", breaks)) breaks = objTxtLine(type);
  const bool singleLine = (bits & kTxtSingleLine) != 0;

  CZelString line;
  for (int bit : sequence) {
    const Item* item = nullptr;
    for (const Item& i : t.items)
      if (1 << i.position == bit) item = &i;
    if (!item) continue;
    if (bits & bit) {
      CZelString text = itemText(*item, t, object, format, resolve, country);
      if (!text.isEmpty()) line += (line.isEmpty() ? L"" : L" ") + text;
    }
    // A break follows its item whether or not the item is written, once the line holds text.
    if (!singleLine && breaks.find(bit) >= 0 && !line.isEmpty()) {
      lines.add(line);
      line = CZelString();
    }
  }
  if (!line.isEmpty()) lines.add(line);
  return true;
}

CZelArrayTempl<CZelString> ldrTxtNrm(const CZelArrayTempl<CZelString>& lines) {
  CZelArrayTempl<CZelString> out;
  for (const CZelString& l : lines) {
    std::wstring text;
    for (wchar_t c : l.str()) {
      if (c == L'\t') c = L' ';
      if (c == L' ' && (text.empty() || text.back() == L' ')) continue;
      text += c;
    }
    while (!text.empty() && text.back() == L' ') text.pop_back();
    if (!text.empty()) out.add(CZelString(text));
  }
  return out;
}

CZelString implode(const CZelArrayTempl<CZelString>& parts, const CZelString& separator) {
  CZelString out;
  for (int i = 0; i < parts.count(); ++i) {
    if (i) out += separator;
    out += parts[i];
  }
  return out;
}

CZelString txtToRTF(const CZelString& text) {
  const std::wstring& in = text.str();
  std::wstring out;
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in.compare(i, 2, L"%%") == 0 && i + 2 < in.size()) {
      const wchar_t code = static_cast<wchar_t>(std::towlower(in[i + 2]));
      const wchar_t* sign = code == L'c' ? L"Ø" : code == L'd' ? L"°" : code == L'p' ? L"±" : nullptr;
      if (sign) {
        out += sign;
        i += 2;
        continue;
      }
    }
    if (in.compare(i, 2, L"\\P") == 0) {
      out += L"\r\n";
      ++i;
      continue;
    }
    out += in[i];
  }
  return CZelString(out);
}

CZelString grpLabel(const CZelDataItem* object, const wchar_t* country, bool withDims) {
  if (!object) return CZelString();
  const CZelString type = typeOf(object);
  if (type.match(L"DIN")) return dinLabel(object, country, withDims, true, false);
  const TypeTable& t = table(type);
  CZelString label = type.match(L"DRILL") ? CZelString(german(country) ? L"Bohrung" : L"Drilling")
                                          : objTypeLabel(type, countryOr(country).c_str());
  if (!withDims) return label;
  CZelString dims = itemText(Item{3, L"", L"", Kind::Dims}, t, object, Zel::lFormat::Decimal, false, country);
  if (type.match(L"DRILL")) dims = itemText(Item{1, L"", L"", Kind::Diameter, L"D"}, t, object, Zel::lFormat::Decimal, false, country);
  return dims.isEmpty() ? label : label + L" " + txtToRTF(dims);
}

bool objGenTexts(CZelDataItem* object) {
  if (!object) return false;
  const CZelString type = typeOf(object);
  CZelArrayTempl<int> sequence;
  objTxtSequ(sequence, type, object);
  CZelArrayTempl<int> breaks;
  if (!intList(presetOf(object), L"TXTLINE", breaks)) breaks = objTxtLine(type);
  const int bits = objTxtBit(object, false);
  CZelDataKey gen(L"TXTGEN");
  dataItemSet(object, &gen, bits);
  CZelDataKey seq(L"TXTSEQU");
  object->put(&seq, mkResbuf(sequence));
  CZelDataKey line(L"TXTLINE");
  object->put(&line, mkResbuf(breaks));
  return true;
}

}  // namespace ZEL
