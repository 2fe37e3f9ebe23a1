// The dimension queries on the database built from resources/catalogue: variants, clamping
// tables, radius ranges, countersink depths, named size figures, display texts, areas and
// release masks.
#include "ZelNorm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {
const bool kDatabaseSet = [] {
    setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
    return true;
}();

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const ZEL::NormStack kIso4017 = {"PIECE", "SCREW", "HEX", "ISO4017"};
const ZEL::NormStack kIso4014 = {"PIECE", "SCREW", "HEX", "ISO4014"};
const ZEL::NormStack kIso4032 = {"PIECE", "NUT", "HEX", "ISO4032"};
const ZEL::NormStack kDin934 = {"PIECE", "NUT", "HEX", "DIN934"};
const ZEL::NormStack kChs = {"BAR", "SECTION", "HOLLOW-ROUND", "CHS"};
const ZEL::NormStack kIso10642 = {"PIECE", "SCREW", "COUNTERSUNK", "ISO10642"};

ZEL::NormStack with(ZEL::NormStack stack, const std::string& size)
{
    stack.push_back(size);
    return stack;
}

double figure(const ZEL::NormStack& sizeStack, const std::string& name)
{
    for (const auto& [n, v] : ZEL::norm_size_dims(sizeStack))
        if (n == name)
            return v;
    ADD_FAILURE() << "no figure " << name;
    return kNaN;
}

const std::vector<double>* rowOf(const ZEL::NormTable& table, double length)
{
    for (const auto& row : table)
        if (row.size() == 3 && row[0] == length)
            return &row;
    return nullptr;
}
}  // namespace

// --- thread variants -----------------------------------------------------------------------

TEST(ZelNormVariants, FineThreadStandardsOfferCoarseAndFineOthersTheEmptyVariant)
{
    ASSERT_TRUE(kDatabaseSet);
    EXPECT_EQ(ZEL::norm_var_lst(kDin934, "", false), (std::vector<std::string>{"COARSE", "FINE"}));
    EXPECT_EQ(ZEL::norm_var_lst(kIso4017, "", false), (std::vector<std::string>{""}));
    EXPECT_EQ(ZEL::norm_var_lst(kIso4017, "8.8", false), (std::vector<std::string>{""}));
    // No standard, or a material the standard does not offer: no variant at all.
    EXPECT_TRUE(ZEL::norm_var_lst({"PIECE", "SCREW", "HEX"}, "", false).empty());
    EXPECT_TRUE(ZEL::norm_var_lst(kIso4017, "S235JR", false).empty());
    EXPECT_EQ(ZEL::norm_get(kDin934, "VARIANTS"), "COARSE;FINE");
}

TEST(ZelNormVariants, AVariantNarrowsTheSizesToItsThreads)
{
    const auto all = ZEL::norm_nd_lst(kDin934, "", "", false);
    const auto coarse = ZEL::norm_nd_lst(kDin934, "", "COARSE", false);
    const auto fine = ZEL::norm_nd_lst(kDin934, "", "FINE", false);
    ASSERT_EQ(all.size(), 79u);
    EXPECT_EQ(coarse.size() + fine.size(), all.size());
    EXPECT_EQ(fine.size(), 45u);
    for (const auto& size : coarse)
        EXPECT_EQ(size.find('x'), std::string::npos) << size;
    for (const auto& size : fine)
        EXPECT_NE(size.find('x'), std::string::npos) << size;
    // Each keeps the table's order: M12 before M12x1 before M12x1.25 in the full list.
    EXPECT_NE(std::find(coarse.begin(), coarse.end(), "M12"), coarse.end());
    const auto m12x1 = std::find(fine.begin(), fine.end(), "M12x1");
    ASSERT_NE(m12x1, fine.end());
    EXPECT_EQ(*(m12x1 + 1), "M12x1.25");
    // A variant the standard does not offer does not narrow.
    EXPECT_EQ(ZEL::norm_nd_lst(kIso4017, "", "FINE", false), ZEL::norm_nd_lst(kIso4017, "", "", false));
}

