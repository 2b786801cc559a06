// Files where the platform has its own rules.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>

#include "Scratch.h"
#include "system/Files.h"
#include "system/Wide.h"

namespace tovarek::test {
namespace {

// A file that somebody holds open and lets nobody else open.
class HeldFile {
  public:
    explicit HeldFile(const std::string& path)
        : file_(CreateFileW(ToWide(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~HeldFile() { CloseHandle(file_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

  private:
    HANDLE file_;
};

TEST(WindowsFiles, NumbersAreThoseThatUsersKnow) {
    const Scratch scratch;
    const std::string held = scratch.File("held", "x");
    const HeldFile holder(held);
    const struct {
        std::string path;
        int read;
        int write;
    } rows[] = {
        {held, 70, 70},
        {scratch.Folder(), 75, 75},
        {scratch.Path("no/where"), 76, 76},
        {held + "\\below", 76, 76},
        {scratch.Path("a*b"), 75, 75},
        {scratch.Path("a?b"), 75, 75},
        {scratch.Path("a|b"), 75, 75},
        {scratch.Path("a\"b"), 75, 75},
        {scratch.Path("held") + std::string("\0.xif", 5), 75, 75},
    };
    for (const auto& row : rows) {
        const auto reading = Raised([&] { ReadFile(row.path); });
        const auto writing = Raised([&] { WriteFile(row.path, "y"); });
        ASSERT_TRUE(reading && writing) << row.path;
        EXPECT_EQ(reading->Number(), row.read) << row.path;
        EXPECT_EQ(writing->Number(), row.write) << row.path;
        EXPECT_FALSE(reading->Context().reason.empty());
        EXPECT_EQ(reading->Context().file, row.path);
    }
}

TEST(WindowsFiles, FilesThatOthersHaveOpenAreRead) {
    const Scratch scratch;
    OutputFile writer(scratch.Path("a"));
    writer.Append(std::string(100000, 'x'));
    EXPECT_EQ(ReadFile(scratch.Path("a")), std::string(100000, 'x'));
    EXPECT_EQ(RaisedNumber([&] { WriteFile(scratch.Path("a"), "y"); }), 70) << "one writer at a time";
    writer.Close();
    WriteFile(scratch.Path("a"), "y");
    EXPECT_EQ(ReadFile(scratch.Path("A")), "y") << "letter case does not count";
}

TEST(WindowsFiles, NamesMayHoldCharactersBeyondTheCodePage) {
    const Scratch scratch;
    for (const std::string& name :
         {std::string("\xCE\xA9\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1"), std::string("\xE6\xB8\xA9\xE5\xBA\xA6"),
          std::string("\xF0\x9F\x98\x80"), std::string("\xE2\x88\x92 \xC4\x80")}) {
        const std::string folder = scratch.Folder() + "\\" + name;
        ASSERT_TRUE(MakeDirectory(folder)) << name;
        const std::string path = folder + "\\" + name + ".xif";
        WriteFile(path, "x");
        EXPECT_EQ(ReadFile(path), "x");
        EXPECT_TRUE(FileExists(path));
        EXPECT_FALSE(FileExists(folder));
        EXPECT_TRUE(FolderExists(folder));
        EXPECT_FALSE(FolderExists(path));
        EXPECT_EQ(DirectoryEntries(folder), std::vector<std::string>{name + ".xif"});
        EXPECT_EQ(StampOf(path).size, 1U);
        EXPECT_NE(GetFileAttributesW(ToWide(path).c_str()), INVALID_FILE_ATTRIBUTES);
    }
}

TEST(WindowsFiles, AStampTellsFilesAndChangesApart) {
    const Scratch scratch;
    const std::string path = scratch.File("a", "1");
    const FileStamp first = StampOf(path);
    EXPECT_EQ(StampOf(path), first);
    EXPECT_NE(first, FileStamp());
    WriteFile(path, "22");
    EXPECT_NE(StampOf(path), first);
    EXPECT_NE(StampOf(scratch.File("b", "22")), StampOf(path));
    EXPECT_EQ(StampOf(scratch.Path("none")), FileStamp());
}

}  // namespace
}  // namespace tovarek::test
