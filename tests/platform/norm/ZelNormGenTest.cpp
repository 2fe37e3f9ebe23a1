// Generating standard parts from "*NM*" and from catalogue nodes, their object keys and labels,
// and what the generation writes back into the settings store.
#include "ZelNormGen.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFiles.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjOrder.h"
#include "obj/ZelObjProps.h"
#include "obj/ZelObjTxt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace {
const bool kDatabaseSet = [] {
    setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
    return true;
}();

using Part = std::unique_ptr<CZelDataItem>;

class NormGenTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(kDatabaseSet);
        store(R"({"_COUNTRY": "de"})");
        m_dir = std::filesystem::temp_directory_path() / ("qen-normgen-" + std::to_string(::getpid()));
        std::filesystem::create_directories(m_dir);
        ZEL::setDataFolder(m_dir.string());
        ZEL::norm_gen_init(false);
    }
    void TearDown() override
    {
        ZEL::setDataFolder(".");
        std::filesystem::remove_all(m_dir);
    }
    static void store(const char* json) { ZEL::cfgMgrPtr()->reset(CStoreFile::parse(json, "store")); }
    static Part gen(bool onlyArticles = false) { return Part(ZEL::norm_gen(onlyArticles)); }

    static std::string text(const CZelDataItem* item, const wchar_t* name)
    {
        CZelString value;
        const CZelDataKey key = CZelDataKey::fromPath(name);
        return item && item->get(value, &key) ? value.toUtf8() : std::string("<absent>");
    }
    static double real(const CZelDataItem* item, const wchar_t* name)
    {
        double value = 0;
        const CZelDataKey key = CZelDataKey::fromPath(name);
        return item && item->get(value, &key) ? value : -12345;
    }
    static int integer(const CZelDataItem* item, const wchar_t* name)
    {
        int value = 0;
        const CZelDataKey key = CZelDataKey::fromPath(name);
        return item && item->get(value, &key) ? value : -12345;
    }
    static bool has(const CZelDataItem* item, const wchar_t* name)
    {
        const CZelDataKey key = CZelDataKey::fromPath(name);
        return item && item->find(&key);
    }
    static const CZelDataItem* nm() { return ZEL::cfg_get(L"*NM*"); }

    std::filesystem::path m_dir;
};
}  // namespace

// --- what a part holds --------------------------------------------------------------------

TEST_F(NormGenTest, APartOfIso4017M12x60HoldsItsCatalogueValuesAndFigures)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 60.0,
                       "VIEW": 2, "LAY_OWN": {"PART_CON": "MEIN"}}})");
    const Part part = gen();
    ASSERT_TRUE(part);
    EXPECT_EQ(text(part.get(), L"TYPE"), "DIN");
    EXPECT_EQ(text(part.get(), L"NORM"), "ISO4017");
    EXPECT_EQ(text(part.get(), L"CATEGORY"), "SCREW");
    EXPECT_EQ(text(part.get(), L"GROUP"), "HEX");
    EXPECT_EQ(integer(part.get(), L"BARP"), 0);
    EXPECT_EQ(text(part.get(), L"ND"), "M12");
    EXPECT_EQ(text(part.get(), L"MAT"), "8.8");
    EXPECT_EQ(text(part.get(), L"VAR"), "");
    EXPECT_DOUBLE_EQ(real(part.get(), L"LEN"), 60);
    EXPECT_DOUBLE_EQ(real(part.get(), L"KLM"), 49.2);  // absent: the most the length clamps
    EXPECT_FALSE(has(part.get(), L"RAD"));
    EXPECT_FALSE(has(part.get(), L"SENK"));
    EXPECT_FALSE(has(part.get(), L"ORDER"));
    EXPECT_EQ(integer(part.get(), L"VIEW"), 2);
    EXPECT_EQ(integer(part.get(), L"AXIS"), 1);
    // The figures of the size by column name (all of them: NormPictureTest), and the settings
    // of "*NM*" kept.
    EXPECT_DOUBLE_EQ(real(part.get(), L"DIM\\e"), 20.1);
    EXPECT_EQ(text(part.get(), L"LAY_OWN\\PART_CON"), "MEIN");
    CZelArrayTempl<CZelString> stack;
    CZelDataKey stackKey(L"STACK");
    ASSERT_TRUE(part->get(stack, &stackKey));
    EXPECT_EQ(stack.count(), 4);
}

