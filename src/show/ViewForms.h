// A view in the forms that people read. All are UTF-8 with LF line ends.
#pragma once

#include <cstddef>
#include <string>

#include "show/View.h"

namespace tovarek {

// For a terminal of `width` characters, at least kNarrowest: no line is longer.
inline constexpr std::size_t kNarrowest = 40;
std::string TextForm(const View& view, std::size_t width);

// For reviews: headings, tables and lists; nothing of the device's texts means anything.
std::string MarkdownForm(const View& view);

// One page that needs nothing beside it: for screens of any width, light and dark, paper, keyboards and
// screen readers. A field filters long tables where scripts run.
std::string HtmlForm(const View& view);

// The drawing alone.
std::string SvgForm(const View& view);

}  // namespace tovarek
