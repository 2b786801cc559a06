// The table of the profile's values. All loaders and the writer work from it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "profile/ProfileValues.h"

namespace tovarek {

struct ProfileField {
    std::string_view name;    // in upper case it is the XML element name
    std::string_view iniKey;  // in the INI section "Line<line>"; equal to the name but for typeNeuron
    int line;                 // XIF header line, 6 to 10; the XML element "XIF_LINE<line>"
    int token;                // 1-based place among the numbers of that line
    std::int32_t ProfileValues::*value;
    std::string_view meaning;  // for people, in the words of the documents
};

// In the order of the file.
inline constexpr auto kProfileFields = std::to_array<ProfileField>({
#define TOVAREK_PROFILE_FIELD(name, iniKey, line, token, meaning) \
    {#name, #iniKey, line, token, &ProfileValues::name, meaning},
#include "profile/ProfileList.inc"
#undef TOVAREK_PROFILE_FIELD
});

inline constexpr int kFirstProfileLine = 6;
inline constexpr int kLastProfileLine = 10;

// What is told of an interface file that another program has stored in characters of two bytes.
inline constexpr std::string_view kXifInUtf16 =
    "the file is UTF-16, so that no number of it can be read: save it in the 8-bit code page";

consteval bool ProfileFieldsRiseByPlace() {
    for (std::size_t i = 1; i < kProfileFields.size(); ++i) {
        const ProfileField& a = kProfileFields[i - 1];
        const ProfileField& b = kProfileFields[i];
        if (a.line > b.line || (a.line == b.line && a.token >= b.token))
            return false;
    }
    return true;
}
static_assert(ProfileFieldsRiseByPlace());

// The row of a value; the pointer must be one of the table's.
constexpr const ProfileField& FieldOf(std::int32_t ProfileValues::*value) {
    return *std::find_if(kProfileFields.begin(), kProfileFields.end(),
                         [value](const ProfileField& field) { return field.value == value; });
}

}  // namespace tovarek
