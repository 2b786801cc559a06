#include <gtest/gtest.h>

#include "../Scratch.h"
#include "../inspect/Fixtures.h"
#include "Standard.h"
#include "base/Error.h"
#include "base/Text.h"
#include "values/ProgramId.h"
#include "values/Scaling.h"

namespace tovarek::test {
namespace {

// What encoding answers: hexadecimal digits, or the reason of a refusal behind "refused: "; notes in front.
std::string Encoded(const ValueType& type, const std::string& text, const ResourceNames& names) {
    std::string bytes;
    std::vector<std::string> notes;
    const Outcome outcome = EncodeValue(type, text, names, bytes, notes);
    if (!outcome.Ok())
        return "refused: " + outcome.reason;
    std::string answer;
    for (const std::string& note : notes)
        answer += note + "; ";
    for (const char byte : bytes)
        AppendHex(answer, static_cast<unsigned char>(byte), 2);
    return answer;
}

TypeMember Member(const std::string& name, TypeDescription type) {
    TypeMember member;
    member.name = name;
    member.type = std::move(type);
    return member;
}

TypeDescription Several(TypeKind kind, std::vector<TypeMember> members) {
    TypeDescription type;
    type.kind = kind;
    type.members = std::move(members);
    return type;
}

TEST(Values, OfStandardTypesAreWrittenAsPeopleSayThem) {
    const Standard standard;
    const struct {
        const char* type;
        const char* text;
        const char* bytes;
        const char* decoded;  // empty: the text
    } rows[] = {
        {"SCPTmaxSendTime", "60", "0258", "60 seconds"},
        {"SCPTmaxSendTime", "+6e1 seconds", "0258", "60 seconds"},
        {"SNVT_temp_p", "-5", "FE0C", "-5 degrees Celsius"},
        {"SNVT_temp_p", "21.456", "21.456 lies between two steps, 21.46 was taken; 0862",
         "21.46 degrees Celsius"},
        {"SNVT_temp_p", "raw:-32768", "8000", ""},
        {"SNVT_temp_p", "invalid", "7FFF", ""},
        {"SNVT_switch", "STATE = 1 ,value=100", "C801", "value=100 % of full level, state=1 state code"},
        {"SNVT_hvac_mode", "hvac_heat", "01", "HVAC_HEAT"},
        {"SNVT_hvac_mode", "HVAC_NUL", "FF", ""},
        {"SNVT_hvac_mode", "raw:0x63", "63", "raw:99"},
        {"SNVT_temp_f", "21.1", "41A8CCCD", "21.1 degrees Celsius"},
        {"SNVT_temp_f", "raw:0x7FC00000", "7FC00000", ""},
        {"SNVT_scene_def", "0102ff", "0102FF", "0102FF"},
        {"SNVT_scene_def", "[1, 2, 255]", "0102FF", "0102FF"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.type) + " " + row.text);
        const ValueType type = standard.Of(row.type);
        const std::string encoded = Encoded(type, row.text, standard.names);
        EXPECT_EQ(encoded, row.bytes);
        std::vector<std::string> notes;
        const std::string bytes = FromHex(encoded.substr(encoded.rfind(' ') + 1)).value_or("");
        EXPECT_EQ(Decoded(type, bytes, standard.names, notes), *row.decoded == '\0' ? row.text : row.decoded);
    }
}

TEST(Values, ThatDoNotFitAreRefusedWithWhatIsAccepted) {
    const Standard standard;
    const struct {
        const char* type;
        const char* text;
        const char* reason;  // a part of it
    } rows[] = {
        {"SNVT_temp_p", "400", "'400' is outside of -273.17 to 327.67 degrees Celsius (raw -27317 to 32767)"},
        {"SNVT_temp_p", "21,5", "'21,5' is not a number"},
        {"SNVT_temp_p", "1e999", "not a number"},
        {"SNVT_temp_p", "nan", "not a number"},
        {"SNVT_temp_p", "raw:32768", "-32768 to 32767"},
        {"SNVT_temp_p", "327.67", "write invalid"},
        {"SNVT_temp_f", "warm", "not a number"},
        {"SNVT_hvac_mode", "HVAC_HEET", "did you mean 'HVAC_HEAT'?"},
        {"SNVT_switch", "value=100", "missing: state"},
        {"SNVT_switch", "value=100, state=1, value=5", "two values"},
        {"SNVT_switch", "value=100.5, state=1", "value: '100.5' is outside of 0 to 100"},
        {"SNVT_switch", "level=100", "the members are: value, state"},
        {"SNVT_switch", "value=100, state=1}", "is more"},
        {"SNVT_str_asc", "ascii=01234567890123456789012345678901", "32 characters, 31 have room"},
        {"SNVT_scene_def", "0102", "3 bytes in hexadecimal"},
        {"SNVT_scene_def", "[1, 2]", "3 values are needed, with a comma between them; 2 were given"},
    };
    for (const auto& row : rows) {
        const std::string answer = Encoded(standard.Of(row.type), row.text, standard.names);
        EXPECT_TRUE(answer.starts_with("refused: ") && answer.find(row.reason) != std::string::npos)
            << row.type << " " << row.text << ": " << answer;
    }
    std::vector<std::string> notes;
    EXPECT_EQ(Decoded(standard.Of("SNVT_switch"), "C", standard.names, notes),
              "refused: SNVT_switch has 2 bytes, 1 were given");
    EXPECT_EQ(Encoded(standard.Of("SNVT_str_asc"), "Room \xC2\xB0", standard.names).substr(0, 14),
              "526F6F6D20B000")
        << "the one member of a structure needs no name";
}

// Types as type files hold them: the first bit of a byte is its highest, arrays and structures nest, unions
// share bytes, and names that cannot be told from other marks are numbered.
TEST(Values, OfNestedTypesTellEveryMember) {
    const TypeDescription inner =
        Several(TypeKind::structure, {Member("text", TextOf(4, 0)), Member("odd name", Bits(0, 8))});
    const TypeDescription either =
        Several(TypeKind::unionKind, {Member("short", NumberOfKind(TypeKind::unsignedShort)),
                                      Member("long", NumberOfKind(TypeKind::signedLong))});
    const ValueType type{"own",
                         Several(TypeKind::structure, {Member("a", Bits(0, 1)), Member("b", Bits(1, 3, true)),
                                                       Member("c", Bits(0, 4)), Member("either", either),
                                                       Member("list", ArrayOf(inner, 2, 0))}),
                         {}};
    const ResourceNames names;
    const std::string text =
        R"(a=1, b=-4, c=5, either={long=-2}, list=[{text="a,}\"", #2=7}, {text="\x01\\", #2=255}])";
    EXPECT_EQ(Encoded(type, text, names), "C050FFFE612C7D2207015C0000FF");
    EXPECT_EQ(Encoded(type,
                      R"( a = 1 ,b=-4 , c=5, either = { long=-2 } , list=[ {text="a,}\"" , #2=7 } , )"
                      R"({ text= "\x01\\" ,#2=255} ] )",
                      names),
              "C050FFFE612C7D2207015C0000FF")
        << "blanks";
    const ValueType nothing{
        "own",
        Several(TypeKind::structure, {Member("a", Bits(0, 8)), Member("list", ArrayOf(inner, 0, 0))}),
        {}};
    EXPECT_EQ(Encoded(nothing, "a=1, list=[ ]", names), "01");
    std::vector<std::string> notes;
    EXPECT_EQ(Decoded(type, *FromHex("C050FFFE612C7D2207015C0000FF"), names, notes), text);
    EXPECT_EQ(notes.size(), 1U) << "the union";
    EXPECT_EQ(Decoded(type, *FromHex("C150FFFE612C7D2207015C0000FF"), names, notes), text);
    EXPECT_NE(notes.back().find("bits that no member describes"), std::string::npos);
    const std::string shorter =
        Encoded(type, "a=0,b=0,c=0,either={short=3},list=[{text=a,#2=0},{text=,#2=0}]", names);
    EXPECT_EQ(shorter, "0000030061000000000000000000");
    for (const char* wrong : {"a=0,b=0,c=0,either={short=3,long=1},list=[{text=a,#2=0},{text=,#2=0}]",
                              "a=0,b=0,c=0,either={},list=[{text=a,#2=0},{text=,#2=0}]",
                              "a=0,b=0,c=0,either=short=3,list=[{text=a,#2=0},{text=,#2=0}]",
                              "a=0,b=0,c=0,either={short=3},list=[{text=a,#2=0}]",
                              "a=0,b=0,c=0,either={short=3},list=[{text=\"a,#2=0},{text=,#2=0}]",
                              "a=2,b=0,c=0,either={short=3},list=[{text=a,#2=0},{text=,#2=0}]"})
        EXPECT_TRUE(Encoded(type, wrong, names).starts_with("refused: own: ")) << wrong;
}

