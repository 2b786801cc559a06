#include "cli/KnownInterfaces.h"

#include <algorithm>
#include <set>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/Progress.h"
#include "system/Files.h"
#include "values/ProgramId.h"

namespace tovarek {

std::vector<KnownInterface> ReadKnownInterfaces(const std::string& folder, const std::string& besides,
                                                OutputFormat format, Streams streams) {
    if (!FolderExists(folder))
        throw WrongUse("there is no folder '" + Excerpt(folder) +
                       "'; --known takes the folder of the XIF files that were released");
    const auto self = IdentityOf(besides);
    std::vector<std::string> names = DirectoryEntries(folder);
    std::sort(names.begin(), names.end());
    std::vector<KnownInterface> known;
    Progress progress(streams, format, names.size());
    for (const std::string& name : names) {
        progress.Show(static_cast<std::size_t>(&name - names.data()));
        std::string path = folder;
        path.append("/").append(name);
        if (ExtensionOf(name) != "xif" || FolderExists(path) || (self && IdentityOf(path) == self))
            continue;
        known.push_back({path, ReadXif(path)});
    }
    return known;
}

const KnownInterface* FindKnown(const std::vector<KnownInterface>& known, const std::string& programId) {
    const KnownInterface* found = nullptr;
    for (const KnownInterface& one : known) {
        if (UpperCase(one.file.programId) != programId)
            continue;
        if (found != nullptr)
            throw WrongUse("'" + found->path + "' and '" + one.path + "' both have the program ID " +
                           programId + "; keep the one that was released");
        found = &one;
    }
    return found;
}

std::optional<std::string> NextFreeModel(const std::string& programId,
                                         const std::vector<KnownInterface>& known) {
    constexpr unsigned kModels = 256;
    const std::optional<std::string> digits = ProgramIdDigits(programId);
    if (!digits || !IsStandardProgramId(*digits))
        return {};
    std::set<std::string> taken;
    for (const KnownInterface& one : known)
        taken.insert(UpperCase(one.file.programId));
    const std::string fixed = programId.substr(0, programId.size() - 2);
    const auto model =
        static_cast<unsigned>(static_cast<unsigned char>(FromHex(digits->substr(14))->front()));
    for (unsigned next = 1; next < kModels; ++next) {
        std::string free = fixed;
        AppendHex(free, (model + next) % kModels, 2);
        if (taken.count(free) == 0)
            return free;
    }
    return {};
}

}  // namespace tovarek
