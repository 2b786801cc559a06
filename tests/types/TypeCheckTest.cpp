// What a check of the type step tells: all that is wrong, each once, the first as a generation raises it.
#include <filesystem>
#include <functional>

#include "DriverDevice.h"
#include "check/WarningNames.h"

namespace tovarek::test {
namespace {

// "90@2 type; not-a-number@3 LENGTH": numbers of errors and names of warnings, with line and field.
std::string Told(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += text.empty() ? "" : "; ";
        text += finding.warning == Warning::none ? std::to_string(ShortNumber(finding.error))
                                                 : std::string(RowOf(finding.warning).name);
        text += "@" + std::to_string(finding.context.line);
        if (!finding.context.field.empty())
            text += " " + finding.context.field;
    }
    return text;
}

// What is told, a line for each, as the files in expected/ hold it; the scratch folder is "~".
std::string Sentences(const char* what, const std::vector<Finding>& findings, const Scratch& scratch) {
    std::string text = std::string(what) + "\n";
    for (const Finding& finding : findings) {
        const ErrorContext& context = finding.context;
        text += "  " + context.record + " | " + context.field + " | " + context.value.substr(0, 20) + " | " +
                context.reason + "\n";
        for (const FindingNote& note : finding.notes)
            text += "    note " + std::to_string(note.line) + ": " + note.text + "\n";
    }
    for (std::size_t at = text.find(scratch.Folder()); at != std::string::npos;
         at = text.find(scratch.Folder()))
        text.replace(at, scratch.Folder().size(), "~");
    std::ranges::replace(text, '\\', '/');
    return text;
}

// The type element `number`; each stands in a line of its own, 300 in line 2.
std::string Element(int number, const std::string& content) {
    const std::string name = "SNVT_" + std::to_string(number);
    return "\n<" + name + "><NAME>n" + std::to_string(number) + "</NAME>" + content + "</" + name + ">";
}
std::string Byte(const std::string& more) {
    return "<TYPE>USER</TYPE><LENGTH>1</LENGTH>" + more;
}
std::string Users(const std::string& types) {
    return UserTypes("UCPTS", "_3", "_9000010A0B040100", types);
}
std::string Ucpt(int number, int definition, const std::string& more = {}) {
    const std::string name = "UCPT_" + std::to_string(number);
    return "\n<" + name + "><NAME>u</NAME><SNVTTYPE>" + std::to_string(definition) + "</SNVTTYPE>" + more +
           "</" + name + ">";
}

struct Row {
    const char* what;
    std::string elements;
    std::string told;
    std::vector<int> nvs{300, 301, 302};
    std::string users = "<UNVTS/>";
    std::function<void(DriverDevice&)> change{};
};

void Prepare(DriverDevice& device, const Row& row) {
    for (const int type : row.nvs)
        device.AddNv(type);
    device.WriteFiles(row.elements, row.users);
    if (row.change)
        row.change(device);
}

// Between two faulty types one in order: it is judged, and nothing is told of it.
TEST(TypeCheck, TellsEveryFaultOnceAndFirstWhatAGenerationRaises) {
    const std::string good = Element(301, Byte(""));
    const std::string longName(300, 'x');
    const Row rows[] = {
        {"nothing", Element(300, Byte("")) + good, "", {300, 301, 300}},
        {"two definitions missing", good, "90@0; 90@0"},
        {"two kinds unknown", Element(300, "<TYPE>BYTE</TYPE>") + good + Element(302, "<TYPE>X</TYPE>"),
         "91@2 TYPE; 91@4 TYPE"},
        {"one definition of three variables",
         Element(300, "<TYPE>USER</TYPE>"),
         "95@2 LENGTH",
         {300, 300, 300}},
        {"a refused number, then a rule",
         Element(300, "<TYPE>USER</TYPE><LENGTH>9999999999</LENGTH><MAX>1</MAX>") + good +
             Element(302, "<TYPE>SIGNEDNUMERIC</TYPE><LENGTH>3</LENGTH>"),
         "6@2 LENGTH; 121@4 LENGTH"},
        {"two numbers of one type",
         Element(300, "<TYPE>USER</TYPE><LENGTH>9999999999</LENGTH><ARRAY>1e99</ARRAY>") + good,
         "6@2 LENGTH; 6@2 ARRAY",
         {300, 301}},
        {"two values of an enumeration",
         Element(300, "<TYPE>ENUM</TYPE><ENUMS><A>1e99</A><B>1</B><C>1e99</C></ENUMS>") + good,
         "6@2 A; 6@2 C",
         {300, 301}},
        {"two members and one in order",
         Element(300, "<TYPE>STRUCT</TYPE><FIELDS><a>400</a><b>301</b><c>401</c></FIELDS>") + good,
         "90@2 a; 90@2 c",
         {300, 301}},
        {"a type that contains itself",
         Element(300, "<TYPE>STRUCT</TYPE><FIELDS><a>301</a><b>300</b></FIELDS>") + good,
         "28@2 FIELDS",
         {300, 301, 300}},
        {"a member's rule",
         Element(300, "<TYPE>STRUCT</TYPE><FIELDS><a>301</a><b>302</b></FIELDS>") + good +
             Element(302, "<TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>9</BFSIZE>"),
         "124@4 BFSIZE"},
        {"no values, no members",
         Element(300, "<TYPE>ENUM</TYPE><ENUMS/>") + Element(301, "<TYPE>ENUM</TYPE>") +
             Element(302, "<TYPE>STRUCT</TYPE>"),
         "94@2 ENUMS; 96@3 ENUMS; 95@4 FIELDS"},
        {"a scope",
         Element(300, "<SCOPE>7</SCOPE>" + Byte("")) + Element(301, "<TYPE>USER</TYPE>"),
         "9@2 SCOPE; 95@3 LENGTH",
         {300, 301}},
        {"refused by the control, twice",
         Element(300, Byte("<MIN>-1</MIN>")) + good + Element(302, Byte("<MAX>256</MAX>")),
         "131@2 MIN; 132@4 MAX"},
        {"a text and a name that do not fit",
         Element(300, Byte("<DESC>" + std::string(70000, 'd') + "</DESC>")) + good + "\n<SNVT_302>" +
             Byte("<NAME>" + longName + "</NAME>") + "</SNVT_302>",
         "109@2 DESC; 116@4 NAME"},
        {"values of an enumeration that two types share",
         Element(300, "<TYPE>ENUM</TYPE><ENUMS><A>-129</A></ENUMS>") + good,
         "111@2 ENUMS, value A",
         {300, 301, 300}},
        {"raw values",
         Element(300, Byte("")),
         "132@2 MAXRAWVAL; 133@4 INITRAWVAL",
         {},
         Users(Ucpt(1, 300, "<MINRAWVAL>0000</MINRAWVAL><MAXRAWVAL>0G</MAXRAWVAL>") + Ucpt(2, 300) +
               Ucpt(3, 300, "<INITRAWVAL>1</INITRAWVAL>"))},
        {"user types: a name, a definition, a number",
         Element(300, Byte("")),
         "128@2 SNVTTYPE; 90@3 SNVTTYPE; 6@5 SNVTTYPE",
         {},
         Users("\n<UCPT_1><NAME>x</NAME></UCPT_1>" + Ucpt(2, 400) + Ucpt(3, 300) +
               "\n<UCPT_4><NAME>x</NAME><SNVTTYPE>1e99</SNVTTYPE></UCPT_4>")},
        {"a refused type is no gap",
         Element(300, Byte("")),
         "90@2 SNVTTYPE",
         {},
         Users(Ucpt(1, 400) + Ucpt(2, 300) + Ucpt(3, 300))},
        {"two gaps",
         Element(300, Byte("")),
         "135@3 index in scope; 135@4 index in scope",
         {},
         Users(Ucpt(1, 300) + Ucpt(3, 300) + Ucpt(5, 300))},
        {"types by their names",
         Element(300,
                 "<TYPE>STRUCT</TYPE><FIELDS><a>SNVT_301</a><b>SNVT_temp_p</b><c>SNVT_temp_q</c></FIELDS>") +
             good,
         "not-a-number@2 a; 90@2 a; not-a-number@2 b; 90@2 b; not-a-number@2 c; 90@2 c",
         {300}},
        {"a type of a property by its name",
         Element(300, Byte("")),
         "not-a-number@2 SNVTTYPE; 90@2 SNVTTYPE; not-a-number@3 SNVTTYPE; 90@3 SNVTTYPE",
         {},
         Users("\n<UCPT_1><NAME>x</NAME><SNVTTYPE>snvt_300</SNVTTYPE></UCPT_1>" +
               std::string("\n<UCPT_2><NAME>x</NAME><SNVTTYPE>temp_p</SNVTTYPE></UCPT_2>"))},
        {"both files are missing",
         "",
         "89@0; 128@0",
         {300},
         "",
         [](DriverDevice& d) {
             std::filesystem::remove(StandardPath(d.scratch.Path("format.xml")));
             std::filesystem::remove(StandardPath(d.scratch.Path("user.xml")));
         }},
        {"settings that the control refuses",
         Element(300, Byte("")) + good,
         "103@0; 104@0 localeID; 102@0",
         {300, 301},
         "<UNVTS/>",
         [](DriverDevice& d) {
             d.settings.majorVersion = 65536;
             d.settings.localeID = 1;
             d.settings.creator.assign(300, 'c');
         }},
        {"a folder that cannot be made",
         Element(300, Byte("<MIN>-1</MIN>")),
         "101@0; 131@2 MIN",
         {300},
         "<UNVTS/>",
         [](DriverDevice& d) { d.settings.typeFilesDirectory += "/a/b"; }},
        {"a folder in the place of a file",
         Element(300, Byte("")),
         "101@0",
         {300},
         "<UNVTS/>",
         [](DriverDevice& d) { std::filesystem::create_directories(d.scratch.Path("out/node_6.typ")); }},
        {"no types and no folder",
         "",
         "76@0",
         {},
         "<UNVTS/>",
         [](DriverDevice& d) { d.settings.typeFilesDirectory += "/a/b"; }},
    };
    std::string sentences;
    for (const Row& row : rows) {
        DriverDevice device;
        Prepare(device, row);
        const std::vector<Finding> told = device.Check();
        sentences += Sentences(row.what, told, device.scratch);
        EXPECT_EQ(Told(told), row.told) << row.what;
        // No file, no folder: but those that the row made.
        EXPECT_EQ(FileExists(device.scratch.Path("out/files.lst")), false) << row.what;
        const auto raised = Raised([&] { device.Generate(); });
        const auto error = std::ranges::find(told, Warning::none, &Finding::warning);
        ASSERT_EQ(raised.has_value(), error != told.end()) << row.what;
        if (!raised)
            continue;
        EXPECT_EQ(raised->Number(), error->error) << row.what;
        EXPECT_EQ(raised->Context().Sentence(), error->context.Sentence()) << row.what;
    }
    ExpectText(sentences, TOVAREK_EXPECTED "/faults.txt");
}

// What is read otherwise than it was written; nothing of it stops a generation.
TEST(TypeCheck, WarnsOfWhatIsReadOtherwise) {
    const std::string good = Element(300, Byte(""));
    const auto structure = [](const std::string& more) {
        return Element(301, "<TYPE>STRUCT</TYPE><FIELDS><a>300</a></FIELDS>" + more);
    };
    const auto of = [](const std::string& content) { return Element(300, content); };
    const Row rows[] = {
        {"a limit", of(Byte("<MAX>1OO</MAX>")), "not-a-number@2 MAX"},
        {"a factor", of(Byte("<B_COEF>-1.5</B_COEF>")), "not-a-number@2 B_COEF"},
        {"a flag", of(Byte("<INHERIT>yes</INHERIT>")), "not-a-number@2 INHERIT"},
        {"a flag that nothing holds", of(Byte("<INHERIT>1</INHERIT>")), "ignored-element@2 INHERIT"},
        {"units of a structure", good + structure("<UNITS><a/></UNITS>"), "ignored-element@3", {301}},
        {"units of a signed number", of("<TYPE>SIGNEDNUMERIC</TYPE><LENGTH>1</LENGTH><UNITS><a/></UNITS>"),
         "ignored-element@2"},
        {"a slip", of(Byte("<LONGNMAE>x</LONGNMAE>")), "ignored-element@2"},
        {"an attribute", of(Byte("<MAX unit='x'>1</MAX>")), "ignored-attribute@2"},
        {"a text beside elements", of(Byte("text")), "ignored-text@2"},
        {"CDATA", of(Byte("<UNIT><![CDATA[x]]></UNIT>")), "ignored-text@2"},
        {"twice", of(Byte("<MAX>1</MAX><MAX>2</MAX>")), "duplicate-key@2 MAX"},
        {"two names: the first stays", of(Byte("<NAME>m</NAME>")), "duplicate-key@2 NAME"},
        {"a name", "\n<SNVT_300><NAME>a b</NAME>" + Byte("") + "</SNVT_300>", "lost-character@2 NAME"},
        {"two elements of a number", good + good, "duplicate-key@3"},
        {"two elements of another number", good + Element(309, "x") + Element(309, "y"), ""},
        {"fields of a number", of(Byte("<FIELDS><a>1</a></FIELDS>")), "ignored-element@2"},
        {"fields of a standard type",
         of("<TYPE>STRUCT</TYPE><FIELDS><a>105</a></FIELDS>") +
             "\n<SNVT_105><TYPE>SIGNEDNUMERIC</TYPE><FIELDS><a>1</a></FIELDS></SNVT_105>",
         "ignored-element@3"},
        {"fields in front of TYPE", of("<FIELDS><a>1</a></FIELDS>" + Byte("")), "ignored-element@2"},
        {"fields again",
         good + Element(301, "<TYPE>STRUCT</TYPE><FIELDS><a>300</a></FIELDS><FIELDS><b>300</b></FIELDS>"),
         "duplicate-key@3 FIELDS",
         {301}},
        {"values of a number", of(Byte("<ENUMS><a>1</a></ENUMS>")), "ignored-element@2"},
        {"bits of a number", of(Byte("<BFSIZE>3</BFSIZE>")), "ignored-element@2 BFSIZE"},
        {"a factor of a float", of("<TYPE>FLOAT</TYPE><LENGTH>4</LENGTH><A_COEF>2</A_COEF>"),
         "ignored-element@2 A_COEF"},
        {"factors and limits of scaled numbers",
         of("<TYPE>BITS</TYPE><LENGTH>1</LENGTH><BFSIZE>3</BFSIZE><A_COEF>2</A_COEF><MAX>7</MAX>") +
             Element(301, "<TYPE>SIGNEDNUMERIC</TYPE><LENGTH>1</LENGTH><B_COEF>1</B_COEF><MIN>0</MIN>") +
             Element(302, "<TYPE>BITFIELD</TYPE><LENGTH>1</LENGTH><C_COEF>1</C_COEF>"),
         "",
         {300, 301, 302, 300}},
        {"a limit of a bit field", of("<TYPE>BITFIELD</TYPE><LENGTH>1</LENGTH><MAX>7</MAX>"),
         "ignored-element@2 MAX"},
        {"a value above 127", of("<TYPE>ENUM</TYPE><ENUMS><a>1</a><b>200</b></ENUMS>"),
         "overflowed-number@2 b"},
        {"a limit before the values", of("<TYPE>ENUM</TYPE><MAX>5</MAX><ENUMS><a>1</a></ENUMS>"),
         "ignored-element@2 MAX"},
        {"units", of(Byte("<UNITS><a A_COEF='1,8' D='1'><UNIT>x</UNIT></a><a/></UNITS>")),
         "not-a-number@2; duplicate-key@2; ignored-attribute@2"},
        {"a member", good + structure("") + "", "", {301}},
        {"a scope of a property", of(Byte("<SCOPE>6</SCOPE>")), "ignored-element@2", {}, Users(Ucpt(1, 300))},
        {"a scope of a variable", of(Byte("<SCOPE>6</SCOPE>")), ""},
        {"another scope of a variable", of(Byte("<SCOPE>3</SCOPE>")), "ignored-element@2 SCOPE"},
        {"properties 2 and 3 are missing", good, "type-gap@3", {}, Users(Ucpt(1, 300) + Ucpt(4, 300))},
        {"a number with a rest",
         good,
         "not-a-number@2",
         {},
         Users("\n<UCPT_1x><NAME>x</NAME><SNVTTYPE>300</SNVTTYPE></UCPT_1x>")},
        {"no number", good, "ignored-element@2", {}, Users("\n<UCPT_x><NAME>x</NAME></UCPT_x>")},
        {"a variable's type among those of properties",
         good,
         "mixed-types@2",
         {},
         Users("\n<UNVT_1><NAME>x</NAME><SNVTTYPE>300</SNVTTYPE></UNVT_1>")},
        {"both lists", good, "mixed-types@1", {}, "<UCPTS><UNVTS/></UCPTS>"},
        {"another document element", good, "ignored-element@1", {}, "<UCPT/>"},
        {"a scope that is none", good, "ignored-element@1", {}, "<UCPTS><_8/></UCPTS>"},
        {"another maker", good, "", {}, UserTypes("UCPTS", "_3", "_9FFFFF0A0B040100", "<x/>")},
        {"no program ID", good, "ignored-element@1", {}, UserTypes("UCPTS", "_3", "_9FFFFF", "<x/>")},
        {"raw values of a variable's type",
         good,
         "ignored-element@1",
         {},
         UserTypes("UNVTS", "_3", "_9000010A0B040100",
                   "<UNVT_1><NAME>x</NAME><SNVTTYPE>300</SNVTTYPE><MINRAWVAL>0</MINRAWVAL></UNVT_1>")},
        {"files of a scope without types",
         good,
         "stale-output@0",
         {300},
         "<UNVTS/>",
         [](DriverDevice& d) {
             d.scratch.File("out/node_4.typ", "x");
             d.scratch.File("out/other_4.typ", "x");
         }},
    };
    std::string sentences;
    for (Row row : rows) {
        DriverDevice device;
        if (row.nvs == std::vector<int>{300, 301, 302})
            row.nvs = {300};
        // Without types a run of the library does not create it.
        MakeDirectory(device.scratch.Path("out"));
        Prepare(device, row);
        const std::vector<Finding> told = device.Check();
        sentences += Sentences(row.what, told, device.scratch);
        EXPECT_EQ(Told(told), row.told) << row.what;
        EXPECT_EQ(RaisedNumber([&] { device.Generate(); }), 0) << row.what;
    }
    ExpectText(sentences, TOVAREK_EXPECTED "/readings.txt");
}

TEST(TypeCheck, TellsOnceThatTheFormatFileHoldsNoTypes) {
    DriverDevice device;
    device.AddNv(300);
    device.AddNv(300);
    device.WriteFiles("");
    device.scratch.File("format.xml", "<!-- types --><TYPES>" + Element(300, Byte("")) + "</TYPES>");
    EXPECT_EQ(Told(device.Check()), "not-a-type@1; 90@1");
}

// A run would make the last level of the folder itself.
TEST(TypeCheck, WritesNothingAndCreatesNoFolder) {
    DriverDevice device;
    device.AddNv(300);
    device.WriteFiles(Element(300, Byte("")));
    EXPECT_EQ(Told(device.Check()), "");
    EXPECT_FALSE(FolderExists(device.scratch.Path("out")));
    device.Generate();
    const std::string before = device.Output("node_6.typ");
    device.AddNv(300);
    EXPECT_EQ(Told(device.Check()), "");
    EXPECT_EQ(device.Output("node_6.typ"), before);
}

// What nobody may write: found before anything is written.
TEST(TypeCheck, FindsAFolderAndAFileThatMayNotBeWritten) {
    namespace fs = std::filesystem;
    for (const char* name : {"out", "out/node_6.fpt"}) {
        DriverDevice device;
        device.AddNv(300);
        device.WriteFiles(Element(300, Byte("")));
        device.Generate();
        if (std::string(name) == "out")
            fs::remove(device.scratch.Path("out/node_6.fpt"));
        fs::permissions(device.scratch.Path(name), fs::perms::owner_write, fs::perm_options::remove);
        const auto told = device.Check();
        const auto raised = Raised([&] { device.Generate(); });
        fs::permissions(device.scratch.Path(name), fs::perms::owner_write, fs::perm_options::add);
        if (!raised)
            GTEST_SKIP() << "this user may write everywhere";
        EXPECT_EQ(Told(told), "119@0") << name;
        EXPECT_EQ(raised->Context().Sentence(), told.front().context.Sentence()) << name;
    }
}

}  // namespace
}  // namespace tovarek::test