TEST(Values, OfTypesThatLeadNowhereAreBytes) {
    TypeDescription reference;
    reference.kind = TypeKind::reference;
    reference.target = {3, 7};
    reference.referencedSize = 2;
    const ValueType type{"own", ArrayOf(reference, 2, 0), {}};
    const ResourceNames names;
    std::vector<std::string> notes;
    EXPECT_EQ(Decoded(type, *FromHex("0102A0FF"), names, notes), "0102, A0FF");
    EXPECT_EQ(notes.size(), 2U);
    EXPECT_EQ(Encoded(type, "0102, A0FF", names), "0102A0FF");
    EXPECT_TRUE(Encoded(type, "0102, A0", names).starts_with("refused: own: [1]: 'A0'"));
    TypeDescription enumeration;
    enumeration.kind = TypeKind::enumeration;
    enumeration.target = {3, 7};
    EXPECT_EQ(Encoded({"own", enumeration, {}}, "raw:2", names), "02");
    EXPECT_TRUE(Encoded({"own", enumeration, {}}, "ON", names)
                    .starts_with("refused: own: the names of the enumeration are not known"));
    // Types that lead back to themselves end all the same.
    TypeFile circle;
    NvType self;
    self.type = Several(TypeKind::structure, {Member("x", reference), Member("y", reference)});
    self.type.members[0].type.target = self.type.members[1].type.target = {0, 1};
    self.type.members[0].type.referencedSize = self.type.members[1].type.referencedSize = 0;
    circle.nvTypes = {self};
    ResourceNames circular;
    circular.Use(circle);
    EXPECT_TRUE(Decoded({"circle", self.type, {}}, "", circular, notes).starts_with("refused: "));
}

