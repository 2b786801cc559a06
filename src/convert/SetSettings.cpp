#include "convert/SetSettings.h"

#include <algorithm>

#include "base/Path.h"
#include "convert/FromSet.h"

namespace tovarek {
namespace {

// "fancoil" of "fancoil_6.typ".
std::string BaseName(const ResourceSetInput& set) {
    std::string_view stem = StemOf(set.files.types);
    const std::string ending = '_' + std::to_string(set.types.header.scope);
    if (stem.size() > ending.size() && stem.ends_with(ending))
        stem.remove_suffix(ending.size());
    return std::string(stem);
}

std::string WrittenExtension(const std::string& path) {
    return std::string(NameOf(path).substr(std::min(StemOf(path).size() + 1, NameOf(path).size())));
}

// Whether any of the types that are references to standard types with named formats has such, and whether
// any lacks them.
template <class Type>
void LookFor(const std::vector<std::optional<Type>>& types,
             std::string (*whole)(std::uint8_t, const std::string&), const ResourceSetInput& set,
             const StandardCatalog& catalog, bool& has, bool& lacks) {
    const auto isNamed = [](const DisplayFormat& format) { return !format.name.empty(); };
    for (const std::optional<Type>& type : types) {
        if (!type || type->type.kind != TypeKind::reference || type->type.target.scope != 0)
            continue;
        const auto& standard = catalog.Formats(catalog.NvName(type->type.target.index));
        if (std::none_of(standard.begin(), standard.end(), isNamed))
            continue;
        const std::string name = whole(set.types.header.scope, type->name);
        const bool isTaken =
            std::any_of(set.formats.formats.begin(), set.formats.formats.end(),
                        [&](const DisplayFormat& format) { return format.type == name && isNamed(format); });
        (isTaken ? has : lacks) = true;
    }
}

}  // namespace

TypeFilesSettings SettingsOf(const ResourceSetInput& set) {
    TypeFilesSettings settings;
    const ResourceHeader& header = set.types.header;
    const ResourceNames none;
    const Contact contact = ContactOf(header.contact);
    settings.typeFilesBaseName = BaseName(set);
    settings.creator = contact.creator;
    settings.phone = contact.phone;
    settings.email = contact.email;
    settings.webPage = header.webPage;
    settings.majorVersion = header.majorVersion;
    settings.minorVersion = header.minorVersion;
    settings.creatorDescription = TextIn(set, none, header.creator);
    settings.typeFileDescription = TextIn(set, none, header.description);
    if (!set.files.profiles.empty())
        settings.fptFileDescription = TextIn(set, none, set.profiles.header.description);
    if (set.files.language.empty())
        return settings;
    settings.langFileDescription = TextIn(set, none, set.texts.header.description);
    settings.langExtension = WrittenExtension(set.files.language);
    if (const std::int32_t locale = LocaleOfLanguage(set.texts.language); locale != 0)
        settings.localeID = locale;
    return settings;
}

bool TakesUnitsFromReferences(const ResourceSetInput& set, const StandardCatalog& catalog) {
    bool has = false;
    bool lacks = false;
    LookFor(set.types.nvTypes, WholeNvName, set, catalog, has, lacks);
    LookFor(set.types.cpTypes, WholeCpName, set, catalog, has, lacks);
    return has || !lacks;
}

}  // namespace tovarek
