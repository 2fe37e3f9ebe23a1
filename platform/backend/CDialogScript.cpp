#include "backend/CDialogScript.h"

#include "data/CStoreFile.h"
#include "data/CZelDataItem.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unordered_map>

namespace {

struct Token {
  bool quoted = false;
  std::string text;
  std::size_t end = 0;  // offset after the token in the line
};

// Splits a line into words and quoted strings; a `#` at the start of a word starts a comment.
bool tokenize(const std::string& line, std::vector<Token>& out, std::string& error) {
  std::size_t i = 0;
  while (i < line.size()) {
    char c = line[i];
    if (std::isspace(static_cast<unsigned char>(c))) {
      ++i;
      continue;
    }
    if (c == '#') break;
    Token t;
    if (c == '"') {
      t.quoted = true;
      ++i;
      bool closed = false;
      while (i < line.size()) {
        char ch = line[i++];
        if (ch == '"') {
          closed = true;
          break;
        }
        if (ch == '\\') {
          if (i >= line.size()) break;
          char e = line[i++];
          if (e == 'n') t.text += '\n';
          else if (e == '"' || e == '\\') t.text += e;
          else {
            error = std::string("unknown escape \\") + e + " (use \\\", \\\\ or \\n)";
            return false;
          }
          continue;
        }
        t.text += ch;
      }
      if (!closed) {
        error = "a string is not closed";
        return false;
      }
    } else {
      while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i])) && line[i] != '"') t.text += line[i++];
    }
    t.end = i;
    out.push_back(std::move(t));
  }
  return true;
}

// A whole number that fits an int; anything else (letters, a number out of range) is not.
bool toInt(const std::string& s, int& out) {
  if (s.empty()) return false;
  errno = 0;
  char* end = nullptr;
  const long long v = std::strtoll(s.c_str(), &end, 10);
  if (*end || errno == ERANGE || v < std::numeric_limits<int>::min() || v > std::numeric_limits<int>::max()) return false;
  out = static_cast<int>(v);
  return true;
}

// A word written as a whole number (or PAGE/ID) that does not fit an int: such a number
// must not wrap into another control or line.
bool outOfRange(const std::string& word) {
  std::size_t from = 0;
  while (from <= word.size()) {
    std::size_t slash = word.find('/', from);
    const std::string part = word.substr(from, slash == std::string::npos ? std::string::npos : slash - from);
    std::size_t digits = part.size() > 0 && (part[0] == '-' || part[0] == '+') ? 1 : 0;
    bool allDigits = digits < part.size();
    for (std::size_t i = digits; i < part.size(); ++i) allDigits = allDigits && std::isdigit(static_cast<unsigned char>(part[i]));
    int ignored = 0;
    if (allDigits && !toInt(part, ignored)) return true;
    if (slash == std::string::npos) break;
    from = slash + 1;
  }
  return false;
}

bool toTarget(const Token& t, CDialogScript::Target& out) {
  if (t.quoted) return false;
  if (t.text == "dialog") {
    out.dialog = true;
    return true;
  }
  std::size_t slash = t.text.find('/');
  if (slash == std::string::npos) return toInt(t.text, out.id);
  return toInt(t.text.substr(0, slash), out.page) && out.page >= 0 && toInt(t.text.substr(slash + 1), out.id);
}

// The rest of a line after a token, without a trailing comment (a `#` after a blank, outside
// JSON strings).
std::string restOf(const std::string& line, std::size_t from) {
  bool inString = false;
  std::size_t end = line.size();
  for (std::size_t i = from; i < line.size(); ++i) {
    char c = line[i];
    if (inString) {
      if (c == '\\') ++i;
      else if (c == '"') inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '#' && i > from && std::isspace(static_cast<unsigned char>(line[i - 1]))) {
      end = i;
      break;
    }
  }
  std::string r = line.substr(from, end - from);
  while (!r.empty() && std::isspace(static_cast<unsigned char>(r.back()))) r.pop_back();
  while (!r.empty() && std::isspace(static_cast<unsigned char>(r.front()))) r.erase(r.begin());
  return r;
}

const std::unordered_map<std::string, CDialogScript::Op>& ops() {
  using Op = CDialogScript::Op;
  static const std::unordered_map<std::string, Op> table = {
    {"click", Op::Click}, {"type", Op::Type}, {"leave", Op::Leave}, {"enter", Op::Enter}, {"select", Op::Select},
    {"dblclick", Op::DblClick}, {"check", Op::Check}, {"uncheck", Op::Uncheck}, {"tab", Op::Tab}, {"menu", Op::Menu},
    {"choose", Op::Choose}, {"answer", Op::Answer}, {"ok", Op::Ok}, {"cancel", Op::Cancel}, {"expect", Op::Expect},
    {"expect-store", Op::ExpectStore}, {"expect-box", Op::ExpectBox}, {"dump", Op::Dump}, {"key", Op::Key},
    {"drag", Op::Drag}, {"label", Op::Label},
  };
  return table;
}

}  // namespace

