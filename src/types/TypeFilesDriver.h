// Generates the resource files of one scope: language, functional-profile, type and format file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/KeyedList.h"
#include "control/ResourceSet.h"
#include "support/CErrorHandler.h"
#include "support/Findings.h"
#include "system/TrialOutput.h"
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

// The files of a scope that a run in which nothing was written has left; no paths where it has none.
ResourceSetFiles KeptResourceSet(const KeptOutput& kept, const TypeFilesSettings& settings,
                                 std::int32_t scope);

// Where the files of a run go and who hears of it.
struct TypeFilesRun {
    FindingSink& findings;
    std::vector<std::string>& writtenFiles;  // paths of finished files
    TrialOutput* trial = nullptr;            // set: nothing is written
};

// Writes the files in the folder of the settings, which is created when its parent exists. Appends a record
// for each file to `result` before it is begun, and its path to the written files when it is finished. Tells
// error 134 or 135 for a gap in the indexes, the errors of the control's result codes, and file errors for
// the format file. Files that were finished before an error stay. In a trial that goes on behind an error,
// settings that were refused become others that are not, so that each is told once.
void GenerateTypeFiles(const ScopeTypes& types, std::int32_t scope, TypeFilesSettings& settings,
                       const std::string& programID, CCatalog& catalog, const CErrorHandler& errorHandler,
                       std::vector<CResFile>& result, const TypeFilesRun& run);

}  // namespace tovarek
