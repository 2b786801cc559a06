// A view in the forms that people read. All are UTF-8 with LF line ends.
#pragma once

#include <cstddef>
#include <string>

#include "show/View.h"

namespace tovarek {

// For a terminal of `width` characters, at least kNarrowest: no line is longer.
inline constexpr std::size_t kNarrowest = 40;
std::string TextForm(const View& view, std::size_t width);

}  // namespace tovarek
