// Boxes of the drawing as SVG, and what all texts inside HTML and SVG need.
#pragma once

#include <string>
#include <string_view>

#include "show/Drawing.h"

namespace tovarek {

// `text` for elements and for values of attributes in double quotes.
std::string Escaped(std::string_view text);

// The rules that paint a drawing, by the colours --ink, --soft, --line and --paper.
std::string_view DrawingStyle();
// These colours in light and dark.
std::string_view Colours();

// The inside of a box: frame, texts, arrows.
std::string BoxContent(const DrawnBox& box);

}  // namespace tovarek
