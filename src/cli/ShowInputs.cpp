#include "cli/ShowInputs.h"

#include <algorithm>
#include <utility>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/InterfaceInput.h"
#include "compare/GeneratedInterface.h"
#include "control/ResourceSet.h"
#include "convert/ResourceSetInput.h"

namespace tovarek {
namespace {

// The type file of the set that the file `path` belongs to.
std::string TypesOf(const std::string& path) {
    std::string types = FindResourceSet(path).types;
    if (types.empty())
        throw WrongUse("no type file (.typ) lies beside '" + Excerpt(path) +
                       "', and types are what is shown of a resource set");
    return types;
}

// A template and a profile apart.
ShownDevice OfTwo(const std::vector<std::string>& words, CCatalog& catalog) {
    const DeviceInterface found = ReadInputs(words, *catalog.types.Catalog()).device;
    if (!found.hasTemplate)
        throw WrongUse("none of the files holds a template, which tells what a device has");
    return {.file = GeneratedInterface(found.device, found.profile, found.addsNames, catalog, words.front()),
            .hasParameters = found.hasProfile};
}

}  // namespace

ShownDevice ReadShownDevice(const std::vector<std::string>& words, const CatalogPlace& place,
                            CCatalog& catalog) {
    std::vector<std::string> interfaces;
    std::vector<std::string> sets;
    for (const std::string& word : words) {
        if (!IsResourceFile(InputNamed(word).file))
            interfaces.push_back(word);
        else if (const std::string types = TypesOf(word);
                 std::find(sets.begin(), sets.end(), types) == sets.end())
            sets.push_back(types);
    }
    if (interfaces.empty())
        throw WrongUse("show needs a device: an XIF file, a template (.ini, .xml) or a job (.json)");
    ShownDevice device;
    if (interfaces.size() == 1) {
        ComparedInterface found = ReadComparedInterface({interfaces.front(), sets}, place);
        device = {.file = std::move(found.file),
                  .own = std::move(found.types),
                  .hasParameters = found.hasParameters,
                  .areTypesGenerated = !found.isFile && sets.empty()};
    } else {
        device = OfTwo(interfaces, catalog);
        device.own = NamedTypes(sets);
    }
    device.title = NameOf(interfaces.front());
    return device;
}

}  // namespace tovarek
