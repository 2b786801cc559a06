// The formats in which code hosts and build servers take findings.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "Program.h"
#include "Scratch.h"
#include "cli/Json.h"
#include "explain/Explanations.h"
#include "explain/FindingsDocument.h"
#include "report/FindingText.h"

namespace tovarek::test {
namespace {

constexpr const char* kFaultyTexts =
    "[general]\nprogramID=9FFFFF5014030401\n[nvs]\nnumberOfStaticNvs=none\n[nv1]\nname=a\n[tags]\n"
    "numberOfTags=1\n[tag1]\nname=t & \"u\"\nbindable=2\n";

class Formats : public testing::Test {
  protected:
    Formats() : before_(std::filesystem::current_path()) { std::filesystem::current_path(scratch_.Folder()); }
    ~Formats() override { std::filesystem::current_path(before_); }

    std::string Check(const std::string& text, std::vector<std::string> more) {
        scratch_.File("t 1.ini", text);
        std::vector<std::string> arguments = {
            "check",     "--catalogDir",        TOVAREK_CATALOG, "--iniTemplateFile",
            "./t 1.ini", "--mustGenerateTypes", "false",         "--mustGenerateXif",
            "false"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments).out;
    }
    Json Run(const std::string& text, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--format", "sarif"});
        return Json::parse(Check(text, std::move(more)))["runs"][0];
    }

    Scratch scratch_;
    std::filesystem::path before_;
};

TEST_F(Formats, SarifHasRulesPlacesAndNotes) {
    const Json run = Run(kFaultyTexts);
    ASSERT_EQ(run["results"].size(), 3U) << run.dump(1);
    const Json& number = run["results"][0];
    EXPECT_EQ(number["ruleId"], "not-a-number");
    EXPECT_EQ(number["level"], "warning");
    EXPECT_EQ(number["message"]["text"], "\"none\" is not a number; it is read as 0");
    const Json& place = number["locations"][0]["physicalLocation"];
    EXPECT_EQ(place["artifactLocation"]["uri"], "t%201.ini");
    EXPECT_EQ(place["region"], Json::parse(R"({"startLine":4,"startColumn":19,"endColumn":23})"));
    EXPECT_EQ(number["relatedLocations"][0]["physicalLocation"]["region"]["startLine"], 5);
    EXPECT_EQ(run["results"][2]["level"], "error");
    for (const Json& result : run["results"]) {
        const Json& rule = run["tool"]["driver"]["rules"][result["ruleIndex"].get<std::size_t>()];
        EXPECT_EQ(rule["id"], result["ruleId"]);
        EXPECT_EQ(rule["defaultConfiguration"]["level"], result["level"]);
        EXPECT_NE(rule["help"]["markdown"].get<std::string>().find("**Mend.** "), std::string::npos);
    }
    EXPECT_EQ(Run("[general]\nprogramID=9FFFFF5014030401\n")["results"], Json::array());
}

TEST_F(Formats, SarifHasTheMends) {
    const Json fix = Run("[general]\nprogramId=9FFFFF5014030401\nselfDock=x\n")["results"][0]["fixes"][0];
    const Json& change = fix["artifactChanges"][0];
    EXPECT_EQ(change["artifactLocation"]["uri"], "t%201.ini");
    EXPECT_EQ(change["replacements"][0]["deletedRegion"],
              Json::parse(R"({"startLine":3,"startColumn":1,"endColumn":9})"));
    EXPECT_EQ(change["replacements"][0]["insertedContent"]["text"], "selfDoc");
}

// The document as a whole; what its rules say is what the explanations say.
TEST_F(Formats, SarifIsOneDocument) {
    std::string texts(kFaultyTexts);
    texts.insert(texts.find("[nvs]"), "selfDock=x\n");
    Json document = Json::parse(Check(texts, {"--format", "sarif"}));
    Json& driver = document["runs"][0]["tool"]["driver"];
    EXPECT_TRUE(driver["semanticVersion"].is_string());
    driver.erase("semanticVersion");
    for (Json& rule : driver["rules"]) {
        const Explanation& meant = ExplanationOf(rule["id"].get<std::string>());
        const std::string level = meant.IsError() ? "error" : "warning";
        EXPECT_EQ(
            rule,
            (Json{{"id", meant.name},
                  {"shortDescription", {{"text", meant.message}}},
                  {"fullDescription", {{"text", std::string(meant.meaning) + ' ' + std::string(meant.why)}}},
                  {"help", {{"text", meant.mend}, {"markdown", MarkdownOf(meant)}}},
                  {"defaultConfiguration", {{"level", level}}}}));
        rule = rule["id"];
    }
    const std::string file = R"("artifactLocation":{"uri":"t%201.ini","uriBaseId":"%SRCROOT%"})";
    const auto result = [&](const std::string& head, const std::string& message, const char* region,
                            const std::string& more, const char* print) {
        return R"({"ruleId":)" + head + R"(,"message":{"text":")" + message +
               R"("},"locations":[{"physicalLocation":{)" + file + R"(,"region":{)" + region + "}}}]," +
               more + R"("partialFingerprints":{"primaryLocationLineHash":")" + print + "\"}}";
    };
    const std::string wanted =
        R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
        R"("version":"2.1.0","runs":[{"tool":{"driver":{"name":"tovarek","rules":)"
        R"(["ignored-key","not-a-number","blank-in-name","tagbindable"]}},)"
        R"("invocations":[{"executionSuccessful":true}],"originalUriBaseIds":{"%SRCROOT%":{"description":)"
        R"({"text":"the folder that tovarek ran in"}}},"columnKind":"unicodeCodePoints","results":[)" +
        result(
            R"("ignored-key","ruleIndex":0,"level":"warning")",
            R"(\"selfDock\" is not read: [general] has no key of this name; did you mean 'selfDoc'?)",
            R"("startLine":3,"startColumn":1,"endColumn":9)",
            R"("fixes":[{"description":{"text":"what 'tovarek check --fix' writes"},"artifactChanges":[{)" +
                file +
                R"(,"replacements":[{"deletedRegion":{"startLine":3,"startColumn":1,"endColumn":9},)"
                R"("insertedContent":{"text":"selfDoc"}}]}]}],)",
            "16E3F0A08AA4B2AC:1") +
        ',' +
        result(R"("not-a-number","ruleIndex":1,"level":"warning")",
               R"(\"none\" is not a number; it is read as 0)",
               R"("startLine":5,"startColumn":19,"endColumn":23)",
               R"("relatedLocations":[{"physicalLocation":{)" + file +
                   R"(,"region":{"startLine":6}},"id":1,)"
                   R"("message":{"text":"section [nv1] is not read: numberOfStaticNvs is 0"}}],)",
               "4298E2C73621C916:1") +
        ',' +
        result(
            R"("blank-in-name","ruleIndex":2,"level":"warning")",
            R"(\"t & \"u\"\" has white space in it; other programs refuse the file or read the name up to there)",
            R"("startLine":11,"startColumn":6,"endColumn":13)", "", "8B3C5972C8E66D7B:1") +
        ',' +
        result(R"("tagbindable","ruleIndex":3,"level":"error")",
               R"(message tag 1 (t & \"u\"), bindable \"2\": Bad tag binable flag; accepted: 0 to 1)",
               R"("startLine":12,"startColumn":10,"endColumn":11)", "", "2C2AA7B5CBBC6446:1") +
        "]}]}";
    EXPECT_EQ(document.dump(), Json::parse(wanted).dump());
}

