// Label texts: the items each type offers, the default bits, order and breaks, the label lines
// an object gives, the helpers around them, label presets and multilingual entries.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataFiles.h"
#include "data/ZelMessages.h"
#include "obj/QenObjTxtGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "obj/ZelObjTxt.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <unistd.h>

namespace {

using Lines = CZelArrayTempl<CZelString>;
using Ints = CZelArrayTempl<int>;

class ZelObjTxtTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {"MAT": {"PP": {"LABEL": "Polypropylen (PP)", "LABEL_EN": "Polypropylene (PP)"},
                            "EPDM": {"LABEL": "EPDM"}}},
      "*QEN_OBJ_PROP*": {"DICHT:EPDM": {"TXTGEN": 5, "TXTSEQU": [4, 1, 8], "TXTLINE": [4]}}
    })json", "store"));
    m_dir = std::filesystem::temp_directory_path() / ("qen-objtxt-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
    ZEL::setDataFolder(m_dir.string());
  }
  void TearDown() override {
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_dir);
  }
  static std::unique_ptr<CZelDataItem> object(const char* json) { return std::unique_ptr<CZelDataItem>(CStoreFile::parse(json, "object")); }
  static Lines lines(const CZelDataItem* o, const wchar_t* country = L"de") {
    Lines out;
    EXPECT_TRUE(ZEL::objTxtGen(out, o, Zel::lFormat::Decimal, true, country));
    return out;
  }
  std::filesystem::path m_dir;
};

const char* const kBlock = R"({"TYPE": "KLOTZ", "MAT": "PP", "B": 100.0, "H": 5.0})";
const char* const kDrill = R"({"TYPE": "DRILL", "D": 6.6, "T": 12.0, "N": 4, "SINK": "DIN 74-A", "SD": 12.4,
                              "SA": 1.5707963267948966})";

}  // namespace

TEST_F(ZelObjTxtTest, ItemsSitAtTheirPositionsWithPrefixAndSuffixAtTenAndEleven) {
  auto block = object(kBlock);
  Lines names;
  ASSERT_TRUE(ZEL::objTxtBitLst(names, block.get(), L"de"));
  EXPECT_EQ(names[0], L"Bezeichnung");
  EXPECT_EQ(names[1], L"Artikel");
  EXPECT_EQ(names[2], L"Material");
  EXPECT_EQ(names[3], L"Abmessungen");
  EXPECT_EQ(names[4], L"Länge");
  EXPECT_EQ(names[10], L"Präfix");
  EXPECT_EQ(names[11], L"Suffix");
  EXPECT_TRUE(names[7].isEmpty()) << "a position without an item";

  CZelMapTempl<int, CZelString> byBit;
  ASSERT_TRUE(ZEL::objTxtBitLst(byBit, block.get(), L"en"));
  EXPECT_EQ(byBit[1024], L"Prefix");
  EXPECT_EQ(byBit[2048], L"Suffix");
  EXPECT_FALSE(byBit.contains(ZEL::kTxtSingleLine)) << "the single-line bit is no item";
  EXPECT_FALSE(ZEL::objTxtBitLst(byBit, nullptr));
}

TEST_F(ZelObjTxtTest, ADrillingOffersTheSixCountersinkItems) {
  auto drill = object(kDrill);
  CZelMapTempl<int, CZelString> byBit;
  ASSERT_TRUE(ZEL::objTxtBitLst(byBit, drill.get(), L"de"));
  for (int bit : ZEL::kTxtCountersink) EXPECT_TRUE(byBit.contains(bit)) << bit;
  EXPECT_EQ(byBit[0x8000], L"Senkung");
  EXPECT_EQ(byBit[0x40], L"Senkdurchmesser");
  EXPECT_TRUE(ZEL::isCountersinkItem(0x4000));
  EXPECT_FALSE(ZEL::isCountersinkItem(0x2));
}

TEST_F(ZelObjTxtTest, TheObjectsOwnBitsComeBeforeItsPresetAndThePresetBeforeTheType) {
  auto block = object(kBlock);
  EXPECT_EQ(ZEL::objTxtBit(block.get(), true), 0x1 | 0x4 | 0x8);
  auto own = object(R"({"TYPE": "KLOTZ", "MAT": "PP", "TXTGEN": 3})");
  EXPECT_EQ(ZEL::objTxtBit(own.get(), true), 3);
  EXPECT_EQ(ZEL::objTxtBit(own.get(), false), 0x1 | 0x4 | 0x8) << "false: the default, not the object's own";
  auto seal = object(R"({"TYPE": "DICHT", "MAT": "EPDM", "TXTGEN": 1})");
  EXPECT_EQ(ZEL::objTxtBit(seal.get(), false), 5) << "the preset of DICHT:EPDM";
  EXPECT_EQ(ZEL::objTxtBit(nullptr, true), 0);
}

