#include "report/InterfaceSarif.h"

#include "explain/FindingsDocument.h"
#include "report/SarifDocument.h"
#include "system/Files.h"

namespace tovarek {
namespace {

SarifRule RuleOfChange(const InterfaceRuleRow& row) {
    return {.name = row.name,
            .message = row.meaning,
            .meaning = std::string(row.meaning) + ": " + std::string(row.why),
            .mend = row.IsBreaking()
                        ? "Give the new interface a program ID of its own: raise the model number."
                        : "Nothing needs to be done: the program ID may stay.",
            .markdown = MarkdownOf(row),
            .level = row.IsBreaking() ? "error" : "note"};
}

}  // namespace

std::string SarifText(const InterfaceReport& report, std::string_view version) {
    const bool isRefused = report.comparison.Verdict() == InterfaceVerdict::breakingUnderSameId;
    const std::string file = FromCurrentFolder(report.file);
    SarifDocument document(version);
    document.SetProperty("verdict", report.verdict);
    document.SetProperty("text", report.text);
    for (const InterfaceChange& change : report.comparison.changes) {
        const InterfaceRuleRow& row = RowOf(change.rule);
        document.Add(RuleOfChange(row), {.level = isRefused && row.IsBreaking() ? "error" : "note",
                                         .message = ChangeText(change),
                                         .place = {.file = report.file},
                                         .related = {},
                                         .identity = {row.name, file, change.record, change.field,
                                                      change.before, change.after}});
    }
    return document.Text();
}

}  // namespace tovarek
