#include "report/Sarif.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>

#include "base/Text.h"
#include "check/WarningNames.h"
#include "explain/Explanations.h"
#include "explain/FindingsDocument.h"
#include "system/Files.h"

namespace tovarek {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kSchema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
// Paths count from here; whoever shows the results puts the folder of the sources in its place.
constexpr const char* kBase = "%SRCROOT%";

const char* LevelOf(const Explanation& rule) {
    if (rule.IsError())
        return "error";
    return RowOf(rule.warning).isWeak ? "note" : "warning";
}

// The path as a URI: what is no letter, digit or one of a few marks is escaped byte by byte.
std::string UriOf(const std::string& path) {
    constexpr std::string_view kUriMarks = "-._~/";
    std::string uri;
    for (const char c : path) {
        const bool isLetter = AsciiUpper(c) >= 'A' && AsciiUpper(c) <= 'Z';
        if (isLetter || IsDigit(c) || kUriMarks.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri += '%';
            AppendHex(uri, static_cast<unsigned char>(c), 2);
        }
    }
    return uri;
}

Json FileJson(const std::string& file) {
    const std::string path = FromCurrentFolder(file);
    if (path.starts_with('/'))
        return {{"uri", "file://" + UriOf(path)}};
    // A drive stands in front.
    if (path.size() > 1 && path[1] == ':')
        return {{"uri", "file:///" + path.substr(0, 2) + UriOf(path.substr(2))}};
    return {{"uri", UriOf(path)}, {"uriBaseId", kBase}};
}

Json PlaceJson(const std::string& file, int line, int column, int width) {
    Json place = {{"artifactLocation", FileJson(file)}};
    if (line > 0)
        place["region"]["startLine"] = line;
    if (line > 0 && column > 0) {
        place["region"]["startColumn"] = column;
        place["region"]["endColumn"] = column + std::max(width, 1);
    }
    return {{"physicalLocation", std::move(place)}};
}

Json RuleJson(const Explanation& rule) {
    return {{"id", rule.name},
            {"shortDescription", {{"text", rule.message}}},
            {"fullDescription", {{"text", std::string(rule.meaning) + " " + std::string(rule.why)}}},
            {"help", {{"text", rule.mend}, {"markdown", MarkdownOf(rule)}}},
            {"defaultConfiguration", {{"level", LevelOf(rule)}}}};
}

// The same for the same fault, wherever its line has moved to; `twins` counts those that nothing else tells
// apart.
std::string Fingerprint(const CheckedFinding& finding, std::map<std::string, int>& twins) {
    const ErrorContext& context = finding.context;
    const std::string file = FromCurrentFolder(context.file);
    // Of a record its name counts, not its number.
    const std::size_t name = std::min(context.record.find('('), context.record.size());
    std::string what;
    for (const std::string_view part :
         {std::string_view(finding.name), std::string_view(file),
          std::string_view(context.record).substr(name), std::string_view(context.field),
          std::string_view(context.value), Trim(finding.source)})
        what.append(part).append(1, '\n');
    // FNV-1a: short, and the same on every platform.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : what)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    std::string text;
    AppendHex(text, hash, 16);
    return text + ':' + std::to_string(++twins[text]);
}

class SarifRun {
  public:
    explicit SarifRun(std::string_view version) : version_(version) {}

    void Add(const CheckedFinding& finding) {
        const Explanation& rule = ExplanationOf(finding.name);
        std::string message = finding.message;
        Json related = Json::array();
        for (const FindingNote& note : finding.notes) {
            if (note.line == 0) {
                message += "; " + note.text;
                continue;
            }
            Json& place = related.emplace_back(PlaceJson(note.file, note.line, 0, 0));
            place["id"] = related.size();
            place["message"]["text"] = note.text;
        }
        Json result = {{"ruleId", finding.name},
                       {"ruleIndex", IndexOf(rule)},
                       {"level", LevelOf(rule)},
                       {"message", {{"text", std::move(message)}}}};
        if (!finding.context.file.empty())
            result["locations"].push_back(
                PlaceJson(finding.context.file, finding.context.line, finding.column, finding.width));
        if (!related.empty())
            result["relatedLocations"] = std::move(related);
        result["partialFingerprints"]["primaryLocationLineHash"] = Fingerprint(finding, twins_);
        results_.push_back(std::move(result));
    }

    std::string Text() {
        Json driver = {{"name", "tovarek"}, {"semanticVersion", version_}, {"rules", std::move(rules_)}};
        Json run = {
            {"tool", {{"driver", std::move(driver)}}},
            {"invocations", {{{"executionSuccessful", true}}}},
            {"originalUriBaseIds", {{kBase, {{"description", {{"text", "the folder of the check"}}}}}}},
            {"columnKind", "unicodeCodePoints"},
            {"results", std::move(results_)}};
        const Json document = {{"$schema", kSchema}, {"version", "2.1.0"}, {"runs", Json::array({run})}};
        return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
    }

  private:
    // Only rules that were broken are described.
    std::size_t IndexOf(const Explanation& rule) {
        const auto [known, isNew] = indices_.try_emplace(rule.name, rules_.size());
        if (isNew)
            rules_.push_back(RuleJson(rule));
        return known->second;
    }

    std::string_view version_;
    Json rules_ = Json::array();
    Json results_ = Json::array();
    std::map<std::string_view, std::size_t> indices_;
    std::map<std::string, int> twins_;
};

}  // namespace

std::string SarifText(const std::vector<CheckedFinding>& findings, std::string_view version) {
    SarifRun run(version);
    for (const CheckedFinding& finding : findings)
        run.Add(finding);
    return run.Text();
}

}  // namespace tovarek
