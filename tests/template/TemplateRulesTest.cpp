#include <gtest/gtest.h>

#include <functional>

#include "Scratch.h"
#include "template/CTemplate.h"

namespace tovarek::test {
namespace {

const CErrorHandler kRulesHandler;

// A template that passes, with the shipped catalog.
class TemplateRules : public testing::Test {
  protected:
    TemplateRules() {
        catalog_.catalogDir(TOVAREK_CATALOG);
        good_.errorHandler = &kRulesHandler;
        good_.catalog = &catalog_;
        good_.programID = "9000010A0B040100";
        good_.nvs.push_back({.name = "nviA", .typeIndex = 105});
        good_.nvs.push_back({.name = "nviB", .length = 4});
        good_.numberStaticNvs = 2;
        good_.maximumNumberOfNvs = 2;
        good_.tags.push_back({.name = "t"});
        good_.numberOfMessageTags = 1;
        good_.cps.push_back({.declaration = "0,1,2,45,2,3"});
        good_.numberOfCps = 1;
        good_.versionCP = "1.0";
    }

    int Verify(const std::function<void(CTemplate&)>& change) {
        changed_ = good_;
        change(changed_);
        return RaisedNumber([&] { changed_.VerifyData(); });
    }

    CCatalog catalog_;
    CTemplate good_;
    CTemplate changed_;
};

TEST_F(TemplateRules, TheProgramIdIsNormalised) {
    EXPECT_EQ(Verify([](CTemplate& t) { t.programID = " 9000010a0b040100 "; }), 0);
    EXPECT_EQ(changed_.programID, "9000010A0B040100");
    for (const char* bad :
         {"", "9000010A0B04010", "9000010A0B0401000", "9000010A0B04010G", "9000010A0B0401\xC3\xA9"})
        EXPECT_EQ(Verify([&](CTemplate& t) { t.programID = bad; }), 1052) << bad;
}

TEST_F(TemplateRules, TheNumbersOfVariablesAreLimitedBySum) {
    const struct {
        std::int32_t fixed, most;
        int error;
    } rows[] = {{-1, 0, 1053},      {4097, 4097, 1053}, {4096, 4096, 1054}, {2048, 2048, 0},
                {2049, 2049, 1054}, {3000, 3000, 1054}, {5, 4, 1054},       {2, INT32_MAX, 1054},
                {0, 4096, 0},       {1, 4096, 1054}};
    for (const auto& row : rows)
        EXPECT_EQ(Verify([&](CTemplate& t) {
                      t.numberStaticNvs = row.fixed;
                      t.maximumNumberOfNvs = row.most;
                  }),
                  row.error)
            << row.fixed << " " << row.most;
}

TEST_F(TemplateRules, EveryFieldOfAVariableIsChecked) {
    const struct {
        std::int32_t CNv::*field;
        std::int32_t value;
        int error;
    } rows[] = {
        {&CNv::avgRate, -1, 1056},
        {&CNv::maxRate, -1, 1057},
        {&CNv::arraySize, -1, 1058},
        {&CNv::offline, 2, 1059},
        {&CNv::direction, -1, 1060},
        {&CNv::defaultService, 3, 1061},
        {&CNv::serviceCanBeChanged, 2, 1062},
        {&CNv::defaultAuth, 2, 1063},
        {&CNv::authCanBeChanged, -1, 1064},
        {&CNv::defaultPriority, 2, 1065},
        {&CNv::priorityCanBeChanged, 2, 1066},
        {&CNv::polled, 2, 1067},
        {&CNv::synchronized, 2, 1068},
        {&CNv::configuration, 2, 1069},
        {&CNv::typeIndex, -1, 1070},
        {&CNv::length, 0, 1071},
        {&CNv::length, 32, 1071},
        {&CNv::length, 31, 0},
        {&CNv::defaultService, 2, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Verify([&](CTemplate& t) { t.nvs[1].*row.field = row.value; }), row.error) << row.error;
    changed_ = good_;
    changed_.nvs[1].length = 32;
    EXPECT_EQ(Raised([&] { changed_.VerifyData(); })->Context().value, "32") << "without a file as well";
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0].name = ""; }), 1055);
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0] = {.name = "", .avgRate = -1, .direction = -1}; }), 1055);
}

