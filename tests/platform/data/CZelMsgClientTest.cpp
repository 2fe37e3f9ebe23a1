// The message-server client: finds a running server or starts the registered one, loads
// the user's texts only into a server it started, does nothing without a server, and
// gives up on a server that does not answer.
#include "data/CZelMsgClient.h"

#include "data/ZelAutomation.h"
#include "data/ZelAutomationProtocol.h"
#include "data/ZelDataFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

long msSince(Clock::time_point t) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - t).count());
}

// Sets an environment variable for one test and puts the old value back afterwards.
class EnvVar {
public:
  explicit EnvVar(const char* name) : m_name(name) {
    if (const char* v = std::getenv(name)) m_old = v;
  }
  ~EnvVar() {
    if (m_old) ::setenv(m_name, m_old->c_str(), 1);
    else ::unsetenv(m_name);
  }
  void set(const std::string& value) { ::setenv(m_name, value.c_str(), 1); }
  void unset() { ::unsetenv(m_name); }

private:
  const char* m_name;
  std::optional<std::string> m_old;
};

class MsgClient : public ::testing::Test {
protected:
  void SetUp() override {
    root = std::filesystem::temp_directory_path() / ("qen-mc-" + std::to_string(::getpid()));
    std::filesystem::create_directories(root / "run");
    std::filesystem::create_directories(root / "config");
    std::filesystem::permissions(root / "run", std::filesystem::perms::owner_all);
    runtime.set((root / "run").string());
    config.set((root / "config").string());
    server.set(QEN_MSGSERVER_EXE);
    savedDataFolder = ZEL::dataFolder();
    ZEL::setDataFolder((root / "data").string());
    std::filesystem::create_directories(root / "data");
    socket = ZEL::automation::socketPath("Zel_Msg.App");
  }

  void TearDown() override {
    // Ends a server that a test started, and waits until its socket is gone.
    if (auto d = ZEL::CZelDispatch::connect(socket)) {
      d->invoke(ZEL::automation::kCallQuit, {});
      auto start = Clock::now();
      while (std::filesystem::exists(socket) && msSince(start) < 3000)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ZEL::setDataFolder(savedDataFolder);
    std::filesystem::remove_all(root);
  }

  void writeUserFile() {
    std::ofstream(root / "data" / "qen_user.rsx") << "[QEN_USER_1]\nde = Eigener Text\nen = Own text\n";
  }

  bool startServer() { return ZEL::execute(CZelString::fromUtf8(QEN_MSGSERVER_EXE), 2000, true); }

  std::filesystem::path root;
  std::string socket;
  std::string savedDataFolder;
  EnvVar runtime{"XDG_RUNTIME_DIR"};
  EnvVar config{"XDG_CONFIG_HOME"};
  EnvVar server{"QEN_MSGSERVER"};
};

}  // namespace

// --- no server --------------------------------------------------------------------------

TEST_F(MsgClient, WithNoServerInstalledConnectReturnsNoneAtOnce) {
  server.set("");
  ZEL::CZelMsgClient client;
  auto start = Clock::now();
  EXPECT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::None);
  EXPECT_LT(msSince(start), 100);
  EXPECT_FALSE(client.isAttached());
  EXPECT_EQ(client.error(), "no message server is installed");
}

TEST_F(MsgClient, AClientWithoutInterfaceDoesNothingAndReturnsEmpty) {
  ZEL::CZelMsgClient client;
  auto start = Clock::now();
  EXPECT_EQ(client.selectedKey(), L"");
  EXPECT_FALSE(client.loadResourceFile(L"/x/qen_user.rsx"));
  EXPECT_EQ(client.text(L"QEN_TXT_001", L"de"), L"");
  EXPECT_LT(msSince(start), 500) << "no second wait of " << ZEL::CZelDispatch::kCallTimeoutMs << " ms";
  EXPECT_FALSE(std::filesystem::exists(socket)) << "no call starts a server";
}

