#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "../component/Device.h"
#include "Program.h"
#include "cli/Assignments.h"
#include "cli/Depfile.h"
#include "cli/ManPage.h"
#include "cli/OpenCatalog.h"
#include "cli/Progress.h"
#include "cli/Report.h"
#include "cli/Verbs.h"
#include "formats/type/TypeFile.h"

namespace tovarek::test {
namespace {

// A device without types of its own.
constexpr const char* kTemplateXml =
    "<x><D><PROGRAMID>9000010A0B040100</PROGRAMID><USERCPFILE>user.xml</USERCPFILE>"
    "<NVS><nviA><DIRECTION>INPUT</DIRECTION><SNVTTYPE>8</SNVTTYPE></nviA></NVS></D></x>";

std::vector<std::string> Words(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

class CommandLine : public testing::Test {
  protected:
    CommandLine() {
        SetVariable("SOURCE_DATE_EPOCH", "1795254067");
        profile_ = scratch_.File("profile.ini", kProfileIni);
        template_ = scratch_.File("template.ini", kTemplateIni);
        xif_ = scratch_.Path("node.xif");
        base_ = {"generate",
                 "--catalogDir",
                 TOVAREK_CATALOG,
                 "--mustGenerateTypes",
                 "false",
                 "--iniProfileFile",
                 profile_,
                 "--iniTemplateFile",
                 template_,
                 "--outputXIFfile",
                 xif_};
    }
    ~CommandLine() override { UnsetVariable("SOURCE_DATE_EPOCH"); }

    Answer Generate(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = base_;
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }

    Scratch scratch_;
    std::string profile_, template_, xif_;
    std::vector<std::string> base_;
};

TEST_F(CommandLine, GeneratesAndSaysWhatWasWritten) {
    const Answer run = Generate();
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.out, "wrote " + xif_ + " (" + std::to_string(ReadFile(xif_).size()) + " bytes)\n");
    EXPECT_NE(ReadFile(xif_).find("Run on 11/21/2026 9:41:07 AM"), std::string::npos);
    const auto json = nlohmann::json::parse(Generate({"--format", "json"}).out);
    EXPECT_EQ(json["written"][0]["file"], xif_);
}

TEST_F(CommandLine, TheDateOfABuildIsTakenOrRefused) {
    const std::pair<const char*, const char*> rows[] = {
        {"0", "Run on 1/1/1970"},
        {"253402300799", "Run on 12/31/9999 11:59:59 PM"},
        {"253402300800", ""},
        {"-1", ""},
        {"1e9", ""},
    };
    for (const auto& [seconds, date] : rows) {
        SetVariable("SOURCE_DATE_EPOCH", seconds);
        const Answer run = Generate();
        EXPECT_EQ(run.status, *date == '\0' ? 2 : 0) << seconds;
        if (*date == '\0')
            EXPECT_NE(run.error.find("SOURCE_DATE_EPOCH is '" + std::string(seconds)), std::string::npos);
        else
            EXPECT_NE(ReadFile(xif_).find(date), std::string::npos) << ReadFile(xif_).substr(0, 200);
    }
}

TEST_F(CommandLine, OptionsActInTheOrderInWhichTheyStand) {
    const std::string job =
        scratch_.File("job.json", R"({"iniProfileFile": "job.ini", "mustGenerateXif": true})");
    EXPECT_EQ(Generate({"--job", job}).status, 1) << "the job comes later and wins";
    EXPECT_EQ(Generate({"--job", job, "--set", "iniProfileFile=" + profile_}).status, 0);
    EXPECT_EQ(Generate({"--set", "iniProfileFile=x", "--iniProfileFile", profile_}).status, 0);
    EXPECT_EQ(Generate({"--iniProfileFile", profile_, "--iniProfileFile", "x"}).status, 1);
    // Later sources empty earlier ones, so the order inside a job counts as well.
    const std::string two =
        scratch_.File("two.json", R"({"iniProfileFile": "x", "xifProfileFile": "none.xif"})");
    EXPECT_NE(Generate({"--job", two}).error.find("error 53"), std::string::npos);
}

TEST_F(CommandLine, TheShippedCatalogStandsInWhenNoCatalogIsSet) {
    base_.erase(base_.begin() + 1, base_.begin() + 3);
    EXPECT_EQ(Generate().status, 0);
    const Answer run = Generate({"--catalogFile", std::string(TOVAREK_CATALOG) + "/ldrf.cat"});
    EXPECT_EQ(run.status, 0) << "a file alone is a catalog as well\n" << run.error;
}

TEST_F(CommandLine, TheCatalogInUseIsToldAndNeverReplacedByAnother) {
    const std::string set = "standard set from '" + SystemPath(TOVAREK_CATALOG);
    const auto tells = [&](const Answer& run) {
        return (run.out + run.error).find(set) != std::string::npos;
    };
    std::string unknown = kTemplateIni;
    unknown.replace(unknown.find("type=105"), 8, "type=250");
    const std::string path = scratch_.File("unknown.ini", unknown);
    EXPECT_TRUE(tells(Call({"catalog", "list", "--catalogDir", TOVAREK_CATALOG})));
    EXPECT_TRUE(tells(Generate({"--iniTemplateFile", path})));
    base_.erase(base_.begin() + 1, base_.begin() + 3);
    SetVariable("TOVAREK_CATALOG", TOVAREK_CATALOG);
    EXPECT_TRUE(tells(Call({"catalog", "list"})));
    SetVariable("TOVAREK_CATALOG", scratch_.Path("none"));
    const std::string job = scratch_.File("job.json", R"({"iniTemplateFile": "template.ini"})");
    std::vector<std::string> check = base_;
    check.front() = "check";
    for (const auto& words : {base_, check, {"batch", job}, {"catalog", "list"}, {"dump", profile_}}) {
        const Answer run = Call(words);
        EXPECT_EQ(run.status, 1) << words.front();
        EXPECT_NE((run.out + run.error).find("TOVAREK_CATALOG names this folder"), std::string::npos)
            << words.front() << run.out << run.error;
    }
    EXPECT_EQ(Call({"catalog", "list", "--catalogDir", TOVAREK_CATALOG}).status, 0)
        << "an option comes first";
    UnsetVariable("TOVAREK_CATALOG");
}

TEST_F(CommandLine, FailuresNameNumberMessageAndPlace) {
    std::string broken = kTemplateIni;
    broken.replace(broken.find("direction=1"), 11, "direction=7");
    const std::string path = scratch_.File("broken.ini", broken);
    const Answer run = Generate({"--iniTemplateFile", path});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    // The tag is read otherwise than an XML template would, which is told first.
    EXPECT_TRUE(run.error.starts_with(path + ":41:1: warning: ")) << run.error;
    EXPECT_NE(run.error.find(
                  "\ntovarek: error 0x8004003C eQVXIFerr_nvdirection: Bad network variable direction.\n"),
              std::string::npos)
        << run.error;
    EXPECT_NE(run.error.find("network variable 2 (nvoFlows)"), std::string::npos);
    const auto json = nlohmann::json::parse(Generate({"--iniTemplateFile", path, "--format", "json"}).out);
    EXPECT_EQ(json["error"], -2147221444);
    EXPECT_EQ(json["name"], "eQVXIFerr_nvdirection");
    EXPECT_EQ(json["description"], "Bad network variable direction.");
    EXPECT_EQ(json["source"], "QVTovarek");
    EXPECT_EQ(json["context"]["field"], "direction");
    EXPECT_EQ(json["context"]["value"], "7");
    EXPECT_EQ(json["context"]["file"], path);
    EXPECT_GT(json["context"]["line"], 1);
}

TEST(Depfile, EscapesWhatDividesNames) {
    EXPECT_EQ(DepfileText("a b", {"in\\c", "#$d\te:f"}), "a\\ b: \\\n  in/c \\\n  \\#$$d\\\te\\:f\n");
    EXPECT_THROW(DepfileText("a", {"b\nc"}), WrongUse);
    EXPECT_THROW(DepfileText("a\rb", {}), WrongUse);
}

TEST_F(CommandLine, WrongUseHasItsOwnStatusAndHelps) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"--outputXIF", "x"}, "outputXIFfile"},
        {{"--set", "iniProfilFile=x"}, "iniProfileFile"},
        {{"--set", "novalue"}, "NAME=VALUE"},
        {{"--mustGenerateXif", "maybe"}, "true or false"},
        {{"--localeID", "2147483648"}, "whole number"},
        {{"--localeID"}, "option '--localeID' needs a value"},
        {{"--format", "xml"}, "give --format text or --format json"},
        {{"--no-warnings=1"}, "option '--no-warnings' takes no value"},
        {{"--depfile", "x.d"}, "--depfile needs --stamp FILE"},
        {{"--stamp", profile_}, "' would overwrite the input iniProfileFile '"},
        {{"--stamp", scratch_.Path("x"), "--depfile", profile_},
         "' would overwrite the input iniProfileFile '"},
        {{"--quiet"}, "there is no option '--quiet' for 'tovarek generate'\n"},
        {{"--iniProfilFile", "x"}, "did you mean '--iniProfileFile'?"},
        {{"--job", "missing.json"}, "missing.json"},
        {{"--job", scratch_.File("comma.json", "{\n  \"localeID\": 1,\n}")},
         "is not valid JSON at line 3, column 1: unexpected '}'; expected string literal"},
        {{"--xmlProfileNode", "nomark"}, "FILE#ELEMENT"},
        {{"extra"}, "'extra' is one word too many"},
    };
    for (const auto& [arguments, hint] : rows) {
        const Answer run = Generate(arguments);
        EXPECT_EQ(run.status, 2) << arguments.front();
        EXPECT_NE(run.error.find(hint), std::string::npos) << run.error;
    }
    EXPECT_EQ(Call({}).status, 2);
    EXPECT_EQ(Call({"genrate"}).status, 2);
    EXPECT_EQ(Call({"catalog"}).status, 2);
    SetVariable("SOURCE_DATE_EPOCH", "yesterday");
    EXPECT_EQ(Generate().status, 2);
}

