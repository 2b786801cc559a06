#include <algorithm>
#include <array>

#include "base/Text.h"
#include "formats/type/TypeDescriptionCodec.h"
#include "formats/type/TypeFile.h"
#include "formats/type/TypeFileView.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::uint8_t kOldFormat = 3;  // no deleted counts, no word before a type's size
// The tables of one group: by number, then one or two sorted ones without the deleted entries.
struct Group {
    std::uint16_t count = 0;
    std::uint16_t deleted = 0;
    std::vector<std::uint32_t> byNumber;
};

bool ReadGroupTables(ByteReader& fields, Group& group, int sortedTables) {
    if (group.deleted > group.count)
        return false;
    group.byNumber = ResourceFileView::Table(fields, group.count);
    bool same = true;
    for (int i = 0; i < sortedTables; ++i) {
        const std::size_t live = static_cast<std::size_t>(group.count) - group.deleted;
        std::vector<std::uint32_t> sorted = ResourceFileView::Table(fields, live);
        same = same && !fields.Failed() && SameRecords(group.byNumber, std::move(sorted));
    }
    return same;
}

std::string Named(const char* what, std::size_t number) {
    return what + (' ' + std::to_string(number));
}

}  // namespace

Outcome TypeFileView::Open(std::string_view bytes, TypeFileView& view) {
    view = {};
    ResourceFileView file;
    if (Outcome opened = ResourceFileView::Open(bytes, ResourceKind::type, file); !opened.Ok())
        return opened;
    view.header_ = file.Header();
    const std::uint8_t format = view.header_.formatVersion;
    if (format != kTypeFormat && format != kOldFormat)
        return Failure(resultErrorSettingVersion, "type files of this format version are not known");

    ByteReader fields = file.KindFields();
    view.marks_ = ReadMarks(fields);
    std::array<Group, 3> groups;  // NV types, CP types, enumeration sets
    for (Group& group : groups)
        group.count = fields.U16();
    if (format == kTypeFormat) {
        for (Group& group : groups)
            group.deleted = fields.U16();
    }
    const bool tables = ReadGroupTables(fields, groups[0], 1) && ReadGroupTables(fields, groups[1], 1) &&
                        ReadGroupTables(fields, groups[2], 2);
    if (!tables || !file.EndsWithTables(fields))
        return Failure(resultErrorSettingHeader, "the tables do not fit the header or one another");

    std::size_t total = 0;
    for (const auto& [group, types] :
         {std::pair{&groups[0], &view.nvTypes_}, std::pair{&groups[1], &view.cpTypes_}}) {
        if (Outcome read = view.ReadTypes(file, group->byNumber, *types, total); !read.Ok())
            return read;
    }
    return view.ReadEnumerations(file, groups[2].byNumber, total);
}

Outcome TypeFileView::ReadTypes(const ResourceFileView& file, const std::vector<std::uint32_t>& table,
                                std::vector<Entry>& types, std::size_t& total) const {
    types.resize(table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i] == 0)
            continue;
        Entry& entry = types[i];
        entry.exists = true;
        entry.record = file.Record(table[i], 2, static_cast<std::uint32_t>(i + 1));
        total += entry.record.Remaining();
        entry.reservedByte = entry.record.U8();
        if (header_.formatVersion != kOldFormat)
            entry.reservedWord = entry.record.U16();
        entry.size = entry.record.U16();
        entry.name = entry.record.Name();
        if (entry.record.Failed() || total > file.DataLength())
            return Failure(resultErrorAddingType, Named("the record of type", i + 1) + " is damaged");
    }
    return {};
}

Outcome TypeFileView::ReadEnumerations(const ResourceFileView& file, const std::vector<std::uint32_t>& table,
                                       std::size_t& total) {
    enumerations_.resize(table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i] == 0)
            continue;
        enumerations_[i].exists = true;
        enumerations_[i].record = file.Record(table[i], 2, static_cast<std::uint32_t>(i + 1));
        total += enumerations_[i].record.Remaining();
        if (enumerations_[i].record.Failed() || total > file.DataLength()) {
            return Failure(resultErrorAddingEnum,
                           Named("the record of enumeration set", i + 1) + " is damaged");
        }
    }
    return {};
}