TEST_F(ZelObjTxtTest, DefaultOrderAndBreaksComeFromTheTypeOrThePreset) {
  Ints sequence;
  EXPECT_TRUE(ZEL::objTxtSequ(sequence, L"KLOTZ", nullptr));
  EXPECT_EQ(sequence, (Ints{0x400, 0x1, 0x2, 0x4, 0x8, 0x10, 0x800}));
  EXPECT_EQ(ZEL::objTxtLine(L"KLOTZ"), Ints{0x1});
  auto seal = object(R"({"TYPE": "DICHT", "MAT": "EPDM"})");
  EXPECT_TRUE(ZEL::objTxtSequ(sequence, L"DICHT", seal.get()));
  EXPECT_EQ(sequence, (Ints{4, 1, 8}));
  EXPECT_FALSE(ZEL::objTxtSequ(sequence, L"UNKNOWN", nullptr)) << "an unknown type gets the general order";
  EXPECT_EQ(sequence, (Ints{0x400, 0x1, 0x2, 0x4, 0x8, 0x800}));
}

TEST_F(ZelObjTxtTest, ABlocksLabelIsItsNameThenMaterialAndDimensions) {
  auto block = object(kBlock);
  EXPECT_EQ(lines(block.get()), (Lines{L"Klotz", L"Polypropylen (PP) 100 x 5"}));
  EXPECT_EQ(lines(block.get(), L"en"), (Lines{L"Setting block", L"Polypropylene (PP) 100 x 5"}));
}

TEST_F(ZelObjTxtTest, TheSingleLineBitPutsEverythingOnOneLine) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "PP", "B": 100.0, "H": 5.0, "TXTGEN": 4109})");
  EXPECT_EQ(lines(block.get()), Lines{L"Klotz Polypropylen (PP) 100 x 5"});
}

TEST_F(ZelObjTxtTest, OrderBreaksPrefixSuffixAndArticleFollowTheObject) {
  auto seal = object(R"({"TYPE": "DICHT", "MAT": "EPDM", "B": 10.0, "H": 3.0, "TXTGEN": 3083,
                         "TXTSEQU": [1024, 8, 2, 1, 2048], "TXTLINE": [2],
                         "PREFIX": "\\de\\Vorlegeband\\en\\Glazing tape", "SUFFIX": "bauseits"})");
  ASSERT_TRUE(QEN::obj_order_save(ZEL::objKey(seal.get(), 4), L"A-4711"));
  EXPECT_EQ(lines(seal.get()), (Lines{L"Vorlegeband 10 x 3 A-4711", L"Dichtung bauseits"}));
  EXPECT_EQ(lines(seal.get(), L"en"), (Lines{L"Glazing tape 10 x 3 A-4711", L"Seal bauseits"}));
  Lines raw;
  ZEL::objTxtGen(raw, seal.get(), Zel::lFormat::Decimal, false, L"de");
  EXPECT_EQ(raw[0], L"\\de\\Vorlegeband\\en\\Glazing tape 10 x 3 A-4711") << "unresolved, the entry stands as stored";
}

TEST_F(ZelObjTxtTest, ABreakAfterAnItemLeftOutStillEndsTheLine) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "PP", "B": 100.0, "H": 5.0, "TXTGEN": 13, "TXTLINE": [2]})");
  EXPECT_EQ(lines(block.get()), (Lines{L"Klotz", L"Polypropylen (PP) 100 x 5"}));
}

TEST_F(ZelObjTxtTest, ADrillingWritesItsCountersinkOnALineOfItsOwn) {
  auto drill = object(R"({"TYPE": "DRILL", "D": 6.6, "T": 12.0, "N": 4, "SINK": "DIN 74-A", "SD": 12.4,
                          "SA": 1.5707963267948966, "TXTGEN": 49359})");
  // 0x1 | 0x2 | 0x4 | 0x8 | 0x40 | 0x80 | 0x8000 | 0x4000 (no side given)
  EXPECT_EQ(lines(drill.get()), (Lines{L"4x Bohrung %%c6.6 T=12", L"Senkung %%c12.4 90%%d"}));
  EXPECT_EQ(ZEL::txtToRTF(L"Senkung %%c12.4 90%%D %%p0.1\\Pneu"), L"Senkung Ø12.4 90° ±0.1\r\nneu");
}

