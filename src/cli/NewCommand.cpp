#include "cli/NewCommand.h"

#include <ostream>

#include "base/Nearest.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertJob.h"
#include "cli/Json.h"
#include "cli/NewFolder.h"
#include "convert/InputText.h"
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
                   "; give " + choice + DidYouMean(name, names));
}

InputForm InputFormNamed(const std::string& name) {
    if (name != "ini" && name != "xml")
        throw WrongUse("there is no form '" + Excerpt(name) + "' of inputs; give --form ini or --form xml");
    return name == "ini" ? InputForm::ini : InputForm::xml;
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

// What the files of the folder are called.
struct NewNames {
    std::string profile;
    std::string deviceTemplate;
    std::string formatFile = "format.xml";
    std::string userTypes = "user-types.xml";
    std::string job = "job.json";
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

int MakeFolder(const NewOptions& options, OutputFormat format, Streams streams) {
    if (options.folder.empty())
        throw WrongUse("new needs the name of the folder to make");
    const Starter& starter = StarterNamed(options.like);
    const InputForm form = InputFormNamed(options.form);
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const ResourceNames resources(catalog->types.Catalog());
    const std::string path = FolderNamed(options.folder);
    const std::string outputs = OutputsOf(path);
    const NewNames names{.profile = "profile." + options.form, .deviceTemplate = "template." + options.form};

    NewFolder folder(path);
    folder.Put(names.profile, ProfileText(StarterProfile(), form, {}, KeyComments::yes));
    folder.Put(names.deviceTemplate,
               TemplateText(TemplateOf(starter, names.userTypes), form, resources, KeyComments::yes));
    folder.Put(names.formatFile, FormatFileOf(starter));
    folder.Put(names.userTypes, UserTypesOf(starter));
    folder.Put(names.job, JobOf(starter, names, outputs));
    folder.Put("README.md", ReadMeOf(starter, outputs, options.form));
    const std::vector<std::string> written = folder.Finish();
    if (format == OutputFormat::json)
        streams.out << JsonText({{"written", WrittenJson(written)}}) << '\n';
    else
        WriteWritten(written, streams.out);
    return kDone;
}

}  // namespace

int RunNew(const NewOptions& options, OutputFormat format, Streams streams) {
    try {
        return MakeFolder(options, format, streams);
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

}  // namespace tovarek
