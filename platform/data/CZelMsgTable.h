// The message texts of every country and language: the embedded message files plus those loaded at run time.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "data/CZelString.h"

// A message file is UTF-8 text, one entry a line:
//
//   # a comment            (a line whose first non-blank character is '#' or ';')
//   [NORM_LINK]            (the message family of the lines that follow; "ZEL_" at the top)
//   DLG_002 = Cancel       (KEY=text; blanks around the key and around the text are dropped)
//
// Escapes in the text: \n line break, \t tab, \\ backslash, \s a blank the text keeps at its start or end.
// Keys and families compare without regard to case. A later line with the same key replaces the earlier.
class CZelMsgTable {
public:
  // The one table of the process; its embedded files are parsed on first use.
  static CZelMsgTable& instance();

  // The text of KEY in the family for the code (a country or language code), or none.
  const CZelString* find(std::wstring_view family, std::wstring_view key, std::wstring_view code);

  // Adds the entries of a message file's text for the code, over any earlier ones. A malformed
  // line refuses the whole text: false, nothing added, and ZEL::lastFileError() names source and line.
  bool loadText(std::string_view utf8, std::wstring_view code, const std::string& source);
  bool loadFile(const std::string& path, std::wstring_view code);

  // Forgets what loadText and loadFile added; the embedded files stay.
  void unloadAll();

  // Parses one file's text into (family, key) → text without adding it anywhere.
  using Entries = std::map<std::pair<std::wstring, std::wstring>, CZelString>;
  static bool parse(std::string_view utf8, const std::string& source, Entries& out);

  // Lower-case code, as tables are kept.
  static std::wstring normCode(std::wstring_view code);
  // Upper-case key or family.
  static std::wstring normKey(std::wstring_view key);

private:
  CZelMsgTable() = default;
  void loadEmbedded();

  bool m_embeddedLoaded = false;
  std::map<std::wstring, Entries> m_embedded;  // code → entries, compiled into the library
  std::map<std::wstring, Entries> m_loaded;    // code → entries, loaded at run time
};
