#include "component/FilesList.h"

#include <string_view>

#include "base/Numbers.h"
#include "base/Path.h"
#include "support/TextWriter.h"
#include "types/TypeFilesDriver.h"

namespace tovarek {
namespace {

// Scopes that resource files are written for; types of any other one are not.
constexpr std::int32_t kFirstScope = 1;
constexpr std::int32_t kLastScope = 6;

constexpr std::string_view kHeader[] = {
    "' List of the generated files",
    "' Format is :",
    "'       <fileType>,<fileName>,<programId>,<scope>,<locale>",
    "'        With :",
    "'            <fileType>  2:lang, 3:type, 4:fpt, 5:format",
    "'            <fileName>  Name of the file without path",
    "'            <programId> Complete programID",
    "'            <scope>     Scope from 1 to 6",
    "'            <locale>    Lang locale id. Zero if the file is not a lang file.",
    "",
};

void AddTypesOfScope(const CTypes::Types& types, std::int32_t scope, const std::string& keyPrefix,
                     ScopeTypes& ofScope) {
    for (const auto& type : types)
        if (type->scope == scope)
            ofScope.Add(keyPrefix + std::to_string(type->indexInScope), type.get());
}

constexpr const char* kWithoutTypes = "a device without types of its own needs mustGenerateTypes false";

// Adds what helps when the inputs of the types are not set. They were not opened when the context has no
// record.
void ExplainInputs(Error& error, const std::string& formatFile, const std::string& userTypeFile,
                   const std::string& userTypeFilePath) {
    if (error.Number() == eQVXIFerr_errorloadingxmlformatfile && formatFile.empty())
        error.AddReason(std::string("typeFilesXMLFormat is not set; ") + kWithoutTypes);
    if (error.Number() != eQVXIFerr_errorloadingusertypefile || !error.Context().record.empty())
        return;
    if (userTypeFile.empty())
        error.AddReason(std::string("the template does not name a user type file (userTypeFile in [general], "
                                    "USERCPFILE); ") +
                        kWithoutTypes);
    else if (userTypeFilePath.empty())
        error.AddReason(
            "userTypeFilePath is empty, which stands for the root folder; \".\" is the current one");
}

std::string ListPath(const TypeFilesSettings& settings) {
    return WithFinalBackslash(settings.typeFilesDirectory) + "files.lst";
}

void WriteTypeFiles(const CTypes& types, const CTemplate& deviceTemplate, CCatalog& catalog,
                    const CErrorHandler& errorHandler, const TypeFilesSettings& settings,
                    std::vector<std::string>& writtenFiles) {
    std::vector<CResFile> files;
    for (std::int32_t scope = kFirstScope; scope <= kLastScope; ++scope) {
        ScopeTypes ofScope;
        AddTypesOfScope(types.unvtTypes, scope, "NV_", ofScope);
        AddTypesOfScope(types.ucptTypes, scope, "CP_", ofScope);
        if (!ofScope.empty())
            GenerateTypeFiles(ofScope, scope, settings, deviceTemplate.programID, catalog, errorHandler,
                              files, writtenFiles);
    }

    const std::string path = ListPath(settings);
    OutputFile list(path);
    WriteFilesListText(list, files);
    list.Close();
    writtenFiles.push_back(path);
}

}  // namespace

std::string UserTypeFile(const CTemplate& deviceTemplate, const std::string& userTypeFilePath) {
    return WithFinalBackslash(userTypeFilePath) + deviceTemplate.userTypeFile;
}

std::vector<std::string> PossibleTypeFiles(const TypeFilesSettings& settings) {
    std::vector<std::string> paths;
    for (std::int32_t scope = kFirstScope; scope <= kLastScope; ++scope)
        for (const ResourceFileKind kind : kResourceFileKinds)
            paths.push_back(WithFinalBackslash(settings.typeFilesDirectory) +
                            ResourceFileName(settings, scope, kind));
    paths.push_back(ListPath(settings));
    return paths;
}

void WriteFilesListText(FileSink& sink, const std::vector<CResFile>& files) {
    TextWriter out(sink);
    for (const std::string_view line : kHeader)
        out.Line(line);
    std::string line;
    for (const CResFile& file : files) {
        line.clear();
        AppendInteger(line, file.typeFile);
        line.append(",").append(file.name).append(",").append(file.programID).append(",");
        AppendInteger(line, file.scope);
        line += ',';
        AppendInteger(line, file.locale);
        out.Line(line);
    }
}

void GenerateTypeFilesAndList(CTypes& types, const CTemplate& deviceTemplate, CCatalog& catalog,
                              const CErrorHandler& errorHandler, const TypeFilesSettings& settings,
                              const std::string& formatFile, const std::string& userTypeFilePath,
                              std::vector<std::string>& writtenFiles) {
    types.deviceTemplate = &deviceTemplate;
    types.errorHandler = &errorHandler;
    types.catalog = &catalog;
    try {
        types.LoadTypes(formatFile, UserTypeFile(deviceTemplate, userTypeFilePath));
    } catch (Error& error) {
        ExplainInputs(error, formatFile, deviceTemplate.userTypeFile, userTypeFilePath);
        throw;
    }
    try {
        WriteTypeFiles(types, deviceTemplate, catalog, errorHandler, settings, writtenFiles);
    } catch (Error& error) {
        if (settings.typeFilesDirectory.empty())
            error.AddReason(
                "typeFilesDirectory is empty, which stands for the root folder; \".\" is the current one");
        throw;
    }
}

}  // namespace tovarek
