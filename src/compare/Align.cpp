#include "compare/Align.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

#include "base/Text.h"

namespace tovarek {
namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

// More pairs than this between two neighbours are not looked at one by one.
constexpr std::size_t kMostPairs = std::size_t{1} << 24;

// The partner of each record, on both sides.
struct Partners {
    std::vector<std::size_t> ofBefore;
    std::vector<std::size_t> ofAfter;

    void Join(std::size_t before, std::size_t after) {
        ofBefore[before] = after;
        ofAfter[after] = before;
    }
};

// Joins records of one name that have no partner yet, the first with the first.
void JoinNames(const std::vector<std::string>& before, const std::vector<std::string>& after,
               Partners& partners) {
    std::unordered_map<std::string_view, std::vector<std::size_t>> places;
    for (std::size_t i = before.size(); i-- > 0;)
        if (partners.ofBefore[i] == kNowhere)
            places[before[i]].push_back(i);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (partners.ofAfter[i] != kNowhere)
            continue;
        const auto found = places.find(after[i]);
        if (found == places.end() || found->second.empty())
            continue;
        partners.Join(found->second.back(), i);
        found->second.pop_back();
    }
}

std::vector<std::string> UpperNames(const std::vector<std::string>& names) {
    std::vector<std::string> upper;
    upper.reserve(names.size());
    for (const std::string& name : names)
        upper.push_back(UpperCase(name));
    return upper;
}

// Joins the records of two ranges without partners so that their likenesses add up to the most, in order.
void JoinAlike(AlignedPair from, AlignedPair end, const Likeness& likeness, Partners& partners) {
    const std::size_t rows = end.before - from.before;
    const std::size_t columns = end.after - from.after;
    if (rows == 0 || columns == 0 || rows > kMostPairs / columns)
        return;
    // The best sum of what begins at a row and a column.
    std::vector<std::int32_t> best((rows + 1) * (columns + 1), 0);
    const auto at = [columns](std::size_t row, std::size_t column) { return row * (columns + 1) + column; };
    const auto like = [&](std::size_t row, std::size_t column) {
        return likeness(from.before + row, from.after + column);
    };
    for (std::size_t row = rows; row-- > 0;)
        for (std::size_t column = columns; column-- > 0;) {
            const int alike = like(row, column);
            const std::int32_t joined = alike > 0 ? alike + best[at(row + 1, column + 1)] : 0;
            best[at(row, column)] = std::max({joined, best[at(row + 1, column)], best[at(row, column + 1)]});
        }
    for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
        const std::int32_t sum = best[at(row, column)];
        if (const int alike = like(row, column); alike > 0 && sum == alike + best[at(row + 1, column + 1)])
            partners.Join(from.before + row++, from.after + column++);
        else if (sum == best[at(row + 1, column)])
            ++row;
        else
            ++column;
    }
}

// Offers the records without partners that stand behind, or else in front of, the same neighbour to each
// other.
void JoinRenamed(const Likeness& likeness, Partners& partners) {
    const std::vector<std::size_t>& before = partners.ofBefore;
    const std::vector<std::size_t>& after = partners.ofAfter;
    for (std::size_t begin = 0; begin < after.size(); ++begin) {
        if (after[begin] != kNowhere)
            continue;
        std::size_t end = begin;
        while (end < after.size() && after[end] == kNowhere)
            ++end;
        std::size_t first = begin == 0 ? 0 : after[begin - 1] + 1;
        std::size_t last = first;
        while (last < before.size() && before[last] == kNowhere)
            ++last;
        if (first == last) {
            first = last = end < after.size() ? after[end] : before.size();
            while (first > 0 && before[first - 1] == kNowhere)
                --first;
        }
        JoinAlike({first, begin}, {last, end}, likeness, partners);
        begin = end;
    }
}

// The places of a list of different numbers that belong to a longest ascending part of it.
std::vector<bool> LongestAscent(const std::vector<std::size_t>& numbers) {
    std::vector<std::size_t> ends;  // by length: the place that ends the lowest ascent
    std::vector<std::size_t> previous(numbers.size(), kNowhere);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto place =
            std::lower_bound(ends.begin(), ends.end(), numbers[i],
                             [&](std::size_t at, std::size_t number) { return numbers[at] < number; });
        if (place != ends.begin())
            previous[i] = *std::prev(place);
        if (place == ends.end())
            ends.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> belongs(numbers.size(), false);
    for (std::size_t at = ends.empty() ? kNowhere : ends.back(); at != kNowhere; at = previous[at])
        belongs[at] = true;
    return belongs;
}

