#include <nlohmann/json.hpp>

#include "../Samples.h"
#include "Edits.h"
#include "Program.h"
#include "compare/InterfaceRules.h"
#include "formats/type/TypeFile.h"
#include "values/ShownType.h"

namespace tovarek::test {
namespace {

constexpr const char* kEqual = "equal";
constexpr const char* kHarmless = "harmless";
constexpr const char* kNewId = "breaking under a new program ID";
constexpr const char* kSameId = "breaking under the same program ID";

struct EditRow {
    const char* what;
    Edit edit;
    const char* verdict;
    const char* rules;  // of all changes, in order
};

const std::string kNewVariable = "name=nviNew\nselfdoc=@1|9\ndirection=0\ntype=105\n";

// Of the example's INI template, which is compared with the XIF file of the released device.
const std::vector<EditRow>& TemplateEdits() {
    static const std::vector<EditRow> rows = {
        {"nothing", [](std::string text) { return text; }, kEqual, ""},
        {"a comment", Replace("; SNVT_switch", "; changed"), kEqual, ""},
        {"variable in front", Insert("nv", 1, kNewVariable), kSameId, "variable-added"},
        {"variable in the middle", Insert("nv", 7, kNewVariable), kSameId, "variable-added"},
        {"variable at the end", Insert("nv", 15, kNewVariable), kSameId, "variable-added"},
        {"first variable gone", Remove("nv", 1), kSameId, "variable-removed"},
        {"last variable gone", Remove("nv", 14), kSameId, "variable-removed"},
        {"array gone", Remove("nv", 7), kSameId, "variable-removed"},
        {"one for another", Both(Remove("nv", 6), Insert("nv", 6, kNewVariable)), kSameId,
         "variable-removed variable-added"},
        {"neighbours swapped", Swap("nv", 3, 4), kSameId, "variables-swapped"},
        {"far ones swapped", Swap("nv", 1, 14), kSameId, "variables-swapped"},
        {"swap around one", Swap("nv", 3, 5), kSameId, "variables-swapped"},
        {"last variable to the front", Move("nv", 14, 1), kSameId, "variable-moved"},
        {"first variable to the end", Move("nv", 1, 14), kSameId, "variable-moved"},
        {"one up by three", Move("nv", 8, 5), kSameId, "variable-moved"},
        {"insertion and swap", Both(Swap("nv", 3, 4), Insert("nv", 1, kNewVariable)), kSameId,
         "variable-added variables-swapped"},
        {"swap and move", Both(Swap("nv", 3, 4), Move("nv", 14, 1)), kSameId,
         "variables-swapped variable-moved"},
        {"renamed", Replace("nviSetpoint", "nviTarget"), kSameId, "variable-renamed"},
        {"case of a name", Replace("nviSetpoint", "nviSetPoint"), kSameId, "variable-renamed"},
        {"renamed beside an insertion",
         Both(Replace("nviSetpoint", "nviTarget"), Insert("nv", 4, kNewVariable)), kSameId,
         "variable-added variable-renamed"},
        {"all inputs renamed", Replace("name=nvi", "name=nvx"), kSameId,
         "variable-renamed variable-renamed variable-renamed variable-renamed variable-renamed "
         "variable-renamed"},
        {"renamed and moved, by case", Both(Replace("nciSendHrtBt", "nciSendHrtbt"), Move("nv", 14, 1)),
         kSameId, "variable-moved variable-renamed"},
        {"direction", Replace("@1|4\ndirection=1", "@1|4\ndirection=0"), kSameId, "variable-direction"},
        {"type of another size", Replace("type=92", "type=93"), kSameId, "variable-type variable-size"},
        {"type of the same size", Replace("type=81", "type=105"), kSameId, "variable-type"},
        {"own type for a standard one", Replace("type=81", "type=300\nlength=2"), kSameId, "variable-type"},
        {"own type for another", Replace("type=300\nlength=2", "type=301\nlength=2"), kEqual, ""},
        {"length of an own type", Replace("type=304\nlength=16", "type=304\nlength=15"), kSameId,
         "variable-size"},
        {"array size", Replace("arraySize=4", "arraySize=5"), kSameId, "variable-array"},
        {"no array", Replace("arraySize=4\n", ""), kSameId, "variable-array"},
        {"polled", Replace("polled=1", "polled=0"), kSameId, "variable-attribute"},
        {"synchronized", Replace("synchronized=1", "synchronized=0"), kSameId, "variable-attribute"},
        {"configuration", Replace("configuration=1", "configuration=0"), kSameId, "variable-attribute"},
        {"offline", Replace("offline=1", "offline=0"), kSameId, "variable-attribute"},
        {"service fixed", Replace("defaultService=1", "defaultService=1\nserviceCanBeChanged=0"), kSameId,
         "variable-attribute"},
        {"default service", Replace("defaultService=1", "defaultService=2"), kHarmless, "variable-default"},
        {"default priority", Replace("defaultPriority=1", "defaultPriority=0"), kHarmless,
         "variable-default"},
        {"rate", Replace("maxRate=8", "maxRate=9"), kHarmless, "variable-rates"},
        {"member of a block", Replace("selfdoc=@1|4", "selfdoc=@1|5"), kSameId, "variable-documentation"},
        {"member of nothing", Replace("selfdoc=@1|4", "selfdoc=#1|4"), kSameId, "variable-documentation"},
        {"no self-documentation", Replace("selfdoc=@1|4\n", ""), kSameId, "variable-documentation"},
        {"text of a variable", Replace("Water flow", "Flow of water"), kHarmless, "variable-text"},
        {"text of a variable gone", Replace(";Window contacts", ""), kHarmless, "variable-text"},
        {"semicolon alone", Replace("selfdoc=@1|4", "selfdoc=@1|4;"), kHarmless, "variable-text"},
        {"block and text of a variable", Replace("@1#4;Water flow", "@1#9;Flow"), kSameId,
         "variable-documentation"},
        {"guidelines", Replace("&3.0@0", "&3.4@0"), kSameId, "device-documentation"},
        {"functional blocks", Replace("@0,8020[2];", "@0,8020[3];"), kSameId, "object-list"},
        {"text of the device", Replace("Fan-coil unit controller, 2-pipe", "Fan coil"), kHarmless,
         "device-text"},
        {"tag renamed", Replace("fanCoilTag", "fancoilTag"), kSameId, "tag-renamed"},
        {"tag not bindable", Replace("bindable=1", "bindable=0"), kSameId, "tag-attribute"},
        {"tag gone", Remove("tag", 1), kSameId, "tag-removed"},
        {"second tag", Insert("tag", 2, "name=secondTag\nbindable=1\n"), kSameId, "tag-added"},
        {"tag in front", Insert("tag", 1, "name=firstTag\nbindable=0\n"), kSameId, "tag-added"},
        {"property gone", Remove("cp", 3), kSameId, "property-removed"},
        {"property in front", Insert("cp", 1, "declaration=1,1,0\\x80,48,2;\nvalue=0001\n"), kSameId,
         "property-added"},
        {"properties swapped", Swap("cp", 2, 3), kSameId, "properties-swapped"},
        {"property moved", Move("cp", 9, 1), kSameId, "property-moved"},
        {"flags of a property", Replace("0\\x80,52", "0\\xA0,52"), kSameId, "property-changed"},
        {"length of a property", Replace("4\\x80,1,2;\nvalue=00C8", "4\\x80,1,3;\nvalue=0000C8"), kSameId,
         "property-changed property-value"},
        {"array of a property", Replace("50,2,3;\nvalue=138827103A98", "50,2,2;\nvalue=13882710"), kSameId,
         "property-changed property-value"},
        {"block of a property", Replace("1,1,0\\x80,52", "1,2,0\\x80,52"), kSameId, "property-changed"},
        {"property of another type", Replace("1,1,0\\x80,52", "1,1,0\\x80,49"), kSameId,
         "property-removed property-added"},
        {"value", Replace("value=0384", "value=0258"), kHarmless, "property-value"},
        {"two values", Both(Replace("value=0384", "value=0258"), Replace("value=04\n", "value=03\n")),
         kHarmless, "property-value property-value"},
        {"raw limits", Replace("minRawVal=0FA0", "minRawVal=0FA1"), kEqual, ""},
        {"limits in a declaration", Replace("0\\x80,50,2,3;", "0\\x80,50,2,3,0:50;"), kHarmless,
         "property-limits"},
        {"name of a property", Replace("0\\x80,52,2;", "0\\x80,52,2;cpMinSendTime"), kHarmless,
         "property-name"},
        {"version of the properties", Replace("version=1.0", "version=1.1"), kSameId, "property-version"},
        {"maximum of variables", Replace("maximumNumberOfNvs=20", "maximumNumberOfNvs=24"), kEqual, ""},
        {"another program ID", Replace("9FFFFF5014030401", "9FFFFF5014030402"), kHarmless, "new-program-id"},
        {"letter case of the program ID", Replace("9FFFFF5014030401", "9fffff5014030401"), kEqual, ""},
        {"synchronized configuration", Replace("configuration=1", "configuration=1\nsynchronized=1"), kSameId,
         "variable-attribute"},
        {"polled and synchronized", Replace("synchronized=1", "synchronized=1\npolled=1"), kSameId,
         "variable-attribute"},
        {"breaking with another program ID",
         Both(Replace("9FFFFF5014030401", "9FFFFF5014030402"), Remove("nv", 1)), kNewId,
         "variable-removed new-program-id"},
    };
    return rows;
}

// Of the released XIF file itself.
const std::vector<EditRow>& XifEdits() {
    static const std::vector<EditRow> rows = {
        {"nothing", [](std::string text) { return text; }, kEqual, ""},
        {"header",
         Both(Replace("node.xif generated by", "other.xif generated by"), Replace("Run on ", "On ")),
         kHarmless, "file-header file-header"},
        {"version of the format", Replace("XIF Version 4.0", "XIF Version 4.402"), kHarmless, "file-header"},
        {"parameters", Replace("\r\n2 15 1 14 1 4 3 ", "\r\n2 14 1 14 1 4 2 "), kHarmless,
         "parameters parameters"},
        {"counts in the parameters alone", Replace("\r\n2 15 1 14 1 4 3 ", "\r\n2 15 1 13 2 4 3 "), kHarmless,
         "parameters parameters"},
        {"index", Replace("VAR nviSetpoint 3", "VAR nviSetpoint 4"), kSameId, "variable-index"},
        {"second attribute", Replace("VAR nviRequest 0 0 0 0\r\n0 1 63", "VAR nviRequest 0 0 0 0\r\n0 2 63"),
         kSameId, "variable-attribute"},
        {"one union for bytes", Replace("81 * 2\r\n0 0 0 0 0\r\n0 1 0 0 0\r\n", "81 * 1\r\n4 0 2 0 0\r\n"),
         kHarmless, "variable-elements"},
        {"number behind the star alone",
         Replace("81 * 2\r\n0 0 0 0 0\r\n0 1 0 0 0\r\n", "81 * 1\r\n4 0 3 0 0\r\n"), kSameId,
         "variable-size"},
        {"array of an element alone", Replace("81 * 2\r\n0 0 0 0 0\r\n", "81 * 2\r\n0 0 0 0 1\r\n"),
         kHarmless, "variable-elements"},
        {"escape for a character", Replace("\xB0", "\\xB0"), kEqual, ""},
        {"priority of a tag",
         Replace("0 1 63 1 0 1 0 1 0 1 0 0 0\r\nVAR nviRequest",
                 "0 1 63 1 0 1 0 1 0 0 0 0 0\r\nVAR nviRequest"),
         kHarmless, "tag-default"},
        {"rates of a tag", Replace("TAG fanCoilTag 0 0 0 0", "TAG fanCoilTag 0 1 2 0"), kHarmless,
         "tag-rates tag-rates"},
        {"name of a file of properties", Replace("FILE value 1 1", "FILE nvValueFile 1 1"), kHarmless,
         "property-files"},
        {"values of configuration variables",
         [](const std::string& text) { return text + "\r\nNVVAL\r\n\\x00 \\x05\r\n"; }, kHarmless,
         "variable-values"},
        {"a comment", Replace("TAG fanCoilTag", "# comment\r\nTAG fanCoilTag"), kHarmless, "other-records"},
        {"values that do not add up", Replace("\\x03 \\x84", "\\x03"), kHarmless, "property-value"},
    };
    return rows;
}

// Of the example's format file: own types as its job gives them.
const std::vector<EditRow>& TypeEdits() {
    static const std::vector<EditRow> rows = {
        {"nothing", [](std::string text) { return text; }, kEqual, ""},
        {"member inserted", Replace("<flow>301</flow>", "<flow>301</flow><return>300</return>"), kSameId,
         "type-structure"},
        {"member renamed", Replace("<supply>300</supply>", "<inlet>300</inlet>"), kSameId, "type-structure"},
        {"members swapped",
         Replace("<frost>310</frost>\n      <overheat>311</overheat>",
                 "<overheat>310</overheat>\n      <frost>311</frost>"),
         kSameId, "type-structure"},
        {"a standard member for another", Replace("<spaceTemp>105<", "<spaceTemp>107<"), kSameId,
         "type-scaling type-limits type-text"},
        {"wider bit field", Replace("<BFSIZE>2<", "<BFSIZE>3<"), kSameId, "type-structure"},
        {"number for a float",
         Replace("<TYPE>FLOAT</TYPE>\n    <NAME>power</NAME>\n    <LENGTH>4<",
                 "<TYPE>SIGNEDNUMERIC</TYPE>\n    <NAME>power</NAME>\n    <LENGTH>2<"),
         kSameId, "type-structure type-structure type-limits type-limits type-limits"},
        {"size",
         Replace("<LENGTH>2</LENGTH>\n    <MIN>0</MIN>\n    <MAX>5000<",
                 "<LENGTH>1</LENGTH>\n    <MIN>0</MIN>\n    <MAX>100<"),
         kSameId, "type-size type-size type-limits type-limits"},
        {"scaling", Replace("<B_COEF>1<", "<B_COEF>2<"), kSameId, "type-scaling type-limits"},
        {"offset", Replace("<C_COEF>-5000<", "<C_COEF>-5001<"), kSameId,
         "type-scaling type-scaling type-scaling type-limits type-limits type-limits"},
        {"sign", Replace("<SNVT_340>\n    <TYPE>UN", "<SNVT_340>\n    <TYPE>"), kSameId, "type-scaling"},
        {"value of an enumeration", Replace("<FM_AUTO>4<", "<FM_AUTO>5<"), kSameId,
         "type-enumeration type-enumeration type-enumeration"},
        {"name in an enumeration", Replace("FM_AUTO", "FM_AUT"), kSameId,
         "type-enumeration type-enumeration type-enumeration"},
        {"order in an enumeration",
         Replace("<FM_OFF>0</FM_OFF>\n      <FM_LOW>1</FM_LOW>", "<FM_LOW>1</FM_LOW><FM_OFF>0</FM_OFF>"),
         kEqual, ""},
        {"limits", Replace("<MAX>20000<", "<MAX>30000<"), kHarmless, "type-limits"},
        {"limits of a float", Replace("<MAX>2500<", "<MAX>3000<"), kHarmless, "type-limits type-limits"},
        {"unit", Replace("<UNIT>h<", "<UNIT>hours<"), kHarmless, "type-text"},
        {"long name", Replace("Name of a room", "Room"), kHarmless, "type-text type-text"},
        {"name", Replace("<NAME>power<", "<NAME>electricity<"), kHarmless, "type-text"},
        {"units of display", Replace("<UNIT>kW<", "<UNIT>kVA<"), kEqual, ""},
    };
    return rows;
}

class InterfaceDiff : public testing::Test {
  protected:
    // What generate writes of the example.
    std::string Released(const std::string& name) const {
        const Answer run = Call({"generate", "--iniProfileFile", Example("profile.ini"), "--iniTemplateFile",
                                 Example("template.ini"), "--mustGenerateTypes", "false", "--outputXIFfile",
                                 scratch_.Path(name), "--catalogDir", TOVAREK_CATALOG});
        EXPECT_EQ(run.status, 0) << run.error;
        return scratch_.Path(name);
    }
    static std::string Example(const std::string& name) { return std::string(TOVAREK_EXAMPLE) + "/" + name; }

