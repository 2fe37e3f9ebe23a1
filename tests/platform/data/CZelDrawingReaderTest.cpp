// The drawing file's reader at its limits: every value is checked for its type and range
// with a message naming the file and the key, deep nesting is refused, and whatever a
// save writes loads again.
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

std::string repeat(const std::string& s, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

class CZelDrawingReaderTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-drawing-reader-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream out(m_dir / name, std::ios::binary);
    out << text;
    return (m_dir / name).string();
  }
  // Loads a drawing that must be refused; the drawing in memory must stay as it was.
  std::string refused(const std::string& text) {
    CZelDrawing d;
    EXPECT_TRUE(d.load(write("good.json", R"({"INSUNITS": 1})")));
    std::string file = write("bad.json", text);
    EXPECT_FALSE(d.load(file)) << text;
    EXPECT_EQ(d.insUnits, 1) << text;
    EXPECT_EQ(ZEL::lastFileError().rfind(file, 0), 0u) << ZEL::lastFileError();
    return ZEL::lastFileError();
  }
  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(CZelDrawingReaderTest, EveryValueIsTypeCheckedNamingTheKey) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"layers": [{"name": "0", "off": 1}]})", "\"off\""},
      {R"({"layers": [{"name": "0", "frozen": "yes"}]})", "\"frozen\""},
      {R"({"layers": [{"name": "0", "locked": null}]})", "\"locked\""},
      {R"({"layers": [{"name": 5}]})", "\"name\""},
      {R"({"layers": [{"name": "0", "linetype": 5}]})", "\"linetype\""},
      {R"({"layers": [{"name": "0", "description": []}]})", "\"description\""},
      {R"({"layers": [{"name": "0", "plotstyle": {}}]})", "\"plotstyle\""},
      {R"({"layers": [{"name": "0", "lineweight": 2.5}]})", "\"lineweight\""},
      {R"({"layers": [{"name": "0", "color": "red"}]})", "\"color\""},
      {R"({"layers": [17]})", "\"name\""},
      {R"({"background": "black"})", "\"background\""},
      {R"({"linetypes": ["CONTINUOUS", 7]})", "\"linetypes\""},
      {R"({"hatch_patterns": {"SOLID": 1}})", "\"SOLID\""},
      {R"({"current": {"KLOTZ": 47}})", "\"KLOTZ\""},
      {R"({"sheared": ["KLOTZ", 1]})", "\"sheared\""},
      {R"({"library": 3})", "\"library\""},
      {R"({"favourites": false})", "\"favourites\""},
      {R"({"objects": {"2F": 5}})", "\"2F\""},
  };
  for (const auto& [text, key] : cases) {
    std::string error = refused(text);
    EXPECT_NE(error.find(key), std::string::npos) << text << "\n" << error;
  }
}

TEST_F(CZelDrawingReaderTest, NumbersOutOfRangeAreRefusedNotWrapped) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"INSUNITS": 4294967300})", "\"INSUNITS\""},  // 2^32 + 4 once read as 4
      {R"({"INSUNITS": -4294967292})", "\"INSUNITS\""},
      {R"({"INSUNITS": 18446744073709551615})", "\"INSUNITS\""},
      {R"({"INSUNITS": 21})", "\"INSUNITS\""},
      {R"({"background": 4294967303})", "\"background\""},
      {R"({"layers": [{"name": "0", "lineweight": 4294967321}]})", "\"lineweight\""},
      {R"({"layers": [{"name": "0", "lineweight": 212}]})", "\"lineweight\""},
      {R"({"layers": [{"name": "0", "lineweight": -4}]})", "\"lineweight\""},
      {R"({"layers": [{"name": "0", "color": 4294967297}]})", "\"color\""},
      {R"({"layers": [{"name": "0", "color": {"rgb": [4294967296, 0, 0]}}]})", "\"color\""},
      {R"({"layers": [{"name": "0", "color": {"rgb": [256, 0, 0]}}]})", "\"color\""},
  };
  for (const auto& [text, key] : cases) {
    std::string error = refused(text);
    EXPECT_NE(error.find(key), std::string::npos) << text << "\n" << error;
  }
  EXPECT_NE(refused(R"({"plotter": 123456789012345678901234567890})").find("bad.json:1:13:"), std::string::npos)
      << ZEL::lastFileError();
  EXPECT_NE(refused(R"({"plotter": [1e-400]})").find("too small"), std::string::npos);
  CZelDrawing d;
  ASSERT_TRUE(d.load(write("edge.json", R"({"INSUNITS": 20, "background": 256, "layers": [{"name": "0", "lineweight": 211,
      "color": {"rgb": [255, 255, 255]}}, {"name": "1", "lineweight": -3, "color": 0}]})")))
      << ZEL::lastFileError();
  EXPECT_EQ(d.insUnits, 20);
  EXPECT_EQ(d.layers[0].lineweight, 211);
}

TEST_F(CZelDrawingReaderTest, DeepNestingIsRefusedWithItsPlace) {
  std::string error = refused("{\"plotter\": " + repeat("[", 20000) + repeat("]", 20000) + "}");
  EXPECT_NE(error.find("bad.json:1:142: nested more than 130 levels"), std::string::npos) << error;
  error = refused(R"({"objects": {"2F": )" + repeat("{\"a\": ", 16000) + "1" + repeat("}", 16000) + "}}");
  EXPECT_NE(error.find("nested more than"), std::string::npos) << error;
}

TEST_F(CZelDrawingReaderTest, WhatASaveWritesLoadsAgain) {
  CZelDrawing d;
  // Unknown keys and object data as deep as they may be, text that is not valid Unicode.
  std::string deepData = repeat("{\"a\": ", 128) + "1" + repeat("}", 128);
  ASSERT_TRUE(d.load(write("deep.json", "{\"plotter\": " + repeat("[", 129) + repeat("]", 129) + ", \"objects\": {\"2F\": " +
                                             deepData + "}}")))
      << ZEL::lastFileError();
  std::wstring name = L"QEN_";
  name += static_cast<wchar_t>(0xD800);
  d.layers.push_back(ZelLayerRecord{});
  d.layers.back().name = CZelString(name);
  d.layers.back().description = CZelString(std::wstring(1, static_cast<wchar_t>(0x110000)));
  std::string out = (m_dir / "out.json").string();
  ASSERT_TRUE(d.save(out)) << ZEL::lastFileError();
  CZelDrawing again;
  ASSERT_TRUE(again.load(out)) << ZEL::lastFileError();
  ASSERT_EQ(again.layers.size(), 2u);
  EXPECT_EQ(again.layers[1].name, CZelString(L"QEN_\xFFFD"));
  EXPECT_EQ(again.layers[1].description, CZelString(L"\xFFFD"));
  ASSERT_NE(again.objectData(L"2F"), nullptr);
  EXPECT_TRUE(*again.objectData(L"2F") == *d.objectData(L"2F"));
}

TEST_F(CZelDrawingReaderTest, UPlus0000InANameIsRefused) {
  std::string error = refused(R"({"layers": [{"name": "A\u0000B"}]})");
  EXPECT_NE(error.find("U+0000"), std::string::npos) << error;
}
