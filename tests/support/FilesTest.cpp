#include <gtest/gtest.h>

#include "Scratch.h"
#include "support/Files.h"

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
    };
    // Windows knows no file of such a name; POSIX knows that there cannot be one.
    if (!kIsWindows)
        rows.emplace_back(scratch.Path(std::string(300, 'n')), 75);
    for (const auto& [path, number] : rows)
        EXPECT_EQ(RaisedNumber([path = path] { ReadFile(path); }), number) << path;
    const auto error = Raised([&] { ReadFile(scratch.Path("missing")); });
    EXPECT_EQ(error->Context().file, scratch.Path("missing"));
}

TEST(Files, WhatCannotBeWrittenHasItsOwnNumber) {
    const Scratch scratch;
    EXPECT_EQ(RaisedNumber([&] { WriteFile(scratch.Folder(), "x"); }), 75);
    EXPECT_EQ(RaisedNumber([&] { WriteFile(scratch.Path("no/where"), "x"); }), 76);
    EXPECT_EQ(RaisedNumber([] { WriteFile("", "x"); }), 53);
}

TEST(Files, AFullDiskIsToldOfSmallAndLargeFiles) {
    if (!HasFullDisk())
        GTEST_SKIP() << "the system has no disk that is full";
    EXPECT_EQ(RaisedNumber([] { WriteFile(kFullDisk, "x"); }), 61);
    EXPECT_EQ(RaisedNumber([] { WriteFile(kFullDisk, std::string(1 << 20, 'x')); }), 61);
}

TEST(Files, BackslashesOpenFilesOnEveryPlatform) {
    const Scratch scratch;
    WriteFile(scratch.Folder() + "\\a.txt", "x");
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

TEST(Files, AnAbandonedFileKeepsWhatWasWritten) {
    const Scratch scratch;
    { OutputFile(scratch.Path("a")).Append("half"); }
    EXPECT_EQ(ReadFile(scratch.Path("a")), "half");
}

}  // namespace
}  // namespace tovarek::test
