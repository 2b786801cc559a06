// The rules by which a change of an interface is judged.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tovarek {

enum class ChangeEffect : std::uint8_t { harmless, breaking };

enum class InterfaceRule : std::uint8_t {
#define TOVAREK_INTERFACE_RULE(rule, name, effect, meaning, why) rule,
#include "compare/InterfaceRules.inc"
#undef TOVAREK_INTERFACE_RULE
};

struct InterfaceRuleRow {
    InterfaceRule rule;
    ChangeEffect effect;
    std::string_view name;
    std::string_view meaning;
    std::string_view why;  // what network tools make of it

    bool IsBreaking() const { return effect == ChangeEffect::breaking; }
};

// In the order of the enumeration.
std::span<const InterfaceRuleRow> InterfaceRules();
const InterfaceRuleRow& RowOf(InterfaceRule rule);
// Null for what is no rule's name.
const InterfaceRuleRow* InterfaceRuleNamed(std::string_view name);

}  // namespace tovarek
