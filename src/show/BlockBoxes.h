// The boxes of the drawing: functional blocks with what belongs to them.
#pragma once

#include <string_view>
#include <vector>

#include "show/Records.h"
#include "show/View.h"

namespace tovarek {

// A box for each block, in their order, blocks of one entry without anything of their own in one; in front of
// them what belongs to the device as a whole, behind them what belongs to none. Blocks that no entry of
// `documentation` declares but something belongs to have a box as well. What belongs to more than
// kMostOwners blocks stands in the last box.
inline constexpr std::size_t kMostOwners = 32;
std::vector<ViewBlock> BoxesOf(std::string_view documentation, const DeviceRecords& records);

}  // namespace tovarek
