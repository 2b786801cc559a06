#include "listing/RecordListing.h"

#include <algorithm>
#include <array>
#include <bit>

#include "base/Numbers.h"
#include "base/Text.h"
#include "listing/Checksum.h"
#include "listing/KindNames.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr int kDeepest = 1024;  // levels of members and elements

// How the limits of a kind of type description are stored.
struct KindRow {
    std::size_t size;  // of a stored limit; 0 = no range
    bool isSigned;
    bool hasInvalid;  // a byte behind the range tells whether there is an invalid value
};
constexpr std::array<KindRow, kKindNames.size()> kKinds = {{
    {},
    {1, true, true},  // characters
    {1, false, true},
    {1, true, true},  // shorts
    {1, false, true},
    {2, true, true},  // longs
    {2, false, true},
    {1, true, false},  // enumeration
    {},                // array, structure, union
    {},
    {},
    {1, false, false},  // bit field
    {4, true, true},    // float
    {4, true, true},    // signed quad
    {},                 // reference
    {4, false, true},   // unsigned quad
}};
constexpr unsigned kEnumeration = 7;
constexpr unsigned kArray = 8;
constexpr unsigned kStructure = 9;
constexpr unsigned kUnion = 10;
constexpr unsigned kBitField = 11;
constexpr unsigned kFloat = 12;
constexpr unsigned kReference = 14;

struct FlagRow {
    unsigned bit;
    std::string_view meaning;
};
constexpr auto kRangeFlags = std::to_array<FlagRow>({
    {0x80, "minimum of the kind"},
    {0x40, "minimum -1"},
    {0x20, "minimum 0"},
    {0x10, "maximum of the kind"},
    {0x08, "maximum 0"},
    {0x04, "A stored"},
    {0x02, "B stored"},
    {0x01, "C stored"},
});
constexpr auto kCpFlags = std::to_array<FlagRow>({{0x02, "minimum stored"}, {0x01, "maximum stored"}});
constexpr auto kNvMemberFlags = std::to_array<FlagRow>({
    {0x80, "input"},
    {0x40, "polled"},
    {0x20, "acknowledged"},
    {0x10, "repeated"},
    {0x08, "unacknowledged"},
    {0x04, "default stored"},
    {0x02, "minimum stored"},
    {0x01, "maximum stored"},
});
constexpr auto kCpMemberFlags =
    std::to_array<FlagRow>({{0x04, "default stored"}, {0x02, "minimum stored"}, {0x01, "maximum stored"}});

template <std::size_t count>
unsigned Flags(ByteCursor& cursor, std::string_view field, const std::array<FlagRow, count>& rows) {
    const auto flags = static_cast<unsigned>(cursor.Unsigned(field, 1));
    std::string meaning;
    for (const FlagRow& row : rows)
        if ((flags & row.bit) != 0)
            meaning += (meaning.empty() ? "" : ", ") + std::string(row.meaning);
    cursor.Value(meaning.empty() ? "none" : meaning);
    return flags;
}

void Strings(ByteCursor& cursor, bool withUnit) {
    cursor.Reference("name text", 4);
    cursor.Reference("description", 4);
    if (withUnit)
        cursor.Reference("unit", 4);
}

void Limit(ByteCursor& cursor, std::string_view field, unsigned kind, bool isSigned) {
    const std::size_t size = kKinds.at(kind).size;
    if (kind == kFloat) {
        const auto bits = static_cast<std::uint32_t>(cursor.Unsigned(field, size));
        cursor.Value(RealText(std::bit_cast<float>(bits)));
    } else if (isSigned) {
        cursor.Signed(field, size);
    } else {
        cursor.Unsigned(field, size);
    }
}

void Range(ByteCursor& cursor, unsigned kind, bool isSigned) {
    const unsigned flags = Flags(cursor, "range flags", kRangeFlags);
    if ((flags & 0xE0U) == 0)
        Limit(cursor, "minimum", kind, isSigned);
    if ((flags & 0x18U) == 0)
        Limit(cursor, "maximum", kind, isSigned);
    if ((flags & 0x04U) != 0)
        cursor.Signed("A", 2);
    if ((flags & 0x02U) != 0)
        cursor.Signed("B", 2);
    if ((flags & 0x01U) != 0)
        cursor.Signed("C", 2);
    if (kKinds.at(kind).hasInvalid && cursor.Unsigned("has invalid value", 1) == 1)
        Limit(cursor, "invalid value", kind, isSigned);
}

