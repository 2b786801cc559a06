#include "formats/profile/ProfileFile.h"

#include <algorithm>
#include <map>

#include "base/Text.h"
#include "formats/records/ResourceFile.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::uint8_t kFormat = 5;

// Flags of a member: which of its values are stored, and for network variables direction, polling and
// service.
constexpr unsigned kIsInput = 0x80;
constexpr unsigned kIsPolled = 0x40;
constexpr unsigned kServiceShift = 3;
constexpr unsigned kServiceBits = 0x07;
constexpr unsigned kHasInitial = 0x04;

void ReadValues(ByteReader& member, unsigned flags, MemberValues& values) {
    if ((flags & kHasInitial) != 0)
        values.initial = std::string(member.Bytes(values.size));
    if ((flags & kHasMinimum) != 0)
        values.minimum = std::string(member.Bytes(values.size));
    if ((flags & kHasMaximum) != 0)
        values.maximum = std::string(member.Bytes(values.size));
}

void ReadTexts(ByteReader& reader, ProfileMember& member) {
    member.name = FromCodePage(reader.Name());
    member.mandatory = reader.U8() != 0;
    member.nameText = reader.String();
    member.description = reader.String();
    member.reserved = reader.U16();
    member.type = reader.Type();
}

// A member begins with the length of the rest.
bool ReadNv(ByteReader& record, ProfileNv& nv) {
    ByteReader member(record.Bytes(record.U16()));
    nv.number = member.U16();
    ReadTexts(member, nv);
    const unsigned flags = member.U8();
    nv.isInput = (flags & kIsInput) != 0;
    nv.isPolled = (flags & kIsPolled) != 0;
    nv.service = static_cast<std::uint8_t>((flags >> kServiceShift) & kServiceBits);
    nv.values.size = member.U8();
    ReadValues(member, flags, nv.values);
    return !record.Failed() && !member.Failed();
}

bool ReadCp(ByteReader& record, ProfileCp& cp) {
    ByteReader member(record.Bytes(record.U16()));
    cp.appliesTo = member.U16();
    cp.number = member.U16();
    cp.smallestArray = member.U16();
    cp.largestArray = member.U16();
    ReadTexts(member, cp);
    cp.restrictions = member.U8();
    const unsigned flags = member.U8();
    cp.values.size = member.U16();
    ReadValues(member, flags, cp.values);
    return !record.Failed() && !member.Failed();
}

bool ReadProfile(ByteReader record, Profile& profile) {
    profile.key = record.U16();
    profile.reservedByte = record.U8();
    profile.inherits = record.U8() != 0;
    profile.name = FromCodePage(record.Name());
    profile.nameText = record.String();
    profile.description = record.String();
    profile.reservedWord = record.U16();
    const int nvs = record.U8() + int{record.U8()};
    const int cps = record.U8() + int{record.U8()};
    profile.principalNv = record.U8();
    for (int i = 0; i < nvs; ++i) {
        if (!ReadNv(record, profile.nvs.emplace_back()))
            return false;
    }
    for (int i = 0; i < cps; ++i) {
        if (!ReadCp(record, profile.cps.emplace_back()))
            return false;
    }
    return !record.Failed();
}

unsigned ValueFlags(const MemberValues& values) {
    return (values.initial ? kHasInitial : 0U) | (values.minimum ? kHasMinimum : 0U) |
           (values.maximum ? kHasMaximum : 0U);
}

bool WriteValues(const MemberValues& values, ByteWriter& record) {
    for (const std::optional<std::string>* value : {&values.initial, &values.minimum, &values.maximum}) {
        if (!*value)
            continue;
        if ((*value)->size() != values.size)
            return false;
        record.Append(**value);
    }
    return true;
}

bool WriteTexts(const ProfileMember& member, ByteWriter& record) {
    if (!WriteName(member.name, record))
        return false;
    record.U8(member.mandatory ? 1 : 0);
    record.String(member.nameText);
    record.String(member.description);
    record.U16(member.reserved);
    record.Type(member.type);
    return true;
}

// Patches the length that the member at `start` begins with. A member that is too long for it makes the
// record too long.
void EndMember(ByteWriter& record, std::size_t start) {
    record.PatchU16(start, static_cast<std::uint32_t>(record.Size() - start - 2));
}

bool WriteNv(const ProfileNv& nv, ByteWriter& record) {
    const std::size_t start = record.Size();
    record.U16(0);
    record.U16(nv.number);
    if (nv.values.size > 255 || !WriteTexts(nv, record))
        return false;
    record.U8((nv.isInput ? kIsInput : 0U) | (nv.isPolled ? kIsPolled : 0U) |
              ((nv.service & kServiceBits) << kServiceShift) | ValueFlags(nv.values));
    record.U8(nv.values.size);
    if (!WriteValues(nv.values, record))
        return false;
    EndMember(record, start);
    return true;
}

