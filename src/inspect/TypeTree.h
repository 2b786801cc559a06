// Types as trees.
#pragma once

#include <string_view>

#include "control/ResourceNames.h"
#include "formats/type/TypeFile.h"
#include "inspect/InspectNode.h"

namespace tovarek {

// What the names of a reference to a string and of its text end with.
inline constexpr std::string_view kStringName = "String";
inline constexpr std::string_view kTextName = "Text";

// Adds the reference as "scope-number" and, where it is known, the text. Nothing for no string.
void AddString(InspectNode& node, std::string_view what, const StringRef& string, const ResourceNames& names);

// Adds a reference as "scope-index" and, where it is known, the name of what it refers to.
void AddReference(InspectNode& node, std::string_view what, const TypeRef& reference,
                  const std::string& name);

// Whole types with their number in `scope`, and an enumeration set.
InspectNode NvTypeNode(std::size_t number, std::uint8_t scope, const NvType& type,
                       const ResourceNames& names);
InspectNode CpTypeNode(std::size_t number, std::uint8_t scope, const CpType& type,
                       const ResourceNames& names);
InspectNode EnumerationNode(std::size_t number, const Enumeration& set, const ResourceNames& names);

// A description: kind, limits raw and scaled, members, element.
InspectNode DescriptionNode(std::string_view name, const TypeDescription& type, const ResourceNames& names);

// Adds a raw value as hexadecimal bytes and, where the type is one value, what it means.
void AddRawValue(InspectNode& node, std::string_view what, const std::string& raw,
                 const TypeDescription* type, const ResourceNames& names);

}  // namespace tovarek