TEST(Values, OfTypesInTheFormatFileHaveTheirUnitsAndLimits) {
    const Scratch scratch;
    const std::string path =
        scratch.File("format.xml",
                     "<T><SNVT_300><TYPE>UNSIGNEDNUMERIC</TYPE><NAME>heat</NAME><LENGTH>2</LENGTH>"
                     "<MIN>-50</MIN><MAX>150</MAX><B_COEF>-2</B_COEF><C_COEF>-5000</C_COEF>"
                     "<UNIT>\xC2\xB0"
                     "C</UNIT></SNVT_300>"
                     "<SNVT_301><TYPE>ENUM</TYPE><NAME>mode</NAME><ENUMS><M_ON>1</M_ON></ENUMS></SNVT_301>"
                     "<SNVT_302><TYPE>STRUCT</TYPE><NAME>all</NAME><FIELDS><t>300</t><m>301</m>"
                     "<s>95</s></FIELDS></SNVT_302><SNVT_95><TYPE>USER</TYPE></SNVT_95></T>");
    CCatalog catalog;
    catalog.catalogDir(TOVAREK_CATALOG);
    const auto decoded = [&](std::int32_t number, const char* bytes) {
        const OwnTypes own = ReadDefinedType(path, "SNVT_", number, catalog);
        ResourceNames names(catalog.types.Catalog());
        names.Use(own.types);
        names.Use(own.texts);
        std::vector<std::string> notes;
        return Decoded(ValueTypeOf("own", *own.types.nvTypes.at(0)), *FromHex(bytes), names, notes);
    };
    EXPECT_EQ(decoded(300, "2EE0"),
              "70 \xC2\xB0"
              "C");
    EXPECT_EQ(decoded(302, "000001C801"),
              "t=-50 \xC2\xB0"
              "C, m=M_ON, s={value=100 % of full level, state=1 state code}");
    EXPECT_THROW(decoded(303, "00"), Error);
    EXPECT_EQ(DefinedTypesNamed(path, "SNVT_", "UNVT__Heat"), std::vector<std::int32_t>{300});
    EXPECT_EQ(DefinedTypesNamed(path, "SNVT_", "he"), std::vector<std::int32_t>{});
}