TEST(ZelNormVariants, VariantLabelsAreNodePropertiesBehindTheEmptyElement)
{
    EXPECT_EQ(ZEL::norm_get({"PIECE", "NUT", "HEX", "DIN934", "", "VAR", "COARSE"}, "LABEL"), "Regelgewinde");
    EXPECT_EQ(ZEL::norm_get({"PIECE", "NUT", "HEX", "DIN934", "", "VAR", "FINE"}, "LABEL"), "Feingewinde");
    EXPECT_EQ(ZEL::norm_get({"PIECE", "NUT", "HEX", "DIN934", "", "VAR", "FINE"}, "LABEL_EN"), "Fine thread");
    EXPECT_EQ(ZEL::norm_get({"PIECE", "NUT", "HEX", "DIN934", ""}, "TYPE"), "NORM");
    // The one empty variant of a standard without thread variants is named too.
    EXPECT_EQ(ZEL::norm_get({"PIECE", "SCREW", "HEX", "ISO4017", "", "VAR", ""}, "LABEL"), "Standard");
    EXPECT_EQ(ZEL::norm_get({"PIECE", "NUT", "HEX", "DIN934", "", "VAR", ""}, "LABEL"), std::nullopt);
}

// --- clamping lengths ---------------------------------------------------------------------

TEST(ZelNormClamping, ARowOfIso4017IsLengthLessNutHeightOverTheWholeThread)
{
    // Fully threaded: from 0 to l - m, m the ISO 4032 nut height of M12 (10.8 mm).
    const auto table = ZEL::norm_klm_lst(with(kIso4017, "M12"));
    ASSERT_FALSE(table.empty());
    const double m = figure(with(kIso4032, "M12"), "m");
    EXPECT_DOUBLE_EQ(m, 10.8);
    const auto* row = rowOf(table, 60);
    ASSERT_NE(row, nullptr);
    EXPECT_DOUBLE_EQ((*row)[1], 0.0);
    EXPECT_DOUBLE_EQ((*row)[2], 49.2);
    // One row per standard length of the size, in the same order.
    const auto lengths = ZEL::norm_len_lst(with(kIso4017, "M12"), "", "");
    ASSERT_EQ(table.size(), lengths.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i][0], lengths[i]);
        EXPECT_NEAR(table[i][2], lengths[i] - m, 1e-9);
    }
}

TEST(ZelNormClamping, Iso4014RowsStartAtTheShankEndByLengthClass)
{
    // ISO 4014 M12: b1 = 30 up to 125 mm, b2 = 36 up to 200 mm.
    const auto size = with(kIso4014, "M12");
    const auto table = ZEL::norm_klm_lst(size);
    const auto* r60 = rowOf(table, 60);
    const auto* r130 = rowOf(table, 130);
    ASSERT_TRUE(r60 && r130);
    EXPECT_DOUBLE_EQ((*r60)[1], 30.0);  // 60 - b1
    EXPECT_DOUBLE_EQ((*r60)[2], 49.2);
    EXPECT_DOUBLE_EQ((*r130)[1], 94.0);  // 130 - b2
    EXPECT_DOUBLE_EQ((*r130)[2], 119.2);
}

TEST(ZelNormClamping, OnlyBoltsAndScrewsTakenWithANutHaveATable)
{
    // The table is the size's nested property "KLM" "LST".
    EXPECT_EQ(ZEL::norm_get(with(with(kIso4017, "M12"), "KLM"), "LST"), ZEL::norm_get(with(kIso4017, "M12"), "KLM\\LST"));
    EXPECT_FALSE(ZEL::norm_klm_lst(with({"PIECE", "SCREW", "HEX", "DIN933"}, "M12")).empty());
    EXPECT_TRUE(ZEL::norm_klm_lst(with({"PIECE", "SCREW", "SOCKET", "ISO4762"}, "M12")).empty());
    EXPECT_TRUE(ZEL::norm_klm_lst(with(kIso4032, "M12")).empty());
    EXPECT_TRUE(ZEL::norm_klm_lst(with(kIso4017, "M13")).empty());
}

