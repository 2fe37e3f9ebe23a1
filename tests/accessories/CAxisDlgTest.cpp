// The axis-symbol dialog through its entry function: the snapshot that Cancel puts back
// (OK and other end codes are the entry frame's, see EntryFrameTest and axis_edit_object);
// the factory state for a store without the axis; an emptied construction choice; and the
// preview read back from the clipboard copy of its context menu, by coordinates, in the
// layer colours, on the background colour of the settings.
#include "accessories/CAxisDlg.h"
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "tests/support/DialogRun.h"
#include "ui/CButton.h"
#include "ui/CComboBox.h"
#include "ui/CDialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

// Acts on the dialog as code, then ends it with the code the action chose (Cancel when it
// chose none): for what no person can do through a script, such as a selection that ends
// on no line.
class CActionBackend : public CDialogBackend {
public:
  explicit CActionBackend(std::function<void(CDialog&)> act) : m_act(std::move(act)) {}
  void runModal(CDialog& dialog) override {
    m_act(dialog);
    if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
  }
  UINT trackPopupMenu(const CMenu&, CWnd*, CPoint) override { return 0; }

private:
  std::function<void(CDialog&)> m_act;
};

using Item = CDisplayList::Item;
using Kind = CDisplayList::Kind;

class CAxisDlgTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/axes.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun runAxis(const std::string& script, const qenDlgEnv_st& env = {}) {
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgAxis(env)); });
  }
  static int runActing(std::function<void(CDialog&)> act) {
    CActionBackend backend(std::move(act));
    CDialogBackendScope scope(backend);
    return qenDlgAxis(qenDlgEnv_st{});
  }
  // The preview as the clipboard got it after the script's changes.
  static CDisplayList copyPreview(const std::string& before) {
    const int copies = CDialogBackend::lastClipboardCopy().count;
    DialogRun r = runAxis(before + "menu 10706 5 5\nchoose 10114\nok\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(CDialogBackend::lastClipboardCopy().count, copies + 1);
    return CDialogBackend::lastClipboardCopy().picture;
  }
  static void set(const wchar_t* path, const std::string& json) {
    std::unique_ptr<CZelDataItem> item(CStoreFile::parse(json, "test"));
    ASSERT_TRUE(item) << json;
    ZEL::cfg_set(path, item.release(), true);
  }
  static std::string stored(const wchar_t* path) {
    CZelDataItem* item = ZEL::cfg_get(path);
    std::string text = item ? CStoreFile::toText(*item) : std::string("absent");
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  }
  // The symbol on the drawing's layers: contour QEN_KONTUR (5), centre line QEN_ACHSE (1),
  // filling QEN_SCHRAFFUR (3).
  static void onLayers() {
    set(L"*AXIS*\\PART_CON", "\"QEN_KONTUR\"");
    set(L"*AXIS*\\PART_CEN", "\"QEN_ACHSE\"");
    set(L"*AXIS*\\PART_FILL", "\"QEN_SCHRAFFUR\"");
  }
};

std::vector<Item> itemsOf(const CDisplayList& list, Kind kind) {
  std::vector<Item> out;
  for (const Item& item : list.items())
    if (item.kind == kind) out.push_back(item);
  return out;
}

// The closed triangles among the polylines: the arrow heads.
std::vector<Item> heads(const CDisplayList& list) {
  std::vector<Item> out;
  for (const Item& item : itemsOf(list, Kind::Polyline))
    if (item.closed && item.points.count() == 3) out.push_back(item);
  return out;
}

// Open two-point polylines across the axis (bars and clamping ticks), by their x.
std::vector<double> crossings(const CDisplayList& list) {
  std::vector<double> xs;
  for (const Item& item : itemsOf(list, Kind::Polyline))
    if (!item.closed && item.points.count() == 2 && item.points[0].x == item.points[1].x) xs.push_back(item.points[0].x);
  std::sort(xs.begin(), xs.end());
  return xs;
}

}  // namespace

// --- the entry --------------------------------------------------------------------------------

