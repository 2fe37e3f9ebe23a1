// The catalogue queries on the database built from resources/catalogue.
#include "ZelNorm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {
// The process opens its database once, on first use: point it at the build's database
// before any test runs.
const bool kDatabaseSet = [] {
    setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
    return true;
}();

const ZEL::NormStack kIso4017 = {"PIECE", "SCREW", "HEX", "ISO4017"};

ZEL::NormStack with(ZEL::NormStack stack, const std::string& size)
{
    stack.push_back(size);
    return stack;
}

bool contains(const std::vector<std::string>& list, const std::string& item)
{
    return std::find(list.begin(), list.end(), item) != list.end();
}
}  // namespace

TEST(ZelNormTree, TheDatabaseOfTheBuildOpensWithTheFamiliesDinIsoEnInThatOrder)
{
    ASSERT_TRUE(kDatabaseSet);
    EXPECT_EQ(ZEL::norm_db_error(), "");
    EXPECT_EQ(ZEL::norm_types(), (std::vector<std::string>{"DIN", "ISO", "EN"}));
}

TEST(ZelNormTree, ChildrenOfAGroupAreItsStandardsInCatalogueOrder)
{
    EXPECT_EQ(ZEL::norm_dir({"PIECE", "SCREW", "HEX"}), (std::vector<std::string>{"ISO4014", "ISO4017", "DIN933"}));
    const auto sets = ZEL::norm_dir({"PIECE", "SCREW", "SET"});
    EXPECT_EQ(sets, (std::vector<std::string>{"ISO4026", "ISO4027", "ISO4028", "ISO4029"}));
    // A standard has no tree children: its sizes are not tree nodes.
    EXPECT_TRUE(ZEL::norm_dir(kIso4017).empty());
    EXPECT_TRUE(ZEL::norm_dir({"PIECE", "BOLT"}).empty());
}

TEST(ZelNormTree, StandardPropertiesComeFromItsRow)
{
    EXPECT_EQ(ZEL::norm_get(kIso4017, "LABEL"), "Sechskantschraube mit Gewinde bis Kopf");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "LABEL_EN"), "Hexagon head screw, thread to head");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "BARP"), "0");
    EXPECT_EQ(ZEL::norm_get({"BAR", "SECTION", "I-BEAM", "IPE"}, "BARP"), "1");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "FURTHER"), "KLM");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "INSUNIT"), "4");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "NO_SUCH_PROPERTY"), std::nullopt);
}

TEST(ZelNormTree, TreeTextIsTheDesignationInTheFamilyAndTheTitle)
{
    EXPECT_EQ(ZEL::norm_tree_txt(kIso4017, "DIN"), "DIN 933 Sechskantschraube mit Gewinde bis Kopf");
    EXPECT_EQ(ZEL::norm_tree_txt(kIso4017, "ISO"), "ISO 4017 Sechskantschraube mit Gewinde bis Kopf");
    EXPECT_EQ(ZEL::norm_tree_txt({"PIECE", "SCREW"}), "Schrauben");
    EXPECT_EQ(ZEL::norm_tree_txt({"PIECE", "NOTHING"}), "");
}

TEST(ZelNormSizes, NominalSizesFollowTheTableWithoutParentheses)
{
    const auto sizes = ZEL::norm_nd_lst(kIso4017, "", "", false);
    ASSERT_EQ(sizes.size(), 29u);
    EXPECT_EQ(sizes.front(), "M1.6");
    EXPECT_EQ(sizes.back(), "M64");
    EXPECT_TRUE(contains(sizes, "M14"));
    const auto ipe = ZEL::norm_nd_lst({"BAR", "SECTION", "I-BEAM", "IPE"}, "", "", false);
    ASSERT_EQ(ipe.size(), 75u);
    EXPECT_TRUE(contains(ipe, "IPE200"));
}

