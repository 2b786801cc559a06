#include <gtest/gtest.h>

#include "base/Nearest.h"
#include "base/Text.h"
#include "system/CodePage.h"

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
    // Ends and insides of every range of letters, and neighbours that have no capital of their own.
    EXPECT_EQ(
        UpperCase("\u00E0\u00F6\u00F8\u00FE\u0101\u012F\u0133\u0137\u013A\u0148\u014B\u0177\u017A\u017E"),
        "\u00C0\u00D6\u00D8\u00DE\u0100\u012E\u0132\u0136\u0139\u0147\u014A\u0176\u0179\u017D");
    EXPECT_EQ(
        UpperCase("\u03AC\u03AD\u03AF\u03B1\u03C1\u03C3\u03CB\u03CC\u03CD\u03CE\u0430\u044F\u0450\u045F"),
        "\u0386\u0388\u038A\u0391\u03A1\u03A3\u03AB\u038C\u038E\u038F\u0410\u042F\u0400\u040F");
    EXPECT_EQ(UpperCase("\u00E1\u00F9\u0103\u03AE\u03B2\u03C4\u0431\u0451"),
              "\u00C1\u00D9\u0102\u0389\u0392\u03A4\u0411\u0401");
    for (const char* same : {"\u00DF\u00F7", "\u0102\u0134\u013B\u014C\u017B",
                             "\u0100\u0130\u0138\u0149\u0178\u017F", "\u03B0\u03C2\u03CF\u0460"})
        EXPECT_EQ(UpperCase(same), same);
    // Dotless i and long s have ASCII capitals; position for position they stay what they are.
    EXPECT_EQ(UpperCase("\xC4\xB1\xC5\xBF\xC3\x9F\xC3\xB7"), "\xC4\xB1\xC5\xBF\xC3\x9F\xC3\xB7");
}

TEST(Text, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(TrimBlanks("  \ta\t  "), "\ta\t");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_EQ(Trim("\r\n\t a b\t\n"), "a b") << "the other one takes all white space";
}

TEST(Text, HexadecimalIsReadWholeOrNotAtAll) {
    EXPECT_EQ(FromHex("00fF1a"), std::string("\0\xFF\x1A", 3));
    EXPECT_EQ(FromHex(""), "");
    for (const char* bad : {"0", "0g", "g0", "00 1", "0x01"})
        EXPECT_FALSE(FromHex(bad)) << bad;
    std::string text;
    AppendHex(text, 0x1A, 4);
    AppendHex(text, 0x12345, 4);
    EXPECT_EQ(text, "001A12345") << "digits are a least number: none is lost";
}

TEST(Text, Utf16IsKnownByItsFirstTwoBytes) {
    for (const char* text : {"\xFF\xFE", "\xFE\xFF-"})
        EXPECT_TRUE(LooksLikeUtf16(text));
    for (const std::string& text : {std::string("a\0", 2), std::string("\0a", 2)})
        EXPECT_TRUE(LooksLikeUtf16(text));
    for (const std::string& text : {std::string("ab\0", 3), std::string("\xFF\xFF"), std::string()})
        EXPECT_FALSE(LooksLikeUtf16(text));
}

TEST(Text, UnpairedSurrogatesOfUtf16AreReplaced) {
    EXPECT_EQ(FromUtf16(std::string("\x00\xD8", 2), false), "\xEF\xBF\xBD");
    EXPECT_EQ(FromUtf16(std::string("\xDC\x00\x00z!", 5), true), "\xEF\xBF\xBDz") << "half a unit is dropped";
}

TEST(Suggestion, SharesAtLeastHalfOfTheLetters) {
    EXPECT_EQ(Nearest("abcd", {"axxx", "ABxx", "abyy"}), "ABxx") << "the first of the nearest ones";
    EXPECT_EQ(DidYouMean("abcd", {"ABxx"}), "; did you mean 'ABxx'?");
    EXPECT_EQ(DidYouMean("abcd", {"axxx"}), "");
    EXPECT_EQ(DidYouMean("abcd", {"abcdxx", "abcdxxx"}), "; did you mean 'abcdxx'?");
    EXPECT_EQ(DidYouMean("abcd", {"abcdxxx"}), "");
}

}  // namespace
}  // namespace tovarek::test
