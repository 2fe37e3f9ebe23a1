// The message server "Zel_Msg.App": answers the calls of ZelAutomationProtocol.h on a
// local socket, from the texts of a CMsgResources, for any number of clients at once.
#pragma once

#include "msgserver/CMsgResources.h"

#include <memory>
#include <string>
#include <vector>

namespace ZEL {
class CFileLock;
}

class CMsgServer {
public:
  struct Options {
    std::string socketPath;
    std::string selectedKey;   // what call 1 reports until call 5 selects another
    int idleExitSeconds = 0;   // end after this long without any client; 0: never
  };

  enum class Start { Listening, AlreadyRunning, Failed };

  CMsgServer(CMsgResources& resources, Options options);
  ~CMsgServer();
  CMsgServer(const CMsgServer&) = delete;
  CMsgServer& operator=(const CMsgServer&) = delete;

  // Takes the socket: its folder is made (mode 0700) when missing, a stale socket left by a
  // server that died is replaced. AlreadyRunning when another server holds it.
  Start listen();
  // Serves until call 6, SIGTERM or SIGINT, or the idle time; the exit status.
  int run();

  // The answer line to one request line (without LF), as sent on the socket; sets
  // quitRequested() for call 6.
  std::string answer(std::string_view requestLine);
  bool quitRequested() const { return m_quit; }
  const std::string& selectedKey() const { return m_options.selectedKey; }
  const std::string& error() const { return m_error; }

private:
  struct Client {
    int fd = -1;
    std::string input;
    std::string output;
    bool closing = false;  // close once the output is sent
  };

  void acceptClients();
  void readFrom(Client& client);
  void writeTo(Client& client);

  CMsgResources& m_resources;
  Options m_options;
  std::unique_ptr<ZEL::CFileLock> m_lock;
  int m_listenFd = -1;
  std::vector<Client> m_clients;
  bool m_quit = false;
  std::string m_error;
};
