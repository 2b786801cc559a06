#include "cli/NewCommand.h"

#include <algorithm>
#include <utility>

#include "base/Nearest.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertCommand.h"
#include "cli/ConvertJob.h"
#include "cli/InterfaceInput.h"
#include "cli/NewFolder.h"
#include "cli/ProfileFit.h"
#include "convert/FromXif.h"
#include "starter/Starter.h"

namespace tovarek {
namespace {

const Starter& StarterNamed(const std::string& name) {
    std::vector<std::string> names;
    std::string choice;
    for (const Starter* starter : Starters()) {
        if (starter->name == name)
            return *starter;
        choice += (names.empty() ? "" : " or ") + ("--like " + std::string(starter->name));
        names.emplace_back(starter->name);
    }
    throw WrongUse((name.empty() ? "new needs a device to start from"
                                 : "there is no device '" + Excerpt(name) + "' to start from") +
                   "; give " + choice + (name.empty() ? " or --from FILE, an XIF file" : "") +
                   DidYouMean(name, names));
}

void RequireForm(const std::string& name) {
    if (name != "ini" && name != "xml")
        throw WrongUse("there is no form '" + Excerpt(name) + "' of inputs; give --form ini or --form xml");
}

// Without separators at its end.
std::string FolderNamed(std::string path) {
    while (path.size() > 1 && EndsWithSeparator(path))
        path.pop_back();
    return path;
}

// The folder's name as one that every file can have.
std::string OutputsOf(const std::string& folder) {
    std::string name(NameOf(folder));
    for (char& c : name)
        if (!IsDigit(c) && (AsciiUpper(c) < 'A' || AsciiUpper(c) > 'Z') && c != '-' && c != '.')
            c = '_';
    return name;
}

// The names of a folder's files.
struct NewNames {
    explicit NewNames(const std::string& form)
        : profile("profile." + form), deviceTemplate("template." + form) {}

    std::string profile;
    std::string deviceTemplate;
    std::string formatFile = "format.xml";
    std::string userTypes = "user-types.xml";
    std::string job = "job.json";
    std::string readMe = "README.md";
};

std::string JobOf(const Starter& starter, const NewNames& names, const std::string& outputs) {
    TypeOutputs types{.formatFile = names.formatFile,
                      .userTypes = names.userTypes,
                      .deviceTemplate = names.deviceTemplate,
                      .job = names.job};
    types.settings.typeFilesBaseName = outputs;
    types.settings.creator = "Example Maker";
    types.settings.creatorDescription = "Maker of a " + std::string(starter.title);
    return JobText({.job = names.job,
                    .profile = names.profile,
                    .deviceTemplate = names.deviceTemplate,
                    .types = &types,
                    .outputs = outputs});
}

void RequireSense(const NewOptions& options) {
    if (options.folder.empty())
        throw WrongUse("new needs the name of the folder to make");
    if (options.from.empty() && (options.isAll || !options.sets.empty()))
        throw WrongUse("--all and --set belong to --from FILE, an XIF file");
    if (options.isAll && !options.like.empty())
        throw WrongUse("--all takes the template of the XIF file, --like another one; give one of them");
    if (!options.from.empty() && !IsXif(options.from))
        throw WrongUse("--from '" + Excerpt(options.from) + "' does not begin like an XIF file");
}

// The profile of the XIF file, and what of it was replaced or is lost.
ProfileValues ProfileFrom(const NewOptions& options, const StandardCatalog& catalog,
                          ConversionResult& result) {
    DeviceInterface found = InterfaceOfXif(ReadXif(options.from), catalog);
    result.replaced = FitOrAsk(options.sets, found.profile);
    // What else the file has is not asked for.
    for (const Loss& loss : found.losses)
        if (loss.record.starts_with("line "))
            result.losses.push_back(loss);
    return found.profile;
}

ConversionResult MakeLike(const NewOptions& options, const std::string& path, CCatalog& catalog) {
    const Starter& starter =
        options.like.empty() && !options.from.empty() ? *Starters().front() : StarterNamed(options.like);
    const InputForm form = options.form == "ini" ? InputForm::ini : InputForm::xml;
    const NewNames names(options.form);
    const std::string outputs = OutputsOf(path);
    ConversionResult result;
    const ProfileValues profile =
        options.from.empty() ? StarterProfile() : ProfileFrom(options, *catalog.types.Catalog(), result);
    const std::pair<std::string, std::string> files[] = {
        {names.profile, ProfileText(profile, form, result.replaced, KeyComments::yes)},
        {names.deviceTemplate, TemplateText(TemplateOf(starter, names.userTypes), form,
                                            ResourceNames(catalog.types.Catalog()), KeyComments::yes)},
        {names.formatFile, FormatFileOf(starter)},
        {names.userTypes, UserTypesOf(starter)},
        {names.job, JobOf(starter, names, outputs)},
        {names.readMe, ReadMeText({std::string(starter.title), outputs, options.form, names.job})}};
    NewFolder folder(path);
    for (const auto& [name, bytes] : files) {
        WriteFile(folder.PathOf(name), bytes);
        result.written.push_back(folder.PathOf(name));
    }
    folder.Finish();
    return result;
}

ConversionResult MakeCopy(const NewOptions& options, const std::string& path, CCatalog& catalog) {
    const XifFile file = ReadXif(options.from);
    const std::vector<std::string> types = TypeFilesBeside(options.from, file);
    const NewNames names(options.form);
    const auto at = [&](const std::string& name) { return path + '/' + name; };
    ConvertOptions wanted{.inputs = {options.from},
                          .profile = at(names.profile),
                          .deviceTemplate = at(names.deviceTemplate),
                          .formatFile = types.empty() ? "" : at(names.formatFile),
                          .userTypes = types.empty() ? "" : at(names.userTypes),
                          .job = at(names.job),
                          .fit = "4.0",
                          .sets = options.sets,
                          .comments = KeyComments::yes,
                          .outputs = OutputsOf(path),
                          .place = options.place};
    wanted.inputs.insert(wanted.inputs.end(), types.begin(), types.end());
    Conversion conversion(wanted, catalog);
    NewFolder folder(path);
    conversion.Write();
    ConversionResult result = conversion.Result();
    // Resource files may need two jobs, which have other names.
    const auto job = std::find_if(result.written.begin(), result.written.end(),
                                  [](const std::string& each) { return ExtensionOf(each) == "json"; });
    const std::string readMe =
        ReadMeText({"the device of " + std::string(NameOf(options.from)), wanted.outputs, options.form,
                    std::string(NameOf(*job)), false, !types.empty()});
    result.written.push_back(at(names.readMe));
    WriteFile(result.written.back(), readMe);
    folder.Finish();
    return result;
}

int MakeFolder(const NewOptions& options, OutputFormat format, Streams streams) {
    RequireSense(options);
    RequireForm(options.form);
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const std::string path = FolderNamed(options.folder);
    return ReportConversion(
        options.isAll ? MakeCopy(options, path, *catalog) : MakeLike(options, path, *catalog), false, format,
        streams);
}

}  // namespace

int RunNew(const NewOptions& options, OutputFormat format, Streams streams) {
    return ReportingFaults(format, streams, [&] { return MakeFolder(options, format, streams); });
}

}  // namespace tovarek
