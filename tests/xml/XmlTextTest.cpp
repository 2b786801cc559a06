// From the bytes of XML documents to text, and from the name of a DTD to its file.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "system/DoubleByte.h"
#include "xml/DtdPath.h"
#include "xml/XmlText.h"

namespace tovarek::test {
namespace {

// The text, or why and where there is none.
std::string TextOf(std::string_view bytes) {
    try {
        return XmlText(bytes);
    } catch (const XmlFault& fault) {
        return "! " + std::to_string(fault.line) + " " + fault.reason;
    }
}

std::string Declared(const std::string& encoding, std::string_view content) {
    return "<?xml version='1.0' encoding=\"" + encoding + "\"?>" + std::string(content);
}

// `bytes` as a document of that encoding says them.
std::string Decoded(const std::string& encoding, const std::string& bytes) {
    const std::string text = TextOf(Declared(encoding, bytes));
    return text.starts_with("<?xml") ? text.substr(Declared(encoding, "").size()) : text;
}

TEST(XmlText, EveryEncodingOfTheListIsRead) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"utf-8", "\xC3\xA9", "\u00E9"},
        {"US-ASCII", "e", "e"},
        {"latin1", "\x85\xA4\xFF", "\u0085\u00A4\u00FF"},
        {"iso-8859-2", "\xB1", "\u0105"},
        {"ISO-8859-3", "\xA1", "\u0126"},
        {"ISO-8859-4", "\xA2", "\u0138"},
        {"ISO-8859-5", "\xB0", "\u0410"},
        {"ISO-8859-6", "\xC7", "\u0627"},
        {"ISO-8859-7", "\xC1\xA4", "\u0391\u20AC"},
        {"ISO-8859-8", "\xE0", "\u05D0"},
        {"ISO-8859-9", "\xD0", "\u011E"},
        {"ISO-8859-13", "\xC0", "\u0104"},
        {"ISO-8859-15", "\xA4", "\u20AC"},
        {"windows-1250", "\x8A", "\u0160"},
        {"cp1251", "\xC0", "\u0410"},
        {"Windows-1252", "\x80\x81", "\u20AC\u0081"},
        {"windows-1253", "\xC1", "\u0391"},
        {"windows-1254", "\xD0", "\u011E"},
        {"windows-1255", "\xE0", "\u05D0"},
        {"windows-1256", "\xC7", "\u0627"},
        {"windows-1257", "\xC0", "\u0104"},
        {"windows-1258", "\xD2", "\u0309"},
        {"KOI8-R", "\xC1", "\u0430"},
        {"KOI8-U", "\xA4", "\u0454"},
        {"IBM437", "\xE1", "\u00DF"},
        {"cp850", "\x9B", "\u00F8"},
        {"IBM852", "\xA5", "\u0105"},
        {"IBM866", "\x80", "\u0410"},
        {"Shift_JIS", "\\~\x83\x5C\xB1", "\\~\u30BD\uFF71"},
        {"GB2312", "\xB0\xA1", "\u554A"},
        {"Big5", "\xA4\xA4", "\u4E2D"},
        {"EUC-KR", "\xB0\xA1", "\uAC00"},
    };
    for (const auto& [encoding, bytes, text] : rows)
        EXPECT_EQ(Decoded(encoding, bytes), text) << encoding;
}

TEST(XmlText, TheMarkTellsThenTheDeclarationThenTheFirstCharacter) {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string text = "<t>\u00E9\U0001F600</t>";
    const std::string latin = Declared("ISO-8859-1", text);
    for (const std::string& document : {text, mark + text, ToUtf16(text, false), ToUtf16(text, true),
                                        ToUtf16(mark + text, false), ToUtf16(mark + text, true)})
        EXPECT_EQ(TextOf(document), text);
    EXPECT_EQ(TextOf(mark + latin), latin) << "the mark is stronger";
    EXPECT_EQ(TextOf(ToUtf16(mark + latin, true)), latin);
    EXPECT_NE(TextOf(latin), latin);
    EXPECT_EQ(TextOf("<?xml version = \"1.0\"\n encoding\t=\r'latin1' standalone='yes'?>\xE9"),
              "<?xml version = \"1.0\"\n encoding\t=\n'latin1' standalone='yes'?>\u00E9");
    EXPECT_EQ(TextOf("<?xml version='' encoding='latin1'?>\xE9"),
              "<?xml version='' encoding='latin1'?>\u00E9");
    EXPECT_EQ(TextOf("<?xml-encoding x encoding='latin1'?>\u00E9"),
              "<?xml-encoding x encoding='latin1'?>\u00E9");
}

