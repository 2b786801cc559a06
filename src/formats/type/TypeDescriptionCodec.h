// Type descriptions as they stand in NV and CP type records.
#pragma once

#include <cstddef>

#include "formats/records/ByteReader.h"
#include "formats/records/ByteWriter.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

// Takes one description. `record` fails when it is cut, of an unknown kind, or nested deeper than
// kDeepestNesting.
TypeDescription ReadDescription(ByteReader& record);

// Appends the description in its shortest form. False when it does not fit the format: a name of more than
// 255 bytes, too many members, a limit outside its kind, an impossible bit field, or too deep a nesting.
bool WriteDescription(const TypeDescription& type, ByteWriter& record);

// ---- the flags of a range: behind them stand, in this order, those of minimum, maximum, a, b and c that the
// flags do not settle ----

inline constexpr unsigned kMinimumOfKind = 0x80;    // the smallest value of the kind
inline constexpr unsigned kMinimumMinusOne = 0x40;  // common for enumerations
inline constexpr unsigned kMinimumZero = 0x20;      // of signed kinds
inline constexpr unsigned kMaximumOfKind = 0x10;    // the largest value of the kind
inline constexpr unsigned kMaximumZero = 0x08;
inline constexpr unsigned kFactorStored = 0x04;    // a; otherwise 1
inline constexpr unsigned kExponentStored = 0x02;  // b; otherwise 0
inline constexpr unsigned kOffsetStored = 0x01;    // c; otherwise 0

// Bytes of a raw limit.
constexpr std::size_t RawSize(TypeKind kind) {
    switch (kind) {
        case TypeKind::signedLong:
        case TypeKind::unsignedLong:
            return 2;
        case TypeKind::signedQuad:
        case TypeKind::unsignedQuad:
            return 4;
        default:
            return 1;
    }
}

}  // namespace tovarek