// Programs read standard output alone, whatever went wrong.
TEST_F(CommandLine, JsonIsJsonAlways) {
    const std::string xif = scratch_.File("a.xif",
                                          "File: a generated by T, XIF Version 4.0\nc\nr\n\n"
                                          "90:00:00:00:00:00:00:00\n1\n*\n*\n");
    const std::string fmt = scratch_.File("a.fmt", "");
    struct Case {
        std::vector<std::string> arguments;
        int status;
        const char* name;
    };
    for (const Case& each : std::vector<Case>{
             {{}, 2, "wrongUse"},
             {{"genrate"}, 2, "wrongUse"},
             {{"catalog"}, 2, "wrongUse"},
             {{"dump"}, 2, "wrongUse"},
             {{"diff", xif}, 2, "wrongUse"},
             {{"diff", xif, fmt}, 2, "wrongUse"},
             {{"diff", xif, scratch_.Path("none.xif")}, 2, "fileNotFound"},
             {{"generate", "--localeID", "x"}, 2, "wrongUse"},
             {{"generate", "--iniProfilFile", "x"}, 2, "wrongUse"},
             {{"generate", "--job", scratch_.Path("none.json")}, 2, "wrongUse"},
             {{"catalog", "show", "SNVT_temp_q", "--catalogDir", TOVAREK_CATALOG}, 1, "unknownType"}}) {
        std::vector<std::string> arguments = {"--format", "json"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, each.status) << run.out;
        const auto json = nlohmann::json::parse(run.out, nullptr, false);
        ASSERT_TRUE(json.is_object()) << run.out << run.error;
        EXPECT_EQ(json["name"], each.name) << run.out;
        EXPECT_FALSE(json["description"].empty());
        EXPECT_EQ(run.error, "");
    }
    // These end the parsing before the format is seen.
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"generate", "--format=json", "--localeID"},
          {"generate", "--format", "json", "--localeID"}})
        EXPECT_EQ(nlohmann::json::parse(Call(arguments).out, nullptr, false).value("name", ""), "wrongUse");
    EXPECT_EQ(nlohmann::json::parse(Call({"--version", "--format", "json"}).out)["version"], TOVAREK_VERSION);
}

