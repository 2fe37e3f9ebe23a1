#include "ui/CRcParser.h"

#include <cctype>
#include <unordered_map>

namespace {

// clang-format off
#define QEN_SYM(x) {#x, static_cast<long>(x)}
const std::unordered_map<std::string, long>& builtins() {
  static const std::unordered_map<std::string, long> table = {
    QEN_SYM(WS_POPUP), QEN_SYM(WS_CHILD), QEN_SYM(WS_VISIBLE), QEN_SYM(WS_DISABLED), QEN_SYM(WS_CAPTION),
    QEN_SYM(WS_BORDER), QEN_SYM(WS_VSCROLL), QEN_SYM(WS_HSCROLL), QEN_SYM(WS_SYSMENU), QEN_SYM(WS_GROUP),
    QEN_SYM(WS_TABSTOP), QEN_SYM(DS_MODALFRAME), QEN_SYM(DS_CONTROL),
    QEN_SYM(BS_PUSHBUTTON), QEN_SYM(BS_DEFPUSHBUTTON), QEN_SYM(BS_CHECKBOX), QEN_SYM(BS_AUTOCHECKBOX),
    QEN_SYM(BS_RADIOBUTTON), QEN_SYM(BS_3STATE), QEN_SYM(BS_AUTO3STATE), QEN_SYM(BS_GROUPBOX),
    QEN_SYM(BS_AUTORADIOBUTTON), QEN_SYM(BS_ICON), QEN_SYM(BS_BITMAP), QEN_SYM(BS_PUSHLIKE), QEN_SYM(BS_NOTIFY),
    QEN_SYM(SS_LEFT), QEN_SYM(SS_CENTER), QEN_SYM(SS_RIGHT), QEN_SYM(SS_ICON), QEN_SYM(SS_BLACKRECT),
    QEN_SYM(SS_BLACKFRAME), QEN_SYM(SS_GRAYFRAME), QEN_SYM(SS_WHITEFRAME), QEN_SYM(SS_OWNERDRAW),
    QEN_SYM(SS_BITMAP), QEN_SYM(SS_ETCHEDFRAME), QEN_SYM(SS_NOTIFY), QEN_SYM(SS_SUNKEN),
    QEN_SYM(ES_MULTILINE), QEN_SYM(ES_PASSWORD), QEN_SYM(ES_AUTOHSCROLL), QEN_SYM(ES_READONLY),
    QEN_SYM(ES_WANTRETURN), QEN_SYM(ES_NUMBER), QEN_SYM(CBS_SIMPLE), QEN_SYM(CBS_DROPDOWN),
    QEN_SYM(CBS_DROPDOWNLIST), QEN_SYM(CBS_SORT), QEN_SYM(LBS_NOTIFY), QEN_SYM(LBS_SORT),
    QEN_SYM(LBS_MULTIPLESEL), QEN_SYM(LBS_OWNERDRAWFIXED), QEN_SYM(LBS_HASSTRINGS), QEN_SYM(LBS_EXTENDEDSEL),
    QEN_SYM(TVS_CHECKBOXES), QEN_SYM(LVS_REPORT), QEN_SYM(LVS_SINGLESEL), QEN_SYM(LVS_EDITLABELS),
    {"IDOK", 1}, {"IDCANCEL", 2}, {"IDABORT", 3}, {"IDRETRY", 4}, {"IDIGNORE", 5}, {"IDYES", 6}, {"IDNO", 7}, {"IDHELP", 9},
    {"IDC_STATIC", -1},
    {"WS_OVERLAPPED", 0}, {"WS_CLIPSIBLINGS", 0x04000000}, {"WS_CLIPCHILDREN", 0x02000000},
    {"WS_DLGFRAME", 0x00400000}, {"WS_THICKFRAME", 0x00040000}, {"WS_MINIMIZEBOX", 0x00020000},
    {"WS_MAXIMIZEBOX", 0x00010000},
    {"WS_EX_DLGMODALFRAME", 0x1}, {"WS_EX_NOPARENTNOTIFY", 0x4}, {"WS_EX_TRANSPARENT", 0x20},
    {"WS_EX_TOOLWINDOW", 0x80}, {"WS_EX_WINDOWEDGE", 0x100}, {"WS_EX_CLIENTEDGE", 0x200},
    {"WS_EX_CONTEXTHELP", 0x400}, {"WS_EX_RIGHT", 0x1000}, {"WS_EX_CONTROLPARENT", 0x10000},
    {"WS_EX_STATICEDGE", 0x20000}, {"WS_EX_APPWINDOW", 0x40000},
    {"DS_ABSALIGN", 0x1}, {"DS_SYSMODAL", 0x2}, {"DS_3DLOOK", 0x4}, {"DS_FIXEDSYS", 0x8},
    {"DS_NOFAILCREATE", 0x10}, {"DS_SETFONT", 0x40}, {"DS_SETFOREGROUND", 0x200}, {"DS_CENTER", 0x800},
    {"DS_CENTERMOUSE", 0x1000}, {"DS_CONTEXTHELP", 0x2000}, {"DS_SHELLFONT", 0x48},
    {"BS_TEXT", 0}, {"BS_LEFTTEXT", 0x20}, {"BS_RIGHTBUTTON", 0x20}, {"BS_LEFT", 0x100}, {"BS_RIGHT", 0x200},
    {"BS_CENTER", 0x300}, {"BS_TOP", 0x400}, {"BS_BOTTOM", 0x800}, {"BS_VCENTER", 0xC00},
    {"BS_MULTILINE", 0x2000}, {"BS_FLAT", 0x8000}, {"BS_OWNERDRAW", 0xB},
    {"SS_GRAYRECT", 0x5}, {"SS_WHITERECT", 0x6}, {"SS_SIMPLE", 0xB}, {"SS_LEFTNOWORDWRAP", 0xC},
    {"SS_ETCHEDHORZ", 0x10}, {"SS_ETCHEDVERT", 0x11}, {"SS_NOPREFIX", 0x80}, {"SS_CENTERIMAGE", 0x200},
    {"SS_REALSIZEIMAGE", 0x800}, {"SS_ENDELLIPSIS", 0x4000}, {"SS_PATHELLIPSIS", 0x8000},
    {"SS_WORDELLIPSIS", 0xC000},
    {"ES_LEFT", 0}, {"ES_CENTER", 0x1}, {"ES_RIGHT", 0x2}, {"ES_UPPERCASE", 0x8}, {"ES_LOWERCASE", 0x10},
    {"ES_AUTOVSCROLL", 0x40}, {"ES_NOHIDESEL", 0x100},
    {"CBS_OWNERDRAWFIXED", 0x10}, {"CBS_OWNERDRAWVARIABLE", 0x20}, {"CBS_AUTOHSCROLL", 0x40},
    {"CBS_HASSTRINGS", 0x200}, {"CBS_NOINTEGRALHEIGHT", 0x400}, {"CBS_DISABLENOSCROLL", 0x800},
    {"CBS_UPPERCASE", 0x2000}, {"CBS_LOWERCASE", 0x4000},
    {"LBS_NOREDRAW", 0x4}, {"LBS_OWNERDRAWVARIABLE", 0x20}, {"LBS_USETABSTOPS", 0x80},
    {"LBS_NOINTEGRALHEIGHT", 0x100}, {"LBS_MULTICOLUMN", 0x200}, {"LBS_WANTKEYBOARDINPUT", 0x400},
    {"LBS_DISABLENOSCROLL", 0x1000}, {"LBS_NOSEL", 0x4000},
    {"TCS_BOTTOM", 0x2}, {"TCS_MULTISELECT", 0x4}, {"TCS_FLATBUTTONS", 0x8}, {"TCS_HOTTRACK", 0x40},
    {"TCS_TABS", 0}, {"TCS_BUTTONS", 0x100}, {"TCS_SINGLELINE", 0}, {"TCS_MULTILINE", 0x200},
    {"TCS_FIXEDWIDTH", 0x400}, {"TCS_RAGGEDRIGHT", 0x800}, {"TCS_FOCUSONBUTTONDOWN", 0x1000},
    {"TCS_OWNERDRAWFIXED", 0x2000}, {"TCS_TOOLTIPS", 0x4000}, {"TCS_FOCUSNEVER", 0x8000},
    {"TVS_HASBUTTONS", 0x1}, {"TVS_HASLINES", 0x2}, {"TVS_LINESATROOT", 0x4}, {"TVS_EDITLABELS", 0x8},
    {"TVS_DISABLEDRAGDROP", 0x10}, {"TVS_SHOWSELALWAYS", 0x20}, {"TVS_NOTOOLTIPS", 0x80},
    {"TVS_TRACKSELECT", 0x200}, {"TVS_SINGLEEXPAND", 0x400}, {"TVS_INFOTIP", 0x800},
    {"TVS_FULLROWSELECT", 0x1000}, {"TVS_NOSCROLL", 0x2000}, {"TVS_NONEVENHEIGHT", 0x4000},
    {"TVS_NOHSCROLL", 0x8000},
    {"LVS_ICON", 0}, {"LVS_SMALLICON", 0x2}, {"LVS_LIST", 0x3}, {"LVS_SHOWSELALWAYS", 0x8},
    {"LVS_SORTASCENDING", 0x10}, {"LVS_SORTDESCENDING", 0x20}, {"LVS_SHAREIMAGELISTS", 0x40},
    {"LVS_NOLABELWRAP", 0x80}, {"LVS_AUTOARRANGE", 0x100}, {"LVS_OWNERDRAWFIXED", 0x400},
    {"LVS_ALIGNLEFT", 0x800}, {"LVS_OWNERDATA", 0x1000}, {"LVS_NOSCROLL", 0x2000},
    {"LVS_NOCOLUMNHEADER", 0x4000}, {"LVS_NOSORTHEADER", 0x8000},
    {"UDS_WRAP", 0x1}, {"UDS_SETBUDDYINT", 0x2}, {"UDS_ALIGNRIGHT", 0x4}, {"UDS_ALIGNLEFT", 0x8},
    {"UDS_AUTOBUDDY", 0x10}, {"UDS_ARROWKEYS", 0x20}, {"UDS_HORZ", 0x40}, {"UDS_NOTHOUSANDS", 0x80},
    {"SBS_HORZ", 0}, {"SBS_VERT", 1}, {"PBS_SMOOTH", 1}, {"LWS_TRANSPARENT", 1},
    {"LANG_NEUTRAL", 0}, {"LANG_GERMAN", 7}, {"LANG_ENGLISH", 9}, {"SUBLANG_NEUTRAL", 0},
    {"SUBLANG_DEFAULT", 1}, {"SUBLANG_GERMAN", 1}, {"SUBLANG_ENGLISH_US", 1},
  };
  return table;
}
#undef QEN_SYM
// clang-format on

constexpr DWORD kChildVisible = WS_CHILD | WS_VISIBLE;

WndKind kindOf(const std::string& cls, DWORD style) {
  std::string c;
  for (char ch : cls) c += static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
  if (c == "button") {
    switch (style & BS_TYPEMASK) {
      case BS_CHECKBOX: case BS_AUTOCHECKBOX: case BS_3STATE: case BS_AUTO3STATE: return WndKind::CheckBox;
      case BS_RADIOBUTTON: case BS_AUTORADIOBUTTON: return WndKind::RadioButton;
      case BS_GROUPBOX: return WndKind::GroupBox;
      default: return WndKind::PushButton;
    }
  }
  if (c == "static") {
    DWORD t = style & SS_TYPEMASK;
    if (t == SS_ICON || t == SS_BITMAP) return WndKind::Icon;
    if ((t >= SS_BLACKRECT && t <= SS_WHITEFRAME) || t == SS_OWNERDRAW || (t >= 0x10 && t <= SS_ETCHEDFRAME)) return WndKind::Frame;
    return WndKind::Text;
  }
  if (c == "edit" || c.rfind("richedit", 0) == 0) return WndKind::Edit;
  if (c == "combobox" || c == "comboboxex32") return WndKind::ComboBox;
  if (c == "listbox") return (style & (LBS_OWNERDRAWFIXED | 0x20)) ? WndKind::CheckListBox : WndKind::ListBox;
  if (c == "systreeview32") return WndKind::TreeView;
  if (c == "systabcontrol32") return WndKind::TabControl;
  if (c == "syslistview32") return WndKind::ListView;
  if (c == "syslink") return WndKind::SysLink;
  return WndKind::Custom;
}

}  // namespace