// Their places in the old list as ranks: 0 for the first of those that are here.
std::vector<std::size_t> RanksBefore(const std::vector<AlignedPair>& pairs) {
    std::vector<std::size_t> sorted;
    sorted.reserve(pairs.size());
    for (const AlignedPair& pair : pairs)
        sorted.push_back(pair.before);
    std::sort(sorted.begin(), sorted.end());
    std::vector<std::size_t> ranks;
    ranks.reserve(pairs.size());
    for (const AlignedPair& pair : pairs)
        ranks.push_back(static_cast<std::size_t>(std::lower_bound(sorted.begin(), sorted.end(), pair.before) -
                                                 sorted.begin()));
    return ranks;
}

// How a list came out of order: pairs that stand at each other's place among all, and what is not in the
// order of the most others once these are put back.
struct Disorder {
    std::vector<std::pair<AlignedPair, AlignedPair>> swapped;
    std::vector<AlignedPair> moved;

    // Of two explanations with as many steps the one with more swaps is told: nobody moves two neighbours.
    static constexpr std::size_t kSwap = 2;
    static constexpr std::size_t kMove = 3;
    std::size_t Cost() const { return kSwap * swapped.size() + kMove * moved.size(); }
};

Disorder DisorderOf(const std::vector<AlignedPair>& pairs) {
    Disorder found;
    const std::vector<std::size_t> ranks = RanksBefore(pairs);
    std::vector<std::size_t> putBack = ranks;
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (ranks[i] > i && ranks[ranks[i]] == i) {
            found.swapped.emplace_back(pairs[i], pairs[ranks[i]]);
            std::swap(putBack[i], putBack[ranks[i]]);
        }
    const std::vector<bool> stays = LongestAscent(putBack);
    for (std::size_t i = 0; i < pairs.size(); ++i)
        if (!stays[i])
            found.moved.push_back(pairs[ranks[i] != putBack[i] ? ranks[i] : i]);
    return found;
}

std::vector<AlignedPair> Without(std::vector<AlignedPair> pairs, const AlignedPair& one) {
    pairs.erase(std::find_if(pairs.begin(), pairs.end(),
                             [&](const AlignedPair& pair) { return pair.after == one.after; }));
    return pairs;
}

// A record that moved across others hides their swaps: it is taken out first where that tells the rest
// shorter.
Disorder LeastDisorder(std::vector<AlignedPair> pairs) {
    constexpr std::size_t kMostTried = 16;  // what is out of order further is not told any shorter
    std::vector<AlignedPair> moved;
    Disorder best = DisorderOf(pairs);
    for (bool isBetter = true; isBetter && best.moved.size() <= kMostTried;) {
        isBetter = false;
        for (const AlignedPair& candidate : std::vector<AlignedPair>(best.moved)) {
            std::vector<AlignedPair> rest = Without(pairs, candidate);
            Disorder found = DisorderOf(rest);
            if (found.Cost() + Disorder::kMove >= best.Cost())
                continue;
            moved.push_back(candidate);
            pairs = std::move(rest);
            best = std::move(found);
            isBetter = true;
            break;
        }
    }
    best.moved.insert(best.moved.begin(), moved.begin(), moved.end());
    return best;
}

}  // namespace

Alignment Align(const std::vector<std::string>& before, const std::vector<std::string>& after,
                const Likeness& likeness) {
    Partners partners{std::vector<std::size_t>(before.size(), kNowhere),
                      std::vector<std::size_t>(after.size(), kNowhere)};
    JoinNames(before, after, partners);
    JoinNames(UpperNames(before), UpperNames(after), partners);
    JoinRenamed(likeness, partners);
    Alignment alignment;
    for (std::size_t i = 0; i < before.size(); ++i)
        if (partners.ofBefore[i] == kNowhere)
            alignment.removed.push_back(i);
    for (std::size_t i = 0; i < after.size(); ++i)
        if (partners.ofAfter[i] == kNowhere)
            alignment.added.push_back(i);
        else
            alignment.pairs.push_back({partners.ofAfter[i], i});
    Disorder disorder = LeastDisorder(alignment.pairs);
    alignment.swapped = std::move(disorder.swapped);
    alignment.moved = std::move(disorder.moved);
    return alignment;
}

}  // namespace tovarek
