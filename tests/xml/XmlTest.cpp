#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "Scratch.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "system/CodePage.h"
#include "xml/Xml.h"
#include "xml/XmlEscaped.h"

namespace tovarek::test {
namespace {

// The text of the element <t> of a document, or the reason why it could not be loaded.
std::string TextOf(const Scratch& scratch, const std::string& document) {
    const XmlDocument loaded(scratch.File("d.xml", document));
    if (!loaded.IsLoaded())
        return "! " + loaded.Reason();
    return CTools().nodeTextValue(CTools().SearchXmlNode(scratch.Path("d.xml"), "t", CErrorHandler()));
}

TEST(Xml, TheFirstTextChildIsTheValue) {
    const Scratch scratch;
    const std::pair<const char*, const char*> rows[] = {
        {"<t>one<!-- c -->two</t>", "one"},
        {"<t> <!-- c --> two </t>", " two "},
        {"<t><![CDATA[cdata]]></t>", ""},
        {"<t><b>deep</b>own</t>", "own"},
        {"<t a='x'/>", ""},
        {"<a><b/><t>inner</t><t>second</t></a>", "inner"},
        {"<!DOCTYPE t [<!ELEMENT t (#PCDATA)><!ENTITY e 'ent'>]><t>a&e;b</t>", "aentb"},
        {"<!DOCTYPE t [<!ELEMENT t ANY><!ELEMENT b ANY><!ENTITY e '<b>x</b>y'>]><t>&e;z</t>", "yz"},
        {"<!DOCTYPE t [<!ELEMENT t (#PCDATA)><!ENTITY e ' '>]><t>&e;a&e;</t>", " a "},
        {"<!DOCTYPE t [<!ENTITY % e '<!ELEMENT t (#PCDATA)>'>%e;]><t>x</t>", "x"},
        {"<t>3&#176;&amp;</t>", "3\xC2\xB0&"},
        {"<?xml-x = 'no declaration' encoding='none-such'?><t>x</t>", "x"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><t>\xB0</t>", "\xC2\xB0"},
        {"<?xml version='1.0' encoding='windows-1252'?><t>\x80</t>", "\xE2\x82\xAC"},
    };
    for (const auto& [document, text] : rows)
        EXPECT_EQ(TextOf(scratch, document), text) << document;
}

TEST(Xml, WhatIsNoDocumentOrNotValidIsRefused) {
    const Scratch scratch;
    scratch.File("good.dtd", "<!ELEMENT t (#PCDATA)>");
    scratch.File("outside.dtd", "<!ENTITY % e SYSTEM 'good.dtd'>%e;");
    scratch.File("nested.dtd", "<!ENTITY % d '<!ENTITY &#37; e SYSTEM \"good.dtd\">'>%d;%e;");
    EXPECT_EQ(TextOf(scratch, "<!DOCTYPE t SYSTEM 'good.dtd'><t>x</t>"), "x");
    const std::string refused[] = {
        "",
        "plain",
        "<t>",
        "<t/><t/>",
        "\n<?xml version='1.0'?><t/>",
        "<t>&nothing;</t>",
        "<?xml version='1.0' encoding='none-such'?><t/>",
        "<t>\xFF</t>",
        "<!DOCTYPE t [<!ELEMENT t EMPTY>]><t>x</t>",
        "<!DOCTYPE other [<!ELEMENT t ANY>]><t/>",
        "<!DOCTYPE t SYSTEM 'good.dtd'><t><u/></t>",
        "<!DOCTYPE t SYSTEM 'missing.dtd'><t/>",
        "<!DOCTYPE t SYSTEM 'http://localhost/x.dtd'><t/>",
        "<!DOCTYPE t SYSTEM ''><t/>",
        "<!DOCTYPE t SYSTEM 'outside.dtd'><t/>",
        "<!DOCTYPE t SYSTEM 'nested.dtd'><t/>",
        "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY e SYSTEM 'good.dtd'>]><t>&e;</t>",
        "<!DOCTYPE t [<!ENTITY % e SYSTEM 'good.dtd'> %e;]><t>x</t>",
        "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY a '&b;'><!ENTITY b '&a;'>]><t>&a;</t>",
    };
    for (const std::string& document : refused)
        EXPECT_TRUE(TextOf(scratch, document).starts_with("! ")) << document;
}

#ifndef _WIN32
// Whoever opens a pipe that nobody writes to waits for good, so each document is loaded by a process with an
// end.
TEST(Xml, NothingIsOpenedButTheDocumentsOwnDtd) {
    const Scratch scratch;
    ASSERT_EQ(mkfifo(scratch.Path("pipe").c_str(), 0600), 0);
    const std::string pipe = "SYSTEM '" + scratch.Path("pipe") + "'";
    scratch.File("entity.dtd", "<!ELEMENT t ANY><!ENTITY e " + pipe + ">");
    const std::string type = "<!DOCTYPE t [<!ELEMENT t ANY><!ATTLIST t a CDATA ''><!ENTITY e " + pipe + ">";
    const std::string refused[] = {
        type + "]><t>&e;</t>",
        type + "<!ENTITY f '&e;'>]><t>&f;</t>",
        type + "]><t a='&e;'/>",
        type + "<!ATTLIST t b CDATA '&e;'>]><t/>",
        type + "<!ENTITY % p " + pipe + ">%p;]><t/>",
        type + "<!ENTITY % p " + pipe + "><!ENTITY % q '%p;'>%q;]><t/>",
        "<!DOCTYPE t SYSTEM 'entity.dtd'><t>&e;</t>",
        "<!DOCTYPE t " + pipe + "><t/>",
        "<!DOCTYPE t SYSTEM '/dev/zero'><t/>",
    };
    const auto load = [&](const std::string& document, bool isGood) {
        alarm(10);
        _exit(XmlDocument(scratch.File("d.xml", document)).IsLoaded() == isGood ? 0 : 1);
    };
    for (const std::string& document : refused)
        EXPECT_EXIT(load(document, false), testing::ExitedWithCode(0), "^$") << document;
    EXPECT_EXIT(load(type + "<!NOTATION n PUBLIC 'n'><!ENTITY u " + pipe + " NDATA n>]><t/>", true),
                testing::ExitedWithCode(0), "^$")
        << "declared and never asked for";
}
#endif

TEST(Xml, BombsAndBottomlessNestingAreRefusedAtOnce) {
    const Scratch scratch;
    std::string bomb = "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY e0 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'>";
    for (int i = 1; i <= 12; ++i) {
        bomb += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j)
            bomb += "&e" + std::to_string(i - 1) + ";";
        bomb += "'>";
    }
    EXPECT_TRUE(TextOf(scratch, bomb + "]><t>&e12;</t>").starts_with("! "));
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<a>";
    EXPECT_TRUE(TextOf(scratch, deep).starts_with("! "));
}

// The children of <t>: elements by name, texts in brackets.
std::string Children(const Scratch& scratch, const std::string& document) {
    const std::string path = scratch.File("d.xml", document);
    std::string shown;
    const XmlNode parent = CTools().SearchXmlNode(path, "t", CErrorHandler());
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
        shown += child.IsElement() ? child.Name() + " " : "[" + child.Text() + "] ";
    return shown;
}

TEST(Xml, TextsAreWholeAndBlankOnesDoNotExist) {
    const Scratch scratch;
    const std::string type =
        "<!DOCTYPE t [<!ELEMENT t ANY><!ELEMENT u EMPTY><!ENTITY e 'ent'><!ENTITY f '[&e;&#62;]'>"
        "<!ENTITY s ' '>]>";
    const std::pair<std::string, const char*> rows[] = {
        {"<t>\n <a/> \t\r\n<b/></t>", "a b "},
        {"<t> <a/> x\n<b/></t>", "a [ x\n] b "},
        {"<t>a&amp;b&#176;c</t>",
         "[a&b\xC2\xB0"
         "c] "},
        {type + "<t>a&e;b<u/>c</t>", "[aentb] u [c] "},
        {type + "<t>&e;<u/> &f;</t>", "[ent] u [ [ent>]] "},
        {type + "<t>&e;&e; &f;&amp;</t>", "[entent [ent>]&] "},
        {type + "<t>&s;<u/> &s; </t>", "u "},
    };
    for (const auto& [document, children] : rows)
        EXPECT_EQ(Children(scratch, document), children) << document;
}

TEST(Xml, EntitiesInAttributesAreExpanded) {
    const Scratch scratch;
    const std::string path = scratch.File("d.xml",
                                          "<!DOCTYPE t [<!ELEMENT t EMPTY><!ATTLIST t k CDATA #REQUIRED>"
                                          "<!ENTITY e 'ent'>]><t k='a&e;&#176;'/>");
    const XmlNode node = CTools().SearchXmlNode(path, "t", CErrorHandler());
    ASSERT_EQ(node.Attributes().size(), 1U);
    EXPECT_EQ(node.Attributes()[0].second, "aent\xC2\xB0");
}

TEST(Xml, NamesOfFilesAndFoldersMayHoldAnything) {
    const Scratch scratch;
    for (const std::string name : {"a b", "a%20b", "a#b", "a&b;'", "\xC3\xA9", "\xCE\xA9\xE6\xB8\xA9 %"}) {
        const std::string folder = scratch.Path(name);
        ASSERT_TRUE(MakeDirectory(folder));
        scratch.File(name + "/" + name + ".dtd", "<!ELEMENT t (#PCDATA)>");
        scratch.File(name + "/plain.dtd", "<!ELEMENT t (#PCDATA)>");
        const std::string path = scratch.Path(name + "/" + name + ".xml");
        WriteFile(path, "<t>x</t>");
        EXPECT_TRUE(XmlDocument(path).IsLoaded()) << name << ": " << XmlDocument(path).Reason();
        WriteFile(path, "<!DOCTYPE t SYSTEM 'plain.dtd'><t>x</t>");
        EXPECT_TRUE(XmlDocument(path).IsLoaded()) << name << ": " << XmlDocument(path).Reason();
        WriteFile(path, "<!DOCTYPE t SYSTEM 'plain.dtd'><t><u/></t>");
        EXPECT_FALSE(XmlDocument(path).IsLoaded()) << name << " is valid only without its DTD";
    }
}

TEST(Xml, ADtdFileServesDocumentsOfEveryEncoding) {
    const Scratch scratch;
    ASSERT_TRUE(MakeDirectory(scratch.Path("dtd")));
    const std::string type = "<!ELEMENT t (#PCDATA)><!ENTITY e 'ent'>";
    const std::string text = "<!DOCTYPE t SYSTEM 'dtd/t.dtd'><t>\xC2\xB0&e;</t>";
    const std::string mark = "\xEF\xBB\xBF";
    for (const char* declaration :
         {"", "<?xml version='1.0' encoding='UTF-8'?>", "<?xml encoding='US-ASCII'?>"}) {
        scratch.File("dtd/t.dtd", declaration + type);
        for (const std::string& document :
             {text, mark + text, ToUtf16(mark + text, false), ToUtf16(mark + text, true),
              "<?xml version='1.0' encoding='ISO-8859-1'?>" + ToCodePage(text)})
            EXPECT_EQ(TextOf(scratch, document),
                      "\xC2\xB0"
                      "ent")
                << declaration;
    }
}

TEST(Xml, ElementsNestToTheLimitAndNoDeeper) {
    const Scratch scratch;
    for (const int levels : {kDeepestXml, kDeepestXml + 1}) {
        std::string document;
        for (int i = 0; i < levels; ++i)
            document += "<a>";
        for (int i = 0; i < levels; ++i)
            document += "</a>";
        EXPECT_EQ(XmlDocument(scratch.File("d.xml", document)).IsLoaded(), levels == kDeepestXml) << levels;
    }
    // Levels that come out of entities.
    std::string type = "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e0 ''>";
    for (int i = 1; i <= 3; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        std::string levels = inner;
        for (int level = 0; level < 100; ++level)
            levels = "<a>" + levels + "</a>";
        type += "<!ENTITY e" + std::to_string(i) + " '" + levels + "'>";
    }
    EXPECT_FALSE(XmlDocument(scratch.File("d.xml", type + "]><a>&e3;</a>")).IsLoaded());
    std::string endless = "<?xml version='1.0'?>\n";
    for (int i = 0; i < 1000; ++i)
        endless += "<n:a>";
    for (const std::string& document : {endless, type + "]>\n<a>&e3;</a>"}) {
        const XmlDocument tooDeep(scratch.File("d.xml", document));
        EXPECT_EQ(tooDeep.Reason(), "elements are nested deeper than 256 levels");
        EXPECT_EQ(tooDeep.Line(), 2);
    }
}

TEST(Xml, LoadFailuresTellTheLine) {
    const Scratch scratch;
    const XmlDocument document(scratch.File("d.xml", "<a>\n<b>\n</a>\n"));
    EXPECT_FALSE(document.IsLoaded());
    EXPECT_EQ(document.Line(), 3);
    EXPECT_FALSE(document.Reason().empty());
}

TEST(Xml, TheFaultThatRefusesIsTheReasonAndNothingIsPrinted) {
    const Scratch scratch;
    const std::string type = "<!DOCTYPE t [<!ELEMENT t ANY>";
    struct Row {
        std::string document;
        const char* reason;
        int line;
    };
    const Row rows[] = {
        {type + "<!ATTLIST t r IDREF #IMPLIED>]>\n<t r='x'/>", "unknown ID", 2},
        {type + "<!ENTITY e SYSTEM 'none'>]>\n<t>&e;</t>", "external entities are not read: e", 2},
        {type + "<!ELEMENT n:u EMPTY>]>\n<t><n:u/>\n<v/></t>", "No declaration for element v", 3},
        {"<?xml version='1.0' encoding='EUC-KR'?>\r\n<t>\xFF\xFF</t>", "0xFF 0xFF", 2},
        {"<?xml version='1.0'?>\n<!DOCTYPE t SYSTEM 'bad.dtd'><t/>", "'bad.dtd', line 3: S", 2},
        {"\n\n<!DOCTYPE t SYSTEM 'latin.dtd'><t/>", "line 2: the bytes 0x81", 3},
        {type + "<!ENTITY e '\n\n<v/>'>]>\n<t>&e;</t>", "No declaration for element v", 4},
        {type + "<!ENTITY e '<v>\n\n'>]>\n<t>&e;</t>", "v", 4},
        {"<a><n:b/>\n<t>\n</a>", "<t> in line 2 is closed with </a>", 3},
        {"<a xml:id='1 2'>\n<t>\n</a>", "<t> in line 2 is closed with </a>", 3},
        {"<a xmlns:xml='urn:x'>\n<t>\n</a>", "<t> in line 2 is closed with </a>", 3},
        // In plain words, with what to write.
        {"<a>\nx & y</a>", "in a text '&' is written &amp;", 2},
        {"<a>\nx &y </a>", "behind '&' and a name stands ';'", 2},
        {"<a>\n&nbsp;</a>", "XML does not know '&nbsp;': write the character itself", 2},
        {"<a>1 < 2</a>", "behind '<' stands the name of an element", 1},
        {"<a b=1/>", "stands in quotation marks", 1},
        {"<a b='1/>", "quotation mark", 1},
        {"<a b='1'c='2'/>", "a blank is missing", 1},
        {"<a b/>", "NAME=\"VALUE\"", 1},
        {"<a/>\n<b/>", "something stands behind it", 2},
        {"{}", "an element in '<' and '>' is expected here", 1},
        {"<a>\x01</a>", "a control character", 1},
        {"<a\n", "a '>' is missing", 2},
        {"<a></a\n", "a '>' is missing", 2},
        {"<?xml version=1.0?><a/>", "a quotation mark is missing", 1},
        {"<a>\n<b>\n", "the file ends before <b> in line 2 is closed", 3},
    };
    scratch.File("bad.dtd", "<!ELEMENT t EMPTY>\r\n\r<!ELEMENT>");
    scratch.File("latin.dtd", "<?xml version='1.0' encoding='windows-1250'?>\r\n<!--\x81-->");
    for (const auto& [text, reason, line] : rows) {
        const std::string path = scratch.File("d.xml", text);
        testing::internal::CaptureStderr();
        const XmlDocument document(path);
        const std::string printed = testing::internal::GetCapturedStderr();
        EXPECT_FALSE(document.IsLoaded()) << text;
        EXPECT_EQ(printed, "") << text;
        EXPECT_NE(document.Reason().find(reason), std::string::npos) << text << document.Reason();
        EXPECT_EQ(document.Line(), line) << text << document.Reason();
    }
}

TEST(Xml, TextsAreEscapedAsTheContentOfAnElement) {
    EXPECT_EQ(XmlEscaped("a&b <c>\r\n\t\"\x01\xC3\xA9"), "a&amp;b &lt;c&gt;&#13;&#10;\t\"?\xC3\xA9");
}

TEST(Xml, NamesKeepTheirPrefixAndNodesTheirLine) {
    const Scratch scratch;
    const std::string path = scratch.File("d.xml", "<a xmlns:n='urn:x'>\n<n:t k='1' n:k='2'>x</n:t></a>");
    const XmlNode node = CTools().SearchXmlNode(path, "n:t", CErrorHandler());
    EXPECT_EQ(node.Line(), 2);
    EXPECT_EQ(node.File(), path);
    const std::string entity = scratch.File("e.xml",
                                            "<!DOCTYPE a [<!ELEMENT a ANY><!ELEMENT t ANY>"
                                            "<!ENTITY e '<t/>\n\n<t/>'>]>\n<a>\n&e;</a>");
    for (XmlNode t = CTools().SearchXmlNode(entity, "t", CErrorHandler()); t; t = t.NextSibling())
        EXPECT_EQ(t.Line(), 5) << "where the entity is asked for";
    EXPECT_EQ(XmlDocument(scratch.File("v.xml", "<?xml version='1.0'?>\n<a/>")).FirstNode().Line(), 1);
    EXPECT_EQ(XmlNode().Line(), 0);
    EXPECT_EQ(node.Attributes().size(), 2U);
    EXPECT_EQ(node.Attributes()[1].first, "n:k");
}

TEST(Xml, AnElementThatIsNotFoundIsToldWithWhatStandsNear) {
    const Scratch scratch;
    const std::string path = scratch.File("a.xml", "<?xml version='1.0'?>\n<!-- c -->\n<a>\n<n:device/></a>");
    const struct {
        std::string file;
        const char* name;
        int error;
        int line;
        const char* reason;
    } rows[] = {
        {path, "DEVICE", 1088, 4, "did you mean <n:device> in line 4?"},
        {path, "dev", 1088, 4, "did you mean <n:device> in line 4?"},
        {path, "profile", 1088, 0, "no element has this name; letter case and prefix count"},
        {path, "", 1088, 0, "this is empty"},
        {scratch.Path("b.xml"), "a", 1087, 0, "did you mean 'a.xml'?"},
        {scratch.Path("none/a.xml"), "a", 1087, 0, "there is no folder"},
        {scratch.Folder(), "a", 1087, 0, "Is a directory"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RaisedNumber([&] { CTools().SearchXmlNode(row.file, row.name, CErrorHandler()); }),
                  row.error);
        const auto error =
            Raised([&] { CTools().SearchXmlNode(row.file, row.name, CErrorHandler(), "property"); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Context().file, row.file);
        EXPECT_EQ(error->Context().line, row.line) << row.name;
        EXPECT_NE(error->Context().reason.find(row.reason), std::string::npos) << error->Context().reason;
        EXPECT_EQ(error->Context().field, row.error == 1088 ? "property" : "");
    }
}

TEST(Xml, WhateverStandsInFrontOfTheRootIsTheFirstNode) {
    const Scratch scratch;
    const std::pair<const char*, XmlNodeKind> rows[] = {
        {"<t/>", XmlNodeKind::element},
        {"<?xml version='1.0'?><t/>", XmlNodeKind::processingInstruction},
        {"<?other?><t/>", XmlNodeKind::processingInstruction},
        {"<!-- c --><t/>", XmlNodeKind::comment},
        {"<!DOCTYPE t [<!ELEMENT t EMPTY>]><t/>", XmlNodeKind::documentType},
    };
    for (const auto& [text, kind] : rows) {
        const XmlDocument document(scratch.File("d.xml", text));
        EXPECT_EQ(document.FirstNode().Kind(), kind) << text;
        XmlNode last = document.FirstNode();
        while (last.NextSibling())
            last = last.NextSibling();
        EXPECT_EQ(last.Name(), "t") << "the root is reached from the first node";
    }
}

}  // namespace
}  // namespace tovarek::test
