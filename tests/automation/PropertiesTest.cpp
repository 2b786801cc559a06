#include <map>

#include "Host.h"

namespace tovarek::test {
namespace {

// Setting the catalog opens it, so these two are set apart.
bool OpensCatalog(const Member& member) {
    return member.name == "catalogDir" || member.name == "catalogFile";
}

TEST(Properties, AFreshObjectHasItsDefaults) {
    const Apartment apartment;
    const auto server = CreateServer();
    const std::map<std::string, std::string> known = {
        {"catalogFile", "ldrf.cat"},
        {"mustGenerateXif", "True"},
        {"mustGenerateTypes", "True"},
        {"typeFilesXMLPrefix", "SNVT_"},
        {"creator", "Tovarek"},
        {"creatorDescription", "Tovarek utility"},
        {"localeID", "1033"},
        {"langExtension", "ENU"},
        {"typeFileDescription", "Type file"},
        {"langFileDescription", "Lang file"},
        {"fptFileDescription", "Functional profile file"},
        {"majorVersion", "1"},
        {"minorVersion", "0"},
        {"addNameInCpString", "False"},
        {"createUnitsFromReference", "True"},
    };
    for (const Member& member : Members()) {
        if (member.kind == MemberKind::method)
            continue;
        const auto row = known.find(member.name);
        const std::string expected = row != known.end()                   ? row->second
                                     : member.kind == MemberKind::node    ? "nothing"
                                     : member.kind == MemberKind::boolean ? "True"
                                                                          : "";
        const DispatchAnswer answer = DispatchGet(server.Get(), member.name);
        EXPECT_EQ(answer.told, "S_OK") << member.name;
        EXPECT_EQ(answer.value.Text(), expected) << member.name;
    }
}

TEST(Properties, EveryTextComesBackAsItWasSet) {
    const Apartment apartment;
    const auto server = CreateServer();
    using namespace std::string_literals;
    // Beyond the code page, beyond 16 bits, a NUL, half a pair, blanks: what the host gives is stored
    // unchanged.
    const std::wstring texts[] = {L"",           L" blanks ", L"\u00E9\u03A9\u65E5",
                                  L"\U0001F600", L"a\0b"s,    L"\xD800 x"};
    for (const std::wstring& text : texts) {
        // The last one that is set empties the sources that stand beside it, so each is read back at once.
        for (const Member& member : Members()) {
            if (member.kind != MemberKind::string || OpensCatalog(member))
                continue;
            ASSERT_EQ(DispatchPut(server.Get(), member.name, Variant(text)), "S_OK") << member.name;
            DispatchAnswer answer = DispatchGet(server.Get(), member.name);
            ASSERT_EQ(answer.value.Get().vt, VT_BSTR) << member.name;
            EXPECT_EQ(std::wstring(ViewOf(answer.value.Get().bstrVal)), text) << member.name;
        }
    }
}

TEST(Properties, NumbersAndBooleansAreConvertedByThePlatform) {
    const Apartment apartment;
    const auto server = CreateServer();
    for (const Member& member : Members()) {
        if (member.kind == MemberKind::integer) {
            for (const LONG number : {0L, -1L, 2147483647L, static_cast<LONG>(-2147483647L - 1)}) {
                EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(number)), "S_OK");
                EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), std::to_string(number));
            }
            EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(std::wstring(L"1036"))), "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), "1036");
            EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(std::wstring(L"many"))), "80020005 : ");
            EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), "1036") << "the value stays";
        }
        if (member.kind == MemberKind::boolean) {
            EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(0L)), "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), "False") << member.name;
            EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(7L)), "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), "True") << member.name;
        }
        if (member.kind == MemberKind::string && !OpensCatalog(member)) {
            EXPECT_EQ(DispatchPut(server.Get(), member.name, Variant(12L)), "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), member.name).value.Text(), "12") << member.name;
        }
    }
}

TEST(Properties, TheVtableSpeaksTheTypesOfAutomation) {
    const Apartment apartment;
    const auto server = CreateServer();
    // A null string is the empty string; any number but 0 is true, and true comes back as -1.
    EXPECT_EQ(server->put_creator(nullptr), S_OK);
    Bstr creator;
    EXPECT_EQ(server->get_creator(creator.Out()), S_OK);
    EXPECT_EQ(creator.View(), L"");
    VARIANT_BOOL flag = 0;
    EXPECT_EQ(server->put_addNameInCpString(1), S_OK);
    EXPECT_EQ(server->get_addNameInCpString(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    LONG number = 0;
    EXPECT_EQ(server->put_majorVersion(-5), S_OK);
    EXPECT_EQ(server->get_majorVersion(&number), S_OK);
    EXPECT_EQ(number, -5);
    EXPECT_EQ(server->get_majorVersion(nullptr), E_POINTER);
    EXPECT_EQ(server->get_creator(nullptr), E_POINTER);
    EXPECT_EQ(server->get_xmlTemplateNode(nullptr), E_POINTER);
}

TEST(Properties, SourcesEmptyEachOther) {
    const Apartment apartment;
    const auto server = CreateServer();
    const auto document = LoadXml(L"<a/>");
    const auto set = [&](const std::string& name) {
        DispatchPut(server.Get(), name, Variant(std::wstring(L"x")));
    };
    const auto read = [&](const std::string& name) { return DispatchGet(server.Get(), name).value.Text(); };
    set("xmlProfileNodeName");
    set("iniProfileFile");
    set("xifProfileFile");
    EXPECT_EQ(read("iniProfileFile"), "");
    DispatchPut(server.Get(), "xmlProfileNode", Variant(document.Get()));
    EXPECT_EQ(read("xifProfileFile"), "");
    EXPECT_EQ(read("xmlProfileNode"), "object");
    set("xmlProfileFile");
    EXPECT_EQ(read("xmlProfileNode"), "nothing");
    EXPECT_EQ(read("xmlProfileNodeName"), "x");
    set("iniTemplateFile");
    DispatchPut(server.Get(), "xmlTemplateNode", Variant(document.Get()));
    EXPECT_EQ(read("iniTemplateFile"), "");
    DispatchPut(server.Get(), "xmlTemplateFile", Variant(std::wstring()));
    EXPECT_EQ(read("xmlTemplateNode"), "nothing") << "an empty file name empties the others as well";
}

TEST(Properties, NamesAreFoundInAnyCase) {
    const Apartment apartment;
    const auto server = CreateServer();
    EXPECT_EQ(DispatchGet(server.Get(), "LOCALEid").value.Text(), "1033");
    EXPECT_EQ(DispatchGet(server.Get(), "locale").told.substr(0, 8), "80020006") << "unknown name";
    EXPECT_EQ(DispatchPut(server.Get(), "Generate", Variant(1L)).substr(0, 8), "80020003")
        << "no such member";
}

}  // namespace
}  // namespace tovarek::test