bool CRcParser::symbol(const std::string& name, long& value) const {
  if (auto it = m_defines.find(name); it != m_defines.end()) {
    value = it->second;
    return true;
  }
  const auto& b = builtins();
  if (auto it = b.find(name); it != b.end()) {
    value = it->second;
    return true;
  }
  return false;
}

bool CRcParser::fail(const std::string& message) { return fail(m_tok, message); }

bool CRcParser::fail(const Token& at, const std::string& message) {
  if (m_error.empty()) m_error = m_name + ":" + std::to_string(at.line) + ":" + std::to_string(at.col) + ": " + message;
  return false;
}

void CRcParser::next() {
  auto peek = [&](std::size_t k) { return m_pos + k < m_text.size() ? m_text[m_pos + k] : '\0'; };
  auto advance = [&]() {
    if (m_text[m_pos] == '\n') {
      ++m_line;
      m_col = 1;

    } else {
      ++m_col;
    }
    ++m_pos;
  };
  for (;;) {
    while (m_pos < m_text.size() && std::isspace(static_cast<unsigned char>(m_text[m_pos]))) advance();
    if (peek(0) == '/' && peek(1) == '/') {
      while (m_pos < m_text.size() && m_text[m_pos] != '\n') advance();
      continue;
    }
    if (peek(0) == '/' && peek(1) == '*') {
      advance();
      advance();
      while (m_pos < m_text.size() && !(peek(0) == '*' && peek(1) == '/')) advance();
      if (m_pos < m_text.size()) {
        advance();
        advance();
      }
      continue;
    }
    break;
  }
  m_tok = Token{};
  m_tok.line = m_line;
  m_tok.col = m_col;
  if (m_pos >= m_text.size()) return;

  char c = m_text[m_pos];
  if (std::isalpha(static_cast<unsigned char>(c)) || c == '_' || c == '#') {
    m_tok.kind = Token::Name;
    do {
      m_tok.text += m_text[m_pos];
      advance();
    } while (m_pos < m_text.size() &&
             (std::isalnum(static_cast<unsigned char>(m_text[m_pos])) || m_text[m_pos] == '_'));
    return;
  }
  if (std::isdigit(static_cast<unsigned char>(c))) {
    m_tok.kind = Token::Number;
    std::size_t start = m_pos;
    while (m_pos < m_text.size() && std::isalnum(static_cast<unsigned char>(m_text[m_pos]))) advance();
    std::string digits(m_text.substr(start, m_pos - start));
    while (!digits.empty() && (digits.back() == 'L' || digits.back() == 'l' || digits.back() == 'U' || digits.back() == 'u'))
      digits.pop_back();
    m_tok.text = digits;
    std::size_t used = 0;
    try {
      m_tok.number = std::stol(digits, &used, 0);
    } catch (...) {
      used = 0;
    }
    if (used != digits.size()) {
      m_tok.kind = Token::Punct;  // reported by the caller as unexpected
      m_tok.text = digits;
    }
    return;
  }
  if (c == '"') {
    m_tok.kind = Token::String;
    advance();
    for (;;) {
      if (m_pos >= m_text.size() || m_text[m_pos] == '\n') {
        m_tok.kind = Token::Punct;
        m_tok.text = "\"";
        return;
      }
      char ch = m_text[m_pos];
      if (ch == '"') {
        advance();
        if (peek(0) == '"') {  // "" stands for one quote
          m_tok.text += '"';
          advance();
          continue;
        }
        return;
      }
      if (ch == '\\' && m_pos + 1 < m_text.size()) {
        advance();
        char e = m_text[m_pos];
        m_tok.text += e == 'n' ? '\n' : e == 't' ? '\t' : e;
        advance();
        continue;
      }
      m_tok.text += ch;
      advance();
    }
  }
  m_tok.kind = Token::Punct;
  m_tok.text = std::string(1, c);
  advance();
}

