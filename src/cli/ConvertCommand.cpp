#include "cli/ConvertCommand.h"

#include <algorithm>
#include <charconv>
#include <ostream>

#include "base/Nearest.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Json.h"
#include "cli/Locations.h"
#include "cli/OutputGuard.h"
#include "convert/Fit.h"
#include "convert/FromInput.h"
#include "convert/FromXif.h"
#include "convert/InputText.h"

namespace tovarek {
namespace {

struct NamedInput {
    std::string file;
    std::string element;
};

// The element is named behind the last "#" of what is no file as a whole.
NamedInput InputNamed(const std::string& word) {
    const std::size_t mark = word.rfind('#');
    if (mark == std::string::npos || FileExists(word))
        return {word, {}};
    return {word.substr(0, mark), word.substr(mark + 1)};
}

InputForm FormOf(const std::string& option, const std::string& path) {
    const std::string extension = ExtensionOf(path);
    if (extension == "ini")
        return InputForm::ini;
    if (extension == "xml")
        return InputForm::xml;
    throw WrongUse(option + " '" + Excerpt(path) + "' tells no form; call the file .ini or .xml");
}

bool IsXif(const std::string& path) {
    constexpr std::string_view kBegin = "File:";
    return ExtensionOf(path) == "xif" || ReadFile(path, kBegin.size()) == kBegin;
}

DeviceInterface ReadInterface(const NamedInput& input, const StandardCatalog& catalog) {
    if (IsXif(input.file)) {
        XifFile file;
        if (const Outcome outcome = ReadXifFile(ReadFile(input.file), file); !outcome.Ok())
            CErrorHandler().RaiseQVxTypesEditError(
                outcome.code, {.record = "XIF file", .file = input.file, .reason = outcome.reason});
        return InterfaceOfXif(file, catalog);
    }
    const std::string extension = ExtensionOf(input.file);
    if (extension != "ini" && extension != "xml")
        throw WrongUse("the input '" + Excerpt(input.file) +
                       "' does not begin like an XIF file, and its name does not tell another form; inputs "
                       "are called .xif, .ini or .xml");
    ReadFile(input.file, 1);  // a missing INI file would read as an empty one
    DeviceInterface found =
        extension == "ini" ? InterfaceOfIni(input.file) : InterfaceOfXml(input.file, input.element);
    if (!found.hasProfile && !found.hasTemplate)
        throw WrongUse(
            "'" + Excerpt(input.file) + "' holds neither a profile nor a template" +
            (extension == "xml" ? "; name the element that does: " + Excerpt(input.file) + "#ELEMENT" : ""));
    return found;
}

// All inputs as one; each part may come from one of them only.
DeviceInterface ReadAll(const ConvertOptions& options, const StandardCatalog& catalog) {
    DeviceInterface whole;
    const auto take = [](bool& has, bool more, const char* part) {
        if (has && more)
            throw WrongUse(std::string("two inputs hold a ") + part + "; give one of them");
        has = has || more;
        return more;
    };
    for (const std::string& word : options.inputs) {
        DeviceInterface found = ReadInterface(InputNamed(word), catalog);
        if (take(whole.hasProfile, found.hasProfile, "profile"))
            whole.profile = found.profile;
        if (take(whole.hasTemplate, found.hasTemplate, "template"))
            whole.device = std::move(found.device);
        whole.addsNames = whole.addsNames || found.addsNames;
        whole.losses.insert(whole.losses.end(), found.losses.begin(), found.losses.end());
    }
    return whole;
}

void RequirePart(const std::string& output, bool has, const char* option, const char* other) {
    if (!output.empty() && !has)
        throw WrongUse(std::string("no input holds what ") + option + " asks for; these inputs give " +
                       other);
}

void Guard(const ConvertOptions& options) {
    JobFiles files;
    for (const std::string& input : options.inputs)
        files.inputs.push_back({"input", InputNamed(input).file});
    for (const auto& [role, path] :
         {std::pair("--profile", options.profile), std::pair("--template", options.deviceTemplate),
          std::pair("--job", options.job)})
        if (!path.empty())
            files.outputs.push_back({role, path});
    RefuseOverwriting(files, {});
}

void WriteWhole(const std::string& path, const std::string& bytes) {
    OutputFile file(path);
    file.Append(bytes);
    file.Close();
}

// The properties that generate with the outputs. Inputs of a job count from its own folder.
std::string JobText(const ConvertOptions& options, bool addsNames) {
    Json job = Json::object();
    const auto add = [&](const std::string& path, const char* ini, const char* xml, const char* node,
                         std::string_view element) {
        if (path.empty())
            return;
        const bool isXml = FormOf("output", path) == InputForm::xml;
        job[isXml ? xml : ini] = FromFolderOf(options.job, path);
        if (isXml)
            job[node] = element;
    };
    add(options.profile, "iniProfileFile", "xmlProfileFile", "xmlProfileNodeName", kProfileElement);
    add(options.deviceTemplate, "iniTemplateFile", "xmlTemplateFile", "xmlTemplateNodeName",
        kTemplateElement);
    job["mustGenerateTypes"] = false;
    if (addsNames)
        job["addNameInCpString"] = true;
    job["outputXIFfile"] = std::string(StemOf(options.job)) + ".xif";
    return JsonText(job) + "\n";
}

FieldValue FieldValueOf(const std::string& pair) {
    const std::size_t equals = std::min(pair.find('='), pair.size());
    const ProfileField* field = FieldNamed(pair.substr(0, equals));
    if (field == nullptr) {
        std::vector<std::string> names;
        names.reserve(kProfileFields.size());
        for (const ProfileField& each : kProfileFields)
            names.emplace_back(each.iniKey);
        throw WrongUse("--set '" + Excerpt(pair) +
                       "' names no field of a profile; give FIELD=VALUE, such as typeNeuron=0" +
                       DidYouMean(pair.substr(0, equals), names));
    }
    FieldValue given{field, 0};
    const char* const begin = pair.data() + std::min(equals + 1, pair.size());
    const char* const end = pair.data() + pair.size();
    if (const auto parsed = std::from_chars(begin, end, given.value);
        parsed.ec != std::errc() || parsed.ptr != end)
        throw WrongUse("--set '" + Excerpt(pair) + "' gives no number; give " + std::string(field->iniKey) +
                       "=NUMBER");
    return given;
}

// Makes the profile pass; a profile that nobody has told enough of is wrong use. Answers what was replaced.
std::vector<Replacement> Fit(const ConvertOptions& options, ProfileValues& profile) {
    if (options.fit.empty() && options.sets.empty())
        return {};
    if (options.fit != "4.0")
        throw WrongUse(options.fit.empty()
                           ? "--set belongs to --fit 4.0"
                           : "--fit '" + Excerpt(options.fit) + "' is not possible; give --fit 4.0");
    std::vector<FieldValue> given;
    for (const std::string& pair : options.sets)
        given.push_back(FieldValueOf(pair));
    Fitting fitting = FitProfile(profile, given);
    std::string missing;
    for (const Unfit& unfit : fitting.unfit)
        missing += (missing.empty() ? "" : "; ") + std::string(unfit.field->iniKey) + " is " +
                   std::to_string(unfit.value) + ", accepted: " + std::string(unfit.accepted);
    if (!missing.empty())
        throw WrongUse("XIF 4.0 has no such values, and nothing says which stand for them: " + missing +
                       ". Give --set FIELD=VALUE for each");
    return std::move(fitting.replaced);
}

std::string ReplacementText(const Replacement& replaced) {
    return "line " + std::to_string(replaced.field->line) + ", " + std::string(replaced.field->iniKey) +
           ": " + std::to_string(replaced.now) + " instead of " + std::to_string(replaced.old) + ": " +
           replaced.why;
}

Json LossJson(const Loss& loss) {
    return {{"record", loss.record},
            {"field", loss.field},
            {"value", loss.value},
            {"reason", loss.reason},
            {"counts", loss.counts}};
}

std::string LossText(const Loss& loss) {
    std::string text = "not held: " + loss.record;
    text += loss.field.empty() ? "" : ", " + loss.field;
    text += loss.value.empty() ? "" : " \"" + Printable(loss.value) + "\"";
    return text + ": " + loss.reason;
}

struct Result {
    const std::vector<std::string>& written;
    const std::vector<std::string>& replaced;
    const std::vector<Loss>& losses;
};

int Report(const Result& result, bool isStrict, OutputFormat format, Streams streams) {
    const std::vector<Loss>& losses = result.losses;
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const Loss& loss : losses)
            list.push_back(LossJson(loss));
        streams.out << JsonText({{"written", WrittenJson(result.written)},
                                 {"replaced", result.replaced},
                                 {"losses", std::move(list)}})
                    << '\n';
    } else {
        for (const std::string& replaced : result.replaced)
            streams.error << "tovarek: replaced: " << replaced << '\n';
        for (const Loss& loss : losses)
            streams.error << "tovarek: " << LossText(loss) << '\n';
        WriteWritten(result.written, streams.out);
    }
    const bool counts =
        std::any_of(losses.begin(), losses.end(), [](const Loss& loss) { return loss.counts; });
    return isStrict && counts ? kFailed : kDone;
}

