// The lines of the format file, byte for byte.
#include "Device.h"

namespace tovarek::test {
namespace {

// Elements that the cases are made of; the type under test is 300.
constexpr const char* kParts =
    "<SNVT_310><TYPE>USER</TYPE><LENGTH>1</LENGTH></SNVT_310>"
    "<SNVT_311><TYPE>ENUM</TYPE><ENUMS><A>1</A></ENUMS><UNITS><US/></UNITS></SNVT_311>"
    "<SNVT_312><TYPE>TEXTUAL</TYPE><LENGTH>8</LENGTH></SNVT_312>"
    "<SNVT_313><TYPE>USER</TYPE><LENGTH>2</LENGTH><B_COEF>-1</B_COEF><UNITS><US A_COEF='1.8' "
    "C_COEF='32'><UNIT>F</UNIT>"
    "</US><SI/></UNITS></SNVT_313>"
    "<SNVT_314><TYPE>SIGNEDNUMERIC</TYPE><LENGTH>2</LENGTH></SNVT_314>"
    "<SNVT_315><TYPE>STRUCT</TYPE><FIELDS><mode>311</mode><level>310</level></FIELDS></SNVT_315>";

// Lines of the type with this content; "\n" stands for CR LF.
std::string LinesOf(const std::string& content) {
    Device device;
    device.AddNv(300);
    device.Load("<SNVT_300><NAME>x</NAME>" + content + "</SNVT_300>" + kParts);
    const std::string lines = device.Lines(device.Unvt("6_1"));
    EXPECT_EQ(device.Lines(device.Unvt("6_1")), lines) << "analysed again, it has no format twice";
    std::string text;
    for (const char c : lines)
        if (c != '\r')
            text += c;
    return text;
}

std::string Fields(const std::string& fields) {
    return "<TYPE>STRUCT</TYPE><FIELDS>" + fields + "</FIELDS>";
}

TEST(FormatLines, OneValue) {
    const std::string length = "<LENGTH>1</LENGTH>";
    struct Case {
        std::string content;
        std::string lines;
    };
    for (const Case& c : std::vector<Case>{
             {"<TYPE>USER</TYPE>" + length, "UNVT__x: int;\n"},
             {"<TYPE>USER</TYPE><A_COEF>2</A_COEF>" + length, "UNVT__x: real;\n"},
             {"<TYPE>BITFIELD</TYPE><B_COEF>-1</B_COEF>" + length, "UNVT__x: real;\n"},
             {"<TYPE>BITS</TYPE><BFSIZE>2</BFSIZE><C_COEF>5</C_COEF>" + length, "UNVT__x: int;\n"},
             {"<TYPE>FLOAT</TYPE><LENGTH>4</LENGTH>", "UNVT__x: real;\n"},
             {"<TYPE>SIGNEDNUMERIC</TYPE>" + length, ""},
             {"<TYPE>SIGNEDNUMERIC</TYPE><UNITS><US A_COEF='2'/></UNITS>" + length, ""},
             {"<TYPE>ENUM</TYPE><ENUMS><A>1</A></ENUMS>", "UNVT__x: text(\"%m\");\n"},
             {"<TYPE>ENUM</TYPE><ENUMS><A>1</A></ENUMS><UNITS><US/></UNITS>",
              "UNVT__x: text(\"%m\");\nUNVT__x#US: text(\"%m\");\n"},
             {"<TYPE>TEXTUAL</TYPE>" + length, "UNVT__x: text(\"%s\",UNVT__x);\n"},
             // One member of a structure is a single value as well, its path is written for a text only.
             {Fields("<a>312</a>"), "UNVT__x: text(\"%s\",a);\n"},
             {Fields("<a>310</a>"), "UNVT__x: int;\n"},
         })
        EXPECT_EQ(LinesOf(c.content), c.lines) << c.content;
}

TEST(FormatLines, FactorOffsetAndUnit) {
    struct Case {
        const char* attributes;
        const char* unit;
        const char* value;
    };
    for (const Case& c : std::vector<Case>{{"A_COEF='0.1'", "", ",*0.1+0);"},
                                           {"A_COEF='2'", "", ",*2+0);"},
                                           {"A_COEF='2' C_COEF='-5'", "", ",*2-5);"},
                                           {"C_COEF='32.5'", "", ",*1+32.5);"},
                                           {"", "", ",);"},
                                           {"", "<UNIT>kPa</UNIT>", ",*1+0);\t! kPa"},
                                           {"", "<UNIT>\r\n   m\t \n /  s\r</UNIT>", ",*1+0);\t!  m /  s "},
                                           {"A_COEF='1e-5'", "<UNIT>\xC2\xB0</UNIT>", ",*1E-05+0);\t! \xB0"}})
        EXPECT_EQ(LinesOf("<TYPE>FLOAT</TYPE><LENGTH>4</LENGTH><UNITS><C " + std::string(c.attributes) + ">" +
                          c.unit + "</C></UNITS>"),
                  "UNVT__x: real;\nUNVT__x#C: text(\"%f\"" + std::string(c.value) + "\n");
}

TEST(FormatLines, SeveralValues) {
    EXPECT_EQ(LinesOf(Fields("<mode>311</mode><level>310</level><skipped>314</skipped>")),
              "UNVT__x: text(\"%m %d\",\n"
              "         mode,\n"
              "         level);\n"
              "UNVT__x#US: text(\"%m %d\",\n"
              "            mode,\n"
              "            level);\n");
    // A unit ends its line, so the group is closed on a line of its own.
    EXPECT_EQ(LinesOf(Fields("<in>315</in><temp>313</temp>")),
              "UNVT__x: text(\"%m %d %f\",\n"
              "         in.mode,\n"
              "         in.level,\n"
              "         temp);\n"
              "UNVT__x#US: text(\"%m %d %f\",\n"
              "            in.mode,\n"
              "            in.level,\n"
              "            temp*1.8+32\t! F\n"
              "            );\n"
              "UNVT__x#SI: text(\"%m %d %f\",\n"
              "            in.mode,\n"
              "            in.level,\n"
              "            temp);\n");
    EXPECT_EQ(LinesOf(Fields("<t>313</t><n>312</n>")),
              "UNVT__x: text(\"%f %s\",\n         t,\n         n);\n"
              "UNVT__x#US: text(\"%f %s\",\n            t*1.8+32,\t! F\n            n);\n"
              "UNVT__x#SI: text(\"%f %s\",\n            t,\n            n);\n");
    // Display formats of the structure itself are not shown.
    EXPECT_EQ(LinesOf(Fields("<a>310</a><b>310</b>") + "<UNITS><Y A_COEF='2'/></UNITS>"),
              "UNVT__x: text(\"%d %d\",\n         a,\n         b);\n");
}

// Standard types: SNVT_temp_p (105) has formats SI and US, SNVT_date_cal (10) is a structure, SNVT_str_asc
// (36) a text.
TEST(FormatLines, StandardTypes) {
    Device device;
    device.AddCp(105, 1, "temp");
    device.AddCp(36, 2, "text");
    device.AddCp(10, 3, "date");
    device.AddNv(300);
    const std::string elements =
        "<SNVT_105><TYPE>SIGNEDNUMERIC</TYPE></SNVT_105><SNVT_36><TYPE>STRUCT</TYPE></SNVT_36>"
        "<SNVT_10><TYPE>STRUCT</TYPE></SNVT_10>"
        "<SNVT_300><NAME>x</NAME><TYPE>STRUCT</TYPE><FIELDS><when>10</when><name>36</name><temp>105</temp></"
        "FIELDS>"
        "</SNVT_300>";
    device.Load(elements);
    EXPECT_EQ(device.Lines(device.Ucpt("6_1")),
              "UCPT_1_temp: real;\r\n"
              "UCPT_1_temp#SI: text(\"%f\",*1+0);\t! degrees C\r\n"
              "UCPT_1_temp#US: text(\"%f\",*1.8+32);\t! degrees F\r\n"
              "UCPT_1_temp#US_diff: text(\"%f\",*1.8+0);\t! degrees F\r\n");
    EXPECT_EQ(device.Lines(device.Ucpt("6_2")), "UCPT_2_text: text(\"%s\",ascii);\r\n");
    const std::string date =
        "text(\"%d %d %d\",\r\n             year,\r\n             month,\r\n             day);\r\n";
    const std::string dates = device.Lines(device.Ucpt("6_3"));
    EXPECT_EQ(dates.substr(0, dates.find("UCPT", 1)), "UCPT_3_date: " + date);
    // As members they show their default values, whatever formats they have.
    EXPECT_EQ(device.Lines(device.Unvt("6_1")),
              "UNVT__x: text(\"%d %d %d %s %f\",\r\n"
              "         when.year,\r\n"
              "         when.month,\r\n"
              "         when.day,\r\n"
              "         name.ascii,\r\n"
              "         temp);\r\n");
    std::string formats;
    for (const CFormat& format : *device.Unvt("6_1").availableFormats)
        formats += format.name + " ";
    EXPECT_EQ(formats, "LO SI US US_diff ") << "of all its members";
    device.types.useReferenceUnits = false;
    device.Load();
    EXPECT_EQ(device.Lines(device.Ucpt("6_1")), "UCPT_1_temp: real;\r\n");
}

}  // namespace
}  // namespace tovarek::test
