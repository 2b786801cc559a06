// Differences: none where the content is the same, one line where one value differs.
#include <gtest/gtest.h>

#include "Fixtures.h"
#include "control/FormatFile.h"
#include "inspect/InspectText.h"

namespace tovarek {
namespace {

using test::Scratch;

template <class File>
std::vector<Difference> Between(Outcome (*writer)(const File&, std::string&), const File& before,
                                const File& after) {
    const Scratch scratch;
    return Compare(InspectAlone(scratch.File("a", test::BytesOf(writer, before))).tree,
                   InspectAlone(scratch.File("b", test::BytesOf(writer, after))).tree);
}

// Applies one change and expects it, and nothing else, at `path`.
template <class File>
struct Change {
    const char* path;
    const char* before;
    const char* after;
    void (*make)(File& file);
};

template <class File>
void ExpectSingle(Outcome (*writer)(const File&, std::string&), const File& file,
                  const std::vector<Change<File>>& changes) {
    EXPECT_TRUE(Between(writer, file, file).empty());
    for (const Change<File>& change : changes) {
        File changed = file;
        change.make(changed);
        const std::vector<Difference> differences = Between(writer, file, changed);
        ASSERT_EQ(differences.size(), 1U) << change.path;
        EXPECT_EQ(differences[0].path, change.path);
        EXPECT_EQ(ValueText(differences[0].before), change.before) << change.path;
        EXPECT_EQ(ValueText(differences[0].after), change.after) << change.path;
    }
}

TEST(CompareFiles, OneChangeOfATypeFileIsOneDifference) {
    ExpectSingle<TypeFile>(
        WriteTypeFile, test::SmallTypes(),
        {{"header.version", "1.05", "2.05",
          [](TypeFile& file) {
              file.header.majorVersion = 2;
              file.header.title = TitleText(ResourceKind::type, 2, 5);
          }},
         {"header.scope", "3", "4", [](TypeFile& file) { file.header.scope = 4; }},
         {"nvTypes[1].name", "UNVT_beltSpeed", "UNVT_speed",
          [](TypeFile& file) { file.nvTypes[0]->name = "_speed"; }},
         {"nvTypes[1].unitString", "3-6", "3-7", [](TypeFile& file) { file.nvTypes[0]->unit.number = 7; }},
         {"nvTypes[1].type.rawMaximum", "1200", "1201",
          [](TypeFile& file) { file.nvTypes[0]->type.maximum = 1201; }},
         {"nvTypes[1].type.scaling.a", "5", "1", [](TypeFile& file) { file.nvTypes[0]->type.a = 1; }},
         {"nvTypes[1].type.rawInvalid", "none", "32767",
          [](TypeFile& file) { file.nvTypes[0]->type.invalid = 32767; }},
         {"nvTypes[3].type.members[temp].target", "0-105", "0-39",
          [](TypeFile& file) { file.nvTypes[2]->type.members[3].type.target.index = 39; }},
         {"nvTypes[3].type.members[label].count", "6", "7",
          [](TypeFile& file) { file.nvTypes[2]->type.members[2].type.count = 7; }},
         {"nvTypes[3].type.members.order", "mode, gear, label, temp", "gear, mode, label, temp",
          [](TypeFile& file) {
              std::swap(file.nvTypes[2]->type.members[0], file.nvTypes[2]->type.members[1]);
          }},
         {"cpTypes[1].rawDefault", "02 58", "02 59",
          [](TypeFile& file) { file.cpTypes[0]->initial = "\x02\x59"; }},
         {"enumerations[1].values[BM_ON].value", "1", "2",
          [](TypeFile& file) { file.enumerations[0]->values[1].value = 2; }},
         {"enumerations[1].values[BM_ON]", "value 1, name BM_ON, descriptionString 3-7", "none",
          [](TypeFile& file) { file.enumerations[0]->values.pop_back(); }},
         {"nvTypes[4]", "none", "number 4, deleted yes",
          [](TypeFile& file) { file.nvTypes.emplace_back(std::nullopt); }}});
}

TEST(CompareFiles, OneChangeOfTheOtherFilesIsOneDifference) {
    ExpectSingle<LanguageFile>(
        WriteLanguageFile, test::SmallLanguage(),
        {{"strings[5].text", "Belt speed", "Belt", [](LanguageFile& file) { file.strings[4] = "Belt"; }},
         {"language", "enu", "deu", [](LanguageFile& file) { file.language = "deu"; }}});
    ExpectSingle<ProfileFile>(
        WriteProfileFile, test::SmallProfiles(),
        {{"profiles[1].key", "20000", "20001", [](ProfileFile& file) { file.profiles[0]->key = 20001; }},
         {"profiles[1].networkVariables[1].direction", "input", "output",
          [](ProfileFile& file) { file.profiles[0]->nvs[0].isInput = false; }},
         {"profiles[1].configurationProperties[1].rawMinimum", "none", "00 01",
          [](ProfileFile& file) { file.profiles[0]->cps[0].values.minimum = std::string("\0\1", 2); }}});
}

TEST(CompareFiles, DatesDoNotCount) {
    TypeFile later = test::SmallTypes();
    later.header.saved.year = 2030;
    EXPECT_TRUE(Between(WriteTypeFile, test::SmallTypes(), later).empty());
    const Scratch scratch;
    std::string xif(test::kSmallXif);
    const std::string a = scratch.File("a", xif);
    xif.replace(xif.find("Tue Feb 29"), 10, "Wed Mar 01");
    xif.replace(xif.find("# a comment"), 11, "# remarks !");
    const std::string b = scratch.File("b", xif);
    EXPECT_TRUE(Compare(InspectAlone(a).tree, InspectAlone(b).tree).empty());
    xif.replace(xif.find("78125"), 5, "78126");
    const std::string c = scratch.File("c", xif);
    const std::vector<Difference> differences = Compare(InspectAlone(a).tree, InspectAlone(c).tree);
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].path, "parameters.line9.channelBitsRate");
}

