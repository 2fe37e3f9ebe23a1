// Reads the subset of the Win32 resource-script language that our dialog templates use:
// #define lines, LANGUAGE, and DIALOG/DIALOGEX blocks with STYLE, EXSTYLE, CAPTION, FONT
// and the controls (CONTROL and the short forms). Errors name the script, line and column.
#pragma once

#include "ui/CDialogTemplate.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

class CRcParser {
public:
  // Parses one script; false with `error` set ("name:line:col: message") when it fails.
  bool parse(std::string_view text, const std::string& name, std::vector<CDialogTemplate>& out, std::string& error);

  // The value of a style or ID symbol the parser knows (built in or #define'd), or false.
  bool symbol(const std::string& name, long& value) const;

private:
  struct Token {
    enum Kind { End, Name, Number, String, Punct } kind = End;
    std::string text;
    long number = 0;
    int line = 1;
    int col = 1;
  };

  void next();
  bool fail(const std::string& message);
  bool fail(const Token& at, const std::string& message);
  bool expectPunct(char c);
  bool acceptPunct(char c);
  bool isWord(const char* word) const;
  bool readPreprocessor();
  bool value(long& out);                              // a numeric expression with + - ( )
  bool styleList(DWORD defaults, DWORD& out);         // terms joined by |, NOT clears
  bool textOrId(CZelString& text);                    // "string", number or name
  bool dialog(CDialogTemplate& dlg);
  bool control(CDialogTemplate& dlg);
  bool rect(CRect& r);

  std::string_view m_text;
  std::string m_name;
  std::size_t m_pos = 0;
  int m_line = 1;
  int m_col = 1;
  Token m_tok;
  std::string m_error;
  std::map<std::string, long> m_defines;
};
