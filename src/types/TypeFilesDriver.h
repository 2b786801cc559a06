// Generates the resource files of one scope: language, functional-profile, type and format file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/KeyedList.h"
#include "support/CErrorHandler.h"
#include "types/CResFile.h"
#include "types/CType.h"
#include "types/TypeFilesSettings.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {

// The types of one scope under "NV_" or "CP_" and their index in the scope.
using ScopeTypes = KeyedList<CType*>;

// The files of a scope, in the order in which they are written.
inline constexpr ResourceFileKind kResourceFileKinds[] = {fileLanguage, fileProfiles, fileTypes, fileFormats};

// The name of one of them, without folder.
std::string ResourceFileName(const TypeFilesSettings& settings, std::int32_t scope, ResourceFileKind kind);

// Writes the files in the folder of the settings, which is created when its parent exists. Appends a record
// for each file to `result` before it is begun, and its path to `writtenFiles` when it is finished. Raises
// error 134 or 135 for a gap in the indexes, the errors of the control's result codes, and file errors for
// the format file. Files that were finished before an error stay.
void GenerateTypeFiles(const ScopeTypes& types, std::int32_t scope, const TypeFilesSettings& settings,
                       const std::string& programID, CCatalog& catalog, const CErrorHandler& errorHandler,
                       std::vector<CResFile>& result, std::vector<std::string>& writtenFiles);

}  // namespace tovarek
