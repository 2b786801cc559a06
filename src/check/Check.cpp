#include "check/Check.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "base/ErrorTable.h"
#include "base/Text.h"
#include "check/MeantFindings.h"
#include "check/SourceLines.h"
#include "check/WarningNames.h"
#include "mend/EditPieces.h"

namespace tovarek {
namespace {

// How the reason begins of an error that misses a definition in the format file.
constexpr std::string_view kLacksDefinition = "the format file ";
constexpr std::string_view kErrorPrefix = "eQVXIFerr_";

// A finding tells at most so many others that follow from it.
constexpr std::size_t kMostNotes = 5;

std::string NameOf(const Finding& finding) {
    if (finding.warning != Warning::none)
        return std::string(RowOf(finding.warning).name);
    const ErrorRow* const row = FindErrorRow(finding.error);
    std::string_view name = row != nullptr ? std::string_view(row->name) : RuntimeErrorName(finding.error);
    if (name.starts_with(kErrorPrefix))
        name.remove_prefix(kErrorPrefix.size());
    return std::string(name);
}

std::string DescriptionOf(std::int32_t error) {
    const ErrorRow* const row = FindErrorRow(error);
    std::string text(row != nullptr ? std::string_view(row->message)
                                    : RuntimeErrorMessage(static_cast<RuntimeError>(error)));
    while (!text.empty() && text.back() == '.')
        text.pop_back();
    return text;
}

std::string MessageOf(const Finding& finding) {
    const ErrorContext& context = finding.context;
    if (finding.warning != Warning::none)
        return context.reason;
    std::string text = context.record;
    if (!context.field.empty())
        text += (text.empty() ? "" : ", ") + context.field;
    if (!context.value.empty())
        text += (text.empty() ? "\"" : " \"") + context.value + '"';
    text += (text.empty() ? "" : ": ") + DescriptionOf(finding.error);
    if (!context.reason.empty())
        text += "; " + context.reason;
    return text;
}

// Warnings that explain an error of the same record.
bool Explains(const Finding& warning) {
    return warning.warning == Warning::notANumber || warning.warning == Warning::overflowedNumber ||
           warning.warning == Warning::missingValue || warning.warning == Warning::cutText;
}

// Whether what says so is meant was asked for every warning, also for those that are told as notes.
std::vector<bool> MeantOnes(std::vector<Finding>& findings, const CheckOptions& options) {
    MeantFindings meant(options.inputs, options.ignored);
    std::vector<bool> isMeant;
    isMeant.reserve(findings.size());
    for (const Finding& finding : findings)
        isMeant.push_back(meant.Covers(finding));
    for (Finding& unused : options.isWhole ? meant.TakeUnused() : std::vector<Finding>()) {
        isMeant.push_back(meant.Covers(unused));
        findings.push_back(std::move(unused));
    }
    return isMeant;
}

class Judgement {
  public:
    Judgement(std::vector<Finding> findings, const CheckOptions& options)
        : findings_(std::move(findings)), options_(options) {}

    std::vector<CheckedFinding> Make() {
        const std::vector<bool> isMeant = MeantOnes(findings_, options_);
        Index();
        IndexChains();
        std::vector<std::vector<FindingNote>> notes(findings_.size());
        std::vector<bool> isNote(findings_.size());
        std::vector<std::vector<Piece>> mends(findings_.size());
        for (std::size_t i = 0; i < findings_.size(); ++i) {
            notes[i] = std::move(findings_[i].notes);
            if (!isMeant[i])
                mends[i] = pieces_.Of(findings_[i].context.file, findings_[i].edits);
        }
        for (std::size_t i = 0; i < findings_.size(); ++i) {
            const std::size_t cause = CauseOf(i);
            isNote[i] = cause != i;
            if (isNote[i]) {
                // What says the same tells nothing more.
                if (MessageOf(findings_[i]) != MessageOf(findings_[cause]))
                    AddNote(notes[cause], findings_[i]);
                AddMend(findings_[cause], findings_[i], mends[cause], mends[i]);
            } else if (findings_[i].warning == Warning::none)
                AddExplanations(findings_[i], notes[i]);
        }
        std::vector<CheckedFinding> judged;
        for (std::size_t i = 0; i < findings_.size(); ++i)
            if (!isNote[i] && !isMeant[i] && IsToldAtAll(findings_[i]))
                judged.push_back(Judged(findings_[i], std::move(notes[i]), std::move(mends[i]), i + 1));
        std::stable_sort(judged.begin(), judged.end(), [](const CheckedFinding& a, const CheckedFinding& b) {
            return std::tie(a.context.file, a.context.line, a.column) <
                   std::tie(b.context.file, b.context.line, b.column);
        });
        return judged;
    }

