// What --fix writes into inputs, and what it leaves alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "Program.h"
#include "Slips.h"
#include "cli/Mending.h"
#include "mend/MendedBytes.h"

namespace tovarek::test {
namespace {

Slip In(const char* file, const char* right, const char* wrong, Form form = Form::ini) {
    return {file, right, wrong, "", form};
}

// Every finding of the tables is mended where it can be; these are the ones that can, and what becomes of
// their lines. Without a text: a person has to choose.
TEST(Mend, WhatCanBeMeantByOneThingIsWritten) {
    const std::pair<Slip, const char*> rows[] = {
        {In("template.ini", "direction=1\ntype=93", "direction=output\ntype=93"), "direction=1"},
        {In("template.ini", "type=93", "type=snvt_obj_status"), "type=93"},
        {In("template.ini", "type=93", "type=SNVT_obj_statis"), nullptr},
        {In("template.ini", "type=93", "type = \"SNVT_obj_status\" "), "type = \"93\""},
        {In("template.ini", "synchronized=1", "synchronized=yes"), "synchronized=1"},
        {In("template.ini", "synchronized=1", "\tsynchronised = 1"), "synchronized = 1"},
        {In("template.ini", "synchronized=1", "synchronised=1\nsynchronised2=1"), nullptr},
        {In("template.ini", "synchronized=1", "sinkronised=1"), nullptr},
        {In("template.ini", "synchronized=1", "synchronized : 1"), "synchronized=1"},
        {In("template.ini", "synchronized=1", "synchronized"), nullptr},
        {In("template.ini", "[nv3]", "nv3]"), "[nv3]"},
        {In("template.ini", "[nv3]", "[ nv3"), "[ nv3]"},
        {In("template.ini", "[nvs]\n", "[ nv ]\n"), "[ nvs ]"},
        {In("template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=13"), "numberOfStaticNvs=14"},
        {In("template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=all"), "numberOfStaticNvs=14"},
        {In("template.ini", "numberOfStaticNvs=14\n", ""), "[nvs] numberOfStaticNvs=14"},
        {In("template.ini", "numberOfStaticNvs=14\nmaximumNumberOfNvs=20",
            "numberOfStaticNvs=13\nmaximumNumberOfNvs=13"),
         nullptr},
        {In("template.ini", "[nv14]", "[nv15]"), nullptr},
        {In("template.ini", "numberOfCp=9", "numberOfCp=8"), "numberOfCp=9"},
        {In("template.ini", "type=92", "type=92\ntype=93"), ";type=93"},
        {In("template.ini", "1,1,0\\x80,52,2;", "1,1,0\\x80,52,2"), "declaration=1,1,0\\x80,52,2;"},
        {In("template.ini", "1,1,0\\x80,52,2;", "1,1,0\\x80,52,2,"), nullptr},
        {In("profile.ini", "protocolClockRate=5", "protocolClockRate=10 MHz"), "protocolClockRate=5"},
        {In("profile.ini", "[Line7]", "[Line 7]"), "[Line7]"},
        {In("template.xml", "<nvoStatus>\n      <DIRECTION>output<", "<nvoStatus>\n      <DIRECTION> out<",
            Form::xml),
         "<DIRECTION>OUTPUT</DIRECTION>"},
        {In("template.xml", "<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZ>4</ARRAYSIZ>", Form::xml),
         "<ARRAYSIZE>4</ARRAYSIZE>"},
        {In("template.xml", "<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZE>4</ARRAYSIZE><ARRAYSIZ/>", Form::xml),
         nullptr},
        {In("template.xml", "<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZE>4</ARRAYSIZE><ARRAYSIZE>4</ARRAYSIZE>",
            Form::xml),
         "<!-- <ARRAYSIZE>4</ARRAYSIZE> --><ARRAYSIZE>4</ARRAYSIZE>"},
        {In("template.xml", "<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZE>3</ARRAYSIZE><ARRAYSIZE>4</ARRAYSIZE>",
            Form::xml),
         nullptr},
        {In("template.xml", "<SYNCHRONIZED>1</", "<SYNCHRONIZED a='>'> yes </", Form::xml),
         "<SYNCHRONIZED a='>'> 1 </SYNCHRONIZED>"},
        {In("template.xml", "<SYNCHRONIZED>1</", "<SYNCHRONIZED>yes<!-- x --></", Form::xml), nullptr},
        {In("template.xml", "<SISD>1,1,0\\x80,52,2;</", "<SISD>1,1,0\\x80,52,2</", Form::xml),
         "<SISD>1,1,0\\x80,52,2;</SISD>"},
        {In("format.xml", "<valve>313</valve>", "<valve>SNVT_313</valve>", Form::xml), "<valve>313</valve>"},
    };
    for (const auto& [slip, after] : rows) {
        SlipCheck check(slip);
        const Json answer = check.Run();
        const Json fixed = ExpectMended(slip, check, answer);
        ASSERT_EQ(fixed.is_null(), after == nullptr) << slip.wrong << answer["findings"];
        const Json made = (after == nullptr ? check.Run({"--fix"}) : fixed)["mends"];
        ASSERT_EQ(made.empty(), after == nullptr) << slip.wrong << answer["findings"];
        if (after == nullptr)
            continue;
        EXPECT_EQ(std::regex_replace(made[0]["after"].get<std::string>(), std::regex("\\s*\n"), " "), after)
            << slip.wrong;
    }
}

std::string Utf16(const std::string& text, bool isBig) {
    const std::string plain = text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
    return (isBig ? "\xFE\xFF" : "\xFF\xFE") + ToUtf16(plain, isBig);
}
std::string Latin1(const std::string& text) {
    std::string bytes;
    for (std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        bytes += static_cast<char>(character < 0x100 ? character : U'?');
    }
    return std::regex_replace(bytes, std::regex("encoding=\"UTF-8\""), "encoding=\"ISO-8859-1\"");
}

// The mended text in another form is the other form, mended: every byte beside the mends stays.
TEST(Mend, EveryOtherByteStaysInEveryEncoding) {
    const SlipCheck::Stored forms[] = {
        [](const std::string& text) { return Utf16(text, false); },
        [](const std::string& text) { return Utf16(text, true); },
        Latin1,
        [](const std::string& text) { return std::regex_replace(text, std::regex("\r?\n"), "\r\n"); },
        [](const std::string& text) { return text.substr(0, text.find_last_not_of("\r\n") + 1); },
    };
    const Slip slips[] = {
        {"template.ini", "direction=1\ntype=93", "direction=output\ntype=SNVT_obj_status\nselfDok=\xC3\xA4",
         ""},
        {"template.ini", "name=nviRequest", "name=\xC3\xA4 \t\nsynchronised= yes ", ""},
        {"template.ini", "numberOfStaticNvs=14\n", "", ""},
        {"template.ini", "value=0384", "value=0384\nvalue=0384", ""},
        {"template.xml", "<ARRAYSIZE>4</ARRAYSIZE>", "<!-- \xC3\xBC --><ARRAYSIZ>4</ARRAYSIZ>", "",
         Form::xml},
        {"template.xml", "<SYNCHRONIZED>1<", "<SISD>\xC3\xA4</SISD>\n<SYNCHRONIZED>yes<", "", Form::xml},
    };
    for (const Slip& slip : slips) {
        SlipCheck plain(slip);
        const std::string text = ReadFile(plain.Path(slip.file));
        const std::string mended = Mended(text, plain.Run()["findings"]);
        EXPECT_NE(mended, text) << slip.wrong;
        for (const SlipCheck::Stored form : forms) {
            SlipCheck check(slip, form);
            check.Run({"--fix"});
            EXPECT_EQ(HexText(ReadFile(check.Path(slip.file))), HexText(form(mended))) << slip.wrong;
        }
    }
}

TEST(Mend, PiecesThatDoNotFitTheirFileAreRefused) {
    const std::string mark = kUtf8Mark;
    const std::string noPlace = "its place is not in the file";
    const std::string touched = "another mend changes the same place; check again behind it";
    const struct {
        std::string bytes;
        std::vector<Piece> pieces;
        std::string refusal;
        std::string mended;  // where nothing is refused
    } rows[] = {
        {"ab\r\ncd", {{1, 2, 1, "x"}}, "", "ax\r\ncd"},
        {"ab\r\ncd", {{1, 3, 0, "x"}}, "", "abx\r\ncd"},
        {"ab\r\ncd", {{1, 3, 1, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{1, 4, 0, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{3, 1, 0, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{0, 1, 0, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{1, 0, 0, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{1, 1, -1, "x"}}, noPlace, ""},
        {"ab\r\ncd", {{1, 1, 0, "\xC3\xA4"}}, noPlace, ""},
        {"a\rb\n", {{2, 1, 1, "x\n"}}, "", "a\rx\n\n"},
        {"a", {{1, 1, 0, "x\n"}}, "", "x\na"},
        {{"\xFE\xFF\0a", 4}, {{1, 1, 0, "x\n"}}, "", {"\xFE\xFF\0x\0\n\0a", 8}},
        {"a b", {{1, 3, 1, "y"}, {1, 1, 1, "x"}}, "", "x y"},
        {"ab", {{1, 1, 1, "x"}, {1, 1, 1, "x"}}, "", "xb"},
        {"ab", {{1, 1, 1, "x"}, {1, 1, 1, "y"}}, touched, ""},
        {"ab", {{1, 1, 1, "x"}, {1, 2, 1, "y"}}, touched, ""},
        {"a", {{1, 1, 0, mark}}, "", mark + "a"},
        {mark + "a", {{1, 1, 0, mark}}, "the file has a mark of its encoding", ""},
        {{"\xFF\xFE\x3D\xD8\0\xDE"
          "a\0",
          8},
         {{1, 2, 1, "b"}},
         "",
         {"\xFF\xFE\x3D\xD8\0\xDE"
          "b\0",
          8}},
        {"<?xml version='1.0' encoding='Shift_JIS'?>\n<a>\x83\x41</a>",
         {{2, 2, 1, "b"}},
         "characters of its line have several bytes in the encoding of the file, so mend it by hand",
         ""},
    };
    for (const auto& row : rows) {
        MendedBytes file(row.bytes);
        EXPECT_EQ(file.Add(row.pieces), row.refusal) << row.bytes;
        EXPECT_EQ(HexText(file.New()), HexText(row.refusal.empty() ? row.mended : row.bytes));
    }
}

class Mends : public testing::Test {
  protected:
    static constexpr const char* kHead = "[general]\nprogramID=9FFFFF5014030401\n";

    Answer Check(const std::string& path, std::vector<std::string> more) {
        more.insert(more.begin(), {"check", "--catalogDir", TOVAREK_CATALOG, "--iniTemplateFile", path,
                                   "--mustGenerateTypes", "false", "--mustGenerateXif", "false"});
        return Call(std::move(more));
    }
    std::string Template(const std::string& more) { return scratch_.File("t.ini", kHead + more); }

    Scratch scratch_;
};

TEST_F(Mends, AreToldWithWhatRemains) {
    const std::string path = Template("selfDok=x\nselfDoc=y\nselfDoc=z\nnote=1\n");
    const Answer answer = Check(path, {"--fix"});
    EXPECT_EQ(answer.out, path + ":5:1: mended: \"selfDoc=z\" is now \";selfDoc=z\" [duplicate-key]\n" +
                              path +
                              ":3:1: warning: \"selfDok\" is not read: [general] has no key of this name "
                              "[ignored-key]\n    selfDok=x\n    ^~~~~~~\n" +
                              path +
                              ":6:1: warning: \"note\" is not read: [general] has no key of this name "
                              "[ignored-key]\n    note=1\n    ^~~~\n0 errors, 2 warnings, 1 mend\n");
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(Check(path, {"--fix", "--warnings-as-errors"}).status, 1);
}

TEST_F(Mends, OfATrialAreADiffAndNothingIsWritten) {
    const std::string text = "selfDoc=y\r\n; 4\n; 5\n; 6\n; 7\n; 8\n; 9\n; 10\n; 11\nselfDoc=z";
    const std::string path = Template("[nvs]\nnumberOfStaticNvs=0\n[general]\n" + text);
    WriteFile(path, kHead + text);
    const Answer answer = Check(path, {"--fix", "--dry-run"});
    // Programs that apply it know one separator.
    std::string name = path;
    std::replace(name.begin(), name.end(), '\\', '/');
    EXPECT_EQ(answer.out,
              "--- " + name + "\n+++ " + name +
                  "\n@@ -9,4 +9,4 @@\n ; 9\n ; 10\n ; 11\n-selfDoc=z\n\\ No newline at end of file\n"
                  "+;selfDoc=z\n\\ No newline at end of file\n");
    EXPECT_EQ(ReadFile(path), kHead + text);
    const Json json = Json::parse(Check(path, {"--fix", "--dry-run", "--format", "json"}).out);
    EXPECT_EQ(json["diff"], answer.out);
    EXPECT_EQ(json["findings"], Json::array());
    EXPECT_EQ(Check(path, {"--dry-run"}).status, 2);
    EXPECT_EQ(Check(path, {"--fix", "--dry-run", "--format", "sarif"}).status, 2);
}

TEST_F(Mends, OfATrialStandInOneHunkWhereTheirSurroundingsMeet) {
    for (const auto& [between, hunks] : {std::pair{6, 1}, {7, 2}}) {
        std::string text = "selfDoc=y\nselfDoc=z\n";
        for (int line = 0; line < between; ++line)
            text += "; between\n";
        const std::string diff = Check(Template(text + "selfDoc=z\n"), {"--fix", "--dry-run"}).out;
        int found = 0;
        for (std::size_t at = diff.find("@@ -"); at != std::string::npos; at = diff.find("@@ -", at + 1))
            ++found;
        EXPECT_EQ(found, hunks) << diff;
    }
}

TEST_F(Mends, OfWhatIsMeantAreNotMade) {
    const std::string text = "selfDoc=y\nselfDoc=z\n";
    const std::string path = Template(text);
    Check(path, {"--fix", "--ignore", "duplicate-key"});
    EXPECT_EQ(ReadFile(path), kHead + text);
    // The second one is a note of the missing value that it explains.
    for (const char* meant :
         {"selfDoc=y\n; tovarek: ignore duplicate-key\nselfDoc=z\n",
          "[tags]\nnumberOfTags=1\n[tag1]\nname=t\n; tovarek: ignore ignored-key\nbindable 1\n"}) {
        Check(Template(meant), {"--fix"});
        EXPECT_EQ(ReadFile(path), std::string(kHead) + meant);
    }
}

TEST_F(Mends, KeepRightsAndLinksAndWhatIsProtected) {
    namespace fs = std::filesystem;
    const std::string path = Template("selfDoc=y\nselfDoc=z\n");
    const std::string old = ReadFile(path);
    const auto readOnly = fs::perms::owner_read | fs::perms::group_read;
    fs::permissions(path, readOnly);
    const Answer refused = Check(path, {"--fix"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.out.find("not mended: the file cannot be changed: Permission denied"),
              std::string::npos)
        << refused.out;
    EXPECT_EQ(ReadFile(path), old);
    if (kIsWindows)
        return fs::permissions(path, fs::perms::all);
    const auto odd = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read;
    fs::permissions(path, odd);
    const std::string link = scratch_.Path("link.ini");
    fs::create_symlink("t.ini", link);
    EXPECT_EQ(Check(link, {"--fix"}).status, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_NE(ReadFile(path), old);
    EXPECT_EQ(fs::status(path).permissions(), odd);
    EXPECT_EQ(DirectoryEntries(scratch_.Folder()).size(), 2U) << "nothing is left beside it";
}

TEST_F(Mends, LeaveFilesAloneThatChangedOrAreNoInputs) {
    const std::string path = scratch_.File("t.ini", "a=1\n");
    const CheckedFinding finding{.context = {.file = path, .line = 1}, .mend = {{1, 1, 0, ";"}}};
    FileStamps stamps;
    EXPECT_EQ(MendFindings({finding}, stamps, false).left.at(0).refusal, "the file is no input of the job");
    AddStamps({path}, stamps);
    WriteFile(path, "a=12\n");
    AddStamps({path}, stamps);
    EXPECT_EQ(MendFindings({finding}, stamps, false).left.at(0).refusal,
              "the file has changed since it was checked");
    EXPECT_EQ(ReadFile(path), "a=12\n");
}

}  // namespace
}  // namespace tovarek::test
