// What self-documentation says: the functional blocks of the device, and which of them a variable or a
// property belongs to.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// More than any device has; larger numbers in a file stand for it.
inline constexpr std::size_t kMostBlocks = 65535;

// One entry of "&3.0@0,8020[2]Room,3Switch": several blocks where it has a count.
struct DeclaredBlocks {
    std::size_t first = 0;  // index of the first one
    std::size_t count = 1;
    std::string profile;  // number, as it stands
    std::string name;     // may be empty
};

// The blocks in order; nothing where the text declares none. An entry that is none ends the list, since the
// indexes behind it are not known.
std::vector<DeclaredBlocks> DeclaredBlocksOf(std::string_view documentation);

// How many there are, all blocks of an entry counted; nothing for a text of another form than
// "&3.0@0,8020[2];text".
std::optional<std::size_t> DeclaredBlockCount(std::string_view documentation);

// Indexes from `first` to `last`.
struct IndexRange {
    std::size_t first;
    std::size_t last;
};

// "2", "2.4.7", "1~3" or "1-3"; nothing where a part is none of these.
std::vector<IndexRange> RangesOf(std::string_view select);

// What a variable's self-documentation says: "@1|3;Text" is member 3 of block 1, "@1#2" the second one of its
// maker's own, "&1,1,0\x80,49" a configuration property of block 1.
struct Membership {
    std::vector<IndexRange> blocks;  // empty: of none, or of a variable
    std::string member;              // "3", "#2"; of a property empty
    std::string propertyScope;       // a digit; of what is no property empty
    std::string propertyType;
    std::string text;  // for people
};
Membership MembershipOf(std::string_view documentation);

}  // namespace tovarek
