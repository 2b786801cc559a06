#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "../Samples.h"
#include "../component/Device.h"
#include "Program.h"
#include "base/Text.h"
#include "convert/Fit.h"
#include "formats/xif/XifProperties.h"
#include "profile/ProfileFields.h"
#include "starter/Starter.h"

namespace tovarek::test {
namespace {

std::string BehindDate(const std::string& xif) {
    return xif.substr(std::min(xif.size(), xif.find("\r\n\r\n")));
}

class Convert : public testing::Test {
  protected:
    // Generates the XIF file `name` of a profile and a template.
    Answer Generate(const std::string& profile, const std::string& deviceTemplate, const std::string& name,
                    const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {
            "generate",          "--iniProfileFile",    profile,        "--iniTemplateFile",
            deviceTemplate,      "--mustGenerateTypes", "false",        "--outputXIFfile",
            scratch_.Path(name), "--catalogDir",        TOVAREK_CATALOG};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }

    // The path of an XIF file without what none tells apart: a name in a declaration, small letters of
    // values.
    std::string Plain() const {
        std::string device = kTemplateIni;
        device.replace(device.find("0A1b"), 4, "0A1B");
        device.erase(device.find("gain"), 4);
        EXPECT_EQ(Generate(scratch_.File("profile.ini", kProfileIni), scratch_.File("template.ini", device),
                           "node.xif")
                      .status,
                  0);
        return scratch_.Path("node.xif");
    }

    Answer Converted(const std::string& input, const std::string& form,
                     const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"convert",    input,
                                              "--profile",  scratch_.Path("p." + form),
                                              "--template", scratch_.Path("t." + form),
                                              "--job",      scratch_.Path("j.json")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }

    // Generates with the job that converting has written.
    std::string Again() const {
        const Answer run = Call(
            {"generate", "--job", scratch_.Path("j.json"), "--outputXIFfile", scratch_.Path("again.xif")});
        EXPECT_EQ(run.status, 0) << run.error;
        return run.status == 0 ? ReadFile(scratch_.Path("again.xif")) : "";
    }

