#include "cli/ShowInputs.h"

#include <utility>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/InterfaceInput.h"
#include "compare/GeneratedInterface.h"
#include "control/ResourceSet.h"
#include "convert/ResourceSetInput.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

// The set of the file `path`; several files of a set are one.
void AddSet(const std::string& path, std::vector<OwnTypes>& sets, std::vector<std::string>& read) {
    const std::string types = FindResourceSet(path).types;
    if (types.empty())
        throw WrongUse("no type file (.typ) lies beside '" + Excerpt(path) +
                       "', and types are what is shown of a resource set");
    for (const std::string& other : read)
        if (other == types)
            return;
    OwnTypes own = ReadOwnTypes(types);
    for (const OwnTypes& other : sets)
        if (other.types.header.scope == own.types.header.scope)
            throw WrongUse("'" + Excerpt(path) + "' is of the second set of scope " +
                           std::to_string(own.types.header.scope) + "; give one of them");
    sets.push_back(std::move(own));
    read.push_back(types);
}

void ReadInterface(const std::vector<std::string>& words, const CatalogPlace& place, CCatalog& catalog,
                   ShownDevice& device) {
    if (words.size() == 1) {
        ComparedInterface found = ReadComparedInterface({words.front()}, place);
        device.file = std::move(found.file);
        device.hasParameters = found.hasParameters;
        return;
    }
    const DeviceInterface found = ReadInputs(words, *catalog.types.Catalog()).device;
    if (!found.hasTemplate)
        throw WrongUse("none of the files holds a template, which tells what a device has");
    device.hasParameters = found.hasProfile;
    device.file = GeneratedInterface(found.device, found.profile, found.addsNames, catalog, words.front());
}

}  // namespace

ShownDevice ReadShownDevice(const std::vector<std::string>& words, const CatalogPlace& place,
                            CCatalog& catalog) {
    ShownDevice device;
    std::vector<std::string> interfaces;
    std::vector<std::string> sets;
    for (const std::string& word : words)
        if (const NamedInput input = InputNamed(word); IsResourceFile(input.file))
            AddSet(input.file, device.own, sets);
        else
            interfaces.push_back(word);
    if (interfaces.empty())
        throw WrongUse("show needs a device: an XIF file, a template (.ini, .xml) or a job (.json)");
    device.title = NameOf(interfaces.front());
    ReadInterface(interfaces, place, catalog, device);
    const std::string file = InputNamed(interfaces.front()).file;
    if (sets.empty() && IsXif(file) && !FindResourceSet(file).types.empty())
        AddSet(file, device.own, sets);
    return device;
}

}  // namespace tovarek
