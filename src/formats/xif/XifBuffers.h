// The 4-bit codes in which line 6 of an XIF file gives counts and sizes of buffers.
#pragma once

#include <array>

namespace tovarek {

inline constexpr std::array<int, 16> kXifBufferCounts = {0,  1,  1,  2,  3,  5,  7,   11,
                                                         15, 23, 31, 47, 63, 95, 127, 191};
// In bytes.
inline constexpr std::array<int, 16> kXifBufferSizes = {255, 20, 20, 21, 22, 24,  26,  30,
                                                        34,  42, 50, 66, 82, 114, 146, 210};

}  // namespace tovarek
