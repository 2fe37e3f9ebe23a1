// The host's drawing file: layers, colours, objects with their data, unknown keys kept.
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

const char* const kDrawing = R"({
  "INSUNITS": 1,
  "layers": [
    {"name": "0", "color": 7},
    {"name": "QEN_KLOTZ", "color": {"rgb": [255, 128, 0]}, "linetype": "HIDDEN", "lineweight": 25, "frozen": true}
  ],
  "linetypes": ["CONTINUOUS", "HIDDEN"],
  "hatch_patterns": {"SOLID": "Solid fill", "ANSI31": "Iron, brick, stone"},
  "objects": {"2F": {"TYPE": "KLOTZ", "B": 30.0, "N": {"$short": 2}}},
  "current": {"KLOTZ": "2F"},
  "sheared": ["KLOTZ"],
  "plotter": {"name": "A3"}
})";

class CZelDrawingTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() / ("qen-drawing-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }
  std::string write(const char* name, const std::string& text) {
    auto p = (m_dir / name).string();
    std::ofstream(p) << text;
    return p;
  }
  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(CZelDrawingTest, LoadsEveryPartAndSavesItBack) {
  CZelDrawing d;
  ASSERT_TRUE(d.load(write("d.json", kDrawing))) << ZEL::lastFileError();
  EXPECT_EQ(d.insUnits, 1);
  ASSERT_EQ(d.layers.size(), 2u);
  ZelLayerRecord* layer = d.layer(L"qen_klotz");
  ASSERT_NE(layer, nullptr);
  EXPECT_TRUE(layer->color.isTrueColor());
  EXPECT_EQ(layer->color.green(), 128);
  EXPECT_EQ(layer->lineweight, 25);
  EXPECT_TRUE(layer->frozen);
  EXPECT_EQ(d.hatchPatterns.size(), 2u);
  EXPECT_EQ(d.currentObject[L"KLOTZ"], CZelString(L"2F"));
  CZelDataItem* obj = d.objectData(L"2F");
  ASSERT_NE(obj, nullptr);
  double b = 0;
  CZelDataKey kb(L"B");
  EXPECT_TRUE(obj->get(b, &kb));
  EXPECT_EQ(b, 30.0);

  CZelString added = d.addObject(*obj);
  EXPECT_EQ(added, CZelString(L"30"));
  std::string out = (m_dir / "out.json").string();
  ASSERT_TRUE(d.save(out));
  CZelDrawing again;
  ASSERT_TRUE(again.load(out)) << ZEL::lastFileError();
  EXPECT_EQ(again.layers.size(), 2u);
  ASSERT_NE(again.objectData(L"30"), nullptr);
  EXPECT_TRUE(*again.objectData(L"2F") == *obj);
  std::ifstream in(out);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("\"plotter\""), std::string::npos);  // keys of others are kept
  EXPECT_NE(text.find("\"$short\""), std::string::npos);  // object data stays in store-file form
}

TEST_F(CZelDrawingTest, ABadDrawingIsRefusedAndTheCurrentOneKept) {
  CZelDrawing d;
  ASSERT_TRUE(d.load(write("good.json", kDrawing)));
  EXPECT_FALSE(d.load(write("bad.json", "{\n  \"layers\": [\n    {\"name\": \"0\",}\n  ]\n}")));
  EXPECT_NE(ZEL::lastFileError().find("bad.json:3:"), std::string::npos) << ZEL::lastFileError();
  EXPECT_FALSE(d.load(write("bad2.json", R"({"layers": [{"name": "0", "color": 300}]})")));
  EXPECT_NE(ZEL::lastFileError().find("colour"), std::string::npos);
  EXPECT_FALSE(d.load(write("bad3.json", R"({"objects": {"2F": {"A": {"$nope": 1}}}})")));
  EXPECT_NE(ZEL::lastFileError().find("object 2F"), std::string::npos) << ZEL::lastFileError();
  EXPECT_FALSE(d.load((m_dir / "missing.json").string()));
  EXPECT_EQ(d.insUnits, 1);
  EXPECT_NE(d.objectData(L"2F"), nullptr);
}

TEST_F(CZelDrawingTest, AnEmptyDrawingIsInMillimetresWithLayerZero) {
  CZelDrawing d;
  ASSERT_TRUE(d.load(write("empty.json", "{}")));
  EXPECT_EQ(d.insUnits, 4);
  ASSERT_EQ(d.layers.size(), 1u);
  EXPECT_EQ(d.layers[0].name, CZelString(L"0"));
  EXPECT_EQ(d.layers[0].lineweight, -3);
}
