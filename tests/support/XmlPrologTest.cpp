#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Text.h"
#include "support/XmlProlog.h"

namespace tovarek::test {
namespace {

std::string Documented(const std::string& declarations) {
    return "<!DOCTYPE t [" + declarations + "]><t/>";
}

TEST(XmlProlog, TheExternalPartIsFoundWhereverItStands) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"<t/>", ""},
        {"<!DOCTYPE t><t/>", ""},
        {"<!DOCTYPE t SYSTEM 'a.dtd'><t/>", "a.dtd"},
        {"<!DOCTYPE t SYSTEM \"it's.dtd\"><t/>", "it's.dtd"},
        {"<!DOCTYPE\r\n\tt\n  SYSTEM\n'a.dtd'\n[ ]\n><t/>", "a.dtd"},
        {"<!DOCTYPE t PUBLIC '-//x//DTD y' 'a.dtd'><t/>", "a.dtd"},
        {"<!DOCTYPE t PUBLIC '-//x//DTD y'><t/>", ""},
        {"<!DOCTYPE t SYSTEM ''><t/>", ""},
        {"<!DOCTYPE t SYSTEM a.dtd><t/>", ""},
        {"\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- c -->\n<?p?>\n<!DOCTYPE t SYSTEM 'a'><t/>", "a"},
        // What only looks like a declaration.
        {"<!-- <!DOCTYPE t SYSTEM 'no'> --><!DOCTYPE t SYSTEM 'a'><t/>", "a"},
        {"<!-- it's --><!DOCTYPE t SYSTEM 'a'><t/>", "a"},
        {"<?p <!DOCTYPE t SYSTEM 'no'> \"?><!DOCTYPE t SYSTEM 'a'><t/>", "a"},
        {"<!-- <!DOCTYPE t SYSTEM 'no'> --><t/>", ""},
        {"<t><!DOCTYPE t SYSTEM 'no'></t>", ""},
        {"text <!DOCTYPE t SYSTEM 'no'><t/>", ""},
        {"<!doctype t SYSTEM 'no'><t/>", ""},
        {"<!DOCTYPE t [<!ENTITY a SYSTEM 'no'>]><t/>", ""},
    };
    for (const auto& [document, systemId] : rows)
        EXPECT_EQ(XmlProlog(document).SystemId(), systemId) << document;
    EXPECT_FALSE(XmlProlog("<!-- <!DOCTYPE t> --><t/>").HasDocumentType());
    EXPECT_TRUE(XmlProlog("<!DOCTYPE t><t/>").HasDocumentType());
}