TEST_F(TemplateRules, StandardTypesTakeTheirLengthFromTheCatalog) {
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0].length = 30; }), 0);
    EXPECT_EQ(changed_.nvs[0].length, 2) << "SNVT_temp_p has two bytes whatever the template says";
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0].typeIndex = 140; }), 1072) << "a number without a type";
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0].typeIndex = 216; }), 1072) << "a type of unknown size";
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[0].typeIndex = 255; }), 1072);
    CCatalog closed;
    EXPECT_EQ(Verify([&](CTemplate& t) { t.catalog = &closed; }), 1072);
}

TEST_F(TemplateRules, TypesAbove255AreTheUsers) {
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[1].typeIndex = 300; }), 0);
    EXPECT_EQ(changed_.nvs[1].unvtType, 300);
    EXPECT_EQ(changed_.nvs[1].typeIndex, 0);
    EXPECT_EQ(Verify([](CTemplate& t) { t.nvs[1] = {.name = "n", .typeIndex = 256}; }), 1071);
}

TEST_F(TemplateRules, TagsAreChecked) {
    EXPECT_EQ(Verify([](CTemplate& t) { t.numberOfMessageTags = 15; }), 1073);
    EXPECT_EQ(Verify([](CTemplate& t) { t.numberOfMessageTags = 14; }), 0);
    EXPECT_EQ(Verify([](CTemplate& t) { t.tags[0].name = ""; }), 1074);
    EXPECT_EQ(Verify([](CTemplate& t) { t.tags[0].avgRate = -1; }), 1075);
    EXPECT_EQ(Verify([](CTemplate& t) { t.tags[0].maxRate = -1; }), 1076);
    EXPECT_EQ(Verify([](CTemplate& t) { t.tags[0].bindable = 2; }), 1077);
}

TEST_F(TemplateRules, PropertiesAreCompleted) {
    EXPECT_EQ(Verify([](CTemplate&) {}), 0);
    const CCp& cp = changed_.cps[0];
    EXPECT_EQ(cp.declaration, "0,1,2,45,2,3;");
    EXPECT_EQ(cp.defaultValue, "000000000000");
    EXPECT_EQ(cp.initValue, cp.defaultValue);
    EXPECT_EQ(Verify([](CTemplate& t) { t.cps[0].defaultValue = "0102030405ff"; }), 0);
    EXPECT_EQ(changed_.cps[0].maxValue, "0102030405ff");
}

TEST_F(TemplateRules, PropertiesAreChecked) {
    EXPECT_EQ(Verify([](CTemplate& t) { t.numberOfCps = -1; }), 1078);
    EXPECT_EQ(Verify([](CTemplate& t) { t.versionCP = ""; }), 1079);
    EXPECT_EQ(Verify([](CTemplate& t) {
                  t.versionCP = "";
                  t.numberOfCps = 0;
              }),
              0);
    const struct {
        const char* declaration;
        const char* value;
        const char* initial;
        const char* minimum;
        const char* maximum;
        int error;
    } rows[] = {
        {"", "", "", "", "", 1080},
        {"0,1,2,45", "", "", "", "", 1081},
        {"0,1,2,45,0", "", "", "", "", 1081},
        {"0,1,2,45,1,-1", "", "", "", "", 1082},
        {"0,1,2,45,1", "0", "", "", "", 1083},
        {"0,1,2,45,1", "", "000", "", "", 1084},
        {"0,1,2,45,1", "", "", "0", "", 1085},
        {"0,1,2,45,1", "", "", "", "0", 1086},
        {"0,1,2,45,1", "0G", "", "", "0", 1086},  // lengths come before digits
        {"0,1,2,45,1", "0G", "", "", "", 1083},
        {"0,1,2,45,1", "", "", "", "-1", 1086},
        {"0,1,2,45,65536,65536", "", "", "", "", 6},
        {"0,1,2,45,1073741824", "", "", "", "", 6},
        {"0,1,2,45,2147483648", "", "", "", "", 6},
        {"0,1,2,45,1000000000", "", "", "", "", 7},
        {"0,1,2,45,1000000000", "00", "", "", "", 1083},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Verify([&](CTemplate& t) {
                      t.cps[0] = {.declaration = row.declaration,
                                  .defaultValue = row.value,
                                  .initValue = row.initial,
                                  .minValue = row.minimum,
                                  .maxValue = row.maximum};
                  }),
                  row.error)
            << row.declaration << " " << row.error;
}