TEST_F(NormGenTest, NutsHaveNoLengthSectionsTheirStockLengthCountersunkScrewsTheirDepth)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "NUT", "HEX", "ISO4032"], "ND": "M12", "LEN": 60.0, "KLM": 3.0}})");
    Part part = gen();
    ASSERT_TRUE(part);
    EXPECT_FALSE(has(part.get(), L"LEN"));
    EXPECT_FALSE(has(part.get(), L"KLM"));
    EXPECT_DOUBLE_EQ(real(part.get(), L"DIM\\m"), 10.8);

    store(R"({"*NM*": {"STACK": ["BAR", "SECTION", "I-BEAM", "IPE"], "ND": "IPE200"}})");
    part = gen();
    ASSERT_TRUE(part);
    EXPECT_EQ(integer(part.get(), L"BARP"), 1);
    EXPECT_DOUBLE_EQ(real(part.get(), L"LEN"), 6000);
    EXPECT_DOUBLE_EQ(real(part.get(), L"DIM\\h"), 200);

    store(R"({"*NM*": {"STACK": ["BAR", "SECTION", "HOLLOW-ROUND", "CHS"], "ND": "CHS21.3x2.6", "RAD": 10.0}})");
    part = gen();
    EXPECT_DOUBLE_EQ(real(part.get(), L"RAD"), 63.9);  // raised to the smallest bending radius

    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "COUNTERSUNK", "ISO10642"], "ND": "M8", "LEN": 30.0}})");
    part = gen();
    EXPECT_DOUBLE_EQ(real(part.get(), L"SENK"), *ZEL::norm_senk({"PIECE", "SCREW", "COUNTERSUNK", "ISO10642", "M8"}));
}

// --- falling back to what the catalogue offers ---------------------------------------------------

TEST_F(NormGenTest, AnUnknownStackGivesNoPart)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO9999"], "ND": "M12"}})");
    EXPECT_FALSE(gen());
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX"]}})");
    EXPECT_FALSE(gen());  // a group is no standard
    store(R"({"*NM*": {"ND": "M12"}})");
    EXPECT_FALSE(gen());
    store(R"({})");
    EXPECT_FALSE(gen());
    EXPECT_FALSE(Part(ZEL::norm_gen_from_stack({"PIECE", "SCREW"}, false)));
}

TEST_F(NormGenTest, UnknownSizeMaterialAndVariantFallBackToTheFirstOffered)
{
    // DIN 933 lists M1.6 to M2.5 as sizes to avoid: the first preferred size is M3.
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "DIN933"], "ND": "M13", "MAT": "GOLD", "VAR": "FINE"}})");
    const Part part = gen();
    ASSERT_TRUE(part);
    EXPECT_EQ(text(part.get(), L"ND"), "M3");
    EXPECT_EQ(text(part.get(), L"MAT"), ZEL::norm_mat_lst({"PIECE", "SCREW", "HEX", "DIN933"}, false).front());
    EXPECT_EQ(text(part.get(), L"VAR"), "");

    store(R"({"*NM*": {"STACK": ["PIECE", "NUT", "HEX", "DIN934"], "ND": "M12", "VAR": "ROUND"}})");
    const Part nut = gen();
    EXPECT_EQ(text(nut.get(), L"VAR"), "COARSE");
    EXPECT_EQ(text(nut.get(), L"ND"), "M12");
    // A fine size under the coarse variant is not offered: the first coarse size instead.
    store(R"({"*NM*": {"STACK": ["PIECE", "NUT", "HEX", "DIN934"], "ND": "M12x1", "VAR": "COARSE"}})");
    EXPECT_EQ(text(Part(gen()).get(), L"ND"), ZEL::norm_nd_lst({"PIECE", "NUT", "HEX", "DIN934"}, "", "COARSE", false).front());
    store(R"({"*NM*": {"STACK": ["PIECE", "NUT", "HEX", "DIN934"], "ND": "M12x1", "VAR": "FINE"}})");
    EXPECT_EQ(text(Part(gen()).get(), L"ND"), "M12x1");
}

TEST_F(NormGenTest, ALengthThatIsNoNumberOrNegativeBecomesTheFirstPositiveStandardLength)
{
    // ISO 4017 M8: standard lengths 16 to 80. Standard lengths in force: the nearest one; a
    // free length stays, but not below the shortest.
    const std::pair<std::string, double> cases[] = {
        {R"("LEN": -2.0)", 16}, {R"("LEN": "nan")", 16}, {R"("NODIN": 0)", 16}, {R"("LEN": 61.0)", 60},
        {R"("LEN": 61.0, "NODIN": 1)", 61}, {R"("LEN": 3.0, "NODIN": 1)", 16}};
    for (const auto& [settings, expected] : cases) {
        store((R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M8", )" + settings + "}}").c_str());
        EXPECT_DOUBLE_EQ(real(Part(gen()).get(), L"LEN"), expected) << settings;
    }
    // A real NaN in the store, as a pick might leave it.
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M8", "NODIN": 1}})");
    CZelDataKey len(L"LEN");
    ZEL::dataItemSet(ZEL::cfg_get(L"*NM*"), &len, std::nan(""));
    EXPECT_DOUBLE_EQ(real(Part(gen()).get(), L"LEN"), 16);
}

