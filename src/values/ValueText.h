// Values as people write them, and as devices send them: bytes, the highest first.
//
//   60, 60 s             a number, in the unit of its type
//   HVAC_HEAT            a value of an enumeration, by its name
//   Room A, "Room A"     a text; quotes are needed inside structures, and for blanks at its ends
//   value=50, state=1    a structure, an inner one in braces; of a union one member
//   1, 2, 3              an array, an inner one in brackets
//   0A0B                 bytes of which nothing but their number is known
//   invalid              what the type sets apart as no value
//   raw:32767            a raw number, whatever limits and scaling say; of a real number its 32 bits
//
// In quotes \" \\ and \xHH (a byte) stand for what could not be told otherwise. All bytes of the right number
// have a text, which is the bytes again, but for bits that no member has; what decodes says where it has
// seen such.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/records/Outcome.h"
#include "values/ShownType.h"

namespace tovarek {

struct ValueType {
    std::string name;
    TypeDescription type;
    StringRef unit;
};

// The bytes of the value that `text` (UTF-8) tells; `notes` gets a sentence for each number that was rounded
// to a step of its type. Code 16: the text does not fit the type; the reason tells member, text and what is
// accepted.
Outcome EncodeValue(const ValueType& type, std::string_view text, const ResourceNames& names,
                    std::string& bytes, std::vector<std::string>& notes);

struct DecodedValue {
    enum class Kind : std::uint8_t { number, word, text, list, structure };

    Kind kind = Kind::word;
    std::string name;  // of a member
    std::string unit;
    std::string text;   // of a number or word, as it is written; of a text, its characters
    std::string bytes;  // of a text
    std::vector<DecodedValue> children;
    bool isInvalid = false;  // what the type sets apart as no value
    bool isUnion = false;    // one of several members that share the bytes
    // Why the bytes are none of the values that the type allows, with the path of the member.
    std::string fault;
};

// Code 16: not as many bytes as the type has. `notes` gets a sentence for each number outside its limits,
// each union and each type that is not known.
Outcome DecodeValue(const ValueType& type, std::string_view bytes, const ResourceNames& names,
                    DecodedValue& value, std::vector<std::string>& notes);

// As EncodeValue takes it.
std::string WrittenValue(const DecodedValue& value);

}  // namespace tovarek
