// Resource files, converted and generated again.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "../formats/Fixtures.h"
#include "Program.h"
#include "convert/ResourceSetInput.h"
#include "convert/StoredNames.h"
#include "formats/records/ResourceKinds.h"

namespace tovarek::test {
namespace {

class ConvertSets : public testing::Test {
  protected:
    ConvertSets() { SetVariable("SOURCE_DATE_EPOCH", "1795254067"); }
    ~ConvertSets() override { UnsetVariable("SOURCE_DATE_EPOCH"); }

    // Converts `inputs` to files called `name` and what they are, and answers what was listed.
    nlohmann::json Converted(std::vector<std::string> inputs, const std::string& name,
                             const std::string& form = "xml") const {
        std::vector<std::string> arguments = {"convert",
                                              "--format-file",
                                              Out(name + "-format.xml"),
                                              "--user-types",
                                              Out(name + "-types.xml"),
                                              "--template",
                                              Out(name + "-template." + form),
                                              "--job",
                                              Out(name + ".json"),
                                              "--format",
                                              "json",
                                              "--catalogDir",
                                              TOVAREK_CATALOG};
        arguments.insert(arguments.begin() + 1, inputs.begin(), inputs.end());
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, 0) << run.out << run.error;
        return nlohmann::json::parse(run.out)["losses"];
    }

    std::string Out(const std::string& name) const { return scratch_.Path(name); }

    void Generate(const std::string& job, const std::string& folder) const {
        std::filesystem::create_directories(StandardPath(Out(folder)));
        const Answer run = Call({"generate", "--job", job, "--mustGenerateXif", "false", "--catalogDir",
                                 TOVAREK_CATALOG, "--typeFilesDirectory", Out(folder)});
        EXPECT_EQ(run.status, 0) << run.error;
    }