// A decoded value with all that is told of it: "!" what is invalid, "|" a union, the unit in parentheses, a
// fault in "<>".
std::string Told(const DecodedValue& value) {
    constexpr const char* kKinds[] = {"number", "word", "text", "list", "structure"};
    std::string told = (value.name.empty() ? "" : value.name + '=') + kKinds[static_cast<int>(value.kind)] +
                       (value.isInvalid ? "!" : "") + (value.isUnion ? "|" : "") + ' ' + value.text +
                       (value.unit.empty() ? "" : " (" + value.unit + ')') +
                       (value.fault.empty() ? "" : " <" + value.fault + '>');
    for (std::size_t i = 0; i < value.children.size(); ++i)
        told += (i == 0 ? "{" : ", ") + Told(value.children[i]);
    return told + (value.children.empty() ? "" : "}");
}

class ValuesOfOwnTypes : public testing::Test {
  protected:
    ValuesOfOwnTypes() {
        names.Use(types);
        names.Use(texts);
        for (const std::size_t number : {3U, 2U})
            for (const TypeMember& member : types.nvTypes.at(number)->type.members)
                members.push_back({member.name, member.type, member.unit});
        members.push_back({"list", types.nvTypes[3]->type.members[7].type.members[1].type, {}});
    }
    const ValueType& Of(const std::string& name) const {
        return *std::find_if(members.begin(), members.end(),
                             [&](const ValueType& type) { return type.name == name; });
    }

    const TypeFile types = RichTypes();
    const LanguageFile texts = SmallLanguage();
    ResourceNames names;
    std::vector<ValueType> members;
};

TEST_F(ValuesOfOwnTypes, AreDecodedWithAllThatIsWrongWithThem) {
    const ValueType all = ValueTypeOf("all", *types.nvTypes[3]);
    const struct {
        const char* bytes;
        const char* told;
        const char* notes;
    } rows[] = {
        {"00000002000000000001FB3DCCCCCDDF01FF01",
         "structure {total=number 2000 (m/s), step=number 5, share=word raw:1, level=number -0.05, "
         "real=number "
         "0.1, low=number -2, high=number 31, either=structure| {list=list {word BM_ON, word BM_NUL}}, "
         "letter=number 1}",
         "either: one of several members that share these bytes: byte, list; "},
        {"FFFFFFFF00000002FFFF013D800000A0050102",
         "structure {total=word! invalid, step=word raw:2 <step: raw 2 (7) is outside of 4 to 6 (raw -1 to "
         "1)>, "
         "share=word raw:65535, level=word raw:1 <level: raw 1 (0.01) is outside of -1.28 to 0 (raw -128 to "
         "0)>, "
         "real=word! invalid, low=word raw:-3 <low: raw -3 (-3) is outside of -2 to 1 (raw -2 to 1)>, "
         "high=number 0, either=structure| {list=list {word raw:5 <either.list[0]: 5 is no value of "
         "belt_mode_t>, "
         "word BM_ON}}, letter=word raw:2 <letter: raw 2 (2) is outside of 0 to 1 (raw 0 to 1)>}",
         "step: raw 2 (7) is outside of 4 to 6 (raw -1 to 1); level: raw 1 (0.01) is outside of -1.28 to 0 "
         "(raw "
         "-128 to 0); low: raw -3 (-3) is outside of -2 to 1 (raw -2 to 1); either: one of several members "
         "that "
         "share these bytes: byte, list; letter: raw 2 (2) is outside of 0 to 1 (raw 0 to 1); "},
    };
    for (const auto& row : rows) {
        DecodedValue value;
        std::vector<std::string> notes;
        EXPECT_EQ(DecodeValue(all, *FromHex(row.bytes), names, value, notes).reason, "");
        EXPECT_EQ(Told(value), row.told);
        std::string told;
        for (const std::string& note : notes)
            told += note + "; ";
        EXPECT_EQ(told, row.notes);
    }
    const std::pair<const char*, const char*> reals[] = {
        {"BFC00000", "number -1.5"},
        {"3DCCCCCE", "word raw:0x3DCCCCCE <0.10000001 is outside of -1.5 to 0.1>"},
        {"BFC00001", "word raw:0xBFC00001 <-1.5000001 is outside of -1.5 to 0.1>"},
        {"47C35000", "word raw:0x47C35000 <100000 is outside of -1.5 to 0.1>"},
        {"7FC00000", "word raw:0x7FC00000 <nan is outside of -1.5 to 0.1>"}};
    for (const auto& [bytes, told] : reals) {
        DecodedValue value;
        std::vector<std::string> notes;
        EXPECT_TRUE(DecodeValue(Of("real"), *FromHex(bytes), names, value, notes).Ok());
        EXPECT_EQ(Told(value), told);
        EXPECT_EQ(notes.size(), value.fault.empty() ? 0U : 1U);
    }
}

