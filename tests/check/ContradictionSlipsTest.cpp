// Inputs of the example that contradict each other, each pair with exactly its finding.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "Platform.h"
#include "Slips.h"

namespace tovarek::test {
namespace {

TEST(Contradictions, NamesThatStandTwiceAreFound) {
    const Slip slips[] = {
        Ini("name=nviSetpoint", "name=nviSpaceTemp", "50:6 duplicate-name"),
        Ini("name=nviSetpoint", "name=NVISPACETEMP", ""),
        Ini("name=nviSetpoint", "name=fanCoilTag", ""),
        Ini("numberOfTags=1", "numberOfTags=2\n[tag2]\nname=fanCoilTag\nbindable=0", "19:6 duplicate-name"),
        Xml("<cpMinSendTime>\n      <SISD>1,1,0\\x80,52,2;</SISD>\n    </cpMinSendTime>",
            "<cpLocation>\n      <SISD>1,1,0\\x80,52,2;</SISD>\n    </cpLocation>", "130:5 duplicate-name"),
        Xml("<nviRequest>\n      <DIRECTION>input</DIRECTION>\n      <SNVTTYPE>92</SNVTTYPE>\n      "
            "<SISD>@0|1</SISD>\n    </nviRequest>",
            "<nvoStatus><DIRECTION>input</DIRECTION><SNVTTYPE>92</SNVTTYPE></nvoStatus>",
            "15:5 duplicate-name"),
    };
    ExpectFindings(slips);
}

TEST(Contradictions, DeclarationsAgainstTheCatalogAndTheTemplateAreFound) {
    const Slip slips[] = {
        Ini("0\\x80,52,2;", "0\\x80,381,2;", "159:13 unknown-property"),
        Ini("0\\x80,52,2;", "0\\x80,52,1;", "159:13 property-length"),
        Ini("0\\x80,52,2;", "0\\x80,52,6;", "159:13 array-by-length"),
        Ini("0\\x80,52,2;", "0\\x80,52,2,1;", ""),
        Ini("0\\x80,50,2,3;\nvalue=138827103A98", "0\\x80,50,6,3;", "163:13 property-length"),
        Ini("1,1,0\\x80,52,2;", "1,1,8\\x80,52,2;", "159:13 property-scope"),
        Ini("1,1,0\\x80,52,2;", "1,3,0\\x80,52,2;", "159:13 property-scope"),
        Ini("1,1,0\\x80,52,2;", "1,,0\\x80,52,2;", "159:13 property-scope"),
        Ini("0,,0\\x80,17", "0,0,0\\x80,17", "154:13 property-scope"),
        Ini("1,1,0\\x80,52,2;", "2,16,0\\x80,52,2;", ""),
        Ini("1,1,0\\x80,52,2;", "2,3.17,0\\x80,52,2;", "159:13 property-scope"),
        Ini("1,1,0\\x80,52,2;", "2,3~9999999999,0\\x80,52,2;", "159:13 property-scope"),
        // It has the type of its variable: nvoSpaceTemp has two bytes, nvoStatus six.
        Ini("1,1,0\\x80,52,2;", "2,4,0\\x80,27,2;", ""),
        Ini("1,1,0\\x80,52,2;", "2,1,0\\x80,27,2;", "159:13 property-length"),
        Ini("@0,8020[2];", "@0;", "159:13 property-scope"),
        Xml("1,1,0\\x80,52,2;", "1,1,0\\x80,0,2;", "131:7 unknown-property"),
        Xml("1,1,0\\x80,52,2;", "1,1,0\\x80,17,2;", "131:7 property-length"),
        Xml("1,1,0\\x80,52,2;", "2,17,0\\x80,52,2;", "131:7 property-scope"),
        Xml("8020[2];", "8020Coil;", ""),
        Xml("@0,8020[2];", "@8020[2Coil;", ""),
    };
    ExpectFindings(slips);
}

Slip FormatSlip(const char* right, const char* wrong, const char* findings) {
    return {"format.xml", right, wrong, findings, Form::xml};
}
Slip UserTypeSlip(const char* right, const char* wrong, const char* findings) {
    return {"user-types.xml", right, wrong, findings, Form::xml};
}

TEST(Contradictions, LengthsThatTypesDoNotHaveAreFound) {
    const Slip slips[] = {
        // The required sum over the members is 11; three bit fields share a byte.
        Xml("<LENGTH>9</LENGTH>", "<LENGTH>11</LENGTH>", "99:7 type-length"),
        Xml("<SNVTTYPE>300</SNVTTYPE>\n      <LENGTH>2<", "<SNVTTYPE>300</SNVTTYPE>\n      <LENGTH>3<",
            "68:7 type-length"),
        Xml("6\\x80,1,2;</SISD>\n      <SNVTTYPE>300</SNVTTYPE>\n      <RAWVALUE>2EE0</RAWVALUE>\n      "
            "<MINRAWVAL>0FA0</MINRAWVAL>\n      <MAXRAWVAL>4650</MAXRAWVAL>\n      "
            "<INITRAWVAL>2EE0</INITRAWVAL>",
            "6\\x80,1,4;</SISD><SNVTTYPE>300</SNVTTYPE><RAWVALUE>2EE02EE0</RAWVALUE>",
            "140:7 array-by-length"),
        Xml("3\\x80,1,4;</SISD>\n      <RAWVALUE>44BB8000</RAWVALUE>", "3\\x80,1,2;</SISD>",
            "166:7 type-length"),
        Xml("4\\x80,1,2;</SISD>\n      <RAWVALUE>00C8</RAWVALUE>", "4\\x80,1,2,3;</SISD>", ""),
        FormatSlip("<LENGTH>4</LENGTH>", "<LENGTH>2</LENGTH>", "49:5 type-length"),
        FormatSlip("<SNVT_107>", "<SNVT_107><LENGTH>4</LENGTH>", "8:13 type-length"),
        FormatSlip("<BFOFFSET>2<", "<LENGTH>2</LENGTH><BFOFFSET>2<", "99:5 duplicate-key; 100:5 type-length"),
        FormatSlip("<NAME>unitState</NAME>", "<NAME>unitState</NAME><LENGTH>11</LENGTH>",
                   "125:27 type-length"),
        FormatSlip("<NAME>unitState</NAME>", "<NAME>unitState</NAME><LENGTH>9</LENGTH>", ""),
        // Of a member that stands first.
        FormatSlip(
            "<SNVT_320>\n    <TYPE>STRUCT</TYPE>\n    <NAME>unitState</NAME>\n    <LONGNAME>State of the "
            "unit</LONGNAME>\n    <FIELDS>",
            "<SNVT_330><TYPE>BITS</TYPE><LENGTH>2</LENGTH><BFSIZE>1</BFSIZE></SNVT_330>\n<SNVT_320><TYPE>"
            "STRUCT</TYPE><NAME>unitState</NAME><FIELDS><first>330</first><first>330</first>",
            nullptr),
        // A definition that grows contradicts the variable.
        FormatSlip("<valve>313</valve>", "<valve>313</valve><valve2>313</valve2>",
                   "template.xml:99:7 type-length"),
    };
    ExpectFindings(slips);
}

TEST(Contradictions, TypesThatStandTwiceOrNowhereAreFound) {
    const Slip slips[] = {
        FormatSlip("<FM_LOW>1</FM_LOW>", "<FM_OFF>1</FM_OFF>", "66:7 duplicate-type"),
        FormatSlip("<FM_LOW>1<", "<FM_LOW>0<", "66:7 duplicate-type"),
        FormatSlip("<FM_LOW>1<", "<FM_LOW>low<", "66:7 not-a-number"),
        UserTypeSlip("<NAME>powerLimit<", "<NAME>power limit<", "9:9 blank-in-name"),
        FormatSlip("<FM_LOW>1<", "<FM_LOW>255<", "66:7 overflowed-number; 70:7 duplicate-type"),
        FormatSlip("<overheat>311</overheat>", "<frost>311</frost>", "130:7 duplicate-type"),
        FormatSlip("<NAME>waterFlow</NAME>", "<NAME>waterTemp</NAME>", "31:5 duplicate-type"),
        FormatSlip("<SNVT_301>", "<SNVT_300/><SNVT_301>", "29:3 duplicate-key"),
        UserTypeSlip("</_9FFFFF5014000000>",
                     "<UCPT_1><NAME>other</NAME><SNVTTYPE>340</SNVTTYPE></UCPT_1></_9FFFFF5014000000>",
                     "39:5 duplicate-type"),
        Xml("6\\x80,3,16;</SISD>\n      <SNVTTYPE>304</SNVTTYPE>", "6\\x80,3,16;</SISD>",
            "158:7 missing-reference"),
        Xml("5\\x80,1,2;", "5\\x80,2,2;", "176:7 missing-reference"),
        Xml("6\\x80,3,16;", "6\\x80,2,16;", "159:7 duplicate-type"),
        // Two variables, or two properties, of one type.
        Xml("<SNVTTYPE>301</SNVTTYPE>", "<SNVTTYPE>300</SNVTTYPE>", ""),
        Xml("5\\x80,1,2;", "4\\x80,1,2;", ""),
    };
    ExpectFindings(slips);
}

// What follows from one slip in a file of types is told with it.
TEST(Contradictions, WhatHidesTypesIsOneFinding) {
    const Slip slips[] = {
        {"user-types.xml", "UCPTS>", "UCPT>", "4:1 ignored-element", Form::xml, {}, true},
        {"user-types.xml", "_5>", "_7>", "42:3 ignored-element", Form::xml, {}, true},
        {"user-types.xml", "_5>", "_6>", "42:3 ignored-element", Form::xml, {}, true},
        {"user-types.xml", "UCPT_2>", "SNVT_2>", "15:7 mixed-types", Form::xml, {}, true},
        UserTypeSlip("<_5>\n    <_9FFFFF5014030400>\n      <UCPT_1>\n        <NAME>valveTime</NAME>\n        "
                     "<SNVTTYPE>107</SNVTTYPE>\n        <MAXRAWVAL>1770</MAXRAWVAL>\n        "
                     "<INITRAWVAL>0384</INITRAWVAL>\n      </UCPT_1>\n    </_9FFFFF5014030400>\n  </_5>",
                     "<_4><_9FFFFF5014000000><UCPT_1><NAME>other</NAME><SNVTTYPE>340</SNVTTYPE></UCPT_1>"
                     "</_9FFFFF5014000000></_4><_7/>",
                     "42:26 duplicate-type; 42:110 ignored-element"),
        UserTypeSlip("<UCPT_1>\n        <NAME>powerLimit</NAME>\n        <SNVTTYPE>302</SNVTTYPE>\n        "
                     "<MINRAWVAL>00000000</MINRAWVAL>\n        <MAXRAWVAL>451C4000</MAXRAWVAL>\n        "
                     "<INITRAWVAL>44BB8000</INITRAWVAL>\n      </UCPT_1>",
                     "<UCPT_3><NAME>powerLimit</NAME><SNVTTYPE>302</SNVTTYPE></UCPT_3>",
                     "9:7 QVX_editResult_missingucpttypeindex"),
        {"format.xml",
         "SNVT_300>",
         "SNVT_399>",
         "template.xml:67:7 typenotfoundinformatfile",
         Form::xml,
         {},
         true},
        {"format.xml", "SNVT_30", "SNVT_39", nullptr, Form::xml, {}, true},
        FormatSlip("</ENUMS>", "</ENUMS><ENUMS><FM_X>9</FM_X></ENUMS>", "71:13 duplicate-key"),
        FormatSlip("<NAME>fanMode</NAME>", "<NAME></NAME>", "62:5 missing-value"),
        FormatSlip("<MAX>2500<", "<MAX>2500,5<", "51:5 not-a-number"),
        FormatSlip("<UNIT>l/h</UNIT>\n    <LONG", "<UNIT>l\n/h</UNIT>\n    <LONG", "37:5 line-break"),
        FormatSlip("<SI><UNIT>l/h<", "<SI><UNIT>l/\nh<", "40:11 line-break"),
        FormatSlip("<supply>300", "<supply>SNVT_300", nullptr),
        FormatSlip("<SI><UNIT>l/h</UNIT>", "<SI><UNIT>l/h</UNIT><NOTE>a\nb</NOTE>", "40:27 ignored-element"),
    };
    ExpectFindings(slips);
    const Slip misspelt = {"user-types.xml", "_5>", "_5_>", "", Form::xml, {}, true};
    EXPECT_NE(SlipCheck(misspelt).Run().dump().find("did you mean '_5'?"), std::string::npos);
}

TEST(Contradictions, ValuesThatTheirLimitsForbidAreFound) {
    const Slip slips[] = {
        Ini("value=138827103A98", "value=138827107FFF", "164:7 value-range"),
        Ini("1,1,0\\x80,52,2;", "1,1,0\\x80,52,2;\nvalue=FFFF", "160:7 value-range"),
        Ini("[cp1]\ndeclaration=0,,0\\x80,17,31;\nvalue="
            "46432D30310000000000000000000000000000000000000000000000000000",
            "[cp1]\ndeclaration=1,1,0\\x80,52,2;\nvalue=FFFF", "155:7 value-range"),
        Ini("[cp2]\ndeclaration=1,1,0\\x80,52,2;",
            "[cp2]\ndeclaration=2,3,0\\x80,22,7;\nvalue=00001900000000", "160:7 value-range"),
        Ini("[cp2]\ndeclaration=1,1,0\\x80,52,2;",
            "[cp2]\ndeclaration=2,3,0\\x80,22,7;\nvalue=00000900000000", ""),
        Xml("<RAWVALUE>2EE0<", "<RAWVALUE>5000<", "142:7 value-range"),
        Xml("<MAXRAWVAL>4650<", "<MAXRAWVAL>2000<", "142:7 value-range"),
        Xml("<MINRAWVAL>0FA0<", "<MINRAWVAL>4651<", "143:7 value-range"),
        Xml("<INITRAWVAL>2EE0<", "<INITRAWVAL>0010<", "145:7 value-range"),
        Xml("<MAXRAWVAL>04<", "<MAXRAWVAL>07<", "153:7 value-range"),
        Xml("<RAWVALUE>44BB8000<", "<RAWVALUE>C4BB8000<", "167:7 value-range"),
        Xml("<RAWVALUE>44BB8000<", "<RAWVALUE>7FC00000<", "167:7 value-range"),
        Xml("<RAWVALUE>00C8<", "<RAWVALUE>07D1<", "172:7 value-range"),
        UserTypeSlip("<INITRAWVAL>00C8<", "<INITRAWVAL>07D1<", "37:9 value-range"),
        UserTypeSlip("<MAXRAWVAL>07D0<", "<MAXRAWVAL>0700<", ""),
        UserTypeSlip("<MINRAWVAL>0000</MINRAWVAL>\n        <MAXRAWVAL>07D0</MAXRAWVAL>",
                     "<MINRAWVAL>0001</MINRAWVAL>", "35:9 value-range"),
    };
    ExpectFindings(slips);
    // Another one at the top of the file, behind its mark, does not hide it.
    SlipCheck both(Ini("value=138827103A98", "value=138827107FFF", ""),
                   [](const std::string& text) { return text.substr(0, 3) + "id=1\n" + text.substr(3); });
    EXPECT_EQ(both.Findings("template.ini"), "1:1 ignored-key; 165:7 value-range");
}

TEST(Contradictions, MattersOfTasteAreToldToThePedanticAlone) {
    const Slip slips[] = {
        Ini("name=nviRequest", "name=nviRequestOfTheRoom", "28:6 long-name"),
        Ini("name=nviRequest", "name=nvi-Request", "28:6 odd-name"),
        Ini("name=nviRequest", "name=1Request", "28:6 odd-name"),
        Ini("name=nviRequest\nselfdoc=@0", "name=nviRequest\nselfdoc=0", "29:9 odd-self-documentation"),
        Ini("selfDoc=&3.0@0,8020[2];", "selfDoc=", "7:9 odd-self-documentation"),
        Ini("name=nviRequest", "name=nviRequest\nmaxRate=251", "29:9 odd-rate"),
        Ini("arraySize=4", "arraySize=1", "75:11 array-of-one"),
        Ini("direction=0\ntype=107", "direction=1\ntype=107", "134:11 configuration-output"),
        Ini("version=1.0", "version=2", "22:9 odd-version"),
        {"template.ini", "", "", "0:0 blank-in-file-name", Form::ini, {"--outputXIFfile", "my node.xif"}},
        FormatSlip("<SNVT_301>", "<SNVT_399/><SNVT_301>", "29:3 unused-type"),
        Ini("name=fanCoilTag", "name=fanCoil-Tag", "142:6 odd-name"),
    };
    // What the example has itself.
    SlipCheck example({"template.ini", "", "", "", Form::ini, {"--pedantic"}});
    const Json told = example.Run();
    EXPECT_EQ(SlipCheck::TextOf(told, "template.ini"),
              "6:11 maker-number; 58:9 eight-bit-text; 89:9 eight-bit-text; 136:15 no-default");
    const std::set<std::string> own = {"maker-number", "eight-bit-text", "no-default"};
    std::string whole = example.WholeFindings(told, 0);
    for (Slip slip : slips) {
        EXPECT_EQ(SlipCheck(slip).Findings(slip.file), "") << slip.wrong;
        slip.more.insert(slip.more.begin(), "--pedantic");
        SlipCheck check(slip);
        const Json all = check.Run();
        Json answer = {{"findings", Json::array()}};
        for (const Json& finding : all["findings"])
            if (!own.contains(finding["name"]))
                answer["findings"].push_back(finding);
        EXPECT_EQ(SlipCheck::TextOf(answer, slip.file), slip.findings) << slip.wrong;
        whole += check.WholeFindings(answer, std::count(whole.begin(), whole.end(), '\n') - 3);
    }
    ExpectWhole(whole);
}

TEST(Contradictions, TheOtherSideIsNoted) {
    const std::pair<Slip, int> rows[] = {
        {Ini("name=nviSetpoint", "name=nviSpaceTemp", ""), 43},
        {Ini("@0,8020[2];", "@0;", ""), 7},
        {Ini("1,1,0\\x80,52,2;", "2,3.17,0\\x80,52,2;", ""), 13},
        {Xml("1,1,0\\x80,52,2;", "2,1,0\\x80,27,2;", ""), 21},
    };
    for (const auto& [slip, line] : rows) {
        const Json findings = SlipCheck(slip).Run()["findings"];
        EXPECT_EQ(findings[0]["notes"][0].value("line", 0), line) << slip.wrong;
    }
}

TEST(Contradictions, OutputsThatWindowsTakesForOneOrForDevicesAreFound) {
    const Slip slips[] = {
        {"job.json", "\"langExtension\": \"ENU\"", "\"langExtension\": \"TYP\"",
         "25:3 output-collision; 25:3 odd-extension", Form::xml},
        {"job.json", "\"typeFilesBaseName\": \"fancoil\"", "\"typeFilesBaseName\": \"com1.v2\"",
         "17:3 output-collision", Form::xml},
        {"job.json", "\"typeFilesBaseName\": \"fancoil\"", "\"typeFilesBaseName\": \"\"",
         "17:3 missing-value", Form::xml},
        {"job.json", "\"langExtension\": \"ENU\"", "\"langExtension\": \"ENGLISH\"", "25:3 odd-extension",
         Form::xml},
        {"job.json", "\"localeID\": 1033", "\"localeID\": 1031", "25:3 odd-extension", Form::xml},
        {"job.json", "", "", "0:0 output-collision", Form::xml, {"--outputXIFfile", "nul.xif"}},
        {"job.json", "", "", "", Form::xml, {"--outputXIFfile", "null.xif"}},
        {"job.json",
         "",
         "",
         "0:0 output-collision; node.xif:0:0 pathNotFound",
         Form::xml,
         {"--outputXIFfile", "aux/node.xif"}},
    };
    ExpectFindings(slips);
}

}  // namespace
}  // namespace tovarek::test
