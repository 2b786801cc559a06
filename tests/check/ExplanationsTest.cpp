// The texts of findings: they are whole, they are found by every name, and their examples are true.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "Program.h"
#include "Slips.h"
#include "base/Text.h"
#include "compare/InterfaceRules.h"
#include "explain/Explanations.h"

namespace tovarek::test {
namespace {

// The section of the example's template that an error's example belongs to; nothing for a profile.
std::string SectionOf(int error) {
    constexpr std::pair<int, const char*> kSections[] = {
        {52, "[general]\n"}, {54, "[nvs]\n"}, {72, "[nv8]\n"}, {73, "[tags]\n"}, {77, "[tag1]\n"},
        {79, "[cps]\n"},     {81, "[cp4]\n"}, {82, "[cp3]\n"}, {86, "[cp4]\n"}};
    for (const auto& [last, section] : kSections)
        if (error <= last)
            return section;
    return {};
}

// The names of the errors in the example with the line in place of its own.
std::string Errors(int number, std::string_view line) {
    const bool isProfile = number < 50;
    const std::string file = isProfile ? "profile.ini" : "template.ini";
    const std::string text = ReadFile(std::string(TOVAREK_EXAMPLE) + "/" + file);
    std::string right =
        isProfile ? '\n' + std::string(line.substr(0, line.find('=') + 1)) : SectionOf(number);
    if (isProfile) {
        const std::size_t at = text.find(right);
        right = text.substr(at, text.find('\n', at + 1) + 1 - at);
    }
    const std::string wrong = (isProfile ? "\n" : right) + std::string(line) + '\n';
    const Json answer = SlipCheck({file.c_str(), right.c_str(), wrong.c_str(), ""}).Run();
    std::string names;
    for (const Json& finding : answer["findings"])
        if (finding["severity"] == "error")
            names += finding["name"].get<std::string>() + ' ';
    return names;
}

TEST(Explanations, ExamplesOfErrorsAreTrue) {
    int tried = 0;
    for (const Explanation& one : Explanations()) {
        const bool isKey = one.wrong.find('=') < one.wrong.find_first_of(" <\n");
        if (one.value >= 0 || one.number > 86 || !isKey)
            continue;
        // Others may follow from it.
        const std::string wrong = Errors(one.number, one.wrong);
        EXPECT_TRUE(wrong.starts_with(std::string(one.name) + ' ')) << one.wrong << ": " << wrong;
        EXPECT_EQ(Errors(one.number, one.right), "") << one.right;
        ++tried;
    }
    EXPECT_GE(tried, 80);
}

TEST(Explanations, EachIsWholeAndHasANameOfItsOwn) {
    std::set<std::string_view> names;
    for (const Explanation& one : Explanations()) {
        EXPECT_TRUE(names.insert(one.name).second) << one.name;
        for (const std::string_view text : {one.message, one.meaning, one.why, one.mend})
            EXPECT_FALSE(text.empty()) << one.name;
        EXPECT_TRUE(one.right.empty() || one.right != one.wrong) << one.name;
        EXPECT_EQ(ExplanationOf(one.name).name, one.name);
    }
    EXPECT_THROW(ExplanationOf("nothing"), std::out_of_range);
}

TEST(Explanations, StandInLinesOfAsManyWordsAsFit) {
    std::size_t longest = 0;
    for (const Explanation& one : Explanations().first(40)) {
        std::istringstream text(Call({"explain", std::string(one.name)}).out);
        std::size_t columns = 0;  // of the line before, where it is one of words
        for (std::string line; std::getline(text, line);) {
            const bool hasWords = line.starts_with("  ") && !line.starts_with("   ");
            if (hasWords && columns > 0) {
                EXPECT_GT(columns + CharacterCount(line.substr(1, line.find(' ', 2) - 1)), 100U) << line;
            }
            columns = hasWords ? CharacterCount(line) : 0;
            longest = std::max(longest, columns);
        }
    }
    EXPECT_EQ(longest, 100U);
}

TEST(Explanations, TheCommandTakesEveryNameOfAFinding) {
    for (const char* word : {"71", "NVlength", "eqvxiferr_NVLENGTH", "0x80040047", "-2147221433"})
        EXPECT_TRUE(Call({"explain", word}).out.starts_with("nvlength: error 71 (0x80040047,")) << word;
    const Json both = Json::parse(Call({"explain", "53", "--format", "json"}).out);
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[1]["name"], "fileNotFound");
    const std::string text = Call({"explain", "not-a-number"}).out;
    for (const char* title :
         {"What it means:\n", "Why it matters:\n", "For example:\n    ", "Instead:\n    ", "Mend:\n"})
        EXPECT_NE(text.find(title), std::string::npos) << title;
    const struct {
        std::vector<std::string> arguments;
        const char* error;
    } refused[] = {{{"nvlenght"}, "did you mean 'nvlength'?"},
                   {{"not-number"}, "did you mean 'not-a-number'?"},
                   {{"0"}, "--list"},
                   {{}, "or --list"},
                   {{"71", "--list"}, "or --list"},
                   {{"71", "--format", "markdown"}, "--list"},
                   {{"--list", "--format", "xml"}, "--format markdown"}};
    for (const auto& row : refused) {
        std::vector<std::string> arguments = {"explain"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const Answer answer = Call(arguments);
        EXPECT_EQ(answer.status, 2);
        EXPECT_NE(answer.error.find(row.error), std::string::npos) << answer.error;
    }
    EXPECT_EQ(Json::parse(Call({"explain", "--list", "--format", "json"}).out).size(),
              Explanations().size() + InterfaceRules().size());
}

}  // namespace
}  // namespace tovarek::test
