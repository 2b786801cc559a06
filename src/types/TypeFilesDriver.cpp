#include "types/TypeFilesDriver.h"

#include <string_view>
#include <utility>

#include "base/Path.h"
#include "base/Text.h"
#include "formats/format/FormatFile.h"
#include "formats/records/ResourceKinds.h"
#include "support/CTools.h"
#include "support/TextWriter.h"
#include "system/Files.h"
#include "types/ControlResult.h"
#include "types/FormatLines.h"

namespace tovarek {
namespace {

// An argument of the control's creation calls that never varies.
constexpr std::int32_t kReserved = -1;

// The control numbers the types of a kind up to this one; what lies beyond is not created.
constexpr std::int32_t kLastIndex = 65535;

// Which parts of a program ID select a device for the formats of a scope.
constexpr std::string_view kSelectors[] = {
    "",
    "set selector DEVICE_CLASS;",
    "set selector DEVICE_CLASS and SUB_CLASS;",
    "set selector MANUFACTURER;",
    "set selector MANUFACTURER and DEVICE_CLASS;",
    "set selector MANUFACTURER and DEVICE_CLASS and SUB_CLASS;",
    "set selector MANUFACTURER and DEVICE_CLASS and SUB_CLASS and MODEL;",
};

// How the two kinds of types are told apart here.
struct TypeKindRule {
    std::string_view keyPrefix;
    std::string_view title;
    eErrors missingIndex;
};
constexpr TypeKindRule kNetworkVariables = {"NV_", "network-variable type",
                                            eQVXIFerr_QVX_editResult_missingunvttypeindex};
constexpr TypeKindRule kProperties = {"CP_", "configuration-property type",
                                      eQVXIFerr_QVX_editResult_missingucpttypeindex};

// "set program_id 90:00:01:0A:0B:04:01:00;"
std::string ProgramIdLine(std::string_view programID) {
    return "set program_id " + HexPairs(programID) + ';';
}

class TypeFilesDriver {
  public:
    TypeFilesDriver(const ScopeTypes& types, std::int32_t scope, TypeFilesSettings& settings,
                    const std::string& programID, CCatalog& catalog, const CErrorHandler& errorHandler,
                    std::vector<CResFile>& result, const TypeFilesRun& run)
        : types_(types),
          scope_(scope),
          settings_(settings),
          programID_(programID),
          catalog_(catalog),
          control_(catalog.types),
          errorHandler_(errorHandler),
          result_(result),
          run_(run),
          findings_(&run.findings) {}

    void Generate() {
        if (run_.trial == nullptr)
            CTools().CreateDirectory(settings_.typeFilesDirectory);
        folder_ = WithFinalBackslash(settings_.typeFilesDirectory);
        control_.GetResourceSetHandle(handle_);
        // The creation calls carry no scope.
        Check(control_.SetResourceScope(scope_), "scope");
        for (const ResourceFileKind kind : kResourceFileKinds)
            WriteFile(kind);
    }

  private:
    // While it lives, `slot` is another sink.
    class UseOfSink {
      public:
        UseOfSink(FindingSink*& slot, FindingSink& sink) : slot_(slot), before_(std::exchange(slot, &sink)) {}
        ~UseOfSink() { slot_ = before_; }
        UseOfSink(const UseOfSink&) = delete;
        UseOfSink& operator=(const UseOfSink&) = delete;

      private:
        FindingSink*& slot_;
        FindingSink* before_;
    };

    // Records the file of this kind and writes it.
    void WriteFile(ResourceFileKind kind) {
        const std::string name = ResourceFileName(settings_, scope_, kind);
        result_.push_back({name, kind, scope_, programID_, kind == fileLanguage ? settings_.localeID : 0});
        const std::string path = folder_ + name;
        path_ = path;
        // Of a type or a property the input tells, not the output.
        const auto place = [&](const Error& error) -> ErrorContext {
            if (error.Context().field == "localeID")
                return {.record = "property localeID", .value = std::to_string(settings_.localeID)};
            return {.record = error.Context().record.empty() ? name : "", .file = path};
        };
        TellingErrors(run_.findings, [&] {
            WithPlace(run_.findings, place, [&](FindingSink& findings) {
                const UseOfSink use(findings_, findings);
                WriteContent(kind);
            });
            run_.writtenFiles.push_back(path);
        });
    }

    void WriteContent(ResourceFileKind kind) {
        switch (kind) {
            case fileLanguage:
                return LanguageFile();
            case fileProfiles:
                return ProfileFile();
            case fileTypes:
                return TypeFile();
            case fileFormats:
                return FormatFile();
        }
    }

