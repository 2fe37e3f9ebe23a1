// The wire format between automation clients and local automation servers such as the
// message server "Zel_Msg.App" (qen-msgserver): where a server listens and how a call and
// its answer are written.
//
// Transport: a Unix-domain stream socket per programmatic identifier and user,
//   $XDG_RUNTIME_DIR/qen/<ProgID>.sock      when XDG_RUNTIME_DIR is set,
//   /tmp/qen-<uid>/<ProgID>.sock            otherwise;
// the folder is made with mode 0700 by the server, so only the user reaches it. A server
// holds "<socket>.lock" (ZEL::CFileLock) for its lifetime, so a second one started at the
// same time ends at once instead of taking the socket over.
//
// Messages: one line each, UTF-8, ended by LF; the fields of a line are separated by TAB.
// Inside a field a backslash is written "\\", a TAB "\t", a LF "\n" and a CR "\r"; any
// other backslash sequence makes the line invalid. A line holds at most kMaxLine bytes.
//   request:  <call number> [TAB <argument>]...
//   answer:   "OK" TAB <result>        or        "ERR" TAB <reason>
// The client may send several requests on one connection; each gets one answer, in
// order. Truth values are "1" and "0".
//
// Calls of the message server:
//   1  ()               → the text key currently selected in the server ("" when none)
//   2  (file)           → "1" when the resource file was loaded, "0" when it could not be
//   4  (key, country)   → the key's text for that country code ("" when it has none)
//   5  (key)            → selects the key that call 1 reports; "1" when the key has texts
//   6  ()               → "1", then the server closes its socket and ends
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZEL::automation {

constexpr int kCallSelectedKey = 1;
constexpr int kCallLoadResourceFile = 2;
constexpr int kCallText = 4;
constexpr int kCallSelectKey = 5;
constexpr int kCallQuit = 6;

constexpr std::size_t kMaxLine = 64 * 1024;

// The socket path of the server of `progId` for the current user.
std::string socketPath(std::string_view progId);

// One line, with the trailing LF.
std::string encodeLine(const std::vector<std::string>& fields);
// Splits a line (without its LF) into fields; false when an escape is invalid.
bool decodeLine(std::string_view line, std::vector<std::string>& fields);

}  // namespace ZEL::automation
