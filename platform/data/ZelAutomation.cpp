// Finding, starting and reaching the add-on's local automation servers.
#include "data/ZelAutomation.h"

#include "data/ZelAutomationProtocol.h"
#include "data/ZelDataFiles.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace ZEL {

namespace {

struct Registration {
  const wchar_t* progId;
  const char* variable;
  const char* program;
};

const Registration kRegistry[] = {
    {L"Zel_Msg.App", "QEN_MSGSERVER", "qen-msgserver"},
};

const Registration* registration(const CZelString& progId) {
  for (const Registration& r : kRegistry)
    if (progId.match(r.progId)) return &r;
  return nullptr;
}

bool isProgram(const std::string& path) {
  struct stat st {};
  return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

bool isFile(const std::filesystem::path& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(path, ec);
}

// Writes all bytes; used between fork and exec, so only async-signal-safe calls.
void writeAll(int fd, const void* data, std::size_t size) {
  const char* p = static_cast<const char*>(data);
  while (size > 0) {
    ssize_t n = ::write(fd, p, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return;
    p += n;
    size -= static_cast<std::size_t>(n);
  }
}

int elapsedMs(std::chrono::steady_clock::time_point since) {
  return static_cast<int>(
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - since).count());
}

// Waits for the child's end, at most waitMs; its exit status, or -1 when it still runs.
int waitForEnd(pid_t pid, int waitMs) {
  const auto start = std::chrono::steady_clock::now();
  for (;;) {
    int status = 0;
    pid_t r = ::waitpid(pid, &status, WNOHANG);
    if (r == pid) return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
    if (r < 0 && errno != EINTR) return 128;
    if (elapsedMs(start) >= waitMs) return -1;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

bool runAttached(const std::string& path, int waitMs) {
  std::vector<char*> argv{const_cast<char*>(path.c_str()), nullptr};
  pid_t pid = ::fork();
  if (pid < 0) return false;
  if (pid == 0) {
    ::execv(path.c_str(), argv.data());
    ::_exit(127);
  }
  int status = waitForEnd(pid, waitMs < 0 ? 0 : waitMs);
  if (status >= 0) return status == 0;
  ::kill(pid, SIGKILL);
  ::waitpid(pid, nullptr, 0);
  return false;
}

// Double fork: the program is reparented at once, so no zombie is left in the caller
// whenever it ends. `execError` carries errno of a failed exec (closed on success);
// the write end of `ready` is inherited, and named in QEN_READY_FD, for the program to
// write to once it serves.
bool runDetached(const std::string& path, int waitMs) {
  int execError[2];
  int ready[2];
  if (::pipe2(execError, O_CLOEXEC) != 0) return false;
  if (::pipe2(ready, O_CLOEXEC) != 0) {
    ::close(execError[0]);
    ::close(execError[1]);
    return false;
  }
  // Everything the child needs is prepared before fork: only async-signal-safe calls after.
  std::vector<std::string> env;
  for (char** e = environ; e && *e; ++e)
    if (std::strncmp(*e, kReadyFdVariable, std::strlen(kReadyFdVariable)) != 0 ||
        (*e)[std::strlen(kReadyFdVariable)] != '=')
      env.emplace_back(*e);
  env.push_back(std::string(kReadyFdVariable) + "=" + std::to_string(ready[1]));
  std::vector<char*> envp;
  for (std::string& s : env) envp.push_back(s.data());
  envp.push_back(nullptr);
  std::vector<char*> argv{const_cast<char*>(path.c_str()), nullptr};

  pid_t pid = ::fork();
  if (pid < 0) {
    for (int fd : {execError[0], execError[1], ready[0], ready[1]}) ::close(fd);
    return false;
  }
  if (pid == 0) {
    ::setsid();
    pid_t grandchild = ::fork();
    if (grandchild != 0) ::_exit(grandchild < 0 ? 1 : 0);
    int null = ::open("/dev/null", O_RDWR);
    if (null >= 0) {
      ::dup2(null, 0);
      ::dup2(null, 1);
      ::dup2(null, 2);
    }
    ::fcntl(ready[1], F_SETFD, 0);  // the one descriptor the program inherits
    ::execve(path.c_str(), argv.data(), envp.data());
    int err = errno;
    writeAll(execError[1], &err, sizeof(err));
    ::_exit(127);
  }
  ::close(execError[1]);
  ::close(ready[1]);
  ::waitpid(pid, nullptr, 0);

  int err = 0;
  ssize_t n;
  do n = ::read(execError[0], &err, sizeof(err));
  while (n < 0 && errno == EINTR);
  ::close(execError[0]);
  const bool started = n == 0;  // closed by a successful exec

  if (started) {
    // A byte or the end of the pipe: the program serves, or ended, or closed it.
    const auto start = std::chrono::steady_clock::now();
    for (;;) {
      int left = (waitMs < 0 ? 0 : waitMs) - elapsedMs(start);
      if (left <= 0) break;
      pollfd p{ready[0], POLLIN, 0};
      int r = ::poll(&p, 1, left);
      if (r < 0 && errno == EINTR) continue;
      break;
    }
  }
  ::close(ready[0]);
  return started;
}

}  // namespace

DispatchPtr dispatchFromProgID(const CZelString& progId) {
  if (progId.isEmpty()) return nullptr;
  return DispatchPtr(CZelDispatch::connect(automation::socketPath(progId.toUtf8())));
}

CZelString serverFromProgID(const CZelString& progId) {
  const Registration* r = registration(progId);
  if (!r) return {};
  if (const char* registered = std::getenv(r->variable)) return isProgram(registered) ? CZelString::fromUtf8(registered) : CZelString();
  std::error_code ec;
  std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return {};
  std::string beside = (self.parent_path() / r->program).string();
  return isProgram(beside) ? CZelString::fromUtf8(beside) : CZelString();
}

bool execute(const CZelString& program, int waitMs, bool detached) {
  const std::string path = program.toUtf8();
  if (!isProgram(path)) return false;
  return detached ? runDetached(path, waitMs) : runAttached(path, waitMs);
}

CZelString fileFind(const CZelString& name) {
  if (name.isEmpty()) return {};
  const std::filesystem::path wanted(name.toUtf8());
  if (isFile(wanted)) return CZelString::fromUtf8(std::filesystem::absolute(wanted).string());
  if (wanted.is_absolute()) return {};
  std::vector<std::filesystem::path> folders{dataFolder()};
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config)
    folders.emplace_back(std::filesystem::path(config) / "qen");
  else if (const char* home = std::getenv("HOME"); home && *home)
    folders.emplace_back(std::filesystem::path(home) / ".config" / "qen");
  for (const auto& folder : folders)
    if (isFile(folder / wanted)) return CZelString::fromUtf8(std::filesystem::absolute(folder / wanted).string());
  return {};
}

}  // namespace ZEL
