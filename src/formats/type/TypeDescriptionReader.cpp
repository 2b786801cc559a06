#include <bit>
#include <limits>

#include "base/Text.h"
#include "formats/type/TypeDescriptionCodec.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

class DescriptionReader {
  public:
    explicit DescriptionReader(ByteReader& record) : record_(record) {}

    TypeDescription Description() {
        const std::uint8_t kind = record_.U8();
        if (kind < 1 || kind > static_cast<std::uint8_t>(TypeKind::unsignedQuad)) {
            record_.Fail();
            return {};
        }
        TypeDescription type;
        type.kind = static_cast<TypeKind>(kind);
        Rest(type);
        return type;
    }

  private:
    void Rest(TypeDescription& type) {
        switch (type.kind) {
            case TypeKind::enumeration:
                type.target = record_.Type();
                Range(type);
                break;
            case TypeKind::bitField:
                Place(type);
                Range(type);
                break;
            case TypeKind::floatingPoint:
                FloatRange(type);
                break;
            case TypeKind::reference:
                type.target = record_.Type();
                type.referencedSize = record_.U8();
                break;
            case TypeKind::array:
                type.count = record_.U16();
                Members(type, 1, false);
                break;
            case TypeKind::structure:
            case TypeKind::unionKind:
                Members(type, record_.U16(), true);
                break;
            default:
                Range(type);
                Invalid(type);
        }
    }

    // Each member takes 14 bytes or more, so a count that the record cannot hold ends the loop at its end.
    void Members(TypeDescription& type, std::size_t count, bool named) {
        if (++depth_ > kDeepestNesting)
            record_.Fail();
        for (std::size_t i = 0; i < count && !record_.Failed(); ++i) {
            TypeMember& member = type.members.emplace_back();
            if (named)
                member.name = FromCodePage(record_.Name());
            member.nameText = record_.String();
            member.description = record_.String();
            member.unit = record_.String();
            member.type = Description();
        }
        --depth_;
    }

    // Bits 6 to 4 offset, bits 3 to 0 width, bit 7 signed.
    void Place(TypeDescription& type) {
        const unsigned place = record_.U8();
        type.bitSigned = (place & 0x80U) != 0;
        type.bitOffset = static_cast<std::uint8_t>((place >> 4U) & 7U);
        type.bitWidth = static_cast<std::uint8_t>(place & 0x0FU);
        if (!IsBitWidth(type.bitWidth))
            record_.Fail();
    }

    std::int64_t Raw(const TypeDescription& type) {
        const bool isSigned = SmallestRaw(type) < 0;
        switch (RawSize(type.kind)) {
            case 1:
                return isSigned ? std::int64_t{record_.S8()} : std::int64_t{record_.U8()};
            case 2:
                return isSigned ? std::int64_t{record_.S16()} : std::int64_t{record_.U16()};
            default:
                return isSigned ? std::int64_t{record_.S32()} : std::int64_t{record_.U32()};
        }
    }

    // Each value that the flags settle is not stored.
    void Range(TypeDescription& type) {
        const unsigned flags = record_.U8();
        if (record_.Failed())
            return;
        if ((flags & kMinimumOfKind) != 0) {
            type.minimum = SmallestRaw(type);
        } else if ((flags & kMinimumMinusOne) != 0) {
            type.minimum = -1;
        } else {
            type.minimum = (flags & kMinimumZero) != 0 ? 0 : Raw(type);
        }
        if ((flags & kMaximumOfKind) != 0) {
            type.maximum = LargestRaw(type);
        } else {
            type.maximum = (flags & kMaximumZero) != 0 ? 0 : Raw(type);
        }
        Scaling(type, flags);
    }

    void Scaling(TypeDescription& type, unsigned flags) {
        if ((flags & kFactorStored) != 0)
            type.a = record_.S16();
        if ((flags & kExponentStored) != 0)
            type.b = record_.S16();
        if ((flags & kOffsetStored) != 0)
            type.c = record_.S16();
    }

    float Float() { return std::bit_cast<float>(record_.U32()); }

    void FloatRange(TypeDescription& type) {
        const unsigned flags = record_.U8();
        if ((flags & kMinimumOfKind) != 0) {
            type.floatMinimum = std::numeric_limits<float>::lowest();
        } else if ((flags & kMinimumMinusOne) != 0) {
            type.floatMinimum = -1;
        } else {
            type.floatMinimum = (flags & kMinimumZero) != 0 ? 0 : Float();
        }
        if ((flags & kMaximumOfKind) != 0) {
            type.floatMaximum = std::numeric_limits<float>::max();
        } else {
            type.floatMaximum = (flags & kMaximumZero) != 0 ? 0 : Float();
        }
        Scaling(type, flags);
        if (HasInvalid())
            type.floatInvalid = Float();
    }

    void Invalid(TypeDescription& type) {
        if (HasInvalid())
            type.invalid = Raw(type);
    }

    bool HasInvalid() {
        const std::uint8_t present = record_.U8();
        if (present > 1)
            record_.Fail();
        return present == 1;
    }

    ByteReader& record_;
    int depth_ = 0;
};

}  // namespace

TypeDescription ReadDescription(ByteReader& record) {
    return DescriptionReader(record).Description();
}

}  // namespace tovarek
