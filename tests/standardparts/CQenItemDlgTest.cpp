// The item dialog as the host opens it: the object's label, its recorded article number,
// recording, changing and deleting it, and the call interface's own answer.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataFiles.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "resources/dialogs/obj_order_ids.h"
#include "standardparts/CQenItemDlg.h"
#include "tests/support/DialogRun.h"
#include "ui/CFont.h"
#include "ui/CStatic.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace {

const wchar_t* const kKey = L"KLOTZ:ALMG3:B=30:H=5";

class ItemDialogTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({
      "_COUNTRY": "de",
      "*ZEL_MAT*": {"MAT": {
        "ALUMINIUM": {"LABEL": "Aluminium"},
        "ALMG3": {"LABEL": "EN AW-5754 (AlMg3)", "PARENT": "ALUMINIUM"}}}
    })json", "store"));
    m_dir = std::filesystem::temp_directory_path() / ("qen-item-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
    ZEL::setDataFolder(m_dir.string());
    m_block.reset(CStoreFile::parse(R"({"TYPE": "KLOTZ", "MAT": "ALMG3", "B": 30.0, "H": 5.0})", "block"));
  }
  void TearDown() override {
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_dir);
  }

  DialogRun runEntry(const std::string& script) {
    ZEL::DlgEnv_st env;
    return runUnderScript(script, [&] { return qenItemDlgMenu(env, m_block.get()); });
  }
  static CZelString article() {
    CZelString a;
    return ZEL::obj_order_get(kKey, a) ? a : CZelString(L"<none>");
  }
  std::string tableText() const {
    std::ifstream in(m_dir / "qen_obj_order.dex");
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }
  // A table written by hand, as no save of this module writes it: any save shows.
  void writeTableByHand(const std::string& article) {
    std::ofstream(m_dir / "qen_obj_order.dex") << "{\"KLOTZ:ALMG3:B=30:H=5\":\"" << article << "\"}";
  }

  std::filesystem::path m_dir;
  std::unique_ptr<CZelDataItem> m_block;
};

// The item dialog with its message boxes and its state at OK recorded.
class WatchedItemDlg : public CQenItemDlg {
public:
  using CQenItemDlg::CQenItemDlg;
  int MessageBoxW(const wchar_t* text, const wchar_t* caption, UINT flags) override {
    boxText = text;
    boxCaption = caption;
    boxFlags = flags;
    return CQenItemDlg::MessageBoxW(text, caption, flags);
  }
  void OnOK() override {
    const CFont* font = staticCtrl(IDC_OBJ_ORDER_LABEL).GetFont();
    labelWeight = font ? font->weight() : 0;
    labelHeight = font ? font->height() : 0;
    CQenItemDlg::OnOK();
  }
  CZelString boxText, boxCaption;
  UINT boxFlags = 0;
  int labelWeight = 0, labelHeight = 0;
};

class HostPicker : public CSharpDialogInterface {
public:
  CZelArrayTempl<CZelString> CallNrmDiaDlg(CZelDataItem*) override { return {L"PIECE", L"DIN", L"DIN933"}; }
};

}  // namespace

