// The resource files of a device, from its two XML files to what readers find in them.
#include "DriverDevice.h"
#include "base/Text.h"
#include "formats/language/LanguageFile.h"
#include "types/TypeFilesDriver.h"

namespace tovarek::test {
namespace {

TEST(Driver, WithoutTypesThereIsTheListAlone) {
    DriverDevice device;
    device.WriteFiles("");
    EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), 76) << "nobody creates the folder";
    ASSERT_TRUE(MakeDirectory(device.scratch.Path("out")));
    device.settings.typeFilesDirectory += "\\";
    device.Generate();
    EXPECT_EQ(device.Output("files.lst"),
              "' List of the generated files\r\n' Format is :\r\n"
              "'       <fileType>,<fileName>,<programId>,<scope>,<locale>\r\n'        With :\r\n"
              "'            <fileType>  2:lang, 3:type, 4:fpt, 5:format\r\n"
              "'            <fileName>  Name of the file without path\r\n"
              "'            <programId> Complete programID\r\n"
              "'            <scope>     Scope from 1 to 6\r\n"
              "'            <locale>    Lang locale id. Zero if the file is not a lang file.\r\n\r\n");
    EXPECT_EQ(device.Files(), Strings{"files.lst"});
}

TEST(Driver, FilesOfEveryScopeWithTypes) {
    DriverDevice device;
    device.AddNv(310);
    device.AddCp(310, 1, "limit");
    device.WriteFiles(kElements, UserTypes("UCPTS", "_3", "_F00001",
                                           "<UCPT_1><NAME>a</NAME><SNVTTYPE>105</SNVTTYPE></UCPT_1>"));
    device.Generate();
    EXPECT_EQ(device.Files(), (Strings{"files.lst", "node_3.ENU", "node_3.fmt", "node_3.fpt", "node_3.typ",
                                       "node_6.ENU", "node_6.fmt", "node_6.fpt", "node_6.typ"}));
    const std::string list = device.Output("files.lst");
    EXPECT_EQ(list.substr(list.find("\r\n\r\n") + 4),
              "2,node_3.ENU,9000010A0B040100,3,1033\r\n4,node_3.fpt,9000010A0B040100,3,0\r\n"
              "3,node_3.typ,9000010A0B040100,3,0\r\n5,node_3.fmt,9000010A0B040100,3,0\r\n"
              "2,node_6.ENU,9000010A0B040100,6,1033\r\n4,node_6.fpt,9000010A0B040100,6,0\r\n"
              "3,node_6.typ,9000010A0B040100,6,0\r\n5,node_6.fmt,9000010A0B040100,6,0\r\n");
    EXPECT_EQ(device.written.size(), 9U);
    EXPECT_EQ(device.Output("node_6.fmt"),
              "set program_id 90:00:01:0A:0B:04:01:00;\r\n"
              "set selector MANUFACTURER and DEVICE_CLASS and SUB_CLASS and MODEL;\r\n\r\n"
              "UNVT__level: real;\r\nUCPT_1_limit: real;\r\n");

    LanguageFile language;
    ASSERT_TRUE(ReadLanguageFile(device.Output("node_6.ENU"), language).Ok());
    Strings texts;
    for (const auto& text : language.strings)
        texts.push_back(text.value_or("(none)"));
    EXPECT_EQ(texts, (Strings{"Lang file", "Tovarek utility", "Functional profile file", "Type file", "Level",
                              "How full", "%", "Level", "How full", "%"}));
    EXPECT_EQ(language.header.scope, 6);
    EXPECT_EQ(device.OutputTypes("node_3.typ").header.scope, 3);
    const TypeFile types = device.OutputTypes("node_6.typ");
    EXPECT_EQ(types.nvTypes[0]->nameText.number, 5U);
    EXPECT_EQ(types.nvTypes[0]->unit.number, 7U);
    EXPECT_EQ(types.cpTypes[0]->description.number, 9U);
    EXPECT_EQ(types.cpTypes[0]->nameText.scope, 6);
}

