// The 33 properties of the component as data, for hosts that set them by name.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "component/Tovarek.h"

namespace tovarek {

// In the order of the alternatives of PropertyValue.
enum class PropertyKind { string, boolean, integer, node };

using PropertyValue = std::variant<std::string, bool, std::int32_t, XmlNode>;

struct Property {
    std::string_view name;
    PropertyKind kind;
    PropertyValue (*get)(const Tovarek& component);
    // `value` holds the alternative that `kind` names. Raises what the property's setter raises.
    void (*set)(Tovarek& component, const PropertyValue& value);
    const char* help;  // one line for people
};

// All properties, in the order of the public interface.
std::span<const Property> Properties();

// The property of exactly this name, or null.
const Property* FindProperty(std::string_view name);

}  // namespace tovarek
