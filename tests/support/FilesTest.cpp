#include <gtest/gtest.h>

#include "Scratch.h"
#include "support/Files.h"

namespace tovarek::test {
namespace {

TEST(Files, WhatCannotBeReadHasItsOwnNumber) {
    const Scratch scratch;
    const std::string file = scratch.File("f", "x");
    const std::pair<std::string, int> rows[] = {
        {scratch.Path("missing"), 53},
        {scratch.Path("no/where"), 76},
        {scratch.Folder(), 75},
        {file + "/below", 76},
        {scratch.Path(std::string(300, 'n')), 75},
        {"", 53},
    };
    for (const auto& [path, number] : rows)
        EXPECT_EQ(RaisedNumber([path = path] { ReadFile(path); }), number) << path;
    const auto error = Raised([&] { ReadFile(scratch.Path("missing")); });
    EXPECT_EQ(error->Context().file, scratch.Path("missing"));
}

TEST(Files, WhatCannotBeWrittenHasItsOwnNumber) {
    const Scratch scratch;
    EXPECT_EQ(RaisedNumber([] { WriteFile("/dev/full", "x"); }), 61);
    EXPECT_EQ(RaisedNumber([] { WriteFile("/dev/full", std::string(1 << 20, 'x')); }), 61);
    EXPECT_EQ(RaisedNumber([&] { WriteFile(scratch.Folder(), "x"); }), 75);
    EXPECT_EQ(RaisedNumber([&] { WriteFile(scratch.Path("no/where"), "x"); }), 76);
    EXPECT_EQ(RaisedNumber([] { WriteFile("", "x"); }), 53);
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
    for (const std::size_t size : {1UL, 65535UL, 65536UL, 200000UL, 7UL, 0UL, 65537UL}) {
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
