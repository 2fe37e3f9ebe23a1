// The hatch dialog through its entry function, on the factory settings and a facade drawing
// with hatch patterns: sources, solid fills, unknown patterns, second hatches, angle and
// scale fields, the preview, presets, and what OK and Cancel leave in the store.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"
#include "obj/QenObjHatch.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

class HatchRegTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
    ASSERT_TRUE(CZelDrawing::current().load(QEN_SOURCE_DIR "/tests/scripts/drawings/facade_hatch.json")) << ZEL::lastFileError();
  }
  void TearDown() override { CZelDrawing::current().reset(); }

  // Runs the entry on the hatches of a drawing object (none: on what the store holds).
  static DialogRun runHatch(const std::string& script, const wchar_t* objectHandle = nullptr, const wchar_t* country = nullptr) {
    qenDlgEnv_st env;
    if (country) env.country = country;
    if (objectHandle) {
      EXPECT_TRUE(ZEL::obj_hatch_init(CZelDrawing::current().objectData(objectHandle)));
    }
    return runUnderScript(script, [&] { return static_cast<INT_PTR>(qenDlgMatObjHatch(env)); });
  }
  static CZelString storedText(const wchar_t* path) {
    CZelString text;
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(text, key.next());
    return text;
  }
  static double storedReal(const wchar_t* path) {
    double value = std::nan("");
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(value, key.next());
    return value;
  }
  static int storedInt(const wchar_t* path) {
    int value = -99;
    CZelDataKey key = CZelDataKey::fromPath(path);
    if (CZelDataItem* root = ZEL::cfg_get(key.text())) root->get(value, key.next());
    return value;
  }
  static constexpr double kDegree = std::numbers::pi / 180.0;
};

}  // namespace

TEST_F(HatchRegTest, OpensOnTheSystemsPatternWithItsDescriptionAndGermanTexts) {
  DialogRun r = runHatch(
      "expect 15007 items 1\nexpect 15007 text \"Kontur\"\n"
      "expect 10304 text \"Dichtung 10 x 3 - EPDM\"\n"
      "expect 0/10353 checked\nexpect 0/10354 unchecked\nexpect 0/10355 unchecked\n"
      "expect 0/10344 disabled\nexpect 0/10344 text \"ANSI34\"\nexpect 0/10344 items 6\n"
      "expect 0/10345 text \"ANSI Plastic and Rubber\"\nexpect 0/10347 disabled\nexpect 0/10349 disabled\n"
      "expect 0/10341 text \"Zuordnung\"\nexpect 0/10342 text \"Schraffur\"\nexpect 0/10343 text \"Muster\"\n"
      "expect 0/10346 text \"Winkel\"\nexpect 0/10348 text \"Skalierung\"\nexpect 0/10355 text \"Spezifisch\"\n"
      "expect 10366 text \"Einstellung speichern\"\nexpect 10367 text \"Voreinstellungen entfernen\"\n"
      "expect 2 text \"Abbrechen\"\nexpect 0/10350 hidden\nexpect 0/10357 hidden\nexpect 0/10365 hidden\nok\n",
      L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
}

TEST_F(HatchRegTest, SpeaksEnglishWhenTheRecordAsksForIt) {
  DialogRun r = runHatch(
      "expect 15007 text \"Outline\"\nexpect 0/10341 text \"Assignment\"\nexpect 0/10355 text \"Specific\"\n"
      "expect 0/10343 text \"Pattern\"\nexpect 10366 text \"Save setting\"\nok\n",
      L"30", L"en");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(HatchRegTest, ThePatternListIsSolidFirstThenTheDrawingsPatterns) {
  CZelDrawing::current().hatchPatterns = {{L"ZIGZAG", L"Zickzack"}, {L"SOLID", L"Vollfüllung"}, {L"", L"ohne Namen"},
                                          {L"solid", L"klein geschrieben"}, {L"ANSI31", L"Eisen"}};
  DialogRun r = runHatch("dump 0/10344\nok\n", L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  // Unsorted after SOLID, in the order of the host's map; another spelling of SOLID is a pattern of its own.
  EXPECT_NE(r.out.find("items=[\"SOLID\", \"ANSI31\", \"ZIGZAG\", \"solid\"]"), std::string::npos) << r.out;
}

TEST_F(HatchRegTest, SolidInAnyLetterCaseDisablesAngleAndScaleEvenForAnOwnPattern) {
  DialogRun r = runHatch(
      "expect 0/10355 checked\nexpect 0/10344 enabled\nexpect 0/10344 selected 0\n"
      "expect 0/10347 disabled\nexpect 0/10349 disabled\n"
      "select 0/10344 \"ANSI37\"\nexpect 0/10347 enabled\nexpect 0/10349 enabled\n"
      "select 0/10344 \"SOLID\"\nexpect 0/10347 disabled\nexpect 0/10349 disabled\ndump 0/10379\nok\n",
      L"61");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("picture=\"solid fill\""), std::string::npos) << r.out;
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"SOLID"));
}

