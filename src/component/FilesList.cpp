#include "component/FilesList.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "base/Numbers.h"
#include "base/Path.h"
#include "base/Text.h"
#include "contradictions/Contradictions.h"
#include "formats/language/LanguageFile.h"
#include "support/TextWriter.h"
#include "system/Files.h"

namespace tovarek {
namespace {

// Resource files are written for the scopes from here to that of the device's own types.
constexpr std::int32_t kFirstScope = 1;

constexpr std::string_view kHeader[] = {
    "' List of the generated files",
    "' Format is :",
    "'       <fileType>,<fileName>,<programId>,<scope>,<locale>",
    "'        With :",
    "'            <fileType>  2:lang, 3:type, 4:fpt, 5:format",
    "'            <fileName>  Name of the file without path",
    "'            <programId> Complete programID",
    "'            <scope>     Scope from 1 to 6",
    "'            <locale>    Lang locale id. Zero if the file is not a lang file.",
    "",
};

void AddTypesOfScope(const CTypes::Types& types, std::int32_t scope, const std::string& keyPrefix,
                     ScopeTypes& ofScope) {
    for (const auto& type : types)
        if (type->scope == scope)
            ofScope.Add(keyPrefix + std::to_string(type->indexInScope), type.get());
}

// Of no device.
constexpr std::string_view kNoProgramId = "0000000000000000";

constexpr const char* kWithoutTypes = "a device without types of its own needs mustGenerateTypes false";

// What helps when the inputs of the types are not set. They were not opened when the context has no record.
std::string InputsReason(const TypeStep& step, std::int32_t error, const ErrorContext& context) {
    if (error == eQVXIFerr_errorloadingxmlformatfile && step.formatFile.empty())
        return std::string("typeFilesXMLFormat is not set; ") + kWithoutTypes;
    if (error != eQVXIFerr_errorloadingusertypefile || !context.record.empty())
        return {};
    if (step.deviceTemplate.userTypeFile.empty())
        return std::string(
                   "the template does not name a user type file (userTypeFile in [general], "
                   "USERCPFILE); ") +
               kWithoutTypes;
    if (step.userTypeFilePath.empty())
        return "userTypeFilePath is empty, which stands for the root folder; \".\" is the current one";
    if (!FileExists(context.file))
        return "the template names this file (userTypeFile in [general], USERCPFILE), and userTypeFilePath "
               "its folder";
    return {};
}

// Adds a reason to what `operation` raises or tells the sink that it is given.
template <class Reason, class Operation>
void WithReason(FindingSink& findings, const Reason& reason, const Operation& operation) {
    class Sink : public FindingSink {
      public:
        Sink(FindingSink& outer, const Reason& reason) : outer_(outer), reason_(reason) {}
        void Take(Finding finding) override {
            const std::string more = finding.warning == Warning::none && !Raises()
                                         ? reason_(finding.error, finding.context)
                                         : std::string();
            if (!more.empty())
                finding.context.reason += (finding.context.reason.empty() ? "" : "; ") + more;
            outer_.Take(std::move(finding));
        }
        bool WantsWarnings() const override { return outer_.WantsWarnings(); }
        bool Raises() const override { return outer_.Raises(); }

      private:
        FindingSink& outer_;
        const Reason& reason_;
    };
    Sink sink(findings, reason);
    try {
        operation(sink);
    } catch (Error& error) {
        if (const std::string more = reason(error.Number(), error.Context()); !more.empty())
            error.AddReason(more);
        throw;
    }
}

// A fault of a type element comes up with every type that is made of it: it is told once.
class OnceSink : public FindingSink {
  public:
    explicit OnceSink(FindingSink& outer) : outer_(outer) {}
    void Take(Finding finding) override {
        const ErrorContext& at = finding.context;
        const bool isKnown =
            at.line > 0 &&
            !told_.insert({finding.error, finding.warning, at.file, at.line, at.field, at.value, at.reason})
                 .second;
        if (!isKnown)
            outer_.Take(std::move(finding));
    }
    bool WantsWarnings() const override { return outer_.WantsWarnings(); }
    bool Raises() const override { return outer_.Raises(); }

