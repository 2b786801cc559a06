// The facts of the standard types (catalog/standard-types.json) as the models of the resource files.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

struct StandardSet {
    LanguageFile language;
    TypeFile types;
    ProfileFile profiles;
    FormatFile formats;
};

// Builds the whole set, saved at `saved` (UTC). Throws nlohmann::json::exception or std::runtime_error where
// a fact contradicts another or does not fit the format.
StandardSet BuildStandardSet(const nlohmann::json& facts, const CivilTime& saved);

}  // namespace tovarek