TEST_F(HatchRegTest, AnUnknownPatternShowsSolidSelectedAndItsNameAsNotFound) {
  DialogRun r = runHatch("expect 0/10353 checked\nexpect 0/10344 selected 0\nexpect 0/10345 text \"ANSI99 - nicht gefunden\"\nok\n",
                         L"62");
  EXPECT_EQ(r.status, 0) << r.err;
  // Nothing the user did not choose is written: the system's pattern stays as it was.
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HATCH_SYS\\#2"), CZelString(L"ANSI99"));
}

TEST_F(HatchRegTest, TheMaterialsPatternComesAlongTheMaterialChain) {
  // AlMg3 has no hatch of its own; aluminium's ANSI38 is not among the drawing's patterns.
  DialogRun r = runHatch(
      "expect 0/10354 checked\nexpect 0/10354 enabled\nexpect 0/10344 selected 0\n"
      "expect 0/10345 text \"ANSI38 - nicht gefunden\"\nexpect 0/10349 text \"0.5\"\nok\n",
      L"2F");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedInt(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 1);
}

TEST_F(HatchRegTest, NoParticularMaterialDisablesTheMaterialSourceEvenWithAPattern) {
  ZEL::cfg_set(L"*QEN_OBJ_HATCH*\\HATCH_MAT", CStoreFile::parse(R"([{"$pair": [2, "ANSI32"]}])", "mat"), true);
  DialogRun r = runHatch("expect 0/10354 disabled\nexpect 0/10353 checked\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(HatchRegTest, ASiliconeJointWithoutASecondHatchHasOneTab) {
  // With a cord it has two (hatch_silicone_sealing_cord); a composite panel's second is its core.
  DialogRun r = runHatch("expect 15007 items 1\nok\n", L"42");
  EXPECT_EQ(r.status, 0) << r.err;
  r = runHatch("expect 15007 items 2\ntab 1\nexpect 15007 text \"Kernschicht\"\nok\n", L"50");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(HatchRegTest, TheSecondPageEditsTheSecondHatchOnly) {
  DialogRun r = runHatch(
      "tab 1\nexpect 1/10354 checked\nexpect 1/10344 text \"ANSI37\"\nexpect 1/10349 text \"0.5\"\n"
      "click 1/10355\nselect 1/10344 \"AR-CONC\"\nenter 1/10347 \"30\"\nenter 1/10349 \"2\"\n"
      "expect 1/10345 text \"Random dot and stone pattern\"\nok\n",
      L"41");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedInt(L"*QEN_OBJ_HATCH*\\IS_HATCH2"), 2);
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HPNAME2"), CZelString(L"AR-CONC"));
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HATCH_OWN2\\#2"), CZelString(L"AR-CONC"));
  EXPECT_NEAR(storedReal(L"*QEN_OBJ_HATCH*\\HPANG2"), 30 * kDegree, 1e-12);
  EXPECT_NEAR(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN2\\#50"), 30 * kDegree, 1e-12);
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HPSCALE2"), 2.0);
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN2\\#40"), 2.0);
  // The first hatch is the joint's own as before.
  EXPECT_EQ(storedInt(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 0);
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"ANSI34"));
}

TEST_F(HatchRegTest, ChoosingTheOwnSourceShowsAndKeepsTheOwnPattern) {
  DialogRun r = runHatch(
      "click 0/10355\nexpect 0/10344 enabled\nexpect 0/10347 enabled\nexpect 0/10344 text \"ANSI34\"\n"
      "select 0/10344 \"ANSI32\"\nclick 0/10353\nexpect 0/10344 disabled\nexpect 0/10344 text \"ANSI34\"\n"
      "click 0/10355\nexpect 0/10344 text \"ANSI32\"\nexpect 0/10345 text \"ANSI Steel\"\nok\n",
      L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedInt(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 2);
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"ANSI32"));
}

