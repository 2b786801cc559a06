// The warnings by name: what `check` prints, what --ignore takes.
#pragma once

#include <span>
#include <string_view>

#include "support/Findings.h"

namespace tovarek {

struct WarningRow {
    std::string_view name;
    std::string_view meaning;
    Warning warning;
    bool isWeak;  // only told when everything is wanted
};

// In the order of Warning, without `none`.
std::span<const WarningRow> WarningRows();

const WarningRow& RowOf(Warning warning);

}  // namespace tovarek