// Writing a file anew drops dead space and moves every record; the content stays.
TEST(CompareFiles, ARewrittenSampleIsTheSame) {
    const Scratch scratch;
    const auto rewrite = [](auto reader, auto writer, auto file, std::string& bytes) {
        std::string written;
        EXPECT_TRUE(reader(bytes, file).Ok());
        EXPECT_TRUE(writer(file, written).Ok());
        bytes = written;
    };
    const std::vector<std::string> paths = test::SampleFiles("resources");
    if (paths.empty())
        GTEST_SKIP() << "no samples";
    for (const std::string& path : paths) {
        const Inspection before = InspectAlone(path);
        std::string bytes = ReadFile(path);
        if (before.kind == FileKind::type) {
            rewrite(ReadTypeFile, WriteTypeFile, TypeFile(), bytes);
        } else if (before.kind == FileKind::language) {
            rewrite(ReadLanguageFile, WriteLanguageFile, LanguageFile(), bytes);
        } else if (before.kind == FileKind::profile) {
            rewrite(ReadProfileFile, WriteProfileFile, ProfileFile(), bytes);
        } else {
            FormatFile formats;
            ASSERT_TRUE(ReadFormatFile(bytes, formats).Ok());
            bytes = WriteFormatFile(formats);
        }
        const std::vector<Difference> differences =
            Compare(before.tree, InspectAlone(scratch.File("copy.fmt", bytes)).tree);
        EXPECT_TRUE(differences.empty()) << path << ' ' << differences[0].path;
    }
}

TEST(CompareTrees, ItemsOfOneNameAreMatchedInTheirOrder) {
    const auto list = [](const std::vector<std::pair<std::string, int>>& items) {
        InspectNode node = InspectNode::List("");
        for (const auto& [name, value] : items)
            node.Number(name, value);
        return node;
    };
    const InspectNode before = list({{"a", 1}, {"a", 2}, {"", 3}, {"a#2", 4}});
    EXPECT_TRUE(Compare(before, list({{"", 3}, {"a", 1}, {"a", 2}, {"a#2", 4}})).empty());
    const std::vector<Difference> differences = Compare(before, list({{"a", 1}, {"a", 5}, {"a#2", 4}}));
    ASSERT_EQ(differences.size(), 2U);
    EXPECT_EQ(differences[0].path, "[a#2]");
    EXPECT_EQ(differences[1].path, "[#1]");
}

}  // namespace
}  // namespace tovarek
