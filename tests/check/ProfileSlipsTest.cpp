// Mistakes that a person makes in the example's profile, each with exactly its findings.
#include <gtest/gtest.h>

#include "Slips.h"

namespace tovarek::test {
namespace {

Slip Xml(const char* right, const char* wrong, const char* findings) {
    return {"profile.xml", right, wrong, findings, Form::xml};
}
Slip Xif(const char* right, const char* wrong, const char* findings) {
    return {"profile.xif", right, wrong, findings, Form::xif};
}
Slip Ini(const char* right, const char* wrong, const char* findings) {
    return {"profile.ini", right, wrong, findings};
}

TEST(Check, EverySlipInAProfileIsFound) {
    const Slip slips[] = {
        Xml("<FIRMWARE>7</FIRMWARE>", "", "29:3 missing-value"),
        Xml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE/>", "34:5 not-a-number"),
        Xml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>v7</FIRMWARE>", "34:5 not-a-number"),
        Xml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>&amp;H07</FIRMWARE>", ""),
        Xml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>7</FIRMWARE><FIRMWARE>8</FIRMWARE>", "34:5 duplicate-key"),
        Xml("<FIRMWARE>7</FIRMWARE>", "<FIRMWARE>7</FIRMWARE><DOMAINS>1</DOMAINS>", "34:27 ignored-element"),
        Xml("<FIRMWARE>7</FIRMWARE>", "<Group><Firmware> 7 </Firmware></Group>", ""),
        Xml("<DOMAINS>2</DOMAINS>", "<DOMAINS value='2'/>", "6:5 domainnumber; 6:5 ignored-attribute"),
        Xml("<DOMAINS>2</DOMAINS>", "", "5:3 domainnumber"),
        Xml("<PROTOCOLCLOCKRATE>5<", "<PROTOCOLCLOCKRATE>7.5<", "33:5 not-a-number; 33:5 protocolClockRate"),
        Xif("2 15 1 0 0 4 3", "2 15 1 0 0 4 3x", "6:14 not-a-number"),
        Xif("2 15 1 0 0 4 3 2 2 3 5 9 9 9 9 2 0 16 15 1 1 11 0",
            "2 15 1 0 0 4 3 2 2 3 5 9 9 9 9 2 0 16 15 1 1 11", ""),
        Xif("11 0\r\n", "11 0 15 5 13\r\n", "6:51 extra-values"),
        Xif("265 4\r\n", "265 4 10000000\r\n", "7:32 extra-values"),
        Xif("1 7 1 0", "1 7 0 0", "8:5 extra-values"),
        Xif("200 0\r\n", "200  0\r\n", "8:22 not-a-number"),
        Xif("78125 0 0 0", "78125\t0 0 0 0", "9:1 not-a-number"),
        Ini("firmware=7", "firmware=&H07", "34:10 not-a-number"),
        Ini("[Line7]", "[Line 7]", "29:1 typeneuron; 29:1 ignored-section"),
    };
    for (const Slip& slip : slips)
        EXPECT_EQ(SlipCheck(slip).Findings(slip.file), slip.findings) << slip.wrong;
}

TEST(Check, AProfileThatIsNotThereIsOneFinding) {
    const Slip none = {"profile.ini", "", "", "", Form::ini, {"--iniProfileFile", "none.ini"}};
    EXPECT_EQ(SlipCheck(none).Findings("none.ini"), "0:0 domainnumber");
}

TEST(Check, NumbersThatPeopleMeanAreNamed) {
    const std::pair<Slip, const char*> rows[] = {
        {Ini("protocolClockRate=5", "protocolClockRate=2.5 MHz", ""), "write protocolClockRate=3"},
        {Ini("typeNeuron=0", "typeNeuron=FT 3120-E4", ""), "write typeNeuron=14"},
        {Ini("firmware=7", "firmware=&H1F", ""), "write firmware=31"},
        {Ini("firmware=7", "firmware=new", ""), "it takes 0 and above"},
        {Xml("<DOMAINS>2</DOMAINS>", "<DOMAINS>0x2</DOMAINS>", ""), "write <DOMAINS>2</DOMAINS>"},
    };
    for (const auto& [slip, mend] : rows)
        EXPECT_NE(SlipCheck(slip).Run().dump().find(mend), std::string::npos) << mend;
}

}  // namespace
}  // namespace tovarek::test