    Scratch scratch_;
};

TEST_F(Convert, AnXifComesBackFromBothForms) {
    const std::string xif = Plain();
    for (const char* form : {"ini", "xml"}) {
        const Answer run = Converted(xif, form, {"--strict"});
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_EQ(run.error, "");
        EXPECT_EQ(BehindDate(Again()), BehindDate(ReadFile(xif))) << form;
    }
    const std::string xml = ReadFile(scratch_.Path("t.xml"));
    EXPECT_TRUE(xml.starts_with("\xEF\xBB\xBF<?xml")) << "a mark";
    EXPECT_EQ(std::count(xml.begin(), xml.end(), '\n'), std::count(xml.begin(), xml.end(), '\r'));
    EXPECT_NE(xml.find("<!-- SNVT_temp_p -->"), std::string::npos) << "types are told by name";
    EXPECT_EQ(xml.find("<POLLED>0<"), std::string::npos) << "defaults are left out";
    EXPECT_NE(xml.find("<!-- SCPTmaxSendTime: 258.7 seconds -->"), std::string::npos) << xml;

    // From form to form and back.
    const std::string ini = scratch_.Path("i.ini");
    const std::string back = scratch_.Path("b.xml");
    EXPECT_EQ(Call({"convert", scratch_.Path("t.xml"), "--template", ini}).status, 0);
    EXPECT_EQ(Call({"convert", ini, "--template", back}).status, 0);
    EXPECT_EQ(ReadFile(back), xml);
    EXPECT_EQ(Call({"convert", scratch_.Path("p.xml"), "--profile", ini}).status, 0);
    EXPECT_EQ(Call({"convert", ini + "", "--profile", back}).status, 0);
    EXPECT_EQ(ReadFile(back), ReadFile(scratch_.Path("p.xml")));
}

TEST_F(Convert, NamesInDeclarationsAreKeptByXmlAlone) {
    const std::string profile = scratch_.File("profile.ini", kProfileIni);
    const std::string device = scratch_.File(
        "t.xml",
        "<D><PROGRAMID>9000010a0b040100</PROGRAMID><FILETYPEIIVERSION>1.0</FILETYPEIIVERSION><CPS><cpGain>"
        "<SISD>1,0,0\\x80,49,2</SISD></cpGain><cpPlace><SISD>0,,0\\x80,17,31</SISD></cpPlace></CPS></D>");
    ASSERT_EQ(Call({"generate", "--iniProfileFile", profile, "--xmlTemplateFile", device,
                    "--xmlTemplateNodeName", "D", "--mustGenerateTypes", "false", "--addNameInCpString",
                    "true", "--catalogDir", TOVAREK_CATALOG, "--outputXIFfile", scratch_.Path("node.xif")})
                  .status,
              0);
    const std::string xif = ReadFile(scratch_.Path("node.xif"));
    ASSERT_NE(xif.find(";cpGain\""), std::string::npos);
    const std::string input = scratch_.File("in.xif", xif);
    EXPECT_EQ(Converted(input, "xml", {"--strict"}).error, "");
    EXPECT_EQ(BehindDate(Again()), BehindDate(xif));
    const Answer run = Converted(input, "ini", {"--strict"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(
        run.error.find("property 2 (cpPlace), name \"cpPlace\": properties of an INI template have no names"),
        std::string::npos)
        << run.error;
    // One without a name: none is kept.
    std::string partly = xif;
    partly.erase(partly.find("cpGain"), 6);
    const Answer some = Converted(scratch_.File("partly.xif", partly), "xml");
    EXPECT_NE(some.error.find("name \"cpPlace\": not all properties"), std::string::npos) << some.error;
    EXPECT_EQ(Again().find("cpPlace"), std::string::npos);
    // The name of the only one is a name of all.
    std::string one = xif;
    const std::size_t second = one.find("\"0,,0");
    one.erase(second, one.find('\n', second) + 1 - second);
    Converted(scratch_.File("one.xif", one), "xml");
    EXPECT_NE(Again().find(";cpGain\""), std::string::npos);
}

TEST_F(Convert, WhatAFormCannotHoldIsListed) {
    const std::string longText(1000, 'x');
    const std::string device = scratch_.File("t.xml",
                                             "<D><PROGRAMID>9000010a0b040100</PROGRAMID><SDSTRING> "
                                             "a&#10;b" +
                                                 std::string(995, 'x') +
                                                 "</SDSTRING><NVS><nviA><DIRECTION>input</DIRECTION>"
                                                 "<SNVTTYPE>8</SNVTTYPE><SISD>" +
                                                 longText +
                                                 "</SISD></nviA><nviB><SNVTTYPE>8</SNVTTYPE><SISD>'b'</SISD>"
                                                 "</nviB></NVS></D>");
    const std::string ini = scratch_.Path("out.ini");
    const Answer run = Call({"convert", device, "--template", ini, "--format", "json"});
    const auto losses = nlohmann::json::parse(run.out)["losses"];
    ASSERT_EQ(losses.size(), 2U) << run.out;
    EXPECT_EQ(losses[0]["field"], "selfDoc");
    EXPECT_NE(losses[0]["reason"].get<std::string>().find("line breaks"), std::string::npos);
    EXPECT_EQ(losses[1]["record"], "network variable 1 (nviA)");
    EXPECT_NE(losses[1]["reason"].get<std::string>().find("999"), std::string::npos);
    EXPECT_NE(ReadFile(ini).find("selfdoc=\"'b'\""), std::string::npos) << "quotes are kept by quotes";
    EXPECT_EQ(Call({"convert", device, "--template", ini, "--strict"}).status, 1);

    const std::string names = scratch_.File(
        "n.ini",
        "[general]\nprogramID=9000010a0b040100\n[nvs]\nnumberOfStaticNvs=2\nmaximumNumberOfNvs=2\n"
        "[nv1]\nname=2 nvi<A\ntype=8\ndirection=0\n[nv2]\ntype=8\ndirection=1\nname=ok\n");
    const Answer xml = Call({"convert", names, "--template", scratch_.Path("out.xml")});
    EXPECT_EQ(std::count(xml.error.begin(), xml.error.end(), '\n'), 1) << xml.error;
    EXPECT_NE(xml.error.find("name \"2 nvi<A\": no XML element can have this name; it became '_2_nvi_A'"),
              std::string::npos)
        << xml.error;
}

// What neither a profile nor a template has a place for, and what a generation would write otherwise.
TEST_F(Convert, WhatAnXifHasBeyondItsInputsIsListed) {
    ASSERT_EQ(Generate(scratch_.File("profile.ini", kProfileIni), scratch_.File("template.ini", kTemplateIni),
                       "node.xif")
                  .status,
              0);
    const std::string xif = ReadFile(scratch_.Path("node.xif"));
    const struct {
        std::string old;
        std::string changed;
        std::string loss;  // a part of a new line
        int lines = 1;     // that are new
    } rows[] = {
        {"1 7 1 -1", "1 7 0 -1", "line 8, transceiverType \"0\": the generator writes 1"},
        {"2 15 0 3 2", "2 15 0 4 2", "line 6, numberOfStaticNvs \"4\": the generator writes 3"},
        {"11 5\r\n", "11 5 33 34\r\n", "line 6, numbers from the 24th on \"33 34\""},
        {"0 5 7 13", "* 5 7 13", "line 7, typeNeuron \"*\""},
        {" 284 4\r\n", " 284\r\n", "line 7, aliasTableEntrySize: the file has no such number"},
        {" 284 4\r\n", " 284 4 9\r\n", "th on \"9\": XIF 4.0 has no such numbers"},
        {"VAR nciMode 5", "VAR nciMode 6", "(nciMode), index \"6\": the generator writes 5"},
        {"VAR nciMode 5 0 0 0\r\n0 1 63", "VAR nciMode 5 0 0 0\r\n0 1 62",
         "(nciMode), third attribute \"62\""},
        {"108 * 1", "254 * 1", "(nciMode), type \"254\": the catalog has no such type"},
        {"TAG myTag 0 0 0 0\r\n0 1 63 1 0 1 0 1 0 1", "TAG myTag 0 0 0 0\r\n0 1 63 1 0 1 0 1 0 0",
         "(myTag), priority can be changed \"0\""},
        {"\\x00 \\x00 \\x00\r\n", "\\x00\r\n", "FILE value \"3 bytes\""},
        {"\\x00 \\x00 \\x00\r\n", "\\x00 \\x00 \\x00\r\n\r\nNVVAL\r\n\\x01\r\n",
         "NVVAL, default values \"01\""},
        {"\\x00 \\x00 \\x00\r\n", "\\x00 \\x00 \\x00\r\n\r\nNEW x\r\n",
         "record \"NEW x\": a record of an unknown kind"},
        {"\r\n*\r\n", "\r\n# hello\r\n*\r\n", "comments \"1 line\""},
        {"\\x00 \\x00 \\x00\r\n", "\\x00 \\x00 \\x00\r\n\x1A\x01\x02", "end of the file \"2 bytes\""},
        {"1,0,0\\x80,49,2", "1,0,0", "it does not declare a property", 2},
    };
    const std::string plain = Converted(scratch_.Path("node.xif"), "xml").error;
    const auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
    for (const auto& row : rows) {
        std::string changed = xif;
        ASSERT_NE(changed.find(row.old), std::string::npos) << row.old;
        changed.replace(changed.find(row.old), row.old.size(), row.changed);
        const Answer run = Converted(scratch_.File("changed.xif", changed), "xml");
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_NE(run.error.find(row.loss), std::string::npos) << row.changed << '\n' << run.error;
        EXPECT_EQ(lines(run.error), lines(plain) + row.lines) << run.error;
    }
}

// By the place on the tag's line; "-" for the one that a template tells.
TEST_F(Convert, ConstantsOfATagThatDifferCountButOne) {
    const std::string xif = ReadFile(Plain());
    const std::string tag = "TAG myTag 0 0 0 0\r\n";
    const std::string line = "0 1 63 1 0 1 0 1 0 1 0 0 0\r\n";
    const std::size_t begin = xif.find(tag + line) + tag.size();
    ASSERT_GE(begin, tag.size());
    std::string statuses;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (i > 0 && line[i - 1] != ' ')
            continue;
        std::string changed = xif;
        changed[begin + i] = line[i] == '0' ? '1' : '0';
        const Answer run = Converted(scratch_.File("changed.xif", changed), "xml", {"--strict"});
        statuses += run.error.empty() ? "-" : std::to_string(run.status);
    }
    EXPECT_EQ(statuses, "1-11111110111");
}

TEST_F(Convert, ProfilesOfLaterVersionsAreFittedOrAskedFor) {
    std::string later = kProfileIni;
    const auto change = [&](const std::string& old, const std::string& changed) {
        ASSERT_NE(later.find(old), std::string::npos) << old;
        later.replace(later.find(old), old.size(), changed);
    };
    change("applicationtype=0", "applicationtype=7");
    change("numberAliases=15", "numberAliases=9000");
    change("typeNeuron=0", "typeNeuron=32");
    change("protocolClockRate=5", "protocolClockRate=0");
    change("rawDataClockRate=5", "rawDataClockRate=0");
    const std::string input = scratch_.File("later.ini", later);
    const std::string out = scratch_.Path("fitted.ini");
    std::vector<std::string> arguments = {"convert", input, "--profile", out, "--fit", "4.0"};
    const Answer refused = Call(arguments);
    EXPECT_EQ(refused.status, 2);
    for (const char* missing :
         {"typeNeuron is 32, accepted: 0 and 8 to 14", "protocolClockRate is 0, accepted: 1 to 7"})
        EXPECT_NE(refused.error.find(missing), std::string::npos) << refused.error;
    EXPECT_FALSE(FileExists(out));
    arguments.insert(arguments.end(), {"--set", "typeneuron=0", "--set", "protocolClockRate=5"});
    const Answer run = Call(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    const std::string fitted = ReadFile(out);
    EXPECT_TRUE(fitted.starts_with("\xEF\xBB\xBF; line 7, typeNeuron: 0 instead of 32: given by --set\r\n"))
        << fitted;
    for (const char* line : {"applicationtype: 2 instead of 7: ", "numberAliases: 4096 instead of 9000: ",
                             "rawDataClockRate: 5 instead of 0: "})
        EXPECT_NE(fitted.find(line), std::string::npos) << line;
    EXPECT_EQ(Generate(out, scratch_.File("template.ini", kTemplateIni), "node.xif").status, 0);

    // Raw data that are given are not made up.
    change("dataOverrideTiming=0", "dataOverrideTiming=1");
    scratch_.File("later.ini", later);
    EXPECT_NE(Call(arguments).error.find("rawDataClockRate is 0"), std::string::npos);
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--fit", "3.1"},
                                                  {"--set", "typeNeuron=0"},
                                                  {"--fit", "4.0", "--set", "typeNeuron"},
                                                  {"--fit", "4.0", "--set", "typeNeuron=x"},
                                                  {"--fit", "4.0", "--set", "typeNeuro=0"},
                                                  {"--fit", "4.0", "--set", "typeNeuron=99", "--set",
                                                   "protocolClockRate=5", "--set", "rawDataClockRate=5"}}) {
        std::vector<std::string> use = {"convert", input, "--profile", scratch_.Path("no.ini")};
        use.insert(use.end(), wrong.begin(), wrong.end());
        EXPECT_EQ(Call(use).status, 2) << wrong.back();
    }
}

TEST(Fit, ReplacesWhatIsJustBeyondTheBounds) {
    using P = ProfileValues;
    const std::pair<std::int32_t P::*, std::int32_t> rows[] = {
        {&P::domains, 2}, {&P::addresses, 15}, {&P::numberAliases, 4096}, {&P::channelPrioritySlots, 127}};
    for (const auto& [field, last] : rows) {
        ProfileValues profile = StarterProfile();
        profile.*field = last;
        EXPECT_TRUE(FitProfile(profile, {}).replaced.empty()) << last;
        profile.*field = last + 1;
        EXPECT_TRUE(FitProfile(profile, {}).unfit.empty()) << last;
        EXPECT_EQ(profile.*field, last);
    }
}

TEST_F(Convert, WrongUseTellsWhatIsPossible) {
    const std::string profile = scratch_.File("profile.ini", kProfileIni);
    const std::string device = scratch_.File("template.ini", kTemplateIni);
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* message;
    } rows[] = {
        {{}, 2, "needs an input"},
        {{profile}, 2, "--profile FILE"},
        {{profile, "--template", scratch_.Path("a.xml")}, 2, "these inputs give --profile"},
        {{profile, "--profile", scratch_.Path("a.txt")}, 2, "call the file .ini or .xml"},
        {{profile, "--profile", profile}, 2, "would overwrite the input"},
        {{profile, device, profile, "--profile", scratch_.Path("a.xml")}, 2, "two inputs hold a profile"},
        {{scratch_.Path("none.ini"), "--profile", scratch_.Path("a.xml")}, 1, "File not found"},
        {{scratch_.File("other.ini", "[x]\na=1\n"), "--profile", scratch_.Path("a.xml")},
         2,
         "neither a profile nor"},
        {{scratch_.File("points.xif", "1,2,3\n"), "--profile", scratch_.Path("a.xml")}, 1, "line 1"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"convert"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, row.status) << row.message;
        EXPECT_NE(run.error.find(row.message), std::string::npos) << run.error;
    }
    EXPECT_FALSE(FileExists(scratch_.Path("a.xml"))) << "nothing is written";
}

// ---- files of other tools ----

// What has to be the same in a file of another tool and in the one that its converted inputs generate.
std::string Essence(const XifFile& file) {
    std::ostringstream text;
    text << file.programId << '\n' << file.documentation << '\n';
    for (const XifTag& tag : file.tags) {
        text << tag.name;
        for (std::size_t i = 0; i < 3; ++i)
            text << ' ' << tag.numbers.at(i).value_or(-1);
        text << ' ' << tag.attributes.at(1).value_or(-1) << '\n';
    }
    for (const XifVariable& variable : file.variables) {
        text << variable.name;
        for (std::size_t i = 0; i < 4; ++i)
            text << ' ' << variable.Number(i).value_or(-1);
        for (std::size_t i = 0; i < 13; ++i)
            text << ' ' << variable.Attribute(i).value_or(-1);
        text << ' ' << variable.standardType.value_or(-1) << ' ' << variable.Size() << ' '
             << variable.documentation << '\n';
    }
    const XifPropertyTemplate found = ReadXifTemplate(file);
    text << found.version << '\n';
    for (const XifProperty& property : found.properties) {
        text << property.record << ' ';
        for (const XifSection& section : file.sections)
            for (const XifPropertyValue& value : XifPropertyValues(file, section, found.properties))
                if (value.property == &property)
                    text << HexText(value.bytes);
        text << '\n';
    }
    return text.str();
}

TEST_F(Convert, FilesOfOtherToolsGenerateTheSameInterface) {
    int compared = 0;
    int fitted = 0;
    for (const std::string& path : SampleFiles("xif")) {
        XifFile given;
        if (!ReadXifFile(ReadFile(path), given).Ok())
            continue;
        SCOPED_TRACE(path);
        std::vector<std::string> more = {"--format", "json"};
        if (given.version > "4.400") {
            const Answer refused = Converted(path, "ini", {"--fit", "4.0"});
            EXPECT_EQ(refused.status, refused.out.empty() ? 2 : 0);
            more.insert(more.end(), {"--fit", "4.0"});
            for (const char* value :
                 {"typeNeuron=0", "applicationtype=0", "protocolClockRate=5", "rawDataClockRate=5"})
                if (refused.error.find(std::string(value).substr(0, 8)) != std::string::npos &&
                    refused.status == 2)
                    more.insert(more.end(), {"--set", value});
            ++fitted;
        }
        for (const char* form : {"ini", "xml"}) {
            const Answer run = Converted(path, form, more);
            ASSERT_EQ(run.status, 0) << run.out;
            const auto json = nlohmann::json::parse(run.out);
            const std::string replaced = json["replaced"].dump();
            for (const auto& loss : json["losses"]) {
                const auto reason = loss["reason"].get<std::string>();
                const bool isExpected = !loss["counts"].get<bool>() ||
                                        reason.find("XIF 4.0 has no such numbers") != std::string::npos ||
                                        loss["field"] == "transceiverType";
                EXPECT_TRUE(isExpected) << loss.dump();
            }
            const Answer again = Call({"generate", "--job", scratch_.Path("j.json"), "--outputXIFfile",
                                       scratch_.Path("again.xif")});
            ASSERT_EQ(again.status, 0) << again.error;
            XifFile made;
            ASSERT_TRUE(ReadXifFile(ReadFile(scratch_.Path("again.xif")), made).Ok());
            EXPECT_EQ(Essence(made), Essence(given));
            // Whatever was not replaced is as it was; lines 6 to 10 are told by their fields.
            for (const ProfileField& field : kProfileFields) {
                const auto number = [&](const XifFile& file) {
                    return file.parameters.at(static_cast<std::size_t>(field.line) - 6)
                        .numbers.at(static_cast<std::size_t>(field.token) - 1);
                };
                const bool isReplaced = replaced.find("line " + std::to_string(field.line) + ", " +
                                                      std::string(field.iniKey) + ": ") != std::string::npos;
                EXPECT_EQ(number(made) != number(given), isReplaced) << field.iniKey << replaced;
            }
            ++compared;
        }
    }
    if (compared == 0)
        GTEST_SKIP() << "no samples";
    EXPECT_GT(fitted, 20);
}

}  // namespace
}  // namespace tovarek::test
