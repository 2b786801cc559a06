// The formats in which code hosts and build servers take findings.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "Program.h"
#include "Scratch.h"
#include "cli/Json.h"

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