TEST_F(CommandLine, AFailedRunListsWhatItHadWritten) {
    const std::string folder = scratch_.Path("types");
    const std::vector<std::string> failing = {
        "--xmlTemplateNode",    scratch_.File("t.xml", kTemplateXml) + "#D",
        "--mustGenerateTypes",  "true",
        "--typeFilesXMLFormat", scratch_.File("formats.xml", "<types/>"),
        "--userTypeFilePath",   scratch_.Folder(),
        "--typeFilesDirectory", folder,
        "--outputXIFfile",      scratch_.Path("no/node.xif")};
    scratch_.File("user.xml", "<UNVTS/>");
    ASSERT_TRUE(MakeDirectory(folder));
    const Answer text = Generate(failing);
    EXPECT_EQ(text.status, 1);
    EXPECT_TRUE(text.out.starts_with("wrote ")) << text.out << text.error;
    EXPECT_NE(text.out.find("files.lst"), std::string::npos);
    std::vector<std::string> arguments = failing;
    arguments.insert(arguments.end(), {"--format", "json"});
    auto json = nlohmann::json::parse(Generate(arguments).out);
    EXPECT_EQ(json["error"], 76);
    ASSERT_EQ(json["written"].size(),
              static_cast<std::size_t>(std::count(text.out.begin(), text.out.end(), '\n')));
    EXPECT_EQ(json["written"].back()["bytes"], ReadFile(folder + "/files.lst").size());
    // What fails before anything is written lists nothing.
    auto early = nlohmann::json::parse(Generate({"--iniProfileFile", "x", "--format", "json"}).out);
    EXPECT_TRUE(early["written"].is_array() && early["written"].empty()) << early;
}

// What a newcomer gets wrong around the types: the message tells what happened and what to do.
TEST_F(CommandLine, SlipsAroundTheTypesLeadToTheirMend) {
    const std::string xml =
        "<D><PROGRAMID>9000010A0B040100</PROGRAMID>%<NVS><nvoA><DIRECTION>OUTPUT</DIRECTION>"
        "<SNVTTYPE>300</SNVTTYPE><LENGTH>1</LENGTH></nvoA></NVS></D>";
    const auto with = [&](const char* user) {
        std::string text = xml;
        return text.replace(text.find('%'), 1, user);
    };
    const std::string type =
        "<SNVT_300><TYPE>UNSIGNEDNUMERIC</TYPE><LENGTH>1</LENGTH><NAME>a</NAME></SNVT_300>";
    scratch_.File("user.xml", "<UCPTS/>");
    const std::string named = scratch_.File("t.xml", with("<USERCPFILE>user.xml</USERCPFILE>"));
    const std::string unnamed = scratch_.File("u.xml", with(""));
    const std::string good = scratch_.File("f.xml", "<F>" + type + "</F>");
    using Options = std::vector<std::string>;
    const std::pair<Options, const char*> rows[] = {
        {{"--typeFilesXMLFormat", scratch_.File("d.xml", "<?xml version=\"1.0\"?><F>" + type + "</F>")},
         "a declaration stands in front of the root"},
        {{"--typeFilesXMLFormat", scratch_.File("c.xml", "<!-- mine --><F>" + type + "</F>")},
         "a comment stands in front of the root"},
        {{"--typeFilesXMLPrefix", "snvt_"}, "the prefix must be 'SNVT_', not 'snvt_'"},
        {{"--userTypeFilePath", ""}, "userTypeFilePath is empty, which stands for the root folder"},
        {{"--typeFilesDirectory", "", "--typeFilesBaseName", "tovarek-no-such-folder/b"},
         "typeFilesDirectory is empty, which stands for the root folder"},
        {{"--outputXIFfile", ""}, "set outputXIFfile, or mustGenerateXif to false"},
        {{"--userTypeFilePath", scratch_.Path("elsewhere")}, "; the template names this file ("},
        {{"--typeFilesXMLFormat", ""}, "needs mustGenerateTypes false"},
        {{"--xmlTemplateFile", unnamed}, "the template does not name a user type file"},
        {{"--xmlTemplateNodeName", ""}, "  field: xmlTemplateNodeName\n  value: \"\"\n"},
        {{"--typeFilesDirectory", scratch_.Path("no/deeper")}, "; create it or choose another one"},
        {{"--mustGenerateTypes", "false", "--xmlProfileFile", named},
         "  field: xmlProfileNodeName\n  value: \"\"\n"},
        {{"--localeID", "99999"}, "  value: \"99999\"\n  why:   no language is known for locale 99999;"},
    };
    for (const auto& [options, hint] : rows) {
        Options all = {"--xmlTemplateFile",     named,
                       "--xmlTemplateNodeName", "D",
                       "--mustGenerateTypes",   "true",
                       "--typeFilesXMLFormat",  good,
                       "--typeFilesDirectory",  scratch_.Path("types"),
                       "--userTypeFilePath",    scratch_.Folder()};
        all.insert(all.end(), options.begin(), options.end());
        const Answer run = Generate(all);
        EXPECT_EQ(run.status, 1) << hint;
        EXPECT_NE(run.error.find(hint), std::string::npos) << hint << '\n' << run.error;
#ifndef _WIN32
        EXPECT_EQ(run.error.find('\\'), std::string::npos) << "paths can be pasted\n" << run.error;
#endif
    }
}