TEST(XmlText, LineEndsBecomeOneAndBadBytesTellTheirLine) {
    EXPECT_EQ(TextOf("a\r\nb\rc\n\r\rd\r"), "a\nb\nc\n\n\nd\n");
    EXPECT_EQ(TextOf(ToUtf16("<a\r\n\r>", true)), "<a\n\n>");
    const std::pair<std::string, const char*> rows[] = {
        {"a\r\n\rb\xFF", "! 3 the bytes 0xFF do not make a character in UTF-8"},
        {"\xED\xA0\x80", "! 1 the bytes 0xED do not make a character in UTF-8"},
        {std::string("<a>\n\0</a>", 9), "! 2 the bytes 0x00 do not make a character in UTF-8"},
        {std::string("<\0\0\xD8", 4), "! 1 the bytes 0x00 0xD8 do not make a character in UTF-16"},
        {std::string("<\0\0\xD8>\0", 6), "! 1 the bytes 0x00 0xD8 do not make a character in UTF-16"},
        {std::string("<\0\n\0>", 5), "! 2 the bytes 0x3E do not make a character in UTF-16"},
        {Declared("US-ASCII", "\n\xC3\xA9"), "! 2 the bytes 0xC3 do not make a character in US-ASCII"},
        {Declared("windows-1253", "\xD2"), "! 1 the bytes 0xD2 do not make a character in windows-1253"},
        {Declared("sjis", "\xA0"), "! 1 the bytes 0xA0 do not make a character in Shift_JIS"},
        {Declared("sjis", "\x80 "), "! 1 the bytes 0x80 0x20 do not make a character in Shift_JIS"},
        {Declared("EUC-KR", "\n\xB0"), "! 2 the bytes 0xB0 do not make a character in EUC-KR"},
        {Declared("GBK", "\xFF\xFF"), "! 1 the bytes 0xFF 0xFF do not make a character in GB2312"},
        {Declared("Big5", "\xA4 "), "! 1 the bytes 0xA4 0x20 do not make a character in Big5"},
    };
    for (const auto& [bytes, fault] : rows)
        EXPECT_EQ(TextOf(bytes), fault);
    EXPECT_FALSE(DoubleByteDecoder(1).IsReady());
}

TEST(XmlText, OtherNamesOfEncodingsAreRefusedWithTheList) {
    for (const std::string name : {"none-such", "ISO-8859-10", "UTF-32", "CP1252 LATIN1", "8859"}) {
        const std::string mark = "\xEF\xBB\xBF";
        const std::string document = Declared(name, "");
        for (const std::string& bytes : {document, mark + document, ToUtf16(mark + document, false)}) {
            const std::string fault = TextOf(bytes);
            EXPECT_TRUE(fault.starts_with("! 1 the encoding '" + name + "'")) << fault;
            EXPECT_TRUE(fault.ends_with("IBM866, Shift_JIS, GB2312, Big5, EUC-KR")) << fault;
        }
    }
    EXPECT_TRUE(TextOf(Declared("UTF-16", "")).starts_with("! 1 "));
}

TEST(DtdPath, NamesAreResolvedByTheirForm) {
    struct Row {
        const char* document;
        const char* name;
        const char* path;  // null: refused
    };
    const Row rows[] = {
        {"/d/x.xml", "t.dtd", "/d/t.dtd"},
        {"x.xml", "t.dtd", "t.dtd"},
        {"C:x.xml", "t.dtd", "C:t.dtd"},
        {"/d/a:b.xml", "dtd/t.dtd", "/d/dtd/t.dtd"},
        {"C:\\d\\x.xml", "dtd/t.dtd", "C:\\d\\dtd/t.dtd"},
        {"C:\\d\\x.xml", "..\\t u.dtd", "C:\\d\\..\\t u.dtd"},
        {"\\\\server\\share\\d\\x.xml", "t.dtd", "\\\\server\\share\\d\\t.dtd"},
        {"/d/x.xml", "/e/t.dtd", "/e/t.dtd"},
        {"C:\\d\\x.xml", "/e/t.dtd", "C:/e/t.dtd"},
        {"\\\\server\\share\\d\\x.xml", "\\e\\t.dtd", "\\\\server\\share\\e\\t.dtd"},
        {"/d/x.xml", "D:\\e\\t.dtd", "D:\\e\\t.dtd"},
        {"/d/x.xml", "D:/e/t.dtd", "D:/e/t.dtd"},
        {"/d/x.xml", "a%20b%C3%A9.dtd", "/d/a b\u00E9.dtd"},
        {"/d/x.xml", "100%.dtd%2", "/d/100%.dtd%2"},
        {"/d/x.xml", "file:///e/a%20b.dtd", "/e/a b.dtd"},
        {"/d/x.xml", "file:///C:/e/t.dtd", "C:/e/t.dtd"},
        {"/d/x.xml", "FILE:///C:\\e\\t.dtd", "C:\\e\\t.dtd"},
        {"C:\\d\\x.xml", "file:///e/t.dtd", "C:/e/t.dtd"},
        {"/d/x.xml", "file://localhost/e/t.dtd", "/e/t.dtd"},
        {"/d/x.xml", "file:t.dtd", "/d/t.dtd"},
        {"/d/x.xml", "", nullptr},
        {"/d/x.xml", "file:", nullptr},
        {"/d/x.xml", "http://localhost/t.dtd", nullptr},
        {"/d/x.xml", "urn:t.dtd", nullptr},
        {"/d/x.xml", "http%3A//localhost/t.dtd", nullptr},
        {"/d/x.xml", "\\\\server\\share\\t.dtd", nullptr},
        {"/d/x.xml", "//server/share/t.dtd", nullptr},
        {"/d/x.xml", "%5C/server/share/t.dtd", nullptr},
        {"/d/x.xml", "file://server/share/t.dtd", nullptr},
        {"/d/x.xml", "file:////server/share/t.dtd", nullptr},
        {"/d/x.xml", "t.dtd%00.txt", nullptr},
    };
    for (const auto& [document, name, path] : rows) {
        const auto resolved = DtdPath(document, name);
        EXPECT_EQ(resolved.value_or("refused"), path == nullptr ? "refused" : path)
            << document << " " << name;
    }
}

}  // namespace
}  // namespace tovarek::test
