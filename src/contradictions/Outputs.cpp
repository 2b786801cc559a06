// Outputs of a job against each other, and against what Windows makes of their names.
#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/Path.h"
#include "base/Text.h"
#include "contradictions/Contradictions.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// With any extension, and in any letter case.
constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::string_view kNumberedDevices[] = {"COM", "LPT"};

bool IsDevice(std::string_view name) {
    const std::string stem = UpperCase(TrimBlanks(name.substr(0, name.find('.'))));
    if (std::find(std::begin(kDevices), std::end(kDevices), stem) != std::end(kDevices))
        return true;
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices), [&](std::string_view row) {
        return stem.size() == row.size() + 1 && stem.starts_with(row) && stem.back() >= '1' &&
               stem.back() <= '9';
    });
}

// The first part of a path that Windows takes for a device.
std::string_view DeviceIn(std::string_view path) {
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(kPathSeparators), path.size());
        if (IsDevice(path.substr(0, end)))
            return path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return {};
}

class OutputRules {
  public:
    explicit OutputRules(FindingSink& findings) : findings_(findings) {}

    void Tell(const OutputPath& output) {
        TellDevice(output.folderProperty, DeviceIn(FolderOf(output.path)));
        TellDevice(output.nameProperty, DeviceIn(NameOf(output.path)));
        if (output.isXif && findings_.WantsWeak() && NameOf(output.path).find(' ') != std::string_view::npos)
            findings_.Take({.context = {.field = output.nameProperty,
                                        .reason = "the first line of the interface file holds its name, and "
                                                  "some programs read it up to the blank: write it without"},
                            .warning = Warning::blankInFileName});
        const std::string path = SystemPath(output.path);
        const auto [first, isNew] = firsts_.try_emplace(AsciiLowerCase(path), &output);
        const std::string other = SystemPath(first->second->path);
        // The same name is refused.
        if (isNew || other == path)
            return;
        // Of the resource files the ending of the language file alone is free.
        const bool isOfOne = first->second->nameProperty == output.nameProperty;
        Take(isOfOne ? "langExtension" : output.nameProperty,
             other + " and " + path +
                 " differ in letter case only, so on Windows one takes the place of the other: give them "
                 "different names");
    }

  private:
    void TellDevice(const std::string& property, std::string_view device) {
        if (!device.empty())
            Take(property, "\"" + std::string(device) +
                               "\" is the name of a device on Windows, with any extension, so nothing can be "
                               "written there: give another name");
    }

    // Many files have their names from one property.
    void Take(const std::string& property, std::string reason) {
        if (told_.insert(property).second)
            findings_.Take({.context = {.field = property, .reason = property + ": " + std::move(reason)},
                            .warning = Warning::outputCollision});
    }

    FindingSink& findings_;
    std::unordered_map<std::string, const OutputPath*> firsts_;  // by path in lower case
    std::set<std::string> told_;
};

}  // namespace

void TellOutputContradictions(std::span<const OutputPath> outputs, FindingSink& findings) {
    OutputRules rules(findings);
    for (const OutputPath& output : outputs)
        rules.Tell(output);
}

}  // namespace tovarek
