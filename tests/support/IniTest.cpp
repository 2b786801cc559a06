#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

#include "Scratch.h"
#include "support/Text.h"
#include "support/cIni.h"

namespace tovarek::test {
namespace {

constexpr int kMissing = 99;

struct Reading {
    const char* file;
    const char* text;  // of [s] k with default DEF
    int number;        // with default 99
};

class IniReading : public testing::TestWithParam<Reading> {};

TEST_P(IniReading, FollowsTheRulesOfThePlatform) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", GetParam().file));
    EXPECT_EQ(ini.GetStringValue("s", "k", "DEF"), GetParam().text);
    EXPECT_EQ(ini.GetLongValue("s", "k", kMissing), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Values, IniReading,
    testing::Values(Reading{"[s]\nx=1\n", "DEF", kMissing}, Reading{"[t]\nk=1\n", "DEF", kMissing},
                    Reading{"k=1\n[s]\n", "DEF", kMissing}, Reading{"[s]\nk=\n", "", 0},
                    Reading{"[s]\nk=   \n", "", 0}, Reading{"[s]\nk=\"\"\n", "", 0},
                    Reading{"[s]\nk\n", "DEF", kMissing}, Reading{"[s]\nk=1\nk=2\n", "1", 1},
                    Reading{"[s]\nx=1\n[s]\nk=2\n", "DEF", kMissing}, Reading{"[S]\nK=1\n", "1", 1},
                    Reading{"[s]\n  k  =  1 2  \n", "1 2", 1}, Reading{"  [  s  ] text\r\nk=5", "5", 5},
                    Reading{"[s\nk=1\n", "DEF", kMissing}, Reading{"[s]]\nk=1\n[s]\nk=2", "2", 2},
                    Reading{"[s]\nk='q'\n", "q", 0}, Reading{"[s]\nk=\"  q  \"\n", "q", 0},
                    Reading{"[s]\nk=\"12\"\n", "12", 12}, Reading{"[s]\nk=\"q\n", "\"q", 0},
                    Reading{"[s]\nk=\"a\"b\"\n", "a\"b", 0}, Reading{"[s]\nk=\"a\";c\n", "\"a\";c", 0},
                    Reading{"[s]\n;k=1\n", "DEF", kMissing}, Reading{"[s]\nk=2 ; tail\n", "2 ; tail", 2},
                    Reading{"[s]\nk=a=b=c\n", "a=b=c", 0}, Reading{"[s]\rk=7\r", "7", 7},
                    Reading{"[s]\r\r\nk=7\r\n\r\n", "7", 7}, Reading{"[s]\nk=\ta\t\n", "\ta\t", 0},
                    Reading{"\xEF\xBB\xBF[s]\nk=3\xC2\xB0\n", "3\xC2\xB0", 3},
                    Reading{"[s]\nk=3\xB0\n", "3\xC2\xB0", 3}, Reading{"[s]\nk=1\n\x1A", "1", 1}));

INSTANTIATE_TEST_SUITE_P(Integers, IniReading,
                         testing::Values(Reading{"[s]\nk=12abc", "12abc", 12},
                                         Reading{"[s]\nk=3.9", "3.9", 3}, Reading{"[s]\nk=1e3", "1e3", 1},
                                         Reading{"[s]\nk=010", "010", 10}, Reading{"[s]\nk=-5", "-5", -5},
                                         Reading{"[s]\nk=+5", "+5", 5}, Reading{"[s]\nk=- 5", "- 5", 0},
                                         Reading{"[s]\nk=\t6", "\t6", 6}, Reading{"[s]\nk=0x10", "0x10", 16},
                                         Reading{"[s]\nk=0X1f", "0X1f", 0},
                                         Reading{"[s]\nk=-0x10", "-0x10", -16}, Reading{"[s]\nk=0x", "0x", 0},
                                         Reading{"[s]\nk=&H10", "&H10", 0},
                                         Reading{"[s]\nk=4294967295", "4294967295", -1},
                                         Reading{"[s]\nk=99999999999", "99999999999", 1215752191},
                                         Reading{"[s]\nk=-2147483649", "-2147483649", 2147483647},
                                         Reading{"[s]\nk=true", "true", 0}));

TEST(Ini, Utf16WithAMarkIsDecoded) {
    const Scratch scratch;
    const std::string text = "[s]\r\nk=\xE2\x82\xAC 5\r\n";
    for (const auto encoding : {IniEncoding::utf16LittleEndian, IniEncoding::utf16BigEndian}) {
        cIni ini;
        ini.iniFile(scratch.File("a.ini", EncodeIni(text, encoding)));
        EXPECT_EQ(ini.GetStringValue("s", "k", ""), "\xE2\x82\xAC 5");
    }
}

TEST(Ini, AValueIsCutTo999CharactersNotBytes) {
    const Scratch scratch;
    std::string value;
    for (int i = 0; i < 1200; ++i)
        value += '\xB0';
    cIni ini;
    ini.iniFile(scratch.File("a.ini", "[s]\nk=\"  " + value + "\"\n"));
    EXPECT_EQ(CharacterCount(ini.GetStringValue("s", "k", "")), 999U);
}

TEST(Ini, MissingFilesAndUnreadableOnesGiveTheDefaults) {
    const Scratch scratch;
    for (const std::string& path : {scratch.Path("missing.ini"), scratch.Folder(), std::string()}) {
        cIni ini;
        ini.iniFile(path);
        EXPECT_EQ(ini.GetLongValue("s", "k", 7), 7);
        EXPECT_EQ(ini.GetStringValue("s", "k", "  d  "), "d");
        EXPECT_TRUE(ini.GetBoolValue("s", "k", true));
        EXPECT_EQ(ini.GetDoubleValue("s", "k", 2.5), 2.5);
        // The default comes back with red and blue exchanged.
        EXPECT_EQ(ini.GetColorValue("s", "k", 255), 16711680);
    }
}

TEST(Ini, BooleansAndColorsAreIntegers) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(
        scratch.File("a.ini", "[s]\nyes=True\ntwo=2\nBackRED=300\nBackGREEN=1\nBackBLUE=0\nBadRED=32768\n"));
    EXPECT_FALSE(ini.GetBoolValue("s", "yes", true));
    EXPECT_TRUE(ini.GetBoolValue("s", "two", false));
    EXPECT_EQ(ini.GetColorValue("s", "Back", 0), 255 + 256);
    EXPECT_EQ(RaisedNumber([&] { ini.GetColorValue("s", "Bad", 0); }), 6);
}

TEST(Ini, AFileIsReadAgainWhenItHasChanged) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", "[s]\nk=1\n"));
    EXPECT_EQ(ini.GetLongValue("s", "k", 0), 1);
    const auto first = ini.Text();
    EXPECT_EQ(ini.Text(), first) << "parsed a second time without a change";
    scratch.File("a.ini", "[s]\nk=22\n");
    EXPECT_EQ(ini.GetLongValue("s", "k", 0), 22);
}

