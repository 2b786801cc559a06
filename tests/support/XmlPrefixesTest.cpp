#include <gtest/gtest.h>

#include <string>

#include "Scratch.h"
#include "support/CTools.h"
#include "support/Text.h"
#include "support/XmlPrefixes.h"

namespace tovarek::test {
namespace {

TEST(XmlPrefixes, AreDeclaredOnceWhereTheyAreDeclaredNowhere) {
    const std::string p = " xmlns:p=\"urn:p\"";
    const std::string q = " xmlns:q=\"urn:q\"";
    const std::pair<std::string, std::string> rows[] = {
        {"<p:t/>", "<p:t" + p + "/>"},
        {"<?xml version='1.0'?><!-- <r:x/> --><t a='1'><p:b/><p:c q:k='r:v>'/></t>",
         "<?xml version='1.0'?><!-- <r:x/> --><t" + p + q + " a='1'><p:b/><p:c q:k='r:v>'/></t>"},
        {"<t><![CDATA[<p:x>]]><?pi <p:x?>a:b</t>", ""},
        {"<t xmlns:p='u'><p:b xml:lang='en'/></t>", ""},
        {"<t><p:b xmlns:p='u'/></t>", ""},
        {"<t/>", ""},
        {"<!DOCTYPE p:t [<!ELEMENT p:t ANY>]><p:t/>", ""},
        {"", ""},
        {"no document", ""},
        {"<t k='<p:", ""},
        {"<", ""},
    };
    for (const auto& [document, expected] : rows) {
        const std::string& wanted = expected.empty() ? document : expected;
        EXPECT_EQ(WithPrefixesDeclared(document), wanted);
        const std::string mark = "\xEF\xBB\xBF";
        EXPECT_EQ(WithPrefixesDeclared(mark + document), mark + wanted);
        EXPECT_EQ(WithPrefixesDeclared(ToUtf16(mark + document, true)), ToUtf16(mark + wanted, true));
    }
}

// Whatever the platform's parser thinks of name spaces.
TEST(XmlPrefixes, NamesKeepAPrefixThatNobodyDeclared) {
    const Scratch scratch;
    const std::string path = scratch.File("d.xml", "<t><n:a>x</n:a><a>y</a></t>");
    const auto text = [&](const char* name) {
        return CTools().nodeTextValue(CTools().SearchXmlNode(path, name, CErrorHandler()));
    };
    EXPECT_EQ(text("n:a"), "x");
    EXPECT_EQ(text("a"), "y");
}

}  // namespace
}  // namespace tovarek::test
