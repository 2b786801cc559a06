#include <gtest/gtest.h>

#include "support/CodePage.h"
#include "support/Text.h"

namespace tovarek::test {
namespace {

TEST(Text, EveryByteOfTheCodePageComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::string text = FromCodePage(all);
    EXPECT_EQ(ToCodePage(text), all);
    EXPECT_EQ(CharacterCount(text), 256U);
}

TEST(Text, WhatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(ToCodePage("a\xE2\x82\xAC\xC2\xB0\xCE\xA9\xF0\x9F\x98\x80z"), "a\x80\xB0??z");
    EXPECT_EQ(ToCodePage("\xC3"), "?") << "a cut sequence is one character";
    EXPECT_EQ(ToCodePage("\xED\xA0\x80"), "???") << "surrogates are no characters";
}

TEST(Text, CharactersAreCountedNotBytes) {
    EXPECT_EQ(CharacterCount("\xC2\xB0\xC2\xB0"), 2U);
    EXPECT_EQ(FirstCharacters("\xC2\xB0\xC2\xB0x", 1), "\xC2\xB0");
    EXPECT_EQ(FirstCharacters("ab", 5), "ab");
}

TEST(Text, UpperCaseNeverEndsInAscii) {
    EXPECT_EQ(UpperCase("az09_\xC3\xA9\xC3\xBF\xC5\xA1\xCF\x80\xD1\x8F"),
              "AZ09_\xC3\x89\xC5\xB8\xC5\xA0\xCE\xA0\xD0\xAF");
    // Dotless i and long s have ASCII capitals; position for position they stay what they are.
    EXPECT_EQ(UpperCase("\xC4\xB1\xC5\xBF\xC3\x9F\xC3\xB7"), "\xC4\xB1\xC5\xBF\xC3\x9F\xC3\xB7");
}

TEST(Text, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(TrimBlanks("  \ta\t  "), "\ta\t");
    EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(Text, UnpairedSurrogatesOfUtf16AreReplaced) {
    EXPECT_EQ(FromUtf16(std::string("\x00\xD8", 2), false), "\xEF\xBF\xBD");
    EXPECT_EQ(FromUtf16(std::string("\xDC\x00\x00z!", 5), true), "\xEF\xBF\xBDz") << "half a unit is dropped";
}

}  // namespace
}  // namespace tovarek::test
