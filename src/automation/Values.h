// Between the values of the properties and the types of automation.
#pragma once

#include <cstdint>
#include <string>

#include "automation/Status.h"
#include "component/PropertyTable.h"
#include "system/Bstr.h"
#include "system/Wide.h"
#include "xml/XmlHost.h"

namespace tovarek {

// The automation type of a kind of property.
template <PropertyKind Kind>
struct AutomationType;
template <>
struct AutomationType<PropertyKind::string> {
    using Type = BSTR;
};
template <>
struct AutomationType<PropertyKind::boolean> {
    using Type = VARIANT_BOOL;
};
template <>
struct AutomationType<PropertyKind::integer> {
    using Type = LONG;
};
template <>
struct AutomationType<PropertyKind::node> {
    using Type = IDispatch*;
};

// ---- to the host, which frees or releases what it gets ----
inline BSTR ToAutomation(const std::string& value) {
    return NewBstr(ToWide(value));
}
inline VARIANT_BOOL ToAutomation(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline LONG ToAutomation(std::int32_t value) {
    return value;
}
// The object that the host gave; null when it gave none.
inline IDispatch* ToAutomation(const XmlNode& value) {
    IDispatch* const object = HostObject(value);
    if (object != nullptr)
        object->AddRef();
    return object;
}

// ---- from the host, which keeps what it gives ----
inline std::string FromAutomation(BSTR value) {
    return FromWide(ViewOf(value));
}
inline bool FromAutomation(VARIANT_BOOL value) {
    return value != VARIANT_FALSE;
}
inline std::int32_t FromAutomation(LONG value) {
    return value;
}
// An object that is no node of an XML DOM is a type mismatch, as a text is; null is no node.
inline XmlNode FromAutomation(IDispatch* value) {
    XmlNode node = NodeOfHost(value);
    if (value != nullptr && !node)
        RaiseRuntimeError(RuntimeError::typeMismatch, {.reason = "the value has to be an XML DOM node"});
    return node;
}

}  // namespace tovarek
