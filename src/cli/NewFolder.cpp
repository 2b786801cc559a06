#include "cli/NewFolder.h"

#include <utility>

#include "base/Text.h"
#include "cli/Assignments.h"
#include "system/Files.h"

namespace tovarek {

NewFolder::NewFolder(std::string path) : path_(std::move(path)) {
    if (FolderExists(path_) || FileExists(path_))
        throw WrongUse(
            "'" + Excerpt(path_) +
            "' exists, and nothing is overwritten; give the name of a folder that does not exist yet");
    ProbeOutput(path_);
    if (!MakeDirectory(path_))
        throw WrongUse("a folder '" + Excerpt(path_) + "' cannot be made; give another name");
}

NewFolder::~NewFolder() {
    if (isFinished_)
        return;
    for (const std::string& name : DirectoryEntries(path_))
        RemoveEntry(PathOf(name));
    RemoveEntry(path_);
}

}  // namespace tovarek
