// The setting-block dialog through its entry function: the factory state for a store
// without the block, the preview drawn to scale in the layer colours (read back from the
// clipboard copy of the preview's context menu), "Zoom alles" on an edited block, a dialog
// opened from another dialog, and where the object comes from.
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CZelDrawing.h"
#include "data/CStoreFile.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "tests/support/DialogRun.h"
#include "ui/CDialog.h"

#include <gtest/gtest.h>

namespace {

class BlockTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/blocks.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun runBlock(const std::string& script, qenDlgEnv_st env = {}) {
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgHzKl(env)); });
  }
  // The preview as the clipboard got it.
  static DialogRun copyPreview(const std::string& before) {
    return runBlock(before + "menu 10379 5 5\nchoose 10114\nok\n");
  }
  static double real(const wchar_t* path) {
    double v = -1;
    if (CZelDataItem* item = ZEL::cfg_get(path)) item->get(v);
    return v;
  }
};

const CDisplayList::Item* firstOf(const CDisplayList& list, CDisplayList::Kind kind) {
  for (const auto& item : list.items())
    if (item.kind == kind) return &item;
  return nullptr;
}

}  // namespace

TEST_F(BlockTest, AStoreWithoutTheBlockOpensOnTheFactoryState) {
  ZEL::cfg_remove(L"*HZ_KLOTZ*");
  DialogRun r = runBlock("expect 0/10389 text \"30 mm\"\nexpect 0/10390 text \"5 mm\"\nexpect 10401 checked\n"
                         "expect 11008 text \"Klotz - Polypropylen (PP)\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(real(L"*HZ_KLOTZ*\\B"), 30.0);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\MODE"), nullptr);
}

TEST_F(BlockTest, ThePreviewIsTheChamferedBlockToScaleInTheLayerColours) {
  const int copies = CDialogBackend::lastClipboardCopy().count;
  DialogRun r = copyPreview("enter 0/10390 \"6\"\nclick 0/10434\nclick 0/10441\nclick 0/10442\nclick 0/10440\nclick 10318\n");
  ASSERT_EQ(r.status, 0) << r.err;
  const CDialogBackend::ClipboardCopy& copy = CDialogBackend::lastClipboardCopy();
  ASSERT_EQ(copy.count, copies + 1);
  EXPECT_GT(copy.width, 0);
  EXPECT_GT(copy.height, 0);
  // 30 x 6, chamfered 1.0 on the lower left corner only: the outline starts at (1, 0).
  const CDisplayList::Item* outline = firstOf(copy.picture, CDisplayList::Kind::Polyline);
  ASSERT_NE(outline, nullptr);
  ASSERT_EQ(outline->points.count(), 5);
  EXPECT_DOUBLE_EQ(outline->points[0].x, 1.0);
  EXPECT_DOUBLE_EQ(outline->points[0].y, 0.0);
  EXPECT_DOUBLE_EQ(outline->points[1].x, 30.0);
  EXPECT_DOUBLE_EQ(outline->points[2].y, 6.0);
  EXPECT_DOUBLE_EQ(outline->points[4].x, 0.0);
  EXPECT_DOUBLE_EQ(outline->points[4].y, 1.0);
  // The contour on QEN_KONTUR (colour 5), the hatch on QEN_SCHRAFFUR (colour 3).
  EXPECT_EQ(outline->color.index(), 5);
  bool hatched = false;
  for (const auto& item : copy.picture.items())
    if (item.kind != CDisplayList::Kind::Polyline) {
      hatched = true;
      EXPECT_EQ(item.color.index(), 3);
    }
  EXPECT_TRUE(hatched);
  EXPECT_FALSE(copy.picture.view.empty);
  EXPECT_DOUBLE_EQ(copy.picture.view.maxX, 30.0);
}