TEST(Driver, KindsInTheTypeFile) {
    DriverDevice device;
    device.AddNv(320);
    device.AddNv(311);
    device.AddCp(310, 1, "limit");
    device.deviceTemplate.cps.back().maxValue = "0123";
    device.WriteFiles(kElements);
    device.Generate();
    const TypeFile file = device.OutputTypes("node_6.typ");
    ASSERT_EQ(file.nvTypes.size(), 2U);
    ASSERT_EQ(file.enumerations.size(), 1U) << "an enumeration of two types is written once";
    EXPECT_EQ(file.enumerations[0]->name, "ENUM_311_mode");
    ASSERT_EQ(file.enumerations[0]->values.size(), 2U);
    EXPECT_EQ(file.nvTypes[1]->type.target.index, 1);

    const NvType& all = *file.nvTypes[0];
    EXPECT_EQ(all.name, "__all");
    EXPECT_EQ(all.size, 2 + 1 + 1 + 12 + 8 + 4 + 8 + 2);
    std::string kinds;
    for (const TypeMember& member : all.type.members)
        kinds += member.name + " " + std::to_string(static_cast<int>(member.type.kind)) + ", ";
    EXPECT_EQ(kinds, "level 6, mode 7, bits 11, floats 8, text 8, quad 15, either 10, temp 14, ");
    const TypeDescription& level = all.type.members[0].type;
    EXPECT_EQ(level.minimum, 5);
    EXPECT_EQ(level.maximum, 1000);
    EXPECT_EQ(level.b, -1);
    const TypeDescription& bits = all.type.members[2].type;
    EXPECT_EQ(std::tuple(bits.bitWidth, bits.bitOffset, bits.bitSigned, bits.minimum, bits.maximum),
              std::tuple(3, 2, true, -4, 3));
    EXPECT_EQ(all.type.members[3].type.members[0].type.floatMaximum, 2.5F);
    EXPECT_EQ(all.type.members[4].type.count, 8);
    EXPECT_EQ(all.type.members[5].type.maximum, 4294967295) << "MAX of a BITFIELD does not count";
    EXPECT_EQ(all.type.members[7].type.target.index, 105);
    EXPECT_EQ(all.type.members[7].type.referencedSize, 2);

    const CpType& limit = *file.cpTypes[0];
    EXPECT_EQ(limit.size, 2);
    EXPECT_EQ(limit.maximum, std::string("\x01\x23"));
    EXPECT_EQ(limit.initial, std::string(2, '\0'));
}

std::string BytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        bytes.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    return bytes;
}