TEST_F(CAxisDlgTest, CancelPutsBackEveryValueOfTheAxisAsItWasAtEntry) {
  set(L"*AXIS*\\ORIG", R"({"$ename": "A1"})");
  set(L"*AXIS*\\NAME", "\"Achse 1\"");
  const std::string before = stored(L"*AXIS*");
  DialogRun r = runAxis(
      "enter 10699 \"80\"\nselect 10708 2\nclick 10694\nenter 10695 \"12\"\nclick 10219\n"
      "expect-store *AXIS*\\LEN 80.0\nexpect-store *AXIS*\\IS_GD 1\nclick 10294\nok\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(stored(L"*AXIS*"), before);
}

TEST_F(CAxisDlgTest, AStoreWithoutTheAxisOpensOnTheFactoryState) {
  ZEL::cfg_remove(L"*AXIS*");
  DialogRun r = runAxis("expect 10708 text \"Verglasungsachse\"\nexpect 10699 text \"50 mm\"\nexpect 10698 checked\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stored(L"*AXIS*\\LEN"), "50.0");
  EXPECT_EQ(stored(L"*AXIS*\\TYPE"), "\"AXIS\"");
  // Cancel on a store that had no axis leaves none behind.
  ZEL::cfg_remove(L"*AXIS*");
  r = runAxis("cancel\n");
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(stored(L"*AXIS*"), "absent");
}

TEST_F(CAxisDlgTest, ASelectionThatEndsOnNoLineWritesAnEmptyConstruction) {
  set(L"*AXIS*\\CONS", "\"PLAN\"");
  std::string shown;
  runActing([&](CDialog& dialog) {
    dialog.combo(10708).selectByUser(-1);
    shown = dialog.combo(10708).GetLBText(dialog.combo(10708).GetCurSel()).toUtf8();
    dialog.EndDialog(IDOK);
  });
  EXPECT_EQ(stored(L"*AXIS*\\CONS"), "\"\"");
  // With no construction stored the first one is shown.
  EXPECT_EQ(shown, "Verglasungsachse");
}

// --- the preview ------------------------------------------------------------------------------

TEST_F(CAxisDlgTest, AGlazingAxisIsDrawnToScaleAllOnTheCentreLineLayer) {
  onLayers();
  const CDisplayList picture = copyPreview("");
  // The axis line from the origin to the length.
  const std::vector<Item> lines = itemsOf(picture, Kind::Polyline);
  ASSERT_FALSE(lines.empty());
  EXPECT_DOUBLE_EQ(lines[0].points[0].x, 0.0);
  EXPECT_DOUBLE_EQ(lines[0].points[1].x, 50.0);
  EXPECT_DOUBLE_EQ(lines[0].points[1].y, 0.0);
  // An arrow head at each end (their shape is AxisGeometryTest's).
  EXPECT_EQ(heads(picture).size(), 2u);
  // Everything in the colour of QEN_ACHSE, the contour included; the store keeps its contour layer.
  for (const Item& item : picture.items()) EXPECT_EQ(item.color.index(), 1);
  EXPECT_EQ(stored(L"*AXIS*\\PART_CON"), "\"QEN_KONTUR\"");
  EXPECT_TRUE(crossings(picture).empty());
}

TEST_F(CAxisDlgTest, AHatchChosenWithTheHatchAssignmentHatchesTheArrowHeadWithItsPattern) {
  onLayers();
  const CDisplayList picture = copyPreview(
      "enter 10699 \"200\"\nselect 10708 1\nclick 10694\nclick 10219\n"
      "click 10334\nclick 0/10355\nselect 0/10344 \"ANSI31\"\nok\n");
  EXPECT_EQ(stored(L"*AXIS*\\HPNAME"), "\"ANSI31\"");
  EXPECT_TRUE(itemsOf(picture, Kind::Fill).empty());
  const std::vector<Item> dashes = itemsOf(picture, Kind::Segments);
  ASSERT_EQ(dashes.size(), 1u);
  EXPECT_EQ(dashes[0].color.index(), 3);
  // Every dash lies on the arrow head, from x = 180 to its tip at 200.
  ASSERT_GT(dashes[0].points.count(), 0);
  for (int i = 0; i < dashes[0].points.count(); ++i) {
    EXPECT_GE(dashes[0].points[i].x, 180.0 - 1e-9);
    EXPECT_LE(dashes[0].points[i].x, 200.0 + 1e-9);
    EXPECT_LE(std::fabs(dashes[0].points[i].y), 20.0 / 3.0 + 1e-9);
  }
}

TEST_F(CAxisDlgTest, ThePreviewIsDrawnOnTheMenusBackgroundColour) {
  set(L"QEN_MENU\\COLOR\\BASE", "5");
  EXPECT_EQ(copyPreview("").background, CZelColor::fromIndex(5));
  // Colour 7 as the background is white, as the host shows its drawing.
  set(L"QEN_MENU\\COLOR\\BASE", "7");
  EXPECT_EQ(copyPreview("").background, CZelColor::fromRgb(255, 255, 255));
}

TEST_F(CAxisDlgTest, ARightClickOutsideThePreviewShowsNoMenu) {
  DialogRun r = runAxis("menu 10699 5 5\nchoose 10113\nok\n");
  EXPECT_NE(r.status, 0);
  DialogRun inside = runAxis("menu 10706 5 5\nchoose 10113\nok\n");
  EXPECT_EQ(inside.status, 0) << inside.err;
}