int Convert(const ConvertOptions& options, OutputFormat format, Streams streams) {
    // Forms of outputs that are not asked for do not matter.
    InputForm profileForm = InputForm::ini;
    if (!options.profile.empty())
        profileForm = FormOf("--profile", options.profile);
    InputForm templateForm = InputForm::ini;
    if (!options.deviceTemplate.empty())
        templateForm = FormOf("--template", options.deviceTemplate);
    Guard(options);
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    DeviceInterface found = ReadAll(options, *catalog->types.Catalog());
    RequirePart(options.profile, found.hasProfile, "--profile", "--template");
    RequirePart(options.deviceTemplate, found.hasTemplate, "--template", "--profile");
    if (!options.fit.empty() && options.profile.empty())
        throw WrongUse("--fit needs --profile FILE, which it is about");
    std::vector<std::string> replaced;
    for (const Replacement& each : Fit(options, found.profile))
        replaced.push_back(ReplacementText(each));
    std::vector<Loss> losses = found.losses;
    std::vector<std::string> written;
    if (!options.profile.empty()) {
        WriteWhole(options.profile, ProfileText(found.profile, profileForm, replaced));
        written.push_back(options.profile);
        TellProfileLosses(found.profile, options.profile, profileForm, losses);
    }
    if (!options.deviceTemplate.empty()) {
        const ResourceNames names(catalog->types.Catalog());
        WriteWhole(options.deviceTemplate, TemplateText(found.device, templateForm, names));
        written.push_back(options.deviceTemplate);
        TellTemplateLosses(found.device, options.deviceTemplate, templateForm, losses);
    }
    if (!options.job.empty()) {
        WriteWhole(options.job, JobText(options, found.addsNames && templateForm == InputForm::xml));
        written.push_back(options.job);
    }
    return Report({written, replaced, losses}, options.isStrict, format, streams);
}

}  // namespace

int RunConvert(const ConvertOptions& options, OutputFormat format, Streams streams) {
    if (options.inputs.empty())
        return ReportWrongUse("convert needs an input: an XIF file, a profile or a template", format,
                              streams);
    if (options.profile.empty() && options.deviceTemplate.empty())
        return ReportWrongUse(
            "convert needs to know what to write: --profile FILE, --template FILE, each .ini or .xml", format,
            streams);
    try {
        return Convert(options, format, streams);
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

}  // namespace tovarek
