// A dialog's texts: known keys in the dialog's language, unknown keys in German, suffix
// keys, and tooltips only where the key is known.
#include "ui/CZelDlgTexts.h"

#include "data/ZelMessages.h"

#include <gtest/gtest.h>

namespace {
CZelString textOf(const std::vector<std::pair<int, CZelString>>& texts, int id) {
  for (const auto& [i, t] : texts)
    if (i == id) return t;
  return L"<missing>";
}
}  // namespace

TEST(CZelDlgTexts, ControlTextsInTheDialogsLanguageWithGermanFallback) {
  CZelDlgTexts t;
  t.addText(1, L"DLG_001", L"OK");
  t.addText(2, L"DLG_002", L"Abbrechen");
  t.addText(10424, L"\\QEN_DCL_BGR_003\\...", L"Holen");
  t.addText(777, L"NO_SUCH_KEY_EVER", L"Nur Deutsch");
  auto en = t.texts(L"en");
  ASSERT_EQ(en.size(), 4u);
  EXPECT_EQ(textOf(en, 2), CZelString(L"Cancel"));
  EXPECT_EQ(textOf(en, 777), CZelString(L"Nur Deutsch"));
  EXPECT_EQ(textOf(en, 10424), CZelString(L"Get..."));
  auto de = t.texts(L"de");
  EXPECT_EQ(textOf(de, 2), CZelString(L"Abbrechen"));
  EXPECT_EQ(textOf(de, 10424), CZelString(L"Holen..."));
  t.addText(777, L"NO_SUCH_KEY_EVER", L"Zurück");  // a later registration replaces
  EXPECT_EQ(textOf(t.texts(L"en"), 777), CZelString(L"Zurück"));
}

TEST(CZelDlgTexts, TooltipsOnlyForKnownKeys) {
  CZelDlgTexts t;
  t.addToolTip(10295, L"DLG_007");
  t.addToolTip(10296, L"NO_SUCH_TOOLTIP");
  auto tips = t.toolTips(L"en");
  ASSERT_EQ(tips.size(), 1u);
  EXPECT_EQ(tips[0].first, 10295);
  EXPECT_FALSE(tips[0].second.isEmpty());
}
