#include "convert/FromInput.h"

#include "base/Text.h"
#include "profile/CProfile.h"
#include "support/CErrorHandler.h"
#include "support/CTools.h"
#include "support/cIni.h"

namespace tovarek {
namespace {

const CErrorHandler kErrorHandler;

constexpr std::string_view kProfileParts[] = {"LINE6", "LINE7", "LINE8", "LINE9", "LINE10"};
constexpr std::string_view kIniTemplateParts[] = {"GENERAL", "NVS", "TAGS", "CPS"};
constexpr std::string_view kXmlTemplateParts[] = {"PROGRAMID", "NVS", "TAGS", "CPS"};

template <std::size_t count>
bool IsOneOf(std::string_view name, const std::string_view (&names)[count]) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// Whether elements below `node` are those of a profile or of a template, at whatever depth.
void LookInto(const XmlNode& node, DeviceInterface& found) {
    constexpr std::string_view kLinePrefix = "XIF_";
    for (XmlNode child = node.FirstChild(); child; child = child.NextSibling()) {
        if (!child.IsElement())
            continue;
        const std::string name = UpperCase(child.Name());
        if (name.starts_with(kLinePrefix) && IsOneOf(name.substr(kLinePrefix.size()), kProfileParts))
            found.hasProfile = true;
        if (IsOneOf(name, kXmlTemplateParts))
            found.hasTemplate = true;
        LookInto(child, found);
    }
}

std::string DocumentElement(const std::string& path) {
    const XmlDocument document(path);
    if (!document.IsLoaded())
        kErrorHandler.RaiseError(eQVXIFerr_errorloadingxmltemplatefile,
                                 {.file = path, .line = document.Line(), .reason = document.Reason()});
    for (XmlNode node = document.FirstNode(); node; node = node.NextSibling())
        if (node.IsElement())
            return node.Name();
    return {};
}

// Loads what `found` says that the source has.
void Load(CProfile profile, CTemplate device, DeviceInterface& found) {
    profile.errorHandler = device.errorHandler = &kErrorHandler;
    if (found.hasProfile) {
        profile.Load();
        found.profile = profile;
    }
    if (found.hasTemplate) {
        device.Load();
        found.device = std::move(device);
    }
}

}  // namespace

DeviceInterface InterfaceOfIni(const std::string& path) {
    cIni ini;
    ini.iniFile(path);
    DeviceInterface found;
    ini.Text()->ForEachSection([&](std::string_view name) {
        const std::string upper = UpperCase(name);
        found.hasProfile = found.hasProfile || IsOneOf(upper, kProfileParts);
        found.hasTemplate = found.hasTemplate || IsOneOf(upper, kIniTemplateParts);
    });
    CProfile profile;
    profile.iniFile = path;
    CTemplate device;
    device.iniFile = path;
    Load(std::move(profile), std::move(device), found);
    return found;
}

DeviceInterface InterfaceOfXml(const std::string& path, const std::string& element) {
    const std::string name = element.empty() ? DocumentElement(path) : element;
    DeviceInterface found;
    LookInto(CTools().SearchXmlNode(path, name, kErrorHandler), found);
    CProfile profile;
    profile.xmlFile = path;
    profile.xmlNodeName = name;
    CTemplate device;
    device.xmlFile = path;
    device.xmlNodeName = name;
    Load(std::move(profile), std::move(device), found);
    return found;
}

}  // namespace tovarek
