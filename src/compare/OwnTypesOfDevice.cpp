#include "compare/OwnTypesOfDevice.h"

#include <algorithm>

#include "base/Text.h"
#include "formats/records/ResourceKinds.h"
#include "template/Declaration.h"
#include "types/CType.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

// A property that belongs to more variables is not looked at one by one.
constexpr std::size_t kMostOwners = 64;

// Sets of this system number the types of variables as the template asks for them and name them "UNVT__...";
// what other tools number otherwise never has all of this.
bool IsOfThisSystem(const TypeFile& types) {
    const ResourceHeader& header = types.header;
    return header.scope == kOwnScope && header.creator.number == kCreatorText &&
           header.description.number == RowOf(ResourceKind::type).descriptionText &&
           types.marks == kUsualMarks &&
           std::all_of(types.nvTypes.begin(), types.nvTypes.end(),
                       [](const auto& type) { return type && type->name.starts_with("__"); });
}

}  // namespace

std::string StandardPropertyName(std::uint16_t number, const ResourceNames& names) {
    const InheritingType* const inheriting = InheritingTypeOf(number);
    return inheriting != nullptr ? std::string(inheriting->name) : names.CpName({0, number});
}

std::uint16_t TypeNumberOf(const std::string& digits) {
    constexpr std::size_t kMostDigits = 4;  // there is no type beyond
    std::uint16_t number = 0;
    for (const char c : digits.size() > kMostDigits ? std::string() : digits)
        number = static_cast<std::uint16_t>(number * 10 + (c - '0'));
    return number;
}

std::string ShownBytes(const OwnTypesOfDevice::Value& value, std::string_view bytes) {
    const std::size_t size = value.names == nullptr ? 0 : SizeOf(value.type.type);
    if (size == 0 || bytes.empty() || bytes.size() % size != 0)
        return HexText(bytes);
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        DecodedValue decoded;
        std::vector<std::string> notes;
        if (!DecodeValue(value.type, bytes.substr(at, size), *value.names, decoded, notes).Ok())
            return HexText(bytes);
        text += (text.empty() ? "" : ", ") + WrittenValue(decoded);
    }
    return text;
}

OwnTypesOfDevice::Set::Set(const OwnTypes& own, const StandardCatalog* catalog, StandardTexts standardTexts)
    : types(own.types), names(catalog, standardTexts), hasTexts(!own.texts.strings.empty()) {
    names.Use(own.types);
    names.Use(own.texts);
}

OwnTypesOfDevice::OwnTypesOfDevice(const XifFile& device, const std::vector<OwnTypes>& sets,
                                   const StandardCatalog* catalog, StandardTexts texts)
    : device_(device), standard_(catalog) {
    for (const OwnTypes& own : sets)
        sets_.push_back(std::make_unique<Set>(own, catalog, texts));
    for (std::size_t i = 0; i < device.variables.size(); ++i)
        if (device.variables[i].standardType == 0)
            untyped_.push_back(i);
}

const OwnTypesOfDevice::Set* OwnTypesOfDevice::SetOf(std::size_t scope) const {
    const auto found = std::find_if(sets_.begin(), sets_.end(),
                                    [&](const auto& set) { return set->types.header.scope == scope; });
    return found == sets_.end() ? nullptr : found->get();
}

DescribedType<NvType> OwnTypesOfDevice::OfVariable(std::size_t place) const {
    const Set* const set = SetOf(kOwnScope);
    const auto found = std::lower_bound(untyped_.begin(), untyped_.end(), place);
    if (set == nullptr || found == untyped_.end() || *found != place || !IsOfThisSystem(set->types) ||
        set->types.nvTypes.size() != untyped_.size())
        return {};
    return {&*set->types.nvTypes[static_cast<std::size_t>(found - untyped_.begin())], &set->names,
            set->hasTexts};
}

DescribedType<CpType> OwnTypesOfDevice::OfProperty(const XifProperty& property) const {
    const Set* const set = SetOf(TypeNumberOf(property.scope));
    const std::size_t number = TypeNumberOf(property.type);
    if (set == nullptr || number == 0 || number > set->types.cpTypes.size() ||
        !set->types.cpTypes[number - 1])
        return {};
    return {&*set->types.cpTypes[number - 1], &set->names, set->hasTexts};
}

OwnTypesOfDevice::Value OwnTypesOfDevice::ValueOfVariable(std::size_t place) const {
    if (const DescribedType<NvType> own = OfVariable(place); own.type != nullptr)
        return {ValueTypeOf("", *own.type), own.names};
    const XifNumber type = device_.variables[place].standardType;
    const NvType* const known = type && *type > 0 && *type <= UINT8_MAX
                                    ? standard_.Nv({0, static_cast<std::uint16_t>(*type)})
                                    : nullptr;
    return known == nullptr ? Value() : Value{ValueTypeOf("", *known), &standard_};
}

// The variable that has an entry of the variable table.
std::size_t OwnTypesOfDevice::PlaceOfEntry(std::int64_t entry) const {
    const std::vector<XifVariable>& all = device_.variables;
    const auto has = [&](const XifVariable& variable) {
        const std::int64_t first = variable.Number(kVariableIndex).value_or(-1);
        return entry >= first &&
               entry - first < std::max<std::int64_t>(variable.Number(kVariableArray).value_or(0), 1);
    };
    return static_cast<std::size_t>(std::find_if(all.begin(), all.end(), has) - all.begin());
}

OwnTypesOfDevice::Value OwnTypesOfDevice::Inherited(const XifProperty& property) const {
    const std::optional<PropertyOwner> owner = OwnerOfProperty(property.record + ';');
    if (!owner || owner->kind != PropertyOwner::Kind::variable || owner->positions.size() > kMostOwners)
        return {};
    Value found;
    for (const std::int64_t position : owner->positions) {
        const std::size_t place = PlaceOfEntry(position);
        Value one = place < device_.variables.size() ? ValueOfVariable(place) : Value();
        if (one.names == nullptr || (found.names != nullptr && !(found.type.type == one.type.type)))
            return {};
        found = std::move(one);
    }
    return found;
}

OwnTypesOfDevice::Value OwnTypesOfDevice::ValueOf(const XifProperty& property) const {
    const std::uint16_t number = TypeNumberOf(property.type);
    if (property.scope != "0") {
        const DescribedType<CpType> own = OfProperty(property);
        return own.type == nullptr ? Value() : Value{ValueTypeOf("", *own.type, *own.names), own.names};
    }
    if (InheritingTypeOf(number) != nullptr)
        return Inherited(property);
    const CpType* const type = standard_.Catalog() == nullptr ? nullptr : standard_.Catalog()->Cp(number);
    return type == nullptr ? Value() : Value{ValueTypeOf("", *type, standard_), &standard_};
}

}  // namespace tovarek