TEST_F(ValuesOfOwnTypes, AreTakenOrRefusedWithTheWholeReason) {
    const struct {
        const char* member;
        const char* text;
        const char* answer;
    } rows[] = {
        {"total", "2000 m/s", "00000002"},
        {"total", " 0", "00000001"},
        {"total", "8589934586000", "FFFFFFFE"},
        {"total", "-2000", "refused: '-2000' is outside of 0 to 8589934586000 m/s (raw 1 to 4294967294)"},
        {"total", "8589934588000",
         "refused: '8589934588000' is outside of 0 to 8589934586000 m/s (raw 1 to 4294967294)"},
        {"total", "3000", "3000 lies between two steps, 2000 was taken; 00000002"},
        {"total", "invalid", "FFFFFFFF"},
        {"total", "raw:4294967295", "FFFFFFFF"},
        {"total", "raw:0Xff", "000000FF"},
        {"total", "raw:4294967296",
         "refused: 'raw:4294967296' is not a raw number of the type; accepted: 0 to 4294967295"},
        {"total", "raw:-1", "refused: 'raw:-1' is not a raw number of the type; accepted: 0 to 4294967295"},
        {"total", "raw:0x", "refused: 'raw:0x' is not a raw number of the type; accepted: 0 to 4294967295"},
        {"total", "2 km",
         "refused: '2 km' is not a number; accepted: 0 to 8589934586000 m/s (raw 1 to 4294967294), invalid"},
        {"step", "invalid", "refused: 'invalid' is not a number; accepted: 4 to 6 (raw -1 to 1)"},
        {"share", "1", "refused: '1' is outside of raw 0 to 65535"},
        {"real", "+.1", "3DCCCCCD"},
        {"real", "-1.5", "BFC00000"},
        {"real", "-1.6", "refused: '-1.6' is outside of -1.5 to 0.1"},
        {"real", "0.11", "refused: '0.11' is outside of -1.5 to 0.1"},
        {"real", "-1e60", "refused: '-1e60' is outside of -1.5 to 0.1"},
        {"real", "-1e-60", "00000000"},
        {"real", "0.0625", "refused: '0.0625' is the value that means invalid; write invalid"},
        {"real", "invalid", "3D800000"},
        {"real", "none",
         "refused: 'none' is not a number; a decimal one with a point, such as 20.5, is needed"},
        {"real", "raw:0xFFFFFFFF", "FFFFFFFF"},
        {"real", "raw:0", "00000000"},
        {"real", "raw:-1", "refused: 'raw:-1' is not a raw number of the type; accepted: 0x0 to 0xFFFFFFFF"},
        {"mode", "raw:-128", "80"},
        {"mode", "raw:127", "7F"},
        {"mode", "raw:-129", "refused: 'raw:-129' is not a raw number of the type; accepted: -128 to 127"},
        {"mode", "raw:x", "refused: 'raw:x' is not a raw number of the type; accepted: -128 to 127"},
        {"mode", "raw:128", "refused: 'raw:128' is not a raw number of the type; accepted: -128 to 127"},
        {"mode", "BM_OM",
         "refused: 'BM_OM' is not among the values of belt_mode_t: BM_NUL, BM_ON; did you mean 'BM_ON'?"},
        {"label", "Belt 2", "42656C742032"},
        {"label", "\"a\\x41\\\\\\\"\"", "61415C220000"},
        {"label", "Belts 2", "refused: the text has 7 characters, 6 have room"},
        {"label", "\"a", "refused: the text lacks its second quotation mark"},
        {"label", "\"a\" b", "refused: 'b' stands behind the value"},
        {"label", "\"\\x4\"",
         "refused: behind '\\' stands '\"', another '\\', or x and two hexadecimal digits"},
        {"label", "\xE4\xB8\xAD",
         "refused: the text '\xE4\xB8\xAD' has characters that devices do not know (their code page lacks "
         "them)"},
        {"gear", "5", "50"},
        {"gear", "raw:7", "70"},
        {"gear", "raw:8", "refused: 'raw:8' is not a raw number of the type; accepted: 0 to 7"},
        {"low", "-2", "C0"},
        {"low", "raw:-4", "80"},
        {"low", "raw:-5", "refused: 'raw:-5' is not a raw number of the type; accepted: -4 to 3"},
        {"temp", "01 02", "0102"},
        {"temp", "010", "refused: '010' is not what the type needs: 2 bytes in hexadecimal, two digits each"},
        {"list", "BM_ON , bm_nul", "01FF"},
        {"list", "[BM_ON,BM_NUL] ", "01FF"},
        {"list", "", "refused: 2 values are needed, 0 were given"},
        {"list", "BM_ON,", "refused: 2 values are needed, 1 were given"},
        {"list", "BM_ON", "refused: 2 values are needed, with a comma between them; 1 were given"},
        {"list", "[BM_ON]", "refused: 2 values are needed, with a comma between them; 1 were given"},
        {"list", "[BM_ON, ]", "refused: 2 values are needed, 1 were given"},
        {"list", "[BM_ON, BM_ON", "refused: 2 values are needed; then ']', found ''"},
        {"list", "BM_ON, BM_ON, 3", "refused: 2 values are needed; ', 3' is more"},
        {"list", "BM_ON, 3", "refused: [1]: '3' is not among the values of belt_mode_t: BM_NUL, BM_ON"},
        {"either", "BYTE = 7", "0700"},
        {"either", "{list=[BM_ON,BM_ON]}", "0101"},
        {"either", "{}", "refused: one member of a union has to have a value: byte, list"},
        {"either", "byte=1, byte=2", "refused: member 'byte' has two values"},
        {"either", "byte=1, list=[BM_ON,BM_ON]", "refused: of a union one member has a value"},
        {"either", "byte", "refused: 'byte' is not 'member=value'; the members are: byte, list"},
        {"either", "bite=1", "refused: there is no member 'bite'; the members are: byte, list"},
        {"either", "{byte=1", "refused: a comma stands between members; then '}', found ''"},
        {"either", "list=BM_ON",
         "refused: list: an array inside another value is written in brackets: [1, 2, 3]"},
    };
    for (const auto& row : rows) {
        std::string answer = row.answer;
        if (answer.starts_with("refused: "))
            answer.insert(9, std::string(row.member) + ": ");
        EXPECT_EQ(Encoded(Of(row.member), row.text, names), answer) << row.text;
    }
}

