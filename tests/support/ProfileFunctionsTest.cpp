// cIni is our own; here it is held against the functions of the platform that hosts know.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "IniRows.h"
#include "Scratch.h"
#include "base/Text.h"
#include "support/cIni.h"
#include "system/CodePage.h"

namespace tovarek::test {
namespace {

// What the platform answers for [s] k, as a host gets it: into a buffer of 1000 bytes, blanks taken off.
std::string PlatformText(const std::string& path) {
    std::string buffer(1000, '\0');
    const DWORD length = GetPrivateProfileStringA("s", "k", kMissingText, buffer.data(),
                                                  static_cast<DWORD>(buffer.size()), path.c_str());
    return FromCodePage(TrimBlanks(std::string_view(buffer).substr(0, length)));
}

int PlatformNumber(const std::string& path) {
    return static_cast<int>(GetPrivateProfileIntA("s", "k", kMissingNumber, path.c_str()));
}

// Where cIni is to answer otherwise, and why.
struct WantedDifference {
    std::string_view file;
    bool inText;  // else in the number
    const char* reason;
};

const WantedDifference kWantedDifferences[] = {
    {"[s]\nk=\n", false, "an empty value is the number 0; only a missing key has the default"},
    {"[s]\nk=   \n", false, "an empty value is the number 0"},
    {"[s]\nk=\"\"\n", false, "an empty value is the number 0"},
    {"[s]\nk=\ta\t\n", true, "tabs around a text belong to it"},
    {"[s]\nk=\t6", true, "tabs around a text belong to it"},
    {"\xEF\xBB\xBF[s]\nk=3 \xCE\xA9\n", true, "texts keep what the code page lacks"},
};

const WantedDifference* FindDifference(std::string_view file, bool inText) {
    for (const WantedDifference& wanted : kWantedDifferences)
        if (wanted.file == file && wanted.inText == inText)
            return &wanted;
    return nullptr;
}

template <class Value>
void Compare(const IniRow& row, bool inText, const Value& ours, const Value& platform) {
    const WantedDifference* wanted = FindDifference(row.file, inText);
    if (wanted == nullptr)
        EXPECT_EQ(ours, platform) << row.file;
    else
        EXPECT_NE(ours, platform) << row.file << "no longer differs, though: " << wanted->reason;
}

TEST(ProfileFunctions, AnswerAsCIniDoesButWhereItIsWanted) {
    const Scratch scratch;
    std::vector<IniRow> rows = IniValues();
    for (const IniRow& row : IniIntegers())
        rows.push_back(row);
    for (const WantedDifference& wanted : kWantedDifferences)
        EXPECT_TRUE(
            std::any_of(rows.begin(), rows.end(), [&](const IniRow& row) { return row.file == wanted.file; }))
            << wanted.file << "is in no row";
    int number = 0;
    for (const IniRow& row : rows) {
        // The platform may keep what it read of a file; every row has one of its own.
        cIni ini;
        ini.iniFile(scratch.File("row" + std::to_string(number++) + ".ini", row.file));
        Compare(row, true, ini.GetStringValue("s", "k", kMissingText), PlatformText(ini.iniFile()));
        Compare(row, false, ini.GetLongValue("s", "k", kMissingNumber), PlatformNumber(ini.iniFile()));
    }
}

TEST(ProfileFunctions, AnswerTheDefaultAsCIniDoes) {
    const Scratch scratch;
    for (const std::string& path : {scratch.Path("missing.ini"), scratch.Path("no/where.ini"),
                                    scratch.Folder(), scratch.File("a.ini", "[t]\nk=1\n")}) {
        cIni ini;
        ini.iniFile(path);
        EXPECT_EQ(ini.GetStringValue("s", "k", kMissingText), PlatformText(path)) << path;
        EXPECT_EQ(ini.GetLongValue("s", "k", kMissingNumber), PlatformNumber(path)) << path;
    }
}

TEST(ProfileFunctions, WriteAsCIniDoes) {
    const Scratch scratch;
    int number = 0;
    for (const IniWriteRow& row : IniWrites()) {
        const std::string path = scratch.File("row" + std::to_string(number++) + ".ini", row.before);
        EXPECT_NE(
            WritePrivateProfileStringA("s", row.key.c_str(), ToCodePage(row.value).c_str(), path.c_str()), 0);
        EXPECT_EQ(ReadFile(path), row.after) << row.before;
    }
}

}  // namespace
}  // namespace tovarek::test
