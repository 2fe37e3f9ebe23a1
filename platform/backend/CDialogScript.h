// A dialog script: one command a line, `#` starts a comment, strings in double quotes with
// the escapes \" \\ and \n. Parsed whole before a run, so that a malformed script runs
// nothing; errors name the script and the line.
#pragma once

#include "data/CZelString.h"
#include "ui/wintypes.h"

#include <string>
#include <string_view>
#include <vector>

class CDialogScript {
public:
  enum class Op {
    Click, Type, Leave, Enter, Select, DblClick, Check, Uncheck, Tab, Menu, Choose, Answer, Ok, Cancel,
    Expect, ExpectStore, ExpectBox, Dump, Key, Drag, Label
  };

  // A control: the dialog itself, ID, or PAGE/ID (PAGE a tab index or the page's template ID).
  struct Target {
    bool dialog = false;
    int page = -1;  // -1: none
    int id = 0;
  };

  struct Command {
    Op op = Op::Ok;
    int line = 0;
    std::string source;  // the command as written, for messages
    Target target;
    std::string word;    // expect's condition, key name, store key, "none" for choose
    CZelString text;
    bool hasText = false;
    int number = 0;
    int number2 = 0;
    bool hasNumber = false;
    std::string json;    // expect-store's value (store-file JSON) or "absent"
  };

  static bool parse(std::string_view text, const std::string& name, CDialogScript& out, std::string& error);
  static bool load(const std::string& path, CDialogScript& out, std::string& error);

  const std::vector<Command>& commands() const { return m_commands; }
  const std::string& name() const { return m_name; }
  std::string where(const Command& command) const { return m_name + ":" + std::to_string(command.line); }
  // Adds a parsed command (programs that build scripts in code).
  void append(Command command) { m_commands.push_back(std::move(command)); }

private:
  std::string m_name = "script";
  std::vector<Command> m_commands;
};