TEST_F(ValuesOfOwnTypes, EndSomewhere) {
    TypeDescription deep = NumberOfKind(TypeKind::signedShort);
    for (int depth = 0; depth < kDeepestValue; ++depth)
        deep = ArrayOf(deep, 1, 0);
    const auto text = [](std::size_t depth) {
        return std::string(depth, '[') + '7' + std::string(depth, ']');
    };
    std::vector<std::string> notes;
    EXPECT_EQ(Encoded({"deep", deep, {}}, text(kDeepestValue), names), "07");
    EXPECT_EQ(Decoded({"deep", deep, {}}, "\7", names, notes), text(kDeepestValue - 1));
    deep = ArrayOf(deep, 1, 0);
    const std::string reason = "the type is nested too deeply; is its type file sound?";
    EXPECT_TRUE(Encoded({"deep", deep, {}}, text(kDeepestValue + 1), names).ends_with("[0]: " + reason));
    EXPECT_EQ(
        Decoded({"deep", deep, {}}, "\7", names, notes),
        "refused: the type has more than 1000000 values, or is nested too deeply; is its type file sound?");
    const ValueType largest{"large", ArrayOf(NumberOfKind(TypeKind::unsignedShort), 65535, 0), {}};
    const std::string digits(131070, 'A');
    EXPECT_EQ(Encoded(largest, digits, names), digits);
    const ValueType larger{"large", ArrayOf(NumberOfKind(TypeKind::unsignedLong), 32768, 0), {}};
    EXPECT_EQ(Encoded(larger, "1", names), "refused: large is larger than 65535 bytes");
    std::vector<TypeMember> many;
    for (int i = 1; i <= 21; ++i)
        many.push_back(Member("m" + std::to_string(i), NumberOfKind(TypeKind::signedShort)));
    const std::string twenty =
        "m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12, m13, m14, m15, m16, m17, m18, "
        "m19, m20";
    EXPECT_EQ(Encoded({"many", Several(TypeKind::structure, many), {}}, "", names),
              "refused: many: all members need a value; missing: " + twenty + " ...");
    many.pop_back();
    EXPECT_EQ(Encoded({"many", Several(TypeKind::structure, many), {}}, "{}", names),
              "refused: many: all members need a value; missing: " + twenty);
}

