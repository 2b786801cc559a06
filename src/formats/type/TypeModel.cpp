#include <algorithm>
#include <limits>
#include <tuple>

#include "formats/type/TypeFile.h"

namespace tovarek {
namespace {

constexpr std::uint32_t kTooLarge = 65536;

struct Limits {
    std::int64_t smallest;
    std::int64_t largest;
};

template <class Integer>
constexpr Limits LimitsOf() {
    return {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()};
}

Limits LimitsOfType(const TypeDescription& type) {
    switch (type.kind) {
        case TypeKind::signedChar:
        case TypeKind::signedShort:
        case TypeKind::enumeration:
            return LimitsOf<std::int8_t>();
        case TypeKind::unsignedChar:
        case TypeKind::unsignedShort:
            return LimitsOf<std::uint8_t>();
        case TypeKind::signedLong:
            return LimitsOf<std::int16_t>();
        case TypeKind::unsignedLong:
            return LimitsOf<std::uint16_t>();
        case TypeKind::signedQuad:
            return LimitsOf<std::int32_t>();
        case TypeKind::unsignedQuad:
            return LimitsOf<std::uint32_t>();
        case TypeKind::bitField: {
            const std::int64_t values = std::int64_t{1} << type.bitWidth;
            return type.bitSigned ? Limits{-values / 2, values / 2 - 1} : Limits{0, values - 1};
        }
        default:
            return {0, 0};
    }
}

// Adds up members in order. The place of the last bit field tells whether the next one still fits its byte.
class Summation {
  public:
    void Add(const TypeDescription& type) {
        if (type.kind == TypeKind::bitField) {
            if (type.bitOffset <= lastOffset_)
                Grow(1);
            lastOffset_ = type.bitOffset;
            return;
        }
        lastOffset_ = kNoBits;
        Grow(SizeOf(type));
    }
    std::uint32_t Total() const { return total_; }

  private:
    static constexpr int kNoBits = 8;  // larger than any offset: the next bit field starts a byte
    void Grow(std::uint32_t size) { total_ = std::min(total_ + size, kTooLarge); }

    std::uint32_t total_ = 0;
    int lastOffset_ = kNoBits;
};

}  // namespace

bool TypeDescription::operator==(const TypeDescription& other) const {
    const auto parts = [](const TypeDescription& type) {
        return std::tie(type.kind, type.minimum, type.maximum, type.a, type.b, type.c, type.invalid,
                        type.floatMinimum, type.floatMaximum, type.floatInvalid, type.target,
                        type.referencedSize, type.bitOffset, type.bitWidth, type.bitSigned, type.count,
                        type.members);
    };
    return parts(*this) == parts(other);
}

TypeDescription NumberOfKind(TypeKind kind) {
    TypeDescription type;
    type.kind = kind;
    type.minimum = SmallestRaw(type);
    type.maximum = LargestRaw(type);
    if (kind == TypeKind::floatingPoint) {
        type.floatMinimum = std::numeric_limits<float>::lowest();
        type.floatMaximum = std::numeric_limits<float>::max();
    }
    return type;
}

std::int64_t SmallestRaw(const TypeDescription& type) {
    return LimitsOfType(type).smallest;
}
std::int64_t LargestRaw(const TypeDescription& type) {
    return LimitsOfType(type).largest;
}

bool IsInteger(TypeKind kind) {
    return (kind >= TypeKind::signedChar && kind <= TypeKind::unsignedLong) || kind == TypeKind::signedQuad ||
           kind == TypeKind::unsignedQuad;
}

bool HasMembers(TypeKind kind) {
    return kind == TypeKind::structure || kind == TypeKind::unionKind;
}

TypeDescription ArrayOf(TypeDescription element, std::uint16_t count, std::uint8_t scope) {
    TypeDescription type;
    type.kind = TypeKind::array;
    type.count = count;
    const StringRef none{scope, 0};
    type.members.push_back({{}, none, none, none, std::move(element)});
    return type;
}

TypeDescription TextOf(std::uint16_t length, std::uint8_t scope) {
    return ArrayOf(NumberOfKind(TypeKind::unsignedChar), length, scope);
}

bool IsText(const TypeDescription& type) {
    return type.kind == TypeKind::array && !type.members.empty() &&
           (type.members[0].type.kind == TypeKind::unsignedChar ||
            type.members[0].type.kind == TypeKind::signedChar);
}

std::uint32_t SizeOf(const TypeDescription& type) {
    switch (type.kind) {
        case TypeKind::signedLong:
        case TypeKind::unsignedLong:
            return 2;
        case TypeKind::signedQuad:
        case TypeKind::unsignedQuad:
        case TypeKind::floatingPoint:
            return 4;
        case TypeKind::reference:
            return type.referencedSize;
        case TypeKind::array:
            return type.members.empty() ? 0 : std::min(SizeOf(type.members[0].type) * type.count, kTooLarge);
        case TypeKind::structure: {
            Summation sum;
            for (const TypeMember& member : type.members)
                sum.Add(member.type);
            return sum.Total();
        }
        case TypeKind::unionKind: {
            std::uint32_t largest = 0;
            for (const TypeMember& member : type.members)
                largest = std::max(largest, SizeOf(member.type));
            return largest;
        }
        default:
            return 1;
    }
}

std::vector<std::uint32_t> MemberOffsets(const TypeDescription& structure) {
    std::vector<std::uint32_t> offsets;
    offsets.reserve(structure.members.size());
    Summation sum;
    for (const TypeMember& member : structure.members) {
        const std::uint32_t before = sum.Total();
        sum.Add(member.type);
        offsets.push_back(member.type.kind == TypeKind::bitField ? sum.Total() - 1 : before);
    }
    return offsets;
}

}  // namespace tovarek
