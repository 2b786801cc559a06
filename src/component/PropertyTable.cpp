#include "component/PropertyTable.h"

#include <type_traits>

namespace tovarek {
namespace {

template <PropertyKind Kind>
using ValueOf = std::variant_alternative_t<static_cast<std::size_t>(Kind), PropertyValue>;

static_assert(std::is_same_v<ValueOf<PropertyKind::string>, std::string>);
static_assert(std::is_same_v<ValueOf<PropertyKind::boolean>, bool>);
static_assert(std::is_same_v<ValueOf<PropertyKind::integer>, std::int32_t>);
static_assert(std::is_same_v<ValueOf<PropertyKind::node>, XmlNode>);

// A row from the accessors of the same name.
#define TOVAREK_PROPERTY(name, kind, help)                                                  \
    {                                                                                       \
#name, PropertyKind::kind, [](const Tovarek& c) -> PropertyValue { return c.name(); },    \
     [](Tovarek& c, const PropertyValue& v) { c.name(std::get<ValueOf<PropertyKind::kind>>(v)); }, help \
    }

constexpr Property kProperties[] = {
    TOVAREK_PROPERTY(catalogDir, string, "folder of the standard type catalog"),
    TOVAREK_PROPERTY(catalogFile, string, "file name of the catalog (ldrf.cat)"),
    TOVAREK_PROPERTY(mustGenerateXif, boolean, "write the XIF file (true)"),
    TOVAREK_PROPERTY(mustGenerateTypes, boolean, "write the resource files (true)"),
    TOVAREK_PROPERTY(iniProfileFile, string, "device profile: INI file"),
    TOVAREK_PROPERTY(xmlProfileFile, string, "device profile: XML file"),
    TOVAREK_PROPERTY(xmlProfileNodeName, string, "name of the profile's element in it"),
    TOVAREK_PROPERTY(xmlProfileNode, node, "device profile: an XML element"),
    TOVAREK_PROPERTY(xifProfileFile, string, "device profile: lines 6 to 10 of an XIF file"),
    TOVAREK_PROPERTY(iniTemplateFile, string, "application template: INI file"),
    TOVAREK_PROPERTY(xmlTemplateFile, string, "application template: XML file"),
    TOVAREK_PROPERTY(xmlTemplateNodeName, string, "name of the template's element in it"),
    TOVAREK_PROPERTY(xmlTemplateNode, node, "application template: an XML element"),
    TOVAREK_PROPERTY(outputXIFfile, string, "the XIF file to write"),
    TOVAREK_PROPERTY(typeFilesDirectory, string, "folder of the resource files"),
    TOVAREK_PROPERTY(typeFilesBaseName, string, "base name of the resource files"),
    TOVAREK_PROPERTY(typeFilesXMLFormat, string, "XML format file that defines the user types"),
    TOVAREK_PROPERTY(typeFilesXMLPrefix, string, "prefix of its type elements (SNVT_)"),
    TOVAREK_PROPERTY(userTypeFilePath, string, "folder of the template's user type file"),
    TOVAREK_PROPERTY(creator, string, "creator of the resource files (Tovarek)"),
    TOVAREK_PROPERTY(creatorDescription, string, "what the creator is (Tovarek utility)"),
    TOVAREK_PROPERTY(webPage, string, "web page of the creator"),
    TOVAREK_PROPERTY(email, string, "e-mail address of the creator"),
    TOVAREK_PROPERTY(localeID, integer, "locale of the language file (1033)"),
    TOVAREK_PROPERTY(langExtension, string, "extension of the language file (ENU)"),
    TOVAREK_PROPERTY(typeFileDescription, string, "description of the type file"),
    TOVAREK_PROPERTY(langFileDescription, string, "description of the language file"),
    TOVAREK_PROPERTY(fptFileDescription, string, "description of the profile file"),
    TOVAREK_PROPERTY(phone, string, "telephone number of the creator"),
    TOVAREK_PROPERTY(majorVersion, integer, "major version of the resource files (1)"),
    TOVAREK_PROPERTY(minorVersion, integer, "minor version of the resource files (0)"),
    TOVAREK_PROPERTY(addNameInCpString, boolean, "add property names to their declarations (false)"),
    TOVAREK_PROPERTY(createUnitsFromReference, boolean, "take over display formats of standard types (true)"),
};
#undef TOVAREK_PROPERTY

static_assert(std::size(kProperties) == 33);

}  // namespace

std::span<const Property> Properties() {
    return kProperties;
}

const Property* FindProperty(std::string_view name) {
    for (const Property& property : kProperties)
        if (property.name == name)
            return &property;
    return nullptr;
}

}  // namespace tovarek
