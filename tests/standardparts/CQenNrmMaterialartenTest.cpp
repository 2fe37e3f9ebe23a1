// The material types of a standard part as the host opens them (qenNormMatMenu): the
// standard's own materials and the added ones, adding from the material tree, removing,
// OK and Cancel, on the standards of the catalogue database. Adding one and confirming, and
// Cancel after adding, are checked by the scripts din_mat_add_ok and din_mat_cancel.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "norm/ZelNormGen.h"
#include "resources/dialogs/din_mat_ids.h"
#include "standardparts/CQenNrmMaterialarten.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

namespace {

const wchar_t* const kAdded = L"*QEN_NM_PROP*\\DIN:ISO4017\\MAT";

class MaterialTypesTest : public ::testing::Test {
protected:
  void SetUp() override { load(R"("*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8"})"); }

  // The store: a small material catalogue (one of the standard's materials among them) and
  // the given sections.
  static void load(const std::string& sections) {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {"MAT": {
        "STAHL": {"LABEL": "Stahl"},
        "1.4301": {"LABEL": "Edelstahl 1.4301 (A2)", "PARENT": "STAHL"},
        "8.8": {"LABEL": "Schraubenstahl 8.8"}}},
      )json" + sections + "}",
                                              "store"));
    ZEL::norm_gen_init(false);
  }

  static DialogRun runEntry(const std::string& script) {
    qenDlgEnv_st env;
    return runUnderScript(script, [&] { return qenNormMatMenu(env); });
  }
  static std::string stored(const wchar_t* path) {
    CZelDataItem* item = ZEL::cfg_get(path);
    if (!item) return "<absent>";
    return item->isDir() ? CStoreFile::toText(*item) : CStoreFile::valueToText(item->value());
  }
};

TEST_F(MaterialTypesTest, OpensOnTheStandardsMaterialsWithTheCurrentOneChosen) {
  DialogRun r = runEntry(
      "expect 10782 selected \"Schraubenstahl 8.8\"\n"  // the material catalogue's label first
      "expect-store *NM*\\MAT_CUR \"8.8\"\n"
      "select 10782 0\n"
      "expect 10782 selected \"Stahl 4.6 feuerverzinkt\"\n"  // else the standards' catalogue's
      "expect-store *NM*\\MAT_CUR \"4.6-FV\"\n"
      "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(stored(L"*NM*\\MAT"), "\"8.8\"") << "Cancel keeps the material";
  EXPECT_EQ(stored(L"*NM*\\MAT_CUR"), "<absent>");
}

TEST_F(MaterialTypesTest, NewestAddedMaterialComesFirstAndAddingTwiceKeepsOne) {
  DialogRun r = runEntry(
      "select 10783 \"STAHL/1.4301\"\n"
      "click 10379\n"
      "select 10783 \"STAHL\"\n"
      "click 10379\n"
      "select 10783 \"STAHL/1.4301\"\n"
      "click 10379\n"
      "expect 10782 items 11\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stored(kAdded), "[\"STAHL\", \"1.4301\"]");
  EXPECT_EQ(stored(L"*NM*\\MAT"), "\"1.4301\"");
}

TEST_F(MaterialTypesTest, AddingAMaterialTheStandardOffersChangesNothing) {
  DialogRun r = runEntry(
      "select 10782 0\n"
      "select 10783 \"8.8\"\n"
      "expect 10379 enabled\n"
      "click 10379\n"
      "expect 10782 items 9\n"
      "expect 10380 disabled\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stored(kAdded), "<absent>");
  EXPECT_EQ(stored(L"*NM*\\MAT"), "\"8.8\"");
}

TEST_F(MaterialTypesTest, CancelRestoresTheAddedListAsItWasOnOpening) {
  load(R"("*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8"},
          "*QEN_NM_PROP*": {"DIN:ISO4017": {"MAT": ["HOLZ"]}})");
  DialogRun r = runEntry(
      "expect 10782 items 10\n"
      "select 10782 \"HOLZ\"\n"  // unknown to both catalogues: its key
      "expect 10380 enabled\n"
      "click 10380\n"
      "expect 10782 items 9\n"
      "select 10783 \"STAHL/1.4301\"\n"
      "click 10379\n"
      "expect-store *QEN_NM_PROP*\\DIN:ISO4017\\MAT [\"1.4301\"]\n"
      "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(stored(kAdded), "[\"HOLZ\"]");
  EXPECT_EQ(stored(L"*NM*\\MAT"), "\"8.8\"");
  EXPECT_EQ(stored(L"*NM*\\MAT_CUR"), "<absent>");
}

TEST_F(MaterialTypesTest, RemovingTheOnlyAddedMaterialFallsBackToTheFirstOfTheStandard) {
  load(R"("*NM*": {"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "HOLZ"},
          "*QEN_NM_PROP*": {"DIN:ISO4017": {"MAT": "HOLZ"}})");  // a single string counts as a list
  DialogRun r = runEntry(
      "expect 10782 selected \"HOLZ\"\n"
      "click 10380\n"
      "expect 10782 items 9\n"
      "expect 10782 selected 0\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stored(kAdded), "<absent>") << "no list is left once the last material is removed";
  EXPECT_EQ(stored(L"*NM*\\MAT"), "\"4.6-FV\"");
}

// The remove button is only enabled for an added material; the command itself still
// refuses the standard's own materials with the message.
class RemoveOnOpening : public CQenNrmMaterialarten {
public:
  BOOL OnInitDialog() override {
    BOOL r = CQenNrmMaterialarten::OnInitDialog();
    SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DIN_MAT_REMOVE, BN_CLICKED), 0);
    return r;
  }
};

TEST_F(MaterialTypesTest, RemovingAMaterialOfTheStandardIsRefusedWithAMessage) {
  RemoveOnOpening dlg;
  DialogRun r = runDialog(dlg,
                          "expect-box \"Materialart kann nicht entfernt werden!\"\n"
                          "expect 10782 items 9\n"
                          "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stored(L"*NM*\\MAT_CUR"), "\"8.8\"");
}

TEST_F(MaterialTypesTest, WithoutAStandardNothingCanBeAdded) {
  load(R"("*NM*": {"STACK": ["BAR"]})");
  DialogRun r = runEntry(
      "expect 10782 items 0\n"
      "expect 10781 text \"\"\n"
      "select 10783 \"STAHL/1.4301\"\n"
      "expect 10379 disabled\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(stored(L"*NM*\\MAT"), "<absent>");
}

TEST_F(MaterialTypesTest, TheTitleIsTheGroupLabelOfThePart) {
  DialogRun r = runEntry("dump 10781\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("Sechskantschraube"), std::string::npos) << r.out;
}

}  // namespace
