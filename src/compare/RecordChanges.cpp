#include "compare/RecordChanges.h"

#include <algorithm>

namespace tovarek {
namespace {

// How much of the beginning two texts may lose: nothing where one of them is shown whole.
std::size_t SharedBeginning(const std::string& before, const std::string& after) {
    constexpr std::size_t kLongest = 80;
    constexpr std::size_t kShown = 20;
    if (std::max(before.size(), after.size()) <= kLongest)
        return 0;
    const auto [first, second] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    auto shared = static_cast<std::size_t>(first - before.begin());
    shared -= std::min(shared, kShown);
    // Not inside a character.
    while (shared > 0 && shared < before.size() &&
           (static_cast<unsigned char>(before[shared]) & 0xC0U) == 0x80U)
        --shared;
    return shared;
}

std::string Part(const std::string& text, std::size_t begin) {
    return std::string(begin == 0 ? "" : "...") + Excerpt(std::string_view(text).substr(begin));
}

}  // namespace

void ChangeList::Tell(InterfaceRule rule, std::string record, std::string field, const std::string& before,
                      const std::string& after) {
    const std::size_t begin = SharedBeginning(before, after);
    changes_.push_back({rule, std::move(record), std::move(field), Part(before, begin), Part(after, begin)});
}

std::string NumberText(const XifNumber& number) {
    return number ? std::to_string(*number) : "*";
}

void TellAlignment(const Alignment& alignment, const ListRules& rules, const std::vector<std::string>& before,
                   const std::vector<std::string>& after, ChangeList& changes) {
    for (const std::size_t place : alignment.removed)
        changes.Tell(rules.removed, before[place], "removed");
    for (const std::size_t place : alignment.added)
        changes.Tell(rules.added, after[place], "added");
    for (const auto& [first, second] : alignment.swapped)
        changes.Tell(rules.swapped, after[first.after], "swapped with " + after[second.after]);
    for (const AlignedPair& pair : alignment.moved)
        changes.Tell(rules.moved, after[pair.after], "place", std::to_string(pair.before + 1),
                     std::to_string(pair.after + 1));
}

}  // namespace tovarek
