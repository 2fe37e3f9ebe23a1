#include "backend/CScriptBackend.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "ui/CControlState.h"
#include "ui/CDialog.h"
#include "ui/CMenu.h"
#include "ui/CMessageBoxDlg.h"
#include "ui/CTabCtrl.h"
#include "ui/CUserAction.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

namespace {

using Op = CDialogScript::Op;

std::string quote(const CZelString& s) {
  std::string out = "\"";
  for (char c : s.toUtf8()) {
    if (c == '\n') out += "\\n";
    else if (c == '"' || c == '\\') (out += '\\') += c;
    else out += c;
  }
  return out + "\"";
}

std::string nameOf(const CWnd& w) {
  if (auto* d = dynamic_cast<const CDialog*>(&w)) return "dialog " + std::to_string(d->templateId());
  return "control " + std::to_string(w.GetDlgCtrlID());
}

std::string compactJson(const std::string& text) {
  auto parsed = nlohmann::ordered_json::parse(text, nullptr, false);
  return parsed.is_discarded() ? text : parsed.dump();
}

bool keyHasShortPart(const CZelDataKey& key) {
  for (const CZelDataKey* k = &key; k && !k->isEmpty(); k = k->next())
    if (k->type() == 5003) return true;
  return false;
}

CTabCtrl* firstTab(const CWnd& wnd) {
  for (CWnd* c : wnd.children())
    if (auto* t = dynamic_cast<CTabCtrl*>(c)) return t;
  for (CWnd* c : wnd.children())
    if (CTabCtrl* t = firstTab(*c)) return t;
  return nullptr;
}

std::string menuItems(const CMenu& menu) {
  std::string out;
  for (const CMenu::Item& item : menu.items()) {
    if (item.flags & MF_SEPARATOR) continue;
    if (!out.empty()) out += ", ";
    if (item.popup) {
      out += quote(item.text) + " [" + menuItems(*item.popup) + "]";
      continue;
    }
    out += std::to_string(item.id) + " " + quote(item.text);
    if (item.flags & (MF_GRAYED | MF_DISABLED)) out += " (disabled)";
  }
  return out;
}

bool virtualKey(std::string name, UINT& vk) {
  std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  static const std::unordered_map<std::string, UINT> keys = {
    {"ENTER", VK_RETURN}, {"RETURN", VK_RETURN}, {"ESCAPE", VK_ESCAPE}, {"ESC", VK_ESCAPE}, {"TAB", VK_TAB},
    {"UP", VK_UP}, {"DOWN", VK_DOWN}, {"LEFT", VK_LEFT}, {"RIGHT", VK_RIGHT}, {"HOME", VK_HOME}, {"END", VK_END},
    {"DELETE", VK_DELETE}, {"DEL", VK_DELETE}, {"SPACE", VK_SPACE}, {"F1", VK_F1}, {"F2", VK_F2},
  };
  auto it = keys.find(name);
  if (it == keys.end()) return false;
  vk = it->second;
  return true;
}

}  // namespace

CScriptBackend::CScriptBackend(CDialogScript script, std::ostream& out, std::ostream& err, bool trace)
    : m_script(std::move(script)), m_out(out), m_err(err), m_trace(trace) {
  if (!m_trace) return;
  m_storeWatch.reset();
  CWnd::setMessageHook([this](const CWnd& target, UINT message, WPARAM w, LPARAM l, bool posted) {
    onMessage(target, message, w, l, posted);
  });
}

CScriptBackend::~CScriptBackend() {
  if (m_trace) CWnd::setMessageHook(nullptr);
}

// --- the loop ----------------------------------------------------------------------------

void CScriptBackend::runModal(CDialog& dialog) {
  struct StackEntry {
    std::vector<CDialog*>& stack;
    StackEntry(std::vector<CDialog*>& s, CDialog* d) : stack(s) { stack.push_back(d); }
    ~StackEntry() { stack.pop_back(); }
  } entry(m_stack, &dialog);

  if (m_failed) {
    dialog.EndDialog(IDCANCEL);
    return;
  }
  if (auto* box = dynamic_cast<CMessageBoxDlg*>(&dialog)) {
    answerBox(*box);
    return;
  }
  const auto& commands = m_script.commands();
  while (!dialog.isEnded()) {
    if (m_failed) {
      dialog.EndDialog(IDCANCEL);
      break;
    }
    if (m_next >= commands.size()) {
      closeAtEnd(dialog);
      break;
    }
    const Command& command = commands[m_next++];
    execute(command, dialog);
    CWnd::pumpPostedMessages();
    if (m_trace) traceStore();
  }
}

