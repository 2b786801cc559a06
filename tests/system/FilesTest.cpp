#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

#include "Scratch.h"
#include "system/Files.h"

namespace tovarek::test {
namespace {

TEST(Files, WhatCannotBeReadHasItsOwnNumber) {
    const Scratch scratch;
    const std::string file = scratch.File("f", "x");
    std::vector<std::pair<std::string, int>> rows = {
        {scratch.Path("missing"), 53},
        {scratch.Path("no/where"), 76},
        {scratch.Folder(), 75},
        {file + (kIsWindows ? "\\below" : "/below"), 76},
        {"", 53},
        {"/no-such-file-in-the-root", 53},
        {"?/below-a-folder-of-one-letter", kIsWindows ? 75 : 76},
    };
    // Windows knows no file of such a name; POSIX knows that there cannot be one.
    if (!kIsWindows)
        rows.emplace_back(scratch.Path(std::string(300, 'n')), 75);
    for (const auto& [path, number] : rows)
        EXPECT_EQ(RaisedNumber([path = path] { ReadFile(path); }), number) << path;
    // The reason has the same words on every platform.
    for (const auto& [path, reason] :
         {std::pair(scratch.Path("missing"), "No such file or directory"),
          std::pair(scratch.Path("no/where"), "No such file or directory; there is no folder "),
          std::pair(scratch.Folder(), "Is a directory; name a file")}) {
        const auto error = Raised([path = path] { ReadFile(path); });
        EXPECT_EQ(error->Context().file, path);
        EXPECT_TRUE(error->Context().reason.starts_with(reason)) << error->Context().reason;
    }
}

TEST(Files, WhatCannotBeWrittenHasItsOwnNumber) {
    const Scratch scratch;
    std::vector<std::pair<std::string, int>> rows = {{scratch.Folder(), 75},
                                                     {scratch.Path("no/where"), 76},
                                                     {scratch.File("file", "") + "/below", 76},
                                                     {"", 53}};
    if (!kIsWindows)
        rows.emplace_back(scratch.Path(std::string(300, 'n')), 75);
    for (const auto& [path, number] : rows) {
        EXPECT_EQ(RaisedNumber([path = path] { WriteFile(path, "x"); }), number) << path;
        EXPECT_EQ(RaisedNumber([path = path] { ProbeOutput(path); }), number) << path;
    }
    const auto nameless = Raised([] { WriteFile("", "x"); });
    ASSERT_TRUE(nameless);
    EXPECT_EQ(nameless->Context().reason, "the name of the output file is empty");
    EXPECT_EQ(RaisedNumber([&] { RewriteFile(scratch.Path("missing"), "x"); }), 53);
    for (const auto write : {WriteFile, RewriteFile}) {
        const auto folder = Raised([&] { write(scratch.Path("no/where"), "x"); });
        EXPECT_NE(folder->Context().reason.find("there is no folder"), std::string::npos);
        EXPECT_NE(folder->Context().reason.find("create it"), std::string::npos) << folder->Context().reason;
    }
}

// These files keep even the superuser out.
TEST(Files, WhoIsKeptOutLearnsWhatToDo) {
    const std::string readOnly = "/proc/sys/kernel/ostype";
    const std::string writeOnly = "/proc/sys/vm/compact_memory";
    if (!FileExists(readOnly) || !FileExists(writeOnly))
        GTEST_SKIP() << "the system has no such files";
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { ReadFile(writeOnly); },
         "; change the rights of the file or of its folder so that it may be read"},
        {[&] { WriteFile(readOnly, "x"); }, "; change the rights of the file so that it may be written"},
        {[&] { WriteFile("/sys/tovarek-test", "x"); }, "; no file may be created in the folder /sys"}};
    for (const auto& [operation, hint] : rows) {
        const auto error = Raised(operation);
        ASSERT_TRUE(error) << hint;
        EXPECT_EQ(error->Number(), 70) << hint;
        EXPECT_NE(error->Context().reason.find(hint), std::string::npos) << error->Context().reason;
    }
}

TEST(Files, AFullDiskIsToldOfSmallAndLargeFiles) {
    if (!HasFullDisk())
        GTEST_SKIP() << "the system has no disk that is full";
    EXPECT_EQ(RaisedNumber([] { WriteFile(kFullDisk, "x"); }), 61);
    EXPECT_EQ(RaisedNumber([] { WriteFile(kFullDisk, std::string(1 << 20, 'x')); }), 61);
}