// Types whose LENGTH is not the size that their description has. `given` is the raw maximum, empty for none.
TEST(Driver, TheRecordOfAPropertyHasTheSizeOfItsDescription) {
    const struct {
        const char* what;
        const char* definition;
        const char* given;
        const char* stored;  // hexadecimal; null: refused
        int size;
    } rows[] = {
        {"an array", "<TYPE>USER</TYPE><LENGTH>1</LENGTH><ARRAY>8</ARRAY>", "", "0000000000000000", 8},
        {"its elements", "<TYPE>USER</TYPE><LENGTH>1</LENGTH><ARRAY>4</ARRAY>", "01020304", "01020304", 4},
        {"one of them", "<TYPE>USER</TYPE><LENGTH>1</LENGTH><ARRAY>4</ARRAY>", "01", nullptr, 4},
        {"three elements", "<TYPE>USER</TYPE><LENGTH>2</LENGTH>", "0102030405ff", "0102", 2},
        {"one and a half", "<TYPE>USER</TYPE><LENGTH>2</LENGTH>", "010203", nullptr, 2},
        {"a short float", "<TYPE>FLOAT</TYPE><LENGTH>2</LENGTH>", "", "00000000", 4},
        {"its value", "<TYPE>FLOAT</TYPE><LENGTH>2</LENGTH>", "3F800000", "3F800000", 4},
        {"a long enumeration", "<TYPE>ENUM</TYPE><ENUMS><A>1</A></ENUMS><LENGTH>2</LENGTH>", "", "00", 1},
        {"bits that share a byte", "<TYPE>STRUCT</TYPE><FIELDS><a>401</a><b>402</b></FIELDS>", "", "00", 1},
        {"a union", "<TYPE>UNION</TYPE><FIELDS><a>403</a><b>404</b></FIELDS>", "", "0000", 2},
        {"its value", "<TYPE>UNION</TYPE><FIELDS><a>403</a><b>404</b></FIELDS>", "0102", "0102", 2},
        {"one for both", "<TYPE>UNION</TYPE><FIELDS><a>403</a><b>404</b></FIELDS>", "010203", nullptr, 2},
        {"a standard type called a structure", "<TYPE>STRUCT</TYPE><FIELDS><a>403</a><b>105</b></FIELDS>", "",
         "000000", 3},
    };
    const std::string parts =
        "<SNVT_105><TYPE>STRUCT</TYPE></SNVT_105>"
        "<SNVT_401><TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>4</BFSIZE></SNVT_401>"
        "<SNVT_402><TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>4</BFSIZE><BFOFFSET>4</BFOFFSET></SNVT_402>"
        "<SNVT_403><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_403>"
        "<SNVT_404><TYPE>USER</TYPE><LENGTH>2</LENGTH></SNVT_404>";
    for (const auto& row : rows) {
        DriverDevice device;
        const std::string value =
            *row.given == '\0' ? "" : "\n<maxrawval>" + std::string(row.given) + "</maxrawval>";
        device.WriteFiles(parts + "<SNVT_300>" + row.definition + "</SNVT_300>",
                          UserTypes("UCPTS", "_3", "_F00001",
                                    "<UCPT_1><NAME>a</NAME><SNVTTYPE>300</SNVTTYPE>" + value + "</UCPT_1>"));
        const auto error = Raised([&] { device.Generate(); });
        ASSERT_EQ(error.has_value(), row.stored == nullptr) << row.what;
        if (error) {
            EXPECT_EQ(error->Number(), eQVXIFerr_QVX_editResult_badmaxvalue) << row.what;
            const ErrorContext& context = error->Context();
            EXPECT_EQ(context.field, "MAXRAWVAL");
            EXPECT_EQ(context.value, row.given);
            EXPECT_EQ(context.file, device.scratch.Folder() + "\\user.xml");
            EXPECT_EQ(context.line, kIsWindows ? context.line : 2);
            EXPECT_EQ(context.reason.find("the type has " + std::to_string(row.size) + " bytes"), 0U);
            const std::string given = "has " + std::to_string(std::string(row.given).size() / 2);
            EXPECT_TRUE(context.reason.ends_with(given)) << context.reason;
            continue;
        }
        const CpType type = *device.OutputTypes("node_3.typ").cpTypes.at(0);
        EXPECT_EQ(type.size, row.size) << row.what;
        EXPECT_EQ(*type.maximum, BytesOf(row.stored)) << row.what;
        EXPECT_EQ(type.initial, std::string(type.size, '\0')) << row.what;
    }
}

