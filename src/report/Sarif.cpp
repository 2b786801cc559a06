#include "report/Sarif.h"

#include <algorithm>

#include "base/Text.h"
#include "check/WarningNames.h"
#include "explain/Explanations.h"
#include "explain/FindingsDocument.h"
#include "report/SarifDocument.h"
#include "system/Files.h"

namespace tovarek {
namespace {

const char* LevelOf(const Explanation& rule) {
    if (rule.IsError())
        return "error";
    return RowOf(rule.warning).isWeak ? "note" : "warning";
}

SarifRule RuleOf(const Explanation& rule) {
    return {.name = rule.name,
            .message = rule.message,
            .meaning = std::string(rule.meaning) + " " + std::string(rule.why),
            .mend = rule.mend,
            .markdown = MarkdownOf(rule),
            .level = LevelOf(rule)};
}

void Add(const CheckedFinding& finding, SarifDocument& document) {
    const Explanation& rule = ExplanationOf(finding.name);
    const ErrorContext& context = finding.context;
    SarifResult result{.level = LevelOf(rule),
                       .message = finding.message,
                       .place = {context.file, context.line, finding.column, finding.width}};
    for (const FindingNote& note : finding.notes)
        if (note.line == 0)
            result.message += "; " + note.text;
        else
            result.related.push_back({.file = note.file, .line = note.line, .text = note.text});
    const std::string file = FromCurrentFolder(context.file);
    // Of a record its name counts, not its number, and no line.
    const std::size_t name = std::min(context.record.find('('), context.record.size());
    result.identity = {finding.name,  file,          std::string_view(context.record).substr(name),
                       context.field, context.value, Trim(finding.source)};
    result.mend = finding.mend;
    document.Add(RuleOf(rule), std::move(result));
}

}  // namespace

std::string SarifText(const std::vector<CheckedFinding>& findings, std::string_view version) {
    SarifDocument document(version);
    for (const CheckedFinding& finding : findings)
        Add(finding, document);
    return document.Text();
}

}  // namespace tovarek