TEST(ZelNormClamping, TheClampingRowsOfALengthHoldTheValueWithinItsRange)
{
    const auto table = ZEL::norm_klm_lst(with(kIso4017, "M12"));
    auto rows = ZEL::norm_klm(60, 20, table);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_DOUBLE_EQ(rows[0][0], 20);
    EXPECT_DOUBLE_EQ(rows[1][0], 0);
    EXPECT_DOUBLE_EQ(rows[1][1], 49.2);
    EXPECT_DOUBLE_EQ(ZEL::norm_klm(60, 70, table)[0][0], 49.2);
    // Absent (NaN) or not positive: the maximum.
    EXPECT_DOUBLE_EQ(ZEL::norm_klm(60, kNaN, table)[0][0], 49.2);
    EXPECT_DOUBLE_EQ(ZEL::norm_klm(-60, 0, table)[0][0], 49.2);
    // A free length between 60 and 65 moves the range of 60 with it.
    rows = ZEL::norm_klm(62, kNaN, table);
    EXPECT_DOUBLE_EQ(rows[1][1], 51.2);
    EXPECT_DOUBLE_EQ(rows[0][0], 51.2);
    // Below the first length (25): the first row moved down, never below 0.
    rows = ZEL::norm_klm(20, kNaN, table);
    EXPECT_DOUBLE_EQ(rows[1][0], 0);
    EXPECT_DOUBLE_EQ(rows[1][1], 9.2);
    EXPECT_TRUE(ZEL::norm_klm(kNaN, 10, table).empty());
    EXPECT_TRUE(ZEL::norm_klm(60, 10, {}).empty());
}

TEST(ZelNormClamping, TheLengthForAClampingLengthIsFiniteOnlyWhenOneExists)
{
    const auto table = ZEL::norm_klm_lst(with(kIso4017, "M12"));
    // Standard lengths: the given length is kept while its range holds the value ...
    EXPECT_DOUBLE_EQ(QEN::norm_klm_len(30, 60, table, false), 60);
    // ... otherwise the shortest standard length that takes it (70: 0 … 59.2).
    EXPECT_DOUBLE_EQ(QEN::norm_klm_len(55, 60, table, false), 70);
    // Free length: the shortest length from the table's range, clamping plus nut height.
    EXPECT_NEAR(QEN::norm_klm_len(55, 60, table, true), 55 + 10.8, 1e-9);
    EXPECT_DOUBLE_EQ(QEN::norm_klm_len(55, 68, table, true), 68);
    // Impossible: thicker than the longest screw takes, or not a number.
    EXPECT_TRUE(std::isnan(QEN::norm_klm_len(200, 60, table, false)));
    EXPECT_TRUE(std::isnan(QEN::norm_klm_len(200, 60, table, true)));
    EXPECT_TRUE(std::isnan(QEN::norm_klm_len(kNaN, 60, table, false)));
    EXPECT_TRUE(std::isnan(QEN::norm_klm_len(10, 60, {}, false)));
    // ISO 4014 M12: 10 mm is thinner than any shank leaves room for (50 mm: 20 … 39.2).
    EXPECT_TRUE(std::isnan(QEN::norm_klm_len(10, 60, ZEL::norm_klm_lst(with(kIso4014, "M12")), false)));
    EXPECT_DOUBLE_EQ(QEN::norm_klm_len(25, 60, ZEL::norm_klm_lst(with(kIso4014, "M12")), false), 50);
}

// --- radius, countersink, nearest length ---------------------------------------------------------

TEST(ZelNormRadius, CircularHollowSectionsHaveABendingRadiusRangeFromTheirDiameter)
{
    const auto size = with(kChs, "CHS21.3x2.6");
    const auto range = ZEL::norm_rad_lst(size);
    ASSERT_EQ(range.size(), 2u);
    EXPECT_DOUBLE_EQ(range[0], 3 * 21.3);
    EXPECT_DOUBLE_EQ(range[1], 100 * 21.3);
    EXPECT_EQ(ZEL::norm_get(kChs, "FURTHER"), "RAD");
    EXPECT_TRUE(ZEL::norm_rad_lst(with(kIso4017, "M12")).empty());
}

TEST(ZelNormRadius, TheRadiusIsHeldWithinTheRange)
{
    const std::vector<double> range = {63.9, 2130};
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 100, range), 100);
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 50, range), 63.9);
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 3000, range), 2130);
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 63.9, range), 63.9);
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 2130, range), 2130);
    // Absent or not positive: the minimum.
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, kNaN, range), 63.9);
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, -5, range), 63.9);
    // No usable range: the radius stays as given.
    EXPECT_DOUBLE_EQ(ZEL::norm_radius(kChs, 42, {10}), 42);
    EXPECT_TRUE(std::isnan(ZEL::norm_radius(kChs, kNaN, {})));
}

