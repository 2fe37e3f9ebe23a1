// The message server "Zel_Msg.App" on a local socket.
#include "msgserver/CMsgServer.h"

#include "data/CFileLock.h"
#include "data/ZelAutomationProtocol.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace automation = ZEL::automation;

namespace {

std::string ok(const std::string& value) { return automation::encodeLine({"OK", value}); }
std::string err(const std::string& why) { return automation::encodeLine({"ERR", why}); }

// The socket's folder must be the user's own and closed to others: whoever can write there
// could put a server of their own in our place.
bool prepareFolder(const std::string& folder, std::string& error) {
  if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
    error = folder + ": cannot be made (" + std::strerror(errno) + ")";
    return false;
  }
  struct stat st {};
  if (::lstat(folder.c_str(), &st) != 0 || !S_ISDIR(st.st_mode) || st.st_uid != ::getuid() ||
      (st.st_mode & 0077) != 0) {
    error = folder + ": not a private folder of this user";
    return false;
  }
  return true;
}

}  // namespace

CMsgServer::CMsgServer(CMsgResources& resources, Options options)
    : m_resources(resources), m_options(std::move(options)) {}

CMsgServer::~CMsgServer() {
  for (Client& c : m_clients) ::close(c.fd);
  if (m_listenFd >= 0) {
    ::close(m_listenFd);
    ::unlink(m_options.socketPath.c_str());  // still under the lock: no other server's socket
  }
}

CMsgServer::Start CMsgServer::listen() {
  const std::string& path = m_options.socketPath;
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  if (path.size() >= sizeof(addr.sun_path)) {
    m_error = path + ": too long for a socket path";
    return Start::Failed;
  }
  if (!prepareFolder(std::filesystem::path(path).parent_path().string(), m_error)) return Start::Failed;
  m_lock = std::make_unique<ZEL::CFileLock>(path, 0);
  if (!m_lock->isLocked()) {
    m_error = m_lock->error();
    return Start::AlreadyRunning;
  }
  ::unlink(path.c_str());  // left by a server that died: nobody holds its lock
  std::memcpy(addr.sun_path, path.c_str(), path.size() + 1);
  m_listenFd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (m_listenFd < 0 || ::bind(m_listenFd, reinterpret_cast<const sockaddr*>(&addr), sizeof(addr)) != 0 ||
      ::listen(m_listenFd, 16) != 0) {
    m_error = path + ": cannot listen (" + std::strerror(errno) + ")";
    if (m_listenFd >= 0) ::close(m_listenFd);
    m_listenFd = -1;
    return Start::Failed;
  }
  return Start::Listening;
}

std::string CMsgServer::answer(std::string_view requestLine) {
  std::vector<std::string> f;
  if (!automation::decodeLine(requestLine, f)) return err("invalid escape in the request");
  const std::string& call = f[0];
  const std::size_t args = f.size() - 1;
  auto wrongArgs = [&](int wanted) {
    return err("call " + call + " takes " + std::to_string(wanted) + " argument(s), not " + std::to_string(args));
  };
  if (call == "1") {
    if (args != 0) return wrongArgs(0);
    return ok(m_options.selectedKey);
  }
  if (call == "2") {
    if (args != 1) return wrongArgs(1);
    return ok(m_resources.loadFile(f[1]) ? "1" : "0");
  }
  if (call == "4") {
    if (args != 2) return wrongArgs(2);
    return ok(m_resources.text(f[1], f[2]));
  }
  if (call == "5") {
    if (args != 1) return wrongArgs(1);
    m_options.selectedKey = f[1];
    return ok(m_resources.hasKey(f[1]) ? "1" : "0");
  }
  if (call == "6") {
    if (args != 0) return wrongArgs(0);
    m_quit = true;
    return ok("1");
  }
  return err("unknown call " + call);
}

