#include "convert/ResourceSetInput.h"

#include <algorithm>

#include "base/Path.h"
#include "formats/records/ResourceKinds.h"
#include "support/CErrorHandler.h"
#include "system/Files.h"

namespace tovarek {
namespace {

[[noreturn]] void Refuse(const Outcome& outcome, const std::string& path) {
    CErrorHandler().RaiseQVxTypesEditError(outcome.code, {.file = path, .reason = outcome.reason});
}

template <class File>
void Read(const std::string& path, const std::function<std::string(const std::string&)>& bytes,
          Outcome (*reader)(std::string_view, File&), File& file) {
    if (path.empty())
        return;
    if (const Outcome outcome = reader(bytes(path), file); !outcome.Ok())
        Refuse(outcome, path);
}

}  // namespace

bool IsResourceFile(const std::string& path) {
    const std::string extension = ExtensionOf(path);
    const auto isOf = [&](const ResourceKindRow& row) {
        return !row.extension.empty() && extension == row.extension;
    };
    if (extension == kFormatExtension || IsLanguageExtension(extension) ||
        std::any_of(kResourceKinds.begin(), kResourceKinds.end(), isOf))
        return true;
    const std::string begin = FileExists(path) ? ReadFile(path, kResourceKinds[0].magic.size()) : "";
    return std::any_of(kResourceKinds.begin(), kResourceKinds.end(),
                       [&](const ResourceKindRow& row) { return begin == row.magic; });
}

ResourceSetInput ReadResourceSet(const std::string& path) {
    const ResourceSetFiles files = FindResourceSet(path);
    if (files.types.empty())
        Refuse(Failure(resultErrorOpenFile,
                       "no type file (.typ) of this name lies beside it, and types are what is converted"),
               path);
    return ReadResourceSet(files, [](const std::string& file) { return ReadFile(file); });
}

ResourceSetInput ReadResourceSet(const ResourceSetFiles& files,
                                 const std::function<std::string(const std::string&)>& bytes) {
    ResourceSetInput set;
    set.files = files;
    Read(files.types, bytes, ReadTypeFile, set.types);
    Read(files.language, bytes, ReadLanguageFile, set.texts);
    Read(files.formats, bytes, ReadFormatFile, set.formats);
    Read(files.profiles, bytes, ReadProfileFile, set.profiles);
    return set;
}

}  // namespace tovarek
