#include "base/Nearest.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/Text.h"

namespace tovarek {

namespace {

constexpr std::size_t kLongest = 64;

}  // namespace

NearestName NearestOf(std::string_view word, const std::vector<std::string>& candidates) {
    const std::string wanted = UpperCase(word.substr(0, kLongest));
    NearestName best;
    // Names that share less than about half of their letters are no help.
    std::size_t bestDistance = wanted.size() / 2 + 1;
    for (const std::string& candidate : candidates) {
        // Candidates come out of inputs, too: however long one is, it costs nothing.
        const std::string name = UpperCase(FirstCharacters(candidate, 2 * kLongest));
        if (std::max(name.size(), wanted.size()) - std::min(name.size(), wanted.size()) > bestDistance)
            continue;
        std::vector<std::size_t> row(name.size() + 1);
        for (std::size_t j = 0; j <= name.size(); ++j)
            row[j] = j;
        for (std::size_t i = 1; i <= wanted.size(); ++i) {
            std::size_t diagonal = std::exchange(row[0], i);
            for (std::size_t j = 1; j <= name.size(); ++j) {
                const std::size_t replaced = diagonal + (wanted[i - 1] == name[j - 1] ? 0 : 1);
                diagonal = std::exchange(row[j], std::min({replaced, row[j] + 1, row[j - 1] + 1}));
            }
        }
        if (row.back() < bestDistance) {
            bestDistance = row.back();
            const bool isNear = bestDistance <= std::max<std::size_t>(1, wanted.size() / 3);
            best = {candidate, isNear && word.size() <= kLongest};
        } else if (row.back() == bestDistance && candidate != best.name) {
            best.isSure = false;
        }
    }
    return best;
}

std::string Nearest(std::string_view word, const std::vector<std::string>& candidates) {
    return NearestOf(word, candidates).name;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& candidates) {
    return DidYouMean(NearestOf(word, candidates));
}

std::string DidYouMean(const NearestName& nearest) {
    return nearest.name.empty() ? std::string() : "; did you mean '" + nearest.name + "'?";
}

}  // namespace tovarek
