// Damaged files: every cut is noticed, every change of a byte that counts as well, and no change makes a
// reader crash or run away, also where the checksums were made right again.
#include <random>

#include "Fixtures.h"
#include "formats/records/Crc16.h"
#include "formats/type/TypeFileView.h"
#include "system/CodePage.h"

namespace tovarek::test {
namespace {

std::int32_t ReadAs(std::size_t kind, std::string_view bytes) {
    LanguageFile language;
    TypeFile types;
    ProfileFile profiles;
    switch (kind) {
        case 0:
            return ReadLanguageFile(bytes, language).code;
        case 1:
            return ReadTypeFile(bytes, types).code;
        default:
            return ReadProfileFile(bytes, profiles).code;
    }
}

// Our own files, then the samples, with their kind.
std::vector<std::pair<std::size_t, std::string>> AllFiles() {
    std::vector<std::pair<std::size_t, std::string>> files;
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind)
        files.emplace_back(kind, own[kind]);
    const char* extensions[] = {".enu", ".typ", ".fpt"};
    for (std::size_t kind = 0; kind < 3; ++kind)
        for (const std::string& path : Samples(extensions[kind]))
            files.emplace_back(kind, ReadFile(path));
    return files;
}

TEST(Damage, EveryCutIsNoticed) {
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind) {
        for (std::size_t length = 0; length < own[kind].size(); ++length) {
            ASSERT_NE(ReadAs(kind, std::string_view(own[kind]).substr(0, length)), 0)
                << kind << ' ' << length;
        }
    }
}

TEST(Damage, EveryBitThatAChecksumCoversIsNoticed) {
    const std::vector<std::string> own = ExampleBytes();
    for (std::size_t kind = 0; kind < own.size(); ++kind) {
        const std::size_t headerEnd = NumberAt(own[kind], 0x314);
        const std::size_t data = kind == 2 ? own[kind].size() : NumberAt(own[kind], 0x31A);
        for (std::size_t i = 0; i < own[kind].size() - 1; ++i) {
            if (i >= headerEnd && i < data)
                continue;  // room for the tables, or the two bytes behind a file without records
            std::string bytes = own[kind];
            bytes[i] = static_cast<char>(bytes[i] ^ (1 << (i % 8)));
            ASSERT_NE(ReadAs(kind, bytes), 0) << kind << ' ' << i;
        }
    }
}

TEST(Damage, CodesTellWhatIsWrong) {
    const std::vector<std::string> own = ExampleBytes();
    EXPECT_EQ(ReadAs(0, ""), 5);
    EXPECT_EQ(ReadAs(0, std::string(5000, 'x')), 5);
    EXPECT_EQ(ReadAs(0, own[1]), 12);
    std::string bytes = own[1];
    bytes[0x500] ^= 1;
    EXPECT_EQ(ReadAs(1, bytes), 10);
    bytes = own[1];
    bytes[0x312] = 5;
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 7);
    bytes = own[1];
    bytes[0x348] = 3;  // more NV types than the tables hold
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 6);
    bytes = own[1];
    bytes[0x48A] = 2;  // the first record gives another number
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 20);
    bytes = own[1];
    Put32(bytes, 0x31E, 1);  // a data section without room for its checksum
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 6);
    bytes = own[2];
    const std::size_t headerEnd = NumberAt(bytes, 0x314);
    bytes.resize(headerEnd);
    bytes.append(3, '\0');
    Put32(bytes, 0x31E, 2);
    for (const auto& [start, code] : {std::pair{headerEnd, 0}, {headerEnd - 1, 6}}) {
        Put32(bytes, 0x31A, start);
        Repair(bytes);
        EXPECT_EQ(ReadAs(2, bytes), code) << "the data section begins at the header's end or behind it";
    }
    bytes = own[0];
    bytes[0x367 + 1] ^= 1;  // the checksum of a string
    Repair(bytes);
    EXPECT_EQ(ReadAs(0, bytes), 10);
}

TEST(Damage, RecordsEndWithTheirDataSection) {
    TypeFile types = MakeExampleSet().types;
    types.enumerations.clear();
    types.cpTypes.clear();
    types.nvTypes.resize(1);
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    std::string longer = bytes;
    ++longer[NumberAt(longer, 0x31A) + 2 + 3];
    Repair(longer);
    EXPECT_EQ(ReadAs(1, longer), 20) << "by one byte, which the file has";
    bytes[0x352] = 1;  // one deleted enumeration of none
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 6);
}

TEST(Damage, APropertyIsWholeAndHasNoFlagsBeyondItsLimits) {
    TypeFile types = MakeExampleSet().types;
    types.enumerations.clear();
    types.nvTypes.clear();
    types.cpTypes.resize(1);
    CpType& property = *types.cpTypes[0];
    property.minimum = property.maximum = std::nullopt;
    property.initial.assign(property.size, '\x5A');
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    ASSERT_EQ(ReadAs(1, bytes), 0);
    std::string cut = bytes;
    cut[NumberAt(cut, 0x31A) + 2 + 3] -= static_cast<char>(property.size + 2);
    Repair(cut);
    EXPECT_EQ(ReadAs(1, cut), 20) << "the description ends before its last byte";
    bytes[bytes.find(property.initial) - 1] |= 0x04;
    Repair(bytes);
    EXPECT_EQ(ReadAs(1, bytes), 20);
}