    void CopyExample(const std::string& folder) const {
        for (const auto& entry : std::filesystem::directory_iterator(StandardPath(Example(""))))
            std::filesystem::copy(entry.path(),
                                  StandardPath(scratch_.Path(folder)) / entry.path().filename());
    }

    static Answer Diff(const std::string& before, const std::string& after,
                       const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"diff", "--interface",  before,
                                              after,  "--catalogDir", TOVAREK_CATALOG};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }

    void Expect(const EditRow& row, const std::string& before, const std::string& after) {
        SCOPED_TRACE(row.what);
        const Answer run = Diff(before, after, {"--format", "json"});
        ASSERT_NE(run.status, 2) << run.out;
        const auto json = nlohmann::json::parse(run.out);
        std::string rules;
        told_ += row.what;
        for (const auto& change : json["changes"]) {
            rules += (rules.empty() ? "" : " ") + change["rule"].get<std::string>();
            const auto text = [&](const char* key) { return change[key].get<std::string>(); };
            if (text("field") != "date")
                told_ +=
                    " | " + text("record") + ", " + text("field") + ": " + text("old") + " -> " + text("new");
        }
        told_ += '\n';
        EXPECT_EQ(json["verdict"], row.verdict) << run.out;
        EXPECT_EQ(rules, row.rules) << run.out;
        EXPECT_EQ(run.status, row.verdict == kSameId ? 1 : 0);
    }