    Scratch scratch_;
};

TEST(StoredNames, TellTheNumberThatAnInputHasInFront) {
    const struct {
        const char* stored;
        bool isUnvt;
        std::uint8_t scope;
        std::int32_t number;
        const char* name;
    } rows[] = {{"_7_fan", false, 3, 7, "fan"},    {"_8_fan", false, 3, 7, "8_fan"},
                {"_8_fan", true, 3, 8, "fan"},     {"_8_fan", true, 6, 7, "8_fan"},
                {"_08_fan", true, 3, 7, "08_fan"}, {"_fan", true, 3, 7, "fan"},
                {"_8fan", true, 3, 7, "8fan"},     {"_8", true, 3, 8, ""},
                {"__", true, 3, 7, "type"}};
    for (const auto& row : rows) {
        UserType type{.isUnvt = row.isUnvt, .scope = row.scope, .number = 7};
        NameType(row.stored, type);
        EXPECT_EQ(type.nameNumber, row.number) << row.stored;
        EXPECT_EQ(type.name, row.name) << row.stored;
    }
    for (const std::int32_t number : {255, 256}) {
        const std::string set = "ENUM_" + std::to_string(number) + "_fan";
        EXPECT_EQ(EnumNameOf(set).number, number == 256 ? 256 : 0) << "standard types are no users'";
        EXPECT_EQ(EnumNameOf(set).name, number == 256 ? "fan" : set);
    }
}

// The example has every kind of type but a union, limits, units of display and references.
TEST_F(ConvertSets, FilesThatWereGeneratedComeBackByteForByte) {
    Generate(TOVAREK_EXAMPLE "/job.json", "given");
    for (const std::string scope : {"3", "4", "5", "6"}) {
        const std::string base = "/fancoil_" + scope;
        EXPECT_EQ(Converted({Out("given" + base + ".ENU")}, "s" + scope).dump(), "[]");
        Generate(Out("s" + scope + ".json"), "again");
        for (const char* file : {".typ", ".ENU", ".fpt", ".fmt"})
            EXPECT_EQ(ReadFile(Out("again" + base + file)), ReadFile(Out("given" + base + file)))
                << base << file;
    }
    const std::string format = ReadFile(Out("s6-format.xml"));
    EXPECT_TRUE(format.starts_with("\xEF\xBB\xBF<TYPES>\r\n")) << "nothing stands in front of the root";
    EXPECT_NE(format.find("<!-- SNVT_temp_p -->\r\n  <SNVT_105>\r\n    <TYPE>SIGNEDNUMERIC</TYPE>"),
              std::string::npos)
        << format;
    EXPECT_NE(format.find("<SNVT_303>\r\n    <TYPE>ENUM</TYPE>\r\n    <NAME>fanMode</NAME>"),
              std::string::npos)
        << "numbers come from the names of enumerations";
}

// The example's XIF file, with a piece of its template changed.
TEST_F(ConvertSets, AnXifFileGetsItsTypesFromItsSets) {
    Generate(TOVAREK_EXAMPLE "/job.json", "given");
    std::vector<std::string> inputs = {Out("node.xif")};
    for (const char* scope : {"3", "4", "5", "6"})
        inputs.push_back(Out("given/fancoil_" + std::string(scope) + ".typ"));
    const struct {
        const char* old;
        const char* changed;
        std::vector<std::string> reasons;  // parts of the list; what else there is follows from them
    } rows[] = {
        {"", "", {}},
        {"<LENGTH>9<", "<LENGTH>8<", {"UNVT__unitState would be its type, and has 9 bytes, not 8"}},
        {"<SNVTTYPE>320<", "<SNVTTYPE>105<", {"5 variables are of type 0 and 6 network-variable types"}},
        {"6\\x80,2,1;", "6\\x80,9,1;", {"have no property type of this number", "none with the number 2"}},
        {"6\\x80,3,16;", "6\\x80,2,16;", {"UCPT_2_cpStartFanMode has 1 bytes, not 16"}},
    };
    for (const auto& row : rows) {
        std::string device = ReadFile(TOVAREK_EXAMPLE "/template.xml");
        const std::size_t at = device.find(row.old);
        ASSERT_NE(at, std::string::npos) << row.old;
        device.replace(at, std::string(row.old).size(), row.changed);
        std::vector<std::string> arguments = {"generate",
                                              "--xmlTemplateFile",
                                              scratch_.File("device.xml", device),
                                              "--catalogDir",
                                              TOVAREK_CATALOG,
                                              "--xmlTemplateNodeName",
                                              "DEVICE",
                                              "--xmlProfileFile",
                                              TOVAREK_EXAMPLE "/profile.xml",
                                              "--xmlProfileNodeName",
                                              "DEVICEPROFILE",
                                              "--outputXIFfile",
                                              Out("node.xif"),
                                              "--mustGenerateTypes",
                                              "false"};
        ASSERT_EQ(Call(arguments).status, 0) << Call(arguments).error;
        const std::string losses = Converted(inputs, "x", "xml").dump();
        for (const std::string& reason : row.reasons)
            EXPECT_NE(losses.find(reason), std::string::npos) << reason << '\n' << losses;
        if (!row.reasons.empty())
            continue;
        EXPECT_EQ(losses, "[]");
        Generate(Out("x.json"), "again");
        for (const auto& entry : std::filesystem::directory_iterator(StandardPath(Out("given")))) {
            const std::string name = SystemSpelling(entry.path().filename());
            EXPECT_EQ(ReadFile(Out("again/" + name)), ReadFile(Out("given/" + name))) << name;
        }
    }
}

TypeMember Member(const std::string& name, TypeDescription type) {
    return {name, {}, {}, {}, std::move(type)};
}

TypeDescription Reference(std::uint8_t scope, std::uint16_t index, std::uint8_t size) {
    TypeDescription type;
    type.kind = TypeKind::reference;
    type.target = {scope, index};
    type.referencedSize = size;
    return type;
}

// A set of scope 3 with four types of variables and one of properties.
TypeFile OddTypes() {
    TypeFile file;
    file.header.title = TitleText(ResourceKind::type, 1, 0);
    file.header.contact = ContactText("Works", "", "");
    file.header.formatVersion = kTypeFormat;
    file.header.majorVersion = 1;
    file.header.scope = 3;
    file.header.programId = {0x9F, 0xFF, 0xFF, 0x50, 0x14, 3, 4, 1};
    NvType inner;
    inner.name = "_1_inner";
    inner.type = NumberOfKind(TypeKind::signedLong);
    inner.type.invalid = 0x7FFF;
    inner.type.minimum = -100;
    inner.type.maximum = 50;
    inner.type.a = -1;
    inner.type.b = 2;
    inner.size = 2;
    NvType outer;
    outer.name = "outer";
    outer.type.kind = TypeKind::structure;
    TypeDescription pair;
    pair.kind = TypeKind::unionKind;
    pair.members = {Member("a", NumberOfKind(TypeKind::unsignedShort)), Member("b", Reference(3, 1, 2))};
    outer.type.members = {Member("2nd", Reference(3, 1, 2)),
                          Member("pairs", ArrayOf(pair, 3, 3)),
                          Member("temps", ArrayOf(Reference(0, 105, 2), 2, 3)),
                          Member("temp", Reference(0, 105, 2)),
                          Member("letters", ArrayOf(NumberOfKind(TypeKind::signedChar), 4, 3)),
                          Member("wide", NumberOfKind(TypeKind::unsignedQuad)),
                          Member("pair", pair),
                          Member("far", Reference(4, 9, 5)),
                          Member("mode", NumberOfKind(TypeKind::enumeration)),
                          Member("gone", NumberOfKind(TypeKind::enumeration)),
                          Member("real", NumberOfKind(TypeKind::floatingPoint)),
                          Member("bits", NumberOfKind(TypeKind::bitField)),
                          Member("inners", ArrayOf(Reference(3, 1, 2), 2, 3))};
    auto member = outer.type.members.end() - 5;
    member->type.a = 3;
    member->type.b = 1;
    member->type.c = 2;
    member++->type.target = {3, 1};
    member++->type.target = {3, 2};
    member->unit = {4, 12};
    member->type.floatMinimum = -1.5F;
    member++->type.floatInvalid = 3.0F;
    member->type.bitOffset = 5;
    member->type.bitWidth = 2;
    member->type.maximum = 2;
    outer.size = static_cast<std::uint16_t>(SizeOf(outer.type));
    const NvType plain{.name = "plain", .size = 2, .type = Reference(0, 105, 2)};
    const NvType amps{.name = "amps", .size = 2, .type = Reference(0, 1, 2)};
    file.nvTypes = {inner, outer, plain, amps};
    file.enumerations = {Enumeration{"modes", "my modes.h", {{1, "A", {4, 7}}, {2, "2nd", {}}}}};
    CpType property;
    property.name = "_1_limit";
    property.type = Reference(3, 1, 2);
    property.size = 2;
    property.initial = std::string("\x01\x02");
    file.cpTypes = {property};
    return file;
}

// That set with one of its types of variables and nothing else.
TypeFile OddType(std::size_t place) {
    TypeFile file = OddTypes();
    file.nvTypes = {file.nvTypes.at(place)};
    file.enumerations.clear();
    file.cpTypes.clear();
    return file;
}

TEST_F(ConvertSets, WhatInputsCannotHoldIsListed) {
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(OddTypes(), bytes).Ok());
    std::string listed;
    for (const nlohmann::json& loss : Converted({scratch_.File("Odd.typ", bytes)}, "odd"))
        for (const char* key : {"record", "field", "value", "reason"})
            listed += loss[key].get<std::string>() + (std::string_view(key) == "reason" ? "\n" : " | ");
    ExpectText(listed, TOVAREK_EXPECTED "/losses.txt");
    std::string made;
    for (const char* name :
         {"odd-format.xml", "odd-types-unvts.xml", "odd-types-ucpts.xml", "odd-unvts.json"})
        made += std::string(name) + ":\n" + ReadFile(Out(name)) + "\n";
    std::erase(made, '\r');
    ExpectText(made, TOVAREK_EXPECTED "/odd.txt");

