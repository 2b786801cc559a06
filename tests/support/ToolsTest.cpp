#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <tuple>
#include <vector>

#include "Scratch.h"
#include "base/Path.h"
#include "support/CTools.h"
#include "system/Clock.h"

namespace tovarek::test {
namespace {

TEST(Tools, ExtractFileFallsBackToTheWholePath) {
    const struct {
        const char* path;
        bool removeExtension;
        const char* name;
    } rows[] = {
        {"C:\\dir\\f.txt", false, "f.txt"},
        {"C:\\dir\\a.b.c", true, "a"},
        {"C:\\dir\\", true, "C:\\dir\\"},
        {"file.txt", true, "file.txt"},
        {"C:f.txt", true, "f"},
        {"C:\\dir\\.ini", true, "C:\\dir\\.ini"},
        {"/home/me/node.xif", false, kIsWindows ? "/home/me/node.xif" : "node.xif"},
        {"", true, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CTools().ExtractFile(row.path, row.removeExtension), row.name) << row.path;
}

TEST(Tools, ExtractPathLeavesTheSeparatorOut) {
    EXPECT_EQ(CTools().ExtractPath("C:\\dir\\f.txt"), "C:\\dir");
    EXPECT_EQ(CTools().ExtractPath("C:f.txt"), "C");
    EXPECT_EQ(CTools().ExtractPath("f.txt"), "");
    EXPECT_EQ(CTools().ExtractPath("/home/me/node.xif"), kIsWindows ? "" : "/home/me");
}

TEST(Tools, GetFieldsTrimsTheLineAndNotTheFields) {
    std::int32_t count = -1;
    std::vector<std::string> fields{"kept"};
    CTools().GetFields("   ", count, fields, ',');
    EXPECT_EQ(count, 0);
    EXPECT_EQ(fields, std::vector<std::string>{"kept"});
    CTools().GetFields("  a,, b  ", count, fields, ',');
    EXPECT_EQ(fields, (std::vector<std::string>{"a", "", " b"}));
    CTools().GetFields("a,b,", count, fields, ',');
    EXPECT_EQ(count, 2);
}

TEST(Tools, NamesAndHexadecimalTexts) {
    EXPECT_EQ(CTools().ReplaceBadCharInType("AZ09 az-\xC3\xA9"), "AZ09_az__");
    EXPECT_FALSE(CTools().ValidateHexaString(""));
    EXPECT_FALSE(CTools().ValidateHexaString("09afAF"));
    EXPECT_TRUE(CTools().ValidateHexaString("9000 01"));
    EXPECT_TRUE(CTools().ValidateHexaString("0G"));
}

TEST(Tools, AMemberIsFoundUnderItsKeyAlone) {
    KeyedList<int> list;
    EXPECT_TRUE(list.Add("NV_1", 10));
    EXPECT_FALSE(list.Add("NV_1", 20));
    ASSERT_NE(CTools().itemInCol(list, "NV_1"), nullptr);
    EXPECT_EQ(*CTools().itemInCol(list, "NV_1"), 10);
    EXPECT_EQ(CTools().itemInCol(list, "nv_1"), nullptr);
}

TEST(Tools, CreateDirectoryMakesOneLevelOnly) {
    const Scratch scratch;
    CTools().CreateDirectory(scratch.Folder() + "\\new\\");
    EXPECT_TRUE(FolderExists(scratch.Path("new")));
    CTools().CreateDirectory(scratch.Folder() + "\\no\\where\\");
    EXPECT_FALSE(FolderExists(scratch.Path("no")));
    CTools().CreateDirectory(scratch.Folder() + "\\n");
    EXPECT_TRUE(FolderExists(scratch.Path("n")));
    // Without a parent, or without a name behind it, there is nothing to create.
    CTools().CreateDirectory(scratch.Folder() + "\\twice\\\\");
    EXPECT_FALSE(FolderExists(scratch.Path("twice")));
    CTools().CreateDirectory("no-parent-of-this-folder");
    EXPECT_FALSE(std::filesystem::remove("no-parent-of-this-folder")) << "it was created, and is gone again";
    scratch.File("OTHER", "");
    CTools().CreateDirectory(scratch.Folder() + "\\other");
    EXPECT_FALSE(FolderExists(scratch.Path("other"))) << "a file of that name stands in the way";
}

TEST(Tools, JoinedFoldersEndInOneBackslash) {
    EXPECT_EQ(WithFinalBackslash("C:\\out"), "C:\\out\\");
    EXPECT_EQ(WithFinalBackslash("C:\\out\\"), "C:\\out\\");
    EXPECT_EQ(WithFinalBackslash(""), "\\");
}

TEST(Path, BothSeparatorsCountOnEveryPlatform) {
    struct Row {
        std::string_view path, folder, name, stem, extension;
    };
    for (const Row& row :
         std::vector<Row>{{"C:\\a.b/Set.one.TYP", "C:\\a.b/", "Set.one.TYP", "Set.one", "typ"},
                          {"/a.b\\set", "/a.b\\", "set", "set", ""},
                          {"set.", "", "set.", "set", ""},
                          {".fmt", "", ".fmt", "", "fmt"},
                          {"a.b/", "a.b/", "", "", ""},
                          {"", "", "", "", ""}}) {
        EXPECT_EQ(FolderOf(row.path), row.folder) << row.path;
        EXPECT_EQ(NameOf(row.path), row.name) << row.path;
        EXPECT_EQ(StemOf(row.path), row.stem) << row.path;
        EXPECT_EQ(ExtensionOf(row.path), row.extension) << row.path;
    }
    EXPECT_EQ(WithSeparator(""), "") << "the folder at hand";
    EXPECT_EQ(WithSeparator("a/"), "a/");
    EXPECT_EQ(WithSeparator("a"), "a\\");
}

TEST(Dates, HaveTheGeneralForm) {
    EXPECT_EQ(GeneralDateText({2026, 11, 21, 9, 41, 7}), "11/21/2026 9:41:07 AM");
    EXPECT_EQ(GeneralDateText({2026, 1, 2, 0, 0, 5}), "1/2/2026 12:00:05 AM");
    EXPECT_EQ(GeneralDateText({2026, 1, 2, 12, 30, 0}), "1/2/2026 12:30:00 PM");
    EXPECT_EQ(GeneralDateText({2026, 1, 2, 0, 0, 0}), "1/2/2026") << "no time part at midnight";
    EXPECT_EQ(GeneralDateText(FixedClock(951841647)->LocalTime()), "2/29/2000 4:27:27 PM");
}

TEST(Dates, AreThoseOfTheMachine) {
    const auto inOrder = [](const CivilTime& time) {
        return std::tuple(time.year, time.month, time.day, time.hour, time.minute, time.second);
    };
    const CivilTime before = FixedClock(std::time(nullptr))->UtcTime();
    const CivilTime now = SystemClock()->UtcTime();
    EXPECT_LE(inOrder(before), inOrder(now));
    EXPECT_LE(inOrder(now), inOrder(FixedClock(std::time(nullptr))->UtcTime()));
    EXPECT_LE(std::abs(SystemClock()->LocalTime().year - now.year), 1) << "no zone is a year away";
}

}  // namespace
}  // namespace tovarek::test
