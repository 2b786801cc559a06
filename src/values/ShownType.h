// What a value of a type looks like to people: references followed, with the unit that is nearest on the way.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "control/ResourceNames.h"

namespace tovarek {

// How deep a type may go, and how many bytes a value may have.
inline constexpr int kDeepestValue = 64;
inline constexpr std::uint32_t kMostValueBytes = 65535;

// A value that does not fit its type, or a type that has no values; the text is the reason.
class ValueFault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class ValueShape : std::uint8_t {
    integer,      // scaled, also a bit field
    real,         // 4 bytes, IEEE
    enumeration,  // one byte
    text,
    bytes,  // of which nothing but their number is known
    array,
    structure,
    oneOf,  // a union
};

struct ShownType {
    ValueShape shape = ValueShape::bytes;
    // Null for a reference that leads nowhere.
    const TypeDescription* type = nullptr;
    std::uint32_t size = 0;  // bytes
    StringRef unit;
};

// An array of bytes without limits of their own is shape `bytes`: that is how a type is described of which
// only the size is known. So is a reference whose type is not known, or has another size than it says.
ShownType ShownTypeOf(const TypeDescription& type, const StringRef& unit, const ResourceNames& names);

// What the members of a structure or union are called where values are written: by name, or by "#" and the
// position, from 1, where the name is missing, stands twice or has a character that means something there.
std::vector<std::string> MemberKeys(const TypeDescription& type);

// The text of a unit as it is shown, without blanks around it; empty where none is known.
std::string UnitText(const StringRef& unit, const ResourceNames& names);

// The unit as it stands behind a number inside a structure or array; empty where it has a character that
// means something there.
std::string UnitInside(const std::string& unit);

// An integer's value at `at` in `bytes`, which are long enough, and back. `raw` fits the type.
std::int64_t ReadRaw(std::string_view bytes, std::size_t at, const TypeDescription& type);
void WriteRaw(std::string& bytes, std::size_t at, const TypeDescription& type, std::int64_t raw);

}  // namespace tovarek
