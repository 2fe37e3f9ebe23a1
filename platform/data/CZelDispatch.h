// A connection to a running local automation server: calls by number with string
// arguments, each answered or given up within a bound (protocol: ZelAutomationProtocol.h).
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ZEL {

class CZelDispatch {
public:
  // The most a call waits for its answer. A server that accepts a call and never answers
  // must not hang the dialog that asked; a healthy one answers in microseconds.
  static constexpr int kCallTimeoutMs = 2000;

  // Connects to the server listening on `socketPath`; none when nobody listens there
  // (no socket, a stale socket, a full backlog). Never waits.
  static std::unique_ptr<CZelDispatch> connect(const std::string& socketPath);
  ~CZelDispatch();
  CZelDispatch(const CZelDispatch&) = delete;
  CZelDispatch& operator=(const CZelDispatch&) = delete;

  // The result of call `dispId`; none when the server reported an error, gave no answer
  // within `timeoutMs`, or the connection broke. After a lost answer the connection is
  // unusable (a late answer would be taken for the next call's), see isBroken().
  std::optional<std::string> invoke(int dispId, const std::vector<std::string>& args,
                                    int timeoutMs = kCallTimeoutMs);
  bool isBroken() const { return m_fd < 0; }
  // Why the last call gave no result.
  const std::string& error() const { return m_error; }

private:
  explicit CZelDispatch(int fd) : m_fd(fd) {}
  void breakOff(std::string why);

  int m_fd = -1;
  std::string m_input;  // bytes received beyond the last answer
  std::string m_error;
};

}  // namespace ZEL