TEST_F(ZelObjTxtTest, NormalisedLinesAreTrimmedWithSingleBlanksAndNoEmptyLines) {
  EXPECT_EQ(ZEL::ldrTxtNrm(Lines{L"  Klotz   100\tx 5 ", L"   ", L"", L"PP"}), (Lines{L"Klotz 100 x 5", L"PP"}));
  EXPECT_EQ(ZEL::implode(Lines{L"a", L"b", L"c"}, L"\r\n"), L"a\r\nb\r\nc");
  EXPECT_EQ(ZEL::implode(Lines{}, L", "), L"");
}

TEST_F(ZelObjTxtTest, TheGroupLabelIsTheTypeWithItsDimensions) {
  auto block = object(kBlock);
  EXPECT_EQ(ZEL::grpLabel(block.get(), L"de", true), L"Klotz 100 x 5");
  EXPECT_EQ(ZEL::grpLabel(block.get(), L"en", false), L"Setting block");
  auto drill = object(kDrill);
  EXPECT_EQ(ZEL::grpLabel(drill.get(), L"de", true), L"Bohrung Ø6.6");
  EXPECT_EQ(ZEL::grpLabel(nullptr, L"de", true), L"");
}

TEST_F(ZelObjTxtTest, RegeneratingTheTextsPutsTheDefaultsBack) {
  auto seal = object(R"({"TYPE": "DICHT", "MAT": "EPDM", "TXTGEN": 1, "TXTSEQU": [8, 4], "TXTLINE": [0]})");
  ASSERT_TRUE(ZEL::objGen(seal.get(), ZEL::kObjGenTexts));
  int bits = 0;
  Ints sequence, breaks;
  CZelDataKey gen(L"TXTGEN"), seq(L"TXTSEQU"), line(L"TXTLINE");
  seal->get(bits, &gen);
  seal->get(sequence, &seq);
  seal->get(breaks, &line);
  EXPECT_EQ(bits, 5);
  EXPECT_EQ(sequence, (Ints{4, 1, 8}));
  EXPECT_EQ(breaks, Ints{4});
  EXPECT_FALSE(ZEL::objGen(nullptr, ZEL::kObjGenTexts));
}

TEST_F(ZelObjTxtTest, ALabelPresetIsSavedUnderTheObjectKeyAndRemovedAlone) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "PP", "TXTGEN": 7})");
  ASSERT_TRUE(QEN::obj_txtgen_save(block.get()));
  int bits = 0;
  ASSERT_TRUE(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTGEN")->get(bits));
  EXPECT_EQ(bits, 7);
  Ints sequence;
  ASSERT_TRUE(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTSEQU")->get(sequence));
  EXPECT_EQ(sequence, (Ints{0x400, 0x1, 0x2, 0x4, 0x8, 0x10, 0x800}));
  EXPECT_EQ(ZEL::objTxtBit(object(R"({"TYPE": "KLOTZ", "MAT": "PP"})").get(), true), 7) << "new blocks start with it";

  EXPECT_TRUE(QEN::obj_txtgen_rem(L"KLOTZ:PP"));
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\KLOTZ:PP\\TXTGEN"), nullptr);
  EXPECT_FALSE(QEN::obj_txtgen_rem(L"KLOTZ:PP"));
  EXPECT_TRUE(QEN::obj_txtgen_rem(L"DICHT:EPDM"));
  EXPECT_FALSE(QEN::obj_txtgen_save(nullptr));
}

TEST_F(ZelObjTxtTest, LabelSetReplacesAddsAndRemovesOneLanguage) {
  const CZelString entry = L"\\de\\Dichtung\\en\\Seal";
  EXPECT_EQ(ZEL::label_set(entry, L"de", L"Fuge"), L"\\de\\Fuge\\en\\Seal");
  EXPECT_EQ(ZEL::label_set(entry, L"fr", L"Joint"), L"\\de\\Dichtung\\en\\Seal\\fr\\Joint");
  EXPECT_EQ(ZEL::label_set(entry, L"de", L""), L"\\en\\Seal");
  EXPECT_EQ(ZEL::label_set(L"\\en\\Seal", L"en", L""), L"");
  EXPECT_EQ(ZEL::label_set(L"", L"de", L"a\\b"), L"\\de\\a/b") << "a backslash would split the entry";
  EXPECT_EQ(ZEL::label_set(L"bauseits", L"en", L"by others"), L"\\en\\by others") << "a plain entry is that language's";
  EXPECT_EQ(ZEL::label_get(ZEL::label_set(entry, L"at", L"Dichtband"), L"at"), L"Dichtband");
  EXPECT_EQ(ZEL::label_get(ZEL::label_set(entry, L"at", L"Dichtband"), L"de"), L"Dichtung");
}
