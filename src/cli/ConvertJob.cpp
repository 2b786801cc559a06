#include "cli/ConvertJob.h"

#include "base/Path.h"
#include "cli/Json.h"
#include "cli/Locations.h"
#include "convert/InputText.h"

namespace tovarek {
namespace {

struct SourceKeys {
    const char* ini;
    const char* xml;
    const char* node;
    std::string_view element;
};

void AddSource(Json& job, const ConvertedFiles& files, const std::string& path, const SourceKeys& keys) {
    if (path.empty())
        return;
    const bool isXml = ExtensionOf(path) == "xml";
    job[isXml ? keys.xml : keys.ini] = FromFolderOf(files.job, path);
    if (isXml)
        job[keys.node] = keys.element;
}

void AddTypes(Json& job, const ConvertedFiles& files) {
    const TypeOutputs& types = *files.types;
    const TypeFilesSettings& settings = types.settings;
    const std::string folder = FolderOf(types.userTypes);
    job["typeFilesXMLFormat"] = FromFolderOf(files.job, types.formatFile);
    job["userTypeFilePath"] = FromFolderOf(files.job, folder.empty() ? "." : folder);
    job["createUnitsFromReference"] = types.takesUnits;
    // A folder of its own: the files that were converted may lie in the current one.
    job["typeFilesDirectory"] = "./" + std::string(StemOf(files.job)) + "-types";
    job["typeFilesBaseName"] = settings.typeFilesBaseName;
    job["creator"] = settings.creator;
    job["creatorDescription"] = settings.creatorDescription;
    job["phone"] = settings.phone;
    job["email"] = settings.email;
    job["webPage"] = settings.webPage;
    job["localeID"] = settings.localeID;
    job["langExtension"] = settings.langExtension;
    job["typeFileDescription"] = settings.typeFileDescription;
    job["langFileDescription"] = settings.langFileDescription;
    job["fptFileDescription"] = settings.fptFileDescription;
    job["majorVersion"] = settings.majorVersion;
    job["minorVersion"] = settings.minorVersion;
}

}  // namespace

std::string JobText(const ConvertedFiles& files) {
    Json job = Json::object();
    AddSource(job, files, files.profile,
              {"iniProfileFile", "xmlProfileFile", "xmlProfileNodeName", kProfileElement});
    AddSource(job, files, files.deviceTemplate,
              {"iniTemplateFile", "xmlTemplateFile", "xmlTemplateNodeName", kTemplateElement});
    if (files.types == nullptr)
        job["mustGenerateTypes"] = false;
    else
        AddTypes(job, files);
    if (files.addsNames)
        job["addNameInCpString"] = true;
    if (files.types == nullptr || !files.profile.empty())
        job["outputXIFfile"] = std::string(StemOf(files.job)) + ".xif";
    else
        job["mustGenerateXif"] = false;
    return JsonText(job) + "\n";
}

}  // namespace tovarek