TEST_F(TemplateRules, EveryFaultIsFoundAndTheFirstIsRaised) {
    CTemplate bad = good_;
    bad.programID = "12";
    bad.numberStaticNvs = -1;  // the maximum is not judged by it
    bad.nvs[0].name.clear();
    bad.nvs[0].direction = 2;
    bad.nvs[0].typeIndex = -1;  // the length is not judged by it
    bad.nvs[1].length = 32;
    bad.tags[0].name.clear();
    bad.versionCP.clear();
    bad.cps[0].minValue = "0";
    bad.cps.push_back({.declaration = ""});
    bad.cps.push_back({.declaration = "0,1,2,45,2147483647,3"});
    bad.cps.push_back({.declaration = "0,1,2,45,0,-1"});
    bad.cps.push_back({.declaration = "0,1,2,45,99999999"});
    bad.cps.push_back({.declaration = "0,1,2,45,1", .defaultValue = "x"});
    CollectingSink all;
    CTemplate(bad).VerifyData(all);
    EXPECT_EQ(all.Errors(), (std::vector<int>{1052, 1053, 1055, 1060, 1070, 1071, 1074, 1079, 1085, 1080, 6,
                                              1081, 1082, 7, 1083, 1083}));
    EXPECT_EQ(all.findings[1].context.field, Raised([&] {
                                                 bad.programID = good_.programID;
                                                 bad.VerifyData();
                                             })
                                                 ->Context()
                                                 .field);
}