    Scratch scratch_;
    std::string told_;  // of all edits
};

TEST_F(InterfaceDiff, JudgesEdits) {
    const std::string released = Released("node.xif");
    CopyExample("");
    const std::string job = scratch_.Path("job.json");
    const std::string limits = "<MINRAWVAL>0FA0<";
    const struct {
        std::vector<EditRow> rows;
        std::string original;
        std::string before;
        std::string edited;
        std::string after;
    } tables[] = {
        {TemplateEdits(), Example("template.ini"), released, scratch_.Path("edited.ini"), ""},
        {XifEdits(), released, released, scratch_.Path("edited.xif"), ""},
        {TypeEdits(), Example("format.xml"), Example("job.json"), scratch_.Path("format.xml"), job},
        {{{"raw limits", Replace(limits, "<MINRAWVAL>0FA1<"), kHarmless, "type-limits"}},
         Example("template.xml"),
         Example("job.json"),
         scratch_.Path("template.xml"),
         job},
    };
    for (const auto& table : tables) {
        const std::string original = ReadFile(table.original);
        for (const EditRow& row : table.rows) {
            WriteFile(table.edited, row.edit(original));
            Expect(row, table.before, table.after.empty() ? table.edited : table.after);
        }
        WriteFile(table.edited, original);
    }
    ExpectText(told_, TOVAREK_EXPECTED);
}

// An interface file says no more of own types than their length; the resource files beside it do.
TEST_F(InterfaceDiff, ComparesOwnTypesWhereBothSidesGiveThem) {
    std::filesystem::create_directory(StandardPath(scratch_.Path("old")));
    CopyExample("old/");
    const std::string old = scratch_.Path("old/");
    const std::string now = scratch_.Path("now/");
    EXPECT_EQ(Call({"generate", "--job", old + "job.json", "--typeFilesDirectory", old, "--outputXIFfile",
                    old + "node.xif", "--catalogDir", TOVAREK_CATALOG})
                  .status,
              0);
    // A copy has the same date, whatever the clock does meanwhile.
    std::filesystem::copy(StandardPath(scratch_.Path("old")), StandardPath(scratch_.Path("now")));
    const auto verdict = [](const Answer& run) { return run.out.substr(run.out.rfind("verdict")); };
    const std::string equal = "verdict: equal\n";
    EXPECT_EQ(verdict(Diff(old + "node.xif", now + "node.xif")), equal);
    EXPECT_EQ(verdict(Diff(old + "node.xif", now + "job.json")), equal);
    EXPECT_EQ(verdict(Diff(old + "node.xif", now + "template.ini")),
              "verdict: equal; own types not compared\n");
    const std::vector<std::string> six = {"--new-types", now + "fancoil_6.typ"};
    EXPECT_EQ(verdict(Diff(old + "node.xif", now + "template.ini", six)),
              "verdict: equal; own types of 3 properties not compared\n");
    const auto counts = nlohmann::json::parse(
        Diff(old + "node.xif", now + "template.ini", {six[0], six[1], "--format", "json"}).out)["ownTypes"];
    EXPECT_EQ(counts.dump(),
              R"({"properties":{"compared":3,"notCompared":3},"variables":{"compared":6,"notCompared":0}})");
    for (const char* side : {"--old-types", "--new-types"}) {
        const Answer twice = Diff(old + "node.xif", now + "node.xif", {side, six[1], side, six[1]});
        EXPECT_EQ(twice.status, 2);
        EXPECT_NE(twice.error.find("is the second set of scope 6"), std::string::npos) << twice.error;
    }
    EXPECT_EQ(Diff(old + "node.xif", now + "node.xif", {"--old-types", now + "node.xif"}).status, 2);

    // With a variable less nobody knows which of the types is whose.
    const std::string less = scratch_.File("less.ini", Remove("nv", 9)(ReadFile(now + "template.ini")));
    EXPECT_NE(Diff(old + "node.xif", less, six).out.find("own types of 5 variables and 3 properties not"),
              std::string::npos);

    // Without its language file a set tells no texts, and none that are gone.
    std::filesystem::remove(StandardPath(now + "fancoil_6.ENU"));
    EXPECT_EQ(Diff(old + "node.xif", now + "node.xif").out, equal);

    // Who numbered the types of variables otherwise tells those of properties alone.
    TypeFile types;
    std::string bytes;
    ASSERT_TRUE(ReadTypeFile(ReadFile(now + "fancoil_6.typ"), types).Ok());
    types.nvTypes[0]->name = "_waterTemp";
    ASSERT_TRUE(WriteTypeFile(types, bytes).Ok());
    scratch_.File("now/fancoil_6.typ", bytes);
    EXPECT_EQ(Diff(old + "node.xif", now + "node.xif").out,
              "verdict: equal; own types of 6 variables not compared\n");

    // Two sets of one scope: nobody knows which counts.
    std::filesystem::copy_file(StandardPath(old + "fancoil_6.typ"), StandardPath(old + "other.typ"));
    EXPECT_EQ(verdict(Diff(old + "node.xif", old + "node.xif")),
              "verdict: equal; own types of 6 variables and 3 properties not compared\n");
}

// Types of every kind in the place of unitState, which has 9 bytes as well.
TEST_F(InterfaceDiff, ComparesTypesOfEveryKind) {
    CopyExample("");
    ASSERT_EQ(Call({"generate", "--job", scratch_.Path("job.json"), "--typeFilesDirectory", scratch_.Folder(),
                    "--outputXIFfile", scratch_.Path("node.xif"), "--catalogDir", TOVAREK_CATALOG})
                  .status,
              0);
    TypeFile types;
    ASSERT_TRUE(ReadTypeFile(ReadFile(scratch_.Path("fancoil_6.typ")), types).Ok());
    TypeDescription real = NumberOfKind(TypeKind::floatingPoint);
    real.floatInvalid = 7.5F;
    TypeDescription oneOf;
    oneOf.kind = TypeKind::unionKind;
    oneOf.members = {{"small", {}, {}, {}, NumberOfKind(TypeKind::unsignedShort)},
                     {"signed", {}, {}, {}, NumberOfKind(TypeKind::signedShort)}};
    TypeDescription mode = NumberOfKind(TypeKind::enumeration);
    mode.target = {4, 1};
    const auto file = [&](const std::string& name, const std::vector<TypeDescription>& members) {
        TypeDescription& type = types.nvTypes.at(5)->type;
        type.kind = TypeKind::structure;
        type.members.clear();
        for (const TypeDescription& member : members)
            type.members.push_back({"m" + std::to_string(type.members.size()), {}, {}, {}, member});
        std::string bytes;
        EXPECT_TRUE(WriteTypeFile(types, bytes).Ok());
        return scratch_.File(name, bytes);
    };
    TypeDescription elsewhere;
    elsewhere.kind = TypeKind::reference;
    elsewhere.target = {4, 9};
    elsewhere.referencedSize = 2;
    const TypeDescription byte = NumberOfKind(TypeKind::unsignedShort);
    const TypeDescription bytes = ArrayOf(byte, 2, 3);
    const std::string old = file("old.typ", {oneOf, mode, real, byte, bytes});
    std::string told;
    const auto tell = [&](const std::vector<TypeDescription>& members) {
        const std::string out = Diff(scratch_.Path("node.xif"), scratch_.Path("node.xif"),
                                     {"--old-types", old, "--new-types", file("new.typ", members)})
                                    .out;
        told += out.substr(0, out.find("verdict"));
    };
    tell({oneOf, mode, real, byte, bytes});
    tell({oneOf, mode, real, byte, ArrayOf(NumberOfKind(TypeKind::signedShort), 2, 3)});
    tell({oneOf, mode, real, byte, elsewhere});
    tell({mode, oneOf, real, byte, bytes});
    real.floatInvalid = 8.5F;
    mode.target.index = 2;
    tell({oneOf, mode, real, byte, bytes});
    EXPECT_EQ(
        told,
        R"(breaking: network variable 13 (nvoUnitState): structure of its type: ...at, m3: number, m4: bytes -> ...at, m3: number, m4: array of 2, m4[]: number [type-structure]
breaking: network variable 13 (nvoUnitState): structure of its type: ...at, m3: number, m4: bytes -> ...at, m3: number, m4: type 9 of scope 4 [type-structure]
breaking: network variable 13 (nvoUnitState): structure of its type: structure, m0: union, m0.small: number, m0.signed: number, m1: enumeration, m2: ... -> structure, m0: enumeration, m1: union, m1.small: number, m1.signed: number, m2: ... [type-structure]
breaking: network variable 13 (nvoUnitState): values of its type, m1: set 1 of scope 4 -> set 2 of scope 4 [type-enumeration]
harmless: network variable 13 (nvoUnitState): limits of its type, m2: -3.4028235E+38 to 3.4028235E+38, invalid 7.5 -> -3.4028235E+38 to 3.4028235E+38, invalid 8.5 [type-limits]
)");

    // Down to the deepest value that is shown: the structure, its array and those inside it.
    TypeDescription nested = ArrayOf(NumberOfKind(TypeKind::signedShort), 9, 1);
    for (int depth = 2; depth < kDeepestValue; ++depth)
        nested = ArrayOf(nested, 1, 9);
    const auto isCompared = [&](const TypeDescription& member) {
        const std::vector<std::string> sets = {"--old-types", file("deep.typ", {member}), "--new-types",
                                               scratch_.Path("deep.typ")};
        const std::string out = Diff(scratch_.Path("node.xif"), scratch_.Path("node.xif"), sets).out;
        return out.find("own types of 1 variable") == std::string::npos;
    };
    EXPECT_TRUE(isCompared(nested));
    EXPECT_FALSE(isCompared(ArrayOf(nested, 1, 9)));
}

// Those of types that properties take from their variables as well.
TEST_F(InterfaceDiff, TellsValuesAsPeopleReadThem) {
    const std::string inherited = "declaration=2,2~3,0\\x80,7,2;\nvalue=";
    const std::string original = scratch_.File(
        "original.ini", Insert("cp", 10, inherited + "07D0\n")(ReadFile(Example("template.ini"))));
    const std::string edited = scratch_.File(
        "edited.ini",
        Both(Both(Replace("138827103A98", "138827103A84"), Replace(inherited + "07D0", inherited + "0898")),
             Swap("nv", 3, 4))(ReadFile(original)));
    const Answer run = Diff(original, edited);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(
        run.out,
        "breaking: network variable 3 (nviSetpoint): swapped with network variable 4 (nviSpaceTemp) "
        "[variables-swapped]\n"
        "harmless: configuration property 3 (SCPTmaxSetpoint): value: 25 % of full level, 50 % of full "
        "level, 75 % of full level -> 25 % of full level, 50 % of full level, 74.9 % of full level "
        "[property-value]\n"
        "harmless: configuration property 10 (SCPTdefOutput): value: 20 degrees Celsius -> 22 degrees "
        "Celsius [property-value]\n"
        "verdict: breaking under the same program ID 9F:FF:FF:50:14:03:04:01: raise the model number; own "
        "types not compared\n");
}

TEST_F(InterfaceDiff, TellsLongTextsWhereTheyDiffer) {
    const std::string edited = scratch_.File(
        "edited.ini", Replace("4 window contacts", "5 window contacts")(ReadFile(Example("template.ini"))));
    EXPECT_EQ(
        Diff(Example("template.ini"), edited).out,
        "harmless: device: text: ... with room unit and 4 window contacts -> ... with room unit and 5 window "
        "contacts [device-text]\n"
        "verdict: harmless; own types not compared\n");
}

TEST_F(InterfaceDiff, FindsTheKnownInterfaceAndTheNextFreeModel) {
    const std::string released = ReadFile(Released("new.xif"));
    const auto device = [&](const std::string& model) { return Replace("04:01", "04:" + model)(released); };
    const std::string changed = Replace("nviSetpoint", "nviTarget")(device("FE"));
    std::filesystem::create_directory(StandardPath(scratch_.Path("known")));
    for (const char* model : {"01", "FE", "FF", "00"})
        scratch_.File(std::string("known/") + model + ".XIF", device(model));
    scratch_.File("known/readme.txt", "no interface");
    const auto known = [&](const std::string& bytes, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"diff",
                                              "--interface",
                                              "--known",
                                              scratch_.Path("known"),
                                              scratch_.File("known/own.xif", bytes),
                                              "--catalogDir",
                                              TOVAREK_CATALOG};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    };
    const Answer broken = known(changed);
    EXPECT_EQ(broken.status, 1);
    EXPECT_TRUE(broken.out.starts_with("compared with " + scratch_.Path("known") + "/FE.XIF\n"))
        << broken.out;
    EXPECT_NE(broken.out.find("raise the model number, the next free one is 9F:FF:FF:50:14:03:04:02;"),
              std::string::npos)
        << broken.out;
    EXPECT_EQ(nlohmann::json::parse(known(changed, {"--format", "json"}).out)["nextFree"],
              "9F:FF:FF:50:14:03:04:02");
    EXPECT_EQ(known(device("01")).status, 0);
    EXPECT_EQ(known(device("77")).out,
              "verdict: new: no known interface has the program ID 9F:FF:FF:50:14:03:04:77\n");
    scratch_.File("known/again.xif", device("FE"));
    EXPECT_EQ(known(changed).status, 2);
    scratch_.File("known/again.xif", "damaged");
    EXPECT_EQ(known(device("01")).status, 2);
    EXPECT_EQ(Call({"diff", "--interface", "--known", scratch_.Path("none"), scratch_.Path("known/01.XIF"),
                    "--catalogDir", TOVAREK_CATALOG})
                  .status,
              2);
}

