// What the device's self-documentation says of its objects.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tovarek {

// How many objects "&3.0@0,8020[2],1[4Lamp;text" lists, those of arrays counted: of each a profile number,
// a "[" and a count where there are several, and a name. Nothing for a text of another form.
std::optional<std::size_t> ObjectCount(std::string_view selfDocumentation);

}  // namespace tovarek
