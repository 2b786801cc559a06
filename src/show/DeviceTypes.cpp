#include "show/DeviceTypes.h"

#include <algorithm>
#include <charconv>

#include "base/Text.h"
#include "show/TypeTrees.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

constexpr std::uint8_t kDeviceScope = 6;

std::uint16_t NumberOf(const std::string& digits) {
    std::uint16_t number = 0;
    const char* end = digits.data() + digits.size();
    return std::from_chars(digits.data(), end, number).ptr == end ? number : std::uint16_t{0};
}

template <class Type>
const Type* Entry(const std::vector<std::optional<Type>>& types, std::size_t number) {
    return number == 0 || number > types.size() || !types[number - 1] ? nullptr : &*types[number - 1];
}

}  // namespace

DeviceTypes::DeviceTypes(const StandardCatalog* catalog, StandardTexts texts,
                         const std::vector<OwnTypes>& own, const XifFile& file)
    : file_(file), standard_(catalog) {
    for (const OwnTypes& types : own)
        sets_.emplace_back(types, catalog, texts);
    AssignOwnTypes();
}

const DeviceTypes::Set* DeviceTypes::SetOf(std::uint8_t scope) const {
    for (const Set& set : sets_)
        if (set.types.types.header.scope == scope)
            return &set;
    return nullptr;
}

void DeviceTypes::AssignOwnTypes() {
    const Set* const set = SetOf(kDeviceScope);
    if (set == nullptr)
        return;
    std::vector<const NvType*> types;
    for (const std::optional<NvType>& type : set->types.types.nvTypes)
        if (type)
            types.push_back(&*type);
    std::vector<std::size_t> untyped;
    for (std::size_t i = 0; i < file_.variables.size(); ++i)
        if (file_.variables[i].standardType == 0)
            untyped.push_back(i);
    for (std::size_t i = 0; i < types.size() && types.size() == untyped.size(); ++i)
        if (types[i]->size == file_.variables[untyped[i]].Size())
            ownOfVariables_[untyped[i]] = types[i];
}

std::optional<FoundType> DeviceTypes::OfVariable(std::size_t position) const {
    if (const auto own = ownOfVariables_.find(position); own != ownOfVariables_.end())
        return FoundType{ValueTypeOf(NameOfVariable(position), *own->second), &SetOf(kDeviceScope)->names};
    const std::int64_t number = file_.variables[position].standardType.value_or(0);
    const StandardCatalog* const catalog = standard_.Catalog();
    if (catalog == nullptr || number <= 0 || number > 0xFFFF)
        return std::nullopt;
    const NvType* const type = catalog->Nv(static_cast<std::int32_t>(number));
    return type == nullptr
               ? std::nullopt
               : std::optional(FoundType{ValueTypeOf(NameOfVariable(position), *type), &standard_});
}

std::optional<FoundType> DeviceTypes::OfProperty(const std::string& scope, const std::string& type) const {
    const std::uint16_t number = NumberOf(type);
    const std::string name = NameOfProperty(scope, type);
    if (scope == "0") {
        const StandardCatalog* const catalog = standard_.Catalog();
        const CpType* const standard = catalog == nullptr ? nullptr : catalog->Cp(number);
        return standard == nullptr
                   ? std::nullopt
                   : std::optional(FoundType{ValueTypeOf(name, *standard, standard_), &standard_});
    }
    const Set* const set = SetOf(static_cast<std::uint8_t>(NumberOf(scope)));
    const CpType* const own = set == nullptr ? nullptr : Entry(set->types.types.cpTypes, number);
    return own == nullptr ? std::nullopt
                          : std::optional(FoundType{ValueTypeOf(name, *own, set->names), &set->names});
}

std::string DeviceTypes::NameOfVariable(std::size_t position) const {
    if (const auto own = ownOfVariables_.find(position); own != ownOfVariables_.end())
        return WholeNvName(kDeviceScope, own->second->name);
    const XifVariable& variable = file_.variables[position];
    const std::int64_t number = variable.standardType.value_or(0);
    const std::string name = number > 0 && number <= 0xFFFF
                                 ? standard_.NvName({0, static_cast<std::uint16_t>(number)})
                                 : std::string();
    const std::string bytes = std::to_string(variable.Size()) + (variable.Size() == 1 ? " byte" : " bytes");
    return number == 0    ? "own type of " + bytes
           : name.empty() ? "type " + std::to_string(number) + " of " + bytes
                          : name;
}

std::string DeviceTypes::NameOfProperty(const std::string& scope, const std::string& type) const {
    const std::uint16_t number = NumberOf(type);
    std::string name;
    if (const Set* const set = SetOf(static_cast<std::uint8_t>(NumberOf(scope)));
        scope != "0" && set != nullptr) {
        if (const CpType* const own = Entry(set->types.types.cpTypes, number))
            name = WholeCpName(set->types.types.header.scope, own->name);
    } else if (scope == "0") {
        name = standard_.CpName({0, number});
        const auto inheriting = std::find_if(kInheritingTypes.begin(), kInheritingTypes.end(),
                                             [&](const InheritingType& row) { return row.index == number; });
        if (name.empty() && inheriting != kInheritingTypes.end())
            name = inheriting->name;
    }
    return name.empty() ? "type " + type + " of scope " + scope : name;
}

std::vector<ViewType> DeviceTypes::Trees() const {
    std::vector<ViewType> trees;
    for (const Set& set : sets_)
        AddTypeTrees(set.types.types, set.names, trees);
    return trees;
}

std::string UnitsOf(const FoundType& type) {
    constexpr std::size_t kMostMembers = 4;
    const ShownType shown = ShownTypeOf(type.value.type, type.value.unit, *type.names);
    if (shown.shape != ValueShape::structure && shown.shape != ValueShape::oneOf)
        return UnitText(shown.unit, *type.names);
    const std::vector<TypeMember>& members = shown.type->members;
    std::string text;
    bool hasUnits = false;
    for (const TypeMember& member : members) {
        const ShownType one = ShownTypeOf(member.type, member.unit, *type.names);
        const std::string unit =
            one.shape == ValueShape::enumeration ? std::string() : UnitText(one.unit, *type.names);
        text += (text.empty() ? "" : ", ") + member.name + (unit.empty() ? "" : " (" + unit + ")");
        hasUnits = hasUnits || !unit.empty();
    }
    return hasUnits && members.size() <= kMostMembers ? text : std::to_string(members.size()) + " members";
}

std::string ValueShown(const FoundType* type, std::string_view bytes) {
    const std::size_t size = type == nullptr ? 0 : SizeOf(type->value.type);
    if (size == 0 || bytes.empty() || bytes.size() % size != 0)
        return HexText(bytes);
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        DecodedValue value;
        std::vector<std::string> notes;
        if (!DecodeValue(type->value, bytes.substr(at, size), *type->names, value, notes).Ok())
            return HexText(bytes);
        text += (text.empty() ? "" : "; ") + WrittenValue(value);
    }
    return text;
}

}  // namespace tovarek