    // Types of variables and of properties need a user type file, and a generation, each.
    for (const std::string kind : {"unvts", "ucpts"}) {
        Generate(Out("odd-" + kind + ".json"), "odd");
        const ResourceSetInput again = ReadResourceSet(Out("odd/Odd-" + kind + "_3.typ"));
        EXPECT_EQ(again.types.nvTypes.size(), kind == "unvts" ? 4U : 0U);
        EXPECT_EQ(again.types.cpTypes.size(), kind == "ucpts" ? 1U : 0U);
        for (std::size_t i = 0; i < again.types.nvTypes.size(); ++i)
            EXPECT_EQ(again.types.nvTypes[i]->size, OddTypes().nvTypes[i]->size);
    }
}

TEST_F(ConvertSets, TextsOfItsOwnThatAReferenceToAStandardTypeLosesAreListed) {
    TypeFile types = OddType(3);
    types.nvTypes[0]->description = {3, 1};
    LanguageFile texts{.header = types.header, .language = "enu", .strings = {"Current of the pump"}};
    texts.header.title = TitleText(ResourceKind::language, 1, 0);
    std::string bytes;
    ASSERT_TRUE(WriteLanguageFile(texts, bytes).Ok());
    scratch_.File("Pump.enu", bytes);
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    const std::string losses = Converted({scratch_.File("Pump.typ", bytes)}, "pump").dump();
    EXPECT_NE(losses.find("a reference to a standard type has the texts of that"), std::string::npos)
        << losses;
}

