#include <bit>
#include <limits>

#include "base/Text.h"
#include "formats/records/ResourceFile.h"
#include "formats/type/TypeDescriptionCodec.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

class DescriptionWriter {
  public:
    explicit DescriptionWriter(ByteWriter& record) : record_(record) {}

    bool Description(const TypeDescription& type) {
        record_.U8(static_cast<std::uint32_t>(type.kind));
        switch (type.kind) {
            case TypeKind::enumeration:
                record_.Type(type.target);
                return Range(type);
            case TypeKind::bitField:
                return Place(type) && Range(type);
            case TypeKind::floatingPoint:
                FloatRange(type);
                return true;
            case TypeKind::reference:
                record_.Type(type.target);
                record_.U8(type.referencedSize);
                return true;
            case TypeKind::array:
                record_.U16(type.count);
                return type.members.size() == 1 && Members(type, false);
            case TypeKind::structure:
            case TypeKind::unionKind:
                record_.U16(static_cast<std::uint32_t>(type.members.size()));
                return type.members.size() <= 0xFFFF && Members(type, true);
            default:
                return IsInteger(type.kind) && Range(type) && Invalid(type);
        }
    }

  private:
    bool Members(const TypeDescription& type, bool named) {
        if (depth_ >= kDeepestNesting)
            return false;
        ++depth_;
        for (const TypeMember& member : type.members) {
            if (named && !WriteName(member.name, record_))
                return false;
            record_.String(member.nameText);
            record_.String(member.description);
            record_.String(member.unit);
            if (!Description(member.type))
                return false;
        }
        --depth_;
        return true;
    }

    bool Place(const TypeDescription& type) {
        record_.U8((type.bitSigned ? 0x80U : 0U) | static_cast<unsigned>(type.bitOffset << 4U) |
                   type.bitWidth);
        return IsBitWidth(type.bitWidth) && type.bitOffset < kMostBits;
    }

    void Raw(const TypeDescription& type, std::int64_t value) {
        record_.Number(static_cast<std::uint32_t>(value), RawSize(type.kind));
    }

    static bool Fits(const TypeDescription& type, std::int64_t value) {
        return value >= SmallestRaw(type) && value <= LargestRaw(type);
    }

    // The limit of the kind comes before the other short forms: an unsigned minimum 0 is the limit of its
    // kind.
    bool Range(const TypeDescription& type) {
        unsigned minimum = 0;
        if (type.minimum == SmallestRaw(type)) {
            minimum = kMinimumOfKind;
        } else if (type.minimum == 0) {
            minimum = kMinimumZero;
        } else if (type.minimum == -1) {
            minimum = kMinimumMinusOne;
        }
        unsigned maximum = 0;
        if (type.maximum == LargestRaw(type)) {
            maximum = kMaximumOfKind;
        } else if (type.maximum == 0) {
            maximum = kMaximumZero;
        }

        record_.U8(minimum | maximum | (type.a != 1 ? kFactorStored : 0) |
                   (type.b != 0 ? kExponentStored : 0) | (type.c != 0 ? kOffsetStored : 0));
        if (minimum == 0)
            Raw(type, type.minimum);
        if (maximum == 0)
            Raw(type, type.maximum);
        for (const auto& [value, usual] :
             {std::pair{type.a, 1}, std::pair{type.b, 0}, std::pair{type.c, 0}}) {
            if (value != usual)
                record_.U16(static_cast<std::uint32_t>(value));
        }
        return Fits(type, type.minimum) && Fits(type, type.maximum);
    }

    bool Invalid(const TypeDescription& type) {
        record_.U8(type.invalid ? 1 : 0);
        if (type.invalid)
            Raw(type, *type.invalid);
        return !type.invalid || Fits(type, *type.invalid);
    }

    void Float(float value) { record_.U32(std::bit_cast<std::uint32_t>(value)); }

    // Floats know the limits of their kind and stored limits only, and no scaling.
    void FloatRange(const TypeDescription& type) {
        const bool smallest = type.floatMinimum == std::numeric_limits<float>::lowest();
        const bool largest = type.floatMaximum == std::numeric_limits<float>::max();
        record_.U8((smallest ? kMinimumOfKind : 0) | (largest ? kMaximumOfKind : 0));
        if (!smallest)
            Float(type.floatMinimum);
        if (!largest)
            Float(type.floatMaximum);
        record_.U8(type.floatInvalid ? 1 : 0);
        if (type.floatInvalid)
            Float(*type.floatInvalid);
    }

    ByteWriter& record_;
    int depth_ = 0;
};

}  // namespace

bool WriteDescription(const TypeDescription& type, ByteWriter& record) {
    return DescriptionWriter(record).Description(type);
}

}  // namespace tovarek
