// Type files (.typ): network-variable types, configuration-property types and enumeration sets of a resource
// set.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/records/Outcome.h"
#include "formats/records/ResourceModel.h"

namespace tovarek {

// The kinds of a type description, by their code in the file.
enum class TypeKind : std::uint8_t {
    signedChar = 1,     // 1 byte, text
    unsignedChar = 2,   // 1 byte, text
    signedShort = 3,    // 1 byte
    unsignedShort = 4,  // 1 byte
    signedLong = 5,     // 2 bytes
    unsignedLong = 6,   // 2 bytes
    enumeration = 7,    // 1 byte, signed
    array = 8,
    structure = 9,
    unionKind = 10,
    bitField = 11,
    floatingPoint = 12,  // 4 bytes, IEEE
    signedQuad = 13,     // 4 bytes
    reference = 14,      // to a network-variable type
    unsignedQuad = 15,   // 4 bytes
};

struct TypeMember;

// A bit field lies inside one byte.
inline constexpr int kMostBits = 8;
constexpr bool IsBitWidth(int width) {
    return width >= 1 && width <= kMostBits;
}

// What a type is. Which of the members below count depends on the kind; the others keep their defaults.
struct TypeDescription {
    TypeKind kind = TypeKind::unsignedShort;

    // Numbers (1 to 7, 11, 13, 15): raw limits, already resolved, and the scaling a x 10^b x (raw + c).
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    std::int16_t a = 1;
    std::int16_t b = 0;
    std::int16_t c = 0;
    std::optional<std::int64_t> invalid;  // raw value that means "invalid"; kinds 1 to 6, 13, 15

    // Floats: limits and invalid value.
    float floatMinimum = 0;
    float floatMaximum = 0;
    std::optional<float> floatInvalid;

    TypeRef target;                   // kind 7: the enumeration set; kind 14: the NV type
    std::uint8_t referencedSize = 0;  // kind 14: size of that type in bytes

    std::uint8_t bitOffset = 0;  // kind 11: 0 to 7; 0 is the first bit of the byte
    std::uint8_t bitWidth = 0;   // kind 11: 1 to 8
    bool bitSigned = false;

    std::uint16_t count = 0;          // kind 8: number of elements
    std::vector<TypeMember> members;  // kinds 9, 10: the members; kind 8: one nameless member, the element

    bool operator==(const TypeDescription& other) const;
};

// A member of a structure or union, or the element of an array.
struct TypeMember {
    std::string name;  // up to 255 bytes in the code page
    StringRef nameText;
    StringRef description;
    StringRef unit;
    TypeDescription type;

    bool operator==(const TypeMember&) const = default;
};

// A number with the widest limits of its kind (1 to 7, 12, 13, 15), no scaling and no invalid value.
TypeDescription NumberOfKind(TypeKind kind);
// Smallest and largest raw value of a number; for bit fields they depend on width and sign. 0 for other
// kinds.
std::int64_t SmallestRaw(const TypeDescription& type);
std::int64_t LargestRaw(const TypeDescription& type);
bool IsInteger(TypeKind kind);   // kinds 1 to 6, 13, 15
bool HasMembers(TypeKind kind);  // structure, union

// An array of `count` elements.
TypeDescription ArrayOf(TypeDescription element, std::uint16_t count, std::uint8_t scope);
// A text of `length` characters: an array of unsigned characters.
TypeDescription TextOf(std::uint16_t length, std::uint8_t scope);
// True for an array of kind 1 or 2, which tools show as text.
bool IsText(const TypeDescription& type);

// Bytes that a value takes on the network. Bit fields that follow one another share a byte as long as their
// offset grows, a smaller or equal one starts the next byte; a union is as large as its largest member;
// arrays multiply. More than 65535 is answered as 65536.
std::uint32_t SizeOf(const TypeDescription& type);

// Where each member of a structure lies: its first byte, or the byte of a bit field, by the same rules.
std::vector<std::uint32_t> MemberOffsets(const TypeDescription& structure);

// Structures, unions and arrays inside one another, at most; a deeper description is damaged.
inline constexpr int kDeepestNesting = 1024;

struct NvType {
    std::string name;  // without the leading "SNVT" or "UNVT"; an underscore is part of it
    std::uint16_t size = 0;
    StringRef nameText;
    StringRef description;
    StringRef unit;
    TypeDescription type;
    // Two fields whose meaning is not known, normally 0; kept as they are.
    std::uint8_t reservedByte = 0;
    std::uint16_t reservedWord = 0;

    bool operator==(const NvType&) const = default;
};

struct CpType : NvType {  // name without "SCPT" or "UCPT"
    // Raw values as sent on the network, `size` bytes each.
    std::optional<std::string> minimum;
    std::optional<std::string> maximum;
    std::string initial;

    bool operator==(const CpType&) const = default;
};

struct EnumerationValue {
    std::int8_t value = 0;
    std::string name;
    StringRef description;
    bool operator==(const EnumerationValue&) const = default;
};

struct Enumeration {
    std::string name;
    std::string fileName;  // of the C header that declares it
    std::vector<EnumerationValue> values;
    bool operator==(const Enumeration&) const = default;
};

// Number n of each group is element n - 1; one without value is deleted.
struct TypeFile {
    ResourceHeader header;
    HeaderMarks marks = kUsualMarks;
    std::vector<std::optional<NvType>> nvTypes;
    std::vector<std::optional<CpType>> cpTypes;
    std::vector<std::optional<Enumeration>> enumerations;
};

inline constexpr std::uint8_t kTypeFormat = 6;       // the format version of today
inline constexpr std::size_t kEnumerationEntry = 7;  // bytes of a value in its set's record, but for its name

// Reads a whole type file, format 6 or 3. Codes: 5 cut or no resource file, 12 another kind of file, 7
// unknown format version, 6 inconsistent header or tables, 10 wrong checksum, 20 damaged type, 14 damaged
// enumeration.
Outcome ReadTypeFile(std::string_view bytes, TypeFile& file);

// The bytes of a fresh file in format 6. Codes: 6 a header text is too long, 20 a type, 14 an enumeration
// that does not fit the format; both also for more than 65535 of them.
Outcome WriteTypeFile(const TypeFile& file, std::string& bytes);

// Bytes of a record behind its head as the writer will make it, for a CP type without its raw values
// and for an enumeration without its values; more than kLongestRecord do not fit.
std::size_t RecordLength(const NvType& type);
std::size_t RecordLength(const Enumeration& enumeration);

}  // namespace tovarek
