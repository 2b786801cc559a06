// A folder of the interfaces that were released, each under a program ID of its own.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Report.h"
#include "formats/xif/XifFile.h"

namespace tovarek {

struct KnownInterface {
    std::string path;
    XifFile file;
};

// Reads the XIF files of `folder`, by name; `besides` is left out, which may lie there too. Throws WrongUse
// when there is no such folder; raises what cannot be read of a file: it might be the one that is looked for.
// Of many files a terminal shows the progress.
std::vector<KnownInterface> ReadKnownInterfaces(const std::string& folder, const std::string& besides,
                                                OutputFormat format, Streams streams);

// The one of this program ID (pairs, in capitals); null when there is none. Throws WrongUse when there are
// two.
const KnownInterface* FindKnown(const std::vector<KnownInterface>& known, const std::string& programId);

// The next program ID behind `programId` that differs in its model number alone and is not known; nothing
// when all are taken, and for one that is no standard program ID. All are pairs, in capitals.
std::optional<std::string> NextFreeModel(const std::string& programId,
                                         const std::vector<KnownInterface>& known);

}  // namespace tovarek