// What follows a member in its record belongs to the next one, and behind the last one to nobody.
TEST(Damage, MembersOfAProfileEndWithTheirLength) {
    ProfileFile file = MakeExampleSet().profiles;
    file.profiles.resize(1);
    Profile& profile = file.profiles[0].emplace();
    profile.name = "UFPTx";
    profile.nvs.emplace_back().name = "member";
    std::string bytes;
    ASSERT_TRUE(WriteProfileFile(file, bytes).Ok());
    ASSERT_EQ(ReadAs(2, bytes), 0);
    --bytes[bytes.find("member") - 4];
    Repair(bytes);
    EXPECT_EQ(ReadAs(2, bytes), 13);

    profile.nvs.clear();
    profile.cps.emplace_back().name = "member";
    ASSERT_TRUE(WriteProfileFile(file, bytes).Ok());
    ASSERT_EQ(ReadAs(2, bytes), 0);
    --bytes[bytes.find("member") - 10];
    Repair(bytes);
    EXPECT_EQ(ReadAs(2, bytes), 13);
}

// Lets the tables of the header name the record at `to` where they name the one at `from`.
void Redirect(std::string& bytes, std::size_t from, std::size_t to) {
    for (std::size_t i = 0x32A; i + 4 <= NumberAt(bytes, 0x314); ++i)
        if (NumberAt(bytes, i) == from)
            Put32(bytes, i, to);
    Repair(bytes);
}

// Records may not overlap: 65,535 table entries over one small data section would multiply the work. Here a
// sound record lies inside another one. Both together have one byte more than the data section.
TEST(Damage, OverlappingRecordsDoNotMultiplyTheWork) {
    LanguageFile language;
    language.header.title = TitleText(ResourceKind::language, 1, 0);
    language.language = "enu";
    std::string inner = std::string(13, 'x') + '\0';
    std::string head("\0\0\2\0\x11??\0", 8);
    Put16(head, 5, Crc16(inner));
    inner.insert(0, head);
    language.strings = {FromCodePage(inner), ""};
    std::string bytes;
    ASSERT_TRUE(WriteLanguageFile(language, bytes).Ok());
    ASSERT_EQ(ReadAs(0, bytes), 0);
    const std::size_t first = NumberAt(bytes, 0x31A) + 2;
    ASSERT_EQ(4 + inner.size() + 17, NumberAt(bytes, 0x31E) + 1);
    Redirect(bytes, first + 5 + 4 + inner.size(), first + 5 + 3);
    EXPECT_EQ(ReadAs(0, bytes), 13);

    TypeFile types = MakeExampleSet().types;
    types.enumerations.clear();
    types.nvTypes.resize(1);
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    const std::size_t record = NumberAt(bytes, 0x31A) + 2;
    const std::size_t length = static_cast<unsigned char>(bytes[record + 3]);
    inner = bytes.substr(record, 4 + length) + std::string(11, '\0');
    inner[3] = static_cast<char>(length + 11);
    CpType& property = *types.cpTypes[0];
    property.size = static_cast<std::uint16_t>(inner.size());
    property.initial = inner;
    property.minimum.reset();
    property.maximum.reset();
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    TypeFileView view;
    ASSERT_TRUE(TypeFileView::Open(bytes, view).Ok());
    Redirect(bytes, record, bytes.find(inner));
    EXPECT_EQ(TypeFileView::Open(bytes, view).code, 20);
    Redirect(bytes, bytes.find(inner), 1);
    EXPECT_EQ(TypeFileView::Open(bytes, view).code, 20) << "no record stands in the header";
}

TEST(Damage, RandomChangesNeverCrashAReader) {
    std::mt19937 random(20260101);
    const auto files = AllFiles();
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        const auto& [kind, original] = files[random() % files.size()];
        std::string bytes = original;
        const std::size_t data = std::min<std::size_t>(NumberAt(bytes, 0x31A), bytes.size() - 1);
        for (auto change = random() % 6 + 1; change > 0; --change) {
            const std::size_t from = random() % 4 == 0 ? 0x300 : data;
            const std::size_t position = from + random() % (bytes.size() - from);
            const unsigned interesting[] = {0, 1, 0x7F, 0x80, 0xFF, static_cast<unsigned>(random())};
            bytes[position] = static_cast<char>(interesting[random() % 6]);
        }
        if (random() % 8 == 0)
            bytes.resize(random() % bytes.size());
        if (bytes.size() > 0x400)
            Repair(bytes);
        accepted += ReadAs(kind, bytes) == 0 ? 1 : 0;
        FormatFile formats;
        ReadFormatFile(std::string_view(bytes).substr(bytes.size() / 2), formats);
    }
    EXPECT_GT(accepted, 100) << "the changes must get past the checksums";
}

TEST(Damage, RandomTextNeverCrashesTheFormatReader) {
    std::mt19937 random(7);
    const std::string pieces[] = {"T",    ": ",  "text(", "\"",     "%d",  "%",   ",",     ")",
                                  ";",    "!",   "\n",    "*",      "1.8", "+",   "(0:1)", "#",
                                  "set ", "int", "\\",    "a.b[1]", "!=",  "\x1A"};
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto i = random() % 30; i > 0; --i)
            text += pieces[random() % std::size(pieces)];
        FormatFile file;
        if (ReadFormatFile(text, file).Ok())
            WriteFormatFile(file);
    }
}

}  // namespace
}  // namespace tovarek::test