// What lies deeper than inputs nest becomes bytes, so that the device keeps its lengths.
TEST_F(ConvertSets, ATypeDeeperThanInputsNestKeepsItsSize) {
    if (kIsWindows)
        GTEST_SKIP() << "it takes 1.2 MB of stack: the program has 2 there, a test 1 as most hosts";
    TypeFile types = OddType(0);
    TypeDescription& type = types.nvTypes[0]->type;
    for (int depth = 0; depth < 905; ++depth) {
        TypeDescription outer;
        outer.kind = TypeKind::structure;
        outer.members = {Member("m", std::move(type))};
        type = std::move(outer);
    }
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    const nlohmann::json losses = Converted({scratch_.File("Deep.typ", bytes)}, "deep");
    EXPECT_EQ(losses.at(0)["reason"],
              "inputs have no such kind at this place; it becomes array of 2 unsigned short");
    Generate(Out("deep.json"), "deep");
    EXPECT_EQ(ReadResourceSet(Out("deep/Deep_3.typ")).types.nvTypes.at(0)->size, 2);
}

TEST_F(ConvertSets, WhatNobodySeesHasItsPlaceNevertheless) {
    TypeFile file = OddTypes();
    file.header.scope = 6;
    file.header.webPage = "works.example\r\nsecond line";
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(file, bytes).Ok());
    scratch_.File("Own.fmt",
                  "UNVTouter#SI: text(\"%d\",\r\n wide);\r\nUNVTouter#US: text(\"low %d\", wide);\r\n");
    const std::string losses = Converted({scratch_.File("Own.typ", bytes)}, "own").dump();
    for (const char* lost : {"web page", "network variable 2 (nviOuter)", "display format US"})
        EXPECT_NE(losses.find(lost), std::string::npos) << losses;
    EXPECT_NE(ReadFile(Out("own-format.xml")).find("<UNITS>\r\n      <SI>\r\n      </SI>"), std::string::npos)
        << "a display format without a unit keeps its name";
    EXPECT_NE(ReadFile(Out("own-template.xml")).find("<MINRAWVAL>0000</MINRAWVAL>"), std::string::npos)
        << "a missing limit would be the property's value";
}

