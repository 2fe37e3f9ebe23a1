// The automation wire format: fields survive any bytes, bad escapes are refused, and the
// socket path belongs to the user.
#include "data/ZelAutomationProtocol.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

namespace proto = ZEL::automation;

TEST(AutomationProtocol, FieldsWithSeparatorsAndEscapesComeBackUnchanged) {
  const std::vector<std::string> fields{"4", "a\tb\nc\r\\d", "", "\\de\\Dämmung \\en\\Insulation"};
  const std::string line = proto::encodeLine(fields);
  ASSERT_EQ(line.back(), '\n');
  EXPECT_EQ(line.find('\n'), line.size() - 1) << "one line only";
  std::vector<std::string> back;
  ASSERT_TRUE(proto::decodeLine(std::string_view(line).substr(0, line.size() - 1), back));
  EXPECT_EQ(back, fields);
}

TEST(AutomationProtocol, AnEmptyLineIsOneEmptyField) {
  std::vector<std::string> back;
  ASSERT_TRUE(proto::decodeLine("", back));
  EXPECT_EQ(back, std::vector<std::string>{""});
}

TEST(AutomationProtocol, UnknownOrUnfinishedEscapesAreRefused) {
  std::vector<std::string> back;
  EXPECT_FALSE(proto::decodeLine("1\tab\\x", back));
  EXPECT_FALSE(proto::decodeLine("1\tab\\", back));
}

TEST(AutomationProtocol, SocketLiesInTheRuntimeFolderOrInAFolderOfTheUser) {
  const char* old = std::getenv("XDG_RUNTIME_DIR");
  const std::string saved = old ? old : "";
  ::setenv("XDG_RUNTIME_DIR", "/run/user/1234", 1);
  EXPECT_EQ(proto::socketPath("Zel_Msg.App"), "/run/user/1234/qen/Zel_Msg.App.sock");
  ::unsetenv("XDG_RUNTIME_DIR");
  EXPECT_EQ(proto::socketPath("Zel_Msg.App"), "/tmp/qen-" + std::to_string(::getuid()) + "/Zel_Msg.App.sock");
  if (old) ::setenv("XDG_RUNTIME_DIR", saved.c_str(), 1);
}
