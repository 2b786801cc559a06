#include "formats/language/LanguageFile.h"

#include <algorithm>
#include <iterator>

#include "base/Text.h"
#include "formats/records/ByteWriter.h"
#include "formats/records/Crc16.h"
#include "formats/records/ResourceFile.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::uint8_t kFormat = 3;
constexpr std::size_t kStringOverhead = 3;  // checksum and a zero byte, counted by the record's length

// The system's three-letter abbreviation of a language, in lower case.
struct LocaleLanguage {
    std::int32_t localeId;
    std::string_view language;
};
constexpr LocaleLanguage kLanguages[] = {
#define TOVAREK_LOCALE(number, language) {number, language},
#include "formats/language/LocaleList.inc"
#undef TOVAREK_LOCALE
};

// Abbreviates Catalan, but is what catalogs are called by.
constexpr std::string_view kCatalogExtension = "cat";

// The text of a string record, its checksum verified; nothing when it is damaged. `checksumWrong` tells why.
std::optional<std::string> ReadString(ByteReader record, bool& checksumWrong) {
    const std::uint16_t checksum = record.U16();
    record.U8();
    if (record.Failed() || record.Remaining() == 0)
        return std::nullopt;
    std::string_view text = record.Bytes(record.Remaining());
    checksumWrong = Crc16(text) != checksum;
    if (checksumWrong || text.back() != '\0')
        return std::nullopt;
    text.remove_suffix(1);
    return FromCodePage(text);
}

Outcome DamagedString(std::size_t number, bool checksumWrong) {
    const std::string name = "string " + std::to_string(number);
    return checksumWrong ? Failure(resultCrcError, "the checksum of " + name + " is wrong")
                         : Failure(resultErrorAddingResource, name + " is damaged");
}

}  // namespace

Outcome ReadLanguageFile(std::string_view bytes, LanguageFile& file) {
    file = {};
    ResourceFileView view;
    if (Outcome opened = ResourceFileView::Open(bytes, ResourceKind::language, view); !opened.Ok())
        return opened;
    file.header = view.Header();
    if (file.header.formatVersion != kFormat)
        return Failure(resultErrorSettingVersion, "language files of this format version are not known");

    ByteReader fields = view.KindFields();
    const std::string_view letters = fields.Bytes(4);
    file.language = letters.substr(0, letters.find('\0'));
    const std::uint32_t count = fields.U24();
    const std::uint32_t deleted = fields.U24();
    const std::vector<std::uint32_t> table = ResourceFileView::Table(fields, count);
    if (!view.EndsWithTables(fields))
        return Failure(resultErrorSettingHeader, "the number of strings does not fit the size of the header");
    if (static_cast<std::size_t>(std::count(table.begin(), table.end(), 0U)) != deleted)
        return Failure(resultErrorSettingHeader, "the number of deleted strings is wrong");

    file.strings.resize(count);
    std::size_t total = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i] == 0)
            continue;
        const ByteReader record = view.Record(table[i], 3, static_cast<std::uint32_t>(i + 1));
        total += record.Remaining();
        bool checksumWrong = false;
        file.strings[i] = total > view.DataLength() ? std::nullopt : ReadString(record, checksumWrong);
        if (!file.strings[i])
            return DamagedString(i + 1, checksumWrong);
    }
    return {};
}

Outcome WriteLanguageFile(const LanguageFile& file, std::string& bytes) {
    if (file.language.size() != 3)
        return Failure(resultErrorSettingLocale, "a language has three letters");
    if (file.strings.size() > kMostStrings)
        return Failure(resultErrorAddingResource, "there are more than 16,777,215 strings");

    ByteWriter records;
    std::vector<std::uint32_t> table;
    table.reserve(file.strings.size());
    std::uint32_t deleted = 0;
    for (const std::optional<std::string>& string : file.strings) {
        if (!string) {
            table.push_back(kDeletedRecord);
            ++deleted;
            continue;
        }
        std::string text = ToCodePage(*string);
        if (text.size() > kLongestString)
            return Failure(resultErrorAddingResource, "a string has more than 65,531 bytes");
        text.push_back('\0');
        table.push_back(static_cast<std::uint32_t>(records.Size()));
        records.U24(static_cast<std::uint32_t>(table.size()));
        records.U16(static_cast<std::uint32_t>(text.size() + kStringOverhead));
        records.U16(Crc16(text));
        records.U8(0);
        records.Append(text);
    }

    ByteWriter fields;
    fields.Append(file.language);
    fields.U8(0);
    fields.U24(static_cast<std::uint32_t>(file.strings.size()));
    fields.U24(deleted);
    return AssembleResourceFile(file.header, kFormat, {fields.Take(), {std::move(table)}, records.Take()},
                                bytes);
}

std::int32_t LocaleOfLanguage(std::string_view language) {
    const std::string wanted = AsciiLowerCase(language);
    std::int32_t lowest = 0;
    for (const LocaleLanguage& row : kLanguages)
        if (!wanted.empty() && row.language == wanted && (lowest == 0 || row.localeId < lowest))
            lowest = row.localeId;
    return lowest;
}

std::string_view LanguageOfLocale(std::int32_t localeId) {
    for (const LocaleLanguage& entry : kLanguages) {
        if (entry.localeId == localeId)
            return entry.language;
    }
    return {};
}

bool IsLanguageExtension(std::string_view extension) {
    const std::string lower = AsciiLowerCase(extension);
    return lower != kCatalogExtension &&
           std::any_of(std::begin(kLanguages), std::end(kLanguages),
                       [&lower](const LocaleLanguage& entry) { return entry.language == lower; });
}

}  // namespace tovarek
