// Mistakes that a person makes in the XML form of the example's template, each with exactly its findings.
#include <gtest/gtest.h>

#include "Slips.h"

namespace tovarek::test {
namespace {

Slip Xml(const char* right, const char* wrong, const char* findings) {
    return {"template.xml", right, wrong, findings, Form::xml};
}

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
        Xml("<SYNCHRONIZED>1</", "<SYNCHRONIZED>yes</", "22:7 not-a-number"),
        Xml("<SYNCHRONIZED>1</", "<SYNCHRONIZED>0.5</", "22:7 not-a-number"),
        Xml("<ARRAYSIZE>4</ARRAYSIZE>", "<ARRAYSIZE>4</ARRAYSIZE><ARRAYSIZE>4</ARRAYSIZE>",
            "53:7 duplicate-key"),
        Xml("<ARRAYSIZE>4</ARRAYSIZE>", "<array><ARRAYSIZE>4</ARRAYSIZE></array>", ""),
        Xml("<nviRequest>", "<nviRequest length=\"2\">", "13:5 ignored-attribute"),
        Xml("<SISD>@1|4</SISD>", "<SISD><![CDATA[@1|4]]></SISD>", "47:7 ignored-text"),
        Xml("<SISD>@1|4</SISD>", "<SISD>@1<!-- object 1 -->|4</SISD>", "47:7 ignored-text"),
        Xml("<CPS>", "<CPS>properties", "123:3 ignored-text"),
        Xml("<NVS>", "<VERSION>1.0</VERSION><NVS>", "11:3 ignored-element"),
        Xml("<MAXIMUMNUMBEROFNVS>20</MAXIMUMNUMBEROFNVS>", "<MAXIMUMNUMBEROFNVS>x20</MAXIMUMNUMBEROFNVS>",
            "8:3 not-a-number; 8:3 maximumNumberOfNvs"),
    };
    for (const Slip& slip : slips)
        EXPECT_EQ(SlipCheck(slip).Findings(slip.file), slip.findings) << slip.wrong;
}

}  // namespace
}  // namespace tovarek::test
