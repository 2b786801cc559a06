// The reader of device-interface files.
#include <gtest/gtest.h>

#include "Fixtures.h"
#include "formats/xif/XifFile.h"
#include "formats/xif/XifValues.h"

namespace tovarek::test {
namespace {

XifFile Read(const std::string& text) {
    XifFile file;
    const Outcome outcome = ReadXifFile(text, file);
    EXPECT_TRUE(outcome.Ok()) << outcome.reason;
    return file;
}

std::string Replaced(std::string_view what, std::string_view by) {
    std::string text(kSmallXif);
    const std::size_t place = text.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return text.replace(place, what.size(), by);
}

TEST(XifReader, ReadsEveryRecord) {
    const XifFile file = Read(std::string(kSmallXif));
    EXPECT_EQ(file.name, "belt.xif");
    EXPECT_EQ(file.tool, "Acme Builder 2.1");
    EXPECT_EQ(file.version, "4.0");
    ASSERT_EQ(file.parameters.size(), 5U);
    EXPECT_EQ(file.parameters[0].numbers[1], 15);
    EXPECT_EQ(file.parameters[0].numbers[22], std::nullopt);  // left at its default
    EXPECT_EQ(file.parameters[2].line, 8);
    EXPECT_EQ(file.documentation, "&3.1@0NodeObject,4Belt");
    ASSERT_EQ(file.tags.size(), 1U);
    EXPECT_EQ(file.tags[0].name, "alarm");
    ASSERT_EQ(file.variables.size(), 2U);
    EXPECT_EQ(file.variables[0].standardType, 105);
    EXPECT_EQ(file.variables[0].Size(), 2);
    EXPECT_EQ(file.variables[1].documentation, "&1,0,0\\x80,49");
    EXPECT_EQ(file.variables[1].elements.size(), 4U);
    EXPECT_EQ(file.variables[1].Size(), 4);  // the third bit field begins a byte of its own
    ASSERT_EQ(file.sections.size(), 2U);
    EXPECT_EQ(file.sections[0].content.text, "1.1;1,0,0\\x80,49,2,,0:600;");
    EXPECT_EQ(file.sections[1].content.bytes, "\x02\x58");
    EXPECT_EQ(file.sections[1].length, XifNumber(2));
    EXPECT_EQ(file.values->bytes, "\x01\x02\x03\x04\x05\x06\x07\x08");
    ASSERT_EQ(file.comments.size(), 1U);
    EXPECT_EQ(file.comments[0].line, 8U);
    ASSERT_EQ(file.unknown.size(), 1U);
    EXPECT_EQ(file.unknown[0].lines.size(), 2U);
    EXPECT_FALSE(file.endMark);
}

TEST(XifReader, SizesAVariableByItsElements) {
    const auto size = [](std::initializer_list<std::optional<int>> offsets) {
        XifVariable variable;
        for (const std::optional<int> offset : offsets)
            variable.elements.push_back({.type = 3, .offset = offset});
        return variable.Size();
    };
    EXPECT_EQ(size({0, 1, 2}), 1);
    EXPECT_EQ(size({0, 0}), 2) << "two fields cannot have one place";
    EXPECT_EQ(size({4, 3}), 2);
    EXPECT_EQ(size({0, std::nullopt}), 2) << "what has no offset stands at the beginning";
    XifVariable between;
    between.elements = {{.type = 3, .offset = 0}, {.type = 1}, {.type = 3, .offset = 5}};
    EXPECT_EQ(between.Size(), 3) << "another element closes the byte";
    between.elements = {{.type = 4, .size = 3, .array = 2}, {.type = 4}};
    EXPECT_EQ(between.Size(), 6) << "a union that tells no size takes no room";
}

TEST(XifReader, SurvivesWhatOldToolsLeave) {
    const std::string text(kSmallXif);
    std::string unixLines = text;
    std::erase(unixLines, '\r');
    EXPECT_EQ(Read(unixLines).values->bytes, Read(text).values->bytes);
    const XifFile marked = Read(text + "\r\n\x1A");
    EXPECT_TRUE(marked.endMark);
    EXPECT_EQ(marked.attached, "");
    const std::string image("\x01\0\xFFimage\r\n", 10);
    EXPECT_EQ(Read(text + "\x1A" + image).attached, image);
    EXPECT_EQ(Read(text + image).attached, image);
    // Image and mark may follow the last line without a line end.
    const std::string cut = text.substr(0, text.size() - 2);
    for (const std::string& rest : {image, "MZ" + image, '\x1A' + image}) {
        EXPECT_EQ(Read(cut + rest).values->bytes, Read(text).values->bytes);
        EXPECT_EQ(Read(cut + rest).attached, rest.starts_with('\x1A') ? image : rest);
    }
    const std::string records = text.substr(0, text.find("\r\n\r\nFILE"));
    EXPECT_EQ(Read(records + "\x1A").variables[1].Size(), 4);
    EXPECT_EQ(Read(text + ":10000000FF\r\n").unknown.size(), 2U);
    // Version 2 has no lines 8 to 10.
    const std::size_t line8 = text.find("1 7 1 1");
    std::string old = text;
    old.erase(line8, text.find("*\r\n\"&3.1") - line8);
    EXPECT_EQ(Read(old).parameters.size(), 2U);
}

TEST(XifReader, TakesTheFewestNumbersThatTellARecord) {
    const std::pair<const char*, std::string> lines[] = {
        {"TAG alarm 0 13 13 0", "TAG alarm 0 13 13"},
        {"0 1 63 1 0 1 0 1 0 0 0 0 0", "0 1"},
        {"VAR nviSpeed 0 0 0 0", "VAR nviSpeed 0 0 0"},
        {"0 1 63 0 2 1 0 1 0 1 0 0 0", "0 1 63 0 2 1 0 1 0 1 0 0 0"},
        {"105 *   1", "105 *   1"},
        {"2 0 0 1 0", "2 0 0 1 0"},
        {"FILE value 1 1 2", "FILE value 1 1"},
    };
    for (const auto& [line, fewest] : lines) {
        EXPECT_EQ(Read(Replaced(line, fewest)).variables.size(), 2U);
        XifFile file;
        const Outcome outcome = ReadXifFile(Replaced(line, fewest.substr(0, fewest.find_last_of(' '))), file);
        EXPECT_NE(outcome.reason.find("too few numbers in "), std::string::npos) << outcome.reason;
    }
}

TEST(XifReader, NamesTheLineThatIsWrong) {
    struct Case {
        std::string text;
        std::string reason;
    };
    const std::string whole(kSmallXif);
    for (const Case& each : std::vector<Case>{
             {Replaced("File:", "Fiel:"), "line 1: an XIF begins"},
             {Replaced("90:0A", "90-0A"), "line 5: "},
             {Replaced("200 0\r\n", "200 x\r\n"), "line 9: \"x\" is not a number; only numbers"},
             {Replaced("\"&3.1@0Node\r\n\"Object,4Belt\r\n", ""), "line 13: neither"},
             {Replaced("0 1 63 0 2 1 0 1 0 1 0 0 0", "0 1 63"), "line 19: too few numbers"},
             {Replaced("105 *   1", "105 *   x"), "line 21: "},
             {Replaced("VAR nviSpeed 0 0 0 0", "VAR"), "line 18: VAR has no name"},
             {Replaced("VAR nviSpeed 0 0 0 0", "VAR nviSpeed"), "line 18: too few numbers in VAR"},
             {Replaced("0x0258", "0x025"), "is not a value"},
             {Replaced("0 * 4", "0 * 5"), "an element"},
             {Replaced("0 * 4", "0 * -1"), "negative"},
             {whole.substr(0, whole.find("3 0 8")), "line 29: the file ends"},
             {whole.substr(0, whole.find("78125")), "inside the parameters"},
             {Replaced("105 *   1", "105 * 99999999999999999999"), "line 21: "},
         }) {
        XifFile file;
        const Outcome outcome = ReadXifFile(each.text, file);
        EXPECT_EQ(outcome.code, resultErrorOpenFile);
        EXPECT_NE(outcome.reason.find(each.reason), std::string::npos) << outcome.reason;
    }
}

TEST(XifReader, BlanksTheDateOfTheThirdLineAlone) {
    const std::string head = "File: a.xif generated by B\r\nC\r\n";
    const std::pair<std::string, std::string> rows[] = {
        {head + "Run on Mon\r\nRun on", head + "\r\nRun on"},
        {head + "XIF, Run on Mon\nRun on", head + "XIF, \nRun on"},
        {head + "\nRun on Mon\n", head + "\nRun on Mon\n"},
        {head + "Run on Mon", head + "Run on Mon"},
        {"Fil: a\n\nRun on Mon\n", "Fil: a\n\nRun on Mon\n"},
    };
    for (const auto& [bytes, blanked] : rows) {
        std::string text = bytes;
        BlankXifDate(text);
        EXPECT_EQ(text, blanked) << bytes;
    }
}

TEST(XifReader, ValuesInEveryNotation) {
    for (const auto& [line, bytes] :
         std::vector<std::pair<std::string, std::string>>{{"0x01FF 0xFFFF", "\x01\xFF\xFF\xFF"},
                                                          {"\\x0B\\xB8", "\x0B\xB8"},
                                                          {"0x0B B8 ", "\x0B\xB8"},
                                                          {"0x202020,0x2A,", "   *"},
                                                          {" , ", ""}}) {
        XifContent content;
        EXPECT_TRUE(AddXifContent(line, content)) << line;
        EXPECT_EQ(content.bytes, bytes) << line;
    }
    for (const char* line : {"0x123", "\\x", "0x12;", "\t0x1 0x10x2", "12 3G"}) {
        XifContent content;
        EXPECT_FALSE(AddXifContent(line, content)) << line;
        EXPECT_EQ(content.bytes, "") << line;
    }
}

}  // namespace
}  // namespace tovarek::test
