// Language texts: lookup by country and language, German defaults, suffix keys, tooltips, files loaded at run time.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <string>

#include "data/CStoreFile.h"
#include "data/CZelMsgTable.h"
#include "data/ZelCountries.h"
#include "data/ZelMessages.h"

namespace qen_res {
extern const std::pair<std::string_view, const std::string_view*> qen_lang_files[];
extern const std::size_t qen_lang_file_count;
}  // namespace qen_res

namespace {

class MessagesTest : public ::testing::Test {
protected:
  void TearDown() override {
    ZEL::msgUnloadAll();
    ZEL::msgCountrySet(L"de");
  }
  static CZelString get(const wchar_t* key, const wchar_t* def, const wchar_t* country, bool* found = nullptr) {
    CZelString out;
    bool f = zel_msg_get(out, L"ZEL_", key, def, country);
    if (found) *found = f;
    return out;
  }
};

// One row a lookup: key, German default, country, the text, and whether the key was found
// (-1: not asked).
struct Lookup {
  const wchar_t* key;
  const wchar_t* def;
  const wchar_t* country;
  const wchar_t* text;
  int found;
};

TEST_F(MessagesTest, TextsComeFromTheCountrysLanguageFileOrAreTheGermanDefault) {
  const Lookup rows[] = {
      // English translates; the German country shows the default, found or not.
      {L"DLG_001", L"OK", L"en", L"OK", 1},
      {L"DLG_002", L"Abbrechen", L"en", L"Cancel", 1},
      {L"QEN_DCL_HLBZ_003", L"Darstellung", L"en", L"Representation", -1},
      {L"QEN_MFC_MAT_028", L"Voreinstellungen entfernen", L"en", L"Remove presets", -1},
      {L"DLG_002", L"Abbrechen", L"de", L"Abbrechen", 0},
      {L"QEN_DCL_MAT_102", L"<Layerzuordnung>", L"de", L"<Layerzuordnung>", -1},
      // An unknown key, or a country without a file, falls back to the German default.
      {L"QEN_NO_SUCH_KEY_999", L"Klotz", L"en", L"Klotz", 0},
      {L"DLG_002", L"Abbrechen", L"xx", L"Abbrechen", -1},
      // A country uses the file of its language; code and key ignore case.
      {L"DLG_002", L"Abbrechen", L"us", L"Cancel", -1},
      {L"DLG_002", L"Abbrechen", L"at", L"Abbrechen", -1},
      {L"dlg_002", L"Abbrechen", L"EN", L"Cancel", -1},
      // A suffix key appends punctuation directly, and a pick mark off by a blank; without a
      // suffix it is the plain key.
      {L"\\QEN_DCL_BGR_003\\...", L"Holen...", L"en", L"Get...", 1},
      {L"\\QEN_DCL_BGR_003\\...", L"Holen...", L"de", L"Holen...", 0},
      {L"\\QEN_DCL_BGR_297\\<", L"Objekt", L"en", L"Object <", -1},
      {L"\\QEN_DCL_BGR_297\\<", L"Objekt", L"de", L"Objekt <", -1},
      {L"\\DLG_002\\", L"Abbrechen", L"en", L"Cancel", -1},
      {L"\\DLG_002", L"Abbrechen", L"en", L"Cancel", -1},
  };
  for (const Lookup& row : rows) {
    SCOPED_TRACE(CZelString(row.key).toUtf8() + " in " + CZelString(row.country).toUtf8());
    bool found = false;
    EXPECT_EQ(get(row.key, row.def, row.country, &found), CZelString(row.text));
    if (row.found >= 0) {
      EXPECT_EQ(found, row.found == 1);
    }
  }
  EXPECT_EQ(ZEL::msgText(L"QEN_DCL_MAT_106", L"Spezifisch", L"en"), L"Specific");
  EXPECT_EQ(ZEL::msgText(L"QEN_DCL_MAT_106", L"Spezifisch", L"de"), L"Spezifisch");
}

TEST_F(MessagesTest, NoCountryMeansTheCurrentOne) {
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", nullptr), L"Abbrechen");
  ZEL::msgCountrySet(L"en");
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", nullptr), L"Cancel");
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", L""), L"Cancel");
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", L"-1"), L"Cancel");
}

TEST_F(MessagesTest, TooltipKeyWithoutDefault) {
  bool found = true;
  EXPECT_EQ(get(L"DLG_007", nullptr, L"en", &found), L"Save the current settings as favourite");
  EXPECT_TRUE(found);
  EXPECT_EQ(get(L"DLG_007", nullptr, L"de", &found), L"Aktuelle Einstellungen als Favorit speichern");
  EXPECT_TRUE(found);
  EXPECT_EQ(get(L"QEN_MFC_VIEW_UNKNOWN", nullptr, L"en", &found), L"");
  EXPECT_FALSE(found);
}

TEST_F(MessagesTest, OtherFamilyIsSeparate) {
  CZelString out;
  EXPECT_FALSE(zel_msg_get(out, L"NORM_LINK", L"DLG_002", L"", L"en"));
  EXPECT_EQ(out, L"");
  ASSERT_TRUE(ZEL::msgLoadText("[NORM_LINK]\nDIN933=https://example.org/din933\n", L"en", "test"));
  EXPECT_TRUE(zel_msg_get(out, L"NORM_LINK", L"DIN933", L"", L"en"));
  EXPECT_EQ(out, L"https://example.org/din933");
  EXPECT_FALSE(zel_msg_get(out, L"ZEL_", L"DIN933", L"x", L"en"));
}

TEST_F(MessagesTest, RunTimeFileAddsATestCountry) {
  const std::string text = "# test country\nDLG_002 = Annuleren\nQEN_X= Zeile 1\\nZeile 2\\s \nQEN_Y=a\\\\b\\tc\n";
  ASSERT_TRUE(ZEL::msgLoadText(text, L"qa", "qa.txt"));
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", L"qa"), L"Annuleren");
  EXPECT_EQ(get(L"QEN_X", L"", L"qa"), L"Zeile 1\nZeile 2 ");
  EXPECT_EQ(get(L"QEN_Y", L"", L"qa"), L"a\\b\tc");
  EXPECT_EQ(get(L"DLG_001", L"OK", L"qa"), L"OK");
}

TEST_F(MessagesTest, RunTimeFileOverridesEmbeddedTextsUntilUnloaded) {
  ASSERT_TRUE(ZEL::msgLoadText("DLG_002=Abort\n", L"en", "override"));
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", L"en"), L"Abort");
  EXPECT_EQ(get(L"DLG_001", L"OK", L"en"), L"OK");
  ZEL::msgUnloadAll();
  EXPECT_EQ(get(L"DLG_002", L"Abbrechen", L"en"), L"Cancel");
}

TEST_F(MessagesTest, CountryFileComesBeforeItsLanguage) {
  ASSERT_TRUE(ZEL::msgLoadText("QEN_DCL_HLBZ_137=Height (US)\n", L"us", "us"));
  EXPECT_EQ(get(L"QEN_DCL_HLBZ_137", L"H\u00F6he", L"us"), L"Height (US)");
  EXPECT_EQ(get(L"QEN_DCL_HLBZ_136", L"Breite", L"us"), L"Width");
}

TEST_F(MessagesTest, LoadFileReadsUtf8FromDisk) {
  const std::string path = ::testing::TempDir() + "qen_msg_test_qb.txt";
  {
    std::ofstream f(path, std::ios::binary);
    f << "\xEF\xBB\xBFQEN_DCL_HLBZ_137=H\xC3\xB8jde\r\n";
  }
  ASSERT_TRUE(ZEL::msgLoadFile(path, L"qb"));
  EXPECT_EQ(get(L"QEN_DCL_HLBZ_137", L"H\u00F6he", L"qb"), L"H\u00F8jde");
  std::remove(path.c_str());
}

TEST_F(MessagesTest, MissingFileIsRefusedWithItsPath) {
  EXPECT_FALSE(ZEL::msgLoadFile("/nonexistent/qen/xx.txt", L"xx"));
  EXPECT_NE(ZEL::lastFileError().find("/nonexistent/qen/xx.txt"), std::string::npos);
}

TEST_F(MessagesTest, MalformedFileIsRefusedWithLineAndNothingAdded) {
  EXPECT_FALSE(ZEL::msgLoadText("DLG_001=Fine\nno equals sign here\n", L"qc", "bad.txt"));
  EXPECT_EQ(ZEL::lastFileError(), "bad.txt:2: expected KEY=text");
  EXPECT_EQ(get(L"DLG_001", L"OK!", L"qc"), L"OK!");
  EXPECT_FALSE(ZEL::msgLoadText("BAD KEY=x\n", L"qc", "bad.txt"));
  EXPECT_NE(ZEL::lastFileError().find("bad key"), std::string::npos);
  EXPECT_FALSE(ZEL::msgLoadText("K=a\\q\n", L"qc", "bad.txt"));
  EXPECT_NE(ZEL::lastFileError().find("unknown escape"), std::string::npos);
  EXPECT_FALSE(ZEL::msgLoadText("K=a\\\n", L"qc", "bad.txt"));
  EXPECT_FALSE(ZEL::msgLoadText("[ZEL_\nK=a\n", L"qc", "bad.txt"));
}

TEST(MessageFiles, EveryEmbeddedFileParses) {
  ASSERT_GE(qen_res::qen_lang_file_count, 2u);
  for (std::size_t i = 0; i < qen_res::qen_lang_file_count; ++i) {
    CZelMsgTable::Entries entries;
    EXPECT_TRUE(CZelMsgTable::parse(*qen_res::qen_lang_files[i].second, std::string(qen_res::qen_lang_files[i].first), entries))
        << ZEL::lastFileError();
    EXPECT_FALSE(entries.empty());
  }
}

TEST(MessageFiles, EnglishCoversTheLayerAndItemDialogs) {
  const wchar_t* keys[] = {L"QEN_DCL_MAT_109", L"QEN_DCL_MAT_104", L"ZEL_DCL_013", L"ZEL_DCL_014", L"ZEL_DCL_157",
                           L"ZEL_DCL_015",     L"ZEL_DCL_016",     L"ZEL_DCL_017", L"ZEL_DCL_018", L"ZEL_DCL_019",
                           L"ZEL_DCL_020",     L"ZEL_DCL_021",     L"ZEL_DCL_022", L"QEN_DCL_MAT_107",
                           L"QEN_MFC_MAT_028", L"QEN_DCL_MAT_102", L"QEN_DCL_MAT_105", L"QEN_DCL_MAT_106",
                           L"QEN_DCL_MAT_005", L"HZ169",           L"ZEL022",      L"QEN_MAT022",  L"QEN_MFC_MAT_029",
                           L"QEN_MAT005",      L"QEN_MAT006",      L"QEN_MAT007",  L"QEN_MAT019",  L"QEN_MAT008",
                           L"QEN_MAT009",      L"ZEL099",          L"QEN_DCL_BLCH_088", L"QEN_MAT001",
                           L"QEN_MFC_MAT_009", L"QEN_MFC_MAT_010", L"QEN_MFC_MAT_011", L"QEN_MFC_OBJ_001",
                           L"QEN_DCL_HLBZ_138", L"DLG_007",        L"DLG_008"};
  for (const wchar_t* key : keys) {
    CZelString out;
    EXPECT_TRUE(zel_msg_get(out, L"ZEL_", key, L"", L"en")) << CZelString(key).toUtf8();
    EXPECT_FALSE(out.isEmpty()) << CZelString(key).toUtf8();
  }
  EXPECT_EQ(ZEL::msgText(L"ZEL_DCL_016", L"Linienst\u00E4rke", L"en"), L"Lineweight");
  EXPECT_EQ(ZEL::msgText(L"QEN_MAT001", L"", L"en"), L"Delete the article number of the object?");
}

TEST(Countries, TableEndsWithNullCodeAndHasUniqueCodes) {
  std::set<std::wstring> codes;
  const zelDlCountry_st* row = zelDlCountrys();
  for (; row->code; ++row) {
    EXPECT_TRUE(codes.insert(row->code).second) << CZelString(row->code).toUtf8();
    ASSERT_NE(row->label, nullptr);
    ASSERT_NE(row->language, nullptr);
  }
  EXPECT_EQ(row->label, nullptr);
  EXPECT_GE(codes.size(), 4u);
  EXPECT_EQ(std::wstring(zelDlCountrys()[0].code), L"de");
}

TEST(Countries, LanguageOfACountry) {
  EXPECT_EQ(ZEL::countryLanguage(L"at"), L"de");
  EXPECT_EQ(ZEL::countryLanguage(L"US"), L"en");
  EXPECT_EQ(ZEL::countryLanguage(L"QQ"), L"qq");
  EXPECT_EQ(ZEL::countryFind(L"zz"), nullptr);
}

TEST(LabelGet, PicksTheCountrysPartOfAMultilingualEntry) {
  const CZelString entry = L"\\de\\Schraube\\en\\Screw";
  EXPECT_EQ(ZEL::label_get(entry, L"en"), L"Screw");
  EXPECT_EQ(ZEL::label_get(entry, L"DE"), L"Schraube");
  EXPECT_EQ(ZEL::label_get(entry, L"us"), L"Screw");
  EXPECT_EQ(ZEL::label_get(entry, L"fr"), L"");
  EXPECT_EQ(ZEL::label_get(L"Schraube", L"en"), L"Schraube");
  EXPECT_EQ(ZEL::label_get(L"\\de\\\\en\\Screw", L"de"), L"");
}

}  // namespace
