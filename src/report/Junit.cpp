#include "report/Junit.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "report/FindingText.h"
#include "system/Files.h"
#include "xml/XmlEscaped.h"

namespace tovarek {
namespace {

struct TestCase {
    std::string name;
    std::vector<CheckedFinding> faults;
    std::vector<CheckedFinding> warnings;
};

std::string NameOf(const std::string& file) {
    return file.empty() ? "tovarek" : FromCurrentFolder(file);
}

TestCase& CaseOf(const std::string& name, std::vector<TestCase>& cases) {
    const auto known =
        std::find_if(cases.begin(), cases.end(), [&](const TestCase& one) { return one.name == name; });
    return known != cases.end() ? *known : cases.emplace_back(TestCase{name, {}, {}});
}

std::string Attribute(const char* name, const std::string& value) {
    std::string escaped;
    for (const char c : XmlEscaped(value))
        escaped += c == '"' ? std::string("&quot;") : std::string(1, c);
    return ' ' + std::string(name) + "=\"" + escaped + '"';
}

// The findings as lines, which stay lines.
std::string Content(const std::vector<CheckedFinding>& findings) {
    std::ostringstream text;
    WriteFindings(findings, false, text);
    std::string content;
    std::istringstream lines(text.str());
    for (std::string line; std::getline(lines, line);)
        content += '\n' + XmlEscaped(line);
    return content + '\n';
}

void AddCase(const TestCase& one, std::string& document) {
    document += "    <testcase" + Attribute("name", one.name) + Attribute("classname", "tovarek.check") +
                Attribute("time", "0") + ">\n";
    if (!one.faults.empty())
        document += "      <failure" + Attribute("message", one.faults.front().message) +
                    Attribute("type", one.faults.front().name) + ">" + Content(one.faults) + "</failure>\n";
    if (!one.warnings.empty())
        document += "      <system-out>" + Content(one.warnings) + "</system-out>\n";
    document += "    </testcase>\n";
}

}  // namespace

std::string JunitText(const std::vector<CheckedFinding>& findings, const std::vector<std::string>& inputs,
                      bool warningsAreErrors) {
    std::vector<TestCase> cases;
    for (const std::string& input : inputs)
        CaseOf(NameOf(input), cases);
    for (const CheckedFinding& finding : findings) {
        TestCase& one = CaseOf(NameOf(finding.context.file), cases);
        (finding.isError || warningsAreErrors ? one.faults : one.warnings).push_back(finding);
    }
    const auto failures =
        std::count_if(cases.begin(), cases.end(), [](const TestCase& one) { return !one.faults.empty(); });
    const std::string counts = Attribute("tests", std::to_string(cases.size())) +
                               Attribute("failures", std::to_string(failures)) + Attribute("errors", "0");
    std::string document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
                           ">\n  <testsuite name=\"tovarek check\"" + counts + ">\n";
    for (const TestCase& one : cases)
        AddCase(one, document);
    return document + "  </testsuite>\n</testsuites>\n";
}

}  // namespace tovarek
