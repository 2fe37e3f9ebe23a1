// The search mask's wildcards and case rules.
#include "CNormMask.h"

#include <gtest/gtest.h>

TEST(CNormMask, StarMatchesAnyRunIncludingNone)
{
    EXPECT_TRUE(CNormMask("*").matches(""));
    EXPECT_TRUE(CNormMask("*").matches("ISO 4017"));
    EXPECT_TRUE(CNormMask("*4017*").matches("EN ISO 4017"));
    EXPECT_TRUE(CNormMask("ISO*").matches("ISO"));
    EXPECT_TRUE(CNormMask("*7").matches("ISO 4017"));
    EXPECT_FALSE(CNormMask("*4017*").matches("ISO 4014"));
}

TEST(CNormMask, QuestionMarkMatchesExactlyOneCharacter)
{
    EXPECT_TRUE(CNormMask("DIN 93?").matches("DIN 933"));
    EXPECT_FALSE(CNormMask("DIN 93?").matches("DIN 93"));
    EXPECT_FALSE(CNormMask("DIN 93?").matches("DIN 9331"));
    // An umlaut is one character, not two bytes.
    EXPECT_TRUE(CNormMask("Tr?ger").matches("Träger"));
}

TEST(CNormMask, TheWholeTextMustMatch)
{
    EXPECT_FALSE(CNormMask("4017").matches("ISO 4017"));
    EXPECT_FALSE(CNormMask("ISO").matches("ISO 4017"));
    EXPECT_TRUE(CNormMask("ISO 4017").matches("ISO 4017"));
    EXPECT_FALSE(CNormMask("").matches("x"));
}

TEST(CNormMask, CaseIsIgnoredForAsciiAndUmlauts)
{
    EXPECT_TRUE(CNormMask("din 933").matches("DIN 933"));
    EXPECT_TRUE(CNormMask("*MUTTER*").matches("Sechskantmutter"));
    EXPECT_TRUE(CNormMask("*TRÄGER").matches("I-Träger"));
    EXPECT_TRUE(CNormMask("*träger").matches("I-TRÄGER"));
    EXPECT_FALSE(CNormMask("*trager").matches("I-Träger"));
}

TEST(CNormMask, BacktracksOverSeveralStars)
{
    EXPECT_TRUE(CNormMask("*a*b*c").matches("xaxxbxxbxc"));
    EXPECT_FALSE(CNormMask("*a*b*c").matches("xaxxbxxbx"));
    EXPECT_TRUE(CNormMask("a**b").matches("ab"));
}