    // Has the control begin a file.
    template <class Operation>
    void Create(const Operation& create) {
        constexpr int kMostTries = 8;
        for (int i = 0; i < kMostTries; ++i) {
            const std::int32_t code = create();
            if (code == resultOk)
                return;
            Telling([&] { Check(code, code == resultErrorSettingLocale ? "localeID" : ""); });
            Replace(code);
        }
    }

    // Puts a setting that the control takes in the place of the one that it answered with `code`.
    void Replace(std::int32_t code) {
        const TypeFilesSettings usual;
        switch (code) {
            case resultErrorSettingVersion:
                settings_.majorVersion = usual.majorVersion;
                settings_.minorVersion = usual.minorVersion;
                return;
            case resultErrorSettingLocale:
                settings_.localeID = usual.localeID;
                return;
            case resultErrorSettingInformation:
            case resultErrorSettingHeader:
                settings_.creator = usual.creator;
                settings_.webPage = settings_.email = settings_.phone = "";
                return;
            default:
                // A folder has the name of the file.
                path_ += '~';
        }
    }

    void LanguageFile() {
        const TypeFilesSettings& s = settings_;
        Create([&] {
            return control_.CreateLanguageFile(path_, kReserved, handle_, programID_, s.creator, s.phone,
                                               s.email, s.webPage, s.localeID, s.majorVersion, s.minorVersion,
                                               RowOf(ResourceKind::language).descriptionText, kCreatorText);
        });
        std::int32_t strings = 1;
        // The other files name these four by their numbers, so their order is fixed.
        for (const std::string* text :
             {&s.langFileDescription, &s.creatorDescription, &s.fptFileDescription, &s.typeFileDescription}) {
            std::int32_t number = 0;
            std::int32_t stringScope = 0;
            Telling([&] { Check(control_.AddLanguageString(*text, 0, number, stringScope), "description"); });
            ++strings;
        }
        for (CType* type : types_)
            WriteType(*type, [&] { type->AddToLangFile(catalog_, strings, errorHandler_); });
        Save();
    }

    void ProfileFile() {
        const TypeFilesSettings& s = settings_;
        Create([&] {
            return control_.CreateFunctionalProfileFile(
                path_, kReserved, handle_, programID_, s.creator, s.phone, s.email, s.webPage, s.majorVersion,
                s.minorVersion, RowOf(ResourceKind::profile).descriptionText, kCreatorText);
        });
        Save();
    }

    void TypeFile() {
        const TypeFilesSettings& s = settings_;
        Create([&] {
            return control_.CreateTypeFile(path_, kReserved, handle_, programID_, s.creator, s.phone, s.email,
                                           s.webPage, s.majorVersion, s.minorVersion,
                                           RowOf(ResourceKind::type).descriptionText, kCreatorText);
        });
        CreatedEnums enums;
        for (CType* type : types_)
            WriteType(*type, [&] { type->CreateEnums(catalog_, errorHandler_, enums); });
        CreateTypes(kNetworkVariables);
        CreateTypes(kProperties);
        Save();
    }

    // By index from 1. One missing index with the next one present is a fault; two in a row end the types.
    void CreateTypes(const TypeKindRule& kind) {
        CType* const* next = Find(kind, 1);
        for (std::int32_t index = 1; index <= kLastIndex; ++index) {
            CType* const* const type = next;
            next = Find(kind, index + 1);
            bool isWritten = false;
            if (type != nullptr)
                isWritten = WriteType(**type, [&] { (*type)->CreateType(catalog_, errorHandler_, true); });
            else if (next == nullptr)
                return TellUnwritten(kind, index);
            else
                Telling([&] { OfType(**next, [&] { RefuseGap(kind, **next, index); }); });
            if (!isWritten)
                control_.SkipType(&kind == &kNetworkVariables);
        }
    }

    // `behind`: the type with the number behind the gap, whose place in the input is told.
    [[noreturn]] void RefuseGap(const TypeKindRule& kind, const CType& behind, std::int32_t index) const {
        ErrorContext context = behind.inputPlace ? (*behind.inputPlace)(TypeInput::number) : ErrorContext{};
        if (context.field.empty()) {
            context.field = "index in scope";
            context.value = std::to_string(index + 1);
        }
        context.reason = "there is a " + std::string(kind.title) + " " + std::to_string(index + 1) +
                         " and none with the number " + std::to_string(index) +
                         "; number the types of a scope without a gap";
        errorHandler_.RaiseError(kind.missingIndex, std::move(context));
    }

