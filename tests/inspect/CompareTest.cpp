// Differences: none where the content is the same, one line where one value differs.
#include <gtest/gtest.h>

#include "Fixtures.h"
#include "formats/format/FormatFile.h"
#include "inspect/InspectText.h"

namespace tovarek::test {
namespace {

template <class File>
std::vector<Difference> Between(Outcome (*writer)(const File&, std::string&), const File& before,
                                const File& after) {
    const Scratch scratch;
    return Compare(InspectFile(scratch.File("a", BytesOf(writer, before)), nullptr).tree,
                   InspectFile(scratch.File("b", BytesOf(writer, after)), nullptr).tree);
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
        WriteTypeFile, SmallTypes(),
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
        WriteLanguageFile, SmallLanguage(),
        {{"strings[5].text", "Belt speed", "Belt", [](LanguageFile& file) { file.strings[4] = "Belt"; }},
         {"language", "enu", "deu", [](LanguageFile& file) { file.language = "deu"; }}});
    ExpectSingle<ProfileFile>(
        WriteProfileFile, SmallProfiles(),
        {{"profiles[1].key", "20000", "20001", [](ProfileFile& file) { file.profiles[0]->key = 20001; }},
         {"profiles[1].networkVariables[1].direction", "input", "output",
          [](ProfileFile& file) { file.profiles[0]->nvs[0].isInput = false; }},
         {"profiles[1].configurationProperties[1].rawMinimum", "none", "00 01",
          [](ProfileFile& file) { file.profiles[0]->cps[0].values.minimum = std::string("\0\1", 2); }}});
}

TEST(CompareFiles, DatesDoNotCount) {
    TypeFile later = SmallTypes();
    later.header.saved.year = 2030;
    EXPECT_TRUE(Between(WriteTypeFile, SmallTypes(), later).empty());
    const Scratch scratch;
    std::string xif(kSmallXif);
    const std::string a = scratch.File("a", xif);
    xif.replace(xif.find("Tue Feb 29"), 10, "Wed Mar 01");
    xif.replace(xif.find("# a comment"), 11, "# remarks !");
    const std::string b = scratch.File("b", xif);
    EXPECT_TRUE(Compare(InspectFile(a, nullptr).tree, InspectFile(b, nullptr).tree).empty());
    xif.replace(xif.find("78125"), 5, "78126");
    const std::string c = scratch.File("c", xif);
    const std::vector<Difference> differences =
        Compare(InspectFile(a, nullptr).tree, InspectFile(c, nullptr).tree);
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].path, "parameters.line9.channelBitsRate");
}

std::vector<Difference> BetweenXifs(const std::string& before, const std::string& after) {
    const Scratch scratch;
    return Compare(InspectFile(scratch.File("a", before), nullptr).tree,
                   InspectFile(scratch.File("b", after), nullptr).tree);
}

// The name stands in the first line of an XIF file, and as that of the enumerations' file in a type file.
TEST(CompareFiles, TheirOwnNamesDoNotCount) {
    std::string xif(kSmallXif);
    xif.replace(xif.find("belt.xif"), 8, "pump.xif");
    EXPECT_TRUE(BetweenXifs(std::string(kSmallXif), xif).empty());
    const Scratch scratch;
    std::vector<Inspection> sets;
    for (const char* set : {"belt", "pump_3", "gear"}) {
        TypeFile types = SmallTypes();
        types.enumerations[0]->fileName = std::string(set).substr(0, 4) + ".h";
        const std::string path = scratch.File(set + std::string(".typ"), BytesOf(WriteTypeFile, types));
        sets.push_back(InspectFile(path, nullptr));
    }
    EXPECT_TRUE(Compare(sets[0].tree, sets[1].tree).empty());
    sets[2] = InspectFile(scratch.File("own.typ", ReadFile(scratch.Path("gear.typ"))), nullptr);
    const std::vector<Difference> differences = Compare(sets[0].tree, sets[2].tree);
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].path, "enumerations[1].fileName");
    EXPECT_EQ(ValueText(differences[0].before), "belt.h");
    EXPECT_EQ(ValueText(differences[0].after), "gear.h");
}