TEST_F(InterfaceDiff, GivesATableForReviews) {
    const std::string edited =
        scratch_.File("edited.ini", Replace("@1|4", "@1|5;a|b")(ReadFile(Example("template.ini"))));
    EXPECT_EQ(
        Diff(Example("template.ini"), edited, {"--format", "markdown"}).out,
        "**Interface: breaking under the same program ID 9F:FF:FF:50:14:03:04:01: raise the model number; "
        "own types not compared**\n\n"
        "| Effect | Where | What | Old | New | Rule |\n|---|---|---|---|---|---|\n"
        "| **breaking** | network variable 6 (nvoHeatOutput) | self-documentation | @1\\|4 | "
        "@1\\|5;a\\|b | `variable-documentation` |\n");
    EXPECT_EQ(Call({"diff", edited, edited, "--format", "markdown"}).status, 2);
    EXPECT_EQ(Call({"diff", edited, edited, "--known", "x"}).status, 2);
}

TEST_F(InterfaceDiff, GivesSarifForCodeHosts) {
    const std::string edited =
        scratch_.File("edited.ini", Both(Replace("@1|4", "@1|5"), Replace("value=0384", "value=0258"))(
                                        ReadFile(Example("template.ini"))));
    const auto run =
        nlohmann::json::parse(Diff(Example("template.ini"), edited, {"--format", "sarif"}).out)["runs"][0];
    EXPECT_EQ(run["properties"]["verdict"], kSameId);
    ASSERT_EQ(run["results"].size(), 2U);
    const auto& result = run["results"][0];
    EXPECT_EQ(result["level"], "error");
    EXPECT_EQ(result["message"]["text"],
              "network variable 6 (nvoHeatOutput): self-documentation: @1|4 -> @1|5");
    const std::string place = result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"];
    EXPECT_TRUE(place.ends_with("/edited.ini")) << place;
    EXPECT_EQ(run["results"][1]["level"], "note");
    EXPECT_EQ(run["tool"]["driver"]["rules"][1]["id"], "property-value");
    // Under a new program ID nothing is wrong.
    const std::string other = scratch_.File("other.ini", Replace("3040", "3050")(ReadFile(edited)));
    const auto fine =
        nlohmann::json::parse(Diff(Example("template.ini"), other, {"--format", "sarif"}).out)["runs"][0];
    for (const auto& one : fine["results"])
        EXPECT_EQ(one["level"], "note");
    EXPECT_EQ(Call({"diff", edited, edited, "--format", "sarif"}).status, 2);
}

