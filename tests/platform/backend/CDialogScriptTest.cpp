// Reading dialog scripts: commands, addresses, strings with escapes, comments and errors.
#include "backend/CDialogScript.h"

#include <gtest/gtest.h>

TEST(CDialogScriptTest, ReadsCommandsAddressesStringsAndComments) {
  CDialogScript script;
  std::string error;
  const char* text =
      "# a comment line\n"
      "\n"
      "type 1/10389 \"a \\\"b\\\" \\\\ c\\nd\"   # after a command\n"
      "select 15104/10030 3\n"
      "expect dialog text \"Klotz\"\n"
      "expect-store *ZEL_LAYER*\\SYSTEM\\PART_CON\\#2 {\"a\": [1, \"#x\"]}  # the key's #2 is a short part\n"
      "menu 10379 -4 12\r\n"
      "choose none\n";
  ASSERT_TRUE(CDialogScript::parse(text, "s.qds", script, error)) << error;
  const auto& c = script.commands();
  ASSERT_EQ(c.size(), 6u);
  EXPECT_EQ(c[0].op, CDialogScript::Op::Type);
  EXPECT_EQ(c[0].line, 3);
  EXPECT_EQ(c[0].target.page, 1);
  EXPECT_EQ(c[0].target.id, 10389);
  EXPECT_EQ(c[0].text, CZelString(L"a \"b\" \\ c\nd"));
  EXPECT_EQ(c[1].target.page, 15104);
  EXPECT_EQ(c[1].number, 3);
  EXPECT_TRUE(c[2].target.dialog);
  EXPECT_EQ(c[3].word, "*ZEL_LAYER*\\SYSTEM\\PART_CON\\#2");
  EXPECT_EQ(c[3].json, "{\"a\": [1, \"#x\"]}");
  EXPECT_EQ(c[4].number, -4);
  EXPECT_EQ(c[4].number2, 12);
  EXPECT_EQ(c[5].word, "none");
  EXPECT_EQ(script.where(c[5]), "s.qds:8");
}

TEST(CDialogScriptTest, RefusesAMalformedScriptNamingTheLine) {
  struct Case {
    const char* text;
    const char* error;
  };
  const Case cases[] = {
    {"ok\npress 1\n", "s.qds:2: unknown command \"press\""},
    {"type 10389 30\n", "s.qds:1: usage: type CONTROL \"text\""},
    {"type 10389 \"open\n", "s.qds:1: a string is not closed"},
    {"type 10389 \"a\\tb\"\n", "s.qds:1: unknown escape \\t"},
    {"expect 10389 bold\n", "s.qds:1: usage: expect CONTROL"},
    {"expect-store *A*\\B {oops\n", "s.qds:1: expect-store: the value is not store-file JSON"},
    {"click x/1\n", "s.qds:1: usage: click CONTROL"},
  };
  for (const Case& c : cases) {
    CDialogScript script;
    std::string error;
    EXPECT_FALSE(CDialogScript::parse(c.text, "s.qds", script, error)) << c.text;
    EXPECT_EQ(error.rfind(c.error, 0), 0u) << error;
  }
  CDialogScript script;
  std::string error;
  EXPECT_FALSE(CDialogScript::load("/nonexistent/s.qds", script, error));
  EXPECT_EQ(error, "/nonexistent/s.qds: cannot read the script");
}
