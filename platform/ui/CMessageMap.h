// Message maps as data: a static table per window class from (message, notification code,
// control ID) to a member handler or to a command word for the class's one command handler.
//
//   const CMessageMapEntry CBlockTab::kEntries[] = {
//     msgmap::word(10388, BN_CLICKED, L"screen"),
//     msgmap::command<&CBlockTab::OnMaterial>(10411),
//     msgmap::message<&CBlockTab::OnRefreshPage>(10112),
//   };
//   const CMessageMap CBlockTab::kMessageMap{&CZelDlg::kMessageMap, kEntries,
//                                          msgmap::wordHandler<&CBlockTab::command>()};
#pragma once

#include "data/CZelString.h"
#include "ui/WinConst.h"
#include "ui/WinStructs.h"

#include <cstddef>

class CWnd;
struct CMessageMapEntry;

using CMsgThunk = LRESULT (*)(CWnd* self, const CMessageMapEntry& entry, UINT message, WPARAM wParam, LPARAM lParam);
using CWordThunk = void (*)(CWnd* self, const wchar_t* word);

struct CMessageMapEntry {
  UINT message = 0;  // WM_COMMAND, WM_NOTIFY or the message itself
  UINT code = 0;     // notification code of WM_COMMAND and WM_NOTIFY rows
  UINT id = 0;       // control ID (first of a range)
  UINT lastId = 0;   // last control ID of a range
  const wchar_t* word = nullptr;  // command word handed to the class's command handler
  CMsgThunk thunk = nullptr;

  bool matches(UINT msg, WPARAM wParam, LPARAM lParam) const;
};

class CMessageMap {
public:
  template <std::size_t N>
  constexpr CMessageMap(const CMessageMap* base, const CMessageMapEntry (&entries)[N], CWordThunk wordHandler = nullptr)
      : m_base(base), m_entries(entries), m_count(N), m_wordHandler(wordHandler) {}
  constexpr explicit CMessageMap(const CMessageMap* base) : m_base(base) {}

  const CMessageMap* base() const { return m_base; }
  // The row for a message in this table (not its bases), or none.
  const CMessageMapEntry* find(UINT message, WPARAM wParam, LPARAM lParam) const;
  CWordThunk wordHandler() const { return m_wordHandler; }

private:
  const CMessageMap* m_base = nullptr;
  const CMessageMapEntry* m_entries = nullptr;
  std::size_t m_count = 0;
  CWordThunk m_wordHandler = nullptr;
};

namespace msgmap {

template <class>
struct MemberOf;
template <class T, class R, class... A>
struct MemberOf<R (T::*)(A...)> {
  using type = T;
};
template <auto Fn>
using ClassOf = typename MemberOf<decltype(Fn)>::type;

template <auto Fn>
LRESULT callVoid(CWnd* self, const CMessageMapEntry&, UINT, WPARAM, LPARAM) {
  (static_cast<ClassOf<Fn>*>(self)->*Fn)();
  return 0;
}
template <auto Fn>
LRESULT callRange(CWnd* self, const CMessageMapEntry&, UINT message, WPARAM wParam, LPARAM lParam) {
  UINT id = message == WM_NOTIFY ? static_cast<UINT>(reinterpret_cast<const NMHDR*>(lParam)->idFrom) : LOWORD(wParam);
  (static_cast<ClassOf<Fn>*>(self)->*Fn)(id);
  return 0;
}
template <auto Fn>
LRESULT callNotify(CWnd* self, const CMessageMapEntry&, UINT, WPARAM, LPARAM lParam) {
  LRESULT result = 0;
  (static_cast<ClassOf<Fn>*>(self)->*Fn)(reinterpret_cast<NMHDR*>(lParam), &result);
  return result;
}
template <auto Fn>
LRESULT callMessage(CWnd* self, const CMessageMapEntry&, UINT, WPARAM wParam, LPARAM lParam) {
  return (static_cast<ClassOf<Fn>*>(self)->*Fn)(wParam, lParam);
}
template <auto Fn>
LRESULT callContextMenu(CWnd* self, const CMessageMapEntry&, UINT, WPARAM wParam, LPARAM lParam) {
  (static_cast<ClassOf<Fn>*>(self)->*Fn)(reinterpret_cast<CWnd*>(wParam), CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
  return 0;
}
template <auto Fn>
void callWord(CWnd* self, const wchar_t* word) {
  (static_cast<ClassOf<Fn>*>(self)->*Fn)(CZelString(word));
}

// A control notification by WM_COMMAND: `void T::fn()`.
template <auto Fn>
constexpr CMessageMapEntry command(UINT id, UINT code = BN_CLICKED) {
  return {WM_COMMAND, code, id, id, nullptr, &callVoid<Fn>};
}
// The same notification from a range of controls: `void T::fn(UINT id)`.
template <auto Fn>
constexpr CMessageMapEntry commandRange(UINT first, UINT last, UINT code = BN_CLICKED) {
  return {WM_COMMAND, code, first, last, nullptr, &callRange<Fn>};
}
// A common-control notification by WM_NOTIFY: `void T::fn(NMHDR*, LRESULT*)`.
template <auto Fn>
constexpr CMessageMapEntry notify(UINT id, UINT code) {
  return {WM_NOTIFY, code, id, id, nullptr, &callNotify<Fn>};
}
// Any other message, private ones included: `LRESULT T::fn(WPARAM, LPARAM)`.
template <auto Fn>
constexpr CMessageMapEntry message(UINT msg) {
  return {msg, 0, 0, 0, nullptr, &callMessage<Fn>};
}
// WM_CONTEXTMENU: `void T::fn(CWnd* clicked, CPoint screenPoint)`.
template <auto Fn>
constexpr CMessageMapEntry contextMenu() {
  return {WM_CONTEXTMENU, 0, 0, 0, nullptr, &callContextMenu<Fn>};
}
// Rows that turn a notification or message into a command word.
constexpr CMessageMapEntry word(UINT id, UINT code, const wchar_t* w) { return {WM_COMMAND, code, id, id, w, nullptr}; }
constexpr CMessageMapEntry wordNotify(UINT id, UINT code, const wchar_t* w) { return {WM_NOTIFY, code, id, id, w, nullptr}; }
constexpr CMessageMapEntry wordMessage(UINT msg, const wchar_t* w) { return {msg, 0, 0, 0, w, nullptr}; }
// The class's command handler: `void T::fn(const CZelString& word)`.
template <auto Fn>
constexpr CWordThunk wordHandler() {
  return &callWord<Fn>;
}

}  // namespace msgmap