TEST_F(InterfaceDiff, TakesJobsAndTemplatesOfBothForms) {
    const std::string released = Released("node.xif");
    for (const char* form : {"job.json", "template.ini", "template.xml", "template.xml#DEVICE"})
        EXPECT_EQ(Diff(released, Example(form)).out, "verdict: equal; own types not compared\n") << form;
    const std::string job =
        scratch_.File("j.json", nlohmann::json{{"xmlTemplateFile", Example("template.xml")},
                                               {"xmlTemplateNodeName", "DEVICE"},
                                               {"mustGenerateTypes", false},
                                               {"mustGenerateXif", false}}
                                    .dump());
    EXPECT_EQ(Diff(released, job).out, "verdict: equal; own types not compared\n") << "without a profile";
}

TEST_F(InterfaceDiff, PutsNamesInFrontOfPropertiesWhereAJobAsksForIt) {
    const auto job = [&](bool names) {
        return scratch_.File("named.json", nlohmann::json{{"xmlTemplateFile", Example("template.xml")},
                                                          {"xmlTemplateNodeName", "DEVICE"},
                                                          {"xmlProfileFile", Example("profile.xml")},
                                                          {"xmlProfileNodeName", "DEVICEPROFILE"},
                                                          {"mustGenerateTypes", false},
                                                          {"addNameInCpString", names},
                                                          {"outputXIFfile", scratch_.Path("named.xif")}}
                                               .dump());
    };
    const Answer written = Call({"generate", "--job", job(true), "--catalogDir", TOVAREK_CATALOG});
    ASSERT_EQ(written.status, 0) << written.error;
    EXPECT_EQ(Diff(scratch_.Path("named.xif"), job(true)).out, "verdict: equal; own types not compared\n");
    const std::string unnamed = Diff(scratch_.Path("named.xif"), job(false)).out;
    EXPECT_NE(unnamed.find("property"), std::string::npos) << unnamed;
}

