// The resource files of one scope, read together.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "control/ResourceSet.h"
#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/type/TypeFile.h"

namespace tovarek {

// Whether the file is one of a set, by its first bytes or its extension.
bool IsResourceFile(const std::string& path);

struct ResourceSetInput {
    ResourceSetFiles files;
    TypeFile types;
    LanguageFile texts;    // without strings where there is no such file
    FormatFile formats;    // likewise
    ProfileFile profiles;  // likewise
};

// Reads the set that the file `path` (of any kind) belongs to. Raises the file errors, and those of the codes
// of the files' readers; error 5's for a set without a type file.
ResourceSetInput ReadResourceSet(const std::string& path);

// Reads the files that `bytes` answers for the paths of `files`, as ReadResourceSet does.
ResourceSetInput ReadResourceSet(const ResourceSetFiles& files,
                                 const std::function<std::string(const std::string&)>& bytes);

}  // namespace tovarek
