// Format files: what the reader understands, and what the writer makes of it.
#include "Fixtures.h"

namespace tovarek::test {
namespace {

std::vector<DisplayFormat> Read(const std::string& text) {
    FormatFile file;
    EXPECT_EQ(ReadFormatFile(text, file).reason, "") << text;
    return file.formats;
}

DisplayFormat ReadOne(const std::string& text) {
    const auto formats = Read(text);
    EXPECT_EQ(formats.size(), 1U) << text;
    return formats.empty() ? DisplayFormat() : formats[0];
}

TEST(FormatFiles, SimpleForms) {
    EXPECT_EQ(ReadOne("UNVT_a: int;").parameters.at(0).conversion, "%d");
    EXPECT_EQ(ReadOne("UNVT_a: real;").parameters.at(0).conversion, "%f");
    const DisplayFormat format = ReadOne("UNVT_a#US: \ttext (\"%m\");");
    EXPECT_EQ(format.type, "UNVT_a");
    EXPECT_EQ(format.name, "US");
    EXPECT_EQ(format.form, "text");
    ASSERT_EQ(format.parameters.size(), 1U);
    EXPECT_EQ(format.parameters[0].conversion, "%m");
    EXPECT_EQ(format.parameters[0].expression, "");
}

TEST(FormatFiles, FactorOffsetAndUnit) {
    const FormatParameter parameter = ReadOne("T#US: text(\"%f\", *1.8+32(0:855));").parameters.at(0);
    EXPECT_EQ(parameter.expression, "");
    EXPECT_EQ(parameter.factor, 1.8);
    EXPECT_EQ(parameter.offset, 32);
    EXPECT_EQ(parameter.unitText, (StringRef{0, 855}));
    const FormatParameter negative = ReadOne("T: text(\"%f\",a.b[2]*-1E-05-7.5);\t! m/s").parameters.at(0);
    EXPECT_EQ(negative.expression, "a.b[2]");
    EXPECT_EQ(negative.factor, -1e-5);
    EXPECT_EQ(negative.offset, -7.5);
    EXPECT_EQ(negative.unit, "m/s");
    for (const std::string unit : {"(7:5)", "(0:16777216)", "(x:1)", "(1)", "(:)", "(-1:5)"}) {
        const FormatParameter kept = ReadOne("T: text(\"%f\",a*2" + unit + ");").parameters.at(0);
        EXPECT_EQ(kept.expression, "a*2" + unit);
        EXPECT_EQ(kept.unitText, StringRef());
    }
    EXPECT_EQ(ReadOne("T: text(\"%f\",a*2(6:16777215));").parameters.at(0).unitText,
              (StringRef{6, 16777215}));
    EXPECT_EQ(ReadOne("T: text(\"%f\",a*b+1);").parameters.at(0).expression, "a*b+1") << "no factor: kept";
}

TEST(FormatFiles, CommentsAreTheUnitsOfTheValuesBeforeThem) {
    const DisplayFormat format = ReadOne(
        "T#x: text(\"%f %d %f\",\r\n     a*2+0,\t! volts; and more\r\n     b,\r\n     c*1+0\t! "
        "\"amperes\"\r\n     );");
    ASSERT_EQ(format.parameters.size(), 3U);
    EXPECT_EQ(format.parameters[0].unit, "volts; and more");
    EXPECT_EQ(format.parameters[1].unit, "");
    EXPECT_EQ(format.parameters[2].unit, "\"amperes\"");
    EXPECT_EQ(format.parameters[2].expression, "c");
}

TEST(FormatFiles, QuotesAndParenthesesProtect) {
    const DisplayFormat format = ReadOne("T: text(\"%d; ,! %% %5.1f (\", a, f(b,c));");
    EXPECT_EQ(format.text, "%d; ,! %% %5.1f (");
    ASSERT_EQ(format.parameters.size(), 2U);
    EXPECT_EQ(format.parameters[1].conversion, "%5.1f");
    EXPECT_EQ(format.parameters[1].expression, "f(b,c)");
    EXPECT_EQ(ReadOne("T: date(a,b,c);").form, "date");
    EXPECT_EQ(ReadOne("T: a != 1 ? x : y;").body, "a != 1 ? x : y") << "not understood, kept";
    // Behind a comma nothing is compared, so what comes is a comment and the unit of the value before.
    EXPECT_EQ(ReadOne("T: text(\"%d %d\",a*2,\t!= 1\n b);").parameters.at(0).unit, "= 1");
}

TEST(FormatFiles, SettingsAndComments) {
    FormatFile file;
    ASSERT_TRUE(
        ReadFormatFile("! head: x;\nset program_id 90:00:01;\nSET\tselector A;\n!==\n setT#SI: int;\n "
                       "T : int ; ! t\n\x1A",
                       file)
            .Ok());
    EXPECT_EQ(file.settings, (std::vector<std::string>{"program_id 90:00:01", "selector A"}));
    ASSERT_EQ(file.formats.size(), 2U);
    EXPECT_EQ(file.formats[0].type, "setT");
    ASSERT_TRUE(ReadFormatFile("", file).Ok());
    EXPECT_TRUE(file.formats.empty());
}

TEST(FormatFiles, WhatIsNoFormatFileIsRefusedWithItsLine) {
    FormatFile file;
    EXPECT_EQ(ReadFormatFile(std::string("T: int;\0", 8), file).code, 5);
    for (const char* text : {"\nT: int", "\nsomething;", "\nT: text(\"%d;", "\n: int;", "\n(a: b);"}) {
        const Outcome outcome = ReadFormatFile(text, file);
        EXPECT_EQ(outcome.code, 16) << text;
        EXPECT_NE(outcome.reason.find("line 2"), std::string::npos) << outcome.reason;
    }
}

// Paths that end like a factor or a unit, and a factor that is 1 once it is written.
TEST(FormatFiles, WhatWasWrittenReadsAsItself) {
    const std::pair<const char*, const char*> rows[] = {
        {"a*2*1", "a*2*1+0"},
        {"a*2+1*1+0", "a*2+1*1+0"},
        {"a(0:5)(0:0)", "a(0:5)*1+0"},
        {"a*1.0000000000000002", "a"},
        {"a*1+0", "a"},
        {"a*2-0", "a*2+0"},
    };
    for (const auto& [read, written] : rows) {
        FormatFile file;
        file.formats = {ReadOne(std::string("T: f(") + read + ",b);")};
        const std::string text = WriteFormatFile(file);
        EXPECT_EQ(text, std::string("\r\nT: f(") + written + ",b);\r\n");
        file.formats = {ReadOne(text)};
        EXPECT_EQ(WriteFormatFile(file), text);
    }
}

TEST(FormatFiles, WriterShowsUnitsBehindTheirValues) {
    FormatFile file;
    file.settings = {"selector A"};
    DisplayFormat format{.type = "T", .name = "SI", .form = "text", .text = "%f %f"};
    format.parameters = {{"%f", "a", 2, -5, "volts", {}}, {"%f", "b", 1, 0, "", {0, 7}}};
    file.formats = {format, {.type = "U", .form = "int"}};
    EXPECT_EQ(
        WriteFormatFile(file),
        "set selector A;\r\n\r\nT#SI: text(\"%f %f\",\r\n      a*2-5,\t! volts\r\n      b*1+0(0:7));\r\nU: "
        "int;\r\n");
}

}  // namespace
}  // namespace tovarek::test
