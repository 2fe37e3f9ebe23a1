// Building the database: a fault names its place and leaves no database behind.
#include "CNormDbBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {
// A copy of the catalogue folder that a test may spoil.
fs::path copyCatalogue(const std::string& name)
{
    const fs::path target = fs::path(::testing::TempDir()) / name;
    fs::remove_all(target);
    fs::copy(fs::path(QEN_SOURCE_DIR) / "resources/catalogue", target, fs::copy_options::recursive);
    return target;
}
}  // namespace

TEST(CNormDbBuilder, TheCatalogueBuildsAndReplacesTheDatabase)
{
    const fs::path db = fs::path(::testing::TempDir()) / "built_norm.db";
    std::ofstream(db) << "old";
    std::string why;
    ASSERT_TRUE(CNormDbBuilder::build(QEN_SOURCE_DIR "/resources/catalogue", db.string(), why)) << why;
    EXPECT_GT(fs::file_size(db), 100000u);
    EXPECT_FALSE(fs::exists(db.string() + ".part"));
}

TEST(CNormDbBuilder, AMissingTableIsNamedAndNothingIsWritten)
{
    const fs::path folder = copyCatalogue("catalogue_missing");
    fs::remove(folder / "pieces/ISO4017-ranges.csv");
    const fs::path db = fs::path(::testing::TempDir()) / "missing_norm.db";
    fs::remove(db);
    std::string why;
    EXPECT_FALSE(CNormDbBuilder::build(folder.string(), db.string(), why));
    EXPECT_EQ(why, (folder / "pieces/ISO4017-ranges.csv").string() + ": cannot be read");
    EXPECT_FALSE(fs::exists(db));
    EXPECT_FALSE(fs::exists(db.string() + ".part"));
}

TEST(CNormDbBuilder, ABadFigureIsNamedWithFileLineAndColumn)
{
    const fs::path folder = copyCatalogue("catalogue_bad");
    std::ofstream(folder / "pieces/ISO4017-lengths.csv") << "nominal,min,max\n2,1.8,2.2\n3,2.8,x\n";
    const fs::path db = fs::path(::testing::TempDir()) / "bad_norm.db";
    std::string why;
    EXPECT_FALSE(CNormDbBuilder::build(folder.string(), db.string(), why));
    EXPECT_EQ(why, (folder / "pieces/ISO4017-lengths.csv").string() + ":3: \"x\" in column max is not a number");
}

TEST(CNormDbBuilder, AMaterialForAnUnknownStandardIsRefused)
{
    const fs::path folder = copyCatalogue("catalogue_material");
    std::ofstream(folder / "materials.csv", std::ios::app) << "X1,Stahl X,Steel X,SCREW,ISO9999\n";
    const fs::path db = fs::path(::testing::TempDir()) / "material_norm.db";
    std::string why;
    EXPECT_FALSE(CNormDbBuilder::build(folder.string(), db.string(), why));
    EXPECT_NE(why.find("materials.csv:"), std::string::npos) << why;
    EXPECT_NE(why.find("unknown standard \"ISO9999\""), std::string::npos) << why;
}

TEST(CNormDbBuilder, EveryStandardNeedsExactlyAKnownRelease)
{
    std::string why;
    {
        const fs::path folder = copyCatalogue("catalogue_no_release");
        std::ofstream(folder / "releases.csv") << "key,release\nISO4014,01\n";
        EXPECT_FALSE(CNormDbBuilder::build(folder.string(), (fs::path(::testing::TempDir()) / "r1.db").string(), why));
        EXPECT_EQ(why, (folder / "releases.csv").string() + ": no release for the standard IPE");  // the first standard built: bars come first
    }
    {
        const fs::path folder = copyCatalogue("catalogue_odd_release");
        std::ofstream(folder / "releases.csv", std::ios::app) << "ISO9999,01\n";
        EXPECT_FALSE(CNormDbBuilder::build(folder.string(), (fs::path(::testing::TempDir()) / "r2.db").string(), why));
        EXPECT_EQ(why, (folder / "releases.csv").string() + ": unknown standard \"ISO9999\"");
    }
}

TEST(CNormDbBuilder, ClampingTablesNeedTheNutOfTheirSize)
{
    const fs::path folder = copyCatalogue("catalogue_no_nut");
    // ISO 4032 without M12: the clamping tables of M12 cannot be derived.
    std::ifstream in(folder / "pieces/ISO4032.csv");
    std::string text, line;
    while (std::getline(in, line))
        if (line.rfind("M12,", 0) != 0)
            text += line + "\n";
    in.close();
    std::ofstream(folder / "pieces/ISO4032.csv") << text;
    std::string why;
    EXPECT_FALSE(CNormDbBuilder::build(folder.string(), (fs::path(::testing::TempDir()) / "nut.db").string(), why));
    EXPECT_NE(why.find("no ISO 4032 nut height for the size M12"), std::string::npos) << why;
    EXPECT_NE(why.find("ISO4014.csv:"), std::string::npos) << why;
}