void CScriptBackend::closeAtEnd(CDialog& dialog) {
  trace("script ended: cancelling dialog " + std::to_string(dialog.templateId()));
  dialog.SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED),
                     reinterpret_cast<LPARAM>(dialog.GetDlgItem(static_cast<int>(IDCANCEL))));
  CWnd::pumpPostedMessages();
  if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
}

void CScriptBackend::answerBox(CMessageBoxDlg& box) {
  m_lastBox = box.text();
  std::vector<int> offered = box.answers();
  auto offers = [&](int a) { return std::find(offered.begin(), offered.end(), a) != offered.end(); };
  int answer = offers(IDOK) ? IDOK : offers(IDYES) ? IDYES : box.defaultAnswer();
  if (m_answer) {
    answer = *m_answer;
    m_answer.reset();
    if (!offers(answer)) {
      std::string list;
      for (int a : offered) list += (list.empty() ? "" : ", ") + std::to_string(a);
      const Command* at = nullptr;
      for (const Command& c : m_script.commands())
        if (c.line == m_answerLine) at = &c;
      fail(at, "a message box that offers answer " + std::to_string(answer),
           "a box with the answers " + list + ": " + quote(box.text()));
      box.EndDialog(IDCANCEL);
      return;
    }
  }
  trace("message box " + quote(box.text()) + " answered " + std::to_string(answer));
  if (CWnd* button = box.GetDlgItem(answer)) CUserAction::click(*button);
  if (!box.isEnded()) box.EndDialog(answer);
}

UINT CScriptBackend::trackPopupMenu(const CMenu& menu, CWnd*, CPoint) {
  if (m_failed) return 0;
  std::string items = menuItems(menu);
  trace("context menu: " + items);
  const auto& commands = m_script.commands();
  if (m_next >= commands.size() || commands[m_next].op != Op::Choose) {
    fail(m_next < commands.size() ? &commands[m_next] : nullptr, "choose, to pick from the open context menu (" + items + ")",
         m_next < commands.size() ? commands[m_next].source : "the end of the script");
    return 0;
  }
  const Command& choose = commands[m_next++];
  m_current = &choose;
  trace(m_script.where(choose) + ": " + choose.source);
  if (choose.word == "none") return 0;
  const CMenu::Item* item = choose.hasText ? menu.findText(choose.text) : menu.findCommand(static_cast<UINT>(choose.number));
  if (!item) {
    fail(&choose, "a command of the context menu", "the menu offers " + items);
    return 0;
  }
  if (item->flags & (MF_GRAYED | MF_DISABLED)) {
    fail(&choose, "an enabled menu command", quote(item->text) + " is disabled");
    return 0;
  }
  return item->id;
}

// --- commands ---------------------------------------------------------------------------

void CScriptBackend::act(const Command& command, const std::string& problem) {
  if (!problem.empty()) fail(&command, "a control a person can use", problem);
}