// A property type has the limits of its own where they lie inside those of its type.
TEST_F(ValuesOfOwnTypes, OfPropertiesHaveNarrowerLimits) {
    const auto limits = [&](const std::string& minimum, const std::string& maximum) {
        CpType cp = *types.cpTypes[0];
        cp.minimum = minimum;
        cp.maximum = maximum;
        return LimitsText(*ShownTypeOf(ValueTypeOf("x", cp, names).type, {}, names).type, "");
    };
    const std::string wide = "-24.5 to 60.5 (raw -500 to 1200)";
    EXPECT_EQ(limits({"\0\1", 2}, {"\0\2", 2}), "0.55 to 0.6 (raw 1 to 2)");
    EXPECT_EQ(limits("\xFE\x0C", "\x04\xB0"), wide) << "those of the type";
    EXPECT_EQ(limits("\xFE\x0C", {"\0\1", 2}), "-24.5 to 0.55 (raw -500 to 1)");
    EXPECT_EQ(limits({"\0\1", 2}, "\x04\xB0"), "0.55 to 60.5 (raw 1 to 1200)");
    EXPECT_EQ(limits({"\0\0", 2}, {"\0\0", 2}), wide);
    EXPECT_EQ(limits({"\0\2", 2}, {"\0\1", 2}), wide);
    EXPECT_EQ(limits("\xFE\x0B", {"\0\1", 2}), wide) << "below";
    EXPECT_EQ(limits({"\0\1", 2}, "\x04\xB1"), wide) << "above";
    EXPECT_EQ(limits("\1", {"\0\2", 2}), wide);
    EXPECT_EQ(limits({"\0\1", 2}, "\2"), wide);
    const ValueType narrow = ValueTypeOf("x", *types.cpTypes[0], names);
    EXPECT_EQ(narrow.name, "x");
    EXPECT_EQ(UnitText(narrow.unit, names), "m/s");
    EXPECT_EQ(ArrayOfValues(narrow, 3).name, "x[3]");
}

TEST(Values, AreScaledWithFewZeros) {
    const auto scaled = [](std::int64_t raw, int a, int b) {
        TypeDescription type = NumberOfKind(TypeKind::signedLong);
        type.a = static_cast<std::int16_t>(a);
        type.b = static_cast<std::int16_t>(b);
        return ScaledText(raw, type).value_or("none");
    };
    EXPECT_EQ(scaled(5, 1, 12), "5000000000000");
    EXPECT_EQ(scaled(5, 1, 13), "5E13");
    EXPECT_EQ(scaled(5, 1, -13), "0.0000000000005");
    EXPECT_EQ(scaled(5, 1, -14), "5E-14");
    EXPECT_EQ(scaled(-5, 1, 290), "-5E290");
    EXPECT_EQ(scaled(5, 1, 291), "none");
    EXPECT_EQ(scaled(5, 0, 0), "none");
    EXPECT_EQ(scaled(-50, 10, -2), "-5");
    EXPECT_EQ(scaled(0, 1, 13), "0");
}

TEST(ProgramIds, AreDigitsOrPairs) {
    const std::string digits = "9FFFFF5014030401";
    EXPECT_EQ(ProgramIdDigits("9f:ff:ff:50:14:03:04:01"), digits);
    EXPECT_EQ(ProgramIdDigits("9ffFFf5014030401"), digits);
    for (const char* wrong :
         {"", "9F:FF", "9F:FF:FF:50:14:03:04:0G", "9FFFFF501403040", "9FF:FFF:50:14:03:04:01",
          "9FFFFF50140304011", ":9F:FF:FF:50:14:03:04:0", "9F:FF:FF:50:14:03:04:01:"})
        EXPECT_EQ(ProgramIdDigits(wrong), std::nullopt) << wrong;
    EXPECT_TRUE(IsStandardProgramId("8") && IsStandardProgramId(digits) && !IsStandardProgramId("A"));
    EXPECT_EQ(ProgramIdFieldDigits(kProgramIdFields[1], "abc"), "00ABC");
    EXPECT_EQ(ProgramIdFieldDigits(kProgramIdFields[1], "12345"), "12345");
    for (const char* wrong : {"", "123456", "xyz"})
        EXPECT_EQ(ProgramIdFieldDigits(kProgramIdFields[1], wrong), std::nullopt) << wrong;
}

}  // namespace
}  // namespace tovarek::test
