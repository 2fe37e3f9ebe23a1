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
