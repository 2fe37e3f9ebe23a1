// The seal dialog through its entry function: the factory state, the preview drawn to scale
// in the layer colours (read back from the clipboard copy of the preview's context menu),
// and the favourite that qen-host saves and brings back.
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

class SealTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/seals.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun runSeal(const std::string& script) {
    qenDlgEnv_st env;
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgHzDi(env)); });
  }
  // The preview as the clipboard got it, after the script's own steps.
  static const CDisplayList& copyPreview(const std::string& before) {
    const int copies = CDialogBackend::lastClipboardCopy().count;
    DialogRun r = runSeal(before + "menu 10379 5 5\nchoose 10114\nok\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(CDialogBackend::lastClipboardCopy().count, copies + 1);
    return CDialogBackend::lastClipboardCopy().picture;
  }
};

int countOf(const CDisplayList& list, CDisplayList::Kind kind) {
  int n = 0;
  for (const auto& item : list.items()) n += item.kind == kind;
  return n;
}

}  // namespace

TEST_F(SealTest, AStoreWithoutTheSealOpensOnTheFactoryState) {
  ZEL::cfg_remove(L"*HZ_DICHT*");
  DialogRun r = runSeal("expect 0/10389 text \"10 mm\"\nexpect 0/10390 text \"3 mm\"\nexpect 10317 checked\n"
                        "expect 0/10311 text \"EPDM\"\nexpect 11008 text \"Dichtung - EPDM\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  double b = 0.0;
  ASSERT_NE(ZEL::cfg_get(L"*HZ_DICHT*\\B"), nullptr);
  ZEL::cfg_get(L"*HZ_DICHT*\\B")->get(b);
  EXPECT_EQ(b, 10.0);
}

TEST_F(SealTest, ThePreviewIsTheHatchedSealToScaleInTheLayerColours) {
  const CDisplayList& picture = copyPreview("enter 0/10389 \"24\"\nenter 0/10390 \"6.5\"\n");
  // The outline on QEN_KONTUR (colour 5): the 24 x 6.5 rectangle from the origin.
  ASSERT_EQ(countOf(picture, CDisplayList::Kind::Polyline), 1);
  const CDisplayList::Item* outline = nullptr;
  for (const auto& item : picture.items())
    if (item.kind == CDisplayList::Kind::Polyline) outline = &item;
  ASSERT_EQ(outline->points.count(), 4);
  const double corners[4][2] = {{0, 0}, {24, 0}, {24, 6.5}, {0, 6.5}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_DOUBLE_EQ(outline->points[i].x, corners[i][0]) << i;
    EXPECT_DOUBLE_EQ(outline->points[i].y, corners[i][1]) << i;
  }
  EXPECT_EQ(outline->color.index(), 5);
  // The hatch on QEN_SCHRAFFUR (colour 3), every dash inside the seal.
  int dashes = 0;
  for (const auto& item : picture.items()) {
    if (item.kind == CDisplayList::Kind::Polyline) continue;
    EXPECT_EQ(item.color.index(), 3);
    for (int i = 0; i < item.points.count(); ++i, ++dashes) {
      EXPECT_GE(item.points[i].x, -1e-9);
      EXPECT_LE(item.points[i].x, 24.0 + 1e-9);
      EXPECT_GE(item.points[i].y, -1e-9);
      EXPECT_LE(item.points[i].y, 6.5 + 1e-9);
    }
  }
  EXPECT_GT(dashes, 10);
  EXPECT_DOUBLE_EQ(picture.view.maxX, 24.0);
  EXPECT_DOUBLE_EQ(picture.view.maxY, 6.5);
}

TEST_F(SealTest, TheFavouriteBringsBackWhatWasSaved) {
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / ("qen-seal-fav-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  fs::copy_file(QEN_SOURCE_DIR "/tests/scripts/drawings/seals.json", dir / "seals.json", fs::copy_options::overwrite_existing);
  {
    std::ofstream script(dir / "t.qds");
    script << "enter 0/10389 \"45\"\nclick 10333\nclick 10295\ntab 1\nclick 1/10430\nexpect 10317 checked\n"
              "expect-store *HZ_DICHT*\\B 10.0\nclick 10297\nexpect-store *HZ_DICHT*\\B 45.0\nexpect 10333 checked\n"
              "expect 10334 disabled\ntab 0\nexpect 0/10389 text \"45 mm\"\nok\n";
  }
  const std::string host = QEN_HOST_EXE, d = dir.string();
  ASSERT_EQ(std::system((host + " init --store " + d + "/store.json > /dev/null").c_str()), 0);
  const int status = std::system((host + " run DICHT --store " + d + "/store.json --drawing " + d + "/seals.json --script " + d +
                                  "/t.qds > " + d + "/out.txt 2>&1")
                                     .c_str());
  std::ifstream out(dir / "out.txt");
  const std::string text((std::istreambuf_iterator<char>(out)), std::istreambuf_iterator<char>());
  EXPECT_EQ(status, 0) << text;
  EXPECT_NE(text.find("end code: 1"), std::string::npos) << text;
  EXPECT_TRUE(fs::exists(dir / "favourites" / "DICHT.json"));
  fs::remove_all(dir);
}
