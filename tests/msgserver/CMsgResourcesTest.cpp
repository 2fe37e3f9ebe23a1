// Resource files of the message server: texts per country code, later files override
// earlier ones, and a file with an error is refused whole, naming its line.
#include "msgserver/CMsgResources.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const kTexts =
    "# texts\n"
    "\n"
    "[QEN_TXT_001]\n"
    "de, at ,CH = Glashalteleiste \n"
    "en = Glazing bead\\nsecond line\n"
    "; another comment\n"
    "[QEN_TXT_002]\n"
    "fr = Tab\\there \\\\ back\n"
    "[QEN_EMPTY]\n";

}  // namespace

TEST(MsgResources, GivesEachListedCodeItsTextIgnoringCase) {
  CMsgResources r;
  ASSERT_TRUE(r.load(kTexts, "t.rsx")) << r.error();
  EXPECT_EQ(r.text("QEN_TXT_001", "de"), "Glashalteleiste");
  EXPECT_EQ(r.text("QEN_TXT_001", "AT"), "Glashalteleiste");
  EXPECT_EQ(r.text("QEN_TXT_001", "ch"), "Glashalteleiste");
  EXPECT_EQ(r.text("QEN_TXT_001", "en"), "Glazing bead\nsecond line");
  EXPECT_EQ(r.text("QEN_TXT_002", "fr"), "Tab\there \\ back");
  EXPECT_EQ(r.keyCount(), 3u);
  EXPECT_TRUE(r.hasKey("QEN_EMPTY"));
}

TEST(MsgResources, HasNoTextForAnotherCodeOrAnUnknownKey) {
  CMsgResources r;
  ASSERT_TRUE(r.load(kTexts, "t.rsx"));
  EXPECT_EQ(r.text("QEN_TXT_001", "us"), "") << "no fallback to another code";
  EXPECT_EQ(r.text("QEN_TXT_002", "de"), "");
  EXPECT_EQ(r.text("QEN_NONE", "de"), "");
  EXPECT_EQ(r.text("qen_txt_001", "de"), "") << "keys are exact";
}

TEST(MsgResources, ALaterFileOverridesSingleTexts) {
  CMsgResources r;
  ASSERT_TRUE(r.load(kTexts, "builtin"));
  ASSERT_TRUE(r.load("[QEN_TXT_001]\nen = Bead\n[QEN_NEW]\nde = Neu\n", "user.rsx")) << r.error();
  EXPECT_EQ(r.text("QEN_TXT_001", "en"), "Bead");
  EXPECT_EQ(r.text("QEN_TXT_001", "de"), "Glashalteleiste");
  EXPECT_EQ(r.text("QEN_NEW", "de"), "Neu");
}

TEST(MsgResources, AFileWithAnErrorChangesNothingAndNamesTheLine) {
  struct Bad {
    const char* text;
    const char* error;
  };
  const Bad bads[] = {
      {"[QEN_A]\nde = a\n[QEN_B\n", "bad.rsx:3: a key line must end with ']'"},
      {"de = a\n", "bad.rsx:1: a text before the first '[KEY]'"},
      {"[QEN_A]\njust words\n", "bad.rsx:2: expected '[KEY]' or 'codes = text'"},
      {"[QEN_A]\nde = a\\q\n", "bad.rsx:2: unknown escape in the text (only \\n, \\t, \\\\)"},
      {"[QEN_A]\n = a\n", "bad.rsx:2: no country code before '='"},
      {"[QEN_A]\nde,,en = a\n", "bad.rsx:2: bad country code list"},
      {"[]\n", "bad.rsx:1: empty text key"},
      {"[QEN A]\n", "bad.rsx:1: a text key holds no blanks"},
  };
  for (const Bad& bad : bads) {
    CMsgResources r;
    ASSERT_TRUE(r.load("[QEN_A]\nde = alt\n", "builtin"));
    EXPECT_FALSE(r.load(bad.text, "bad.rsx")) << bad.text;
    EXPECT_EQ(r.error(), bad.error);
    EXPECT_EQ(r.text("QEN_A", "de"), "alt") << "nothing of a bad file is taken: " << bad.text;
    EXPECT_EQ(r.keyCount(), 1u);
  }
}

TEST(MsgResources, ToleratesAByteOrderMarkAndWindowsLineEnds) {
  CMsgResources r;
  ASSERT_TRUE(r.load("\xEF\xBB\xBF[QEN_A]\r\nde = Dämmung\r\n", "bom.rsx")) << r.error();
  EXPECT_EQ(r.text("QEN_A", "de"), "Dämmung");
}

TEST(MsgResources, AMissingFileIsReportedByPath) {
  CMsgResources r;
  EXPECT_FALSE(r.loadFile("/nonexistent/qen_user.rsx"));
  EXPECT_EQ(r.error(), "/nonexistent/qen_user.rsx: cannot be read (No such file or directory)");
}

// A resource file that is no regular file, or a huge one, is refused at once: the server
// reads it while every other client waits.
TEST(MsgResources, OnlyARegularFileOfBoundedSizeIsRead) {
  const std::filesystem::path dir = std::filesystem::temp_directory_path() / ("qen-msgres-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  CMsgResources r;
  EXPECT_FALSE(r.loadFile("/dev/zero"));
  EXPECT_EQ(r.error(), "/dev/zero: not a regular file");
  EXPECT_FALSE(r.loadFile(dir.string()));
  EXPECT_EQ(r.error(), dir.string() + ": not a regular file");
  const std::string fifo = (dir / "fifo").string();
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_FALSE(r.loadFile(fifo)) << "returns at once although nobody writes into the FIFO";
  EXPECT_EQ(r.error(), fifo + ": not a regular file");
  const std::filesystem::path big = dir / "big.rsx";
  std::ofstream(big) << "[QEN_BIG]\n";
  std::filesystem::resize_file(big, CMsgResources::kMaxFileBytes + 1);  // sparse: costs no disk
  EXPECT_FALSE(r.loadFile(big.string()));
  EXPECT_EQ(r.error(), big.string() + ": larger than " + std::to_string(CMsgResources::kMaxFileBytes) + " bytes, not a resource file");
  EXPECT_EQ(r.keyCount(), 0u);
  std::filesystem::remove_all(dir);
}
