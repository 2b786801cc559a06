#include "cli/ConvertInputs.h"

#include <algorithm>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "convert/FromInput.h"
#include "convert/FromXif.h"

namespace tovarek {
namespace {

DeviceInterface InterfaceOfForm(const NamedInput& input) {
    const std::string extension = ExtensionOf(input.file);
    if (extension != "ini" && extension != "xml")
        throw WrongUse("the input '" + Excerpt(input.file) +
                       "' does not begin like an XIF file or a resource file, and its name does not tell "
                       "another form; inputs are called .xif, .typ, .ini or .xml");
    ReadFile(input.file, 1);  // a missing INI file would read as an empty one
    DeviceInterface found =
        extension == "ini" ? InterfaceOfIni(input.file) : InterfaceOfXml(input.file, input.element);
    if (!found.hasProfile && !found.hasTemplate)
        throw WrongUse(
            "'" + Excerpt(input.file) + "' holds neither a profile nor a template" +
            (extension == "xml" ? "; name the element that does: " + Excerpt(input.file) + "#ELEMENT" : ""));
    return found;
}

class InputReader {
  public:
    explicit InputReader(const StandardCatalog& catalog) : catalog_(catalog) {}

    void Add(const std::string& word) {
        const NamedInput input = InputNamed(word);
        if (IsResourceFile(input.file))
            return AddSet(input.file);
        const bool isXif = IsXif(input.file);
        DeviceInterface found =
            isXif ? InterfaceOfXif(ReadXif(input.file), catalog_) : InterfaceOfForm(input);
        hasForm_ = hasForm_ || !isXif;
        DeviceInterface& whole = read_.device;
        if (Take(whole.hasProfile, found.hasProfile, "profile"))
            whole.profile = found.profile;
        if (Take(whole.hasTemplate, found.hasTemplate, "template"))
            whole.device = std::move(found.device);
        whole.addsNames = whole.addsNames || found.addsNames;
        whole.losses.insert(whole.losses.end(), found.losses.begin(), found.losses.end());
    }

    ConvertInputs Take() {
        if (hasForm_ && !read_.sets.empty())
            throw WrongUse(
                "resource files are converted alone or with an XIF file; profiles and templates in other "
                "forms tell their types themselves");
        return std::move(read_);
    }

  private:
    static bool Take(bool& has, bool more, const char* part) {
        if (has && more)
            throw WrongUse(std::string("two inputs hold a ") + part + "; give one of them");
        has = has || more;
        return more;
    }

    // Several files of a set are one.
    void AddSet(const std::string& path) {
        const auto isSame = [&](const ResourceSetInput& set) {
            return set.files.types == FindResourceSet(path).types;
        };
        if (std::any_of(read_.sets.begin(), read_.sets.end(), isSame))
            return;
        ResourceSetInput set = ReadResourceSet(path);
        const std::uint8_t scope = set.types.header.scope;
        if (scope == 0)
            throw WrongUse(
                "'" + Excerpt(path) +
                "' belongs to the standard set, which no inputs define; give files of the scopes 1 "
                "to 6");
        for (const ResourceSetInput& other : read_.sets)
            if (other.types.header.scope == scope)
                throw WrongUse("two resource sets are of scope " + std::to_string(scope) +
                               "; give one of them");
        read_.sets.push_back(std::move(set));
    }

    const StandardCatalog& catalog_;
    ConvertInputs read_;
    bool hasForm_ = false;  // a profile or template that is no XIF file
};

}  // namespace

NamedInput InputNamed(const std::string& word) {
    const std::size_t mark = word.rfind('#');
    if (mark == std::string::npos || FileExists(word))
        return {word, {}};
    return {word.substr(0, mark), word.substr(mark + 1)};
}

bool IsXif(const std::string& path) {
    constexpr std::string_view kBegin = "File:";
    return ExtensionOf(path) == "xif" || ReadFile(path, kBegin.size()) == kBegin;
}

XifFile ReadXif(const std::string& path) {
    XifFile file;
    if (const Outcome outcome = ReadXifFile(ReadFile(path), file); !outcome.Ok())
        CErrorHandler().RaiseQVxTypesEditError(
            outcome.code, {.record = "XIF file", .file = path, .reason = outcome.reason});
    return file;
}

ConvertInputs ReadInputs(const std::vector<std::string>& words, const StandardCatalog& catalog) {
    InputReader reader(catalog);
    for (const std::string& word : words)
        reader.Add(word);
    return reader.Take();
}

}  // namespace tovarek
