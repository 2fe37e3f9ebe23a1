#include "CVirtualDisplay.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

pid_t& serverPid() {
  static pid_t pid = 0;
  return pid;
}

void stopServer() {
  if (serverPid() <= 0) return;
  kill(serverPid(), SIGTERM);
  waitpid(serverPid(), nullptr, 0);
  serverPid() = 0;
}

// Starts Xvfb on a free display number, which it writes to a pipe when it is ready.
std::string startXvfb() {
  int fds[2];
  if (pipe(fds) != 0) return "no pipe for Xvfb";
  pid_t pid = fork();
  if (pid < 0) return "cannot fork for Xvfb";
  if (pid == 0) {
    // The server ends with the test program, however that ends.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    int devnull = open("/dev/null", O_WRONLY);
    dup2(devnull, 1);
    dup2(devnull, 2);
    close(fds[0]);
    std::string fd = std::to_string(fds[1]);
    execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset",
           static_cast<char*>(nullptr));
    _exit(127);
  }
  close(fds[1]);
  serverPid() = pid;
  std::atexit(stopServer);
  std::string number;
  pollfd p{fds[0], POLLIN, 0};
  char c = 0;
  while (poll(&p, 1, 10000) > 0 && read(fds[0], &c, 1) == 1 && c != '\n') number += c;
  close(fds[0]);
  if (number.empty()) return "Xvfb did not start";
  setenv("DISPLAY", (":" + number).c_str(), 1);
  return {};
}

}  // namespace

bool CVirtualDisplay::hasProgram(const std::string& name) {
  return std::system(("command -v " + name + " > /dev/null 2>&1").c_str()) == 0;
}

std::string CVirtualDisplay::ensure() {
  static std::string why = [] {
    if (hasProgram("Xvfb")) return startXvfb();
    if (const char* d = std::getenv("DISPLAY"); d && *d) return std::string();
    return std::string("no display: DISPLAY is not set and Xvfb is not installed");
  }();
  return why;
}