void CScriptBackend::execute(const Command& command, CDialog& top) {
  m_current = &command;
  trace(m_script.where(command) + ": " + command.source);
  CWnd* c = nullptr;
  auto target = [&]() { return (c = resolve(command, top)) != nullptr; };
  switch (command.op) {
    case Op::Click:
      if (target()) act(command, CUserAction::click(*c));
      break;
    case Op::Type:
      if (target()) act(command, CUserAction::type(*c, command.text));
      break;
    case Op::Leave:
      if (target()) act(command, CUserAction::leave(*c));
      break;
    case Op::Enter:
      if (!target()) break;
      act(command, CUserAction::type(*c, command.text));
      if (!m_failed && c->GetSafeHwnd()) act(command, CUserAction::leave(*c));
      break;
    case Op::Select:
      if (target()) act(command, command.hasText ? CUserAction::select(*c, command.text) : CUserAction::select(*c, command.number));
      break;
    case Op::DblClick:
      if (target()) act(command, CUserAction::doubleClick(*c, command.number));
      break;
    case Op::Check:
    case Op::Uncheck:
      if (target()) act(command, CUserAction::setCheck(*c, command.number, command.op == Op::Check));
      break;
    case Op::Tab:
      if (CTabCtrl* tab = firstTab(top)) act(command, CUserAction::selectTab(*tab, command.number));
      else fail(&command, "a tab control", "dialog " + std::to_string(top.templateId()) + " has none");
      break;
    case Op::Menu:
      if (target()) act(command, CUserAction::rightClick(*c, CPoint(command.number, command.number2)));
      break;
    case Op::Choose: fail(&command, "an open context menu", "no context menu is open"); break;
    case Op::Answer:
      m_answer = command.number;
      m_answerLine = command.line;
      break;
    case Op::Ok:
    case Op::Cancel: {
      int id = command.op == Op::Ok ? static_cast<int>(IDOK) : static_cast<int>(IDCANCEL);
      if (CWnd* button = top.GetDlgItem(id)) act(command, CUserAction::click(*button));
      else fail(&command, "button " + std::to_string(id), "dialog " + std::to_string(top.templateId()) + " has no control " + std::to_string(id));
      break;
    }
    case Op::Expect: expect(command, top); break;
    case Op::ExpectStore: expectStore(command); break;
    case Op::ExpectBox: expectBox(command); break;
    case Op::Dump: dump(command, top); break;
    case Op::Key: {
      UINT vk = 0;
      if (!virtualKey(command.word, vk)) fail(&command, "a key name (ENTER, ESCAPE, TAB, UP, DOWN, …)", command.word);
      else if (target()) act(command, CUserAction::pressKey(*c, vk));
      break;
    }
    case Op::Drag:
      if (target()) act(command, CUserAction::dragRow(*c, command.number, command.number2));
      break;
    case Op::Label:
      if (target()) act(command, CUserAction::editLabel(*c, command.number, command.text));
      break;
  }
}

CDialog* CScriptBackend::page(const Command& command, CDialog& top) {
  int p = command.target.page;
  if (CTabCtrl* tab = firstTab(top); tab && p < tab->GetItemCount())
    if (auto* d = dynamic_cast<CDialog*>(tab->itemPage(p)); d && d->GetSafeHwnd()) return d;
  std::vector<CDialog*> pages = top.childDialogs();
  for (CDialog* d : pages)
    if (static_cast<int>(d->templateId()) == p) return d;
  if (p < static_cast<int>(pages.size())) return pages[static_cast<std::size_t>(p)];
  fail(&command, "page " + std::to_string(p), "dialog " + std::to_string(top.templateId()) + " has " + std::to_string(pages.size()) + " pages and no page " + std::to_string(p));
  return nullptr;
}

CWnd* CScriptBackend::resolve(const Command& command, CDialog& top) {
  const CDialogScript::Target& t = command.target;
  if (t.dialog) return &top;
  CDialog* scope = &top;
  if (t.page >= 0 && !(scope = page(command, top))) return nullptr;
  CWnd* c = scope->GetDlgItem(t.id);
  if (!c && t.page < 0) {
    // A control of a page may be named without its page: a shown page first, then any.
    std::vector<CDialog*> pages = top.childDialogs();
    for (CDialog* d : pages)
      if (!c && d->IsWindowVisible()) c = d->GetDlgItem(t.id);
    for (CDialog* d : pages)
      if (!c) c = d->GetDlgItem(t.id);
  }
  if (!c) {
    std::string where = "dialog " + std::to_string(top.templateId());
    if (scope != &top) where = "page " + std::to_string(scope->templateId()) + " of " + where;
    fail(&command, "control " + std::to_string(t.id), where + " has no control " + std::to_string(t.id));
  }
  return c;
}