// The mark stands under the piece, and no line is longer than a screen's.
TEST(FindingText, MarksThePieceInItsLine) {
    const auto written = [](int column, int width, const std::string& source, bool inColor) {
        CheckedFinding finding{.isError = inColor, .error = ErrorValue(77), .name = "x", .message = "m"};
        finding.context = {.file = "f", .line = 3};
        finding.column = column;
        finding.width = width;
        finding.source = source;
        finding.notes = {
            {.text = "a"}, {.file = "f", .line = 4, .text = "b"}, {.file = "g", .line = 5, .text = "c"}};
        std::ostringstream out;
        WriteFindings({finding}, inColor, out);
        return out.str();
    };
    const std::string notes = "    note: a\n    note: line 4: b\n    note: g:5: c\n";
    const std::string line(200, 'y');
    const std::string cut = "    " + line.substr(0, 160) + "\n    ";
    const struct {
        int column;
        int width;
        std::string source;
        std::string place;
        std::string marked;
    } rows[] = {{2, 3, "a\tbcd", ":2", "    a bcd\n     ^~~\n"},
                {1, 0, "ab", ":1", "    ab\n    ^\n"},
                {0, 1, "ab", "", ""},
                {1, 1, "", ":1", ""},
                {160, 9, line, ":160", cut + std::string(159, ' ') + "^\n"},
                {159, 9, line, ":159", cut + std::string(158, ' ') + "^~\n"},
                {161, 1, line, ":161", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(written(row.column, row.width, row.source, false),
                  "f:3" + row.place + ": warning: m [x]\n" + row.marked + notes);
    EXPECT_EQ(
        written(1, 2, "ab", true),
        "\x1B[1mf:3:1: \x1B[0m\x1B[1;31merror: \x1B[0mm [77 x]\n    ab\n    \x1B[1;32m^~\x1B[0m\n" + notes);
    EXPECT_EQ(PlaceText("f", 0, 5), "f");
}

// What stays is recognised, what is new is not taken for it.
TEST_F(Formats, FingerprintsStayWhenLinesAreAdded) {
    const auto prints = [&](const std::string& text) {
        std::vector<std::string> all;
        const Json run = Run(text);
        for (const Json& result : run["results"])
            all.push_back(result["partialFingerprints"]["primaryLocationLineHash"]);
        return all;
    };
    const std::vector<std::string> before = prints(kFaultyTexts);
    EXPECT_EQ(prints("; one\n; two\n" + std::string(kFaultyTexts)), before);
    const std::string head = "[general]\nprogramID=9FFFFF5014030401\n";
    const std::vector<std::string> twins = prints(head + "a=1\n[x]\n[general]\nb=1\n[y]\n[x]\n");
    EXPECT_EQ(std::set<std::string>(twins.begin(), twins.end()).size(), twins.size());
    EXPECT_NE(prints(head + "a=1\n"), prints(head + "b=1\n"));
}

TEST_F(Formats, PathsAreRelativeOnlyInsideTheCurrentFolder) {
    const Scratch other;
    const std::string outside = other.File("o.ini", kFaultyTexts);
    std::filesystem::create_directory("sub");
    const std::string inside = scratch_.File("sub/i.ini", kFaultyTexts);
    const std::pair<std::string, std::string> rows[] = {
        {inside, "sub/i.ini"}, {"sub/../sub/i.ini", "sub/i.ini"}, {outside, "/o.ini"}};
    for (const auto& [path, end] : rows) {
        const Json at = Run("", {"--iniTemplateFile",
                                 path})["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"];
        const std::string uri = at["uri"];
        EXPECT_EQ(at.contains("uriBaseId"), uri == end) << uri;
        EXPECT_TRUE(uri == end || (uri.starts_with("file:///") && uri.ends_with(end))) << uri;
    }
}

TEST_F(Formats, JunitHasATestForEachInput) {
    const std::string profile = scratch_.File("p.ini", "");
    const std::string text = Check(kFaultyTexts, {"--format", "junit", "--iniProfileFile", profile});
    EXPECT_EQ(
        text,
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<testsuites tests=\"2\" failures=\"1\" errors=\"0\">\n"
        "  <testsuite name=\"tovarek check\" tests=\"2\" failures=\"1\" errors=\"0\">\n"
        "    <testcase name=\"p.ini\" classname=\"tovarek.check\" time=\"0\">\n    </testcase>\n"
        "    <testcase name=\"t 1.ini\" classname=\"tovarek.check\" time=\"0\">\n"
        "      <failure message=\"message tag 1 (t &amp; &quot;u&quot;), bindable &quot;2&quot;: Bad tag "
        "binable flag; accepted: 0 to 1\" type=\"tagbindable\">\n"
        "./t 1.ini:11:10: error: message tag 1 (t &amp; \"u\"), bindable \"2\": Bad tag binable flag; "
        "accepted: 0 to 1 [77 tagbindable]\n    bindable=2\n             ^\n</failure>\n"
        "      <system-out>\n"
        "./t 1.ini:4:19: warning: \"none\" is not a number; it is read as 0 [not-a-number]\n"
        "    numberOfStaticNvs=none\n                      ^~~~\n"
        "    note: line 5: section [nv1] is not read: numberOfStaticNvs is 0\n"
        "./t 1.ini:10:6: warning: \"t &amp; \"u\"\" has white space in it; other programs refuse the "
        "file or read the name up to there [blank-in-name]\n    name=t &amp; \"u\"\n         ^~~~~~~\n"
        "</system-out>\n    </testcase>\n  </testsuite>\n</testsuites>\n");
    const std::string strict = Check(kFaultyTexts, {"--format", "junit", "--warnings-as-errors"});
    EXPECT_EQ(strict.find("system-out"), std::string::npos) << strict;
    const std::string noFile = Check(kFaultyTexts, {"--format", "junit", "--mustGenerateXif", "true"});
    EXPECT_NE(noFile.find("<testcase name=\"tovarek\""), std::string::npos) << noFile;
}

}  // namespace
}  // namespace tovarek::test
