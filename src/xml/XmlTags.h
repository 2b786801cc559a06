// Where the tags of an element stand in the text of a document that is known to be well-formed.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tovarek {

// Bytes of a text.
struct TextSpan {
    std::size_t start = 0;
    std::size_t size = 0;
    std::size_t End() const { return start + size; }
};

struct ElementSpans {
    TextSpan name;     // in the start tag
    TextSpan content;  // between the tags; empty behind an empty-element tag
    TextSpan endName;  // in the end tag; of no size in an empty-element tag
    TextSpan whole;    // from "<" to ">"
};

// The spans of the element whose start tag begins at `start`; nothing where none does, or where it does not
// end.
std::optional<ElementSpans> ElementAt(std::string_view text, std::size_t start);

}  // namespace tovarek
