// The hatch patterns a drawing offers: its own list, or the standard set when it lists none.
#include "data/CStoreFile.h"
#include "data/CZelApp.h"
#include "data/CZelDrawing.h"
#include "data/ZelHatchPatternTable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

class DrawingHatchPatterns : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() / ("qen-drawing-hatch-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override {
    std::filesystem::remove_all(m_dir);
    CZelDrawing::current().reset();
  }
  std::string write(const char* name, const std::string& text) {
    auto p = (m_dir / name).string();
    std::ofstream(p) << text;
    return p;
  }
  std::string read(const std::string& path) {
    std::ifstream in(path);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  }
  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(DrawingHatchPatterns, ADrawingWithoutAListOrWithAnEmptyOneOffersTheStandardSet) {
  for (const char* text : {R"({"layers": [{"name": "0"}]})", R"({"hatch_patterns": {}})"}) {
    CZelDrawing d;
    ASSERT_TRUE(d.load(write("d.json", text))) << ZEL::lastFileError();
    EXPECT_EQ(d.hatchPatterns, ZEL::standardHatchPatterns()) << text;
    // Saved again, the file still lists none: the standard set is not frozen into it.
    const std::string out = (m_dir / "out.json").string();
    ASSERT_TRUE(d.save(out));
    EXPECT_NE(read(out).find("\"hatch_patterns\": {}"), std::string::npos) << read(out);
  }
}

TEST_F(DrawingHatchPatterns, ADrawingWithItsOwnListOffersExactlyThose) {
  ASSERT_TRUE(CZelDrawing::current().load(
      write("own.json", R"({"hatch_patterns": {"ANSI37": "Isolierung", "KIES": "Kiesbett", "ANSI31": "Eisen"}})")))
      << ZEL::lastFileError();
  auto patterns = ZEL::zelAppPtr()->hatchPatterns();
  ASSERT_EQ(patterns.count(), 3);
  EXPECT_EQ(*patterns.lookup(L"ANSI31"), CZelString(L"Eisen"));
  EXPECT_EQ(*patterns.lookup(L"KIES"), CZelString(L"Kiesbett"));
  EXPECT_EQ(patterns.lookup(L"SOLID"), nullptr);

  const std::string out = (m_dir / "out.json").string();
  ASSERT_TRUE(CZelDrawing::current().save(out));
  CZelDrawing again;
  ASSERT_TRUE(again.load(out)) << ZEL::lastFileError();
  EXPECT_EQ(again.hatchPatterns, CZelDrawing::current().hatchPatterns);
}