TEST_F(HatchRegTest, TheAngleIsTypedInDegreesWithinOneTurnAndStoredInRadians) {
  DialogRun r = runHatch(
      "click 0/10355\nenter 0/10347 \"370\"\nexpect 0/10347 text \"10°\"\n"
      "enter 0/10347 \"-90\"\nexpect 0/10347 text \"270°\"\n"
      "enter 0/10347 \"abc\"\nexpect-box \"Keine Zahl: 'abc'\"\nexpect 0/10347 text \"270°\"\nok\n",
      L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NEAR(storedReal(L"*QEN_OBJ_HATCH*\\HPANG"), 270 * kDegree, 1e-12);
  EXPECT_NEAR(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#50"), 270 * kDegree, 1e-12);
}

TEST_F(HatchRegTest, TheScaleMustBeAPositiveNumber) {
  DialogRun r = runHatch("click 0/10355\nenter 0/10349 \"1.25\"\nenter 0/10349 \"0\"\nexpect 0/10349 text \"1.25\"\n"
                         "enter 0/10349 \"-2\"\nexpect 0/10349 text \"1.25\"\nenter 0/10349 \"\"\nexpect 0/10349 text \"1.25\"\nok\n",
                         L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HPSCALE"), 1.25);
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#40"), 1.25);
}

TEST_F(HatchRegTest, ThePreviewShowsTheChosenPatternAtItsScaleAndAngle) {
  DialogRun r = runHatch("click 0/10355\nselect 0/10344 \"ANSI37\"\nenter 0/10349 \"2\"\nenter 0/10347 \"30\"\ndump 0/10379\n"
                         "click 0/10353\ndump 0/10379\nok\n",
                         L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("picture=\"ANSI37 scale 2 angle 30°: lines 75° every 6.35, lines 165° every 6.35\""), std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find("picture=\"ANSI34 scale 0.5 angle 0°:"), std::string::npos) << r.out;
}

TEST_F(HatchRegTest, OpeningOnAnOwnPatternWritesItOutInFull) {
  ZEL::cfg_set(L"*QEN_OBJ_HATCH*\\IS_HATCH", ZEL::mkDataItem(ZEL::mkRbLong(2)), true);
  ZEL::cfg_remove(L"*QEN_OBJ_HATCH*\\HATCH_OWN");
  DialogRun r = runHatch("ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#2"), CZelString(L"ANSI31"));
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#40"), 1.0);
  EXPECT_DOUBLE_EQ(storedReal(L"*QEN_OBJ_HATCH*\\HATCH_OWN\\#50"), 0.0);
}

TEST_F(HatchRegTest, CancelLeavesTheStoredSectionAsItWas) {
  DialogRun r = runHatch("click 0/10355\nselect 0/10344 \"AR-CONC\"\ncancel\n", L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(storedInt(L"*QEN_OBJ_HATCH*\\IS_HATCH"), 0);
  EXPECT_EQ(storedText(L"*QEN_OBJ_HATCH*\\HPNAME"), CZelString(L"ANSI34"));
}

TEST_F(HatchRegTest, PresetsAreSavedAndRemovedWithTheirMessages) {
  DialogRun r = runHatch(
      "expect 10367 disabled\nclick 10366\n"
      "expect-box \"Dichtung 10 x 3\\nEPDM\\nEinstellungen gespeichert\"\nexpect 10367 enabled\n"
      "expect-store *QEN_OBJ_PROP*\\DICHT:EPDM\\IS_HATCH 0\n"
      "click 10367\nexpect-box \"Dichtung 10 x 3\\nVoreinstellungen entfernt\"\nexpect 10367 disabled\n"
      "expect-store *QEN_OBJ_PROP*\\DICHT:EPDM\\IS_HATCH absent\nok\n",
      L"30");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(HatchRegTest, APresetOfTheSystemsOrTheMaterialsHatchKeepsNoOwnPattern) {
  DialogRun r = runHatch("click 10366\nok\n", L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\HPNAME"), nullptr);
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_HATCH*\\HPNAME"), nullptr);  // dropped from the section too

  r = runHatch("click 0/10355\nselect 0/10344 \"ANSI37\"\nclick 10366\nok\n", L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(storedText(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\HPNAME"), CZelString(L"ANSI37"));
  EXPECT_EQ(storedInt(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\IS_HATCH"), 2);
}

TEST_F(HatchRegTest, RemovingWithoutAPresetSaysNothing) {
  ZEL::cfg_set(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\IS_LAY", ZEL::mkDataItem(ZEL::mkRbLong(2)), true);
  DialogRun r = runHatch("expect 10367 disabled\nok\n", L"30");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(QEN::obj_hatch_rem(L"DICHT:EPDM"), 0);
  EXPECT_NE(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\DICHT:EPDM\\IS_LAY"), nullptr);  // the layer preset is not the hatch's
}