bool CRcParser::acceptPunct(char c) {
  if (m_tok.kind == Token::Punct && m_tok.text.size() == 1 && m_tok.text[0] == c) {
    next();
    return true;
  }
  return false;
}

bool CRcParser::expectPunct(char c) {
  if (acceptPunct(c)) return true;
  return fail(std::string("'") + c + "' expected" + (m_tok.kind == Token::End ? " at the end" : ", found '" + m_tok.text + "'"));
}

bool CRcParser::isWord(const char* word) const { return m_tok.kind == Token::Name && m_tok.text == word; }

bool CRcParser::readPreprocessor() {
  // A preprocessor line: #define NAME VALUE is kept; #include, #pragma and the rest are
  // skipped (the build puts the included ID headers into the text).
  std::string directive = m_tok.text;
  int line = m_tok.line;
  if (directive == "#define") {
    next();
    if (m_tok.kind != Token::Name || m_tok.line != line) return fail("#define needs a name");
    std::string name = m_tok.text;
    next();
    long v = 0;
    if (m_tok.line != line || m_tok.kind == Token::End) {
      m_defines[name] = 0;
      return true;
    }
    if (!value(v)) return false;
    m_defines[name] = v;
    return true;
  }
  while (m_tok.kind != Token::End && m_tok.line == line) next();
  return true;
}