TEST_F(TemplateRules, FaultsSayWhatWasTypedAndWhatToDo) {
    const Scratch scratch;
    const std::string ini = "[general]\nprogramID=9000010A0B040100\n";
    const std::string nvs = ini + "[nvs]\nnumberOfStaticNvs=1\nmaximumNumberOfNvs=1\n";
    const std::string cps = ini + "[cps]\rversion=1.0\rnumberOfCp=1\r[cp1]\rdeclaration=0,1,2,45,2\r";
    const std::string xml = "<D>\n<PROGRAMID>9000010A0B040100</PROGRAMID>\n";
    const std::string nv = "network variable 1 (a)";
    const std::string cp = "configuration property 1";
    const struct {
        std::string text;  // XML when it begins with "<"
        std::string record;
        const char* field;
        std::string value;
        int line;
        const char* reason;
    } rows[] = {
        {"[general]\nprogramID= 90:x \n", "template", "programID", "90:x", 2,
         "this has 4 characters; ':', character 3, is not"},
        {"[general]\nprogramID=900001XA0B040100\n", "template", "programID", "900001XA0B040100", 2,
         "'X', character 7, is not a hexadecimal digit"},
        {"[general]\nprogrammID=9\n", "template", "programID", "", 2, "did you mean 'programmID' in line 2?"},
        {"[genral]\nprogramID=9\n", "template", "", "", 1, "no section [general]; did you mean [genral]"},
        {nvs + "[nv 1]\n", "network variable 1", "", "", 6,
         "did you mean [nv 1] in line 6? line 4 asks for 1 sections [nv1], [nv2], ..., the file has 0"},
        {nvs + "[nv2]\n[nv01]\n[cp1]\n", "network variable 1", "", "", 7, "the file has 1"},
        {nvs + "[nv2]\n[cp1]\n", "network variable 1", "", "", 4, "the file has no section [nv1]; line 4"},
        {nvs + "[nv1]\nname=a\ntype=8\nDirection=5 out\n", nv, "direction", "5 out", 9,
         "this reads as 5; accepted: 0 to 1"},
        {nvs + "[nv1]\nname=a\ndirection=1\n", nv, "type", "", 6, "has no key 'type'; it takes 1 to 255"},
        {nvs + "[nv1]\nname=a\ndirection=1\ntype=snvt_temp_p\n", nv, "length", "", 6,
         "its type \"snvt_temp_p\" is not a number and reads as 0, a user type; SNVT_temp_p is 105: write "
         "type=105"},
        {nvs + "[nv1]\nname=a\ndirection=1\ntype=0\n", nv, "length", "", 6, "it takes 1 to 31 bytes"},
        {cps + "value=0AB\r", cp, "value", "0AB", 8,
         "3 hexadecimal digits, the declaration asks for 2 bytes"},
        {cps + "value=" + std::string(1000, 'A'), cp, "value", std::string(80, 'A') + "...", 8,
         "only the first 999 characters"},
        {cps + "value=" + std::string(999, 'A'), cp, "value", std::string(80, 'A') + "...", 8,
         "999 hexadecimal digits, the declaration asks for 2 bytes"},
        {cps + "value=0ABC\rmaxRawVal=0AB\xC4", cp, "maxRawVal", "0AB\xC3\x84", 9,
         "'\xC3\x84', character 4, is not a hexadecimal digit"},
        {"<D>\n<NVS/><PROGRAMMID/></D>", "template", "PROGRAMID", "", 2,
         "did you mean <PROGRAMMID> in line 2?"},
        {xml + "<MAXIMUMNUMBEROFNVS>\n0</MAXIMUMNUMBEROFNVS><NVS><a/></NVS></D>", "template",
         "MAXIMUMNUMBEROFNVS", "\n0", 3, "less than the 1 static ones"},
        {xml + "<NVS><a>\n<w><length>\n40</length></w></a></NVS></D>", nv, "LENGTH", "\n40", 4,
         "accepted: 1 to 31 bytes"},
        {xml + "<NVS><a>\n<LENGHT>2</LENGHT></a></NVS></D>", nv, "LENGTH", "", 4,
         "<a> has no element <LENGTH>; did you mean <LENGHT> in line 4? it takes 1 to 31"},
        {xml + "<FILETYPEIIVERSION>1</FILETYPEIIVERSION>\n<CPS><a>\n</a></CPS></D>", cp + " (a)", "SISD", "",
         4, "every configuration property has a declaration"},
    };
    for (const auto& row : rows) {
        CTemplate loaded;
        loaded.errorHandler = &kRulesHandler;
        loaded.catalog = &catalog_;
        loaded.xmlNodeName = "D";
        const std::string path = scratch.File("t", row.text);
        (row.text.starts_with("<") ? loaded.xmlFile : loaded.iniFile) = path;
        loaded.Load();
        const auto error = Raised([&] { loaded.VerifyData(); });
        ASSERT_TRUE(error) << row.text;
        const ErrorContext& context = error->Context();
        EXPECT_EQ(context.record, row.record) << row.text;
        EXPECT_EQ(context.field, row.field) << row.text;
        EXPECT_EQ(context.value, row.value) << row.text;
        EXPECT_EQ(context.line, row.line) << row.text;
        EXPECT_EQ(context.file, path);
        EXPECT_NE(context.reason.find(row.reason), std::string::npos) << row.text << context.reason;
        EXPECT_EQ(context.reason.find("only the first") != std::string::npos,
                  row.text.ends_with(std::string(1000, 'A')));
    }
}

}  // namespace
}  // namespace tovarek::test