TEST(XmlProlog, EntitiesOfTextAloneAreToldFromAllOthers) {
    const struct {
        const char* declarations;
        bool isPlain;  // the entity a
    } rows[] = {
        {"<!ENTITY a 'text'>", true},
        {"<!ENTITY a ''>", true},
        {"<!ENTITY a 'it&#39;s 5 &#37; of > &quot;x&quot;'>", true},
        {"<!ENTITY a '<b/>'>", false},
        {"<!ENTITY a '&#60;b/>'>", false},
        {"<!ENTITY a '&#x3C;b/>'>", false},
        {"<!ENTITY a '&lt;b/&gt;'>", true},
        {"<!ENTITY a '&#38;#60;b'>", true},  // a reference to the character, not the character
        {"<!ENTITY a '&b;!'><!ENTITY b '&c;'><!ENTITY c 'x'>", true},
        {"<!ENTITY a '&b;!'><!ENTITY b '&c;'><!ENTITY c '<x/>'>", false},
        {"<!ENTITY a '&b;'>", false},
        {"<!ENTITY a '&b;&b;&c;'><!ENTITY b '&c;'><!ENTITY c 'x'>", true},
        {"<!ENTITY a '&a;'>", false},
        {"<!ENTITY a '&b;'><!ENTITY b 'x&a;'>", false},
        {"<!ENTITY a SYSTEM 'a.txt'>", false},
        {"<!ENTITY a PUBLIC 'p' 'a.txt'>", false},
        {"<!ENTITY a SYSTEM 'a.gif' NDATA gif>", false},
        {"<!ENTITY a 'first'><!ENTITY a '<b/>'>", true},
        {"<!ENTITY a '<b/>'><!ENTITY a 'second'>", false},
        {"<!ENTITY % a 'x'>", false},
        {"<!-- <!ENTITY a 'x'> -->", false},
        {"<?p <!ENTITY a 'x'> ?>", false},
        {"<!ATTLIST t k CDATA \"<!ENTITY a 'x'>\">", false},
        {"<!-- it's --><!ENTITY\n a\t'x' >", true},
        {"<!ELEMENT t ANY><!ATTLIST t k CDATA ']>'><!ENTITY a 'x'>", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(XmlProlog(Documented(row.declarations)).IsPlainText("a"), row.isPlain) << row.declarations;
        XmlProlog outside("<!DOCTYPE t SYSTEM 'a.dtd'><t/>");
        outside.ReadExternalPart(row.declarations);
        EXPECT_EQ(outside.IsPlainText("a"), row.isPlain) << "outside: " << row.declarations;
    }
    const XmlProlog none("<t/>");
    for (const char* name : {"amp", "lt", "gt", "quot", "apos", "#65", "#x1F600"})
        EXPECT_TRUE(none.IsPlainText(name)) << name;
    for (const char* name : {"", "AMP", "nbsp", "#", "#x", "#0", "#6a", "#-1"})
        EXPECT_FALSE(none.IsPlainText(name)) << name;
}

TEST(XmlProlog, DeclarationsOfTheDocumentWinOverThoseOutside) {
    XmlProlog prolog("<!DOCTYPE t SYSTEM 'a.dtd' [<!ENTITY a 'x'><!ENTITY b '<b/>'>]><t/>");
    prolog.ReadExternalPart("\xEF\xBB\xBF<!ENTITY a '<b/>'><!ENTITY b 'x'><!ENTITY c '&a;'>");
    EXPECT_TRUE(prolog.IsPlainText("a"));
    EXPECT_FALSE(prolog.IsPlainText("b"));
    EXPECT_TRUE(prolog.IsPlainText("c"));
}

TEST(XmlProlog, SectionsOfTheExternalPartCountWhenTheyAreIncluded) {
    XmlProlog prolog("<!DOCTYPE t SYSTEM 'a.dtd'><t/>");
    prolog.ReadExternalPart(
        "<!ENTITY % draft 'IGNORE'><!ENTITY % final 'INCLUDE'>"
        "<![INCLUDE[<!ENTITY a 'x'>]]><![ IGNORE [<!ENTITY b 'x'><![INCLUDE[]]><!ENTITY b 'x'>]]>"
        "<![%draft;[<!ENTITY b 'x'>]]><![ %final; [<!ENTITY c 'x'>]]><!ENTITY d 'x'>");
    std::string plain;
    for (const char* name : {"a", "b", "c", "d"})
        plain += prolog.IsPlainText(name) ? name : "-";
    EXPECT_EQ(plain, "a-cd");
    EXPECT_FALSE(prolog.UsesExternalParameters());
}

TEST(XmlProlog, OnlyParameterEntitiesThatAreUsedReachOutside) {
    const std::string file = "<!ENTITY % e SYSTEM 'secret'>";
    const struct {
        std::string declarations;
        bool reaches;
    } rows[] = {
        {file, false},
        {"<!ENTITY % e PUBLIC 'p' 'secret'>", false},
        {file + "%e;", true},
        {file + "<!-- %e; --><?p %e; ?>", false},
        {file + "<!ATTLIST t k CDATA '%e;'>", false},
        {"<!ENTITY % e 'x'>%e;", false},
        {"<!ENTITY % e 'x'>" + file + "%e;", false},
        {"%e;" + file, true},
        {file + "<!ELEMENT t %e;>", true},
        {file + "<!ENTITY a '%e;'>", true},
        {file + "<!ENTITY a '5 % e;'>", false},
        {file + "<![%e;[]]>", true},
        // Declared or used by what another one stands for.
        {file + "<!ENTITY % u '&#37;e;'>", false},
        {file + "<!ENTITY % u '&#37;e;'>%u;", true},
        {"<!ENTITY % d '<!ENTITY &#37; e SYSTEM \"secret\">'>%d;", false},
        {"<!ENTITY % d '<!ENTITY &#37; e SYSTEM \"secret\">'>%d;%e;", true},
        {"<!ENTITY % d '<!ENTITY &#37; e \"x\">'>%d;%e;", false},
        {"<!ENTITY % e '&#37;e;'>%e;", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(XmlProlog(Documented(row.declarations)).UsesExternalParameters(), row.reaches)
            << row.declarations;
        XmlProlog outside("<!DOCTYPE t SYSTEM 'a.dtd'><t/>");
        outside.ReadExternalPart(row.declarations);
        EXPECT_EQ(outside.UsesExternalParameters(), row.reaches) << "outside: " << row.declarations;
    }
}

TEST(XmlProlog, EntitiesThatMultiplyAreAnsweredAtOnce) {
    std::string general = "<!ENTITY e0 'x'>";
    std::string parameters = "<!ENTITY % p0 'x'>";
    std::string chain = "<!ENTITY c0 'x'>";
    for (int i = 1; i <= 60; ++i) {
        const std::string before = std::to_string(i - 1);
        const std::string name = std::to_string(i);
        general += "<!ENTITY e" + name + " '&e" + before + ";&e" + before + ";'>";
        parameters += "<!ENTITY % p" + name + " '&#37;p" + before + ";&#37;p" + before + ";'>";
    }
    for (int i = 1; i <= 100000; ++i)
        chain += "<!ENTITY c" + std::to_string(i) + " '&c" + std::to_string(i - 1) + ";'>";
    EXPECT_TRUE(XmlProlog(Documented(general)).IsPlainText("e60"));
    EXPECT_FALSE(XmlProlog(Documented(parameters)).UsesExternalParameters());
    EXPECT_TRUE(XmlProlog(Documented(parameters + "%p60;")).UsesExternalParameters())
        << "more than can be looked at";
    const XmlProlog deep(Documented(chain));
    EXPECT_TRUE(deep.IsPlainText("c90"));
    EXPECT_FALSE(deep.IsPlainText("c100000")) << "nobody follows that far";
}

TEST(XmlProlog, TextsOfEntitiesAreResolvedToTheEnd) {
    const XmlProlog prolog(
        Documented("<!ENTITY blank ' '><!ENTITY in 'in'><!ENTITY e '&in;&#45;&in;&blank;&lt;&#38;#38;'>"
                   "<!ENTITY m '<b/>'><!ENTITY none ''>"));
    EXPECT_EQ(prolog.TextOf("e"), "in-in <&");
    EXPECT_EQ(prolog.TextOf("blank"), " ");
    EXPECT_EQ(prolog.TextOf("none"), "");
    EXPECT_EQ(prolog.TextOf("m"), std::nullopt);
    EXPECT_EQ(prolog.TextOf("other"), std::nullopt);
    for (const std::string text : {"x", ""}) {
        std::string bomb = "<!ENTITY e0 '" + text + "'>";
        for (int i = 1; i <= 60; ++i)
            bomb += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";&e" +
                    std::to_string(i - 1) + ";'>";
        const XmlProlog bombed(Documented(bomb));
        EXPECT_EQ(bombed.TextOf("e60"), std::nullopt) << "answered at once";
        EXPECT_EQ(bombed.TextOf("e3"), text + text + text + text + text + text + text + text);
    }
}

TEST(XmlProlog, MarkupOfEntitiesTakesTheirPlaceInTheContent) {
    const std::string declared =
        "<!DOCTYPE t [<!ENTITY m '<b k=\"&in;\">&n;</b>'><!ENTITY n '&in;&o;'><!ENTITY o '<c/>'><!ENTITY in "
        "'x'>"
        "<!ENTITY self '<d/>&self;'><!ENTITY far SYSTEM 'far'><!ENTITY half '<e/>&far;'>]>";
    const std::pair<const char*, const char*> rows[] = {
        {"<t>&m;</t>", "<t><b k=\"&in;\">&in;<c/></b></t>"},
        {"<t a='&in;' b='&m;>'>&in;&amp;&#65;&o;&o;</t>", "<t a='&in;' b='&m;>'>&in;&amp;&#65;<c/><c/></t>"},
        {"<t><!-- &o; --><![CDATA[&o;]]><?p &o;?></t>", "<t><!-- &o; --><![CDATA[&o;]]><?p &o;?></t>"},
        {"<t>&self;&far;&half;&unknown;& ;&</t>", "<t>&self;&far;&half;&unknown;& ;&</t>"},
        {"<t>&o", "<t>&o"},
        {"<t k='&o;", "<t k='&o;"},
    };
    for (const auto& [content, expected] : rows) {
        const std::string document = declared + content;
        EXPECT_EQ(XmlProlog(document).WithMarkupExpanded(document), declared + expected);
        const std::string wide = ToUtf16(document, false);
        EXPECT_EQ(XmlProlog(wide).WithMarkupExpanded(wide), ToUtf16(declared + expected, false));
    }
    std::string bomb = "<!ENTITY e0 '<b/>'>";
    for (int i = 1; i <= 60; ++i)
        bomb += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";&e" +
                std::to_string(i - 1) + ";'>";
    const std::string document = "<!DOCTYPE t [" + bomb + "]><t>&e60;&e2;</t>";
    EXPECT_EQ(XmlProlog(document).WithMarkupExpanded(document), document) << "given up at once, and for good";
}

const std::string kRich =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<!-- \"<!DOCTYPE\" -->\n"
    "<!DOCTYPE t PUBLIC \"-//x\" 'sub/a.dtd' [\n<!ELEMENT t (#PCDATA|u)*>\n<!ATTLIST t k CDATA \"]>\">\n"
    "<!ENTITY a 'x&#62;'>\n<!ENTITY b SYSTEM \"b\" NDATA n>\n<!ENTITY % p '<!ENTITY c \"1 &amp; 2\">'>\n%p;\n"
    "<?p ]]> ?>\n]><t>&a;</t>";

TEST(XmlProlog, DocumentsOfEveryEncodingAreReadAlike) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string documents[] = {kRich,
                                     mark + kRich,
                                     ToUtf16(kRich, false),
                                     ToUtf16(kRich, true),
                                     ToUtf16(mark + kRich, false),
                                     ToUtf16(mark + kRich, true)};
    for (const std::string& document : documents) {
        const XmlProlog prolog(document);
        EXPECT_EQ(prolog.SystemId(), "sub/a.dtd");
        EXPECT_TRUE(prolog.IsPlainText("a"));
        EXPECT_FALSE(prolog.IsPlainText("b"));
        EXPECT_TRUE(prolog.IsPlainText("c"));
        EXPECT_FALSE(prolog.UsesExternalParameters());

        const std::string moved = prolog.ForParser(document, "file:///C:/a.dtd");
        EXPECT_EQ(XmlProlog(moved).SystemId(), "file:///C:/a.dtd");
        EXPECT_EQ(XmlProlog(moved).ForParser(moved, "sub/a.dtd"), document) << "all else stays";
    }
}

TEST(XmlProlog, TheParserIsToldTheTextsOfTheExternalPart) {
    const std::string outer =
        "<!ENTITY e 'x \"&f;\"'><!ENTITY f \"it's\"><!ENTITY m '<b/>'><!ENTITY s SYSTEM 'no'><!ENTITY f 'no'>"
        "<!ENTITY % p 'x'><!ENTITY q '%p;'><!ENTITY inner 'no'>";
    const std::string told = "<!ENTITY e 'x \"&f;\"'><!ENTITY f \"it's\"><!ENTITY m \"<b/>\">";
    const std::pair<std::string, std::string> rows[] = {
        {"<!DOCTYPE t SYSTEM 'a' ><t/>",
         "<!DOCTYPE t SYSTEM 'URL'[" + told + "<!ENTITY inner \"no\">] ><t/>"},
        {"<!DOCTYPE t SYSTEM 'a' [<!ENTITY inner ']'> ]><t/>",
         "<!DOCTYPE t SYSTEM 'URL' [<!ENTITY inner ']'> " + told + "]><t/>"},
    };
    for (const auto& [document, expected] : rows)
        for (const bool isWide : {false, true}) {
            const std::string bytes = isWide ? ToUtf16(document, true) : document;
            XmlProlog prolog(bytes);
            prolog.ReadExternalPart(outer);
            EXPECT_EQ(prolog.ForParser(bytes, "URL"), isWide ? ToUtf16(expected, true) : expected);
        }
    // Characters of unknown meaning cannot be told.
    const std::string document = "<!DOCTYPE t SYSTEM 'a'><t/>";
    XmlProlog prolog(document);
    prolog.ReadExternalPart("<?xml version='1.0' encoding='ISO-8859-1'?><!ENTITY e '\xB0'><!ENTITY f 'x'>");
    EXPECT_FALSE(prolog.IsPlainText("e"));
    EXPECT_TRUE(prolog.IsPlainText("f"));
    EXPECT_EQ(prolog.ForParser(document, "URL"), "<!DOCTYPE t SYSTEM 'URL'[<!ENTITY f \"x\">]><t/>");
}

// Whatever a document is cut or changed to, it is read to its end and nothing is made up.
TEST(XmlProlog, CutAndDamagedDocumentsAreReadAsFarAsTheyGo) {
    const std::string whole = kRich.substr(0, kRich.find("'sub/a.dtd'") + 11);
    for (std::size_t length = 0; length <= kRich.size(); ++length) {
        const std::string cut = kRich.substr(0, length);
        XmlProlog prolog(cut);
        if (length >= whole.size()) {
            EXPECT_EQ(prolog.SystemId(), "sub/a.dtd") << length;
        } else {
            EXPECT_TRUE(std::string("sub/a.dtd").starts_with(prolog.SystemId())) << length;
        }
        EXPECT_FALSE(prolog.IsPlainText("b"));
        prolog.ReadExternalPart(cut);
        for (const bool bigEndian : {false, true}) {
            std::string wide = ToUtf16(cut, bigEndian);
            EXPECT_EQ(XmlProlog(wide).SystemId(), XmlProlog(cut).SystemId()) << length;
            wide.resize(wide.size() - (wide.empty() ? 0 : 1));
            EXPECT_FALSE(XmlProlog(wide).IsPlainText("b"));
        }
    }
    for (std::size_t place = 0; place < kRich.size(); ++place)
        for (const char c : {'<', '>', '\'', '"', '%', '&', '[', ']', '\0', '\xFF'}) {
            std::string changed = kRich;
            changed[place] = c;
            EXPECT_LE(XmlProlog(changed).SystemId().size(), kRich.size()) << place << c;
        }
}

}  // namespace
}  // namespace tovarek::test
