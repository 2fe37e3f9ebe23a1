// Reading the catalogue's CSV tables.
#include "CNormCsv.h"

#include <gtest/gtest.h>

TEST(CNormCsv, QuotedCellsKeepTheirCommas)
{
    std::string why;
    const auto table = CNormCsv::parse("key,title\nISO4017,\"Hexagon head screw, thread to head\"\r\n", "t.csv", why);
    ASSERT_TRUE(table) << why;
    ASSERT_EQ(table->rows().size(), 1u);
    EXPECT_EQ(table->rows()[0][1], "Hexagon head screw, thread to head");
    EXPECT_EQ(table->column("title"), 1u);
    EXPECT_EQ(table->column("none"), std::nullopt);
}

TEST(CNormCsv, EmptyCellsStayEmpty)
{
    std::string why;
    const auto table = CNormCsv::parse("a,b,c\n1,,3\n", "t.csv", why);
    ASSERT_TRUE(table) << why;
    EXPECT_EQ(table->rows()[0], (std::vector<std::string>{"1", "", "3"}));
}

TEST(CNormCsv, AShortRowNamesFileAndLine)
{
    std::string why;
    EXPECT_FALSE(CNormCsv::parse("a,b\n1,2\n3\n", "pieces/X.csv", why));
    EXPECT_EQ(why, "pieces/X.csv:3: 1 cells, the header has 2");
}

TEST(CNormCsv, AnOpenQuoteAndAnEmptyFileAreRefused)
{
    std::string why;
    EXPECT_FALSE(CNormCsv::parse("a,b\n\"1,2\n", "q.csv", why));
    EXPECT_EQ(why, "q.csv:2: unterminated quote");
    EXPECT_FALSE(CNormCsv::parse("", "e.csv", why));
    EXPECT_EQ(why, "e.csv: empty, no header line");
    EXPECT_FALSE(CNormCsv::read("/no/such/file.csv", why));
    EXPECT_EQ(why, "/no/such/file.csv: cannot be read");
}
