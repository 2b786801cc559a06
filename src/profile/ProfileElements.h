// The elements of an XML profile, as its loader sees them.
#pragma once

#include <functional>

#include "profile/ProfileFields.h"
#include "xml/Xml.h"

namespace tovarek {

// Calls `visit` for each element below `profile`, in document order. `line` is the line that the element
// opens or that it stands in, 0 outside of every line; `field` is what its text is the value of, or null.
void ForEachProfileElement(
    const XmlNode& profile,
    const std::function<void(const XmlNode& element, int line, const ProfileField* field)>& visit);

// The line, 6 to 10, that an element of this name (in capitals) opens outside of every line, or 0.
int LineOfElement(std::string_view upperName);

}  // namespace tovarek
