// Devices to start from: small whole ones that a person of the field knows, each with a variable of each
// direction, an array, properties of the device, of a functional block and of a variable, standard, the
// maker's and its own, a message tag and a type of its own. No configuration variables: the interface file
// has no values for them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "profile/ProfileValues.h"
#include "template/CTemplate.h"

namespace tovarek {

struct StarterVariable {
    std::string_view name;
    std::int32_t direction = 0;  // 0 input, 1 output
    std::int32_t type = 0;
    std::string_view selfDocumentation;
    std::int32_t arraySize = 0;
    std::int32_t length = 0;  // of a type of its own
};

struct StarterProperty {
    std::string_view name;
    std::string_view declaration;
    std::string_view value;  // hexadecimal, like the limits
    std::int32_t type = 0;   // in the format file, for scope 6
    std::string_view minimum{};
    std::string_view maximum{};
};

// The property type that the user type file holds, number 1 of scope 3.
struct MakersType {
    std::string_view name;
    std::int32_t definition = 0;  // its number in the format file
    std::string_view minimum;     // hexadecimal
    std::string_view maximum;
    std::string_view initial;
};

struct Starter {
    std::string_view name;   // what the command line calls it
    std::string_view title;  // for people
    std::string_view programId;
    std::string_view selfDocumentation;
    std::string_view tag;
    std::span<const StarterVariable> variables;
    std::span<const StarterProperty> properties;
    std::string_view formatFile;  // the text of the XML format file, with LF
    MakersType makersType;
};

extern const Starter kFanCoilStarter;
extern const Starter kSensorStarter;
extern const Starter kSwitchStarter;

// All of them.
std::span<const Starter* const> Starters();

// The template, as a loader leaves it; `userTypeFile` is the name that it refers to.
CTemplate TemplateOf(const Starter& starter, const std::string& userTypeFile);

// The files of its types, with CR LF.
std::string FormatFileOf(const Starter& starter);
std::string UserTypesOf(const Starter& starter);

// What the README of a folder tells.
struct ReadMe {
    std::string title;
    std::string outputs;    // what generated files are called
    std::string form;       // the extension of profile and template
    std::string job;        // the file, the first of two where one cannot hold all types
    bool isExample = true;  // the program ID is one for examples
    bool hasTypes = true;   // there are types of the device's own
};

// What to change first, in ten lines of Markdown.
std::string ReadMeText(const ReadMe& readMe);

// The profile of all: a usual Neuron chip with a free-topology transceiver.
ProfileValues StarterProfile();

}  // namespace tovarek
