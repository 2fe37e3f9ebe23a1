// A key into the settings store: a chain of typed parts. The first part names the
// section; string parts (5005, 5020) name directories and values, short parts (5003)
// select the member with that group code in a list of dotted pairs.
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelString.h"

#include <memory>

class CZelDataKey {
public:
  CZelDataKey() = default;
  CZelDataKey(const wchar_t* text) { set(text); }
  CZelDataKey(const CZelString& text) { set(text.c_str()); }
  CZelDataKey(const CZelDataKey& other) { *this = other; }
  CZelDataKey& operator=(const CZelDataKey& other);
  CZelDataKey(CZelDataKey&&) noexcept = default;
  CZelDataKey& operator=(CZelDataKey&&) noexcept = default;

  // (type, value, type, value, …, 0): string values for 5005/5020/5006, short for 5003.
  void set(int type, ...);
  void set(const wchar_t* text);
  void set(const CZelArrayTempl<CZelString>& parts);
  // A key from a backslash path: "*HZ_KLOTZ*\MODE"; a part "#62" is the short part 62.
  static CZelDataKey fromPath(const CZelString& path);
  // A key of two string parts: (section, name), the usual address of a value.
  static CZelDataKey twoPart(const CZelString& first, const CZelString& second);
  CZelString toPath() const;

  int type() const { return m_type; }
  bool isEmpty() const { return m_type == 0; }
  const CZelDataKey* next() const { return m_next.get(); }
  void setNext(const CZelDataKey* rest);
  void append(int type, const wchar_t* text);
  void append(short groupCode);
  int count() const;

  const CZelString& text() const { return m_text; }  // string parts
  short groupCode() const { return m_short; }          // short parts
  bool isStringPart() const { return m_type == 5005 || m_type == 5020; }
  CZelString toString() const;                          // the first part as text

  friend bool operator==(const CZelDataKey& a, const CZelDataKey& b);

private:
  void clear();
  CZelDataKey* last();

  int m_type = 0;  // 0: empty key
  CZelString m_text;
  short m_short = 0;
  std::unique_ptr<CZelDataKey> m_next;
};
