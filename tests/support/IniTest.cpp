#include <gtest/gtest.h>

#include <string>

#include "IniRows.h"
#include "Scratch.h"
#include "base/Text.h"
#include "support/cIni.h"

namespace tovarek::test {
namespace {

class IniReading : public testing::TestWithParam<IniRow> {};

TEST_P(IniReading, FollowsTheRulesOfThePlatform) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", GetParam().file));
    EXPECT_EQ(ini.GetStringValue("s", "k", kMissingText), GetParam().text);
    EXPECT_EQ(ini.GetLongValue("s", "k", kMissingNumber), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Values, IniReading, testing::ValuesIn(IniValues()));
INSTANTIATE_TEST_SUITE_P(Integers, IniReading, testing::ValuesIn(IniIntegers()));

TEST(Ini, NamesBeyondAsciiMatchInEitherCase) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", "[\xC4]\n\xD6=x\n"));
    EXPECT_EQ(ini.GetStringValue("\u00E4", "\u00F6", ""), "x");
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
        EXPECT_EQ(ini.GetDoubleValue("s", "k", 25), 25);
        // The default comes back with red and blue exchanged.
        EXPECT_EQ(ini.GetColorValue("s", "k", 255), 16711680);
    }
}

TEST(Ini, BooleansAndColorsAreIntegers) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini",
                             "[s]\nyes=True\ntwo=2\nBackRED=300\nBackGREEN=1\nBackBLUE=0\nBadRED=32768\n"
                             "LowBLUE=-32768\nUnderBLUE=-32768\nUnderRED=-1\n"));
    EXPECT_FALSE(ini.GetBoolValue("s", "yes", true));
    EXPECT_TRUE(ini.GetBoolValue("s", "two", false));
    EXPECT_EQ(ini.GetColorValue("s", "Back", 0), 255 + 256);
    EXPECT_EQ(RaisedNumber([&] { ini.GetColorValue("s", "Bad", 0); }), 6);
    EXPECT_EQ(ini.GetColorValue("s", "Low", 0), INT32_MIN);
    EXPECT_EQ(RaisedNumber([&] { ini.GetColorValue("s", "Under", 0); }), 6);
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

class IniWriting : public testing::TestWithParam<IniWriteRow> {};

TEST_P(IniWriting, RewritesTheFileAsThePlatformDoes) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", GetParam().before));
    ini.SetStringValue("s", GetParam().key, GetParam().value);
    EXPECT_EQ(ReadFile(ini.iniFile()), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Files, IniWriting, testing::ValuesIn(IniWrites()));

// Rewriting drops blank lines; what stood behind one may look like the mark of another encoding.
TEST(Ini, WritingDoesNotChangeTheEncoding) {
    const Scratch scratch;
    for (const std::string mark : {"\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"}) {
        cIni ini;
        ini.iniFile(scratch.File("a.ini", "\r\n" + mark + "\n[s]\nold=1\n"));
        ini.SetLongValue("s", "k", 22);
        EXPECT_EQ(ini.GetLongValue("s", "k", 0), 22);
        EXPECT_EQ(ini.GetLongValue("s", "old", 0), 1);
        EXPECT_EQ(ReadFile(ini.iniFile()), "\r\n" + mark + "\r\n[s]\r\nold=1\r\nk=22\r\n");
    }
}

TEST(Ini, TruthsAreWrittenAsOneAndZero) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.Path("a.ini"));
    ini.SetBoolValue("s", "k", true);
    EXPECT_EQ(ReadFile(ini.iniFile()), "[s]\r\nk=1\r\n");
    ini.SetBoolValue("s", "k", false);
    EXPECT_EQ(ReadFile(ini.iniFile()), "[s]\r\nk=0\r\n");
}

TEST(Ini, AWriteThatFailsIsSilent) {
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.Path("nowhere/a.ini"));
    EXPECT_EQ(RaisedNumber([&] { ini.SetBoolValue("s", "k", true); }), 0);
    EXPECT_FALSE(FileExists(ini.iniFile()));
}

TEST(Ini, LinesAreCountedForErrorMessages) {
    const IniText text("\r\n[a]\rx=1\n[s]\ny=1\r\nk=2");
    EXPECT_EQ(text.LineOf("s", "k"), 6);
    EXPECT_EQ(text.LineOf("S", "missing"), 4);
    EXPECT_EQ(text.LineOf("none", "k"), 0);
}

}  // namespace
}  // namespace tovarek::test
