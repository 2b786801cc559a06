// The configuration properties of a device-interface file: what its template declares, and which bytes of its
// files of values are whose.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/xif/XifFile.h"

namespace tovarek {

// One record "header,select,scope flags,type,length[,count[,range]];". The scope digit and the flags byte
// stand together; a text behind the ";" is the property's name.
struct XifProperty {
    std::string record;     // as it stands, without the ";"
    bool isKnown = true;    // false when it is no such record; then only `record` counts
    std::string appliesTo;  // the header: 0 device, 1 functional block, 2 network variable
    std::string select;
    std::string scope;
    std::string flags;
    std::string type;
    std::string length;
    std::string count;  // may be absent, as the range
    std::string range;
    std::string name;

    // What tells a property from the others: its name, else what it applies to, scope and type.
    std::string Key() const;
    // Bytes of its value: of all elements together. Negative for what no file can hold.
    std::int64_t Bytes() const;
    // A value that nothing changes; such ones may lie in a file of their own.
    bool IsConstant() const;
    // One that tools of other makers leave alone.
    bool IsMakersOnly() const;
};

struct XifPropertyTemplate {
    std::string version;
    std::vector<XifProperty> properties;
};

// The file that declares the properties, the first of type 2; null when there is none.
const XifSection* XifTemplateSection(const XifFile& file);

// Reads the text of that file. A record may go on in the next lines; a line that begins with a record begins
// a new one, so that a name does not run into it.
XifPropertyTemplate ReadXifTemplate(const XifFile& file);

// The value of each property that the section holds, in the order of the template. Empty when the section is
// not the file of values, or of constant ones, or when the sizes do not add up to it.
struct XifPropertyValue {
    const XifProperty* property = nullptr;
    std::string_view bytes;
};
std::vector<XifPropertyValue> XifPropertyValues(const XifFile& file, const XifSection& section,
                                                const std::vector<XifProperty>& properties);

// The default value of each configuration variable; all elements of an array one after the other. The lines
// of NVVAL do not tell which is whose, only the bytes in order do: empty when their number is not that of all
// configuration variables together.
struct XifDefaultValue {
    const XifVariable* variable = nullptr;
    std::string_view bytes;
};
std::vector<XifDefaultValue> XifDefaultValues(const XifFile& file);

}  // namespace tovarek