  private:
    bool IsToldAtAll(const Finding& finding) const {
        return finding.warning == Warning::none || options_.isPedantic || !RowOf(finding.warning).isWeak;
    }
    static std::string CauseKey(const Finding& finding, int line) {
        return finding.context.file + '\n' + std::to_string(line);
    }
    // What nobody reads is explained by an error that suggests it, and explains others itself.
    static bool IsOwnCause(const Finding& finding) {
        return finding.causeLine == finding.context.line &&
               (finding.warning == Warning::ignoredSection || finding.warning == Warning::ignoredKey ||
                finding.warning == Warning::ignoredElement || finding.warning == Warning::wrongFile);
    }
    // Errors of the same value: rules and steps may have several things to say of it, and one mend ends them
    // all. The step of the types names the type behind the record.
    static std::string ValueKey(const Finding& finding) {
        const ErrorContext& context = finding.context;
        return CauseKey(finding, context.line) + '\n' + std::to_string(context.column) + '\n' +
               context.record.substr(0, context.record.find(" > ")) + '\n' + context.field + '\n' +
               context.value;
    }
    static std::string RecordKey(const Finding& finding) {
        return finding.context.file + '\n' + finding.context.record;
    }

    // What a format file lacks is one fault, whoever asks for it.
    static bool LacksDefinition(const Finding& finding) {
        return finding.error == eQVXIFerr_typenotfoundinformatfile &&
               finding.context.reason.starts_with(kLacksDefinition);
    }
    // Whether types of the file are not read or not written for it.
    static bool HidesTypes(const Finding& finding) {
        return finding.warning == Warning::ignoredElement || finding.warning == Warning::mixedTypes ||
               finding.warning == Warning::typeGap ||
               finding.error == eQVXIFerr_QVX_editResult_missingunvttypeindex ||
               finding.error == eQVXIFerr_QVX_editResult_missingucpttypeindex;
    }

    // The finding that this one is a note of; itself when it is none.
    std::size_t CauseOf(std::size_t i) const {
        const Finding& finding = findings_[i];
        const auto find = [&](const auto& causes, const std::string& key) {
            const auto cause = causes.find(key);
            return cause == causes.end() ? i : cause->second;
        };
        if (LacksDefinition(finding))
            return find(lacking_, finding.context.reason);
        if (const auto hiding = hiding_.find(finding.causeFile); hiding != hiding_.end())
            return CauseOf(hiding->second);
        if (finding.warning == Warning::none && !finding.context.value.empty())
            return find(errors_, ValueKey(finding));
        if (finding.causeLine == 0)
            return i;
        if (!IsOwnCause(finding)) {
            const std::size_t cause = find(causes_, CauseKey(finding, finding.causeLine));
            const std::string& field = findings_[cause].context.field;
            // In one line only what is told of the same field explains it.
            const bool isOther =
                finding.causeLine == finding.context.line && !field.empty() && field != finding.context.field;
            return isOther ? i : cause;
        }
        const std::size_t suggesting = find(suggesting_, CauseKey(finding, finding.causeLine));
        if (suggesting != i || finding.aroundLine == 0)
            return suggesting;
        return find(missing_, CauseKey(finding, std::max(finding.aroundLine, 0)));
    }

