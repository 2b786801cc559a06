// Types that values are written for, from where types come from.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "control/OwnTypes.h"
#include "types/catalog/CCatalog.h"
#include "values/ValueText.h"

namespace tovarek {

// Standard property types that take the type of the variable that they belong to. They have no size of their
// own, so the catalog has no room for them.
struct InheritingType {
    std::uint16_t index;
    std::string_view name;
};
inline constexpr auto kInheritingTypes = std::to_array<InheritingType>({
    {7, "SCPTdefOutput"},          {9, "SCPThighLimit1"},     {10, "SCPThighLimit2"},
    {11, "SCPThystHigh1"},         {12, "SCPThystHigh2"},     {13, "SCPThystLow1"},
    {14, "SCPThystLow2"},          {18, "SCPTlowLimit1"},     {19, "SCPTlowLimit2"},
    {20, "SCPTmaxRnge"},           {23, "SCPTminRnge"},       {26, "SCPToffset"},
    {27, "SCPTsndDelta"},          {33, "SCPTovrValue"},      {213, "SCPTsetpoint"},
    {257, "SCPTsafExtCnfg"},       {258, "SCPTemergCnfg"},    {276, "SCPTvalueDefinition"},
    {305, "SCPTdefInput"},         {330, "SCPTlogHighLimit"}, {331, "SCPTlogLowLimit"},
    {334, "SCPTlogMinDeltaValue"},
});
// The one with the number; null for every other type.
const InheritingType* InheritingTypeOf(std::int32_t index);

ValueType ValueTypeOf(const std::string& name, const NvType& type);
// A property type may have narrower limits than the type that it refers to.
ValueType ValueTypeOf(const std::string& name, const CpType& type, const ResourceNames& names);

// Reads a type file and, where it lies beside it, its language file. Raises the file errors and those of the
// control's codes of ReadTypeFile.
OwnTypes ReadOwnTypes(const std::string& path);

// The type element `number` (above 255) of the XML format file at `path`, as network-variable type 1: what
// the generator would write of it. Raises what loading user types raises. The control of `catalog` has to be
// free.
OwnTypes ReadDefinedType(const std::string& path, const std::string& prefix, std::int32_t number,
                         CCatalog& catalog);

// The numbers of the type elements above 255 in that file whose NAME is `name`, in any letter case and with
// or without one of the prefixes of types. Elements that are refused have no name. Raises error 89.
std::vector<std::int32_t> DefinedTypesNamed(const std::string& path, const std::string& prefix,
                                            std::string_view name);

// The type of `count` values one after the other, as an array of properties has it; at most 65535.
ValueType ArrayOfValues(const ValueType& element, std::uint16_t count);

}  // namespace tovarek