void Description(ByteCursor& cursor, int depth);

void Members(ByteCursor& cursor, int depth) {
    const std::uint64_t count = cursor.Unsigned("members", 2);
    for (std::uint64_t i = 0; i < count && !cursor.IsCut(); ++i) {
        cursor.Deeper();
        cursor.Name("member " + std::to_string(i + 1));
        Strings(cursor, true);
        Description(cursor, depth + 1);
        cursor.Higher();
    }
}

void BitField(ByteCursor& cursor) {
    const auto place = static_cast<unsigned>(cursor.Unsigned("place", 1));
    cursor.Value("offset " + std::to_string((place >> 4U) & 7U) + ", width " + std::to_string(place & 15U) +
                 ((place & 0x80U) != 0 ? ", signed" : ""));
    Range(cursor, kBitField, (place & 0x80U) != 0);
}

// A kind that is not known ends what can be understood; the rest of the record becomes one row.
void Description(ByteCursor& cursor, int depth) {
    const auto kind = static_cast<unsigned>(cursor.Unsigned("kind", 1));
    if (cursor.IsCut())
        return;
    const bool isKnown = kind > 0 && kind < kKinds.size() && depth <= kDeepest;
    cursor.Value(std::to_string(kind) + ' ' + std::string(kKindNames.at(isKnown ? kind : 0)));
    if (!isKnown) {
        cursor.GiveUp("not understood");
    } else if (kind == kArray) {
        cursor.Unsigned("count", 2);
        cursor.Deeper();
        Strings(cursor, true);
        Description(cursor, depth + 1);
        cursor.Higher();
    } else if (kind == kStructure || kind == kUnion) {
        Members(cursor, depth);
    } else if (kind == kBitField) {
        BitField(cursor);
    } else if (kind == kReference) {
        cursor.Reference("type", 3);
        cursor.Unsigned("size of that type", 1);
    } else {
        if (kind == kEnumeration)
            cursor.Reference("enumeration set", 3);
        Range(cursor, kind, kKinds.at(kind).isSigned);
    }
}

std::size_t TypeHead(ByteCursor& cursor, bool isOldFormat) {
    cursor.Unsigned("reserved", 1);
    if (!isOldFormat)
        cursor.Unsigned("reserved", 2);
    const auto size = static_cast<std::size_t>(cursor.Unsigned("size", 2));
    cursor.Name("name");
    Strings(cursor, true);
    Description(cursor, 0);
    return size;
}

void RawValues(ByteCursor& cursor, std::size_t size) {
    const unsigned flags = Flags(cursor, "value flags", kCpFlags);
    if ((flags & 0x02U) != 0)
        cursor.Hex("raw minimum", size);
    if ((flags & 0x01U) != 0)
        cursor.Hex("raw maximum", size);
    cursor.Hex("raw default", size);
}

void StringText(ByteCursor& cursor) {
    const auto stored = static_cast<unsigned>(cursor.Unsigned("checksum", 2));
    if (cursor.IsCut())
        return;
    const std::string_view text =
        cursor.Remaining() == 0 ? std::string_view() : cursor.Peek(cursor.Remaining()).substr(1);
    cursor.Value(stored == BitwiseCrc(text) ? "right"
                                            : "wrong, should be " + std::to_string(BitwiseCrc(text)));
    cursor.Unsigned("reserved", 1);
    if (text.empty())
        return;
    const std::size_t length = text.size() - 1;
    cursor.Field("text", length, '"' + Printable(FromCodePage(text.substr(0, length))) + '"');
    cursor.Field("end", 1, text.back() == '\0' ? "NUL" : "wrong, should be NUL");
}

void EnumerationSet(ByteCursor& cursor) {
    cursor.Name("set name");
    cursor.Name("file name");
    const std::uint64_t count = cursor.Unsigned("values", 2);
    cursor.Deeper();
    for (std::uint64_t i = 0; i < count && !cursor.IsCut(); ++i) {
        cursor.Signed("value " + std::to_string(i + 1), 1);
        cursor.Hex("offset of its name", 2);
        cursor.Reference("description", 4);
    }
    for (std::uint64_t i = 0; i < count && cursor.Remaining() > 0; ++i)
        cursor.Name("name " + std::to_string(i + 1));
    cursor.Higher();
}

