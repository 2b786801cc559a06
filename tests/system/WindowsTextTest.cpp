// Texts and dates where the platform has its own rules. The code page is 1252 and the regional settings are
// those of the United States; cmake/Wine.cmake sees to that.
#include <gtest/gtest.h>
#include <windows.h>
// The header wants the types of windows.h.
#include <oleauto.h>

#include <iostream>
#include <string>

#include "Scratch.h"
#include "base/Text.h"
#include "support/cIni.h"
#include "system/Clock.h"
#include "system/CodePage.h"
#include "system/Wide.h"

namespace tovarek::test {
namespace {

TEST(WindowsText, RunsUnderTheSettingsThatTheseTestsAreFor) {
    EXPECT_EQ(GetACP(), 1252U);
    EXPECT_EQ(GetUserDefaultLCID(), 1033U);
}

TEST(WindowsText, WideTextComesBackWhole) {
    const std::wstring rows[] = {
        L"",
        std::wstring(L"a\0b\0", 4),
        L"\x00E9\x20AC\x03A9\x6E29\xFFFD\xFFFF",
        L"\xD83D\xDE00",
        L"\xD83D",
        L"\xDE00",
        L"x\xDE00\xD83Dy",
        L"\xD83D\xD83D\xDE00\xDE00",
    };
    for (const std::wstring& text : rows)
        EXPECT_EQ(ToWide(FromWide(text)), text) << FromWide(text);
    EXPECT_EQ(FromWide(L"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(FromWide(L"\xD83D"), "\xED\xA0\xBD");
    EXPECT_EQ(ToWide("\xF0\x9F\x98\x80"), L"\xD83D\xDE00");
    EXPECT_EQ(ToWide("a\xFFz\xC3"), L"a\xFFFDz\xFFFD") << "an invalid byte is one character";
    // Every unit alone, and every one between two letters.
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        const std::wstring alone(1, static_cast<wchar_t>(unit));
        ASSERT_EQ(ToWide(FromWide(alone)), alone) << unit;
        ASSERT_EQ(ToWide("a" + FromWide(alone) + "b"), L"a" + alone + L"b") << unit;
    }
}

TEST(WindowsText, TheCodePageHasNoLookalikes) {
    // Minus sign, A with a line, a full-width A, an emoji, a combining accent, half an emoji.
    for (const char* text : {"\xE2\x88\x92", "\xC4\x80", "\xEF\xBC\xA1", "\xF0\x9F\x98\x80", "\xCC\x81"})
        EXPECT_EQ(ToCodePage(text), "?") << text;
    EXPECT_EQ(ToCodePage("e\xCC\x81"), "e?") << "letter and accent are not joined";
    EXPECT_EQ(ToCodePage(FromWide(L"\xD83D")), "???");
    EXPECT_EQ(ToCodePage("a\xE2\x88\x92\xC2\xB0\xF0\x9F\x98\x80\xE2\x82\xAC"), "a?\xB0?\x80");
    EXPECT_EQ(ToCodePage(std::string("\xC2\xB0\0\xC2\xB0", 5)), std::string("\xB0\0\xB0", 3));
    EXPECT_EQ(ToCodePage("\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"), "\x81\x8D\x8F\x90\x9D")
        << "the bytes without a character stand for control characters";
}

TEST(WindowsText, DatesFollowTheRegionalSettings) {
    const CivilTime rows[] = {{2026, 11, 21, 9, 41, 7},
                              {2026, 1, 2, 0, 0, 0},
                              {2026, 1, 2, 0, 0, 1},
                              {2000, 2, 29, 12, 0, 0},
                              {9999, 12, 31, 23, 59, 59}};
    const char* texts[] = {"11/21/2026 9:41:07 AM", "1/2/2026", "1/2/2026 12:00:01 AM",
                           "2/29/2000 12:00:00 PM", "12/31/9999 11:59:59 PM"};
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(GeneralDateText(rows[i]), texts[i]);
    EXPECT_EQ(RaisedNumber([] { GeneralDateText({2026, 2, 30, 1, 1, 1}); }), 6) << "a day that is none";
    EXPECT_EQ(RaisedNumber([] { GeneralDateText({2026, 2, 3, 24, 1, 1}); }), 6) << "an hour that is none";
}

// Run under other settings as well, by the test of the program under those. The platform's own conversion
// says which separator they have.
TEST(WindowsSettings, ADefaultGoesThroughTheUsersDecimalSeparator) {
    BSTR platform = nullptr;
    ASSERT_EQ(VarBstrFromR8(2.5, LOCALE_USER_DEFAULT, 0, &platform), S_OK);
    const std::string text = FromWide(platform);
    SysFreeString(platform);
    std::cout << "the default is " << text << '\n';
    const Scratch scratch;
    cIni ini;
    ini.iniFile(scratch.File("a.ini", "[s]\npoint=1.5\ncomma=1,5\n"));
    EXPECT_EQ(ini.GetDoubleValue("s", "none", 2.5), text == "2.5" ? 2.5 : 2);
    EXPECT_EQ(ini.GetDoubleValue("s", "none", 1e-5), 1e-5);
    EXPECT_EQ(ini.GetDoubleValue("s", "point", 0), 1.5) << "files have the point under all settings";
    EXPECT_EQ(ini.GetDoubleValue("s", "comma", 0), 1);
}

}  // namespace
}  // namespace tovarek::test