TEST_F(CommandLine, WrongUseLeadsToTheHelpOfItsCommand) {
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{"--foo"}, "'--foo'\nTry 'tovarek --help'.\n"},
        {{"generate", "--localeID"}, "needs a value\nTry 'tovarek generate --help'.\n"},
        {{"generate", "--localeID", "x"}, "\nTry 'tovarek generate --help'.\n"},
        {{"generate", "--set", "localeID", "1031"},
         "; a property is set by --PROPERTY VALUE or --set PROPERTY=VALUE\n"},
        {{"generate", "--job", scratch_.Path("none.json")}, "none.json': No such file or directory\n"},
        {{"catalog", "show"}, "\nTry 'tovarek catalog show --help'.\n"},
        {{"errors", "nothing"}, "\nTry 'tovarek errors --help'.\n"},
        {{"dump", "a", "--catalogDir", "b", "--catalogDir", "c"},
         "tovarek: option '--catalogDir' is given more than once\nTry 'tovarek dump --help'.\n"},
        {{"dump"}, "\nTry 'tovarek dump --help'.\n"}};
    for (const auto& [arguments, end] : rows) {
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, 2) << end;
        EXPECT_NE(run.error.find(end), std::string::npos) << run.error;
    }
}

TEST_F(CommandLine, AnInputThatCannotBeShownIsNamedWithWhatTakesIt) {
    const std::pair<const char*, const char*> rows[] = {
        {kProfileIni, "an INI profile, which 'tovarek generate --iniProfileFile'"},
        {"\xEF\xBB\xBF; mine\n[general]\n", "an INI template, which 'tovarek generate --iniTemplateFile'"},
        {"<x><D><NVS/></D></x>", "an XML template, which 'tovarek generate --xmlTemplateFile'"},
        {"<?xml version='1.0'?>\n<P><xif_line6/></P>",
         "an XML profile, which 'tovarek generate --xmlProfileFile'"},
        {"<F><SNVT_300><Type>USER</Type></SNVT_300></F>",
         "an XML format file, which 'tovarek generate --typeFilesXMLFormat'"},
        {" <UNVTS/>", "a user type file, which 'tovarek generate --userTypeFilePath FOLDER'"},
        {"{\"iniProfileFile\": \"p.ini\"}", "a job file, which 'tovarek generate --job'"}};
    for (const auto& [content, hint] : rows) {
        const std::string file = scratch_.File("input", content);
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{"dump", file}, {"dump", "--bytes", file}, {"diff", file, file}}) {
            const Answer run = Call(arguments);
            EXPECT_NE(run.status, 0) << hint;
            EXPECT_NE(run.error.find(std::string("; this looks like ") + hint), std::string::npos)
                << run.error;
        }
    }
    for (const char* content : {"", "text\n[x]\n", "<x/>", "{\"a\": 1}", "text <NVS>"})
        EXPECT_EQ(Call({"dump", scratch_.File("other", content)}).error.find("this looks like"),
                  std::string::npos)
            << content;
}

TEST_F(CommandLine, ADamagedFileIsToldHowItCanBeSeen) {
    const std::string file = scratch_.File("cut.xif", "File: a generated by T, XIF Version 4.0\nc\n");
    const char* const hint = "'tovarek dump --bytes' shows what can be read";
    EXPECT_NE(Call({"dump", file}).error.find(hint), std::string::npos);
    EXPECT_NE(Call({"diff", file, file}).error.find(hint), std::string::npos);
    EXPECT_EQ(Call({"dump", "--bytes", file}).error.find(hint), std::string::npos);
}

TEST_F(CommandLine, FaultsOfAJobNameItsLine) {
    const std::pair<const char*, const char*> rows[] = {
        {"{\n\"creator\": \"a\",\n \"userTypesFilePath\": \".\"}",
         "', line 3: there is no property 'userTypesFilePath'; did you mean 'userTypeFilePath'?"},
        {"{\n\"localeID\": \"1033\"}",
         "', line 2: '\"1033\"' cannot be the value of localeID; give a whole number "
         "from -2147483648 to 2147483647 without quotation marks"},
        {"{\n\"mustGenerateXif\": yes}", "' is not valid JSON at line 2, column 20: "},
        {"{\n\"mustGenerateXif\": yes}",
         "; names and texts stand in quotation marks, true, false and numbers do not\n"},
        {"{\"localeID\": \"\u00FCber\"}", "'\"\u00FCber\"' cannot be the value of localeID"},
        {"{\"mustGenerateXif\": \"true\"}",
         "', line 1: '\"true\"' cannot be the value of mustGenerateXif; give true or "
         "false without quotation marks"},
        {"{\"creator\": 1}",
         "', line 1: '1' cannot be the value of creator; give a text in quotation marks\n"},
        {"{\"local\\u0065ID\": true}",
         "job.json': 'true' cannot be the value of localeID; give a whole number from "
         "-2147483648 to 2147483647\n"}};
    for (const auto& [job, message] : rows) {
        const Answer run = Generate({"--job", scratch_.File("job.json", job)});
        EXPECT_EQ(run.status, 2) << job;
        EXPECT_NE(run.error.find(message), std::string::npos) << run.error;
    }
}

TEST_F(CommandLine, JobsThatCannotServeAreRefused) {
    const char* jobs[] = {
        "",
        "[]",
        "{\"creator\": \"a\", \"creator\": \"b\"}",
        "{\"localeID\": 1.5}",
        "{\"localeID\": 99999999999}",
        "{\"localeID\": 2147483648}",
        "{\"localeID\": 4294968329}",
        "{\"localeID\": -2147483649}",
        "{\"localeID\": 18446744073709551615}",
        "{\"xmlTemplateNode\": {\"file\": \"x\"}}",
        "{\"creator\": \"\xFF\"}",
        "{\"creator\": ",
    };
    for (const char* job : jobs) {
        const Answer run = Generate({"--job", scratch_.File("job.json", job)});
        EXPECT_EQ(run.status, 2) << job;
        EXPECT_FALSE(run.error.empty());
    }
    for (const char* job : {"{\"localeID\": 2147483647}", "{\"localeID\": -2147483648}"})
        EXPECT_EQ(Generate({"--job", scratch_.File("job.json", job)}).status, 0) << job;
    std::string deep = "{\"creator\": ";
    deep.append(100000, '[');
    EXPECT_EQ(Generate({"--job", scratch_.File("deep.json", deep)}).status, 2);
}

