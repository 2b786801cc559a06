#include "explain/ErrorNames.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Error.h"
#include "base/ErrorTable.h"

namespace tovarek {

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return line;
}

std::string_view ErrorName(std::int32_t number) {
    if (const ErrorRow* row = FindErrorRow(number))
        return row->name;
    const std::string_view runtime = RuntimeErrorName(number);
    return runtime.empty() ? "unknown" : runtime;
}

std::string ErrorNumberText(std::int32_t number) {
    if (number >= 0)
        return std::to_string(number);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(number));
    return text.data();
}

}  // namespace tovarek
