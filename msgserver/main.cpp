// qen-msgserver: the add-on's message server "Zel_Msg.App", and a one-call client of it.
#include "msgserver/CMsgResources.h"
#include "msgserver/CMsgServer.h"

#include "data/CZelDispatch.h"
#include "data/ZelAutomation.h"
#include "data/ZelAutomationProtocol.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace qen_res {
extern const std::string_view qen_msgserver_builtin;
}

namespace {

const char* const kUsage =
    "usage: qen-msgserver [--socket PATH] [--resources FILE]... [--select KEY] [--idle-exit SECONDS]\n"
    "       qen-msgserver [--socket PATH] call N [ARGUMENT]...\n"
    "       qen-msgserver --check FILE\n"
    "Serves the texts of the built-in resource and of the given files on a local socket\n"
    "(default: the socket of \"Zel_Msg.App\" for this user). 'call' sends one call to the\n"
    "running server and prints its result: 1 selected key, 2 FILE load a resource file,\n"
    "4 KEY CODE text, 5 KEY select a key, 6 end the server.\n";

int usage() {
  std::fputs(kUsage, stderr);
  return 2;
}

// Tells the program that started us (ZEL::execute) that the socket is up.
void reportReady() {
  const char* fdText = std::getenv(ZEL::kReadyFdVariable);
  if (!fdText) return;
  int fd = std::atoi(fdText);
  ::unsetenv(ZEL::kReadyFdVariable);
  if (fd <= 2) return;
  [[maybe_unused]] ssize_t n = ::write(fd, "1", 1);
  ::close(fd);
}

int sendCall(const std::string& socket, const std::vector<std::string>& words) {
  auto dispatch = ZEL::CZelDispatch::connect(socket);
  if (!dispatch) {
    std::fprintf(stderr, "qen-msgserver: no server listens on %s\n", socket.c_str());
    return 1;
  }
  std::vector<std::string> args(words.begin() + 1, words.end());
  auto result = dispatch->invoke(std::atoi(words[0].c_str()), args);
  if (!result) {
    std::fprintf(stderr, "qen-msgserver: %s\n", dispatch->error().c_str());
    return 1;
  }
  std::printf("%s\n", result->c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  CMsgServer::Options options;
  options.socketPath = ZEL::automation::socketPath("Zel_Msg.App");
  std::vector<std::string> files;
  CMsgResources resources;
  if (!resources.load(qen_res::qen_msgserver_builtin, "built-in texts")) {
    std::fprintf(stderr, "qen-msgserver: %s\n", resources.error().c_str());
    return 1;
  }

  for (int i = 1; i < argc; ++i) {
    std::string_view a = argv[i];
    const bool hasValue = i + 1 < argc;
    if (a == "--socket" && hasValue) options.socketPath = argv[++i];
    else if (a == "--resources" && hasValue) files.emplace_back(argv[++i]);
    else if (a == "--select" && hasValue) options.selectedKey = argv[++i];
    else if (a == "--idle-exit" && hasValue) options.idleExitSeconds = std::atoi(argv[++i]);
    else if (a == "--check" && hasValue) {
      CMsgResources check;
      if (!check.loadFile(argv[++i])) {
        std::fprintf(stderr, "%s\n", check.error().c_str());
        return 1;
      }
      std::printf("%zu keys\n", check.keyCount());
      return 0;
    } else if (a == "call" && hasValue) {
      return sendCall(options.socketPath, std::vector<std::string>(argv + i + 1, argv + argc));
    } else {
      return usage();
    }
  }

  for (const std::string& f : files)
    if (!resources.loadFile(f)) {
      std::fprintf(stderr, "qen-msgserver: %s\n", resources.error().c_str());
      return 2;
    }

  CMsgServer server(resources, options);
  switch (server.listen()) {
    case CMsgServer::Start::Listening: break;
    case CMsgServer::Start::AlreadyRunning:
      // Started twice at once (two dialogs): the other one serves, which is what was wanted.
      reportReady();
      return 0;
    case CMsgServer::Start::Failed:
      std::fprintf(stderr, "qen-msgserver: %s\n", server.error().c_str());
      return 1;
  }
  reportReady();
  int status = server.run();
  if (status != 0) std::fprintf(stderr, "qen-msgserver: %s\n", server.error().c_str());
  return status;
}