TEST_F(MsgClient, TheServerIsRegisteredByVariableOrBesideTheProgram) {
  EXPECT_EQ(ZEL::serverFromProgID(L"Zel_Msg.App").toUtf8(), QEN_MSGSERVER_EXE);
  EXPECT_EQ(ZEL::serverFromProgID(L"zel_msg.app").toUtf8(), QEN_MSGSERVER_EXE) << "identifiers ignore case";
  EXPECT_EQ(ZEL::serverFromProgID(L"Other.App"), L"");
  server.set((root / "missing-server").string());
  EXPECT_EQ(ZEL::serverFromProgID(L"Zel_Msg.App"), L"");
  server.unset();
  // The tests' own program folder holds no server.
  EXPECT_EQ(ZEL::serverFromProgID(L"Zel_Msg.App"), L"");
}

TEST_F(MsgClient, ARegisteredProgramThatNeverServesEndsTheTriesWithNone) {
  server.set("/bin/true");
  ZEL::CZelMsgClient client({3, 20, 100});
  auto start = Clock::now();
  EXPECT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::None);
  EXPECT_LT(msSince(start), 1000);
  EXPECT_EQ(client.error(), "/bin/true: started, but does not serve");
}

// --- a real server ----------------------------------------------------------------------

TEST_F(MsgClient, StartsTheServerWhenNoneRunsAndTalksToIt) {
  ZEL::CZelMsgClient client;
  auto start = Clock::now();
  ASSERT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::Started) << client.error();
  EXPECT_GE(msSince(start), 500) << "the first look follows the first pause";
  EXPECT_LT(msSince(start), 3000);
  EXPECT_EQ(client.text(L"QEN_TXT_001", L"de"), L"Glashalteleiste");
  EXPECT_EQ(client.text(L"QEN_TXT_001", L"en"), L"Glazing bead");
  EXPECT_EQ(client.text(L"QEN_TXT_001", L"cz"), L"");
  EXPECT_EQ(client.selectedKey(), L"");

  ZEL::CZelMsgClient second;
  EXPECT_EQ(second.connect(), ZEL::CZelMsgClient::Connection::Running);
  EXPECT_EQ(second.text(L"QEN_TXT_003", L"fr"), L"Joint");
}

TEST_F(MsgClient, LoadsTheUserTextsIntoAServerItStarted) {
  writeUserFile();
  ZEL::CZelMsgClient client;
  ASSERT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::Started) << client.error();
  EXPECT_EQ(client.text(L"QEN_USER_1", L"de"), L"Eigener Text");
}

TEST_F(MsgClient, LeavesARunningServerWithoutTheUserTexts) {
  ASSERT_TRUE(startServer());
  writeUserFile();
  ZEL::CZelMsgClient client;
  ASSERT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::Running) << client.error();
  EXPECT_EQ(client.text(L"QEN_USER_1", L"de"), L"");
  // Loading it on purpose works.
  const CZelString userFile = ZEL::fileFind(L"qen_user.rsx");
  EXPECT_EQ(userFile.toUtf8(), (root / "data" / "qen_user.rsx").string());
  EXPECT_TRUE(client.loadResourceFile(userFile));
  EXPECT_EQ(client.text(L"QEN_USER_1", L"en"), L"Own text");
  EXPECT_FALSE(client.loadResourceFile(L"/nonexistent/qen_user.rsx"));
  EXPECT_TRUE(client.isAttached()) << "a refused file does not cost the connection";
}

TEST_F(MsgClient, ReportsTheKeySelectedInTheServer) {
  ASSERT_TRUE(startServer());
  auto admin = ZEL::CZelDispatch::connect(socket);
  ASSERT_TRUE(admin);
  EXPECT_EQ(admin->invoke(ZEL::automation::kCallSelectKey, {"QEN_TXT_005"}), std::optional<std::string>("1"));
  ZEL::CZelMsgClient client;
  ASSERT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::Running);
  EXPECT_EQ(client.selectedKey(), L"QEN_TXT_005");
  EXPECT_EQ(client.text(client.selectedKey(), L"pl"), L"Izolacja");
  EXPECT_EQ(client.text(client.selectedKey(), L"de"), L"Dämmung");
}

// --- a server that does not answer ------------------------------------------------------

