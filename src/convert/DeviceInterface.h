// A device's interface as one model, wherever it was read: an XIF file, a profile, a template.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "profile/ProfileValues.h"
#include "template/CTemplate.h"
#include "types/CType.h"

namespace tovarek {

// Something of an input that an output does not hold.
struct Loss {
    std::string record;  // "network variable 3 (nviTemp)", "line 6"
    std::string field;
    std::string value;  // as the input has it
    std::string reason;
    // False for what nobody misses in an input of this system: it is told, and that is all.
    bool counts = true;
};

// A type element of the format file.
struct DefinedType {
    std::int32_t number = 0;   // format number; up to 255 it stands for the standard type
    std::string name;          // NAME; empty: none
    bool isNamedLast = false;  // NAME stands behind ENUMS, so that the enumeration is not called after it
    CType content;             // all but name and members
    std::vector<std::pair<std::string, std::int32_t>> members;  // name and format number
    std::string comment;
};

// A type of the device's own: a template (scope 6) or a user type file (scopes 1 to 5) asks for it.
struct UserType {
    bool isUnvt = false;  // a network-variable type; else a property type
    std::uint8_t scope = 0;
    std::uint16_t number = 0;     // in its scope
    std::string wholeName;        // as the resource files have it: "UNVT_speed"
    std::string name;             // what inputs say for it; a generation puts prefixes and a number in front
    std::int32_t nameNumber = 0;  // that number, in a user type file
    std::int32_t definition = 0;  // format number
    std::uint16_t size = 0;       // bytes of a value
    std::string rawMinimum;       // of a property type, in hexadecimal; empty: not told
    std::string rawMaximum;
    std::string rawInitial;
};

struct TypeInputs {
    std::vector<DefinedType> definitions;  // by format number
    // By scope, network-variable types before property types, each in the order of their generation.
    std::vector<UserType> types;
    std::map<std::uint8_t, std::string> programIds;  // sixteen digits, of the resource files by their scope
};

struct DeviceInterface {
    bool hasProfile = false;
    bool hasTemplate = false;
    ProfileValues profile;
    CTemplate device;  // as a loader leaves it: nothing is completed
    TypeInputs own;    // of resource files
    // The declarations of an XIF file carried the names of all properties: generating has to add them again.
    bool addsNames = false;
    std::vector<Loss> losses;
};

}  // namespace tovarek
