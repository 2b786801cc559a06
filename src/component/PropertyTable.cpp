#include "component/PropertyTable.h"

#include <type_traits>

namespace tovarek {
namespace {

template <PropertyKind Kind>
using ValueOf = std::variant_alternative_t<static_cast<std::size_t>(Kind), PropertyValue>;

static_assert(std::is_same_v<ValueOf<PropertyKind::string>, std::string>);
static_assert(std::is_same_v<ValueOf<PropertyKind::boolean>, bool>);
static_assert(std::is_same_v<ValueOf<PropertyKind::integer>, std::int32_t>);
static_assert(std::is_same_v<ValueOf<PropertyKind::node>, XmlNode>);

// A row from the accessors of the same name.
#define TOVAREK_PROPERTY(number, name, kind, help)                                          \
    {#name, PropertyKind::kind, [](const Tovarek& c) -> PropertyValue { return c.name(); }, \
     [](Tovarek& c, const PropertyValue& v) { c.name(std::get<ValueOf<PropertyKind::kind>>(v)); }, help},
#define TOVAREK_METHOD(number, name, help)

constexpr Property kProperties[] = {
#include "component/PropertyList.inc"
};
#undef TOVAREK_PROPERTY
#undef TOVAREK_METHOD

// The numbers of the public interface run from 1 without gaps.
constexpr int kNumbers[] = {
#define TOVAREK_PROPERTY(number, name, kind, help) number,
#define TOVAREK_METHOD(number, name, help) number,
#include "component/PropertyList.inc"
#undef TOVAREK_PROPERTY
#undef TOVAREK_METHOD
};

consteval bool NumbersRunWithoutGaps() {
    for (std::size_t i = 0; i < std::size(kNumbers); ++i)
        if (kNumbers[i] != static_cast<int>(i) + 1)
            return false;
    return true;
}

static_assert(NumbersRunWithoutGaps());
static_assert(std::size(kProperties) == 33);

}  // namespace

std::span<const Property> Properties() {
    return kProperties;
}

const Property* FindProperty(std::string_view name) {
    for (const Property& property : kProperties)
        if (property.name == name)
            return &property;
    return nullptr;
}

}  // namespace tovarek