TEST(ZelNormSizes, SecondChoiceSizesCarryAvoid)
{
    EXPECT_EQ(ZEL::norm_get(with(kIso4017, "M14"), "AVOID"), "1");
    EXPECT_EQ(ZEL::norm_get(with(kIso4017, "M8"), "AVOID"), std::nullopt);
    EXPECT_EQ(ZEL::norm_get({"PIECE", "SCREW", "SOCKET", "ISO4762", "M14"}, "AVOID"), "1");
    EXPECT_EQ(ZEL::norm_get({"BAR", "SECTION", "I-BEAM", "IPE", "IPE200"}, "AVOID"), std::nullopt);
}

TEST(ZelNormSizes, ACountersunkSizeKeepsItsDepth)
{
    const ZEL::NormStack countersunk = {"PIECE", "SCREW", "COUNTERSUNK", "ISO10642"};
    ASSERT_EQ(ZEL::norm_get(countersunk, "FURTHER"), "SENK");
    EXPECT_TRUE(ZEL::norm_get(with(countersunk, "M8"), "SENK").has_value());
    EXPECT_EQ(ZEL::norm_get(with(kIso4017, "M8"), "SENK"), std::nullopt);
}

TEST(ZelNormSizes, AMaterialNotOfferedForTheStandardGivesNoSizes)
{
    EXPECT_FALSE(ZEL::norm_nd_lst(kIso4017, "8.8", "", false).empty());
    EXPECT_TRUE(ZEL::norm_nd_lst(kIso4017, "S235JR", "", false).empty());
}

TEST(ZelNormLengths, M8OffersTheSeriesFrom16To80)
{
    const auto lengths = ZEL::norm_len_lst(with(kIso4017, "M8"), "", "");
    const std::vector<double> expected = {16, 20, 25, 30, 35, 40, 45, 50, 55, 60, 65, 70, 80};
    EXPECT_EQ(lengths, expected);
}

TEST(ZelNormLengths, TheSeriesIsCutToEachSizesRange)
{
    // M14 runs from 25 to 140; 90 belongs to the series between them.
    const auto m14 = ZEL::norm_len_lst(with(kIso4017, "M14"), "", "");
    ASSERT_FALSE(m14.empty());
    EXPECT_EQ(m14.front(), 25);
    EXPECT_EQ(m14.back(), 140);
    EXPECT_NE(std::find(m14.begin(), m14.end(), 90.0), m14.end());
    EXPECT_TRUE(std::is_sorted(m14.begin(), m14.end()));
    // ISO 4762 M20 keeps its range 16 to 100 as the table has it.
    const auto socket = ZEL::norm_len_lst({"PIECE", "SCREW", "SOCKET", "ISO4762", "M20"}, "", "");
    ASSERT_FALSE(socket.empty());
    EXPECT_EQ(socket.front(), 16);
    EXPECT_EQ(socket.back(), 100);
}

TEST(ZelNormMaterials, MaterialsFollowTheStandardsAndCategories)
{
    const auto screws = ZEL::norm_mat_lst(kIso4017, false);
    EXPECT_TRUE(contains(screws, "8.8"));
    EXPECT_TRUE(contains(screws, "A2-70"));
    EXPECT_TRUE(contains(screws, "4.6-FV"));
    EXPECT_FALSE(contains(screws, "12.9"));  // socket screws only
    EXPECT_FALSE(contains(screws, "S235JR"));
    // Catalogue order: 4.6-FV is listed before 5.6, and 5.6 before 8.8.
    const auto at = [&](const char* key) { return std::find(screws.begin(), screws.end(), key) - screws.begin(); };
    EXPECT_LT(at("4.6-FV"), at("5.6"));
    EXPECT_LT(at("5.6"), at("8.8"));
    EXPECT_TRUE(contains(ZEL::norm_mat_lst({"BAR", "SECTION", "I-BEAM", "IPE"}, false), "S235JR"));
    EXPECT_TRUE(ZEL::norm_mat_lst({"PIECE", "SCREW"}, false).empty());
}

TEST(ZelNormFamilies, DesignationsInEachFamily)
{
    EXPECT_EQ(QEN::norm_diniso1(kIso4017, 0), "DIN 933");
    EXPECT_EQ(QEN::norm_diniso1(kIso4017, 0x20), "ISO 4017");
    EXPECT_EQ(QEN::norm_diniso1(kIso4017, 0x40), "EN ISO 4017");
    EXPECT_EQ(QEN::norm_diniso1({"PIECE", "SCREW", "HEX", "DIN933"}, 0x20), "ISO 4017");
}

