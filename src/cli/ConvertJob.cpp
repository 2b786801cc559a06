#include "cli/ConvertJob.h"

#include <variant>

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

std::string NameOfOutputs(const ConvertedFiles& files) {
    return files.outputs.empty() ? std::string(StemOf(files.job)) : files.outputs;
}

void AddSource(Json& job, const ConvertedFiles& files, const std::string& path, const SourceKeys& keys) {
    if (path.empty())
        return;
    const bool isXml = ExtensionOf(path) == "xml";
    job[isXml ? keys.xml : keys.ini] = FromFolderOf(files.job, path);
    if (isXml)
        job[keys.node] = keys.element;
}

// Settings of the resource files that a job names as the properties that they are.
struct SettingKey {
    const char* key;
    std::variant<std::string TypeFilesSettings::*, std::int32_t TypeFilesSettings::*> member;
};
constexpr SettingKey kSettings[] = {
    {"typeFilesBaseName", &TypeFilesSettings::typeFilesBaseName},
    {"creator", &TypeFilesSettings::creator},
    {"creatorDescription", &TypeFilesSettings::creatorDescription},
    {"phone", &TypeFilesSettings::phone},
    {"email", &TypeFilesSettings::email},
    {"webPage", &TypeFilesSettings::webPage},
    {"localeID", &TypeFilesSettings::localeID},
    {"langExtension", &TypeFilesSettings::langExtension},
    {"typeFileDescription", &TypeFilesSettings::typeFileDescription},
    {"langFileDescription", &TypeFilesSettings::langFileDescription},
    {"fptFileDescription", &TypeFilesSettings::fptFileDescription},
    {"majorVersion", &TypeFilesSettings::majorVersion},
    {"minorVersion", &TypeFilesSettings::minorVersion},
};

void AddTypes(Json& job, const ConvertedFiles& files) {
    const TypeOutputs& types = *files.types;
    const TypeFilesSettings& settings = types.settings;
    const std::string folder = FolderOf(types.userTypes);
    job["typeFilesXMLFormat"] = FromFolderOf(files.job, types.formatFile);
    job["userTypeFilePath"] = FromFolderOf(files.job, folder.empty() ? "." : folder);
    job["createUnitsFromReference"] = types.takesUnits;
    // A folder of its own: the files that were converted may lie in the current one.
    job["typeFilesDirectory"] = "./" + NameOfOutputs(files) + "-types";
    for (const auto& [key, member] : kSettings)
        std::visit([&job, &settings, name = key](auto pointer) { job[name] = settings.*pointer; }, member);
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
        job["outputXIFfile"] = NameOfOutputs(files) + ".xif";
    else
        job["mustGenerateXif"] = false;
    return JsonText(job) + "\n";
}

}  // namespace tovarek
