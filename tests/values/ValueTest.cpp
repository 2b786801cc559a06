#include <gtest/gtest.h>

#include "../Scratch.h"
#include "Standard.h"
#include "base/Error.h"
#include "base/Text.h"

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

TypeDescription Bits(int offset, int width, bool isSigned = false) {
    TypeDescription type = NumberOfKind(TypeKind::bitField);
    type.bitOffset = static_cast<std::uint8_t>(offset);
    type.bitWidth = static_cast<std::uint8_t>(width);
    type.bitSigned = isSigned;
    type.minimum = SmallestRaw(type);
    type.maximum = LargestRaw(type);
    return type;
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

}  // namespace
}  // namespace tovarek::test
