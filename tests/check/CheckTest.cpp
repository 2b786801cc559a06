// Mistakes that a person makes in the example device, each with exactly its findings.
#include <gtest/gtest.h>

#include <algorithm>

#include "Slips.h"

namespace tovarek::test {
namespace {

// More lines than are compared one by one.
std::string ManyKeys() {
    std::string keys = "type=92\n";
    for (int i = 0; i < 40; ++i)
        keys += "type=92\n";
    return keys + "name=other\n";
}
const std::string kManyKeys = ManyKeys();
const std::string kLongText = "selfdoc=" + std::string(1000, 'x') + "\n";
const Slip kIniTemplate[] = {
    {"template.ini", "direction=1\ntype=93", "direction=output\ntype=93", "37:11 not-a-number"},
    {"template.ini", "direction=1\ntype=93", "direction=1\ntype=SNVT_obj_status",
     "34:1 nvlength; 38:6 not-a-number"},
    {"template.ini", "type=93", "type=93 ; status", "38:6 not-a-number"},
    {"template.ini", "synchronized=1", "synchronized=yes", "39:14 not-a-number"},
    {"template.ini", "synchronized=1", "synchronised=1", "39:1 ignored-key"},
    {"template.ini", "synchronized=1", "synchronized 1", "39:1 ignored-key"},
    {"template.ini", "synchronized=1", "synchronized=", "39:14 not-a-number"},
    {"template.ini", "direction=1\ntype=93", "direction=1\nTyp=93", "38:1 nvtype"},
    {"template.ini", "programID=9", "programID: 9", "5:1 programid"},
    {"template.ini", "[nv3]", "nv3]", "13:19 nvname"},
    {"template.ini", "type=92\n", kManyKeys.c_str(), "32:1 duplicate-key"},
    {"template.ini", "selfdoc=@0|1\n", kLongText.c_str(), "29:9 cut-text"},
    {"template.ini", "maximumNumberOfNvs=20", "maximumNumberOfNvs=4294967316", "14:20 overflowed-number"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=13", "131:1 ignored-section"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=15", "13:19 nvname"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=18", "13:19 nvname"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=fourteen", "13:19 not-a-number"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfNvs=14", "13:1 ignored-key"},
    {"template.ini", "numberOfStaticNvs=14\n", "", "11:1 count-mismatch"},
    {"template.ini", "[nvs]\n", "[nv]\n", "11:1 ignored-section"},
    {"template.ini", "[nv14]", "[nv15]", "13:19 nvname"},
    {"template.ini", "[nv14]", "[nv13]", "13:19 nvname; 131:1 duplicate-section"},
    {"template.ini", "numberOfTags=1", "numberOfTags=0", "141:1 ignored-section"},
    {"template.ini", "numberOfCp=9", "numberOfCp=8", "203:1 ignored-section"},
    {"template.ini", "type=92", "type=92\ntype=93", "32:1 duplicate-key"},
    {"template.ini", "bindable=1", ";bindable=1", "141:1 missing-value"},
    {"template.ini", "[general]", "[General ]\nid=1", "6:1 ignored-key"},
    {"template.ini", "\n[general]", "id=1\n[general]", "4:1 ignored-key"},
    {"template.ini", "\xEF\xBB\xBF; Application", "; Application", "58:34 encoding"},
    {"template.ini", "value=44BB8000", "value=44BB800G", "195:7 cpvalue"},
    {"template.ini", "length=9", "length=40", "127:8 nvlength"},
    {"template.ini", "name=nviRequest", "name=nviRequest\nlength=-1", "29:1 ignored-key"},
    {"template.ini", "name=nviWindow", "name=\"nviWindow", "71:6 odd-quote"},
    {"template.ini", "numberOfStaticNvs=14", "numberOfStaticNvs=0", "27:1 ignored-section"},
    {"template.ini", "[nv3]", "{nv3}", "13:19 nvname"},
    {"template.ini", "[nv3]\n", "", "13:19 nvname; 42:1 duplicate-key"},
    {"template.ini", "[nv3]", "[nv3] type=95", "42:1 ignored-key"},
    {"template.ini", "[nv3]", "[nv3] ; the room", ""},
    {"template.ini", "[nv3]", "(nv3)", "13:19 nvname"},
    {"template.ini", "selfdoc=@0|1\n", "selfdoc=@0|1 ; the request\n", "29:9 comment-in-text"},
    {"template.ini", "selfdoc=@0|1\n", "selfdoc=@0|1;the request ; or so\n", ""},
    {"template.ini", "name=nviRequest", "name=\u201CnviRequest\u201D", "28:6 odd-quote"},
    {"template.ini", "version=1.0", "version=1.0 ; of the file", "22:9 comment-in-text"},
    {"template.ini", "[tags]\n", "", "16:1 ignored-key"},
    {"template.ini", "value=44BB8000", "value=0x44BB8000", "195:7 cpvalue"},
    {"template.ini",
     "[nvs]\n; These counts say how many of the sections nv1, nv2, ... are read.\nnumberOfStaticNvs=14\n"
     "maximumNumberOfNvs=20\n",
     "", nullptr},
    // The sections in another order than they are asked for.
    {"template.ini", "[nvs]\n", "[tag1]\nnam=t\n[nv2]\nsynchronised=1\n[nvs]\nselfdok=\n", nullptr},
    // All fields of a record at once.
    {"template.ini", "synchronized=1",
     "avgRate=-1\nmaxRate=-1\narraySize=-1\noffline=2\ndefaultService=3\nserviceCanBeChanged=2\n"
     "defaultAuth=2\nauthCanBeChanged=2\ndefaultPriority=2\npriorityCanBeChanged=2\npolled=x\n"
     "synchronized=no\nconfiguration=on\nlength=two",
     nullptr},
    {"template.ini", "avgRate=0\nmaxRate=0\n; Without this key an INI tag is not bindable.\nbindable=1",
     "avgRate=low\nmaxRate=-1\nbindable=-1", nullptr},
    {"template.ini", "typeIndex=300\nvalue=2EE0\nminRawVal=0FA0\nmaxRawVal=4650\ninitRawVal=2EE0",
     "typeIndex=SNVT_temp\nvalue=2EE\nminRawVal=0FA\nmaxRawVal=46 50\ninitRawVal=2EEO", nullptr},
    {"template.ini", "direction=1\ntype=93", "direction=1\ntype=SNVT_304", nullptr},
    // The one text of a section.
    {"template.ini", "name=fanCoilTag", "name=\"fanCoilTag", "142:6 odd-quote"},
    {"template.ini", "[general]\n", "[genera]\nid=1\n[general]\n", nullptr},
};

constexpr const char* kProfileStart =
    "; Device profile of the fan-coil unit controller, INI form: the values of XIF header lines 6 to 10.\n"
    "; profile.xml and profile.xif hold the same values.\n\n"
    "; header line 6: tables, buffers, application\n[Line6]\n";

const Slip kIniProfile[] = {
    {"profile.ini", "protocolClockRate=5", "protocolClockRate=10 MHz",
     "33:19 not-a-number; 33:19 protocolClockRate"},
    {"profile.ini", "typeNeuron=0", "typeNeuron=FT3150", "31:12 not-a-number"},
    {"profile.ini", "firmware=7", "firmware=10 MHz", "34:10 not-a-number"},
    {"profile.ini", "transceiverInterface=0", ";transceiverInterface=0", "46:1 missing-value"},
    {"profile.ini", "generalData0=0\n", "", "58:1 missing-value"},
    {"profile.ini", "firmware=7", "firmware=0x7G", "34:10 not-a-number"},
    {"profile.ini", "generalData0=0", "generalData0=256", "65:14 generalData"},
    {"profile.ini", "transceiverRate=4", "transceiverRate=12", "50:17 transceiverRate"},
    {"profile.ini", "transceiverRate=4\n", "transceiverRate=12\nminimumClockRate=-1\n",
     "50:17 transceiverRate; 51:18 minimumClockRate; 53:1 duplicate-key"},
    {"profile.ini", "[Line10]\n", "", "0:0 receiveStartDelay"},
    {"profile.ini", "=", "=-9", nullptr, Form::ini, {}, true},
    {"profile.ini", "[Line", "[Row", "0:0 domainnumber", Form::ini, {}, true},
    // Headers that are wrong in the file's first line.
    {"profile.ini", kProfileStart, "[Line6\n", nullptr},
    {"profile.ini", kProfileStart, "[Lin6]\n", nullptr},
};

const Slip kJob[] = {
    {"job.json", "\"template.xml\"", "\"templat.xml\"", "2:3 errorloadingxmltemplatefile", Form::xml},
    {"job.json", "\"format.xml\"", "\"formats.xml\"", "12:3 errorloadingxmlformatfile", Form::xml},
    {"job.json", "\"userTypeFilePath\": \".\"", "\"userTypeFilePath\": \"types\"",
     "14:3 errorloadingusertypefile", Form::xml},
    {"job.json", "\"typeFilesXMLPrefix\": \"SNVT_\"", "\"typeFilesXMLPrefix\": \"UNVT_\"",
     "template.xml:59:7 typenotfoundinformatfile", Form::xml},
    {"job.json", "\"xmlTemplateNodeName\": \"DEVICE\"", "\"xmlTemplateNodeName\": \"\"",
     "3:3 xmlnodenotfoundintemplatefile", Form::xml},
};

TEST(Check, EverySlipInAnIniTemplateIsFound) {
    ExpectFindings(kIniTemplate);
}

// Whether one thing follows from another is not a matter of lines.
TEST(Check, ADocumentInOneLineTellsTheSame) {
    const SlipCheck::Stored joined = [](const std::string& text) {
        std::string line = text;
        std::replace_if(
            line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
        return line;
    };
    const auto told = [](SlipCheck check) {
        const Json answer = check.Run();
        std::multiset<std::string> names;
        for (const Json& finding : answer["findings"])
            names.insert(finding["name"].get<std::string>() + std::to_string(finding["notes"].size()));
        return names;
    };
    for (const Slip& slip : {Xml("<RAWVALUE>2EE0</RAWVALUE>", "<RAWVAL>2EE0</RAWVAL>", ""),
                             Slip{"format.xml", "<FM_LOW>1<", "<FM_LOW>low<", "", Form::xml},
                             Slip{"format.xml", "<supply>300", "<supply>SNVT_300", "", Form::xml}})
        EXPECT_EQ(told(SlipCheck(slip, joined)), told(SlipCheck(slip))) << slip.wrong;
}

TEST(Check, WhatAJobNamesAndIsNotThereIsFoundAtItsKey) {
    ExpectFindings(kJob);
}

// What one job cannot name: two files that are missing, a folder that is, and the root for a folder.
TEST(Check, FilesAndFoldersThatAreNotThereAreFound) {
    const std::pair<Slip, const char*> rows[] = {
        {{"t.ini", "", "", "", Form::ini, {"--iniTemplateFile", "none.ini", "--iniProfileFile", "no.ini"}},
         "no.ini:0:0 domainnumber; none.ini:0:0 programid"},
        {{"t.ini", "", "", "", Form::ini, {"--outputXIFfile", "nowhere/node.xif"}},
         "node.xif:0:0 pathNotFound"},
        {{"t.ini", "", "", "", Form::xml, {"--typeFilesDirectory", ""}}, "0:0 root-folder"},
        {{"t.ini", "", "", "", Form::xml, {"--catalogDir", "nowhere"}},
         "no catalog is open, so the size of standard type 105 is not known"},
        {{"template.ini", "", "", "", Form::ini, {"--catalogDir", "nowhere"}},
         "template.ini:31:6 unknowntype; ldrf.cat:0:0 erroraccessingSNVTmasterlist{"},
    };
    for (const auto& [slip, findings] : rows)
        EXPECT_NE((SlipCheck(slip).Findings("t.ini") + SlipCheck(slip).Run().dump()).find(findings),
                  std::string::npos)
            << findings << SlipCheck(slip).Findings("t.ini");
}

TEST(Check, EverySlipInAnIniProfileIsFound) {
    ExpectFindings(kIniProfile);
}

// Everything of it would be told else.
TEST(Check, AFileOfAnotherKindIsOneFinding) {
    for (const char* name : {"template.xml", "profile.xif"}) {
        SlipCheck check({name, "", "", ""});
        check.AddFile("--iniTemplateFile", name);
        EXPECT_EQ(check.Findings(name), "0:0 programid") << name;
        EXPECT_NE(check.Run().dump().find("nothing in this file is read"), std::string::npos) << name;
    }
}

TEST(Check, TheExampleIsSilentInEveryForm) {
    for (const Form form : {Form::ini, Form::xml, Form::xif})
        EXPECT_EQ(SlipCheck({"", "", "", "", form}).Findings(""), "");
}

}  // namespace
}  // namespace tovarek::test
