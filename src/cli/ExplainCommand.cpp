#include "cli/ExplainCommand.h"

#include <ostream>

#include "base/Nearest.h"
#include "base/Text.h"
#include "check/WarningNames.h"
#include "cli/Json.h"
#include "compare/InterfaceRules.h"
#include "explain/Explanations.h"
#include "explain/FindingsDocument.h"

namespace tovarek {
namespace {

constexpr std::size_t kWidth = 100;

int RefuseFindingWord(const std::string& word, OutputFormat format, Streams streams) {
    std::vector<std::string> names;
    for (const Explanation& one : Explanations())
        names.emplace_back(one.name);
    for (const InterfaceRuleRow& rule : InterfaceRules())
        names.emplace_back(rule.name);
    const std::string mend = DidYouMean(word, names);
    return ReportWrongUse("there is no finding '" + Excerpt(word) + "'" +
                              (mend.empty() ? "; 'tovarek explain --list' shows all" : mend),
                          format, streams);
}

std::string_view Severity(const Explanation& one) {
    if (one.IsError())
        return "error";
    return RowOf(one.warning).isWeak ? "weak warning" : "warning";
}

// Words in lines of readable length, below a title.
void WriteText(std::string_view title, std::string_view text, std::ostream& out) {
    out << '\n' << title << ":\n ";
    std::size_t column = 1;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const std::size_t width = CharacterCount(word) + 1;
        if (column + width > kWidth) {
            out << "\n ";
            column = 1;
        }
        out << ' ' << word;
        column += width;
    }
    out << '\n';
}

void WriteLines(std::string_view title, std::string_view lines, std::ostream& out) {
    if (lines.empty())
        return;
    out << '\n' << title << ":\n";
    while (!lines.empty())
        out << "    " << TakeLine(lines) << '\n';
}

void WriteExplanation(const Explanation& one, std::ostream& out) {
    out << one.name << ": " << Severity(one);
    if (one.IsError())
        out << ' ' << one.number;
    if (one.value < 0)
        out << " (" << ErrorNumberText(one.value) << ", " << ErrorName(one.value) << ')';
    out << ": " << one.message << '\n';
    WriteText("What it means", one.meaning, out);
    WriteText("Why it matters", one.why, out);
    WriteLines("For example", one.wrong, out);
    WriteLines("Instead", one.right, out);
    WriteText("Mend", one.mend, out);
}

Json JsonOfExplanation(const Explanation& one) {
    Json json = {{"severity", one.IsError() ? "error" : "warning"}, {"name", one.name}};
    if (one.IsError()) {
        json["error"] = one.value;
        json["number"] = one.number;
        json["code"] = ErrorNumberText(one.value);
    } else {
        json["pedantic"] = RowOf(one.warning).isWeak;
    }
    const auto put = [&json](const char* key, std::string_view text) {
        if (!text.empty())
            json[key] = text;
    };
    put("message", one.message);
    put("meaning", one.meaning);
    put("why", one.why);
    put("example", one.wrong);
    put("instead", one.right);
    put("mend", one.mend);
    return json;
}

std::string_view EffectOf(const InterfaceRuleRow& rule) {
    return rule.IsBreaking() ? "breaking" : "harmless";
}

Json JsonOfRule(const InterfaceRuleRow& rule) {
    return {{"severity", "change"},
            {"name", rule.name},
            {"effect", EffectOf(rule)},
            {"meaning", rule.meaning},
            {"why", rule.why}};
}

void WriteList(std::ostream& out) {
    for (const Explanation& one : Explanations()) {
        out << one.name << '\t' << Severity(one);
        if (one.IsError())
            out << ' ' << one.number;
        out << '\t' << one.message << '\n';
    }
    for (const InterfaceRuleRow& rule : InterfaceRules())
        out << rule.name << '\t' << EffectOf(rule) << " change\t" << rule.meaning << '\n';
}

void WriteJson(std::span<const Explanation> shown, std::span<const InterfaceRuleRow> rules,
               std::ostream& out) {
    Json list = Json::array();
    for (const Explanation& one : shown)
        list.push_back(JsonOfExplanation(one));
    for (const InterfaceRuleRow& rule : rules)
        list.push_back(JsonOfRule(rule));
    out << JsonText(list) << '\n';
}

int ShowRule(const InterfaceRuleRow& rule, OutputFormat format, std::ostream& out) {
    if (format == OutputFormat::json) {
        WriteJson({}, {&rule, 1}, out);
        return kDone;
    }
    out << rule.name << ": " << EffectOf(rule) << " change of an interface: " << rule.meaning << '\n';
    WriteText("Why it matters", rule.why, out);
    return kDone;
}

int ShowAll(OutputFormat format, std::ostream& out) {
    if (format == OutputFormat::markdown)
        out << FindingsDocument();
    else if (format == OutputFormat::json)
        WriteJson(Explanations(), InterfaceRules(), out);
    else
        WriteList(out);
    return kDone;
}

}  // namespace

int RunExplain(const ExplainWishes& wishes, OutputFormat format, Streams streams) {
    if (wishes.isList != wishes.word.empty())
        return ReportWrongUse("explain needs the number or name of one finding, or --list", format, streams);
    if (wishes.isList)
        return ShowAll(format, streams.out);
    if (format == OutputFormat::markdown)
        return ReportWrongUse("markdown is the format of 'tovarek explain --list' alone", format, streams);
    if (const InterfaceRuleRow* const rule = InterfaceRuleNamed(wishes.word))
        return ShowRule(*rule, format, streams.out);
    const std::vector<Explanation> shown = ExplanationsOf(wishes.word);
    if (shown.empty())
        return RefuseFindingWord(wishes.word, format, streams);
    if (format == OutputFormat::json) {
        WriteJson(shown, {}, streams.out);
        return kDone;
    }
    for (const Explanation& one : shown) {
        if (&one != &shown.front())
            streams.out << "\n\n";
        WriteExplanation(one, streams.out);
    }
    return kDone;
}

}  // namespace tovarek