void CMsgServer::acceptClients() {
  for (;;) {
    int fd = ::accept4(m_listenFd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (fd < 0) return;
    m_clients.push_back(Client{fd, {}, {}, false});
  }
}

void CMsgServer::readFrom(Client& c) {
  if (c.closing) return;
  char buf[4096];
  for (;;) {
    ssize_t n = ::recv(c.fd, buf, sizeof(buf), 0);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) break;
    if (n < 0) {  // the connection broke: answers still owed cannot be delivered
      c.closing = true;
      c.output.clear();
      return;
    }
    if (n == 0) {  // the client is done sending: answer what it sent, then close
      c.closing = true;
      break;
    }
    c.input.append(buf, static_cast<std::size_t>(n));
  }
  std::size_t eol;
  while (!m_quit && (eol = c.input.find('\n')) != std::string::npos) {
    c.output += answer(std::string_view(c.input).substr(0, eol));
    c.input.erase(0, eol + 1);
  }
  if (c.input.size() > automation::kMaxLine) {
    c.output += err("request too long");
    c.input.clear();
    c.closing = true;
  }
}

void CMsgServer::writeTo(Client& c) {
  while (!c.output.empty()) {
    ssize_t n = ::send(c.fd, c.output.data(), c.output.size(), MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return;
    if (n <= 0) {
      c.output.clear();
      c.closing = true;
      return;
    }
    c.output.erase(0, static_cast<std::size_t>(n));
  }
}

int CMsgServer::run() {
  if (m_listenFd < 0) return 1;
  // SIGTERM and SIGINT are let through only inside ppoll, so that none is lost between a
  // look at the flag and the wait.
  static volatile std::sig_atomic_t stop = 0;
  struct sigaction sa {};
  sa.sa_handler = [](int) { stop = 1; };
  ::sigaction(SIGTERM, &sa, nullptr);
  ::sigaction(SIGINT, &sa, nullptr);
  sigset_t blocked, before, during;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  sigaddset(&blocked, SIGINT);
  ::sigprocmask(SIG_BLOCK, &blocked, &before);
  during = before;
  sigdelset(&during, SIGTERM);
  sigdelset(&during, SIGINT);

  using Clock = std::chrono::steady_clock;
  auto idleSince = Clock::now();
  while (!stop) {
    std::vector<pollfd> fds{{m_listenFd, POLLIN, 0}};
    for (const Client& c : m_clients)
      fds.push_back({c.fd, static_cast<short>(c.output.empty() ? POLLIN : POLLIN | POLLOUT), 0});
    timespec tick{0, 200 * 1000 * 1000};
    const bool idleWatch = m_options.idleExitSeconds > 0 && m_clients.empty();
    int r = ::ppoll(fds.data(), fds.size(), idleWatch ? &tick : nullptr, &during);
    if (r < 0 && errno != EINTR) {
      m_error = std::string("poll: ") + std::strerror(errno);
      return 1;
    }
    if (r > 0) {
      for (std::size_t i = 0; i < m_clients.size(); ++i) {
        const short ev = fds[i + 1].revents;
        if (ev & (POLLIN | POLLHUP | POLLERR)) readFrom(m_clients[i]);
        if (!m_clients[i].output.empty()) writeTo(m_clients[i]);
      }
      if (fds[0].revents & POLLIN) acceptClients();
    }
    std::erase_if(m_clients, [](const Client& c) {
      const bool done = c.closing && c.output.empty();
      if (done) ::close(c.fd);
      return done;
    });
    if (m_quit) break;
    if (!m_clients.empty()) idleSince = Clock::now();
    else if (m_options.idleExitSeconds > 0 && Clock::now() - idleSince >= std::chrono::seconds(m_options.idleExitSeconds))
      break;
  }
  ::sigprocmask(SIG_SETMASK, &before, nullptr);
  // Answers already sent stay delivered; the clients see the end of the connection now
  // rather than when the program has finished tidying up.
  for (Client& c : m_clients) ::close(c.fd);
  m_clients.clear();
  return 0;
}
