#include "cli/InterfaceInput.h"

#include <map>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/JobSetup.h"
#include "compare/GeneratedInterface.h"
#include "convert/FromInput.h"
#include "system/Files.h"
#include "values/ProgramId.h"
#include "values/ValueTypes.h"

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
    std::vector<OwnTypes> types;
    if (component.mustGenerateTypes())
        types = GeneratedTypes(device,
                               {component.typeFilesXMLFormat(), component.userTypeFilePath(),
                                component.typeFilesXMLPrefix(), component.createUnitsFromReference()},
                               *catalog);
    return {GeneratedInterface(std::move(device), profile, component.addNameInCpString(), *catalog, path),
            false, hasProfile, std::move(types)};
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

ComparedInterface InterfaceOfWord(const std::string& word, const CatalogPlace& place) {
    const NamedInput input = InputNamed(word);
    const std::string extension = ExtensionOf(input.file);
    if (extension == "json")
        return OfJob(input.file);
    if (extension == "ini" || extension == "xml")
        return OfTemplate(input, place);
    if (IsXif(input.file)) {
        ComparedInterface found{ReadXif(input.file)};
        for (const std::string& path : TypeFilesBeside(input.file, found.file))
            found.types.push_back(ReadOwnTypes(path));
        return found;
    }
    throw WrongUse(
        "'" + Excerpt(word) +
        "' does not begin like an XIF file, and its name does not tell another form; interfaces are "
        "called .xif, .ini or .xml (templates), or .json (jobs)");
}

}  // namespace

std::vector<std::string> TypeFilesBeside(const std::string& path, const XifFile& file) {
    const std::string programId = ProgramIdDigits(file.programId).value_or("");
    std::map<std::uint8_t, std::vector<std::string>> found;
    const std::string folder = FolderOf(path);
    for (const std::string& name : DirectoryEntries(folder.empty() ? "." : folder)) {
        TypeFile types;
        if (ExtensionOf(name) != RowOf(ResourceKind::type).extension || FolderExists(folder + name) ||
            !ReadTypeFile(ReadFile(folder + name), types).Ok())
            continue;
        std::string id;
        for (const std::uint8_t byte : types.header.programId)
            AppendHex(id, byte, 2);
        if (id == programId)
            found[types.header.scope].push_back(folder + name);
    }
    std::vector<std::string> sets;
    for (const auto& [scope, paths] : found)
        if (scope != 0 && paths.size() == 1)
            sets.push_back(paths.front());
    return sets;
}

std::vector<OwnTypes> NamedTypes(const std::vector<std::string>& paths) {
    std::vector<OwnTypes> sets;
    for (const std::string& path : paths) {
        OwnTypes own = ReadOwnTypes(path);
        for (const OwnTypes& other : sets)
            if (other.types.header.scope == own.types.header.scope)
                throw WrongUse("'" + Excerpt(path) + "' is the second set of scope " +
                               std::to_string(own.types.header.scope) +
                               " of one interface; give one of them");
        sets.push_back(std::move(own));
    }
    return sets;
}

// Sets that were named stand for those that were found.
ComparedInterface ReadComparedInterface(const InterfaceWords& words, const CatalogPlace& place) {
    ComparedInterface found = InterfaceOfWord(words.interface, place);
    if (!words.types.empty())
        found.types = NamedTypes(words.types);
    return found;
}

}  // namespace tovarek