TEST_F(NormGenTest, ClampingLengthAndViewAreHeldToWhatIsValid)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "LEN": 60.0, "KLM": 80.0, "VIEW": 5}})");
    Part part = gen();
    EXPECT_DOUBLE_EQ(real(part.get(), L"KLM"), 49.2);
    EXPECT_EQ(integer(part.get(), L"VIEW"), 0);
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "LEN": 60.0, "KLM": 22.5,
                       "VIEW": 33, "DRAW": "SMDB", "AXIS": 12}})");
    part = gen();
    EXPECT_DOUBLE_EQ(real(part.get(), L"KLM"), 22.5);
    EXPECT_EQ(integer(part.get(), L"VIEW"), 33);
    EXPECT_EQ(text(part.get(), L"DRAW"), "SMDB");
    EXPECT_EQ(integer(part.get(), L"AXIS"), 12);
}

// --- object keys, labels, articles ---------------------------------------------------------------

TEST_F(NormGenTest, ObjectKeysAndLabelsOfAStandardPart)
{
    store(R"({"_COUNTRY": "de", "*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8",
                                         "LEN": 60.0}})");
    const Part part = gen();
    ASSERT_TRUE(part);
    EXPECT_EQ(ZEL::objKey(part.get(), 2), L"DIN:ISO4017");
    EXPECT_EQ(ZEL::objKey(part.get(), 3), L"DIN:ISO4017:8.8");
    EXPECT_EQ(ZEL::objKey(part.get(), 4), L"DIN:ISO4017:8.8:M12:LEN=60");
    EXPECT_EQ(ZEL::obj_label(part.get(), L"de"), L"DIN 933 M12 x 60 - Stahl 8.8 blank");
    EXPECT_EQ(ZEL::obj_label(part.get(), L"en"), L"DIN 933 M12 x 60 - Steel 8.8, plain");
    EXPECT_EQ(ZEL::obj_label(part.get(), L"de", ZEL::ObjLabelMaterial::Without), L"DIN 933 M12 x 60");
    EXPECT_EQ(ZEL::obj_label_header(part.get(), L"de"), L"DIN 933 - Stahl 8.8 blank");
    EXPECT_EQ(ZEL::grpLabel(part.get(), L"de", false), L"DIN 933 Sechskantschraube mit Gewinde bis Kopf");
    EXPECT_EQ(ZEL::grpLabel(part.get(), L"en", true), L"DIN 933 M12 x 60 Hexagon head screw, thread to head");
    // The labeling flags choose the family: ZelNormFamilies and the dialog's label line.

    // A nut has no length in its key; a fine size is upper-cased like every key value.
    store(R"({"*NM*": {"STACK": ["PIECE", "NUT", "HEX", "DIN934"], "ND": "M12x1.25", "VAR": "FINE", "MAT": "8"}})");
    const Part nut = gen();
    ASSERT_TRUE(nut);
    EXPECT_EQ(ZEL::objKey(nut.get(), 4), L"DIN:DIN934:8:M12X1.25");
}

TEST_F(NormGenTest, TheArticleNumberComesFromTheArticleTableByTheKeyOfLevelFour)
{
    ASSERT_TRUE(QEN::obj_order_save(L"DIN:ISO4017:8.8:M12:LEN=60", L"4711"));
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 60.0,
                       "ORDER": "stale"}})");
    EXPECT_EQ(text(Part(gen()).get(), L"ORDER"), "4711");
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 65.0,
                       "ORDER": "stale"}})");
    EXPECT_FALSE(has(Part(gen()).get(), L"ORDER"));

    // Only articles: sizes, materials and the default part follow the table.
    const ZEL::NormStack iso4017 = {"PIECE", "SCREW", "HEX", "ISO4017"};
    EXPECT_EQ(ZEL::norm_nd_lst(iso4017, "8.8", "", true), (std::vector<std::string>{"M12"}));
    EXPECT_TRUE(ZEL::norm_nd_lst(iso4017, "A2-70", "", true).empty());
    EXPECT_EQ(ZEL::norm_mat_lst(iso4017, true), (std::vector<std::string>{"8.8"}));
    const Part first = Part(ZEL::norm_gen_from_stack(iso4017, true));
    ASSERT_TRUE(first);
    EXPECT_EQ(text(first.get(), L"ND"), "M12");
    EXPECT_DOUBLE_EQ(real(first.get(), L"LEN"), 60);
    EXPECT_EQ(text(first.get(), L"ORDER"), "4711");
    // A standard without articles: a part without an article number.
    const Part none = Part(ZEL::norm_gen_from_stack({"PIECE", "SCREW", "HEX", "ISO4014"}, true));
    ASSERT_TRUE(none);
    EXPECT_FALSE(has(none.get(), L"ORDER"));
}