  private:
    FindingSink& outer_;
    std::set<std::tuple<std::int32_t, Warning, std::string, int, std::string, std::string, std::string>>
        told_;
};

// Tries out a run of the control, and keeps what it describes.
class Trial {
  public:
    Trial(QVxTypes& control, TrialOutput* output, std::vector<OwnTypes>* sets) : control_(control) {
        control_.SetTrial(output);
        control_.KeepSets(sets);
    }
    ~Trial() {
        control_.SetTrial(nullptr);
        control_.KeepSets(nullptr);
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

  private:
    QVxTypes& control_;
};

std::string ListPath(const TypeFilesSettings& settings) {
    return WithFinalBackslash(settings.typeFilesDirectory) + "files.lst";
}

// Names of the resource files by which programs do not find them.
void TellFileNames(const TypeFilesSettings& settings, FindingSink& findings) {
    if (settings.typeFilesBaseName.empty())
        findings.Take({.context = {.field = "typeFilesBaseName",
                                   .reason = "typeFilesBaseName is empty, so the resource files are called "
                                             "_6.typ, _6.fmt and so on: give them a name"},
                       .warning = Warning::missingValue});
    const std::string language = UpperCase(LanguageOfLocale(settings.localeID));
    if (!language.empty() && UpperCase(settings.langExtension) != language)
        findings.Take(
            {.context = {.field = "langExtension",
                         .value = Excerpt(settings.langExtension),
                         .reason = "\"" + Excerpt(settings.langExtension) +
                                   "\" is not the language of locale " + std::to_string(settings.localeID) +
                                   ", so programs do not find the language file: write " + language},
             .warning = Warning::oddExtension});
}

void TellRootFolders(const TypeStep& step, FindingSink& findings) {
    const struct {
        const char* property;
        bool isRoot;
    } rows[] = {
        {"typeFilesDirectory", step.settings.typeFilesDirectory.empty()},
        {"userTypeFilePath", step.userTypeFilePath.empty() && !step.deviceTemplate.userTypeFile.empty()}};
    for (const auto& row : rows)
        if (row.isRoot)
            findings.Take({.context = {.field = row.property,
                                       .reason = std::string(row.property) +
                                                 " is empty, which stands for the root folder; \".\" is the "
                                                 "current one"},
                           .warning = Warning::rootFolder});
}

// Files that an earlier run wrote for a scope that has no types any more.
void TellStaleFiles(const TypeFilesSettings& settings, const std::vector<CResFile>& files,
                    FindingSink& findings) {
    for (std::int32_t scope = kFirstScope; scope <= kOwnScope; ++scope) {
        const bool isWritten = std::any_of(files.begin(), files.end(),
                                           [&](const CResFile& file) { return file.scope == scope; });
        for (const ResourceFileKind kind : kResourceFileKinds) {
            const std::string path =
                WithFinalBackslash(settings.typeFilesDirectory) + ResourceFileName(settings, scope, kind);
            if (!isWritten && FileExists(path))
                findings.Take(
                    {.context = {.file = path,
                                 .reason = "this file of an earlier run stays in the folder, although "
                                           "no type of scope " +
                                           std::to_string(scope) + " is left: delete it"},
                     .warning = Warning::staleOutput});
        }
    }
}

void WriteTypeFiles(const CTypes& types, const TypeStep& step, const TypeFilesRun& run) {
    std::vector<CResFile> files;
    TypeFilesSettings settings = step.settings;
    std::string programID = step.deviceTemplate.programID;
    // That it is none was told; the types can be judged nevertheless.
    if (run.trial != nullptr && (programID.size() != kNoProgramId.size() || !FromHex(programID)))
        programID = kNoProgramId;
    for (std::int32_t scope = kFirstScope; scope <= kOwnScope; ++scope) {
        ScopeTypes ofScope;
        AddTypesOfScope(types.unvtTypes, scope, "NV_", ofScope);
        AddTypesOfScope(types.ucptTypes, scope, "CP_", ofScope);
        if (!ofScope.empty())
            GenerateTypeFiles(ofScope, scope, settings, programID, step.catalog, step.errorHandler, files,
                              run);
    }

    if (run.findings.WantsWarnings())
        TellStaleFiles(settings, files, run.findings);
    const std::string path = ListPath(settings);
    const std::unique_ptr<FileSink> list = OpenOutput(path, run.trial);
    WriteFilesListText(*list, files);
    list->Close();
    run.writtenFiles.push_back(path);
}

}  // namespace

std::string UserTypeFile(const CTemplate& deviceTemplate, const std::string& userTypeFilePath) {
    return WithFinalBackslash(userTypeFilePath) + deviceTemplate.userTypeFile;
}

std::vector<std::string> PossibleTypeFiles(const TypeFilesSettings& settings) {
    std::vector<std::string> paths;
    for (std::int32_t scope = kFirstScope; scope <= kOwnScope; ++scope)
        for (const ResourceFileKind kind : kResourceFileKinds)
            paths.push_back(WithFinalBackslash(settings.typeFilesDirectory) +
                            ResourceFileName(settings, scope, kind));
    paths.push_back(ListPath(settings));
    return paths;
}

void WriteFilesListText(FileSink& sink, const std::vector<CResFile>& files) {
    TextWriter out(sink);
    for (const std::string_view line : kHeader)
        out.Line(line);
    std::string line;
    for (const CResFile& file : files) {
        line.clear();
        AppendInteger(line, file.typeFile);
        line.append(",").append(file.name).append(",").append(file.programID).append(",");
        AppendInteger(line, file.scope);
        line += ',';
        AppendInteger(line, file.locale);
        out.Line(line);
    }
}

void GenerateTypeFilesAndList(CTypes& types, const TypeStep& step, const TypeFilesRun& run) {
    types.deviceTemplate = &step.deviceTemplate;
    types.errorHandler = &step.errorHandler;
    types.catalog = &step.catalog;
    OnceSink once(run.findings);
    MarkingSink loading(once);
    if (step.readings != nullptr) {
        TellRootFolders(step, once);
        TellFileNames(step.settings, once);
    }
    const auto inputsReason = [&](std::int32_t error, const ErrorContext& context) {
        return InputsReason(step, error, context);
    };
    WithReason(loading, inputsReason, [&](FindingSink& findings) {
        types.LoadTypes(step.formatFile, UserTypeFile(step.deviceTemplate, step.userTypeFilePath), findings,
                        step.readings);
    });
    const auto folderReason = [&](std::int32_t /*error*/, const ErrorContext& /*context*/) {
        return std::string(
            step.settings.typeFilesDirectory.empty()
                ? "typeFilesDirectory is empty, which stands for the root folder; \".\" is the "
                  "current one"
                : "");
    };
    std::vector<OwnTypes> sets;
    const Trial trial(step.catalog.types, run.trial, step.readings != nullptr ? &sets : nullptr);
    WithReason(once, folderReason, [&](FindingSink& findings) {
        TellingErrors(findings, [&] {
            WriteTypeFiles(types, step, {findings, run.writtenFiles, run.trial});
        });
    });
    if (step.readings != nullptr)
        TellTypeContradictions(types, sets, !loading.HasError(), once);
}

}  // namespace tovarek
