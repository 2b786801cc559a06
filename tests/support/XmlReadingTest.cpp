// What is told of an XML document that is read otherwise than it was written.
#include <gtest/gtest.h>

#include <string>

#include "Scratch.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "support/Readings.h"

namespace tovarek::test {
namespace {

struct List : FindingSink {
    void Take(Finding finding) override {
        const char* const name = finding.warning == Warning::notANumber         ? "number"
                                 : finding.warning == Warning::duplicateKey     ? "twice"
                                 : finding.warning == Warning::ignoredElement   ? "element"
                                 : finding.warning == Warning::ignoredAttribute ? "attribute"
                                 : finding.warning == Warning::ignoredText      ? "text"
                                                                                : "?";
        all += std::to_string(finding.context.line) + ":" + std::to_string(finding.column) + "+" +
               std::to_string(finding.width) + " " + name + " " + finding.context.reason + "\n";
    }
    bool WantsWarnings() const override { return true; }
    std::string all;
};

constexpr std::string_view kNames[] = {"NUM", "TEXT", "LIST"};
constexpr std::string_view kListNames[] = {"ITEM"};

// A reader of <NUM>, <TEXT> and of the numbers <ITEM> in <LIST>, of which each may stand in wrappers.
class Reader {
  public:
    Reader(XmlReading& reading, FindingSink& findings)
        : reading_(reading), record_(reading, findings, [] { return std::string("record"); }) {}

    void Read(const XmlNode& parent, bool isInList) {
        reading_.Structure(parent, isInList ? XmlNames(kListNames) : XmlNames(kNames));
        ReadChildren(parent, isInList);
    }

  private:
    void ReadChildren(const XmlNode& parent, bool isInList) {
        for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling()) {
            const std::string name = UpperCase(child.Name());
            if (name == (isInList ? "ITEM" : "NUM"))
                record_.Integer(child, isInList ? "ITEM" : "NUM");
            else if (!isInList && name == "TEXT")
                record_.Text(child, "TEXT");
            else if (!isInList && name == "LIST")
                Read(child, true);
            else if (child.IsElement())
                ReadChildren(child, isInList);
        }
    }

    XmlReading& reading_;
    XmlRecord record_;
};

std::string Told(const Scratch& scratch, const std::string& content) {
    List findings;
    Readings readings(findings);
    const XmlNode root = CTools().SearchXmlNode(scratch.File("d.xml", content), "R", CErrorHandler());
    Reader(readings.Xml(root), findings).Read(root, false);
    readings.TellUnread();
    return findings.all;
}

TEST(XmlReading, WhatIsReadOtherwiseIsToldAtItsStartTag) {
    const Scratch scratch;
    const std::pair<const char*, const char*> rows[] = {
        {"<R><NUM> 12\n</NUM><text>any</text><LIST><ITEM>2.0</ITEM></LIST></R>", ""},
        {"<R xmlns='u' xmlns:a='v' xml:lang='en' xsi:type='t'/>", ""},
        {"<X a='1'>text<R/><Y/></X>", ""},
        {"<R><NUM>2 m</NUM></R>", "1:4+5 number \"2 m\" is not a number; it is read as 2\n"},
        {"<R><NUM>2.5</NUM></R>", "1:4+5 number \"2.5\" is not a whole number; it is read as 2\n"},
        {"<R><NUM/></R>", "1:4+6 number NUM has no value; it is read as 0\n"},
        {"<R>\n<!-- \xC3\xA4 --><NUM\na='1'>x</NUM></R>",
         "2:11+4 number \"x\" is not a number; it is read as 0\n"
         "2:11+4 attribute attribute 'a' of <NUM> is not read\n"},
        {"<R num='1' b='2'/>",
         "1:1+18 attribute attributes 'num', 'b' of <R> are not read: write an element <NUM>\n"},
        {"<R><NUM>1</NUM><NUM>2</NUM></R>",
         "1:4+5 twice <NUM> stands again in line 1; only the last one is read\n"},
        {"<R><TXT>a<b c='d'>e</b></TXT></R>",
         "1:4+5 element <TXT> is not read: no element of this name is asked for in <R>; did you mean "
         "'TEXT'?\n"},
        {"<R><w><LIST><ITM>1</ITM></LIST></w></R>",
         "1:13+5 element <ITM> is not read: no element of this name is asked for in <LIST>; did you mean "
         "'ITEM'?\n"},
        {"<R>a<w b='1'><NUM>1</NUM>c</w></R>",
         "1:1+3 text the text \"a\" in <R> is not read: only elements in it are\n"
         "1:5+9 text the text \"c\" in <w> is not read: only elements in it are\n"
         "1:5+9 attribute attribute 'b' of <w> is not read\n"},
        {"<R><NUM>1<!-- -->2</NUM></R>",
         "1:4+5 text the text \"2\" in <NUM> behind a comment is not read: only the first text of an element "
         "is\n"},
        {"<R><TEXT>1<i/>2</TEXT></R>",
         "1:4+6 text the text \"2\" in <TEXT> behind <i> is not read: only the first text of an element is\n"
         "1:11+4 element <i> is not read: no element of this name is asked for in <TEXT>\n"},
        {"<R><NUM><![CDATA[1]]></NUM></R>",
         "1:4+5 text a CDATA section in <NUM> is not read: write its text plainly, with &lt; and &amp; for < "
         "and &\n"},
        {"<!DOCTYPE R [<!ELEMENT R ANY><!ELEMENT x EMPTY><!ATTLIST R a CDATA 'd' b CDATA #IMPLIED><!ENTITY e "
         "'<x/>'>]>\n"
         "<R b='1'>&e;\n&e;</R>",
         "2:1+9 attribute attribute 'b' of <R> is not read\n"
         "2:0+0 element <x> is not read: no element of this name is asked for in <R>\n"},
    };
    for (const auto& [content, told] : rows)
        EXPECT_EQ(Told(scratch, content), told) << content;
}

// One file may serve several loaders; each reads a tree of its own.
TEST(XmlReading, WhatOneReaderReadsIsReadForAll) {
    const Scratch scratch;
    List findings;
    Readings readings(findings);
    scratch.File("d.xml", "<A><R><NUM>1</NUM><B/></R></A>");
    for (const char* const name : {"A", "R"}) {
        const XmlNode root = CTools().SearchXmlNode(scratch.Path("d.xml"), name, CErrorHandler());
        if (root.Name() == "A")
            readings.Xml(root).Structure(root);
        else
            Reader(readings.Xml(root), findings).Read(root, false);
    }
    readings.TellUnread();
    EXPECT_EQ(findings.all, "1:19+4 element <B> is not read: no element of this name is asked for in <R>\n");
}

}  // namespace
}  // namespace tovarek::test