TEST_F(BlockTest, TheOutlineAloneHasNoHatchAndTheStandardBlockItsCross) {
  DialogRun outline = copyPreview("click 10333\n");
  ASSERT_EQ(outline.status, 0) << outline.err;
  for (const auto& item : CDialogBackend::lastClipboardCopy().picture.items())
    EXPECT_EQ(item.kind, CDisplayList::Kind::Polyline);
  const std::size_t outlineItems = CDialogBackend::lastClipboardCopy().picture.items().size();
  DialogRun standard = copyPreview("click 10401\n");
  ASSERT_EQ(standard.status, 0) << standard.err;
  EXPECT_GT(CDialogBackend::lastClipboardCopy().picture.items().size(), outlineItems);
}

// The view follows a changed block unless an existing one is edited (SheetTabToolsTest);
// "Zoom alles" fits the view to the drawing all the same.
TEST_F(BlockTest, ZoomAllFitsTheViewOfAnEditedBlock) {
  for (const bool zoomAll : {false, true}) {
    ZEL::cfg_set(L"*HZ_KLOTZ*\\B", ZEL::mkDataItem(ZEL::mkRbReal(30.0)), true);
    ZEL::cfg_set(L"*HZ_KLOTZ*\\ORIG", ZEL::mkDataItem(ZEL::mkResbuf(L"2F", RTENAME)), true);
    DialogRun r = copyPreview(std::string("enter 0/10389 \"60\"\n") + (zoomAll ? "menu 10379 5 5\nchoose 10113\n" : ""));
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_DOUBLE_EQ(CDialogBackend::lastClipboardCopy().picture.extents().maxX, 60.0);
    EXPECT_DOUBLE_EQ(CDialogBackend::lastClipboardCopy().picture.view.maxX, zoomAll ? 60.0 : 30.0) << zoomAll;
  }
}

TEST_F(BlockTest, OpenedFromAnotherDialogItNeitherPicksNorDeterminesOnScreen) {
  CDialog owner;
  qenDlgEnv_st env;
  env.m_parent = &owner;
  DialogRun r = runBlock("expect 0/10388 disabled\ntab 1\nexpect 1/10426 disabled\ncancel\n", env);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
}

TEST_F(BlockTest, TheAdministrationTabShowsWhereTheObjectComesFrom) {
  CZelDrawing& drawing = CZelDrawing::current();
  qenDlgEnv_st env;
  auto place = [&](const char* json) {
    std::unique_ptr<CZelDataItem> data(CStoreFile::parse(json, "t"));
    const CZelString handle = drawing.addObject(*data);
    CZelDataKey obj(L"OBJ");
    drawing.objectData(handle)->put(&obj, ZEL::mkResbuf(handle.c_str(), RTENAME));
    drawing.currentObject[L"KLOTZ"] = handle;
    env.object = ZEL::CAdsName(handle);
  };
  // A path of three folders shows the last alone; one of two is shown as it is.
  place(R"({"TYPE": "KLOTZ", "NAME": "KLOTZ\\Eckklotz", "DICT_PATH": ["QEN", "library", "KLOTZ"]})");
  DialogRun r = runBlock("tab 1\nexpect 1/10062 text \"Eckklotz\"\nexpect 1/10454 text \"KLOTZ\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  place(R"({"TYPE": "KLOTZ", "NAME": "KLOTZ\\Fensterklotz", "DICT_PATH": ["werk", "KLOTZ"]})");
  r = runBlock("tab 1\nexpect 1/10062 text \"Fensterklotz\"\nexpect 1/10454 text \"werk/KLOTZ\"\n"
               "click 1/10430\nexpect 1/10062 text \"\"\nexpect 1/10454 text \"\"\nok\n", env);
  EXPECT_EQ(r.status, 0) << r.err;
  // Without a library entry the folder is the object's product system.
  place(R"({"TYPE": "KLOTZ", "PRODSYS": "Fassade 50"})");
  r = runBlock("tab 1\nexpect 1/10062 text \"\"\nexpect 1/10454 text \"Fassade 50\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
}