namespace {

// Takes what follows a type's name. Editors may leave bytes behind a record that shrank.
bool DecodeCommon(const TypeFileView::Entry& entry, ByteReader& record, NvType& type) {
    type.name = FromCodePage(entry.name);
    type.size = entry.size;
    type.reservedByte = entry.reservedByte;
    type.reservedWord = entry.reservedWord;
    type.nameText = record.String();
    type.description = record.String();
    type.unit = record.String();
    type.type = ReadDescription(record);
    return !record.Failed();
}

}  // namespace

bool TypeFileView::DecodeNv(const Entry& entry, NvType& type) {
    ByteReader record = entry.record;
    return DecodeCommon(entry, record, type);
}

bool TypeFileView::DecodeCp(const Entry& entry, CpType& type) {
    ByteReader record = entry.record;
    if (!DecodeCommon(entry, record, type))
        return false;
    const unsigned flags = record.U8();
    if ((flags & ~(kHasMinimum | kHasMaximum)) != 0)
        return false;
    if ((flags & kHasMinimum) != 0)
        type.minimum = std::string(record.Bytes(type.size));
    if ((flags & kHasMaximum) != 0)
        type.maximum = std::string(record.Bytes(type.size));
    type.initial = record.Bytes(type.size);
    return !record.Failed();
}

bool TypeFileView::DecodeEnumeration(std::size_t number, Enumeration& enumeration) const {
    ByteReader record = enumerations_[number - 1].record;
    const ByteReader whole = record;
    enumeration.name = FromCodePage(record.Name());
    enumeration.fileName = FromCodePage(record.Name());
    const std::uint16_t count = record.U16();
    // Names are found through offsets. Together they cannot be longer than the record, which keeps entries
    // from sharing one name over and over.
    std::size_t names = 0;
    for (std::uint16_t i = 0; i < count && !record.Failed(); ++i) {
        EnumerationValue& value = enumeration.values.emplace_back();
        value.value = record.S8();
        const std::size_t offset = record.U16();
        value.description = record.String();
        ByteReader name = whole;
        if (offset < kRecordHead)
            return false;
        name.Bytes(offset - kRecordHead);
        const std::string_view bytes = name.Name();
        names += bytes.size();
        if (name.Failed() || names > whole.Remaining())
            return false;
        value.name = FromCodePage(bytes);
    }
    return !record.Failed();
}

Outcome ReadTypeFile(std::string_view bytes, TypeFile& file) {
    file = {};
    TypeFileView view;
    if (Outcome opened = TypeFileView::Open(bytes, view); !opened.Ok())
        return opened;
    file.header = view.Header();
    file.marks = view.Marks();
    file.nvTypes.resize(view.NvTypes().size());
    for (std::size_t i = 0; i < file.nvTypes.size(); ++i) {
        if (view.NvTypes()[i].exists && !TypeFileView::DecodeNv(view.NvTypes()[i], file.nvTypes[i].emplace()))
            return Failure(resultErrorAddingType, Named("network-variable type", i + 1) + " is damaged");
    }
    file.cpTypes.resize(view.CpTypes().size());
    for (std::size_t i = 0; i < file.cpTypes.size(); ++i) {
        if (view.CpTypes()[i].exists &&
            !TypeFileView::DecodeCp(view.CpTypes()[i], file.cpTypes[i].emplace())) {
            return Failure(resultErrorAddingType,
                           Named("configuration-property type", i + 1) + " is damaged");
        }
    }
    file.enumerations.resize(view.EnumerationCount());
    for (std::size_t i = 0; i < file.enumerations.size(); ++i) {
        if (view.HasEnumeration(i + 1) && !view.DecodeEnumeration(i + 1, file.enumerations[i].emplace()))
            return Failure(resultErrorAddingEnum, Named("enumeration set", i + 1) + " is damaged");
    }
    return {};
}

}  // namespace tovarek