TEST(Driver, APropertyOfTheTemplateMayBeAnArray) {
    DriverDevice device;
    device.deviceTemplate.iniFile = device.scratch.File(
        "template.ini",
        "[general]\nprogramID=9000010A0B040100\nuserTypeFile=user.xml\n[cps]\nnumberOfCp=2\nversion=1.0\n"
        "[cp1]\ndeclaration=1,1,6\\x80,1,2,3;\ntypeIndex=310\nvalue=000102030405\n"
        "maxRawVal=112233445566\n[cp2]\ndeclaration=1,1,6\\x80,2,3;\ntypeIndex=310\n");
    device.deviceTemplate.errorHandler = &device.errorHandler;
    device.deviceTemplate.catalog = &device.catalog;
    device.deviceTemplate.Load();
    device.deviceTemplate.VerifyData();
    device.WriteFiles(kElements);
    const auto error = Raised([&] { device.Generate(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), eQVXIFerr_QVX_editResult_badinitvalue) << "3 bytes for a type of 2";
    EXPECT_EQ(error->Context().field, "initRawVal");
    EXPECT_EQ(error->Context().file, device.deviceTemplate.iniFile);
    EXPECT_EQ(error->Context().line, 12) << "the header of its section, which lacks the key";

    device.deviceTemplate.cps.pop_back();
    device.Generate();
    const CpType type = *device.OutputTypes("node_6.typ").cpTypes.at(0);
    EXPECT_EQ(type.size, 2);
    EXPECT_EQ(*type.maximum, "\x11\x22");
    EXPECT_EQ(type.initial, std::string("\0\1", 2));
}

// The driver by itself, with types under chosen indexes.
TEST(Driver, GapsInTheIndexes) {
    struct Case {
        std::vector<int> nv, cp;
        int error;
        std::size_t nvTypes, cpTypes;
    };
    for (const Case& c : std::vector<Case>{{{1, 2, 3}, {1}, 0, 3, 1},
                                           {{}, {}, 0, 0, 0},
                                           {{1, 2, 4}, {}, 1134, 0, 0},
                                           {{2}, {}, 1134, 0, 0},
                                           {{1}, {1, 3}, 1135, 0, 0},
                                           {{1, 4}, {3}, 0, 1, 0}}) {
        DriverDevice device;
        device.settings.typeFilesDirectory = device.scratch.Path("out");
        std::vector<std::unique_ptr<CType>> types;
        ScopeTypes keyed;
        for (const bool isUnvt : {true, false}) {
            for (const int index : isUnvt ? c.nv : c.cp) {
                CType& type = *types.emplace_back(std::make_unique<CType>());
                type.isUnvt = isUnvt;
                type.indexInScope = index;
                type.name = (isUnvt ? "UNVT_" : "UCPT_") + std::to_string(index);
                type.elementType = elementUnsigned;
                type.length = 1;
                type.rawInitValue = type.rawMinValue = type.rawMaxValue = "00";
                keyed.Add((isUnvt ? "NV_" : "CP_") + std::to_string(index), &type);
            }
        }
        std::vector<CResFile> records;
        RaisingSink raise(device.errorHandler);
        EXPECT_EQ(RaisedNumber([&] {
                      GenerateTypeFiles(keyed, 3, device.settings, "9000010A0B040100", device.catalog,
                                        device.errorHandler, records, {raise, device.written});
                  }),
                  c.error);
        if (c.error != 0) {
            EXPECT_EQ(records.size(), 3U);
            EXPECT_EQ(device.Files(), (Strings{"node_3.ENU", "node_3.fpt"}));
            EXPECT_EQ(device.written.size(), 2U);
            continue;
        }
        EXPECT_EQ(device.OutputTypes("node_3.typ").nvTypes.size(), c.nvTypes);
        EXPECT_EQ(device.OutputTypes("node_3.typ").cpTypes.size(), c.cpTypes);
    }
}

TEST(Driver, SelectorOfTheScope) {
    const std::vector<std::string> selectors = {
        "",
        "set selector DEVICE_CLASS;\r\n",
        "set selector DEVICE_CLASS and SUB_CLASS;\r\n",
        "set selector MANUFACTURER;\r\n",
        "set selector MANUFACTURER and DEVICE_CLASS;\r\n",
        "set selector MANUFACTURER and DEVICE_CLASS and SUB_CLASS;\r\n"};
    for (std::size_t scope = 0; scope < selectors.size(); ++scope) {
        DriverDevice device;
        std::vector<CResFile> records;
        RaisingSink raise(device.errorHandler);
        GenerateTypeFiles({}, static_cast<std::int32_t>(scope), device.settings, "9000010A0B040100",
                          device.catalog, device.errorHandler, records, {raise, device.written});
        EXPECT_EQ(device.Output("node_" + std::to_string(scope) + ".fmt"),
                  "set program_id 90:00:01:0A:0B:04:01:00;\r\n" + selectors[scope] + "\r\n");
        EXPECT_EQ(records.size(), 4U);
    }
}

// What is wrong stands in line 2.
TEST(Driver, FaultsOfTheControlNameTypeChildAndReason) {
    const std::string start = "<SNVT_300><NAME>x</NAME>";
    const std::string end = "</SNVT_300>";
    const std::string number = start + "<TYPE>USER</TYPE><LENGTH>1</LENGTH>";
    const std::string byte = "<SNVT_301><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_301>";
    const std::string tooLong(300, 'n');
    struct Case {
        const char* what;
        std::string elements;
        eErrors error;
        const char* field;
        std::string value;
    };
    for (const Case& c : std::vector<Case>{
             {"a text beyond any record", number + "\n<DESC>" + std::string(70000, 'd') + "</DESC>" + end,
              eQVXIFerr_QVX_editResult_erroraddingresource, "DESC", Excerpt(std::string(70000, 'd'))},
             {"a value below a signed byte",
              start + "<TYPE>ENUM</TYPE><ENUMS><B>1</B>\n<A>-129</A></ENUMS>" + end,
              eQVXIFerr_QVX_editResult_erroraddingenumvalue, "ENUMS, value A", "-129"},
             {"an unsigned number of 3 bytes", start + "<TYPE>BITFIELD</TYPE>\n<LENGTH>3</LENGTH>" + end,
              eQVXIFerr_QVX_editResult_badparam, "LENGTH", "3"},
             {"a minimum outside the kind", number + "\n<MIN>-1</MIN>" + end,
              eQVXIFerr_QVX_editResult_badminvalue, "MIN", "-1"},
             {"a maximum outside the kind", number + "\n<MAX>256</MAX>" + end,
              eQVXIFerr_QVX_editResult_badmaxvalue, "MAX", "256"},
             {"a raw maximum of 33 bits", number + "<B_COEF>-9</B_COEF>\n<MAX>9</MAX>" + end, eErrors{6},
              "MAX", "9"},
             {"a factor of 17 bits", number + "\n<A_COEF>32768</A_COEF>" + end,
              eQVXIFerr_QVX_editResult_errorsettingdetails, "A_COEF", "32768"},
             {"an offset of 17 bits",
              number + "<A_COEF>-32768</A_COEF><B_COEF>32767</B_COEF>\n<C_COEF>-32769</C_COEF>" + end,
              eQVXIFerr_QVX_editResult_errorsettingdetails, "C_COEF", "-32769"},
             {"an array of 17 bits", number + "\n<ARRAY>65536</ARRAY>" + end,
              eQVXIFerr_QVX_editResult_errorsettingdetails, "ARRAY", "65536"},
             {"a member's name that does not fit",
              byte + start + "<TYPE>STRUCT</TYPE><FIELDS>\n<" + tooLong + ">301</" + tooLong + "></FIELDS>" +
                  end,
              eQVXIFerr_QVX_editResult_erroraddingmember, "", ""},
             {"a name that does not fit",
              "\n<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH><NAME>" + tooLong + "</NAME>" + end,
              eQVXIFerr_QVX_editResult_erroraddingtype, "NAME", ""},
             {"a standard type that the catalog lacks",
              start +
                  "<TYPE>STRUCT</TYPE><FIELDS><a>140</a><b>8</b></FIELDS></SNVT_300>\n<SNVT_8><TYPE>USER</"
                  "TYPE></SNVT_8>"
                  "<SNVT_140><TYPE>USER</TYPE></SNVT_140>",
              eQVXIFerr_QVX_editResult_badparam, "", ""}}) {
        DriverDevice device;
        device.AddNv(300);
        device.WriteFiles(c.elements);
        const auto error = Raised([&] { device.Generate(); });
        ASSERT_TRUE(error) << c.what;
        EXPECT_EQ(error->Number(), c.error) << c.what << ": " << error->Description();
        EXPECT_FALSE(error->Context().reason.empty()) << c.what;
        EXPECT_EQ(error->Context().field, c.field) << c.what;
        EXPECT_EQ(error->Context().value, c.value) << c.what;
        if (c.error == eQVXIFerr_QVX_editResult_badmaxvalue) {
            EXPECT_NE(error->Context().reason.find("256 is not 0 to 255"), std::string::npos)
                << error->Context().reason;
        }
        // The input is told, from the variable on, not the output.
        EXPECT_TRUE(error->Context().file.ends_with("format.xml")) << error->Context().file;
        EXPECT_EQ(error->Context().line, 2) << c.what;
        EXPECT_TRUE(error->Context().record.starts_with("network variable 1 ")) << error->Context().record;
        EXPECT_NE(error->Context().record.find(" > type element SNVT_300 '"), std::string::npos)
            << error->Context().record;
        // The control is ready for the next call.
        device.WriteFiles(
            kElements +
            std::string("<SNVT_300><TYPE>USER</TYPE><LENGTH>1</LENGTH><NAME>y</NAME></SNVT_300>"));
        EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), 0) << c.what;
    }
}

