// Comments and options that say that a warning is meant.
#include <gtest/gtest.h>

#include "Program.h"
#include "Scratch.h"
#include "base/Text.h"
#include "cli/Json.h"

namespace tovarek::test {
namespace {

class Meant : public testing::Test {
  protected:
    Answer Run(const std::string& verb, const std::string& text, std::vector<std::string> more) {
        const bool isXml = text.substr(0, 2).find('<') != std::string::npos;
        const std::string path = scratch_.File(isXml ? "t.xml" : "t.ini", text);
        std::vector<std::string> arguments = {
            verb,   "--catalogDir",        TOVAREK_CATALOG, isXml ? "--xmlTemplateFile" : "--iniTemplateFile",
            path,   "--mustGenerateTypes", "false",         "--mustGenerateXif",
            "false"};
        if (isXml)
            more.insert(more.end(), {"--xmlTemplateNodeName", "D"});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }
    // All findings as "LINE NAME; ...".
    std::string Findings(const std::string& text, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--format", "json"});
        const Json answer = Json::parse(Run("check", text, more).out);
        std::string findings;
        for (const Json& finding : answer["findings"])
            findings += (findings.empty() ? "" : "; ") + std::to_string(finding.value("line", 0)) + " " +
                        finding["name"].get<std::string>();
        return findings;
    }

    Scratch scratch_;
};

constexpr const char* kHead = "[general]\nprogramID=9FFFFF5014030401\n";

TEST_F(Meant, CommentsCountForWhatFollowsThem) {
    const std::string head = kHead;
    const std::string xmlHead = "<D>\n<PROGRAMID>9FFFFF5014030401</PROGRAMID>\n";
    const struct {
        std::string text;
        const char* findings;
    } rows[] = {
        {head + "a=1\n", "3 ignored-key"},
        {head + "; tovarek: ignore ignored-key\na=1\n", ""},
        {head + "; tovarek: ignore ignored-key\n\n; a remark\n  a=1\nb=1\n", "7 ignored-key"},
        {head + ";tovarek:ignore duplicate-key, ignored-key\na=1\n", "3 unused-ignore"},
        {"; tovarek: ignore ignored-key\n" + head + "a=1\nb=1\n[x]\n", "6 ignored-section"},
        {"; tovarek: ignore ignored-key\n" + head + "a=1\n; tovarek: ignore ignored-key\nb=1\n", ""},
        {"; tovarek: ignore ignored-key\n" + head + "; tovarek: ignore ignored-key\na=1\nb=1\n", ""},
        {head + "; tovarek: ignore ignored-key\n; tovarek: ignore ignored-key\na=1\n", "3 unused-ignore"},
        {head + "; tovarek: ignore ignored-key\nselfDoc=x\na=1\n", "3 unused-ignore; 5 ignored-key"},
        {head + "a=1\n; tovarek: ignore ignored-key\n", "3 ignored-key; 4 unused-ignore"},
        {head + "; tovarek: ignore ignored-keys\na=1\n", "3 unused-ignore; 4 ignored-key"},
        {head + "; tovarek ignore ignored-key\na=1\n", "4 ignored-key"},
        {head + "; tovarek: allow ignored-key\na=1\n", "4 ignored-key"},
        {head + "[tags]\nnumberOfTags=1\n[tag1]\nname=t\n; tovarek: ignore tagbindable\nbindable=2\n",
         "7 unused-ignore; 8 tagbindable"},
        {xmlHead + "<A/><!-- tovarek: ignore ignored-element --><B/><C/></D>",
         "3 ignored-element; 3 ignored-element"},
        {xmlHead + "<!-- tovarek: ignore ignored-element -->\n<CPLIST><A/>\n<B/></CPLIST><C/></D>",
         "5 ignored-element"},
        {"<D a='1'><!-- tovarek: ignore ignored-attribute -->\n" + xmlHead.substr(3) + "<E b='1'/></D>",
         "4 ignored-element"},
        {xmlHead + "<!-- tovarek: ignore ignored-text --></D>", "3 unused-ignore"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Findings(row.text), row.findings) << row.text;
    // With another encoding the comment is found as well.
    EXPECT_EQ(Findings("\xFF\xFE" + ToUtf16(head + "; tovarek: ignore ignored-key\na=1\n", false)), "");
    const std::string xml = xmlHead +
                            "<!-- tovarek: ignore ignored-element --><B/><MAXIMUMNUMBEROFNVS>x<"
                            "/MAXIMUMNUMBEROFNVS></D>";
    for (const bool bigEndian : {false, true})
        EXPECT_EQ(Run("check", ToUtf16(xml, bigEndian), {}).out, Run("check", xml, {}).out);
}

TEST_F(Meant, OptionsThatLeaveNothingOutAreTold) {
    const std::string odd = std::string(kHead) + "a=1\n";
    EXPECT_EQ(Findings(odd, {"--ignore", "ignored-key"}), "");
    EXPECT_EQ(Findings(odd, {"--ignore", "ignored-section"}), "0 unused-ignore; 3 ignored-key");
    EXPECT_EQ(Findings(odd, {"--ignore", "ignored-section", "--ignore", "unused-ignore"}), "3 ignored-key");
    // It says why: nothing to leave out, or no such name.
    const std::string marked = "; tovarek: ignore ignored-sections, odd-quote\n" + odd;
    const std::string told = Run("check", marked, {"--ignore", "ignored-section"}).out;
    for (const char* reason :
         {"--ignore ignored-section leaves nothing out: there is no such warning in the job",
          "this leaves nothing out: there is no such warning here",
          "there is no warning 'ignored-sections' to ignore; did you mean 'ignored-section'?"})
        EXPECT_NE(told.find(reason), std::string::npos) << told;
}

TEST_F(Meant, GenerateHeedsTheSameComments) {
    const std::string head = kHead;
    const std::string meant = head + "; tovarek: ignore ignored-key\na=1\n; tovarek: ignore ignored-key\n";
    EXPECT_EQ(Run("generate", meant, {}).error + "0 errors, 1 warning\n", Run("check", meant, {}).out);
    EXPECT_EQ(Run("generate", meant, {"--no-warnings"}).error, "");
    // A run that fails has not looked at all, so it does not say what ignores nothing.
    const Answer failed = Run("generate", meant + "[tags]\nnumberOfTags=15\n", {});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.error.find("unused-ignore"), std::string::npos) << failed.error;
}

}  // namespace
}  // namespace tovarek::test
