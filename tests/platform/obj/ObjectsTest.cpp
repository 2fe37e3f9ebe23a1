// Object keys, labels, the article table and layer presets, on a small catalogue.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFiles.h"
#include "obj/QenObjLayer.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjOrder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

class ObjectsTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {"MAT": {
        "ALUMINIUM": {"LABEL": "Aluminium", "LAY_MODE": 2},
        "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "PARENT": "ALUMINIUM"},
        "EPDM": {"LABEL": "EPDM"}}},
      "*ZEL_LAYER*": {
        "SYSTEM": {"PART_CON": {"$pair": [2, "QEN_KONTUR"]}, "PART_HID": {"$pair": [2, "QEN_VERDECKT"]}},
        "MAT": {"ALUMINIUM": {"PART_CON": {"$pair": [2, "QEN_ALU"]}}}},
      "*QEN_OBJ_PROP*": {"KLOTZ:ALMG3": {"IS_LAY": 2, "LAY_OWN": {"PART_HID": "MEIN_LAYER"}}}
    })json", "store"));
    m_dir = std::filesystem::temp_directory_path() / ("qen-objects-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
    ZEL::setDataFolder(m_dir.string());
    m_block.reset(CStoreFile::parse(R"({"TYPE": "KLOTZ", "MAT": "ALMG3", "B": 30.0, "H": 5.0})", "block"));
  }
  void TearDown() override {
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_dir);
  }
  static CZelString text(const wchar_t* path) {
    CZelString s;
    CZelDataItem* item = ZEL::cfg_get(path);
    if (item) item->get(s);
    return s;
  }
  std::filesystem::path m_dir;
  std::unique_ptr<CZelDataItem> m_block;
};

}  // namespace

TEST_F(ObjectsTest, KeysAndLabelsByLevel) {
  EXPECT_EQ(ZEL::objKey(m_block.get(), 2), CZelString(L"KLOTZ"));
  EXPECT_EQ(ZEL::objKey(m_block.get(), 3), CZelString(L"KLOTZ:ALMG3"));
  EXPECT_EQ(ZEL::objKey(m_block.get(), 4), CZelString(L"KLOTZ:ALMG3:B=30:H=5"));
  EXPECT_TRUE(ZEL::objKey(nullptr, 3).isEmpty());
  EXPECT_EQ(ZEL::obj_label(m_block.get(), L"-1"), CZelString(L"Klotz 30 x 5 - EN AW-5754 (AlMg3)"));
  EXPECT_EQ(ZEL::obj_label(m_block.get(), L"en"), CZelString(L"Setting block 30 x 5 - EN AW-5754 (AlMg3)"));
  EXPECT_EQ(ZEL::obj_label_header(m_block.get(), nullptr), CZelString(L"Klotz - EN AW-5754 (AlMg3)"));
}

TEST_F(ObjectsTest, ArticleNumbersAreRecordedAndAnEmptyOneRemoves) {
  CZelString article;
  EXPECT_FALSE(ZEL::obj_order_get(L"KLOTZ:ALMG3:B=30:H=5", article));
  ASSERT_TRUE(QEN::obj_order_save(L"KLOTZ:ALMG3:B=30:H=5", L"  4711-030 "));
  ASSERT_TRUE(ZEL::obj_order_get(L"KLOTZ:ALMG3:B=30:H=5", article));
  EXPECT_EQ(article, CZelString(L"4711-030"));
  ASSERT_TRUE(QEN::obj_order_save(L"KLOTZ:ALMG3:B=30:H=5", L""));
  EXPECT_FALSE(ZEL::obj_order_get(L"KLOTZ:ALMG3:B=30:H=5", article));
  // A table that cannot be read is not overwritten.
  std::ofstream(m_dir / "qen_obj_order.dex") << "{\"A\": ";
  EXPECT_FALSE(QEN::obj_order_save(L"K", L"1"));
  std::ifstream in(m_dir / "qen_obj_order.dex");
  std::string kept((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(kept, "{\"A\": ");
}

TEST_F(ObjectsTest, LayerPreparationTakesSystemMaterialAndPresetLayers) {
  ASSERT_TRUE(ZEL::obj_layer_init(m_block.get()));
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\KEY3"), CZelString(L"KLOTZ:ALMG3"));
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LABEL"), CZelString(L"Klotz 30 x 5"));  // the header adds the material
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_SYS\\PART_CON"), CZelString(L"QEN_KONTUR"));
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_MAT\\PART_CON"), CZelString(L"QEN_ALU"));  // inherited from aluminium
  EXPECT_TRUE(text(L"*QEN_OBJ_LAY*\\LAY_MAT\\PART_HID").isEmpty());
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_OWN\\PART_HID"), CZelString(L"MEIN_LAYER"));  // from the preset
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_OWN\\PART_CON"), CZelString(L"QEN_KONTUR"));
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_CUR"), CZelString(L"PART_CON"));
  int mode = -1;
  ZEL::cfg_get(L"*QEN_OBJ_LAY*\\IS_LAY")->get(mode);
  EXPECT_EQ(mode, 2);
  EXPECT_EQ(text(L"*QEN_OBJ_LAY*\\LAY_LOG\\PART_FILL"), CZelString(L"Füllung/Schraffur"));
}

TEST_F(ObjectsTest, LayerPresetsAreSavedAndRemovedByKey) {
  CZelDataItem* epdm = CStoreFile::parse(R"({"TYPE": "DICHT", "MAT": "EPDM"})", "seal");
  ASSERT_TRUE(ZEL::obj_layer_init(epdm));
  delete epdm;
  ZEL::cfg_set(L"*QEN_OBJ_LAY*\\IS_LAY", ZEL::mkDataItem(ZEL::mkRbLong(2)), true);
  ZEL::cfg_set(L"*QEN_OBJ_LAY*\\LAY_OWN\\PART_CON", ZEL::mkDataItem(ZEL::mkResbuf(L"DICHTUNG")), true);
  ASSERT_TRUE(QEN::obj_layer_save(ZEL::cfg_get(L"*QEN_OBJ_LAY*")));
  EXPECT_EQ(text(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\LAY_OWN\\PART_CON"), CZelString(L"DICHTUNG"));
  EXPECT_TRUE(QEN::obj_layer_rem(L"DICHT:EPDM"));
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\IS_LAY"), nullptr);
  EXPECT_FALSE(QEN::obj_layer_rem(L"DICHT:EPDM"));
  EXPECT_FALSE(QEN::obj_layer_save(nullptr));
}
