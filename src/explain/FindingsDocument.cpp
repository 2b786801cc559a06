#include "explain/FindingsDocument.h"

#include <string_view>

#include "check/WarningNames.h"

namespace tovarek {
namespace {

constexpr std::string_view kIntroduction =
    "# What the findings mean\n"
    "\n"
    "All that `tovarek check` and `tovarek generate` find in the inputs, and how `tovarek diff --interface` "
    "judges changes: what it means, why it matters to a "
    "network "
    "tool or a\ndevice, an example with what to write instead, and the mend. `tovarek explain NAME` shows "
    "one of "
    "them; `tovarek explain\n--list --format markdown` writes this document. "
    "[command-line.md](command-line.md#check) "
    "tells of the command,\n[errors.md](errors.md) has the messages of the errors.\n";

// Text in which nothing stands for Markdown.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '<' || c == '|' || c == '[' || c == '*')
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Code(std::string_view text) {
    return text.empty() ? std::string() : "`" + std::string(text) + "`";
}

void AddBlock(std::string_view code, std::string& document) {
    document += "```\n" + std::string(code) + "\n```\n\n";
}

void AddErrorRow(const Explanation& one, std::string& document) {
    document += "| " + std::to_string(one.number) + " | " + Code(one.name) + " | " + Escaped(one.meaning) +
                " | " + Code(one.wrong) + " | " + Code(one.right) + " | " + Escaped(one.mend) + " |\n";
}

constexpr std::string_view kErrorHeader =
    "| n | Name | What it means | For example | Instead | Mend |\n|---|---|---|---|---|---|\n";

void AddErrors(std::string& document) {
    for (const ErrorArea& area : ErrorAreas()) {
        const ErrorArea* const next = &area == &ErrorAreas().back() ? nullptr : &area + 1;
        document += "### " + std::string(area.title) + "\n\n" + Escaped(area.why) + "\n\n";
        document += kErrorHeader;
        for (const Explanation& one : Explanations())
            if (one.value < 0 && one.number >= area.first && (next == nullptr || one.number < next->first))
                AddErrorRow(one, document);
        document += '\n';
    }
}

void AddRuntimeErrors(std::string& document) {
    document +=
        "| n | Name | What it means | Why it matters | For example | Instead | Mend |\n"
        "|---|---|---|---|---|---|---|\n";
    for (const Explanation& one : Explanations())
        if (one.value > 0)
            document += "| " + std::to_string(one.number) + " | " + Code(one.name) + " | " +
                        Escaped(one.meaning) + " | " + Escaped(one.why) + " | " + Code(one.wrong) + " | " +
                        Code(one.right) + " | " + Escaped(one.mend) + " |\n";
}

void AddRules(std::string& document) {
    document +=
        "\n## Changes of an interface\n\nThe rules of `tovarek diff --interface`. With a breaking change a "
        "device needs a program ID of its own.\n\n"
        "| Rule | Effect | Change | Why it matters |\n|---|---|---|---|\n";
    for (const InterfaceRuleRow& rule : InterfaceRules())
        document += "| " + Code(rule.name) + " | " + (rule.IsBreaking() ? "breaking" : "harmless") + " | " +
                    Escaped(rule.meaning) + " | " + Escaped(rule.why) + " |\n";
}

}  // namespace

std::string MarkdownOf(const Explanation& one) {
    std::string text = Escaped(one.meaning) + "\n\n";
    if (!one.IsError() && RowOf(one.warning).isWeak)
        text += "Told with `--pedantic` only.\n\n";
    text += "**Why it matters.** " + Escaped(one.why) + "\n\n";
    if (!one.wrong.empty())
        AddBlock(one.wrong, text);
    if (!one.right.empty()) {
        text += "Instead:\n\n";
        AddBlock(one.right, text);
    }
    return text + "**Mend.** " + Escaped(one.mend) + "\n\n";
}

std::string MarkdownOf(const InterfaceRuleRow& rule) {
    return Escaped(rule.meaning) + " (" + (rule.IsBreaking() ? "**breaking**" : "harmless") +
           ")\n\n**Why it matters.** " + Escaped(rule.why) + "\n\n";
}

std::string FindingsDocument() {
    std::string document(kIntroduction);
    document +=
        "\n## Warnings\n\n"
        "The files are written all the same; what they say is something else than the input seems to "
        "say.\n\n";
    for (const Explanation& one : Explanations())
        if (!one.IsError())
            document += "### `" + std::string(one.name) + "`\n\n" + MarkdownOf(one);
    document += "## Errors\n\nThe first of them ends a generation.\n\n";
    AddErrors(document);
    document +=
        "## Runtime errors\n\nThey tell of files and of the machine rather than of a device. Their small "
        "numbers are their own.\n\n";
    AddRuntimeErrors(document);
    AddRules(document);
    return document;
}

}  // namespace tovarek
