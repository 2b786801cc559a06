#include <algorithm>
#include <numeric>

#include "base/Text.h"
#include "formats/records/ByteWriter.h"
#include "formats/records/ResourceFile.h"
#include "formats/type/TypeDescriptionCodec.h"
#include "formats/type/TypeFile.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

// The records of one group and their places; the names order the sorted tables.
struct GroupTables {
    std::vector<std::uint32_t> byNumber;
    std::vector<std::pair<std::string, std::uint32_t>> names;  // in the code page
    std::vector<std::pair<std::string, std::uint32_t>> fileNames;
    std::uint32_t deleted = 0;
};

std::vector<std::uint32_t> Sorted(std::vector<std::pair<std::string, std::uint32_t>> names) {
    std::stable_sort(names.begin(), names.end(), [](const auto& left, const auto& right) {
        return left.first < right.first;  // std::string compares bytes as unsigned characters
    });
    std::vector<std::uint32_t> offsets;
    offsets.reserve(names.size());
    for (const auto& name : names)
        offsets.push_back(name.second);
    return offsets;
}

bool WriteType(const NvType& type, ByteWriter& records) {
    records.U8(type.reservedByte);
    records.U16(type.reservedWord);
    records.U16(type.size);
    if (!WriteName(type.name, records))
        return false;
    records.String(type.nameText);
    records.String(type.description);
    records.String(type.unit);
    return WriteDescription(type.type, records);
}

bool WriteBody(const NvType& type, ByteWriter& records) {
    return WriteType(type, records);
}

bool WriteBody(const CpType& type, ByteWriter& records) {
    if (!WriteType(type, records))
        return false;
    records.U8((type.minimum ? kHasMinimum : 0U) | (type.maximum ? kHasMaximum : 0U));
    const auto fits = [&type](const std::string& raw) { return raw.size() == type.size; };
    bool fit = fits(type.initial);
    for (const std::optional<std::string>* limit : {&type.minimum, &type.maximum}) {
        if (!*limit)
            continue;
        fit = fit && fits(**limit);
        records.Append(**limit);
    }
    records.Append(type.initial);
    return fit;
}

bool WriteBody(const Enumeration& enumeration, ByteWriter& records) {
    const std::size_t start = records.Size() - kRecordHead;
    if (!WriteName(enumeration.name, records) || !WriteName(enumeration.fileName, records))
        return false;
    // A number of values that does not fit puts the first name where no offset reaches.
    records.U16(static_cast<std::uint32_t>(enumeration.values.size()));
    const std::size_t entries = records.Size();
    for (const EnumerationValue& value : enumeration.values) {
        records.U8(static_cast<std::uint8_t>(value.value));
        records.U16(0);
        records.String(value.description);
    }
    for (std::size_t i = 0; i < enumeration.values.size(); ++i) {
        const std::size_t offset = records.Size() - start;
        records.PatchU16(entries + i * kEnumerationEntry + 1, static_cast<std::uint32_t>(offset));
        if (offset > 0xFFFF || !WriteName(enumeration.values[i].name, records))
            return false;
    }
    return true;
}

void NoteFileName(const NvType& /*type*/, GroupTables& /*tables*/) {}

void NoteFileName(const Enumeration& enumeration, GroupTables& tables) {
    tables.fileNames.emplace_back(AsciiLowerCase(ToCodePage(enumeration.fileName)), tables.byNumber.back());
}

template <class Entry>
bool WriteGroup(const std::vector<std::optional<Entry>>& entries, ByteWriter& records, GroupTables& tables,
                std::string& faulty) {
    if (entries.size() > kMostRecords)
        return false;
    tables.byNumber.reserve(entries.size());
    tables.names.reserve(entries.size());
    for (const std::optional<Entry>& entry : entries) {
        if (!entry) {
            tables.byNumber.push_back(kDeletedRecord);
            ++tables.deleted;
            continue;
        }
        tables.byNumber.push_back(static_cast<std::uint32_t>(records.Size()));
        const std::size_t start = BeginRecord(records, tables.byNumber.size());
        if (!WriteBody(*entry, records) || !EndRecord(records, start)) {
            faulty = entry->name;
            return false;
        }
        tables.names.emplace_back(ToCodePage(entry->name), tables.byNumber.back());
        NoteFileName(*entry, tables);
    }
    return true;
}

}  // namespace

std::size_t RecordLength(const NvType& type) {
    ByteWriter record;
    WriteType(type, record);
    return record.Size();
}

std::size_t RecordLength(const Enumeration& enumeration) {
    return 1 + ToCodePage(enumeration.name).size() + 1 + ToCodePage(enumeration.fileName).size() + 2;
}

Outcome WriteTypeFile(const TypeFile& file, std::string& bytes) {
    ByteWriter records;
    GroupTables nvTypes;
    GroupTables cpTypes;
    GroupTables enumerations;
    std::string faulty;
    if (!WriteGroup(file.nvTypes, records, nvTypes, faulty) ||
        !WriteGroup(file.cpTypes, records, cpTypes, faulty))
        return Failure(resultErrorAddingType, "type \"" + faulty + "\" does not fit the format");
    if (!WriteGroup(file.enumerations, records, enumerations, faulty))
        return Failure(resultErrorAddingEnum, "enumeration \"" + faulty + "\" does not fit the format");

    ByteWriter fields;
    fields.Append(MarkFields(file.marks));
    for (const GroupTables* group : {&nvTypes, &cpTypes, &enumerations})
        fields.U16(static_cast<std::uint32_t>(group->byNumber.size()));
    for (const GroupTables* group : {&nvTypes, &cpTypes, &enumerations})
        fields.U16(group->deleted);
    ResourceFileParts parts;
    parts.kindFields = fields.Take();
    for (GroupTables* group : {&nvTypes, &cpTypes, &enumerations}) {
        parts.tables.push_back(std::move(group->byNumber));
        parts.tables.push_back(Sorted(std::move(group->names)));
    }
    parts.tables.push_back(Sorted(std::move(enumerations.fileNames)));
    parts.records = records.Take();
    return AssembleResourceFile(file.header, kTypeFormat, parts, bytes);
}

}  // namespace tovarek
