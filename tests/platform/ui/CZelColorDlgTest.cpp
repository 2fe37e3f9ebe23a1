// The host's colour dialog as the application object shows it: index colours by number
// and by name, true colours, bad numbers, Cancel, and the texts in the user's language.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelApp.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

namespace {

class ColorDialogTest : public ::testing::Test {
protected:
  void SetUp() override { ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({"_COUNTRY": "de"})", "store")); }

  DialogRun choose(const std::string& script, ZelColorChoice choice = ZelColorChoice::Plain) {
    return runUnderScript(script, [&] { return ZEL::zelAppPtr()->colorChoose(color, nullptr, choice); });
  }
  CZelColor color = CZelColor::fromIndex(7);
};

}  // namespace

TEST_F(ColorDialogTest, OpensOnTheIndexColourWithItsNameAndStandardLine) {
  DialogRun r = choose(
      "expect dialog text \"Farbe wählen\"\n"
      "expect 32010 checked\n"
      "expect 32012 text \"7\"\n"
      "expect 32013 items 7\n"
      "expect 32013 selected 6\n"
      "expect 32013 text \"weiß\"\n"
      "expect 32014 disabled\n"
      "expect 32017 text \"weiß\"\n"
      "cancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(ColorDialogTest, AnIndexTypedByNumberIsTheChoice) {
  DialogRun r = choose("enter 32012 \"42\"\nexpect 32017 text \"42\"\nexpect 32013 selected -1\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(color, CZelColor::fromIndex(42));
}

TEST_F(ColorDialogTest, AStandardColourPickedByNameSetsItsNumber) {
  DialogRun r = choose("select 32013 \"rot\"\nexpect 32012 text \"1\"\nexpect 32017 text \"rot\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(color, CZelColor::fromIndex(1));
}

TEST_F(ColorDialogTest, ATrueColourIsChosenFromRedGreenAndBlue) {
  DialogRun r = choose(
      "click 32011\n"
      "expect 32012 disabled\n"
      "expect 32013 disabled\n"
      "expect 32014 enabled\n"
      "expect 32014 text \"255\"\n"
      "enter 32014 \"255\"\n"
      "enter 32015 \"128\"\n"
      "type 32016 \"0\"\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(color, CZelColor::fromRgb(255, 128, 0));
}

TEST_F(ColorDialogTest, SwitchingToTrueColourStartsFromTheStandardColour) {
  color = CZelColor::fromIndex(1);
  DialogRun r = choose("click 32011\nexpect 32014 text \"255\"\nexpect 32015 text \"0\"\nexpect 32017 text \"255,0,0\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST_F(ColorDialogTest, OpensOnATrueColour) {
  color = CZelColor::fromRgb(10, 20, 30);
  DialogRun r = choose(
      "expect 32011 checked\nexpect 32010 unchecked\nexpect 32015 text \"20\"\nexpect 32012 disabled\n"
      "expect 32017 text \"10,20,30\"\nclick 32010\nexpect 32012 enabled\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(color, CZelColor::fromIndex(7));
}

TEST_F(ColorDialogTest, CancelKeepsTheColour) {
  color = CZelColor::fromIndex(3);
  DialogRun r = choose("enter 32012 \"200\"\nclick 32011\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(color, CZelColor::fromIndex(3));
}

TEST_F(ColorDialogTest, ANumberOutOfRangeIsRefusedAndTheDialogStaysOpen) {
  DialogRun r = choose(
      "enter 32012 \"300\"\n"
      "expect 32017 text \"weiß\"\n"
      "ok\n"
      "expect-box \"Bitte eine Farbnummer von 1 bis 255 eingeben.\"\n"
      "expect 32012 text \"300\"\n"
      "expect 32012 focused\n"
      "type 32012 \"0\"\n"
      "ok\n"
      "expect 32012 text \"0\"\n"
      "type 32012 \"5\"\n"
      "ok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 1);
  EXPECT_EQ(color, CZelColor::fromIndex(5));
}

TEST_F(ColorDialogTest, ARedGreenOrBlueOutOfRangeIsRefused) {
  DialogRun r = choose(
      "click 32011\ntype 32015 \"256\"\nok\nexpect-box \"Rot, Grün und Blau sind Werte von 0 bis 255.\"\n"
      "expect 32015 text \"256\"\ncancel\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.result, 0);
  EXPECT_EQ(color, CZelColor::fromIndex(7));
}

TEST_F(ColorDialogTest, ByLayerAndByBlockOnlyWhereTheCallerOffersThem) {
  DialogRun r = choose(
      "expect 32013 items 9\nselect 32013 \"VonLayer\"\nexpect 32012 text \"\"\nexpect 32017 text \"VonLayer\"\nok\n",
      ZelColorChoice::ByLayerBlock);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(color, CZelColor::fromIndex(256));
}

TEST_F(ColorDialogTest, TextsComeInTheUsersLanguage) {
  ZEL::cfg_set(CZelDataKey(L"_COUNTRY"), new CZelDataItem(ZEL::mkResbuf(L"en")), true);
  DialogRun r = choose(
      "expect dialog text \"Choose colour\"\nexpect 32020 text \"Red:\"\nexpect 32013 text \"white\"\n"
      "select 32013 \"green\"\nok\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(color, CZelColor::fromIndex(3));
}
