// Mistakes that a person makes in the XML form of the example's template, each with exactly its findings.
#include <gtest/gtest.h>

#include <list>
#include <string>
#include <utility>

#include "Slips.h"

namespace tovarek::test {
namespace {

constexpr const char* kStatus = "<nvoStatus>\n      <DIRECTION>output</DIRECTION>";
constexpr const char* kRequest =
    "<nviRequest>\n      <DIRECTION>input</DIRECTION>\n      <SNVTTYPE>92</SNVTTYPE>";

TEST(Check, EverySlipInAnXmlTemplateIsFound) {
    const Slip slips[] = {
        Xml(kStatus, "<nvoStatus>\n      <DIRECTION>out</DIRECTION>", "20:7 not-a-number"),
        Xml(kStatus, "<nvoStatus>\n      <DIRECTION> output\n</DIRECTION>", ""),
        Xml(kStatus, "<nvoStatus>", "19:5 missing-value"),
        Xml(kStatus, "<nvoStatus>\n      <DIRECTON>output</DIRECTON>",
            "19:5 missing-value; 20:7 ignored-element"),
        Xml(kRequest, "<nviRequest>\n      <DIRECTION> input</DIRECTION>\n      <SNVTTYPE>92</SNVTTYPE>",
            "14:7 not-a-number"),
        Xml(kRequest, "<nviRequest>\n<DIRECTION>input</DIRECTION><SNVTTYPE>SNVT_obj_request</SNVTTYPE>",
            "13:5 nvlength; 14:29 not-a-number"),
        Xml("encoding=\"UTF-8\"", "encoding=\"ISO-8859-1\"", "1:1 encoding"),
        Xml("<SNVTTYPE>93</SNVTTYPE>", "<SNVT>93</SNVT>", "19:5 nvlength"),
        Xml("<USERCPFILE>user-types.xml</USERCPFILE>", "<USERTYPEFILE>user-types.xml</USERTYPEFILE>",
            "7:3 errorloadingusertypefile"),
        // Two elements of one name in one line.
        Xml("<SNVTTYPE>300</SNVTTYPE>\n      <LENGTH>2</LENGTH>\n      <SISD>@1#3;Supply water, 0.01 \xC2\xB0"
            "C</SISD>\n    </nvoWaterTemp>\n    <!-- user type 301, water flow -->\n    <nvoWaterFlow>\n     "
            " "
            "<DIRECTION>output</DIRECTION>\n      <SNVTTYPE>301</SNVTTYPE>\n      <LENGTH>2</LENGTH>",
            "<SNVTTYPE>300</SNVTTYPE><LENGTH>0</LENGTH></nvoWaterTemp><nvoWaterFlow><DIRECTION>output</"
            "DIRECTION>"
            "<SNVTTYPE>301</SNVTTYPE><LENGTH>0</LENGTH>",
            "67:31 nvlength; 67:131 nvlength"),
        Xml("<RAWVALUE>2EE0</", "<RAWVALUE>0x2EE0</", "142:7 cpvalue"),
        Xml("<MINRAWVAL>0FA0<", "<MINRAWVAL>0FAG<", "143:7 cpminvalue"),
        Xml("<MAXRAWVAL>4650<", "<MAXRAWVAL>46500<", "144:7 cpmaxvalue"),
        Xml("<INITRAWVAL>2EE0<", "<INITRAWVAL>2EE<", "145:7 cpinitvalue"),
        Xml("<RAWVALUE>2EE0</RAWVALUE>", "<RAWVAL>2EE0</RAWVAL>", "142:7 ignored-element"),
        Xml("<PROGRAMID>9FFFFF5014030401</PROGRAMID>\n", "", "4:1 programid"),
        Xml("<SYNCHRONIZED>1</", "<SYNCHRONIZED>yes</", "22:7 not-a-number"),
        Xml("<SYNCHRONIZED>1</", "<SYNCHRONIZED>0.5</", "22:7 not-a-number"),
        Xml("<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZE>4</ARRAYSIZE><ARRAYSIZE>4</ARRAYSIZE>",
            "53:7 duplicate-key"),
        Xml("<ARRAYSIZE>4</ARRAYSIZE>", "<array><ARRAYSIZE>4</ARRAYSIZE></array>", ""),
        Xml("<nviRequest>", "<nviRequest length=\"2\">", "13:5 ignored-attribute"),
        Xml("<SISD>@0|1</SISD>", "<LENGTH>-1</LENGTH><SISD>@0|1</SISD>", "16:7 ignored-element"),
        Xml("<SISD>@1|4</SISD>", "<SISD><![CDATA[@1|4]]></SISD>", "47:7 ignored-text"),
        Xml("<SISD>@1|4</SISD>", "<SISD>@1<!-- object 1 -->|4</SISD>", "47:7 ignored-text"),
        Xml("<CPS>", "<CPS>properties", "123:3 ignored-text"),
        Xml("<NVS>", "<VERSION>1.0</VERSION><NVS>", "11:3 ignored-element"),
        Xml("<MAXIMUMNUMBEROFNVS>20</MAXIMUMNUMBEROFNVS>", "<MAXIMUMNUMBEROFNVS>x20</MAXIMUMNUMBEROFNVS>",
            "8:3 not-a-number; 8:3 maximumNumberOfNvs"),
        Xml("<SYNCHRONIZED>1</SYNCHRONIZED>",
            "<AVGRATE>-1</AVGRATE><MAXRATE>-1</MAXRATE><ARRAYSIZE>-1</ARRAYSIZE><OFFLINE>2</OFFLINE>"
            "<DEFAULTSERVICE>3</DEFAULTSERVICE><SERVICECANBECHANGED>2</SERVICECANBECHANGED><DEFAULTAUTH>2<"
            "/DEFAULTAUTH><AUTHCANBECHANGED>2</AUTHCANBECHANGED><DEFAULTPRIORITY>2</DEFAULTPRIORITY>"
            "<PRIORITYCANBECHANGED>2</PRIORITYCANBECHANGED><POLLED>x</POLLED><SYNCHRONIZED>no</SYNCHRONIZED>"
            "<CONFIGURATION>on</CONFIGURATION>",
            nullptr),
    };
    ExpectFindings(slips);
}

TEST(Check, WhatTheInterfaceFileCannotHoldIsFound) {
    const Slip slips[] = {
        Ini("name=nviRequest", "name=nvi Request", "28:6 blank-in-name"),
        Ini("name=fanCoilTag", "name=fan\tCoilTag", "142:6 blank-in-name"),
        Ini("name=nviRequest", "name=nvi\xCE\xA9Request", "28:9 lost-character"),
        Ini("name=fanCoilTag",
            "name=fan\xCE\xA9"
            "CoilTag",
            "142:9 lost-character"),
        Ini("name=nviRequest", "name=nvi\xC3\xA4?Request", ""),
        Xml("<SISD>@1|4</SISD>", "<SISD>@1|4;\xE2\x84\xA6</SISD>", "47:7 lost-character"),
        Xml("<SISD>@1|4</SISD>", "<SISD>@1|4\n</SISD>", "47:7 line-break"),
        Xml("<FILETYPEIIVERSION>1.0<", "<FILETYPEIIVERSION>\n1.0<", "9:3 line-break"),
        Xml("<SISD>1,1,0\\x80,52,2;</SISD>", "<SISD>1,1,0\\x80,52,2;\n</SISD>", "131:7 line-break"),
        {"template.xml", "", "", "131:7 joined-names", Form::xml, {"--addNameInCpString", "true"}},
        {"template.xml",
         "0,,0\\x80,17,31;",
         "0,,0\\x80,17,31;x",
         "126:7 odd-declaration; 135:7 joined-names",
         Form::xml,
         {"--addNameInCpString", "true"}},
    };
    ExpectFindings(slips);
}

// Only a value that is missing may be the one that nobody reads.
TEST(Check, AWrongValueDoesNotExplainWhatIsNotReadBesideIt) {
    const char* const given =
        "<nviSetpoint>\n      <DIRECTION>input</DIRECTION>\n      <SNVTTYPE>105</SNVTTYPE>";
    const Slip slips[] = {
        Xml(given, "<nviSetpoint><DIRECTION>input</DIRECTION><LENGTH>40</LENGTH><NOTE>x</NOTE>",
            "32:46 nvlength; 32:65 ignored-element"),
        Xml(given, "<nviSetpoint><DIRECTION>input</DIRECTION><NOTE>x</NOTE>", "32:5 nvlength"),
    };
    ExpectFindings(slips);
}

// In place of the declaration of the second property, in line 159.
TEST(Check, OddDeclarationsAreFoundAndThoseOfMakersAreNot) {
    const std::pair<const char*, const char*> rows[] = {
        {"0,,0\\x80,52,2;", ""},
        {"0,,0\\x80,52,2,1;", ""},
        {"1,1,0,52,2;", ""},
        {"1,1.2,0\\xA4,52,2;", ""},
        {"2,1~4,0\\x80,52,2,1,0:100;", ""},
        {"2,1~4,0\\x80,52,2,,0:100;", ""},
        {"1,1,0\xE2\x82\xAC,52,2;", ""},
        {"1,1,0\\x80,52,2", "odd-declaration"},
        {"1,1,0\\x80,52,2;cp", "odd-declaration"},
        {"1,1,0\\x80,52,2;;", "odd-declaration"},
        {"1,1,0\\x80,52,2,1,3;", "odd-declaration"},
        {"1,1,0\\x80,52,2,1,0:1,3;", "odd-declaration"},
        {"1,1,00,52,2;", "odd-declaration"},
        {"1,1,0\\x8,52,2;", "odd-declaration"},
        {"1,1,x\\x80,52,2;", "odd-declaration"},
        {"1,1, 0\\x80,52,2;", "odd-declaration"},
        {"1,1,,52,2;", "odd-declaration"},
        {"o,1,0\\x80,52,2;", "odd-declaration"},
        {"1,nv1,0\\x80,52,2;", "odd-declaration"},
        {"1,1,0\\x80,SCPT52,2;", "odd-declaration"},
        {"1,1,0\\x80,52,2 bytes;", "odd-declaration"},
        {"1,1,0\\x80,52,2,none;", "odd-declaration"},
        {"1,1,0\\x80,52,none;", "cplength"},
        {"1,1,0\\x80,52;", "cplength"},
        {"1,1,0\\x80,99999999999,2", "overflow"},
    };
    std::list<std::string> texts;
    const auto kept = [&](std::string text) { return texts.emplace_back(std::move(text)).c_str(); };
    std::vector<Slip> slips;
    for (const auto& [declaration, name] : rows)
        slips.push_back(Ini("declaration=1,1,0\\x80,52,2;", kept("declaration=" + std::string(declaration)),
                            *name == '\0' ? "" : kept("159:13 " + std::string(name))));
    ExpectFindings(slips);
}

TEST(Check, AValueThatAnotherOverrulesIsFoundWhereTheyDiffer) {
    const Slip slips[] = {
        Ini("name=nviRequest", "name=nviRequest\nlength=3", ""),
        Ini("name=nviRequest", "name=nviRequest\nlength=4", "29:1 ignored-key"),
        Ini("[cp2]", "[cp2]\narraySize=1", ""),
        Ini("[cp2]", "[cp2]\narraySize=2", "159:1 ignored-key"),
        Ini("[cp3]", "[cp3]\narraySize=3", ""),
        Xml("<nviRequest>", "<nviRequest><LENGTH>3</LENGTH>", ""),
        Xml("<nviRequest>", "<nviRequest><LENGTH>31</LENGTH>", "13:17 ignored-element"),
        Xml("<cpMinSendTime>", "<cpMinSendTime><LENGTH>2</LENGTH>", ""),
        Xml("<cpMinSendTime>", "<cpMinSendTime><LENGTH>4</LENGTH>", "130:20 ignored-element"),
    };
    ExpectFindings(slips);
}

}  // namespace
}  // namespace tovarek::test