TEST_F(CommandLine, InputsOfAJobCountFromItsFolderOutputsFromTheCurrentOne) {
    ASSERT_TRUE(MakeDirectory(scratch_.Path("job")));
    ASSERT_TRUE(MakeDirectory(scratch_.Path("now")));
    scratch_.File("job/p.ini", kProfileIni);
    scratch_.File("job/t.xml", kTemplateXml);
    scratch_.File("job/f.xml", "<F/>");
    scratch_.File("job/user.xml", "<UNVTS/>");
    scratch_.File("now/only.ini", kProfileIni);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(StandardPath(scratch_.Path("now")));
    const auto job = [&](const nlohmann::ordered_json& more) {
        nlohmann::ordered_json all = {
            {"$schema", "tovarek.json"},     {"catalogDir", TOVAREK_CATALOG},
            {"iniProfileFile", "p.ini"},     {"xmlTemplateNode", {{"file", "t.xml"}, {"element", "D"}}},
            {"mustGenerateTypes", true},     {"typeFilesXMLFormat", "f.xml"},
            {"userTypeFilePath", "."},       {"typeFilesBaseName", "b"},
            {"typeFilesDirectory", "types"}, {"outputXIFfile", "types/n.xif"}};
        all.update(more);
        return Call({"generate", "--job", scratch_.File("job/job.json", all.dump())});
    };
    const Answer good = job(nlohmann::ordered_json::object());
    EXPECT_EQ(good.status, 0) << good.error;
    EXPECT_TRUE(FileExists(scratch_.Path("now/types/files.lst")));
    EXPECT_TRUE(FileExists(scratch_.Path("now/types/n.xif")));
    EXPECT_EQ(job({{"typeFilesDirectory", "more/"}}).status, 0) << "with a separator at its end too";
    EXPECT_TRUE(FileExists(scratch_.Path("now/more/files.lst")));
    EXPECT_EQ(job({{"iniProfileFile", scratch_.Path("now/only.ini")}}).status, 0) << "absolute";
    const Answer old = job({{"iniProfileFile", "only.ini"}});
    EXPECT_EQ(old.status, 2);
    EXPECT_NE(old.error.find("from the folder of the job file"), std::string::npos) << old.error;
    EXPECT_EQ(job({{"catalogDir", "nowhere"}}).status, 1);
    // A refused job creates no folder.
    EXPECT_EQ(job({{"typeFilesDirectory", "none"}, {"outputXIFfile", "../job/p.ini"}}).status, 2);
    EXPECT_FALSE(FolderExists(scratch_.Path("now/none")));
    std::filesystem::current_path(before);
}

// Every job is sound but for the output that is named twice. The user types are none, so that nothing but the
// names of the files is at stake.
TEST_F(CommandLine, NoOutputTakesTheFileOfAnInputOrOfAnotherOutput) {
    const std::string xml = scratch_.File(
        "t.xml",
        "<!DOCTYPE D SYSTEM "
        "\"t.dtd\"><D><PROGRAMID>9000010A0B040100</PROGRAMID><USERCPFILE>u_6.fmt</USERCPFILE></D>");
    const std::string dtd = scratch_.File("t.dtd",
                                          "<!ELEMENT D (PROGRAMID, USERCPFILE)><!ELEMENT PROGRAMID (#PCDATA)>"
                                          "<!ELEMENT USERCPFILE (#PCDATA)>");
    scratch_.File("u_6.fmt", "<UNVTS/>");
    const std::string format = scratch_.File("f.xml", "<F/>");
    const std::string job = scratch_.File("job.json", "{}");
    scratch_.File("node.xif", std::string(kTemplateIni));
    const std::string linked = scratch_.Path("linked.ini");
    std::filesystem::create_hard_link(StandardPath(profile_), StandardPath(linked));
    std::filesystem::copy(StandardPath(TOVAREK_CATALOG), StandardPath(scratch_.Path("c")));

    using Arguments = std::vector<std::string>;
    const auto out = [](const std::string& path) { return Arguments{"--outputXIFfile", path}; };
    const auto with = [](Arguments one, const Arguments& other) {
        one.insert(one.end(), other.begin(), other.end());
        return one;
    };
    const Arguments fromXml = {"--xmlTemplateFile", xml, "--xmlTemplateNodeName", "D"};
    const Arguments withTypes = {"--mustGenerateTypes",  "true",
                                 "--typeFilesXMLFormat", format,
                                 "--typeFilesDirectory", scratch_.Folder(),
                                 "--userTypeFilePath",   scratch_.Folder(),
                                 "--typeFilesBaseName",  "b"};
    const Arguments newFolder = {"--typeFilesDirectory", scratch_.Path("new")};
    const Arguments catalog = {"--catalogDir", scratch_.Path("c")};
    const std::pair<Arguments, const char*> refused[] = {
        {out(profile_), "iniProfileFile"},
        {with(out(linked), {"--iniTemplateFile", "missing.ini"}), "iniProfileFile"},
        {out(scratch_.Folder() + "\\.\\template.ini"), "iniTemplateFile"},
        {with(out(job), {"--job", job}), "job file"},
        {with(out(xml), fromXml), "xmlTemplateFile"},
        {with(out(dtd), fromXml), "document type definition of xmlTemplateFile"},
        {with(out(dtd), {"--xmlTemplateNode", xml + "#D"}), "document type definition of xmlTemplateNode"},
        {with(out(scratch_.Path("u_6.fmt")), with(fromXml, withTypes)), "user type file"},
        {with(with(fromXml, withTypes), {"--typeFilesBaseName", "u"}), "user type file"},
        {with(out(format), {"--typeFilesXMLFormat", format}), "typeFilesXMLFormat"},
        {with(out(scratch_.Path("c/ldrf.cat")), catalog), "catalog"},
        {with(out(scratch_.Path("c/standard.typ")), catalog), "catalog"},
        {with(withTypes, {"--xifProfileFile", scratch_.File("files.lst", "")}), "xifProfileFile"},
        {with(withTypes, {"--langExtension", "typ"}), "typeFilesDirectory"},
        {with(withTypes, with(newFolder, out(scratch_.Path("new/b_3.fpt")))), "outputXIFfile"},
    };
    const auto content = [&] {
        std::map<std::string, std::string> files;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(StandardPath(scratch_.Folder())))
            files[SystemSpelling(entry.path())] =
                entry.is_regular_file() ? ReadFile(SystemSpelling(entry.path())) : "";
        return files;
    };
    const auto before = content();
    for (const auto& [arguments, hint] : refused) {
        const Answer run = Generate(arguments);
        EXPECT_EQ(run.status, 2) << hint << '\n' << run.error;
        EXPECT_NE(run.error.find(hint), std::string::npos) << run.error;
        EXPECT_EQ(content(), before) << hint;
    }

    EXPECT_EQ(Generate({"--set", "mustGenerateXif=false", "--outputXIFfile", profile_}).status, 0);
    EXPECT_EQ(Generate(with(fromXml, withTypes)).status, 0);
    EXPECT_EQ(Generate({"--xifProfileFile", xif_}).status, 0) << "a profile may be its own output";
}

