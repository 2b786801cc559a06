#include "cli/ConvertTypes.h"

#include <algorithm>

#include "base/Path.h"
#include "component/FilesList.h"
#include "convert/SetSettings.h"
#include "convert/TellTypeLosses.h"
#include "system/TrialOutput.h"

namespace tovarek {
namespace {

bool HasListed(const TypeInputs& own, bool isUnvt) {
    return std::any_of(own.types.begin(), own.types.end(),
                       [&](const UserType& type) { return type.scope < kOwnScope && type.isUnvt == isUnvt; });
}

// "types-ucpts.xml" of "types.xml".
std::string WithEnding(const std::string& path, const std::string& ending) {
    if (path.empty())
        return path;
    const std::string folder = FolderOf(path);
    const std::string stem(StemOf(path));
    return folder + stem + ending + path.substr(folder.size() + stem.size());
}

class CollectingSink : public FindingSink {
  public:
    void Take(Finding finding) override {
        if (finding.warning == Warning::none)
            findings.push_back(std::move(finding));
    }
    std::vector<Finding> findings;
};

// What a generation would write for one of the outputs.
class Regeneration {
  public:
    Regeneration(const TypeOutputs& outputs, const CTemplate& device, CCatalog& catalog)
        : outputs_(outputs), settings_(outputs.settings), device_(device), catalog_(catalog) {
        settings_.typeFilesDirectory = ".";
        device_.errorHandler = &errorHandler_;
        device_.catalog = &catalog;
        device_.userTypeFile = NameOf(outputs.userTypes);
        // What is wrong with the template itself is not about types.
        CollectingSink ofTemplate;
        device_.VerifyData(ofTemplate);
        Run();
    }

    ResourceSetInput Set(std::uint8_t scope) const {
        return ReadResourceSet(KeptResourceSet(kept_, settings_, scope),
                               [&](const std::string& name) { return kept_.Files().at(name); });
    }

    void TellErrors(std::vector<Loss>& losses) const {
        for (const Finding& finding : sink_.findings) {
            // Nobody asked for the file.
            if (finding.error == eQVXIFerr_errorloadingusertypefile && outputs_.userTypes.empty())
                continue;
            losses.push_back({finding.context.record, finding.context.field, finding.context.value,
                              "a generation refuses it: " + finding.context.reason});
        }
    }

  private:
    void Run() {
        CTypes types;
        types.useReferenceUnits = outputs_.takesUnits;
        const std::string folder = FolderOf(outputs_.userTypes);
        std::vector<std::string> tried;
        GenerateTypeFilesAndList(
            types,
            {device_, catalog_, errorHandler_, settings_, outputs_.formatFile, folder.empty() ? "." : folder},
            {sink_, tried, &kept_});
    }

    const CErrorHandler errorHandler_;
    const TypeOutputs& outputs_;
    TypeFilesSettings settings_;
    CTemplate device_;
    CCatalog& catalog_;
    KeptOutput kept_;
    CollectingSink sink_;
};

}  // namespace

bool HasListedTypes(const TypeInputs& own) {
    return HasListed(own, true) || HasListed(own, false);
}

bool HasTemplateTypes(const TypeInputs& own) {
    return std::any_of(own.types.begin(), own.types.end(),
                       [](const UserType& type) { return type.scope == kOwnScope; });
}

std::vector<TypeOutputs> OutputsOfTypes(const ConvertInputs& inputs, TypeOutputs names,
                                        const StandardCatalog& catalog) {
    names.settings = SettingsOf(inputs.sets.front());
    names.takesUnits = std::all_of(inputs.sets.begin(), inputs.sets.end(), [&](const ResourceSetInput& set) {
        return TakesUnitsFromReferences(set, catalog);
    });
    const TypeInputs& own = inputs.device.own;
    names.isUnvt = HasListed(own, true);
    if (!names.isUnvt || !HasListed(own, false))
        return {names};
    std::vector<TypeOutputs> both(2, names);
    both[1].isUnvt = false;
    for (TypeOutputs& outputs : both) {
        const std::string ending = outputs.isUnvt ? "-unvts" : "-ucpts";
        for (std::string* path : {&outputs.userTypes, &outputs.deviceTemplate, &outputs.job})
            *path = WithEnding(*path, ending);
        outputs.settings.typeFilesBaseName += ending;
    }
    return both;
}

void TellLossesOfTypes(const ConvertInputs& inputs, const std::vector<TypeOutputs>& outputs,
                       const CTemplate& device, CCatalog& catalog, StandardTexts texts,
                       std::vector<Loss>& losses) {
    std::vector<std::unique_ptr<Regeneration>> runs;
    for (const TypeOutputs& each : outputs) {
        runs.push_back(std::make_unique<Regeneration>(each, device, catalog));
        runs.back()->TellErrors(losses);
    }
    for (const ResourceSetInput& set : inputs.sets) {
        std::vector<ResourceSetInput> made;
        made.reserve(runs.size());
        for (const auto& run : runs)
            made.push_back(run->Set(set.types.header.scope));
        TellTypeLosses(set, made, catalog.types.Catalog(), texts,
                       outputs.front().job.empty() ? CompareHeaders::no : CompareHeaders::yes, losses);
    }
}

}  // namespace tovarek