bool CDialogScript::parse(std::string_view text, const std::string& name, CDialogScript& out, std::string& error) {
  out.m_name = name;
  out.m_commands.clear();
  // A byte-order mark that an editor put before the first command is not part of it.
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  std::size_t start = 0;
  int lineNo = 0;
  while (start <= text.size()) {
    std::size_t nl = text.find('\n', start);
    if (nl == std::string_view::npos) nl = text.size();
    std::string line(text.substr(start, nl - start));
    start = nl + 1;
    ++lineNo;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::vector<Token> tok;
    std::string why;
    auto bad = [&](const std::string& message) {
      error = name + ":" + std::to_string(lineNo) + ": " + message;
      return false;
    };
    if (!tokenize(line, tok, why)) return bad(why);
    if (tok.empty()) continue;
    if (tok[0].quoted) return bad("a command expected, found a string");
    auto op = ops().find(tok[0].text);
    if (op == ops().end()) return bad("unknown command \"" + tok[0].text + "\"");
    Command c;
    c.op = op->second;
    c.line = lineNo;
    c.source = restOf(line, 0);
    std::size_t n = tok.size();
    auto target = [&](std::size_t i) { return i < n && toTarget(tok[i], c.target); };
    auto number = [&](std::size_t i, int& v) { return i < n && !tok[i].quoted && toInt(tok[i].text, v); };
    auto string = [&](std::size_t i) {
      if (i >= n || !tok[i].quoted) return false;
      c.text = CZelString::fromUtf8(tok[i].text);
      c.hasText = true;
      return true;
    };
    auto count = [&](std::size_t k) { return n == k; };
    const std::string& cmd = tok[0].text;
    std::string usage;
    bool ok = true;
    switch (c.op) {
      case Op::Click: case Op::Leave: case Op::Dump:
        ok = count(2) && target(1);
        usage = cmd + " CONTROL";
        break;
      case Op::Type: case Op::Enter:
        ok = count(3) && target(1) && string(2);
        usage = cmd + " CONTROL \"text\"";
        break;
      case Op::Select:
        ok = count(3) && target(1) && (string(2) || (c.hasNumber = number(2, c.number)));
        usage = "select CONTROL LINE or select CONTROL \"text\"";
        break;
      case Op::DblClick: case Op::Check: case Op::Uncheck:
        ok = count(3) && target(1) && (c.hasNumber = number(2, c.number));
        usage = cmd + " CONTROL LINE";
        break;
      case Op::Tab: case Op::Answer:
        ok = count(2) && (c.hasNumber = number(1, c.number));
        usage = cmd + " NUMBER";
        break;
      case Op::Menu:
        ok = count(4) && target(1) && number(2, c.number) && number(3, c.number2);
        usage = "menu CONTROL X Y";
        break;
      case Op::Choose:
        ok = count(2) && (string(1) || (!tok[1].quoted && tok[1].text == "none" && !(c.word = "none").empty()) ||
                          (c.hasNumber = number(1, c.number)));
        usage = "choose COMMAND, choose \"text\" or choose none";
        break;
      case Op::Ok: case Op::Cancel:
        ok = count(1);
        usage = cmd;
        break;
      case Op::Key:
        ok = count(3) && target(1) && !tok[2].quoted;
        if (ok) c.word = tok[2].text;
        usage = "key CONTROL ENTER|ESCAPE|TAB|UP|DOWN|LEFT|RIGHT|HOME|END|DELETE|SPACE|F1|F2";
        break;
      case Op::Drag:
        ok = count(4) && target(1) && number(2, c.number) && number(3, c.number2);
        usage = "drag CONTROL FROM TO";
        break;
      case Op::Label:
        ok = count(4) && target(1) && (c.hasNumber = number(2, c.number)) && string(3);
        usage = "label CONTROL LINE \"text\"";
        break;
      case Op::ExpectBox:
        ok = count(2) && string(1);
        usage = "expect-box \"text\"";
        break;
      case Op::ExpectStore: {
        usage = "expect-store KEY VALUE (store-file JSON or absent)";
        ok = n >= 3 && !tok[1].quoted;
        if (!ok) break;
        c.word = tok[1].text;
        c.json = restOf(line, tok[1].end);
        if (c.json != "absent") {
          std::unique_ptr<CZelDataItem> parsed(CStoreFile::parse(c.json, name + ":" + std::to_string(lineNo)));
          if (!parsed) return bad("expect-store: the value is not store-file JSON: " + c.json);
        }
        break;
      }
      case Op::Expect: {
        usage = "expect CONTROL enabled|disabled|checked [LINE]|unchecked [LINE]|shown|hidden|focused|"
                "text \"…\"|items N|selected N|selected \"…\"";
        ok = n >= 3 && target(1) && !tok[2].quoted;
        if (!ok) break;
        c.word = tok[2].text;
        const std::string& w = c.word;
        if (w == "enabled" || w == "disabled" || w == "shown" || w == "hidden" || w == "focused") ok = count(3);
        else if (w == "checked" || w == "unchecked") ok = count(3) || (count(4) && (c.hasNumber = number(3, c.number)));
        else if (w == "text") ok = count(4) && string(3);
        else if (w == "items") ok = count(4) && (c.hasNumber = number(3, c.number));
        else if (w == "selected") ok = count(4) && (string(3) || (c.hasNumber = number(3, c.number)));
        else ok = false;
        break;
      }
    }
    if (!ok) {
      for (std::size_t i = 1; i < n; ++i)
        if (!tok[i].quoted && outOfRange(tok[i].text))
          return bad(tok[i].text + ": number out of range (" + std::to_string(std::numeric_limits<int>::min()) + " to " +
                     std::to_string(std::numeric_limits<int>::max()) + ")");
      return bad("usage: " + usage);
    }
    out.m_commands.push_back(std::move(c));
  }
  return true;
}

bool CDialogScript::load(const std::string& path, CDialogScript& out, std::string& error) {
  struct stat st {};
  if (::stat(path.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
    error = path + (S_ISDIR(st.st_mode) ? ": is a folder, not a script" : ": is not a regular file, not a script");
    return false;
  }
  std::string bytes;
  if (!CStoreFile::readFile(path, bytes)) {
    error = path + ": cannot read the script";
    return false;
  }
  return parse(bytes, path, out, error);
}
