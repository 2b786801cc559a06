// Mistakes that a person makes in the example's profile, each with exactly its findings.
#include <gtest/gtest.h>

#include "Slips.h"

namespace tovarek::test {
namespace {

Slip ProfileXml(const char* right, const char* wrong, const char* findings) {
    return {"profile.xml", right, wrong, findings, Form::xml};
}
Slip ProfileXif(const char* right, const char* wrong, const char* findings) {
    return {"profile.xif", right, wrong, findings, Form::xif};
}
Slip ProfileIni(const char* right, const char* wrong, const char* findings) {
    return {"profile.ini", right, wrong, findings};
}

TEST(Check, EverySlipInAProfileIsFound) {
    const Slip slips[] = {
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "", "29:3 missing-value"),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE/>", "34:5 not-a-number"),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>v7</FIRMWARE>", "34:5 not-a-number"),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>&amp;H07</FIRMWARE>", ""),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>7</FIRMWARE><FIRMWARE>8</FIRMWARE>",
                   "34:5 duplicate-key"),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>7</FIRMWARE><DOMAINS>1</DOMAINS>",
                   "34:27 ignored-element"),
        ProfileXml("<FIRMWARE>7</FIRMWARE>", "<Group><Firmware> 7 </Firmware></Group>", ""),
        ProfileXml("<DOMAINS>2</DOMAINS>", "<DOMAINS value='2'/>", "6:5 domainnumber; 6:5 ignored-attribute"),
        ProfileXml("<DOMAINS>2</DOMAINS>", "", "5:3 domainnumber"),
        ProfileXml("<PROTOCOLCLOCKRATE>5<", "<PROTOCOLCLOCKRATE>7.5<",
                   "33:5 not-a-number; 33:5 protocolClockRate"),
        ProfileXif("2 15 1 0 0 4 3", "2 15 1 0 0 4 3x", "6:14 not-a-number"),
        ProfileXif("2 15 1 0 0 4 3 2 2 3 5 9 9 9 9 2 0 16 15 1 1 11 0",
                   "2 15 1 0 0 4 3 2 2 3 5 9 9 9 9 2 0 16 15 1 1 11", ""),
        ProfileXif("11 0\r\n", "11 0 15 5 13\r\n", "6:51 extra-values"),
        ProfileXif("265 4\r\n", "265 4 10000000\r\n", "7:32 extra-values"),
        ProfileXif("1 7 1 0", "1 7 0 0", "8:5 extra-values"),
        ProfileXif("200 0\r\n", "200  0\r\n", "8:22 not-a-number"),
        ProfileXif("78125 0 0 0", "78125\t0 0 0 0", "9:1 not-a-number"),
        ProfileIni("firmware=7", "firmware=&H07", "34:10 not-a-number"),
        ProfileIni("[Line7]", "[Line 7]", "29:1 typeneuron"),
        ProfileIni("[Line7]", "[Line8]\nstandardTransceiver=2\n[Line 7]", nullptr),
        ProfileIni("domains=2", "domain=2", "6:1 domainnumber"),
        ProfileXml("<ADDRESSES>15</ADDRESSES>", "<ADRESSES>15</ADRESSES>", "7:5 ignored-element"),
        {"profile.xml", "XIF_LINE8>", "XIF_LIN8>", nullptr, Form::xml, {}, true},
        ProfileXif("2 15 1 0 0 4 3", "3 16 2 0 0 4 3", nullptr),
        ProfileXif("265 4\r\n", "265 -4\r\n", nullptr),
        {"profile.xml", "XIF_LINE8>", "XIF_LINE11>", nullptr, Form::xml, {}, true},
    };
    ExpectFindings(slips);
}

TEST(Check, AProfileThatIsNotThereIsOneFinding) {
    const Slip none = {"profile.ini", "", "", "", Form::ini, {"--iniProfileFile", "none.ini"}};
    EXPECT_EQ(SlipCheck(none).Findings("none.ini"), "0:0 domainnumber");
}