TEST_F(InterfaceDiff, EndsWithTwoWhereAnInterfaceCannotBeRead) {
    const std::string released = Released("node.xif");
    for (const std::string& bad :
         {scratch_.Path("none.xif"), scratch_.Path("none.ini"), Example("profile.ini"), Example("format.xml"),
          scratch_.File("damaged.xif", "File: x"), scratch_.File("x.txt", "x"),
          scratch_.File("bad.json", "{"),
          scratch_.File("faulty.ini", Replace("type=92", "type=255")(ReadFile(Example("template.ini")))),
          scratch_.File("broken.xml", "<DEVICE>")})
        EXPECT_EQ(Diff(released, bad).status, 2) << bad;
    EXPECT_EQ(Call({"diff", "--interface", released}).status, 2);
    const Answer json = Diff(released, scratch_.Path("none.xif"), {"--format", "json"});
    EXPECT_EQ(nlohmann::json::parse(json.out)["name"], "fileNotFound");
}

TEST_F(InterfaceDiff, EveryRuleIsExplained) {
    const std::string list = Call({"explain", "--list"}).out;
    const auto json = nlohmann::json::parse(Call({"explain", "--list", "--format", "json"}).out);
    EXPECT_EQ(json.back()["name"], InterfaceRules().back().name);
    for (const InterfaceRuleRow& rule : InterfaceRules()) {
        EXPECT_NE(list.find("\n" + std::string(rule.name) + "\t"), std::string::npos);
        const std::string text = Call({"explain", std::string(rule.name)}).out;
        EXPECT_TRUE(
            text.starts_with(std::string(rule.name) + (rule.IsBreaking() ? ": breaking" : ": harmless")));
        EXPECT_NE(text.find(rule.why.substr(0, 20)), std::string::npos) << text;
    }
    EXPECT_NE(Call({"explain", "variable-adde"}).error.find("variable-added"), std::string::npos);
}