    // Two missing numbers in a row end the types; what stands behind them is written nowhere.
    void TellUnwritten(const TypeKindRule& kind, std::int32_t missing) {
        if (!findings_->WantsWarnings())
            return;
        const bool isUnvt = &kind == &kNetworkVariables;
        const CType* first = nullptr;
        for (const CType* type : types_)
            if (type->isUnvt == isUnvt && type->indexInScope > missing &&
                (first == nullptr || type->indexInScope < first->indexInScope))
                first = type;
        if (first == nullptr)
            return;
        ErrorContext context = first->inputPlace ? (*first->inputPlace)(TypeInput::number) : ErrorContext{};
        context.reason = std::string(kind.title) + " " + std::to_string(first->indexInScope) +
                         " is not written, nor is any behind it: there are none with the numbers " +
                         std::to_string(missing) + " and " + std::to_string(missing + 1) +
                         "; number the types of a scope without a gap";
        findings_->Take({.context = std::move(context), .warning = Warning::typeGap, .part = LinePart::all});
    }

    CType* const* Find(const TypeKindRule& kind, std::int32_t index) const {
        std::string key(kind.keyPrefix);
        key += std::to_string(index);
        return types_.Find(key);
    }

    void FormatFile() {
        const std::unique_ptr<FileSink> file = OpenOutput(path_, run_.trial);
        TextWriter out(*file);
        out.Line(ProgramIdLine(programID_));
        const auto scope = static_cast<std::size_t>(scope_);
        if (scope < std::size(kSelectors) && !kSelectors[scope].empty())
            out.Line(kSelectors[scope]);
        out.Line();
        control_.ClearTypeSelection();
        FormatLines lines(*file, control_.Catalog());
        for (CType* type : types_) {
            if (type->isRefused)
                continue;
            type->AnalyseFormat(*type);
            type->AddToFormatFile(lines);
        }
        file->Close();
    }

    void Save() {
        control_.CloseResourceFile();
        Check(control_.SaveResourceFile(0, 0));
    }

    // True when nothing was raised.
    template <class Operation>
    bool Telling(const Operation& operation) {
        bool isDone = false;
        TellingErrors(*findings_, [&] {
            operation();
            isDone = true;
        });
        return isDone;
    }

    // A part of the writing of a type that was not refused; false when it is refused now.
    template <class Operation>
    bool WriteType(CType& type, const Operation& operation) {
        if (!type.isRefused)
            type.isRefused = !Telling([&] { OfType(type, operation); });
        return !type.isRefused;
    }

    void Check(std::int32_t code, std::string_view field = {}) {
        CheckControl(code, field, control_, errorHandler_);
    }

    // Adds to errors of `operation` which type they are about.
    template <class Operation>
    void OfType(const CType& type, const Operation& operation) {
        const auto place = [&]() -> ErrorContext {
            if (type.place)
                return *type.place;
            return {.record = std::string(type.isUnvt ? kNetworkVariables.title : kProperties.title) + " " +
                              std::to_string(type.indexInScope) + " '" + type.name + "'"};
        };
        WithContext(place, operation);
    }

    const ScopeTypes& types_;
    std::int32_t scope_;
    TypeFilesSettings& settings_;
    const std::string& programID_;
    CCatalog& catalog_;
    QVxTypes& control_;
    const CErrorHandler& errorHandler_;
    std::vector<CResFile>& result_;
    const TypeFilesRun& run_;
    FindingSink* findings_;  // about the file that is being written
    std::string folder_;
    std::string path_;  // of the file that is being written
    std::int32_t handle_ = 0;
};

// What the name of a file ends in.
std::string Ending(const TypeFilesSettings& settings, ResourceFileKind kind) {
    switch (kind) {
        case fileProfiles:
            return std::string(RowOf(ResourceKind::profile).extension);
        case fileTypes:
            return std::string(RowOf(ResourceKind::type).extension);
        case fileFormats:
            return std::string(kFormatExtension);
        default:
            return settings.langExtension;
    }
}

}  // namespace

std::string ResourceFileName(const TypeFilesSettings& settings, std::int32_t scope, ResourceFileKind kind) {
    return settings.typeFilesBaseName + '_' + std::to_string(scope) + '.' + Ending(settings, kind);
}

ResourceSetFiles KeptResourceSet(const KeptOutput& kept, const TypeFilesSettings& settings,
                                 std::int32_t scope) {
    const auto path = [&](ResourceFileKind kind) {
        const std::string name =
            WithFinalBackslash(settings.typeFilesDirectory) + ResourceFileName(settings, scope, kind);
        return kept.Files().contains(name) ? name : std::string();
    };
    return {.language = path(fileLanguage),
            .types = path(fileTypes),
            .profiles = path(fileProfiles),
            .formats = path(fileFormats)};
}

void GenerateTypeFiles(const ScopeTypes& types, std::int32_t scope, TypeFilesSettings& settings,
                       const std::string& programID, CCatalog& catalog, const CErrorHandler& errorHandler,
                       std::vector<CResFile>& result, const TypeFilesRun& run) {
    TypeFilesDriver(types, scope, settings, programID, catalog, errorHandler, result, run).Generate();
}

}  // namespace tovarek