void CScriptBackend::expect(const Command& command, CDialog& top) {
  CWnd* c = resolve(command, top);
  if (!c) return;
  const std::string& w = command.word;
  std::string expected = w, found;
  bool ok = false;
  if (w == "enabled" || w == "disabled") {
    bool enabled = c->IsWindowEnabled();
    ok = (w == "enabled") == enabled;
    found = enabled ? "enabled" : "disabled";
  } else if (w == "shown" || w == "hidden") {
    bool shown = c->IsWindowVisible();
    ok = (w == "shown") == shown;
    found = shown ? "shown" : (c->isShownItself() ? "hidden (its page is hidden)" : "hidden");
  } else if (w == "focused") {
    ok = c->hasFocus();
    CWnd* focus = c->rootWindow()->children().empty() ? nullptr : CWnd::GetFocus();
    found = focus ? "the focus on " + nameOf(*focus) : "no focus on a control";
  } else if (w == "checked" || w == "unchecked") {
    int line = command.hasNumber ? command.number : -1;
    std::string suffix = command.hasNumber ? " " + std::to_string(line) : "";
    expected += suffix;
    std::optional<int> state = CControlState::check(*c, line);
    if (!state) {
      fail(&command, expected, std::string("a ") + c->kindName() + (command.hasNumber ? " without check marks on its lines" : " without a check state"));
      return;
    }
    ok = w == "checked" ? *state == 1 : *state == 0;
    found = (*state == 1 ? "checked" : *state == 2 ? "indeterminate" : "unchecked") + suffix;
  } else if (w == "text") {
    CZelString actual = CControlState::text(*c);
    ok = actual == command.text;
    expected = "text " + quote(command.text);
    found = "text " + quote(actual);
  } else if (w == "items") {
    std::optional<int> n = CControlState::itemCount(*c);
    expected = "items " + std::to_string(command.number);
    if (!n) {
      fail(&command, expected, std::string("a ") + c->kindName() + ", which has no lines");
      return;
    }
    ok = *n == command.number;
    found = "items " + std::to_string(*n);
  } else if (w == "selected") {
    std::optional<int> s = CControlState::selected(*c);
    expected = "selected " + (command.hasText ? quote(command.text) : std::to_string(command.number));
    if (!s) {
      fail(&command, expected, std::string("a ") + c->kindName() + ", which has no lines");
      return;
    }
    CZelString selectedText = CControlState::text(*c);
    ok = command.hasText ? (*s >= 0 && selectedText == command.text) : *s == command.number;
    found = *s < 0 ? "nothing selected" : "selected " + std::to_string(*s) + " " + quote(selectedText);
  }
  if (!ok) fail(&command, expected, found);
}

void CScriptBackend::expectStore(const Command& command) {
  CZelDataKey key = CZelDataKey::fromPath(CZelString::fromUtf8(command.word));
  CZelDataItem* root = ZEL::cfgMgrPtr()->root();
  std::optional<std::string> found;
  std::optional<double> foundReal;
  if (keyHasShortPart(key)) {
    if (const resbuf* v = root->valueAt(&key)) {
      resbuf* one = ZEL::rbCopy(v);
      found = CStoreFile::valueToText(one);
      if (one->restype == RTREAL) foundReal = one->resval.rreal;
      zelRelRb(one);
    }
  } else if (CZelDataItem* item = root->find(&key)) {
    if (item->isDir()) {
      found = compactJson(CStoreFile::toText(*item));
    } else {
      found = CStoreFile::valueToText(item->value());
      if (item->value() && !item->value()->rbnext && item->value()->restype == RTREAL) foundReal = item->value()->resval.rreal;
    }
  }
  std::string shown = found ? command.word + " = " + *found : command.word + " absent";
  if (command.json == "absent") {
    if (found) fail(&command, command.word + " absent", shown);
    return;
  }
  std::unique_ptr<CZelDataItem> expected(CStoreFile::parse(command.json, m_script.where(command)));
  if (!expected) {
    fail(&command, "store-file JSON", command.json);
    return;
  }
  const resbuf* ev = expected->value();
  std::string expectedText = expected->isDir() ? compactJson(CStoreFile::toText(*expected)) : CStoreFile::valueToText(ev);
  bool ok = found && *found == expectedText;
  // Reals are compared to the last few digits, as lengths computed in two ways differ there.
  if (!ok && foundReal && ev && !ev->rbnext && ev->restype == RTREAL)
    ok = std::fabs(*foundReal - ev->resval.rreal) <= 1e-9 * std::max(1.0, std::fabs(ev->resval.rreal));
  if (!ok) fail(&command, command.word + " = " + expectedText, shown);
}

void CScriptBackend::expectBox(const Command& command) {
  if (m_lastBox && *m_lastBox == command.text) return;
  fail(&command, "a message box " + quote(command.text), m_lastBox ? "a message box " + quote(*m_lastBox) : "no message box was shown");
}

