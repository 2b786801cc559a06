#include "report/SarifDocument.h"

#include <algorithm>
#include <cstdint>

#include "base/Text.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr const char* kSchema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
// Paths count from here; whoever shows the results puts the folder of the sources in its place.
constexpr const char* kBase = "%SRCROOT%";

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

SarifJson FileJson(const std::string& file) {
    const std::string path = FromCurrentFolder(file);
    if (path.starts_with('/'))
        return {{"uri", "file://" + UriOf(path)}};
    // A drive stands in front.
    if (path.size() > 1 && path[1] == ':')
        return {{"uri", "file:///" + path.substr(0, 2) + UriOf(path.substr(2))}};
    return {{"uri", UriOf(path)}, {"uriBaseId", kBase}};
}

SarifJson PlaceJson(const SarifPlace& at) {
    SarifJson place = {{"artifactLocation", FileJson(at.file)}};
    if (at.line > 0)
        place["region"]["startLine"] = at.line;
    if (at.line > 0 && at.column > 0) {
        place["region"]["startColumn"] = at.column;
        place["region"]["endColumn"] = at.column + std::max(at.width, 1);
    }
    return {{"physicalLocation", std::move(place)}};
}

SarifJson FixJson(const SarifResult& result) {
    SarifJson replacements = SarifJson::array();
    for (const Piece& piece : result.mend)
        replacements.push_back({{"deletedRegion",
                                 {{"startLine", piece.line},
                                  {"startColumn", piece.column},
                                  {"endColumn", piece.column + piece.width}}},
                                {"insertedContent", {{"text", piece.text}}}});
    SarifJson change = {{"artifactLocation", FileJson(result.place.file)},
                        {"replacements", std::move(replacements)}};
    return {{"description", {{"text", "what 'tovarek check --fix' writes"}}},
            {"artifactChanges", SarifJson::array({std::move(change)})}};
}

SarifJson RuleJson(const SarifRule& rule) {
    return {{"id", rule.name},
            {"shortDescription", {{"text", rule.message}}},
            {"fullDescription", {{"text", rule.meaning}}},
            {"help", {{"text", rule.mend}, {"markdown", rule.markdown}}},
            {"defaultConfiguration", {{"level", rule.level}}}};
}

}  // namespace

std::size_t SarifDocument::IndexOf(const SarifRule& rule) {
    const auto [known, isNew] = indices_.try_emplace(std::string(rule.name), rules_.size());
    if (isNew)
        rules_.push_back(RuleJson(rule));
    return known->second;
}

std::string SarifDocument::Fingerprint(const std::vector<std::string_view>& identity) {
    std::string what;
    for (const std::string_view part : identity)
        what.append(part).append(1, '\n');
    // FNV-1a: short, and the same on every platform.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : what)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    std::string text;
    AppendHex(text, hash, 16);
    return text + ':' + std::to_string(++twins_[text]);
}

void SarifDocument::Add(const SarifRule& rule, SarifResult result) {
    SarifJson related = SarifJson::array();
    for (const SarifPlace& other : result.related) {
        SarifJson& place = related.emplace_back(PlaceJson(other));
        place["id"] = related.size();
        place["message"]["text"] = other.text;
    }
    SarifJson json = {{"ruleId", rule.name},
                      {"ruleIndex", IndexOf(rule)},
                      {"level", result.level},
                      {"message", {{"text", std::move(result.message)}}}};
    if (!result.place.file.empty())
        json["locations"].push_back(PlaceJson(result.place));
    if (!related.empty())
        json["relatedLocations"] = std::move(related);
    if (!result.mend.empty())
        json["fixes"].push_back(FixJson(result));
    json["partialFingerprints"]["primaryLocationLineHash"] = Fingerprint(result.identity);
    results_.push_back(std::move(json));
}

std::string SarifDocument::Text() {
    SarifJson driver = {{"name", "tovarek"}, {"semanticVersion", version_}, {"rules", std::move(rules_)}};
    SarifJson run = {
        {"tool", {{"driver", std::move(driver)}}},
        {"invocations", {{{"executionSuccessful", true}}}},
        {"originalUriBaseIds", {{kBase, {{"description", {{"text", "the folder that tovarek ran in"}}}}}}},
        {"columnKind", "unicodeCodePoints"},
        {"results", std::move(results_)}};
    if (!properties_.empty())
        run["properties"] = std::move(properties_);
    const SarifJson document = {
        {"$schema", kSchema}, {"version", "2.1.0"}, {"runs", SarifJson::array({std::move(run)})}};
    return document.dump(2, ' ', false, SarifJson::error_handler_t::replace) + '\n';
}

}  // namespace tovarek