TEST(Files, FilesAndFoldersHaveTheUsualRights) {
    using std::filesystem::status;
    const Scratch scratch;
    std::filesystem::create_directory(StandardPath(scratch.Path("usual")));
    ASSERT_TRUE(MakeDirectory(scratch.Path("made")));
    const auto usual = status(StandardPath(scratch.Path("usual"))).permissions();
    EXPECT_EQ(status(StandardPath(scratch.Path("made"))).permissions(), usual);
    if (kIsWindows)
        GTEST_SKIP() << "the name of a file says there whether it is a program";
    const auto rights = status(scratch.File("written", "x")).permissions();
    EXPECT_EQ(static_cast<unsigned>(rights) & 0111U, 0U);
}

TEST(Files, BackslashesOpenFilesOnEveryPlatform) {
    const Scratch scratch;
    WriteFile(scratch.Folder() + "\\a.txt", "x");
    errno = EINTR;  // of some call long ago: it must not be taken for one of the calls that read
    EXPECT_EQ(ReadFile(scratch.Path("a.txt")), "x");
}

TEST(Files, PiecesOfEverySizeArriveInOrder) {
    const Scratch scratch;
    std::string expected;
    OutputFile file(scratch.Path("a"));
    for (const std::size_t size : {1U, 65535U, 65536U, 200000U, 7U, 0U, 65537U}) {
        const std::string piece(size, static_cast<char>('a' + size % 26));
        file.Append(piece);
        expected += piece;
    }
    file.Close();
    EXPECT_EQ(ReadFile(scratch.Path("a")), expected);
}

TEST(Files, MoreThanAGibibyteIsRefusedUnread) {
    if (kIsWindows)
        GTEST_SKIP() << "the file would take its place on the disk";
    const Scratch scratch;
    const std::string path = scratch.File("holes.ini", "[a]");
    std::filesystem::resize_file(path, (std::uintmax_t{1} << 30U) + 1);
    const auto raised = Raised([&] { ReadFile(path); });
    ASSERT_TRUE(raised);
    EXPECT_EQ(raised->Number(), 7);
    EXPECT_EQ(raised->Context().reason, "files of more than 1 GiB are not read");
    EXPECT_EQ(ReadFile(path, 3), "[a]") << "the beginning is enough for who asks for no more";
}

TEST(Files, AnAbandonedFileKeepsWhatWasWritten) {
    const Scratch scratch;
    { OutputFile(scratch.Path("a")).Append("half"); }
    EXPECT_EQ(ReadFile(scratch.Path("a")), "half");
    {
        OutputFile file(scratch.Path("b"));
        file.Append(std::string(200000, 'x'));
        file.Append("end");
    }
    EXPECT_EQ(ReadFile(scratch.Path("b")), std::string(200000, 'x') + "end");
}

TEST(Files, OneFileHasOneIdentityUnderAllItsNames) {
    const Scratch scratch;
    const std::string file = scratch.File("f", "x");
    const std::string link = scratch.Path("hard");
    std::filesystem::create_hard_link(StandardPath(file), StandardPath(link));
    std::filesystem::create_directory(StandardPath(scratch.Path("sub")));
    std::vector<std::pair<std::string, std::string>> same = {
        {file, link},
        {file, scratch.Folder() + "\\sub\\..\\.\\f"},
        {scratch.Path("new"), scratch.Path("sub/../new")},
        {scratch.Path("no/way/new"), scratch.Path("sub/../no/./other/../way/new")},
        {file, scratch.Path("no/../f")},
    };
    std::vector<std::pair<std::string, std::string>> different = {
        {file, scratch.File("g", "x")},
        {scratch.Path("new"), scratch.Path("old")},
        {scratch.Path("new"), scratch.Path("sub/new")},
        {scratch.Path("no/new"), scratch.Path("new")},
    };
    (kIsWindows ? same : different).emplace_back(scratch.Path("new"), scratch.Path("NEW"));
    if (!kIsWindows) {
        std::filesystem::create_symlink(scratch.Path("sub"), scratch.Path("folder"));
        std::filesystem::create_symlink("../later", scratch.Path("sub/nowhere"));
        same.emplace_back(scratch.Path("sub/new"), scratch.Path("folder/new"));
        same.emplace_back(scratch.Path("later"), scratch.Path("folder/nowhere"));
        EXPECT_FALSE(IdentityOf("/dev/null").has_value());
    }
    for (const auto& [one, other] : same)
        EXPECT_TRUE(IdentityOf(one) && IdentityOf(one) == IdentityOf(other)) << one << "\n" << other;
    for (const auto& [one, other] : different)
        EXPECT_TRUE(IdentityOf(one) != IdentityOf(other)) << one << "\n" << other;
    EXPECT_FALSE(IdentityOf(scratch.Folder()).has_value());
}

}  // namespace
}  // namespace tovarek::test
