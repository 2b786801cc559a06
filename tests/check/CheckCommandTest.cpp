// tovarek check as a command: what it prints, its exit status, and the warnings of generate.
#include <gtest/gtest.h>

#include "Program.h"
#include "Slips.h"

namespace tovarek::test {
namespace {

constexpr const char* kGeneral = "[general]\nprogramID=9FFFFF5014030401\n";
// One line of each kind: a cause, what follows from it, and something apart.
constexpr const char* kFaulty =
    "[general]\nprogramID=9FFFFF5014030401\n[nvs]\nnumberOfStaticNvs=none\n[nv1]\nname=a\n[tags]\n"
    "numberOfTags=1\n[tag1]\n\tname=t\nbindable=2\n";

class CheckCommand : public testing::Test {
  protected:
    Answer Run(const std::string& verb, const std::string& text, std::vector<std::string> more = {}) {
        std::vector<std::string> arguments = {verb,
                                              "--catalogDir",
                                              TOVAREK_CATALOG,
                                              "--iniTemplateFile",
                                              path_ = scratch_.File("t.ini", text),
                                              "--mustGenerateTypes",
                                              "false",
                                              "--mustGenerateXif",
                                              "false"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(std::move(arguments));
    }

    Scratch scratch_;
    std::string path_;
};

TEST_F(CheckCommand, AFindingHasPlaceLineMarkAndNotes) {
    const Answer answer = Run("check", kFaulty);
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.error, "");
    EXPECT_EQ(
        answer.out,
        path_ + ":4:19: warning: \"none\" is not a number; it is read as 0 [not-a-number]\n" +
            "    numberOfStaticNvs=none\n                      ^~~~\n" +
            "    note: line 5: section [nv1] is not read: numberOfStaticNvs is 0\n" + path_ +
            ":11:10: error: message tag 1 (t), bindable \"2\": Bad tag binable flag; accepted: 0 to 1 [77 "
            "tagbindable]\n    bindable=2\n             ^\n1 error, 1 warning\n");
    const Answer indented = Run("check", std::string(kGeneral) + "\textra=1\n");
    EXPECT_NE(indented.out.find("\n     extra=1\n     ^~~~~\n"), std::string::npos) << indented.out;
    const Answer colored = Run("check", kFaulty, {"--color", "never", "--color", "always"});
    EXPECT_NE(colored.out.find("\x1B[1;31merror: \x1B[0m"), std::string::npos) << colored.out;
}

TEST_F(CheckCommand, EachInputOfTheTypesThatIsNotSetIsToldWithItsOwnReason) {
    const Answer answer = Run("check", kGeneral,
                              {"--mustGenerateTypes", "true", "--typeFilesDirectory", scratch_.Folder(),
                               "--typeFilesBaseName", "x", "--userTypeFilePath", scratch_.Folder()});
    const std::string without = "; a device without types of its own needs mustGenerateTypes false [";
    for (const std::string& told :
         {"the file name is empty; typeFilesXMLFormat is not set" + without + "89 ",
          "; the template does not name a user type file (userTypeFile in [general], USERCPFILE)" + without +
              "128 "})
        EXPECT_NE(answer.out.find(told), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find("2 errors, 0 warnings"), std::string::npos) << answer.out;
}

TEST_F(CheckCommand, SectionsOfTheFirstLinesAreTold) {
    const Answer first = Run("check", "[genera]\n");
    EXPECT_TRUE(first.out.starts_with(path_ + ":1:1: error: ")) << first.out;
    const Answer meant =
        Run("check", "[nv]\nnumberOfStaticNvs=1\n" + std::string(kGeneral) + "[nv1]\nname=a\n");
    EXPECT_TRUE(
        meant.out.ends_with("note: line 5: section [nv1] is not read: there is no numberOfStaticNvs in "
                            "[nvs]\n0 errors, 1 warning\n"))
        << meant.out;
    const Answer joined = Run("check", "[nv1]\n[nv2]\n[nvs]\nnumberOfStaticNvs=0\n" + std::string(kGeneral));
    EXPECT_NE(joined.out.find("note: line 2: section [nv2] is not read"), std::string::npos) << joined.out;
}

TEST_F(CheckCommand, TheStatusTellsErrorsAndWarningsThatCountAsSuch) {
    const std::string right = kGeneral;
    const std::string odd = right + "extra=1\n";
    const struct {
        std::string text;
        std::vector<std::string> more;
        int status;
    } rows[] = {
        {right, {"--warnings-as-errors"}, 0},
        {odd, {}, 0},
        {odd, {"--warnings-as-errors"}, 1},
        {odd, {"--warnings-as-errors", "--ignore", "ignored-key"}, 0},
        {odd, {"--warnings-as-errors", "--ignore", "ignored-section"}, 1},
        {kFaulty, {}, 1},
        {right, {"--ignore", "ignored-keys"}, 2},
        {right, {"--color", "red"}, 2},
        {right, {"--nonsense", "1"}, 2},
    };
    for (const auto& row : rows) {
        const Answer answer = Run("check", row.text, row.more);
        EXPECT_EQ(answer.status, row.status) << answer.out << answer.error;
    }
    EXPECT_NE(Run("check", right, {"--ignore", "ignored-keys"}).error.find("did you mean 'ignored-key'?"),
              std::string::npos);
    EXPECT_FALSE(FileExists(scratch_.Path("node.xif")));
}

TEST_F(CheckCommand, GenerateTellsTheSameWarnings) {
    const std::string odd = std::string(kGeneral) + "extra=1\n";
    const Answer checked = Run("check", odd);
    const Answer generated = Run("generate", odd);
    EXPECT_EQ(generated.status, 0);
    EXPECT_EQ(generated.error + "0 errors, 1 warning\n", checked.out);
    EXPECT_EQ(Run("generate", odd, {"--no-warnings"}).error, "");
    const Json json = Json::parse(Run("generate", odd, {"--format", "json"}).out);
    EXPECT_EQ(json["warnings"], Json::parse(Run("check", odd, {"--format", "json"}).out)["findings"]);
    EXPECT_EQ(json["warnings"][0]["column"], 1);
    EXPECT_EQ(json["warnings"][0]["endColumn"], 6);
    // A run that fails tells them up to the error.
    const Answer failed = Run("generate", kFaulty);
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.error.starts_with(path_ + ":4:19: warning: ")) << failed.error;
    EXPECT_NE(failed.error.find("tovarek: error 0x8004004D"), std::string::npos) << failed.error;
}

TEST_F(CheckCommand, SourcesThatOverruleEachOtherAreToldWhereTheyAreGiven) {
    const std::string other = scratch_.File("o.ini", kGeneral);
    const std::string job =
        scratch_.File("job.json", "{\n \"xmlTemplateFile\": \"t.ini\",\n \"iniTemplateFile\": \"o.ini\"\n}");
    const Json findings =
        Json::parse(Run("check", kGeneral, {"--job", job, "--format", "json"}).out)["findings"];
    ASSERT_EQ(findings.size(), 1U) << findings.dump();
    EXPECT_EQ(findings[0]["name"], "overruled-source");
    EXPECT_EQ(findings[0]["file"], job);
    EXPECT_EQ(findings[0]["line"], 2);
    EXPECT_EQ(findings[0]["column"], 2);
    // A command line that overrules a job is meant.
    const std::string plain = scratch_.File("plain.json", "{\"xmlTemplateFile\": \"t.ini\"}");
    EXPECT_EQ(Run("check", kGeneral, {"--job", plain, "--iniTemplateFile", other}).out,
              "0 errors, 0 warnings\n");
    EXPECT_NE(Run("check", kGeneral, {"--xmlTemplateFile", "x", "--iniTemplateFile", other})
                  .out.find("iniTemplateFile is not read: xmlTemplateFile behind it takes its place"),
              std::string::npos);
}

TEST_F(CheckCommand, FiveSlipsGiveFiveFindings) {
    const Answer answer =
        Run("check", std::string(kGeneral) +
                         "extra=1\n[nvs]\nnumberOfStaticNvs=2\nmaximumNumberOfNvs=2\n"
                         "[nv1]\nname=a\ntype=105\ndirection=output\n"
                         "[nv2]\nname=b\ntype=300\ndirection=1\nlength=32\npolled=yes\n[nv3]\n");
    EXPECT_TRUE(answer.out.ends_with("1 error, 4 warnings\n")) << answer.out;
}

}  // namespace
}  // namespace tovarek::test
