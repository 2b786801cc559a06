#include "cli/InterfaceInput.h"

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/JobSetup.h"
#include "compare/GeneratedInterface.h"
#include "convert/FromInput.h"

namespace tovarek {
namespace {

// The profile of a job; nothing where the job has none and writes no interface file either.
bool LoadProfile(const Tovarek& component, const CErrorHandler& errorHandler, CProfile& profile) {
    profile.errorHandler = &errorHandler;
    profile.iniFile = component.iniProfileFile();
    profile.xifFile = component.xifProfileFile();
    profile.xmlFile = component.xmlProfileFile();
    profile.xmlNodeName = component.xmlProfileNodeName();
    profile.xmlNode = component.xmlProfileNode();
    const bool hasSource = !(profile.iniFile + profile.xifFile + profile.xmlFile).empty() || profile.xmlNode;
    if (!hasSource || !component.mustGenerateXif())
        return false;
    profile.Load();
    profile.VerifyData();
    return true;
}

ComparedInterface OfJob(const std::string& path) {
    const CErrorHandler errorHandler;
    RaisingSink findings(errorHandler);
    Tovarek component;
    SetUp(component, {{Setting::Kind::job, "", path}}, findings);
    const std::unique_ptr<CCatalog> catalog =
        OpenCatalog({component.catalogDir(),
                     component.catalogFile() == kUsualCatalogFile ? std::string() : component.catalogFile()});
    CTemplate device;
    device.errorHandler = &errorHandler;
    device.iniFile = component.iniTemplateFile();
    device.xmlFile = component.xmlTemplateFile();
    device.xmlNodeName = component.xmlTemplateNodeName();
    device.xmlNode = component.xmlTemplateNode();
    device.Load();
    CProfile profile;
    const bool hasProfile = LoadProfile(component, errorHandler, profile);
    return {GeneratedInterface(std::move(device), profile, component.addNameInCpString(), *catalog, path),
            false, hasProfile};
}

ComparedInterface OfTemplate(const NamedInput& input, const CatalogPlace& place) {
    const auto& [path, element] = input;
    ReadFile(path, 1);  // a missing INI file would read as an empty one
    DeviceInterface found = ExtensionOf(path) == "ini" ? InterfaceOfIni(path) : InterfaceOfXml(path, element);
    if (!found.hasTemplate)
        throw WrongUse("'" + Excerpt(path) + "' holds no template" +
                       (ExtensionOf(path) == "xml" && element.empty()
                            ? "; name the element that does: " + Excerpt(path) + "#ELEMENT"
                            : ""));
    return {GeneratedInterface(std::move(found.device), found.profile, false, *OpenCatalog(place), path),
            false, found.hasProfile};
}

}  // namespace

ComparedInterface ReadComparedInterface(const std::string& word, const CatalogPlace& place) {
    const NamedInput input = InputNamed(word);
    const std::string extension = ExtensionOf(input.file);
    if (extension == "json")
        return OfJob(input.file);
    if (extension == "ini" || extension == "xml")
        return OfTemplate(input, place);
    if (IsXif(input.file))
        return {ReadXif(input.file)};
    throw WrongUse(
        "'" + Excerpt(word) +
        "' does not begin like an XIF file, and its name does not tell another form; interfaces are "
        "called .xif, .ini or .xml (templates), or .json (jobs)");
}

}  // namespace tovarek