// The type behind the gap is told where its number stands, not the output.
TEST(Driver, AGapIsToldWhereTheNumberBehindItStands) {
    for (const bool isUsers : {false, true}) {
        DriverDevice device;
        const std::string ini =
            "[general]\nprogramID=9000010A0B040100\nuserTypeFile=user.xml\n[cps]\n"
            "version=1.0\nnumberOfCp=";
        device.deviceTemplate.iniFile = device.scratch.File(
            "template.ini", ini + (isUsers ? "0"
                                           : "2\n[cp1]\ndeclaration=1,1,6\\x80,1,2;\ntypeIndex=310\n"
                                             "[cp2]\ndeclaration=1,1,6\\x80,3,2;\ntypeIndex=310\n"));
        device.deviceTemplate.errorHandler = &device.errorHandler;
        device.deviceTemplate.catalog = &device.catalog;
        device.deviceTemplate.Load();
        device.deviceTemplate.VerifyData();
        const std::string content = "<NAME>a</NAME><SNVTTYPE>310</SNVTTYPE>";
        device.WriteFiles(kElements, isUsers ? UserTypes("UCPTS", "_3", "_F00001",
                                                         "<UCPT_1>" + content + "</UCPT_1>\n<UCPT_3>" +
                                                             content + "</UCPT_3>")
                                             : "<UCPTS/>");
        const auto error = Raised([&] { device.Generate(); });
        ASSERT_TRUE(error);
        const ErrorContext& context = error->Context();
        EXPECT_EQ(error->Number(), eQVXIFerr_QVX_editResult_missingucpttypeindex);
        EXPECT_EQ(context.record, isUsers ? "type <UCPT_3> > type element SNVT_310 'UCPT_3_a'"
                                          : "configuration property 2 > type element SNVT_310 'UCPT_3_'");
        EXPECT_EQ(context.field, isUsers ? "index in scope" : "declaration");
        EXPECT_EQ(context.value, isUsers ? "3" : "1,1,6\\x80,3,2;");
        EXPECT_TRUE(context.file.ends_with(isUsers ? "user.xml" : "template.ini")) << context.file;
        EXPECT_EQ(context.line, isUsers ? 2 : 11);
        EXPECT_NE(context.reason.find("none with the number 2"), std::string::npos) << context.reason;
    }
}

