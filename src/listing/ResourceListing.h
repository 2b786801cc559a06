// Language, type and profile files, byte by byte.
#pragma once

#include <string_view>
#include <vector>

#include "listing/ByteRow.h"

namespace tovarek {

std::vector<ByteRow> ListResourceFile(std::string_view bytes);

}  // namespace tovarek