// With CR LF its lines are counted otherwise, so that the numbers of line 6 are missed first.
TEST(Check, AnXifProfileInUtf16IsToldAsSuch) {
    for (const bool isBigEndian : {false, true}) {
        SlipCheck check({"profile.xif", "", "", "", Form::xif});
        const std::string path = check.Path("profile.xif");
        std::string text = ReadFile(path);
        WriteFile(path, ToUtf16(text, isBigEndian));
        EXPECT_EQ(check.Findings("profile.xif"), "6:1 subscriptOutOfRange");
        EXPECT_NE(check.Run().dump().find("the file is UTF-16"), std::string::npos);
        std::erase(text, '\r');
        WriteFile(path, ToUtf16(text, isBigEndian));
        EXPECT_TRUE(check.Findings("profile.xif").starts_with("1:1 encoding"));
    }
}

TEST(Check, AProfileInTheTemplatesFileIsNotReadWithoutXif) {
    const Slip slip = {"template.ini",    "[general]\n", "[Line6]\ndomains=two\nnote\n[general]\nnote=1\n",
                       "9:1 ignored-key", Form::ini,     {"--mustGenerateXif", "false"}};
    SlipCheck check(slip);
    check.AddFile("--iniProfileFile", slip.file);
    EXPECT_EQ(check.Findings(slip.file), slip.findings);
}

TEST(Check, AFileThatIsProfileAndTemplateIsReadOnce) {
    SlipCheck check({"template.ini", "name=nviRequest", "name=nviRequest\nnote=1", "", Form::ini});
    const std::string path = check.Path("template.ini");
    WriteFile(path, ReadFile(path) + "\r\n" + ReadFile(check.Path("profile.ini")));
    check.AddFile("--iniProfileFile", "template.ini");
    EXPECT_EQ(check.Findings("template.ini"), "29:1 ignored-key");
}

TEST(Check, OfSectionsThatAreEquallyNearTheFirstIsMeant) {
    const Slip slip = ProfileIni("[Line6]", "[Linz6]\n[Liny6]\n[Linx6]\n[Linc6]\n[Linb6]\n[Lina6]", "");
    const std::string told = SlipCheck(slip).Run().dump();
    EXPECT_NE(told.find("has no section [Line6]; did you mean [Lina6]"), std::string::npos) << told;
}

TEST(Check, NumbersThatPeopleMeanAreNamed) {
    const std::pair<Slip, const char*> rows[] = {
        {ProfileIni("protocolClockRate=5", "protocolClockRate=2.5 MHz", ""), "write protocolClockRate=3"},
        {ProfileIni("protocolClockRate=5", "protocolClockRate=40MHz", ""), "write protocolClockRate=7"},
        {ProfileIni("protocolClockRate=5", "protocolClockRate=80MHz", ""), "it takes 1 to 7"},
        {ProfileIni("typeNeuron=0", "typeNeuron=FT 3120-E4", ""), "write typeNeuron=14"},
        {ProfileIni("firmware=7", "firmware=&H1F", ""), "write firmware=31"},
        {ProfileIni("typeNeuron=0", "typeNeuron=FT 3150", ""), "write typeNeuron=0"},
        {ProfileIni("wakeupPinDir=0", "wakeupPinDir=output", ""), "write wakeupPinDir=1"},
        {ProfileIni("wakeupPinDir=0", "wakeupPinDir=In", ""), "write wakeupPinDir=0"},
        {ProfileIni("standardTransceiver=1", "standardTransceiver=Yes", ""), "write standardTransceiver=1"},
        {ProfileIni("controlPreamble=0", "controlPreamble=off", ""), "write controlPreamble=0"},
        {ProfileIni("addresses=15", "addresses=yes", ""), "it takes 0 to 15"},
        {ProfileIni("firmware=7", "firmware=new", ""), "it takes 0 and above"},
        {ProfileXml("<DOMAINS>2</DOMAINS>", "<DOMAINS>0x2</DOMAINS>", ""), "write <DOMAINS>2</DOMAINS>"},
    };
    for (const auto& [slip, mend] : rows)
        EXPECT_NE(SlipCheck(slip).Run().dump().find(mend), std::string::npos) << mend;
}

}  // namespace
}  // namespace tovarek::test