bool WriteCp(const ProfileCp& cp, ByteWriter& record) {
    const std::size_t start = record.Size();
    record.U16(0);
    for (const std::uint16_t field : {cp.appliesTo, cp.number, cp.smallestArray, cp.largestArray})
        record.U16(field);
    if (!WriteTexts(cp, record))
        return false;
    record.U8(cp.restrictions);
    record.U8(ValueFlags(cp.values));
    record.U16(cp.values.size);
    if (!WriteValues(cp.values, record))
        return false;
    EndMember(record, start);
    return true;
}

// Mandatory members, then optional ones, as a record counts them; 255 of each at most.
template <class Member>
bool WriteCounts(const std::vector<Member>& members, ByteWriter& record) {
    const auto mandatory = static_cast<std::size_t>(
        std::count_if(members.begin(), members.end(), [](const Member& member) { return member.mandatory; }));
    const std::size_t optional = members.size() - mandatory;
    record.U8(static_cast<std::uint32_t>(mandatory));
    record.U8(static_cast<std::uint32_t>(optional));
    return mandatory <= 255 && optional <= 255;
}

bool WriteProfile(const Profile& profile, ByteWriter& records) {
    records.U16(profile.key);
    records.U8(profile.reservedByte);
    records.U8(profile.inherits ? 1 : 0);
    if (!WriteName(profile.name, records))
        return false;
    records.String(profile.nameText);
    records.String(profile.description);
    records.U16(profile.reservedWord);
    if (!WriteCounts(profile.nvs, records) || !WriteCounts(profile.cps, records))
        return false;
    records.U8(profile.principalNv);
    return std::all_of(profile.nvs.begin(), profile.nvs.end(),
                       [&records](const ProfileNv& nv) { return WriteNv(nv, records); }) &&
           std::all_of(profile.cps.begin(), profile.cps.end(),
                       [&records](const ProfileCp& cp) { return WriteCp(cp, records); });
}

}  // namespace

Outcome ReadProfileFile(std::string_view bytes, ProfileFile& file) {
    file = {};
    ResourceFileView view;
    if (Outcome opened = ResourceFileView::Open(bytes, ResourceKind::profile, view); !opened.Ok())
        return opened;
    file.header = view.Header();
    if (file.header.formatVersion != kFormat)
        return Failure(resultErrorSettingVersion, "profile files of this format version are not known");

    ByteReader fields = view.KindFields();
    file.marks = ReadMarks(fields);
    const std::uint16_t count = fields.U16();
    const std::uint16_t deleted = fields.U16();
    const std::size_t live = deleted > count ? 0 : static_cast<std::size_t>(count) - deleted;
    const std::vector<std::uint32_t> byNumber = ResourceFileView::Table(fields, count);
    const std::vector<std::uint32_t> byName = ResourceFileView::Table(fields, live);
    const std::vector<std::uint32_t> byKey = ResourceFileView::Table(fields, live);
    if (deleted > count || !view.EndsWithTables(fields) || !SameRecords(byNumber, byName) ||
        !SameRecords(byNumber, byKey))
        return Failure(resultErrorSettingHeader, "the tables do not fit the header or one another");

    file.profiles.resize(count);
    std::size_t total = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (byNumber[i] == 0)
            continue;
        const ByteReader record = view.Record(byNumber[i], 2, static_cast<std::uint32_t>(i + 1));
        total += record.Remaining();
        if (record.Failed() || total > view.DataLength() || !ReadProfile(record, file.profiles[i].emplace()))
            return Failure(resultErrorAddingResource, "profile " + std::to_string(i + 1) + " is damaged");
    }
    return {};
}

Outcome WriteProfileFile(const ProfileFile& file, std::string& bytes) {
    if (file.profiles.size() > kMostRecords)
        return Failure(resultErrorAddingResource, "there are more than 65,535 profiles");
    ByteWriter records;
    std::vector<std::uint32_t> byNumber;
    std::multimap<std::string, std::uint32_t> byName;  // equal names and keys keep the order of their numbers
    std::multimap<std::uint16_t, std::uint32_t> byKey;
    for (const std::optional<Profile>& profile : file.profiles) {
        if (!profile) {
            byNumber.push_back(kDeletedRecord);
            continue;
        }
        byNumber.push_back(static_cast<std::uint32_t>(records.Size()));
        const std::size_t start = BeginRecord(records, byNumber.size());
        if (!WriteProfile(*profile, records) || !EndRecord(records, start)) {
            return Failure(resultErrorAddingResource,
                           "profile \"" + profile->name + "\" does not fit the format");
        }
        byName.emplace(ToCodePage(profile->name), byNumber.back());
        byKey.emplace(profile->key, byNumber.back());
    }

    ByteWriter fields;
    fields.Append(MarkFields(file.marks));
    fields.U16(static_cast<std::uint32_t>(byNumber.size()));
    fields.U16(static_cast<std::uint32_t>(byNumber.size() - byName.size()));
    ResourceFileParts parts;
    parts.kindFields = fields.Take();
    parts.tables.resize(3);
    for (const auto& entry : byName)
        parts.tables[1].push_back(entry.second);
    for (const auto& entry : byKey)
        parts.tables[2].push_back(entry.second);
    parts.tables[0] = std::move(byNumber);
    parts.records = records.Take();
    return AssembleResourceFile(file.header, kFormat, parts, bytes);
}

}  // namespace tovarek