TEST_F(CommandLine, ElementsAreNamedByFileAndName) {
    const std::string xml = scratch_.File("t.xml", kTemplateXml);
    const std::string job = scratch_.File(
        "job.json", nlohmann::json({{"xmlTemplateNode", {{"file", xml}, {"element", "D"}}}}).dump());
    EXPECT_EQ(Generate({"--job", job}).status, 0);
    EXPECT_NE(ReadFile(xif_).find("VAR nviA 0 0 0 0\r\n"), std::string::npos);
    EXPECT_EQ(Generate({"--xmlTemplateNode", xml + "#D"}).status, 0);
    EXPECT_EQ(Generate({"--xmlTemplateNode", xml + "#E"}).status, 1)
        << "an element that is missing is error 88";
}

TEST_F(CommandLine, ErrorsAreListed) {
    const Answer text = Call({"errors"});
    EXPECT_EQ(std::count(text.out.begin(), text.out.end(), '\n'), 135);
    EXPECT_NE(text.out.find("77\t0x8004004D\teQVXIFerr_tagbindable\tBad tag binable flag.\n"),
              std::string::npos);
    EXPECT_EQ(nlohmann::json::parse(Call({"errors", "--format", "json"}).out).size(), 135U);
}

TEST_F(CommandLine, OneErrorIsToldWithCauseAndMend) {
    for (const char* word : {"71", "nvlength", "eqvxiferr_NVLENGTH", "0x80040047", "-2147221433"}) {
        const Answer one = Call({"errors", word});
        EXPECT_EQ(one.status, 0) << word << one.error;
        EXPECT_TRUE(one.out.starts_with("71\t0x80040047\teQVXIFerr_nvlength\t")) << one.out;
        EXPECT_NE(one.out.find("  cause: the length is not 1 to 31"), std::string::npos) << one.out;
        EXPECT_NE(one.out.find("  mend:  Give the variable its length"), std::string::npos) << one.out;
    }
    // The component's and the runtime's own.
    const auto both = nlohmann::json::parse(Call({"errors", "53", "--format", "json"}).out);
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[1]["name"], "fileNotFound");
    EXPECT_NE(Call({"errors", "nvlenght"}).error.find("did you mean 'nvlength'?"), std::string::npos);
    EXPECT_EQ(Call({"errors", "136"}).status, 2);
}

TEST_F(CommandLine, TypesAreNamedByWhatOneRemembers) {
    const auto call = [](const char* verb, const char* word) {
        return Call({"catalog", verb, word, "--catalogDir", TOVAREK_CATALOG});
    };
    for (const char* word : {"SNVT_temp_p", "snvt_TEMP_P", "temp_P", "105"})
        EXPECT_TRUE(call("show", word).out.starts_with("name: SNVT_temp_p\n")) << word;
    EXPECT_NE(call("show", "105").out.find("\n\nname: SCPT"), std::string::npos)
        << "a number of both classes";
    EXPECT_TRUE(call("show", "lev_perc").out.starts_with("name: SNVT_lev_percent\n")) << "a part of one name";
    const Answer many = call("show", "temp_");
    EXPECT_EQ(many.status, 1);
    EXPECT_NE(many.error.find("SNVT_temp_p"), std::string::npos) << many.error;
    EXPECT_NE(
        call("find", "CELSIUS").out.find("NV\t105\t2\tSNVT_temp_p\tdegrees Celsius\t-273.17 to 327.67\n"),
        std::string::npos);
    EXPECT_NE(call("find", "temp_p").out.find("\tSNVT_temp_p\t"), std::string::npos);
    EXPECT_EQ(call("find", "no such unit").status, 1);
    EXPECT_NE(call("find", "ppm").out.find("\tSCPTlimitCO2\t"), std::string::npos)
        << "the unit of the type that it refers to";
    EXPECT_NE(call("find", "F").out.find("\tSNVT_temp_p\t"), std::string::npos)
        << "the unit of a display format";
    EXPECT_NE(call("show", "SNVT_temp_q").error.find("did you mean 'SNVT_temp"), std::string::npos);
    const auto json = nlohmann::json::parse(
        Call({"catalog", "find", "SNVT_press_p", "--catalogDir", TOVAREK_CATALOG, "--format", "json"}).out);
    EXPECT_EQ(json[0]["index"], 113);
    EXPECT_EQ(json[0]["maximum"], 32767);
}

TEST(ManualPage, TellsEveryVerbWithItsOptions) {
    std::string page = ManPage();
    for (std::size_t at = page.find("\\-"); at != std::string::npos; at = page.find("\\-", at))
        page.erase(at, 1);
    for (const Verb& verb : Verbs()) {
        if (verb.summary.empty())
            continue;
        const std::size_t section = page.find(std::string(verb.summary) + ".\n");
        ASSERT_NE(section, std::string::npos) << verb.summary;
        for (const OptionRow& option : verb.options)
            EXPECT_NE(page.find(".B \\&" + option.name, section), std::string::npos) << option.name;
    }
}

