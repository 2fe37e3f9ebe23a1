// The texts of the message server: text keys with one text per country code, read from
// resource files.
//
// Resource file format (UTF-8 text, one statement a line):
//   # a comment (also ";"), and blank lines, are ignored
//   [QEN_TXT_001]                a text key: the following lines give its texts
//   de,at,ch = Glashalteleiste   the text for each listed country code
//   en = Glazing bead\nline 2    escapes in texts: \n line break, \t tab, \\ backslash
// Country codes are compared without regard to case; blanks around codes and texts are
// dropped. A later text for the same key and code replaces the earlier one, so a user file
// loaded after the built-in texts overrides them. A file with an error is not taken in at
// all; the error names the file and the line.
#pragma once

#include <map>
#include <string>
#include <string_view>

class CMsgResources {
public:
  // Takes in the texts of `text`, read from `source` (a name for messages); false with
  // error() set when the text has an error, and then nothing is changed.
  bool load(std::string_view text, const std::string& source);
  // Reads only a regular file of at most kMaxFileBytes; a device, a FIFO or a folder is
  // refused at once, without waiting for it.
  bool loadFile(const std::string& path);
  static constexpr std::size_t kMaxFileBytes = 16u << 20;

  // The key's text for a country code; empty when there is none. No fallback to another
  // code: a caller building a multilingual entry must see which codes really have texts.
  std::string text(const std::string& key, std::string_view country) const;
  bool hasKey(const std::string& key) const { return m_texts.count(key) != 0; }
  std::size_t keyCount() const { return m_texts.size(); }

  const std::string& error() const { return m_error; }

private:
  std::map<std::string, std::map<std::string, std::string>> m_texts;  // key → code → text
  std::string m_error;
};
