// The files that tell a generation of types: the XML format file and the user type file. UTF-8 with a mark,
// CR LF.
#pragma once

#include <string>
#include <vector>

#include "convert/DeviceInterface.h"
#include "convert/FormWriters.h"

namespace tovarek {

// One type element: what has a default is left out.
void WriteDefinition(XmlWriter& out, const DefinedType& type);

// The format file. No XML declaration stands in front of its root: it would be taken for it.
std::string FormatFileText(const std::vector<DefinedType>& definitions);

// The user type file of the types of scopes 1 to 5: a file holds network-variable types or property types.
std::string UserTypesText(const TypeInputs& inputs, bool isUnvt);

}  // namespace tovarek