TEST_F(CommandLine, TheCatalogIsShown) {
    const auto list = [](const char* format) {
        const Answer run = Call({"catalog", "list", "--catalogDir", TOVAREK_CATALOG, "--format", format});
        EXPECT_EQ(run.status, 0) << run.error;
        return run.out;
    };
    std::string rows;
    for (const auto& type : nlohmann::json::parse(list("json")))
        rows += type["class"].get<std::string>() + '\t' + type["index"].dump() + '\t' + type["size"].dump() +
                '\t' + type["name"].get<std::string>() + '\n';
    EXPECT_TRUE(list("text").starts_with(rows + "standard set from ")) << rows;
    EXPECT_NE(rows.find("NV\t105\t2\tSNVT_temp_p\n"), std::string::npos);
    const Answer show =
        Call({"catalog", "show", "SNVT_temp_p", "--catalogDir", TOVAREK_CATALOG, "--format", "json"});
    const auto json = nlohmann::json::parse(show.out);
    EXPECT_EQ(json["index"], 105);
    EXPECT_EQ(json["size"], 2);
    EXPECT_EQ(Call({"catalog", "show", "SNVT_temp_q", "--catalogDir", TOVAREK_CATALOG}).status, 1);
    EXPECT_EQ(Call({"catalog", "list", "--catalogDir", scratch_.Folder()}).status, 1);
}

TEST_F(CommandLine, ValuesAreEncodedAndDecoded) {
    const std::string format =
        scratch_.File("format.xml",
                      "<T><SNVT_300><TYPE>USER</TYPE><NAME>a</NAME><LENGTH>2</LENGTH><B_COEF>-2</B_COEF>"
                      "<UNIT>bar</UNIT></SNVT_300>"
                      "<SNVT_310><TYPE>USER</TYPE><NAME>b</NAME><LENGTH>1</LENGTH></SNVT_310>"
                      "<SNVT_311><TYPE>USER</TYPE><NAME>B</NAME><LENGTH>1</LENGTH></SNVT_311></T>");
    const struct {
        std::vector<std::string> arguments;
        int status;
        std::string shown;  // all of the output, or a part of the message
    } rows[] = {
        {{"encode", "SCPTmaxSendTime", "60"}, 0, "0258\n"},
        {{"encode", "SNVT_temp_p", "-5"}, 0, "FE0C\n"},
        {{"encode", "switch", "value=100", "state=1"}, 0, "C801\n"},
        {{"decode", "SNVT_switch", "C8", "01"}, 0, "value=100 % of full level, state=1 state code\n"},
        {{"decode", "300", "2EE0", "--typeFilesXMLFormat", format}, 0, "120 bar\n"},
        {{"decode", "snvt_300", "2EE0", "--typeFilesXMLFormat", format}, 0, "120 bar\n"},
        {{"decode", "UNVT_A", "2EE0", "--typeFilesXMLFormat", format}, 0, "120 bar\n"},
        {{"decode", "b", "01", "--typeFilesXMLFormat", format}, 1, "310 and 311"},
        {{"decode", "SCPTmaxSendTime", "02580300"}, 0, "60 seconds, 76.8 seconds\n"},
        {{"encode", "SCPTmaxSendTime[2]", "60,", "76.8"}, 0, "02580300\n"},
        {{"encode", "temp_p[2]", "1", "2"}, 0, "006400C8\n"},
        {{"decode", "temp_p", "00000000"}, 1, "has 2 bytes, 4 were given"},
        {{"encode", "temp_p[65536]", "1"}, 2, "1 to 65535 values"},
        {{"encode", "temp_p[65535]", "1"}, 1, "65535"},
        {{"encode", "SCPTdefOutput", "21.5", "--of", "temp_p"}, 0, "0866\n"},
        {{"encode", "SCPTdefOutput", "1.2", "--of", "300", "--typeFilesXMLFormat", format}, 0, "0078\n"},
        {{"encode", "SCPTdefOutput", "21.5"}, 2, "--of TYPE"},
        {{"encode", "temp_p", "21.5", "--of", "temp_p"}, 2, "leave out --of"},
        {{"encode", "7", "1"}, 1, "SNVT_char_ascii SCPTdefOutput"},
        {{"encode", "300", "1"}, 0, ""},
        {{"encode", "999", "1"}, 1, "--typeFilesXMLFormat"},
        {{"encode", "301", "1", "--typeFilesXMLFormat", format}, 1, "SNVT_301"},
        {{"encode", "temp_p", "400"}, 1, "raw -27317 to 32767"},
        {{"decode", "temp_p", "0"}, 2, "two hexadecimal digits"},
        {{"decode", "temp_p", "00"}, 1, "has 2 bytes, 1 were given"},
        {{"decode", "temp_p"}, 2, "needs a type and bytes"},
        {{"encode"}, 2, "needs a type and a value"},
        {{}, 2, "value needs a command"},
        {{"decode", "temp_p", "0000", "--typeFile", format}, 1, "format.xml"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"value"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, row.status) << run.error;
        if (row.status == 0 && !row.shown.empty())
            EXPECT_EQ(run.out, row.shown);
        else
            EXPECT_NE(run.error.find(row.shown), std::string::npos) << run.error;
    }
    const auto json = nlohmann::json::parse(
        Call({"value", "encode", "SNVT_switch", "value=1.2,state=1", "--format", "json"}).out);
    EXPECT_EQ(json["bytes"], "0201");
    EXPECT_EQ(json["value"].dump(), R"({"state":1,"value":1})");
    EXPECT_EQ(json["notes"].size(), 1U);
    EXPECT_EQ(nlohmann::json::parse(Call({"value", "encode", "temp_p", "x", "--format", "json"}).out)["name"],
              "badValue");
}

