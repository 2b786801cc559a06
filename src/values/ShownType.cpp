#include "values/ShownType.h"

#include <algorithm>
#include <unordered_set>

#include "base/Text.h"

namespace tovarek {
namespace {

// How far references to references are followed.
constexpr int kLongestChain = 16;

// What means something where values are written.
constexpr std::string_view kMarks = ",={}[]\"";
constexpr std::string_view kUnitMarks = ",{}[]\"";

constexpr unsigned kBitsOfByte = 8;

bool IsPlainByte(const TypeDescription& type) {
    return type == NumberOfKind(TypeKind::unsignedShort);
}

ValueShape ShapeOf(const TypeDescription& type) {
    switch (type.kind) {
        case TypeKind::enumeration:
            return ValueShape::enumeration;
        case TypeKind::floatingPoint:
            return ValueShape::real;
        case TypeKind::structure:
            return ValueShape::structure;
        case TypeKind::unionKind:
            return ValueShape::oneOf;
        case TypeKind::array:
            if (type.members.empty() || IsPlainByte(type.members[0].type))
                return ValueShape::bytes;
            return IsText(type) ? ValueShape::text : ValueShape::array;
        case TypeKind::reference:
            return ValueShape::bytes;
        default:
            return ValueShape::integer;
    }
}

bool IsKey(std::string_view name) {
    return !name.empty() && name.front() != '#' && std::all_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) > ' ' && kMarks.find(c) == std::string_view::npos;
    });
}

unsigned ShiftOf(const TypeDescription& field) {
    // The first bit of a byte is its highest. A field that a damaged file lets end behind its byte has what
    // is left.
    const unsigned end = std::min(kBitsOfByte, unsigned{field.bitOffset} + field.bitWidth);
    return kBitsOfByte - end;
}

}  // namespace

ShownType ShownTypeOf(const TypeDescription& type, const StringRef& unit, const ResourceNames& names) {
    const TypeDescription* followed = &type;
    StringRef nearest = unit;
    for (int i = 0; i < kLongestChain && followed->kind == TypeKind::reference; ++i) {
        const NvType* target = names.Nv(followed->target);
        if (target == nullptr || SizeOf(target->type) != followed->referencedSize)
            break;
        if (nearest.number == 0)
            nearest = target->unit;
        followed = &target->type;
    }
    const bool isKnown = followed->kind != TypeKind::reference;
    return {ShapeOf(*followed), isKnown ? followed : nullptr, SizeOf(*followed), nearest};
}

std::vector<std::string> MemberKeys(const TypeDescription& type) {
    std::vector<std::string> keys;
    keys.reserve(type.members.size());
    std::unordered_set<std::string> taken;
    for (const TypeMember& member : type.members) {
        const bool isKey = IsKey(member.name) && taken.insert(member.name).second;
        keys.push_back(isKey ? member.name : '#' + std::to_string(keys.size() + 1));
    }
    return keys;
}

std::string UnitText(const StringRef& unit, const ResourceNames& names) {
    const std::string text = names.Text(unit);
    return std::string(Trim(text));
}

std::string UnitInside(const std::string& unit) {
    return unit.find_first_of(kUnitMarks) == std::string::npos ? unit : std::string();
}

std::int64_t ReadRaw(std::string_view bytes, std::size_t at, const TypeDescription& type) {
    std::uint64_t value = 0;
    unsigned bits = kBitsOfByte * SizeOf(type);
    for (const char byte : bytes.substr(at, SizeOf(type)))
        value = (value << kBitsOfByte) | static_cast<unsigned char>(byte);
    if (type.kind == TypeKind::bitField) {
        bits = type.bitWidth;
        value = (value >> ShiftOf(type)) & ((std::uint64_t{1} << bits) - 1);
    }
    const bool isNegative = SmallestRaw(type) < 0 && (value >> (bits - 1)) != 0;
    return static_cast<std::int64_t>(value) - (isNegative ? std::int64_t{1} << bits : 0);
}

void WriteRaw(std::string& bytes, std::size_t at, const TypeDescription& type, std::int64_t raw) {
    auto value = static_cast<std::uint64_t>(raw);
    if (type.kind == TypeKind::bitField) {
        value &= (std::uint64_t{1} << type.bitWidth) - 1;
        bytes[at] = static_cast<char>(static_cast<unsigned char>(bytes[at]) | (value << ShiftOf(type)));
        return;
    }
    for (std::size_t i = SizeOf(type); i > 0; --i) {
        bytes[at + i - 1] = static_cast<char>(value & 0xFFU);
        value >>= kBitsOfByte;
    }
}

}  // namespace tovarek
