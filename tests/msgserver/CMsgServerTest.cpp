// The message server: its answers to each call, and how it takes its socket.
#include "msgserver/CMsgServer.h"

#include "data/ZelAutomationProtocol.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>
#include <sys/wait.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace proto = ZEL::automation;

class MsgServer : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(resources.load("[QEN_TXT_001]\nde,at = Dichtung\nen = Seal\n", "builtin"));
    dir = std::filesystem::temp_directory_path() / ("qen-msgsrv-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    options.socketPath = (dir / "run" / "Zel_Msg.App.sock").string();
  }
  void TearDown() override { std::filesystem::remove_all(dir); }

  // The answer to a request given as fields, as (status, value).
  std::pair<std::string, std::string> ask(CMsgServer& server, const std::vector<std::string>& request) {
    std::string line = proto::encodeLine(request);
    line.pop_back();
    std::string reply = server.answer(line);
    EXPECT_EQ(reply.back(), '\n');
    reply.pop_back();
    std::vector<std::string> f;
    EXPECT_TRUE(proto::decodeLine(reply, f));
    EXPECT_EQ(f.size(), 2u);
    return {f[0], f.size() > 1 ? f[1] : ""};
  }

  using Answer = std::pair<std::string, std::string>;
  CMsgResources resources;
  CMsgServer::Options options;
  std::filesystem::path dir;
};

}  // namespace

TEST_F(MsgServer, Call1ReportsTheKeySelectedAtStartOrByCall5) {
  options.selectedKey = "QEN_TXT_001";
  CMsgServer server(resources, options);
  EXPECT_EQ(ask(server, {"1"}), (Answer{"OK", "QEN_TXT_001"}));
  EXPECT_EQ(ask(server, {"5", "QEN_OTHER"}), (Answer{"OK", "0"})) << "selected, but it has no texts";
  EXPECT_EQ(ask(server, {"1"}), (Answer{"OK", "QEN_OTHER"}));
  EXPECT_EQ(ask(server, {"5", ""}), (Answer{"OK", "0"}));
  EXPECT_EQ(ask(server, {"1"}), (Answer{"OK", ""}));
}

TEST_F(MsgServer, Call4GivesTheTextOfAKeyPerCountryCode) {
  CMsgServer server(resources, options);
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001", "at"}), (Answer{"OK", "Dichtung"}));
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001", "EN"}), (Answer{"OK", "Seal"}));
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001", "fr"}), (Answer{"OK", ""}));
  EXPECT_EQ(ask(server, {"4", "QEN_NONE", "de"}), (Answer{"OK", ""}));
}

TEST_F(MsgServer, Call2LoadsAUserFileOverTheTextsAndTellsWhetherItCould) {
  const auto user = dir / "qen_user.rsx";
  std::ofstream(user) << "[QEN_TXT_001]\nfr = Joint\n";
  const auto bad = dir / "bad.rsx";
  std::ofstream(bad) << "[QEN_TXT_001]\nit Guarnizione\n";
  CMsgServer server(resources, options);
  EXPECT_EQ(ask(server, {"2", user.string()}), (Answer{"OK", "1"}));
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001", "fr"}), (Answer{"OK", "Joint"}));
  EXPECT_EQ(ask(server, {"2", bad.string()}), (Answer{"OK", "0"}));
  EXPECT_EQ(ask(server, {"2", (dir / "missing.rsx").string()}), (Answer{"OK", "0"}));
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001", "de"}), (Answer{"OK", "Dichtung"}));
}

TEST_F(MsgServer, RefusesUnknownCallsWrongArgumentsAndBadLines) {
  CMsgServer server(resources, options);
  EXPECT_EQ(ask(server, {"3"}).first, "ERR");
  EXPECT_EQ(ask(server, {"x"}).first, "ERR");
  EXPECT_EQ(ask(server, {"4", "QEN_TXT_001"}), (Answer{"ERR", "call 4 takes 2 argument(s), not 1"}));
  EXPECT_EQ(ask(server, {"1", "extra"}).first, "ERR");
  EXPECT_EQ(server.answer("4\tQEN\\q\tde"), proto::encodeLine({"ERR", "invalid escape in the request"}));
  EXPECT_FALSE(server.quitRequested());
}

TEST_F(MsgServer, Call6AsksTheServerToEnd) {
  CMsgServer server(resources, options);
  EXPECT_EQ(ask(server, {"6"}), (Answer{"OK", "1"}));
  EXPECT_TRUE(server.quitRequested());
}