// A file with one type of a variable and nothing else as older tools wrote it: without the numbers of deleted
// entries and the word before a type's size.
std::string InOlderFormat(std::string bytes) {
    bytes[0x312] = 3;
    const std::size_t headerEnd = NumberAt(bytes, 0x314) - 6;
    bytes.erase(0x34D, 6);
    bytes.insert(headerEnd, 6, '\0');
    Put32(bytes, 0x314, headerEnd);
    const std::size_t data = NumberAt(bytes, 0x31A);
    const std::size_t record = data + 2;
    bytes[record + 3] = static_cast<char>(bytes[record + 3] - 2);
    bytes.erase(record + 5, 2);
    bytes.insert(data + NumberAt(bytes, 0x31E) - 2, 2, '\0');
    Repair(bytes);
    return bytes;
}

TEST_F(ConvertSets, AFileOfAnOlderFormatBecomesOneOfToday) {
    std::string bytes;
    ASSERT_TRUE(WriteTypeFile(OddType(0), bytes).Ok());
    const auto listed = [&](const std::string& set) {
        std::vector<std::string> fields;
        for (const nlohmann::json& loss : Converted({scratch_.File("Set.typ", set)}, "set"))
            fields.push_back(loss["field"]);
        return fields;
    };
    std::vector<std::string> older = listed(InOlderFormat(bytes));
    EXPECT_EQ(std::erase(older, "format version"), 1U);
    EXPECT_EQ(older, listed(bytes));
}

TEST_F(ConvertSets, WrongUseTellsWhatBelongsTogether) {
    std::string bytes;
    TypeFile file = OddTypes();
    ASSERT_TRUE(WriteTypeFile(file, bytes).Ok());
    const std::string odd = scratch_.File("Odd.typ", bytes);
    const std::string twin = scratch_.File("Twin.typ", bytes);
    file.header.scope = 6;
    ASSERT_TRUE(WriteTypeFile(file, bytes).Ok());
    const std::string own = scratch_.File("Own.typ", bytes);
    file.header.scope = 0;
    ASSERT_TRUE(WriteTypeFile(file, bytes).Ok());
    const std::string standard = scratch_.File("Standard.typ", bytes);
    const std::string ini = scratch_.File("t.ini", "[nvs]\nnumberOfStaticNvs=0\n");
    const std::string out = Out("f.xml");
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* message;
    } rows[] = {
        {{odd}, 2, "--format-file FILE"},
        {{odd, "--template", Out("t.xml")}, 2, "converted with --format-file"},
        {{odd, "--format-file", out}, 2, "give --user-types FILE"},
        {{own, "--format-file", out}, 2, "give --template FILE"},
        {{own, "--format-file", out, "--template", Out("t.xml"), "--job", Out("j.json")}, 2, "a job that"},
        {{odd, "--format-file", Out("f.ini"), "--user-types", Out("u.xml")}, 2, "call the file .xml"},
        {{standard, "--format-file", out}, 2, "belongs to the standard set"},
        {{odd, twin, "--format-file", out, "--user-types", Out("u.xml")}, 2, "two resource sets are of"},
        {{odd, ini, "--format-file", out, "--user-types", Out("u.xml")}, 2, "alone or with an XIF"},
        {{ini, "--format-file", out}, 2, "no input holds what --format-file"},
        {{odd, "--format-file", out, "--user-types", Out("u.xml"), "--profile", Out("p.ini")},
         2,
         "no input holds what --profile"},
        {{scratch_.File("Alone.fmt", "set a;\r\n"), "--format-file", out}, 1, "no type file (.typ)"},
        {{scratch_.File("Cut.typ", bytes.substr(0, 900)), "--format-file", out}, 1, "Cut.typ"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"convert"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        arguments.insert(arguments.end(), {"--catalogDir", TOVAREK_CATALOG});
        const Answer run = Call(arguments);
        EXPECT_EQ(run.status, row.status) << row.message << run.error;
        EXPECT_NE(run.error.find(row.message), std::string::npos) << row.message << '\n' << run.error;
    }
    EXPECT_FALSE(FileExists(out)) << "nothing is written";
}

}  // namespace
}  // namespace tovarek::test
