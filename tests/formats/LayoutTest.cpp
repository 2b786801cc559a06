// The pieces of the format one by one: checksum, ranges, sizes, the order of sorted tables.
#include <functional>
#include <limits>

#include "Fixtures.h"
#include "formats/records/Crc16.h"
#include "formats/records/ResourceFile.h"
#include "formats/type/TypeDescriptionCodec.h"

namespace tovarek::test {
namespace {

std::string Encoded(const TypeDescription& type) {
    ByteWriter record;
    EXPECT_TRUE(WriteDescription(type, record));
    return record.Take();
}

TypeDescription Bits(int offset, int width, bool isSigned = false) {
    TypeDescription type;
    type.kind = TypeKind::bitField;
    type.bitOffset = static_cast<std::uint8_t>(offset);
    type.bitWidth = static_cast<std::uint8_t>(width);
    type.bitSigned = isSigned;
    type.minimum = SmallestRaw(type);
    type.maximum = LargestRaw(type);
    return type;
}

TypeDescription Group(TypeKind kind, const std::vector<TypeDescription>& members) {
    TypeDescription type;
    type.kind = kind;
    for (const TypeDescription& member : members)
        type.members.push_back({"m", {}, {}, {}, member});
    return type;
}

TEST(Layout, ChecksumVectors) {
    EXPECT_EQ(Crc16(""), 0x0000);
    EXPECT_EQ(Crc16(std::string(1, '\0')), 0x0000);
    EXPECT_EQ(Crc16("123456789"), 0xBB3D);
    EXPECT_EQ(Crc16(std::string("A\0", 2)), 0x5030);
    EXPECT_EQ(Crc16(std::string("m/s\0", 4)), 0x5508);
    EXPECT_EQ(Crc16("56789", Crc16("1234")), 0xBB3D) << "in pieces";
}

TEST(Layout, RangesTakeTheShortestForm) {
    EXPECT_EQ(Encoded(Ranged(TypeKind::unsignedShort, 0, 255)), Bytes("04 90 00"));
    EXPECT_EQ(Encoded(Ranged(TypeKind::signedShort, 0, 0)), Bytes("03 28 00"));
    EXPECT_EQ(Encoded(Ranged(TypeKind::signedLong, -1, 5)), Bytes("05 40 00 05 00"));
    EXPECT_EQ(Encoded(Ranged(TypeKind::unsignedShort, 0, 0)), Bytes("04 88 00")) << "the kind's limit wins";
    EXPECT_EQ(Encoded(Ranged(TypeKind::signedQuad, 1, 2)), Bytes("0D 00 00 00 00 01 00 00 00 02 00"));
    EXPECT_EQ(Encoded(Ranged(TypeKind::unsignedQuad, 0, 0xFFFFFFFE)), Bytes("0F 80 FF FF FF FE 00"));
    TypeDescription scaled = Ranged(TypeKind::unsignedLong, 0, 65535);
    scaled.c = -2740;
    EXPECT_EQ(Encoded(scaled), Bytes("06 91 F5 4C 00"));
    scaled.invalid = 65535;
    EXPECT_EQ(Encoded(scaled), Bytes("06 91 F5 4C 01 FF FF"));
    TypeDescription enumeration = Ranged(TypeKind::enumeration, -128, -1);
    enumeration.target = {6, 258};
    EXPECT_EQ(Encoded(enumeration), Bytes("07 06 01 02 80 FF"));
}

TEST(Layout, BitFieldsAndFloats) {
    EXPECT_EQ(Encoded(Bits(4, 4)), Bytes("0B 44 90"));
    EXPECT_EQ(Encoded(Bits(0, 8, true)), Bytes("0B 88 90"));
    TypeDescription narrow = Bits(0, 3, true);
    narrow.minimum = -1;
    EXPECT_EQ(Encoded(narrow), Bytes("0B 83 50"));
    EXPECT_EQ(Encoded(NumberOfKind(TypeKind::floatingPoint)), Bytes("0C 90 00"));
    TypeDescription limited = NumberOfKind(TypeKind::floatingPoint);
    limited.floatMinimum = 0;
    limited.floatMaximum = 1.5F;
    EXPECT_EQ(Encoded(limited), Bytes("0C 00 00 00 00 00 3F C0 00 00 00"));
    EXPECT_EQ(Encoded(TextOf(20, 3)), Bytes("08 00 14 03 00 00 00 03 00 00 00 03 00 00 00 02 90 00"));
}

TEST(Layout, WhatDoesNotFitTheFormatIsNeitherWrittenNorRead) {
    ByteWriter record;
    EXPECT_FALSE(WriteDescription(Ranged(TypeKind::signedShort, -129, 0), record));
    EXPECT_FALSE(WriteDescription(Bits(0, 9), record));
    TypeDescription deep = NumberOfKind(TypeKind::signedShort);
    for (int i = 0; i <= kDeepestNesting; ++i)
        deep = Group(TypeKind::structure, {deep});
    EXPECT_FALSE(WriteDescription(deep, record));
    deep = deep.members[0].type;
    ByteWriter deepest;
    ASSERT_TRUE(WriteDescription(deep, deepest));
    ByteReader reader(deepest.Bytes());
    EXPECT_EQ(ReadDescription(reader), deep);
    EXPECT_FALSE(reader.Failed());
    const TypeDescription inner = NumberOfKind(TypeKind::signedShort);
    std::string deeper = Encoded(Group(TypeKind::structure, {inner}));
    deeper.resize(deeper.size() - Encoded(inner).size());
    deeper += deepest.Bytes();
    ByteReader deeperReader(deeper);
    ReadDescription(deeperReader);
    EXPECT_TRUE(deeperReader.Failed());
    for (const char* width : {"0B 40 90", "0B 49 90"}) {
        const std::string bytes = Bytes(width);
        ByteReader bits(bytes);
        ReadDescription(bits);
        EXPECT_TRUE(bits.Failed()) << width;
    }
}

TEST(Layout, SizesFollowTheRulesOfTheFormat) {
    const TypeDescription byte = NumberOfKind(TypeKind::unsignedShort);
    const TypeDescription quad = NumberOfKind(TypeKind::signedQuad);
    EXPECT_EQ(SizeOf(Group(TypeKind::structure, {Bits(0, 1), Bits(1, 3), Bits(4, 4)})), 1U);
    EXPECT_EQ(SizeOf(Group(TypeKind::structure, {Bits(0, 4), Bits(0, 4), Bits(4, 4)})), 2U) << "equal offset";
    EXPECT_EQ(SizeOf(Group(TypeKind::structure, {Bits(4, 4), Bits(0, 4)})), 2U) << "smaller offset";
    EXPECT_EQ(SizeOf(Group(TypeKind::structure, {Bits(0, 4), byte, Bits(4, 4)})), 3U) << "interrupted";
    EXPECT_EQ(SizeOf(Group(TypeKind::unionKind, {byte, quad, Bits(0, 1)})), 4U);
    EXPECT_EQ(SizeOf(ArrayOf(Group(TypeKind::structure, {byte, quad}), 3, 0)), 15U);
    EXPECT_EQ(SizeOf(ArrayOf(quad, 65535, 0)), 65536U) << "answered as too large, not wrapped";
    EXPECT_EQ(SizeOf(ArrayOf(ArrayOf(quad, 65535, 0), 65535, 0)), 65536U);
}

TEST(Layout, SortedTablesCompareBytesAndFileNamesWithoutCase) {
    TypeFile file;
    for (const char* name : {"b", "_a", "a", "Z", "\xC3\xA9"})  // the last one is byte E9
        file.nvTypes.emplace_back(NvType{name, 1, {}, {}, {}, NumberOfKind(TypeKind::unsignedShort)});
    for (const char* name : {"b.h", "C.h", "A.h", "a.h"})
        file.enumerations.emplace_back(Enumeration{"e", name, {}});
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(file, bytes).Ok());
    const auto order = [&bytes](std::size_t table, std::size_t count) {
        std::string numbers;
        ByteReader entries(std::string_view(bytes).substr(table));
        for (std::size_t i = 0; i < count; ++i)
            numbers += std::to_string(ByteReader(std::string_view(bytes).substr(entries.U32())).U16());
        return numbers;
    };
    EXPECT_EQ(order(0x353 + 20, 5), "42315");
    EXPECT_EQ(order(0x353 + 40 + 32, 4), "3412") << "equal names keep the order of their numbers";
}

// What an Outcome of writing says: "code: reason", empty where it was written.
std::string Told(const Outcome& outcome) {
    return outcome.Ok() ? "" : std::to_string(outcome.code) + ": " + outcome.reason;
}
std::string TypesTold(const std::function<void(TypeFile&)>& change) {
    TypeFile file = MakeExampleSet().types;
    CpType property;
    static_cast<NvType&>(property) = {.name = "p", .size = 1, .type = NumberOfKind(TypeKind::signedShort)};
    property.initial = property.minimum.emplace() = "\x01";
    file.cpTypes = {property};
    file.enumerations = {Enumeration{"e", "e.h", {{1, "A", {}}}}};
    change(file);
    std::string bytes;
    return Told(WriteTypeFile(file, bytes));
}
std::string LanguageTold(const std::string& language, const std::string& text) {
    LanguageFile file = MakeExampleSet().language;
    file.language = language;
    file.strings = {text};
    std::string bytes;
    return Told(WriteLanguageFile(file, bytes));
}

std::string ProfilesTold(const std::function<void(Profile&)>& change, std::size_t count = 1) {
    ProfileFile file = MakeExampleSet().profiles;
    file.profiles.resize(count);
    Profile& profile = file.profiles.front().emplace(Profile{.name = "p"});
    profile.nvs = {ProfileNv()};
    profile.nvs.front().values.size = 1;
    profile.cps = {ProfileCp()};
    change(profile);
    std::string bytes;
    return Told(WriteProfileFile(file, bytes));
}

TEST(Layout, FilesThatDoNotFitTheFormatAreNotWritten) {
    const std::string longest(255, 'x');
    const std::string tooLong = longest + 'y';
    const std::string badType = "20: type \"p\" does not fit the format";
    const std::string badSet = "14: enumeration \"e\" does not fit the format";
    EXPECT_EQ(TypesTold([](TypeFile&) {}), "");
    EXPECT_EQ(
        TypesTold([&](TypeFile& f) { f.cpTypes[0]->name = f.enumerations[0]->values[0].name = longest; }),
        "");
    EXPECT_EQ(TypesTold([&](TypeFile& f) { f.cpTypes[0]->name = tooLong; }),
              "20: type \"" + tooLong + "\" does not fit the format");
    EXPECT_EQ(TypesTold([](TypeFile& f) { f.cpTypes[0]->initial = "12"; }), badType);
    EXPECT_EQ(TypesTold([](TypeFile& f) { f.cpTypes[0]->minimum = ""; }), badType);
    EXPECT_EQ(TypesTold([](TypeFile& f) { f.nvTypes.assign(65535, std::nullopt); }), "");
    EXPECT_EQ(TypesTold([](TypeFile& f) { f.nvTypes.assign(65536, std::nullopt); }),
              "20: type \"\" does not fit the format");
    EXPECT_EQ(TypesTold([&](TypeFile& f) { f.enumerations[0]->fileName = tooLong; }), badSet);
    EXPECT_EQ(TypesTold([&](TypeFile& f) { f.enumerations[0]->values[0].name = tooLong; }), badSet);
    EXPECT_EQ(TypesTold([](TypeFile& f) { f.enumerations[0]->values.resize(70000); }), badSet);
    EXPECT_EQ(TypesTold([&](TypeFile& f) {
                  f.enumerations[0]->values.assign(300, {1, longest, {}});
              }),
              badSet);
    EXPECT_EQ(TypesTold([&](TypeFile& f) { f.header.webPage = tooLong; }),
              "6: a text of the header has more than 255 bytes");
    EXPECT_EQ(LanguageTold("enu", std::string(65531, 'x')), "");
    EXPECT_EQ(LanguageTold("enu", std::string(65532, 'x')), "13: a string has more than 65,531 bytes");
    EXPECT_EQ(LanguageTold("en", ""), "8: a language has three letters");
}

TEST(Layout, ProfilesThatDoNotFitTheFormatAreNotWritten) {
    const std::string tooLong(256, 'x');
    const std::string badProfile = "13: profile \"p\" does not fit the format";
    EXPECT_EQ(ProfilesTold([](Profile&) {}, 65535), "");
    EXPECT_EQ(ProfilesTold([](Profile&) {}, 65536), "13: there are more than 65,535 profiles");
    EXPECT_EQ(ProfilesTold([&](Profile& p) { p.name = tooLong; }),
              "13: profile \"" + tooLong + "\" does not fit the format");
    const auto resize = [](int mandatory, int optional) {
        return [=](Profile& p) {
            p.nvs.assign(static_cast<std::size_t>(mandatory + optional), p.nvs.front());
            p.cps.resize(p.nvs.size());
            for (std::size_t i = 0; i < static_cast<std::size_t>(mandatory); ++i)
                p.nvs[i].mandatory = p.cps[i].mandatory = true;
        };
    };
    EXPECT_EQ(ProfilesTold(resize(255, 255)), "");
    EXPECT_EQ(ProfilesTold(resize(256, 0)), badProfile);
    EXPECT_EQ(ProfilesTold(resize(0, 256)), badProfile);
    EXPECT_EQ(ProfilesTold([](Profile& p) { p.cps.resize(256); }), badProfile);
    EXPECT_EQ(ProfilesTold([](Profile& p) { p.nvs[0].values.size = 255; }), "");
    EXPECT_EQ(ProfilesTold([](Profile& p) { p.nvs[0].values.size = 256; }), badProfile);
    EXPECT_EQ(ProfilesTold([&](Profile& p) { p.nvs[0].name = tooLong; }), badProfile);
    EXPECT_EQ(ProfilesTold([&](Profile& p) { p.cps[0].name = tooLong; }), badProfile);
    EXPECT_EQ(ProfilesTold([](Profile& p) { p.nvs[0].values.initial = "1"; }), "");
    EXPECT_EQ(ProfilesTold([](Profile& p) { p.nvs[0].values.initial = "12"; }), badProfile);
    const auto fill = [](std::uint16_t size) {
        return [size](Profile& p) {
            p.cps[0].values.size = size;
            p.cps[0].values.maximum = std::string(size, 'x');
        };
    };
    EXPECT_EQ(ProfilesTold(fill(65464)), "");
    EXPECT_EQ(ProfilesTold(fill(65465)), badProfile) << "a record has 65535 bytes at most";
}

// Files that differ in the date of the header alone, and so in its checksum, are the same; not those that
// differ elsewhere.
TEST(Layout, OnlyTheDateIsBlanked) {
    for (std::string bytes : ExampleBytes()) {
        std::string blank = bytes;
        BlankResourceDate(blank);
        std::string seen;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            std::string changed = bytes;
            changed[i] = static_cast<char>(changed[i] ^ 1);
            BlankResourceDate(changed);
            if (changed == blank)
                AppendHex(seen, static_cast<unsigned>(i), 4);
        }
        EXPECT_EQ(seen, "030A030B030C030D030E030F031003180319");
    }
}

TEST(Layout, ManyEntriesPushTheDataSectionBack) {
    LanguageFile file;
    file.header.title = TitleText(ResourceKind::language, 1, 0);
    file.language = "enu";
    for (int i = 0; i < 12; ++i)
        file.strings.emplace_back(i == 5 ? std::optional<std::string>() : "text");
    std::string bytes;
    ASSERT_TRUE(WriteLanguageFile(file, bytes).Ok());
    EXPECT_EQ(bytes.substr(0x31A, 4), Bytes("00 00 03 65")) << "12 entries need 0x335 + 48";
    LanguageFile again;
    ASSERT_EQ(ReadLanguageFile(bytes, again).reason, "");
    EXPECT_EQ(again.strings, file.strings) << "the sixth is deleted";
}

TEST(Layout, ContactWithoutPhoneAndEmailIsOneLine) {
    EXPECT_EQ(ContactText("Acme", "", ""), "This file was created & is maintained by Acme.\n");
    EXPECT_NE(ContactText("Acme", "1", "").find("Contact us at 1,\nor at  on"), std::string::npos);
    EXPECT_NE(TitleText(ResourceKind::type, 16, 0).find("Data version 16.00."), std::string::npos);
}

}  // namespace
}  // namespace tovarek::test