TEST_F(MsgClient, GivesUpOnAServerThatNeverAnswersAndThenStaysQuiet) {
  // Listens, but never accepts nor answers.
  std::filesystem::create_directories(std::filesystem::path(socket).parent_path());
  int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  std::snprintf(addr.sun_path, sizeof(addr.sun_path), "%s", socket.c_str());
  ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof(addr)), 0);
  ASSERT_EQ(::listen(fd, 4), 0);

  ZEL::CZelMsgClient client;
  ASSERT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::Running);
  auto start = Clock::now();
  EXPECT_EQ(client.selectedKey(), L"");
  // Whole milliseconds: the last one may not have been counted yet.
  const long waited = msSince(start);
  EXPECT_GE(waited, ZEL::CZelDispatch::kCallTimeoutMs - 1);
  EXPECT_LT(waited, ZEL::CZelDispatch::kCallTimeoutMs + 1000);
  EXPECT_FALSE(client.isAttached());
  EXPECT_NE(client.error().find("no answer within"), std::string::npos) << client.error();

  // The import's calls per country do not wait again.
  start = Clock::now();
  EXPECT_EQ(client.text(L"QEN_TXT_001", L"de"), L"");
  EXPECT_LT(msSince(start), 500) << "no second wait of " << ZEL::CZelDispatch::kCallTimeoutMs << " ms";
  ::close(fd);
  ::unlink(socket.c_str());
}

TEST_F(MsgClient, AStaleSocketCountsAsNoServer) {
  std::filesystem::create_directories(std::filesystem::path(socket).parent_path());
  int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un addr{};
  addr.sun_family = AF_UNIX;
  std::snprintf(addr.sun_path, sizeof(addr.sun_path), "%s", socket.c_str());
  ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof(addr)), 0);
  ::close(fd);
  EXPECT_EQ(ZEL::dispatchFromProgID(L"Zel_Msg.App"), nullptr);
  server.set("");
  ZEL::CZelMsgClient client;
  EXPECT_EQ(client.connect(), ZEL::CZelMsgClient::Connection::None);
}

// --- platform helpers -------------------------------------------------------------------

TEST_F(MsgClient, ExecuteWaitsForAnAttachedProgramAndReportsItsSuccess) {
  EXPECT_TRUE(ZEL::execute(L"/bin/true", 2000, false));
  EXPECT_FALSE(ZEL::execute(L"/bin/false", 2000, false));
  EXPECT_FALSE(ZEL::execute(CZelString::fromUtf8((root / "nothing").string()), 2000, false));
  auto start = Clock::now();
  EXPECT_FALSE(ZEL::execute(CZelString::fromUtf8((root / "nothing").string()), 2000, true));
  EXPECT_LT(msSince(start), 100);
}

TEST_F(MsgClient, ExecuteReturnsOnceADetachedServerIsReady) {
  auto start = Clock::now();
  ASSERT_TRUE(startServer());
  EXPECT_LT(msSince(start), 1500) << "the server reports readiness before the wait is over";
  EXPECT_NE(ZEL::dispatchFromProgID(L"Zel_Msg.App"), nullptr) << "it listens when execute returns";
}

TEST_F(MsgClient, FileFindLooksInTheDataFolderThenTheUserConfiguration) {
  EXPECT_EQ(ZEL::fileFind(L"qen_user.rsx"), L"");
  std::filesystem::create_directories(root / "config" / "qen");
  std::ofstream(root / "config" / "qen" / "qen_user.rsx") << "[A]\n";
  EXPECT_EQ(ZEL::fileFind(L"qen_user.rsx").toUtf8(), (root / "config" / "qen" / "qen_user.rsx").string());
  writeUserFile();
  EXPECT_EQ(ZEL::fileFind(L"qen_user.rsx").toUtf8(), (root / "data" / "qen_user.rsx").string());
  EXPECT_EQ(ZEL::fileFind(CZelString::fromUtf8((root / "data" / "qen_user.rsx").string())).toUtf8(),
            (root / "data" / "qen_user.rsx").string());
  EXPECT_EQ(ZEL::fileFind(L"/nonexistent/qen_user.rsx"), L"");
}
