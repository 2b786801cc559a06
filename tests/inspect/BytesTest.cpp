// Listings: every byte once, and right.
#include <gtest/gtest.h>

#include "Fixtures.h"

namespace tovarek::test {
namespace {

// Where the rows leave a gap, overlap, or end too early or too late; the file's size when they do not.
std::size_t CoveredUpTo(const ByteListing& listing) {
    std::size_t position = 0;
    for (const ByteRow& row : listing.rows) {
        if (row.offset != position || row.length == 0)
            break;
        position += row.length;
    }
    return position;
}

ByteListing Listed(const std::string& bytes, FileKind kind) {
    ByteListing listing = ListBytes(bytes, kind);
    EXPECT_EQ(CoveredUpTo(listing), bytes.size());
    return listing;
}

std::string ValueOf(const ByteListing& listing, const std::string& record, const std::string& field) {
    for (const ByteRow& row : listing.rows)
        if (row.record == record && row.field == field)
            return row.value;
    return "no such row";
}

TEST(Listing, NamesTheFieldsOfATypeFile) {
    const std::string bytes = BytesOf(WriteTypeFile, SmallTypes());
    const ByteListing listing = Listed(bytes, FileKind::type);
    for (const auto& [record, field, value] : std::vector<std::tuple<std::string, std::string, std::string>>{
             {"", "creator", "3-2"},
             {"", "saved, year (UTC)", "2024"},
             {"", "header checksum", "right"},
             {"", "data checksum", "right"},
             {"", "scope", "3"},
             {"", "NV types", "3"},
             {"", "deleted NV types", "1"},
             {"", "NV types by number 2", "deleted"},
             {"NV type 1", "name", "\"_beltSpeed\""},
             {"NV type 1", "kind", "5 signed long"},
             {"NV type 1", "minimum", "-500"},
             {"NV type 1", "B", "-2"},
             {"NV type 3", "member 2", "\"gear\""},
             {"NV type 3", "place", "offset 1, width 3"},
             {"CP type 1", "value flags", "minimum stored, maximum stored"},
             {"CP type 1", "raw default", "0x0258"},
             {"enumeration set 1", "value 1", "-1"},
             {"enumeration set 1", "name 2", "\"BM_ON\""}})
        EXPECT_EQ(ValueOf(listing, record, field), value) << record << ' ' << field;
    for (const ByteRow& row : listing.rows)
        EXPECT_TRUE(row.field != "unreferenced" && row.field != "left in the record") << row.offset;
}

TEST(Listing, ShowsWhatIsWrong) {
    std::string bytes = BytesOf(WriteLanguageFile, SmallLanguage());
    const std::size_t text = bytes.find("Belt speed");
    bytes[text] = 'C';
    bytes[0x308] = 7;
    const ByteListing listing = Listed(bytes, FileKind::language);
    for (const auto& [record, field] : std::vector<std::pair<std::string, std::string>>{
             {"", "header checksum"}, {"", "data checksum"}, {"string 5", "checksum"}})
        EXPECT_EQ(ValueOf(listing, record, field).substr(0, 5), "wrong") << field;
    EXPECT_EQ(ValueOf(listing, "string 6", "checksum"), "right");
    EXPECT_EQ(ValueOf(listing, "string 5", "text"), "\"Celt speed\"");
}

// Each with one byte of one field changed.
TEST(Listing, TellsWhatContradictsTheRest) {
    const std::string files[] = {BytesOf(WriteLanguageFile, SmallLanguage()),
                                 BytesOf(WriteTypeFile, SmallTypes()),
                                 BytesOf(WriteProfileFile, SmallProfiles())};
    constexpr FileKind kKinds[] = {FileKind::language, FileKind::type, FileKind::profile};
    const struct {
        std::size_t file;
        const char* record;
        const char* changed;
        std::size_t place;
        int byte;
        const char* field;
        const char* value;
    } rows[] = {
        {0, "", "header end", 3, 0x52, "strings by number 7",
         "0x03B3; the tables end at 0x0351, the header says 0x0352"},
        {0, "", "header end", 2, 0x30, "header checksum", "not checked, the header ends outside the file"},
        {0, "", "header end", 2, 0x02, "header checksum", "not checked, the header ends outside the file"},
        {0, "", "data start", 2, 0, "behind the data section", "114 bytes"},
        {0, "", "data length", 2, 1, "data checksum", "not checked, the data section lies outside the file"},
        {0, "", "data length", 3, 1, "unreferenced", "1 bytes"},
        {0, "string 7", "length", 1, 50, "length", "50, of which 10 fit"},
        {0, "string 6", "length", 1, 4, "end", "wrong, should be NUL"},
        {0, "string 6", "length", 1, 3, "reserved", "0"},
        {0, "string 6", "length", 1, 2, "checksum", "wrong, should be 0"},
        {0, "string 6", "length", 1, 1, "checksum, cut: 1 of 2 bytes", "1 bytes"},
        {1, "NV type 1", "kind", 0, 16, "kind", "16 unknown kind"},
        {1, "NV type 1", "kind", 0, 0, "not understood", "10 bytes"},
        {1, "NV type 1", "length", 1, 37, "B, cut: 1 of 2 bytes", "1 bytes"},
        {1, "NV type 3", "place", 0, 0xF9, "place", "offset 7, width 9, signed"},
        {1, "", "deleted NV types", 1, 9, "CP types by number 1", "0x0489"},
        {2, "profile 1", "NV member 1, length", 1, 30, "left in the member", "1 bytes"},
        {2, "", "deleted profiles", 1, 9, "slack", "128 bytes"},
    };
    for (const auto& row : rows) {
        std::string bytes = files[row.file];
        for (const ByteRow& each : ListBytes(bytes, kKinds[row.file]).rows)
            if (each.record == row.record && each.field == row.changed)
                bytes[each.offset + row.place] = static_cast<char>(row.byte);
        EXPECT_NE(bytes, files[row.file]) << row.changed;
        EXPECT_EQ(ValueOf(Listed(bytes, kKinds[row.file]), row.record, row.field), row.value)
            << row.record << ' ' << row.changed << ' ' << row.byte;
    }
}

TEST(Listing, EndsWhereTypesAreNestedTooDeeply) {
    for (const TypeKind kind : {TypeKind::array, TypeKind::structure}) {
        TypeDescription type = NumberOfKind(TypeKind::unsignedQuad);
        type.minimum = type.maximum = type.a = type.b = type.c = 0x0101;
        for (int i = 0; i < 1024; ++i) {
            TypeDescription outer;
            outer.kind = kind;
            outer.count = 1;
            outer.members.push_back({"m", {}, {}, {}, std::move(type)});
            type = std::move(outer);
        }
        TypeFile file = SmallTypes();
        file.nvTypes = {NvType{.name = "deep", .size = 4, .type = std::move(type)}};
        std::string bytes = BytesOf(WriteTypeFile, file);
        EXPECT_EQ(ValueOf(Listed(bytes, FileKind::type), "NV type 1", "not understood"), "no such row");
        // One level more: the number becomes an array.
        for (const ByteRow& row : Listed(bytes, FileKind::type).rows)
            if (row.record == "NV type 1" && row.value.starts_with("15 "))
                bytes[row.offset] = static_cast<char>(TypeKind::array);
        EXPECT_NE(ValueOf(Listed(bytes, FileKind::type), "NV type 1", "not understood"), "no such row");
    }
}

TEST(Listing, ShowsBytesThatNothingPointsTo) {
    std::string bytes = BytesOf(WriteLanguageFile, SmallLanguage());
    for (int i = 0; i < 4; ++i)
        bytes[0x335 + 4 * 4 + static_cast<std::size_t>(i)] = 0;  // string 5
    bytes += "old bytes";
    const ByteListing listing = Listed(bytes, FileKind::language);
    EXPECT_EQ(ValueOf(listing, "", "strings by number 5"), "deleted");
    EXPECT_EQ(ValueOf(listing, "", "unreferenced"), "19 bytes");
    EXPECT_EQ(ValueOf(listing, "", "behind the data section"), "10 bytes");
}

TEST(Listing, TextFilesLineByLine) {
    const std::string xif = std::string(kSmallXif) + "\x1A" + std::string("\0\1", 2);
    const ByteListing listing = Listed(xif, FileKind::xif);
    EXPECT_TRUE(listing.isText);
    EXPECT_EQ(ValueOf(listing, "", "VAR nciLimits"), "VAR nciLimits 1 0 0 2\\r\\n");
    EXPECT_EQ(ValueOf(listing, "", "attached"), "no text");
    const std::string format = "! c\nset x y;\nUNVT_a: text(\"%d:\",\n b);";
    std::string roles;
    for (const ByteRow& row : Listed(format, FileKind::format).rows)
        roles += row.field + '|';
    EXPECT_EQ(roles, "comment|setting|format UNVT_a|continued|");
}

TEST(Listing, CoversDamagedFiles) {
    for (const auto& [bytes, kind] : std::vector<std::pair<std::string, FileKind>>{
             {BytesOf(WriteTypeFile, SmallTypes()), FileKind::type},
             {BytesOf(WriteLanguageFile, SmallLanguage()), FileKind::language},
             {BytesOf(WriteProfileFile, SmallProfiles()), FileKind::profile},
             {std::string(kSmallXif), FileKind::xif}})
        ForDamaged(bytes, 1, 300, [kind = kind](const std::string& damaged) { Listed(damaged, kind); });
}

TEST(Listing, UnderstandsAndCoversEverySample) {
    for (const char* folder : {"resources", "xif"}) {
        for (const std::string& path : SampleFiles(folder)) {
            if (IsNoXif(path))
                continue;
            const FileListing file = ListFile(path);
            EXPECT_EQ(file.code, 0) << path << file.damage;
            EXPECT_EQ(CoveredUpTo(file.listing), file.bytes.size()) << path;
            for (const ByteRow& row : file.listing.rows)
                EXPECT_FALSE(row.field.starts_with("not understood") || row.value.starts_with("wrong"))
                    << path << ' ' << row.offset;
            ForDamaged(file.bytes, file.bytes.size() / 10 + 1, 10,
                       [&file](const std::string& damaged) { Listed(damaged, file.kind); });
        }
    }
}

}  // namespace
}  // namespace tovarek::test