void CScriptBackend::dump(const Command& command, CDialog& top) {
  if (command.target.dialog) {
    m_out << "dump: dialog " << top.templateId() << " " << quote(top.GetWindowText()) << "\n";
    for (CWnd* c : top.children())
      if (c->kind() != WndKind::Dialog) m_out << "  " << CControlState::dump(*c) << "\n";
    for (CDialog* page : top.childDialogs()) {
      m_out << "  page " << page->templateId() << (page->IsWindowVisible() ? " shown" : " hidden") << "\n";
      for (CWnd* c : page->children())
        if (c->kind() != WndKind::Dialog) m_out << "    " << CControlState::dump(*c) << "\n";
    }
    return;
  }
  if (CWnd* c = resolve(command, top)) m_out << "dump: " << CControlState::dump(*c) << "\n";
}

int CScriptBackend::finish() {
  const auto& commands = m_script.commands();
  while (!m_failed && m_next < commands.size()) {
    const Command& command = commands[m_next++];
    m_current = &command;
    trace(m_script.where(command) + ": " + command.source);
    if (command.op == Op::ExpectStore) expectStore(command);
    else if (command.op == Op::ExpectBox) expectBox(command);
    else fail(&command, "an open dialog (after the last one closed only expect-store and expect-box can follow)", "no dialog is open");
  }
  if (!m_failed && m_answer) {
    const Command* at = nullptr;
    for (const Command& c : commands)
      if (c.line == m_answerLine) at = &c;
    fail(at, "a message box to take answer " + std::to_string(*m_answer), "no message box asked");
  }
  if (m_trace) traceStore();
  return m_failed ? 1 : 0;
}

// --- life of dialogs, failures, traces -------------------------------------------------------

void CScriptBackend::dialogOpening(CDialog& dialog) {
  if (!m_trace) return;
  traceStore();
  trace("open " + nameOf(dialog) + " " + quote(dialog.GetWindowText()));
}

void CScriptBackend::dialogClosed(CDialog& dialog) {
  if (!m_trace) return;
  traceStore();
  trace("closed " + nameOf(dialog) + ", end code " + std::to_string(dialog.result()));
}

void CScriptBackend::dialogFailed(CDialog& dialog, const std::string& message) {
  fail(m_current, nameOf(dialog) + " to run", message);
}

void CScriptBackend::fail(const Command* command, const std::string& expected, const std::string& found) {
  if (m_failed) return;
  m_failed = true;
  std::string where = command ? m_script.where(*command) + ": " + command->source : m_script.name() + ": at the end of the script";
  m_failure = where + "\n  expected: " + expected + "\n  found:    " + found;
  m_err << m_failure << "\n";
  // Every open dialog is cancelled; the loops of the nested ones end first.
  for (CDialog* d : m_stack) d->EndDialog(IDCANCEL);
}

void CScriptBackend::trace(const std::string& line) {
  if (m_trace) m_out << "trace: " << line << "\n";
}

void CScriptBackend::traceStore() {
  for (const std::string& change : m_storeWatch.changes()) m_out << "trace: store " << change << "\n";
}

void CScriptBackend::onMessage(const CWnd& target, UINT message, WPARAM wParam, LPARAM lParam, bool posted) {
  traceStore();
  std::string line = posted ? "posted " : "";
  if (message == WM_COMMAND) {
    auto* sender = reinterpret_cast<const CWnd*>(lParam);
    const char* code = sender ? winNotifyName(WM_COMMAND, HIWORD(wParam), static_cast<int>(sender->kind())) : nullptr;
    line += "WM_COMMAND " + std::to_string(LOWORD(wParam)) + " " + (code ? code : std::to_string(HIWORD(wParam)));
  } else if (message == WM_NOTIFY) {
    auto* hdr = reinterpret_cast<const NMHDR*>(lParam);
    const char* code = winNotifyName(WM_NOTIFY, hdr->code, 0);
    line += "WM_NOTIFY " + std::to_string(hdr->idFrom) + " " + (code ? code : std::to_string(static_cast<int>(hdr->code)));
  } else if (const char* name = winMessageName(message)) {
    line += name;
  } else {
    line += "message " + std::to_string(message) + " (" + std::to_string(wParam) + ", " + std::to_string(lParam) + ")";
  }
  trace(line + " -> " + nameOf(target));
}