// A folder in the place of each output in turn.
TEST(Driver, OutputsThatCannotBeWritten) {
    struct Case {
        const char* file;
        int error;
        std::size_t written;
    };
    for (const Case& c : std::vector<Case>{{"node_6.ENU", 1101, 0},
                                           {"node_6.fpt", 1101, 1},
                                           {"node_6.typ", 1101, 2},
                                           {"node_6.fmt", 75, 3},
                                           {"files.lst", 75, 4}}) {
        DriverDevice device;
        device.AddNv(310);
        device.WriteFiles(kElements);
        ASSERT_TRUE(MakeDirectory(device.scratch.Path("out")));
        ASSERT_TRUE(MakeDirectory(device.scratch.Path("out/" + std::string(c.file))));
        EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), c.error) << c.file;
        EXPECT_EQ(device.written.size(), c.written) << c.file;
        const auto error = Raised([&] { device.Generate(); });
        EXPECT_NE(error->Context().reason.find(c.error == 1101 ? "is a folder, and a file" : "name a file"),
                  std::string::npos)
            << error->Context().reason;
    }
}

TEST(Driver, TwoVariablesMayShareAType) {
    DriverDevice device;
    device.AddNv(310);
    device.AddNv(310);
    device.WriteFiles(kElements);
    EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), 0);
    EXPECT_EQ(device.OutputTypes("node_6.typ").nvTypes.size(), 2U);
}

}  // namespace
}  // namespace tovarek::test
