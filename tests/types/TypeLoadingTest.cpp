// Loading: type elements of the format file, the types of a template, the user type file.
#include "Device.h"

namespace tovarek::test {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* kByte =
    "<SNVT_300><TYPE>USER</TYPE><NAME>SNVT_count</NAME><LENGTH>1</LENGTH></SNVT_300>";

TEST(TypeLoading, ChildrenOfATypeElement) {
    Device device;
    device.AddNv(300);
    device.Load(
        "<!-- skipped "
        "--><snvt_300><type>float</type><Name>temp-in</Name><LENGTH>4x</LENGTH><MIN>-1.5</MIN><MAX>1e2</MAX>"
        "<A_COEF>2.5</A_COEF><B_COEF>-1</B_COEF><C_COEF>3.5</C_COEF><UNIT>bar</UNIT><DESC>a</DESC><DESC>b</"
        "DESC>"
        "<LONGNAME>Temperature</LONGNAME><BFSIZE>3</BFSIZE><BFOFFSET>2</BFOFFSET><BFSIGNED>0.4</BFSIGNED>"
        "<INHERIT>0</INHERIT><ARRAY>2</ARRAY><OTHER>x</OTHER></snvt_300><SNVT_300><TYPE>nothing</TYPE></"
        "SNVT_300>");
    const CType& type = device.Unvt("6_1");
    EXPECT_EQ(type.name, "UNVT__temp_in");
    EXPECT_EQ(type.elementType, elementFloat);
    EXPECT_TRUE(type.hasMin && type.hasMax && type.isUnvt && type.bitfieldSigned);
    EXPECT_FALSE(type.inheritable || type.isField);
    EXPECT_EQ(type.minValue, -1.5);
    EXPECT_EQ(type.maxValue, 100);
    EXPECT_EQ((std::vector{type.typeIndex, type.length, type.a_coef, type.b_coef, type.c_coef,
                           type.bitfieldSize, type.bitfieldOffset, type.arraySize}),
              (std::vector{300, 4, 2, -1, 4, 3, 2, 2}));
    EXPECT_EQ((Strings{type.unit, type.description, type.longname}), (Strings{"bar", "b", "Temperature"}));
}

TEST(TypeLoading, Names) {
    for (const auto& [text, name] : std::vector<std::pair<std::string, std::string>>{
             {"speed", "UNVT__speed"},
             {"unvt_speed", "UNVT__speed"},
             {"SCPT__speed", "UNVT___speed"},
             {"_speed", "UNVT___speed"},
             {"SNVT-x", "UNVT__x"},  // cleaned before the prefix is looked for
             {"", "UNVT__"},
             {"t\xC3\xA9l", "UNVT__t_l"}}) {
        Device device;
        device.AddNv(300);
        device.Load("<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH><NAME>" + text +
                    "</NAME><NAME>later</NAME></SNVT_300>");
        EXPECT_EQ(device.Unvt("6_1").name, name) << text;
    }
}

TEST(TypeLoading, Enumerations) {
    Device device;
    device.AddNv(300);
    device.AddNv(301);
    device.Load(
        "<SNVT_300><ENUMS><lost>1</lost></ENUMS><TYPE>ENUM</TYPE><ENUMS><OFF>0</OFF><ON>1</ON></"
        "ENUMS><NAME>mode</NAME>"
        "<ENUMS><LOW>-3</LOW><NUL>255</NUL><OLD>-200</OLD></ENUMS></SNVT_300>"
        "<SNVT_301><TYPE>ENUM</TYPE><NAME>b</NAME><ENUMS><A>127</A><B>128</B></ENUMS></SNVT_301>");
    const CType& type = device.Unvt("6_1");
    EXPECT_EQ(type.enumName, "ENUM_300_mode");
    EXPECT_EQ(type.length, 1);
    std::vector<std::pair<std::string, std::int32_t>> values;
    for (const CEnumValue& value : *type.enumValues)
        values.emplace_back(value.name, value.value);
    EXPECT_EQ(values, (std::vector<std::pair<std::string, std::int32_t>>{
                          {"OFF", 0}, {"ON", 1}, {"LOW", -3}, {"NUL", -1}, {"OLD", -200}}));
    EXPECT_EQ(type.minValue, -200);
    EXPECT_EQ(type.maxValue, -1) << "the limits are those of the last ENUMS";
    EXPECT_EQ(device.Unvt("6_2").minValue, -128);
    EXPECT_EQ(device.Unvt("6_2").maxValue, 127);

    const std::string before = "<SNVT_300><NAME>a</NAME><TYPE>ENUM</TYPE>";
    device.WriteFiles(before + "<ENUMS/></SNVT_300>");
    EXPECT_EQ(Raised([&] { device.Load(); })->Number(), eQVXIFerr_typeelementwithmaxlesserthanmin)
        << "no value lies between the limits of an empty ENUMS";
    device.WriteFiles("<SNVT_300><NAME>a</NAME><ENUMS><A>1</A></ENUMS><TYPE>ENUM</TYPE></SNVT_300>");
    EXPECT_EQ(Raised([&] { device.Load(); })->Number(), eQVXIFerr_typeenumwithnoenums);
}

TEST(TypeLoading, UnitsOfDisplay) {
    Device device;
    device.AddNv(300);
    device.Load(
        "<SNVT_300><TYPE>USER</TYPE><NAME>a</NAME><LENGTH>1</LENGTH><UNITS><US a_coef='1.8' "
        "C_Coef='32'><unit>F</unit></US>"
        "<SI/><US A_COEF='9'/></UNITS><UNITS><X A_COEF='none'/></UNITS></SNVT_300>");
    std::string shown;
    for (const CFormat& format : *device.Unvt("6_1").availableFormats)
        shown += format.name + " " + std::to_string(format.format_a_coef) + " " +
                 std::to_string(format.format_c_coef) + " " + format.unit + "|";
    EXPECT_EQ(shown, "US 1.800000 32.000000 F|SI 1.000000 0.000000 |X 0.000000 0.000000 |");

    // A member's standard type brings its formats along, but for names that differ in letter case only.
    device.Load(
        "<SNVT_300><TYPE>STRUCT</TYPE><NAME>a</NAME><UNITS><us_DIFF/></UNITS><FIELDS><t>105</t></FIELDS></"
        "SNVT_300>"
        "<SNVT_105><TYPE>SIGNEDNUMERIC</TYPE></SNVT_105>");
    std::string names;
    for (const CFormat& format : *device.Unvt("6_1").availableFormats)
        names += format.name + "|";
    EXPECT_EQ(names, "us_DIFF|SI|US|");
}

TEST(TypeLoading, MembersNestAndTakeOverScopeAndKind) {
    Device device;
    device.AddNv(300);
    device.Load(
        "<SNVT_300><FIELDS><lost>999</lost></FIELDS><TYPE>STRUCT</TYPE><NAME>a</NAME><FIELDS><!-- "
        "--><low>301</low></FIELDS>"
        "<SCOPE>6</SCOPE><FIELDS><in>302</in><temp>105</temp></FIELDS></SNVT_300>"
        "<SNVT_301><SCOPE>9</SCOPE><TYPE>USER</TYPE><LENGTH>1</LENGTH><NAME>other</NAME></SNVT_301>"
        "<SNVT_302><TYPE>UNION</TYPE><FIELDS><x>301</x><y>303</y></FIELDS></SNVT_302>"
        "<SNVT_303><TYPE>ENUM</TYPE><ENUMS><A>1</A></ENUMS></SNVT_303>"
        "<SNVT_105><TYPE>STRUCT</TYPE><FIELDS><lost>999</lost></FIELDS><UNITS><lost/></UNITS></SNVT_105>");
    const CType& type = device.Unvt("6_1");
    ASSERT_EQ(type.elements.size(), 3U);
    EXPECT_EQ(type.elements[0].name, "low");
    EXPECT_EQ(type.elements[0].scope, 9) << "a member's own scope has no consequence";
    ASSERT_EQ(type.elements[1].elements.size(), 2U);
    EXPECT_EQ(type.elements[1].elements[1].enumName, "ENUM_303");
    EXPECT_TRUE(type.elements[1].elements[1].isField && type.elements[1].elements[1].isUnvt);
    EXPECT_TRUE(type.elements[2].elements.empty()) << "a standard type is described by the catalog";
    EXPECT_EQ(type.elements[2].length, 2);
    EXPECT_EQ(type.length, 1 + 1 + 1)
        << "what is called a structure counts its members, and this one has none here";
}

TEST(TypeLoading, TypesOfTheTemplate) {
    Device device;
    device.AddNv(300);
    device.deviceTemplate.nvs.back().typeIndex = 8;
    for (const int type : {0, 300, 301, 300, 302})
        device.AddNv(type);
    device.AddCp(300, 4, "delay");
    device.AddCp(300, 4, "again");
    device.AddCp(300, 5, "elsewhere", 3);
    device.AddCp(0, 6, "none");
    device.Load(std::string(kByte) +
                "<SNVT_301><TYPE>USER</TYPE><NAME>b</NAME><LENGTH>2</LENGTH><SCOPE>3</SCOPE></SNVT_301>"
                "<SNVT_302><TYPE>USER</TYPE><NAME>c</NAME><LENGTH>2</LENGTH><SCOPE>6</SCOPE></SNVT_302>");
    EXPECT_EQ(Device::Names(device.types.unvtTypes),
              (Strings{"6_1 UNVT__count", "6_2 UNVT__count", "6_3 UNVT__c"}))
        << "a type that chooses another scope is dropped and takes no index";
    EXPECT_EQ(Device::Names(device.types.ucptTypes), Strings{"6_4 UCPT_4_delay"});
    EXPECT_EQ(device.Ucpt("6_4").rawInitValue, "00");
    device.Load();
    EXPECT_EQ(device.types.unvtTypes.size(), 3U) << "a second load starts anew";
}

TEST(TypeLoading, ProgramIdsOfTheUserTypeFile) {
    // Device 90 00 01 0A 0B 04 01 00. Each scope compares its own part; the others may differ.
    struct Case {
        const char* scope;
        const char* programID;
        bool applies;
    };
    for (const Case& c : std::vector<Case>{{"_1", "_FFFFFF0A0BFFFFFF", true},
                                           {"_1", "_9000010A0C040100", false},
                                           {"_2", "_FFFFFF0a0b0401FF", true},
                                           {"_2", "_FFFFFF0A0B0402FF", false},
                                           {"_3", "_F00001FFFFFFFFFF", true},
                                           {"_3", "_9000020A0B040100", false},
                                           {"_4", "_F000010a0bFFFFFF", true},
                                           {"_4", "_9000010A0C040100", false},
                                           {"_5", "_F000010A0B0401FF", true},
                                           {"_5", "_9000010A0B0402FF", false},
                                           {"_6", "_9000010A0B040100", false},
                                           {"_3", "__900001", false},
                                           {"_3", "_90", false},
                                           {"_3", "F00001", true}}) {
        Device device;
        device.Load(kByte, UserTypes("UNVTS", c.scope, c.programID,
                                     "<UNVT_1><NAME>a</NAME><SNVTTYPE>300</SNVTTYPE></UNVT_1>"));
        EXPECT_EQ(device.types.unvtTypes.size(), c.applies ? 1U : 0U) << c.scope << ' ' << c.programID;
    }
}

TEST(TypeLoading, TypesOfTheUserTypeFile) {
    const auto type = [](const std::string& element, const std::string& name) {
        return "<" + element + "><NAME>" + name +
               "</NAME><Snvttype>301</Snvttype><MINRAWVAL>0102</MINRAWVAL></" + element + ">";
    };
    const std::string all = type("UNVT_7", "a") + type("XXXX2x", "b") + type("UCPT_007", "c") +
                            type("UNVT_0", "d") + type("UNVT_x", "e") + type("UNVT_7", "f");
    const std::string definition =
        "<SNVT_301><TYPE>USER</TYPE><NAME>other</NAME><LENGTH>2</LENGTH><SCOPE>9</SCOPE></SNVT_301>";
    Device device;
    device.Load(definition, "<?xml version='1.0'?><!-- -->" + UserTypes("unvts", "_3", "_F00001", all));
    EXPECT_EQ(Device::Names(device.types.unvtTypes),
              (Strings{"3_1 UNVT_7_a", "3_2 UNVT_2_b", "3_3 UNVT_7_c", "3_4 UNVT_7_f"}));
    device.Load(definition, UserTypes("UCPTS", "_3", "_F00001", all));
    EXPECT_EQ(Device::Names(device.types.ucptTypes), (Strings{"3_7 UCPT_7_a", "3_2 UCPT_2_b"}));
    EXPECT_EQ(device.Ucpt("3_7").rawMinValue, "0102");
    EXPECT_EQ(device.Ucpt("3_7").rawMaxValue, "0000");
}

// Each fault stands in line 2, but for what is missing: that is told at the type element, in line 1.
TEST(TypeLoading, FaultsNameTheirChildAndItsLine) {
    struct Case {
        const char* what;
        std::string elements;
        int error;
        const char* field;
        int line;
        const char* value = nullptr;
    };
    const std::string end = "</SNVT_300>";
    const std::string start = "<SNVT_300><NAME>a</NAME>";
    const std::string number = start + "<TYPE>USER</TYPE><LENGTH>1</LENGTH>";
    const std::string bits = start + "<TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>4</BFSIZE>";
    const std::string members = start + "<TYPE>STRUCT</TYPE><LENGTH>1</LENGTH><FIELDS>";
    for (const Case& c : std::vector<Case>{
             {"unknown member", members + "\n<m>999</m></FIELDS>" + end, 1090, "m", 2},
             {"unknown kind", start + "\n<TYPE>INT</TYPE>" + end, 1091, "TYPE", 2},
             {"no kind", start + "\n" + end, 1092, "TYPE", 1},
             {"no name", "<SNVT_300><TYPE>FLOAT</TYPE>\n" + end, 1093, "NAME", 1},
             {"limits", number + "<MAX>1</MAX>\n<MIN>2</MIN>" + end, 1094, "MIN", 2},
             {"no values", start + "<TYPE>ENUM</TYPE>\n<ENUMS/>" + end, 1094, "ENUMS", 2},
             {"no members", start + "<TYPE>STRUCT</TYPE>\n<FIELDS/>" + end, 1095, "FIELDS", 2},
             {"no length", start + "<TYPE>USER</TYPE>\n" + end, 1095, "LENGTH", 1},
             {"a word", start + "<TYPE>USER</TYPE>\n<LENGTH>four</LENGTH>" + end, 1095, "LENGTH", 2, "four"},
             {"length of 0", start + "<TYPE>USER</TYPE>\n<LENGTH>0</LENGTH>" + end, 1095, "LENGTH", 2},
             {"length of 33 bits", start + "\n<LENGTH>4294967296</LENGTH>" + end, 6, "LENGTH", 2},
             {"values in front", start + "\n<ENUMS><A>1</A></ENUMS>\n<TYPE>ENUM</TYPE>" + end, 1096, "ENUMS",
              2},
             {"length", start + "<TYPE>SIGNEDNUMERIC</TYPE>\n<LENGTH>3</LENGTH>" + end, 1121, "LENGTH", 2},
             {"length", start + "<TYPE>USER</TYPE>\n<LENGTH>4</LENGTH>" + end, 1122, "LENGTH", 2},
             {"array", bits + "\n<ARRAY>2</ARRAY>" + end, 1123, "ARRAY", 2},
             {"bits", bits + "\n<BFSIZE>9</BFSIZE>" + end, 1124, "BFSIZE", 2},
             {"offset", bits + "\n<BFOFFSET>8</BFOFFSET>" + end, 1125, "BFOFFSET", 2},
             {"both", bits + "\n<BFOFFSET>5</BFOFFSET>" + end, 1126, "BFOFFSET", 2},
             {"sum of members",
              members + "<m>301</m></FIELDS>\n<FIELDS><n>301</n></FIELDS>" + end +
                  "<SNVT_301><TYPE>TEXTUAL</TYPE><LENGTH>2147483647</LENGTH></SNVT_301>",
              6, "FIELDS", 2},
             {"endless limit", start + "\n<MIN>1e999</MIN>" + end, 6, "MIN", 2},
             {"scope", start + "\n<SCOPE>7</SCOPE>" + end, 9, "SCOPE", 2},
             {"scope", start + "\n<SCOPE>-1</SCOPE>" + end, 9, "SCOPE", 2}}) {
        Device device;
        device.AddNv(300);
        device.WriteFiles(c.elements);
        const auto error = Raised([&] { device.Load(); });
        EXPECT_EQ(RaisedNumber([&] { device.Load(); }), c.error) << c.what;
        ASSERT_TRUE(error) << c.what;
        EXPECT_EQ(error->Context().field, c.field) << c.what;
        EXPECT_EQ(error->Context().file, device.scratch.Path("format.xml")) << c.what;
        EXPECT_EQ(error->Context().line, c.line) << c.what;
        EXPECT_EQ(c.value == nullptr ? "" : error->Context().value, c.value == nullptr ? "" : c.value);
    }
}

// The line is that of the member's own definition, the record leads there from the variable or property.
TEST(TypeLoading, TheChainLeadsToTheMemberWithTheFault) {
    const std::string elements =
        "<SNVT_300><NAME>outer</NAME><TYPE>STRUCT</TYPE><FIELDS><head>301</head><tail>302</tail></FIELDS></"
        "SNVT_300>\n<SNVT_301><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_301>\n"
        "<SNVT_302><TYPE>STRUCT</TYPE><FIELDS><in>303</in><byte>301</byte></FIELDS></SNVT_302>\n"
        "<SNVT_303>\n<FIELDS><lost>301</lost></FIELDS><TYPE>UNION</TYPE></SNVT_303>";
    const std::string members = " > member 'tail' (type 302) > member 'in' (type 303)";
    for (const bool isProperty : {false, true}) {
        Device device;
        if (isProperty)
            device.AddCp(300, 1, "cpGain");
        else
            device.AddNv(300);
        device.WriteFiles(elements);
        const auto error = Raised([&] { device.Load(); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), eQVXIFerr_structunionwithnofields);
        EXPECT_EQ(error->Context().record,
                  (isProperty ? "configuration property 1 (cpGain) > type element SNVT_300 'UCPT_1_cpGain'"
                              : "network variable 1 (nv1) > type element SNVT_300 'UNVT__outer'") +
                      members);
        EXPECT_EQ(error->Context().field, "FIELDS");
        EXPECT_EQ(error->Context().line, 5);
    }
}

// A number that the format file lacks, or that no type can have, is told where the input has it.
TEST(TypeLoading, BadNumbersAreToldWhereTheInputHasThem) {
    const std::string general = "[general]\nprogramID=9000010A0B040100\n";
    const struct {
        std::string ini;
        std::string xml;
        std::string users;
        const char* record;
        const char* field;
        const char* value;
        const char* file;
        int line;
        int error = eQVXIFerr_typenotfoundinformatfile;
        const char* reason = "has no element <SNVT_400>";
    } rows[] = {
        {general + "[nvs]\nnumberOfStaticNvs=1\nmaximumNumberOfNvs=1\n[nv1]\nname=a\ndirection=0\n"
                   "type=0x190\nlength=1\n",
         "", "<UNVTS/>", "network variable 1 (a)", "type", "0x190", "t.ini", 9},
        {general + "[cps]\nnumberOfCp=1\nversion=1\n[cp1]\ndeclaration=1,1,6\\x80,1,1;\ntypeIndex=400\n", "",
         "<UNVTS/>", "configuration property 1", "typeIndex", "400", "t.ini", 8},
        {general + "[cps]\nnumberOfCp=1\nversion=1\n[cp1]\ndeclaration=1,1,6,0,1;\ntypeIndex=300\n", "",
         "<UNVTS/>", "configuration property 1 >", "declaration", "1,1,6,0,1;", "t.ini", 7,
         eQVXIFerr_badcpindexinscope, "numbered from 1"},
        {"", "<D><PROGRAMID>9000010A0B040100</PROGRAMID></D>",
         UserTypes("UCPTS", "_3", "_F00001", "<UCPT_1><NAME>a</NAME><SNVTTYPE>SNVT_300</SNVTTYPE></UCPT_1>"),
         "type <UCPT_1>", "SNVTTYPE", "SNVT_300", "user.xml", 1, eQVXIFerr_typenotfoundinformatfile,
         "this is not the number of a type"},
        {"",
         "<D><PROGRAMID>9000010A0B040100</PROGRAMID>\n<NVS><a><DIRECTION>INPUT</DIRECTION><LENGTH>1</LENGTH>"
         "\n<SNVTTYPE>400</SNVTTYPE></a></NVS></D>",
         "<UNVTS/>", "network variable 1 (a)", "SNVTTYPE", "400", "t.xml", 3},
        {"", "<D><PROGRAMID>9000010A0B040100</PROGRAMID></D>",
         UserTypes("UCPTS", "_3", "_F00001", "<UCPT_1><NAME>a</NAME>\n<snvttype> 400</snvttype></UCPT_1>"),
         "type <UCPT_1>", "SNVTTYPE", " 400", "user.xml", 2}};
    for (const auto& row : rows) {
        Device device;
        if (row.ini.empty()) {
            device.deviceTemplate.xmlFile = device.scratch.File("t.xml", row.xml);
            device.deviceTemplate.xmlNodeName = "D";
        } else {
            device.deviceTemplate.iniFile = device.scratch.File("t.ini", row.ini);
        }
        device.deviceTemplate.errorHandler = &device.errorHandler;
        device.deviceTemplate.catalog = &device.catalog;
        device.deviceTemplate.Load();
        device.deviceTemplate.VerifyData();
        device.WriteFiles(kByte, row.users);
        const auto error = Raised([&] { device.Load(); });
        ASSERT_TRUE(error) << row.record;
        const ErrorContext& context = error->Context();
        EXPECT_EQ(error->Number(), row.error);
        EXPECT_TRUE(context.record.starts_with(row.record)) << context.record;
        EXPECT_EQ(context.field, row.field);
        EXPECT_EQ(context.value, row.value);
        EXPECT_TRUE(context.file.ends_with(row.file)) << context.file;
        EXPECT_EQ(context.line, row.line) << row.record;
        EXPECT_NE(context.reason.find(row.reason), std::string::npos) << context.reason;
    }
}

TEST(TypeLoading, FilesThatCannotBeLoaded) {
    Device device;
    device.WriteFiles("<SNVT_300>");
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 1089);
    device.WriteFiles("", "<UNVTS>");
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 1128);
    EXPECT_EQ(RaisedNumber([&] { device.types.LoadTypes(device.scratch.Path("format.xml"), "\\"); }), 1128);

    // The first node of the document is the root, whatever it is.
    device.AddNv(300);
    device.deviceTemplate.iniFile = device.scratch.File("t.ini", "[nv1]\ntype=300\n");
    for (const char* first : {"<?xml version='1.0'?>", "<!-- comment -->"}) {
        device.WriteFiles("");
        device.scratch.File("format.xml", first + std::string("<f>") + kByte + "</f>");
        const auto error = Raised([&] { device.Load(); });
        ASSERT_TRUE(error) << first;
        EXPECT_EQ(error->Number(), eQVXIFerr_typenotfoundinformatfile) << first;
        EXPECT_EQ(error->Context().file, device.scratch.Path("format.xml"))
            << "not the template, which is right";
    }
    for (const char* type :
         {"<UNVT_1><NAME>a</NAME></UNVT_1>", "<UNVT_1><NAME/><SNVTTYPE>300</SNVTTYPE></UNVT_1>"}) {
        device.WriteFiles(kByte, UserTypes("UNVTS", "_3", "_F00001", type));
        EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 1128) << type;
    }
    device.WriteFiles(kByte,
                      UserTypes("UNVTS", "_3", "_F00001", "<UNVT_1><NAME>a</NAME><SNVTTYPE/></UNVT_1>"));
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 1090) << "SNVT_0";
}

TEST(TypeLoading, AbsentRawValuesBeyondMeasureAreOutOfMemory) {
    const std::string text = "<SNVT_300><TYPE>TEXTUAL</TYPE><LENGTH>1000000000</LENGTH></SNVT_300>";
    Device device;
    device.AddCp(300, 1, "big");
    device.WriteFiles(text);
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 7);
    device.WriteFiles("<SNVT_300><TYPE>TEXTUAL</TYPE><LENGTH>1073741824</LENGTH></SNVT_300>");
    EXPECT_EQ(RaisedNumber([&] { device.Load(); }), 6);
}

}  // namespace
}  // namespace tovarek::test
