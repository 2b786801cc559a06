// Inputs of the example that contradict each other, each pair with exactly its finding.
#include <gtest/gtest.h>

#include <string>

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
    if (kIsWindows)
        GTEST_SKIP() << "they are refused there";
    const Slip slips[] = {
        {"job.json", "\"langExtension\": \"ENU\"", "\"langExtension\": \"TYP\"", "25:3 output-collision",
         Form::xml},
        {"job.json", "\"typeFilesBaseName\": \"fancoil\"", "\"typeFilesBaseName\": \"com1.v2\"",
         "17:3 output-collision", Form::xml},
        {"job.json", "", "", "0:0 output-collision", Form::xml, {"--outputXIFfile", "nul.xif"}},
        {"job.json", "", "", "", Form::xml, {"--outputXIFfile", "null.xif"}},
    };
    ExpectFindings(slips);
}

}  // namespace
}  // namespace tovarek::test
