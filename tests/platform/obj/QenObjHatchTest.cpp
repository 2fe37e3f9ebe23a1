// Hatch sections of objects, hatch presets and the preview of a pattern.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "obj/QenObjHatch.h"
#include "obj/ZelHatchPreview.h"

#include <gtest/gtest.h>

#include <memory>
#include <numbers>

namespace {

class QenObjHatchTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {"MAT": {
        "ALUMINIUM": {"LABEL": "Aluminium", "HATCH": [{"$pair": [2, "ANSI38"]}, {"$pair": [40, 0.5]}, {"$pair": [50, 0.0]}]},
        "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "PARENT": "ALUMINIUM"},
        "PE_SCHAUM": {"LABEL": "PE-Schaum", "HATCH": [{"$pair": [2, "ANSI37"]}, {"$pair": [40, 1.0]}, {"$pair": [50, 0.0]}]},
        "HOLZ": {"LABEL": "Holz"}}},
      "*HZ_KLOTZ*": {"TYPE": "KLOTZ", "IS_HATCH": 0, "HPNAME": "ANSI34", "HPSCALE": 0.5, "HPANG": 0.0},
      "*QEN_OBJ_HATCH*": {"IS_HATCH": 0}
    })json", "store"));
  }
  static std::unique_ptr<CZelDataItem> object(const char* json) { return std::unique_ptr<CZelDataItem>(CStoreFile::parse(json, "object")); }
  static CZelString text(const wchar_t* path) {
    CZelString t;
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(t, key.next());
    return t;
  }
  static double real(const wchar_t* path) {
    double v = -1.0;
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(v, key.next());
    return v;
  }
  static int integer(const wchar_t* path) {
    int v = -99;
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(v, key.next());
    return v;
  }
};

}  // namespace

TEST_F(QenObjHatchTest, AnObjectGetsTheSystemsTheMaterialsAndItsOwnHatch) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "ALMG3", "B": 30.0, "H": 5.0, "IS_HATCH": 2,
                         "HPNAME": "ANSI31", "HPSCALE": 2.0, "HPANG": 0.5})");
  ASSERT_TRUE(ZEL::obj_hatch_init(block.get()));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\TYPE"), CZelString(L"KLOTZ"));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\MAT"), CZelString(L"ALMG3"));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\KEY3"), CZelString(L"KLOTZ:ALMG3"));
  EXPECT_FALSE(text(L"*QEN_OBJ_HATCH*\\LABEL").isEmpty());
  EXPECT_EQ(integer(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 2);
  // The system's is what setting blocks are drawn with; the material's comes along the chain.
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_SYS\\#2"), CZelString(L"ANSI34"));
  EXPECT_EQ(real(L"*QEN_OBJ_HATCH*\\HATCH_SYS\\#40"), 0.5);
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_MAT\\#2"), CZelString(L"ANSI38"));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#2"), CZelString(L"ANSI31"));
  EXPECT_EQ(real(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#50"), 0.5);
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"ANSI31"));
  EXPECT_EQ(real(L"*QEN_OBJ_HATCH*\\HPSCALE"), 2.0);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\IS_HATCH2"), nullptr);
}

TEST_F(QenObjHatchTest, AMaterialWithoutAHatchGivesNoMaterialPatternAndNoObjectNothing) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "HOLZ"})");
  ASSERT_TRUE(ZEL::obj_hatch_init(block.get()));
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\HATCH_MAT"), nullptr);
  EXPECT_EQ(integer(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 0);
  EXPECT_FALSE(ZEL::obj_hatch_init(nullptr));
}

TEST_F(QenObjHatchTest, ASecondHatchTakesItsMaterialFromMat2) {
  auto joint = object(R"({"TYPE": "SILIKON", "MAT": "HOLZ", "MAT2": "PE_SCHAUM", "IS_HATCH": 0, "HPNAME": "ANSI34",
                         "IS_HATCH2": 1, "HPNAME2": "ANSI36"})");
  ASSERT_TRUE(ZEL::obj_hatch_init(joint.get()));
  EXPECT_EQ(integer(L"*QEN_OBJ_HATCH*\\IS_HATCH2"), 1);
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_MAT2\\#2"), CZelString(L"ANSI37"));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_SYS\\#2"), CZelString(L"ANSI34"));
  // No section of its type says what the system's second hatch is: the plain line hatch.
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HATCH_SYS2\\#2"), CZelString(L"ANSI31"));
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HPNAME2"), CZelString(L"ANSI36"));
}