TEST(ZelNormCountersink, Iso10642DefaultsToTheHeadHeight)
{
    const auto depth = ZEL::norm_senk(with(kIso10642, "M8"));
    ASSERT_TRUE(depth);
    EXPECT_DOUBLE_EQ(*depth, figure(with(kIso10642, "M8"), "csh_height"));
    EXPECT_FALSE(ZEL::norm_senk(with(kIso4017, "M8")));
}

TEST(ZelNormNearest, TheNearestLengthCountsAbsoluteValues)
{
    const std::vector<double> lengths = {-6, 8, 10};
    EXPECT_EQ(ZEL::norm_len_near(6, lengths), 0);
    EXPECT_EQ(ZEL::norm_len_near(-6, lengths), 0);
    EXPECT_EQ(ZEL::norm_len_near(7, lengths), 0);  // 6 and 8 equally near: the first
    EXPECT_EQ(ZEL::norm_len_near(8.9, lengths), 1);
    EXPECT_EQ(ZEL::norm_len_near(-9.5, lengths), 2);
    EXPECT_EQ(ZEL::norm_len_near(1000, lengths), 2);
    EXPECT_EQ(ZEL::norm_len_near(0, lengths), 0);
    EXPECT_EQ(ZEL::norm_len_near(kNaN, lengths), -1);
    EXPECT_EQ(ZEL::norm_len_near(5, {}), -1);
}

// --- figures and texts ------------------------------------------------------------------------

TEST(ZelNormFigures, SizeFiguresAreNamedAsTheTableColumns)
{
    const auto dims = ZEL::norm_size_dims(with(kIso4017, "M12"));
    const std::vector<std::pair<std::string, double>> expected = {{"d", 12}, {"P", 1.75}, {"c", 0.3}, {"dw", 16.7},
                                                                  {"e", 20.1}, {"k", 7.5},  {"r", 0.6}, {"s", 18}};
    EXPECT_EQ(dims, expected);
    // A section: the text cell "series" is left out.
    const auto ipe = ZEL::norm_size_dims({"BAR", "SECTION", "I-BEAM", "IPE", "IPE200"});
    ASSERT_EQ(ipe.size(), 4u);
    EXPECT_EQ(ipe[0], (std::pair<std::string, double>{"h", 200}));
    EXPECT_EQ(ipe[1].first, "b");
    EXPECT_TRUE(ZEL::norm_size_dims(with(kIso4017, "M13")).empty());
    EXPECT_TRUE(ZEL::norm_size_dims(kIso4017).empty());
}

TEST(ZelNormTexts, SizesToAvoidStandInParentheses)
{
    const ZEL::NormStack din933 = {"PIECE", "SCREW", "HEX", "DIN933"};
    EXPECT_EQ(QEN::norm_nd_txt(din933, {"M3", "M3.5", "M14", "M39"}),
              (std::vector<std::string>{"M3", "(M3.5)", "M14", "(M39)"}));
    EXPECT_TRUE(QEN::norm_nd_txt(din933, {}).empty());
}

TEST(ZelNormTexts, LengthsShowInMillimetresOrInches)
{
    EXPECT_EQ(QEN::norm_len_str(60, 0), "60");
    EXPECT_EQ(QEN::norm_len_str(12.5, 4), "12.5");
    EXPECT_EQ(QEN::norm_len_str(-6, 0), "(6)");
    EXPECT_EQ(QEN::norm_len_str(25.4, 1), "1\"");
    EXPECT_EQ(QEN::norm_len_str(63.5, 1), "2.5\"");
    EXPECT_EQ(QEN::norm_len_str(kNaN, 0), "");
}

TEST(ZelNormTexts, MaterialLabelsComeInGermanOrEnglish)
{
    EXPECT_EQ(QEN::norm_mat_label("8.8", "de"), "Stahl 8.8 blank");
    EXPECT_EQ(QEN::norm_mat_label("8.8", "en-GB"), "Steel 8.8, plain");
    EXPECT_EQ(QEN::norm_mat_label("NO-SUCH", "de"), "");
}

// --- stock lengths of sections ------------------------------------------------------------------

TEST(ZelNormStock, SectionsOfferTheStockLengths)
{
    const std::vector<double> stock = {6000, 8000, 10000, 12000, 12100, 15000, 16000};
    EXPECT_EQ(ZEL::norm_len_lst({"BAR", "SECTION", "I-BEAM", "IPE", "IPE200"}, "", ""), stock);
    EXPECT_EQ(ZEL::norm_len_lst(with(kChs, "CHS21.3x2.6"), "S235JRH", ""), stock);
    EXPECT_TRUE(ZEL::norm_len_lst(with(kIso4032, "M12"), "", "").empty());
}

