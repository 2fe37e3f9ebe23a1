// The hatch dialog's pattern texts: the standard patterns' descriptions when the drawing lists
// none, and a pattern the drawing does not know marked in the user's language.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelFactorySettings.h"
#include "obj/QenObjHatch.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

namespace {

class HatchPatternTexts : public ::testing::Test {
protected:
  void SetUp() override { ZEL::cfgMgrPtr()->reset(ZEL::factorySettings()); }
  void TearDown() override { CZelDrawing::current().reset(); }

  static DialogRun run(const std::string& script, const wchar_t* objectHandle, const wchar_t* country) {
    qenDlgEnv_st env;
    env.country = country;
    if (objectHandle) {
      EXPECT_TRUE(ZEL::obj_hatch_init(CZelDrawing::current().objectData(objectHandle)));
    }
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgMatObjHatch(env)); });
  }
};

}  // namespace

TEST_F(HatchPatternTexts, WithoutADrawingTheStandardPatternsAreOfferedWithTheirDescriptions) {
  CZelDrawing::current().reset();
  DialogRun r = run("expect 0/10345 text \"ANSI Iron, Brick, Stone masonry\"\nclick 0/10355\n"
                    "select 0/10344 \"AR-CONC\"\nexpect 0/10345 text \"Random dot and stone pattern\"\ndump 0/10379\nok\n",
                    nullptr, L"de");
  EXPECT_EQ(r.status, 0) << r.err << r.out;
  EXPECT_NE(r.out.find("picture=\"AR-CONC scale 1 angle 0°: dashed lines 50°"), std::string::npos) << r.out;
}

TEST_F(HatchPatternTexts, AnUnknownPatternIsMarkedInTheUsersLanguage) {
  ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/facade_hatch.json")) << ZEL::lastFileError();
  DialogRun en = run("expect 0/10345 text \"ANSI99 - not found\"\nok\n", L"62", L"en");
  EXPECT_EQ(en.status, 0) << en.err << en.out;
  DialogRun de = run("expect 0/10345 text \"ANSI99 - nicht gefunden\"\nok\n", L"62", L"de");
  EXPECT_EQ(de.status, 0) << de.err << de.out;
}
