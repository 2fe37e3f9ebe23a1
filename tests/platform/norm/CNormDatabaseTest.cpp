// Opening the database: what a missing, a damaged and a good file give.
#include "CNormDatabase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {
std::string tempFile(const std::string& name, const std::string& content)
{
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
}
}  // namespace

TEST(CNormDatabase, AMissingFileIsReportedWithItsPathAndAnswersEmpty)
{
    const std::string path = ::testing::TempDir() + "missing-dir/qen_norm.db";
    CNormDatabase db(path);
    EXPECT_FALSE(db.isOpen());
    EXPECT_NE(db.error().find(path), std::string::npos);
    EXPECT_NE(db.error().find("not found"), std::string::npos);
    EXPECT_TRUE(db.families().empty());
    EXPECT_TRUE(db.children("").empty());
    EXPECT_FALSE(db.property("PIECE", "TYPE"));
    EXPECT_TRUE(db.standardsBelow("").empty());
    EXPECT_TRUE(db.lengths("PIECE\\SCREW\\HEX\\ISO4017\\M8").empty());
}

TEST(CNormDatabase, AFileThatIsNoDatabaseIsReportedAsDamaged)
{
    const std::string path = tempFile("qen_norm_garbage.db", std::string(4096, 'x'));
    CNormDatabase db(path);
    EXPECT_FALSE(db.isOpen());
    EXPECT_NE(db.error().find("damaged"), std::string::npos);
    EXPECT_NE(db.error().find(path), std::string::npos);
    EXPECT_TRUE(db.families().empty());
    EXPECT_TRUE(db.sizes("PIECE\\SCREW\\HEX\\ISO4017").empty());
}

TEST(CNormDatabase, AnEmptyFileIsReportedAsDamaged)
{
    const std::string path = tempFile("qen_norm_empty.db", "");
    CNormDatabase db(path);
    EXPECT_FALSE(db.isOpen());
    EXPECT_NE(db.error().find(path), std::string::npos);
    EXPECT_TRUE(db.materials("PIECE\\SCREW\\HEX\\ISO4017").empty());
}

TEST(CNormDatabase, TheBuildsDatabaseOpensWithoutAMessage)
{
    CNormDatabase db(QEN_NORM_DB_FILE);
    ASSERT_TRUE(db.isOpen()) << db.error();
    EXPECT_EQ(db.error(), "");
    EXPECT_EQ(db.families().size(), 3u);
    // The statements are reset after each use: the same query twice gives the same answer.
    EXPECT_EQ(db.sizes("PIECE\\SCREW\\HEX\\ISO4017"), db.sizes("PIECE\\SCREW\\HEX\\ISO4017"));
}

TEST(CNormDatabase, TheEnvironmentVariableNamesTheDatabase)
{
    const char* before = std::getenv("QEN_NORM_DB");
    const std::string saved = before ? before : "";
    setenv("QEN_NORM_DB", "/somewhere/else.db", 1);
    EXPECT_EQ(CNormDatabase::locate(), "/somewhere/else.db");
    unsetenv("QEN_NORM_DB");
    // Otherwise beside the program or library that holds the catalogue code.
    EXPECT_EQ(std::filesystem::path(CNormDatabase::locate()).filename(), "qen_norm.db");
    if (before)
        setenv("QEN_NORM_DB", saved.c_str(), 1);
}

TEST(CNormDatabase, TheTreeReadIntoMemoryAnswersAsTheTablesDo)
{
    CNormDatabase db(QEN_NORM_DB_FILE);
    ASSERT_TRUE(db.isOpen()) << db.error();
    EXPECT_EQ(db.children(""), (std::vector<std::string>{"BAR", "PIECE"}));
    EXPECT_EQ(db.children("PIECE\\SCREW\\HEX"), (std::vector<std::string>{"ISO4014", "ISO4017", "DIN933"}));
    EXPECT_TRUE(db.children("PIECE\\SCREW\\HEX\\ISO4017").empty());  // sizes are no tree children
    EXPECT_TRUE(db.children("PIECE\\NO").empty());
    const auto standard = db.standard("PIECE\\SCREW\\HEX\\ISO4017");
    ASSERT_TRUE(standard);
    EXPECT_EQ(standard->iso, "ISO 4017");
    EXPECT_FALSE(db.standard("PIECE\\SCREW\\HEX"));
    EXPECT_FALSE(db.standard("PIECE\\SCREW\\HEX\\ISO4017\\M12"));
    // Standards below a node: whole path elements only ("PIECE\SCREW\HEX" is not "…\HEXA").
    const auto hex = db.standardsBelow("PIECE\\SCREW\\HEX");
    ASSERT_EQ(hex.size(), 3u);
    EXPECT_EQ(hex[2].key, "DIN933");
    EXPECT_EQ(db.standardsBelow("PIECE\\SCREW\\HE").size(), 0u);
    EXPECT_EQ(db.standardsBelow("").size(), 43u);
}

TEST(CNormDatabase, ReopeningSwitchesTheProcesssDatabase)
{
    CNormDatabase::reopen(::testing::TempDir() + "no-such/qen_norm.db");
    EXPECT_FALSE(CNormDatabase::instance().isOpen());
    EXPECT_TRUE(CNormDatabase::instance().children("").empty());
    CNormDatabase::reopen(QEN_NORM_DB_FILE);
    EXPECT_TRUE(CNormDatabase::instance().isOpen());
    EXPECT_EQ(CNormDatabase::instance().children("").size(), 2u);
}
