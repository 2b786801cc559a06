// Functional-profile files (.fpt): the profiles of a resource set with their members.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/records/Outcome.h"
#include "formats/records/ResourceModel.h"

namespace tovarek {

// Raw values that a member carries, each `size` bytes.
struct MemberValues {
    std::uint16_t size = 0;  // at most 255 for network variables
    std::optional<std::string> initial;
    std::optional<std::string> minimum;
    std::optional<std::string> maximum;
    bool operator==(const MemberValues&) const = default;
};

// What both kinds of members have.
struct ProfileMember {
    std::uint16_t number = 0;
    std::string name;
    bool mandatory = false;
    StringRef nameText;
    StringRef description;
    std::uint16_t reserved = 0;
    TypeRef type;
    MemberValues values;
    bool operator==(const ProfileMember&) const = default;
};

struct ProfileNv : ProfileMember {
    bool isInput = false;
    bool isPolled = false;
    std::uint8_t service = 0;  // 0 any, 1 unacknowledged, 4 acknowledged, 2 presumably repeated; 0 to 7
    bool operator==(const ProfileNv&) const = default;
};

struct ProfileCp : ProfileMember {
    std::uint16_t appliesTo = 0;      // NV member, 0 = the whole profile
    std::uint16_t smallestArray = 0;  // 0 and 0: not an array
    std::uint16_t largestArray = 0;
    std::uint8_t restrictions = 0;
    bool operator==(const ProfileCp&) const = default;
};

struct Profile {
    std::string name;       // with "UFPT"
    std::uint16_t key = 0;  // the functional profile number
    bool inherits = false;  // from the standard profile with the same key
    StringRef nameText;
    StringRef description;
    std::uint8_t reservedByte = 0;
    std::uint16_t reservedWord = 0;
    std::uint8_t principalNv = 0;  // member number, 0 = none
    std::vector<ProfileNv> nvs;
    std::vector<ProfileCp> cps;
    bool operator==(const Profile&) const = default;
};

struct ProfileFile {
    ResourceHeader header;
    HeaderMarks marks = kUsualMarks;
    std::vector<std::optional<Profile>> profiles;  // profile n is element n - 1; without value: deleted
};

// Reads a whole profile file. Codes: 5 cut or no resource file, 12 another kind of file, 7 unknown format
// version, 6 inconsistent header or tables, 10 wrong checksum, 13 damaged profile.
Outcome ReadProfileFile(std::string_view bytes, ProfileFile& file);

// The bytes of a fresh file. Codes: 6 a header text is too long, 13 a profile does not fit the format, or
// there are more than 65535.
Outcome WriteProfileFile(const ProfileFile& file, std::string& bytes);

}  // namespace tovarek
