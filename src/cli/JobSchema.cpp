#include "cli/JobSchema.h"

#include <cstdint>

#include "component/PropertyTable.h"

namespace tovarek {
namespace {

Json TypeOf(PropertyKind kind) {
    switch (kind) {
        case PropertyKind::boolean:
            return {{"type", "boolean"}};
        case PropertyKind::integer:
            return {{"type", "integer"}, {"minimum", INT32_MIN}, {"maximum", INT32_MAX}};
        case PropertyKind::node:
            return {{"type", "object"},
                    {"properties", {{"file", {{"type", "string"}}}, {"element", {{"type", "string"}}}}},
                    {"required", {"file", "element"}},
                    {"additionalProperties", false}};
        case PropertyKind::string:
            break;
    }
    return {{"type", "string"}};
}

}  // namespace

Json JobSchema() {
    Json properties = {{"$schema", {{"type", "string"}}}};
    for (const Property& property : Properties()) {
        Json described = TypeOf(property.kind);
        described["description"] = property.help;
        properties[std::string(property.name)] = std::move(described);
    }
    return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
            {"title", "tovarek job"},
            {"description", "The properties of a run, set in the order in which they stand"},
            {"type", "object"},
            {"properties", std::move(properties)},
            {"additionalProperties", false}};
}

}  // namespace tovarek