TEST_F(MsgServer, TakesItsSocketInAPrivateFolderAndGivesItBackAtTheEnd) {
  {
    CMsgServer server(resources, options);
    ASSERT_EQ(server.listen(), CMsgServer::Start::Listening) << server.error();
    struct stat st {};
    ASSERT_EQ(::stat((dir / "run").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u);
    EXPECT_TRUE(std::filesystem::is_socket(options.socketPath));

    CMsgServer second(resources, options);
    EXPECT_EQ(second.listen(), CMsgServer::Start::AlreadyRunning);
    EXPECT_TRUE(std::filesystem::is_socket(options.socketPath)) << "the second one leaves the socket alone";
  }
  EXPECT_FALSE(std::filesystem::exists(options.socketPath));
}

TEST_F(MsgServer, ReplacesTheSocketOfAServerThatDied) {
  std::filesystem::create_directories(dir / "run");
  std::filesystem::permissions(dir / "run", std::filesystem::perms::owner_all);
  // A socket file that nobody listens on any more.
  int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  std::snprintf(addr.sun_path, sizeof(addr.sun_path), "%s", options.socketPath.c_str());
  ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof(addr)), 0);
  ::close(fd);
  CMsgServer server(resources, options);
  EXPECT_EQ(server.listen(), CMsgServer::Start::Listening) << server.error();
}

TEST_F(MsgServer, RefusesAFolderOthersCanWriteTo) {
  std::filesystem::create_directories(dir / "run");
  std::filesystem::permissions(dir / "run", std::filesystem::perms::all);
  CMsgServer server(resources, options);
  EXPECT_EQ(server.listen(), CMsgServer::Start::Failed);
  EXPECT_NE(server.error().find("not a private folder"), std::string::npos) << server.error();
}

namespace {

int connectTo(const std::string& path) {
  int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  std::snprintf(addr.sun_path, sizeof(addr.sun_path), "%s", path.c_str());
  if (::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof(addr)) != 0) {
    ::close(fd);
    return -1;
  }
  return fd;
}

// Everything the server sends until it closes the connection.
std::string readToEnd(int fd) {
  std::string all;
  char buf[256];
  ssize_t n;
  while ((n = ::read(fd, buf, sizeof(buf))) > 0) all.append(buf, static_cast<std::size_t>(n));
  return all;
}

}  // namespace

TEST_F(MsgServer, AnswersEveryRequestOfAClientThatStoppedSendingAndEndsOnCall6) {
  CMsgServer server(resources, options);
  ASSERT_EQ(server.listen(), CMsgServer::Start::Listening) << server.error();
  int status = -1;
  std::thread serving([&] { status = server.run(); });

  int fd = connectTo(options.socketPath);
  ASSERT_GE(fd, 0);
  const std::string requests = "4\tQEN_TXT_001\tde\n1\n3\n";
  ASSERT_EQ(::write(fd, requests.data(), requests.size()), static_cast<ssize_t>(requests.size()));
  ::shutdown(fd, SHUT_WR);
  EXPECT_EQ(readToEnd(fd), "OK\tDichtung\nOK\t\nERR\tunknown call 3\n");
  ::close(fd);

  int quit = connectTo(options.socketPath);
  ASSERT_GE(quit, 0);
  ASSERT_EQ(::write(quit, "6\n", 2), 2);
  EXPECT_EQ(readToEnd(quit), "OK\t1\n");
  ::close(quit);
  serving.join();
  EXPECT_EQ(status, 0);
}

// The server as a program: requests naming a device or a FIFO are answered at once, the
// server keeps answering the others, and it ends on SIGTERM.
TEST_F(MsgServer, ADeviceOrAFifoAsResourceFileKeepsTheServerResponsiveAndStoppable) {
  std::filesystem::create_directories(dir);
  const std::string fifo = (dir / "fifo").string();
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  pid_t server = ::fork();
  ASSERT_GE(server, 0);
  if (server == 0) {
    ::execl(QEN_MSGSERVER_EXE, QEN_MSGSERVER_EXE, "--socket", options.socketPath.c_str(), static_cast<char*>(nullptr));
    ::_exit(127);
  }
  auto call = [&](const std::string& args) {
    const std::string cmd = "timeout 5 " + std::string(QEN_MSGSERVER_EXE) + " --socket " + options.socketPath + " call " + args;
    std::string out;
    if (FILE* p = ::popen(cmd.c_str(), "r")) {
      char buf[256];
      while (std::fgets(buf, sizeof(buf), p)) out += buf;
      ::pclose(p);
    }
    return out;
  };
  for (int i = 0; i < 100 && !std::filesystem::exists(options.socketPath); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  ASSERT_TRUE(std::filesystem::exists(options.socketPath));
  EXPECT_EQ(call("2 /dev/zero"), "0\n");
  EXPECT_EQ(call("2 " + fifo), "0\n");
  EXPECT_EQ(call("4 QEN_TXT_001 nope"), "\n") << "the server still answers";
  ASSERT_EQ(::kill(server, SIGTERM), 0);
  int status = 0;
  pid_t ended = 0;
  for (int i = 0; i < 100 && (ended = ::waitpid(server, &status, WNOHANG)) == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  if (ended == 0) {
    ::kill(server, SIGKILL);
    ::waitpid(server, &status, 0);
  }
  EXPECT_EQ(ended, server) << "the server did not end on SIGTERM";
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}
