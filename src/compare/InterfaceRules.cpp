#include "compare/InterfaceRules.h"

namespace tovarek {
namespace {

constexpr InterfaceRuleRow kInterfaceRules[] = {
#define TOVAREK_INTERFACE_RULE(rule, name, effect, meaning, why) \
    {InterfaceRule::rule, ChangeEffect::effect, name, meaning, why},
#include "compare/InterfaceRules.inc"
#undef TOVAREK_INTERFACE_RULE
};

}  // namespace

std::span<const InterfaceRuleRow> InterfaceRules() {
    return kInterfaceRules;
}

const InterfaceRuleRow& RowOf(InterfaceRule rule) {
    return kInterfaceRules[static_cast<std::size_t>(rule)];
}

const InterfaceRuleRow* InterfaceRuleNamed(std::string_view name) {
    for (const InterfaceRuleRow& row : kInterfaceRules)
        if (row.name == name)
            return &row;
    return nullptr;
}

}  // namespace tovarek
