// The units of display that the format file of a set tells, back to the values that they are units of.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "control/ResourceNames.h"
#include "formats/format/FormatFile.h"
#include "types/CType.h"

namespace tovarek {

// A value inside a type that may have units: its path ("coil.flow", empty for the type itself), and whether
// it is shown by a word or as a text, which no unit changes.
struct UnitPlace {
    std::string path;
    bool isWord;
};

// The units of a type's values, by path. A name that no value shows is given to one that has the name before
// it, so that the names keep their order.
std::unordered_map<std::string, CFormats> DisplayUnits(const FormatFile& file, std::string_view wholeName,
                                                       const std::vector<UnitPlace>& places,
                                                       const ResourceNames& names);

}  // namespace tovarek