// --- areas and release masks ---------------------------------------------------------------------

TEST(ZelNormAreas, AreasComeInDisplayOrderWithTheirNames)
{
    std::map<std::string, std::string> names = {{"stale", "x"}};
    std::vector<std::string> codes = {"stale"};
    QEN::norm_spheres(names, codes);
    EXPECT_EQ(codes, (std::vector<std::string>{"01", "02", "04", "08", "004", "8"}));
    EXPECT_EQ(names.size(), 6u);
    EXPECT_EQ(names["8"], "Zurückgezogene Normen");
    EXPECT_EQ(names["01"], "ISO-Normen");
}

TEST(ZelNormAreas, TheDefaultMaskHidesExactlyTheWithdrawnStandards)
{
    EXPECT_EQ(ZEL::norm_get({"PIECE", "SCREW", "HEX", "DIN933"}, "RELEASE"), "804");
    EXPECT_EQ(ZEL::norm_get(kIso4017, "RELEASE"), "01");
    // Every standard has a release; with mask "f" only the withdrawn ones meet it, and no
    // standard sets one of the three lowest bits.
    std::vector<ZEL::NormStack> all;
    ASSERT_TRUE(ZEL::norm_tree_leaves({}, "*", all));
    int hidden = 0;
    for (const auto& stack : all) {
        const auto release = ZEL::norm_get(stack, "RELEASE");
        ASSERT_TRUE(release) << stack.back();
        if (!QEN::rel_and("f", *release).empty())
            ++hidden;
        EXPECT_EQ(QEN::rel_and("7", *release), "") << stack.back();
    }
    EXPECT_EQ(hidden, 4);
    std::map<std::string, std::string> names;
    std::vector<std::string> codes;
    QEN::norm_spheres(names, codes);
    for (const auto& code : codes)
        EXPECT_EQ(QEN::rel_and(code, "f").empty(), code != "8") << code;
}

TEST(ZelNormReleaseMask, ParsingReadsReversedHexOrPlainHexAfter0x)
{
    // "4g1" stops at the first non-digit.
    const std::pair<const char*, unsigned long> cases[] = {{"124", 0x421}, {"804", 0x408}, {"0x1F", 0x1f}, {"0X1f", 0x1f},
                                                           {"0x", 0},      {"", 0},        {"zz", 0},      {"4g1", 0x4},
                                                           {"A", 0xa}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(QEN::rel_parse(text), value) << text;
    EXPECT_EQ(QEN::rel_parse(static_cast<const char*>(nullptr)), 0ul);
}

TEST(ZelNormReleaseMask, FormattingWritesLowerCaseDigitsReversedAndZeroAsEmpty)
{
    EXPECT_EQ(QEN::rel_format(0x421), "124");
    EXPECT_EQ(QEN::rel_format(0), "");
    EXPECT_EQ(QEN::rel_format(0xabc), "cba");
    for (const char* mask : {"1", "124", "ff7", "8", "804", "01"})
        EXPECT_EQ(QEN::rel_parse(QEN::rel_format(QEN::rel_parse(mask))), QEN::rel_parse(mask)) << mask;
}

TEST(ZelNormReleaseMask, AndOrAndNotWorkOnTheParsedValues)
{
    EXPECT_EQ(QEN::rel_and("f", "804"), "8");
    EXPECT_EQ(QEN::rel_and("f", "01"), "");
    EXPECT_EQ(QEN::rel_and("7", "3"), "3");
    EXPECT_EQ(QEN::rel_and("7", "2"), "2");
    // Hiding area "4" in mask "f" leaves "f"; showing it again clears that bit.
    EXPECT_EQ(QEN::rel_or("f", "4"), "f");
    EXPECT_EQ(QEN::rel_andnot("f", "4"), "b");
    EXPECT_EQ(QEN::rel_or("f", "01"), "f1");
    EXPECT_EQ(QEN::rel_andnot("f1", "01"), "f");
    EXPECT_EQ(QEN::rel_or("", ""), "");
    EXPECT_EQ(QEN::rel_and("0x10", "01"), "01");
}