TEST_F(NormGenTest, TheDefaultPartOfANodeIsItsFirstPreferredSizeAndFirstPositiveLength)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4014"], "ND": "M12", "VIEW": 2}})");
    const Part part = Part(ZEL::norm_gen_from_stack({"PIECE", "SCREW", "HEX", "DIN933"}, false));
    ASSERT_TRUE(part);
    EXPECT_EQ(text(part.get(), L"NORM"), "DIN933");
    EXPECT_EQ(text(part.get(), L"ND"), "M3");
    EXPECT_DOUBLE_EQ(real(part.get(), L"LEN"), ZEL::norm_len_lst({"PIECE", "SCREW", "HEX", "DIN933", "M3"}, "", "").front());
    EXPECT_EQ(integer(part.get(), L"VIEW"), 0);  // "*NM*" is not read
}

// --- writing back ---------------------------------------------------------------------------------

TEST_F(NormGenTest, ReleasingAPartFillsOnlyWhatStarNmLacks)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "LEN": 61.0, "NODIN": 1}})");
    const Part part = gen();
    ASSERT_TRUE(part);
    ZEL::norm_obj_release(part.get());
    EXPECT_EQ(text(nm(), L"ND"), "M1.6");
    EXPECT_EQ(text(nm(), L"MAT"), text(part.get(), L"MAT"));
    EXPECT_EQ(text(nm(), L"TYPE"), "DIN");
    EXPECT_EQ(integer(nm(), L"VIEW"), 0);
    EXPECT_DOUBLE_EQ(real(nm(), L"LEN"), 61);  // kept
    EXPECT_EQ(text(nm(), L"DES_ISO"), "ISO 4017");
    EXPECT_EQ(ZEL::objKey(nm(), 3), ZEL::objKey(part.get(), 3));
    ZEL::norm_obj_release(nullptr);
}

TEST_F(NormGenTest, SavedPropertiesAreReadBackByTheObjectKeyOfLevelThree)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 60.0,
                       "VIEW": 2, "AXIS": 5, "IS_LAY": 1, "MODE": "MAIN"}})");
    QEN::norm_prop_save();
    const CZelDataItem* props = ZEL::prop_data(L"DIN:ISO4017:8.8");
    ASSERT_TRUE(props);
    EXPECT_EQ(integer(props, L"VIEW"), 2);
    EXPECT_EQ(integer(props, L"AXIS"), 5);
    EXPECT_EQ(integer(props, L"IS_LAY"), 1);
    for (const wchar_t* choice : {L"STACK", L"ND", L"LEN", L"MAT", L"MODE"})
        EXPECT_FALSE(has(props, choice)) << CZelString(choice).toUtf8();
    // Nothing is stored for a selection that is no standard.
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW"], "VIEW": 2}})");
    QEN::norm_prop_save();
    EXPECT_FALSE(ZEL::cfg_get(L"*QEN_OBJ_PROP*"));
}

TEST_F(NormGenTest, AddedMaterialsAreOfferedAndAResetKeepsOnlyOfferedOnes)
{
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "MAT": "ALMG3"},
              "*QEN_NM_PROP*": {"DIN:ISO4017": {"MAT": ["ALMG3"]}}})");
    const ZEL::NormStack iso4017 = {"PIECE", "SCREW", "HEX", "ISO4017"};
    const auto materials = ZEL::norm_mat_lst(iso4017, false);
    EXPECT_EQ(materials.back(), "ALMG3");
    EXPECT_FALSE(ZEL::norm_nd_lst(iso4017, "ALMG3", "", false).empty());
    QEN::norm_grp_reset();
    EXPECT_EQ(text(nm(), L"MAT"), "ALMG3");
    EXPECT_EQ(text(Part(gen()).get(), L"MAT"), "ALMG3");
    store(R"({"*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "MAT": "ALMG3"}})");
    QEN::norm_grp_reset();
    EXPECT_EQ(text(nm(), L"MAT"), materials.front());
}
