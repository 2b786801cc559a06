// The error table as data, for whoever lists or looks up errors.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "base/Error.h"

namespace tovarek {

struct ErrorRow {
    int number;  // 1 to 135; the public value is ErrorValue(number)
    eErrors code;
    std::string_view name;
    std::string_view message;
};

inline constexpr auto kErrorTable = std::to_array<ErrorRow>({
#define TOVAREK_ERROR(number, name, message) {number, name, #name, message},
#include "base/ErrorList.inc"
#undef TOVAREK_ERROR
});

// True when row i describes error i + 1 under the required prefix and has a message.
consteval bool ErrorTableIsComplete() {
    for (std::size_t i = 0; i < kErrorTable.size(); ++i) {
        const ErrorRow& row = kErrorTable[i];
        if (row.number != static_cast<int>(i) + 1 || row.code != ErrorValue(row.number) ||
            row.message.empty() || !row.name.starts_with("eQVXIFerr_"))
            return false;
    }
    return true;
}

static_assert(kErrorTable.size() == 135);
static_assert(ErrorTableIsComplete());

// The row of a public error value, or null for any other number (runtime errors included).
constexpr const ErrorRow* FindErrorRow(std::int32_t value) {
    for (const ErrorRow& row : kErrorTable)
        if (row.code == value)
            return &row;
    return nullptr;
}

}  // namespace tovarek