bool CRcParser::value(long& out) {
  long sign = 1;
  while (acceptPunct('-')) sign = -sign;
  acceptPunct('+');
  long v = 0;
  if (acceptPunct('(')) {
    if (!value(v)) return false;
    while (acceptPunct('|')) {
      long w = 0;
      if (!value(w)) return false;
      v |= w;
    }
    if (!expectPunct(')')) return false;
  } else if (m_tok.kind == Token::Number) {
    v = m_tok.number;
    next();
  } else if (m_tok.kind == Token::Name) {
    if (!symbol(m_tok.text, v)) return fail("unknown symbol " + m_tok.text);
    next();
  } else {
    return fail(m_tok.kind == Token::End ? "a number expected at the end" : "a number expected, found '" + m_tok.text + "'");
  }
  v *= sign;
  if (acceptPunct('+')) {
    long w = 0;
    if (!value(w)) return false;
    v += w;
  } else if (m_tok.kind == Token::Punct && m_tok.text == "-") {
    next();
    long w = 0;
    if (!value(w)) return false;
    v -= w;
  }
  out = v;
  return true;
}

bool CRcParser::styleList(DWORD defaults, DWORD& out) {
  DWORD style = defaults;
  do {
    bool negate = false;
    if (isWord("NOT")) {
      negate = true;
      next();
    }
    long v = 0;
    if (!value(v)) return false;
    if (negate) style &= ~static_cast<DWORD>(v);
    else style |= static_cast<DWORD>(v);
  } while (acceptPunct('|'));
  out = style;
  return true;
}

