#include "compare/RecordChanges.h"

namespace tovarek {

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