struct Writing {
    const char* before;
    const char* key;
    const char* value;
    const char* after;
};

class IniWriting : public testing::TestWithParam<Writing> {};

TEST_P(IniWriting, RewritesTheFileAsThePlatformDoes) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", GetParam().before));
    ini.SetStringValue("s", GetParam().key, GetParam().value);
    EXPECT_EQ(ReadFile(ini.iniFile()), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Files, IniWriting,
    testing::Values(Writing{"", "k", "1", "[s]\r\nk=1\r\n"},
                    Writing{"[s]\n;c\n\nKey=1\nb=2\n", "kEY", "9", "[s]\r\n;c\r\nKey=9\r\nb=2\r\n"},
                    Writing{"[s]\na=1\n[t]\nk=2\n", "k", " v ", "[s]\r\na=1\r\nk=v \r\n[t]\r\nk=2\r\n"},
                    Writing{"[t]\na=1", "k", "2", "[t]\r\na=1\r\n[s]\r\nk=2\r\n"},
                    Writing{"[t]\n[s]\n", "k", "2", "[t]\r\n[s]\r\nk=2\r\n"},
                    Writing{"[s]\n\nk=1\n", "k", "1", "[s]\n\nk=1\n"},
                    Writing{"\xEF\xBB\xBF[s]\n", "k", "\xC2\xB0", "\xEF\xBB\xBF[s]\r\nk=\xC2\xB0\r\n"},
                    Writing{"[s]\n", "k", "\xC2\xB0", "[s]\r\nk=\xB0\r\n"}));

TEST(Ini, AWriteThatFailsIsSilent) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.Path("nowhere/a.ini"));
    EXPECT_EQ(RaisedNumber([&] { ini.SetBoolValue("s", "k", true); }), 0);
    EXPECT_FALSE(FileExists(ini.iniFile()));
}

TEST(Ini, WhatIsWrittenIsRead) {
    const Scratch scratch;
    const bool held =
        rc::check("a number and a text come back", [&](std::int32_t number, const std::string& raw) {
            std::string text;
            for (const char c : raw)
                if (static_cast<unsigned char>(c) > 0x20 && static_cast<unsigned char>(c) < 0x7F &&
                    c != '"' && c != '\'')
                    text += c;
            cIni ini;
            ini.iniFile(scratch.File("p.ini", "[other]\na=1\n"));
            ini.SetLongValue("s", "n", number);
            ini.SetStringValue("s", "t", text);
            RC_ASSERT(ini.GetLongValue("s", "n", number + 1U == 0U ? 0 : -1) == number);
            RC_ASSERT(ini.GetStringValue("s", "t", "missing") == text);
            RC_ASSERT(ini.GetLongValue("other", "a", 0) == 1);
        });
    EXPECT_TRUE(held);
}

TEST(Ini, LinesAreCountedForErrorMessages) {
    const IniText text("\r\n[a]\rx=1\n[s]\ny=1\r\nk=2");
    EXPECT_EQ(text.LineOf("s", "k"), 6);
    EXPECT_EQ(text.LineOf("S", "missing"), 4);
    EXPECT_EQ(text.LineOf("none", "k"), 0);
}

}  // namespace
}  // namespace tovarek::test
