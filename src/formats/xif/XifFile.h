// Device-interface files (XIF, versions 1 to 4.501) as their readers know them, whoever wrote them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/records/Outcome.h"
#include "formats/xif/XifValues.h"

namespace tovarek {

// A number of the file; without value it is left at its default, which the file writes as "*".
using XifNumber = std::optional<std::int64_t>;

// The number at `place`, from 0; 0 where the line has fewer.
inline XifNumber NumberAt(const std::vector<XifNumber>& numbers, std::size_t place) {
    return place < numbers.size() ? numbers[place] : 0;
}

// One of the lines behind the program ID that hold parameters; 6 is the first.
struct XifParameters {
    int line;
    std::vector<XifNumber> numbers;
};

// Places on the second line of a variable, and of a tag, whose second place tells whether it is bindable.
enum XifPlace : std::size_t {
    placeOffline,
    placeSecond,  // 1 in every file
    placeBindable = placeSecond,
    placeThird,  // 63 in every file
    placeDirection,
    placeService,  // one of kXifServices
    placeServiceCanBeChanged,
    placeAuthenticated,
    placeAuthCanBeChanged,
    placePriority,
    placePriorityCanBeChanged,
    placePolled,
    placeSynchronized,
    placeConfiguration,
};
inline constexpr auto kXifServices =
    std::to_array<std::string_view>({"acknowledged", "repeated", "unacknowledged"});

struct XifTag {
    std::string name;
    std::vector<XifNumber> numbers;     // behind the name: index, average and maximum rate, 0
    std::vector<XifNumber> attributes;  // the second line, by XifPlace
};

// One field of a variable's type.
struct XifElement {
    XifNumber type;
    XifNumber offset;
    XifNumber size;
    XifNumber isSigned;
    XifNumber array;
};

struct XifVariable {
    std::string name;
    std::vector<XifNumber> numbers;     // behind the name: index, rates, array size
    std::vector<XifNumber> attributes;  // the second line, by XifPlace
    std::string documentation;          // pieces joined, escapes as they stand
    XifNumber standardType;             // 0 = a user type
    std::vector<XifElement> elements;

    XifNumber Number(std::size_t place) const { return NumberAt(numbers, place); }
    XifNumber Attribute(std::size_t place) const { return NumberAt(attributes, place); }
    // Bytes of one value: bit fields share a byte as long as their offset grows, a union has its own size.
    std::int64_t Size() const;
};

struct XifSection {
    std::string name;
    XifNumber index;
    XifNumber type;  // 2: a property template, 1: values
    std::optional<XifNumber> length;
    XifContent content;
};

struct XifComment {
    std::size_t line;
    std::string text;
};

// A record of a kind that is not known: its lines up to an empty one.
struct XifUnknown {
    std::size_t line;
    std::vector<std::string> lines;
};

struct XifFile {
    std::string name;
    std::string tool;
    std::string version;  // "4.0"
    std::string copyright;
    std::string run;  // the third line, with the date
    std::string programId;
    std::vector<XifParameters> parameters;
    std::string documentation;
    std::vector<XifTag> tags;
    std::vector<XifVariable> variables;
    std::vector<XifSection> sections;
    std::optional<XifContent> values;  // NVVAL
    std::vector<XifComment> comments;
    std::vector<XifUnknown> unknown;
    bool endMark = false;        // the text ends with the byte 1A
    std::string attached;        // what follows the text, for example an application image
    std::size_t attachedAt = 0;  // its offset; the file's size when there is none
    // What each line of the text is, in order; one for every line that was understood.
    std::vector<std::string> lineRoles;
};

// Reads an XIF file (windows-1252, CR LF or LF). Code 5; the reason names the line. What was read up to there
// stays in `file`, for lineRoles.
Outcome ReadXifFile(std::string_view bytes, XifFile& file);

// Takes the date out of the third line of an XIF file; leaves what does not begin as one.
void BlankXifDate(std::string& bytes);

}  // namespace tovarek
