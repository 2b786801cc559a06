// The type step of a generation: loads the user types, has the resource files of every scope written, and
// lists them in files.lst for installers and build tools.
#pragma once

#include <string>
#include <vector>

#include "support/CErrorHandler.h"
#include "system/Files.h"
#include "template/CTemplate.h"
#include "types/CResFile.h"
#include "types/CTypes.h"
#include "types/TypeFilesDriver.h"
#include "types/TypeFilesSettings.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {

class Readings;  // support/Readings.h

// Paths of all files that this step writes when there are types of every scope.
std::vector<std::string> PossibleTypeFiles(const TypeFilesSettings& settings);

// Path of the template's user type file, which is looked for in `userTypeFilePath`.
std::string UserTypeFile(const CTemplate& deviceTemplate, const std::string& userTypeFilePath);

// The inputs of the type step; the template is loaded and checked already.
struct TypeStep {
    const CTemplate& deviceTemplate;
    CCatalog& catalog;
    const CErrorHandler& errorHandler;
    const TypeFilesSettings& settings;
    const std::string& formatFile;        // defines the types
    const std::string& userTypeFilePath;  // the folder of the template's user type file
    Readings* readings = nullptr;         // hears warnings; null for nobody
};

// Paths of finished files are appended to the written files, files.lst last. Tells the errors of
// CTypes::LoadTypes and GenerateTypeFiles, and file errors for files.lst; one place of an input is told the
// same once. Files that were finished before an error stay.
void GenerateTypeFilesAndList(CTypes& types, const TypeStep& step, const TypeFilesRun& run);

// The text of files.lst into any sink, which is not closed.
void WriteFilesListText(FileSink& sink, const std::vector<CResFile>& files);

}  // namespace tovarek
