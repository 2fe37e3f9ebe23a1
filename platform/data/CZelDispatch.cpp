// A connection to a running local automation server.
#include "data/CZelDispatch.h"

#include "data/ZelAutomationProtocol.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace ZEL {

std::unique_ptr<CZelDispatch> CZelDispatch::connect(const std::string& socketPath) {
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  if (socketPath.size() >= sizeof(addr.sun_path)) return nullptr;
  std::memcpy(addr.sun_path, socketPath.c_str(), socketPath.size() + 1);
  // Non-blocking, so that a server whose backlog is full refuses at once (EAGAIN)
  // instead of blocking the connect.
  int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (fd < 0) return nullptr;
  if (::connect(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof(addr)) != 0) {
    ::close(fd);
    return nullptr;
  }
  return std::unique_ptr<CZelDispatch>(new CZelDispatch(fd));
}

CZelDispatch::~CZelDispatch() {
  if (m_fd >= 0) ::close(m_fd);
}

void CZelDispatch::breakOff(std::string why) {
  m_error = std::move(why);
  if (m_fd >= 0) ::close(m_fd);
  m_fd = -1;
}

std::optional<std::string> CZelDispatch::invoke(int dispId, const std::vector<std::string>& args, int timeoutMs) {
  if (m_fd < 0) {
    m_error = "not connected";
    return std::nullopt;
  }
  std::vector<std::string> fields{std::to_string(dispId)};
  fields.insert(fields.end(), args.begin(), args.end());
  const std::string request = automation::encodeLine(fields);
  if (request.size() > automation::kMaxLine) {
    m_error = "call " + std::to_string(dispId) + ": arguments too long";
    return std::nullopt;
  }

  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
  auto remainingMs = [&] {
    auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
  };

  std::size_t sent = 0;
  while (sent < request.size()) {
    ssize_t n = ::send(m_fd, request.data() + sent, request.size() - sent, MSG_NOSIGNAL);
    if (n > 0) { sent += static_cast<std::size_t>(n); continue; }
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
      pollfd p{m_fd, POLLOUT, 0};
      int left = remainingMs();
      if (left == 0 || ::poll(&p, 1, left) == 0) {
        breakOff("call " + std::to_string(dispId) + ": the server takes no request");
        return std::nullopt;
      }
      continue;
    }
    breakOff("call " + std::to_string(dispId) + ": connection lost");
    return std::nullopt;
  }

  std::size_t eol;
  while ((eol = m_input.find('\n')) == std::string::npos) {
    if (m_input.size() > automation::kMaxLine) {
      breakOff("call " + std::to_string(dispId) + ": answer too long");
      return std::nullopt;
    }
    pollfd p{m_fd, POLLIN, 0};
    int left = remainingMs();
    int ready = left == 0 ? 0 : ::poll(&p, 1, left);
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) {
      breakOff("call " + std::to_string(dispId) + ": no answer within " + std::to_string(timeoutMs) + " ms");
      return std::nullopt;
    }
    char buf[4096];
    ssize_t n = ::recv(m_fd, buf, sizeof(buf), 0);
    if (n < 0 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK)) continue;
    if (n <= 0) {
      breakOff("call " + std::to_string(dispId) + ": the server closed the connection");
      return std::nullopt;
    }
    m_input.append(buf, static_cast<std::size_t>(n));
  }

  std::vector<std::string> answer;
  const bool valid = automation::decodeLine(std::string_view(m_input).substr(0, eol), answer);
  m_input.erase(0, eol + 1);
  if (!valid || answer.size() != 2 || (answer[0] != "OK" && answer[0] != "ERR")) {
    breakOff("call " + std::to_string(dispId) + ": the answer is not understood");
    return std::nullopt;
  }
  if (answer[0] == "ERR") {
    m_error = "call " + std::to_string(dispId) + ": " + answer[1];
    return std::nullopt;
  }
  m_error.clear();
  return answer[1];
}

}  // namespace ZEL