// Files of other tools are the same to themselves, and to what comes of them through the forms of inputs.
TEST_F(InterfaceDiff, EverySampleIsEqualToItselfAndHarmlessBesideItsOtherForm) {
    const std::vector<std::string> samples = SampleFiles("xif");
    if (samples.empty())
        GTEST_SKIP() << "no samples";
    for (const std::string& sample : samples) {
        const Answer run = Diff(sample, sample);
        if (run.status == 2)
            continue;  // a file that only has the extension
        EXPECT_TRUE(run.out.starts_with("verdict: equal")) << sample << run.out;
        const std::string job = scratch_.Path("job.json");
        ASSERT_EQ(Call({"convert",      sample,
                        "--profile",    scratch_.Path("p.ini"),
                        "--template",   scratch_.Path("t.xml"),
                        "--job",        job,
                        "--fit",        "4.0",
                        "--set",        "typeNeuron=0",
                        "--set",        "protocolClockRate=5",
                        "--set",        "applicationtype=2",
                        "--set",        "rawDataClockRate=5",
                        "--catalogDir", TOVAREK_CATALOG})
                      .status,
                  0)
            << sample;
        const Answer again = Diff(sample, job, {"--format", "json"});
        EXPECT_EQ(nlohmann::json::parse(again.out)["verdict"], kHarmless) << sample << again.out;
        const std::string generated = scratch_.Path("generated.xif");
        Call({"generate", "--job", job, "--outputXIFfile", generated, "--catalogDir", TOVAREK_CATALOG});
        EXPECT_TRUE(Diff(job, generated).out.starts_with("verdict: equal")) << sample;
    }
}

}  // namespace
}  // namespace tovarek::test