TEST_F(CommandLine, ValuesOfTypeFilesAreEncodedAndDecoded) {
    TypeFile types;
    types.header.title = TitleText(ResourceKind::type, 1, 0);
    types.header.scope = 3;
    NvType speed;
    speed.name = "_speed";
    speed.size = 2;
    speed.type = NumberOfKind(TypeKind::signedLong);
    speed.type.b = -1;
    types.nvTypes = {speed};
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    const std::string file = scratch_.File("own.typ", bytes);
    const Answer encoded = Call({"value", "encode", "UNVT_speed", "1.5", "--typeFile", file});
    EXPECT_EQ(encoded.out, "000F\n") << encoded.error;
    EXPECT_EQ(Call({"value", "decode", "speed", "000F", "--typeFile", file}).out, "1.5\n");
}

TEST_F(CommandLine, ProgramIdsAreSplitAndMade) {
    for (const char* id : {"9fffff5014030401", "9F:FF:FF:50:14:03:04:01"}) {
        const auto json = nlohmann::json::parse(Call({"program-id", id, "--format", "json"}).out);
        EXPECT_EQ(
            json.dump(),
            R"({"channel":"04","class":"5014","format":"9","isStandard":true,"maker":"FFFFF","model":"01",)"
            R"("pairs":"9F:FF:FF:50:14:03:04:01","programID":"9FFFFF5014030401","usage":"03"})");
    }
    EXPECT_NE(Call({"program-id", "9FFFFF5014030401"}).out.find("class: 5014 "), std::string::npos);
    const Answer other = Call({"program-id", "2000000000000000"});
    EXPECT_EQ(other.out.find("class"), std::string::npos) << "other formats have other fields";

    std::vector<std::string> make = {"program-id", "--maker", "a1",        "--class", "5014",
                                     "--usage",    "3",       "--channel", "04"};
    const Answer incomplete = Call(make);
    EXPECT_EQ(incomplete.status, 2);
    EXPECT_NE(incomplete.error.find("missing: --model"), std::string::npos) << incomplete.error;
    make.insert(make.end(), {"--model", "7"});
    EXPECT_EQ(Call(make).out, "9000A15014030407\n");
    make.emplace_back("--certified");
    EXPECT_EQ(Call(make).out, "8000A15014030407\n");
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--usage", "123"},
                                                  {"--usage", "G"},
                                                  {"9FFFFF50140304"},
                                                  {"9FFFFF501403040G"},
                                                  {"9F:FFFF50:14:03:04:01:"},
                                                  {"9FFFFF5014030401", "--usage", "1"}}) {
        std::vector<std::string> arguments = {"program-id"};
        arguments.insert(arguments.end(), wrong.begin(), wrong.end());
        EXPECT_EQ(Call(arguments).status, 2) << wrong.back();
    }
}

// In the folder of the example device, one behind the other.
TEST_F(CommandLine, EveryExampleOfTheHelpWorks) {
    namespace fs = std::filesystem;
    const fs::path before = fs::current_path();
    fs::copy(TOVAREK_EXAMPLE, StandardPath(scratch_.Path("example")));
    fs::current_path(StandardPath(scratch_.Path("example")));
    for (const Verb& verb : Verbs()) {
        if (verb.summary.empty())
            continue;
        std::istringstream help(Call(Words(std::string(verb.name) + " --help")).out);
        std::string example;
        for (std::string line; std::getline(help, line);)
            if (line.starts_with("Example: tovarek "))
                example = line.substr(line.find("tovarek ") + 8);
        EXPECT_TRUE(example.starts_with(verb.name)) << verb.name;
        const Answer run = Call(Words(example));
        EXPECT_EQ(run.status, kDone) << example << '\n' << run.out << run.error;
        EXPECT_NE(run.out, "") << example;
    }
    fs::current_path(before);
}

TEST_F(CommandLine, HelpFitsAScreen) {
    const Answer help = Call({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_LE(std::count(help.out.begin(), help.out.end(), '\n'), 30);
    const Answer generate = Call({"generate", "--help"});
    EXPECT_EQ(generate.status, 0);
    EXPECT_NE(generate.out.find("--createUnitsFromReference"), std::string::npos);
    for (const std::vector<std::string>& verb : {std::vector<std::string>{"errors"},
                                                 {"catalog", "find"},
                                                 {"catalog", "show"},
                                                 {"dump"},
                                                 {"diff"},
                                                 {"program-id"}}) {
        std::vector<std::string> arguments = verb;
        arguments.emplace_back("--help");
        EXPECT_TRUE(Call(arguments).out.starts_with("tovarek " + verb[0] + " ")) << verb[0];
        EXPECT_EQ(Call(arguments).out.find("--PROPERTY"), std::string::npos);
    }
    EXPECT_EQ(Call({"--version"}).out, "tovarek " TOVAREK_VERSION "\n");
}

TEST(ProgressTest, OneLineOnATerminalThatGoesAgain) {
    constexpr std::chrono::milliseconds kNone{0};
    const struct {
        bool isTerminal;
        OutputFormat format;
        std::chrono::milliseconds patience;
        const char* shown;
    } rows[] = {
        {true, OutputFormat::text, kNone, "\rtovarek: 7 of 10\r                 \r\rtovarek: 8 of 10"},
        {true, OutputFormat::text, std::chrono::hours(1), ""},
        {true, OutputFormat::json, kNone, ""},
        {false, OutputFormat::text, kNone, ""},
    };
    for (const auto& row : rows) {
        std::ostringstream out;
        std::ostringstream error;
        {
            Progress progress({out, error, false, {}, row.isTerminal}, row.format, 10, row.patience);
            progress.Show(7);
            progress.Clear();
            progress.Show(8);
            EXPECT_EQ(error.str(), row.shown);
        }
        EXPECT_EQ(error.str().empty() || error.str().ends_with("  \r"), true) << error.str();
        EXPECT_EQ(out.str(), "");
    }
}

}  // namespace
}  // namespace tovarek::test