// The values of a member: default, minimum, maximum.
void MemberValues(ByteCursor& cursor, unsigned flags, std::size_t size) {
    if ((flags & 0x04U) != 0)
        cursor.Hex("raw default", size);
    if ((flags & 0x02U) != 0)
        cursor.Hex("raw minimum", size);
    if ((flags & 0x01U) != 0)
        cursor.Hex("raw maximum", size);
}

void MemberHead(ByteCursor& cursor) {
    cursor.Name("name");
    cursor.Unsigned("mandatory", 1);
    Strings(cursor, false);
    cursor.Unsigned("reserved", 2);
    cursor.Reference("type", 3);
}

void ProfileNvMember(ByteCursor& cursor) {
    cursor.Unsigned("member number", 2);
    MemberHead(cursor);
    const unsigned flags = Flags(cursor, "flags", kNvMemberFlags);
    MemberValues(cursor, flags, static_cast<std::size_t>(cursor.Unsigned("value size", 1)));
}

void ProfileCpMember(ByteCursor& cursor) {
    cursor.Unsigned("applies to NV member", 2);
    cursor.Unsigned("member number", 2);
    cursor.Unsigned("smallest array", 2);
    cursor.Unsigned("largest array", 2);
    MemberHead(cursor);
    cursor.Unsigned("restrictions", 1);
    const unsigned flags = Flags(cursor, "flags", kCpMemberFlags);
    MemberValues(cursor, flags, static_cast<std::size_t>(cursor.Unsigned("value size", 2)));
}

void ProfileMembers(ByteCursor& cursor, const char* what, std::uint64_t count,
                    void (*list)(ByteCursor& cursor)) {
    for (std::uint64_t i = 0; i < count && !cursor.IsCut(); ++i) {
        const auto length =
            static_cast<std::size_t>(cursor.Unsigned(what + (' ' + std::to_string(i + 1)) + ", length", 2));
        const std::size_t end = cursor.Position() + std::min(length, cursor.Remaining());
        cursor.Deeper();
        list(cursor);
        cursor.UpTo(end, "left in the member");
        cursor.Higher();
    }
}

void ProfileRecord(ByteCursor& cursor) {
    cursor.Unsigned("key", 2);
    cursor.Unsigned("reserved", 1);
    cursor.Unsigned("inherits from the standard profile", 1);
    cursor.Name("name");
    Strings(cursor, false);
    cursor.Unsigned("reserved", 2);
    std::uint64_t nvs = cursor.Unsigned("mandatory NVs", 1);
    nvs += cursor.Unsigned("optional NVs", 1);
    std::uint64_t cps = cursor.Unsigned("mandatory CPs", 1);
    cps += cursor.Unsigned("optional CPs", 1);
    cursor.Unsigned("principal NV", 1);
    ProfileMembers(cursor, "NV member", nvs, ProfileNvMember);
    ProfileMembers(cursor, "CP member", cps, ProfileCpMember);
}

}  // namespace

std::string_view RecordName(RecordKind kind) {
    constexpr auto kNames =
        std::to_array<std::string_view>({"string", "NV type", "CP type", "enumeration set", "profile"});
    return kNames.at(static_cast<std::size_t>(kind));
}

void ListRecord(ByteCursor& cursor, RecordKind kind, bool isOldFormat) {
    cursor.Unsigned("number", kind == RecordKind::string ? 3 : 2);
    const auto length = static_cast<std::size_t>(cursor.Unsigned("length", 2));
    if (length != cursor.Remaining() && !cursor.IsCut())
        cursor.Value(std::to_string(length) + ", of which " + std::to_string(cursor.Remaining()) + " fit");
    switch (kind) {
        case RecordKind::string:
            StringText(cursor);
            break;
        case RecordKind::nvType:
            TypeHead(cursor, isOldFormat);
            break;
        case RecordKind::cpType:
            RawValues(cursor, TypeHead(cursor, isOldFormat));
            break;
        case RecordKind::enumeration:
            EnumerationSet(cursor);
            break;
        case RecordKind::profile:
            ProfileRecord(cursor);
            break;
    }
}

}  // namespace tovarek