TEST_F(ItemDialogTest, OpensOnTheObjectsLabelAndItsRecordedArticle) {
  ASSERT_EQ(ZEL::objKey(m_block.get(), 4), CZelString(kKey));
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  DialogRun r = runEntry(
      "expect dialog text \"Artikel\"\n"
      "expect 10772 text \"Klotz 30 x 5 - EN AW-5754 (AlMg3)\"\n"
      "expect 10773 text \"KL-30-5\"\n"
      "expect 10773 focused\n"
      "expect 1 text \"OK\"\n"
      "expect 2 text \"Abbrechen\"\n"
      "cancel\n"
      "expect-store *QEN_OBJ_GEN*\\MAT \"ALMG3\"\n"
      "expect-store *QEN_OBJ_GEN*\\B 30.0\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDCANCEL);
}

TEST_F(ItemDialogTest, ANewArticleIsRecordedUnderTheLevelFourKeyWithoutBlanks) {
  DialogRun r = runEntry("expect 10773 text \"\"\ntype 10773 \"  KL-30-5 \"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(article(), CZelString(L"KL-30-5"));
}

TEST_F(ItemDialogTest, AChangedArticleReplacesTheOldOne) {
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  DialogRun r = runEntry("type 10773 \"KL-30-5-EPDM\"\nok\n");
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(article(), CZelString(L"KL-30-5-EPDM"));
}

TEST_F(ItemDialogTest, BlanksAroundAnUnchangedArticleSaveNothing) {
  writeTableByHand("KL-30-5");
  const std::string before = tableText();
  DialogRun r = runEntry("type 10773 \"   KL-30-5  \"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(tableText(), before);
}

TEST_F(ItemDialogTest, ClearingAndAnsweringNoKeepsTheArticleAndStillConfirms) {
  writeTableByHand("KL-30-5");
  const std::string before = tableText();
  DialogRun r = runEntry("type 10773 \"  \"\nanswer 7\nok\nexpect-box \"Artikelnummer für Objekt löschen?\"\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(tableText(), before);
  EXPECT_EQ(article(), CZelString(L"KL-30-5"));
}

TEST_F(ItemDialogTest, ClearingAndAnsweringYesRemovesTheArticle) {
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  DialogRun r = runEntry("type 10773 \"\"\nanswer 6\nok\nexpect-box \"Artikelnummer für Objekt löschen?\"\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(article(), CZelString(L"<none>"));
}

TEST_F(ItemDialogTest, TheDeletionQuestionIsAYesNoQuestionOfQenora) {
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  CZelDataKey gen(L"*QEN_OBJ_GEN*");
  ZEL::cfg_set(gen, m_block->clone(), true);
  WatchedItemDlg dlg(nullptr, m_block.get());
  DialogRun r = runDialog(dlg, "type 10773 \"\"\nanswer 7\nok\n");
  EXPECT_EQ(r.result, IDOK);
  EXPECT_EQ(dlg.boxText, CZelString(L"Artikelnummer für Objekt löschen?"));
  EXPECT_EQ(dlg.boxCaption, CZelString(L"QENORA"));
  EXPECT_EQ(dlg.boxFlags, MB_YESNO | MB_ICONQUESTION | MB_TASKMODAL);
  EXPECT_EQ(dlg.labelWeight, FW_BOLD);
  EXPECT_EQ(dlg.labelHeight, 15);
  EXPECT_EQ(dlg.helpTopic(), CZelString(L"qen_obj_order"));
}

TEST_F(ItemDialogTest, CancelAndLeavingTheEditRecordNothing) {
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  DialogRun r = runEntry("type 10773 \"KL-99\"\nleave 10773\nexpect 10773 text \"KL-99\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDCANCEL);
  EXPECT_EQ(article(), CZelString(L"KL-30-5"));
}

TEST_F(ItemDialogTest, TextsComeInTheUsersLanguage) {
  ZEL::cfg_set(CZelDataKey(L"_COUNTRY"), new CZelDataItem(ZEL::mkResbuf(L"en")), true);
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  DialogRun r = runEntry(
      "expect dialog text \"Article\"\n"
      "expect 2 text \"Cancel\"\n"
      "expect 10772 text \"Setting block 30 x 5 - EN AW-5754 (AlMg3)\"\n"
      "type 10773 \"\"\n"
      "answer 7\n"
      "ok\n"
      "expect-box \"Delete the article number of the object?\"\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(article(), CZelString(L"KL-30-5"));
}

TEST_F(ItemDialogTest, WithoutAnObjectTheDialogOpensOnTheLastOneHandedOver) {
  ASSERT_TRUE(QEN::obj_order_save(kKey, L"KL-30-5"));
  runEntry("cancel\n");
  ZEL::DlgEnv_st env;
  DialogRun r = runUnderScript("expect 10773 text \"KL-30-5\"\ncancel\n", [&] { return qenItemDlgMenu(env, nullptr); });
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDCANCEL);
}

TEST(CSharpDialogInterface, TheModulesOwnChoiceIsEmpty) {
  CSharpDialogInterface base;
  CZelDataItem leaves;
  EXPECT_TRUE(base.CallNrmDiaDlg(&leaves).isEmpty());
  EXPECT_TRUE(base.CallNrmDiaDlg(nullptr).isEmpty());
  CSharpDialogInterface copy(base);
  EXPECT_EQ(&(copy = base), &copy);
  EXPECT_TRUE(copy.CallNrmDiaDlg(&leaves).isEmpty());
}

TEST(CSharpDialogInterface, AHostsPictureChoiceIsReachedThroughTheBase) {
  HostPicker host;
  CSharpDialogInterface& picker = host;
  CZelArrayTempl<CZelString> stack = picker.CallNrmDiaDlg(nullptr);
  ASSERT_EQ(stack.count(), 3);
  EXPECT_EQ(stack[2], CZelString(L"DIN933"));
}

TEST_F(ItemDialogTest, ADamagedTableIsNamedWithItsPlaceAndLeftAsItIs) {
  const std::string damaged = "{\"KLOTZ:PP:B=1:H=1\": \"X\",\n";
  std::ofstream(m_dir / "qen_obj_order.dex") << damaged;
  ZEL::cfg_set(CZelDataKey(L"*QEN_OBJ_GEN*"), m_block->clone(), true);
  WatchedItemDlg dlg(nullptr, m_block.get());
  DialogRun r = runDialog(dlg, "type 10773 \"KL-30-5\"\nok\nexpect 10773 text \"KL-30-5\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, IDCANCEL) << "the dialog stays open after the failed save";
  EXPECT_EQ(tableText(), damaged);
  const std::string box = dlg.boxText.toUtf8();
  EXPECT_EQ(box.rfind("Die Artikelnummer wurde nicht gespeichert.\n", 0), 0u) << box;
  EXPECT_NE(box.find((m_dir / "qen_obj_order.dex").string() + ":"), std::string::npos) << box;
}

TEST_F(ItemDialogTest, ATableThatCannotBeWrittenIsAMessageNamingTheFile) {
  // A data folder below a plain file: no lock and no save can be made there, not even by root.
  std::ofstream(m_dir / "plain") << "x";
  ZEL::setDataFolder((m_dir / "plain" / "data").string());
  ZEL::cfg_set(CZelDataKey(L"*QEN_OBJ_GEN*"), m_block->clone(), true);
  WatchedItemDlg dlg(nullptr, m_block.get());
  DialogRun r = runDialog(dlg, "type 10773 \"KL-30-5\"\nok\ncancel\n");
  EXPECT_EQ(r.result, IDCANCEL);
  const std::string box = dlg.boxText.toUtf8();
  EXPECT_EQ(box.rfind("Die Artikelnummer wurde nicht gespeichert.\n", 0), 0u) << box;
  EXPECT_NE(box.find((m_dir / "plain" / "data" / "qen_obj_order.dex").string()), std::string::npos) << box;
  EXPECT_EQ(article(), CZelString(L"<none>"));
}
