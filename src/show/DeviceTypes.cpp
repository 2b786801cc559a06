#include "show/DeviceTypes.h"

#include "show/TypeTrees.h"
#include "types/CType.h"

namespace tovarek {
namespace {

std::string UnitsOf(const OwnTypesOfDevice::Value& value) {
    constexpr std::size_t kMostMembers = 4;
    const ResourceNames& names = *value.names;
    const ShownType shown = ShownTypeOf(value.type.type, value.type.unit, names);
    if (shown.shape != ValueShape::structure && shown.shape != ValueShape::oneOf)
        return UnitText(shown.unit, names);
    const std::vector<TypeMember>& members = shown.type->members;
    std::string text;
    bool hasUnits = false;
    for (const TypeMember& member : members) {
        const ShownType one = ShownTypeOf(member.type, member.unit, names);
        const std::string unit =
            one.shape == ValueShape::enumeration ? std::string() : UnitText(one.unit, names);
        text += (text.empty() ? "" : ", ") + member.name + (unit.empty() ? "" : " (" + unit + ")");
        hasUnits = hasUnits || !unit.empty();
    }
    return hasUnits && members.size() <= kMostMembers ? text : std::to_string(members.size()) + " members";
}

}  // namespace

DeviceTypes::DeviceTypes(const StandardCatalog* catalog, StandardTexts texts,
                         const std::vector<OwnTypes>& own, const XifFile& file)
    : file_(file), own_(own), texts_(texts), standard_(catalog), types_(file, own, catalog, texts) {}

std::string DeviceTypes::NameOfVariable(std::size_t position) const {
    if (const DescribedType<NvType> own = types_.OfVariable(position); own.type != nullptr)
        return WholeNvName(static_cast<std::uint8_t>(kOwnScope), own.type->name);
    const XifVariable& variable = file_.variables[position];
    const std::int64_t number = variable.standardType.value_or(0);
    const std::string name = number > 0 && number <= UINT16_MAX
                                 ? standard_.NvName({0, static_cast<std::uint16_t>(number)})
                                 : std::string();
    const std::string bytes = std::to_string(variable.Size()) + (variable.Size() == 1 ? " byte" : " bytes");
    if (number == 0)
        return "own type of " + bytes;
    return name.empty() ? "type " + std::to_string(number) + " of " + bytes : name;
}

std::string DeviceTypes::NameOfProperty(const XifProperty& property) const {
    const std::uint16_t scope = TypeNumberOf(property.scope);
    std::string name;
    if (scope == 0)
        name = StandardPropertyName(TypeNumberOf(property.type), standard_);
    else if (const DescribedType<CpType> own = types_.OfProperty(property); own.type != nullptr)
        name = WholeCpName(static_cast<std::uint8_t>(scope), own.type->name);
    return name.empty() ? "type " + property.type + " of scope " + property.scope : name;
}

std::string DeviceTypes::UnitsOfVariable(std::size_t position) const {
    const OwnTypesOfDevice::Value value = types_.ValueOfVariable(position);
    return value.names == nullptr ? std::string() : UnitsOf(value);
}

std::string DeviceTypes::ValueOfVariable(std::size_t position, std::string_view bytes) const {
    return ShownBytes(types_.ValueOfVariable(position), bytes);
}

std::string DeviceTypes::ValueOfProperty(const XifProperty& property, std::string_view bytes) const {
    return ShownBytes(types_.ValueOf(property), bytes);
}

std::vector<ViewType> DeviceTypes::Trees() const {
    std::vector<ViewType> trees;
    for (const OwnTypes& own : own_) {
        ResourceNames names(standard_.Catalog(), texts_);
        names.Use(own.types);
        names.Use(own.texts);
        AddTypeTrees(own.types, names, trees);
    }
    return trees;
}

}  // namespace tovarek