    void Index() {
        for (std::size_t i = 0; i < findings_.size(); ++i) {
            const Finding& finding = findings_[i];
            if (LacksDefinition(finding))
                lacking_.try_emplace(finding.context.reason, i);
            if (HidesTypes(finding) && !finding.context.file.empty())
                hiding_.try_emplace(finding.context.file, i);
            if (finding.context.line > 0 && finding.warning == Warning::none &&
                finding.context.reason.find("did you mean") != std::string::npos)
                suggesting_.try_emplace(CauseKey(finding, finding.context.line), i);
            if (finding.warning == Warning::none) {
                errors_.try_emplace(ValueKey(finding), i);
                const bool missesValue = !finding.context.field.empty() && finding.context.value.empty();
                if (finding.context.line == 0 || missesValue)
                    missing_.try_emplace(CauseKey(finding, finding.context.line), i);
            }
            if (finding.context.line > 0 && (finding.causeLine == 0 || IsOwnCause(finding)))
                causes_.try_emplace(CauseKey(finding, finding.context.line), i);
            if (!Explains(finding))
                continue;
            explanations_[RecordKey(finding)].push_back(i);
            // What is told at the line itself explains as well, whatever both call its record.
            if (finding.context.line > 0)
                explanationsOfLine_.try_emplace(CauseKey(finding, finding.context.line), i);
        }
    }

    // What follows from something that nobody tells stands for the rest that follows from it.
    void IndexChains() {
        for (std::size_t i = 0; i < findings_.size(); ++i)
            if (const Finding& finding = findings_[i]; finding.causeLine > 0 && finding.context.line > 0 &&
                                                       finding.causeLine != finding.context.line)
                causes_.try_emplace(CauseKey(finding, finding.context.line), CauseOf(i));
    }

    void AddExplanations(const Finding& error, std::vector<FindingNote>& notes) const {
        const auto ofLine = explanationsOfLine_.find(CauseKey(error, error.context.line));
        if (ofLine != explanationsOfLine_.end())
            AddNote(notes, findings_[ofLine->second]);
        const auto found = explanations_.find(RecordKey(error));
        if (error.context.record.empty() || found == explanations_.end())
            return;
        for (const std::size_t i : found->second) {
            if (notes.size() > kMostNotes)
                break;  // more than that is not told
            if (ofLine == explanationsOfLine_.end() || i != ofLine->second)
                AddNote(notes, findings_[i]);
        }
    }

    static void AddNote(std::vector<FindingNote>& notes, const Finding& finding) {
        if (notes.size() < kMostNotes)
            notes.push_back({finding.context.file, finding.context.line, MessageOf(finding)});
        else if (notes.size() == kMostNotes)
            notes.push_back({{}, 0, "and others that follow from it"});
    }

    // What mends a note helps what it is a note of; both lie in one file.
    static void AddMend(const Finding& finding, const Finding& note, std::vector<Piece>& mend,
                        const std::vector<Piece>& more) {
        for (const Piece& piece : more)
            if (finding.context.file == note.context.file &&
                std::find(mend.begin(), mend.end(), piece) == mend.end())
                mend.push_back(piece);
    }

    CheckedFinding Judged(const Finding& finding, std::vector<FindingNote> notes, std::vector<Piece> mend,
                          std::size_t order) {
        const LinePlace place = lines_.PlaceOf(finding);
        return {.isError = finding.warning == Warning::none,
                .error = finding.error,
                .name = NameOf(finding),
                .context = finding.context,
                .message = MessageOf(finding),
                .column = place.column,
                .width = place.width,
                .source = lines_.Line(finding.context.file, finding.context.line),
                .notes = std::move(notes),
                .order = order,
                .mend = std::move(mend)};
    }

    std::vector<Finding> findings_;
    const CheckOptions& options_;
    SourceLines lines_;
    EditPieces pieces_;
    // The first finding of each line that explains others, and the explaining ones of each record and line.
    std::unordered_map<std::string, std::size_t> causes_;
    std::unordered_map<std::string, std::size_t> suggesting_;  // errors with "did you mean", by line
    std::unordered_map<std::string, std::size_t> missing_;     // errors that miss a value, by line
    std::unordered_map<std::string, std::size_t> errors_;      // the first ones of each value
    std::unordered_map<std::string, std::size_t> lacking_;     // errors of missing definitions, by reason
    std::unordered_map<std::string, std::size_t> hiding_;      // what hides types, by file
    std::unordered_map<std::string, std::vector<std::size_t>> explanations_;
    std::unordered_map<std::string, std::size_t> explanationsOfLine_;
};

}  // namespace

std::vector<CheckedFinding> Judge(std::vector<Finding> findings, const CheckOptions& options) {
    return Judgement(std::move(findings), options).Make();
}

std::int32_t ShortNumber(std::int32_t error) {
    return error < 0 ? error - ErrorValue(0) : error;
}

}  // namespace tovarek