TEST(ZelNormFamilies, AMissingDesignationFallsBackToOneThatExists)
{
    // ISO 7380 has no DIN predecessor.
    const ZEL::NormStack button = {"PIECE", "SCREW", "BUTTON", "ISO7380-1"};
    EXPECT_EQ(QEN::norm_diniso1(button, 0), QEN::norm_diniso1(button, 0x20));
    EXPECT_FALSE(QEN::norm_diniso1(button, 0).empty());
    EXPECT_EQ(QEN::norm_diniso1({"PIECE", "SCREW"}, 0), "");
}

TEST(ZelNormSearch, AMaskFindsTheStandardByAnyDesignation)
{
    std::vector<ZEL::NormStack> results;
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*4017*", results));
    // ISO 4017 and DIN 933 both carry the designation ISO 4017.
    EXPECT_EQ(results, (std::vector<ZEL::NormStack>{kIso4017, {"PIECE", "SCREW", "HEX", "DIN933"}}));
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "din 93?", results));
    // DIN 931 (ISO 4014), DIN 933 (ISO 4017 and DIN 933), DIN 934 (ISO 4032 and DIN 934).
    EXPECT_EQ(results.size(), 5u);
}

TEST(ZelNormSearch, TitlesInBothLanguagesMatchWithoutRegardToCase)
{
    std::vector<ZEL::NormStack> results;
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*SECHSKANTMUTTER*", results));
    ASSERT_FALSE(results.empty());
    for (const auto& stack : results)
        EXPECT_EQ(stack[1], "NUT");
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*hexagon head screw*", results));
    EXPECT_TRUE(std::find(results.begin(), results.end(), kIso4017) != results.end());
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*SCHEIBE*", results));
    EXPECT_FALSE(results.empty());
}

TEST(ZelNormSearch, TheStarFindsEveryStandardOnceAndAStackLimitsTheSearch)
{
    std::vector<ZEL::NormStack> all;
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*", all));
    EXPECT_EQ(all.size(), 43u);
    EXPECT_EQ(all.front()[0], "BAR");
    EXPECT_EQ(all.back()[0], "PIECE");
    std::vector<ZEL::NormStack> nuts;
    ASSERT_TRUE(ZEL::norm_tree_leaves({"PIECE", "NUT"}, "*", nuts));
    EXPECT_EQ(nuts.size(), 6u);
    std::vector<ZEL::NormStack> none;
    EXPECT_TRUE(ZEL::norm_tree_leaves({}, "*no such standard*", none));
    EXPECT_TRUE(none.empty());
    EXPECT_FALSE(ZEL::norm_tree_leaves({"PIECE", "BOLT"}, "*", none));
}

TEST(ZelNormMissing, AMissingDatabaseGivesEmptyAnswersAndNamesItsPath)
{
    // The process opens its database once; a fresh process shows the missing one.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string missing = ::testing::TempDir() + "no-such-dir/qen_norm.db";
    EXPECT_EXIT(
        {
            setenv("QEN_NORM_DB", missing.c_str(), 1);
            std::vector<ZEL::NormStack> results;
            const bool empty = ZEL::norm_types().empty() && ZEL::norm_dir({}).empty() &&
                               ZEL::norm_nd_lst(kIso4017, "", "", false).empty() &&
                               ZEL::norm_len_lst(with(kIso4017, "M8"), "", "").empty() &&
                               ZEL::norm_mat_lst(kIso4017, false).empty() && !ZEL::norm_get(kIso4017, "TYPE") &&
                               QEN::norm_diniso1(kIso4017, 0).empty() && ZEL::norm_tree_txt(kIso4017).empty() &&
                               !ZEL::norm_tree_leaves({}, "*", results) && results.empty();
            const bool named = ZEL::norm_db_error().find(missing) != std::string::npos;
            std::exit(empty && named ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "not found: .*no-such-dir/qen_norm\\.db");
}
