// Resource files and catalogs as trees: a header, then what the file holds, by number.
#pragma once

#include <string>
#include <string_view>

#include "control/ResourceNames.h"
#include "formats/format/FormatFile.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/records/Outcome.h"
#include "formats/type/TypeFile.h"
#include "inspect/InspectNode.h"

namespace tovarek {

InspectNode LanguageTree(const LanguageFile& file, const ResourceNames& names);
InspectNode TypeTree(const TypeFile& file, const ResourceNames& names);
InspectNode ProfileTree(const ProfileFile& file, const ResourceNames& names);
InspectNode FormatTree(const FormatFile& file, const ResourceNames& names);

// A catalog of ours: the folders that it names, and the type files that lie in them. `path` is where the
// catalog lies.
InspectNode CatalogTree(std::string_view bytes, const std::string& path);

}  // namespace tovarek
