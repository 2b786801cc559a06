// The device's own types as its resource files describe them.
#pragma once

#include <cstdint>
#include <map>
#include <span>

#include "control/OwnTypes.h"
#include "types/CTypes.h"

namespace tovarek {

class OwnRecords {
  public:
    explicit OwnRecords(std::span<const OwnTypes> sets) {
        for (const OwnTypes& set : sets)
            sets_.try_emplace(set.types.header.scope, &set);
    }

    // The set of a scope; null where none was described.
    const OwnTypes* Set(std::int32_t scope) const {
        const auto found = sets_.find(scope);
        return found == sets_.end() ? nullptr : found->second;
    }

    // The record of a type; null where it was refused, or stands behind a gap.
    const NvType* Nv(const CType& type) const {
        const OwnTypes* const set = Set(type.scope);
        return set == nullptr ? nullptr : Entry(set->types.nvTypes, type.indexInScope);
    }
    const CpType* Cp(const CType& type) const {
        const OwnTypes* const set = Set(type.scope);
        return set == nullptr ? nullptr : Entry(set->types.cpTypes, type.indexInScope);
    }
    const NvType* Of(const CType& type) const { return type.isUnvt ? Nv(type) : Cp(type); }

  private:
    template <class Type>
    static const Type* Entry(const std::vector<std::optional<Type>>& types, std::int32_t number) {
        const auto index = static_cast<std::size_t>(number) - 1;
        return number < 1 || index >= types.size() || !types[index] ? nullptr : &*types[index];
    }

    std::map<std::int32_t, const OwnTypes*> sets_;  // by scope
};

// The property type with this number in its scope; null when the device has none.
inline const CType* PropertyType(const CTypes& types, std::int32_t scope, std::int32_t number) {
    const auto* const found = types.ucptTypes.Find(std::to_string(scope) + '_' + std::to_string(number));
    return found == nullptr ? nullptr : found->get();
}

}  // namespace tovarek
