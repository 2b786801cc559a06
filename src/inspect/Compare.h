// Differences between two trees of one kind of file.
#pragma once

#include <string>
#include <vector>

#include "inspect/InspectNode.h"

namespace tovarek {

// One difference. `before` or `after` is empty (no value) where the node is missing on that side; an object
// that only one side has stands there as text.
struct Difference {
    std::string path;  // "nvTypes[3].type.members[level].rawMaximum"
    InspectNode::Value before;
    InspectNode::Value after;
};

// Compares what is not derived on both sides, in the order of the first tree. Items of lists are matched by
// their names; items of one name, or of none, in their order.
std::vector<Difference> Compare(const InspectNode& before, const InspectNode& after);

}  // namespace tovarek
