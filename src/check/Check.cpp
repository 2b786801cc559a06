#include "check/Check.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/ErrorTable.h"
#include "base/Text.h"
#include "check/SourceLines.h"
#include "check/WarningNames.h"

namespace tovarek {
namespace {

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
bool Explains(const Finding& warning, const Finding& error) {
    return (warning.warning == Warning::notANumber || warning.warning == Warning::overflowedNumber ||
            warning.warning == Warning::missingValue || warning.warning == Warning::cutText) &&
           !error.context.record.empty() && warning.context.record == error.context.record &&
           warning.context.file == error.context.file;
}

bool IsWanted(const Finding& finding, const CheckOptions& options) {
    if (finding.warning == Warning::none)
        return true;
    const WarningRow& row = RowOf(finding.warning);
    return (!row.isWeak || options.isPedantic) &&
           std::find(options.ignored.begin(), options.ignored.end(), row.name) == options.ignored.end();
}

class Judgement {
  public:
    Judgement(std::vector<Finding> findings, const CheckOptions& options)
        : findings_(std::move(findings)), options_(options) {}

    std::vector<CheckedFinding> Make() {
        std::vector<std::vector<CheckNote>> notes(findings_.size());
        std::vector<bool> isNote(findings_.size());
        for (std::size_t i = 0; i < findings_.size(); ++i) {
            const std::size_t cause = CauseOf(findings_[i]);
            isNote[i] = cause != findings_.size() && cause != i;
            if (isNote[i])
                AddNote(notes[cause], findings_[i]);
            else if (findings_[i].warning == Warning::none)
                for (const Finding& other : findings_)
                    if (Explains(other, findings_[i]))
                        AddNote(notes[i], other);
        }
        std::vector<CheckedFinding> judged;
        for (std::size_t i = 0; i < findings_.size(); ++i)
            if (!isNote[i] && IsWanted(findings_[i], options_))
                judged.push_back(Judged(findings_[i], std::move(notes[i]), i + 1));
        std::stable_sort(judged.begin(), judged.end(), [](const CheckedFinding& a, const CheckedFinding& b) {
            return std::tie(a.context.file, a.context.line, a.column) <
                   std::tie(b.context.file, b.context.line, b.column);
        });
        return judged;
    }

  private:
    // The finding in the line that explains this one; findings_.size() when there is none.
    std::size_t CauseOf(const Finding& finding) const {
        if (finding.causeLine == 0)
            return findings_.size();
        return static_cast<std::size_t>(std::find_if(findings_.begin(), findings_.end(),
                                                     [&](const Finding& other) {
                                                         return other.context.file == finding.context.file &&
                                                                other.context.line == finding.causeLine &&
                                                                other.causeLine == 0;
                                                     }) -
                                        findings_.begin());
    }

    static void AddNote(std::vector<CheckNote>& notes, const Finding& finding) {
        if (notes.size() < kMostNotes)
            notes.push_back({finding.context.file, finding.context.line, MessageOf(finding)});
        else if (notes.size() == kMostNotes)
            notes.push_back({{}, 0, "and others that follow from it"});
    }

    CheckedFinding Judged(const Finding& finding, std::vector<CheckNote> notes, std::size_t order) {
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
                .order = order};
    }

    std::vector<Finding> findings_;
    const CheckOptions& options_;
    SourceLines lines_;
};

}  // namespace

std::vector<CheckedFinding> Judge(std::vector<Finding> findings, const CheckOptions& options) {
    return Judgement(std::move(findings), options).Make();
}

std::int32_t ShortNumber(std::int32_t error) {
    return error < 0 ? error - ErrorValue(0) : error;
}

}  // namespace tovarek