TEST_F(QenObjHatchTest, APresetGivesSourceAndOwnPatternToObjectsWithoutTheirOwn) {
  auto block = object(R"({"TYPE": "KLOTZ", "MAT": "ALMG3", "IS_HATCH": 2, "HPNAME": "AR-CONC", "HPSCALE": 3.0, "HPANG": 0.0})");
  ASSERT_TRUE(ZEL::obj_hatch_init(block.get()));
  ASSERT_TRUE(QEN::obj_hatch_save(ZEL::cfg_get(L"*QEN_OBJ_HATCH*")));
  EXPECT_EQ(integer(L"*QEN_OBJ_PROP*\\KLOTZ:ALMG3\\IS_HATCH"), 2);

  auto fresh = object(R"({"TYPE": "KLOTZ", "MAT": "ALMG3"})");
  ASSERT_TRUE(ZEL::obj_hatch_init(fresh.get()));
  EXPECT_EQ(integer(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 2);
  EXPECT_EQ(text(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"AR-CONC"));
  EXPECT_EQ(real(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#40"), 3.0);

  EXPECT_EQ(QEN::obj_hatch_rem(L"KLOTZ:ALMG3"), 1);
  EXPECT_EQ(QEN::obj_hatch_rem(L"KLOTZ:ALMG3"), 0);
  EXPECT_EQ(QEN::obj_hatch_rem(L""), 0);
}

TEST_F(QenObjHatchTest, SavingWithoutAPresetKeyIsRefused) {
  EXPECT_FALSE(QEN::obj_hatch_save(ZEL::cfg_get(L"*QEN_OBJ_HATCH*")));
  EXPECT_FALSE(QEN::obj_hatch_save(nullptr));
}

TEST(HatchPreview, DescribesTheLineFamiliesTurnedAndScaled) {
  const double degree = std::numbers::pi / 180.0;
  EXPECT_EQ(ZEL::hatchPreview(L"ANSI31", 1.0, 0.0), CZelString(L"ANSI31 scale 1 angle 0°: lines 45° every 3.175"));
  EXPECT_EQ(ZEL::hatchPreview(L"ansi37", 2.0, 150 * degree),
            CZelString(L"ansi37 scale 2 angle 150°: lines 15° every 6.35, lines 105° every 6.35"));
  EXPECT_EQ(ZEL::hatchPreview(L"ANSI38", 1.0, 0.0),
            CZelString(L"ANSI38 scale 1 angle 0°: lines 45° every 3.175, dashed lines 135° every 3.175"));
  // Families that read the same are named once; dots are dots.
  EXPECT_EQ(ZEL::hatchPreview(L"ANSI34", 0.5, 0.0), CZelString(L"ANSI34 scale 0.5 angle 0°: lines 45° every 9.525"));
  EXPECT_EQ(ZEL::hatchPreview(L"DOTS", 1.0, 90 * degree), CZelString(L"DOTS scale 1 angle 90°: dots 90° every 1.5875"));
}

TEST(HatchPreview, SolidEmptyAndUnknownPatterns) {
  EXPECT_EQ(ZEL::hatchPreview(L"Solid", 5.0, 1.0), CZelString(L"solid fill"));
  EXPECT_EQ(ZEL::hatchPreview(L"", 1.0, 0.0), CZelString(L"empty"));
  EXPECT_EQ(ZEL::hatchPreview(L"ANSI99", 0.5, 0.0), CZelString(L"ANSI99 scale 0.5 angle 0°: line families not known"));
  // A pattern of many families names six and counts the rest.
  const CZelString conc = ZEL::hatchPreview(L"AR-CONC", 0.5, 0.0);
  EXPECT_EQ(conc.str().rfind(L"AR-CONC scale 0.5 angle 0°: dashed lines 50° every 74.9033, ", 0), 0u) << conc.toUtf8();
  EXPECT_NE(conc.str().find(L" and 7 more line families"), std::wstring::npos) << conc.toUtf8();
}
