// Which records of two lists are the same ones, whatever was inserted, moved, swapped or renamed between.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tovarek {

// A record at its places in the two lists, from 0.
struct AlignedPair {
    std::size_t before;
    std::size_t after;
};

struct Alignment {
    std::vector<AlignedPair> pairs;                            // in the order of the new list
    std::vector<std::size_t> removed;                          // places in the old list
    std::vector<std::size_t> added;                            // places in the new list
    std::vector<AlignedPair> moved;                            // pairs that left the order of the others
    std::vector<std::pair<AlignedPair, AlignedPair>> swapped;  // pairs that took each other's place
};

// How much the record at a place of the old list is like one at a place of the new list that has another
// name: 0 for what is another record.
using Likeness = std::function<int(std::size_t before, std::size_t after)>;

// Aligns by name; of names that stand several times the first ones belong together, and so on. What is left
// is aligned by name without letter case, then by likeness beside the same neighbour.
Alignment Align(const std::vector<std::string>& before, const std::vector<std::string>& after,
                const Likeness& likeness);

}  // namespace tovarek