bool CRcParser::textOrId(CZelString& text) {
  if (m_tok.kind == Token::String) {
    text = CZelString::fromUtf8(m_tok.text);
    next();
    return true;
  }
  long v = 0;
  if (m_tok.kind == Token::Name && !symbol(m_tok.text, v)) {
    text = CZelString::fromUtf8(m_tok.text);
    next();
    return true;
  }
  if (!value(v)) return false;
  text = CZelString::fromUtf8(std::to_string(v));
  return true;
}

bool CRcParser::rect(CRect& r) {
  long x = 0, y = 0, w = 0, h = 0;
  if (!value(x) || !expectPunct(',') || !value(y) || !expectPunct(',') || !value(w) || !expectPunct(',') || !value(h))
    return false;
  r = CRect(static_cast<int>(x), static_cast<int>(y), static_cast<int>(w), static_cast<int>(h));
  return true;
}

bool CRcParser::control(CDialogTemplate& dlg) {
  CDialogTemplate::Control c;
  c.line = m_tok.line;
  std::string word = m_tok.text;
  Token at = m_tok;
  next();
  long id = 0;
  auto idValue = [&]() {
    if (!value(id)) return false;
    c.id = static_cast<int>(id);
    return true;
  };
  auto optionalStyles = [&](DWORD defaults, DWORD replaceDefaults) {
    c.style = defaults;
    if (!acceptPunct(',')) return true;
    if (!styleList(replaceDefaults, c.style)) return false;
    if (acceptPunct(',')) {
      DWORD ex = 0;
      if (!styleList(0, ex)) return false;
      c.exStyle = ex;
    }
    return true;
  };

  static const std::unordered_map<std::string, DWORD> textControls = {
    {"LTEXT", SS_LEFT | WS_GROUP}, {"RTEXT", SS_RIGHT | WS_GROUP}, {"CTEXT", SS_CENTER | WS_GROUP},
    {"PUSHBUTTON", BS_PUSHBUTTON | WS_TABSTOP}, {"DEFPUSHBUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP},
    {"PUSHBOX", BS_PUSHBUTTON | WS_TABSTOP}, {"CHECKBOX", BS_CHECKBOX | WS_TABSTOP},
    {"AUTOCHECKBOX", BS_AUTOCHECKBOX | WS_TABSTOP}, {"STATE3", BS_3STATE | WS_TABSTOP},
    {"AUTO3STATE", BS_AUTO3STATE | WS_TABSTOP}, {"RADIOBUTTON", BS_RADIOBUTTON},
    {"AUTORADIOBUTTON", BS_AUTORADIOBUTTON}, {"GROUPBOX", BS_GROUPBOX},
  };
  if (auto it = textControls.find(word); it != textControls.end()) {
    if (!textOrId(c.text) || !expectPunct(',') || !idValue() || !expectPunct(',') || !rect(c.rect)) return false;
    DWORD defaults = kChildVisible | it->second;
    if (!optionalStyles(defaults, defaults)) return false;
    c.className = word.size() == 5 && word.compare(1, 4, "TEXT") == 0 ? L"Static" : L"Button";
  } else if (word == "EDITTEXT" || word == "COMBOBOX" || word == "LISTBOX" || word == "SCROLLBAR") {
    if (!idValue() || !expectPunct(',') || !rect(c.rect)) return false;
    DWORD defaults = kChildVisible;
    if (word == "EDITTEXT") defaults |= WS_BORDER | WS_TABSTOP;
    else if (word == "COMBOBOX") defaults |= CBS_SIMPLE | WS_TABSTOP;
    else if (word == "LISTBOX") defaults |= LBS_NOTIFY | WS_BORDER;
    // An explicit style states a combo's kind in full (CBS_SIMPLE would turn a drop-down into
    // a drop-down list); an edit's or list's style adds to its defaults.
    if (!optionalStyles(defaults, word == "COMBOBOX" ? kChildVisible : defaults)) return false;
    c.className = word == "EDITTEXT" ? L"Edit" : word == "COMBOBOX" ? L"ComboBox" : word == "LISTBOX" ? L"ListBox" : L"ScrollBar";
  } else if (word == "ICON") {
    if (!textOrId(c.text) || !expectPunct(',') || !idValue() || !expectPunct(',')) return false;
    long x = 0, y = 0, w = 0, h = 0;
    if (!value(x) || !expectPunct(',') || !value(y)) return false;
    c.style = kChildVisible | SS_ICON;
    if (acceptPunct(',')) {
      if (!value(w) || !expectPunct(',') || !value(h)) return false;
      if (!optionalStyles(kChildVisible | SS_ICON, kChildVisible | SS_ICON)) return false;
    }
    c.rect = CRect(static_cast<int>(x), static_cast<int>(y), static_cast<int>(w ? w : 20), static_cast<int>(h ? h : 20));
    c.className = L"Static";
  } else if (word == "CONTROL") {
    if (!textOrId(c.text) || !expectPunct(',') || !idValue() || !expectPunct(',')) return false;
    if (m_tok.kind == Token::String || m_tok.kind == Token::Name) {
      c.className = CZelString::fromUtf8(m_tok.text);
      next();
    } else {
      return fail("a window class expected");
    }
    if (!expectPunct(',') || !styleList(kChildVisible, c.style) || !expectPunct(',') || !rect(c.rect)) return false;
    if (acceptPunct(',')) {
      DWORD ex = 0;
      if (!styleList(0, ex)) return false;
      c.exStyle = ex;
    }
  } else {
    return fail(at, "unknown control statement " + word);
  }
  c.kind = kindOf(c.className.toUtf8(), c.style);
  dlg.controls.push_back(std::move(c));
  return true;
}

bool CRcParser::dialog(CDialogTemplate& dlg) {
  dlg.line = m_tok.line;
  long id = 0;
  Token idTok = m_tok;
  if (!value(id)) return false;
  if (id <= 0 || id > 0xFFFF) return fail(idTok, "a dialog needs a number from 1 to 65535");
  dlg.id = static_cast<UINT>(id);
  if (!isWord("DIALOGEX") && !isWord("DIALOG")) return fail("DIALOGEX expected after the dialog's ID");
  next();
  if (!rect(dlg.rect)) return false;
  if (acceptPunct(',')) {
    long help = 0;
    if (!value(help)) return false;
  }
  dlg.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
  for (;;) {
    if (isWord("STYLE")) {
      next();
      if (!styleList(0, dlg.style)) return false;
    } else if (isWord("EXSTYLE")) {
      next();
      if (!styleList(0, dlg.exStyle)) return false;
    } else if (isWord("CAPTION")) {
      next();
      if (m_tok.kind != Token::String) return fail("CAPTION needs a string");
      dlg.caption = CZelString::fromUtf8(m_tok.text);
      next();
    } else if (isWord("FONT")) {
      next();
      long size = 0;
      if (!value(size) || !expectPunct(',')) return false;
      if (m_tok.kind != Token::String) return fail("FONT needs a face name");
      dlg.fontSize = static_cast<int>(size);
      dlg.fontFace = CZelString::fromUtf8(m_tok.text);
      next();
      while (acceptPunct(',')) {
        long ignored = 0;
        if (!value(ignored)) return false;
      }
    } else if (isWord("LANGUAGE")) {
      next();
      long a = 0, b = 0;
      if (!value(a) || !expectPunct(',') || !value(b)) return false;
    } else if (isWord("MENU") || isWord("CLASS") || isWord("CHARACTERISTICS") || isWord("VERSION")) {
      next();
      CZelString ignored;
      if (!textOrId(ignored)) return false;
    } else {
      break;
    }
  }
  if (!isWord("BEGIN") && !(m_tok.kind == Token::Punct && m_tok.text == "{")) return fail("BEGIN expected");
  next();
  while (!isWord("END") && !(m_tok.kind == Token::Punct && m_tok.text == "}")) {
    if (m_tok.kind == Token::End) return fail("END expected before the end of the script");
    if (m_tok.kind != Token::Name) return fail("a control statement expected, found '" + m_tok.text + "'");
    if (!control(dlg)) return false;
  }
  next();
  return true;
}

bool CRcParser::parse(std::string_view text, const std::string& name, std::vector<CDialogTemplate>& out, std::string& error) {
  m_text = text;
  m_name = name;
  m_pos = 0;
  m_line = m_col = 1;
  m_error.clear();
  next();
  std::vector<CDialogTemplate> found;
  while (m_tok.kind != Token::End) {
    if (m_tok.kind == Token::Name && m_tok.text[0] == '#') {
      if (!readPreprocessor()) break;
      continue;
    }
    if (isWord("LANGUAGE")) {
      next();
      long a = 0, b = 0;
      if (!value(a) || !expectPunct(',') || !value(b)) break;
      continue;
    }
    CDialogTemplate dlg;
    dlg.source = name;
    if (!dialog(dlg)) break;
    found.push_back(std::move(dlg));
  }
  if (!m_error.empty()) {
    error = m_error;
    return false;
  }
  for (auto& d : found) out.push_back(std::move(d));
  return true;
}
