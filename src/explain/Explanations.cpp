#include "explain/Explanations.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

#include "base/ErrorTable.h"
#include "base/Text.h"
#include "check/WarningNames.h"
#include "explain/ErrorNames.h"

namespace tovarek {
namespace {

// The rows of the table by their kinds; each kind is taken from the file by itself.
#define TOVAREK_EXPLAIN(warning, meaning, why, wrong, right, mend)
#define TOVAREK_AREA(first, title, why)
#define TOVAREK_MEND(first, mend)
#define TOVAREK_CAUSE(number, cause, wrong, right)
#define TOVAREK_RUNTIME(number, cause, why, wrong, right, mend)

struct WarningText {
    Warning warning;
    std::string_view meaning, why, wrong, right, mend;
};
#undef TOVAREK_EXPLAIN
#define TOVAREK_EXPLAIN(warning, meaning, why, wrong, right, mend) \
    {Warning::warning, meaning, why, wrong, right, mend},
constexpr WarningText kWarnings[] = {
#include "explain/Explanations.inc"
};
#undef TOVAREK_EXPLAIN
#define TOVAREK_EXPLAIN(warning, meaning, why, wrong, right, mend)

#undef TOVAREK_AREA
#define TOVAREK_AREA(first, title, why) {first, title, why},
constexpr ErrorArea kAreas[] = {
#include "explain/Explanations.inc"
};
#undef TOVAREK_AREA
#define TOVAREK_AREA(first, title, why)

struct MendText {
    int first;
    std::string_view mend;
};
#undef TOVAREK_MEND
#define TOVAREK_MEND(first, mend) {first, mend},
constexpr MendText kMends[] = {
#include "explain/Explanations.inc"
};
#undef TOVAREK_MEND
#define TOVAREK_MEND(first, mend)

struct CauseText {
    int number;
    std::string_view cause, wrong, right;
};
#undef TOVAREK_CAUSE
#define TOVAREK_CAUSE(number, cause, wrong, right) {number, cause, wrong, right},
constexpr CauseText kCauses[] = {
#include "explain/Explanations.inc"
};
#undef TOVAREK_CAUSE
#define TOVAREK_CAUSE(number, cause, wrong, right)

struct RuntimeText {
    int number;
    std::string_view cause, why, wrong, right, mend;
};
#undef TOVAREK_RUNTIME
#define TOVAREK_RUNTIME(number, cause, why, wrong, right, mend) {number, cause, why, wrong, right, mend},
constexpr RuntimeText kRuntime[] = {
#include "explain/Explanations.inc"
};

#undef TOVAREK_EXPLAIN
#undef TOVAREK_AREA
#undef TOVAREK_MEND
#undef TOVAREK_CAUSE
#undef TOVAREK_RUNTIME

constexpr Warning kListed[] = {
#define TOVAREK_WARNING(id, name, weight, meaning) Warning::id,
#include "support/WarningList.inc"
#undef TOVAREK_WARNING
};

consteval bool EveryFindingIsExplained() {
    for (std::size_t i = 0; i < std::min(std::size(kWarnings), std::size(kListed)); ++i)
        if (kWarnings[i].warning != kListed[i])
            return false;
    for (std::size_t i = 0; i < std::min(std::size(kCauses), kErrorTable.size()); ++i)
        if (kCauses[i].number != kErrorTable[i].number)
            return false;
    return std::size(kWarnings) == std::size(kListed) && std::size(kCauses) == kErrorTable.size();
}
static_assert(EveryFindingIsExplained(), "Explanations.inc lacks a row, or has it in another order");

constexpr std::string_view kErrorPrefix = "eQVXIFerr_";

// The last row that begins at or in front of the number.
template <class Row, std::size_t N>
const Row& RowFor(const Row (&rows)[N], int number) {
    const auto next = std::find_if(std::begin(rows), std::end(rows),
                                   [number](const Row& row) { return row.first > number; });
    return *std::prev(next);
}

Explanation OfWarning(const WarningText& text) {
    const WarningRow& row = RowOf(text.warning);
    return {.warning = text.warning,
            .name = row.name,
            .message = row.meaning,
            .meaning = text.meaning,
            .why = text.why,
            .wrong = text.wrong,
            .right = text.right,
            .mend = text.mend};
}

Explanation OfError(const CauseText& text) {
    const ErrorRow& row = kErrorTable[static_cast<std::size_t>(text.number) - 1];
    std::string_view name = row.name;
    name.remove_prefix(kErrorPrefix.size());
    return {.number = row.number,
            .value = row.code,
            .name = name,
            .message = row.message,
            .meaning = text.cause,
            .why = RowFor(kAreas, text.number).why,
            .wrong = text.wrong,
            .right = text.right,
            .mend = RowFor(kMends, text.number).mend};
}

Explanation OfRuntimeError(const RuntimeText& text) {
    return {.number = text.number,
            .value = text.number,
            .name = RuntimeErrorName(text.number),
            .message = RuntimeErrorMessage(static_cast<RuntimeError>(text.number)),
            .meaning = text.cause,
            .why = text.why,
            .wrong = text.wrong,
            .right = text.right,
            .mend = text.mend};
}

std::vector<Explanation> All() {
    std::vector<Explanation> all;
    const auto add = [&all](const auto& rows, const auto& explain) {
        std::transform(std::begin(rows), std::end(rows), std::back_inserter(all), explain);
    };
    add(kWarnings, OfWarning);
    add(kCauses, OfError);
    add(kRuntime, OfRuntimeError);
    return all;
}

bool IsCalled(const Explanation& one, const std::string& word) {
    const std::string name = UpperCase(one.name);
    if (word == name)
        return true;
    return one.IsError() && (word == std::to_string(one.number) || word == std::to_string(one.value) ||
                             word == UpperCase(ErrorNumberText(one.value)) ||
                             (one.value < 0 && word == UpperCase(kErrorPrefix) + name));
}

}  // namespace

std::span<const Explanation> Explanations() {
    static const std::vector<Explanation> all = All();
    return all;
}

std::span<const ErrorArea> ErrorAreas() {
    return kAreas;
}

std::vector<Explanation> ExplanationsOf(std::string_view word) {
    const std::string wanted = UpperCase(word);
    std::vector<Explanation> found;
    std::copy_if(Explanations().begin(), Explanations().end(), std::back_inserter(found),
                 [&](const Explanation& one) { return IsCalled(one, wanted); });
    return found;
}

const Explanation& ExplanationOf(std::string_view name) {
    for (const Explanation& one : Explanations())
        if (one.name == name)
            return one;
    throw std::out_of_range("no finding is called " + std::string(name));
}

}  // namespace tovarek
