#include "cli/ConvertCommand.h"

#include <algorithm>
#include <charconv>
#include <ostream>

#include "base/Nearest.h"
#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/ConvertInputs.h"
#include "cli/ConvertJob.h"
#include "cli/ConvertTypes.h"
#include "cli/Json.h"
#include "cli/OutputGuard.h"
#include "convert/AttachTypes.h"
#include "convert/Fit.h"
#include "convert/FromSet.h"
#include "convert/InputText.h"
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

void WriteWhole(const std::string& path, const std::string& bytes) {
    OutputFile file(path);
    file.Append(bytes);
    file.Close();
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

// One conversion: what was read, and what has become of it.
class Conversion {
  public:
    Conversion(const ConvertOptions& options, CCatalog& catalog)
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

    // Writes what is asked for; nothing where that cannot be done.
    void Write() {
        DeviceInterface& found = inputs_.device;
        RequirePart(options_.profile, found.hasProfile, "--profile", "--template");
        RequirePart(options_.deviceTemplate, found.hasTemplate, "--template", "--profile");
        if (!options_.fit.empty() && options_.profile.empty())
            throw WrongUse("--fit needs --profile FILE, which it is about");
        for (const Replacement& each : Fit(options_, found.profile))
            replaced_.push_back(ReplacementText(each));
        losses_ = found.losses;
        Guard();
        if (!options_.profile.empty()) {
            Put(options_.profile, ProfileText(found.profile, profileForm_, replaced_));
            TellProfileLosses(found.profile, options_.profile, profileForm_, losses_);
        }
        if (!options_.formatFile.empty())
            Put(options_.formatFile, FormatFileText(found.own.definitions));
        for (const TypeOutputs& outputs : outputs_)
            WriteOutputs(outputs);
        if (!inputs_.sets.empty())
            TellLossesOfTypes(inputs_, outputs_, found.device, catalog_, texts_, losses_);
    }

    int Report(OutputFormat format, Streams streams) const {
        return tovarek::Report({written_, replaced_, losses_}, options_.isStrict, format, streams);
    }

  private:
    void AddTypes() {
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

    void Guard() const {
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
    void WriteOutputs(const TypeOutputs& outputs) {
        DeviceInterface& found = inputs_.device;
        if (!outputs.userTypes.empty())
            Put(outputs.userTypes, UserTypesText(found.own, outputs.isUnvt));
        if (!outputs.deviceTemplate.empty()) {
            const ResourceNames names(catalog_.types.Catalog());
            if (!outputs.userTypes.empty())
                found.device.userTypeFile = NameOf(outputs.userTypes);
            Put(outputs.deviceTemplate, TemplateText(found.device, templateForm_, names));
            // Another one differs by the name of its user type file.
            if (&outputs == &outputs_.front())
                TellTemplateLosses(found.device, outputs.deviceTemplate, templateForm_, losses_);
        }
        if (!outputs.job.empty())
            Put(outputs.job, JobText({outputs.job, options_.profile, outputs.deviceTemplate,
                                      found.addsNames && templateForm_ == InputForm::xml,
                                      inputs_.sets.empty() ? nullptr : &outputs}));
    }

    void Put(const std::string& path, const std::string& bytes) {
        WriteWhole(path, bytes);
        written_.push_back(path);
    }

    const ConvertOptions& options_;
    CCatalog& catalog_;
    StandardTexts texts_;
    ConvertInputs inputs_;
    InputForm profileForm_ = InputForm::ini;
    InputForm templateForm_ = InputForm::ini;
    std::vector<TypeOutputs> outputs_;
    std::vector<std::string> replaced_;
    std::vector<Loss> losses_;
    std::vector<std::string> written_;
};

}  // namespace

int RunConvert(const ConvertOptions& options, OutputFormat format, Streams streams) {
    if (options.inputs.empty())
        return ReportWrongUse("convert needs an input: an XIF file, a profile or a template", format,
                              streams);
    if ((options.profile + options.deviceTemplate + options.formatFile).empty())
        return ReportWrongUse(
            "convert needs to know what to write: --profile FILE, --template FILE, each .ini "
            "or .xml; of resource files --format-file FILE",
            format, streams);
    try {
        const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
        Conversion conversion(options, *catalog);
        conversion.Write();
        return conversion.Report(format, streams);
    } catch (const WrongUse& fault) {
        return ReportWrongUse(fault.what(), format, streams);
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

}  // namespace tovarek
