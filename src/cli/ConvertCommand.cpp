#include "cli/ConvertCommand.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include "base/Path.h"
#include "base/Text.h"
#include "cli/Assignments.h"
#include "cli/Json.h"
#include "cli/Locations.h"
#include "cli/OutputGuard.h"
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
        throw WrongUse(
            "the input '" + Excerpt(input.file) +
            "' is no XIF file, and its name tells no other form; inputs are called .xif, .ini or .xml");
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

int Report(const std::vector<std::string>& written, const std::vector<Loss>& losses, bool isStrict,
           OutputFormat format, Streams streams) {
    if (format == OutputFormat::json) {
        Json list = Json::array();
        for (const Loss& loss : losses)
            list.push_back(LossJson(loss));
        streams.out << JsonText({{"written", WrittenJson(written)}, {"losses", std::move(list)}}) << '\n';
    } else {
        for (const Loss& loss : losses)
            streams.error << "tovarek: " << LossText(loss) << '\n';
        WriteWritten(written, streams.out);
    }
    const bool counts =
        std::any_of(losses.begin(), losses.end(), [](const Loss& loss) { return loss.counts; });
    return isStrict && counts ? kFailed : kDone;
}

int Convert(const ConvertOptions& options, OutputFormat format, Streams streams) {
    const std::optional<InputForm> profileForm =
        options.profile.empty() ? std::nullopt : std::optional(FormOf("--profile", options.profile));
    const std::optional<InputForm> templateForm =
        options.deviceTemplate.empty() ? std::nullopt
                                       : std::optional(FormOf("--template", options.deviceTemplate));
    Guard(options);
    const std::unique_ptr<CCatalog> catalog = OpenCatalog(options.place);
    const DeviceInterface found = ReadAll(options, *catalog->types.Catalog());
    RequirePart(options.profile, found.hasProfile, "--profile", "--template");
    RequirePart(options.deviceTemplate, found.hasTemplate, "--template", "--profile");
    std::vector<Loss> losses = found.losses;
    std::vector<std::string> written;
    if (profileForm) {
        WriteWhole(options.profile, ProfileText(found.profile, *profileForm));
        written.push_back(options.profile);
        TellProfileLosses(found.profile, options.profile, *profileForm, losses);
    }
    if (templateForm) {
        const ResourceNames names(catalog->types.Catalog());
        WriteWhole(options.deviceTemplate, TemplateText(found.device, *templateForm, names));
        written.push_back(options.deviceTemplate);
        TellTemplateLosses(found.device, options.deviceTemplate, *templateForm, losses);
    }
    if (!options.job.empty()) {
        WriteWhole(options.job, JobText(options, found.addsNames && templateForm == InputForm::xml));
        written.push_back(options.job);
    }
    return Report(written, losses, options.isStrict, format, streams);
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
