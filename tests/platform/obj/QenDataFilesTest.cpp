// Data file names: in the add-on's data folder, which is made only when a file is to be written.
#include "obj/QenDataFiles.h"

#include "data/ZelDataFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

class DataFileName : public ::testing::Test {
protected:
  void SetUp() override {
    saved = ZEL::dataFolder();
    root = std::filesystem::temp_directory_path() / ("qen-datafiles-" + std::to_string(::getpid()));
    ZEL::setDataFolder((root / "data").string());
  }
  void TearDown() override {
    ZEL::setDataFolder(saved);
    std::filesystem::remove_all(root);
  }
  std::string saved;
  std::filesystem::path root;
};

}  // namespace

TEST_F(DataFileName, ForReadingNamesTheFileWithoutMakingTheFolder) {
  EXPECT_EQ(QEN::dataFileName(L"qen_obj_prop.dex", QEN::kDataFileRead).toUtf8(),
            (root / "data" / "qen_obj_prop.dex").string());
  EXPECT_FALSE(std::filesystem::exists(root / "data"));
}

TEST_F(DataFileName, ForWritingMakesTheFolderFirst) {
  EXPECT_EQ(QEN::dataFileName(L"qen_obj_prop.dex", 1).toUtf8(), (root / "data" / "qen_obj_prop.dex").string());
  EXPECT_TRUE(std::filesystem::is_directory(root / "data"));
  EXPECT_FALSE(std::filesystem::exists(root / "data" / "qen_obj_prop.dex"));
}