// Behind the numbers stand the texts of the language files.
TEST(CompareFiles, ReferencesToStringsCountByTheirTexts) {
    const std::string longText(300, 'x');
    const auto tree = [](const std::vector<std::optional<std::string>>& strings, std::uint32_t unit,
                         std::uint32_t creator = 7) {
        const Scratch scratch;
        LanguageFile language = SmallLanguage();
        language.strings = strings;
        scratch.File("belt.enu", BytesOf(WriteLanguageFile, language));
        TypeFile types;
        types.header = SmallHeader(ResourceKind::type);
        types.header.description = {3, 1};
        types.header.creator = {0, creator};
        types.nvTypes = {NvType{.name = "_a", .size = 1, .nameText = {3, 1}, .unit = {3, unit}}};
        types.nvTypes[0]->type = NumberOfKind(TypeKind::unsignedShort);
        return InspectFile(scratch.File("belt.typ", BytesOf(WriteTypeFile, types)), nullptr).tree;
    };
    const InspectNode before = tree({"Belt", "m/s", longText}, 2);
    EXPECT_TRUE(Compare(before, tree({"Belt", longText, "m/s"}, 3)).empty());
    struct Case {
        std::vector<std::optional<std::string>> strings;
        std::uint32_t unit;
        const char* path;
        std::string old;
        std::string now;
    };
    for (const Case& each :
         std::vector<Case>{{{"Belt", "km/h"}, 2, "nvTypes[1].unitText", "m/s", "km/h"},
                           {{"Belt", "m/s", longText}, 3, "nvTypes[1].unitText", "m/s", longText},
                           {{"Belt", "m/s"}, 4, "nvTypes[1].unitString", "3-2", "3-4"}}) {
        const std::vector<Difference> differences = Compare(before, tree(each.strings, each.unit));
        ASSERT_EQ(differences.size(), 1U) << each.now;
        EXPECT_EQ(differences[0].path, each.path);
        EXPECT_EQ(ValueText(differences[0].before), each.old);
        EXPECT_EQ(ValueText(differences[0].after), each.now);
    }
    EXPECT_EQ(Compare(tree({longText + 'a'}, 0), tree({longText + 'b'}, 0)).size(), 2U)
        << "name, description";
    EXPECT_EQ(Compare(tree({"Belt", "Belt"}, 0, 1), tree({"Belt", "Belt"}, 0, 2)).size(), 1U)
        << "a standard text, whatever the set's own texts of these numbers are";
}

TEST(CompareFiles, ValuesOfPropertiesAreComparedOneByOne) {
    std::string before(kSmallXif);
    const std::string old = "\"1,0,0\\x80,49,2,,0:600;\r\n";
    before.replace(before.find(old), old.size(),
                   "\"1,0,0\\x80,49,2;nciBeat\"\r\n\"1,1,6\\xA4,1,2,3;\"\r\n"
                   "\"0,,0\\x80,24,1;\"\r\n");
    const std::string values = "FILE value 1 1 2\r\n0x0258\r\n";
    before.replace(before.find(values), values.size(),
                   "FILE value 1 1\r\n0x0258 1F\r\n\r\nFILE readOnly 2 1\r\n0x010203040506\r\n");
    struct Case {
        const char* from;
        const char* to;
        const char* path;
        const char* old;
        const char* now;
    };
    for (const Case& each :
         std::vector<Case>{{"0x0258", "0x0259", "files[value].values[nciBeat].bytes", "02 58", "02 59"},
                           {"58 1F", "58 20", "files[value].values[0,,0,24].bytes", "1F", "20"},
                           {"0x010203", "0x010204", "files[readOnly].values[1,1,6,1].bytes",
                            "01 02 03 04 05 06", "01 02 04 04 05 06"},
                           {"58 1F", "58", "files[value].bytes", "02 58 1F", "02 58"},
                           {"49,2;", "48,2;", "files[template].properties[nciBeat].type", "49", "48"},
                           {"\t0506", "\t0406", "defaultValues.variables[nciLimits].bytes",
                            "01 02 03 04 05 06 07 08", "01 02 03 04 04 06 07 08"}}) {
        std::string after = before;
        after.replace(after.find(each.from), std::string_view(each.from).size(), each.to);
        const std::vector<Difference> differences = BetweenXifs(before, after);
        ASSERT_FALSE(differences.empty()) << each.to;
        EXPECT_EQ(differences[0].path, each.path);
        EXPECT_EQ(ValueText(differences[0].before), each.old);
        EXPECT_EQ(ValueText(differences[0].after), each.now);
        EXPECT_EQ(differences.size(), differences[0].path == "files[value].bytes" ? 2U : 1U) << each.to;
    }
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
    const std::vector<std::string> paths = SampleFiles("resources");
    if (paths.empty())
        GTEST_SKIP() << "no samples";
    for (const std::string& path : paths) {
        const Inspection before = InspectFile(path, nullptr);
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
            Compare(before.tree, InspectFile(scratch.File("copy.fmt", bytes), nullptr).tree);
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
}  // namespace tovarek::test
