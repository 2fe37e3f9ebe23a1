// Label texts of objects: the text items an object type offers (by position, each with the
// bit value 1 << position), the defaults of an object's text bits (TXTGEN), item order
// (TXTSEQU) and line breaks (TXTLINE), and the label lines generated from an object's data.
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelDataItem.h"
#include "data/CZelMapTempl.h"
#include "data/CZelString.h"
#include "obj/ZelObjGen.h"
#include "data/ZelUnits.h"

namespace ZEL {

// Bits with a meaning of their own in every type.
inline constexpr int kTxtPrefix = 0x400;      // item 10: the object's PREFIX (supplementary text 1)
inline constexpr int kTxtSuffix = 0x800;      // item 11: the object's SUFFIX (supplementary text 2)
inline constexpr int kTxtSingleLine = 0x1000;  // no item: the whole label on one line
// The items of a drilling that describe its countersink.
inline constexpr int kTxtCountersink[] = {0x8000, 0x100, 0x80, 0x4000, 0x40, 0x20};
bool isCountersinkItem(int bit);

// The object's text bits: with `own` its TXTGEN when it has one; otherwise (and always with
// `own` false) the default: TXTGEN of the preset of its object key (level 3) in
// "*QEN_OBJ_PROP*", else the type's default. 0 for no object.
int objTxtBit(const CZelDataItem* object, bool own);

// The names of the object type's text items by position (empty where a position holds no
// item) or by bit value, in the country's language (none: the user's). False for no object.
bool objTxtBitLst(CZelArrayTempl<CZelString>& names, const CZelDataItem* object, const wchar_t* country = nullptr);
bool objTxtBitLst(CZelMapTempl<int, CZelString>& names, const CZelDataItem* object, const wchar_t* country = nullptr);

// The default order of a type's items (bit values): the preset's TXTSEQU of the object (when
// one is given and has a preset), else the type's own order. False for an unknown type,
// which gets the general order.
bool objTxtSequ(CZelArrayTempl<int>& sequence, const CZelString& type, const CZelDataItem* object = nullptr);
// The default line breaks of a type: the bit values of the items a new line follows.
CZelArrayTempl<int> objTxtLine(const CZelString& type);

// The label lines of an object: its checked items (TXTGEN) in its order (TXTSEQU, else the
// type's), each as text, a new line after each item of TXTLINE unless 0x1000 is set. Lengths
// are written in the number format; with `resolve` the multilingual PREFIX and SUFFIX give
// their text in the country's language, without it they stand as stored. False for no object.
bool objTxtGen(CZelArrayTempl<CZelString>& lines, const CZelDataItem* object, Zel::lFormat format, bool resolve,
               const wchar_t* country = nullptr);
// Lines as a label takes them: trimmed, inner runs of blanks made one, empty lines dropped.
CZelArrayTempl<CZelString> ldrTxtNrm(const CZelArrayTempl<CZelString>& lines);
CZelString implode(const CZelArrayTempl<CZelString>& parts, const CZelString& separator);
// The text as the preview shows it: the CAD program's codes %%c, %%d and %%p become Ø, ° and
// ±, and an MText paragraph "\P" a line break.
CZelString txtToRTF(const CZelString& text);

// The label of an object's group: type label and, `withDims`, its dimensions ("Klotz 30 x 5").
CZelString grpLabel(const CZelDataItem* object, const wchar_t* country, bool withDims);

// Resets an object's label texts (TXTGEN, TXTSEQU, TXTLINE) to their defaults. False for
// no object.
bool objGenTexts(CZelDataItem* object);

}  // namespace ZEL
