#include <gtest/gtest.h>

#include "Scratch.h"
#include "support/CTools.h"
#include "support/Readings.h"
#include "template/CTemplate.h"
#include "template/TemplateFields.h"

namespace tovarek::test {
namespace {

const CErrorHandler kHandler;

CTemplate FromIni(const Scratch& scratch, const std::string& text) {
    CTemplate loaded;
    loaded.errorHandler = &kHandler;
    loaded.iniFile = scratch.File("t.ini", text);
    loaded.Load();
    return loaded;
}

CTemplate FromXml(const Scratch& scratch, const std::string& content) {
    CTemplate loaded;
    loaded.errorHandler = &kHandler;
    loaded.xmlNodeName = "D";
    loaded.xmlFile = scratch.File("t.xml", "<x><D>" + content + "</D></x>");
    loaded.Load();
    return loaded;
}

TEST(TemplateIni, DefaultsAreThoseOfMissingKeys) {
    const Scratch scratch;
    const CTemplate loaded = FromIni(
        scratch, "[nvs]\nnumberOfStaticNvs=2\n[nv1]\nname=a\n[tags]\nnumberOfTags=1\n[tag1]\nname=t\n");
    ASSERT_EQ(loaded.nvs.size(), 2U);
    EXPECT_EQ(loaded.nvs[1].name, "");
    EXPECT_EQ(loaded.nvs[0].direction, -1);
    EXPECT_EQ(loaded.nvs[0].typeIndex, -1);
    EXPECT_EQ(loaded.nvs[0].length, -1);
    EXPECT_EQ(loaded.nvs[0].priorityCanBeChanged, 1);
    EXPECT_EQ(loaded.nvs[0].polled, 0);
    EXPECT_EQ(loaded.maximumNumberOfNvs, 0);
    EXPECT_EQ(loaded.tags[0].bindable, 0) << "only a tag of an XML template is bindable by default";
}

TEST(TemplateIni, IndexesFollowTheArraySizes) {
    const Scratch scratch;
    const CTemplate loaded =
        FromIni(scratch,
                "[nvs]\nnumberOfStaticNvs=4\n[NV2]\nArraySize=4\n[nv3]\narraySize=-3\n"
                "[tags]\nnumberOfTags=2\n[cps]\nnumberOfCp=2\nversion=1.0\n"
                "[cp1]\ndeclaration=d\nvalue=01\nminRawVal=02\nmaxRawVal=03\ninitRawVal=04\n"
                "arraySize=1\ntypeIndex=7\n");
    ASSERT_EQ(loaded.nvs.size(), 4U);
    EXPECT_EQ(loaded.nvs[1].index, 1);
    EXPECT_EQ(loaded.nvs[2].index, 5);
    EXPECT_EQ(loaded.nvs[3].index, 6);
    EXPECT_EQ(loaded.tags[1].index, 1);
    const CCp& cp = loaded.cps[0];
    EXPECT_EQ(cp.defaultValue + cp.minValue + cp.maxValue + cp.initValue, "01020304");
    EXPECT_EQ(cp.arraySize, 0) << "an array of one is none";
    EXPECT_EQ(cp.typeIndex, 7);
}

// Counts come from the file and may be anything; the loader must answer at once and with the same error.
TEST(TemplateIni, HugeCountsAnswerAtOnce) {
    const Scratch scratch;
    const std::string huge = "2147483647\n";
    EXPECT_EQ(RaisedNumber([&] { FromIni(scratch, "[nvs]\nnumberOfStaticNvs=" + huge); }), 0);
    EXPECT_EQ(RaisedNumber([&] { FromIni(scratch, "[tags]\nnumberOfTags=" + huge); }), 0);
    EXPECT_EQ(RaisedNumber([&] { FromIni(scratch, "[cps]\nnumberOfCp=" + huge); }), 0);
    // One array anywhere among them makes the variable table too long to count.
    EXPECT_EQ(RaisedNumber(
                  [&] { FromIni(scratch, "[nvs]\nnumberOfStaticNvs=" + huge + "[nv70000]\narraySize=2\n"); }),
              6);
    // No section of a variable: numbers with leading zeros, beyond the count, or none at all.
    EXPECT_EQ(RaisedNumber([&] {
                  FromIni(scratch, "[nvs]\nnumberOfStaticNvs=" + huge +
                                       "[nv07000]\narraySize=9\n[nv]\narraySize=9\n[nv7e4]\narraySize=9\n"
                                       "[nv2147483648]\narraySize=9\n[nvs2]\narraySize=9");
              }),
              0);
    // 4,097 variables are read, the sections up to the count are counted: each of them once, and none behind
    // it.
    for (const auto& [number, arraySize, error] : {std::tuple{4097, 1000, 0},
                                                   {4097, 1001, 6},
                                                   {4098, 1001, 6},
                                                   {2147482648, 1000, 0},
                                                   {2147482648, 1001, 6},
                                                   {2147482649, 1001, 0}})
        EXPECT_EQ(RaisedNumber([&, section = "[nv" + std::to_string(number) +
                                             "]\narraySize=" + std::to_string(arraySize)] {
                      FromIni(scratch, "[nvs]\nnumberOfStaticNvs=2147482648\n" + section);
                  }),
                  error)
            << number << ' ' << arraySize;
    // What is one too many is named: the variable whose array size it is, read or only counted, or the count
    // itself.
    const struct {
        const char* text;
        const char* record;
        const char* field;
        const char* value;
        int line;
    } rows[] = {{"2\n[nv1]\nname=a\n[nv2]\nname=b\narraySize=2147483647\n", "network variable 2 (b)",
                 "arraySize", "2147483647", 7},
                {"70000\n[nv60000]\nname=c\narraySize=2147400000\n[nv5000]\nname=b\narraySize=80000\n",
                 "network variable 60000 (c)", "arraySize", "2147400000", 5},
                {"70000\n[nv5000]\narraySize=2147480000\n[nv5001]\nname=b\narraySize=9\n",
                 "network variable 5000", "arraySize", "2147480000", 4},
                {"2147483647\n[nv5000]\narraySize=2\n", "template", "numberOfStaticNvs", "2147483647", 2}};
    for (const auto& row : rows) {
        const auto error =
            Raised([&] { FromIni(scratch, "[nvs]\nnumberOfStaticNvs=" + std::string(row.text)); });
        ASSERT_TRUE(error) << row.text;
        const ErrorContext& context = error->Context();
        EXPECT_EQ(error->Number(), 6) << row.text;
        EXPECT_EQ(context.record, row.record);
        EXPECT_EQ(context.field, row.field);
        EXPECT_EQ(context.value, row.value);
        EXPECT_EQ(context.line, row.line) << row.text;
        EXPECT_TRUE(context.file.ends_with("t.ini")) << row.text;
        EXPECT_NE(context.reason.find("the array sizes add up"), std::string::npos) << row.text;
    }
    EXPECT_EQ(FromIni(scratch, "[nvs]\nnumberOfStaticNvs=4096\n").nvs.size(), 4096U);
    EXPECT_EQ(FromIni(scratch, "[nvs]\nnumberOfStaticNvs=-5\n").nvs.size(), 0U);
}

TEST(TemplateXml, NothingOfAnEarlierLoadStays) {
    const Scratch scratch;
    std::string all = "<NVS><a/><b/></NVS><TAGS><t/></TAGS><CPS><c/></CPS>";
    for (const TemplateField& field : TemplateFields())
        if (const std::string name(field.xmlName); !name.empty())
            all += "<" + name + ">7</" + name + ">";
    CTemplate loaded = FromXml(scratch, all);
    EXPECT_EQ(loaded.numberStaticNvs + loaded.numberOfMessageTags + loaded.numberOfCps, 4);
    scratch.File("t.xml", "<D/>");
    loaded.Load();
    for (const TemplateField& field : TemplateFields()) {
        if (field.number != nullptr) {
            EXPECT_EQ(loaded.*field.number, 0) << field.iniKey;
        } else if (field.text != &CTemplate::userTypeFile) {
            EXPECT_EQ(loaded.*field.text, "") << field.iniKey;
        }
    }
    EXPECT_EQ(loaded.nvs.size() + loaded.tags.size() + loaded.cps.size(), 0U);
}

TEST(TemplateXml, RecordsAreNamedByTheirElements) {
    const Scratch scratch;
    const CTemplate loaded = FromXml(
        scratch,
        "<ProgramId>id</ProgramId><SDSTRING>3\xC2\xB0</SDSTRING><FileTypeIIVersion>1.0</FileTypeIIVersion>"
        "<userCpFile>  u.xml </userCpFile><AVGRATE>9</AVGRATE>"
        "<w><Nvs>text<nvoTemp><ArraySize>3</ArraySize><direction>input</direction><deep><LENGTH>5</LENGTH></"
        "deep>"
        "<NVS><polled>1</polled></NVS></nvoTemp>"
        "<nviB><DIRECTION>in</DIRECTION><SNVTTYPE>105</SNVTTYPE><SISD>s</SISD></nviB></Nvs></w>"
        "<TAGS><t1/><t2><BINDABLE>0</BINDABLE><MAXRATE>7</MAXRATE></t2></TAGS>"
        "<CPS><gain><SISD>d</SISD><RAWVALUE>01</RAWVALUE><INITRAWVAL>02</INITRAWVAL><MINRAWVAL>03</MINRAWVAL>"
        "<MAXRAWVAL>04</MAXRAWVAL><SNVTTYPE>300</SNVTTYPE><LENGTH>2.5</LENGTH></gain></CPS>");
    EXPECT_EQ(loaded.programID, "id");
    EXPECT_EQ(loaded.selfDocumentation, "3\xC2\xB0");
    EXPECT_EQ(loaded.versionCP, "1.0");
    EXPECT_EQ(loaded.userTypeFile, "u.xml");
    ASSERT_EQ(loaded.nvs.size(), 2U);
    EXPECT_EQ(loaded.numberStaticNvs, 2);
    EXPECT_EQ(loaded.maximumNumberOfNvs, 2) << "the number of variables unless an element says otherwise";
    EXPECT_EQ(loaded.nvs[0].name, "nvoTemp");
    EXPECT_EQ(loaded.nvs[0].direction, 0);
    EXPECT_EQ(loaded.nvs[0].length, 5) << "wrappers inside a record are transparent";
    EXPECT_EQ(loaded.nvs[0].polled, 1) << "so is an element that elsewhere opens a list";
    EXPECT_EQ(loaded.nvs[1].direction, 1) << "only INPUT is an input";
    EXPECT_EQ(loaded.nvs[1].index, 3);
    EXPECT_EQ(loaded.nvs[1].typeIndex, 105);
    ASSERT_EQ(loaded.tags.size(), 2U);
    EXPECT_EQ(loaded.tags[0].bindable, 1);
    EXPECT_EQ(loaded.tags[1].maxRate, 7);
    ASSERT_EQ(loaded.cps.size(), 1U);
    EXPECT_EQ(loaded.cps[0].name, "gain");
    EXPECT_EQ(loaded.cps[0].defaultValue + loaded.cps[0].initValue + loaded.cps[0].minValue +
                  loaded.cps[0].maxValue,
              "01020304");
    EXPECT_EQ(loaded.cps[0].length, 2) << "halves round to even";
}

TEST(TemplateXml, DirectionIsComparedUntrimmedAndTheMaximumAsGiven) {
    const Scratch scratch;
    const CTemplate loaded = FromXml(scratch,
                                     "<MAXIMUMNUMBEROFNVS>9</MAXIMUMNUMBEROFNVS>"
                                     "<NVS><a><DIRECTION> input</DIRECTION></a></NVS>");
    EXPECT_EQ(loaded.nvs[0].direction, 1);
    EXPECT_EQ(loaded.maximumNumberOfNvs, 9);
    EXPECT_EQ(FromXml(scratch, "<MAXIMUMNUMBEROFNVS>-9</MAXIMUMNUMBEROFNVS>").maximumNumberOfNvs, 0);
}

TEST(TemplateXml, ANumberBeyond32BitsNamesItsPlace) {
    const Scratch scratch;
    const auto error =
        Raised([&] { FromXml(scratch, "<NVS><a/>\n<b><LENGTH>2147483648</LENGTH></b></NVS>"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 6);
    EXPECT_EQ(error->Context().record, "network variable 2 (b)");
    EXPECT_EQ(error->Context().field, "LENGTH");
    EXPECT_EQ(error->Context().line, 2);
    const auto index =
        Raised([&] { FromXml(scratch, "<NVS><a/>\n<b>\n<arraySize>2147483647</arraySize></b><c/></NVS>"); });
    ASSERT_TRUE(index);
    EXPECT_EQ(index->Number(), 6);
    EXPECT_EQ(index->Context().record, "network variable 2 (b)");
    EXPECT_EQ(index->Context().field, "ARRAYSIZE");
    EXPECT_EQ(index->Context().value, "2147483647");
    EXPECT_EQ(index->Context().line, 3) << "of the element, not of the variable";
    EXPECT_TRUE(index->Context().file.ends_with("t.xml"));
}

TEST(Template, LoadingTwiceKeepsNothingButTheUserTypeFile) {
    const Scratch scratch;
    CTemplate loaded = FromXml(scratch, "<USERCPFILE>u</USERCPFILE><PROGRAMID>x</PROGRAMID><NVS><a/></NVS>");
    loaded.xmlFile = scratch.File("u.xml", "<D/>");
    loaded.Load();
    EXPECT_EQ(loaded.programID, "");
    EXPECT_TRUE(loaded.nvs.empty());
    EXPECT_EQ(loaded.numberStaticNvs, 0);
    EXPECT_EQ(loaded.userTypeFile, "u");
    CollectingSink all;
    Readings readings(all);
    loaded.TellReadings(readings);
    ASSERT_EQ(all.findings.size(), 1U);
    EXPECT_EQ(all.findings[0].context.reason,
              "<D> has no USERCPFILE; \"u\" of the template before it is kept");
}

TEST(Template, SourcesHaveAnOrder) {
    const Scratch scratch;
    CTemplate loaded;
    loaded.errorHandler = &kHandler;
    EXPECT_EQ(RaisedNumber([&] { loaded.Load(); }), 1050);
    loaded.xmlFile = scratch.Path("missing.xml");
    EXPECT_EQ(RaisedNumber([&] { loaded.Load(); }), 1087);
    loaded.xmlNode =
        CTools().SearchXmlNode(scratch.File("n.xml", "<D><PROGRAMID>n</PROGRAMID></D>"), "D", kHandler);
    loaded.Load();
    EXPECT_EQ(loaded.programID, "n") << "an element wins over a file";
    loaded.iniFile = scratch.File("t.ini", "[general]\nprogramID=i\n");
    loaded.Load();
    EXPECT_EQ(loaded.programID, "i") << "an INI file wins over both";
}

TEST(Cp, DeclarationsAreAnalysed) {
    const struct {
        const char* declaration;
        int scope, type, length, array;
    } rows[] = {
        {"0,1,2,45,4,2;", 2, 45, 4, 2}, {"0,1,3,12,2;", 3, 12, 2, 0},        {"a,b", -7, -7, 0, 0},
        {"0,1,2x,45,4", 2, 45, 4, 0},   {"0,1,x,4.5,2.5,3.5;n", 0, 4, 2, 4}, {"0,1,6,5,2;name,9", 6, 5, 2, 9},
        {"0,1,2,45", 2, -7, 0, 0},      {"0,1,,7,1,1,1,1", 0, 7, 1, 1},      {",,,,", 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        CCp cp{
            .declaration = row.declaration, .length = 5, .arraySize = 5, .scope = -7, .typeIndexInScope = -7};
        cp.AnalyseCP();
        EXPECT_EQ(cp.scope, row.scope) << row.declaration;
        EXPECT_EQ(cp.typeIndexInScope, row.type) << row.declaration;
        EXPECT_EQ(cp.length, row.length) << row.declaration;
        EXPECT_EQ(cp.arraySize, row.array) << row.declaration;
    }
}

TEST(Cp, TheNameIsAddedOnce) {
    const std::pair<const char*, const char*> rows[] = {{"0,1,2,45,4;", "0,1,2,45,4;cpGain"},
                                                        {"0,1,2,45,4", "0,1,2,45,4;cpGain"},
                                                        {"0,1,2,45,4;x", "0,1,2,45,4;x"},
                                                        {"a;b;", "a;b;"}};
    for (const auto& [before, after] : rows) {
        CCp cp{.declaration = before, .name = "cpGain"};
        cp.AddNameInString();
        EXPECT_EQ(cp.declaration, after);
    }
}

TEST(Template, TheProgramIdIsShownInGroupsWhateverItsLength) {
    CTemplate shown;
    const std::pair<const char*, const char*> rows[] = {{"9000010A0B040100", "90:00:01:0A:0B:04:01:00"},
                                                        {"90AB", "90:AB::::::"},
                                                        {"900", "90:0::::::"},
                                                        {"9000010A0B040100FF", "90:00:01:0A:0B:04:01:00"}};
    for (const auto& [id, display] : rows) {
        shown.programID = id;
        EXPECT_EQ(shown.displayPID(), display);
    }
}

}  // namespace
}  // namespace tovarek::test
