#include "check/WarningNames.h"

#include <cstddef>

namespace tovarek {
namespace {

enum class Weight { strong, weak };

constexpr WarningRow kRows[] = {
#define TOVAREK_WARNING(id, name, weight, meaning) \
    {name, meaning, Warning::id, Weight::weight == Weight::weak},
#include "support/WarningList.inc"
#undef TOVAREK_WARNING
};

}  // namespace

std::span<const WarningRow> WarningRows() {
    return kRows;
}

const WarningRow& RowOf(Warning warning) {
    return kRows[static_cast<std::size_t>(warning) - 1];
}

}  // namespace tovarek
