#include "cli/Conversion.h"

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertJob.h"
#include "cli/OutputGuard.h"
#include "cli/ProfileFit.h"
#include "convert/AttachTypes.h"
#include "convert/FromSet.h"
#include "convert/TypeText.h"

namespace tovarek {
namespace {

InputForm FormOf(const std::string& option, const std::string& path) {
    const std::string extension = ExtensionOf(path);
    if (extension == "ini")
        return InputForm::ini;
    if (extension == "xml")
        return InputForm::xml;
    throw WrongUse(option + " '" + Excerpt(path) + "' tells no form; call the file .ini or .xml");
}

void RequirePart(const std::string& output, bool has, const char* option, const char* other) {
    if (!output.empty() && !has)
        throw WrongUse(std::string("no input holds what ") + option + " asks for; these inputs give " +
                       other);
}

void RequireXml(const std::string& option, const std::string& path) {
    if (!path.empty() && ExtensionOf(path) != "xml")
        throw WrongUse(option + " '" + Excerpt(path) + "' is written in one form only; call the file .xml");
}

// The files of types refer to each other by numbers, so one without the others is of no use.
void RequireTypeOutputs(const ConvertOptions& options, const TypeInputs& own, bool hasSets) {
    const auto refuse = [](const std::string& reason) { throw WrongUse(reason); };
    if (!hasSets && !(options.formatFile + options.userTypes).empty())
        refuse(
            "no input holds what --format-file and --user-types ask for; give a resource file, such as a "
            ".typ");
    if (!hasSets)
        return;
    if (options.formatFile.empty())
        refuse("resource files are converted with --format-file FILE, which holds their types");
    if (HasListedTypes(own) && options.userTypes.empty())
        refuse("types of the scopes 1 to 5 are asked for by a user type file; give --user-types FILE");
    if (HasTemplateTypes(own) && options.deviceTemplate.empty())
        refuse("types of scope 6 are asked for by a template; give --template FILE");
    if (!options.job.empty() && (options.userTypes.empty() || options.deviceTemplate.empty()))
        refuse(
            "a job that generates resource files needs --template FILE and --user-types FILE, even where "
            "the one holds no types");
}

void RequireFit(const ConvertOptions& options) {
    if (options.fit.empty() && !options.sets.empty())
        throw WrongUse("--set belongs to --fit 4.0");
    if (!options.fit.empty() && options.profile.empty())
        throw WrongUse("--fit needs --profile FILE, which it is about");
    if (!options.fit.empty() && options.fit != "4.0")
        throw WrongUse("--fit '" + Excerpt(options.fit) + "' is not possible; give --fit 4.0");
}

// Of two generations each has outputs of its own.
std::string NameOfOutputs(const ConvertOptions& options, const TypeOutputs& outputs) {
    if (options.outputs.empty())
        return {};
    return options.outputs + std::string(StemOf(outputs.job).substr(StemOf(options.job).size()));
}

}  // namespace

Conversion::Conversion(const ConvertOptions& options, CCatalog& catalog)
    : options_(options),
      catalog_(catalog),
      texts_(options.place.IsShipped() ? StandardTexts::published : StandardTexts::all),
      inputs_(ReadInputs(options.inputs, *catalog.types.Catalog())) {
    // Forms of outputs that are not asked for do not matter.
    if (!options.profile.empty())
        profileForm_ = FormOf("--profile", options.profile);
    if (!options.deviceTemplate.empty())
        templateForm_ = FormOf("--template", options.deviceTemplate);
    RequireXml("--format-file", options.formatFile);
    RequireXml("--user-types", options.userTypes);
    AddTypes();
}

void Conversion::Write() {
    DeviceInterface& found = inputs_.device;
    RequirePart(options_.profile, found.hasProfile, "--profile", "--template");
    RequirePart(options_.deviceTemplate, found.hasTemplate, "--template", "--profile");
    RequireFit(options_);
    if (!options_.fit.empty())
        result_.replaced = FitOrAsk(options_.sets, found.profile);
    result_.losses = found.losses;
    Guard();
    if (!options_.profile.empty()) {
        Put(options_.profile, ProfileText(found.profile, profileForm_, result_.replaced, options_.comments));
        TellProfileLosses(found.profile, options_.profile, profileForm_, result_.losses);
    }
    if (!options_.formatFile.empty())
        Put(options_.formatFile, FormatFileText(found.own.definitions));
    for (const TypeOutputs& outputs : outputs_)
        WriteOutputs(outputs);
    if (!inputs_.sets.empty())
        TellLossesOfTypes(inputs_, outputs_, found.device, catalog_, texts_, result_.losses);
}

void Conversion::AddTypes() {
    DeviceInterface& found = inputs_.device;
    const StandardCatalog& catalog = *catalog_.types.Catalog();
    const TypeOutputs names{.formatFile = options_.formatFile,
                            .userTypes = options_.userTypes,
                            .deviceTemplate = options_.deviceTemplate,
                            .job = options_.job};
    outputs_ = {names};
    if (!inputs_.sets.empty())
        found.own = TypesOfSets(inputs_.sets, &catalog, texts_);
    RequireTypeOutputs(options_, found.own, !inputs_.sets.empty());
    if (inputs_.sets.empty())
        return;
    if (found.hasTemplate)
        AttachTypes(found);
    else
        AddTemplateOfTypes(found);
    outputs_ = OutputsOfTypes(inputs_, names, catalog);
}

void Conversion::Guard() const {
    JobFiles files;
    for (const std::string& input : options_.inputs)
        files.inputs.push_back({"input", InputNamed(input).file});
    for (const ResourceSetInput& set : inputs_.sets)
        for (const std::string* path :
             {&set.files.types, &set.files.language, &set.files.formats, &set.files.profiles})
            files.inputs.push_back({"input", *path});
    const auto add = [&](const char* role, const std::string& path) {
        if (!path.empty())
            files.outputs.push_back({role, path});
    };
    add("--profile", options_.profile);
    add("--format-file", options_.formatFile);
    for (const TypeOutputs& outputs : outputs_) {
        add("--template", outputs.deviceTemplate);
        add("--user-types", outputs.userTypes);
        add("--job", outputs.job);
    }
    RefuseOverwriting(files, {});
}

// Template, user type file and job of one generation.
void Conversion::WriteOutputs(const TypeOutputs& outputs) {
    DeviceInterface& found = inputs_.device;
    if (!outputs.userTypes.empty())
        Put(outputs.userTypes, UserTypesText(found.own, outputs.isUnvt));
    if (!outputs.deviceTemplate.empty()) {
        const ResourceNames names(catalog_.types.Catalog());
        if (!outputs.userTypes.empty())
            found.device.userTypeFile = NameOf(outputs.userTypes);
        Put(outputs.deviceTemplate, TemplateText(found.device, templateForm_, names, options_.comments));
        // Another one differs by the name of its user type file.
        if (&outputs == &outputs_.front())
            TellTemplateLosses(found.device, outputs.deviceTemplate, templateForm_, result_.losses);
    }
    if (!outputs.job.empty())
        Put(outputs.job,
            JobText({outputs.job, options_.profile, outputs.deviceTemplate,
                     found.addsNames && templateForm_ == InputForm::xml,
                     inputs_.sets.empty() ? nullptr : &outputs, NameOfOutputs(options_, outputs)}));
}

void Conversion::Put(const std::string& path, const std::string& bytes) {
    WriteFile(path, bytes);
    result_.written.push_back(path);
}

}  // namespace tovarek
