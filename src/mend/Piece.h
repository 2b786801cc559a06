// A piece of an input, and what stands there once a finding is mended.
#pragma once

#include <string>
#include <vector>

namespace tovarek {

struct Piece {
    int line;    // from 1
    int column;  // in characters from 1
    int width;   // in characters, all of one line; 0: `text` is put in front of the column
    std::string text;
    bool operator==(const Piece&) const = default;
};

// The mark of UTF-8: no character of any line, but it may be put in front of the first.
inline constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";

}  // namespace tovarek
