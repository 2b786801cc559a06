// The list of locales against the platform that it was made of.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <map>
#include <string>

#include "base/Text.h"
#include "formats/language/LanguageFile.h"

namespace tovarek::test {
namespace {

// By number; empty where the platform has no abbreviation. The enumeration takes no argument of ours.
std::map<LCID, std::string>& PlatformLocales() {
    static std::map<LCID, std::string> locales;
    return locales;
}

BOOL CALLBACK AddLocale(wchar_t* number) {
    const LCID locale = std::wcstoul(number, nullptr, 16);
    char answer[16] = "";
    GetLocaleInfoA(locale, LOCALE_SABBREVLANGNAME, answer, sizeof answer);
    std::string language = answer;
    std::transform(language.begin(), language.end(), language.begin(), AsciiLower);
    PlatformLocales()[locale] = language == "zzz" ? "" : language;
    return TRUE;
}

TEST(WindowsLocales, HaveTheLanguagesOfThePlatform) {
    ASSERT_TRUE(EnumSystemLocalesW(AddLocale, LCID_SUPPORTED));
    ASSERT_TRUE(EnumSystemLocalesW(AddLocale, LCID_ALTERNATE_SORTS));
    ASSERT_GT(PlatformLocales().size(), 200U);
    // Sort orders are the digit above the lower four; the largest one in use is 5.
    for (LCID locale = 0; locale < 0x100000; ++locale) {
        const auto found = PlatformLocales().find(locale);
        const std::string expected = found == PlatformLocales().end() ? "" : found->second;
        ASSERT_EQ(LanguageOfLocale(static_cast<std::int32_t>(locale)), expected) << std::hex << locale;
    }
}

}  // namespace
}  // namespace tovarek::test
