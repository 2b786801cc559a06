#include <gtest/gtest.h>

#include "Scratch.h"
#include "support/CTools.h"
#include "support/Xml.h"

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
        {"<t>3&#176;&amp;</t>", "3\xC2\xB0&"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><t>\xB0</t>", "\xC2\xB0"},
        {"<?xml version='1.0' encoding='windows-1252'?><t>\x80</t>", "\xE2\x82\xAC"},
    };
    for (const auto& [document, text] : rows)
        EXPECT_EQ(TextOf(scratch, document), text) << document;
}

TEST(Xml, WhatIsNoDocumentOrNotValidIsRefused) {
    const Scratch scratch;
    scratch.File("good.dtd", "<!ELEMENT t (#PCDATA)>");
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
        "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY e SYSTEM 'good.dtd'>]><t>&e;</t>",
        "<!DOCTYPE t [<!ENTITY % e SYSTEM 'good.dtd'> %e;]><t>x</t>",
        "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY a '&b;'><!ENTITY b '&a;'>]><t>&a;</t>",
    };
    for (const std::string& document : refused)
        EXPECT_TRUE(TextOf(scratch, document).starts_with("! ")) << document;
}

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

TEST(Xml, LoadFailuresTellTheLine) {
    const Scratch scratch;
    const XmlDocument document(scratch.File("d.xml", "<a>\n<b>\n</a>\n"));
    EXPECT_FALSE(document.IsLoaded());
    EXPECT_EQ(document.Line(), 3);
    EXPECT_FALSE(document.Reason().empty());
}

TEST(Xml, NamesKeepTheirPrefixAndNodesTheirLine) {
    const Scratch scratch;
    const std::string path = scratch.File("d.xml", "<a xmlns:n='urn:x'>\n<n:t k='1' n:k='2'>x</n:t></a>");
    const XmlNode node = CTools().SearchXmlNode(path, "n:t", CErrorHandler());
    EXPECT_EQ(node.Line(), 2);
    EXPECT_EQ(node.File(), path);
    EXPECT_EQ(node.Attributes().size(), 2U);
    EXPECT_EQ(node.Attributes()[1].first, "n:k");
    EXPECT_EQ(RaisedNumber([&] { CTools().SearchXmlNode(path, "t", CErrorHandler()); }), 1088);
    EXPECT_EQ(RaisedNumber([&] { CTools().SearchXmlNode(scratch.Path("none"), "t", CErrorHandler()); }),
              1087);
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
