// Files for people and programs: what is in a file, and where two files differ.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "control/ResourceNames.h"
#include "control/StandardCatalog.h"
#include "formats/kind/FileKind.h"
#include "inspect/ByteListing.h"
#include "inspect/Compare.h"
#include "inspect/InspectNode.h"

namespace tovarek {

struct Inspection {
    FileKind kind = FileKind::type;
    InspectNode tree;
};

// Everything in the file at `path`. References are resolved through the other files of its set and through
// those `texts` of `catalog`, which may be null. Raises the runtime error of a file that cannot be read, and
// for what is damaged, or of no known kind, the error of the control's result code; the reason stands in its
// context.
Inspection InspectFile(const std::string& path, const StandardCatalog* catalog,
                       StandardTexts texts = StandardTexts::all);

// The bytes of a file, listed, damaged or not. Raises as InspectFile where the kind is not known.
struct FileListing {
    FileKind kind = FileKind::type;
    std::string bytes;
    ByteListing listing;
    std::string damage;  // why the file cannot be read whole; empty when it can
    std::int32_t code = 0;
};
FileListing ListFile(const std::string& path);

}  // namespace tovarek
